// Thresholding: every relation of every element type, out of place and in place, against scalar
// references (long double magnitudes for complex elements), at lengths that reach the vector body
// and the tail; the argument-check order; the level-0 paths; LTInv's warnings on the calling
// thread and on the threaded path; the caller's floating-point state.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "convert/support.hpp"
#include "support/checks.hpp"
#include "vekcore.h"

namespace {

using namespace veks_test;
using LD = long double;

template <class T>
struct Part {
  using type = T;
};
template <class C>
requires requires(C c) { c.re; }
struct Part<C> {
  using type = decltype(C{}.re);
};
template <class T>
using part = typename Part<T>::type;
template <class C>
LD mag(C x) {
  return std::hypot(static_cast<LD>(x.re), static_cast<LD>(x.im));
}

// A reference result and whether it makes the call return its warning.
template <class T>
using Out = std::pair<T, bool>;

// Real values: limits, zeros, infinities, NaN, subnormals, the levels used below and their
// neighbours, random values in +-2^(bits-2) (integers) or +-8 (floating point). Complex values:
// magnitudes from 0 to about 4 * level, none within a relative 1e-5 of the level except exact ones
// (3, 4) and (-3, -4) at level 5, zeros, NaN and an infinity, or the 16-bit extremes.
template <class T>
std::vector<T> inputs(double level, unsigned seed) {
  using P = part<T>;
  using L = std::numeric_limits<P>;
  std::mt19937_64 g(seed);
  std::vector<T> v;
  if constexpr (!std::is_arithmetic_v<T>) {
    v = {{3, 4}, {-3, -4}, {0, 0}, {P(-0.0), 0}, {P(-0.0), P(-0.0)}, {1, 0}, {0, -1}};
    if constexpr (L::has_quiet_NaN) v.insert(v.end(), {{L::quiet_NaN(), 1}, {L::infinity(), 2}});
    if constexpr (!L::has_quiet_NaN) v.insert(v.end(), {{-32768, -32768}, {32767, -32768}});
    std::uniform_real_distribution<double> u(-4 * level - 3, 4 * level + 3);
    while (v.size() < 300) {
      const T x{static_cast<P>(u(g)), static_cast<P>(u(g))};
      if (std::fabs(std::hypot(double(x.re), double(x.im)) - level) > 1e-5 * level) v.push_back(x);
    }
  } else {
    for (int x : {0, 1, -1, 2, -2, 3, -3, 4, -4, 5, -5}) v.push_back(static_cast<T>(x));
    v.insert(v.end(), {static_cast<T>(0.5), static_cast<T>(-0.5), L::lowest(), L::max(),
                       static_cast<T>(L::lowest() + 1), static_cast<T>(L::max() - 1)});
    if constexpr (std::is_floating_point_v<T>) {
      v.insert(v.end(), {-0.0, L::infinity(), -L::infinity(), L::quiet_NaN(), -L::quiet_NaN(),
                         L::denorm_min(), -L::denorm_min(), std::nextafter(T{2}, T{0}),
                         std::nextafter(T{-2}, T{0}), std::nextafter(T{3}, T{9})});
      std::uniform_real_distribution<T> u(-8, 8);
      while (v.size() < 300) v.push_back(u(g));
    } else {
      std::uniform_int_distribution<long long> u(L::min() / 2, L::max() / 2), small(-8, 8);
      while (v.size() < 300) v.push_back(static_cast<T>(v.size() % 2 ? u(g) : small(g)));
    }
  }
  return v;
}

// x moved to magnitude level in long double (zero: (level, 0)), 16-bit parts to nearest-even.
template <class C>
C moved(C x, LD level) {
  using T = part<C>;
  const LD m = mag(x);
  LD re = m == 0 ? level : x.re * (level / m), im = m == 0 ? 0 : x.im * (level / m);
  if constexpr (!std::is_floating_point_v<T>) re = std::nearbyint(re), im = std::nearbyint(im);
  return {static_cast<T>(re), static_cast<T>(im)};
}

// Real elements bit for bit (-0 and +0 differ, any NaN equals any NaN); complex parts within a few
// units of the part type's precision relative to scale (16-bit parts exactly: the binary64 and
// long-double moves round alike away from ties, which the inputs miss).
template <class T>
bool match(T got, T want, LD scale) {
  if constexpr (std::is_arithmetic_v<T>) {
    return std::isnan(want) ? std::isnan(got) : std::memcmp(&got, &want, sizeof got) == 0;
  } else {
    const LD tol = 4 * std::numeric_limits<part<T>>::epsilon() * scale;
    const auto close = [&](LD g, LD w) {
      return std::isnan(w) ? std::isnan(g) : std::isinf(w) ? g == w : std::fabs(g - w) <= tol;
    };
    return close(got.re, want.re) && close(got.im, want.im);
  }
}

// Runs a member out of place (under a changing rounding mode and flags, which it must keep) and
// in place on rotated slices of vals at every shape; compares each element with ref(x) through
// eq; `status` is the expected return value when ref flags an element.
template <class T, class Run, class RunI, class Ref, class Eq>
void check_member(const char* what, const std::vector<T>& vals, Run run, RunI run_i, Ref ref, Eq eq,
                  VekStatus status = vekStatusOk) {
  size_t k = 0;
  for (const Shape& sh : shapes()) {
    const size_t n = sh.len, mis = (sh.misalign * sizeof(T)) % 64;
    Guarded<T> s(n, mis), d(n, (mis + 8) % 64), io(n, (mis * 3) % 64);
    for (size_t i = 0; i < n; ++i) s[i] = io[i] = vals[(i + 17 * k) % vals.size()];
    ++k;
    const int len = static_cast<int>(n);
    VekStatus st = -1, st_i = -1;
    ASSERT_TRUE(keeps_fenv(kRoundings[k % 4], k % 2 ? FE_INEXACT : 0, [&] {
      st = run(s.data(), d.data(), len);
    })) << what;
    ASSERT_TRUE(keeps_fenv(FE_TONEAREST, 0, [&] { st_i = run_i(io.data(), len); })) << what;
    bool has_status = false;
    for (size_t i = 0; i < n; ++i) {
      const auto [want, flagged] = ref(s[i]);
      has_status |= flagged;
      ASSERT_TRUE(eq(d[i], want) && eq(io[i], want)) << what << " element " << i << " of " << n;
    }
    ASSERT_EQ(st, has_status ? status : vekStatusOk) << what;
    ASSERT_EQ(st_i, st) << what;
    ASSERT_TRUE(d.guards_intact() && io.guards_intact() && s.guards_intact()) << what;
  }
}

// A member as its out-of-place and in-place pair, the arguments after the length given once.
#define BOTH(f, ...)                                                            \
  [&](const auto* s_, auto* d_, int n_) { return f(s_, d_, n_, __VA_ARGS__); }, \
      [&](auto* sd_, int n_) { return f##_I(sd_, n_, __VA_ARGS__); }
// Member veksThreshold<F><S> against ref of each element x; T, vals and eq from the caller.
#define ONE(F, S, ref, ...)                                \
  check_member(                                            \
      #F #S, vals, BOTH(veksThreshold##F##S, __VA_ARGS__), \
      [&](T x) { return Out<T>(ref, false); }, eq)

// What the relations compare (the value, a complex magnitude), what replaces an element (the
// level; a complex element moved to that magnitude), what the Val members put in.
template <class T>
requires std::is_arithmetic_v<T> LD key(T x) { return x; }
LD key(auto c) { return mag(c); }
template <class T>
requires std::is_arithmetic_v<T> T at(T, T level) { return level; }
auto at(auto c, LD level) { return moved(c, level); }
template <class T>
T value() {
  if constexpr (std::is_arithmetic_v<T>) return T(-6);
  if constexpr (!std::is_arithmetic_v<T>) return T{7, -2};
}
template <class T>
T with_sign(T level, T x) {  // the level carrying the sign of x (an integer 0 counts as positive)
  if constexpr (std::is_floating_point_v<T>) return std::copysign(level, x);
  return x < 0 ? static_cast<T>(-level) : level;
}

// LT and GT of type S at `level`, then `more`: ABS (the real-only members), REL (relation and value
// members, not in 32s).
#define CHECK(S, level, more)                                                       \
  do {                                                                              \
    using T = Vek##S;                                                               \
    using P = part<T>;                                                              \
    [[maybe_unused]] const P lv = static_cast<P>(level), lo = -lv, v1 = 7, v2 = -9; \
    [[maybe_unused]] const T val = value<T>();                                      \
    const auto vals = inputs<T>(lv, static_cast<unsigned>(level) + 5);              \
    const auto eq = [&](T a, T b) { return match(a, b, lv); };                      \
    ONE(_LT_, S, key(x) < lv ? at(x, lv) : x, lv);                                  \
    ONE(_GT_, S, key(x) > lv ? at(x, lv) : x, lv);                                  \
    more;                                                                           \
  } while (0)
#define ABS(S)                                                            \
  ONE(_LTAbs_, S, std::fabs(key(x)) < lv ? with_sign(lv, x) : x, lv);     \
  ONE(_GTAbs_, S, !(std::fabs(key(x)) <= lv) ? with_sign(lv, x) : x, lv); \
  ONE(_LTValGTVal_, S, (x < lo ? v1 : x > lv ? v2 : x), lo, v1, lv, v2);  \
  for (P l : {lv, lo}) ONE(_LTAbsVal_, S, std::fabs(key(x)) < l ? v1 : x, l, v1)
#define REL(S)                                               \
  ONE(_, S, key(x) < lv ? at(x, lv) : x, lv, vekRelLess);    \
  ONE(_, S, key(x) > lv ? at(x, lv) : x, lv, vekRelGreater); \
  ONE(_LTVal_, S, key(x) < lv ? val : x, lv, val);           \
  ONE(_GTVal_, S, key(x) > lv ? val : x, lv, val)

// NaN lies above every level; a negative level replaces nothing in LTAbsVal; |-32768| lies above
// every 16-bit level. Complex levels sit between the input magnitudes (see inputs).
TEST(Threshold, EveryRelationAndType) {
  for (int level : {0, 2, 3, 100}) {
    CHECK(16s, level, ABS(16s); REL(16s));
    CHECK(32s, level, ABS(32s));
    CHECK(32f, level, ABS(32f); REL(32f));
    CHECK(64f, level, ABS(64f); REL(64f));
  }
  CHECK(16s, 32767, ABS(16s));
  for (int level : {5, 40}) {
    CHECK(16sc, level, REL(16sc));
    CHECK(32fc, level, REL(32fc));
    CHECK(64fc, level, REL(64fc));
  }
  // Complex level 0: LT copies the source bit for bit, Threshold/GT zero everything (NaN too).
  const auto level0 = [](auto vals, auto lt, auto rel) {
    using C = typename decltype(vals)::value_type;
    const int n = static_cast<int>(vals.size());
    Guarded<C> d(vals.size(), 8);
    ASSERT_EQ(lt(vals.data(), d.data(), n, 0), vekStatusOk);
    EXPECT_EQ(std::memcmp(d.data(), vals.data(), sizeof(C) * vals.size()), 0);
    ASSERT_EQ(rel(vals.data(), d.data(), n, 0, vekRelGreater), vekStatusOk);
    for (size_t i = 0; i < vals.size(); ++i) ASSERT_TRUE(d[i].re == 0 && d[i].im == 0) << i;
    ASSERT_TRUE(d.guards_intact());
  };
  level0(inputs<Vek16sc>(5, 3), veksThreshold_LT_16sc, veksThreshold_16sc);
  level0(inputs<Vek32fc>(5, 3), veksThreshold_LT_32fc, veksThreshold_32fc);
  level0(inputs<Vek64fc>(5, 3), veksThreshold_LT_64fc, veksThreshold_64fc);
}

// Pointers and length through the walker, then relation (-5) before a negative level (-19)
// before crossed levels (-18), one member per kernel; nothing is written on an error.
TEST(ThresholdChecks, OrderAndNothingWritten) {
  EXPECT_EQ(expect_family_checks({"veksThreshold"}, [](const std::string&) { return CheckSpec{}; }),
            104);
  Guarded<float> s(8, 0, 0x11), d(8);  // sources differ from destinations: a copy shows
  Guarded<Vek16s> i16(8);
  Guarded<Vek32fc> z(8, 0, 0x11), zd(8);
  for (int bad : {1, 2, 3, 7, -4}) {
    EXPECT_EQ(veksThreshold_32f(s.data(), d.data(), 8, -1, bad), vekStatusBadArg);
    EXPECT_EQ(veksThreshold_16s_I(i16.data(), 8, 3, bad), vekStatusBadArg);
    EXPECT_EQ(veksThreshold_32fc(z.data(), zd.data(), 8, -1, bad), vekStatusBadArg);
  }
  EXPECT_EQ(veksThreshold_32fc_I(zd.data(), 8, -1, vekRelLess), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTAbs_16s_I(i16.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTInv_32f(s.data(), d.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTInv_32fc_I(zd.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_GT_32fc_I(zd.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTVal_32fc(z.data(), zd.data(), 8, -1, {}), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTValGTVal_32f(s.data(), d.data(), 8, 2, 0, 1, 0),
            vekStatusLevelsCrossed);
  EXPECT_EQ(veksThreshold_LTValGTVal_16s_I(i16.data(), 8, 5, 0, 4, 0), vekStatusLevelsCrossed);
  EXPECT_TRUE(d.unchanged() && s.unchanged() && i16.unchanged() && zd.unchanged());
}

// ---- LTInv ------------------------------------------------------------------------------------

// 1 / (sign(x) max(|x|, level)) for real x; complex x moved up to the level, then inverted. A zero
// under level 0 warns; a complex one gives (+-Inf with the real part's sign, 0 with the imaginary
// part's reversed).
template <class T>
Out<T> inv_ref(T x, part<T> level) {
  if constexpr (std::is_arithmetic_v<T>) {
    if (std::isnan(x)) return {x, false};
    return {T(T{1} / std::copysign(std::fmax(std::fabs(x), level), x)), level == 0 && x == 0};
  } else {
    using P = part<T>;
    if (level == 0 && x.re == 0 && x.im == 0)
      return {{std::copysign(std::numeric_limits<P>::infinity(), x.re), std::copysign(P{0}, -x.im)},
              true};
    const LD m = mag(x);
    const T y = m < level ? moved(x, level) : x;
    if (std::isinf(m)) return {{std::copysign(P{0}, y.re), std::copysign(P{0}, -y.im)}, false};
    const LD q = static_cast<LD>(y.re) * y.re + static_cast<LD>(y.im) * y.im;
    return {{static_cast<P>(y.re / q), static_cast<P>(-y.im / q)}, false};
  }
}

// Complex results within the precision relative to their largest part.
#define INV(S, level)                                                                    \
  do {                                                                                   \
    using T = Vek##S;                                                                    \
    const auto vals = inputs<T>(5, 11);                                                  \
    check_member(                                                                        \
        #S, vals, BOTH(veksThreshold_LTInv_##S, part<T>(level)),                         \
        [&](T x) { return inv_ref(x, part<T>(level)); },                                 \
        [](T a, T b) { return match(a, b, std::fabs(key(b))); }, vekStatusWarnSingular); \
  } while (0)

TEST(ThresholdLTInv, EveryType) {
  for (double level : {0.0, 2.0, 0.25, 5.0}) {
    INV(32f, level);
    INV(64f, level);
    INV(32fc, level);
    INV(64fc, level);
  }
}

// From 8192 elements the threaded path runs and a zero under level 0 warns with 6, below with 4;
// results are those of the serial path whatever the thread count.
TEST(ThresholdLTInv, ThreadedPath) {
  int before = 0;
  vekGetNumThreads(&before);
  for (int threads : {2, 1}) {
    vekSetNumThreads(threads);
    for (int n : {8191, 8192, 10001}) {
      std::vector<float> s(static_cast<size_t>(n)), d(s.size()), nz(s.size(), 3.0f);
      for (int i = 0; i < n; ++i) s[static_cast<size_t>(i)] = static_cast<float>(i % 97) - 40.0f;
      const VekStatus warn = n >= 8192 ? vekStatusWarnZeroDivisor : vekStatusWarnSingular;
      for (float level : {0.0f, 3.0f}) {
        EXPECT_EQ(veksThreshold_LTInv_32f(s.data(), d.data(), n, level),
                  level == 0 ? warn : vekStatusOk);
        for (size_t i = 0; i < s.size(); ++i)
          ASSERT_TRUE(match(d[i], inv_ref(s[i], level).first, 0)) << i;
      }
      std::vector<Vek64fc> c(s.size()), cd(s.size());
      for (size_t i = 0; i < s.size(); ++i) c[i] = {s[i], 0.0};
      EXPECT_EQ(veksThreshold_LTInv_64fc(c.data(), cd.data(), n, 0.0), warn) << n;
      EXPECT_EQ(veksThreshold_LTInv_32f_I(nz.data(), n, 0.0f), vekStatusOk);
    }
  }
  vekSetNumThreads(before);
}

}  // namespace
