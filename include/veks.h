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

/* ==== Square roots ==== */
/* Integer roots store R_T(sqrt(x) * 2^-scaleFactor), ties to even, saturated; any scale factor is accepted. */
/* Negative real elements store NaN (floating point) or 0 (integers) and the call returns vekStatusWarnNegSqrt after writing everything. */
/* A destination may be the same array as a source of the same element type; a destination overlapping a source of another element type is not supported. */
/* pDst[i] = R_8u(sqrt(pSrc[i]) * 2^-scaleFactor); threaded from 2048 elements. */
VEKS_API VekStatus veksSqrt_8u_Sfs(const Vek8u* pSrc, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = R_16u(sqrt(pSrc[i]) * 2^-scaleFactor); threaded from 2048 elements. */
VEKS_API VekStatus veksSqrt_16u_Sfs(const Vek16u* pSrc, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = R_16s(sqrt(pSrc[i]) * 2^-scaleFactor); threaded from 2048 elements. */
VEKS_API VekStatus veksSqrt_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor);
/* In-place integer root through the scale factor; threaded from 2048 elements. */
VEKS_API VekStatus veksSqrt_8u_ISfs(Vek8u* pSrcDst, int len, int scaleFactor);
/* In-place integer root through the scale factor; threaded from 2048 elements. */
VEKS_API VekStatus veksSqrt_16u_ISfs(Vek16u* pSrcDst, int len, int scaleFactor);
/* In-place integer root through the scale factor; threaded from 2048 elements. */
VEKS_API VekStatus veksSqrt_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor);
/* Principal root of the exact parts in binary64, each part rounded through the scale factor; threaded from 256 elements. */
VEKS_API VekStatus veksSqrt_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len, int scaleFactor);
/* In-place form of veksSqrt_16sc_Sfs. */
VEKS_API VekStatus veksSqrt_16sc_ISfs(Vek16sc* pSrcDst, int len, int scaleFactor);
/* pDst[i] = R_16s(sqrt(pSrc[i]) * 2^-scaleFactor); threaded from 2048 elements. */
VEKS_API VekStatus veksSqrt_32s16s_Sfs(const Vek32s* pSrc, Vek16s* pDst, int len, int scaleFactor);
/* Correctly rounded IEEE root; threaded from 4096 elements. */
VEKS_API VekStatus veksSqrt_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
/* Correctly rounded IEEE root; threaded from 512 elements. */
VEKS_API VekStatus veksSqrt_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
/* In-place correctly rounded root; threaded from 4096 elements. */
VEKS_API VekStatus veksSqrt_32f_I(Vek32f* pSrcDst, int len);
/* In-place correctly rounded root; threaded from 512 elements. */
VEKS_API VekStatus veksSqrt_64f_I(Vek64f* pSrcDst, int len);
/* Principal root (C99 csqrt, special values included); threaded from 512 elements. */
VEKS_API VekStatus veksSqrt_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
/* Principal root (C99 csqrt, special values included); threaded from 64 elements. */
VEKS_API VekStatus veksSqrt_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
/* In-place principal root; threaded from 512 elements. */
VEKS_API VekStatus veksSqrt_32fc_I(Vek32fc* pSrcDst, int len);
/* In-place principal root; threaded from 64 elements. */
VEKS_API VekStatus veksSqrt_64fc_I(Vek64fc* pSrcDst, int len);

