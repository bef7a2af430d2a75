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

// Floating point: bit for bit (-0 and +0 differ), any NaN equals any NaN.
template <class T>
bool same(T a, T b) {
  if constexpr (std::is_floating_point_v<T>) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return std::memcmp(&a, &b, sizeof a) == 0;
  } else {
    return a == b;
  }
}
template <class T>
struct Out {
  T value;
  bool flagged = false;
};
template <class T>
Out<T> keep(T x) {
  return {x};
}

// Values of a real type: limits, zeros, infinities, NaN, subnormals, the levels used below and
// their neighbours, random values in +-2^(bits-2) (integers) or +-8 (floating point).
template <class T>
std::vector<T> real_inputs(unsigned seed) {
  using L = std::numeric_limits<T>;
  std::vector<T> v;
  for (int x : {0, 1, -1, 2, -2, 3, -3, 4, -4, 5, -5}) v.push_back(static_cast<T>(x));
  v.insert(v.end(), {static_cast<T>(0.5), static_cast<T>(-0.5), L::lowest(), L::max(),
                     static_cast<T>(L::lowest() + 1), static_cast<T>(L::max() - 1)});
  std::mt19937_64 g(seed);
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
  return v;
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

// ---- real members ------------------------------------------------------------------------------

template <class T>
LD wabs(T x) {
  return std::fabs(static_cast<LD>(x));
}
template <class T>
T with_sign(T level, T x) {  // the level carrying the sign of x (an integer 0 counts as positive)
  if constexpr (std::is_floating_point_v<T>) return std::copysign(level, x);
  return x < 0 ? static_cast<T>(-level) : level;
}

// The members every real type has (S: the type suffix), at level `lv`.
#define CHECK_REAL(S, level)                                                                    \
  do {                                                                                          \
    using T = Vek##S;                                                                           \
    const T lv = static_cast<T>(level), lo = static_cast<T>(-lv), v1 = 7, v2 = -9;              \
    const auto vals = real_inputs<T>(static_cast<unsigned>(level) + 5);                         \
    const auto eq = [](T a, T b) { return same(a, b); };                                        \
    check_member(                                                                               \
        "LT", vals, BOTH(veksThreshold_LT_##S, lv), [&](T x) { return keep(x < lv ? lv : x); }, \
        eq);                                                                                    \
    check_member(                                                                               \
        "GT", vals, BOTH(veksThreshold_GT_##S, lv), [&](T x) { return keep(x > lv ? lv : x); }, \
        eq);                                                                                    \
    check_member(                                                                               \
        "LTAbs", vals, BOTH(veksThreshold_LTAbs_##S, lv),                                       \
        [&](T x) { return keep(wabs(x) < lv ? with_sign(lv, x) : x); }, eq);                    \
    check_member(/* NaN lies above every level */ "GTAbs", vals,                                \
                 BOTH(veksThreshold_GTAbs_##S, lv),                                             \
                 [&](T x) { return keep(!(wabs(x) <= lv) ? with_sign(lv, x) : x); }, eq);       \
    check_member(                                                                               \
        "LTValGTVal", vals, BOTH(veksThreshold_LTValGTVal_##S, lo, v1, lv, v2),                 \
        [&](T x) { return keep(x < lo   ? v1                                                    \
                               : x > lv ? v2                                                    \
                                        : x); }, eq);                          \
    for (T l : {lv, lo}) /* a negative level replaces nothing */                                \
      check_member(                                                                             \
          "LTAbsVal", vals, BOTH(veksThreshold_LTAbsVal_##S, l, v1),                            \
          [&](T x) { return keep(wabs(x) < l ? v1 : x); }, eq);                                 \
  } while (0)

// The relation and value members (not in 32s).
#define CHECK_REL(S)                                                           \
  do {                                                                         \
    using T = Vek##S;                                                          \
    const auto vals = real_inputs<T>(9);                                       \
    const auto eq = [](T a, T b) { return same(a, b); };                       \
    const T lv = 3, val = -6;                                                  \
    check_member(                                                              \
        "Threshold less", vals, BOTH(veksThreshold_##S, lv, vekRelLess),       \
        [&](T x) { return keep(x < lv ? lv : x); }, eq);                       \
    check_member(                                                              \
        "Threshold greater", vals, BOTH(veksThreshold_##S, lv, vekRelGreater), \
        [&](T x) { return keep(x > lv ? lv : x); }, eq);                       \
    check_member(                                                              \
        "LTVal", vals, BOTH(veksThreshold_LTVal_##S, lv, val),                 \
        [&](T x) { return keep(x < lv ? val : x); }, eq);                      \
    check_member(                                                              \
        "GTVal", vals, BOTH(veksThreshold_GTVal_##S, lv, val),                 \
        [&](T x) { return keep(x > lv ? val : x); }, eq);                      \
  } while (0)

TEST(ThresholdReal, EveryRelation) {
  for (int level : {0, 2, 3, 100}) {
    CHECK_REAL(16s, level);
    CHECK_REAL(32s, level);
    CHECK_REAL(32f, level);
    CHECK_REAL(64f, level);
  }
  CHECK_REAL(16s, 32767);  // |-32768| lies above every level
  CHECK_REL(16s);
  CHECK_REL(32f);
  CHECK_REL(64f);
}

// Pointers and length through the walker, then relation (-5) before a negative level (-19)
// before crossed levels (-18); nothing is written on an error.
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
  EXPECT_EQ(veksThreshold_LTAbs_32f(s.data(), d.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_GTAbs_32f_I(d.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTAbs_16s_I(i16.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTInv_32f(s.data(), d.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTInv_32fc_I(zd.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LT_32fc(z.data(), zd.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_GT_32fc_I(zd.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTVal_32fc(z.data(), zd.data(), 8, -1, {}), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_GTVal_32fc_I(zd.data(), 8, -1, {}), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTValGTVal_32f(s.data(), d.data(), 8, 2, 0, 1, 0),
            vekStatusLevelsCrossed);
  EXPECT_EQ(veksThreshold_LTValGTVal_16s_I(i16.data(), 8, 5, 0, 4, 0), vekStatusLevelsCrossed);
  EXPECT_TRUE(d.unchanged() && s.unchanged() && i16.unchanged() && zd.unchanged());
}

// ---- LTInv ------------------------------------------------------------------------------------

template <class T>
Out<T> inv_ref(T x, T level) {  // 1 / (sign(x) max(|x|, level)); a zero under level 0 warns
  if (std::isnan(x)) return {x};
  return {static_cast<T>(T{1} / std::copysign(std::fmax(std::fabs(x), level), x)),
          level == 0 && x == 0};
}

TEST(ThresholdLTInv, Real) {
  for (double level : {0.0, 2.0, 0.25}) {
    const auto ref = [&](auto x) { return inv_ref<decltype(x)>(x, decltype(x)(level)); };
    check_member("LTInv_32f", real_inputs<float>(21), BOTH(veksThreshold_LTInv_32f, float(level)),
                 ref, same<float>, vekStatusWarnSingular);
    check_member("LTInv_64f", real_inputs<double>(21), BOTH(veksThreshold_LTInv_64f, level), ref,
                 same<double>, vekStatusWarnSingular);
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
          ASSERT_TRUE(same(d[i], inv_ref(s[i], level).value)) << i;
      }
      std::vector<Vek64fc> c(s.size()), cd(s.size());
      for (size_t i = 0; i < s.size(); ++i) c[i] = {s[i], 0.0};
      EXPECT_EQ(veksThreshold_LTInv_64fc(c.data(), cd.data(), n, 0.0), warn) << n;
      EXPECT_EQ(veksThreshold_LTInv_32f_I(nz.data(), n, 0.0f), vekStatusOk);
    }
  }
  vekSetNumThreads(before);
}

// ---- complex members --------------------------------------------------------------------------

template <class C>
using part = decltype(C{}.re);
template <class C>
LD mag(C x) {
  return std::hypot(static_cast<LD>(x.re), static_cast<LD>(x.im));
}

// Complex inputs: magnitudes from 0 to about 4 * level, none within a relative 1e-5 of the level
// except exact ones (3, 4) and (-3, -4) at level 5, zeros, NaN and an infinity.
template <class C>
std::vector<C> complex_inputs(double level, unsigned seed) {
  using T = part<C>;
  std::vector<C> v = {{3, 4}, {-3, -4}, {0, 0}, {T(-0.0), 0}, {1, 0}, {0, -1}};
  if constexpr (std::is_floating_point_v<T>) {
    v.insert(v.end(),
             {{std::numeric_limits<T>::quiet_NaN(), 1}, {std::numeric_limits<T>::infinity(), 2}});
  } else {
    v.insert(v.end(), {{-32768, -32768}, {32767, -32768}});
  }
  std::mt19937_64 g(seed);
  std::uniform_real_distribution<double> u(-4 * level - 3, 4 * level + 3);
  while (v.size() < 300) {
    const C x{static_cast<T>(u(g)), static_cast<T>(u(g))};
    if (std::fabs(std::hypot(double(x.re), double(x.im)) - level) > 1e-5 * level) v.push_back(x);
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

// Parts equal within a few units of the part type's precision relative to scale (16-bit parts
// exactly: the binary64 and long-double moves round alike away from ties, which these inputs miss).
template <class C>
bool near(C got, C want, LD scale) {
  using T = part<C>;
  const auto close = [&](T g, T w) {
    if (std::isnan(static_cast<LD>(w))) return std::isnan(static_cast<LD>(g));
    if (std::isinf(static_cast<LD>(w))) return g == w;
    const LD tol = std::is_same_v<T, float> ? 4e-7L : std::is_same_v<T, double> ? 1e-15L : 0.0L;
    return std::fabs(static_cast<LD>(g) - w) <= tol * scale;
  };
  return close(got.re, want.re) && close(got.im, want.im);
}

#define CHECK_COMPLEX(S)                                                                        \
  do {                                                                                          \
    using C = Vek##S;                                                                           \
    using T = part<C>;                                                                          \
    for (T lv : {T{5}, T{40}}) {                                                                \
      const auto vals = complex_inputs<C>(lv, static_cast<unsigned>(lv));                       \
      const auto eq = [lv](C a, C b) { return near(a, b, lv); };                                \
      const auto less = [&](C x) { return keep(mag(x) < lv ? moved(x, lv) : x); };              \
      const auto more = [&](C x) { return keep(mag(x) > lv ? moved(x, lv) : x); };              \
      const C val{7, -2};                                                                       \
      check_member("LT", vals, BOTH(veksThreshold_LT_##S, lv), less, eq);                       \
      check_member("GT", vals, BOTH(veksThreshold_GT_##S, lv), more, eq);                       \
      check_member("Threshold less", vals, BOTH(veksThreshold_##S, lv, vekRelLess), less, eq);  \
      check_member("Threshold greater", vals, BOTH(veksThreshold_##S, lv, vekRelGreater), more, \
                   eq);                                                                         \
      check_member(                                                                             \
          "LTVal", vals, BOTH(veksThreshold_LTVal_##S, lv, val),                                \
          [&](C x) { return keep(mag(x) < lv ? val : x); }, eq);                                \
      check_member(                                                                             \
          "GTVal", vals, BOTH(veksThreshold_GTVal_##S, lv, val),                                \
          [&](C x) { return keep(mag(x) > lv ? val : x); }, eq);                                \
    }                                                                                           \
    /* Level 0: LT copies the source bit for bit, Threshold/GT zero everything (NaN too). */    \
    const auto vals = complex_inputs<C>(5, 3);                                                  \
    const int n = static_cast<int>(vals.size());                                                \
    Guarded<C> d(vals.size(), 8);                                                               \
    ASSERT_EQ(veksThreshold_LT_##S(vals.data(), d.data(), n, 0), vekStatusOk);                  \
    EXPECT_EQ(std::memcmp(d.data(), vals.data(), sizeof(C) * vals.size()), 0);                  \
    ASSERT_EQ(veksThreshold_##S(vals.data(), d.data(), n, 0, vekRelGreater), vekStatusOk);      \
    for (size_t i = 0; i < vals.size(); ++i) ASSERT_TRUE(d[i].re == 0 && d[i].im == 0) << i;    \
    ASSERT_TRUE(d.guards_intact());                                                             \
  } while (0)

TEST(ThresholdComplex, MagnitudeKeepsPhase) {
  CHECK_COMPLEX(16sc);
  CHECK_COMPLEX(32fc);
  CHECK_COMPLEX(64fc);
}

// Level 0: a zero gives (+-Inf with the real part's sign, 0 with the imaginary part's reversed).
template <class C>
Out<C> inv_ref(C x, part<C> level) {
  using T = part<C>;
  if (level == 0 && x.re == 0 && x.im == 0)
    return {{std::copysign(std::numeric_limits<T>::infinity(), x.re), std::copysign(T{0}, -x.im)},
            true};
  const LD m = mag(x);
  const C y = m < level ? moved(x, level) : x;
  if (std::isinf(m)) return {{std::copysign(T{0}, y.re), std::copysign(T{0}, -y.im)}};
  const LD q = static_cast<LD>(y.re) * y.re + static_cast<LD>(y.im) * y.im;
  return {{static_cast<T>(y.re / q), static_cast<T>(-y.im / q)}};
}

TEST(ThresholdLTInv, Complex) {
  const auto eq = [](auto a, auto b) {
    return near(a, b, std::fmax(std::fabs(b.re), std::fabs(b.im)));
  };
  auto v32 = complex_inputs<Vek32fc>(5, 11);
  auto v64 = complex_inputs<Vek64fc>(5, 11);
  v32.back() = {-0.0f, -0.0f}, v64.back() = {-0.0, -0.0};
  for (double level : {0.0, 5.0}) {
    const auto ref = [&](auto x) { return inv_ref(x, decltype(x.re)(level)); };
    check_member("LTInv_32fc", v32, BOTH(veksThreshold_LTInv_32fc, float(level)), ref, eq,
                 vekStatusWarnSingular);
    check_member("LTInv_64fc", v64, BOTH(veksThreshold_LTInv_64fc, level), ref, eq,
                 vekStatusWarnSingular);
  }
}

}  // namespace
