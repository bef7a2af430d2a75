// Conversions between integer and floating-point types, narrowing and the complex packing helpers
// against long-double and wide-integer references, over boundary and random values, at lengths
// and offsets that reach the vector body and the masked tail, under every rounding mode.
#include <gtest/gtest.h>

#include <array>
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
using Args = std::array<int, 2>;
using LD = long double;

// Runs fn(s, d, n, a...) for each a in args (as many of its ints as fn takes) over all of vals, and
// over slices of vals at every step-th shape, under a rotating rounding mode with flags raised,
// which it must keep. Element i must equal want(x, a, rounding mode) bit for bit (a NaN any NaN).
template <class S, class D, class Fn, class Want>
void sweep(const std::vector<LD>& vals, const std::vector<Args>& args, size_t step, Fn fn,
           Want want) {
  const auto sh = shapes();
  size_t run = 0;
  for (size_t ai = 0; ai < args.size(); ++ai)
    for (size_t k = 0; k <= sh.size(); ++k) {
      if (k < sh.size() && (k + ai) % step != 0) continue;
      const size_t n = k < sh.size() ? sh[k].len : vals.size();
      const size_t mis = k < sh.size() ? sh[k].misalign : 0;
      Guarded<E<S>> s(n * Layout<S>::width, off<E<S>>(mis));
      Guarded<E<D>> d(n * Layout<D>::width, off<E<D>>(mis * 3));
      for (size_t i = 0; i < n; ++i) put<S>(s.data(), i, vals[(i + 7 * run) % vals.size()]);
      const int fe = kRoundings[run % 4];
      VekStatus st = -1;
      const auto call = [&](auto... a) { st = fn(s.data(), d.data(), static_cast<int>(n), a...); };
      ASSERT_TRUE(keeps_fenv(fe, run++ % 3 ? 0 : FE_INEXACT, [&] {
        if constexpr (std::is_invocable_v<Fn, E<S>*, E<D>*, int>) call();
        if constexpr (std::is_invocable_v<Fn, E<S>*, E<D>*, int, int>) call(args[ai][0]);
        if constexpr (std::is_invocable_v<Fn, E<S>*, E<D>*, int, int, int>)
          call(args[ai][0], args[ai][1]);
      }));
      ASSERT_EQ(st, vekStatusOk);
      for (size_t i = 0; i < n; ++i) {
        const LD x = get<S>(s.data(), i), g = get<D>(d.data(), i);
        LD w = want(x, args[ai], fe);
        if constexpr (!std::is_floating_point_v<D>) w = static_cast<LD>(static_cast<long long>(w));
        ASSERT_TRUE(std::isnan(w) ? std::isnan(g) : g == w && std::signbit(g) == std::signbit(w))
            << "x=" << x << " got " << g << " want " << w << " args " << args[ai][0] << ", "
            << args[ai][1] << " rounding " << fe << " n=" << n;
      }
      ASSERT_TRUE(d.guards_intact()) << "n=" << n;
    }
}

// ---- floating point to integer ----------------------------------------------------------------

// 2^-sf as the bit pattern 1.0 - sf exponent steps of S, wrapping in its integer width outside
// the normal exponents.
template <class S>
LD factor_of(int sf) {
  using U = std::conditional_t<sizeof(S) == 4, uint32_t, uint64_t>;
  constexpr int emax = std::numeric_limits<S>::max_exponent - 1, m = std::numeric_limits<S>::digits;
  const U b = (U(emax) << (m - 1)) - static_cast<U>(static_cast<int64_t>(sf)) * (U{1} << (m - 1));
  S f;
  std::memcpy(&f, &b, sizeof f);
  return f;
}

