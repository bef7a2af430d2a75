// Sums, means, deviations, norms and dot products against long-double references (with bounds
// that follow from each accumulation) and exact wide-integer references, on both hint paths,
// aligned and misaligned sources, block boundaries and extreme vectors.
#include <functional>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "support/checks.hpp"
#include "support/guarded.hpp"
#include "support/refs.hpp"

namespace {

using namespace veks_test;
using LD = long double;

constexpr LD kEps32 = 0x1p-24L, kEps64 = 0x1p-53L;
constexpr int kHints[] = {vekHintNone, vekHintFast, vekHintAccurate, 7};
constexpr size_t kMisaligns[] = {0, 4, 8, 12, 28, 36, 60};
constexpr int kScaleFactors[] = {0,   1,   2,   5,    15,   16,    17,    31,    32,   40,  62,
                                 63,  64,  100, 1023, 1024, 2000,  -1,    -2,    -5,   -15, -16,
                                 -17, -31, -32, -40,  -63,  -1023, -1024, -1025, -2000};

// Error bound of a sum of n terms whose magnitudes add up to abs: the accurate path's double
// partials, the fast path's single-precision blocks (at most 8,192 / 32 + a few additions per
// lane), plus the final rounding to single precision.
LD sum_tol(LD ref, LD abs, size_t n, bool fast) {
  return ulp_of<float>(ref) + (fast ? 300 * kEps32 : static_cast<LD>(n + 8) * kEps64) * abs;
}

TEST(FloatSums, SumAndMeanOfRealAndComplexDataOnBothPathsAndEveryAlignment) {
  for (int n : lengths()) {
    const auto v = random_vec<float>(2 * static_cast<size_t>(n), -1, 3, static_cast<unsigned>(n));
    for (size_t m : kMisaligns) {
      auto g = placed(v, m);
      for (int hint : kHints) {
        const bool fast = hint == vekHintFast;
        LD re = 0, im = 0, abs = 0;
        for (int i = 0; i < n; ++i) re += v[2 * i], im += v[2 * i + 1];
        for (float x : v) abs += std::fabs(x);
        LD real = 0, rabs = 0;
        for (int i = 0; i < n; ++i) real += v[i], rabs += std::fabs(v[i]);
        Vek32f s = 0, mean = 0;
        ASSERT_EQ(veksSum_32f(g.data(), n, &s, hint), 0);
        ASSERT_TRUE(near(s, real, sum_tol(real, rabs, n, fast))) << n << " " << m << " " << hint;
        ASSERT_EQ(veksMean_32f(g.data(), n, &mean, hint), 0);
        ASSERT_EQ(mean, static_cast<float>(static_cast<double>(s) / n));  // the sum rounded first
        Vek32fc c{}, cm{};
        const auto* z = reinterpret_cast<const Vek32fc*>(g.data());
        ASSERT_EQ(veksSum_32fc(z, n, &c, hint), 0);
        ASSERT_TRUE(near(c.re, re, sum_tol(re, abs, n, fast))) << n << " " << m;
        ASSERT_TRUE(near(c.im, im, sum_tol(im, abs, n, fast))) << n << " " << m;
        ASSERT_EQ(veksMean_32fc(z, n, &cm, hint), 0);
        ASSERT_EQ(cm.re, static_cast<float>(static_cast<double>(c.re) / n));
        ASSERT_EQ(cm.im, static_cast<float>(static_cast<double>(c.im) / n));
      }
    }
  }
}

// A source that is not 4-byte aligned runs the accurate path even when asked for the fast one.
TEST(FloatSums, FastRequestOnAnUnalignedSourceGivesTheAccurateResult) {
  for (int n : {1, 17, 100, 9000, 40000}) {
    const auto v = random_vec<float>(static_cast<size_t>(n), -1e3, 1e3, 7);
    for (size_t m : {1, 2, 3, 33}) {
      Guarded<unsigned char> raw(sizeof(float) * static_cast<size_t>(n), m);
      std::memcpy(raw.data(), v.data(), sizeof(float) * v.size());
      const auto* p = reinterpret_cast<const Vek32f*>(raw.data());
      Vek32f fast, acc, sd_fast, sd_acc;
      ASSERT_EQ(veksSum_32f(p, n, &fast, vekHintFast), 0);
      ASSERT_EQ(veksSum_32f(p, n, &acc, vekHintAccurate), 0);
      EXPECT_EQ(fast, acc) << n << " " << m;
      if (n > 1) {
        ASSERT_EQ(veksStdDev_32f(p, n, &sd_fast, vekHintFast), 0);
        ASSERT_EQ(veksStdDev_32f(p, n, &sd_acc, vekHintNone), 0);
        EXPECT_EQ(sd_fast, sd_acc) << n << " " << m;
      }
    }
  }
}

TEST(FloatSums, DoubleSumsAndMeans) {
  for (int n : lengths()) {
    const auto v = random_vec<double>(2 * static_cast<size_t>(n), -5, 9, static_cast<unsigned>(n));
    auto g = placed(v, 8 * static_cast<size_t>(n % 8));
    LD r = 0, re = 0, im = 0, abs = 0;
    for (int i = 0; i < n; ++i) r += v[i], re += v[2 * i], im += v[2 * i + 1];
    for (double x : v) abs += std::fabs(x);
    const LD tol = (n + 8) * kEps64 * abs;
    Vek64f s, mean;
    Vek64fc c, cm;
    const auto* z = reinterpret_cast<const Vek64fc*>(g.data());
    ASSERT_EQ(veksSum_64f(g.data(), n, &s), 0);
    ASSERT_EQ(veksMean_64f(g.data(), n, &mean), 0);
    ASSERT_EQ(veksSum_64fc(z, n, &c), 0);
    ASSERT_EQ(veksMean_64fc(z, n, &cm), 0);
    EXPECT_TRUE(near(s, r, tol) && near(mean, r / n, tol / n + 1e-16L)) << n;
    EXPECT_TRUE(near(c.re, re, tol) && near(c.im, im, tol)) << n;
    EXPECT_TRUE(near(cm.re, re / n, tol / n + 1e-16L) && near(cm.im, im / n, tol / n + 1e-16L));
  }
}

TEST(FloatSums, NaNAndInfinitiesPropagate) {
  std::vector<float> v(300, 1.0f);
  v[257] = NAN;
  auto g = placed(v);
  Vek32f r;
  for (int hint : kHints) {
    ASSERT_EQ(veksSum_32f(g.data(), 300, &r, hint), 0);
    EXPECT_TRUE(std::isnan(r));
    ASSERT_EQ(veksStdDev_32f(g.data(), 300, &r, hint), 0);
    EXPECT_TRUE(std::isnan(r));
  }
  ASSERT_EQ(veksNorm_L2_32f(g.data(), 300, &r), 0);
  EXPECT_TRUE(std::isnan(r));
  ASSERT_EQ(veksNorm_Inf_32f(g.data(), 300, &r), 0);
  EXPECT_TRUE(std::isnan(r));
  ASSERT_EQ(veksDotProd_32f(g.data(), g.data(), 300, &r), 0);
  EXPECT_TRUE(std::isnan(r));
  v[257] = INFINITY;
  auto h = placed(v);
  ASSERT_EQ(veksSum_32f(h.data(), 300, &r, vekHintFast), 0);
  EXPECT_EQ(r, INFINITY);
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

// ---- standard deviations -----------------------------------------------------------------------

template <class T>
LD sample_sd(const std::vector<T>& v, size_t n) {
  LD mean = 0, q = 0;
  for (size_t i = 0; i < n; ++i) mean += v[i];
  mean /= n;
  for (size_t i = 0; i < n; ++i) q += (v[i] - mean) * (v[i] - mean);
  return std::sqrt(q / (n - 1));
}

TEST(StdDev, FloatDeviationsOnBothPathsAndTheSmallestLengths) {
  for (int n : lengths()) {
    if (n < 2) continue;
    const auto v = random_vec<float>(static_cast<size_t>(n), -2, 3, static_cast<unsigned>(n));
    const LD want = sample_sd(v, n), mean = [&] {
      LD s = 0;
      for (float x : v) s += x;
      return s / n;
    }();
    for (size_t m : {0, 4, 36}) {
      auto g = placed(v, m);
      for (int hint : kHints) {
        Vek32f sd, mu, sd2;
        ASSERT_EQ(veksStdDev_32f(g.data(), n, &sd, hint), 0);
        ASSERT_EQ(veksMeanStdDev_32f(g.data(), n, &mu, &sd2, hint), 0);
        const LD rel = hint == vekHintFast ? 2e-4L : 2e-6L;
        EXPECT_TRUE(near(sd, want, rel * want + 1e-6L)) << n << " hint " << hint;
        EXPECT_EQ(sd, sd2);
        EXPECT_TRUE(near(mu, mean, sum_tol(mean, 3, n, hint == vekHintFast))) << n;
      }
    }
    auto d = random_vec<double>(static_cast<size_t>(n), 1e6, 1e6 + 2, static_cast<unsigned>(n));
    Vek64f sd, mu, sd2;
    auto gd = placed(d);
    ASSERT_EQ(veksStdDev_64f(gd.data(), n, &sd), 0);
    ASSERT_EQ(veksMeanStdDev_64f(gd.data(), n, &mu, &sd2), 0);
    const LD want64 = sample_sd(d, n);
    EXPECT_TRUE(near(sd, want64, 1e-9L * want64)) << n;
    EXPECT_EQ(sd, sd2);
    EXPECT_TRUE(near(mu, 1e6 + 1, 1.5L)) << n;
  }
  const float two[] = {3.25f, 3.25f}, one[] = {1};
  Vek32f sd = -1;
  EXPECT_EQ(veksStdDev_32f(two, 2, &sd, vekHintFast), 0);
  EXPECT_EQ(sd, 0.0f);
  EXPECT_EQ(veksStdDev_32f(one, 1, &sd, vekHintNone), vekStatusBadSize);
}

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
  return ::testing::AssertionFailure()
         << "got " << got << ", want " << want << " (sf " << sf << ")";
}

// ---- exact integer sums ------------------------------------------------------------------------

// Random data, and constant extreme vectors around the 65,536-element blocks.
std::vector<std::vector<Vek16s>> vectors16() {
  std::vector<std::vector<Vek16s>> vs;
  for (int n : {1, 2, 3, 31, 33, 64, 65, 1000, 4099})
    vs.push_back(
        random_vec<Vek16s>(static_cast<size_t>(n), -32768, 32767.99, static_cast<unsigned>(n)));
  for (size_t n : {65535, 65536, 65537, 200003})
    for (Vek16s c : {Vek16s{32767}, Vek16s{-32768}}) vs.emplace_back(n, c);
  return vs;
}

TEST(IntegerSums, SixteenBitSumsMeansAndDeviationsAreExactForEveryScaleFactor) {
  for (const auto& v : vectors16()) {
    const int n = static_cast<int>(v.size());
    std::vector<Vek16sc> c(v.size());
    i128 s = 0, cre = 0, cim = 0;
    for (size_t i = 0; i < v.size(); ++i) {
      c[i] = {v[i], v[v.size() - 1 - i]};
      s += v[i], cre += c[i].re, cim += c[i].im;
    }
    auto g = placed(v, 2);
    auto gc = placed(c, 4);
    for (int sf : kScaleFactors) {
      Vek32s s32;
      Vek16s s16, m16, sd16, mm16;
      Vek32sc c32;
      Vek16sc c16, cm;
      ASSERT_EQ(veksSum_16s32s_Sfs(g.data(), n, &s32, sf), 0);
      ASSERT_EQ(veksSum_16s_Sfs(g.data(), n, &s16, sf), 0);
      ASSERT_EQ(veksMean_16s_Sfs(g.data(), n, &m16, sf), 0);
      ASSERT_EQ(veksSum_16sc32sc_Sfs(gc.data(), n, &c32, sf), 0);
      ASSERT_EQ(veksSum_16sc_Sfs(gc.data(), n, &c16, sf), 0);
      ASSERT_EQ(veksMean_16sc_Sfs(gc.data(), n, &cm, sf), 0);
      EXPECT_EQ(s32, scaled<Vek32s>(s, sf)) << n << " sf " << sf;
      EXPECT_EQ(s16, scaled<Vek16s>(s, sf)) << n << " sf " << sf;
      EXPECT_EQ(m16, ratio<Vek16s>(s, n, sf)) << n << " sf " << sf;
      EXPECT_EQ(c32.re, scaled<Vek32s>(cre, sf));
      EXPECT_EQ(c32.im, scaled<Vek32s>(cim, sf));
      EXPECT_EQ(c16.re, scaled<Vek16s>(cre, sf));
      EXPECT_EQ(c16.im, scaled<Vek16s>(cim, sf));
      EXPECT_EQ(cm.re, ratio<Vek16s>(cre, n, sf));
      EXPECT_EQ(cm.im, ratio<Vek16s>(cim, n, sf));
      if (n < 2) continue;
      Vek32s sd32, mm32, sd32b;
      ASSERT_EQ(veksStdDev_16s_Sfs(g.data(), n, &sd16, sf), 0);
      ASSERT_EQ(veksStdDev_16s32s_Sfs(g.data(), n, &sd32, sf), 0);
      ASSERT_EQ(veksMeanStdDev_16s_Sfs(g.data(), n, &mm16, &sd16, sf), 0);
      ASSERT_EQ(veksMeanStdDev_16s32s_Sfs(g.data(), n, &mm32, &sd32b, sf), 0);
      EXPECT_TRUE(sd16_ok(sd16, v, sf));
      EXPECT_TRUE(sd16_ok(sd32, v, sf));
      EXPECT_EQ(sd32, sd32b);
      EXPECT_EQ(mm16, m16);
      EXPECT_EQ(mm32, ratio<Vek32s>(s, n, sf));
    }
  }
  // 65,537 elements of 32767: the 16-bit sum saturates, the 32-bit one is exact.
  const std::vector<Vek16s> big(65537, 32767);
  Vek16s s16;
  Vek32s s32;
  ASSERT_EQ(veksSum_16s_Sfs(big.data(), 65537, &s16, 0), 0);
  ASSERT_EQ(veksSum_16s32s_Sfs(big.data(), 65537, &s32, 0), 0);
  EXPECT_EQ(s16, 32767);
  EXPECT_EQ(s32, 2147450879);
}

TEST(IntegerSums, ThirtyTwoBitSumsAndMeans) {
  std::vector<std::vector<Vek32s>> vs;
  for (int n : {1, 2, 7, 8, 9, 33, 1000})
    vs.push_back(random_vec<Vek32s>(static_cast<size_t>(n), -2147483648.0, 2147483647.0,
                                    3u + static_cast<unsigned>(n)));
  for (Vek32s c : {INT32_MAX, INT32_MIN}) vs.emplace_back(70001, c);
  vs.push_back({3});
  vs.push_back({5});
  vs.push_back({-3});
  for (const auto& v : vs) {
    const int n = static_cast<int>(v.size());
    i128 s = 0;
    for (Vek32s x : v) s += x;
    for (int sf : kScaleFactors) {
      Vek32s r, m;
      ASSERT_EQ(veksSum_32s_Sfs(v.data(), n, &r, sf), 0);
      ASSERT_EQ(veksMean_32s_Sfs(v.data(), n, &m, sf), 0);
      EXPECT_EQ(r, scaled<Vek32s>(s, sf)) << n << " sf " << sf;
      if (n < 5000) {
        EXPECT_EQ(m, ratio<Vek32s>(s, n, sf)) << n << " sf " << sf;
      }
    }
  }
}

// ---- norms -------------------------------------------------------------------------------------

// The norm of a, or (diff) of a - b; every call must succeed.
#define NORMS(K, a, b, ...)                                                                  \
  ASSERT_EQ(diff ? veksNormDiff_##K(a, b, n, __VA_ARGS__) : veksNorm_##K(a, n, __VA_ARGS__), \
            vekStatusOk)

template <class T>
struct RealNorms {
  LD inf = 0, l1 = 0, l2 = 0;
  RealNorms(const std::vector<T>& a, const std::vector<T>* b) {
    for (size_t i = 0; i < a.size(); ++i) {
      const LD x = b ? static_cast<LD>(a[i]) - (*b)[i] : a[i];
      inf = std::max(inf, std::fabs(x)), l1 += std::fabs(x), l2 += x * x;
    }
  }
};

TEST(Norms, FloatingPointNormsAndNormsOfDifferences) {
  for (int n : lengths()) {
    const size_t un = static_cast<size_t>(n);
    const auto a = random_vec<float>(2 * un, -4, 4, static_cast<unsigned>(n));
    const auto b = random_vec<float>(2 * un, -4, 4, 99u + static_cast<unsigned>(n));
    const auto ad = random_vec<double>(2 * un, -4, 4, static_cast<unsigned>(n));
    const auto bd = random_vec<double>(2 * un, -4, 4, 9u + static_cast<unsigned>(n));
    auto ga = placed(a, 4), gb = placed(b, 12);
    auto gad = placed(ad, 8), gbd = placed(bd, 24);
    const std::vector<float> fa(a.begin(), a.begin() + n), fb(b.begin(), b.begin() + n);
    const std::vector<double> da(ad.begin(), ad.begin() + n), db(bd.begin(), bd.begin() + n);
    for (bool diff : {false, true}) {
      const RealNorms<float> r(fa, diff ? &fb : nullptr);
      const RealNorms<double> d(da, diff ? &db : nullptr);
      Vek32f i32, l132, l232;
      Vek64f i64, l164, l264;
      NORMS(Inf_32f, ga.data(), gb.data(), &i32);
      NORMS(L1_32f, ga.data(), gb.data(), &l132);
      NORMS(L2_32f, ga.data(), gb.data(), &l232);
      NORMS(Inf_64f, gad.data(), gbd.data(), &i64);
      NORMS(L1_64f, gad.data(), gbd.data(), &l164);
      NORMS(L2_64f, gad.data(), gbd.data(), &l264);
      // The difference is rounded once per element before it is used.
      const LD e32 = (diff ? 1 : 0) * kEps32, e64 = (diff ? 1 : 0) * kEps64;
      EXPECT_TRUE(near(i32, r.inf, e32 * r.inf)) << n << " diff " << diff;
      EXPECT_TRUE(near(l132, r.l1, ulp_of<float>(r.l1) + (n / 64 + 8 + diff) * kEps32 * r.l1)) << n;
      EXPECT_TRUE(near(l232, std::sqrt(r.l2),
                       ulp_of<float>(r.l2) + (n / 64 + 8 + 2 * diff) * kEps32 * std::sqrt(r.l2)))
          << n;
      EXPECT_TRUE(near(i64, d.inf, e64 * d.inf)) << n;
      EXPECT_TRUE(near(l164, d.l1, (n + 8) * kEps64 * d.l1)) << n;
      EXPECT_TRUE(near(l264, std::sqrt(d.l2), (n + 8) * kEps64 * std::sqrt(d.l2))) << n;
    }
    // Complex: magnitudes from the interleaved parts.
    for (bool diff : {false, true}) {
      LD ci = 0, c1 = 0, c2 = 0, di = 0, d1 = 0, d2 = 0;
      for (int i = 0; i < n; ++i) {
        const LD re = static_cast<LD>(a[2 * i]) - (diff ? b[2 * i] : 0);
        const LD im = static_cast<LD>(a[2 * i + 1]) - (diff ? b[2 * i + 1] : 0);
        const LD m2 = re * re + im * im;
        ci = std::max(ci, m2), c1 += std::sqrt(m2), c2 += m2;
        const LD dre = static_cast<LD>(ad[2 * i]) - (diff ? bd[2 * i] : 0);
        const LD dim = static_cast<LD>(ad[2 * i + 1]) - (diff ? bd[2 * i + 1] : 0);
        const LD dm2 = dre * dre + dim * dim;
        di = std::max(di, dm2), d1 += std::sqrt(dm2), d2 += dm2;
      }
      const auto* za = reinterpret_cast<const Vek32fc*>(ga.data());
      const auto* zb = reinterpret_cast<const Vek32fc*>(gb.data());
      const auto* wa = reinterpret_cast<const Vek64fc*>(gad.data());
      const auto* wb = reinterpret_cast<const Vek64fc*>(gbd.data());
      Vek32f inf32;
      Vek64f l1, l2, inf64, l1d, l2d;
      NORMS(Inf_32fc32f, za, zb, &inf32);
      NORMS(L1_32fc64f, za, zb, &l1);
      NORMS(L2_32fc64f, za, zb, &l2);
      NORMS(Inf_64fc64f, wa, wb, &inf64);
      NORMS(L1_64fc64f, wa, wb, &l1d);
      NORMS(L2_64fc64f, wa, wb, &l2d);
      EXPECT_TRUE(near(inf32, std::sqrt(ci), 4 * kEps32 * std::sqrt(ci))) << n;
      EXPECT_TRUE(near(l1, c1, (n + 8) * 2 * kEps64 * c1)) << n;
      EXPECT_TRUE(near(l2, std::sqrt(c2), (n + 8) * kEps64 * std::sqrt(c2))) << n;
      EXPECT_TRUE(near(inf64, std::sqrt(di), 4 * kEps64 * std::sqrt(di))) << n;
      EXPECT_TRUE(near(l1d, d1, (n + 8) * 2 * kEps64 * d1)) << n;
      EXPECT_TRUE(near(l2d, std::sqrt(d2), (n + 8) * kEps64 * std::sqrt(d2))) << n;
    }
  }
}

// 16-bit norms are exact: as single precision (one rounding), scaled to 32 or 64 bits, and the
// L2 pair with its own truncating scale rule.
TEST(Norms, SixteenBitNormsAreExact) {
  const auto vs = vectors16();
  for (size_t k = 0; k < vs.size(); ++k) {
    const auto& a = vs[k];
    std::vector<Vek16s> b(a.size());  // ~x = -x - 1: constant vectors give the widest differences
    for (size_t i = 0; i < a.size(); ++i) b[i] = static_cast<Vek16s>(~a[a.size() - 1 - i]);
    const int n = static_cast<int>(a.size());
    for (bool diff : {false, true}) {
      i128 inf = 0, l1 = 0, l2 = 0;
      for (size_t i = 0; i < a.size(); ++i) {
        const i128 x = i128{a[i]} - (diff ? b[i] : 0);
        const i128 ax = x < 0 ? -x : x;
        inf = std::max(inf, ax), l1 += ax, l2 += x * x;
      }
      Vek32f fi, f1, f2;
      NORMS(Inf_16s32f, a.data(), b.data(), &fi);
      NORMS(L1_16s32f, a.data(), b.data(), &f1);
      NORMS(L2_16s32f, a.data(), b.data(), &f2);
      EXPECT_EQ(fi, static_cast<float>(inf));
      EXPECT_EQ(f1, static_cast<float>(static_cast<int64_t>(l1)));
      EXPECT_TRUE(
          near(f2, std::sqrt(static_cast<LD>(l2)), ulp_of<float>(std::sqrt(static_cast<LD>(l2)))));
      for (int sf : kScaleFactors) {
        Vek32s si, s1, s2;
        Vek64s w1, w2;
        NORMS(Inf_16s32s_Sfs, a.data(), b.data(), &si, sf);
        NORMS(L1_16s32s_Sfs, a.data(), b.data(), &s1, sf);
        NORMS(L2_16s32s_Sfs, a.data(), b.data(), &s2, sf);
        NORMS(L1_16s64s_Sfs, a.data(), b.data(), &w1, sf);
        NORMS(L2Sqr_16s64s_Sfs, a.data(), b.data(), &w2, sf);
        EXPECT_EQ(si, scaled<Vek32s>(inf, sf)) << n << " sf " << sf;
        EXPECT_EQ(s1, scaled<Vek32s>(l1, sf)) << n << " sf " << sf;
        EXPECT_EQ(w1, scaled<Vek64s>(l1, sf)) << n << " sf " << sf;
        EXPECT_EQ(w2, scaled<Vek64s>(l2, sf)) << n << " sf " << sf;
        // The divisor is the 32-bit integer 1 << (|sf| mod 32): -2^31 for 31, 1 for 32.
        const int sh = static_cast<int>(std::llabs(sf) % 32);
        const LD f = sh == 31 ? -0x1p31L : std::ldexp(1.0L, sh);
        const LD r =
            sf > 0 ? std::sqrt(static_cast<LD>(l2)) / f : std::sqrt(static_cast<LD>(l2)) * f;
        const LD t = std::clamp<LD>(std::trunc(r), INT32_MIN, INT32_MAX);
        if (std::fabs(r - std::round(r)) > 1e-6L) {
          EXPECT_EQ(s2, static_cast<Vek32s>(t)) << n << " sf " << sf;
        }
      }
    }
  }
  const Vek16s v[] = {2, 2, 0};  // sqrt(8) = 2.83 truncates to 2
  Vek32s r;
  ASSERT_EQ(veksNorm_L2_16s32s_Sfs(v, 3, &r, 0), 0);
  EXPECT_EQ(r, 2);
}

// ---- dot products ------------------------------------------------------------------------------

TEST(DotProducts, FloatingPointMembersAgainstLongDouble) {
  for (int n : lengths()) {
    const size_t un = static_cast<size_t>(n);
    const auto a = random_vec<float>(2 * un, -2, 2, static_cast<unsigned>(n));
    const auto b = random_vec<float>(2 * un, -2, 2, 5u + static_cast<unsigned>(n));
    const std::vector<double> ad(a.begin(), a.end()), bd(b.begin(), b.end());
    auto ga = placed(a, static_cast<size_t>(n % 16) * 4), gb = placed(b, 20);
    auto gad = placed(ad, 8), gbd = placed(bd, 40);
    LD rr = 0, cre = 0, cim = 0, xre = 0, xim = 0, abs = 0;
    for (int i = 0; i < n; ++i) {
      rr += static_cast<LD>(a[i]) * b[i];
      cre += static_cast<LD>(a[2 * i]) * b[2 * i] - static_cast<LD>(a[2 * i + 1]) * b[2 * i + 1];
      cim += static_cast<LD>(a[2 * i]) * b[2 * i + 1] + static_cast<LD>(a[2 * i + 1]) * b[2 * i];
      xre += static_cast<LD>(a[i]) * b[2 * i];
      xim += static_cast<LD>(a[i]) * b[2 * i + 1];
      abs += std::fabs(static_cast<LD>(a[2 * i]) * b[2 * i]) +
             std::fabs(static_cast<LD>(a[2 * i + 1]) * b[2 * i + 1]);
    }
    const LD t32 = (n / 16 + 16) * kEps32 * 2 * abs + 1e-7L, t64 = (n + 16) * kEps64 * 2 * abs;
    const auto *za = reinterpret_cast<const Vek32fc*>(ga.data()),
               *zb = reinterpret_cast<const Vek32fc*>(gb.data());
    const auto *wa = reinterpret_cast<const Vek64fc*>(gad.data()),
               *wb = reinterpret_cast<const Vek64fc*>(gbd.data());
    Vek32f f;
    Vek64f d, d2;
    Vek32fc fc, xc;
    Vek64fc dc, dc2, xd, xd2;
    ASSERT_EQ(veksDotProd_32f(ga.data(), gb.data(), n, &f), 0);
    ASSERT_EQ(veksDotProd_64f(gad.data(), gbd.data(), n, &d), 0);
    ASSERT_EQ(veksDotProd_32f64f(ga.data(), gb.data(), n, &d2), 0);
    ASSERT_EQ(veksDotProd_32fc(za, zb, n, &fc), 0);
    ASSERT_EQ(veksDotProd_64fc(wa, wb, n, &dc), 0);
    ASSERT_EQ(veksDotProd_32fc64fc(za, zb, n, &dc2), 0);
    ASSERT_EQ(veksDotProd_32f32fc(ga.data(), zb, n, &xc), 0);
    ASSERT_EQ(veksDotProd_64f64fc(gad.data(), wb, n, &xd), 0);
    ASSERT_EQ(veksDotProd_32f32fc64fc(ga.data(), zb, n, &xd2), 0);
    EXPECT_TRUE(near(f, rr, t32)) << n;
    EXPECT_TRUE(near(d, rr, t64) && near(d2, rr, t64)) << n;
    EXPECT_TRUE(near(fc.re, cre, t32) && near(fc.im, cim, t32)) << n;
    EXPECT_TRUE(near(dc.re, cre, t64) && near(dc.im, cim, t64)) << n;
    EXPECT_TRUE(near(dc2.re, cre, t64) && near(dc2.im, cim, t64)) << n;
    EXPECT_TRUE(near(xc.re, xre, ulp_of<float>(xre) + t64) &&
                near(xc.im, xim, ulp_of<float>(xim) + t64))
        << n;
    EXPECT_TRUE(near(xd.re, xre, t64) && near(xd.im, xim, t64)) << n;
    EXPECT_TRUE(near(xd2.re, xre, t64) && near(xd2.im, xim, t64)) << n;
  }
}

TEST(DotProducts, IntegerMembersAreExactAndClampTheScaleFactorTo31) {
  const auto vs = vectors16();
  for (size_t k = 0; k < vs.size(); ++k) {
    const auto& a = vs[k];
    const std::vector<Vek16s> b(a.rbegin(), a.rend());
    const int n = static_cast<int>(a.size());
    std::vector<Vek32s> w(a.size());
    for (size_t i = 0; i < a.size(); ++i) w[i] = a[i] * 65536 + (k % 2 ? -65536 : 65535);
    std::vector<Vek16sc> ca(a.size()), cb(a.size());
    for (size_t i = 0; i < a.size(); ++i) ca[i] = {a[i], b[i]}, cb[i] = {b[i], a[i]};
    i128 v = 0, vw = 0, ww = 0, cre = 0, cim = 0, xre = 0, xim = 0;
    for (size_t i = 0; i < a.size(); ++i) {
      v += i128{a[i]} * b[i], vw += i128{a[i]} * w[i], ww += i128{w[i]} * w[i];
      cre += i128{ca[i].re} * cb[i].re - i128{ca[i].im} * cb[i].im;
      cim += i128{ca[i].re} * cb[i].im + i128{ca[i].im} * cb[i].re;
      xre += i128{a[i]} * cb[i].re, xim += i128{a[i]} * cb[i].im;
    }
    Vek64s r64;
    Vek64sc c64, x64;
    Vek32f r32f;
    ASSERT_EQ(veksDotProd_16s64s(a.data(), b.data(), n, &r64), 0);
    ASSERT_EQ(veksDotProd_16sc64sc(ca.data(), cb.data(), n, &c64), 0);
    ASSERT_EQ(veksDotProd_16s16sc64sc(a.data(), cb.data(), n, &x64), 0);
    ASSERT_EQ(veksDotProd_16s32f(a.data(), b.data(), n, &r32f), 0);
    EXPECT_EQ(r64, static_cast<Vek64s>(v));
    EXPECT_TRUE(c64.re == cre && c64.im == cim && x64.re == xre && x64.im == xim) << n;
    EXPECT_EQ(r32f, static_cast<float>(static_cast<int64_t>(v)));
    for (int sf : kScaleFactors) {
      const int c = std::clamp(sf, -31, 31);
      Vek32s r, rw, rww;
      ASSERT_EQ(veksDotProd_16s32s_Sfs(a.data(), b.data(), n, &r, sf), 0);
      ASSERT_EQ(veksDotProd_16s32s32s_Sfs(a.data(), w.data(), n, &rw, sf), 0);
      ASSERT_EQ(veksDotProd_32s_Sfs(w.data(), w.data(), n, &rww, sf), 0);
      EXPECT_EQ(r, scaled<Vek32s>(v, c)) << n << " sf " << sf;
      EXPECT_EQ(rw, scaled<Vek32s>(vw, c)) << n << " sf " << sf;
      EXPECT_EQ(rww, scaled<Vek32s>(ww, c)) << n << " sf " << sf;
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
  EXPECT_EQ(veksMeanStdDev_32f(reinterpret_cast<const float*>(s), 1, &m, &d, 1), vekStatusBadSize);
  EXPECT_TRUE(r == 7 && m == 7 && d == 7);
}

}  // namespace
