// Lane types for generic kernels: a kernel written once over a lane type L runs on scalars
// (tails, references) and on 512-bit vectors of the same element type.
#pragma once

#include <cstddef>
#include <type_traits>

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

// Every lane set to x.
template <class L>
inline L splat(lane_t<L> x) {
  if constexpr (is_vector<L>) {
    return L{} + x;
  } else {
    return x;
  }
}

// Lane-wise choice: where c (a comparison of two L) holds, a, else b.
template <class L, class C>
inline L select(C c, L a, L b) {
  return c ? a : b;
}

template <class L>
inline L vmin(L a, L b) {
  return select<L>(a < b, a, b);
}
template <class L>
inline L vmax(L a, L b) {
  return select<L>(a > b, a, b);
}
template <class L>
inline L clamp(L r, L lo, L hi) {
  return vmin(vmax(r, lo), hi);
}

}  // namespace veks::simd
