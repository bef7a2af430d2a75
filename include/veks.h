/* veks.h: the public interface of libveksk0, signal-processing primitives for x86-64 with
 * AVX-512 (F/CD/BW/DQ/VL).
 *
 * Copyright 2026 The veks Authors. Licensed under the Apache License, Version 2.0.
 * Usable from C99 and C++. Every operation works on caller-supplied vectors and returns a
 * VekStatus: 0 success, negative error (nothing was written), positive warning (the whole result
 * was written). Arguments are checked in a fixed order: pointers in argument order
 * (vekStatusNullPtr), then the length (vekStatusBadSize when below 1), then the operation's own
 * parameters, then specification-block identifiers (vekStatusSpecMismatch).
 *
 * Scale factors (_Sfs): an exact integer result r is stored as saturate(round(r * 2^-scaleFactor)),
 * rounding ties to even; large positive factors give zeros, negative factors shift left and
 * saturate. No scale factor is ever rejected. */
#ifndef VEKS_H
#define VEKS_H

#include "vekbase.h"
#include "vekcore.h"

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define VEKS_API __attribute__((visibility("default")))
#else
#define VEKS_API
#endif

/* Accuracy hint of the statistics and transform families. */
typedef int VekAccuracyHint;
enum { vekHintNone = 0, vekHintFast = 1, vekHintAccurate = 2 };

/* Element-type codes for buffer-size queries; 0, 2, 4, 6, 10 and 16 are reserved. */
typedef int VekElemCode;
enum {
  vekCode8u = 1,
  vekCode8s = 3,
  vekCode16u = 5,
  vekCode16s = 7,
  vekCode16sc = 8,
  vekCode32u = 9,
  vekCode32s = 11,
  vekCode32sc = 12,
  vekCode32f = 13,
  vekCode32fc = 14,
  vekCode64u = 15,
  vekCode64s = 17,
  vekCode64sc = 18,
  vekCode64f = 19,
  vekCode64fc = 20
};

/* Algorithm choice of the FIR and convolution families. */
typedef int VekAlgChoice;
enum { vekChooseAuto = 0, vekChooseDirect = 1, vekChooseFFT = 2 };

/* Normalisation flags of the Fourier transforms. */
#define VEK_FFT_NORM_FWD_N 1  /* forward divided by N */
#define VEK_FFT_NORM_INV_N 2  /* inverse divided by N */
#define VEK_FFT_NORM_SQRT_N 4 /* both divided by sqrt(N) */
#define VEK_FFT_NORM_NONE 8   /* neither scaled */

/* Window shapes of FIR design. */
typedef int VekWinType;
enum { vekWinBartlett = 0, vekWinBlackman = 1, vekWinHamming = 2, vekWinHann = 3, vekWinRect = 4 };

/* Prototype kinds of IIR design. */
typedef int VekIIRFilterKind;
enum { vekIIRButterworth = 0, vekIIRChebyshev1 = 1 };

/* Normalisation field of the correlation option word. */
enum { vekCorrNormNone = 0x000, vekCorrNormBiased = 0x100, vekCorrNormUnbiased = 0x200 };

/* Relation selector of the plain Threshold operations. */
typedef int VekRelation;
enum { vekRelLess = 0, vekRelGreater = 4 };

/* The library's version record (48 bytes; the four bytes after targetCpu are zero). */
typedef struct {
  int major;             /* 9 */
  int minor;             /* 0 */
  int majorBuild;        /* 2 */
  int build;             /* 49912 */
  char targetCpu[4];     /* "k0" */
  const char* name;      /* library name and target */
  const char* version;   /* "9.0.2 (r49912)" */
  const char* buildDate; /* build date */
} VekVersionRecord;

/* clang-format off */
/* ---- BEGIN GENERATED EXPORTS (tools/veksgen.py from the manifests in exports/) ---- */

