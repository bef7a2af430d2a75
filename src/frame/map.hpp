// The element-wise loop every shape runs: sources are loaded into lanes of a wide computing type
// W, as many as a 512-bit vector of W holds, the operation runs on those lanes, and the result is
// narrowed to the destination type. Full vectors first, then one masked tail; nothing outside
// [0, n) of any vector is read or written. A destination may coincide with a source.
#pragma once

#include <algorithm>

#include "frame/simd.hpp"
#include "frame/stream.hpp"

namespace veks {

template <class W, class TD, class... TS>
inline constexpr size_t map_lanes = 64 / std::max({sizeof(W), sizeof(TD), sizeof(TS)...});

// d[i] = f(k, W(s[i])...) for i in [0, n); f maps VecN<W, N> lanes to lanes convertible to TD.
// k is the number of lanes that hold elements: N for full vectors, fewer for the tail, whose
// other lanes hold zeros and are not stored. Calls moving more bytes than the largest cache
// store around the caches.
template <class W, class TD, class F, class... TS>
inline void map_n(size_t n, TD* d, F&& f, const TS*... s) {
  constexpr size_t N = map_lanes<W, TD, TS...>;
  blocks_nt<N, sizeof(TD)>(
      n, d, stream_traffic(n * (sizeof(TD) + (sizeof(TS) + ... + 0)), d, s...),
      [=, &f](auto kind, size_t i, size_t c) {  // pointers by value: not reloaded after stores
        if constexpr (kind) {
          put<decltype(kind)>(d + i, 0,
                              simd::convert<TD>(f(N, simd::convert<W>(simd::load<N>(s + i))...)));
        } else {
          put<decltype(kind)>(
              d + i, c * sizeof(TD),
              simd::convert<TD>(f(c, simd::convert<W>(simd::load_first<N>(s + i, c))...)));
        }
      });
}

// d[i] = f(W(s[i])...) for i in [0, n).
template <class W, class TD, class F, class... TS>
inline void map(size_t n, TD* d, F&& f, const TS*... s) {
  map_n<W>(
      n, d, [&](size_t, auto... x) { return f(x...); }, s...);
}

}  // namespace veks
