// Division: integer quotients against exact rational rounding in 128-bit integers for every scale
// factor and rounding mode, zero-divisor substitutes and warnings, floating-point quotients
// against IEEE division, error statuses, and the threaded paths at their thresholds.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "threads.hpp"
#include "veks.h"

namespace {

using namespace veks_test;

constexpr size_t kN = 77;

// round(y / x * 2^-sf) by mode, saturated; a zero divisor gives max for y >= 0, else min.
template <class TD>
i128 quotient(i128 y, i128 x, int sf, int mode = 1) {
  if (x == 0) return y < 0 ? lo_of<TD>() : hi_of<TD>();
  return ratio<TD>(x < 0 ? -y : y, x < 0 ? -x : x, sf, mode);
}

// Random and extreme operands with zero and small divisors, sf from -70 to 90; then pairs whose
// scaled quotient y * 2^k / x lies 1/x from an integer or 1/(2x) from a half-integer without
// reaching it: where a floating-point quotient too narrow for the operands rounds across. Each
// form is called as (x, y, d, n, sf).
template <class TX, class TY, class TD, class... F>
void sweep(const char* name, int mode, F... forms) {
  SCOPED_TRACE(name);
  const auto check = [&](auto fn, const std::vector<TX>& x, const std::vector<TY>& y, int sf,
                         VekStatus want) -> ::testing::AssertionResult {
    Guarded<TD> d(x.size(), 2 * sizeof(TD));
    if (fn(x.data(), y.data(), d.data(), int(x.size()), sf) != want)
      return ::testing::AssertionFailure() << "status at sf " << sf;
    for (size_t i = 0; i < x.size(); ++i)
      if (i128(d[i]) != quotient<TD>(y[i], x[i], sf, mode))
        return ::testing::AssertionFailure() << sf << ": " << +y[i] << " / " << +x[i];
    return ::testing::AssertionResult(d.guards_intact());
  };
  auto x = edge_and_random<TX>(kN, 21);
  const auto y = edge_and_random<TY>(kN, 22);
  for (size_t i : {5, 9, 12, int(kN) - 1}) x[i] = 0;
  for (TX& v : x) v = static_cast<TX>(v % 8 == 3 ? v / 1024 : v);
  for (int sf = -70; sf <= 90; sf += (sf < -45 || sf > 40 ? 5 : 1))
    for (const auto& ok : {check(forms, x, y, sf, vekStatusWarnZeroDivisor)...}) ASSERT_TRUE(ok);
  const i128 xmax = hi_of<TX>();
  for (int k = 1; k <= 40; ++k) {
    std::vector<TX> xs;
    std::vector<TY> ys;
    for (i128 xv = xmax - (xmax % 2 == 0); xv > xmax / 2 && xs.size() < 32; xv -= 2) {
      i128 inv = 1;  // 2^-k modulo the odd xv
      for (int i = 0; i < k; ++i) inv = inv % 2 == 0 ? inv / 2 : (inv + xv) / 2;
      for (i128 target : {(xv - 1) / 2, (xv + 1) / 2, i128(1), xv - 1}) {
        const i128 yv = target * inv % xv;  // yv * 2^k = target (mod xv)
        if (yv > 0 && yv <= hi_of<TY>() && ((yv << k) / xv) < hi_of<TD>())
          xs.push_back(TX(xv)), ys.push_back(TY(yv));
      }
    }
    if (xs.empty()) continue;
    for (const auto& ok : {check(forms, xs, ys, -k, vekStatusOk)...}) ASSERT_TRUE(ok);
  }
}

// The out-of-place and the in-place form of a member; the extra arguments go before sf.
#define FORMS(T, name, ...)                                                              \
  sweep<Vek##T, Vek##T, Vek##T>(                                                         \
      #name #T, mode,                                                                    \
      [=](auto x, auto y, auto d, int n, int sf) {                                       \
        return veks##name##_##T##_Sfs(x, y, d, n, __VA_ARGS__ sf);                       \
      },                                                                                 \
      [=](auto x, auto y, auto d, int n, int sf) {                                       \
        return std::copy(y, y + n, d), veks##name##_##T##_ISfs(x, d, n, __VA_ARGS__ sf); \
      })

