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

/* Relation selector of the plain Threshold operations. */
typedef int VekRelation;
enum { vekRelLess = 0, vekRelGreater = 4 };

/* Zero-crossing measure of the statistics family. */
typedef int VekCrossingMeasure;
enum { vekCrossProduct = 0, vekCrossSignBit = 1, vekCrossWithZeros = 2 };

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

/* Specification blocks of the power-of-two Fourier transforms (opaque; caller memory). */
typedef struct VeksFFTSpec_C_32fc VeksFFTSpec_C_32fc;
typedef struct VeksFFTSpec_C_32f VeksFFTSpec_C_32f;
typedef struct VeksFFTSpec_R_32f VeksFFTSpec_R_32f;
typedef struct VeksFFTSpec_C_64fc VeksFFTSpec_C_64fc;
typedef struct VeksFFTSpec_C_64f VeksFFTSpec_C_64f;
typedef struct VeksFFTSpec_R_64f VeksFFTSpec_R_64f;

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

/* ==== Addition ==== */
/* Integer members without Sfs compute exactly and saturate to the destination, as with a */
/* scale factor of 0. Complex integers add as their interleaved components. */
/* pDst[i] = pSrc1[i] + pSrc2[i], scaled. */
VEKS_API VekStatus veksAdd_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] + pSrc2[i], scaled. */
VEKS_API VekStatus veksAdd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] + pSrc2[i], scaled. */
VEKS_API VekStatus veksAdd_16u_Sfs(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] + pSrc2[i], scaled. */
VEKS_API VekStatus veksAdd_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] + pSrc2[i], scaled. */
VEKS_API VekStatus veksAdd_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] + pSrc2[i], scaled. */
VEKS_API VekStatus veksAdd_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] + pSrc2[i], scaled. */
VEKS_API VekStatus veksAdd_64s_Sfs(const Vek64s* pSrc1, const Vek64s* pSrc2, Vek64s* pDst, int len, int scaleFactor);
/* pSrcDst[i] += pSrc[i], scaled. */
VEKS_API VekStatus veksAdd_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] += pSrc[i], scaled. */
VEKS_API VekStatus veksAdd_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] += pSrc[i], scaled. */
VEKS_API VekStatus veksAdd_16u_ISfs(const Vek16u* pSrc, Vek16u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] += pSrc[i], scaled. */
VEKS_API VekStatus veksAdd_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] += pSrc[i], scaled. */
VEKS_API VekStatus veksAdd_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] += pSrc[i], scaled. */
VEKS_API VekStatus veksAdd_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] + pSrc2[i]. */
VEKS_API VekStatus veksAdd_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len);
/* pDst[i] = pSrc1[i] + pSrc2[i]. */
VEKS_API VekStatus veksAdd_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len);
/* pDst[i] = pSrc1[i] + pSrc2[i]. */
VEKS_API VekStatus veksAdd_32u(const Vek32u* pSrc1, const Vek32u* pSrc2, Vek32u* pDst, int len);
/* pDst[i] = pSrc1[i] + pSrc2[i]. */
VEKS_API VekStatus veksAdd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
/* pDst[i] = pSrc1[i] + pSrc2[i]. */
VEKS_API VekStatus veksAdd_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
/* pDst[i] = pSrc1[i] + pSrc2[i]. */
VEKS_API VekStatus veksAdd_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
/* pDst[i] = pSrc1[i] + pSrc2[i]. */
VEKS_API VekStatus veksAdd_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst, int len);
/* pSrcDst[i] += pSrc[i]. */
VEKS_API VekStatus veksAdd_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
/* pSrcDst[i] += pSrc[i]. */
VEKS_API VekStatus veksAdd_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst[i] += pSrc[i]. */
VEKS_API VekStatus veksAdd_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] += pSrc[i]. */
VEKS_API VekStatus veksAdd_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
/* pSrcDst[i] += pSrc[i]. */
VEKS_API VekStatus veksAdd_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len);
/* pDst[i] = pSrc1[i] + pSrc2[i] in the wider type. */
VEKS_API VekStatus veksAdd_8u16u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek16u* pDst, int len);
/* pDst[i] = pSrc1[i] + pSrc2[i] in the wider type. */
VEKS_API VekStatus veksAdd_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst, int len);
/* pSrcDst[i] += pSrc[i], saturated. */
VEKS_API VekStatus veksAdd_16s32s_I(const Vek16s* pSrc, Vek32s* pSrcDst, int len);

/* ==== Subtraction ==== */
/* Sub subtracts the first vector from the second: pDst[i] = pSrc2[i] - pSrc1[i]. */
/* pDst[i] = pSrc2[i] - pSrc1[i], scaled. */
VEKS_API VekStatus veksSub_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] - pSrc1[i], scaled. */
VEKS_API VekStatus veksSub_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] - pSrc1[i], scaled. */
VEKS_API VekStatus veksSub_16u_Sfs(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] - pSrc1[i], scaled. */
VEKS_API VekStatus veksSub_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] - pSrc1[i], scaled. */
VEKS_API VekStatus veksSub_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] - pSrc1[i], scaled. */
VEKS_API VekStatus veksSub_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] -= pSrc[i], scaled. */
VEKS_API VekStatus veksSub_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] -= pSrc[i], scaled. */
VEKS_API VekStatus veksSub_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] -= pSrc[i], scaled. */
VEKS_API VekStatus veksSub_16u_ISfs(const Vek16u* pSrc, Vek16u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] -= pSrc[i], scaled. */
VEKS_API VekStatus veksSub_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] -= pSrc[i], scaled. */
VEKS_API VekStatus veksSub_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] -= pSrc[i], scaled. */
VEKS_API VekStatus veksSub_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] - pSrc1[i]. */
VEKS_API VekStatus veksSub_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len);
/* pDst[i] = pSrc2[i] - pSrc1[i]. */
VEKS_API VekStatus veksSub_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
/* pDst[i] = pSrc2[i] - pSrc1[i]. */
VEKS_API VekStatus veksSub_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
/* pDst[i] = pSrc2[i] - pSrc1[i]. */
VEKS_API VekStatus veksSub_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
/* pDst[i] = pSrc2[i] - pSrc1[i]. */
VEKS_API VekStatus veksSub_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst, int len);
/* pSrcDst[i] -= pSrc[i]. */
VEKS_API VekStatus veksSub_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
/* pSrcDst[i] -= pSrc[i]. */
VEKS_API VekStatus veksSub_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst[i] -= pSrc[i]. */
VEKS_API VekStatus veksSub_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] -= pSrc[i]. */
VEKS_API VekStatus veksSub_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
/* pSrcDst[i] -= pSrc[i]. */
VEKS_API VekStatus veksSub_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len);
/* pDst[i] = pSrc2[i] - pSrc1[i] in binary32. */
VEKS_API VekStatus veksSub_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst, int len);

