// Polar conversion: CartToPolar bit for bit equal to Magnitude and Phase; PolarToCart against
// long-double cosl/sinl (which reduce huge arguments exactly) on moderate, large and huge phases,
// split and interleaved forms equal, special values.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;
using veks_test::LD;
using veks_test::Rng;
using veks_test::same_bits;

// The binary32 or binary64 member, by F; the relative bound of PolarToCart.
#define PICK2(f32, f64) (std::get < std::is_same_v<F, float> ? 0 : 1 > (std::tuple(&f32, &f64)))
#define PICK(name, ...) PICK2(veks##name##_32f##__VA_ARGS__, veks##name##_64f##__VA_ARGS__)
template <class F>
constexpr LD kBound = sizeof(F) == 4 ? 0x1p-22L : 0x1p-50L;
template <class F>
using Cplx = std::conditional_t<std::is_same_v<F, float>, Vek32fc, Vek64fc>;

template <class F>
class PolarTest : public ::testing::Test {};
using Types = ::testing::Types<float, double>;
TYPED_TEST_SUITE(PolarTest, Types);

template <class F>
bool same_values(const F* a, const F* b, int n) {
  return std::memcmp(a, b, n * sizeof(F)) == 0;
}

// Every length 1..130: both CartToPolar forms store exactly what Magnitude and Phase store, also
// with the destinations being the source vectors themselves.
TYPED_TEST(PolarTest, CartToPolarIsMagnitudeAndPhase) {
  using F = TypeParam;
  using C = Cplx<F>;
  Rng rng{50};
  const F specials[] = {0, F(-0.0), F(HUGE_VAL), F(-HUGE_VAL), F(NAN), 1};
  for (int len = 1; len <= 130; ++len) {
    Guarded<F> re(len, (len % 8) * sizeof(F)), im(len), m1(len, sizeof(F)), p1(len), m2(len),
        p2(len), m3(len), p3(len);
    Guarded<C> z(len, (len % 4) * sizeof(F));
    for (int i = 0; i < len; ++i) {
      re[i] = rng.next() % 10 ? rng.wide<F>(-140, 120) : specials[rng.next() % 6];
      im[i] = rng.next() % 10 ? rng.wide<F>(-140, 120) : specials[rng.next() % 6];
      z[i] = C{re[i], im[i]};
    }
    ASSERT_EQ(PICK(CartToPolar)(re.data(), im.data(), m1.data(), p1.data(), len), vekStatusOk);
    ASSERT_EQ(PICK(CartToPolar, c)(z.data(), m2.data(), p2.data(), len), vekStatusOk);
    ASSERT_EQ(PICK(Magnitude)(re.data(), im.data(), m3.data(), len), vekStatusOk);
    ASSERT_EQ(PICK(Phase)(re.data(), im.data(), p3.data(), len), vekStatusOk);
    ASSERT_TRUE(same_values(m1.data(), m3.data(), len) && same_values(m2.data(), m3.data(), len));
    ASSERT_TRUE(same_values(p1.data(), p3.data(), len) && same_values(p2.data(), p3.data(), len));
    ASSERT_TRUE(m1.guards_intact() && p1.guards_intact() && m2.guards_intact() &&
                p2.guards_intact());
    ASSERT_EQ(PICK(CartToPolar)(re.data(), im.data(), re.data(), im.data(), len), vekStatusOk);
    ASSERT_TRUE(same_values(re.data(), m3.data(), len) && same_values(im.data(), p3.data(), len));
  }
  const C z[2] = {{0, 2}, {-1, F(-0.0)}};
  F m[2], p[2];
  ASSERT_EQ(PICK(CartToPolar, c)(z, m, p, 2), vekStatusOk);
  EXPECT_TRUE(m[0] == 2 && p[0] == F(1.5707963267948966L) && m[1] == 1 &&
              p[1] == F(-3.14159265358979323846L));
}

