// Conversions between integer and floating-point types, narrowing and the complex packing helpers,
// each export against references computed in long double and wide integers, over boundary and
// random values, at lengths and offsets that reach the vector body and the masked tail, under
// every rounding mode with flags raised beforehand.
#include <gtest/gtest.h>

#include <cfenv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "convert/support.hpp"
#include "support/checks.hpp"

namespace {

using namespace veks_test;

template <class T>
using E = typename Layout<T>::Elem;
using Vek24s = P24s;  // the packed 24-bit formats under the names the members use
using Vek24u = P24u;

// A source vector holding `vals` (converted to the element type) at a misalignment.
template <class T, class V>
Guarded<E<T>> source(const std::vector<V>& vals, size_t first, size_t n, size_t misalign) {
  Guarded<E<T>> g(n * Layout<T>::width, off<E<T>>(misalign));
  for (size_t i = 0; i < n; ++i) {
    if constexpr (std::is_floating_point_v<T>) {
      g.data()[i] = static_cast<T>(vals[(first + i) % vals.size()]);
    } else {
      put<T>(g.data(), i, static_cast<long long>(vals[(first + i) % vals.size()]));
    }
  }
  return g;
}

// ---- floating point to integer ----------------------------------------------------------------

enum class Pick { AwayOtherwise, AwayOn2 };
enum class Rounding { Zero, Even, Away };

Rounding rounding_of(Pick p, int mode) {
  if (mode == 0) return Rounding::Zero;
  if (p == Pick::AwayOtherwise) return mode == 1 ? Rounding::Even : Rounding::Away;
  return mode == 2 ? Rounding::Away : Rounding::Even;
}

// The scale factor 2^-sf; outside the normal exponents, the bit pattern 1.0 - sf exponent steps
// of the source type, wrapping in its integer width.
template <class S>
long double factor_of(int sf) {
  if constexpr (sizeof(S) == 4) {
    if (sf >= -127 && sf <= 126) return std::ldexp(1.0L, -sf);
    const uint32_t b = 0x3F800000u - static_cast<uint32_t>(sf) * 0x800000u;
    float f;
    std::memcpy(&f, &b, 4);
    return f;
  } else {
    if (sf >= -1023 && sf <= 1022) return std::ldexp(1.0L, -sf);
    const uint64_t b =
        0x3FF0000000000000ULL - static_cast<uint64_t>(static_cast<int64_t>(sf)) * (1ULL << 52);
    double f;
    std::memcpy(&f, &b, 8);
    return f;
  }
}

template <class S>
long long f2i_ref(S x, Rounding r, int sf, long long lo, long long hi) {
  long double v = x;
  if (sf != 0) v = static_cast<S>(v * factor_of<S>(sf));  // the product in the source type
  if (std::isnan(v)) return lo;
  v = r == Rounding::Even ? std::nearbyint(v) : r == Rounding::Zero ? std::trunc(v) : std::round(v);
  if (v <= static_cast<long double>(lo)) return lo;
  if (v >= static_cast<long double>(hi)) return hi;
  return static_cast<long long>(v);
}

template <class S, class D>
void check_f2i(VekStatus (*fn)(const S*, E<D>*, int, int, int), Pick pick,
               const std::vector<int>& sfs) {
  constexpr long long lo = Layout<D>::lo, hi = Layout<D>::hi;
  const auto vals = float_inputs<S>(600, lo, hi, 7);
  const int modes[] = {0, 1, 2, 7, -3};
  int run = 0;
  auto one = [&](size_t first, size_t n, size_t mis, int mode, int sf) {
    auto s = source<S>(vals, first, n, (mis * 4) % 64);
    Guarded<E<D>> d(n * Layout<D>::width, off<E<D>>(mis));
    const int fe = kRoundings[run % 4], flags = run % 3 == 0 ? FE_INEXACT : 0;
    ++run;
    VekStatus st = -1;
    ASSERT_TRUE(
        keeps_fenv(fe, flags, [&] { st = fn(s.data(), d.data(), static_cast<int>(n), mode, sf); }));
    ASSERT_EQ(st, vekStatusOk);
    for (size_t i = 0; i < n; ++i) {
      const S x = s.data()[i];
      ASSERT_EQ(get<D>(d.data(), i), f2i_ref(x, rounding_of(pick, mode), sf, lo, hi))
          << "x=" << static_cast<long double>(x) << " mode=" << mode << " sf=" << sf << " n=" << n
          << " i=" << i;
    }
    ASSERT_TRUE(d.guards_intact()) << "n=" << n;
  };
  for (int mode : modes)
    for (int sf : sfs) one(0, vals.size(), 0, mode, sf);
  size_t k = 0;
  for (const Shape& sh : shapes()) {
    one(k * 13, sh.len, sh.misalign, modes[k % 5], sfs[k % sfs.size()]);
    ++k;
  }
}

const std::vector<int> kSfs32 = {0,   1,   -1,   3,    -7,  -15, -16,
                                 126, 127, -127, -128, 128, 300, INT_MIN};
const std::vector<int> kSfs64 = {0,    1,    -1,    3,     -7,   -31,  -32,
                                 1022, 1023, -1023, -1024, 1024, 5000, INT_MIN};

#define F2I(S, D, pick, sfs) check_f2i<Vek##S, Vek##D>(veksConvert_##S##D##_Sfs, Pick::pick, sfs)
TEST(ConvertFloatToInt, Binary32Sources) {
  F2I(32f, 8s, AwayOtherwise, kSfs32), F2I(32f, 8u, AwayOtherwise, kSfs32);
  F2I(32f, 16s, AwayOtherwise, kSfs32), F2I(32f, 16u, AwayOtherwise, kSfs32);
  F2I(32f, 24s, AwayOtherwise, kSfs32), F2I(32f, 24u, AwayOtherwise, kSfs32);
  F2I(32f, 32s, AwayOtherwise, kSfs32);
}
TEST(ConvertFloatToInt, Binary64Sources) {
  F2I(64f, 16s, AwayOtherwise, kSfs64), F2I(64f, 32s, AwayOn2, kSfs64);
  F2I(64f, 64s, AwayOtherwise, kSfs64);
  // The largest binary64 values below 2^63 convert exactly; 2^63 and beyond saturate.
  const double big[] = {0x1p63, -0x1p63, 0x1p63 - 1024, -1e300};
  Vek64s q[4];
  ASSERT_EQ(veksConvert_64f64s_Sfs(big, q, 4, 1, 0), vekStatusOk);
  EXPECT_TRUE(q[0] == INT64_MAX && q[1] == INT64_MIN && q[2] == INT64_MAX - 1023 &&
              q[3] == INT64_MIN);
}
#undef F2I

// ---- integer to floating point, widening --------------------------------------------------------

template <class S>
std::vector<long long> int_inputs(size_t n, unsigned seed) {
  const long long lo = Layout<S>::lo, hi = Layout<S>::hi;
  std::vector<long long> v = {
      lo,      lo + 1, hi, hi - 1, 0, 1, -1, (1LL << 24) + 1, -(1LL << 24) - 3, (1LL << 53) + 1,
      16777217};
  for (auto& x : v) x = std::clamp(x, lo, hi);
  std::mt19937_64 g(seed);
  std::uniform_int_distribution<long long> u(lo, hi);
  while (v.size() < n) v.push_back(u(g));
  return v;
}

// x converted to D in the current rounding mode, rounded once.
template <class D>
D round_to(long double x) {
  volatile long double vx = x;
  volatile D r = static_cast<D>(vx);
  return r;
}

template <class S, class D, class Call>
void check_widen(Call fn, const std::vector<int>& sfs) {
  std::vector<long double> vals;
  if constexpr (std::is_floating_point_v<S>) {
    for (S x : float_inputs<S>(400, -1e6L, 1e6L, 3)) vals.push_back(x);
    for (double x : {1e300, -1e-300, 3.4028235677973366e38, 3.4028235677973362e38,
                     1.401298464324817e-45, 7e-46})
      vals.push_back(static_cast<S>(x));
  } else {
    for (long long x : int_inputs<S>(400, 3)) vals.push_back(static_cast<long double>(x));
  }
  int run = 0;
  for (int sf : sfs) {
    for (const Shape& sh : shapes()) {
      if (sh.len != 1000 && run % 3 != 0 && sf != 0) {
        ++run;
        continue;
      }
      const size_t n = sh.len == 1000 ? vals.size() : sh.len;
      auto s = source<S>(vals, static_cast<size_t>(run) * 7, n, sh.misalign);
      Guarded<D> d(n, off<D>(sh.misalign * 3));
      const int fe = sf == 0 ? kRoundings[run % 4] : FE_TONEAREST, flags = run % 2 ? FE_INEXACT : 0;
      ++run;
      VekStatus st = -1;
      ASSERT_TRUE(
          keeps_fenv(fe, flags, [&] { st = fn(s.data(), d.data(), static_cast<int>(n), sf); }));
      ASSERT_EQ(st, vekStatusOk);
      std::fesetround(fe);
      for (size_t i = 0; i < n; ++i) {
        const long double x = get<S>(s.data(), i);
        // the value in D, then (for _Sfs) scaled by 2^-sf with one more rounding
        D want = round_to<D>(x);
        if (sf != 0)
          want = round_to<D>(std::ldexp(
              static_cast<long double>(want),
              static_cast<int>(std::clamp(-static_cast<long long>(sf), -20000LL, 20000LL))));
        const D got = d.data()[i];
        if (std::isnan(want)) {
          ASSERT_TRUE(std::isnan(got));
        } else {
          ASSERT_EQ(got, want) << "x=" << x << " sf=" << sf << " rounding=" << fe << " i=" << i;
          ASSERT_EQ(std::signbit(got), std::signbit(want));
        }
      }
      std::fesetround(FE_TONEAREST);
      ASSERT_TRUE(d.guards_intact());
    }
  }
}

template <class S, class D>
auto plain(VekStatus (*fn)(const E<S>*, D*, int)) {
  return [fn](const E<S>* s, D* d, int n, int) { return fn(s, d, n); };
}

#define WIDEN(S, D) check_widen<Vek##S, Vek##D>(plain<Vek##S, Vek##D>(veksConvert_##S##D), {0})
TEST(ConvertWiden, ExactAndRounded) {
  WIDEN(8s, 16s), WIDEN(8s, 32f), WIDEN(8u, 32f), WIDEN(16s, 32s), WIDEN(16s, 32f);
  WIDEN(16u, 32f), WIDEN(24s, 32f), WIDEN(24s, 32s), WIDEN(24u, 32f), WIDEN(24u, 32u);
  WIDEN(32s, 32f), WIDEN(32s, 64f), WIDEN(64s, 64f), WIDEN(32f, 64f), WIDEN(64f, 32f);
}
#undef WIDEN

TEST(ConvertWiden, ScaledIntegerToFloat) {
  const std::vector<int> sfs = {0,   1,    -1,   15,   -20,   126,     140,
                                160, -140, 1070, 1100, -1100, INT_MAX, INT_MIN};
  check_widen<Vek16s, Vek32f>(veksConvert_16s32f_Sfs, sfs);
  check_widen<Vek16s, Vek64f>(veksConvert_16s64f_Sfs, sfs);
  check_widen<Vek32s, Vek32f>(veksConvert_32s32f_Sfs, sfs);
  check_widen<Vek32s, Vek64f>(veksConvert_32s64f_Sfs, sfs);
}

// ---- integer narrowing ------------------------------------------------------------------------

template <class S, class D>
void check_narrow(VekStatus (*fn)(const S*, E<D>*, int, int), std::vector<int> sfs = {}) {
  const auto vals = int_inputs<S>(500, 11);
  if (sfs.empty())
    sfs = {0,   1,   2,   3,   8,   15,  16,  17,   23,      24,     31,  32,
           33,  62,  63,  64,  65,  300, -1,  -2,   -7,      -8,     -15, -16,
           -23, -24, -25, -31, -32, -63, -64, -300, INT_MIN, INT_MAX};
  constexpr long long lo = Layout<D>::lo, hi = Layout<D>::hi;
  size_t k = 0;
  for (int sf : sfs) {
    for (const Shape& sh : shapes()) {
      if (sh.len != 1000 && (k++ % 5) != 0) continue;
      const size_t n = sh.len == 1000 ? vals.size() : sh.len;
      auto s = source<S>(vals, k, n, sh.misalign);
      Guarded<E<D>> d(n * Layout<D>::width, off<E<D>>(sh.misalign * 3));
      ASSERT_EQ(fn(s.data(), d.data(), static_cast<int>(n), sf), vekStatusOk);
      const long long e = std::clamp(-static_cast<long long>(sf), -20000LL, 20000LL);
      for (size_t i = 0; i < n; ++i) {
        const long double v =
            std::nearbyint(std::ldexp(static_cast<long double>(s.data()[i]), static_cast<int>(e)));
        const long long want = v <= lo ? lo : v >= hi ? hi : static_cast<long long>(v);
        ASSERT_EQ(get<D>(d.data(), i), want) << "r=" << s.data()[i] << " sf=" << sf << " i=" << i;
      }
      ASSERT_TRUE(d.guards_intact());
    }
  }
}

TEST(ConvertNarrow, ScaledTiesToEvenAndSaturated) {
#define NARROW(S, D) check_narrow<Vek##S, Vek##D>(veksConvert_##S##D##_Sfs)
  NARROW(16s, 8s), NARROW(32s, 16s), NARROW(32s, 24s), NARROW(32u, 24u), NARROW(64s, 32s);
#undef NARROW
  check_narrow<Vek32s, Vek16s>(
      [](const Vek32s* s, Vek16s* d, int n, int) { return veksConvert_32s16s(s, d, n); }, {0});
}

// ---- complex packing ----------------------------------------------------------------------------

template <class T, class C>
void check_complex(VekStatus (*to_c)(const T*, const T*, C*, int),
                   VekStatus (*to_r)(const C*, T*, T*, int), VekStatus (*re_of)(const C*, T*, int),
                   VekStatus (*im_of)(const C*, T*, int)) {
  for (const Shape& sh : shapes()) {
    const size_t n = sh.len, mis = sh.misalign;
    Guarded<T> re(n, off<T>(mis)), im(n, off<T>(mis * 3));
    for (size_t i = 0; i < n; ++i) {
      re[i] = static_cast<T>(3 * i + 1);
      im[i] = static_cast<T>(-static_cast<long long>(5 * i) - 2);
    }
    const int len = static_cast<int>(n);
    for (int which = 0; which < 3; ++which) {  // both parts, real only, imaginary only
      const T* pr = which == 2 ? nullptr : re.data();
      const T* pi = which == 1 ? nullptr : im.data();
      Guarded<C> c(n, off<C>(mis * 5));
      Guarded<T> r2(n, off<T>(mis + 6)), i2(n, off<T>(mis + 10)), r3(n, off<T>(mis)),
          i3(n, off<T>(mis + 2));
      ASSERT_EQ(to_c(pr, pi, c.data(), len) | to_r(c.data(), r2.data(), i2.data(), len) |
                    re_of(c.data(), r3.data(), len) | im_of(c.data(), i3.data(), len),
                vekStatusOk);
      for (size_t i = 0; i < n; ++i) {
        const T wr = pr ? re[i] : T{}, wi = pi ? im[i] : T{};
        ASSERT_TRUE(c[i].re == wr && c[i].im == wi && r2[i] == wr && i2[i] == wi && r3[i] == wr &&
                    i3[i] == wi)
            << "len " << n << " element " << i << " case " << which;
      }
      ASSERT_TRUE(c.guards_intact() && r2.guards_intact() && i2.guards_intact() &&
                  r3.guards_intact() && i3.guards_intact());
    }
  }
  Guarded<C> c(4);  // one part may be null, not both
  EXPECT_EQ(to_c(nullptr, nullptr, c.data(), 4), vekStatusNullPtr);
  EXPECT_TRUE(c.unchanged());
}

TEST(ConvertComplex, PackAndSplit) {
  check_complex(veksRealToCplx_16s, veksCplxToReal_16sc, veksReal_16sc, veksImag_16sc);
  check_complex(veksRealToCplx_32f, veksCplxToReal_32fc, veksReal_32fc, veksImag_32fc);
  check_complex(veksRealToCplx_64f, veksCplxToReal_64fc, veksReal_64fc, veksImag_64fc);
}

// Pointers (either source part of RealToCplx may be null) then the length; nothing written.
TEST(ConvertChecks, PointersThenLengthAndNothingWritten) {
  const auto spec = [](const std::string& name) {
    CheckSpec s;
    if (name.find("RealToCplx") != std::string::npos) s.optional = 3;
    return s;
  };
  EXPECT_EQ(
      expect_family_checks(
          {"veksConvert_", "veksRealToCplx_", "veksCplxToReal_", "veksReal_", "veksImag_"}, spec),
      39 + 4 * 3);
}

}  // namespace
