// Polar conversion: CartToPolar bit for bit equal to Magnitude and Phase; PolarToCart against
// long-double cosl/sinl (which reduce huge arguments exactly) on moderate, large and huge phases,
// split and interleaved forms equal, special values.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;
using veks_test::LD;
using veks_test::Rng;
using veks_test::same_bits;

template <class F>
struct Polar;
template <>
struct Polar<float> {
  using C = Vek32fc;
  static constexpr auto to_polar = veksCartToPolar_32f;
  static constexpr auto to_polar_c = veksCartToPolar_32fc;
  static constexpr auto magn = veksMagnitude_32f;
  static constexpr auto phase = veksPhase_32f;
  static constexpr auto to_cart = veksPolarToCart_32f;
  static constexpr auto to_cart_c = veksPolarToCart_32f32fc;
  static constexpr LD bound = 0x1p-22L;
};
template <>
struct Polar<double> {
  using C = Vek64fc;
  static constexpr auto to_polar = veksCartToPolar_64f;
  static constexpr auto to_polar_c = veksCartToPolar_64fc;
  static constexpr auto magn = veksMagnitude_64f;
  static constexpr auto phase = veksPhase_64f;
  static constexpr auto to_cart = veksPolarToCart_64f;
  static constexpr auto to_cart_c = veksPolarToCart_64f64fc;
  static constexpr LD bound = 0x1p-50L;
};

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
  using P = Polar<F>;
  using C = typename P::C;
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
    ASSERT_EQ(P::to_polar(re.data(), im.data(), m1.data(), p1.data(), len), vekStatusOk);
    ASSERT_EQ(P::to_polar_c(z.data(), m2.data(), p2.data(), len), vekStatusOk);
    ASSERT_EQ(P::magn(re.data(), im.data(), m3.data(), len), vekStatusOk);
    ASSERT_EQ(P::phase(re.data(), im.data(), p3.data(), len), vekStatusOk);
    ASSERT_TRUE(same_values(m1.data(), m3.data(), len) && same_values(m2.data(), m3.data(), len));
    ASSERT_TRUE(same_values(p1.data(), p3.data(), len) && same_values(p2.data(), p3.data(), len));
    ASSERT_TRUE(m1.guards_intact() && p1.guards_intact() && m2.guards_intact() &&
                p2.guards_intact());
    ASSERT_EQ(P::to_polar(re.data(), im.data(), re.data(), im.data(), len), vekStatusOk);
    ASSERT_TRUE(same_values(re.data(), m3.data(), len) && same_values(im.data(), p3.data(), len));
  }
  const C z[2] = {{0, 2}, {-1, F(-0.0)}};
  F m[2], p[2];
  ASSERT_EQ(P::to_polar_c(z, m, p, 2), vekStatusOk);
  EXPECT_TRUE(m[0] == 2 && p[0] == F(1.5707963267948966L) && m[1] == 1 &&
              p[1] == F(-3.14159265358979323846L));
}

