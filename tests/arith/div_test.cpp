// Division through the exports: integer quotients against exact rational rounding in 128-bit
// integers for every scale factor and rounding mode, zero-divisor substitutes and warnings,
// floating-point quotients against IEEE division, and the threaded paths at their thresholds.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <vector>

#include "support/exact.hpp"
#include "support/guarded.hpp"
#include "vekcore.h"
#include "veks.h"

namespace {

using veks_test::div_round;
using veks_test::edge_and_random;
using veks_test::Guarded;
using veks_test::hi_of;
using veks_test::i128;
using veks_test::lo_of;

constexpr size_t kN = 77;

// round(y / x * 2^-sf) by mode, saturated to TD; a zero divisor gives max for y >= 0, else min.
template <class TD>
i128 quotient(i128 y, i128 x, int sf, int mode) {
  if (x == 0) return y < 0 ? lo_of<TD>() : hi_of<TD>();
  if (x < 0) {
    x = -x;
    y = -y;
  }
  const int up = sf < 0 ? std::min(-sf, 80) : 0;   // 2^80 saturates every quotient here
  const int down = sf > 0 ? std::min(sf, 80) : 0;  // 2^-80 rounds every quotient to 0
  const i128 q = div_round(y * (i128(1) << up), x * (i128(1) << down), mode);
  return std::clamp<i128>(q, lo_of<TD>(), hi_of<TD>());
}

// Vector members with a rounding mode (modes < 0: the member has none and rounds to even).
template <class TX, class TY, class TD, class F>
void sweep(const char* name, F fn, int mode) {
  SCOPED_TRACE(name);
  auto x = edge_and_random<TX>(kN, 21);
  const auto y = edge_and_random<TY>(kN, 22);
  x[5] = 0;  // zero divisors beside every dividend class
  x[9] = 0;
  x[12] = 0;
  x[kN - 1] = 0;
  for (TX& v : x) v = static_cast<TX>(v % 8 == 3 ? v / 1024 : v);  // small divisors too
  for (int sf = -70; sf <= 90; sf += (sf < -45 || sf > 40 ? 5 : 1)) {
    Guarded<TD> d(kN, 2 * sizeof(TD));
    ASSERT_EQ(fn(x.data(), y.data(), d.data(), int(kN), sf), vekStatusWarnZeroDivisor);
    for (size_t i = 0; i < kN; ++i)
      ASSERT_EQ(i128(d[i]), quotient<TD>(y[i], x[i], sf, mode < 0 ? 1 : mode))
          << "sf=" << sf << " y=" << +y[i] << " x=" << +x[i];
    ASSERT_TRUE(d.guards_intact());
  }
}

template <class T>
auto with_mode(int mode, VekStatus (*f)(const T*, const T*, T*, int, int, int)) {
  return [=](const T* x, const T* y, T* d, int n, int sf) { return f(x, y, d, n, mode, sf); };
}

TEST(IntegerDivision, QuotientsAreExactlyRoundedForEveryScaleFactor) {
  sweep<Vek8u, Vek8u, Vek8u>("Div_8u", veksDiv_8u_Sfs, -1);
  sweep<Vek16s, Vek16s, Vek16s>("Div_16s", veksDiv_16s_Sfs, -1);
  sweep<Vek16u, Vek16u, Vek16u>("Div_16u", veksDiv_16u_Sfs, -1);
  sweep<Vek32s, Vek32s, Vek32s>("Div_32s", veksDiv_32s_Sfs, -1);
  sweep<Vek16s, Vek32s, Vek16s>("Div_32s16s", veksDiv_32s16s_Sfs, -1);
  for (int mode = 0; mode <= 2; ++mode) {
    sweep<Vek8u, Vek8u, Vek8u>("Div_Round_8u", with_mode(mode, veksDiv_Round_8u_Sfs), mode);
    sweep<Vek16s, Vek16s, Vek16s>("Div_Round_16s", with_mode(mode, veksDiv_Round_16s_Sfs), mode);
    sweep<Vek16u, Vek16u, Vek16u>("Div_Round_16u", with_mode(mode, veksDiv_Round_16u_Sfs), mode);
  }
}

// Divisor and dividend pairs whose scaled quotient y * 2^k / x lies 1/x from an integer or
// 1/(2x) from a half-integer without reaching it, and does not saturate: the cases where a
// floating-point quotient too narrow for the operands rounds across the boundary.
template <class TX, class TY, class TD>
void near_boundaries(int k, std::vector<TX>& xs, std::vector<TY>& ys) {
  const i128 xmax = hi_of<TX>(), ymax = hi_of<TY>();
  for (i128 x = xmax - (xmax % 2 == 0); x > xmax / 2 && xs.size() < 32; x -= 2) {
    i128 inv2k = 1;  // 2^-k modulo the odd x
    for (int i = 0; i < k; ++i) inv2k = inv2k % 2 == 0 ? inv2k / 2 : (inv2k + x) / 2;
    for (i128 target : {(x - 1) / 2, (x + 1) / 2, i128(1), x - 1}) {
      const i128 y = target * inv2k % x;  // y * 2^k = target (mod x)
      if (y > 0 && y <= ymax && ((y << k) / x) < hi_of<TD>()) {
        xs.push_back(static_cast<TX>(x));
        ys.push_back(static_cast<TY>(y));
      }
    }
  }
}

template <class TX, class TY, class TD, class F>
void sweep_near_boundaries(const char* name, F fn, int mode) {
  SCOPED_TRACE(name);
  for (int k = 1; k <= 40; ++k) {
    std::vector<TX> x;
    std::vector<TY> y;
    near_boundaries<TX, TY, TD>(k, x, y);
    std::vector<TD> d(x.size());
    if (x.empty()) continue;
    ASSERT_EQ(fn(x.data(), y.data(), d.data(), int(x.size()), -k), vekStatusOk);
    for (size_t i = 0; i < x.size(); ++i)
      ASSERT_EQ(i128(d[i]), quotient<TD>(y[i], x[i], -k, mode < 0 ? 1 : mode))
          << "k=" << k << " y=" << +y[i] << " x=" << +x[i];
  }
}

TEST(IntegerDivision, QuotientsNearRoundingBoundaries) {
  sweep_near_boundaries<Vek16s, Vek16s, Vek16s>("Div_16s", veksDiv_16s_Sfs, -1);
  sweep_near_boundaries<Vek32s, Vek32s, Vek32s>("Div_32s", veksDiv_32s_Sfs, -1);
  sweep_near_boundaries<Vek16s, Vek32s, Vek16s>("Div_32s16s", veksDiv_32s16s_Sfs, -1);
  for (int mode = 0; mode <= 2; ++mode) {
    sweep_near_boundaries<Vek16u, Vek16u, Vek16u>("Div_Round_16u",
                                                  with_mode(mode, veksDiv_Round_16u_Sfs), mode);
    sweep_near_boundaries<Vek16s, Vek16s, Vek16s>("Div_Round_16s",
                                                  with_mode(mode, veksDiv_Round_16s_Sfs), mode);
  }
}

TEST(IntegerDivision, InPlaceAndConstantFormsAgree) {
  const auto x = edge_and_random<Vek16s>(kN, 23), y = edge_and_random<Vek16s>(kN, 24);
  for (int sf : {-20, -3, 0, 2, 15}) {
    std::vector<Vek16s> d(kN), in = y, r(kN), rin = y;
    const VekStatus s = veksDiv_16s_Sfs(x.data(), y.data(), d.data(), int(kN), sf);
    EXPECT_EQ(veksDiv_16s_ISfs(x.data(), in.data(), int(kN), sf), s);
    EXPECT_EQ(in, d);
    veksDiv_Round_16s_Sfs(x.data(), y.data(), r.data(), int(kN), 2, sf);
    veksDiv_Round_16s_ISfs(x.data(), rin.data(), int(kN), 2, sf);
    EXPECT_EQ(rin, r);
    for (Vek16s val : {Vek16s(-32768), Vek16s(-3), Vek16s(7), Vek16s(32767)}) {
      std::vector<Vek16s> c(kN), cin = y;
      ASSERT_EQ(veksDivC_16s_Sfs(y.data(), val, c.data(), int(kN), sf), vekStatusOk);
      ASSERT_EQ(veksDivC_16s_ISfs(val, cin.data(), int(kN), sf), vekStatusOk);
      for (size_t i = 0; i < kN; ++i) ASSERT_EQ(i128(c[i]), quotient<Vek16s>(y[i], val, sf, 1));
      EXPECT_EQ(cin, c);
    }
  }
  const auto u = edge_and_random<Vek16u>(kN, 25);
  std::vector<Vek16u> rev(kN);
  EXPECT_EQ(veksDivCRev_16u(u.data(), 1000, rev.data(), int(kN)), vekStatusWarnZeroDivisor);
  for (size_t i = 0; i < kN; ++i) EXPECT_EQ(i128(rev[i]), quotient<Vek16u>(1000, u[i], 0, 1));
  std::vector<Vek8u> c8(kN);
  const auto b = edge_and_random<Vek8u>(kN, 26);
  ASSERT_EQ(veksDivC_8u_Sfs(b.data(), 3, c8.data(), int(kN), -2), vekStatusOk);
  for (size_t i = 0; i < kN; ++i) EXPECT_EQ(i128(c8[i]), quotient<Vek8u>(b[i], 3, -2, 1));
}

TEST(IntegerDivision, ComplexQuotients) {
  const auto r = edge_and_random<Vek16s>(4 * kN, 27);
  std::vector<Vek16sc> x(kN), y(kN);
  for (size_t i = 0; i < kN; ++i) {
    x[i] = {r[4 * i], Vek16s(r[4 * i + 1] / (i % 3 ? 1 : 4096))};
    y[i] = {r[4 * i + 2], r[4 * i + 3]};
  }
  x[3] = {0, 0};
  for (int sf = -50; sf <= 45; ++sf) {
    std::vector<Vek16sc> d(kN), c(kN);
    ASSERT_EQ(veksDiv_16sc_Sfs(x.data(), y.data(), d.data(), int(kN), sf),
              vekStatusWarnZeroDivisor);
    ASSERT_EQ(veksDivC_16sc_Sfs(y.data(), x[1], c.data(), int(kN), sf), vekStatusOk);
    for (size_t i = 0; i < kN; ++i) {
      const auto check = [&](Vek16sc got, Vek16sc xv, Vek16sc yv) {
        const i128 den = i128(xv.re) * xv.re + i128(xv.im) * xv.im;
        const i128 re = i128(yv.re) * xv.re + i128(yv.im) * xv.im;
        const i128 im = i128(yv.im) * xv.re - i128(yv.re) * xv.im;
        ASSERT_EQ(got.re,
                  den == 0 ? (yv.re < 0 ? -32768 : 32767) : quotient<Vek16s>(re, den, sf, 1))
            << "sf=" << sf << " i=" << i;
        ASSERT_EQ(got.im,
                  den == 0 ? (yv.im < 0 ? -32768 : 32767) : quotient<Vek16s>(im, den, sf, 1))
            << "sf=" << sf << " i=" << i;
      };
      check(d[i], x[i], y[i]);
      check(c[i], x[1], y[i]);
    }
  }
}

TEST(IntegerDivision, SixtyFourBitByConstant) {
  const auto x = edge_and_random<Vek64s>(kN, 28);
  for (Vek64s val :
       {Vek64s(3), Vek64s(-7), Vek64s(INT64_MIN), Vek64s(INT64_MAX), Vek64s(1) << 40}) {
    for (int sf : {-130, -63, -10, 0, 1, 5, 63, 64, 100}) {
      std::vector<Vek64s> d = x;
      ASSERT_EQ(veksDivC_64s_ISfs(val, d.data(), int(kN), sf), vekStatusOk);
      for (size_t i = 0; i < kN; ++i) {
        i128 want;
        if (sf >= 64 || x[i] == 0) {
          want = 0;  // |x| / (|val| * 2^64) is at most 1/2
        } else if (sf <= -127) {
          want = (x[i] < 0) != (val < 0) ? INT64_MIN : INT64_MAX;
        } else {
          want = quotient<Vek64s>(x[i], val, sf, 1);
        }
        ASSERT_EQ(i128(d[i]), want) << "val=" << val << " sf=" << sf << " x=" << x[i];
      }
    }
  }
  std::vector<Vek64s> z = {5, 0, -5};
  EXPECT_EQ(veksDivC_64s_ISfs(0, z.data(), 3, 0), vekStatusWarnZeroDivisor);
  EXPECT_EQ(z, (std::vector<Vek64s>{INT64_MAX, INT64_MAX, INT64_MIN}));
}

TEST(IntegerDivision, DocumentedExamplesAndStatuses) {
  const Vek16s x[3] = {2, 2, 2}, y[3] = {7, 5, -5};
  Vek16s d[3];
  const int want[3][3] = {{3, 2, -2}, {4, 2, -2}, {4, 3, -3}};
  for (int mode = 0; mode <= 2; ++mode) {
    ASSERT_EQ(veksDiv_Round_16s_Sfs(x, y, d, 3, mode, 0), vekStatusOk);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(d[i], want[mode][i]) << "mode " << mode;
  }
  const Vek16s zero[3] = {0, 0, 0}, z[3] = {0, 5, -5};
  EXPECT_EQ(veksDiv_Round_16s_Sfs(zero, z, d, 3, 1, 0), vekStatusWarnZeroDivisor);
  EXPECT_EQ(d[0], 32767);
  EXPECT_EQ(d[1], 32767);
  EXPECT_EQ(d[2], -32768);
  Guarded<Vek16s> g(3);
  EXPECT_EQ(veksDiv_Round_16s_Sfs(x, y, g.data(), 3, 3, 0), vekStatusBadRoundMode);
  EXPECT_EQ(veksDiv_Round_16s_Sfs(x, nullptr, g.data(), 3, 3, 0), vekStatusNullPtr);
  EXPECT_EQ(veksDiv_Round_16s_Sfs(x, y, g.data(), 0, 3, 0), vekStatusBadSize);
  EXPECT_EQ(veksDivC_16s_Sfs(y, 0, g.data(), 3, 0), vekStatusZeroDivisor);
  EXPECT_EQ(veksDivC_16s_Sfs(y, 0, g.data(), 0, 0), vekStatusBadSize);
  EXPECT_TRUE(g.unchanged());
}

TEST(FloatDivision, IeeeQuotientsAndWarnings) {
  for (size_t n = 1; n <= 130; n += 7) {
    std::vector<float> x(n), y(n), d(n), in(n);
    for (size_t i = 0; i < n; ++i) {
      x[i] = std::cos(float(i) * 1.7f) * 5;
      y[i] = std::sin(float(i) + 0.1f);
    }
    ASSERT_EQ(veksDiv_32f(x.data(), y.data(), d.data(), int(n)), vekStatusOk);
    for (size_t i = 0; i < n; ++i) ASSERT_EQ(d[i], y[i] / x[i]);
    x[n - 1] = -0.0f;  // a zero divisor in the masked tail
    in = y;
    ASSERT_EQ(veksDiv_32f_I(x.data(), in.data(), int(n)), vekStatusWarnZeroDivisor);
    ASSERT_TRUE(std::isinf(in[n - 1]) || std::isnan(in[n - 1]));
    ASSERT_EQ(veksDivCRev_32f(x.data(), 2.0f, d.data(), int(n)), vekStatusWarnZeroDivisor);
    for (size_t i = 0; i + 1 < n; ++i) ASSERT_EQ(d[i], 2.0f / x[i]);
    ASSERT_EQ(veksDivC_32f(y.data(), 3.0f, d.data(), int(n)), vekStatusOk);
    for (size_t i = 0; i < n; ++i) ASSERT_EQ(d[i], y[i] * (1.0f / 3.0f));  // by the reciprocal
  }
  std::vector<Vek64fc> a = {{1, 2}, {0, 0}, {-3, 0.5}, {0, -0.0}},
                       b = {{3, -1}, {1, 1}, {2, 2}, {4, 4}};
  std::vector<Vek64fc> q(4);
  EXPECT_EQ(veksDiv_64fc(a.data(), b.data(), q.data(), 4), vekStatusWarnZeroDivisor);
  for (size_t i : {0, 2}) {
    const std::complex<long double> want =
        std::complex<long double>(b[i].re, b[i].im) / std::complex<long double>(a[i].re, a[i].im);
    EXPECT_NEAR(q[i].re, double(want.real()), 4e-16);
    EXPECT_NEAR(q[i].im, double(want.imag()), 4e-16);
  }
  EXPECT_EQ(veksDiv_64fc(b.data(), a.data(), q.data(), 4), vekStatusOk);  // (1, 1) is no zero
  Guarded<float> g(4);
  const float s[4] = {1, 2, 3, 4};
  EXPECT_EQ(veksDivC_32f(s, 0.0f, g.data(), 4), vekStatusZeroDivisor);
  EXPECT_EQ(veksDivC_32fc(reinterpret_cast<const Vek32fc*>(s), Vek32fc{0, -0.0f},
                          reinterpret_cast<Vek32fc*>(g.data()), 2),
            vekStatusZeroDivisor);
  EXPECT_TRUE(g.unchanged());
  EXPECT_EQ(veksDivC_32f(s, std::nanf(""), g.data(), 4), vekStatusOk);  // NaN passes
  EXPECT_TRUE(std::isnan(g[0]));
}

class ThreadedDivision : public ::testing::Test {
 protected:
  void TearDown() override { vekSetNumThreads(saved_); }
  int saved_ = ownGetNumThreads();
};

// At n - 1 and n elements, with a zero divisor in one thread's range, one and two threads
// give identical results and the warning.
TEST_F(ThreadedDivision, SameResultsAndWarningOnEitherSideOfTheThreshold) {
  const auto check = [](auto fn, auto one, int threshold) {
    using T = std::remove_cvref_t<decltype(one)>;
    for (int len : {threshold - 1, threshold}) {
      for (int where : {0, len / 2 - 1, len / 2, len - 1}) {
        std::vector<T> x(size_t(len), one);
        std::vector<T> y(static_cast<size_t>(len));
        for (int i = 0; i < len; ++i) y[size_t(i)] = static_cast<T>(i % 100 + 1);
        x[size_t(where)] = T(0);
        std::vector<std::vector<T>> out;
        for (int threads : {1, 2}) {
          ASSERT_EQ(vekSetNumThreads(threads), vekStatusOk);
          out.emplace_back(size_t(len));
          ASSERT_EQ(fn(x.data(), y.data(), out.back().data(), len), vekStatusWarnZeroDivisor)
              << "len " << len << " zero at " << where << " threads " << threads;
        }
        ASSERT_TRUE(out[0] == out[1]);
      }
    }
  };
  check(veksDiv_32f, 3.0f, 4096);
  check(veksDiv_64f, 3.0, 1024);
  check([](auto x, auto y, auto d, int n) { return veksDiv_16s_Sfs(x, y, d, n, 1); }, Vek16s(3),
        1024);
  check([](auto x, auto y, auto d, int n) { return veksDiv_Round_8u_Sfs(x, y, d, n, 2, 0); },
        Vek8u(3), 512);
  check([](auto x, auto y, auto d, int n) { return veksDivCRev_16u(x, y[0], d, n); }, Vek16u(3),
        2048);
}

}  // namespace
