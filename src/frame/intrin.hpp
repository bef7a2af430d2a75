// <immintrin.h> for every kernel: the library includes it only through this header, and the one
// mask helper every byte-masked head and tail uses. g++ 12
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

#include <cstddef>

namespace veks {
// The mask of the first n bytes of a 512-bit vector (n <= 64).
inline __mmask64 first_bytes(size_t n) { return _bzhi_u64(~0ULL, static_cast<unsigned>(n)); }
}  // namespace veks
