// Thresholding: every relation of every element type, out of place and in place, against scalar
// references (long double magnitudes for complex elements), at lengths that reach the vector body
// and the tail; the argument-check order; the level-0 paths; LTInv's warnings on the calling
// thread and on the threaded path; the caller's floating-point state.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <ostream>
#include <random>
#include <vector>

#include "convert/support.hpp"
#include "vekcore.h"

// Complex elements in failure messages (found by argument-dependent lookup: global types).
template <class C>
requires requires(C c) { c.im; }
std::ostream& operator<<(std::ostream& o, const C& c) {
  return o << "(" << static_cast<long double>(c.re) << ", " << static_cast<long double>(c.im)
           << ")";
}

namespace {

using namespace veks_test;

template <class T>
bool same(T a, T b) {
  if constexpr (std::is_floating_point_v<T>) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return std::memcmp(&a, &b, sizeof a) == 0;  // -0 and +0 differ
  } else {
    return a == b;
  }
}

// Values of a real type: limits, zeros, infinities, NaN, subnormals, the levels used below and
// their neighbours, random values in +-2^(bits-2) (integers) or +-8 (floating point).
template <class T>
std::vector<T> real_inputs(unsigned seed) {
  std::vector<T> v;
  using L = std::numeric_limits<T>;
  for (long double x :
       {0.0L, 1.0L, -1.0L, 2.0L, -2.0L, 3.0L, -3.0L, 4.0L, -4.0L, 5.0L, -5.0L, 0.5L, -0.5L})
    v.push_back(static_cast<T>(x));
  v.insert(v.end(),
           {L::lowest(), L::max(), static_cast<T>(L::lowest() + 1), static_cast<T>(L::max() - 1)});
  if constexpr (std::is_floating_point_v<T>) {
    v.insert(v.end(), {-0.0, L::infinity(), -L::infinity(), L::quiet_NaN(), -L::quiet_NaN(),
                       L::denorm_min(), -L::denorm_min(), std::nextafter(T{2}, T{0}),
                       std::nextafter(T{-2}, T{0}), std::nextafter(T{3}, T{9})});
    std::mt19937_64 g(seed);
    std::uniform_real_distribution<T> u(-8, 8);
    while (v.size() < 300) v.push_back(u(g));
  } else {
    std::mt19937_64 g(seed);
    std::uniform_int_distribution<long long> u(L::min() / 2, L::max() / 2);
    std::uniform_int_distribution<long long> small(-8, 8);
    while (v.size() < 300) v.push_back(static_cast<T>(v.size() % 2 ? u(g) : small(g)));
  }
  return v;
}

