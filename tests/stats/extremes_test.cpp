// Extremes and first indices against the sequential rule (replace only on strictly better) on
// vectors full of repeated extremes at every lane and chunk position; element-wise extremes,
// orders, nearest entries, counting and zero crossings against plain loops.
#include <bit>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "veks.h"

namespace {

using namespace veks_test;

// The sequential reference: first index of the smallest (largest) key, or of the first NaN.
template <class T, class Key>
size_t first_best(const std::vector<T>& v, Key key, bool min) {
  for (size_t i = 0; i < v.size(); ++i)
    if (v[i] != v[i]) return i;
  size_t b = 0;
  for (size_t i = 1; i < v.size(); ++i)
    if (min ? key(v[i]) < key(v[b]) : key(v[i]) > key(v[b])) b = i;
  return b;
}

template <class T>
bool same(T a, T b) {  // NaN matches NaN, -0 does not match +0
  return (a == b && std::signbit(a) == std::signbit(b)) || (a != a && b != b);
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
    v[at] = v[at + 600] = T{4};
    vs.push_back(v);
  }
  if constexpr (std::is_floating_point_v<T>) {
    for (size_t at : {0, 5, 600, 2047, 4989}) {  // NaNs are every extreme; the first one counts
      auto v = random_vec<T>(5000, -1, 1, 3);
      v[at] = v[at + 10] = NAN;
      vs.push_back(v);
    }
    std::vector<T> v(3000, T{1});  // infinities are values
    v[100] = -INFINITY, v[2500] = INFINITY;
    vs.push_back(v);
    vs.push_back({1, -0.0, 0.0, 2});  // -0 and +0 compare equal: the first one counts
  } else if constexpr (std::is_signed_v<T>) {
    std::vector<T> v(100, 5);  // |min| is searched as -min, and saturates when stored
    v[40] = std::numeric_limits<T>::min(), v[70] = std::numeric_limits<T>::max();
    vs.push_back(v);
  }
  return vs;
}

template <class T>
using ExtI = VekStatus (*)(const T*, int, T*, int*);
template <class T>
using Ext = VekStatus (*)(const T*, int, T*);

// MinMax with and without indices; then, where the type has them, Min, Max, MinAbs, MaxAbs with
// an index (called with a null index pointer as well) and without.
template <class T>
void check_extremes(VekStatus (*minmax)(const T*, int, T*, int*, T*, int*),
                    VekStatus (*minmax_v)(const T*, int, T*, T*), std::array<ExtI<T>, 4> indx = {},
                    std::array<Ext<T>, 4> val = {}) {
  for (const auto& v : tie_vectors<T>()) {
    const int n = static_cast<int>(v.size());
    auto g = placed(v, sizeof(T) * (v.size() % 7));
    const size_t imin = first_best(v, plain<T>, true), imax = first_best(v, plain<T>, false);
    T a, b, a2, b2;
    int i, j;
    ASSERT_EQ(minmax(g.data(), n, &a, &i, &b, &j) | minmax_v(g.data(), n, &a2, &b2), 0);
    ASSERT_TRUE(same(a, v[imin]) && i == static_cast<int>(imin) && same(a2, a)) << n;
    ASSERT_TRUE(same(b, v[imax]) && j == static_cast<int>(imax) && same(b2, b)) << n;
    for (int k = 0; k < 4 && val[k]; ++k) {  // k: min, max, min |x|, max |x|
      const size_t at = k < 2 ? first_best(v, plain<T>, k == 0) : first_best(v, mag<T>, k == 2);
      const LD m = mag(v[at]);  // saturated for integers
      const T want = k < 2 ? v[at] : std::is_integral_v<T> ? round_sat<T>(m) : static_cast<T>(m);
      i = -1;
      ASSERT_EQ(val[k](g.data(), n, &a), 0);
      ASSERT_TRUE(same(a, want)) << n << " member " << k;
      if (!indx[k]) continue;
      ASSERT_EQ(indx[k](g.data(), n, &b, &i) | indx[k](g.data(), n, &a2, nullptr), 0);
      ASSERT_TRUE(same(b, want) && same(a2, want) && i == static_cast<int>(at)) << n << " " << k;
    }
  }
}