/* ==== Multiplication ==== */
/* pDst[i] = pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksMul_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksMul_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksMul_16u_Sfs(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksMul_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksMul_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] *= pSrc[i], scaled. */
VEKS_API VekStatus veksMul_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] *= pSrc[i], scaled. */
VEKS_API VekStatus veksMul_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] *= pSrc[i], scaled. */
VEKS_API VekStatus veksMul_16u_ISfs(const Vek16u* pSrc, Vek16u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] *= pSrc[i], scaled. */
VEKS_API VekStatus veksMul_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] *= pSrc[i], scaled. */
VEKS_API VekStatus veksMul_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksMul_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len);
/* pDst[i] = pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksMul_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
/* pDst[i] = pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksMul_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
/* pDst[i] = pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksMul_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
/* pDst[i] = pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksMul_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst, int len);
/* pSrcDst[i] *= pSrc[i]. */
VEKS_API VekStatus veksMul_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
/* pSrcDst[i] *= pSrc[i]. */
VEKS_API VekStatus veksMul_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst[i] *= pSrc[i]. */
VEKS_API VekStatus veksMul_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] *= pSrc[i]. */
VEKS_API VekStatus veksMul_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
/* pSrcDst[i] *= pSrc[i]. */
VEKS_API VekStatus veksMul_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len);
/* pDst[i] = pSrc1[i] * pSrc2[i] in the wider type. */
VEKS_API VekStatus veksMul_8u16u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek16u* pDst, int len);
/* pDst[i] = pSrc1[i] * pSrc2[i] in the wider type. */
VEKS_API VekStatus veksMul_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst, int len);
/* pDst[i] = pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksMul_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksMul_16u16s_Sfs(const Vek16u* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc1[i] * pSrc2[i]: a real vector scales a complex one. */
VEKS_API VekStatus veksMul_32f32fc(const Vek32f* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
/* pSrcDst[i] *= pSrc[i] (real times complex). */
VEKS_API VekStatus veksMul_32f32fc_I(const Vek32f* pSrc, Vek32fc* pSrcDst, int len);

/* ==== Operations with a constant ==== */
/* AddC and SubC by 0 and MulC by 1 at scale factor 0 copy, MulC by 0 zero-fills: the same */
/* results, faster. SubC computes pSrc[i] - val, SubCRev val - pSrc[i]. */
/* pDst[i] = pSrc[i] + val, scaled. */
VEKS_API VekStatus veksAddC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] + val, scaled. */
VEKS_API VekStatus veksAddC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] + val, scaled. */
VEKS_API VekStatus veksAddC_16u_Sfs(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] + val, scaled. */
VEKS_API VekStatus veksAddC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] + val, scaled. */
VEKS_API VekStatus veksAddC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] + val, scaled. */
VEKS_API VekStatus veksAddC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] + val, scaled. */
VEKS_API VekStatus veksAddC_64s_Sfs(const Vek64s* pSrc, Vek64s val, Vek64s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] + val, scaled. */
VEKS_API VekStatus veksAddC_64u_Sfs(const Vek64u* pSrc, Vek64u val, Vek64u* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] + val, scaled. */
VEKS_API VekStatus veksAddC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] + val, scaled. */
VEKS_API VekStatus veksAddC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] + val, scaled. */
VEKS_API VekStatus veksAddC_16u_ISfs(Vek16u val, Vek16u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] + val, scaled. */
VEKS_API VekStatus veksAddC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] + val, scaled. */
VEKS_API VekStatus veksAddC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] + val, scaled. */
VEKS_API VekStatus veksAddC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] + val, saturated. */
VEKS_API VekStatus veksAddC_16s_I(Vek16s val, Vek16s* pSrcDst, int len);
/* pDst[i] = pSrc[i] + val. */
VEKS_API VekStatus veksAddC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
/* pDst[i] = pSrc[i] + val. */
VEKS_API VekStatus veksAddC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
/* pDst[i] = pSrc[i] + val. */
VEKS_API VekStatus veksAddC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
/* pDst[i] = pSrc[i] + val. */
VEKS_API VekStatus veksAddC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
/* pSrcDst[i] = pSrcDst[i] + val. */
VEKS_API VekStatus veksAddC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] + val. */
VEKS_API VekStatus veksAddC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] + val. */
VEKS_API VekStatus veksAddC_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] + val. */
VEKS_API VekStatus veksAddC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
/* pDst[i] = pSrc[i] - val, scaled. */
VEKS_API VekStatus veksSubC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] - val, scaled. */
VEKS_API VekStatus veksSubC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] - val, scaled. */
VEKS_API VekStatus veksSubC_16u_Sfs(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] - val, scaled. */
VEKS_API VekStatus veksSubC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] - val, scaled. */
VEKS_API VekStatus veksSubC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] - val, scaled. */
VEKS_API VekStatus veksSubC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] - val, scaled. */
VEKS_API VekStatus veksSubC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] - val, scaled. */
VEKS_API VekStatus veksSubC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] - val, scaled. */
VEKS_API VekStatus veksSubC_16u_ISfs(Vek16u val, Vek16u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] - val, scaled. */
VEKS_API VekStatus veksSubC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] - val, scaled. */
VEKS_API VekStatus veksSubC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] - val, scaled. */
VEKS_API VekStatus veksSubC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] - val, saturated. */
VEKS_API VekStatus veksSubC_16s_I(Vek16s val, Vek16s* pSrcDst, int len);
/* pDst[i] = pSrc[i] - val. */
VEKS_API VekStatus veksSubC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
/* pDst[i] = pSrc[i] - val. */
VEKS_API VekStatus veksSubC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
/* pDst[i] = pSrc[i] - val. */
VEKS_API VekStatus veksSubC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
/* pDst[i] = pSrc[i] - val. */
VEKS_API VekStatus veksSubC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
/* pSrcDst[i] = pSrcDst[i] - val. */
VEKS_API VekStatus veksSubC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] - val. */
VEKS_API VekStatus veksSubC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] - val. */
VEKS_API VekStatus veksSubC_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] - val. */
VEKS_API VekStatus veksSubC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
/* pDst[i] = val - pSrc[i], scaled. */
VEKS_API VekStatus veksSubCRev_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = val - pSrc[i], scaled. */
VEKS_API VekStatus veksSubCRev_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = val - pSrc[i], scaled. */
VEKS_API VekStatus veksSubCRev_16u_Sfs(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = val - pSrc[i], scaled. */
VEKS_API VekStatus veksSubCRev_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len, int scaleFactor);
/* pDst[i] = val - pSrc[i], scaled. */
VEKS_API VekStatus veksSubCRev_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = val - pSrc[i], scaled. */
VEKS_API VekStatus veksSubCRev_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] = val - pSrcDst[i], scaled. */
VEKS_API VekStatus veksSubCRev_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = val - pSrcDst[i], scaled. */
VEKS_API VekStatus veksSubCRev_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = val - pSrcDst[i], scaled. */
VEKS_API VekStatus veksSubCRev_16u_ISfs(Vek16u val, Vek16u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = val - pSrcDst[i], scaled. */
VEKS_API VekStatus veksSubCRev_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = val - pSrcDst[i], scaled. */
VEKS_API VekStatus veksSubCRev_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = val - pSrcDst[i], scaled. */
VEKS_API VekStatus veksSubCRev_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor);
/* pDst[i] = val - pSrc[i]. */
VEKS_API VekStatus veksSubCRev_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
/* pDst[i] = val - pSrc[i]. */
VEKS_API VekStatus veksSubCRev_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
/* pDst[i] = val - pSrc[i]. */
VEKS_API VekStatus veksSubCRev_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
/* pDst[i] = val - pSrc[i]. */
VEKS_API VekStatus veksSubCRev_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
/* pSrcDst[i] = val - pSrcDst[i]. */
VEKS_API VekStatus veksSubCRev_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
/* pSrcDst[i] = val - pSrcDst[i]. */
VEKS_API VekStatus veksSubCRev_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] = val - pSrcDst[i]. */
VEKS_API VekStatus veksSubCRev_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
/* pSrcDst[i] = val - pSrcDst[i]. */
VEKS_API VekStatus veksSubCRev_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
/* pDst[i] = pSrc[i] * val, scaled. */
VEKS_API VekStatus veksMulC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] * val, scaled. */
VEKS_API VekStatus veksMulC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] * val, scaled. */
VEKS_API VekStatus veksMulC_16u_Sfs(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] * val, scaled. */
VEKS_API VekStatus veksMulC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] * val, scaled. */
VEKS_API VekStatus veksMulC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] * val, scaled. */
VEKS_API VekStatus veksMulC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] * val, scaled. */
VEKS_API VekStatus veksMulC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] * val, scaled. */
VEKS_API VekStatus veksMulC_16u_ISfs(Vek16u val, Vek16u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] * val, scaled. */
VEKS_API VekStatus veksMulC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] * val, scaled. */
VEKS_API VekStatus veksMulC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] * val, scaled. */
VEKS_API VekStatus veksMulC_64s_ISfs(Vek64s val, Vek64s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] * val, saturated. */
VEKS_API VekStatus veksMulC_16s_I(Vek16s val, Vek16s* pSrcDst, int len);
/* pDst[i] = pSrc[i] * val. */
VEKS_API VekStatus veksMulC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
/* pDst[i] = pSrc[i] * val. */
VEKS_API VekStatus veksMulC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
/* pDst[i] = pSrc[i] * val. */
VEKS_API VekStatus veksMulC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
/* pDst[i] = pSrc[i] * val. */
VEKS_API VekStatus veksMulC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
/* pSrcDst[i] = pSrcDst[i] * val. */
VEKS_API VekStatus veksMulC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] * val. */
VEKS_API VekStatus veksMulC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] * val. */
VEKS_API VekStatus veksMulC_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] * val. */
VEKS_API VekStatus veksMulC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
/* veksMulC_64f64s_ISfs stores the exactly rounded pSrcDst[i] * val * 2^-scaleFactor (ties to */
/* even, saturated; a NaN product gives the minimum). veksMulC_32f16s_Sfs rounds the binary32 */
/* product times 2^-scaleFactor to nearest even and saturates (NaN gives -32768); */
/* veksMulC_Low_32f16s gives exactly its results at scale factor 0. */
/* pSrcDst[i] = round(pSrcDst[i] * val * 2^-scaleFactor), saturated. */
VEKS_API VekStatus veksMulC_64f64s_ISfs(Vek64f val, Vek64s* pSrcDst, int len, int scaleFactor);
/* pDst[i] = round(pSrc[i] * val * 2^-scaleFactor), saturated. */
VEKS_API VekStatus veksMulC_32f16s_Sfs(const Vek32f* pSrc, Vek32f val, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = round(pSrc[i] * val), saturated. */
VEKS_API VekStatus veksMulC_Low_32f16s(const Vek32f* pSrc, Vek32f val, Vek16s* pDst, int len);

/* ==== Multiply-accumulate, square, absolute value ==== */
/* pSrcDst[i] += pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksAddProduct_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksAddProduct_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksAddProduct_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32s* pSrcDst, int len, int scaleFactor);
/* Float AddProduct rounds the product, then the sum. */
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksAddProduct_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksAddProduct_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksAddProduct_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]. */
VEKS_API VekStatus veksAddProduct_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pSrcDst, int len);
/* pSrcDst[i] += pSrc[i] * val. */
VEKS_API VekStatus veksAddProductC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pSrcDst, int len);
/* pDst[i] = pSrc[i]^2, scaled. */
VEKS_API VekStatus veksSqr_8u_Sfs(const Vek8u* pSrc, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i]^2, scaled. */
VEKS_API VekStatus veksSqr_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i]^2, scaled. */
VEKS_API VekStatus veksSqr_16u_Sfs(const Vek16u* pSrc, Vek16u* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i]^2, scaled. */
VEKS_API VekStatus veksSqr_8u_ISfs(Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i]^2, scaled. */
VEKS_API VekStatus veksSqr_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i]^2, scaled. */
VEKS_API VekStatus veksSqr_16u_ISfs(Vek16u* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i]^2. */
VEKS_API VekStatus veksSqr_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
/* pDst[i] = pSrc[i]^2. */
VEKS_API VekStatus veksSqr_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
/* pDst[i] = pSrc[i]^2. */
VEKS_API VekStatus veksSqr_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
/* pDst[i] = pSrc[i]^2. */
VEKS_API VekStatus veksSqr_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
/* pSrcDst[i] = pSrcDst[i]^2. */
VEKS_API VekStatus veksSqr_32f_I(Vek32f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i]^2. */
VEKS_API VekStatus veksSqr_32fc_I(Vek32fc* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i]^2. */
VEKS_API VekStatus veksSqr_64f_I(Vek64f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i]^2. */
VEKS_API VekStatus veksSqr_64fc_I(Vek64fc* pSrcDst, int len);
/* Integer Abs saturates: |-32768| is 32767 and |-2^31| is 2^31 - 1. Float Abs clears the sign bit. */
/* pDst[i] = |pSrc[i]|. */
VEKS_API VekStatus veksAbs_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
/* pDst[i] = |pSrc[i]|. */
VEKS_API VekStatus veksAbs_32s(const Vek32s* pSrc, Vek32s* pDst, int len);
/* pDst[i] = |pSrc[i]|. */
VEKS_API VekStatus veksAbs_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
/* pDst[i] = |pSrc[i]|. */
VEKS_API VekStatus veksAbs_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
/* pSrcDst[i] = |pSrcDst[i]|. */
VEKS_API VekStatus veksAbs_16s_I(Vek16s* pSrcDst, int len);
/* pSrcDst[i] = |pSrcDst[i]|. */
VEKS_API VekStatus veksAbs_32s_I(Vek32s* pSrcDst, int len);
/* pSrcDst[i] = |pSrcDst[i]|. */
VEKS_API VekStatus veksAbs_32f_I(Vek32f* pSrcDst, int len);
/* pSrcDst[i] = |pSrcDst[i]|. */
VEKS_API VekStatus veksAbs_64f_I(Vek64f* pSrcDst, int len);