// Phases up to 2^k for growing k, including 1e6, 1e15 and the largest finite values, random
// magnitudes of either sign: both parts within the bound times |r| of the long-double product;
// split and interleaved results identical.
TYPED_TEST(PolarTest, PolarToCartWithinBoundForEveryFinitePhase) {
  using F = TypeParam;
  using P = Polar<F>;
  using C = typename P::C;
  Rng rng{51};
  constexpr int emax = std::numeric_limits<F>::max_exponent - 1;
  std::vector<F> phases = {F(1e6),
                           F(-1e6),
                           F(1e15),
                           F(1.5707963267948966),
                           F(3.141592653589793),
                           F(-0.0),
                           0,
                           std::numeric_limits<F>::max(),
                           -std::numeric_limits<F>::max(),
                           std::numeric_limits<F>::denorm_min(),
                           F(0x1p30),
                           F(0x1.fffffp29)};
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
  ASSERT_EQ(P::to_cart(r.data(), ph.data(), re.data(), im.data(), len), vekStatusOk);
  ASSERT_EQ(P::to_cart_c(r.data(), ph.data(), z.data(), len), vekStatusOk);
  ASSERT_TRUE(re.guards_intact() && im.guards_intact() && z.guards_intact());
  LD worst = 0;
  for (int i = 0; i < len; ++i) {
    const LD a = r[i], t = ph[i];
    const LD ec = std::fabs(re[i] - a * std::cos(t)) / std::fabs(a);
    const LD es = std::fabs(im[i] - a * std::sin(t)) / std::fabs(a);
    worst = std::max({worst, ec, es});
    ASSERT_TRUE(ec <= P::bound && es <= P::bound)
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
    ASSERT_EQ(P::to_cart(a.data(), b.data(), x.data(), y.data(), n), vekStatusOk);
    ASSERT_EQ(P::to_cart_c(a.data(), b.data(), c.data(), n), vekStatusOk);
    for (int i = 0; i < n; ++i) ASSERT_TRUE(same_bits(c[i].re, x[i]) && same_bits(c[i].im, y[i]));
    ASSERT_TRUE(x.guards_intact() && y.guards_intact() && c.guards_intact());
    ASSERT_EQ(P::to_cart(a.data(), b.data(), a.data(), b.data(), n), vekStatusOk);
    ASSERT_TRUE(same_values(a.data(), x.data(), n) && same_values(b.data(), y.data(), n));
  }
}

// Round trip: CartToPolar then PolarToCart returns z within 4 * bound * |z| (binary32: the
// documented 4 * 2^-22).
TYPED_TEST(PolarTest, RoundTrip) {
  using F = TypeParam;
  using P = Polar<F>;
  Rng rng{52};
  const int len = 5000;
  std::vector<F> re(len), im(len), m(len), p(len), x(len), y(len);
  for (int i = 0; i < len; ++i) {
    re[i] = rng.wide<F>(-30, 30);
    im[i] = rng.wide<F>(-30, 30);
  }
  ASSERT_EQ(P::to_polar(re.data(), im.data(), m.data(), p.data(), len), vekStatusOk);
  ASSERT_EQ(P::to_cart(m.data(), p.data(), x.data(), y.data(), len), vekStatusOk);
  for (int i = 0; i < len; ++i) {
    const LD mag = std::hypot(static_cast<LD>(re[i]), static_cast<LD>(im[i]));
    const LD tol = 4 * (sizeof(F) == 4 ? 0x1p-22L : 0x1p-50L) * mag;
    ASSERT_LE(std::fabs(x[i] - static_cast<LD>(re[i])), tol) << re[i] << " " << im[i];
    ASSERT_LE(std::fabs(y[i] - static_cast<LD>(im[i])), tol) << re[i] << " " << im[i];
  }
}

// Non-finite phases give NaN in both parts; an infinite magnitude multiplies the computed cosine
// and sine (NaN where one is exactly 0); a zero magnitude gives signed zeros.
TYPED_TEST(PolarTest, SpecialValues) {
  using F = TypeParam;
  using P = Polar<F>;
  const F inf = std::numeric_limits<F>::infinity(), nan = std::numeric_limits<F>::quiet_NaN();
  const F r[] = {1, -2, 1, inf, -inf, inf, 0, 2};
  const F ph[] = {inf, -inf, nan, 0, F(0.5), F(-0.0), F(2), F(1.5707963267948966)};
  F re[8], im[8];
  ASSERT_EQ(P::to_cart(r, ph, re, im, 8), vekStatusOk);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(std::isnan(re[i]) && std::isnan(im[i])) << i;
  EXPECT_TRUE(re[3] == inf && std::isnan(im[3]));
  EXPECT_TRUE(re[4] == -inf && im[4] == -inf);
  EXPECT_TRUE(re[5] == inf && std::isnan(im[5]));
  EXPECT_TRUE(same_bits(re[6], F(-0.0)) && same_bits(im[6], F(0)));
  EXPECT_LE(std::fabs(re[7]), 2 * P::bound);
  EXPECT_EQ(im[7], 2);
}

}  // namespace
