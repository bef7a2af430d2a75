// Square roots against independent models: the IEEE root for real floating point, a long-double
// principal root for complex values, exact integer arithmetic for the scaled integer roots. The
// tests run on two threads, with lengths from each member's threading threshold on.
#include <gtest/gtest.h>

#include <climits>
#include <complex>
#include <tuple>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "threads.hpp"
#include "veks.h"

namespace {

using namespace veks_test;

constexpr int kSfs[] = {INT_MIN, -40, -17, -16, -9, -2, -1, 0,  1,
                        2,       5,   8,   9,   15, 16, 17, 40, INT_MAX};

// The binary32 or binary64 member by F; c is empty (real) or c (complex).
#define PICK(name, c, ...)             \
  (std::get < std::is_same_v<F, float> \
       ? 0                             \
       : 1 > (std::tuple(&veks##name##_32f##c##__VA_ARGS__, &veks##name##_64f##c##__VA_ARGS__)))

template <class F>
bool same(F got, F want) {  // bit for bit; any NaN matches a NaN
  return std::isnan(want) ? std::isnan(got) : same_bits(got, want);
}

template <class F>
class RealSqrt : public ::testing::Test {};
using RealTypes = ::testing::Types<float, double>;
TYPED_TEST_SUITE(RealSqrt, RealTypes);

// Lengths 1..130 at a moving misalignment, out of place and in place: the correctly rounded root
// (-0 stays -0), a NaN at negative elements and warning 3 exactly when one was present (a NaN
// source does not warn), special values sprinkled in. At the threshold, one negative element
// in the second thread's range only.
TYPED_TEST(RealSqrt, CorrectlyRoundedWithNaNAndWarningForNegatives) {
  using F = TypeParam;
  using L = std::numeric_limits<F>;
  const TwoThreads threads;
  const F specials[] = {F(-0.0),         0,       L::infinity(), -L::infinity(), L::quiet_NaN(),
                        L::denorm_min(), L::max()};
  const int split = sizeof(F) == 4 ? 4096 : 512;
  Rng rng{1};
  std::vector<int> lens = lengths(false);
  lens.insert(lens.end(), {split - 1, split});
  for (int len : lens) {
    const size_t mis = (len % 16) * sizeof(F) % 64;
    Guarded<F> src(len, mis), out(len, (mis + 2 * sizeof(F)) % 64), in(len, mis);
    bool neg = false;
    for (int i = 0; i < len; ++i) {
      F v = std::fabs(rng.wide<F>(L::min_exponent - L::digits, L::max_exponent - 1));
      if (len > 130 ? i == len - 2 : rng.next() % 8 == 0) v = -v;
      if (len <= 130 && rng.next() % 16 == 0) v = specials[rng.next() % std::size(specials)];
      src[i] = in[i] = v;
      neg |= v < 0;
    }
    const VekStatus want = neg ? vekStatusWarnNegSqrt : vekStatusOk;
    ASSERT_EQ(PICK(Sqrt, )(src.data(), out.data(), len), want) << "len " << len;
    ASSERT_EQ(PICK(Sqrt, , _I)(in.data(), len), want) << "len " << len;
    for (int i = 0; i < len; ++i) {
      const F x = src[i], root = x < 0 ? L::quiet_NaN() : std::sqrt(x);
      ASSERT_TRUE(same(out[i], root) && same(in[i], root)) << "len " << len << ", x " << x;
    }
    ASSERT_TRUE(out.guards_intact() && in.guards_intact());
  }
}

// Each scale factor of kSfs against the exact integer model (0 for negative elements, with
// warning 3); the in-place form where it exists gives the same.
template <class S, class D>
void check_integer_roots(VekStatus (*fn)(const S*, D*, int, int),
                         VekStatus (*in_place)(S*, int, int), const std::vector<S>& xs) {
  const int len = static_cast<int>(xs.size());
  const VekStatus status =
      *std::min_element(xs.begin(), xs.end()) < 0 ? vekStatusWarnNegSqrt : vekStatusOk;
  for (int sf : kSfs) {
    Guarded<D> d(len, 2 * sizeof(D));
    ASSERT_EQ(fn(xs.data(), d.data(), len, sf), status);
    for (int i = 0; i < len; ++i)
      ASSERT_EQ(d[i], xs[i] < 0 ? D(0) : exact_root<D>(static_cast<uint64_t>(xs[i]), sf))
          << "x " << +xs[i] << ", sf " << sf;
    ASSERT_TRUE(d.guards_intact());
    if constexpr (std::is_same_v<S, D>) {
      Guarded<S> io = placed(xs, sizeof(S));
      ASSERT_EQ(in_place(io.data(), len, sf), status);
      ASSERT_EQ(std::memcmp(io.data(), d.data(), len * sizeof(S)), 0) << "sf " << sf;
    }
  }
}

// Every value of T, repeated up to at least 4096 elements (past the threshold of 2048).
template <class T>
std::vector<T> every_value() {
  std::vector<T> v;
  while (v.size() < 4096)
    for (long x = std::numeric_limits<T>::min(); x <= std::numeric_limits<T>::max(); ++x)
      v.push_back(static_cast<T>(x));
  return v;
}

// The 32-bit source: extremes, random magnitudes, neighbours of squares; then again with
// negative elements at the end only (in the second thread's range).
TEST(IntegerSqrt, ExactForEveryValueAndScaleFactor) {
  const TwoThreads threads;
  check_integer_roots<Vek8u, Vek8u>(veksSqrt_8u_Sfs, veksSqrt_8u_ISfs, every_value<Vek8u>());
  check_integer_roots<Vek16u, Vek16u>(veksSqrt_16u_Sfs, veksSqrt_16u_ISfs, every_value<Vek16u>());
  check_integer_roots<Vek16s, Vek16s>(veksSqrt_16s_Sfs, veksSqrt_16s_ISfs, every_value<Vek16s>());
  std::vector<Vek32s> xs = {0, 1, 2, 3, 4, INT_MAX, INT_MAX - 1, 46340 * 46340, 46340 * 46340 + 1};
  Rng rng{2};
  for (int i = 0; i < 30000; ++i) {
    const auto r = static_cast<Vek32s>(rng.next() >> (33 + rng.next() % 31));
    xs.push_back(r);
    if (r < 46000) xs.push_back(r * r + static_cast<Vek32s>(rng.next() % 3) - 1);
  }
  check_integer_roots<Vek32s, Vek16s>(veksSqrt_32s16s_Sfs, nullptr, xs);
  xs.insert(xs.end(), {-1, INT_MIN});
  check_integer_roots<Vek32s, Vek16s>(veksSqrt_32s16s_Sfs, nullptr, xs);
}

// The principal root in long double; both parts non-negative real, imaginary with b's sign.
std::complex<LD> principal(LD a, LD b) {
  if (a == 0 && b == 0) return {0, b};
  const LD t = std::sqrt((std::fabs(a) + std::hypot(a, b)) / 2);
  if (a >= 0) return {t, b / (2 * t)};
  return {std::fabs(b) / (2 * t), std::copysign(t, b)};
}

template <class F>
class ComplexSqrt : public ::testing::Test {};
TYPED_TEST_SUITE(ComplexSqrt, RealTypes);

// Random parts over the whole exponent range (each part alone and both together), lengths
// 1..130 and 511, 512: each part within 1 (binary32) or 2 (binary64) ulps of |w|, in place the
// same.
TYPED_TEST(ComplexSqrt, PrincipalRootWithinBound) {
  using F = TypeParam;
  using C = std::conditional_t<std::is_same_v<F, float>, Vek32fc, Vek64fc>;
  using L = std::numeric_limits<F>;
  const TwoThreads threads;
  Rng rng{3};
  std::vector<int> lens = lengths(false);
  lens.insert(lens.end(), {511, 512});
  for (int len : lens) {
    Guarded<C> src(len, (len % 4) * sizeof(F)), out(len, sizeof(F)), in(len);
    for (int i = 0; i < len; ++i) {
      const auto kind = rng.next() % 4;
      F a = rng.wide<F>(L::min_exponent - L::digits, L::max_exponent - 1),
        b = kind == 1 ? std::ldexp(a, -rng.range(0, 60))  // comparable parts
                      : rng.wide<F>(L::min_exponent - L::digits, L::max_exponent - 1);
      src[i] = in[i] = C{kind == 2 ? 0 : a, kind == 3 ? 0 : b};
    }
    ASSERT_EQ(PICK(Sqrt, c)(src.data(), out.data(), len) | PICK(Sqrt, c, _I)(in.data(), len),
              vekStatusOk);
    ASSERT_EQ(std::memcmp(in.data(), out.data(), len * sizeof(C)), 0);
    ASSERT_TRUE(out.guards_intact() && in.guards_intact());
    for (int i = 0; i < len; ++i) {
      const auto w = principal(src[i].re, src[i].im);
      ASSERT_LE(std::max(ulps<F>(out[i].re, w.real(), std::abs(w)),
                         ulps<F>(out[i].im, w.imag(), std::abs(w))),
                sizeof(F) / 4)
          << src[i].re << " " << src[i].im;
    }
  }
}

// The special values of the principal root, each as an exact pair (NaN: any NaN).
TYPED_TEST(ComplexSqrt, SpecialValues) {
  using F = TypeParam;
  using C = std::conditional_t<std::is_same_v<F, float>, Vek32fc, Vek64fc>;
  const F inf = std::numeric_limits<F>::infinity(), nan = std::numeric_limits<F>::quiet_NaN(),
          m0 = F(-0.0);
  // clang-format off
  const F t[] = {-4, 0, 0, 2,        -4, m0, 0, -2,        0, 0, 0, 0,          m0, 0, 0, 0,
                 0, m0, 0, m0,       m0, m0, 0, m0,        1, inf, inf, inf,    nan, -inf, inf, -inf,
                 -inf, -inf, inf, -inf,  -inf, 2, 0, inf,  -inf, -2, 0, -inf,   inf, 2, inf, 0,
                 inf, -2, inf, m0,   inf, nan, inf, nan,   nan, 1, nan, nan,    1, nan, nan, nan,
                 nan, nan, nan, nan};
  // clang-format on
  for (size_t k = 0; k < std::size(t); k += 4) {  // a, b, then the root
    C z{t[k], t[k + 1]}, w{};
    ASSERT_EQ(PICK(Sqrt, c)(&z, &w, 1), vekStatusOk);
    EXPECT_TRUE(same(w.re, t[k + 2]) && same(w.im, t[k + 3])) << t[k] << ", " << t[k + 1];
  }
  C z{-inf, nan}, w{};  // NaN +- inf i: the sign of the imaginary part is unspecified
  ASSERT_EQ(PICK(Sqrt, c)(&z, &w, 1), vekStatusOk);
  EXPECT_TRUE(std::isnan(w.re) && std::isinf(w.im));
}

// Integer parts: each part R_16s(part * 2^-sf) of the long-double root (either neighbour within
// 1e-9 of a half-integer); no warning for negative real parts.
TEST(ComplexSqrt16sc, RoundsEachPartThroughTheScaleFactor) {
  const TwoThreads threads;
  std::vector<Vek16sc> zs = {{-4, 0},     {3, 4},  {0, 0}, {-32768, -32768}, {32767, 32767},
                             {-32768, 0}, {0, -1}, {1, 0}, {-1, 0},          {5, -12}};
  Rng rng{4};
  for (int i = 0; i < 3000; ++i)
    zs.push_back({static_cast<Vek16s>(rng.next()), static_cast<Vek16s>(rng.next() >> 7)});
  const int len = static_cast<int>(zs.size());
  for (int sf : kSfs) {
    Guarded<Vek16sc> d(len, 4), io = placed(zs);
    ASSERT_EQ(
        veksSqrt_16sc_Sfs(zs.data(), d.data(), len, sf) | veksSqrt_16sc_ISfs(io.data(), len, sf),
        vekStatusOk);
    ASSERT_EQ(std::memcmp(io.data(), d.data(), len * sizeof(Vek16sc)), 0);
    const LD scale = std::ldexp(1.0L, -std::clamp(sf, -100, 100));
    for (int i = 0; i < len; ++i) {
      const auto w = principal(zs[i].re, zs[i].im);
      for (auto [got, part] : {std::pair{d[i].re, w.real()}, {d[i].im, w.imag()}}) {
        const LD v = part * scale;
        const Vek16s want = round_sat<Vek16s>(v);
        ASSERT_TRUE(got == want || (near_half(v) && std::abs(got - want) == 1))
            << "(" << zs[i].re << ", " << zs[i].im << ") sf " << sf << ": " << got;
      }
    }
  }
}

}  // namespace