/* ==== Complex 16-bit products ==== */
/* pDst[i] = pSrc1[i] * pSrc2[i], scaled. */
VEKS_API VekStatus veksMul_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] *= pSrc[i], scaled. */
VEKS_API VekStatus veksMul_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] * val, scaled. */
VEKS_API VekStatus veksMulC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] * val, scaled. */
VEKS_API VekStatus veksMulC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i]^2, scaled. */
VEKS_API VekStatus veksSqr_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i]^2, scaled. */
VEKS_API VekStatus veksSqr_16sc_ISfs(Vek16sc* pSrcDst, int len, int scaleFactor);

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
/* Magnitude_32f/_32fc are within 1 ulp (measured 0.85): a two-word binary32 sum of squares rounded once, then its binary32 root; _64f/_64fc follow C99 hypot within 1 ulp (measured 0.75); integer sources are exact. */
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

/* ==== Conjugation and packed-spectrum arithmetic ==== */
/* Packed spectra of a real signal of length N = len: real numbers at position 0 and, for even N, at N - 1 (Pack) or 1 (Perm); the positions between hold (re, im) pairs. For odd N Perm equals Pack; for N = 1 and N = 2 every position is real. */
/* Pair products: each component is one fused multiply-add of one rounded product, within 1 ulp of |ac| + |bd| (resp. |ad| + |bc|); MulPackConj also adds that product's rounding error back, so a spectrum times its own conjugate has imaginary parts of exactly 0. Real positions are correctly rounded products. */
/* The _I forms give bit for bit the out-of-place result with pSrc1 = pSrc and pSrc2 = pSrcDst; pDst may equal either source. Out-of-place products whose three vectors together exceed the largest cache write pDst with non-temporal stores. */
/* pDst = pSrc1 * pSrc2, two spectra of length len in the Pack layout. */
VEKS_API VekStatus veksMulPack_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
/* pDst = pSrc1 * pSrc2, two spectra of length len in the Pack layout. */
VEKS_API VekStatus veksMulPack_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
/* pSrcDst *= pSrc in the Pack layout. */
VEKS_API VekStatus veksMulPack_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst *= pSrc in the Pack layout. */
VEKS_API VekStatus veksMulPack_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
/* pDst = pSrc1 * pSrc2, two spectra of length len in the Perm layout. */
VEKS_API VekStatus veksMulPerm_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
/* pDst = pSrc1 * pSrc2, two spectra of length len in the Perm layout. */
VEKS_API VekStatus veksMulPerm_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
/* pSrcDst *= pSrc in the Perm layout. */
VEKS_API VekStatus veksMulPerm_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst *= pSrc in the Perm layout. */
VEKS_API VekStatus veksMulPerm_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
/* pSrcDst *= conj(pSrc) in the Pack layout: pairs (a, b), (c, d) give (ac + bd, bc - ad). */
VEKS_API VekStatus veksMulPackConj_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst *= conj(pSrc) in the Pack layout: pairs (a, b), (c, d) give (ac + bd, bc - ad). */
VEKS_API VekStatus veksMulPackConj_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
/* Expansion: pDst[k] = X[k] for k <= N/2 and conj(X[N - k]) above, N = lenDst; the imaginary parts of R0 and R(N/2) are +0 whatever a CCS input holds there. Exact copies. */
/* The full spectrum of length lenDst from its Pack layout. */
VEKS_API VekStatus veksConjPack_32f(const Vek32f* pSrc, Vek32fc* pDst, int lenDst);
/* The full spectrum of length lenDst from its Pack layout. */
VEKS_API VekStatus veksConjPack_64f(const Vek64f* pSrc, Vek64fc* pDst, int lenDst);
/* The full spectrum of length lenDst from its Perm layout. */
VEKS_API VekStatus veksConjPerm_32f(const Vek32f* pSrc, Vek32fc* pDst, int lenDst);
/* The full spectrum of length lenDst from its Perm layout. */
VEKS_API VekStatus veksConjPerm_64f(const Vek64f* pSrc, Vek64fc* pDst, int lenDst);
/* The full spectrum of length lenDst from its CCS layout (lenDst + 2 values for even, lenDst + 1 for odd lenDst). */
VEKS_API VekStatus veksConjCCS_32f(const Vek32f* pSrc, Vek32fc* pDst, int lenDst);
/* The full spectrum of length lenDst from its CCS layout (lenDst + 2 values for even, lenDst + 1 for odd lenDst). */
VEKS_API VekStatus veksConjCCS_64f(const Vek64f* pSrc, Vek64fc* pDst, int lenDst);
/* Conj and ConjFlip: 16sc imaginary parts negate with saturation (-(-32768) = 32767); floating-point ones have their sign bit flipped (-0 and NaN included). */
/* pDst[i] = conj(pSrc[i]). */
VEKS_API VekStatus veksConj_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
/* pDst[i] = conj(pSrc[i]). */
VEKS_API VekStatus veksConj_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
/* pDst[i] = conj(pSrc[i]). */
VEKS_API VekStatus veksConj_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
/* pSrcDst[i] = conj(pSrcDst[i]). */
VEKS_API VekStatus veksConj_16sc_I(Vek16sc* pSrcDst, int len);
/* pSrcDst[i] = conj(pSrcDst[i]). */
VEKS_API VekStatus veksConj_32fc_I(Vek32fc* pSrcDst, int len);
/* pSrcDst[i] = conj(pSrcDst[i]). */
VEKS_API VekStatus veksConj_64fc_I(Vek64fc* pSrcDst, int len);
/* pDst[i] = conj(pSrc[len - 1 - i]); pSrc may equal pDst (reversed in place). */
VEKS_API VekStatus veksConjFlip_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
/* pDst[i] = conj(pSrc[len - 1 - i]); pSrc may equal pDst (reversed in place). */
VEKS_API VekStatus veksConjFlip_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
/* pDst[i] = conj(pSrc[len - 1 - i]); pSrc may equal pDst (reversed in place). */
VEKS_API VekStatus veksConjFlip_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);

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

/* ==== Division ==== */
/* Integer quotients are exact: round(pSrc2[i] / pSrc1[i] * 2^-scaleFactor) with ties to even, */
/* saturated. A zero divisor element stores the destination's maximum when the dividend is */
/* zero or positive, its minimum when it is negative (each component for complex data, whose */
/* divisor is zero when both components are), and the call returns vekStatusWarnZeroDivisor */
/* after writing everything. Floating-point zero divisors give the IEEE result and the same */
/* warning. Large calls run on two threads; in-place forms share the threshold of their */
/* out-of-place form, veksDiv_16sc_Sfs splits from 1024 elements. */
/* veksDiv_32s16s_Sfs divides 32-bit dividends (pSrc2) by 16-bit divisors (pSrc1). */
/* pDst[i] = pSrc2[i] / pSrc1[i], scaled. */
VEKS_API VekStatus veksDiv_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] / pSrc1[i], scaled. */
VEKS_API VekStatus veksDiv_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] / pSrc1[i], scaled. */
VEKS_API VekStatus veksDiv_16u_Sfs(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] / pSrc1[i], scaled. */
VEKS_API VekStatus veksDiv_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i], scaled. */
VEKS_API VekStatus veksDiv_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i], scaled. */
VEKS_API VekStatus veksDiv_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i], scaled. */
VEKS_API VekStatus veksDiv_16u_ISfs(const Vek16u* pSrc, Vek16u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i], scaled. */
VEKS_API VekStatus veksDiv_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] / pSrc1[i], scaled. */
VEKS_API VekStatus veksDiv_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i], scaled. */
VEKS_API VekStatus veksDiv_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] / pSrc1[i], scaled. */
VEKS_API VekStatus veksDiv_32s16s_Sfs(const Vek16s* pSrc1, const Vek32s* pSrc2, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc2[i] / pSrc1[i]. */
VEKS_API VekStatus veksDiv_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
/* pDst[i] = pSrc2[i] / pSrc1[i]. */
VEKS_API VekStatus veksDiv_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
/* pDst[i] = pSrc2[i] / pSrc1[i]. */
VEKS_API VekStatus veksDiv_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
/* pDst[i] = pSrc2[i] / pSrc1[i]. */
VEKS_API VekStatus veksDiv_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst, int len);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i]. */
VEKS_API VekStatus veksDiv_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i]. */
VEKS_API VekStatus veksDiv_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i]. */
VEKS_API VekStatus veksDiv_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] / pSrc[i]. */
VEKS_API VekStatus veksDiv_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len);

/* ==== Division with a rounding mode ==== */
/* rndMode 0 truncates, 1 rounds to nearest with ties to even, 2 to nearest with ties away */
/* from zero; any other value gives vekStatusBadRoundMode. Every scale factor is accepted. */
/* pDst[i] = round(pSrc2[i] / pSrc1[i] * 2^-scaleFactor) by rndMode, saturated. */
VEKS_API VekStatus veksDiv_Round_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len, int rndMode, int scaleFactor);
/* pDst[i] = round(pSrc2[i] / pSrc1[i] * 2^-scaleFactor) by rndMode, saturated. */
VEKS_API VekStatus veksDiv_Round_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len, int rndMode, int scaleFactor);
/* pDst[i] = round(pSrc2[i] / pSrc1[i] * 2^-scaleFactor) by rndMode, saturated. */
VEKS_API VekStatus veksDiv_Round_16u_Sfs(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len, int rndMode, int scaleFactor);
/* pSrcDst[i] = round(pSrcDst[i] / pSrc[i] * 2^-scaleFactor) by rndMode, saturated. */
VEKS_API VekStatus veksDiv_Round_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int rndMode, int scaleFactor);
/* pSrcDst[i] = round(pSrcDst[i] / pSrc[i] * 2^-scaleFactor) by rndMode, saturated. */
VEKS_API VekStatus veksDiv_Round_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int rndMode, int scaleFactor);
/* pSrcDst[i] = round(pSrcDst[i] / pSrc[i] * 2^-scaleFactor) by rndMode, saturated. */
VEKS_API VekStatus veksDiv_Round_16u_ISfs(const Vek16u* pSrc, Vek16u* pSrcDst, int len, int rndMode, int scaleFactor);

