// Sums, means, deviations, norms and dot products against long-double references (with bounds
// that follow from each accumulation) and exact wide-integer references, on both hint paths,
// aligned and misaligned sources, block boundaries and extreme vectors.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/checks.hpp"
#include "support/guarded.hpp"
#include "support/refs.hpp"

namespace {

using namespace veks_test;

constexpr LD kEps32 = 0x1p-24L, kEps64 = 0x1p-53L;
constexpr int kHints[] = {vekHintNone, vekHintFast, vekHintAccurate, 7};
constexpr int kScaleFactors[] = {0,   1,   2,   5,    15,   16,    17,    31,    32,   40,  62,
                                 63,  64,  100, 1023, 1024, 2000,  -1,    -2,    -5,   -15, -16,
                                 -17, -31, -32, -40,  -63,  -1023, -1024, -1025, -2000};

// Calls a member, with the hint when it takes one.
template <class... A, class... P>
VekStatus call(VekStatus (*f)(A...), int hint, P... p) {
  if constexpr (sizeof...(A) > sizeof...(P))
    return f(p..., hint);
  else
    return f(p...);
}

// Error bound of a sum of n terms whose magnitudes add up to abs: double partials, or the fast
// path's single-precision blocks (at most 8,192 / 32 + a few additions per lane), plus the
// final rounding.
template <class F>
LD sum_tol(LD ref, LD abs, size_t n, bool fast) {
  return ulp_of<F>(ref) + (fast ? 300 * kEps32 : static_cast<LD>(n + 8) * kEps64) * abs;
}

// The real and imaginary parts of a real or complex value, in R.
template <class R, class T>
std::pair<R, R> parts(const T& x) {
  if constexpr (std::is_arithmetic_v<T>)
    return {static_cast<R>(x), R{0}};
  else
    return {static_cast<R>(x.re), static_cast<R>(x.im)};
}

template <class T>
LD sample_sd(const std::vector<T>& v) {
  LD mean = 0, q = 0;
  for (T x : v) mean += x;
  mean /= static_cast<LD>(v.size());
  for (T x : v) q += (x - mean) * (x - mean);
  return std::sqrt(q / static_cast<LD>(v.size() - 1));
}

// Real and complex sums and means, deviations and the mean beside them, every hint (the double
// members take none), aligned and misaligned. The means divide the returned sum. The double
// deviation runs on data offset by 10^6, where a one-pass formula cancels. A source that is not
// 4-byte aligned runs the accurate path whatever the hint: the same results.
template <class F, class C>
void float_sums(auto sum, auto csum, auto mean, auto cmean, auto sd, auto msd) {
  constexpr bool single = std::is_same_v<F, float>;
  for (int n : lengths()) {
    const auto un = static_cast<size_t>(n);
    const auto v = random_vec<F>(2 * un, -5, 9, static_cast<unsigned>(n));
    std::vector<F> w(v.begin(), v.begin() + n);
    for (F& x : w) x += single ? 0 : F(1e6);
    LD re = 0, im = 0, abs = 0, real = 0, rabs = 0, wsum = 0, wabs = 0;
    for (int i = 0; i < n; ++i) {
      real += v[i], rabs += std::fabs(v[i]), re += v[2 * i], im += v[2 * i + 1];
      wsum += w[i], wabs += std::fabs(w[i]);
    }
    for (F x : v) abs += std::fabs(x);
    const LD want_sd = n > 1 ? sample_sd(w) : 0;
    for (size_t m : {0, 4, 8, 12, 28, 36, 40, 60, 2, 33}) {
      if (!single && m % 8) continue;
      auto g = placed(v, m), gw = placed(w, m);
      const auto* z = reinterpret_cast<const C*>(g.data());
      F s_acc = 0, d_acc = 0;
      for (int hint : {kHints[2], kHints[0], kHints[1], kHints[3]}) {  // the accurate one first
        if (!single && hint) continue;
        SCOPED_TRACE(::testing::Message() << n << " at " << m << ", hint " << hint);
        const bool fast = single && hint == vekHintFast && m % 4 == 0;
        F s, mu, d = 0, mu2 = 0, d2 = 0;
        C c, cm;
        ASSERT_EQ(call(sum, hint, g.data(), n, &s) | call(mean, hint, g.data(), n, &mu) |
                      call(csum, hint, z, n, &c) | call(cmean, hint, z, n, &cm),
                  0);
        ASSERT_TRUE(near(s, real, sum_tol<F>(real, rabs, un, fast)));
        ASSERT_TRUE(near(c.re, re, sum_tol<F>(re, abs, un, fast)));
        ASSERT_TRUE(near(c.im, im, sum_tol<F>(im, abs, un, fast)));
        EXPECT_TRUE(mu == F(double(s) / n) && cm.re == F(double(c.re) / n) &&
                    cm.im == F(double(c.im) / n));
        if (n > 1) {
          ASSERT_EQ(call(sd, hint, gw.data(), n, &d) | call(msd, hint, gw.data(), n, &mu2, &d2), 0);
          const LD rel = !single ? 1e-9L : fast ? 2e-4L : 2e-6L;
          EXPECT_TRUE(near(d, want_sd, rel * want_sd + (single ? 1e-6L : 0)));
          EXPECT_EQ(d, d2);
          EXPECT_TRUE(
              near(mu2, wsum / n, sum_tol<F>(wsum, wabs, un, fast) / n + ulp_of<F>(wsum / n)));
        }
        if (hint == vekHintAccurate) s_acc = s, d_acc = d;
        EXPECT_TRUE(m % 4 == 0 || (s == s_acc && d == d_acc));
      }
    }
  }
}

TEST(FloatSums, SumsMeansAndDeviationsOnEveryPathAndAlignment) {
  float_sums<Vek32f, Vek32fc>(veksSum_32f, veksSum_32fc, veksMean_32f, veksMean_32fc,
                              veksStdDev_32f, veksMeanStdDev_32f);
  float_sums<Vek64f, Vek64fc>(veksSum_64f, veksSum_64fc, veksMean_64f, veksMean_64fc,
                              veksStdDev_64f, veksMeanStdDev_64f);
  const float two[] = {3.25f, 3.25f};
  Vek32f sd = -1;
  EXPECT_EQ(veksStdDev_32f(two, 2, &sd, vekHintFast), 0);
  EXPECT_EQ(sd, 0.0f);
}

TEST(FloatSums, NaNAndInfinitiesPropagate) {
  std::vector<float> v(300, 1.0f);
  for (float bad : {NAN, INFINITY}) {
    v[257] = bad;
    auto g = placed(v);
    const float* p = g.data();
    Vek32f r[3], sd;
    for (int hint : kHints) {
      ASSERT_EQ(veksSum_32f(p, 300, &r[0], hint) | veksStdDev_32f(p, 300, &sd, hint), 0);
      EXPECT_TRUE(same_bits(r[0], bad) && (std::isnan(sd) || !std::isnan(bad))) << hint;
    }
    ASSERT_EQ(veksNorm_L2_32f(p, 300, &r[0]) | veksNorm_Inf_32f(p, 300, &r[1]) |
                  veksDotProd_32f(p, p, 300, &r[2]),
              0);
    for (float x : r) EXPECT_TRUE(same_bits(x, bad));
  }
}

// Integer-valued data whose sums are exact in double: the accurate path (double partials) and
// the fast path (single-precision lanes folded into double before any lane passes 2^24) must
// both return the exact sum rounded once. Accurate data [2^21, 2^22) overflow the fast lanes'
// exact range; fast data [2^15, 2^16) only do so when a block is not folded. The accurate
// deviation of data in [-2^10, 2^10] has exact S, Q and numerator n*Q - S^2.
TEST(FloatSums, DoubleAccumulationIsExactOnIntegerData) {
  for (int n : lengths()) {
    const auto un = static_cast<unsigned>(n);
    const auto big = random_vec<int64_t>(un, 0x1p21, 0x1p22, un),
               mid = random_vec<int64_t>(un, 0x1p15, 0x1p16, un + 1),
               small = random_vec<int64_t>(un, -1024, 1025, un + 2);
    int64_t sb = 0, sm = 0, s = 0, q = 0;
    for (int i = 0; i < n; ++i) sb += big[i], sm += mid[i], s += small[i], q += small[i] * small[i];
    const int64_t num = n * q - s * s, den = int64_t{n} * (n - 1);
    const float sd = n < 2 ? 0 : std::sqrt(static_cast<float>(num) / static_cast<float>(den));
    for (size_t m : {0, 4, 28, 60}) {
      auto gb = placed(std::vector<float>(big.begin(), big.end()), m),
           gm = placed(std::vector<float>(mid.begin(), mid.end()), m),
           gs = placed(std::vector<float>(small.begin(), small.end()), m);
      for (int hint : kHints) {
        const bool fast = hint == vekHintFast;
        Vek32f r;
        ASSERT_EQ(veksSum_32f((fast ? gm : gb).data(), n, &r, hint), 0);
        EXPECT_EQ(r, static_cast<float>(fast ? sm : sb)) << n << " " << m << " hint " << hint;
        if (fast || n < 2) continue;
        ASSERT_EQ(veksStdDev_32f(gs.data(), n, &r, hint), 0);
        EXPECT_EQ(r, sd) << n << " " << m << " hint " << hint;
      }
    }
  }
}

// ---- exact integer sums ------------------------------------------------------------------------

// The sample deviation of 16-bit data, scaled: exact S and Q, the real root, rounded to nearest
// (either neighbour of a value within 1e-6 of a tie), saturated.
template <class D>
::testing::AssertionResult sd16_ok(D got, const std::vector<Vek16s>& v, int sf) {
  i128 s = 0, q = 0;
  for (Vek16s x : v) s += x, q += i128{x} * x;
  const i128 n = static_cast<i128>(v.size());
  const LD r =
      std::ldexp(std::sqrt(static_cast<LD>(n * q - s * s) / static_cast<LD>(n * (n - 1))), -sf);
  const D lo = round_sat<D>(std::floor(r)), hi = round_sat<D>(std::ceil(r)), want = round_sat<D>(r);
  const bool tie = std::fabs(r - std::floor(r) - 0.5L) < 1e-6L;
  if (got == want || (tie && (got == lo || got == hi))) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "got " << got << ", want " << want;
}

// Random data, and constant extreme vectors around the 65,536-element blocks (the 16-bit sum of
// 65,537 x 32767 saturates, the 32-bit one does not).
std::vector<std::vector<Vek16s>> vectors16() {
  std::vector<std::vector<Vek16s>> vs;
  for (int n : {1, 2, 3, 31, 33, 64, 65, 1000, 4099})
    vs.push_back(
        random_vec<Vek16s>(static_cast<size_t>(n), -32768, 32767.99, static_cast<unsigned>(n)));
  for (size_t n : {65535, 65536, 65537, 200003})
    for (Vek16s c : {Vek16s{32767}, Vek16s{-32768}}) vs.emplace_back(n, c);
  return vs;
}

TEST(IntegerSums, SumsMeansAndDeviationsAreExactForEveryScaleFactor) {
  for (const auto& v : vectors16()) {
    const int n = static_cast<int>(v.size());
    std::vector<Vek16sc> c(v.size());
    std::vector<Vek32s> w(v.size());  // 32-bit data from the 16-bit, extremes to extremes
    i128 s = 0, cre = 0, cim = 0, sw = 0;
    for (size_t i = 0; i < v.size(); ++i) {
      c[i] = {v[i], v[v.size() - 1 - i]};
      w[i] = v[i] * 65536 + (v[i] < 0 ? 0 : 65535 - (i & 1));
      s += v[i], cre += c[i].re, cim += c[i].im, sw += w[i];
    }
    auto g = placed(v, 2);
    auto gc = placed(c, 4);
    for (int sf : kScaleFactors) {
      Vek32s s32;
      Vek16s s16, m16, sd16, sd16b, mm16;
      Vek32sc c32;
      Vek16sc c16, cm;
      SCOPED_TRACE(::testing::Message() << n << " sf " << sf);
      ASSERT_EQ(veksSum_16s32s_Sfs(g.data(), n, &s32, sf) | veksSum_16s_Sfs(g.data(), n, &s16, sf) |
                    veksMean_16s_Sfs(g.data(), n, &m16, sf) |
                    veksSum_16sc32sc_Sfs(gc.data(), n, &c32, sf) |
                    veksSum_16sc_Sfs(gc.data(), n, &c16, sf) |
                    veksMean_16sc_Sfs(gc.data(), n, &cm, sf),
                0);
      EXPECT_TRUE(s32 == scaled<Vek32s>(s, sf) && s16 == scaled<Vek16s>(s, sf) &&
                  m16 == ratio<Vek16s>(s, n, sf));
      EXPECT_TRUE(c32.re == scaled<Vek32s>(cre, sf) && c32.im == scaled<Vek32s>(cim, sf));
      EXPECT_TRUE(c16.re == scaled<Vek16s>(cre, sf) && c16.im == scaled<Vek16s>(cim, sf));
      EXPECT_TRUE(cm.re == ratio<Vek16s>(cre, n, sf) && cm.im == ratio<Vek16s>(cim, n, sf));
      Vek32s r, m;
      ASSERT_EQ(veksSum_32s_Sfs(w.data(), n, &r, sf) | veksMean_32s_Sfs(w.data(), n, &m, sf), 0);
      EXPECT_TRUE(r == scaled<Vek32s>(sw, sf) && (n > 5000 || m == ratio<Vek32s>(sw, n, sf)));
      if (n < 2) continue;
      Vek32s sd32, mm32, sd32b;
      ASSERT_EQ(veksStdDev_16s_Sfs(g.data(), n, &sd16, sf) |
                    veksStdDev_16s32s_Sfs(g.data(), n, &sd32, sf) |
                    veksMeanStdDev_16s_Sfs(g.data(), n, &mm16, &sd16b, sf) |
                    veksMeanStdDev_16s32s_Sfs(g.data(), n, &mm32, &sd32b, sf),
                0);
      EXPECT_TRUE(sd16_ok(sd16, v, sf) && sd16_ok(sd32, v, sf));
      EXPECT_TRUE(sd16 == sd16b && sd32 == sd32b && mm16 == m16 && mm32 == ratio<Vek32s>(s, n, sf));
    }
  }
}

// ---- norms -------------------------------------------------------------------------------------

// One norm member (kind 0 Inf, 1 L1, 2 L2) and its difference member against long-double
// magnitudes. The maximum is exact, but for the rounded differences and complex magnitudes;
// the sums may err by `grow` relative and one ulp of the result.
template <class S, class D>
void expect_norm(VekStatus (*one)(const S*, int, D*), VekStatus (*two)(const S*, const S*, int, D*),
                 const S* a, const S* b, int n, int kind, LD grow) {
  constexpr bool cplx = !std::is_arithmetic_v<S>;
  for (bool diff : {false, true}) {
    LD inf = 0, l1 = 0, l2 = 0;
    for (int i = 0; i < n; ++i) {
      const auto [ar, ai] = parts<LD>(a[i]);
      const auto [br, bi] = diff ? parts<LD>(b[i]) : std::pair<LD, LD>{};
      const LD m2 = (ar - br) * (ar - br) + (ai - bi) * (ai - bi);
      inf = std::max(inf, std::sqrt(m2)), l1 += std::sqrt(m2), l2 += m2;
    }
    const LD want = kind == 0 ? inf : kind == 1 ? l1 : std::sqrt(l2);
    const LD eps = std::numeric_limits<D>::epsilon() / 2;
    const LD tol = kind == 0 ? (cplx ? 4 : diff) * eps * want : grow * want + ulp_of<D>(want);
    D got;
    ASSERT_EQ(diff ? two(a, b, n, &got) : one(a, n, &got), 0);
    EXPECT_TRUE(near(got, want, tol)) << n << " kind " << kind << " diff " << diff;
  }
}
#define EXPECT_NORMS(I, L1, L2, a, b, grow)                        \
  expect_norm(veksNorm_##I, veksNormDiff_##I, a, b, n, 0, grow);   \
  expect_norm(veksNorm_##L1, veksNormDiff_##L1, a, b, n, 1, grow); \
  expect_norm(veksNorm_##L2, veksNormDiff_##L2, a, b, n, 2, grow)

TEST(Norms, FloatingPointNormsAndNormsOfDifferences) {
  for (int n : lengths()) {
    const auto un = static_cast<size_t>(n);
    const auto seed = static_cast<unsigned>(n);
    auto a = placed(random_vec<float>(2 * un, -4, 4, seed), 4);
    auto b = placed(random_vec<float>(2 * un, -4, 4, 99 + seed), 12);
    auto ad = placed(random_vec<double>(2 * un, -4, 4, seed), 8);
    auto bd = placed(random_vec<double>(2 * un, -4, 4, 9 + seed), 24);
    // Single-precision sums run in 64-lane blocks; the others accumulate in double.
    const LD g32 = (n / 64 + 10) * kEps32, g64 = 2 * (n + 8) * kEps64;
    EXPECT_NORMS(Inf_32f, L1_32f, L2_32f, a.data(), b.data(), g32);
    EXPECT_NORMS(Inf_64f, L1_64f, L2_64f, ad.data(), bd.data(), g64);
    const auto *za = reinterpret_cast<const Vek32fc*>(a.data()),
               *zb = reinterpret_cast<const Vek32fc*>(b.data());
    const auto *wa = reinterpret_cast<const Vek64fc*>(ad.data()),
               *wb = reinterpret_cast<const Vek64fc*>(bd.data());
    EXPECT_NORMS(Inf_32fc32f, L1_32fc64f, L2_32fc64f, za, zb, g64);
    EXPECT_NORMS(Inf_64fc64f, L1_64fc64f, L2_64fc64f, wa, wb, g64);
  }
}

// The norm of a, or (diff) of a - b; every call must succeed.
#define NORMS(K, ...)                                                   \
  ASSERT_EQ(diff ? veksNormDiff_##K(a.data(), b.data(), n, __VA_ARGS__) \
                 : veksNorm_##K(a.data(), n, __VA_ARGS__),              \
            vekStatusOk)

// 16-bit norms are exact: as single precision (one rounding), scaled to 32 or 64 bits, and the
// L2 pair with its own truncating scale rule.
TEST(Norms, SixteenBitNormsAreExact) {
  for (const auto& a : vectors16()) {
    std::vector<Vek16s> b(a.size());  // ~x = -x - 1: constant vectors give the widest differences
    for (size_t i = 0; i < a.size(); ++i) b[i] = static_cast<Vek16s>(~a[a.size() - 1 - i]);
    const int n = static_cast<int>(a.size());
    for (bool diff : {false, true}) {
      i128 inf = 0, l1 = 0, l2 = 0;
      for (size_t i = 0; i < a.size(); ++i) {
        const i128 x = i128{a[i]} - (diff ? b[i] : 0);
        inf = std::max(inf, x < 0 ? -x : x), l1 += x < 0 ? -x : x, l2 += x * x;
      }
      const LD root = std::sqrt(static_cast<LD>(l2));
      Vek32f fi, f1, f2;
      NORMS(Inf_16s32f, &fi);
      NORMS(L1_16s32f, &f1);
      NORMS(L2_16s32f, &f2);
      EXPECT_EQ(fi, static_cast<float>(inf));
      EXPECT_EQ(f1, static_cast<float>(static_cast<int64_t>(l1)));
      EXPECT_TRUE(near(f2, root, ulp_of<float>(root)));
      for (int sf : kScaleFactors) {
        Vek32s si, s1, s2;
        Vek64s w1, w2;
        NORMS(Inf_16s32s_Sfs, &si, sf);
        NORMS(L1_16s32s_Sfs, &s1, sf);
        NORMS(L2_16s32s_Sfs, &s2, sf);
        NORMS(L1_16s64s_Sfs, &w1, sf);
        NORMS(L2Sqr_16s64s_Sfs, &w2, sf);
        EXPECT_TRUE(si == scaled<Vek32s>(inf, sf) && s1 == scaled<Vek32s>(l1, sf))
            << n << " " << sf;
        EXPECT_TRUE(w1 == scaled<Vek64s>(l1, sf) && w2 == scaled<Vek64s>(l2, sf)) << n << " " << sf;
        // The divisor is the 32-bit integer 1 << (|sf| mod 32): -2^31 for 31, 1 for 32.
        const int sh = static_cast<int>(std::llabs(sf) % 32);
        const LD f = sh == 31 ? -0x1p31L : std::ldexp(1.0L, sh);
        const LD r = sf > 0 ? root / f : root * f;
        const LD t = std::clamp<LD>(std::trunc(r), INT32_MIN, INT32_MAX);
        EXPECT_TRUE(std::fabs(r - std::round(r)) < 1e-6L || s2 == static_cast<Vek32s>(t))
            << n << sf;
      }
    }
  }
}

// ---- dot products ------------------------------------------------------------------------------

// The dot product of real or complex a and b in R: real part, imaginary part, and the sum of
// the magnitudes of the partial products.
template <class R, class A, class B>
std::array<R, 3> dot_ref(const A* a, const B* b, int n) {
  std::array<R, 3> r{};
  for (int i = 0; i < n; ++i) {
    const auto [ar, ai] = parts<R>(a[i]);
    const auto [br, bi] = parts<R>(b[i]);
    const R p[] = {ar * br, ai * bi, ar * bi, ai * br};
    r[0] += p[0] - p[1], r[1] += p[2] + p[3];
    for (R x : p) r[2] += x < 0 ? -x : x;
  }
  return r;
}

// A floating-point member within `rel` times the magnitude of the products and one ulp.
template <class A, class B, class D>
void expect_dot(VekStatus (*f)(const A*, const B*, int, D*), const A* a, const B* b, int n,
                LD rel) {
  using P = std::conditional_t<sizeof(D) / (std::is_arithmetic_v<D> ? 1 : 2) == 4, float, double>;
  const auto want = dot_ref<LD>(a, b, n);
  D got;
  ASSERT_EQ(f(a, b, n, &got), 0);
  const auto [re, im] = parts<LD>(got);
  EXPECT_TRUE(near(re, want[0], rel * want[2] + ulp_of<P>(want[0])) &&
              near(im, want[1], rel * want[2] + ulp_of<P>(want[1])))
      << n;
}

TEST(DotProducts, FloatingPointMembersAgainstLongDouble) {
  for (int n : lengths()) {
    const auto un = static_cast<size_t>(n);
    const auto a = random_vec<float>(2 * un, -2, 2, static_cast<unsigned>(n));
    const auto b = random_vec<float>(2 * un, -2, 2, 5u + static_cast<unsigned>(n));
    auto ga = placed(a, static_cast<size_t>(n % 16) * 4), gb = placed(b, 20);
    auto gad = placed(std::vector<double>(a.begin(), a.end()), 8),
         gbd = placed(std::vector<double>(b.begin(), b.end()), 40);
    const auto *za = reinterpret_cast<const Vek32fc*>(ga.data()),
               *zb = reinterpret_cast<const Vek32fc*>(gb.data());
    const auto *wa = reinterpret_cast<const Vek64fc*>(gad.data()),
               *wb = reinterpret_cast<const Vek64fc*>(gbd.data());
    // Single precision accumulates in 16 lanes, the others in double.
    const LD r32 = (n / 16 + 16) * kEps32 * 2, r64 = (n + 16) * kEps64 * 2;
    expect_dot(veksDotProd_32f, ga.data(), gb.data(), n, r32);
    expect_dot(veksDotProd_32fc, za, zb, n, r32);
    expect_dot(veksDotProd_64f, gad.data(), gbd.data(), n, r64);
    expect_dot(veksDotProd_64fc, wa, wb, n, r64);
    expect_dot(veksDotProd_64f64fc, gad.data(), wb, n, r64);
    expect_dot(veksDotProd_32f64f, ga.data(), gb.data(), n, r64);
    expect_dot(veksDotProd_32fc64fc, za, zb, n, r64);
    expect_dot(veksDotProd_32f32fc, ga.data(), zb, n, r64);
    expect_dot(veksDotProd_32f32fc64fc, ga.data(), zb, n, r64);
  }
}

TEST(DotProducts, IntegerMembersAreExactAndClampTheScaleFactorTo31) {
  const auto vs = vectors16();
  for (size_t k = 0; k < vs.size(); ++k) {
    const auto& a = vs[k];
    const std::vector<Vek16s> b(a.rbegin(), a.rend());
    const int n = static_cast<int>(a.size());
    std::vector<Vek32s> w(a.size());
    std::vector<Vek16sc> ca(a.size()), cb(a.size());
    for (size_t i = 0; i < a.size(); ++i) {
      w[i] = a[i] * 65536 + (k % 2 ? -65536 : 65535);
      ca[i] = {a[i], b[i]}, cb[i] = {b[i], static_cast<Vek16s>(~a[i])};
    }
    const i128 v = dot_ref<i128>(a.data(), b.data(), n)[0];
    const auto c = dot_ref<i128>(ca.data(), cb.data(), n),
               x = dot_ref<i128>(a.data(), cb.data(), n);
    Vek64s r64;
    Vek64sc c64, x64;
    Vek32f r32f;
    ASSERT_EQ(veksDotProd_16s64s(a.data(), b.data(), n, &r64), 0);
    ASSERT_EQ(veksDotProd_16sc64sc(ca.data(), cb.data(), n, &c64), 0);
    ASSERT_EQ(veksDotProd_16s16sc64sc(a.data(), cb.data(), n, &x64), 0);
    ASSERT_EQ(veksDotProd_16s32f(a.data(), b.data(), n, &r32f), 0);
    EXPECT_EQ(r64, static_cast<Vek64s>(v));
    EXPECT_TRUE(c64.re == c[0] && c64.im == c[1] && x64.re == x[0] && x64.im == x[1]) << n;
    EXPECT_EQ(r32f, static_cast<float>(static_cast<int64_t>(v)));
    const i128 vw = dot_ref<i128>(a.data(), w.data(), n)[0],
               ww = dot_ref<i128>(w.data(), w.data(), n)[0];
    for (int sf : kScaleFactors) {
      const int cl = std::clamp(sf, -31, 31);
      Vek32s r, rw, rww;
      ASSERT_EQ(veksDotProd_16s32s_Sfs(a.data(), b.data(), n, &r, sf), 0);
      ASSERT_EQ(veksDotProd_16s32s32s_Sfs(a.data(), w.data(), n, &rw, sf), 0);
      ASSERT_EQ(veksDotProd_32s_Sfs(w.data(), w.data(), n, &rww, sf), 0);
      EXPECT_TRUE(r == scaled<Vek32s>(v, cl) && rw == scaled<Vek32s>(vw, cl) &&
                  rww == scaled<Vek32s>(ww, cl))
          << n << " sf " << sf;
    }
  }
}

// ---- argument checks ---------------------------------------------------------------------------

TEST(StatsChecks, PointersThenLengthAndNothingWritten) {
  const int n = expect_family_checks(
      {"veksSum", "veksMean", "veksStdDev", "veksNorm", "veksDotProd", "veksMin", "veksMax",
       "veksFindNearest", "veksCountInRange", "veksZeroCrossing"},
      [](const std::string& name) {
        CheckSpec s;
        if (name.find("MaxOrder") != std::string::npos) s.len_at = s.kSkip;  // length first
        if (name.find("Every_") != std::string::npos) s.len_at = s.kLast;
        if (name.find("ZeroCrossing") != std::string::npos) s.len_at = 1;
        if (name.find("Indx_") != std::string::npos && name.find("MinMax") == std::string::npos)
          s.optional = 1u << 3;  // the index pointer of Min/MaxIndx, Min/MaxAbsIndx
        return s;
      });
  EXPECT_GE(n, 150);
  const Vek16s s[2] = {1, 2};
  Vek32s r = 7;
  float m = 7, d = 7;
  EXPECT_EQ(veksStdDev_16s32s_Sfs(s, 1, &r, 0), vekStatusBadSize);  // deviations need 2
  EXPECT_EQ(veksStdDev_32f(reinterpret_cast<const float*>(s), 1, &d, 0), vekStatusBadSize);
  EXPECT_EQ(veksMeanStdDev_32f(reinterpret_cast<const float*>(s), 1, &m, &d, 1), vekStatusBadSize);
  EXPECT_TRUE(r == 7 && m == 7 && d == 7);
}

}  // namespace