TEST(IntegerDivision, QuotientsAreExactlyRoundedForEveryScaleFactor) {
  int mode = 1;
  FORMS(8u, Div), FORMS(16s, Div), FORMS(16u, Div), FORMS(32s, Div);
  sweep<Vek16s, Vek32s, Vek16s>("Div_32s16s", mode, veksDiv_32s16s_Sfs);
  for (mode = 0; mode <= 2; ++mode)
    FORMS(8u, Div_Round, mode, ), FORMS(16s, Div_Round, mode, ), FORMS(16u, Div_Round, mode, );
}
#undef FORMS

// Constants and complex quotients, exact.
TEST(IntegerDivision, ConstantAndComplexForms) {
  const auto y = edge_and_random<Vek16s>(kN, 24);
  const auto u = edge_and_random<Vek16u>(kN, 25);
  const auto b = edge_and_random<Vek8u>(kN, 26);
  for (int sf : {-20, -3, 0, 2, 15}) {
    for (Vek16s val : {-32768, -3, 7, 32767}) {
      std::vector<Vek16s> c(kN), cin = y;
      ASSERT_EQ(veksDivC_16s_Sfs(y.data(), val, c.data(), int(kN), sf) |
                    veksDivC_16s_ISfs(val, cin.data(), int(kN), sf),
                vekStatusOk);
      for (size_t i = 0; i < kN; ++i) ASSERT_EQ(i128(c[i]), quotient<Vek16s>(y[i], val, sf));
      EXPECT_EQ(cin, c);
    }
    std::vector<Vek16u> rev(kN);
    std::vector<Vek8u> c8(kN);
    EXPECT_EQ(veksDivCRev_16u(u.data(), Vek16u(1000 + sf), rev.data(), int(kN)),
              vekStatusWarnZeroDivisor);
    ASSERT_EQ(veksDivC_8u_Sfs(b.data(), 3, c8.data(), int(kN), sf / 4), vekStatusOk);
    for (size_t i = 0; i < kN; ++i)
      EXPECT_TRUE(rev[i] == quotient<Vek16u>(1000 + sf, u[i], 0) &&
                  c8[i] == quotient<Vek8u>(b[i], 3, sf / 4));
  }
  // Complex: ((ac + bd) + (bc - ad)i) / (c^2 + d^2), each part exact; the divisor (0, 0) gives
  // each part's substitute.
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
        const i128 re = den ? i128(yv.re) * xv.re + i128(yv.im) * xv.im : yv.re,
                   im = den ? i128(yv.im) * xv.re - i128(yv.re) * xv.im : yv.im;
        ASSERT_TRUE(got.re == quotient<Vek16s>(re, den, sf) &&
                    got.im == quotient<Vek16s>(im, den, sf))
            << "sf " << sf << " i " << i;
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
  std::vector<Vek64s> z = {5, 0, -5};  // the one constant form that stores substitutes
  EXPECT_EQ(veksDivC_64s_ISfs(0, z.data(), 3, 0), vekStatusWarnZeroDivisor);
  EXPECT_EQ(z, (std::vector<Vek64s>{INT64_MAX, INT64_MAX, INT64_MIN}));
}

// IEEE quotients at lengths through every tail, a zero divisor in the masked tail; constants by
// the reciprocal; complex quotients near the long-double ones.
TEST(FloatDivision, IeeeQuotientsAndWarnings) {
  for (size_t n = 1; n <= 130; n += 7) {
    std::vector<float> x(n), y(n), d(n), in(n);
    for (size_t i = 0; i < n; ++i)
      x[i] = std::cos(float(i) * 1.7f) * 5, y[i] = std::sin(float(i) + 0.1f);
    ASSERT_EQ(veksDiv_32f(x.data(), y.data(), d.data(), int(n)), vekStatusOk);
    for (size_t i = 0; i < n; ++i) ASSERT_EQ(d[i], y[i] / x[i]);
    x[n - 1] = -0.0f;
    in = y;
    ASSERT_EQ(veksDiv_32f_I(x.data(), in.data(), int(n)), vekStatusWarnZeroDivisor);
    ASSERT_TRUE(std::isinf(in[n - 1]) || std::isnan(in[n - 1]));
    ASSERT_EQ(veksDivCRev_32f(x.data(), 2.0f, d.data(), int(n)), vekStatusWarnZeroDivisor);
    for (size_t i = 0; i + 1 < n; ++i) ASSERT_EQ(d[i], 2.0f / x[i]);
    ASSERT_EQ(veksDivC_32f(y.data(), 3.0f, d.data(), int(n)), vekStatusOk);
    for (size_t i = 0; i < n; ++i) ASSERT_EQ(d[i], y[i] * (1.0f / 3.0f));
  }
  const std::vector<Vek64fc> a = {{1, 2}, {0, 0}, {-3, 0.5}, {0, -0.0}},
                             b = {{3, -1}, {1, 1}, {2, 2}, {4, 4}};
  std::vector<Vek64fc> q(4);
  EXPECT_EQ(veksDiv_64fc(a.data(), b.data(), q.data(), 4), vekStatusWarnZeroDivisor);
  for (size_t i : {0, 2}) {
    const auto want = std::complex<LD>(b[i].re, b[i].im) / std::complex<LD>(a[i].re, a[i].im);
    EXPECT_TRUE(std::fabs(q[i].re - want.real()) < 4e-16 &&
                std::fabs(q[i].im - want.imag()) < 4e-16);
  }
  EXPECT_EQ(veksDiv_64fc(b.data(), a.data(), q.data(), 4), vekStatusOk);  // (1, 1) is no zero
}

