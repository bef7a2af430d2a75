// Division: integer quotients against exact rational rounding in 128-bit integers for every scale
// factor and rounding mode, zero-divisor substitutes and warnings, floating-point quotients
// against IEEE division, and the threaded paths at their thresholds.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "vekcore.h"
#include "veks.h"

namespace {

using veks_test::edge_and_random;
using veks_test::i128;

constexpr size_t kN = 77;

// round(y / x * 2^-sf) by mode, saturated; a zero divisor gives max for y >= 0, else min.
template <class TD>
i128 quotient(i128 y, i128 x, int sf, int mode = 1) {
  if (x == 0) return y < 0 ? veks_test::lo_of<TD>() : veks_test::hi_of<TD>();
  return veks_test::ratio<TD>(x < 0 ? -y : y, x < 0 ? -x : x, sf, mode);
}

template <class T>
auto with_mode(int mode, VekStatus (*f)(const T*, const T*, T*, int, int, int)) {
  return [=](const T* x, const T* y, T* d, int n, int sf) { return f(x, y, d, n, mode, sf); };
}

// Random and extreme operands with zero and small divisors, sf from -70 to 90; then pairs whose
// scaled quotient y * 2^k / x lies 1/x from an integer or 1/(2x) from a half-integer without
// reaching it: where a floating-point quotient too narrow for the operands rounds across.
template <class TX, class TY, class TD, class F>
void sweep(const char* name, F fn, int mode = 1) {
  SCOPED_TRACE(name);
  auto x = edge_and_random<TX>(kN, 21);
  const auto y = edge_and_random<TY>(kN, 22);
  for (size_t i : {5, 9, 12, int(kN) - 1}) x[i] = 0;
  for (TX& v : x) v = static_cast<TX>(v % 8 == 3 ? v / 1024 : v);
  for (int sf = -70; sf <= 90; sf += (sf < -45 || sf > 40 ? 5 : 1)) {
    veks_test::Guarded<TD> d(kN, 2 * sizeof(TD));
    ASSERT_EQ(fn(x.data(), y.data(), d.data(), int(kN), sf), vekStatusWarnZeroDivisor);
    for (size_t i = 0; i < kN; ++i)
      ASSERT_EQ(i128(d[i]), quotient<TD>(y[i], x[i], sf, mode))
          << sf << " " << +y[i] << " " << +x[i];
    ASSERT_TRUE(d.guards_intact());
  }
  const i128 xmax = veks_test::hi_of<TX>();
  for (int k = 1; k <= 40; ++k) {
    std::vector<TX> xs;
    std::vector<TY> ys;
    for (i128 xv = xmax - (xmax % 2 == 0); xv > xmax / 2 && xs.size() < 32; xv -= 2) {
      i128 inv = 1;  // 2^-k modulo the odd xv
      for (int i = 0; i < k; ++i) inv = inv % 2 == 0 ? inv / 2 : (inv + xv) / 2;
      for (i128 target : {(xv - 1) / 2, (xv + 1) / 2, i128(1), xv - 1}) {
        const i128 yv = target * inv % xv;  // yv * 2^k = target (mod xv)
        if (yv > 0 && yv <= veks_test::hi_of<TY>() && ((yv << k) / xv) < veks_test::hi_of<TD>())
          xs.push_back(TX(xv)), ys.push_back(TY(yv));
      }
    }
    std::vector<TD> d(xs.size());
    if (xs.empty()) continue;
    ASSERT_EQ(fn(xs.data(), ys.data(), d.data(), int(xs.size()), -k), vekStatusOk);
    for (size_t i = 0; i < xs.size(); ++i)
      ASSERT_EQ(i128(d[i]), quotient<TD>(ys[i], xs[i], -k, mode)) << k << " " << +ys[i];
  }
}

TEST(IntegerDivision, QuotientsAreExactlyRoundedForEveryScaleFactor) {
#define DIV(S, D) sweep<Vek##S, Vek##D, Vek##D>("Div_" #D, veksDiv_##D##_Sfs)
  DIV(8u, 8u), DIV(16s, 16s), DIV(16u, 16u), DIV(32s, 32s);
  sweep<Vek16s, Vek32s, Vek16s>("Div_32s16s", veksDiv_32s16s_Sfs);
#define ROUND(T) \
  sweep<Vek##T, Vek##T, Vek##T>("Div_Round_" #T, with_mode(m, veksDiv_Round_##T##_Sfs), m)
  for (int m = 0; m <= 2; ++m) ROUND(8u), ROUND(16s), ROUND(16u);
#undef DIV
#undef ROUND
}

TEST(IntegerDivision, InPlaceConstantAndComplexForms) {
  const auto x = edge_and_random<Vek16s>(kN, 23), y = edge_and_random<Vek16s>(kN, 24);
  for (int sf : {-20, -3, 0, 2, 15}) {
    std::vector<Vek16s> d(kN), in = y, r(kN), rin = y;
    EXPECT_EQ(veksDiv_16s_ISfs(x.data(), in.data(), int(kN), sf),
              veksDiv_16s_Sfs(x.data(), y.data(), d.data(), int(kN), sf));
    veksDiv_Round_16s_Sfs(x.data(), y.data(), r.data(), int(kN), 2, sf);
    veksDiv_Round_16s_ISfs(x.data(), rin.data(), int(kN), 2, sf);
    EXPECT_TRUE(in == d && rin == r);
    for (Vek16s val : {-32768, -3, 7, 32767}) {
      std::vector<Vek16s> c(kN), cin = y;
      ASSERT_EQ(veksDivC_16s_Sfs(y.data(), val, c.data(), int(kN), sf) |
                    veksDivC_16s_ISfs(val, cin.data(), int(kN), sf),
                vekStatusOk);
      for (size_t i = 0; i < kN; ++i) ASSERT_EQ(i128(c[i]), quotient<Vek16s>(y[i], val, sf));
      EXPECT_EQ(cin, c);
    }
  }
  const auto u = edge_and_random<Vek16u>(kN, 25);
  const auto b = edge_and_random<Vek8u>(kN, 26);
  std::vector<Vek16u> rev(kN);
  std::vector<Vek8u> c8(kN);
  EXPECT_EQ(veksDivCRev_16u(u.data(), 1000, rev.data(), int(kN)), vekStatusWarnZeroDivisor);
  ASSERT_EQ(veksDivC_8u_Sfs(b.data(), 3, c8.data(), int(kN), -2), vekStatusOk);
  for (size_t i = 0; i < kN; ++i)
    EXPECT_TRUE(rev[i] == quotient<Vek16u>(1000, u[i], 0) && c8[i] == quotient<Vek8u>(b[i], 3, -2));
  // Complex: ((ac + bd) + (bc - ad)i) / (c^2 + d^2), each part exact; zero divisor: both parts 0.
  const auto r4 = edge_and_random<Vek16s>(4 * kN, 27);
  std::vector<Vek16sc> cx(kN), cy(kN);
  for (size_t i = 0; i < kN; ++i)
    cx[i] = {r4[4 * i], Vek16s(r4[4 * i + 1] / (i % 3 ? 1 : 4096))},
    cy[i] = {r4[4 * i + 2], r4[4 * i + 3]};
  cx[3] = {0, 0};
  for (int sf = -50; sf <= 45; ++sf) {
    std::vector<Vek16sc> d(kN), c(kN);
    ASSERT_EQ(veksDiv_16sc_Sfs(cx.data(), cy.data(), d.data(), int(kN), sf),
              vekStatusWarnZeroDivisor);
    ASSERT_EQ(veksDivC_16sc_Sfs(cy.data(), cx[1], c.data(), int(kN), sf), vekStatusOk);
    for (size_t i = 0; i < kN; ++i)
      for (auto [got, xv] : {std::pair{d[i], cx[i]}, {c[i], cx[1]}}) {
        const Vek16sc yv = cy[i];
        const i128 den = i128(xv.re) * xv.re + i128(xv.im) * xv.im;
        const i128 re = i128(yv.re) * xv.re + i128(yv.im) * xv.im,
                   im = i128(yv.im) * xv.re - i128(yv.re) * xv.im;
        ASSERT_TRUE(got.re ==
                        (den ? quotient<Vek16s>(re, den, sf) : quotient<Vek16s>(yv.re, 0, 0)) &&
                    got.im == (den ? quotient<Vek16s>(im, den, sf) : quotient<Vek16s>(yv.im, 0, 0)))
            << "sf=" << sf << " i=" << i;
      }
  }
}

TEST(IntegerDivision, SixtyFourBitByConstant) {
  const auto x = edge_and_random<Vek64s>(kN, 28);
  for (Vek64s val : {Vek64s(3), Vek64s(-7), Vek64s(INT64_MIN), Vek64s(INT64_MAX), Vek64s(1) << 40})
    for (int sf : {-130, -63, -10, 0, 1, 5, 63, 64, 100}) {
      std::vector<Vek64s> d = x;
      ASSERT_EQ(veksDivC_64s_ISfs(val, d.data(), int(kN), sf), vekStatusOk);
      for (size_t i = 0; i < kN; ++i) {
        const i128 want = sf >= 64 || x[i] == 0 ? 0  // |x| / (|val| 2^64) is at most 1/2
                          : sf <= -127          ? ((x[i] < 0) != (val < 0) ? INT64_MIN : INT64_MAX)
                                                : quotient<Vek64s>(x[i], val, sf);
        ASSERT_EQ(i128(d[i]), want) << "val=" << val << " sf=" << sf << " x=" << x[i];
      }
    }
  std::vector<Vek64s> z = {5, 0, -5};
  EXPECT_EQ(veksDivC_64s_ISfs(0, z.data(), 3, 0), vekStatusWarnZeroDivisor);
  EXPECT_EQ(z, (std::vector<Vek64s>{INT64_MAX, INT64_MAX, INT64_MIN}));
}

// A bad rounding mode and a zero constant are errors: nothing is written.
TEST(IntegerDivision, ErrorStatuses) {
  const Vek16s x[3] = {2, 2, 2}, y[3] = {7, 5, -5};
  veks_test::Guarded<Vek16s> g(3);
  EXPECT_EQ(veksDiv_Round_16s_Sfs(x, y, g.data(), 3, 3, 0), vekStatusBadRoundMode);
  EXPECT_EQ(veksDivC_16s_Sfs(y, 0, g.data(), 3, 0), vekStatusZeroDivisor);
  EXPECT_TRUE(g.unchanged());
}

TEST(FloatDivision, IeeeQuotientsAndWarnings) {
  for (size_t n = 1; n <= 130; n += 7) {
    std::vector<float> x(n), y(n), d(n), in(n);
    for (size_t i = 0; i < n; ++i)
      x[i] = std::cos(float(i) * 1.7f) * 5, y[i] = std::sin(float(i) + 0.1f);
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
  const std::vector<Vek64fc> a = {{1, 2}, {0, 0}, {-3, 0.5}, {0, -0.0}},
                             b = {{3, -1}, {1, 1}, {2, 2}, {4, 4}};
  std::vector<Vek64fc> q(4);
  EXPECT_EQ(veksDiv_64fc(a.data(), b.data(), q.data(), 4), vekStatusWarnZeroDivisor);
  for (size_t i : {0, 2}) {
    const auto want =
        std::complex<long double>(b[i].re, b[i].im) / std::complex<long double>(a[i].re, a[i].im);
    EXPECT_TRUE(std::fabs(q[i].re - want.real()) < 4e-16 &&
                std::fabs(q[i].im - want.imag()) < 4e-16);
  }
  EXPECT_EQ(veksDiv_64fc(b.data(), a.data(), q.data(), 4), vekStatusOk);  // (1, 1) is no zero
  veks_test::Guarded<float> g(4);
  const float s[4] = {1, 2, 3, 4};
  EXPECT_EQ(veksDivC_32f(s, 0.0f, g.data(), 4), vekStatusZeroDivisor);
  EXPECT_EQ(veksDivC_32fc(reinterpret_cast<const Vek32fc*>(s), Vek32fc{0, -0.0f},
                          reinterpret_cast<Vek32fc*>(g.data()), 2),
            vekStatusZeroDivisor);
  EXPECT_TRUE(g.unchanged());
  EXPECT_EQ(veksDivC_32f(s, std::nanf(""), g.data(), 4), vekStatusOk);  // NaN passes
  EXPECT_TRUE(std::isnan(g[0]));
}

// At n - 1 and n elements with a zero divisor in one thread's range, one and two threads give
// identical results and the warning.
TEST(FloatDivision, ThreadedMembersEqualSerialOnEitherSideOfTheThreshold) {
  const int saved = ownGetNumThreads();
  const auto check = [](auto fn, auto one, int threshold) {
    using T = std::remove_cvref_t<decltype(one)>;
    for (int len : {threshold - 1, threshold})
      for (int where : {0, len / 2 - 1, len / 2, len - 1}) {
        std::vector<T> x(size_t(len), one), y(x.size());
        for (int i = 0; i < len; ++i) y[size_t(i)] = static_cast<T>(i % 100 + 1);
        x[size_t(where)] = T(0);
        std::vector<T> out[2] = {std::vector<T>(size_t(len)), std::vector<T>(size_t(len))};
        for (int t : {1, 2}) {
          ASSERT_EQ(vekSetNumThreads(t), vekStatusOk);
          ASSERT_EQ(fn(x.data(), y.data(), out[t - 1].data(), len), vekStatusWarnZeroDivisor)
              << "len " << len << " zero at " << where << " threads " << t;
        }
        ASSERT_TRUE(out[0] == out[1]) << "len " << len << " zero at " << where;
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
  vekSetNumThreads(saved);
}

}  // namespace
