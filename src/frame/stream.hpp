// Block loops whose stores go around the caches when a call moves more bytes than the largest
// cache holds (as the block copy does), so that no destination line is read before it is
// written. Shared by the element-wise map and the hand-written kernels.
#pragma once

#include "frame/intrin.hpp"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "vekcore.h"

namespace veks {

// What a block is: whole (plain loads and stores) or the partial one at the end (masked), and
// whether its stores bypass the caches.
template <bool Full, bool Stream = false>
struct Kind : std::bool_constant<Full> {
  static constexpr bool stream = Stream;
};

// Runs step(kind, i, count) over [0, n) in blocks of N elements.
template <size_t N, class Step>
[[gnu::always_inline]] inline void blocks(size_t n, Step&& step) {
  size_t i = 0;
  for (; i + 2 * N <= n; i += 2 * N) {  // two blocks per step keep more loads in flight
    step(Kind<true>{}, i, N);
    step(Kind<true>{}, i + N, N);
  }
  if (i + N <= n) step(Kind<true>{}, i, N), i += N;
  if (i < n) step(Kind<false>{}, i, n - i);
}

// Calls that move more bytes than the largest cache holds store around the caches (as the block
// copy does), so no destination line is read before it is written.
inline bool worth_streaming(size_t traffic) {
  if (traffic < (size_t{4} << 20)) return false;
  int size = 0;
  return vekGetMaxCacheSizeB(&size) == vekStatusOk && size > 0 &&
         traffic >= static_cast<size_t>(size);
}

// The traffic of a call for the streaming decision: 0 (never streamed) when the destination is
// one of the sources, whose lines the call has just read into the cache.
template <class... S>
inline size_t stream_traffic(size_t traffic, const void* d, const S*... s) {
  return ((static_cast<const void*>(s) == d) || ...) ? 0 : traffic;
}

// blocks() for a destination d of EB-byte elements: when worth streaming, the elements up to the
// first 64-byte boundary of d run as usual, the whole blocks after it with non-temporal stores
// (each block's stores then stay aligned to their size), the tail as usual, then a fence.
template <size_t N, size_t EB, class Step>
[[gnu::always_inline]] inline void blocks_nt(size_t n, const void* d, size_t traffic, Step&& step) {
  const uintptr_t a = reinterpret_cast<uintptr_t>(d);
  const size_t head = ((64 - a % 64) % 64) / EB;
  if (a % EB != 0 || head + N > n || !worth_streaming(traffic)) return blocks<N>(n, step);
  blocks<N>(head, step);
  size_t i = head;
  for (; i + N <= n; i += N) step(Kind<true, true>{}, i, N);
  if (i < n) step(Kind<false>{}, i, n - i);
  _mm_sfence();
}

// Plain, non-temporal or masked store of one vector (vectors under 16 bytes are never streamed).
template <class K, class V>
inline void put(void* p, size_t bytes, V v) {
  if constexpr (K::stream && sizeof(V) == 64) {
    _mm512_stream_si512(static_cast<__m512i*>(p), reinterpret_cast<__m512i>(v));
  } else if constexpr (K::stream && sizeof(V) == 32) {
    _mm256_stream_si256(static_cast<__m256i*>(p), reinterpret_cast<__m256i>(v));
  } else if constexpr (K::stream && sizeof(V) == 16) {
    _mm_stream_si128(static_cast<__m128i*>(p), reinterpret_cast<__m128i>(v));
  } else if constexpr (K::value) {
    std::memcpy(p, &v, sizeof v);
  } else {
    const uint64_t m = first_bytes(bytes);
    if constexpr (sizeof(V) == 64) {
      _mm512_mask_storeu_epi8(p, m, reinterpret_cast<__m512i>(v));
    } else if constexpr (sizeof(V) == 32) {
      _mm256_mask_storeu_epi8(p, static_cast<__mmask32>(m), reinterpret_cast<__m256i>(v));
    } else if constexpr (sizeof(V) == 16) {
      _mm_mask_storeu_epi8(p, static_cast<__mmask16>(m), reinterpret_cast<__m128i>(v));
    } else {
      static_assert(sizeof(V) <= 16);
      __m128i x = _mm_setzero_si128();
      std::memcpy(&x, &v, sizeof v);
      _mm_mask_storeu_epi8(p, static_cast<__mmask16>(m), x);
    }
  }
}

}  // namespace veks