// A bad rounding mode and a zero constant are errors: nothing is written.
TEST(Division, ErrorStatuses) {
  const Vek16s x[3] = {2, 2, 2}, y[3] = {7, 5, -5};
  const float s[4] = {1, 2, 3, 4};
  Guarded<float> g(4);
  const auto d = reinterpret_cast<Vek16s*>(g.data());
  EXPECT_EQ(veksDiv_Round_16s_Sfs(x, y, d, 3, 3, 0), vekStatusBadRoundMode);
  EXPECT_EQ(veksDivC_16s_Sfs(y, 0, d, 3, 0), vekStatusZeroDivisor);
  EXPECT_EQ(veksDivC_32f(s, 0.0f, g.data(), 4), vekStatusZeroDivisor);
  EXPECT_EQ(veksDivC_32fc(reinterpret_cast<const Vek32fc*>(s), Vek32fc{0, -0.0f},
                          reinterpret_cast<Vek32fc*>(g.data()), 2),
            vekStatusZeroDivisor);
  EXPECT_TRUE(g.unchanged());
  EXPECT_EQ(veksDivC_32f(s, std::nanf(""), g.data(), 4), vekStatusOk);  // a NaN is no zero
  EXPECT_TRUE(std::isnan(g[0]));
}

// At threshold - 1 and threshold elements, with the zero divisor in the first range or only in
// the last one: one and two threads give the same bytes and the warning.
template <class T, class F>
void split_equals_serial(F fn, T one, int threshold) {
  const TwoThreads restore;
  for (int len : {threshold - 1, threshold})
    for (int where : {0, len - 1}) {
      std::vector<T> x(size_t(len), one), y(x.size()), out[2] = {y, y};
      fill_bytes(y.data(), y.size() * sizeof(T), uint64_t(len));
      x[size_t(where)] = T{};
      for (int t : {1, 2}) {
        ASSERT_EQ(vekSetNumThreads(t), vekStatusOk);
        ASSERT_EQ(fn(x.data(), y.data(), out[t - 1].data(), len), vekStatusWarnZeroDivisor)
            << "len " << len << " zero at " << where << " threads " << t;
      }
      ASSERT_EQ(std::memcmp(out[0].data(), out[1].data(), y.size() * sizeof(T)), 0)
          << "len " << len << " zero at " << where;
    }
}

TEST(Division, ThreadedMembersEqualSerialOnEitherSideOfTheThreshold) {
  split_equals_serial(veksDiv_32f, 3.0f, 4096);
  split_equals_serial(veksDiv_64f, 3.0, 1024);
  split_equals_serial([](auto x, auto y, auto d, int n) { return veksDiv_16s_Sfs(x, y, d, n, 1); },
                      Vek16s(3), 1024);
  split_equals_serial(
      [](auto x, auto y, auto d, int n) { return veksDiv_Round_8u_Sfs(x, y, d, n, 2, 0); },
      Vek8u(3), 512);
  split_equals_serial([](auto x, auto y, auto d, int n) { return veksDivCRev_16u(x, y[0], d, n); },
                      Vek16u(3), 2048);
  split_equals_serial(
      [](auto x, auto y, auto d, int n) { return veksDiv_16sc_Sfs(x, y, d, n, -3); },
      Vek16sc{3, -1}, 1024);
}

}  // namespace
