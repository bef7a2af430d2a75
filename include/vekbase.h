/* vekbase.h: element types and status codes shared by libvekcore and libveksk0.
 *
 * Copyright 2026 The veks Authors. Licensed under the Apache License, Version 2.0.
 * Usable from C99 and C++. Included by veks.h and vekcore.h; there is no need to include it
 * directly. */
#ifndef VEKBASE_H
#define VEKBASE_H

#ifdef __cplusplus
extern "C" {
#endif

/* Element types. Complex elements are stored real part first, nothing between the parts. */
typedef unsigned char Vek8u;
typedef signed char Vek8s;
typedef unsigned short Vek16u;
typedef short Vek16s;
typedef unsigned int Vek32u;
typedef int Vek32s;
typedef unsigned long long Vek64u;
typedef long long Vek64s;
typedef short Vek16f; /* IEEE 754 binary16, kept as its 16-bit pattern */
typedef float Vek32f;
typedef double Vek64f;
typedef struct {
  Vek8s re, im;
} Vek8sc;
typedef struct {
  Vek16s re, im;
} Vek16sc;
typedef struct {
  Vek32s re, im;
} Vek32sc;
typedef struct {
  Vek64s re, im;
} Vek64sc;
typedef struct {
  Vek32f re, im;
} Vek32fc;
typedef struct {
  Vek64f re, im;
} Vek64fc;

/* Result of nearly every operation: 0 success, negative error (as a rule nothing was written),
 * positive warning (the whole result was written; some elements carry defined substitutes). */
typedef int VekStatus;

enum {
  vekStatusOk = 0,
  vekStatusNotSupported = -2, /* the processor does not report the information (core library) */
  vekStatusBadArg = -5,
  vekStatusBadSize = -6,
  vekStatusBadMode = -7,
  vekStatusNullPtr = -8,
  vekStatusStateTooLarge = -9,
  vekStatusZeroDivisor = -10,
  vekStatusBadDataType = -12,
  vekStatusBadFftOrder = -15,
  vekStatusBadFftFlag = -16,
  vekStatusSpecMismatch = -17,
  vekStatusLevelsCrossed = -18,
  vekStatusNegativeLevel = -19,
  vekStatusBadFilterOrder = -25,
  vekStatusBadTapsLen = -26,
  vekStatusBadRelFreq = -27,
  vekStatusBadMultiRatePhase = -28,
  vekStatusBadMultiRateFactor = -29,
  vekStatusBadSamplePhase = -30,
  vekStatusBadSampleFactor = -31,
  vekStatusNegativeShift = -32,
  vekStatusBadMaskSize = -33,
  vekStatusBadWaveletOffset = -35,
  vekStatusBadJaehneMagn = -38,
  vekStatusWindowTooWide = -39,
  vekStatusBadTrianglePhase = -40,
  vekStatusBadTriangleAsym = -41,
  vekStatusBadTriangleFreq = -42,
  vekStatusBadTriangleMagn = -43,
  vekStatusBadTonePhase = -44,
  vekStatusBadToneFreq = -45,
  vekStatusBadToneMagn = -46,
  vekStatusBadRipple = -47,
  vekStatusBadSparsePositions = -194,
  vekStatusBadCutoff = -206,
  vekStatusBadDesignOrder = -208,
  vekStatusBadFilterKind = -209,
  vekStatusBadRoundMode = -213,
  vekStatusBadAlgType = -228,
  vekStatusSignalTooShort = -234,
  vekStatusWarnNegSqrt = 3,
  vekStatusWarnSingular = 4,
  vekStatusWarnEvenMask = 5,
  vekStatusWarnZeroDivisor = 6,
  vekStatusWarnNegLog = 7,
  vekStatusWarnNaN = 9
};

#ifdef __cplusplus
}
#endif

#endif /* VEKBASE_H */
