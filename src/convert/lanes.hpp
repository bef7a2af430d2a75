// Sixteen-lane blocks shared by the conversion kernels: element types as the conversions see them
// (including the packed 24-bit formats), masked loads into 32-bit integer lanes and stores of
// 32-bit lanes already limited to the destination's range. A block holds 1..16 elements; nothing
// outside them is read or written.
#pragma once

#include "frame/intrin.hpp"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "frame/map.hpp"
#include "frame/stream.hpp"
#include "vekcore.h"
#include "veks.h"

namespace veks::cvt {

// The packed 24-bit formats: three bytes per element, least significant byte first.
struct I24 {};
struct U24 {};

template <class T>
struct Elem {
  using ptr = T;  // what the export's pointer points to
  static constexpr int64_t lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
};
template <>
struct Elem<I24> {
  using ptr = Vek8u;
  static constexpr int64_t lo = -(int64_t{1} << 23), hi = (int64_t{1} << 23) - 1;
};
template <>
struct Elem<U24> {
  using ptr = Vek8u;
  static constexpr int64_t lo = 0, hi = (int64_t{1} << 24) - 1;
};
template <class T>
using ptr_t = typename Elem<T>::ptr;
template <class T>
inline constexpr bool is24 = std::is_same_v<T, I24> || std::is_same_v<T, U24>;

inline __mmask16 mask16(size_t count) {
  return static_cast<__mmask16>(_bzhi_u32(0xFFFFu, static_cast<unsigned>(count)));
}

// 16 packed 24-bit elements into 32-bit lanes, sign- or zero-extended.
template <class T>
inline __m512i load24(const Vek8u* p, size_t count) {
  const __m512i raw = _mm512_maskz_loadu_epi8(first_bytes(3 * count), p);
  // Each 128-bit lane k takes the 12 bytes of elements 4k..4k+3, then every element moves to the
  // top three bytes of its 32-bit lane, from where one shift extends it.
  const __m512i spread = _mm512_permutexvar_epi32(
      _mm512_setr_epi32(0, 1, 2, 0, 3, 4, 5, 0, 6, 7, 8, 0, 9, 10, 11, 0), raw);
  const __m512i top = _mm512_shuffle_epi8(
      spread,
      _mm512_broadcast_i32x4(_mm_setr_epi8(-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11)));
  if constexpr (std::is_same_v<T, I24>) {
    return _mm512_srai_epi32(top, 8);
  } else {
    return _mm512_srli_epi32(top, 8);
  }
}

// The low three bytes of each 32-bit lane, packed.
inline void store24(Vek8u* p, size_t count, __m512i v) {
  const __m512i packed =
      _mm512_shuffle_epi8(v, _mm512_broadcast_i32x4(_mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12,
                                                                  13, 14, -1, -1, -1, -1)));
  const __m512i dense = _mm512_permutexvar_epi32(
      _mm512_setr_epi32(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 15, 15, 15, 15), packed);
  _mm512_mask_storeu_epi8(p, first_bytes(3 * count), dense);
}

template <bool Full>
inline __m512 load_ps(const float* p, size_t count) {
  if constexpr (Full) return _mm512_loadu_ps(p);
  return _mm512_maskz_loadu_ps(mask16(count), p);
}
template <bool Full>
inline __m512d load_pd(const double* p, size_t count) {
  if constexpr (Full) return _mm512_loadu_pd(p);
  return _mm512_maskz_loadu_pd(static_cast<__mmask8>(mask16(count)), p);
}
template <bool Full>
inline __m256i load_epi16(const void* p, size_t count) {
  if constexpr (Full) return _mm256_loadu_si256(static_cast<const __m256i*>(p));
  return _mm256_maskz_loadu_epi16(mask16(count), p);
}
template <class K>
inline void store_ps(float* p, size_t count, __m512 v) {
  put<K>(p, 4 * count, v);
}
template <class K>
inline void store_epi16(void* p, size_t count, __m256i v) {
  put<K>(p, 2 * count, v);
}

// Elements [i, i + count) of an integer vector (8 to 32 bits, or packed 24-bit) in 32-bit lanes.
template <class T, bool Full = false>
inline __m512i load_i32(const ptr_t<T>* s, size_t i, size_t count) {
  const __mmask16 m = Full ? __mmask16(0xFFFF) : mask16(count);
  if constexpr (is24<T>) {
    return load24<T>(s + 3 * i, count);
  } else if constexpr (sizeof(T) == 1) {
    const __m128i b = Full ? _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i))
                           : _mm_maskz_loadu_epi8(m, s + i);
    return std::is_signed_v<T> ? _mm512_cvtepi8_epi32(b) : _mm512_cvtepu8_epi32(b);
  } else if constexpr (sizeof(T) == 2) {
    const __m256i h = load_epi16<Full>(s + i, count);
    return std::is_signed_v<T> ? _mm512_cvtepi16_epi32(h) : _mm512_cvtepu16_epi32(h);
  } else {
    static_assert(sizeof(T) == 4);
    return Full ? _mm512_loadu_si512(s + i) : _mm512_maskz_loadu_epi32(m, s + i);
  }
}

// Stores 32-bit lanes already within the range of T at elements [i, i + count).
template <class T, class K>
inline void store_i32(ptr_t<T>* d, size_t i, size_t count, __m512i q) {
  if constexpr (is24<T>) {
    store24(d + 3 * i, count, q);
  } else if constexpr (sizeof(T) == 1) {
    put<K>(d + i, count, _mm512_cvtepi32_epi8(q));
  } else if constexpr (sizeof(T) == 2) {
    put<K>(d + i, 2 * count, _mm512_cvtepi32_epi16(q));
  } else {
    static_assert(sizeof(T) == 4);
    put<K>(d + i, 4 * count, q);
  }
}

}  // namespace veks::cvt
