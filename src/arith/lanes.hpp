// Eight elements at a time in binary64 lanes: the loop shared by the square-root, magnitude,
// phase, power-spectrum and polar kernels. Every element type of those families converts exactly
// to binary64, so one lane kernel serves all of them; loads and stores convert and (de)interleave
// complex pairs. Counts below eight use masked loads and stores: nothing outside [p, p + count)
// is read or written.
#pragma once

// clang-format off
#include "frame/intrin.hpp"  // first: before anything else includes <immintrin.h>
// clang-format on

#include <bit>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "frame/split.hpp"
#include "veks.h"

namespace veks::lanes {

using D = __m512d;

inline __mmask8 mask8(unsigned r) { return static_cast<__mmask8>(_bzhi_u32(0xFFu, r)); }
inline __mmask16 mask16(unsigned r) { return static_cast<__mmask16>(_bzhi_u32(0xFFFFu, 2 * r)); }

// ---- real loads: r <= 8 elements into binary64 lanes (zeros after them) -----------------------
inline D load(const Vek8u* p, unsigned r) {
  return _mm512_cvtepi32_pd(_mm256_cvtepu8_epi32(_mm_maskz_loadu_epi8(mask8(r), p)));
}
inline D load(const Vek16u* p, unsigned r) {
  return _mm512_cvtepi32_pd(_mm256_cvtepu16_epi32(_mm_maskz_loadu_epi16(mask8(r), p)));
}
inline D load(const Vek16s* p, unsigned r) {
  return _mm512_cvtepi32_pd(_mm256_cvtepi16_epi32(_mm_maskz_loadu_epi16(mask8(r), p)));
}
inline D load(const Vek32s* p, unsigned r) {
  return _mm512_cvtepi32_pd(_mm256_maskz_loadu_epi32(mask8(r), p));
}
inline D load(const Vek32f* p, unsigned r) {
  return _mm512_cvtps_pd(_mm256_maskz_loadu_ps(mask8(r), p));
}
inline D load(const Vek64f* p, unsigned r) { return _mm512_maskz_loadu_pd(mask8(r), p); }

// ---- complex loads: real and imaginary parts of r <= 8 elements --------------------------------
inline void load(const Vek16sc* p, unsigned r, D& re, D& im) {
  const __m256i v = _mm256_maskz_loadu_epi32(mask8(r), p);  // one pair per 32-bit lane
  re = _mm512_cvtepi32_pd(_mm256_srai_epi32(_mm256_slli_epi32(v, 16), 16));
  im = _mm512_cvtepi32_pd(_mm256_srai_epi32(v, 16));
}
inline void load(const Vek32sc* p, unsigned r, D& re, D& im) {
  const __m512i v = _mm512_maskz_loadu_epi64(mask8(r), p);  // one pair per 64-bit lane
  re = _mm512_cvtepi64_pd(_mm512_srai_epi64(_mm512_slli_epi64(v, 32), 32));
  im = _mm512_cvtepi64_pd(_mm512_srai_epi64(v, 32));
}
inline void load(const Vek32fc* p, unsigned r, D& re, D& im) {
  const __m512i v = _mm512_castps_si512(_mm512_maskz_loadu_ps(mask16(r), p));
  re = _mm512_cvtps_pd(_mm256_castsi256_ps(_mm512_cvtepi64_epi32(v)));
  im = _mm512_cvtps_pd(_mm256_castsi256_ps(_mm512_cvtepi64_epi32(_mm512_srli_epi64(v, 32))));
}
inline void load(const Vek64fc* p, unsigned r, D& re, D& im) {
  const __mmask16 m = mask16(r);
  const auto* d = reinterpret_cast<const double*>(p);
  const D lo = _mm512_maskz_loadu_pd(static_cast<__mmask8>(m), d);
  const D hi = _mm512_maskz_loadu_pd(static_cast<__mmask8>(m >> 8), d + 8);
  re = _mm512_permutex2var_pd(lo, _mm512_setr_epi64(0, 2, 4, 6, 8, 10, 12, 14), hi);
  im = _mm512_permutex2var_pd(lo, _mm512_setr_epi64(1, 3, 5, 7, 9, 11, 13, 15), hi);
}

// ---- results: binary64 lanes to the destination type ------------------------------------------
// Floating-point destinations take the value as it is (binary32 rounds to nearest even);
// integer destinations take R_T(v * 2^-sf): ties to even, saturated. The scale factor is applied
// as an exact power of two; clamping it to [-80, 80] changes no result, because every value these
// kernels produce from integer sources is zero or has a magnitude in [2^-32, 2^32].
template <class T>
struct Finish {
  explicit Finish(int) {}
  D operator()(D v) const { return v; }
};
template <class T>
requires std::is_integral_v<T>
struct Finish<T> {
  D scale, lo, hi;
  explicit Finish(int sf) {
    const int s = sf < -80 ? -80 : (sf > 80 ? 80 : sf);
    scale = _mm512_set1_pd(std::bit_cast<double>(static_cast<uint64_t>(1023 - s) << 52));
    lo = _mm512_set1_pd(static_cast<double>(std::numeric_limits<T>::min()));
    hi = _mm512_set1_pd(static_cast<double>(std::numeric_limits<T>::max()));
  }
  D operator()(D v) const {
    const D w = _mm512_roundscale_pd(_mm512_mul_pd(v, scale),
                                     _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    return _mm512_min_pd(_mm512_max_pd(w, lo), hi);
  }
};

inline __m256 to_f32(D v) {
  return _mm512_cvt_roundpd_ps(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
}
// Integral, in-range lanes to 32-bit integers (exact).
inline __m256i to_i32(D v) { return _mm512_cvttpd_epi32(v); }

inline void store(Vek32f* p, D v, unsigned r) { _mm256_mask_storeu_ps(p, mask8(r), to_f32(v)); }
inline void store(Vek64f* p, D v, unsigned r) { _mm512_mask_storeu_pd(p, mask8(r), v); }
inline void store(Vek8u* p, D v, unsigned r) {
  _mm_mask_storeu_epi8(p, mask8(r), _mm256_cvtepi32_epi8(to_i32(v)));
}
inline void store(Vek16u* p, D v, unsigned r) {
  _mm_mask_storeu_epi16(p, mask8(r), _mm256_cvtepi32_epi16(to_i32(v)));
}
inline void store(Vek16s* p, D v, unsigned r) {
  _mm_mask_storeu_epi16(p, mask8(r), _mm256_cvtepi32_epi16(to_i32(v)));
}
inline void store(Vek32s* p, D v, unsigned r) { _mm256_mask_storeu_epi32(p, mask8(r), to_i32(v)); }

inline void store(Vek16sc* p, D re, D im, unsigned r) {
  const __m256i lo = _mm256_and_si256(to_i32(re), _mm256_set1_epi32(0xFFFF));
  _mm256_mask_storeu_epi32(p, mask8(r), _mm256_or_si256(lo, _mm256_slli_epi32(to_i32(im), 16)));
}
inline void store(Vek32fc* p, D re, D im, unsigned r) {
  const __m512i idx = _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
  const __m512 v = _mm512_permutex2var_ps(_mm512_castps256_ps512(to_f32(re)), idx,
                                          _mm512_castps256_ps512(to_f32(im)));
  _mm512_mask_storeu_ps(p, mask16(r), v);
}
inline void store(Vek64fc* p, D re, D im, unsigned r) {
  const __mmask16 m = mask16(r);
  auto* d = reinterpret_cast<double*>(p);
  _mm512_mask_storeu_pd(
      d, static_cast<__mmask8>(m),
      _mm512_permutex2var_pd(re, _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11), im));
  _mm512_mask_storeu_pd(
      d + 8, static_cast<__mmask8>(m >> 8),
      _mm512_permutex2var_pd(re, _mm512_setr_epi64(4, 12, 5, 13, 6, 14, 7, 15), im));
}

// ---- sources of complex values --------------------------------------------------------------
template <class C>
struct PartOf;
template <>
struct PartOf<Vek16sc> {
  using type = Vek16s;
};
template <>
struct PartOf<Vek32sc> {
  using type = Vek32s;
};
template <>
struct PartOf<Vek32fc> {
  using type = Vek32f;
};
template <>
struct PartOf<Vek64fc> {
  using type = Vek64f;
};
// The real type of a complex element type.
template <class C>
using part_t = typename PartOf<C>::type;

// Interleaved pairs.
template <class C>
struct Interleaved {
  using part = part_t<C>;
  const C* p;
  void operator()(size_t i, unsigned r, D& re, D& im) const { load(p + i, r, re, im); }
  // r <= 16 binary32 pairs, deinterleaved.
  void load16(size_t i, unsigned r, __m512& re,
              __m512& im) const requires std::is_same_v<C, Vek32fc> {
    const auto m = static_cast<uint32_t>(_bzhi_u32(~0u, 2 * r));
    const float* f = reinterpret_cast<const float*>(p + i);
    const __m512 lo = _mm512_maskz_loadu_ps(static_cast<__mmask16>(m), f);
    const __m512 hi = _mm512_maskz_loadu_ps(static_cast<__mmask16>(m >> 16), f + 16);
    const __m512i even =
        _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    re = _mm512_permutex2var_ps(lo, even, hi);
    im = _mm512_permutex2var_ps(lo, _mm512_add_epi32(even, _mm512_set1_epi32(1)), hi);
  }
};
// Real parts in one vector, imaginary parts in another.
template <class E>
struct Split {
  using part = E;
  const E* re_;
  const E* im_;
  void operator()(size_t i, unsigned r, D& re, D& im) const {
    re = load(re_ + i, r);
    im = load(im_ + i, r);
  }
  void load16(size_t i, unsigned r, __m512& re,
              __m512& im) const requires std::is_same_v<E, Vek32f> {
    const auto m = static_cast<__mmask16>(_bzhi_u32(0xFFFFu, r));
    re = _mm512_maskz_loadu_ps(m, re_ + i);
    im = _mm512_maskz_loadu_ps(m, im_ + i);
  }
};

// ---- the loop -----------------------------------------------------------------------------
// body(i, r) for blocks of r = 8 elements, then one block of the remaining r < 8.
template <class Body>
inline void blocks8(size_t first, size_t count, Body&& body) {
  size_t i = first;
  const size_t end = first + count;
  for (; i + 8 <= end; i += 8) body(i, 8u);
  if (i < end) body(i, static_cast<unsigned>(end - i));
}

}  // namespace veks::lanes