// Phases up to 2^k for growing k, including 1e6, 1e15 and the largest finite values, random
// magnitudes of either sign: both parts within the bound times |r| of the long-double product;
// split and interleaved results identical.
TYPED_TEST(PolarTest, PolarToCartWithinBoundForEveryFinitePhase) {
  using F = TypeParam;
  using C = Cplx<F>;
  Rng rng{51};
  constexpr int emax = std::numeric_limits<F>::max_exponent - 1;
  std::vector<F> phases = {std::numeric_limits<F>::max(), -std::numeric_limits<F>::max(),
                           std::numeric_limits<F>::denorm_min()};
  for (double v :
       {1e6, -1e6, 1e15, 1.5707963267948966, 3.141592653589793, -0.0, 0.0, 0x1p30, 0x1.fffffp29})
    phases.push_back(static_cast<F>(v));
  for (int k = -30; k <= emax; ++k)
    for (int j = 0; j < 40; ++j) phases.push_back(rng.wide<F>(k, k));
  for (int j = 0; j < 4000; ++j) phases.push_back(static_cast<F>((rng.unit() - 0.5) * 20));
  const int len = static_cast<int>(phases.size());
  Guarded<F> r(len, sizeof(F)), re(len, 2 * sizeof(F)), im(len), ph(len);
  Guarded<C> z(len, sizeof(F));
  for (int i = 0; i < len; ++i) {
    r[i] = i % 7 == 0 ? F(1) : rng.wide<F>(-20, 20);
    ph[i] = phases[i];
  }
  ASSERT_EQ(PICK(PolarToCart)(r.data(), ph.data(), re.data(), im.data(), len), vekStatusOk);
  ASSERT_EQ((std::get < std::is_same_v<F, float>
                 ? 0
                 : 1 > (std::tuple(&veksPolarToCart_32f32fc, &veksPolarToCart_64f64fc)))(
                r.data(), ph.data(), z.data(), len),
            vekStatusOk);
  ASSERT_TRUE(re.guards_intact() && im.guards_intact() && z.guards_intact());
  LD worst = 0;
  for (int i = 0; i < len; ++i) {
    const LD a = r[i], t = ph[i];
    const LD ec = std::fabs(re[i] - a * std::cos(t)) / std::fabs(a);
    const LD es = std::fabs(im[i] - a * std::sin(t)) / std::fabs(a);
    worst = std::max({worst, ec, es});
    ASSERT_TRUE(ec <= kBound<F> && es <= kBound<F>)
        << "r " << r[i] << ", phase " << ph[i] << ": " << re[i] << ", " << im[i];
    ASSERT_TRUE(same_bits(z[i].re, re[i]) && same_bits(z[i].im, im[i])) << ph[i];
  }
  ::testing::Test::RecordProperty("worst_relative",
                                  testing::PrintToString(static_cast<double>(worst)));
  // Every length 1..130 through both forms, in place on the source vectors as well.
  for (int n = 1; n <= 130; ++n) {
    Guarded<F> a(n, (n % 8) * sizeof(F)), b(n), x(n), y(n);
    Guarded<C> c(n, sizeof(F));
    for (int i = 0; i < n; ++i) {
      a[i] = rng.wide<F>(-3, 3);
      b[i] = static_cast<F>(rng.unit() * 7 - 3.5);
    }
    ASSERT_EQ(PICK(PolarToCart)(a.data(), b.data(), x.data(), y.data(), n), vekStatusOk);
    ASSERT_EQ((std::get < std::is_same_v<F, float>
                   ? 0
                   : 1 > (std::tuple(&veksPolarToCart_32f32fc, &veksPolarToCart_64f64fc)))(
                  a.data(), b.data(), c.data(), n),
              vekStatusOk);
    for (int i = 0; i < n; ++i) ASSERT_TRUE(same_bits(c[i].re, x[i]) && same_bits(c[i].im, y[i]));
    ASSERT_TRUE(x.guards_intact() && y.guards_intact() && c.guards_intact());
    ASSERT_EQ(PICK(PolarToCart)(a.data(), b.data(), a.data(), b.data(), n), vekStatusOk);
    ASSERT_TRUE(same_values(a.data(), x.data(), n) && same_values(b.data(), y.data(), n));
  }
}

// Round trip: CartToPolar then PolarToCart returns z within 4 * bound * |z| (binary32: the
// documented 4 * 2^-22).
TYPED_TEST(PolarTest, RoundTrip) {
  using F = TypeParam;
  Rng rng{52};
  const int len = 5000;
  std::vector<F> re(len), im(len), m(len), p(len), x(len), y(len);
  for (int i = 0; i < len; ++i) {
    re[i] = rng.wide<F>(-30, 30);
    im[i] = rng.wide<F>(-30, 30);
  }
  ASSERT_EQ(PICK(CartToPolar)(re.data(), im.data(), m.data(), p.data(), len), vekStatusOk);
  ASSERT_EQ(PICK(PolarToCart)(m.data(), p.data(), x.data(), y.data(), len), vekStatusOk);
  for (int i = 0; i < len; ++i) {
    const LD mag = std::hypot(static_cast<LD>(re[i]), static_cast<LD>(im[i]));
    const LD tol = 4 * kBound<F> * mag;
    ASSERT_LE(std::fabs(x[i] - static_cast<LD>(re[i])), tol) << re[i] << " " << im[i];
    ASSERT_LE(std::fabs(y[i] - static_cast<LD>(im[i])), tol) << re[i] << " " << im[i];
  }
}

// Non-finite phases give NaN in both parts; an infinite magnitude multiplies the computed cosine
// and sine (NaN where one is exactly 0); a zero magnitude gives signed zeros.
TYPED_TEST(PolarTest, SpecialValues) {
  using F = TypeParam;
  const F inf = std::numeric_limits<F>::infinity(), nan = std::numeric_limits<F>::quiet_NaN();
  const F r[] = {1, -2, 1, inf, -inf, inf, 0, 2};
  const F ph[] = {inf, -inf, nan, 0, F(0.5), F(-0.0), F(2), F(1.5707963267948966)};
  F re[8], im[8];
  ASSERT_EQ(PICK(PolarToCart)(r, ph, re, im, 8), vekStatusOk);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(std::isnan(re[i]) && std::isnan(im[i])) << i;
  EXPECT_TRUE(re[3] == inf && std::isnan(im[3]));
  EXPECT_TRUE(re[4] == -inf && im[4] == -inf);
  EXPECT_TRUE(re[5] == inf && std::isnan(im[5]));
  EXPECT_TRUE(same_bits(re[6], F(-0.0)) && same_bits(im[6], F(0)));
  EXPECT_LE(std::fabs(re[7]), 2 * kBound<F>);
  EXPECT_EQ(im[7], 2);
}

}  // namespace
