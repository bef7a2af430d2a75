// Magnitude, phase and power spectrum against long-double and exact-integer models: every member
// at every length 1..130 and across the threading threshold, split and interleaved forms bit for
// bit equal, examples worked by hand and the special values of hypot and atan2.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "threads.hpp"
#include "veks.h"

namespace {

using namespace veks_test;

template <class P>
using Cplx =
    std::tuple_element_t<std::is_floating_point_v<P> ? sizeof(P) / 4 + 1 : sizeof(P) / 4,
                         std::tuple<Vek16sc, Vek32sc, Vek32fc, Vek64fc>>;  // 16s 32s 32f 64f

// A source value of type P: wide exponents for floating point, full range for integers, with
// zeros, equal parts and extremes mixed in.
template <class P>
P sample(Rng& rng) {
  if (rng.next() % 10 == 0) return P(0);
  if constexpr (std::is_floating_point_v<P>) {
    constexpr int emin = std::numeric_limits<P>::min_exponent - std::numeric_limits<P>::digits;
    return rng.wide<P>(emin, std::numeric_limits<P>::max_exponent - 1);
  } else {
    if (rng.next() % 10 == 0)
      return rng.next() & 1 ? std::numeric_limits<P>::min() : std::numeric_limits<P>::max();
    return static_cast<P>(rng.next() >> (64 - 8 * sizeof(P) + rng.next() % (8 * sizeof(P))));
  }
}

template <class... A>
auto no_sf(VekStatus (*f)(A...)) {
  return [f](A... a, int) { return f(a...); };
}

// One member in its split and interleaved forms (sf is ignored by members without one) at every
// length 1..130 and at 2047, 2048 on two threads (the threaded members split there), at moving
// misalignments: both forms agree bit for bit, every element passes ok(re, im, result, sf),
// nothing outside the destination changes.
template <class P, class TD, class Split, class Inter, class Ok>
void check_pair(const char* name, Split split, Inter inter, Ok ok, std::vector<int> sfs = {0},
                uint64_t seed = 1) {
  using C = Cplx<P>;
  const TwoThreads threads;
  std::vector<int> lens = lengths(false);
  lens.insert(lens.end(), {2047, 2048});
  Rng rng{seed};
  for (int sf : sfs) {
    for (int len : lens) {
      SCOPED_TRACE(::testing::Message() << name << " len " << len << " sf " << sf);
      Guarded<P> re(len, (len % 8) * sizeof(P)), im(len);
      Guarded<C> z(len, (len % 4) * sizeof(P));
      Guarded<TD> d1(len, (len % 16) * sizeof(TD) % 64), d2(len, sizeof(TD));
      for (int i = 0; i < len; ++i) {
        re[i] = sample<P>(rng);
        im[i] = rng.next() % 8 == 0 ? re[i] : sample<P>(rng);
        z[i] = C{re[i], im[i]};
      }
      ASSERT_EQ(
          split(re.data(), im.data(), d1.data(), len, sf) | inter(z.data(), d2.data(), len, sf),
          vekStatusOk);
      ASSERT_EQ(std::memcmp(d1.data(), d2.data(), len * sizeof(TD)), 0);
      ASSERT_TRUE(d1.guards_intact() && d2.guards_intact());
      for (int i = 0; i < len; ++i)
        ASSERT_TRUE(ok(re[i], im[i], d1[i], sf)) << +re[i] << ", " << +im[i] << " gave " << +d1[i];
    }
  }
}

const std::vector<int> kSfs = {INT_MIN, -31, -16, -13, -5, -1, 0,  1,
                               2,       7,   15,  16,  17, 31, 32, INT_MAX};

bool exact_or_neighbour(LD v, long long got, long long want) {
  return got == want || (veks_test::near_half(v) && std::llabs(got - want) == 1);
}
LD scaled(LD v, int sf) { return std::ldexp(v, -std::clamp(sf, -200, 200)); }

// Within `bound` ulps of f(re, im) in long double; infinity where that lies beyond the range.
template <class F>
auto within(F f, LD bound) {
  return [=](LD re, LD im, auto got, int) {
    const LD v = f(re, im);
    if (std::isinf(got)) return v > std::numeric_limits<decltype(got)>::max();
    return ulps(got, v) <= bound;
  };
}
const auto hyp = [](LD re, LD im) { return std::hypot(re, im); };
const auto arg = [](LD re, LD im) { return std::atan2(im, re); };
const auto power = [](LD re, LD im) { return re * re + im * im; };
#define NOSF(P, TD, member, split, inter, ok)                                \
  check_pair<Vek##P, Vek##TD>(#member #split, no_sf(veks##member##_##split), \
                              no_sf(veks##member##_##inter), ok, {0}, __LINE__)
#define SFS(P, member, split, inter, ok) \
  check_pair<Vek##P, Vek##P>(#member #inter, split, veks##member##_##inter, ok, kSfs, __LINE__)

TEST(MagnitudePhasePower, EveryMemberAgainstItsModel) {
  const auto to32f = [](auto f) {  // integer parts into binary32: one rounding of the exact value
    return [f](LD re, LD im, float got, int) { return got == static_cast<float>(f(re, im)); };
  };
  const auto root = [](LD re, LD im) { return std::sqrt(power(re, im)); };
  NOSF(32f, 32f, Magnitude, 32f, 32fc, within(hyp, 1));
  NOSF(64f, 64f, Magnitude, 64f, 64fc, within(hyp, 1));
  NOSF(16s, 32f, Magnitude, 16s32f, 16sc32f, to32f(root));
  NOSF(32f, 32f, Phase, 32f, 32fc, within(arg, 1));
  NOSF(64f, 64f, Phase, 64f, 64fc, within(arg, 2));
  NOSF(16s, 32f, Phase, 16s32f, 16sc32f, within(arg, 1));
  NOSF(32f, 32f, PowerSpectr, 32f, 32fc, within(power, 1));
  NOSF(64f, 64f, PowerSpectr, 64f, 64fc, within(power, 1));
  NOSF(16s, 32f, PowerSpectr, 16s32f, 16sc32f, to32f(power));
  // Integer results through the scale factor: roots and powers exact, phases from long double.
  SFS(16s, Magnitude, veksMagnitude_16s_Sfs, 16sc_Sfs, [](LD re, LD im, Vek16s got, int sf) {
    return got == exact_root<Vek16s>(static_cast<uint64_t>(power(re, im)), sf);
  });
  SFS(16s, PowerSpectr, veksPowerSpectr_16s_Sfs, 16sc_Sfs, [](LD re, LD im, Vek16s got, int sf) {
    return got == round_sat<Vek16s>(scaled(power(re, im), sf));
  });
  const auto int_phase = [](LD re, LD im, auto got, int sf) {
    const LD v = scaled(std::atan2(im, re), sf);
    return exact_or_neighbour(v, got, round_sat<decltype(got)>(v));
  };
  SFS(16s, Phase, veksPhase_16s_Sfs, 16sc_Sfs, int_phase);
  // 32sc exists only interleaved: its split form is the interleaved call on a packed copy.
  const auto split32 = [](const Vek32s* re, const Vek32s* im, Vek32s* d, int len, int sf) {
    std::vector<Vek32sc> z(len);
    for (int i = 0; i < len; ++i) z[i] = {re[i], im[i]};
    return veksPhase_32sc_Sfs(z.data(), d, len, sf);
  };
  SFS(32s, Phase, split32, 32sc_Sfs, int_phase);
}
#undef SFS
#undef NOSF

// Examples worked by hand, and the special values of hypot and atan2.
TEST(MagnitudePhasePower, SpecialValues) {
  const double inf = HUGE_VAL, nan = NAN;
  const Vek16sc p34{3, 4}, most{-32768, -32768}, neg1{-1, 0}, zero{0, 0}, one{1, 1}, big{181, 182};
  VekStatus (*const inter[])(const Vek16sc*, Vek16s*, int, int) = {
      veksMagnitude_16sc_Sfs, veksPhase_16sc_Sfs, veksPowerSpectr_16sc_Sfs};
  VekStatus (*const split[])(const Vek16s*, const Vek16s*, Vek16s*, int, int) = {
      veksMagnitude_16s_Sfs, veksPhase_16s_Sfs, veksPowerSpectr_16s_Sfs};
  // Member (magnitude, phase, power), source, scale factor, result.
  const std::tuple<int, Vek16sc, int, Vek16s> ex[] = {{0, p34, 0, 5},
                                                      {0, most, 0, 32767},
                                                      {0, most, 1, 23170},  // sqrt(2^31) / 2
                                                      {1, neg1, -13, 25736} /* pi 2^13 */,
                                                      {1, zero, -13, 0},
                                                      {2, most, 16, 32767},
                                                      {2, most, 17, 16384},
                                                      {2, one, 0, 2},
                                                      {2, big, 0, 32767}};
  for (auto [m, z, sf, want] : ex) {
    Vek16s got[2] = {};
    ASSERT_EQ(inter[m](&z, got, 1, sf) | split[m](&z.re, &z.im, got + 1, 1, sf), vekStatusOk);
    EXPECT_TRUE(got[0] == want && got[1] == want) << m << ": " << z.re << ", " << z.im << " " << sf;
  }
  // hypot: no overflow, no underflow, an infinite part wins over a NaN.
  const std::pair<double, double> hs[] = {
      {1e300, 1e300},   {1e-300, 1e-300}, {4.9e-324, 4.9e-324}, {1.2e308, 1e308}, {1.7e308, 1e308},
      {3e-320, 1e-310}, {-0.0, -0.0},     {inf, nan},           {nan, -inf},      {nan, 1},
      {1, nan},         {-inf, 0},        {1e200, 1e-200}};
  for (const auto& [hre, him] : hs) {
    double d;
    float f;
    const Vek64fc z{hre, him};
    const Vek32fc zf{static_cast<float>(hre), static_cast<float>(him)};
    ASSERT_EQ(veksMagnitude_64fc(&z, &d, 1) | veksMagnitude_32fc(&zf, &f, 1), vekStatusOk);
    const LD want = std::hypot(LD(hre), LD(him)), wf = std::hypot(LD(zf.re), LD(zf.im));
    EXPECT_TRUE(std::isnan(want)                  ? std::isnan(d)
                : want > 0x1.fffffffffffff8p1023L ? d == inf
                                                  : ulps(d, want) <= 1)
        << hre << " " << him << ": " << d;
    EXPECT_TRUE(std::isnan(wf) ? std::isnan(f) : within(hyp, 1)(zf.re, zf.im, f, 0))
        << zf.re << " " << zf.im;
  }
  // atan2 conventions: signed zeros (pi and -pi from -1 +- 0i), infinities, NaN, both precisions.
  const double zs[] = {0.0, -0.0, 1.0, -1.0, inf, -inf, nan, 1e-310, -3e300};
  for (double y : zs)
    for (double x : zs) {
      double d;
      float f;
      const Vek64fc z{x, y};
      const Vek32fc zf{static_cast<float>(x), static_cast<float>(y)};
      ASSERT_EQ(veksPhase_64fc(&z, &d, 1) | veksPhase_32fc(&zf, &f, 1), vekStatusOk);
      const LD want = std::atan2(LD(y), LD(x)), wantf = std::atan2(LD(zf.im), LD(zf.re));
      EXPECT_TRUE(std::isnan(want)
                      ? std::isnan(d) && std::isnan(f)
                      : (same_bits(d, double(want)) || (want != 0 && ulps(d, want) <= 2)) &&
                            same_bits(f, float(wantf)))
          << y << ", " << x << ": " << d << " " << f;
    }
  float f;
  const Vek32f hugef = 3e38f, zerof = 0;  // a binary32 power beyond the range is infinite
  ASSERT_EQ(veksPowerSpectr_32f(&hugef, &zerof, &f, 1), vekStatusOk);
  EXPECT_EQ(f, HUGE_VALF);
}

}  // namespace
