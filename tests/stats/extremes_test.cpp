// Extremes and first indices against the sequential rule (replace only on strictly better) on
// vectors full of repeated extremes at every lane and chunk position; element-wise extremes,
// orders, nearest entries, counting and zero crossings against plain loops.
#include <bit>

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

// The sequential reference: first index of the smallest (largest) key.
template <class T, class Key>
size_t first_best(const std::vector<T>& v, Key key, bool min) {
  size_t b = 0;
  for (size_t i = 1; i < v.size(); ++i)
    if (min ? key(v[i]) < key(v[b]) : key(v[i]) > key(v[b])) b = i;
  return b;
}

template <class T>
long double mag(T x) {
  return std::fabs(static_cast<long double>(x));
}
template <class T>
T plain(T x) {
  return x;
}

// Vectors drawn from a handful of values (so extremes repeat in many lanes), with one chosen
// position holding a new extreme: every lane position and both sides of the 2 KiB chunks.
template <class T>
std::vector<std::vector<T>> tie_vectors() {
  const double lo = std::is_signed_v<T> ? -3 : 0;
  std::vector<std::vector<T>> vs;
  const int lens[] = {1, 2, 15, 16, 17, 63, 64, 65, 130, 1023, 1025, 2049, 5000};
  unsigned seed = 1;
  for (int n : lens) {
    vs.push_back(random_vec<T>(static_cast<size_t>(n), lo, lo + 5.99, seed++));
    for (int pos = 0; pos < std::min(n, 70); pos += 3) {
      auto v = random_vec<T>(static_cast<size_t>(n), lo, lo + 5.99, seed++);
      v[static_cast<size_t>(pos)] = static_cast<T>(lo + 9);
      v[static_cast<size_t>(n - 1 - pos)] = static_cast<T>(std::is_signed_v<T> ? -9 : 0);
      vs.push_back(v);
    }
  }
  for (size_t at : {1023, 1024, 1025, 2047, 2048, 4095}) {  // an extreme repeated across chunks
    std::vector<T> v(5000, T{1});
    v[at] = T{4};
    v[at + 600] = T{4};
    vs.push_back(v);
  }
  return vs;
}