// rndMode: 0 toward zero; 1 ties to even and every other mode ties away, or (away_on_2_only) 2
// ties away and every other ties to even. The product with the factor is rounded to S first.
template <class S, class D>
void check_f2i(VekStatus (*fn)(const S*, E<D>*, int, int, int), bool away_on_2_only = false) {
  constexpr long long lo = Layout<D>::lo, hi = Layout<D>::hi;
  constexpr int emax = std::numeric_limits<S>::max_exponent - 1;
  std::vector<Args> args;
  for (int mode : {0, 1, 2, 7, -3})
    for (int sf : {0, 1, -1, 3, -7, -15, -16, -31, -32, emax - 1, emax, -emax, -emax - 1, emax + 1,
                   300, 5000, INT_MIN})
      args.push_back({mode, sf});
  std::vector<LD> vals = {LD(hi) - 1023};  // exact below 2^63 in 64f64s
  for (S x : float_inputs<S>(600, lo, hi, 7)) vals.push_back(x);
  sweep<S, D>(vals, args, 5, fn, [&](LD x, Args a, int) -> LD {
    LD v = a[1] ? static_cast<S>(x * factor_of<S>(a[1])) : x;
    if (std::isnan(v)) return lo;
    const bool away = away_on_2_only ? a[0] == 2 : a[0] != 1;
    v = a[0] == 0 ? std::trunc(v) : away ? std::round(v) : std::nearbyint(v);
    return std::clamp<LD>(v, lo, hi);
  });
}

TEST(ConvertFloatToInt, EveryModeAndScale) {
#define F2I(S, D) check_f2i<Vek##S, Vek##D>(veksConvert_##S##D##_Sfs)
  F2I(32f, 8s), F2I(32f, 8u), F2I(32f, 16s), F2I(32f, 16u), F2I(32f, 24s), F2I(32f, 24u);
  F2I(32f, 32s), F2I(64f, 16s), F2I(64f, 64s);
  check_f2i<Vek64f, Vek32s>(veksConvert_64f32s_Sfs, true);
#undef F2I
}

// ---- integers to floating point or narrower integers -----------------------------------------

template <class S>
std::vector<LD> int_inputs(size_t n, unsigned seed) {
  const long long lo = Layout<S>::lo, hi = Layout<S>::hi;
  std::vector<LD> v;
  for (long long x :
       {lo, lo + 1, hi, hi - 1, 0LL, 1LL, -1LL, (1LL << 24) + 1, -(1LL << 24) - 3, (1LL << 53) + 1})
    v.push_back(static_cast<LD>(std::clamp(x, lo, hi)));
  std::mt19937_64 g(seed);
  std::uniform_int_distribution<long long> u(lo, hi);
  while (v.size() < n) v.push_back(static_cast<LD>(u(g)));
  return v;
}

// Integers (or floating point) to floating point: rounded to D in the caller's mode, then for
// sf != 0 times 2^-sf rounded once more. Integers to integers: r * 2^-sf, ties to even, saturated.
template <class S, class D, class Fn>
void check_scaled(Fn fn, std::vector<Args> sfs = {{0, 0}}) {
  std::vector<LD> vals;
  if constexpr (!std::is_floating_point_v<S>) {
    vals = int_inputs<S>(500, 3);
  } else {
    for (S x : float_inputs<S>(400, -1e6L, 1e6L, 3)) vals.push_back(x);
    for (double x : {1e300, -1e-300, 3.4028235677973366e38, 3.4028235677973362e38,
                     1.401298464324817e-45, 7e-46})
      vals.push_back(static_cast<S>(x));
  }
  sweep<S, D>(vals, sfs, sfs.size() > 1 ? 4 : 1, fn, [](LD x, Args a, int fe) -> LD {
    const int e = -std::clamp(a[0], -20000, 20000);
    if constexpr (!std::is_floating_point_v<D>) {
      return std::clamp<LD>(std::nearbyint(std::ldexp(x, e)), Layout<D>::lo, Layout<D>::hi);
    } else {
      std::fesetround(fe);
      volatile LD vx = x;
      volatile D r = static_cast<D>(vx);
      if (e != 0) r = static_cast<D>(std::ldexp(static_cast<LD>(r), e));
      std::fesetround(FE_TONEAREST);
      return r;
    }
  });
}

