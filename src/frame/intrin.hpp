// <immintrin.h> for every kernel: the library includes it only through this header. g++ 12
// reports the deliberately undefined starting register of its unmasked AVX-512 intrinsics as
// uninitialized once they are inlined at -O2 with sanitizers; the report is silenced for the
// intrinsics' own text only.
#pragma once

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wuninitialized"
#include <immintrin.h>
#pragma GCC diagnostic pop
#else
#include <immintrin.h>
#endif
