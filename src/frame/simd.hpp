// Lane types for generic kernels: a kernel written once over a lane type L runs on scalars
// (tails, references) and on 512-bit vectors of the same element type.
#pragma once

#include "frame/intrin.hpp"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

namespace veks::simd {

template <class T, size_t Bytes = 64>
struct VecOf {
  typedef T type __attribute__((vector_size(Bytes)));
};
// A 512-bit vector of T (64 / sizeof(T) lanes).
template <class T>
using Vec = typename VecOf<T>::type;

template <class L>
struct LaneOf {
  using type = L;
};
template <class L>
requires requires(L v) { v[0]; }
struct LaneOf<L> {
  using type = std::remove_cvref_t<decltype(L{}[0])>;
};
template <class L>
using lane_t = typename LaneOf<L>::type;

template <class L>
inline constexpr bool is_vector = !std::is_same_v<lane_t<L>, L>;

// Every lane set to x. (x - 0 is x for every x, -0 included, so it folds away; 0 + x would turn
// -0 into +0.)
template <class L>
inline L splat(lane_t<L> x) {
  if constexpr (is_vector<L>) {
    return x - L{};
  } else {
    return x;
  }
}

// Lane-wise choice: where c (a comparison of two L) holds, a, else b.
template <class L, class C>
inline L select(C c, L a, L b) {
  return c ? a : b;
}

namespace detail {

// One min or max instruction for a vector of lanes, where AVX-512 (with BW and VL) has it; the
// compiler turns the comparison form into a compare and a blend. The instructions return the
// second operand when the comparison is false, NaN included, as select() does.
#define VEKS_MM_ONE(name, T512, T256, T128)                                                       \
  if constexpr (sizeof(L) == 64) {                                                                \
    r = reinterpret_cast<L>(_mm512_##name(reinterpret_cast<T512>(a), reinterpret_cast<T512>(b))); \
  } else if constexpr (sizeof(L) == 32) {                                                         \
    r = reinterpret_cast<L>(_mm256_##name(reinterpret_cast<T256>(a), reinterpret_cast<T256>(b))); \
  } else {                                                                                        \
    r = reinterpret_cast<L>(_mm_##name(reinterpret_cast<T128>(a), reinterpret_cast<T128>(b)));    \
  }
#define VEKS_MM(kind, T512, T256, T128)       \
  if constexpr (Max) {                        \
    VEKS_MM_ONE(max_##kind, T512, T256, T128) \
  } else {                                    \
    VEKS_MM_ONE(min_##kind, T512, T256, T128) \
  }
template <bool Max, class L>
inline bool minmax_insn(L a, L b, L& r) {
  using T = lane_t<L>;
  if constexpr (sizeof(L) != 64 && sizeof(L) != 32 && sizeof(L) != 16) {
    return false;
  } else if constexpr (std::is_same_v<T, float>) {
    VEKS_MM(ps, __m512, __m256, __m128)
  } else if constexpr (std::is_same_v<T, double>) {
    VEKS_MM(pd, __m512d, __m256d, __m128d)
  } else if constexpr (!std::is_integral_v<T>) {
    return false;
  } else if constexpr (std::is_signed_v<T> && sizeof(T) == 1) {
    VEKS_MM(epi8, __m512i, __m256i, __m128i)
  } else if constexpr (sizeof(T) == 1) {
    VEKS_MM(epu8, __m512i, __m256i, __m128i)
  } else if constexpr (std::is_signed_v<T> && sizeof(T) == 2) {
    VEKS_MM(epi16, __m512i, __m256i, __m128i)
  } else if constexpr (sizeof(T) == 2) {
    VEKS_MM(epu16, __m512i, __m256i, __m128i)
  } else if constexpr (std::is_signed_v<T> && sizeof(T) == 4) {
    VEKS_MM(epi32, __m512i, __m256i, __m128i)
  } else if constexpr (sizeof(T) == 4) {
    VEKS_MM(epu32, __m512i, __m256i, __m128i)
  } else if constexpr (std::is_signed_v<T> && sizeof(T) == 8) {
    VEKS_MM(epi64, __m512i, __m256i, __m128i)
  } else if constexpr (sizeof(T) == 8) {
    VEKS_MM(epu64, __m512i, __m256i, __m128i)
  } else {
    return false;
  }
  return true;
}
#undef VEKS_MM
#undef VEKS_MM_ONE

}  // namespace detail

template <class L>
inline L vmin(L a, L b) {
  if constexpr (is_vector<L>) {
    L r;
    if (detail::minmax_insn<false>(a, b, r)) return r;
  }
  return select<L>(a < b, a, b);
}
template <class L>
inline L vmax(L a, L b) {
  if constexpr (is_vector<L>) {
    L r;
    if (detail::minmax_insn<true>(a, b, r)) return r;
  }
  return select<L>(a > b, a, b);
}
template <class L>
inline L clamp(L r, L lo, L hi) {
  return vmin(vmax(r, lo), hi);
}

// N lanes of T in 16, 32 or 64 bytes: the shapes load narrow element types into as many lanes as
// a 512-bit vector of the wide computing type holds.
template <class T, size_t N>
using VecN = typename VecOf<T, N * sizeof(T)>::type;

template <class V>
inline constexpr size_t lanes_of = sizeof(V) / sizeof(lane_t<V>);

template <size_t N, class T>
inline VecN<T, N> load(const T* p) {
  VecN<T, N> v;
  std::memcpy(&v, p, sizeof v);
  return v;
}

template <class V>
inline void store(lane_t<V>* p, V v) {
  std::memcpy(p, &v, sizeof v);
}

// The first `count` elements from p, zeros after them; nothing past p + count is read.
template <size_t N, class T>
inline VecN<T, N> load_first(const T* p, size_t count) {
  constexpr size_t kBytes = N * sizeof(T);
  const uint64_t m = _bzhi_u64(~0ULL, static_cast<unsigned>(count * sizeof(T)));
  if constexpr (kBytes == 64) {
    return reinterpret_cast<VecN<T, N>>(_mm512_maskz_loadu_epi8(m, p));
  } else if constexpr (kBytes == 32) {
    return reinterpret_cast<VecN<T, N>>(_mm256_maskz_loadu_epi8(static_cast<__mmask32>(m), p));
  } else if constexpr (kBytes == 16) {
    return reinterpret_cast<VecN<T, N>>(_mm_maskz_loadu_epi8(static_cast<__mmask16>(m), p));
  } else {
    static_assert(kBytes == 8, "shapes use 8-, 16-, 32- or 64-byte vectors");
    const __m128i x = _mm_maskz_loadu_epi8(static_cast<__mmask16>(m), p);
    VecN<T, N> v;
    std::memcpy(&v, &x, sizeof v);
    return v;
  }
}

// Stores the first `count` lanes of v at p; nothing past p + count is written.
template <class V>
inline void store_first(lane_t<V>* p, size_t count, V v) {
  constexpr size_t kBytes = sizeof(V);
  const uint64_t m = _bzhi_u64(~0ULL, static_cast<unsigned>(count * sizeof(lane_t<V>)));
  if constexpr (kBytes == 64) {
    _mm512_mask_storeu_epi8(p, m, reinterpret_cast<__m512i>(v));
  } else if constexpr (kBytes == 32) {
    _mm256_mask_storeu_epi8(p, static_cast<__mmask32>(m), reinterpret_cast<__m256i>(v));
  } else if constexpr (kBytes == 16) {
    _mm_mask_storeu_epi8(p, static_cast<__mmask16>(m), reinterpret_cast<__m128i>(v));
  } else {
    static_assert(kBytes == 8, "shapes use 8-, 16-, 32- or 64-byte vectors");
    __m128i x = _mm_setzero_si128();
    std::memcpy(&x, &v, sizeof v);
    _mm_mask_storeu_epi8(p, static_cast<__mmask16>(m), x);
  }
}

// Interleaved complex lanes: real parts in even lanes, imaginary parts in odd lanes.
namespace detail {
template <class V, size_t... I>
inline V pairs(lane_t<V> re, lane_t<V> im, std::index_sequence<I...>) {
  return V{(I % 2 ? im : re)...};
}
template <class V, size_t... I>
inline V swap_pairs(V v, std::index_sequence<I...>) {
  return __builtin_shufflevector(v, v, (I ^ 1)...);
}
template <class V, size_t... I>
inline V dup_even(V v, std::index_sequence<I...>) {
  return __builtin_shufflevector(v, v, (I & ~size_t{1})...);
}
template <class V, size_t... I>
inline V dup_odd(V v, std::index_sequence<I...>) {
  return __builtin_shufflevector(v, v, (I | 1)...);
}
}  // namespace detail

// (re, im, re, im, ...)
template <class V>
inline V pairs(lane_t<V> re, lane_t<V> im) {
  return detail::pairs<V>(re, im, std::make_index_sequence<lanes_of<V>>{});
}
// (im, re) of every pair.
template <class V>
inline V swap_pairs(V v) {
  return detail::swap_pairs(v, std::make_index_sequence<lanes_of<V>>{});
}
// (re, re) and (im, im) of every pair.
template <class V>
inline V dup_re(V v) {
  return detail::dup_even(v, std::make_index_sequence<lanes_of<V>>{});
}
template <class V>
inline V dup_im(V v) {
  return detail::dup_odd(v, std::make_index_sequence<lanes_of<V>>{});
}

// a * b + c in even lanes and a * b - c in odd lanes; floating point with one rounding.
template <class V>
inline V mul_addsub(V a, V b, V c) {
  using T = lane_t<V>;
  if constexpr (std::is_same_v<T, float> && sizeof(V) == 64) {
    return reinterpret_cast<V>(_mm512_fmsubadd_ps(
        reinterpret_cast<__m512>(a), reinterpret_cast<__m512>(b), reinterpret_cast<__m512>(c)));
  } else if constexpr (std::is_same_v<T, double> && sizeof(V) == 64) {
    return reinterpret_cast<V>(_mm512_fmsubadd_pd(
        reinterpret_cast<__m512d>(a), reinterpret_cast<__m512d>(b), reinterpret_cast<__m512d>(c)));
  } else {
    return a * b + c * pairs<V>(T(1), T(-1));
  }
}

// (0, 1, 2, ...)
template <class V>
inline V iota() {
  return []<size_t... I>(std::index_sequence<I...>) { return V{static_cast<lane_t<V>>(I)...}; }
  (std::make_index_sequence<lanes_of<V>>{});
}

// a * b - c in even lanes and a * b + c in odd lanes; floating point with one rounding.
template <class V>
inline V mul_subadd(V a, V b, V c) {
  using T = lane_t<V>;
  if constexpr (std::is_same_v<T, float> && sizeof(V) == 64) {
    return reinterpret_cast<V>(_mm512_fmaddsub_ps(
        reinterpret_cast<__m512>(a), reinterpret_cast<__m512>(b), reinterpret_cast<__m512>(c)));
  } else if constexpr (std::is_same_v<T, double> && sizeof(V) == 64) {
    return reinterpret_cast<V>(_mm512_fmaddsub_pd(
        reinterpret_cast<__m512d>(a), reinterpret_cast<__m512d>(b), reinterpret_cast<__m512d>(c)));
  } else {
    return a * b + c * pairs<V>(T(-1), T(1));
  }
}

// Floating-point lanes rounded to integral values in the given rounding direction, whatever the
// caller's rounding mode; no exception is raised.
template <int Mode, class V>
inline V round_lanes(V v) {
  constexpr int kMode = Mode | _MM_FROUND_NO_EXC;
  if constexpr (std::is_same_v<lane_t<V>, float> && sizeof(V) == 64) {
    return reinterpret_cast<V>(_mm512_roundscale_ps(reinterpret_cast<__m512>(v), kMode));
  } else if constexpr (std::is_same_v<lane_t<V>, double> && sizeof(V) == 64) {
    return reinterpret_cast<V>(_mm512_roundscale_pd(reinterpret_cast<__m512d>(v), kMode));
  } else if constexpr (std::is_same_v<lane_t<V>, double> && sizeof(V) == 32) {
    return reinterpret_cast<V>(_mm256_roundscale_pd(reinterpret_cast<__m256d>(v), kMode));
  } else {
    static_assert(std::is_same_v<lane_t<V>, float> && sizeof(V) == 32);
    return reinterpret_cast<V>(_mm256_roundscale_ps(reinterpret_cast<__m256>(v), kMode));
  }
}
template <class V>
inline V round_even(V v) {
  return round_lanes<_MM_FROUND_TO_NEAREST_INT>(v);
}
template <class V>
inline V round_trunc(V v) {
  return round_lanes<_MM_FROUND_TO_ZERO>(v);
}

// Lane-wise conversion to another lane type (integer narrowing truncates: saturate first).
// Floating lanes reach 8- and 16-bit integers through 32-bit ones, which the hardware converts
// and narrows a whole vector at a time (the direct conversion is done lane by lane).
template <class To, class V>
inline VecN<To, lanes_of<V>> convert(V v) {
  if constexpr (std::is_floating_point_v<lane_t<V>> && std::is_integral_v<To> && sizeof(To) < 4) {
    return __builtin_convertvector(convert<int32_t>(v), VecN<To, lanes_of<V>>);
  } else {
    return __builtin_convertvector(v, VecN<To, lanes_of<V>>);
  }
}

}  // namespace veks::simd
