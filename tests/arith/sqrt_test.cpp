// Square roots against independent models: the IEEE root for real floating point, a long-double
// principal root for complex values, exact integer arithmetic for the scaled integer roots; the
// threaded members against their serial results.
#include <gtest/gtest.h>

#include <climits>
#include <complex>
#include <functional>
#include <string>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "vekcore.h"
#include "veks.h"

namespace {

using veks_test::exact_root;
using veks_test::Guarded;
using veks_test::Rng;
using veks_test::same_bits;

constexpr int kSfs[] = {INT_MIN, -40, -17, -16, -9, -2, -1, 0,  1,
                        2,       5,   8,   9,   15, 16, 17, 40, INT_MAX};

// ---- real floating point ----------------------------------------------------------------------

template <class F>
struct RealRoot;
template <>
struct RealRoot<float> {
  static constexpr auto out = veksSqrt_32f;
  static constexpr auto in = veksSqrt_32f_I;
};
template <>
struct RealRoot<double> {
  static constexpr auto out = veksSqrt_64f;
  static constexpr auto in = veksSqrt_64f_I;
};

template <class F>
class RealSqrt : public ::testing::Test {};
using RealTypes = ::testing::Types<float, double>;
TYPED_TEST_SUITE(RealSqrt, RealTypes);

// Every length 1..130 at a moving misalignment, out of place, in place and with one vector as
// both arguments: the correctly rounded root, a NaN at negative elements and warning 3 exactly
// when one was present; special values sprinkled in.
TYPED_TEST(RealSqrt, CorrectlyRoundedWithNaNAndWarningForNegatives) {
  using F = TypeParam;
  constexpr F inf = std::numeric_limits<F>::infinity();
  const F specials[] = {F(-0.0),
                        F(0),
                        inf,
                        -inf,
                        std::numeric_limits<F>::quiet_NaN(),
                        std::numeric_limits<F>::denorm_min(),
                        std::numeric_limits<F>::max()};
  Rng rng{1};
  constexpr int emax = std::numeric_limits<F>::max_exponent - 1;
  constexpr int emin = std::numeric_limits<F>::min_exponent - std::numeric_limits<F>::digits;
  for (int len = 1; len <= 130; ++len) {
    const size_t mis = (len % 16) * sizeof(F) % 64;
    Guarded<F> src(len, mis), out(len, (mis + 2 * sizeof(F)) % 64), in(len, mis);
    bool neg = false;
    for (int i = 0; i < len; ++i) {
      F v = std::fabs(rng.wide<F>(emin, emax));
      if (rng.next() % 8 == 0) v = -v;
      if (rng.next() % 16 == 0) v = specials[rng.next() % std::size(specials)];
      src[i] = in[i] = v;
      neg |= v < 0;
    }
    const VekStatus want = neg ? vekStatusWarnNegSqrt : vekStatusOk;
    ASSERT_EQ(RealRoot<F>::out(src.data(), out.data(), len), want) << "len " << len;
    ASSERT_EQ(RealRoot<F>::in(in.data(), len), want) << "len " << len;
    for (int i = 0; i < len; ++i) {
      const F x = src[i];
      if (x < 0 || std::isnan(x)) {
        ASSERT_TRUE(std::isnan(out[i])) << "len " << len << ", x " << x;
      } else {
        ASSERT_TRUE(same_bits(out[i], std::sqrt(x))) << "len " << len << ", x " << x;
      }
      ASSERT_TRUE(same_bits(in[i], out[i]) || (std::isnan(in[i]) && std::isnan(out[i])));
    }
    ASSERT_TRUE(out.guards_intact() && in.guards_intact());
    ASSERT_EQ(RealRoot<F>::out(in.data(), in.data(), len), vekStatusOk);  // NaNs do not warn
  }
  const F edge[] = {F(-0.0), F(-1), std::numeric_limits<F>::quiet_NaN(), inf};
  Guarded<F> d(4);
  ASSERT_EQ(RealRoot<F>::out(edge, d.data(), 4), vekStatusWarnNegSqrt);
  EXPECT_TRUE(same_bits(d[0], F(-0.0)) && std::isnan(d[1]) && std::isnan(d[2]) && d[3] == inf);
  EXPECT_EQ(RealRoot<F>::out(edge + 2, d.data(), 1), vekStatusOk);
}

// ---- integer roots ----------------------------------------------------------------------------

template <class S, class D>
using IntFn = VekStatus (*)(const S*, D*, int, int);

// Every value of the source type (or a spread of 32-bit values), every scale factor of kSfs,
// against the exact integer model; the in-place form where it exists gives the same.
template <class S, class D>
void check_integer_roots(IntFn<S, D> fn, VekStatus (*in_place)(S*, int, int),
                         const std::vector<S>& xs) {
  const int len = static_cast<int>(xs.size());
  bool neg = false;
  for (S x : xs) neg |= x < 0;
  for (int sf : kSfs) {
    Guarded<D> d(len, 2 * sizeof(D));
    ASSERT_EQ(fn(xs.data(), d.data(), len, sf), neg ? vekStatusWarnNegSqrt : vekStatusOk);
    for (int i = 0; i < len; ++i) {
      const D want = xs[i] < 0 ? D(0) : exact_root<D>(static_cast<uint64_t>(xs[i]), sf);
      ASSERT_EQ(d[i], want) << "x " << +xs[i] << ", sf " << sf;
    }
    ASSERT_TRUE(d.guards_intact());
    if constexpr (std::is_same_v<S, D>) {
      Guarded<S> io(len, sizeof(S));
      std::copy(xs.begin(), xs.end(), io.data());
      ASSERT_EQ(in_place(io.data(), len, sf), neg ? vekStatusWarnNegSqrt : vekStatusOk);
      ASSERT_EQ(std::memcmp(io.data(), d.data(), len * sizeof(S)), 0) << "sf " << sf;
    }
  }
}

template <class T>
std::vector<T> every_value() {
  std::vector<T> v;
  for (long x = std::numeric_limits<T>::min(); x <= std::numeric_limits<T>::max(); ++x)
    v.push_back(static_cast<T>(x));
  return v;
}

TEST(IntegerSqrt, ExactForEveryValueAndScaleFactor) {
  check_integer_roots<Vek8u, Vek8u>(veksSqrt_8u_Sfs, veksSqrt_8u_ISfs, every_value<Vek8u>());
  check_integer_roots<Vek16u, Vek16u>(veksSqrt_16u_Sfs, veksSqrt_16u_ISfs, every_value<Vek16u>());
  check_integer_roots<Vek16s, Vek16s>(veksSqrt_16s_Sfs, veksSqrt_16s_ISfs, every_value<Vek16s>());
  std::vector<Vek32s> xs = {0, 1, 2, 3, 4, INT_MAX, INT_MAX - 1, 46340 * 46340, 46340 * 46340 + 1};
  Rng rng{2};
  for (int i = 0; i < 30000; ++i) {
    const auto r = static_cast<Vek32s>(rng.next() >> (33 + rng.next() % 31));
    xs.push_back(r);
    if (r < 46000) xs.push_back(r * r + static_cast<Vek32s>(rng.next() % 3) - 1);  // near squares
  }
  check_integer_roots<Vek32s, Vek16s>(veksSqrt_32s16s_Sfs, nullptr, xs);
  xs.push_back(-1);
  xs.push_back(INT_MIN);
  check_integer_roots<Vek32s, Vek16s>(veksSqrt_32s16s_Sfs, nullptr, xs);
}

// The documented examples, as the caller writes them.
TEST(IntegerSqrt, TiesGoToEvenAndNegativesWarn) {
  struct Case {
    Vek16s x;
    int sf;
    Vek16s want;
  } cases[] = {{9, 1, 2}, {25, 1, 2}, {2, -1, 3}, {4, 0, 2}, {32767, -1, 362}};
  for (const Case& c : cases) {
    Vek16s d = -7;
    EXPECT_EQ(veksSqrt_16s_Sfs(&c.x, &d, 1, c.sf), vekStatusOk);
    EXPECT_EQ(d, c.want) << c.x << " sf " << c.sf;
  }
  const Vek16s mixed[] = {-4, 4};
  Vek16s out[2];
  EXPECT_EQ(veksSqrt_16s_Sfs(mixed, out, 2, 0), vekStatusWarnNegSqrt);
  EXPECT_EQ(out[0], 0);
  EXPECT_EQ(out[1], 2);
  const Vek32s big = INT_MAX;
  for (auto [sf, want] : {std::pair{0, 32767}, {1, 23170}}) {
    Vek16s r;
    EXPECT_EQ(veksSqrt_32s16s_Sfs(&big, &r, 1, sf), vekStatusOk);
    EXPECT_EQ(r, want);
  }
}

// ---- complex roots -----------------------------------------------------------------------------

// The principal root in long double; both parts non-negative real, imaginary with b's sign.
std::complex<long double> principal(long double a, long double b) {
  if (a == 0 && b == 0) return {0, b};
  const long double t = std::sqrt((std::fabs(a) + std::hypot(a, b)) / 2);
  if (a >= 0) return {t, b / (2 * t)};
  return {std::fabs(b) / (2 * t), std::copysign(t, b)};
}

template <class C>
struct CplxRoot;
template <>
struct CplxRoot<Vek32fc> {
  using F = float;
  static constexpr auto out = veksSqrt_32fc;
  static constexpr auto in = veksSqrt_32fc_I;
  static constexpr long double bound = 1;
};
template <>
struct CplxRoot<Vek64fc> {
  using F = double;
  static constexpr auto out = veksSqrt_64fc;
  static constexpr auto in = veksSqrt_64fc_I;
  static constexpr long double bound = 2;
};

template <class C>
class ComplexSqrt : public ::testing::Test {};
using ComplexTypes = ::testing::Types<Vek32fc, Vek64fc>;
TYPED_TEST_SUITE(ComplexSqrt, ComplexTypes);

// Random parts over the whole exponent range (each part alone and both together), every length
// 1..130: each part within the bound of |w| in ulps, in place the same.
TYPED_TEST(ComplexSqrt, PrincipalRootWithinBound) {
  using C = TypeParam;
  using F = typename CplxRoot<C>::F;
  constexpr int emax = std::numeric_limits<F>::max_exponent - 1;
  constexpr int emin = std::numeric_limits<F>::min_exponent - std::numeric_limits<F>::digits;
  Rng rng{3};
  long double worst = 0;
  for (int len = 1; len <= 130; ++len) {
    Guarded<C> src(len, (len % 4) * sizeof(F)), out(len, sizeof(F)), in(len);
    for (int i = 0; i < len; ++i) {
      const int kind = static_cast<int>(rng.next() % 4);
      F a = rng.wide<F>(emin, emax), b = rng.wide<F>(emin, emax);
      if (kind == 1) b = std::ldexp(a, -rng.range(0, 60));  // comparable parts
      if (kind == 2) a = 0;
      if (kind == 3) b = 0;
      src[i] = in[i] = C{a, b};
    }
    ASSERT_EQ(CplxRoot<C>::out(src.data(), out.data(), len), vekStatusOk);
    ASSERT_EQ(CplxRoot<C>::in(in.data(), len), vekStatusOk);
    ASSERT_EQ(std::memcmp(in.data(), out.data(), len * sizeof(C)), 0);
    ASSERT_TRUE(out.guards_intact() && in.guards_intact());
    for (int i = 0; i < len; ++i) {
      const auto w = principal(src[i].re, src[i].im);
      const long double mag = std::abs(w);
      const long double e = std::max(veks_test::ulps<F>(out[i].re, w.real(), mag),
                                     veks_test::ulps<F>(out[i].im, w.imag(), mag));
      worst = std::max(worst, e);
      ASSERT_LE(e, CplxRoot<C>::bound) << src[i].re << " " << src[i].im;
    }
  }
  ::testing::Test::RecordProperty("worst_ulps", testing::PrintToString(static_cast<double>(worst)));
}

// The special values of the principal root, each as an exact pair (NaN: any NaN).
TYPED_TEST(ComplexSqrt, SpecialValues) {
  using C = TypeParam;
  using F = typename CplxRoot<C>::F;
  const F inf = std::numeric_limits<F>::infinity(), nan = std::numeric_limits<F>::quiet_NaN();
  struct Case {
    F a, b, wr, wi;
  } cases[] = {{-4, 0, 0, 2},
               {-4, F(-0.0), 0, -2},
               {3, 4, 2, 1},
               {3, -4, 2, -1},
               {0, 0, 0, 0},
               {F(-0.0), 0, 0, 0},
               {0, F(-0.0), 0, F(-0.0)},
               {F(-0.0), F(-0.0), 0, F(-0.0)},
               {1, inf, inf, inf},
               {nan, -inf, inf, -inf},
               {-inf, -inf, inf, -inf},
               {-inf, 2, 0, inf},
               {-inf, -2, 0, -inf},
               {inf, 2, inf, 0},
               {inf, -2, inf, F(-0.0)},
               {inf, nan, inf, nan},
               {nan, 1, nan, nan},
               {1, nan, nan, nan},
               {nan, nan, nan, nan},
               {4, 0, 2, 0},
               {-1, 0, 0, 1}};
  for (const Case& c : cases) {
    C z{c.a, c.b}, w{};
    ASSERT_EQ(CplxRoot<C>::out(&z, &w, 1), vekStatusOk);
    const auto same = [](F got, F want) {
      return std::isnan(want) ? std::isnan(got) : same_bits(got, want);
    };
    EXPECT_TRUE(same(w.re, c.wr) && same(w.im, c.wi))
        << "sqrt(" << c.a << ", " << c.b << ") = (" << w.re << ", " << w.im << ")";
  }
  C z{-inf, nan}, w{};  // NaN +- inf i: the sign of the imaginary part is unspecified
  ASSERT_EQ(CplxRoot<C>::out(&z, &w, 1), vekStatusOk);
  EXPECT_TRUE(std::isnan(w.re) && std::isinf(w.im));
}

// Integer parts: each part R_16s(part * 2^-sf) of the long-double root (either neighbour within
// 1e-9 of a half-integer); no warning for negative real parts.
TEST(ComplexSqrt16sc, RoundsEachPartThroughTheScaleFactor) {
  std::vector<Vek16sc> zs = {{-4, 0},     {3, 4},  {0, 0}, {-32768, -32768}, {32767, 32767},
                             {-32768, 0}, {0, -1}, {1, 0}, {-1, 0},          {5, -12}};
  Rng rng{4};
  for (int i = 0; i < 3000; ++i)
    zs.push_back({static_cast<Vek16s>(rng.next()), static_cast<Vek16s>(rng.next() >> 7)});
  const int len = static_cast<int>(zs.size());
  for (int sf : kSfs) {
    Guarded<Vek16sc> d(len, 4), io(len);
    std::copy(zs.begin(), zs.end(), io.data());
    ASSERT_EQ(veksSqrt_16sc_Sfs(zs.data(), d.data(), len, sf), vekStatusOk);
    ASSERT_EQ(veksSqrt_16sc_ISfs(io.data(), len, sf), vekStatusOk);
    ASSERT_EQ(std::memcmp(io.data(), d.data(), len * sizeof(Vek16sc)), 0);
    const long double scale = std::ldexp(1.0L, -std::clamp(sf, -100, 100));
    for (int i = 0; i < len; ++i) {
      const auto w = principal(zs[i].re, zs[i].im);
      for (auto [got, part] : {std::pair{d[i].re, w.real()}, {d[i].im, w.imag()}}) {
        const long double v = part * scale;
        const Vek16s want = veks_test::round_sat<Vek16s>(v);
        const bool ok = got == want || (veks_test::near_half(v) && std::abs(got - want) == 1);
        ASSERT_TRUE(ok) << "(" << zs[i].re << ", " << zs[i].im << ") sf " << sf << ": " << got
                        << ", expected " << want;
      }
    }
  }
  const Vek16sc neg{-4, 0}, pyth{3, 4};
  Vek16sc w;
  ASSERT_EQ(veksSqrt_16sc_Sfs(&neg, &w, 1, 0), vekStatusOk);
  EXPECT_TRUE(w.re == 0 && w.im == 2);
  ASSERT_EQ(veksSqrt_16sc_Sfs(&pyth, &w, 1, 0), vekStatusOk);
  EXPECT_TRUE(w.re == 2 && w.im == 1);
}

// ---- threading ---------------------------------------------------------------------------------

class ThreadCount : public ::testing::Test {
 protected:
  void SetUp() override { vekGetNumThreads(&saved_); }
  void TearDown() override { vekSetNumThreads(saved_); }
  int saved_ = 1;
};

// One threaded member: runs it on len elements of a generated source with 1 and 2 threads.
struct Threaded {
  const char* name;
  int threshold;
  bool warns;  // real members: a negative element gives warning 3
  size_t src_size, dst_size;
  // Fills element i of the source (negative: a negative real argument where the type has one).
  std::function<void(void* src, int i, bool negative)> fill;
  std::function<VekStatus(const void* src, void* dst, int len)> run;
};

template <class S, class D, class Fn>
Threaded member(const char* name, int threshold, bool warns, Fn fn) {
  return {name,
          threshold,
          warns,
          sizeof(S),
          sizeof(D),
          [](void* s, int i, bool negative) {
            S* p = static_cast<S*>(s) + i;
            const int v = negative ? -(i % 50 + 1) : (i * 7919) % 30000;
            if constexpr (std::is_arithmetic_v<S>) {
              *p = static_cast<S>(std::is_unsigned_v<S> ? (v < 0 ? 0 : v) : v);
            } else {
              using P = decltype(p->re);
              *p = S{static_cast<P>(negative ? -v : v % 300 - 150), static_cast<P>(i % 17 - 8)};
            }
          },
          [fn](const void* s, void* d, int len) {
            if constexpr (std::is_invocable_v<Fn, const S*, D*, int, int>) {
              return fn(static_cast<const S*>(s), static_cast<D*>(d), len, 1);
            } else {
              return fn(static_cast<const S*>(s), static_cast<D*>(d), len);
            }
          }};
}

std::vector<Threaded> threaded_members() {
  return {member<Vek32f, Vek32f>("Sqrt_32f", 4096, true, veksSqrt_32f),
          member<Vek64f, Vek64f>("Sqrt_64f", 512, true, veksSqrt_64f),
          member<Vek8u, Vek8u>("Sqrt_8u_Sfs", 2048, false, veksSqrt_8u_Sfs),
          member<Vek16u, Vek16u>("Sqrt_16u_Sfs", 2048, false, veksSqrt_16u_Sfs),
          member<Vek16s, Vek16s>("Sqrt_16s_Sfs", 2048, true, veksSqrt_16s_Sfs),
          member<Vek32s, Vek16s>("Sqrt_32s16s_Sfs", 2048, true, veksSqrt_32s16s_Sfs),
          member<Vek32fc, Vek32fc>("Sqrt_32fc", 512, false, veksSqrt_32fc),
          member<Vek64fc, Vek64fc>("Sqrt_64fc", 64, false, veksSqrt_64fc),
          member<Vek16sc, Vek16sc>("Sqrt_16sc_Sfs", 256, false, veksSqrt_16sc_Sfs)};
}

// At threshold - 1 (serial) and threshold (split) elements, with one and two threads, with a
// negative element in each thread's range or only in the last one: identical outputs for both
// thread counts, warning 3 exactly for the real members given a negative element.
TEST_F(ThreadCount, SplitResultsEqualSerialResults) {
  for (const Threaded& m : threaded_members()) {
    for (int len : {m.threshold - 1, m.threshold}) {
      for (int where : {0, 1, 2}) {  // no negative; one per half; only in the last half
        std::vector<unsigned char> src(len * m.src_size);
        for (int i = 0; i < len; ++i) {
          const bool neg =
              (where == 1 && (i == 3 || i == len / 2 + 1)) || (where == 2 && i == len - 2);
          m.fill(src.data(), i, neg);
        }
        const VekStatus want = m.warns && where ? vekStatusWarnNegSqrt : vekStatusOk;
        std::vector<unsigned char> first;
        for (int threads : {1, 2}) {
          ASSERT_EQ(vekSetNumThreads(threads), vekStatusOk);
          Guarded<unsigned char> dst(len * m.dst_size, 0);
          ASSERT_EQ(m.run(src.data(), dst.data(), len), want)
              << m.name << " len " << len << " threads " << threads << " case " << where;
          ASSERT_TRUE(dst.guards_intact());
          std::vector<unsigned char> got(dst.data(), dst.data() + len * m.dst_size);
          if (threads == 1) first = got;
          ASSERT_EQ(got, first) << m.name << " len " << len << " case " << where;
        }
      }
    }
  }
}

}  // namespace
