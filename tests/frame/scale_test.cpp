// The scale-factor policies against the exact model of tests/support: r / 2^sf rounded to nearest
// with ties to even, then clamped to the destination, as scalars and in 512-bit vectors.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "frame/scale.hpp"
#include "support/refs.hpp"

namespace {

// Applies with_scale's policy for every sf in [-40, 70] to every value, as a scalar and in lanes.
template <class D, class W>
void check_all(const std::vector<W>& rs, int zero_above) {
  using V = veks::simd::Vec<W>;
  constexpr size_t kLanes = sizeof(V) / sizeof(W);
  for (int sf = -40; sf <= 70; ++sf)
    for (size_t base = 0; base < rs.size(); base += kLanes) {
      V v{};
      for (size_t j = 0; j < kLanes; ++j) v[j] = rs[(base + j) % rs.size()];
      const V out = veks::with_scale<D>(sf, zero_above, [&](auto policy) { return policy(v); });
      for (size_t j = 0; j < kLanes; ++j) {
        const W r = v[j];
        const long long want = sf > zero_above ? 0 : veks_test::scaled<D>(r, sf);
        const W one = veks::with_scale<D>(sf, zero_above, [&](auto policy) { return policy(r); });
        ASSERT_TRUE(static_cast<long long>(one) == want && static_cast<long long>(out[j]) == want)
            << "r=" << static_cast<long long>(r) << " sf=" << sf << " lane " << j;
      }
    }
}

// Values an operation with `bits`-bit exact results can give: the ends of the range, powers of
// two, three times powers of two and their neighbours (every rounding tie), random values.
template <class W>
std::vector<W> samples(int bits, bool is_signed) {
  const long long hi = (1LL << (bits - 1)) - 1 + (is_signed ? 0 : (1LL << (bits - 1)));
  const long long lo = is_signed ? -hi - 1 : 0;
  std::vector<W> v;
  for (long long x : {0LL, 1LL, 2LL, 3LL, 5LL, hi, hi - 1, lo, lo + 1}) v.push_back(W(x));
  for (int b = 0; b < bits - 1; ++b)
    for (long long d : {-1LL, 0LL, 1LL})
      for (long long p : {(1LL << b) + d, 3 * (1LL << b) + d}) {
        if (p <= hi) v.push_back(W(p));
        if (is_signed && -p >= lo) v.push_back(W(-p));
      }
  std::mt19937_64 rng(bits);
  std::uniform_int_distribution<long long> dist(lo, hi);
  for (int i = 0; i < 200; ++i) v.push_back(W(dist(rng)));
  return v;
}

TEST(Scale, EveryPolicyAgainstTheExactModel) {
  check_all<int16_t, int32_t>(samples<int32_t>(31, true), 30);  // products of two 16s
  const auto r18 = samples<int32_t>(18, true);                  // differences of 16u, 8u products
  check_all<uint8_t, int32_t>(r18, 18);
  check_all<uint16_t, int32_t>(r18, 18);
  const auto r63 = samples<int64_t>(63, true);
  check_all<int32_t, int64_t>(r63, 62);
  check_all<int64_t, int64_t>(r63, 62);
  check_all<uint32_t, uint64_t>(samples<uint64_t>(63, false), 63);
}

TEST(Scale, DocumentedExamples) {
  const auto s16 = [](int r, int sf, int bound = 16) {
    return veks::with_scale<int16_t>(sf, bound, [&](auto p) { return p(r); });
  };
  // Ties to even with sf 1: 3 -> 2, 5 -> 2, -3 -> -2, +-1 -> 0.
  EXPECT_TRUE(s16(3, 1) == 2 && s16(5, 1) == 2 && s16(-3, 1) == -2 && s16(1, 1) == 0 &&
              s16(-1, 1) == 0);
  EXPECT_TRUE(s16(1, -16) == 32767 && s16(-1, -16) == -32768 && s16(0, -16) == 0);  // the sign
  EXPECT_EQ(s16(65534, 17), 0);  // beyond the bound every result is zero
}

}  // namespace