/* ==== Conversion: widening and integer to floating point ==== */
/* Values are exact where the destination holds them; otherwise rounded in the caller's rounding */
/* mode (32s32f, 64s64f, 64f32f). The _Sfs forms then multiply by 2^-scaleFactor, rounded once. */
/* The packed 24-bit formats hold three bytes per element, least significant first. */
/* Converts len elements from 8s to 16s. */
VEKS_API VekStatus veksConvert_8s16s(const Vek8s* pSrc, Vek16s* pDst, int len);
/* Converts len elements from 8s to 32f. */
VEKS_API VekStatus veksConvert_8s32f(const Vek8s* pSrc, Vek32f* pDst, int len);
/* Converts len elements from 8u to 32f. */
VEKS_API VekStatus veksConvert_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len);
/* Converts len elements from 16s to 32s. */
VEKS_API VekStatus veksConvert_16s32s(const Vek16s* pSrc, Vek32s* pDst, int len);
/* Converts len elements from 16s to 32f. */
VEKS_API VekStatus veksConvert_16s32f(const Vek16s* pSrc, Vek32f* pDst, int len);
/* Converts len elements from 16u to 32f. */
VEKS_API VekStatus veksConvert_16u32f(const Vek16u* pSrc, Vek32f* pDst, int len);
/* Converts len elements from 32s to 32f. */
VEKS_API VekStatus veksConvert_32s32f(const Vek32s* pSrc, Vek32f* pDst, int len);
/* Converts len elements from 32s to 64f. */
VEKS_API VekStatus veksConvert_32s64f(const Vek32s* pSrc, Vek64f* pDst, int len);
/* Converts len elements from 64s to 64f. */
VEKS_API VekStatus veksConvert_64s64f(const Vek64s* pSrc, Vek64f* pDst, int len);
/* Converts len elements from 32f to 64f. */
VEKS_API VekStatus veksConvert_32f64f(const Vek32f* pSrc, Vek64f* pDst, int len);
/* Converts len packed 24s elements (3 bytes each) to 32f. */
VEKS_API VekStatus veksConvert_24s32f(const Vek8u* pSrc, Vek32f* pDst, int len);
/* Converts len packed 24s elements (3 bytes each) to 32s. */
VEKS_API VekStatus veksConvert_24s32s(const Vek8u* pSrc, Vek32s* pDst, int len);
/* Converts len packed 24u elements (3 bytes each) to 32f. */
VEKS_API VekStatus veksConvert_24u32f(const Vek8u* pSrc, Vek32f* pDst, int len);
/* Converts len packed 24u elements (3 bytes each) to 32u. */
VEKS_API VekStatus veksConvert_24u32u(const Vek8u* pSrc, Vek32u* pDst, int len);
/* pDst[i] = pSrc[i] * 2^-scaleFactor in 32f. */
VEKS_API VekStatus veksConvert_16s32f_Sfs(const Vek16s* pSrc, Vek32f* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] * 2^-scaleFactor in 64f. */
VEKS_API VekStatus veksConvert_16s64f_Sfs(const Vek16s* pSrc, Vek64f* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] * 2^-scaleFactor in 32f. */
VEKS_API VekStatus veksConvert_32s32f_Sfs(const Vek32s* pSrc, Vek32f* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] * 2^-scaleFactor in 64f. */
VEKS_API VekStatus veksConvert_32s64f_Sfs(const Vek32s* pSrc, Vek64f* pDst, int len, int scaleFactor);

/* ==== Conversion: floating point to integer ==== */
/* rndMode: 1 to nearest with ties to even, 0 toward zero, any other value to nearest with ties */
/* away from zero (veksConvert_64f32s_Sfs: ties away only for 2, any other value but 0 is */
/* ties to even). Nothing but the pointers and the length is checked. Each element is first */
/* multiplied by a factor whose bit pattern is that of 1.0 minus scaleFactor exponent steps, in */
/* the integer width of the source type (0x3F800000 - scaleFactor * 2^23 for 32f, */
/* 0x3FF0000000000000 - scaleFactor * 2^52 for 64f), wrapping: exactly 2^-scaleFactor for */
/* -127..126 (32f) or -1023..1022 (64f); scaleFactor 0 multiplies by nothing. The result is */
/* rounded, then saturated to the destination's range (24s: -2^23..2^23-1, 24u: 0..2^24-1, */
/* 32s and 64s: the full range, so values from 2^31 or 2^63 up give the maximum); NaN gives the */
/* minimum (0 for unsigned). The caller's rounding mode and exception flags are kept. */
/* 32f to 8s: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_32f8s_Sfs(const Vek32f* pSrc, Vek8s* pDst, int len, int rndMode, int scaleFactor);
/* 32f to 8u: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_32f8u_Sfs(const Vek32f* pSrc, Vek8u* pDst, int len, int rndMode, int scaleFactor);
/* 32f to 16s: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_32f16s_Sfs(const Vek32f* pSrc, Vek16s* pDst, int len, int rndMode, int scaleFactor);
/* 32f to 16u: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_32f16u_Sfs(const Vek32f* pSrc, Vek16u* pDst, int len, int rndMode, int scaleFactor);
/* 32f to 32s: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_32f32s_Sfs(const Vek32f* pSrc, Vek32s* pDst, int len, int rndMode, int scaleFactor);
/* 64f to 16s: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_64f16s_Sfs(const Vek64f* pSrc, Vek16s* pDst, int len, int rndMode, int scaleFactor);
/* 64f to 64s: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_64f64s_Sfs(const Vek64f* pSrc, Vek64s* pDst, int len, int rndMode, int scaleFactor);
/* 32f to packed 24s: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_32f24s_Sfs(const Vek32f* pSrc, Vek8u* pDst, int len, int rndMode, int scaleFactor);
/* 32f to packed 24u: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_32f24u_Sfs(const Vek32f* pSrc, Vek8u* pDst, int len, int rndMode, int scaleFactor);
/* 64f to 32s: scaled, rounded (2 ties away, 0 toward zero, else ties to even), saturated. */
VEKS_API VekStatus veksConvert_64f32s_Sfs(const Vek64f* pSrc, Vek32s* pDst, int len, int rndMode, int scaleFactor);

