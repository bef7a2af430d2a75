// The scale-factor policies against an exact model: the real quotient r / 2^sf rounded to
// nearest with ties to even, then clamped to the destination, computed in 128-bit arithmetic.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "frame/scale.hpp"

namespace {

using i128 = __int128;

template <class D>
i128 model(i128 r, int sf) {
  const i128 lo = std::numeric_limits<D>::min(), hi = std::numeric_limits<D>::max();
  i128 q;
  if (sf >= 0) {
    if (sf >= 120) {
      q = 0;  // |r| < 2^64 is far below half of 2^sf
    } else {
      const i128 p = i128{1} << sf;
      q = r >= 0 ? r / p : -((-r + p - 1) / p);  // floor
      const i128 twice_rem = 2 * (r - q * p);
      if (twice_rem > p || (twice_rem == p && (q & 1) != 0)) ++q;
    }
  } else {
    const int k = -sf;
    if (r == 0) return 0;
    if (k >= 64) return r > 0 ? hi : lo;  // |r| >= 1, so |r * 2^k| exceeds every range
    q = r * (i128{1} << k);
  }
  return q < lo ? lo : q > hi ? hi : q;
}

// Applies with_scale's policy for sf to every value, once as scalars and once in 512-bit vectors.
template <class D, class W>
void check_all(const std::vector<W>& rs, int sf, int zero_above) {
  using V = veks::simd::Vec<W>;
  constexpr size_t kLanes = sizeof(V) / sizeof(W);
  for (size_t base = 0; base < rs.size(); base += kLanes) {
    V v{};
    for (size_t j = 0; j < kLanes; ++j) v[j] = rs[(base + j) % rs.size()];
    const V out = veks::with_scale<D>(sf, zero_above, [&](auto policy) { return policy(v); });
    for (size_t j = 0; j < kLanes; ++j) {
      const W r = v[j];
      const i128 want = sf > zero_above ? 0 : model<D>(r, sf);
      const W scalar = veks::with_scale<D>(sf, zero_above, [&](auto policy) { return policy(r); });
      ASSERT_EQ(static_cast<long long>(scalar), static_cast<long long>(want))
          << "r=" << static_cast<long long>(r) << " sf=" << sf;
      ASSERT_EQ(static_cast<long long>(out[j]), static_cast<long long>(want))
          << "vector lane " << j << " r=" << static_cast<long long>(r) << " sf=" << sf;
    }
  }
}

// Values of r that an operation producing `bits`-bit exact results can give: the ends of the
// range, powers of two and their neighbours (every rounding tie), and random values.
template <class W>
std::vector<W> samples(int bits, bool is_signed) {
  const long long hi = (1LL << (bits - 1)) - 1 + (is_signed ? 0 : (1LL << (bits - 1)));
  const long long lo = is_signed ? -hi - 1 : 0;
  std::vector<W> v;
  for (long long x : {0LL, 1LL, 2LL, 3LL, 5LL, hi, hi - 1, lo, lo + 1})
    v.push_back(static_cast<W>(x));
  for (int b = 0; b < bits - 1; ++b) {
    for (long long d : {-1LL, 0LL, 1LL}) {
      const long long p = (1LL << b) + d;
      if (p <= hi) v.push_back(static_cast<W>(p));
      if (is_signed && -p >= lo) v.push_back(static_cast<W>(-p));
      const long long p3 = 3 * (1LL << b) + d;  // odd multiples of half: ties both ways
      if (p3 <= hi) v.push_back(static_cast<W>(p3));
      if (is_signed && -p3 >= lo) v.push_back(static_cast<W>(-p3));
    }
  }
  std::mt19937_64 rng(bits);
  std::uniform_int_distribution<long long> dist(lo, hi);
  for (int i = 0; i < 200; ++i) v.push_back(static_cast<W>(dist(rng)));
  return v;
}

TEST(Scale, SixteenBitDestinationFromThirtyTwoBitResults) {
  const auto rs = samples<int32_t>(31, true);  // e.g. products of two 16s
  for (int sf = -40; sf <= 70; ++sf) check_all<int16_t, int32_t>(rs, sf, 30);
}

TEST(Scale, UnsignedDestinationsFromSignedLanes) {
  const auto rs = samples<int32_t>(18, true);  // e.g. differences of 16u, 8u products
  for (int sf = -40; sf <= 70; ++sf) {
    check_all<uint8_t, int32_t>(rs, sf, 18);
    check_all<uint16_t, int32_t>(rs, sf, 18);
  }
}

TEST(Scale, ThirtyTwoBitDestinationsFromSixtyFourBitResults) {
  const auto rs = samples<int64_t>(63, true);
  for (int sf = -40; sf <= 70; ++sf) {
    check_all<int32_t, int64_t>(rs, sf, 62);
    check_all<int64_t, int64_t>(rs, sf, 62);
  }
  const auto us = samples<uint64_t>(63, false);
  for (int sf = -40; sf <= 70; ++sf) check_all<uint32_t, uint64_t>(us, sf, 63);
}

TEST(Scale, DocumentedExamples) {
  // 16s sums with sf 1: 3 -> 2, 5 -> 2, -3 -> -2, 1 -> 0, -1 -> 0 (ties to even).
  const veks::ScaleDown<int16_t> half{1};
  EXPECT_EQ(half(3), 2);
  EXPECT_EQ(half(5), 2);
  EXPECT_EQ(half(-3), -2);
  EXPECT_EQ(half(1), 0);
  EXPECT_EQ(half(-1), 0);
  // sf -16 on a 16s destination: the sign decides.
  const auto sign = [](int r) {
    return veks::with_scale<int16_t>(-16, 16, [&](auto p) { return p(r); });
  };
  EXPECT_EQ(sign(1), 32767);
  EXPECT_EQ(sign(-1), -32768);
  EXPECT_EQ(sign(0), 0);
  // Beyond the bound every result is zero.
  EXPECT_EQ(veks::with_scale<int16_t>(17, 16, [](auto p) { return p(65534); }), 0);
}

}  // namespace