/* ==== Magnitude, phase and power spectrum ==== */
/* Split (pSrcRe, pSrcIm) and interleaved sources give identical results for the same numbers. */
/* Magnitude_32f/_32fc are within 1 ulp (measured 0.52): a two-word binary32 sum of squares with a corrected root; _64f/_64fc follow C99 hypot within 1 ulp (measured 0.75); integer sources are exact. */
/* Phase is atan2(im, re); binary32 results come from a binary64 evaluation, binary64 results are within 2 ulp (measured 0.51, 1 for subnormal results); integer sources give (0, 0) -> 0 and the negative real axis +pi. */
/* PowerSpectr of binary32 parts is evaluated in binary64 and rounded once to binary32 (at most 0.5 ulp plus 2^-29). */
/* pDst[i] = |pSrcRe[i] + i pSrcIm[i]|. */
VEKS_API VekStatus veksMagnitude_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst, int len);
/* pDst[i] = |pSrcRe[i] + i pSrcIm[i]|. */
VEKS_API VekStatus veksMagnitude_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst, int len);
/* pDst[i] = |pSrc[i]|; threaded from 2048 elements. */
VEKS_API VekStatus veksMagnitude_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len);
/* pDst[i] = |pSrc[i]| with hypot semantics. */
VEKS_API VekStatus veksMagnitude_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len);
/* Correctly rounded root of the exact re^2 + im^2. */
VEKS_API VekStatus veksMagnitude_16s32f(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek32f* pDst, int len);
/* Correctly rounded root of the exact re^2 + im^2. */
VEKS_API VekStatus veksMagnitude_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len);
/* R_16s(sqrt(re^2 + im^2) * 2^-scaleFactor), exact; threaded from 2048 elements. */
VEKS_API VekStatus veksMagnitude_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDst, int len, int scaleFactor);
/* R_16s(sqrt(re^2 + im^2) * 2^-scaleFactor), exact; threaded from 2048 elements. */
VEKS_API VekStatus veksMagnitude_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = atan2(pSrcIm[i], pSrcRe[i]). */
VEKS_API VekStatus veksPhase_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst, int len);
/* pDst[i] = atan2(pSrcIm[i], pSrcRe[i]). */
VEKS_API VekStatus veksPhase_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst, int len);
/* pDst[i] = atan2(pSrc[i].im, pSrc[i].re). */
VEKS_API VekStatus veksPhase_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len);
/* pDst[i] = atan2(pSrc[i].im, pSrc[i].re). */
VEKS_API VekStatus veksPhase_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len);
/* atan2 of integer parts, rounded to binary32. */
VEKS_API VekStatus veksPhase_16s32f(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek32f* pDst, int len);
/* atan2 of integer parts, rounded to binary32. */
VEKS_API VekStatus veksPhase_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len);
/* R_16s(atan2(im, re) * 2^-scaleFactor). */
VEKS_API VekStatus veksPhase_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDst, int len, int scaleFactor);
/* R_16s(atan2(im, re) * 2^-scaleFactor). */
VEKS_API VekStatus veksPhase_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len, int scaleFactor);
/* R_32s(atan2(im, re) * 2^-scaleFactor). */
VEKS_API VekStatus veksPhase_32sc_Sfs(const Vek32sc* pSrc, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrcRe[i]^2 + pSrcIm[i]^2. */
VEKS_API VekStatus veksPowerSpectr_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst, int len);
/* pDst[i] = pSrcRe[i]^2 + pSrcIm[i]^2. */
VEKS_API VekStatus veksPowerSpectr_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst, int len);
/* pDst[i] = re^2 + im^2 of pSrc[i]. */
VEKS_API VekStatus veksPowerSpectr_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len);
/* pDst[i] = re^2 + im^2 of pSrc[i]. */
VEKS_API VekStatus veksPowerSpectr_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len);
/* The exact re^2 + im^2 rounded once to binary32. */
VEKS_API VekStatus veksPowerSpectr_16s32f(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek32f* pDst, int len);
/* The exact re^2 + im^2 rounded once to binary32. */
VEKS_API VekStatus veksPowerSpectr_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len);
/* R_16s((re^2 + im^2) * 2^-scaleFactor) of the exact sum. */
VEKS_API VekStatus veksPowerSpectr_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDst, int len, int scaleFactor);
/* R_16s((re^2 + im^2) * 2^-scaleFactor) of the exact sum. */
VEKS_API VekStatus veksPowerSpectr_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len, int scaleFactor);

/* ==== Polar conversion ==== */
/* CartToPolar stores exactly the values of Magnitude and Phase of the same type; its two destinations must not coincide. */
/* PolarToCart reduces every finite phase exactly (bits of 2/pi beyond 2^30): |error| <= 2^-22 |r| (32f), 2^-50 |r| (64f); a non-finite phase gives NaN. */
/* Magnitude and phase of split complex values. */
VEKS_API VekStatus veksCartToPolar_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstMagn, Vek32f* pDstPhase, int len);
/* Magnitude and phase of split complex values. */
VEKS_API VekStatus veksCartToPolar_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstMagn, Vek64f* pDstPhase, int len);
/* Magnitude and phase of interleaved complex values. */
VEKS_API VekStatus veksCartToPolar_32fc(const Vek32fc* pSrc, Vek32f* pDstMagn, Vek32f* pDstPhase, int len);
/* Magnitude and phase of interleaved complex values. */
VEKS_API VekStatus veksCartToPolar_64fc(const Vek64fc* pSrc, Vek64f* pDstMagn, Vek64f* pDstPhase, int len);
/* re = r cos(phase), im = r sin(phase), split. */
VEKS_API VekStatus veksPolarToCart_32f(const Vek32f* pSrcMagn, const Vek32f* pSrcPhase, Vek32f* pDstRe, Vek32f* pDstIm, int len);
/* re = r cos(phase), im = r sin(phase), split. */
VEKS_API VekStatus veksPolarToCart_64f(const Vek64f* pSrcMagn, const Vek64f* pSrcPhase, Vek64f* pDstRe, Vek64f* pDstIm, int len);
/* re = r cos(phase), im = r sin(phase), interleaved. */
VEKS_API VekStatus veksPolarToCart_32f32fc(const Vek32f* pSrcMagn, const Vek32f* pSrcPhase, Vek32fc* pDst, int len);
/* re = r cos(phase), im = r sin(phase), interleaved. */
VEKS_API VekStatus veksPolarToCart_64f64fc(const Vek64f* pSrcMagn, const Vek64f* pSrcPhase, Vek64fc* pDst, int len);

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

/* ---- END GENERATED EXPORTS ---- */
/* clang-format on */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_H */