TEST(ConvertWidenNarrow, ScaledAndRounded) {
#define ONE(S, D, X, ...) \
  check_scaled<Vek##S, Vek##D>(veksConvert_##S##D##X __VA_OPT__(, ) __VA_ARGS__)
  ONE(8s, 16s, ), ONE(8s, 32f, ), ONE(8u, 32f, ), ONE(16s, 32s, ), ONE(16s, 32f, );
  ONE(16u, 32f, ), ONE(24s, 32f, ), ONE(24s, 32s, ), ONE(24u, 32f, ), ONE(24u, 32u, );
  ONE(32s, 32f, ), ONE(32s, 64f, ), ONE(64s, 64f, ), ONE(32f, 64f, ), ONE(64f, 32f, );
  ONE(32s, 16s, );
  std::vector<Args> sfs;
  for (int sf : {0, 1, -1, 15, -20, 126, 140, 160, -140, 1070, 1100, -1100, INT_MAX, INT_MIN})
    sfs.push_back({sf, 0});
  ONE(16s, 32f, _Sfs, sfs), ONE(16s, 64f, _Sfs, sfs), ONE(32s, 32f, _Sfs, sfs);
  ONE(32s, 64f, _Sfs, sfs);
  sfs = {{300, 0}, {-300, 0}, {INT_MIN, 0}, {INT_MAX, 0}};
  for (int b : {0, 8, 16, 24, 32, 64})  // every narrowing policy and its boundaries
    for (int sf : {b - 1, b, b + 1, -b + 1, -b, -b - 1}) sfs.push_back({sf, 0});
  ONE(16s, 8s, _Sfs, sfs), ONE(32s, 16s, _Sfs, sfs), ONE(32s, 24s, _Sfs, sfs);
  ONE(32u, 24u, _Sfs, sfs), ONE(64s, 32s, _Sfs, sfs);
#undef ONE
}

// ---- complex packing ----------------------------------------------------------------------------

// RealToCplx with both parts, the real part only, the imaginary part only (the other part 0), then
// each of the splits of the result.
template <class T, class C>
void check_complex(VekStatus (*to_c)(const T*, const T*, C*, int),
                   VekStatus (*to_r)(const C*, T*, T*, int), VekStatus (*re_of)(const C*, T*, int),
                   VekStatus (*im_of)(const C*, T*, int)) {
  for (const Shape& sh : shapes()) {
    const size_t n = sh.len, mis = sh.misalign;
    const int len = static_cast<int>(n);
    Guarded<T> re(n, off<T>(mis)), im(n, off<T>(mis * 3));
    std::vector<Guarded<T>> p;
    for (size_t k : {6, 1, 0, 2}) p.emplace_back(n, off<T>(mis + k));
    Guarded<C> c(n, off<C>(mis * 5));
    for (size_t i = 0; i < n; ++i) re[i] = T(3 * i + 1), im[i] = T(-5 * double(i) - 2);
    for (int which = 0; which < 3; ++which) {
      const T* pr = which == 2 ? nullptr : re.data();
      const T* pi = which == 1 ? nullptr : im.data();
      ASSERT_EQ(to_c(pr, pi, c.data(), len) | to_r(c.data(), p[0].data(), p[1].data(), len) |
                    re_of(c.data(), p[2].data(), len) | im_of(c.data(), p[3].data(), len),
                vekStatusOk);
      for (size_t i = 0; i < n; ++i) {
        const T wr = pr ? re[i] : T{}, wi = pi ? im[i] : T{};
        ASSERT_TRUE(c[i].re == wr && c[i].im == wi && p[0][i] == wr && p[1][i] == wi &&
                    p[2][i] == wr && p[3][i] == wi)
            << "len " << n << " element " << i << " case " << which;
      }
      for (auto& g : p) ASSERT_TRUE(g.guards_intact() && c.guards_intact());
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