/* ==== Conversion: narrowing ==== */
/* Integer narrowing divides by 2^scaleFactor rounding to nearest with ties to even (negative */
/* factors multiply), then saturates to the destination's range (24s: -2^23..2^23-1, 24u: */
/* 0..2^24-1). 64f32f rounds in the caller's rounding mode; overflow gives an infinity. */
/* 32s to 16s, saturated. */
VEKS_API VekStatus veksConvert_32s16s(const Vek32s* pSrc, Vek16s* pDst, int len);
/* 16s to 8s: scaled (ties to even) and saturated. */
VEKS_API VekStatus veksConvert_16s8s_Sfs(const Vek16s* pSrc, Vek8s* pDst, int len, int scaleFactor);
/* 32s to 16s: scaled (ties to even) and saturated. */
VEKS_API VekStatus veksConvert_32s16s_Sfs(const Vek32s* pSrc, Vek16s* pDst, int len, int scaleFactor);
/* 64s to 32s: scaled (ties to even) and saturated. */
VEKS_API VekStatus veksConvert_64s32s_Sfs(const Vek64s* pSrc, Vek32s* pDst, int len, int scaleFactor);
/* 32s to packed 24s: scaled (ties to even) and saturated. */
VEKS_API VekStatus veksConvert_32s24s_Sfs(const Vek32s* pSrc, Vek8u* pDst, int len, int scaleFactor);
/* 32u to packed 24u: scaled (ties to even) and saturated. */
VEKS_API VekStatus veksConvert_32u24u_Sfs(const Vek32u* pSrc, Vek8u* pDst, int len, int scaleFactor);
/* 64f to 32f in the caller's rounding mode. */
VEKS_API VekStatus veksConvert_64f32f(const Vek64f* pSrc, Vek32f* pDst, int len);

/* ==== Conversion: half precision ==== */
/* Hardware conversion where the core library reports VEK_FEATURE_F16C, a software kernel with */
/* bit-identical results otherwise. 32f16f: rndMode 2 gives vekStatusBadRoundMode, 0 rounds */
/* toward zero (finite values never become infinite), every other value rounds to nearest-even. */
/* 16s16f accepts rndMode 0 and 1 only; 16f16s_Sfs accepts 0, 1 and 2 and then converts as */
/* veksConvert_32f16s_Sfs does. Other modes give vekStatusBadRoundMode (after the pointer and */
/* length checks). NaNs come out quiet, with the payload's leading bits kept. */
/* 32f to half precision. */
VEKS_API VekStatus veksConvert_32f16f(const Vek32f* pSrc, Vek16f* pDst, int len, int rndMode);
/* Half precision to 32f (exact). */
VEKS_API VekStatus veksConvert_16f32f(const Vek16f* pSrc, Vek32f* pDst, int len);
/* 16s to half precision (0 toward zero, 1 nearest-even). */
VEKS_API VekStatus veksConvert_16s16f(const Vek16s* pSrc, Vek16f* pDst, int len, int rndMode);
/* Half precision to 16s: scaled, rounded as rndMode says, saturated. */
VEKS_API VekStatus veksConvert_16f16s_Sfs(const Vek16f* pSrc, Vek16s* pDst, int len, int rndMode, int scaleFactor);

/* ==== Conversion: complex packing ==== */
/* veksRealToCplx_*: a null part is read as zeros; both parts null is vekStatusNullPtr. */
/* pDst[i] = (pSrcRe[i], pSrcIm[i]). */
VEKS_API VekStatus veksRealToCplx_16s(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16sc* pDst, int len);
/* pDst[i] = (pSrcRe[i], pSrcIm[i]). */
VEKS_API VekStatus veksRealToCplx_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32fc* pDst, int len);
/* pDst[i] = (pSrcRe[i], pSrcIm[i]). */
VEKS_API VekStatus veksRealToCplx_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64fc* pDst, int len);
/* Splits complex elements into real and imaginary parts. */
VEKS_API VekStatus veksCplxToReal_16sc(const Vek16sc* pSrc, Vek16s* pDstRe, Vek16s* pDstIm, int len);
/* Splits complex elements into real and imaginary parts. */
VEKS_API VekStatus veksCplxToReal_32fc(const Vek32fc* pSrc, Vek32f* pDstRe, Vek32f* pDstIm, int len);
/* Splits complex elements into real and imaginary parts. */
VEKS_API VekStatus veksCplxToReal_64fc(const Vek64fc* pSrc, Vek64f* pDstRe, Vek64f* pDstIm, int len);
/* The real part of each element. */
VEKS_API VekStatus veksReal_16sc(const Vek16sc* pSrc, Vek16s* pDstRe, int len);
/* The real part of each element. */
VEKS_API VekStatus veksReal_32fc(const Vek32fc* pSrc, Vek32f* pDstRe, int len);
/* The real part of each element. */
VEKS_API VekStatus veksReal_64fc(const Vek64fc* pSrc, Vek64f* pDstRe, int len);
/* The imaginary part of each element. */
VEKS_API VekStatus veksImag_16sc(const Vek16sc* pSrc, Vek16s* pDstIm, int len);
/* The imaginary part of each element. */
VEKS_API VekStatus veksImag_32fc(const Vek32fc* pSrc, Vek32f* pDstIm, int len);
/* The imaginary part of each element. */
VEKS_API VekStatus veksImag_64fc(const Vek64fc* pSrc, Vek64f* pDstIm, int len);