TEST(Extremes, FirstIndexOfEveryExtremeMatchesTheSequentialRule) {
#define MM(S) veksMinMaxIndx_##S, veksMinMax_##S
#define ALL(S, ...)                                                                       \
  {veksMin##__VA_ARGS__##_##S, veksMax##__VA_ARGS__##_##S, veksMinAbs##__VA_ARGS__##_##S, \
   veksMaxAbs##__VA_ARGS__##_##S}
  check_extremes<Vek8u>(MM(8u)), check_extremes<Vek16u>(MM(16u)), check_extremes<Vek32u>(MM(32u));
  check_extremes<Vek16s>(MM(16s), ALL(16s, Indx), ALL(16s));
  check_extremes<Vek32s>(MM(32s), ALL(32s, Indx), ALL(32s));
  check_extremes<Vek32f>(MM(32f), {veksMinIndx_32f, veksMaxIndx_32f}, ALL(32f));
  check_extremes<Vek64f>(MM(64f), {veksMinIndx_64f, veksMaxIndx_64f}, ALL(64f));
#undef MM
#undef ALL
}

// ---- element-wise ------------------------------------------------------------------------------

template <class T>
T pick(T x, T y, bool min) {
  if (x != x || y != y) return y != y ? y : x;
  return min ? (y < x ? y : x) : (y > x ? y : x);
}

// Min and max of two vectors (absent for some types) and in place, at every length.
template <class T>
void check_every(std::array<VekStatus (*)(const T*, const T*, T*, Vek32u), 2> two,
                 std::array<VekStatus (*)(const T*, T*, int), 2> inplace) {
  for (int n : lengths()) {
    const size_t len = static_cast<size_t>(n);
    auto a = random_vec<T>(len, std::is_signed_v<T> ? -100 : 0, 200, 1u + unsigned(n));
    auto b = random_vec<T>(len, std::is_signed_v<T> ? -100 : 0, 200, 77u + unsigned(n));
    if constexpr (std::is_floating_point_v<T>) a[len / 2] = NAN, b[len / 3] = NAN;
    for (int min : {1, 0}) {
      auto d = Guarded<T>(len, sizeof(T));
      auto sd = placed(b, 2 * sizeof(T));
      ASSERT_EQ(two[0] ? two[1 - min](a.data(), b.data(), d.data(), Vek32u(len)) : 0, 0);
      ASSERT_EQ(inplace[1 - min](a.data(), sd.data(), n), 0);
      for (size_t i = 0; i < a.size(); ++i) {
        const T want = pick(a[i], b[i], min);
        ASSERT_TRUE((!two[0] || same(d[i], want)) && same(sd[i], want)) << i;
      }
      ASSERT_TRUE(d.guards_intact() && sd.guards_intact());
    }
  }
}

TEST(Every, ElementWiseMinimaAndMaximaWithNaNPropagating) {
#define EV(S) {veksMinEvery_##S, veksMaxEvery_##S}, {veksMinEvery_##S##_I, veksMaxEvery_##S##_I}
  check_every<Vek8u>(EV(8u)), check_every<Vek16u>(EV(16u));
  check_every<Vek32f>(EV(32f)), check_every<Vek64f>(EV(64f));
  check_every<Vek16s>({}, {veksMinEvery_16s_I, veksMaxEvery_16s_I});
  check_every<Vek32s>({}, {veksMinEvery_32s_I, veksMaxEvery_32s_I});
#undef EV
}

// ---- orders ------------------------------------------------------------------------------------

TEST(MaxOrder, BitLengthsExponentsAndTheNaNWarning) {
  int o = -99;
  const Vek32s zeros[] = {0, 0};
  EXPECT_EQ(veksMaxOrder_32s(nullptr, 0, &o), vekStatusBadSize);  // the length comes first
  EXPECT_EQ(veksMaxOrder_32s(zeros, 1, nullptr), vekStatusNullPtr);
  EXPECT_TRUE(veksMaxOrder_32s(zeros, 2, &o) == 0 && o == 0);
  const auto bits = [](auto x) {
    return int(std::bit_width(x < 0 ? 0u - unsigned(x) : unsigned(x)));
  };
  const auto expo = [](auto x) { return x == 0 ? 0 : std::ilogb(x) + 1; };
  const auto order = [&](auto fn, const auto& v, auto key) {  // the member's order == max key
    int want = INT_MIN, got = -1;
    for (auto x : v) want = std::max(want, key(x));
    return fn(v.data(), int(v.size()), &got) == 0 && got == want;
  };
  for (int n : lengths()) {
    const size_t un = static_cast<size_t>(n);
    const unsigned u = static_cast<unsigned>(n);
    auto s = random_vec<Vek16s>(un, -3000, 3000, u);
    auto w = random_vec<Vek32s>(un, -1e7, 1e7, u);
    auto f = random_vec<float>(un, -1e5, 1e5, u);
    if (n % 5 == 0) s[un - 1] = INT16_MIN, w[un - 1] = INT32_MIN;
    f[un / 3] = std::ldexp(n % 2 ? 1.0f : -1.0f, n % 30 - 5);  // exact powers of two
    const std::vector<double> d(f.begin(), f.end());
    ASSERT_TRUE(order(veksMaxOrder_16s, s, bits) && order(veksMaxOrder_32s, w, bits) &&
                order(veksMaxOrder_32f, f, expo) && order(veksMaxOrder_64f, d, expo))
        << n;
    f[un / 2] = NAN;
    ASSERT_EQ(veksMaxOrder_32f(f.data(), n, &o), vekStatusWarnNaN);
    f[0] = -INFINITY;
    ASSERT_EQ(veksMaxOrder_32f(f.data(), n, &o), vekStatusWarnNaN);
    EXPECT_EQ(o, 129);
  }
}

// ---- lookup, counting, crossings ---------------------------------------------------------------

// Tables of 1 to 1000 ascending entries, values around and beyond them; the vector form on all
// the values at once, the single-value form on each.
TEST(Lookup, NearestTableEntryWithMidpointsGoingLow) {
  std::mt19937 g(5);
  for (int m : {1, 2, 3, 7, 64, 1000}) {
    std::vector<Vek16u> t, vs(3000), out(3000);
    std::vector<int> idx(3000);
    for (int k = 0; k < m; ++k)
      t.push_back(static_cast<Vek16u>(k == 0 ? g() % 100 : t.back() + 1 + g() % 60));
    for (Vek16u& v : vs) v = static_cast<Vek16u>(g() % (t.back() + 200u));
    vs[0] = 0, vs[1] = 65535;
    ASSERT_EQ(veksFindNearest_16u(vs.data(), out.data(), idx.data(), 3000, t.data(), m), 0);
    for (size_t k = 0; k < vs.size(); ++k) {
      const int v = vs[k];
      int best = 0;  // nearest, lower index on a tie
      for (int j = 1; j < m; ++j)
        if (std::abs(v - t[j]) < std::abs(v - t[best])) best = j;
      Vek16u ov;
      int oi;
      ASSERT_EQ(veksFindNearestOne_16u(vs[k], &ov, &oi, t.data(), m), 0);
      ASSERT_TRUE(oi == best && ov == t[best] && idx[k] == best && out[k] == t[best])
          << v << " in table of " << m;
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

TEST(ZeroCrossingAndCounting, ThreeMeasuresAndOpenIntervals) {
  const float e[] = {1, 0, -1};
  Vek32f r = 42;
  EXPECT_EQ(veksZeroCrossing_32f(e, 3, &r, 3), vekStatusBadMode);
  EXPECT_EQ(r, 42);
  const float pz[] = {0.0f, -0.0f, 1e-30f, -1e-30f};  // signed zeros; an underflowing product
  ASSERT_EQ(veksZeroCrossing_32f(pz, 4, &r, vekCrossProduct), 0);
  EXPECT_EQ(r, 0);
  ASSERT_EQ(veksZeroCrossing_32f(pz, 4, &r, vekCrossSignBit), 0);
  EXPECT_EQ(r, 3);
  for (int n : lengths()) {
    const auto un = static_cast<size_t>(n);
    const auto u = static_cast<unsigned>(n);
    auto f = random_vec<float>(un, -1, 1, u);
    auto s = random_vec<Vek16s>(un, -2, 2.99, u);
    for (size_t i = 0; i < s.size(); i += 3) f[i] = 0, s[i] = (i % 2 ? -32768 : 32767);
    for (int m = 0; m < 3; ++m) {
      Vek32f rs = -1;
      ASSERT_TRUE(veksZeroCrossing_32f(f.data(), Vek32u(n), &r, m) == 0 &&
                  veksZeroCrossing_16s32f(s.data(), Vek32u(n), &rs, m) == 0);
      ASSERT_TRUE(r == crossings(f, m) && rs == crossings(s, m)) << n << " measure " << m;
    }
    // Counts in open intervals, also empty and reversed ones.
    const auto v = random_vec<Vek32s>(un, -10, 10, u);
    for (auto [lo, hi] : {std::pair{-3, 4}, {INT32_MIN, INT32_MAX}, {5, -5}, {0, 1}}) {
      int want = 0, c = -1;
      for (Vek32s x : v) want += lo < x && x < hi;
      ASSERT_TRUE(veksCountInRange_32s(v.data(), n, &c, lo, hi) == 0 && c == want) << n;
    }
  }
}

}  // namespace