// Runs a member out of place and in place on rotated slices of vals at every shape and compares
// each element with ref(x) through eq; status is the expected return value.
template <class T, class Run, class RunI, class Ref, class Eq>
void check_member(const char* what, const std::vector<T>& vals, Run run, RunI run_i, Ref ref, Eq eq,
                  VekStatus status = vekStatusOk) {
  size_t k = 0;
  for (const Shape& sh : shapes()) {
    const size_t n = sh.len;
    const size_t mis = (sh.misalign * sizeof(T)) % 64;
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
      ASSERT_TRUE(eq(d[i], want)) << what << " element " << i << " of " << n << ": " << s[i]
                                  << " gave " << d[i] << ", expected " << want;
      ASSERT_TRUE(eq(io[i], want))
          << what << " in place, element " << i << " of " << n << ": " << io[i];
    }
    ASSERT_EQ(st, has_status ? status : vekStatusOk) << what;
    ASSERT_EQ(st_i, st) << what;
    ASSERT_TRUE(d.guards_intact() && io.guards_intact() && s.guards_intact()) << what;
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

// ---- real members ------------------------------------------------------------------------------

template <class T>
using Fn2 = VekStatus (*)(const T*, T*, int, T);
template <class T>
using Fn2I = VekStatus (*)(T*, int, T);

template <class T>
long double wabs(T x) {
  return std::fabs(static_cast<long double>(x));
}
template <class T>
T with_sign(T level, T x) {  // the level carrying the sign of x (an integer 0 counts as positive)
  if constexpr (std::is_floating_point_v<T>) return std::copysign(level, x);
  return x < 0 ? static_cast<T>(-level) : level;
}

template <class T>
struct RealMembers {
  Fn2<T> lt, gt, lt_abs, gt_abs;
  Fn2I<T> lt_i, gt_i, lt_abs_i, gt_abs_i;
  VekStatus (*lt_val_gt_val)(const T*, T*, int, T, T, T, T);
  VekStatus (*lt_val_gt_val_i)(T*, int, T, T, T, T);
  VekStatus (*lt_abs_val)(const T*, T*, int, T, T);
  VekStatus (*lt_abs_val_i)(T*, int, T, T);
};

template <class T>
void check_real(const RealMembers<T>& m, T level) {
  const auto vals = real_inputs<T>(static_cast<unsigned>(level) + 5);
  const auto eq = [](T a, T b) { return same(a, b); };
  const auto bind = [level](auto f) {
    return [f, level](const T* s, T* d, int n) { return f(s, d, n, level); };
  };
  const auto bind_i = [level](auto f) {
    return [f, level](T* sd, int n) { return f(sd, n, level); };
  };
  check_member(
      "LT", vals, bind(m.lt), bind_i(m.lt_i), [&](T x) { return keep(x < level ? level : x); }, eq);
  check_member(
      "GT", vals, bind(m.gt), bind_i(m.gt_i), [&](T x) { return keep(x > level ? level : x); }, eq);
  check_member(
      "LTAbs", vals, bind(m.lt_abs), bind_i(m.lt_abs_i),
      [&](T x) { return keep(wabs(x) < level ? with_sign(level, x) : x); }, eq);
  check_member(
      "GTAbs", vals, bind(m.gt_abs), bind_i(m.gt_abs_i),
      [&](T x) {
        return keep(wabs(x) > level || std::isnan(wabs(x)) ? with_sign(level, x)
                                                           : x);  // NaN lies above every level
      },
      eq);
  const T lo = static_cast<T>(-level), v1 = static_cast<T>(7), v2 = static_cast<T>(-9);
  check_member(
      "LTValGTVal", vals,
      [&](const T* s, T* d, int n) { return m.lt_val_gt_val(s, d, n, lo, v1, level, v2); },
      [&](T* sd, int n) { return m.lt_val_gt_val_i(sd, n, lo, v1, level, v2); },
      [&](T x) { return keep(x < lo      ? v1
                             : x > level ? v2
                                         : x); }, eq);
  for (T lv : {level, static_cast<T>(-level)}) {  // a negative level replaces nothing
    check_member(
        "LTAbsVal", vals, [&](const T* s, T* d, int n) { return m.lt_abs_val(s, d, n, lv, v1); },
        [&](T* sd, int n) { return m.lt_abs_val_i(sd, n, lv, v1); },
        [&](T x) { return keep(wabs(x) < lv ? v1 : x); }, eq);
  }
}

#define REAL_MEMBERS(T)                                                                           \
  RealMembers<Vek##T> {                                                                           \
    veksThreshold_LT_##T, veksThreshold_GT_##T, veksThreshold_LTAbs_##T, veksThreshold_GTAbs_##T, \
        veksThreshold_LT_##T##_I, veksThreshold_GT_##T##_I, veksThreshold_LTAbs_##T##_I,          \
        veksThreshold_GTAbs_##T##_I, veksThreshold_LTValGTVal_##T,                                \
        veksThreshold_LTValGTVal_##T##_I, veksThreshold_LTAbsVal_##T,                             \
        veksThreshold_LTAbsVal_##T##_I                                                            \
  }