/* ==== Allocation and version ==== */
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek8u* veksMalloc_8u(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek8s* veksMalloc_8s(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek16u* veksMalloc_16u(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek16s* veksMalloc_16s(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek32u* veksMalloc_32u(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek32s* veksMalloc_32s(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek32f* veksMalloc_32f(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek64s* veksMalloc_64s(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek64f* veksMalloc_64f(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek8sc* veksMalloc_8sc(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek16sc* veksMalloc_16sc(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek32sc* veksMalloc_32sc(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek32fc* veksMalloc_32fc(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek64sc* veksMalloc_64sc(int len);
/* Allocates len elements aligned to 64 bytes; null if len < 1, above 2^31 - 1 bytes or out of memory. */
VEKS_API Vek64fc* veksMalloc_64fc(int len);
/* Releases a vector from veksMalloc_*; null is ignored. */
VEKS_API void veksFree(void* ptr);
/* The library's constant version record; never null. */
VEKS_API const VekVersionRecord* veksGetLibVersion(void);

/* ==== Fill, copy and move ==== */
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_8u(Vek8u* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_16s(Vek16s* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_16sc(Vek16sc* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_32s(Vek32s* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_32f(Vek32f* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_32sc(Vek32sc* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_32fc(Vek32fc* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_64s(Vek64s* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_64f(Vek64f* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_64sc(Vek64sc* pDst, int len);
/* Sets pDst[0..len) to zero. */
VEKS_API VekStatus veksZero_64fc(Vek64fc* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_8u(Vek8u val, Vek8u* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_16s(Vek16s val, Vek16s* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_16sc(Vek16sc val, Vek16sc* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_32s(Vek32s val, Vek32s* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_32f(Vek32f val, Vek32f* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_32sc(Vek32sc val, Vek32sc* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_32fc(Vek32fc val, Vek32fc* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_64s(Vek64s val, Vek64s* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_64f(Vek64f val, Vek64f* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_64sc(Vek64sc val, Vek64sc* pDst, int len);
/* Sets every element of pDst[0..len) to val. */
VEKS_API VekStatus veksSet_64fc(Vek64fc val, Vek64fc* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_8u). */
VEKS_API VekStatus veksCopy_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_16s). */
VEKS_API VekStatus veksCopy_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_16sc). */
VEKS_API VekStatus veksCopy_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_32s). */
VEKS_API VekStatus veksCopy_32s(const Vek32s* pSrc, Vek32s* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_32f). */
VEKS_API VekStatus veksCopy_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_32sc). */
VEKS_API VekStatus veksCopy_32sc(const Vek32sc* pSrc, Vek32sc* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_32fc). */
VEKS_API VekStatus veksCopy_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_64s). */
VEKS_API VekStatus veksCopy_64s(const Vek64s* pSrc, Vek64s* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_64f). */
VEKS_API VekStatus veksCopy_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_64sc). */
VEKS_API VekStatus veksCopy_64sc(const Vek64sc* pSrc, Vek64sc* pDst, int len);
/* Copies len elements; the vectors must not overlap (see veksMove_64fc). */
VEKS_API VekStatus veksCopy_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_32s(const Vek32s* pSrc, Vek32s* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_32sc(const Vek32sc* pSrc, Vek32sc* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_64s(const Vek64s* pSrc, Vek64s* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_64sc(const Vek64sc* pSrc, Vek64sc* pDst, int len);
/* Copies len elements; the vectors may overlap. */
VEKS_API VekStatus veksMove_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);

/* ==== Reversal ==== */
/* pDst[i] = pSrc[len - 1 - i]; pSrc may equal pDst. */
VEKS_API VekStatus veksFlip_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
/* pDst[i] = pSrc[len - 1 - i]; pSrc may equal pDst. */
VEKS_API VekStatus veksFlip_16u(const Vek16u* pSrc, Vek16u* pDst, int len);
/* pDst[i] = pSrc[len - 1 - i]; pSrc may equal pDst. */
VEKS_API VekStatus veksFlip_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
/* pDst[i] = pSrc[len - 1 - i]; pSrc may equal pDst. */
VEKS_API VekStatus veksFlip_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
/* pDst[i] = pSrc[len - 1 - i]; pSrc may equal pDst. */
VEKS_API VekStatus veksFlip_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
/* pDst[i] = pSrc[len - 1 - i]; pSrc may equal pDst. */
VEKS_API VekStatus veksFlip_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
/* Reverses the order of the elements of pSrcDst in place. */
VEKS_API VekStatus veksFlip_8u_I(Vek8u* pSrcDst, int len);
/* Reverses the order of the elements of pSrcDst in place. */
VEKS_API VekStatus veksFlip_16u_I(Vek16u* pSrcDst, int len);
/* Reverses the order of the elements of pSrcDst in place. */
VEKS_API VekStatus veksFlip_32f_I(Vek32f* pSrcDst, int len);
/* Reverses the order of the elements of pSrcDst in place. */
VEKS_API VekStatus veksFlip_32fc_I(Vek32fc* pSrcDst, int len);
/* Reverses the order of the elements of pSrcDst in place. */
VEKS_API VekStatus veksFlip_64f_I(Vek64f* pSrcDst, int len);
/* Reverses the order of the elements of pSrcDst in place. */
VEKS_API VekStatus veksFlip_64fc_I(Vek64fc* pSrcDst, int len);

/* ==== Bit copy and byte swap ==== */
/* Copies len bits; bits count from the least significant bit of each byte; other destination bits are kept. */
VEKS_API VekStatus veksCopyLE_1u(const Vek8u* pSrc, int srcBitOffset, Vek8u* pDst, int dstBitOffset, int len);
/* Copies len bits; bits count from the most significant bit of each byte; other destination bits are kept. */
VEKS_API VekStatus veksCopyBE_1u(const Vek8u* pSrc, int srcBitOffset, Vek8u* pDst, int dstBitOffset, int len);
/* Reverses the byte order of each of len 16u elements. */
VEKS_API VekStatus veksSwapBytes_16u(const Vek16u* pSrc, Vek16u* pDst, int len);
/* Reverses the byte order of each of len 24u elements. */
VEKS_API VekStatus veksSwapBytes_24u(const Vek8u* pSrc, Vek8u* pDst, int len);
/* Reverses the byte order of each of len 32u elements. */
VEKS_API VekStatus veksSwapBytes_32u(const Vek32u* pSrc, Vek32u* pDst, int len);
/* Reverses the byte order of each of len 64u elements. */
VEKS_API VekStatus veksSwapBytes_64u(const Vek64u* pSrc, Vek64u* pDst, int len);
/* Reverses the byte order of each of len 16u elements in place. */
VEKS_API VekStatus veksSwapBytes_16u_I(Vek16u* pSrcDst, int len);
/* Reverses the byte order of each of len 24u elements in place. */
VEKS_API VekStatus veksSwapBytes_24u_I(Vek8u* pSrcDst, int len);
/* Reverses the byte order of each of len 32u elements in place. */
VEKS_API VekStatus veksSwapBytes_32u_I(Vek32u* pSrcDst, int len);
/* Reverses the byte order of each of len 64u elements in place. */
VEKS_API VekStatus veksSwapBytes_64u_I(Vek64u* pSrcDst, int len);

/* ==== Thresholding ==== */
/* Checks in order: null pointer (-8), len < 1 (-6), relation other than vekRelLess or */
/* vekRelGreater (-5), negative level (-19: LTAbs, GTAbs, LTInv and every complex member), */
/* levelLT > levelGT (-18). Nothing is written on an error. A NaN element passes every value */
/* comparison unchanged. LTAbs and GTAbs compare |x| as an unsigned bit pattern and put the */
/* sign of x back: -0 stays -0 under level 0, a NaN lies above every level (LTAbs keeps it, */
/* GTAbs replaces it by the level with its sign). Integer |x| is exact (|-32768| = 32768) and */
/* an integer 0 takes the level's positive sign. LTAbsVal compares |x| < level for any level. */
/* Complex members compare the magnitude and keep the argument: an element moved to magnitude */
/* level is level * x / |x| computed in binary64 (16sc rounded to nearest-even), a zero element */
/* moved up becomes (level, 0). With level 0, Threshold/GT zero the destination and */
/* Threshold/LT copy the source. LTInv computes 1 / (sign(x) * max(|x|, level)) with */
/* exceptions masked; level 0 takes the plain reciprocal (a zero gives an infinity of its sign; */
/* a complex zero gives (+-Inf with the real part's sign, 0 with the imaginary part's sign */
/* reversed)) and returns vekStatusWarnSingular (4), or vekStatusWarnZeroDivisor (6) from */
/* 8192 elements on, where the work is split over two threads. The caller's rounding mode and */
/* exception flags are kept. */
/* level where x is on the relOp side of it. */
VEKS_API VekStatus veksThreshold_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level, VekRelation relOp);
/* level where x is on the relOp side of it. */
VEKS_API VekStatus veksThreshold_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level, VekRelation relOp);
/* level where x is on the relOp side of it. */
VEKS_API VekStatus veksThreshold_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level, VekRelation relOp);
/* Magnitude level (phase kept) where |x| is on the relOp side of it. */
VEKS_API VekStatus veksThreshold_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level, VekRelation relOp);
/* Magnitude level (phase kept) where |x| is on the relOp side of it. */
VEKS_API VekStatus veksThreshold_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level, VekRelation relOp);
/* Magnitude level (phase kept) where |x| is on the relOp side of it. */
VEKS_API VekStatus veksThreshold_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level, VekRelation relOp);
/* level where x < level. */
VEKS_API VekStatus veksThreshold_LT_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level);
/* level where x < level. */
VEKS_API VekStatus veksThreshold_LT_32s(const Vek32s* pSrc, Vek32s* pDst, int len, Vek32s level);
/* level where x < level. */
VEKS_API VekStatus veksThreshold_LT_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level);
/* level where x < level. */
VEKS_API VekStatus veksThreshold_LT_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level);
/* Magnitude level (phase kept) where |x| < level. */
VEKS_API VekStatus veksThreshold_LT_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level);
/* Magnitude level (phase kept) where |x| < level. */
VEKS_API VekStatus veksThreshold_LT_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level);
/* Magnitude level (phase kept) where |x| < level. */
VEKS_API VekStatus veksThreshold_LT_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level);
/* level where x > level. */
VEKS_API VekStatus veksThreshold_GT_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level);
/* level where x > level. */
VEKS_API VekStatus veksThreshold_GT_32s(const Vek32s* pSrc, Vek32s* pDst, int len, Vek32s level);
/* level where x > level. */
VEKS_API VekStatus veksThreshold_GT_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level);
/* level where x > level. */
VEKS_API VekStatus veksThreshold_GT_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level);
/* Magnitude level (phase kept) where |x| > level. */
VEKS_API VekStatus veksThreshold_GT_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level);
/* Magnitude level (phase kept) where |x| > level. */
VEKS_API VekStatus veksThreshold_GT_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level);
/* Magnitude level (phase kept) where |x| > level. */
VEKS_API VekStatus veksThreshold_GT_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level);
/* value where x < level. */
VEKS_API VekStatus veksThreshold_LTVal_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level, Vek16s value);
/* value where x < level. */
VEKS_API VekStatus veksThreshold_LTVal_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level, Vek32f value);
/* value where x < level. */
VEKS_API VekStatus veksThreshold_LTVal_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level, Vek64f value);
/* value where |x| < level. */
VEKS_API VekStatus veksThreshold_LTVal_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level, Vek16sc value);
/* value where |x| < level. */
VEKS_API VekStatus veksThreshold_LTVal_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level, Vek32fc value);
/* value where |x| < level. */
VEKS_API VekStatus veksThreshold_LTVal_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level, Vek64fc value);
/* value where x > level. */
VEKS_API VekStatus veksThreshold_GTVal_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level, Vek16s value);
/* value where x > level. */
VEKS_API VekStatus veksThreshold_GTVal_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level, Vek32f value);
/* value where x > level. */
VEKS_API VekStatus veksThreshold_GTVal_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level, Vek64f value);
/* value where |x| > level. */
VEKS_API VekStatus veksThreshold_GTVal_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level, Vek16sc value);
/* value where |x| > level. */
VEKS_API VekStatus veksThreshold_GTVal_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level, Vek32fc value);
/* value where |x| > level. */
VEKS_API VekStatus veksThreshold_GTVal_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level, Vek64fc value);
/* valueLT where x < levelLT, valueGT where x > levelGT. */
VEKS_API VekStatus veksThreshold_LTValGTVal_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s levelLT, Vek16s valueLT, Vek16s levelGT, Vek16s valueGT);
/* valueLT where x < levelLT, valueGT where x > levelGT. */
VEKS_API VekStatus veksThreshold_LTValGTVal_32s(const Vek32s* pSrc, Vek32s* pDst, int len, Vek32s levelLT, Vek32s valueLT, Vek32s levelGT, Vek32s valueGT);
/* valueLT where x < levelLT, valueGT where x > levelGT. */
VEKS_API VekStatus veksThreshold_LTValGTVal_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f levelLT, Vek32f valueLT, Vek32f levelGT, Vek32f valueGT);
/* valueLT where x < levelLT, valueGT where x > levelGT. */
VEKS_API VekStatus veksThreshold_LTValGTVal_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f levelLT, Vek64f valueLT, Vek64f levelGT, Vek64f valueGT);
/* sign(x) * level where |x| < level. */
VEKS_API VekStatus veksThreshold_LTAbs_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level);
/* sign(x) * level where |x| < level. */
VEKS_API VekStatus veksThreshold_LTAbs_32s(const Vek32s* pSrc, Vek32s* pDst, int len, Vek32s level);
/* sign(x) * level where |x| < level. */
VEKS_API VekStatus veksThreshold_LTAbs_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level);
/* sign(x) * level where |x| < level. */
VEKS_API VekStatus veksThreshold_LTAbs_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level);
/* sign(x) * level where |x| > level. */
VEKS_API VekStatus veksThreshold_GTAbs_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level);
/* sign(x) * level where |x| > level. */
VEKS_API VekStatus veksThreshold_GTAbs_32s(const Vek32s* pSrc, Vek32s* pDst, int len, Vek32s level);
/* sign(x) * level where |x| > level. */
VEKS_API VekStatus veksThreshold_GTAbs_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level);
/* sign(x) * level where |x| > level. */
VEKS_API VekStatus veksThreshold_GTAbs_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level);
/* value where |x| < level. */
VEKS_API VekStatus veksThreshold_LTAbsVal_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level, Vek16s value);
/* value where |x| < level. */
VEKS_API VekStatus veksThreshold_LTAbsVal_32s(const Vek32s* pSrc, Vek32s* pDst, int len, Vek32s level, Vek32s value);
/* value where |x| < level. */
VEKS_API VekStatus veksThreshold_LTAbsVal_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level, Vek32f value);
/* value where |x| < level. */
VEKS_API VekStatus veksThreshold_LTAbsVal_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level, Vek64f value);
/* 1 / (sign(x) * max(|x|, level)). */
VEKS_API VekStatus veksThreshold_LTInv_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level);
/* 1 / (sign(x) * max(|x|, level)). */
VEKS_API VekStatus veksThreshold_LTInv_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level);
/* 1 / x after raising |x| to level (phase kept). */
VEKS_API VekStatus veksThreshold_LTInv_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level);
/* 1 / x after raising |x| to level (phase kept). */
VEKS_API VekStatus veksThreshold_LTInv_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level);

