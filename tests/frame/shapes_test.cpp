// The checked element-wise shapes: check order, zero-fill beyond the bound, and results of
// integer operations through every scale path against 64-bit references.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "arith/basic.hpp"
#include "support/guarded.hpp"

namespace {

using veks_test::Guarded;

// r * 2^-sf rounded to nearest, ties to even, then clamped; exact in 128 bits for |r| < 2^63.
long long round_scaled(long long r, int sf, long long lo, long long hi) {
  __int128 q;
  if (sf >= 64) {
    q = 0;  // |r| / 2^sf < 1/2
  } else if (sf > 0) {
    q = static_cast<__int128>(r) >> sf;  // floor
    const __int128 rem = r - (q << sf), half = static_cast<__int128>(1) << (sf - 1);
    if (rem > half || (rem == half && (q & 1))) ++q;
  } else {
    q = static_cast<__int128>(r) << -sf;  // -sf <= 40
  }
  return q > hi ? hi : q < lo ? lo : static_cast<long long>(q);
}

template <class T>
std::vector<T> edge_and_random(size_t n, unsigned seed) {
  using Lim = std::numeric_limits<T>;
  std::vector<T> v = {
      Lim::min(), Lim::max(), 0, 1, static_cast<T>(Lim::max() - 1), static_cast<T>(Lim::min() + 1)};
  std::mt19937 rng(seed);
  std::uniform_int_distribution<long long> dist(Lim::min(), Lim::max());
  while (v.size() < n) v.push_back(static_cast<T>(dist(rng)));
  return v;
}

// Vector-vector and vector-constant forms of one operation on one type, for every scale factor
// from -40 to 70, against the exact result; ZeroAbove and the operation as template arguments.
template <class Op, int ZeroAbove, class T, class Exact>
void check_op(Exact exact) {
  const size_t n = 77;  // a full vector body and a masked tail for every lane width
  const auto a = edge_and_random<T>(n, 1), b = edge_and_random<T>(n, 2);
  const long long lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
  for (int sf = -40; sf <= 70; ++sf) {
    Guarded<T> d(n, 2 * sizeof(T)), c(n, 6 * sizeof(T));  // element-aligned, not 64-aligned
    ASSERT_EQ((veks::binary_sfs<Op, ZeroAbove>(a.data(), b.data(), d.data(), int(n), sf)), 0);
    ASSERT_EQ((veks::const_sfs<Op, ZeroAbove>(a.data(), b[5], c.data(), int(n), sf)), 0);
    for (size_t i = 0; i < n; ++i) {
      const long long want = sf > ZeroAbove ? 0 : round_scaled(exact(a[i], b[i]), sf, lo, hi);
      ASSERT_EQ(d[i], want) << "sf=" << sf << " a=" << +a[i] << " b=" << +b[i];
      const long long wc = sf > ZeroAbove ? 0 : round_scaled(exact(a[i], b[5]), sf, lo, hi);
      ASSERT_EQ(c[i], wc) << "constant form, sf=" << sf << " a=" << +a[i];
    }
    ASSERT_TRUE(d.guards_intact() && c.guards_intact());
  }
}

TEST(Shapes, ScaledIntegerOperationsMatchExactResults) {
  check_op<veks::Add, 16, int16_t>([](long long x, long long y) { return x + y; });
  check_op<veks::SubRev, 16, int16_t>([](long long x, long long y) { return y - x; });
  check_op<veks::Mul, 30, int16_t>([](long long x, long long y) { return x * y; });
  check_op<veks::Add, 9, uint8_t>([](long long x, long long y) { return x + y; });
  check_op<veks::Sub, 16, uint16_t>([](long long x, long long y) { return x - y; });
  check_op<veks::Mul, 16, uint8_t>([](long long x, long long y) { return x * y; });
  check_op<veks::Add, 32, int32_t>([](long long x, long long y) { return x + y; });
  check_op<veks::Mul, 62, int32_t>([](long long x, long long y) { return x * y; });
}

TEST(Shapes, InPlaceFormsEqualOutOfPlace) {
  const auto a = edge_and_random<int16_t>(100, 3), b = edge_and_random<int16_t>(100, 4);
  std::vector<int16_t> out(100), inplace = b;
  veks::binary_sfs<veks::SubRev, 16>(a.data(), b.data(), out.data(), 100, 1);
  veks::binary_isfs<veks::SubRev, 16>(a.data(), inplace.data(), 100, 1);
  EXPECT_EQ(out, inplace);
  std::vector<int16_t> cin = a;
  veks::const_sfs<veks::Mul, 30>(a.data(), int16_t{-7}, out.data(), 100, -2);
  veks::const_isfs<veks::Mul, 30>(int16_t{-7}, cin.data(), 100, -2);
  EXPECT_EQ(out, cin);
}

TEST(Shapes, FloatsComputePlainlyAndIntegersWithoutScaleSaturate) {
  const float fa[3] = {1.5f, -2.0f, 3.0e38f}, fb[3] = {0.25f, 8.0f, 3.0e38f};
  float fd[3];
  ASSERT_EQ((veks::binary<veks::Mul>(fa, fb, fd, 3)), 0);
  EXPECT_EQ(fd[0], 0.375f);
  EXPECT_EQ(fd[1], -16.0f);
  EXPECT_EQ(fd[2], std::numeric_limits<float>::infinity());
  const int16_t ia[2] = {30000, -30000}, ib[2] = {30000, -30000};
  int16_t id[2];
  ASSERT_EQ((veks::binary<veks::Add>(ia, ib, id, 2)), 0);
  EXPECT_EQ(id[0], 32767);
  EXPECT_EQ(id[1], -32768);
}

TEST(Shapes, ChecksPointersInOrderThenLengthAndWritesNothing) {
  const int16_t a[4] = {1, 2, 3, 4};
  const int16_t* none = nullptr;
  int16_t* none_out = nullptr;
  Guarded<int16_t> d(4);
  EXPECT_EQ((veks::binary_sfs<veks::Add, 16>(none, a, d.data(), 0, 0)), vekStatusNullPtr);
  EXPECT_EQ((veks::binary_sfs<veks::Add, 16>(a, a, none_out, 4, 0)), vekStatusNullPtr);
  EXPECT_EQ((veks::binary_sfs<veks::Add, 16>(a, a, d.data(), 0, 99)), vekStatusBadSize);
  EXPECT_EQ((veks::const_isfs<veks::Add, 16>(int16_t{1}, d.data(), -1, 0)), vekStatusBadSize);
  EXPECT_EQ((veks::const_sfs<veks::Add, 16>(none, int16_t{1}, d.data(), 4, 0)), vekStatusNullPtr);
  EXPECT_TRUE(d.unchanged());
}

}  // namespace
