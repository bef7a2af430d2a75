// The element-wise loop: every length and offset, narrow and wide types, in place, with a scale
// policy inside, against plain scalar loops.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "frame/map.hpp"
#include "frame/scale.hpp"
#include "support/guarded.hpp"

namespace {

using veks_test::Guarded;

template <class T>
std::vector<T> random_vec(size_t n, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_int_distribution<long long> dist(std::numeric_limits<T>::min(),
                                                std::numeric_limits<T>::max());
  std::vector<T> v(n);
  for (auto& x : v) x = static_cast<T>(dist(rng));
  return v;
}

// 16s + 16s computed in 32-bit lanes, scaled and saturated back to 16s: every tail length and
// destination offset, and the result written nowhere else.
TEST(Map, ScaledSixteenBitSumEveryLengthAndOffset) {
  for (size_t n = 1; n <= 130; ++n) {
    const auto a = random_vec<int16_t>(n, static_cast<unsigned>(n));
    const auto b = random_vec<int16_t>(n, static_cast<unsigned>(n + 1000));
    for (size_t mis : {size_t{0}, size_t{2}, size_t{62}}) {
      for (int sf : {-3, 0, 1, 5}) {
        Guarded<int16_t> d(n, mis);
        veks::with_scale<int16_t>(sf, 16, [&](auto scale) {
          veks::map<int32_t>(
              n, d.data(), [&](auto x, auto y) { return scale(x + y); }, a.data(), b.data());
        });
        for (size_t i = 0; i < n; ++i) {
          long long r = static_cast<long long>(a[i]) + b[i];
          long long want;
          if (sf > 0) {
            const long long q = r >> sf, rem = r - (q << sf), half = 1LL << (sf - 1);
            want = q + (rem > half || (rem == half && (q & 1)));
          } else {
            want = r * (1LL << -sf);
          }
          want = std::clamp(want, -32768LL, 32767LL);
          ASSERT_EQ(d[i], want) << "n=" << n << " i=" << i << " sf=" << sf;
        }
        ASSERT_TRUE(d.guards_intact()) << "n=" << n << " misalign=" << mis;
      }
    }
  }
}

// Widening 8u -> 32f and narrowing 64f -> 32f through the same loop, in place for same sizes.
TEST(Map, MixedWidthsAndInPlace) {
  for (size_t n : {1u, 7u, 15u, 16u, 17u, 63u, 64u, 65u, 1000u}) {
    const auto a = random_vec<uint8_t>(n, 7);
    Guarded<float> f(n, 4);
    veks::map<float>(
        n, f.data(), [](auto x) { return x * 0.5f; }, a.data());
    for (size_t i = 0; i < n; ++i) ASSERT_EQ(f[i], a[i] * 0.5f);
    EXPECT_TRUE(f.guards_intact());

    std::vector<double> w(n);
    for (size_t i = 0; i < n; ++i) w[i] = a[i] / 3.0;
    Guarded<float> g(n, 8);
    veks::map<double>(
        n, g.data(), [](auto x) { return x; }, w.data());
    for (size_t i = 0; i < n; ++i) ASSERT_EQ(g[i], static_cast<float>(w[i]));
    EXPECT_TRUE(g.guards_intact());

    veks::map<float>(
        n, f.data(), [](auto x) { return x + 1.0f; }, f.data());  // in place
    for (size_t i = 0; i < n; ++i) ASSERT_EQ(f[i], a[i] * 0.5f + 1.0f);
    EXPECT_TRUE(f.guards_intact());
  }
}

}  // namespace
