// Shared pieces of the statistics tests: random data, guarded sources at chosen misalignments,
// and exact integer rounding written independently of the library.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace stats_test {

using i128 = __int128;
using veks_test::Guarded;

// A guarded copy of v starting `misalign` bytes past a 64-byte boundary.
template <class T>
Guarded<T> placed(const std::vector<T>& v, size_t misalign = 0) {
  Guarded<T> g(v.size(), misalign);
  std::copy(v.begin(), v.end(), g.data());
  return g;
}

template <class T>
std::vector<T> random_vec(size_t n, double lo, double hi, unsigned seed) {
  std::mt19937_64 g(seed);
  std::uniform_real_distribution<double> u(lo, hi);
  std::vector<T> v(n);
  for (T& x : v) x = static_cast<T>(u(g));
  return v;
}

// Lengths that reach every loop shape: 1..130, around the 64-lane steps and the blocks.
inline std::vector<int> lengths() {
  std::vector<int> l;
  for (int n = 1; n <= 130; ++n) l.push_back(n);
  for (int n : {255, 256, 257, 1120, 1121, 1122, 4095, 8191, 8192, 8193, 16447, 40000})
    l.push_back(n);
  return l;
}

// round(v * 2^-sf) with ties to even, exactly, for any sf; left shifts beyond 100 bits are
// represented by a value far outside every destination range.
inline i128 round_shift(i128 v, long long sf) {
  if (sf == 0 || v == 0) return v;
  if (sf < 0) {
    const long long k = -sf;
    const i128 big = i128{1} << 100;
    if (k >= 100) return v > 0 ? big : -big;
    const i128 r = v * (i128{1} << k);
    return r;
  }
  if (sf >= 120) return 0;
  const i128 d = i128{1} << sf;
  i128 q = v / d, r = v % d;  // truncated
  if (r < 0) r += d, q -= 1;  // floor
  if (2 * r > d || (2 * r == d && (q & 1))) ++q;
  return q;
}

template <class D>
D sat(i128 v) {
  return static_cast<D>(
      std::clamp<i128>(v, std::numeric_limits<D>::min(), std::numeric_limits<D>::max()));
}

// Rounds a real value to D, ties to even, saturating.
template <class D>
D sat_round(long double v) {
  if (v >= static_cast<long double>(std::numeric_limits<D>::max()))
    return std::numeric_limits<D>::max();
  if (v <= static_cast<long double>(std::numeric_limits<D>::min()))
    return std::numeric_limits<D>::min();
  return static_cast<D>(std::nearbyintl(v));
}

// |got - want| within tol.
inline ::testing::AssertionResult near(long double got, long double want, long double tol) {
  if (std::isnan(want) && std::isnan(got)) return ::testing::AssertionSuccess();
  if (std::fabs(got - want) <= tol) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "got " << static_cast<double>(got) << ", want " << static_cast<double>(want)
         << " within " << static_cast<double>(tol);
}

inline long double ulp32(long double v) {
  const float f = static_cast<float>(std::fabs(v));
  return std::nextafter(f, INFINITY) - f;
}

constexpr int kScaleFactors[] = {0,   1,   2,   5,    15,   16,    17,    31,    32,   40,  62,
                                 63,  64,  100, 1023, 1024, 2000,  -1,    -2,    -5,   -15, -16,
                                 -17, -31, -32, -40,  -63,  -1023, -1024, -1025, -2000};

}  // namespace stats_test
