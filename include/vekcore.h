/* vekcore.h: the core library libvekcore, on which libveksk0 relies.
 *
 * Copyright 2026 The veks Authors. Licensed under the Apache License, Version 2.0.
 * Aligned allocation, the largest cache size, the processor-feature test, the thread count used
 * by the threaded operations, and status strings. Usable from C99 and C++.
 *
 * Process-wide settings (thread count, reported cache size, disabled features) are meant to be
 * set once, before other threads call the library; reading them is always safe. */
#ifndef VEKCORE_H
#define VEKCORE_H

#include "vekbase.h"

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define VEKCORE_API __attribute__((visibility("default")))
#else
#define VEKCORE_API
#endif

/* Processor features, for ownGetFeature and vekDisableFeatures. */
#define VEK_FEATURE_SSE42 0x0001ULL
#define VEK_FEATURE_AVX 0x0002ULL
#define VEK_FEATURE_AVX2 0x0004ULL
#define VEK_FEATURE_FMA 0x0008ULL
#define VEK_FEATURE_BMI2 0x0010ULL
#define VEK_FEATURE_AVX512F 0x0020ULL
#define VEK_FEATURE_AVX512CD 0x0040ULL
#define VEK_FEATURE_AVX512BW 0x0080ULL
#define VEK_FEATURE_AVX512DQ 0x0100ULL
#define VEK_FEATURE_AVX512VL 0x0200ULL
#define VEK_FEATURE_F16C 0x4000ULL /* hardware half-precision conversion */

/* Allocates length bytes aligned to 64 bytes; null when length < 1 or memory is short. */
VEKCORE_API void* vekMalloc(int length);
/* Releases a block from vekMalloc; null is ignored. */
VEKCORE_API void vekFree(void* ptr);
/* Rounds ptr up to the next multiple of alignBytes (a power of two); other values return ptr. */
VEKCORE_API void* vekAlignPtr(void* ptr, int alignBytes);

/* Stores the size in bytes of the largest cache through pSizeByte. Returns vekStatusOk,
 * vekStatusNullPtr, or vekStatusNotSupported when the processor does not report it. */
VEKCORE_API VekStatus vekGetMaxCacheSizeB(int* pSizeByte);
/* Sets what vekGetMaxCacheSizeB reports: size > 0 reports size bytes, 0 restores the detected
 * size, size < 0 makes it fail with vekStatusNotSupported. Returns the previous setting. */
VEKCORE_API int vekSetMaxCacheSizeB(int size);

/* Non-zero when every feature of mask is present and not disabled. */
VEKCORE_API int ownGetFeature(Vek64u mask);
/* Makes ownGetFeature report the features of mask as absent (0 re-enables all); this steers the
 * library onto its software paths. Returns the previous mask. */
VEKCORE_API Vek64u vekDisableFeatures(Vek64u mask);

/* Number of threads the threaded operations may use (at least 1; default: the cores this
 * process may run on). */
VEKCORE_API int ownGetNumThreads(void);
/* Sets that number; n < 1 gives vekStatusBadSize and changes nothing. */
VEKCORE_API VekStatus vekSetNumThreads(int n);
/* Stores that number through pNumThreads; vekStatusNullPtr for a null pointer. */
VEKCORE_API VekStatus vekGetNumThreads(int* pNumThreads);

/* The name and meaning of a status value, for messages; never null. */
VEKCORE_API const char* vekGetStatusString(VekStatus status);

#ifdef __cplusplus
}
#endif

#endif /* VEKCORE_H */
