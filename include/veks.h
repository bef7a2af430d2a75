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

/* ---- END GENERATED EXPORTS ---- */
/* clang-format on */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_H */