/* ==== Division by a constant ==== */
/* A zero constant gives vekStatusZeroDivisor and writes nothing, except veksDivC_64s_ISfs, */
/* which stores the zero-divisor substitutes and returns vekStatusWarnZeroDivisor. Real */
/* floating-point data is multiplied by the reciprocal 1/val, which may differ from the true */
/* quotient in the last bit. */
/* pDst[i] = pSrc[i] / val, scaled. */
VEKS_API VekStatus veksDivC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] / val, scaled. */
VEKS_API VekStatus veksDivC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] / val, scaled. */
VEKS_API VekStatus veksDivC_16u_Sfs(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / val, scaled. */
VEKS_API VekStatus veksDivC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / val, scaled. */
VEKS_API VekStatus veksDivC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / val, scaled. */
VEKS_API VekStatus veksDivC_16u_ISfs(Vek16u val, Vek16u* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] / val, scaled. */
VEKS_API VekStatus veksDivC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / val, scaled. */
VEKS_API VekStatus veksDivC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
/* pSrcDst[i] = pSrcDst[i] / val, scaled. */
VEKS_API VekStatus veksDivC_64s_ISfs(Vek64s val, Vek64s* pSrcDst, int len, int scaleFactor);
/* pDst[i] = pSrc[i] / val. */
VEKS_API VekStatus veksDivC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
/* pDst[i] = pSrc[i] / val. */
VEKS_API VekStatus veksDivC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
/* pDst[i] = pSrc[i] / val. */
VEKS_API VekStatus veksDivC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
/* pDst[i] = pSrc[i] / val. */
VEKS_API VekStatus veksDivC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
/* pSrcDst[i] = pSrcDst[i] / val. */
VEKS_API VekStatus veksDivC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] / val. */
VEKS_API VekStatus veksDivC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] / val. */
VEKS_API VekStatus veksDivC_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
/* pSrcDst[i] = pSrcDst[i] / val. */
VEKS_API VekStatus veksDivC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);

/* ==== Division of a constant by a vector ==== */
/* veksDivCRev_16u rounds to nearest even; a zero element stores 65535 with the warning. */
/* pDst[i] = val / pSrc[i]. */
VEKS_API VekStatus veksDivCRev_16u(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len);
/* pSrcDst[i] = val / pSrcDst[i]. */
VEKS_API VekStatus veksDivCRev_16u_I(Vek16u val, Vek16u* pSrcDst, int len);
/* pDst[i] = val / pSrc[i]. */
VEKS_API VekStatus veksDivCRev_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
/* pSrcDst[i] = val / pSrcDst[i]. */
VEKS_API VekStatus veksDivCRev_32f_I(Vek32f val, Vek32f* pSrcDst, int len);

