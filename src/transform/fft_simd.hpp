// Complex vectors for the transforms: W interleaved complex values of precision R in one vector
// (W = 8, 4, 2, 1 for float; 4, 2, 1 for double), so one kernel serves every width from a full
// 512-bit register down to a single value.
#pragma once

#include "frame/intrin.hpp"

#include <cmath>
#include <cstddef>
#include <cstring>
#include <type_traits>
#include <utility>

#include "frame/simd.hpp"

namespace veks::fft {

template <class R, int W>
struct CVOf {
  typedef R type __attribute__((vector_size(2 * W * sizeof(R))));
};
template <class R, int W>
using CV = typename CVOf<R, W>::type;

template <class R, int W>
inline CV<R, W> ld(const R* p) {
  CV<R, W> v;
  std::memcpy(&v, p, sizeof v);
  return v;
}
template <class R, int W>
inline void st(R* p, CV<R, W> v) {
  std::memcpy(p, &v, sizeof v);
}

// A whole 64-byte vector stored around the caches (p 64-byte aligned).
template <class R, int W>
inline void st_around(R* p, CV<R, W> v) {
  static_assert(sizeof v == 64);
  if constexpr (std::is_same_v<R, float>) {
    _mm512_stream_ps(p, reinterpret_cast<__m512>(v));
  } else {
    _mm512_stream_pd(p, reinterpret_cast<__m512d>(v));
  }
}

template <class V>
inline constexpr int lanes = int(sizeof(V) / sizeof(V{}[0]));

// x in every lane. (x - 0 is x for every x, signed zeros included, so the subtraction folds
// away; 0 + x would not, and would cost a scalar add before the broadcast.)
template <class V>
inline V splat(decltype(V{}[0] + 0) x) {
  return x - V{};
}

namespace detail {
// Complex lanes in reverse order.
template <class V, size_t... I>
inline V rev(V v, std::index_sequence<I...>) {
  constexpr size_t n = sizeof...(I);
  return __builtin_shufflevector(v, v, ((n - 2 - (I & ~size_t{1})) | (I & 1))...);
}
}  // namespace detail

// (im, re), (re, re) and (im, im) of every complex lane: the frame's pair shuffles.
template <class V>
inline V swap(V v) {
  return simd::swap_pairs(v);
}
template <class V>
inline V dre(V v) {
  return simd::dup_re(v);
}
template <class V>
inline V dim(V v) {
  return simd::dup_im(v);
}
template <class V>
inline V rev(V v) {
  return detail::rev(v, std::make_index_sequence<lanes<V>>{});
}

// a*b - c in real lanes and a*b + c in imaginary lanes (one rounding where the hardware fuses).
template <class V>
inline V fmaddsub(V a, V b, V c) {
  using R = std::remove_cvref_t<decltype(a[0])>;
  constexpr size_t n = sizeof(V);
  if constexpr (std::is_same_v<R, float> && n == 64) {
    return reinterpret_cast<V>(_mm512_fmaddsub_ps(
        reinterpret_cast<__m512>(a), reinterpret_cast<__m512>(b), reinterpret_cast<__m512>(c)));
  } else if constexpr (std::is_same_v<R, float> && n == 32) {
    return reinterpret_cast<V>(_mm256_fmaddsub_ps(
        reinterpret_cast<__m256>(a), reinterpret_cast<__m256>(b), reinterpret_cast<__m256>(c)));
  } else if constexpr (std::is_same_v<R, float> && n == 16) {
    return reinterpret_cast<V>(_mm_fmaddsub_ps(
        reinterpret_cast<__m128>(a), reinterpret_cast<__m128>(b), reinterpret_cast<__m128>(c)));
  } else if constexpr (std::is_same_v<R, double> && n == 64) {
    return reinterpret_cast<V>(_mm512_fmaddsub_pd(
        reinterpret_cast<__m512d>(a), reinterpret_cast<__m512d>(b), reinterpret_cast<__m512d>(c)));
  } else if constexpr (std::is_same_v<R, double> && n == 32) {
    return reinterpret_cast<V>(_mm256_fmaddsub_pd(
        reinterpret_cast<__m256d>(a), reinterpret_cast<__m256d>(b), reinterpret_cast<__m256d>(c)));
  } else if constexpr (std::is_same_v<R, double> && n == 16) {
    return reinterpret_cast<V>(_mm_fmaddsub_pd(
        reinterpret_cast<__m128d>(a), reinterpret_cast<__m128d>(b), reinterpret_cast<__m128d>(c)));
  } else {
    return V{std::fma(a[0], b[0], -c[0]), std::fma(a[1], b[1], c[1])};
  }
}
// a*b + c in real lanes and a*b - c in imaginary lanes.
template <class V>
inline V fmsubadd(V a, V b, V c) {
  return fmaddsub(a, b, -c);
}

// Complex products, w given as broadcast or per-lane real and imaginary parts.
template <bool Conj, class V>
inline V cmul(V x, V wr, V wi) {
  return Conj ? fmsubadd(x, wr, swap(x) * wi) : fmaddsub(x, wr, swap(x) * wi);
}
template <bool Conj, class V>
inline V cmul(V x, V w) {
  return cmul<Conj>(x, dre(w), dim(w));
}

// a + w*t and a - w*t for the quarter-turn w = -i (forward) or +i (inverse).
template <bool Inv, class V>
inline V addw(V a, V t) {
  const V one = splat<V>(1);
  return Inv ? fmaddsub(a, one, swap(t)) : fmsubadd(a, one, swap(t));
}
template <bool Inv, class V>
inline V subw(V a, V t) {
  const V one = splat<V>(1);
  return Inv ? fmsubadd(a, one, swap(t)) : fmaddsub(a, one, swap(t));
}

// W x W transpose of complex lanes: v[j] lane p becomes v[p] lane j. One bit of the row index
// is exchanged with the same bit of the lane index per round.
namespace detail {
template <class V, size_t B, size_t... I>
inline void swap_bit(V& a, V& b, std::index_sequence<I...>) {
  constexpr size_t n = sizeof...(I);
  const V lo = __builtin_shufflevector(a, b, (((I / 2) & B) ? n + (I - 2 * B) : I)...);
  const V hi = __builtin_shufflevector(a, b, (((I / 2) & B) ? n + I : I + 2 * B)...);
  a = lo;
  b = hi;
}
}  // namespace detail
template <int W, class V>
inline void transpose(V* v) {
  [&]<size_t... B>(std::index_sequence<B...>) {
    (
        [&] {
          constexpr size_t bit = size_t{1} << B;
          for (int j = 0; j < W; ++j) {
            if (!(size_t(j) & bit)) {
              detail::swap_bit<V, bit>(v[j], v[j + int(bit)], std::make_index_sequence<lanes<V>>{});
            }
          }
        }(),
        ...);
  }
  (std::make_index_sequence<size_t(__builtin_ctz(unsigned(W)) + 0 * W)>{});
}

}  // namespace veks::fft