TEST(ThresholdReal, EveryRelation) {
  for (int level : {0, 2, 3, 100}) {
    check_real<Vek16s>(REAL_MEMBERS(16s), static_cast<Vek16s>(level));
    check_real<Vek32s>(REAL_MEMBERS(32s), level);
    check_real<Vek32f>(REAL_MEMBERS(32f), static_cast<float>(level));
    check_real<Vek64f>(REAL_MEMBERS(64f), level);
  }
  check_real<Vek16s>(REAL_MEMBERS(16s), 32767);  // |-32768| lies above every level
}

// The plain members with a relation, and the value members of real types.
template <class T>
void check_relation_and_values(VekStatus (*rel)(const T*, T*, int, T, int),
                               VekStatus (*rel_i)(T*, int, T, int),
                               VekStatus (*ltv)(const T*, T*, int, T, T),
                               VekStatus (*ltv_i)(T*, int, T, T),
                               VekStatus (*gtv)(const T*, T*, int, T, T),
                               VekStatus (*gtv_i)(T*, int, T, T)) {
  const auto vals = real_inputs<T>(9);
  const auto eq = [](T a, T b) { return same(a, b); };
  const T level = 3, value = -6;
  check_member(
      "Threshold less", vals,
      [&](const T* s, T* d, int n) { return rel(s, d, n, level, vekRelLess); },
      [&](T* sd, int n) { return rel_i(sd, n, level, vekRelLess); },
      [&](T x) { return keep(x < level ? level : x); }, eq);
  check_member(
      "Threshold greater", vals,
      [&](const T* s, T* d, int n) { return rel(s, d, n, level, vekRelGreater); },
      [&](T* sd, int n) { return rel_i(sd, n, level, vekRelGreater); },
      [&](T x) { return keep(x > level ? level : x); }, eq);
  check_member(
      "LTVal", vals, [&](const T* s, T* d, int n) { return ltv(s, d, n, level, value); },
      [&](T* sd, int n) { return ltv_i(sd, n, level, value); },
      [&](T x) { return keep(x < level ? value : x); }, eq);
  check_member(
      "GTVal", vals, [&](const T* s, T* d, int n) { return gtv(s, d, n, level, value); },
      [&](T* sd, int n) { return gtv_i(sd, n, level, value); },
      [&](T x) { return keep(x > level ? value : x); }, eq);
  Guarded<T> s(8), d(8);
  for (int bad : {1, 2, 3, 7, -4}) {
    EXPECT_EQ(rel(s.data(), d.data(), 8, level, bad), vekStatusBadArg);
    EXPECT_EQ(rel_i(d.data(), 8, level, bad), vekStatusBadArg);
  }
  EXPECT_EQ(rel(s.data(), d.data(), 0, level, 9), vekStatusBadSize);
  EXPECT_EQ(rel(s.data(), nullptr, 0, level, 9), vekStatusNullPtr);
  EXPECT_TRUE(d.unchanged());
}

TEST(ThresholdReal, RelationAndValues) {
  check_relation_and_values<Vek16s>(veksThreshold_16s, veksThreshold_16s_I, veksThreshold_LTVal_16s,
                                    veksThreshold_LTVal_16s_I, veksThreshold_GTVal_16s,
                                    veksThreshold_GTVal_16s_I);
  check_relation_and_values<Vek32f>(veksThreshold_32f, veksThreshold_32f_I, veksThreshold_LTVal_32f,
                                    veksThreshold_LTVal_32f_I, veksThreshold_GTVal_32f,
                                    veksThreshold_GTVal_32f_I);
  check_relation_and_values<Vek64f>(veksThreshold_64f, veksThreshold_64f_I, veksThreshold_LTVal_64f,
                                    veksThreshold_LTVal_64f_I, veksThreshold_GTVal_64f,
                                    veksThreshold_GTVal_64f_I);
}