/* ==== Extremes and their indices ==== */
/* Indices count from 0 and report the first occurrence: the lowest index holding the extreme. */
/* The index pointer of Min/MaxIndx and Min/MaxAbsIndx is optional (checked after the length; */
/* null makes the call its value-only sibling). Magnitudes of 16s and 32s data are searched */
/* as unsigned values (|-32768| is 32768) and stored saturated (32767, 2147483647). */
/* NaN: a NaN in a floating-point vector is the result of every minimum and maximum (value and */
/* index: the first NaN), for MinMax both. MinEvery/MaxEvery give NaN where either source is */
/* NaN. Extremes that compare equal (-0 and +0) report the first one. */
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMin_16s(const Vek16s* pSrc, int len, Vek16s* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMin_32s(const Vek32s* pSrc, int len, Vek32s* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMin_32f(const Vek32f* pSrc, int len, Vek32f* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMin_64f(const Vek64f* pSrc, int len, Vek64f* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMax_16s(const Vek16s* pSrc, int len, Vek16s* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMax_32s(const Vek32s* pSrc, int len, Vek32s* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMax_32f(const Vek32f* pSrc, int len, Vek32f* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMax_64f(const Vek64f* pSrc, int len, Vek64f* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMinAbs_16s(const Vek16s* pSrc, int len, Vek16s* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMinAbs_32s(const Vek32s* pSrc, int len, Vek32s* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMinAbs_32f(const Vek32f* pSrc, int len, Vek32f* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMinAbs_64f(const Vek64f* pSrc, int len, Vek64f* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMaxAbs_16s(const Vek16s* pSrc, int len, Vek16s* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMaxAbs_32s(const Vek32s* pSrc, int len, Vek32s* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMaxAbs_32f(const Vek32f* pSrc, int len, Vek32f* pVal);
/* Smallest or largest element or magnitude. */
VEKS_API VekStatus veksMaxAbs_64f(const Vek64f* pSrc, int len, Vek64f* pVal);
/* Smallest and largest element. */
VEKS_API VekStatus veksMinMax_8u(const Vek8u* pSrc, int len, Vek8u* pMin, Vek8u* pMax);
/* Smallest and largest element. */
VEKS_API VekStatus veksMinMax_16u(const Vek16u* pSrc, int len, Vek16u* pMin, Vek16u* pMax);
/* Smallest and largest element. */
VEKS_API VekStatus veksMinMax_16s(const Vek16s* pSrc, int len, Vek16s* pMin, Vek16s* pMax);
/* Smallest and largest element. */
VEKS_API VekStatus veksMinMax_32u(const Vek32u* pSrc, int len, Vek32u* pMin, Vek32u* pMax);
/* Smallest and largest element. */
VEKS_API VekStatus veksMinMax_32s(const Vek32s* pSrc, int len, Vek32s* pMin, Vek32s* pMax);
/* Smallest and largest element. */
VEKS_API VekStatus veksMinMax_32f(const Vek32f* pSrc, int len, Vek32f* pMin, Vek32f* pMax);
/* Smallest and largest element. */
VEKS_API VekStatus veksMinMax_64f(const Vek64f* pSrc, int len, Vek64f* pMin, Vek64f* pMax);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMinIndx_16s(const Vek16s* pSrc, int len, Vek16s* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMinIndx_32s(const Vek32s* pSrc, int len, Vek32s* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMinIndx_32f(const Vek32f* pSrc, int len, Vek32f* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMinIndx_64f(const Vek64f* pSrc, int len, Vek64f* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMaxIndx_16s(const Vek16s* pSrc, int len, Vek16s* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMaxIndx_32s(const Vek32s* pSrc, int len, Vek32s* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMaxIndx_32f(const Vek32f* pSrc, int len, Vek32f* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMaxIndx_64f(const Vek64f* pSrc, int len, Vek64f* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMinAbsIndx_16s(const Vek16s* pSrc, int len, Vek16s* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMinAbsIndx_32s(const Vek32s* pSrc, int len, Vek32s* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMaxAbsIndx_16s(const Vek16s* pSrc, int len, Vek16s* pVal, int* pIndx);
/* Extreme and the index of its first occurrence (pIndx may be null). */
VEKS_API VekStatus veksMaxAbsIndx_32s(const Vek32s* pSrc, int len, Vek32s* pVal, int* pIndx);
/* Smallest and largest element, each at its first index. */
VEKS_API VekStatus veksMinMaxIndx_8u(const Vek8u* pSrc, int len, Vek8u* pMin, int* pMinIndx, Vek8u* pMax, int* pMaxIndx);
/* Smallest and largest element, each at its first index. */
VEKS_API VekStatus veksMinMaxIndx_16u(const Vek16u* pSrc, int len, Vek16u* pMin, int* pMinIndx, Vek16u* pMax, int* pMaxIndx);
/* Smallest and largest element, each at its first index. */
VEKS_API VekStatus veksMinMaxIndx_16s(const Vek16s* pSrc, int len, Vek16s* pMin, int* pMinIndx, Vek16s* pMax, int* pMaxIndx);
/* Smallest and largest element, each at its first index. */
VEKS_API VekStatus veksMinMaxIndx_32u(const Vek32u* pSrc, int len, Vek32u* pMin, int* pMinIndx, Vek32u* pMax, int* pMaxIndx);
/* Smallest and largest element, each at its first index. */
VEKS_API VekStatus veksMinMaxIndx_32s(const Vek32s* pSrc, int len, Vek32s* pMin, int* pMinIndx, Vek32s* pMax, int* pMaxIndx);
/* Smallest and largest element, each at its first index. */
VEKS_API VekStatus veksMinMaxIndx_32f(const Vek32f* pSrc, int len, Vek32f* pMin, int* pMinIndx, Vek32f* pMax, int* pMaxIndx);
/* Smallest and largest element, each at its first index. */
VEKS_API VekStatus veksMinMaxIndx_64f(const Vek64f* pSrc, int len, Vek64f* pMin, int* pMinIndx, Vek64f* pMax, int* pMaxIndx);

/* ==== Element-wise extremes ==== */
/* pDst[i] = min or max of the sources; len is unsigned, only 0 is rejected. */
VEKS_API VekStatus veksMinEvery_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, Vek32u len);
/* pDst[i] = min or max of the sources; len is unsigned, only 0 is rejected. */
VEKS_API VekStatus veksMinEvery_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, Vek32u len);
/* pDst[i] = min or max of the sources; len is unsigned, only 0 is rejected. */
VEKS_API VekStatus veksMinEvery_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, Vek32u len);
/* pDst[i] = min or max of the sources; len is unsigned, only 0 is rejected. */
VEKS_API VekStatus veksMinEvery_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, Vek32u len);
/* pDst[i] = min or max of the sources; len is unsigned, only 0 is rejected. */
VEKS_API VekStatus veksMaxEvery_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, Vek32u len);
/* pDst[i] = min or max of the sources; len is unsigned, only 0 is rejected. */
VEKS_API VekStatus veksMaxEvery_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, Vek32u len);
/* pDst[i] = min or max of the sources; len is unsigned, only 0 is rejected. */
VEKS_API VekStatus veksMaxEvery_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, Vek32u len);
/* pDst[i] = min or max of the sources; len is unsigned, only 0 is rejected. */
VEKS_API VekStatus veksMaxEvery_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, Vek32u len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMinEvery_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMinEvery_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMinEvery_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMinEvery_32s_I(const Vek32s* pSrc, Vek32s* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMinEvery_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMinEvery_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMaxEvery_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMaxEvery_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMaxEvery_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMaxEvery_32s_I(const Vek32s* pSrc, Vek32s* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMaxEvery_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/* pSrcDst[i] = min or max of pSrc[i] and pSrcDst[i]. */
VEKS_API VekStatus veksMaxEvery_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);

/* ==== Order of the largest magnitude ==== */
/* The length is checked before the pointers. Integers: the bit length of the OR of all */
/* magnitudes (-2^31 gives 32, -32768 gives 16). Floating point: the biased exponent field of the */
/* largest magnitude less 126 (64f: 1022), 0 when every element is zero (a subnormal largest */
/* magnitude gives -126, -1022). A NaN or an infinity returns vekStatusWarnNaN with the order of */
/* the largest non-NaN magnitude (an infinity gives 129, 1025; only NaNs give 0). */
/* Order (bit length) of the largest magnitude. */
VEKS_API VekStatus veksMaxOrder_16s(const Vek16s* pSrc, int len, int* pOrder);
/* Order (bit length) of the largest magnitude. */
VEKS_API VekStatus veksMaxOrder_32s(const Vek32s* pSrc, int len, int* pOrder);
/* Order (bit length) of the largest magnitude. */
VEKS_API VekStatus veksMaxOrder_32f(const Vek32f* pSrc, int len, int* pOrder);
/* Order (bit length) of the largest magnitude. */
VEKS_API VekStatus veksMaxOrder_64f(const Vek64f* pSrc, int len, int* pOrder);

/* ==== Lookup and counting ==== */
/* FindNearest: the table is ascending (not checked); a value exactly between two entries goes */
/* to the lower one; a table length below 1 gives vekStatusBadSize. */
/* For each value, the nearest table entry and its index. */
VEKS_API VekStatus veksFindNearest_16u(const Vek16u* pVals, Vek16u* pOutVals, int* pOutIndx, int len, const Vek16u* pTable, int tblLen);
/* The nearest table entry to one value and its index. */
VEKS_API VekStatus veksFindNearestOne_16u(Vek16u inpVal, Vek16u* pOutVal, int* pOutIndx, const Vek16u* pTable, int tblLen);
/* Number of elements with lowerBound < x < upperBound (both bounds excluded). */
VEKS_API VekStatus veksCountInRange_32s(const Vek32s* pSrc, int len, int* pCount, Vek32s lowerBound, Vek32s upperBound);
/* ZeroCrossing counts over the len - 1 adjacent pairs (len is unsigned; 1 gives 0): */
/* vekCrossProduct: x[i] * x[i+1] < 0 (32f: the single-precision product, so a product that */
/* underflows to zero does not count; 16s: exact, no multiplication). vekCrossSignBit: the sign */
/* bits differ (+0 then -0 counts; 16s zero is non-negative). vekCrossWithZeros: each element */
/* is classed -1, 0 or +1 (NaN as 0) and each pair adds |class[i+1] - class[i]| / 2, so a sign */
/* change counts 1, a step onto or off zero counts 1/2, and passing through zeros counts 1. */
/* Zero-crossing measure of the vector as a count. */
VEKS_API VekStatus veksZeroCrossing_32f(const Vek32f* pSrc, Vek32u len, Vek32f* pValZC, VekCrossingMeasure tZC);
/* Zero-crossing measure of the vector as a count. */
VEKS_API VekStatus veksZeroCrossing_16s32f(const Vek16s* pSrc, Vek32u len, Vek32f* pValZC, VekCrossingMeasure tZC);

/* ==== Fast Fourier transform: specifications ==== */
/* A specification is caller memory sized by GetSize and filled by Init (any alignment: Init */
/* rounds it up to 64 bytes and returns the aligned handle). Execution only reads it, so one */
/* specification serves any number of threads, each with its own work buffer of the reported */
/* size. Orders up to 6 (complex) and 4 (real) carry no tables. Middle orders run self-sorting */
/* radix-8/4 passes that alternate between the destination and the work buffer (no separate */
/* permutation pass); large orders run blocked column passes through the work buffer, in-cache */
/* row transforms and a tiled bit-reversal permutation, all in place in the destination. */
/* Sizes of the specification, of Init's buffer and of the work buffer (0: none). */
VEKS_API VekStatus veksFFTGetSize_C_32fc(int order, int flag, VekAccuracyHint hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
/* Sizes of the specification, of Init's buffer and of the work buffer (0: none). */
VEKS_API VekStatus veksFFTGetSize_C_32f(int order, int flag, VekAccuracyHint hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
/* Sizes of the specification, of Init's buffer and of the work buffer (0: none). */
VEKS_API VekStatus veksFFTGetSize_R_32f(int order, int flag, VekAccuracyHint hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
/* Sizes of the specification, of Init's buffer and of the work buffer (0: none). */
VEKS_API VekStatus veksFFTGetSize_C_64fc(int order, int flag, VekAccuracyHint hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
/* Sizes of the specification, of Init's buffer and of the work buffer (0: none). */
VEKS_API VekStatus veksFFTGetSize_C_64f(int order, int flag, VekAccuracyHint hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
/* Sizes of the specification, of Init's buffer and of the work buffer (0: none). */
VEKS_API VekStatus veksFFTGetSize_R_64f(int order, int flag, VekAccuracyHint hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
/* Builds the specification in pSpec and stores its 64-byte-aligned handle. */
VEKS_API VekStatus veksFFTInit_C_32fc(VeksFFTSpec_C_32fc** ppFFTSpec, int order, int flag, VekAccuracyHint hint, Vek8u* pSpec, Vek8u* pSpecBuffer);
/* Builds the specification in pSpec and stores its 64-byte-aligned handle. */
VEKS_API VekStatus veksFFTInit_C_32f(VeksFFTSpec_C_32f** ppFFTSpec, int order, int flag, VekAccuracyHint hint, Vek8u* pSpec, Vek8u* pSpecBuffer);
/* Builds the specification in pSpec and stores its 64-byte-aligned handle. */
VEKS_API VekStatus veksFFTInit_R_32f(VeksFFTSpec_R_32f** ppFFTSpec, int order, int flag, VekAccuracyHint hint, Vek8u* pSpec, Vek8u* pSpecBuffer);
/* Builds the specification in pSpec and stores its 64-byte-aligned handle. */
VEKS_API VekStatus veksFFTInit_C_64fc(VeksFFTSpec_C_64fc** ppFFTSpec, int order, int flag, VekAccuracyHint hint, Vek8u* pSpec, Vek8u* pSpecBuffer);
/* Builds the specification in pSpec and stores its 64-byte-aligned handle. */
VEKS_API VekStatus veksFFTInit_C_64f(VeksFFTSpec_C_64f** ppFFTSpec, int order, int flag, VekAccuracyHint hint, Vek8u* pSpec, Vek8u* pSpecBuffer);
/* Builds the specification in pSpec and stores its 64-byte-aligned handle. */
VEKS_API VekStatus veksFFTInit_R_64f(VeksFFTSpec_R_64f** ppFFTSpec, int order, int flag, VekAccuracyHint hint, Vek8u* pSpec, Vek8u* pSpecBuffer);

/* ==== Fast Fourier transform: execution ==== */
/* Forward kernel exp(-2*pi*i*n*k/N), inverse exp(+2*pi*i*n*k/N), scaled as the flag given to */
/* Init says. In place and out of place give bit-identical results. The real */
/* transforms store the spectrum as Pack (R0 R1 I1 ... R(N/2)), Perm (R0 R(N/2) R1 I1 ...) or */
/* CCS (R0 0 R1 I1 ... R(N/2) 0, N + 2 values). */
/* Complex transform of interleaved data. */
VEKS_API VekStatus veksFFTFwd_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst, const VeksFFTSpec_C_32fc* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of interleaved data. */
VEKS_API VekStatus veksFFTInv_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst, const VeksFFTSpec_C_32fc* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of interleaved data. */
VEKS_API VekStatus veksFFTFwd_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst, const VeksFFTSpec_C_64fc* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of interleaved data. */
VEKS_API VekStatus veksFFTInv_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst, const VeksFFTSpec_C_64fc* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of interleaved data, in place. */
VEKS_API VekStatus veksFFTFwd_CToC_32fc_I(Vek32fc* pSrcDst, const VeksFFTSpec_C_32fc* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of interleaved data, in place. */
VEKS_API VekStatus veksFFTInv_CToC_32fc_I(Vek32fc* pSrcDst, const VeksFFTSpec_C_32fc* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of interleaved data, in place. */
VEKS_API VekStatus veksFFTFwd_CToC_64fc_I(Vek64fc* pSrcDst, const VeksFFTSpec_C_64fc* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of interleaved data, in place. */
VEKS_API VekStatus veksFFTInv_CToC_64fc_I(Vek64fc* pSrcDst, const VeksFFTSpec_C_64fc* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of split real and imaginary arrays. */
VEKS_API VekStatus veksFFTFwd_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe, Vek32f* pDstIm, const VeksFFTSpec_C_32f* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of split real and imaginary arrays. */
VEKS_API VekStatus veksFFTInv_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe, Vek32f* pDstIm, const VeksFFTSpec_C_32f* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of split real and imaginary arrays. */
VEKS_API VekStatus veksFFTFwd_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe, Vek64f* pDstIm, const VeksFFTSpec_C_64f* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of split real and imaginary arrays. */
VEKS_API VekStatus veksFFTInv_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe, Vek64f* pDstIm, const VeksFFTSpec_C_64f* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of split arrays, in place. */
VEKS_API VekStatus veksFFTFwd_CToC_32f_I(Vek32f* pSrcDstRe, Vek32f* pSrcDstIm, const VeksFFTSpec_C_32f* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of split arrays, in place. */
VEKS_API VekStatus veksFFTInv_CToC_32f_I(Vek32f* pSrcDstRe, Vek32f* pSrcDstIm, const VeksFFTSpec_C_32f* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of split arrays, in place. */
VEKS_API VekStatus veksFFTFwd_CToC_64f_I(Vek64f* pSrcDstRe, Vek64f* pSrcDstIm, const VeksFFTSpec_C_64f* pFFTSpec, Vek8u* pBuffer);
/* Complex transform of split arrays, in place. */
VEKS_API VekStatus veksFFTInv_CToC_64f_I(Vek64f* pSrcDstRe, Vek64f* pSrcDstIm, const VeksFFTSpec_C_64f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum. */
VEKS_API VekStatus veksFFTFwd_RToPack_32f(const Vek32f* pSrc, Vek32f* pDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum. */
VEKS_API VekStatus veksFFTFwd_RToPerm_32f(const Vek32f* pSrc, Vek32f* pDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum. */
VEKS_API VekStatus veksFFTFwd_RToCCS_32f(const Vek32f* pSrc, Vek32f* pDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum. */
VEKS_API VekStatus veksFFTFwd_RToPack_64f(const Vek64f* pSrc, Vek64f* pDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum. */
VEKS_API VekStatus veksFFTFwd_RToPerm_64f(const Vek64f* pSrc, Vek64f* pDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum. */
VEKS_API VekStatus veksFFTFwd_RToCCS_64f(const Vek64f* pSrc, Vek64f* pDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum, in place. */
VEKS_API VekStatus veksFFTFwd_RToPack_32f_I(Vek32f* pSrcDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum, in place. */
VEKS_API VekStatus veksFFTFwd_RToPerm_32f_I(Vek32f* pSrcDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum, in place. */
VEKS_API VekStatus veksFFTFwd_RToCCS_32f_I(Vek32f* pSrcDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum, in place. */
VEKS_API VekStatus veksFFTFwd_RToPack_64f_I(Vek64f* pSrcDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum, in place. */
VEKS_API VekStatus veksFFTFwd_RToPerm_64f_I(Vek64f* pSrcDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Real signal to its packed spectrum, in place. */
VEKS_API VekStatus veksFFTFwd_RToCCS_64f_I(Vek64f* pSrcDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal. */
VEKS_API VekStatus veksFFTInv_PackToR_32f(const Vek32f* pSrc, Vek32f* pDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal. */
VEKS_API VekStatus veksFFTInv_PermToR_32f(const Vek32f* pSrc, Vek32f* pDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal. */
VEKS_API VekStatus veksFFTInv_CCSToR_32f(const Vek32f* pSrc, Vek32f* pDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal. */
VEKS_API VekStatus veksFFTInv_PackToR_64f(const Vek64f* pSrc, Vek64f* pDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal. */
VEKS_API VekStatus veksFFTInv_PermToR_64f(const Vek64f* pSrc, Vek64f* pDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal. */
VEKS_API VekStatus veksFFTInv_CCSToR_64f(const Vek64f* pSrc, Vek64f* pDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal, in place. */
VEKS_API VekStatus veksFFTInv_PackToR_32f_I(Vek32f* pSrcDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal, in place. */
VEKS_API VekStatus veksFFTInv_PermToR_32f_I(Vek32f* pSrcDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal, in place. */
VEKS_API VekStatus veksFFTInv_CCSToR_32f_I(Vek32f* pSrcDst, const VeksFFTSpec_R_32f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal, in place. */
VEKS_API VekStatus veksFFTInv_PackToR_64f_I(Vek64f* pSrcDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal, in place. */
VEKS_API VekStatus veksFFTInv_PermToR_64f_I(Vek64f* pSrcDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);
/* Packed spectrum back to the real signal, in place. */
VEKS_API VekStatus veksFFTInv_CCSToR_64f_I(Vek64f* pSrcDst, const VeksFFTSpec_R_64f* pFFTSpec, Vek8u* pBuffer);

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

/* ==== Logical operations ==== */
/* In-place forms: pSrcDst[i] = pSrcDst[i] op pSrc[i] (or op val). Results are exact for every length and alignment. */
/* AndC with val 0 zero-fills pDst through veksZero_8u/16s/32s; OrC and XorC with val 0 copy pSrc through veksCopy_8u/16s/32s (nothing is stored when pSrc equals pDst or in place). The results are those of the operation. */
/* pDst[i] = pSrc1[i] & pSrc2[i]. */
VEKS_API VekStatus veksAnd_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len);
/* pDst[i] = pSrc1[i] & pSrc2[i]. */
VEKS_API VekStatus veksAnd_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len);
/* pDst[i] = pSrc1[i] & pSrc2[i]. */
VEKS_API VekStatus veksAnd_32u(const Vek32u* pSrc1, const Vek32u* pSrc2, Vek32u* pDst, int len);
/* pSrcDst[i] &= pSrc[i]. */
VEKS_API VekStatus veksAnd_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len);
/* pSrcDst[i] &= pSrc[i]. */
VEKS_API VekStatus veksAnd_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len);
/* pSrcDst[i] &= pSrc[i]. */
VEKS_API VekStatus veksAnd_32u_I(const Vek32u* pSrc, Vek32u* pSrcDst, int len);
/* pDst[i] = pSrc1[i] | pSrc2[i]. */
VEKS_API VekStatus veksOr_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len);
/* pDst[i] = pSrc1[i] | pSrc2[i]. */
VEKS_API VekStatus veksOr_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len);
/* pDst[i] = pSrc1[i] | pSrc2[i]. */
VEKS_API VekStatus veksOr_32u(const Vek32u* pSrc1, const Vek32u* pSrc2, Vek32u* pDst, int len);
/* pSrcDst[i] |= pSrc[i]. */
VEKS_API VekStatus veksOr_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len);
/* pSrcDst[i] |= pSrc[i]. */
VEKS_API VekStatus veksOr_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len);
/* pSrcDst[i] |= pSrc[i]. */
VEKS_API VekStatus veksOr_32u_I(const Vek32u* pSrc, Vek32u* pSrcDst, int len);
/* pDst[i] = pSrc1[i] ^ pSrc2[i]. */
VEKS_API VekStatus veksXor_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len);
/* pDst[i] = pSrc1[i] ^ pSrc2[i]. */
VEKS_API VekStatus veksXor_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len);
/* pDst[i] = pSrc1[i] ^ pSrc2[i]. */
VEKS_API VekStatus veksXor_32u(const Vek32u* pSrc1, const Vek32u* pSrc2, Vek32u* pDst, int len);
/* pSrcDst[i] ^= pSrc[i]. */
VEKS_API VekStatus veksXor_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len);
/* pSrcDst[i] ^= pSrc[i]. */
VEKS_API VekStatus veksXor_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len);
/* pSrcDst[i] ^= pSrc[i]. */
VEKS_API VekStatus veksXor_32u_I(const Vek32u* pSrc, Vek32u* pSrcDst, int len);
/* pDst[i] = pSrc[i] & val. */
VEKS_API VekStatus veksAndC_8u(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len);
/* pDst[i] = pSrc[i] & val. */
VEKS_API VekStatus veksAndC_16u(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len);
/* pDst[i] = pSrc[i] & val. */
VEKS_API VekStatus veksAndC_32u(const Vek32u* pSrc, Vek32u val, Vek32u* pDst, int len);
/* pSrcDst[i] &= val. */
VEKS_API VekStatus veksAndC_8u_I(Vek8u val, Vek8u* pSrcDst, int len);
/* pSrcDst[i] &= val. */
VEKS_API VekStatus veksAndC_16u_I(Vek16u val, Vek16u* pSrcDst, int len);
/* pSrcDst[i] &= val. */
VEKS_API VekStatus veksAndC_32u_I(Vek32u val, Vek32u* pSrcDst, int len);
/* pDst[i] = pSrc[i] | val. */
VEKS_API VekStatus veksOrC_8u(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len);
/* pDst[i] = pSrc[i] | val. */
VEKS_API VekStatus veksOrC_16u(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len);
/* pDst[i] = pSrc[i] | val. */
VEKS_API VekStatus veksOrC_32u(const Vek32u* pSrc, Vek32u val, Vek32u* pDst, int len);
/* pSrcDst[i] |= val. */
VEKS_API VekStatus veksOrC_8u_I(Vek8u val, Vek8u* pSrcDst, int len);
/* pSrcDst[i] |= val. */
VEKS_API VekStatus veksOrC_16u_I(Vek16u val, Vek16u* pSrcDst, int len);
/* pSrcDst[i] |= val. */
VEKS_API VekStatus veksOrC_32u_I(Vek32u val, Vek32u* pSrcDst, int len);
/* pDst[i] = pSrc[i] ^ val. */
VEKS_API VekStatus veksXorC_8u(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len);
/* pDst[i] = pSrc[i] ^ val. */
VEKS_API VekStatus veksXorC_16u(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len);
/* pDst[i] = pSrc[i] ^ val. */
VEKS_API VekStatus veksXorC_32u(const Vek32u* pSrc, Vek32u val, Vek32u* pDst, int len);
/* pSrcDst[i] ^= val. */
VEKS_API VekStatus veksXorC_8u_I(Vek8u val, Vek8u* pSrcDst, int len);
/* pSrcDst[i] ^= val. */
VEKS_API VekStatus veksXorC_16u_I(Vek16u val, Vek16u* pSrcDst, int len);
/* pSrcDst[i] ^= val. */
VEKS_API VekStatus veksXorC_32u_I(Vek32u val, Vek32u* pSrcDst, int len);
/* pDst[i] = ~pSrc[i]. */
VEKS_API VekStatus veksNot_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
/* pDst[i] = ~pSrc[i]. */
VEKS_API VekStatus veksNot_16u(const Vek16u* pSrc, Vek16u* pDst, int len);
/* pDst[i] = ~pSrc[i]. */
VEKS_API VekStatus veksNot_32u(const Vek32u* pSrc, Vek32u* pDst, int len);
/* pSrcDst[i] = ~pSrcDst[i]. */
VEKS_API VekStatus veksNot_8u_I(Vek8u* pSrcDst, int len);
/* pSrcDst[i] = ~pSrcDst[i]. */
VEKS_API VekStatus veksNot_16u_I(Vek16u* pSrcDst, int len);
/* pSrcDst[i] = ~pSrcDst[i]. */
VEKS_API VekStatus veksNot_32u_I(Vek32u* pSrcDst, int len);

/* ==== Shifts ==== */
/* val is the shift count, w the element width. Left shifts drop the bits shifted out (no saturation; 16s and 32s results are the shifted bit patterns); right shifts are logical for unsigned and arithmetic (floor(x / 2^val)) for signed elements; val = 0 copies. */
/* Left shifts with val > w - 1 check only the source pointer (pSrc, or pSrcDst in place), then zero-fill through veksZero_8u (8u), veksZero_16s (16u, 16s) or veksZero_32s (32s) called with (pDst, len) and return its status. Otherwise: pointers, then len < 1 (vekStatusBadSize), then val < 0 (vekStatusNegativeShift). */
/* Right shifts with val >= w give 0, or -1 for negative signed elements, after the general checks. */
/* pDst[i] = pSrc[i] << val (zeros for val >= w). */
VEKS_API VekStatus veksLShiftC_8u(const Vek8u* pSrc, int val, Vek8u* pDst, int len);
/* pDst[i] = pSrc[i] << val (zeros for val >= w). */
VEKS_API VekStatus veksLShiftC_16u(const Vek16u* pSrc, int val, Vek16u* pDst, int len);
/* pDst[i] = pSrc[i] << val (zeros for val >= w). */
VEKS_API VekStatus veksLShiftC_16s(const Vek16s* pSrc, int val, Vek16s* pDst, int len);
/* pDst[i] = pSrc[i] << val (zeros for val >= w). */
VEKS_API VekStatus veksLShiftC_32s(const Vek32s* pSrc, int val, Vek32s* pDst, int len);
/* pSrcDst[i] <<= val (zeros for val >= w). */
VEKS_API VekStatus veksLShiftC_8u_I(int val, Vek8u* pSrcDst, int len);
/* pSrcDst[i] <<= val (zeros for val >= w). */
VEKS_API VekStatus veksLShiftC_16u_I(int val, Vek16u* pSrcDst, int len);
/* pSrcDst[i] <<= val (zeros for val >= w). */
VEKS_API VekStatus veksLShiftC_16s_I(int val, Vek16s* pSrcDst, int len);
/* pSrcDst[i] <<= val (zeros for val >= w). */
VEKS_API VekStatus veksLShiftC_32s_I(int val, Vek32s* pSrcDst, int len);
/* pDst[i] = pSrc[i] >> val, logical for unsigned, arithmetic for signed elements. */
VEKS_API VekStatus veksRShiftC_8u(const Vek8u* pSrc, int val, Vek8u* pDst, int len);
/* pDst[i] = pSrc[i] >> val, logical for unsigned, arithmetic for signed elements. */
VEKS_API VekStatus veksRShiftC_16u(const Vek16u* pSrc, int val, Vek16u* pDst, int len);
/* pDst[i] = pSrc[i] >> val, logical for unsigned, arithmetic for signed elements. */
VEKS_API VekStatus veksRShiftC_16s(const Vek16s* pSrc, int val, Vek16s* pDst, int len);
/* pDst[i] = pSrc[i] >> val, logical for unsigned, arithmetic for signed elements. */
VEKS_API VekStatus veksRShiftC_32s(const Vek32s* pSrc, int val, Vek32s* pDst, int len);
/* pSrcDst[i] >>= val, logical for unsigned, arithmetic for signed elements. */
VEKS_API VekStatus veksRShiftC_8u_I(int val, Vek8u* pSrcDst, int len);
/* pSrcDst[i] >>= val, logical for unsigned, arithmetic for signed elements. */
VEKS_API VekStatus veksRShiftC_16u_I(int val, Vek16u* pSrcDst, int len);
/* pSrcDst[i] >>= val, logical for unsigned, arithmetic for signed elements. */
VEKS_API VekStatus veksRShiftC_16s_I(int val, Vek16s* pSrcDst, int len);
/* pSrcDst[i] >>= val, logical for unsigned, arithmetic for signed elements. */
VEKS_API VekStatus veksRShiftC_32s_I(int val, Vek32s* pSrcDst, int len);

/* ==== Sums and means ==== */
/* Single precision (hint H): vekHintFast selects single-precision partial sums folded into */
/* double every 8,192 elements, only for sources at an address that is a multiple of 4 bytes; */
/* every other hint, and any other source, widens each element to double. Both paths first sum */
/* the elements before the source's next 32-byte (fast) or 64-byte (accurate) boundary as a */
/* group of their own, so the last bits of a result depend on the source address. After that */
/* group, the widened path adds value i (counting the parts of 32fc data) into double partial */
/* i mod 64, in order, and combines the 64 partials pairwise: vectors first, then lanes. */
/* Integers accumulate exactly; _Sfs results are scaled by 2^-scaleFactor, rounded to nearest */
/* (ties to even) and saturated, never wrapped. No member returns a warning. */
/* Sum (real and imaginary parts separately), by the path the hint selects, rounded once. */
VEKS_API VekStatus veksSum_32f(const Vek32f* pSrc, int len, Vek32f* pSum, VekAccuracyHint hint);
/* Sum (real and imaginary parts separately), by the path the hint selects, rounded once. */
VEKS_API VekStatus veksSum_32fc(const Vek32fc* pSrc, int len, Vek32fc* pSum, VekAccuracyHint hint);
/* Sum in double partial sums combined in a tree. */
VEKS_API VekStatus veksSum_64f(const Vek64f* pSrc, int len, Vek64f* pSum);
/* Sum in double partial sums combined in a tree. */
VEKS_API VekStatus veksSum_64fc(const Vek64fc* pSrc, int len, Vek64fc* pSum);
/* Exact sum times the double 2^-scaleFactor (exponent clamped: 0 above 1023, +Inf below -1024), clamped to 32 bits, rounded to nearest even. */
VEKS_API VekStatus veksSum_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pSum, int scaleFactor);
/* Exact sum times the double 2^-scaleFactor (exponent clamped: 0 above 1023, +Inf below -1024), clamped to 32 bits, rounded to nearest even. */
VEKS_API VekStatus veksSum_16sc32sc_Sfs(const Vek16sc* pSrc, int len, Vek32sc* pSum, int scaleFactor);
/* The 32-bit result of veksSum_16s32s_Sfs (per part) saturated to 16 bits. */
VEKS_API VekStatus veksSum_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pSum, int scaleFactor);
/* The 32-bit result of veksSum_16s32s_Sfs (per part) saturated to 16 bits. */
VEKS_API VekStatus veksSum_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pSum, int scaleFactor);
/* Exact 64-bit sum shifted right by min(sf, 63) with ties to even, or left by min(-sf, 31), saturated. */
VEKS_API VekStatus veksSum_32s_Sfs(const Vek32s* pSrc, int len, Vek32s* pSum, int scaleFactor);
/* The sum as veksSum_32f returns it (rounded to single precision), divided by len in double, rounded. */
VEKS_API VekStatus veksMean_32f(const Vek32f* pSrc, int len, Vek32f* pMean, VekAccuracyHint hint);
/* The sum as veksSum_32fc returns it (rounded to single precision), divided by len in double, rounded. */
VEKS_API VekStatus veksMean_32fc(const Vek32fc* pSrc, int len, Vek32fc* pMean, VekAccuracyHint hint);
/* Double sum divided by len. */
VEKS_API VekStatus veksMean_64f(const Vek64f* pSrc, int len, Vek64f* pMean);
/* Double sum divided by len. */
VEKS_API VekStatus veksMean_64fc(const Vek64fc* pSrc, int len, Vek64fc* pMean);
/* veksMean_32s_Sfs computes as the 16-bit members do: the exact sum divided by len in double, */
/* times 2^-scaleFactor, clamped to the 32-bit range, rounded to nearest even. */
/* Exact sum / len in double, times 2^-scaleFactor, clamped to the type, rounded to nearest even. */
VEKS_API VekStatus veksMean_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pMean, int scaleFactor);
/* Exact sum / len in double, times 2^-scaleFactor, clamped to the type, rounded to nearest even. */
VEKS_API VekStatus veksMean_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pMean, int scaleFactor);
/* Exact sum / len in double, times 2^-scaleFactor, clamped to the type, rounded to nearest even. */
VEKS_API VekStatus veksMean_32s_Sfs(const Vek32s* pSrc, int len, Vek32s* pMean, int scaleFactor);

/* ==== Standard deviations ==== */
/* Sample deviations (divisor n - 1): len < 2 gives vekStatusBadSize. From S = sum x and */
/* Q = sum x^2 in one pass: sqrt(max(n*Q - S*S, 0) / (n*(n - 1))), the clamp at 0 keeping */
/* rounding from producing the root of a negative number. The 64f members accumulate x - x[0] */
/* for the deviation (same formula, far less cancellation) and x itself for the mean. */
/* S and Q in double (accurate) or single lanes folded into double every 8,192 elements (fast); numerator, denominator and root in single precision. */
VEKS_API VekStatus veksStdDev_32f(const Vek32f* pSrc, int len, Vek32f* pStdDev, VekAccuracyHint hint);
/* Mean (S rounded to single, divided in double) and deviation from one pass. */
VEKS_API VekStatus veksMeanStdDev_32f(const Vek32f* pSrc, int len, Vek32f* pMean, Vek32f* pStdDev, VekAccuracyHint hint);
/* Sample standard deviation in double. */
VEKS_API VekStatus veksStdDev_64f(const Vek64f* pSrc, int len, Vek64f* pStdDev);
/* Mean and sample standard deviation in double from one pass. */
VEKS_API VekStatus veksMeanStdDev_64f(const Vek64f* pSrc, int len, Vek64f* pMean, Vek64f* pStdDev);
/* The 16-bit members: S and Q exact, the deviation in double times 2^-scaleFactor, above */
/* 2^31 - 1 clamped, rounded to nearest even, then saturated to the destination. The mean of */
/* veksMeanStdDev_16s32s_Sfs is computed as veksMean_16s_Sfs but clamped to the 32-bit range. */
/* Sample standard deviation of 16-bit data, scaled. */
VEKS_API VekStatus veksStdDev_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pStdDev, int scaleFactor);
/* Sample standard deviation of 16-bit data, scaled. */
VEKS_API VekStatus veksStdDev_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pStdDev, int scaleFactor);
/* Mean and sample standard deviation of 16-bit data, scaled. */
VEKS_API VekStatus veksMeanStdDev_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pMean, Vek16s* pStdDev, int scaleFactor);
/* Mean and sample standard deviation of 16-bit data, scaled. */
VEKS_API VekStatus veksMeanStdDev_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pMean, Vek32s* pStdDev, int scaleFactor);

/* ==== Norms ==== */
/* Norm_Inf = max |x|, Norm_L1 = sum |x|, Norm_L2 = sqrt(sum x^2), Norm_L2Sqr = sum x^2; the */
/* NormDiff members take x = pSrc1 - pSrc2. Complex data use re^2 + im^2 and the magnitude. */
/* Floating-point data accumulate in their own precision (32fc64f in double); a NaN in the data */
/* gives a NaN norm. 16s data accumulate exactly; 16s32f converts the exact value (L2: its */
/* double root) to single precision; _Sfs results with 32- or 64-bit destinations use rounding */
/* shifts, right by up to 63 and left by up to 31 (32s) or 63 (64s) bits, with saturation. */
/* Norm_L2_16s32s_Sfs and NormDiff_L2_16s32s_Sfs instead divide (multiply, for a negative */
/* factor) the double root by the 32-bit integer 1 << (|scaleFactor| mod 32), so a factor of 31 */
/* divides by -2^31, and truncate toward zero. */
/* Norm of a real vector. */
VEKS_API VekStatus veksNorm_Inf_32f(const Vek32f* pSrc, int len, Vek32f* pNorm);
/* Norm of a real vector. */
VEKS_API VekStatus veksNorm_L1_32f(const Vek32f* pSrc, int len, Vek32f* pNorm);
/* Norm of a real vector. */
VEKS_API VekStatus veksNorm_L2_32f(const Vek32f* pSrc, int len, Vek32f* pNorm);
/* Norm of a real vector. */
VEKS_API VekStatus veksNorm_Inf_64f(const Vek64f* pSrc, int len, Vek64f* pNorm);
/* Norm of a real vector. */
VEKS_API VekStatus veksNorm_L1_64f(const Vek64f* pSrc, int len, Vek64f* pNorm);
/* Norm of a real vector. */
VEKS_API VekStatus veksNorm_L2_64f(const Vek64f* pSrc, int len, Vek64f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_Inf_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_L1_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_L2_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_Inf_32fc32f(const Vek32fc* pSrc, int len, Vek32f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_L1_32fc64f(const Vek32fc* pSrc, int len, Vek64f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_L2_32fc64f(const Vek32fc* pSrc, int len, Vek64f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_Inf_64fc64f(const Vek64fc* pSrc, int len, Vek64f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_L1_64fc64f(const Vek64fc* pSrc, int len, Vek64f* pNorm);
/* Norm with a wider or real result. */
VEKS_API VekStatus veksNorm_L2_64fc64f(const Vek64fc* pSrc, int len, Vek64f* pNorm);
/* Exact norm of 16-bit data, scaled. */
VEKS_API VekStatus veksNorm_Inf_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm, int scaleFactor);
/* Exact norm of 16-bit data, scaled. */
VEKS_API VekStatus veksNorm_L1_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm, int scaleFactor);
/* Exact norm of 16-bit data, scaled. */
VEKS_API VekStatus veksNorm_L2_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm, int scaleFactor);
/* Exact norm of 16-bit data, scaled. */
VEKS_API VekStatus veksNorm_L1_16s64s_Sfs(const Vek16s* pSrc, int len, Vek64s* pNorm, int scaleFactor);
/* Exact norm of 16-bit data, scaled. */
VEKS_API VekStatus veksNorm_L2Sqr_16s64s_Sfs(const Vek16s* pSrc, int len, Vek64s* pNorm, int scaleFactor);
/* Norm of pSrc1 - pSrc2. */
VEKS_API VekStatus veksNormDiff_Inf_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len, Vek32f* pNorm);
/* Norm of pSrc1 - pSrc2. */
VEKS_API VekStatus veksNormDiff_L1_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len, Vek32f* pNorm);
/* Norm of pSrc1 - pSrc2. */
VEKS_API VekStatus veksNormDiff_L2_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len, Vek32f* pNorm);
/* Norm of pSrc1 - pSrc2. */
VEKS_API VekStatus veksNormDiff_Inf_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len, Vek64f* pNorm);
/* Norm of pSrc1 - pSrc2. */
VEKS_API VekStatus veksNormDiff_L1_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len, Vek64f* pNorm);
/* Norm of pSrc1 - pSrc2. */
VEKS_API VekStatus veksNormDiff_L2_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len, Vek64f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_Inf_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_L1_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_L2_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_Inf_32fc32f(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len, Vek32f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_L1_32fc64f(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len, Vek64f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_L2_32fc64f(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len, Vek64f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_Inf_64fc64f(const Vek64fc* pSrc1, const Vek64fc* pSrc2, int len, Vek64f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_L1_64fc64f(const Vek64fc* pSrc1, const Vek64fc* pSrc2, int len, Vek64f* pNorm);
/* Norm of pSrc1 - pSrc2 with a wider or real result. */
VEKS_API VekStatus veksNormDiff_L2_64fc64f(const Vek64fc* pSrc1, const Vek64fc* pSrc2, int len, Vek64f* pNorm);
/* Exact norm of the 16-bit difference (computed in 32 bits), scaled. */
VEKS_API VekStatus veksNormDiff_Inf_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32s* pNorm, int scaleFactor);
/* Exact norm of the 16-bit difference (computed in 32 bits), scaled. */
VEKS_API VekStatus veksNormDiff_L1_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32s* pNorm, int scaleFactor);
/* Exact norm of the 16-bit difference (computed in 32 bits), scaled. */
VEKS_API VekStatus veksNormDiff_L2_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32s* pNorm, int scaleFactor);
/* Exact norm of the 16-bit difference (computed in 32 bits), scaled. */
VEKS_API VekStatus veksNormDiff_L1_16s64s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek64s* pNorm, int scaleFactor);
/* Exact norm of the 16-bit difference (computed in 32 bits), scaled. */
VEKS_API VekStatus veksNormDiff_L2Sqr_16s64s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek64s* pNorm, int scaleFactor);

/* ==== Dot products ==== */
/* sum pSrc1[i] * pSrc2[i], complex products without conjugation. 32f: single-precision fused */
/* multiply-add in 32 lanes; from 1,121 elements on the elements before pSrc1's 64-byte boundary */
/* form a group of their own. 32fc: single precision likewise. Every member with a double */
/* result, and 32f32fc, accumulates in double. Integer members are exact (16s32f rounds the */
/* exact value once); _Sfs members shift right by up to 31 bits (ties to even) or left by up to */
/* 31, saturating. */
/* Dot product in the type's own precision. */
VEKS_API VekStatus veksDotProd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len, Vek32f* pDp);
/* Dot product in the type's own precision. */
VEKS_API VekStatus veksDotProd_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len, Vek64f* pDp);
/* Dot product in the type's own precision. */
VEKS_API VekStatus veksDotProd_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len, Vek32fc* pDp);
/* Dot product in the type's own precision. */
VEKS_API VekStatus veksDotProd_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, int len, Vek64fc* pDp);
/* Real times complex, accumulated in double. */
VEKS_API VekStatus veksDotProd_32f32fc(const Vek32f* pSrc1, const Vek32fc* pSrc2, int len, Vek32fc* pDp);
/* Real times complex, accumulated in double. */
VEKS_API VekStatus veksDotProd_64f64fc(const Vek64f* pSrc1, const Vek64fc* pSrc2, int len, Vek64fc* pDp);
/* Single-precision data, double accumulation and result. */
VEKS_API VekStatus veksDotProd_32f64f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len, Vek64f* pDp);
/* Single-precision data, double accumulation and result. */
VEKS_API VekStatus veksDotProd_32fc64fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len, Vek64fc* pDp);
/* Real times complex single-precision data, double accumulation and result. */
VEKS_API VekStatus veksDotProd_32f32fc64fc(const Vek32f* pSrc1, const Vek32fc* pSrc2, int len, Vek64fc* pDp);
/* Exact dot product of 16-bit data (16s32f: rounded once). */
VEKS_API VekStatus veksDotProd_16s64s(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek64s* pDp);
/* Exact dot product of 16-bit data (16s32f: rounded once). */
VEKS_API VekStatus veksDotProd_16sc64sc(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len, Vek64sc* pDp);
/* Exact dot product of 16-bit data (16s32f: rounded once). */
VEKS_API VekStatus veksDotProd_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32f* pDp);
/* Exact dot product of real and complex 16-bit data. */
VEKS_API VekStatus veksDotProd_16s16sc64sc(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len, Vek64sc* pDp);
/* Exact dot product, scale factor clamped to -31..31. */
VEKS_API VekStatus veksDotProd_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32s* pDp, int scaleFactor);
/* Exact dot product, scale factor clamped to -31..31. */
VEKS_API VekStatus veksDotProd_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, int len, Vek32s* pDp, int scaleFactor);
/* Exact dot product, scale factor clamped to -31..31. */
VEKS_API VekStatus veksDotProd_16s32s32s_Sfs(const Vek16s* pSrc1, const Vek32s* pSrc2, int len, Vek32s* pDp, int scaleFactor);

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