/* ==== Thresholding in place ==== */
/* In place: veksThreshold_16s. */
VEKS_API VekStatus veksThreshold_16s_I(Vek16s* pSrcDst, int len, Vek16s level, VekRelation relOp);
/* In place: veksThreshold_32f. */
VEKS_API VekStatus veksThreshold_32f_I(Vek32f* pSrcDst, int len, Vek32f level, VekRelation relOp);
/* In place: veksThreshold_64f. */
VEKS_API VekStatus veksThreshold_64f_I(Vek64f* pSrcDst, int len, Vek64f level, VekRelation relOp);
/* In place: veksThreshold_16sc. */
VEKS_API VekStatus veksThreshold_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level, VekRelation relOp);
/* In place: veksThreshold_32fc. */
VEKS_API VekStatus veksThreshold_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level, VekRelation relOp);
/* In place: veksThreshold_64fc. */
VEKS_API VekStatus veksThreshold_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level, VekRelation relOp);
/* In place: veksThreshold_LT_16s. */
VEKS_API VekStatus veksThreshold_LT_16s_I(Vek16s* pSrcDst, int len, Vek16s level);
/* In place: veksThreshold_LT_32s. */
VEKS_API VekStatus veksThreshold_LT_32s_I(Vek32s* pSrcDst, int len, Vek32s level);
/* In place: veksThreshold_LT_32f. */
VEKS_API VekStatus veksThreshold_LT_32f_I(Vek32f* pSrcDst, int len, Vek32f level);
/* In place: veksThreshold_LT_64f. */
VEKS_API VekStatus veksThreshold_LT_64f_I(Vek64f* pSrcDst, int len, Vek64f level);
/* In place: veksThreshold_LT_16sc. */
VEKS_API VekStatus veksThreshold_LT_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level);
/* In place: veksThreshold_LT_32fc. */
VEKS_API VekStatus veksThreshold_LT_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level);
/* In place: veksThreshold_LT_64fc. */
VEKS_API VekStatus veksThreshold_LT_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level);
/* In place: veksThreshold_GT_16s. */
VEKS_API VekStatus veksThreshold_GT_16s_I(Vek16s* pSrcDst, int len, Vek16s level);
/* In place: veksThreshold_GT_32s. */
VEKS_API VekStatus veksThreshold_GT_32s_I(Vek32s* pSrcDst, int len, Vek32s level);
/* In place: veksThreshold_GT_32f. */
VEKS_API VekStatus veksThreshold_GT_32f_I(Vek32f* pSrcDst, int len, Vek32f level);
/* In place: veksThreshold_GT_64f. */
VEKS_API VekStatus veksThreshold_GT_64f_I(Vek64f* pSrcDst, int len, Vek64f level);
/* In place: veksThreshold_GT_16sc. */
VEKS_API VekStatus veksThreshold_GT_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level);
/* In place: veksThreshold_GT_32fc. */
VEKS_API VekStatus veksThreshold_GT_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level);
/* In place: veksThreshold_GT_64fc. */
VEKS_API VekStatus veksThreshold_GT_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level);
/* In place: veksThreshold_LTVal_16s. */
VEKS_API VekStatus veksThreshold_LTVal_16s_I(Vek16s* pSrcDst, int len, Vek16s level, Vek16s value);
/* In place: veksThreshold_LTVal_32f. */
VEKS_API VekStatus veksThreshold_LTVal_32f_I(Vek32f* pSrcDst, int len, Vek32f level, Vek32f value);
/* In place: veksThreshold_LTVal_64f. */
VEKS_API VekStatus veksThreshold_LTVal_64f_I(Vek64f* pSrcDst, int len, Vek64f level, Vek64f value);
/* In place: veksThreshold_LTVal_16sc. */
VEKS_API VekStatus veksThreshold_LTVal_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level, Vek16sc value);
/* In place: veksThreshold_LTVal_32fc. */
VEKS_API VekStatus veksThreshold_LTVal_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level, Vek32fc value);
/* In place: veksThreshold_LTVal_64fc. */
VEKS_API VekStatus veksThreshold_LTVal_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level, Vek64fc value);
/* In place: veksThreshold_GTVal_16s. */
VEKS_API VekStatus veksThreshold_GTVal_16s_I(Vek16s* pSrcDst, int len, Vek16s level, Vek16s value);
/* In place: veksThreshold_GTVal_32f. */
VEKS_API VekStatus veksThreshold_GTVal_32f_I(Vek32f* pSrcDst, int len, Vek32f level, Vek32f value);
/* In place: veksThreshold_GTVal_64f. */
VEKS_API VekStatus veksThreshold_GTVal_64f_I(Vek64f* pSrcDst, int len, Vek64f level, Vek64f value);
/* In place: veksThreshold_GTVal_16sc. */
VEKS_API VekStatus veksThreshold_GTVal_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level, Vek16sc value);
/* In place: veksThreshold_GTVal_32fc. */
VEKS_API VekStatus veksThreshold_GTVal_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level, Vek32fc value);
/* In place: veksThreshold_GTVal_64fc. */
VEKS_API VekStatus veksThreshold_GTVal_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level, Vek64fc value);
/* In place: veksThreshold_LTValGTVal_16s. */
VEKS_API VekStatus veksThreshold_LTValGTVal_16s_I(Vek16s* pSrcDst, int len, Vek16s levelLT, Vek16s valueLT, Vek16s levelGT, Vek16s valueGT);
/* In place: veksThreshold_LTValGTVal_32s. */
VEKS_API VekStatus veksThreshold_LTValGTVal_32s_I(Vek32s* pSrcDst, int len, Vek32s levelLT, Vek32s valueLT, Vek32s levelGT, Vek32s valueGT);
/* In place: veksThreshold_LTValGTVal_32f. */
VEKS_API VekStatus veksThreshold_LTValGTVal_32f_I(Vek32f* pSrcDst, int len, Vek32f levelLT, Vek32f valueLT, Vek32f levelGT, Vek32f valueGT);
/* In place: veksThreshold_LTValGTVal_64f. */
VEKS_API VekStatus veksThreshold_LTValGTVal_64f_I(Vek64f* pSrcDst, int len, Vek64f levelLT, Vek64f valueLT, Vek64f levelGT, Vek64f valueGT);
/* In place: veksThreshold_LTAbs_16s. */
VEKS_API VekStatus veksThreshold_LTAbs_16s_I(Vek16s* pSrcDst, int len, Vek16s level);
/* In place: veksThreshold_LTAbs_32s. */
VEKS_API VekStatus veksThreshold_LTAbs_32s_I(Vek32s* pSrcDst, int len, Vek32s level);
/* In place: veksThreshold_LTAbs_32f. */
VEKS_API VekStatus veksThreshold_LTAbs_32f_I(Vek32f* pSrcDst, int len, Vek32f level);
/* In place: veksThreshold_LTAbs_64f. */
VEKS_API VekStatus veksThreshold_LTAbs_64f_I(Vek64f* pSrcDst, int len, Vek64f level);
/* In place: veksThreshold_GTAbs_16s. */
VEKS_API VekStatus veksThreshold_GTAbs_16s_I(Vek16s* pSrcDst, int len, Vek16s level);
/* In place: veksThreshold_GTAbs_32s. */
VEKS_API VekStatus veksThreshold_GTAbs_32s_I(Vek32s* pSrcDst, int len, Vek32s level);
/* In place: veksThreshold_GTAbs_32f. */
VEKS_API VekStatus veksThreshold_GTAbs_32f_I(Vek32f* pSrcDst, int len, Vek32f level);
/* In place: veksThreshold_GTAbs_64f. */
VEKS_API VekStatus veksThreshold_GTAbs_64f_I(Vek64f* pSrcDst, int len, Vek64f level);
/* In place: veksThreshold_LTAbsVal_16s. */
VEKS_API VekStatus veksThreshold_LTAbsVal_16s_I(Vek16s* pSrcDst, int len, Vek16s level, Vek16s value);
/* In place: veksThreshold_LTAbsVal_32s. */
VEKS_API VekStatus veksThreshold_LTAbsVal_32s_I(Vek32s* pSrcDst, int len, Vek32s level, Vek32s value);
/* In place: veksThreshold_LTAbsVal_32f. */
VEKS_API VekStatus veksThreshold_LTAbsVal_32f_I(Vek32f* pSrcDst, int len, Vek32f level, Vek32f value);
/* In place: veksThreshold_LTAbsVal_64f. */
VEKS_API VekStatus veksThreshold_LTAbsVal_64f_I(Vek64f* pSrcDst, int len, Vek64f level, Vek64f value);
/* In place: veksThreshold_LTInv_32f. */
VEKS_API VekStatus veksThreshold_LTInv_32f_I(Vek32f* pSrcDst, int len, Vek32f level);
/* In place: veksThreshold_LTInv_64f. */
VEKS_API VekStatus veksThreshold_LTInv_64f_I(Vek64f* pSrcDst, int len, Vek64f level);
/* In place: veksThreshold_LTInv_32fc. */
VEKS_API VekStatus veksThreshold_LTInv_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level);
/* In place: veksThreshold_LTInv_64fc. */
VEKS_API VekStatus veksThreshold_LTInv_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level);

/* ---- END GENERATED EXPORTS ---- */
/* clang-format on */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_H */