TEST(ThresholdReal, DocumentedCases) {
  const float in[] = {-1.0f, 0.5f, 3.0f, -0.0f};
  float out[4];
  ASSERT_EQ(veksThreshold_LTAbs_32f(in, out, 3, 2.0f), vekStatusOk);
  EXPECT_EQ(out[0], -2.0f);
  EXPECT_EQ(out[1], 2.0f);
  EXPECT_EQ(out[2], 3.0f);
  ASSERT_EQ(veksThreshold_LTAbs_32f(in + 3, out, 1, 0.0f), vekStatusOk);
  EXPECT_TRUE(std::signbit(out[0]) && out[0] == 0);
  const float v[] = {-1.0f, 0.0f, 2.0f};
  ASSERT_EQ(veksThreshold_LTValGTVal_32f(v, out, 3, 0.0f, -7.0f, 0.0f, 9.0f), vekStatusOk);
  EXPECT_EQ(out[0], -7.0f);
  EXPECT_EQ(out[1], 0.0f);
  EXPECT_EQ(out[2], 9.0f);
}

// Check order and the members refusing a negative level or crossed levels; nothing is written.
TEST(ThresholdReal, ArgumentChecks) {
  Guarded<float> s(8), d(8);
  EXPECT_EQ(veksThreshold_LT_32f(nullptr, d.data(), 8, 1), vekStatusNullPtr);
  EXPECT_EQ(veksThreshold_LT_32f(s.data(), nullptr, 8, 1), vekStatusNullPtr);
  EXPECT_EQ(veksThreshold_LT_32f_I(nullptr, 0, 1), vekStatusNullPtr);
  EXPECT_EQ(veksThreshold_GT_32f(s.data(), d.data(), 0, 1), vekStatusBadSize);
  EXPECT_EQ(veksThreshold_LTAbs_32f(s.data(), d.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_GTAbs_32f_I(d.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTAbs_32f(s.data(), d.data(), 0, -1), vekStatusBadSize);
  EXPECT_EQ(veksThreshold_LTInv_32f(s.data(), d.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTValGTVal_32f(s.data(), d.data(), 8, 2, 0, 1, 0),
            vekStatusLevelsCrossed);
  EXPECT_EQ(veksThreshold_LTValGTVal_32f(s.data(), d.data(), 0, 2, 0, 1, 0), vekStatusBadSize);
  Guarded<Vek16s> i16(8);
  EXPECT_EQ(veksThreshold_LTAbs_16s_I(i16.data(), 8, -1), vekStatusNegativeLevel);
  EXPECT_EQ(veksThreshold_LTValGTVal_16s_I(i16.data(), 8, 5, 0, 4, 0), vekStatusLevelsCrossed);
  EXPECT_TRUE(d.unchanged() && s.unchanged() && i16.unchanged());
}

// ---- LTInv ------------------------------------------------------------------------------------

template <class T>
void check_inv_real(Fn2<T> f, Fn2I<T> fi) {
  const auto vals = real_inputs<T>(21);
  const auto eq = [](T a, T b) { return same(a, b); };
  for (T level : {T{0}, T{2}, T{0.25}}) {
    check_member(
        "LTInv", vals, [&](const T* s, T* d, int n) { return f(s, d, n, level); },
        [&](T* sd, int n) { return fi(sd, n, level); },
        [&](T x) {
          if (std::isnan(x)) return Out<T>{x};
          const T m = std::copysign(std::fmax(std::fabs(x), level), x);
          return Out<T>{static_cast<T>(T{1} / m), level == 0 && x == 0};
        },
        eq, vekStatusWarnSingular);
  }
  const T in[] = {0, 2};
  T out[2];
  EXPECT_EQ(f(in, out, 2, 0), vekStatusWarnSingular);
  EXPECT_EQ(out[0], std::numeric_limits<T>::infinity());
  EXPECT_EQ(out[1], T{0.5});
}

TEST(ThresholdLTInv, Real) {
  check_inv_real<Vek32f>(veksThreshold_LTInv_32f, veksThreshold_LTInv_32f_I);
  check_inv_real<Vek64f>(veksThreshold_LTInv_64f, veksThreshold_LTInv_64f_I);
}

// From 8192 elements the threaded path runs and a zero under level 0 warns with 6, below with 4;
// results are those of the serial path whatever the thread count.
TEST(ThresholdLTInv, ThreadedPath) {
  for (int threads : {2, 1}) {
    int before = 0;
    vekGetNumThreads(&before);
    vekSetNumThreads(threads);
    for (int n : {8191, 8192, 10001}) {
      std::vector<float> s(static_cast<size_t>(n));
      for (int i = 0; i < n; ++i) s[static_cast<size_t>(i)] = static_cast<float>(i % 97) - 40.0f;
      std::vector<float> d(s.size()), one(s.size());
      const VekStatus warn = n >= 8192 ? vekStatusWarnZeroDivisor : vekStatusWarnSingular;
      EXPECT_EQ(veksThreshold_LTInv_32f(s.data(), d.data(), n, 0.0f), warn) << n;
      for (size_t i = 0; i < s.size(); ++i) ASSERT_TRUE(same(d[i], 1.0f / s[i])) << i;
      EXPECT_EQ(veksThreshold_LTInv_32f(s.data(), d.data(), n, 3.0f), vekStatusOk);
      for (size_t i = 0; i < s.size(); ++i)
        ASSERT_TRUE(same(d[i], 1.0f / std::copysign(std::fmax(std::fabs(s[i]), 3.0f), s[i])));
      std::vector<Vek64fc> c(s.size()), cd(s.size());
      for (size_t i = 0; i < s.size(); ++i) c[i] = {s[i], 0.0};
      EXPECT_EQ(veksThreshold_LTInv_64fc(c.data(), cd.data(), n, 0.0), warn) << n;
      std::vector<Vek32f> nz(s.size(), 3.0f);
      EXPECT_EQ(veksThreshold_LTInv_32f_I(nz.data(), n, 0.0f), vekStatusOk);
    }
    vekSetNumThreads(before);
  }
}

// ---- complex members --------------------------------------------------------------------------

template <class C>
using part = decltype(C{}.re);

// Complex inputs: magnitudes from 0 to about 4 * level, none within a relative 1e-5 of the level
// except exact ones (3, 4) and (-3, -4) at level 5, zeros, NaN and an infinity.
template <class C>
std::vector<C> complex_inputs(double level, unsigned seed) {
  using T = part<C>;
  std::vector<C> v = {{3, 4}, {-3, -4}, {0, 0}, {T(-0.0), 0}, {1, 0}, {0, -1}};
  if constexpr (std::is_floating_point_v<T>) {
    v.push_back({std::numeric_limits<T>::quiet_NaN(), 1});
    v.push_back({std::numeric_limits<T>::infinity(), 2});
  } else {
    v.push_back({-32768, -32768});
    v.push_back({32767, -32768});
  }
  std::mt19937_64 g(seed);
  std::uniform_real_distribution<double> u(-4 * level - 3, 4 * level + 3);
  while (v.size() < 300) {
    const C x{static_cast<T>(u(g)), static_cast<T>(u(g))};
    const double m = std::hypot(double(x.re), double(x.im));
    if (std::fabs(m - level) > 1e-5 * level) v.push_back(x);
  }
  return v;
}

// Expected element in long double: x moved to magnitude level (zero: (level, 0)), rounded to the
// part type (16-bit parts to nearest-even).
template <class C>
C moved(C x, long double level) {
  using T = part<C>;
  const long double m = std::hypot(static_cast<long double>(x.re), static_cast<long double>(x.im));
  long double re = m == 0 ? level : x.re * (level / m), im = m == 0 ? 0 : x.im * (level / m);
  if constexpr (!std::is_floating_point_v<T>) {
    re = std::nearbyint(re);
    im = std::nearbyint(im);
  }
  return {static_cast<T>(re), static_cast<T>(im)};
}

// Parts equal within a few units of the part type's precision relative to scale (exact for
// 16-bit parts except at a rounding tie, where one unit is allowed).
template <class C>
bool near(C got, C want, long double scale) {
  using T = part<C>;
  const auto close = [&](T g, T w) {
    if (std::isnan(static_cast<long double>(w))) return std::isnan(static_cast<long double>(g));
    if (std::isinf(static_cast<long double>(w))) return g == w;
    const long double tol = std::is_same_v<T, float>    ? 4e-7L
                            : std::is_same_v<T, double> ? 1e-15L
                                                        : 1.0L;
    return std::fabs(static_cast<long double>(g) - w) <= tol * scale;
  };
  return close(got.re, want.re) && close(got.im, want.im);
}

template <class C>
struct ComplexMembers {
  using T = part<C>;
  VekStatus (*rel)(const C*, C*, int, T, int);
  VekStatus (*rel_i)(C*, int, T, int);
  VekStatus (*lt)(const C*, C*, int, T);
  VekStatus (*lt_i)(C*, int, T);
  VekStatus (*gt)(const C*, C*, int, T);
  VekStatus (*gt_i)(C*, int, T);
  VekStatus (*ltv)(const C*, C*, int, T, C);
  VekStatus (*ltv_i)(C*, int, T, C);
  VekStatus (*gtv)(const C*, C*, int, T, C);
  VekStatus (*gtv_i)(C*, int, T, C);
};

template <class C>
void check_complex(const ComplexMembers<C>& m) {
  using T = part<C>;
  for (T level : {T{5}, T{40}}) {
    const auto vals = complex_inputs<C>(level, static_cast<unsigned>(level));
    const long double lv = level;
    const auto eq = [lv](C a, C b) { return near(a, b, lv); };
    const auto mag = [](C x) {
      return std::hypot(static_cast<long double>(x.re), static_cast<long double>(x.im));
    };
    const auto less = [&](C x) { return keep(mag(x) < lv ? moved(x, lv) : x); };
    const auto more = [&](C x) { return keep(mag(x) > lv ? moved(x, lv) : x); };
    const C value{7, -2};
    check_member(
        "LT", vals, [&](const C* s, C* d, int n) { return m.lt(s, d, n, level); },
        [&](C* sd, int n) { return m.lt_i(sd, n, level); }, less, eq);
    check_member(
        "GT", vals, [&](const C* s, C* d, int n) { return m.gt(s, d, n, level); },
        [&](C* sd, int n) { return m.gt_i(sd, n, level); }, more, eq);
    check_member(
        "Threshold less", vals,
        [&](const C* s, C* d, int n) { return m.rel(s, d, n, level, vekRelLess); },
        [&](C* sd, int n) { return m.rel_i(sd, n, level, vekRelLess); }, less, eq);
    check_member(
        "Threshold greater", vals,
        [&](const C* s, C* d, int n) { return m.rel(s, d, n, level, vekRelGreater); },
        [&](C* sd, int n) { return m.rel_i(sd, n, level, vekRelGreater); }, more, eq);
    check_member(
        "LTVal", vals, [&](const C* s, C* d, int n) { return m.ltv(s, d, n, level, value); },
        [&](C* sd, int n) { return m.ltv_i(sd, n, level, value); },
        [&](C x) { return keep(mag(x) < lv ? value : x); }, eq);
    check_member(
        "GTVal", vals, [&](const C* s, C* d, int n) { return m.gtv(s, d, n, level, value); },
        [&](C* sd, int n) { return m.gtv_i(sd, n, level, value); },
        [&](C x) { return keep(mag(x) > lv ? value : x); }, eq);
  }
  // Level 0: Threshold/LT copy the source bit for bit, Threshold/GT zero every element (NaN too).
  const auto vals = complex_inputs<C>(5, 3);
  const int n = static_cast<int>(vals.size());
  Guarded<C> d(vals.size(), 8);
  ASSERT_EQ(m.lt(vals.data(), d.data(), n, 0), vekStatusOk);
  EXPECT_EQ(std::memcmp(d.data(), vals.data(), sizeof(C) * vals.size()), 0);
  ASSERT_EQ(m.rel(vals.data(), d.data(), n, 0, vekRelGreater), vekStatusOk);
  for (int i = 0; i < n; ++i)
    ASSERT_TRUE(d[static_cast<size_t>(i)].re == 0 && d[static_cast<size_t>(i)].im == 0);
  ASSERT_TRUE(d.guards_intact());
  // Checks: relation before level, negative level for every member.
  d.remember();
  EXPECT_EQ(m.rel(vals.data(), d.data(), n, -1, 2), vekStatusBadArg);
  EXPECT_EQ(m.rel_i(d.data(), n, 1, 3), vekStatusBadArg);
  EXPECT_EQ(m.rel(vals.data(), d.data(), n, -1, vekRelLess), vekStatusNegativeLevel);
  EXPECT_EQ(m.lt(vals.data(), d.data(), n, -1), vekStatusNegativeLevel);
  EXPECT_EQ(m.gt_i(d.data(), n, -1), vekStatusNegativeLevel);
  EXPECT_EQ(m.ltv(vals.data(), d.data(), n, -1, C{}), vekStatusNegativeLevel);
  EXPECT_EQ(m.gtv_i(d.data(), n, -1, C{}), vekStatusNegativeLevel);
  EXPECT_EQ(m.gtv(vals.data(), nullptr, 0, -1, C{}), vekStatusNullPtr);
  EXPECT_EQ(m.lt(vals.data(), d.data(), 0, -1), vekStatusBadSize);
  EXPECT_TRUE(d.unchanged());
}

#define COMPLEX_MEMBERS(T)                                                                    \
  ComplexMembers<Vek##T> {                                                                    \
    veksThreshold_##T, veksThreshold_##T##_I, veksThreshold_LT_##T, veksThreshold_LT_##T##_I, \
        veksThreshold_GT_##T, veksThreshold_GT_##T##_I, veksThreshold_LTVal_##T,              \
        veksThreshold_LTVal_##T##_I, veksThreshold_GTVal_##T, veksThreshold_GTVal_##T##_I     \
  }

TEST(ThresholdComplex, MagnitudeKeepsPhase) {
  check_complex<Vek16sc>(COMPLEX_MEMBERS(16sc));
  check_complex<Vek32fc>(COMPLEX_MEMBERS(32fc));
  check_complex<Vek64fc>(COMPLEX_MEMBERS(64fc));
}

template <class C>
void check_inv_complex(VekStatus (*f)(const C*, C*, int, part<C>),
                       VekStatus (*fi)(C*, int, part<C>)) {
  using T = part<C>;
  for (T level : {T{0}, T{5}}) {
    auto vals = complex_inputs<C>(5, 11);
    vals.resize(vals.size() - 1);
    vals.push_back({T(-0.0), T(-0.0)});
    check_member(
        "LTInv", vals, [&](const C* s, C* d, int n) { return f(s, d, n, level); },
        [&](C* sd, int n) { return fi(sd, n, level); },
        [&](C x) {
          if (level == 0 && x.re == 0 && x.im == 0)
            return Out<C>{{std::copysign(std::numeric_limits<T>::infinity(), x.re),
                           std::copysign(T{0}, -x.im)},
                          true};
          const long double m =
              std::hypot(static_cast<long double>(x.re), static_cast<long double>(x.im));
          const C y = m < level ? moved(x, level) : x;
          if (std::isinf(m)) return Out<C>{{std::copysign(T{0}, y.re), std::copysign(T{0}, -y.im)}};
          const long double q =
              static_cast<long double>(y.re) * y.re + static_cast<long double>(y.im) * y.im;
          return Out<C>{{static_cast<T>(y.re / q), static_cast<T>(-y.im / q)}};
        },
        [](C a, C b) { return near(a, b, std::fmax(std::fabs(b.re), std::fabs(b.im))); },
        vekStatusWarnSingular);
  }
}

TEST(ThresholdLTInv, Complex) {
  check_inv_complex<Vek32fc>(veksThreshold_LTInv_32fc, veksThreshold_LTInv_32fc_I);
  check_inv_complex<Vek64fc>(veksThreshold_LTInv_64fc, veksThreshold_LTInv_64fc_I);
}

}  // namespace
