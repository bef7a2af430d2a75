// Magnitude, phase and power spectrum against long-double and exact-integer models: every member
// on every length 1..130, split and interleaved forms bit for bit equal, the documented special
// values, the threaded members against their serial results.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "vekcore.h"
#include "veks.h"

namespace {

using veks_test::Guarded;
using veks_test::LD;
using veks_test::Rng;
using veks_test::round_sat;
using veks_test::same_bits;
using veks_test::ulps;

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
    return rng.wide<P>(emin, std::numeric_limits<P>::max_exponent / 2 - 2);
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

// Every length 1..130 at moving misalignments: both forms agree bit for bit, every element
// passes the member's model, nothing outside the destination changes.
// One member in its split and interleaved forms (sf is ignored by members without one) against
// ok(re, im, result, sf).
template <class P, class TD, class Split, class Inter, class Ok>
void check_pair(const char* name, Split split, Inter inter, Ok ok, std::vector<int> sfs = {0},
                uint64_t seed = 1) {
  using C = Cplx<P>;
  Rng rng{seed};
  for (int sf : sfs) {
    for (int len = 1; len <= 130; ++len) {
      Guarded<P> re(len, (len % 8) * sizeof(P)), im(len);
      Guarded<C> z(len, (len % 4) * sizeof(P));
      Guarded<TD> d1(len, (len % 16) * sizeof(TD) % 64), d2(len, sizeof(TD));
      for (int i = 0; i < len; ++i) {
        re[i] = sample<P>(rng);
        im[i] = rng.next() % 8 == 0 ? re[i] : sample<P>(rng);
        z[i] = C{re[i], im[i]};
      }
      ASSERT_EQ(split(re.data(), im.data(), d1.data(), len, sf), vekStatusOk) << name;
      ASSERT_EQ(inter(z.data(), d2.data(), len, sf), vekStatusOk) << name;
      ASSERT_EQ(std::memcmp(d1.data(), d2.data(), len * sizeof(TD)), 0) << name << " len " << len;
      ASSERT_TRUE(d1.guards_intact() && d2.guards_intact()) << name;
      for (int i = 0; i < len; ++i)
        ASSERT_TRUE(ok(re[i], im[i], d1[i], sf))
            << name << " (" << +re[i] << ", " << +im[i] << ") sf " << sf << " gave " << +d1[i];
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
#define NOSF(P, TD, member, split, inter, ok, seed)                   \
  check_pair<Vek##P, Vek##TD>(#member, no_sf(veks##member##_##split), \
                              no_sf(veks##member##_##inter), ok, {0}, seed)

TEST(Magnitude, EveryMemberAgainstItsModel) {
  NOSF(32f, 32f, Magnitude, 32f, 32fc, within(hyp, 1), 11);
  NOSF(64f, 64f, Magnitude, 64f, 64fc, within(hyp, 1), 12);
  NOSF(
      16s, 32f, Magnitude, 16s32f, 16sc32f,
      [](LD re, LD im, float got, int) {
        return got == static_cast<float>(std::sqrt(re * re + im * im));
      },
      13);
  check_pair<Vek16s, Vek16s>(
      "Magnitude_16s_Sfs", veksMagnitude_16s_Sfs, veksMagnitude_16sc_Sfs,
      [](LD re, LD im, Vek16s got, int sf) {
        return got == veks_test::exact_root<Vek16s>(static_cast<uint64_t>(re * re + im * im), sf);
      },
      kSfs, 14);
}

TEST(Phase, EveryMemberAgainstItsModel) {
  NOSF(32f, 32f, Phase, 32f, 32fc, within(arg, 1), 21);
  NOSF(64f, 64f, Phase, 64f, 64fc, within(arg, 2), 22);
  NOSF(16s, 32f, Phase, 16s32f, 16sc32f, within(arg, 1), 23);
  const auto int_phase = [](LD re, LD im, auto got, int sf) {
    const LD v = scaled(std::atan2(im, re), sf);
    return exact_or_neighbour(v, got, round_sat<decltype(got)>(v));
  };
  check_pair<Vek16s, Vek16s>("Phase_16s_Sfs", veksPhase_16s_Sfs, veksPhase_16sc_Sfs, int_phase,
                             kSfs, 24);
  // 32sc exists only interleaved: its split form is the interleaved call on a packed copy.
  check_pair<Vek32s, Vek32s>(
      "Phase_32sc_Sfs",
      [](const Vek32s* re, const Vek32s* im, Vek32s* d, int len, int sf) {
        std::vector<Vek32sc> z(len);
        for (int i = 0; i < len; ++i) z[i] = {re[i], im[i]};
        return veksPhase_32sc_Sfs(z.data(), d, len, sf);
      },
      veksPhase_32sc_Sfs, int_phase, kSfs, 25);
}

TEST(PowerSpectr, EveryMemberAgainstItsModel) {
  NOSF(32f, 32f, PowerSpectr, 32f, 32fc, within(power, 1), 31);
  NOSF(64f, 64f, PowerSpectr, 64f, 64fc, within(power, 1), 32);
  NOSF(
      16s, 32f, PowerSpectr, 16s32f, 16sc32f,
      [](LD re, LD im, float got, int) {
        return got == static_cast<float>(static_cast<long long>(re * re + im * im));
      },
      33);
  check_pair<Vek16s, Vek16s>(
      "PowerSpectr_16s_Sfs", veksPowerSpectr_16s_Sfs, veksPowerSpectr_16sc_Sfs,
      [](LD re, LD im, Vek16s got, int sf) {
        return got == round_sat<Vek16s>(scaled(re * re + im * im, sf));
      },
      kSfs, 34);
}
#undef NOSF

// The documented examples and the special values of hypot and atan2.
TEST(MagnitudePhasePower, SpecialValues) {
  const double inf = HUGE_VAL, nan = NAN;
  Vek16s s;
  const Vek16sc p34{3, 4}, most{-32768, -32768}, neg1{-1, 0}, zero{0, 0}, one{1, 1}, big{181, 182};
  const Vek16s mre = -32768, mim = -32768;
  for (auto [z, sf, want] : {std::tuple{p34, 0, 5}, {most, 0, 32767}, {most, 1, 23170}}) {
    ASSERT_EQ(veksMagnitude_16sc_Sfs(&z, &s, 1, sf), vekStatusOk);
    EXPECT_EQ(s, want);
  }
  ASSERT_EQ(veksMagnitude_16s_Sfs(&mre, &mim, &s, 1, 1), vekStatusOk);
  EXPECT_EQ(s, 23170);
  for (auto [z, sf, want] : {std::tuple{neg1, -13, 25736}, {zero, -13, 0}}) {
    ASSERT_EQ(veksPhase_16sc_Sfs(&z, &s, 1, sf), vekStatusOk);
    EXPECT_EQ(s, want);
  }
  for (auto [z, sf, want] :
       {std::tuple{most, 16, 32767}, {most, 17, 16384}, {one, 0, 2}, {big, 0, 32767}}) {
    ASSERT_EQ(veksPowerSpectr_16sc_Sfs(&z, &s, 1, sf), vekStatusOk);
    EXPECT_EQ(s, want);
  }
  // hypot: no overflow, no underflow, an infinite part wins over a NaN.
  const std::pair<double, double> hs[] = {
      {1e300, 1e300},   {1e-300, 1e-300}, {4.9e-324, 4.9e-324}, {1.2e308, 1e308}, {1.7e308, 1e308},
      {3e-320, 1e-310}, {-0.0, -0.0},     {inf, nan},           {nan, -inf},      {nan, 1},
      {1, nan},         {-inf, 0},        {1e200, 1e-200}};
  for (const auto& [hre, him] : hs) {
    double d;
    const Vek64fc z{hre, him};
    ASSERT_EQ(veksMagnitude_64fc(&z, &d, 1), vekStatusOk);
    const LD want = std::hypot(static_cast<LD>(hre), static_cast<LD>(him));
    if (std::isnan(want)) {
      EXPECT_TRUE(std::isnan(d)) << hre << " " << him;
    } else {
      EXPECT_TRUE(want > 0x1.fffffffffffff8p1023L ? d == inf : ulps(d, want) <= 1)
          << hre << " " << him << ": " << d;
    }
    float f;
    const Vek32fc zf{static_cast<float>(hre), static_cast<float>(him)};
    ASSERT_EQ(veksMagnitude_32fc(&zf, &f, 1), vekStatusOk);
    const LD wf = std::hypot(static_cast<LD>(zf.re), static_cast<LD>(zf.im));
    EXPECT_TRUE(std::isnan(wf) ? std::isnan(f) : within(hyp, 1)(zf.re, zf.im, f, 0))
        << zf.re << " " << zf.im;
  }
  EXPECT_EQ(std::hypot(1e300, 1e300), 1.4142135623730951e300);  // the documented value
  // atan2 conventions: signed zeros, infinities, NaN, in both precisions and both forms.
  const double zs[] = {0.0, -0.0, 1.0, -1.0, inf, -inf, nan, 1e-310, -3e300};
  for (double y : zs) {
    for (double x : zs) {
      const LD want = std::atan2(static_cast<LD>(y), static_cast<LD>(x));
      double d;
      float f;
      const Vek64fc z{x, y};
      const Vek32fc zf{static_cast<float>(x), static_cast<float>(y)};
      ASSERT_EQ(veksPhase_64fc(&z, &d, 1), vekStatusOk);
      ASSERT_EQ(veksPhase_32fc(&zf, &f, 1), vekStatusOk);
      const LD wantf = std::atan2(static_cast<LD>(zf.im), static_cast<LD>(zf.re));
      if (std::isnan(want)) {
        EXPECT_TRUE(std::isnan(d) && std::isnan(f)) << y << " " << x;
      } else {
        EXPECT_TRUE(same_bits(d, static_cast<double>(want)) || (want != 0 && ulps(d, want) <= 2))
            << y << ", " << x << ": " << d;
        EXPECT_TRUE(same_bits(f, static_cast<float>(wantf))) << y << ", " << x << ": " << f;
      }
    }
  }
  const Vek32fc m1p0{-1, 0}, m1m0{-1, -0.0f};
  float f;
  ASSERT_EQ(veksPhase_32fc(&m1p0, &f, 1), vekStatusOk);
  EXPECT_EQ(f, 3.1415927f);
  ASSERT_EQ(veksPhase_32fc(&m1m0, &f, 1), vekStatusOk);
  EXPECT_EQ(f, -3.1415927f);
  const Vek32f hugef = 3e38f, zerof = 0;
  ASSERT_EQ(veksPowerSpectr_32f(&hugef, &zerof, &f, 1), vekStatusOk);
  EXPECT_EQ(f, HUGE_VALF);
}

// The threaded members with 2047 and 2048 elements, one and two threads: identical bytes.
TEST(MagnitudeThreads, SplitResultsEqualSerialResults) {
  int saved = 1;
  vekGetNumThreads(&saved);
  Rng rng{40};
  std::vector<Vek32fc> zf(2048);
  std::vector<Vek16sc> zs(2048);
  std::vector<Vek16s> re(2048), im(2048);
  for (int i = 0; i < 2048; ++i) {
    zf[i] = {sample<float>(rng), sample<float>(rng)};
    zs[i] = {re[i] = sample<Vek16s>(rng), im[i] = sample<Vek16s>(rng)};
  }
  for (int len : {2047, 2048}) {
    std::vector<float> f[2] = {std::vector<float>(len), std::vector<float>(len)};
    std::vector<Vek16s> a[2] = {std::vector<Vek16s>(len), std::vector<Vek16s>(len)},
                        b[2] = {a[0], a[1]};
    for (int t : {0, 1}) {
      ASSERT_EQ(vekSetNumThreads(t + 1), vekStatusOk);
      ASSERT_EQ(veksMagnitude_32fc(zf.data(), f[t].data(), len) |
                    veksMagnitude_16sc_Sfs(zs.data(), a[t].data(), len, -1) |
                    veksMagnitude_16s_Sfs(re.data(), im.data(), b[t].data(), len, 1),
                vekStatusOk);
    }
    EXPECT_EQ(std::memcmp(f[0].data(), f[1].data(), len * sizeof(float)), 0) << len;
    EXPECT_TRUE(a[0] == a[1] && b[0] == b[1]) << len;
  }
  vekSetNumThreads(saved);
}

}  // namespace
