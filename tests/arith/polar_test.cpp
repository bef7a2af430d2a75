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

using namespace veks_test;

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
    ASSERT_EQ(PICK(CartToPolar)(re.data(), im.data(), m1.data(), p1.data(), len) |
                  PICK(CartToPolar, c)(z.data(), m2.data(), p2.data(), len) |
                  PICK(Magnitude)(re.data(), im.data(), m3.data(), len) |
                  PICK(Phase)(re.data(), im.data(), p3.data(), len),
              vekStatusOk);
    for (const auto& [a, b] : {std::pair{&m1, &m3}, {&m2, &m3}, {&p1, &p3}, {&p2, &p3}})
      ASSERT_TRUE(same_values(a->data(), b->data(), len) && a->guards_intact()) << len;
    ASSERT_EQ(PICK(CartToPolar)(re.data(), im.data(), re.data(), im.data(), len), vekStatusOk);
    ASSERT_TRUE(same_values(re.data(), m3.data(), len) && same_values(im.data(), p3.data(), len));
  }
}

// Both PolarToCart forms on magnitudes r and phases ph (misaligned by the length): parts within
// the bound times |r| of the long-double product, split and interleaved results identical, in
// place on the source vectors the same.
template <class F>
void check_to_cart(const std::vector<F>& r, const std::vector<F>& ph) {
  const int len = static_cast<int>(r.size());
  SCOPED_TRACE(::testing::Message() << "len " << len);
  Guarded<F> a = placed(r, (len % 8) * sizeof(F)), b = placed(ph), re(len, 2 * sizeof(F)), im(len);
  Guarded<Cplx<F>> z(len, sizeof(F));
  ASSERT_EQ(PICK(PolarToCart)(a.data(), b.data(), re.data(), im.data(), len) |
                PICK2(veksPolarToCart_32f32fc, veksPolarToCart_64f64fc)(a.data(), b.data(),
                                                                        z.data(), len),
            vekStatusOk);
  ASSERT_TRUE(re.guards_intact() && im.guards_intact() && z.guards_intact());
  for (int i = 0; i < len; ++i) {
    const LD m = r[i], t = ph[i];
    ASSERT_TRUE(std::fabs(re[i] - m * std::cos(t)) <= kBound<F> * std::fabs(m) &&
                std::fabs(im[i] - m * std::sin(t)) <= kBound<F> * std::fabs(m))
        << "r " << r[i] << ", phase " << ph[i] << ": " << re[i] << ", " << im[i];
    ASSERT_TRUE(same_bits(z[i].re, re[i]) && same_bits(z[i].im, im[i])) << ph[i];
  }
  ASSERT_EQ(PICK(PolarToCart)(a.data(), b.data(), a.data(), b.data(), len), vekStatusOk);
  ASSERT_TRUE(same_values(a.data(), re.data(), len) && same_values(b.data(), im.data(), len));
}

// Every length 1..130 with phases in [-3.5, 3.5); then phases up to 2^k for every k, 1e6, 1e15,
// the largest finite values, with magnitudes of either sign.
TYPED_TEST(PolarTest, PolarToCartWithinBoundForEveryFinitePhase) {
  using F = TypeParam;
  Rng rng{51};
  for (int n = 1; n <= 130; ++n) {
    std::vector<F> r(n), ph(n);
    for (int i = 0; i < n; ++i) r[i] = rng.wide<F>(-3, 3), ph[i] = F(rng.unit() * 7 - 3.5);
    ASSERT_NO_FATAL_FAILURE(check_to_cart(r, ph));
  }
  std::vector<F> ph = {std::numeric_limits<F>::max(), -std::numeric_limits<F>::max(),
                       std::numeric_limits<F>::denorm_min()};
  for (double v :
       {1e6, -1e6, 1e15, 1.5707963267948966, 3.141592653589793, -0.0, 0.0, 0x1p30, 0x1.fffffp29})
    ph.push_back(static_cast<F>(v));
  for (int k = -30; k < std::numeric_limits<F>::max_exponent; ++k)
    for (int j = 0; j < 40; ++j) ph.push_back(rng.wide<F>(k, k));
  for (int j = 0; j < 4000; ++j) ph.push_back(static_cast<F>((rng.unit() - 0.5) * 20));
  std::vector<F> r(ph.size());
  for (size_t i = 0; i < r.size(); ++i) r[i] = i % 7 == 0 ? F(1) : rng.wide<F>(-20, 20);
  check_to_cart(r, ph);
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