template <class T>
struct Ops;
#define VEKS_EXTREME_OPS(S, MINI, MAXI, MINAI, MAXAI)                                       \
  template <>                                                                               \
  struct Ops<Vek##S> {                                                                      \
    static VekStatus min(const Vek##S* p, int n, Vek##S* v, int* i) { return MINI; }        \
    static VekStatus max(const Vek##S* p, int n, Vek##S* v, int* i) { return MAXI; }        \
    static VekStatus min_abs(const Vek##S* p, int n, Vek##S* v, int* i) { return MINAI; }   \
    static VekStatus max_abs(const Vek##S* p, int n, Vek##S* v, int* i) { return MAXAI; }   \
    static VekStatus minmax(const Vek##S* p, int n, Vek##S* a, int* i, Vek##S* b, int* j) { \
      return veksMinMaxIndx_##S(p, n, a, i, b, j);                                          \
    }                                                                                       \
    static VekStatus minmax_v(const Vek##S* p, int n, Vek##S* a, Vek##S* b) {               \
      return veksMinMax_##S(p, n, a, b);                                                    \
    }                                                                                       \
  };
#define UNUSED ((void)p, (void)n, (void)v, (void)i, -1)
#define WITH_INDEX(F, S) (i ? veks##F##Indx_##S(p, n, v, i) : veks##F##_##S(p, n, v))
VEKS_EXTREME_OPS(16s, WITH_INDEX(Min, 16s), WITH_INDEX(Max, 16s), WITH_INDEX(MinAbs, 16s),
                 WITH_INDEX(MaxAbs, 16s))
VEKS_EXTREME_OPS(32s, WITH_INDEX(Min, 32s), WITH_INDEX(Max, 32s), WITH_INDEX(MinAbs, 32s),
                 WITH_INDEX(MaxAbs, 32s))
VEKS_EXTREME_OPS(32f, WITH_INDEX(Min, 32f), WITH_INDEX(Max, 32f),
                 (i ? -1 : veksMinAbs_32f(p, n, v)), (i ? -1 : veksMaxAbs_32f(p, n, v)))
VEKS_EXTREME_OPS(64f, WITH_INDEX(Min, 64f), WITH_INDEX(Max, 64f),
                 (i ? -1 : veksMinAbs_64f(p, n, v)), (i ? -1 : veksMaxAbs_64f(p, n, v)))
VEKS_EXTREME_OPS(8u, UNUSED, UNUSED, UNUSED, UNUSED)
VEKS_EXTREME_OPS(16u, UNUSED, UNUSED, UNUSED, UNUSED)
VEKS_EXTREME_OPS(32u, UNUSED, UNUSED, UNUSED, UNUSED)
#undef WITH_INDEX
#undef UNUSED
#undef VEKS_EXTREME_OPS

template <class T>
class Extremes : public ::testing::Test {};
using ExtremeTypes = ::testing::Types<Vek8u, Vek16u, Vek16s, Vek32u, Vek32s, Vek32f, Vek64f>;
TYPED_TEST_SUITE(Extremes, ExtremeTypes);

TYPED_TEST(Extremes, FirstIndexOfEveryExtremeMatchesTheSequentialRule) {
  using T = TypeParam;
  using O = Ops<T>;
  for (const auto& v : tie_vectors<T>()) {
    const int n = static_cast<int>(v.size());
    auto g = placed(v, sizeof(T) * (v.size() % 7));
    const size_t imin = first_best(v, plain<T>, true), imax = first_best(v, plain<T>, false);
    T a, b, a2, b2;
    int i, j;
    ASSERT_EQ(O::minmax(g.data(), n, &a, &i, &b, &j), 0);
    ASSERT_EQ(O::minmax_v(g.data(), n, &a2, &b2), 0);
    EXPECT_TRUE(a == v[imin] && i == static_cast<int>(imin) && a2 == a) << n;
    EXPECT_TRUE(b == v[imax] && j == static_cast<int>(imax) && b2 == b) << n;
    if constexpr (std::is_signed_v<T>) {
      for (bool with_index : {true, false}) {
        int* pi = with_index ? &i : nullptr;
        i = -1;
        ASSERT_EQ(O::min(g.data(), n, &a, pi), 0);
        EXPECT_TRUE(a == v[imin] && (!with_index || i == static_cast<int>(imin))) << n;
        ASSERT_EQ(O::max(g.data(), n, &a, pi), 0);
        EXPECT_TRUE(a == v[imax] && (!with_index || i == static_cast<int>(imax))) << n;
        const size_t amin = first_best(v, mag<T>, true), amax = first_best(v, mag<T>, false);
        if (!with_index || std::is_integral_v<T>) {
          ASSERT_EQ(O::min_abs(g.data(), n, &a, pi), 0);
          EXPECT_TRUE(a == static_cast<T>(mag(v[amin])) &&
                      (!with_index || i == static_cast<int>(amin)));
          ASSERT_EQ(O::max_abs(g.data(), n, &a, pi), 0);
          EXPECT_TRUE(a == static_cast<T>(mag(v[amax])) &&
                      (!with_index || i == static_cast<int>(amax)));
        }
      }
    }
  }
}

// |-32768| is searched as 32768 and stored as 32767; a null index pointer is its sibling.
TEST(ExtremesEdges, MagnitudesSaturateAndTheIndexIsOptional) {
  std::vector<Vek16s> v(100, 5);
  v[40] = -32768;
  v[70] = 32767;
  Vek16s r;
  int i = -1;
  ASSERT_EQ(veksMaxAbsIndx_16s(v.data(), 100, &r, &i), 0);
  EXPECT_TRUE(r == 32767 && i == 40);
  std::vector<Vek32s> w(100, -7);
  w[99] = INT32_MIN;
  Vek32s rw;
  ASSERT_EQ(veksMaxAbs_32s(w.data(), 100, &rw), 0);
  EXPECT_EQ(rw, INT32_MAX);
  const float f[] = {3, 1, 1};
  float m;
  ASSERT_EQ(veksMinIndx_32f(f, 3, &m, &i), 0);
  EXPECT_TRUE(m == 1 && i == 1);
  EXPECT_EQ(veksMinIndx_32f(f, 3, &m, nullptr), 0);
  EXPECT_EQ(veksMinIndx_32f(nullptr, 0, &m, nullptr), vekStatusNullPtr);
  EXPECT_EQ(veksMinIndx_32f(f, 0, &m, &i), vekStatusBadSize);
  EXPECT_EQ(veksMinMaxIndx_32f(f, 3, &m, &i, &m, nullptr), vekStatusNullPtr);
  // -0 and +0 compare equal: the first one is reported.
  const float z[] = {1, -0.0f, 0.0f, 2};
  ASSERT_EQ(veksMin_32f(z, 4, &m), 0);
  EXPECT_TRUE(m == 0 && std::signbit(m));
}

TEST(ExtremesEdges, TheFirstNaNIsEveryFloatingPointExtreme) {
  for (size_t at : {0, 5, 600, 2047, 4999}) {
    std::vector<float> v = random_vec<float>(5000, -1, 1, 3);
    v[at] = NAN;
    v[std::min<size_t>(at + 10, 4999)] = NAN;
    if (at + 10 > 4999) v[4999] = NAN;
    float a, b;
    int i, j;
    ASSERT_EQ(veksMinMaxIndx_32f(v.data(), 5000, &a, &i, &b, &j), 0);
    EXPECT_TRUE(std::isnan(a) && std::isnan(b) && i == static_cast<int>(at) && j == i) << at;
    ASSERT_EQ(veksMaxIndx_32f(v.data(), 5000, &a, &i), 0);
    EXPECT_TRUE(std::isnan(a) && i == static_cast<int>(at));
    ASSERT_EQ(veksMaxAbs_32f(v.data(), 5000, &a), 0);
    EXPECT_TRUE(std::isnan(a));
  }
  // Infinities of both signs are values, not NaNs.
  std::vector<double> d(3000, 1.0);
  d[100] = -INFINITY;
  d[2500] = INFINITY;
  double a, b;
  int i, j;
  ASSERT_EQ(veksMinMaxIndx_64f(d.data(), 3000, &a, &i, &b, &j), 0);
  EXPECT_TRUE(a == -INFINITY && i == 100 && b == INFINITY && j == 2500);
}

// ---- element-wise ------------------------------------------------------------------------------

template <class T>
T pick(T x, T y, bool min) {
  if (x != x || y != y) return y != y ? y : x;
  return min ? (y < x ? y : x) : (y > x ? y : x);
}

template <class T, class F2, class FI>
void check_every(F2 two, FI inplace, bool has_two = true) {
  for (int n : lengths()) {
    auto a = random_vec<T>(static_cast<size_t>(n), std::is_signed_v<T> ? -100 : 0, 200,
                           1u + static_cast<unsigned>(n));
    auto b = random_vec<T>(static_cast<size_t>(n), std::is_signed_v<T> ? -100 : 0, 200,
                           77u + static_cast<unsigned>(n));
    if constexpr (std::is_floating_point_v<T>)
      a[static_cast<size_t>(n) / 2] = NAN, b[static_cast<size_t>(n) / 3] = NAN;
    for (bool min : {true, false}) {
      auto d = Guarded<T>(static_cast<size_t>(n), sizeof(T));
      auto sd = placed(b, 2 * sizeof(T));
      if (has_two) {
        ASSERT_EQ(two(min, a.data(), b.data(), d.data(), static_cast<Vek32u>(n)), 0);
      }
      ASSERT_EQ(inplace(min, a.data(), sd.data(), n), 0);
      for (size_t i = 0; i < a.size(); ++i) {
        const T want = pick(a[i], b[i], min);
        if (has_two) {
          ASSERT_TRUE(d[i] == want || (want != want && d[i] != d[i])) << i;
        }
        ASSERT_TRUE(sd[i] == want || (want != want && sd[i] != sd[i])) << i;
      }
      ASSERT_TRUE(d.guards_intact() && sd.guards_intact());
    }
  }
}

#define EVERY2(S)                                                            \
  [](bool mn, const Vek##S* a, const Vek##S* b, Vek##S* d, Vek32u n) {       \
    return mn ? veksMinEvery_##S(a, b, d, n) : veksMaxEvery_##S(a, b, d, n); \
  }
#define EVERYI(S)                                                              \
  [](bool mn, const Vek##S* a, Vek##S* d, int n) {                             \
    return mn ? veksMinEvery_##S##_I(a, d, n) : veksMaxEvery_##S##_I(a, d, n); \
  }

TEST(Every, ElementWiseMinimaAndMaximaWithNaNPropagating) {
  check_every<Vek8u>(EVERY2(8u), EVERYI(8u));
  check_every<Vek16u>(EVERY2(16u), EVERYI(16u));
  check_every<Vek32f>(EVERY2(32f), EVERYI(32f));
  check_every<Vek64f>(EVERY2(64f), EVERYI(64f));
  const auto none = [](bool, auto...) { return vekStatusOk; };
  check_every<Vek16s>(none, EVERYI(16s), false);
  check_every<Vek32s>(none, EVERYI(32s), false);
  const float a[] = {1};
  float d[] = {7};
  EXPECT_EQ(veksMinEvery_32f(a, a, d, 0), vekStatusBadSize);
  EXPECT_EQ(veksMinEvery_32f(a, nullptr, d, 0), vekStatusNullPtr);
  EXPECT_EQ(d[0], 7);
}

// ---- orders ------------------------------------------------------------------------------------

TEST(MaxOrder, BitLengthsExponentsAndTheNaNWarning) {
  int o = -99;
  const Vek32s zeros[] = {0, 0}, m1[] = {-1}, mn[] = {INT32_MIN};
  EXPECT_EQ(veksMaxOrder_32s(nullptr, 0, &o), vekStatusBadSize);  // the length comes first
  EXPECT_EQ(veksMaxOrder_32s(nullptr, 1, &o), vekStatusNullPtr);
  ASSERT_EQ(veksMaxOrder_32s(zeros, 2, &o), 0);
  EXPECT_EQ(o, 0);
  ASSERT_EQ(veksMaxOrder_32s(m1, 1, &o), 0);
  EXPECT_EQ(o, 1);
  ASSERT_EQ(veksMaxOrder_32s(mn, 1, &o), 0);
  EXPECT_EQ(o, 32);
  const float fs[][1] = {{0.75f}, {1.0f}, {-3.0f}};
  const int want[] = {0, 1, 2};
  for (int k = 0; k < 3; ++k) {
    ASSERT_EQ(veksMaxOrder_32f(fs[k], 1, &o), 0);
    EXPECT_EQ(o, want[k]);
  }
  for (int n : lengths()) {
    const auto s =
        random_vec<Vek16s>(static_cast<size_t>(n), -3000, 3000, static_cast<unsigned>(n));
    const auto w = random_vec<Vek32s>(static_cast<size_t>(n), -1e7, 1e7, static_cast<unsigned>(n));
    auto f = random_vec<float>(static_cast<size_t>(n), -1e5, 1e5, static_cast<unsigned>(n));
    const std::vector<double> d(f.begin(), f.end());
    unsigned os = 0, ow = 0;
    long double mf = 0;
    for (int i = 0; i < n; ++i) {
      os |= static_cast<unsigned>(std::abs(s[i])), ow |= static_cast<unsigned>(std::abs(w[i]));
      mf = std::max(mf, mag(f[i]));
    }
    const int ef = mf == 0 ? 0 : std::ilogb(static_cast<double>(mf)) + 1;
    ASSERT_EQ(veksMaxOrder_16s(s.data(), n, &o), 0);
    EXPECT_EQ(o, std::bit_width(os));
    ASSERT_EQ(veksMaxOrder_32s(w.data(), n, &o), 0);
    EXPECT_EQ(o, std::bit_width(ow));
    ASSERT_EQ(veksMaxOrder_32f(f.data(), n, &o), 0);
    EXPECT_EQ(o, ef);
    ASSERT_EQ(veksMaxOrder_64f(d.data(), n, &o), 0);
    EXPECT_EQ(o, ef);
    f[static_cast<size_t>(n) / 2] = NAN;
    ASSERT_EQ(veksMaxOrder_32f(f.data(), n, &o), vekStatusWarnNaN);
    f[0] = -INFINITY;
    ASSERT_EQ(veksMaxOrder_32f(f.data(), n, &o), vekStatusWarnNaN);
    EXPECT_EQ(o, 129);
  }
  const Vek16s s16[] = {-32768};
  ASSERT_EQ(veksMaxOrder_16s(s16, 1, &o), 0);
  EXPECT_EQ(o, 16);
}

// ---- lookup, counting, crossings ---------------------------------------------------------------

TEST(Lookup, NearestTableEntryWithMidpointsGoingLow) {
  const Vek16u t2[] = {10, 20};
  const Vek16u vals[] = {15, 16, 0, 65535};
  Vek16u out[4];
  int idx[4];
  ASSERT_EQ(veksFindNearest_16u(vals, out, idx, 4, t2, 2), 0);
  EXPECT_TRUE(out[0] == 10 && idx[0] == 0 && out[1] == 20 && idx[1] == 1 && idx[2] == 0 &&
              idx[3] == 1);
  EXPECT_EQ(veksFindNearest_16u(vals, out, idx, 4, t2, 0), vekStatusBadSize);
  std::mt19937 g(5);
  for (int m : {1, 2, 3, 7, 64, 1000}) {
    std::vector<Vek16u> t;
    for (int k = 0; k < m; ++k)
      t.push_back(static_cast<Vek16u>(k == 0 ? g() % 100 : t.back() + 1 + g() % 60));
    for (int k = 0; k < 3000; ++k) {
      const Vek16u v = static_cast<Vek16u>(g() % (t.back() + 200u));
      int best = 0;  // nearest, lower index on a tie
      for (int j = 1; j < m; ++j)
        if (std::abs(v - t[j]) < std::abs(v - t[best])) best = j;
      Vek16u ov;
      int oi;
      ASSERT_EQ(veksFindNearestOne_16u(v, &ov, &oi, t.data(), m), 0);
      ASSERT_TRUE(oi == best && ov == t[best]) << v << " in table of " << m;
    }
  }
}

TEST(Counting, OpenIntervalCounts) {
  const Vek32s v3[] = {1, 2, 3};
  int c = -1;
  ASSERT_EQ(veksCountInRange_32s(v3, 3, &c, 1, 3), 0);
  EXPECT_EQ(c, 1);
  for (int n : lengths()) {
    const auto v = random_vec<Vek32s>(static_cast<size_t>(n), -10, 10, static_cast<unsigned>(n));
    for (auto [lo, hi] : {std::pair{-3, 4}, {INT32_MIN, INT32_MAX}, {5, -5}, {0, 1}}) {
      int want = 0;
      for (Vek32s x : v) want += lo < x && x < hi;
      ASSERT_EQ(veksCountInRange_32s(v.data(), n, &c, lo, hi), 0);
      ASSERT_EQ(c, want) << n;
    }
  }
}

template <class T>
double crossings(const std::vector<T>& v, int measure) {
  double c = 0;
  auto cls = [](T x) { return x > 0 ? 1 : (x < 0 ? -1 : 0); };
  for (size_t i = 0; i + 1 < v.size(); ++i) {
    if (measure == 0)
      c += std::is_integral_v<T> ? (cls(v[i]) * cls(v[i + 1]) < 0) : (v[i] * v[i + 1] < 0);
    if (measure == 1)
      c += std::signbit(static_cast<float>(v[i])) != std::signbit(static_cast<float>(v[i + 1]));
    if (measure == 2) c += std::abs(cls(v[i + 1]) - cls(v[i])) / 2.0;
  }
  return c;
}

TEST(ZeroCrossing, ThreeMeasuresOnFloatAndSixteenBitData) {
  const float e[] = {1, 0, -1};
  Vek32f r;
  ASSERT_EQ(veksZeroCrossing_32f(e, 3, &r, vekCrossProduct), 0);
  EXPECT_EQ(r, 0);
  ASSERT_EQ(veksZeroCrossing_32f(e, 3, &r, vekCrossSignBit), 0);
  EXPECT_EQ(r, 1);
  ASSERT_EQ(veksZeroCrossing_32f(e, 3, &r, vekCrossWithZeros), 0);
  EXPECT_EQ(r, 1);
  r = 42;
  EXPECT_EQ(veksZeroCrossing_32f(e, 3, &r, 3), vekStatusBadMode);
  EXPECT_EQ(veksZeroCrossing_32f(e, 0, &r, 0), vekStatusBadSize);
  EXPECT_EQ(r, 42);
  ASSERT_EQ(veksZeroCrossing_32f(e, 1, &r, 0), 0);
  EXPECT_EQ(r, 0);
  const float pz[] = {0.0f, -0.0f, 1e-30f, -1e-30f};  // signed zeros; an underflowing product
  ASSERT_EQ(veksZeroCrossing_32f(pz, 4, &r, vekCrossProduct), 0);
  EXPECT_EQ(r, 0);
  ASSERT_EQ(veksZeroCrossing_32f(pz, 4, &r, vekCrossSignBit), 0);
  EXPECT_EQ(r, 3);
  for (int n : lengths()) {
    auto f = random_vec<float>(static_cast<size_t>(n), -1, 1, static_cast<unsigned>(n));
    auto s = random_vec<Vek16s>(static_cast<size_t>(n), -2, 2.99, static_cast<unsigned>(n));
    for (size_t i = 0; i < s.size(); i += 3) f[i] = 0, s[i] = (i % 2 ? -32768 : 32767);
    for (int m = 0; m < 3; ++m) {
      ASSERT_EQ(veksZeroCrossing_32f(f.data(), static_cast<Vek32u>(n), &r, m), 0);
      ASSERT_EQ(r, crossings(f, m)) << n << " measure " << m;
      ASSERT_EQ(veksZeroCrossing_16s32f(s.data(), static_cast<Vek32u>(n), &r, m), 0);
      ASSERT_EQ(r, crossings(s, m)) << n << " measure " << m;
    }
  }
}

}  // namespace
