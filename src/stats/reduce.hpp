// Building blocks of the reductions: component views of complex elements, widening loads,
// one accumulation loop over several independent accumulators, tree reductions of lanes, and
// the integer finishing rules (power-of-two factors, rounding shifts, saturation).
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "frame/check.hpp"
#include "frame/simd.hpp"

namespace veks::stats {

using simd::lane_t;
using simd::lanes_of;
using simd::VecN;

// ---- element types as components -------------------------------------------------------------

template <class E>
struct Parts {
  using type = E;
  static constexpr size_t count = 1;
};
template <class C>
requires requires(C c) {
  c.re;
  c.im;
}
struct Parts<C> {
  using type = decltype(C{}.re);
  static constexpr size_t count = 2;
};
template <class E>
using comp_t = typename Parts<E>::type;
template <class E>
inline constexpr size_t comps = Parts<E>::count;

template <class E>
inline const comp_t<E>* comps_of(const E* p) {
  return reinterpret_cast<const comp_t<E>*>(p);
}
template <class E>
inline comp_t<E>* comps_of(E* p) {
  return reinterpret_cast<comp_t<E>*>(p);
}

// Stores component values v[0..comps) into one element.
template <class E, class V>
inline void store_parts(E* dst, const V* v) {
  comp_t<E> c[comps<E>];
  for (size_t k = 0; k < comps<E>; ++k) c[k] = static_cast<comp_t<E>>(v[k]);
  std::memcpy(dst, c, sizeof c);
}

// ---- views: what an accumulation loop reads at an index ----------------------------------------

// The elements of p, widened to W.
template <class W, class T>
struct Load {
  const T* p;
  template <size_t N>
  VecN<W, N> full(size_t i) const {
    return simd::convert<W>(simd::load<N>(p + i));
  }
  template <size_t N>
  VecN<W, N> part(size_t i, size_t c) const {
    return simd::convert<W>(simd::load_first<N>(p + i, c));
  }
};

// a - b, each widened to W first (exact for integers, rounded once for floating point).
template <class W, class T>
struct Diff {
  const T *a, *b;
  template <size_t N>
  VecN<W, N> full(size_t i) const {
    return simd::convert<W>(simd::load<N>(a + i)) - simd::convert<W>(simd::load<N>(b + i));
  }
  template <size_t N>
  VecN<W, N> part(size_t i, size_t c) const {
    return simd::convert<W>(simd::load_first<N>(a + i, c)) -
           simd::convert<W>(simd::load_first<N>(b + i, c));
  }
};

// load_first for any vector of at least 8 bytes (narrower ones through a 16-byte masked load).
template <size_t N, class T>
inline VecN<T, N> load_part(const T* p, size_t count) {
  if constexpr (N * sizeof(T) >= 16) {
    return simd::load_first<N>(p, count);
  } else {
    const auto w = simd::load_first<16 / sizeof(T)>(p, count);
    VecN<T, N> v;
    std::memcpy(&v, &w, sizeof v);
    return v;
  }
}

// Runs f(acc[k], x.full(i)...) over [0, n) in steps of U vectors of N lanes (accumulator k takes
// the k-th vector of each step), then single vectors into acc[0], then one tail whose missing
// lanes are zero, so f must treat zero lanes as neutral.
template <size_t N, size_t U, class A, class F, class... V>
inline void accumulate(size_t n, A* acc, F&& f, const V&... x) {
  size_t i = 0;
  for (; i + U * N <= n; i += U * N) {
#pragma GCC unroll 16
    for (size_t k = 0; k < U; ++k) f(acc[k], x.template full<N>(i + k * N)...);
  }
  for (; i + N <= n; i += N) f(acc[0], x.template full<N>(i)...);
  if (i < n) f(acc[0], x.template part<N>(i, n - i)...);
}

// ---- lane reductions --------------------------------------------------------------------------

// Combines the two halves of v lane by lane until `keep` lanes remain (pairwise, a tree; lane
// parity is preserved, so keep = 2 separates the real and imaginary parts of complex data).
template <size_t keep = 1, class V, class F>
inline auto fold_to(V v, F f) {
  constexpr size_t N = lanes_of<V>;
  using T = lane_t<V>;
  static_assert(keep >= 2 && N >= keep);
  if constexpr (N == keep) {
    return v;
  } else {
    using H = VecN<T, N / 2>;
    H lo, hi;
    std::memcpy(&lo, &v, sizeof lo);
    std::memcpy(&hi, reinterpret_cast<const char*>(&v) + sizeof lo, sizeof hi);
    return fold_to<keep>(f(lo, hi), f);
  }
}

// The tree reduction of all lanes of v to one value.
template <class V, class F>
inline lane_t<V> reduce_lanes(V v, F f) {
  const auto r = fold_to<2>(v, f);
  return static_cast<lane_t<V>>(f(r[0], r[1]));
}
template <class V>
inline lane_t<V> sum_lanes(V v) {
  return reduce_lanes(v, [](auto a, auto b) { return a + b; });
}
// Component sums of v: out[k] = sum of the lanes of parity k (complex: real, imaginary).
template <size_t C, class V, class O>
inline void sum_comps(V v, O* out) {
  if constexpr (C == 1) {
    out[0] = sum_lanes(v);
  } else {
    const auto r = fold_to<2>(v, [](auto a, auto b) { return a + b; });
    out[0] = r[0];
    out[1] = r[1];
  }
}

inline constexpr auto vmin_lane = [](auto p, auto q) { return simd::vmin(p, q); };
inline constexpr auto vmax_lane = [](auto p, auto q) { return simd::vmax(p, q); };

// Pairwise tree over an array of U accumulators.
template <size_t U, class A, class F>
inline A tree(const A* a, F f) {
  if constexpr (U == 1) {
    return a[0];
  } else {
    return f(tree<U / 2>(a, f), tree<U - U / 2>(a + U / 2, f));
  }
}
template <size_t U, class A>
inline A tree_sum(const A* a) {
  return tree<U>(a, [](A x, A y) { return x + y; });
}

// ---- integer finishing ------------------------------------------------------------------------

using i128 = __int128;

// 2^-sf built as a double from the biased exponent 1023 - sf, clamped to 0..2047: 0 for sf
// above 1023, +Inf for sf below -1024.
inline double pow2_factor(int sf) {
  const long long e = std::clamp(1023LL - sf, 0LL, 2047LL);
  const uint64_t bits = static_cast<uint64_t>(e) << 52;
  double d;
  std::memcpy(&d, &bits, sizeof d);
  return d;
}

// v clamped to [lo, hi] and rounded to the nearest integer, ties to even (the current mode).
template <class D>
inline D round_clamp(double v, double lo = std::numeric_limits<D>::min(),
                     double hi = std::numeric_limits<D>::max()) {
  if (v == 0 || std::isnan(v)) return 0;  // 0 * Inf from a huge factor is still zero
  return static_cast<D>(std::nearbyint(std::clamp(v, lo, hi)));
}

template <class D>
inline D saturate_to(i128 v) {
  return static_cast<D>(
      std::clamp<i128>(v, std::numeric_limits<D>::min(), std::numeric_limits<D>::max()));
}

// The integer scaling of exact sums and products: sf > 0 divides by 2^min(sf, up) rounding ties
// to even, sf < 0 multiplies by 2^min(-sf, down), saturating to D, which never wraps.
template <class D>
inline D scale_exact(i128 v, int sf, int up, int down) {
  if (sf > 0) {
    const int s = std::min(sf, up);
    return saturate_to<D>((v + (i128{1} << (s - 1)) - 1 + ((v >> s) & 1)) >> s);
  }
  if (sf < 0) {
    const int s = static_cast<int>(std::min<long long>(-static_cast<long long>(sf), down));
    constexpr i128 hi = std::numeric_limits<D>::max(), lo = std::numeric_limits<D>::min();
    if (v > (hi >> s)) return static_cast<D>(hi);
    if (v < (lo >> s)) return static_cast<D>(lo);
    return static_cast<D>(v << s);
  }
  return saturate_to<D>(v);
}

}  // namespace veks::stats
