// The element-wise loop: every length and offset, narrow and wide types, in place, with a scale
// policy inside, against plain scalar loops.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "frame/map.hpp"
#include "frame/scale.hpp"
#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "vekcore.h"

namespace {

using veks_test::Guarded;

// 16s + 16s in 32-bit lanes, scaled and saturated back to 16s: every tail and destination offset.
TEST(Map, ScaledSixteenBitSumEveryLengthAndOffset) {
  for (size_t n = 1; n <= 130; ++n) {
    const auto a = veks_test::edge_and_random<int16_t>(n, unsigned(n));
    const auto b = veks_test::edge_and_random<int16_t>(n + 5, unsigned(n + 1000));
    for (size_t mis : {0, 2, 62})
      for (int sf : {-3, 0, 1, 5}) {
        Guarded<int16_t> d(n, mis);
        veks::with_scale<int16_t>(sf, 16, [&](auto scale) {
          veks::map<int32_t>(
              n, d.data(), [&](auto x, auto y) { return scale(x + y); }, a.data(), b.data() + 5);
        });
        for (size_t i = 0; i < n; ++i)
          ASSERT_EQ(d[i], veks_test::scaled<int16_t>(a[i] + b[i + 5], sf)) << n << " " << i;
        ASSERT_TRUE(d.guards_intact()) << "n=" << n << " misalign=" << mis;
      }
  }
}

// Widening 8u -> 32f and narrowing 64f -> 32f through the same loop, in place for same sizes.
TEST(Map, MixedWidthsAndInPlace) {
  for (size_t n : {1, 7, 15, 16, 17, 63, 64, 65, 1000}) {
    const auto a = veks_test::edge_and_random<uint8_t>(n, 7);
    std::vector<double> w(n);
    for (size_t i = 0; i < n; ++i) w[i] = a[i] / 3.0;
    Guarded<float> f(n, 4), g(n, 8);
    veks::map<float>(
        n, f.data(), [](auto x) { return x * 0.5f; }, a.data());
    veks::map<double>(
        n, g.data(), [](auto x) { return x; }, w.data());
    for (size_t i = 0; i < n; ++i) ASSERT_TRUE(f[i] == a[i] * 0.5f && g[i] == float(w[i]));
    veks::map<float>(
        n, f.data(), [](auto x) { return x + 1.0f; }, f.data());
    for (size_t i = 0; i < n; ++i) ASSERT_EQ(f[i], a[i] * 0.5f + 1.0f);
    EXPECT_TRUE(f.guards_intact() && g.guards_intact());
  }
}

// Calls moving more bytes than the largest cache store around it: an aligned head, streamed
// whole blocks and a masked tail, at every destination offset within a line.
TEST(Map, StreamedCallsMatchAtEveryOffset) {
  ASSERT_EQ(vekSetMaxCacheSizeB(4 << 20), 0);
  const size_t n = (4 << 20) / 6 + 77;
  const auto a = veks_test::edge_and_random<int16_t>(n, 3);
  const auto b = veks_test::edge_and_random<int16_t>(n, 4);
  for (size_t mis : {0, 2, 30, 62}) {
    Guarded<int16_t> d(n, mis);
    veks::map<int32_t>(
        n, d.data(), [](auto x, auto y) { return veks::saturate<int16_t>(x - y); }, a.data(),
        b.data());
    for (size_t i = 0; i < n; ++i)
      ASSERT_EQ(d[i], veks_test::scaled<int16_t>(a[i] - b[i], 0)) << mis << " " << i;
    ASSERT_TRUE(d.guards_intact()) << mis;
  }
  vekSetMaxCacheSizeB(0);
}

}  // namespace
