// Independent references of the tests: exact wide-integer rounding and saturation, long-double
// ulp distances, exact integer roots, test vectors that mix a type's extremes with random values,
// and the lengths that reach every vector tail.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace veks_test {

using i128 = __int128;
using LD = long double;

template <class T>
i128 lo_of() {
  return std::numeric_limits<T>::min();
}
template <class T>
i128 hi_of() {
  return std::numeric_limits<T>::max();
}
template <class D>
D sat(i128 v) {
  return static_cast<D>(std::clamp<i128>(v, lo_of<D>(), hi_of<D>()));
}

// floor(n / d) rounded by mode (0 toward zero, 1 nearest even, 2 nearest away) for d > 0.
inline i128 div_round(i128 n, i128 d, int mode = 1) {
  i128 q = n / d, r = n % d;
  if (r < 0) --q, r += d;  // floor
  if (mode == 0) return (q < 0 && r != 0) ? q + 1 : q;
  if (2 * r > d || (2 * r == d && (mode == 2 ? q >= 0 : (q & 1) != 0))) ++q;
  return q;
}

// n / d * 2^-sf rounded by mode, saturated to D; d > 0, |n| and d below 2^40. Left shifts stop
// at 2^80, which saturates every destination, right shifts round everything to 0 from 2^80.
template <class D>
D ratio(i128 n, i128 d, long long sf, int mode = 1) {
  const int up = sf < 0 ? static_cast<int>(std::min(-sf, 80LL)) : 0;
  const int down = sf > 0 ? static_cast<int>(std::min(sf, 80LL)) : 0;
  return sat<D>(div_round(n * (i128{1} << up), d * (i128{1} << down), mode));
}
// r * 2^-sf with ties to even, saturated to D; exact for |r| < 2^126 and any sf.
template <class D>
D scaled(i128 r, long long sf) {
  if (sf >= 127) return 0;
  if (sf > 0) return sat<D>(div_round(r, i128{1} << sf));
  for (long long i = 0; i < -sf && r != 0 && r < (i128{1} << 100) && r > -(i128{1} << 100); ++i)
    r *= 2;
  return sat<D>(r);
}

// Rounds a real value to T, ties to even, saturating.
template <class T>
T round_sat(LD v) {
  if (v >= static_cast<LD>(std::numeric_limits<T>::max())) return std::numeric_limits<T>::max();
  if (v <= static_cast<LD>(std::numeric_limits<T>::min())) return std::numeric_limits<T>::min();
  return static_cast<T>(std::nearbyintl(v));
}
// Whether v is within 1e-9 of a half-integer: a long-double reference cannot settle the tie.
inline bool near_half(LD v) { return std::fabs(v - std::floor(v) - 0.5L) < 1e-9L; }

// R_T(sqrt(x) * 2^-sf) exactly, for 0 <= x < 2^32, with integer arithmetic only.
template <class T>
T exact_root(uint64_t x, int sf) {
  using u128 = unsigned __int128;
  if (x == 0) return 0;
  if (sf < -24) return std::numeric_limits<T>::max();  // sqrt(x) * 2^25 saturates every type
  if (sf > 40) return 0;
  // y^2 = num / den with y = sqrt(x) * 2^-sf.
  const u128 num = sf < 0 ? u128(x) << (-2 * sf) : u128(x);
  const u128 den = sf > 0 ? u128(1) << (2 * sf) : u128(1);
  auto n = static_cast<uint64_t>(std::sqrt(static_cast<LD>(num) / den));
  while (u128(n) * n * den > num) --n;
  while (u128(n + 1) * (n + 1) * den <= num) ++n;
  const u128 lhs = 4 * num, rhs = u128(2 * n + 1) * (2 * n + 1) * den;  // y against n + 1/2
  if (lhs > rhs || (lhs == rhs && (n & 1))) ++n;
  const auto hi = static_cast<uint64_t>(std::numeric_limits<T>::max());
  return static_cast<T>(n > hi ? hi : n);
}

// ulp of a binary32 or binary64 result whose exact value is v (subnormal steps below).
template <class F>
LD ulp_of(LD v) {
  constexpr int emin = std::numeric_limits<F>::min_exponent - 1;
  return std::ldexp(
      1.0L, std::max(v == 0 ? emin : std::ilogb(v), emin) - std::numeric_limits<F>::digits + 1);
}
// |r - v| in ulps of v, or of `scale` when the bound is relative to another quantity.
template <class F>
LD ulps(F r, LD v, LD scale) {
  return std::fabs(static_cast<LD>(r) - v) / ulp_of<F>(scale);
}
template <class F>
LD ulps(F r, LD v) {
  return ulps(r, v, v);
}
template <class F>
bool same_bits(F a, F b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}
inline ::testing::AssertionResult near(LD got, LD want, LD tol) {
  if ((std::isnan(want) && std::isnan(got)) || std::fabs(got - want) <= tol)
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "got " << static_cast<double>(got) << ", want " << static_cast<double>(want)
         << " within " << static_cast<double>(tol);
}

struct Rng {
  uint64_t s;
  uint64_t next() {
    uint64_t x = (s += 0x9E3779B97F4A7C15ULL);
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
    return x ^ (x >> 31);
  }
  int range(int lo, int hi) { return lo + static_cast<int>(next() % uint64_t(hi - lo + 1)); }
  double unit() { return static_cast<double>(next() >> 11) * 0x1p-53; }
  // Either sign, a random significand, a binary exponent in [elo, ehi].
  template <class F>
  F wide(int elo, int ehi) {
    const F v = std::ldexp(static_cast<F>(1 + unit()), range(elo, ehi));
    return next() & 1 ? -v : v;
  }
};

// Random bytes into p[0..n).
inline void fill_bytes(void* p, size_t n, uint64_t seed) {
  Rng r{seed};
  for (size_t i = 0; i < n; i += 8) {
    const uint64_t v = r.next();
    std::memcpy(static_cast<char*>(p) + i, &v, std::min<size_t>(8, n - i));
  }
}

// n integers of T: the extremes, their neighbours, 0, +-1, 2, then random bit patterns.
template <class T>
std::vector<T> edge_and_random(size_t n, unsigned seed) {
  using L = std::numeric_limits<T>;
  std::vector<T> v = {L::min(), L::max(), 0, 1, T(L::max() - 1), T(L::min() + 1), T(-1), 2};
  v.resize(std::max(n, v.size()));
  fill_bytes(v.data() + 8, (v.size() - 8) * sizeof(T), seed);
  v.resize(n);
  return v;
}

// n values uniform in [lo, hi), converted to T.
template <class T>
std::vector<T> random_vec(size_t n, double lo, double hi, unsigned seed) {
  std::mt19937_64 g(seed);
  std::uniform_real_distribution<double> u(lo, hi);
  std::vector<T> v(n);
  for (T& x : v) x = static_cast<T>(u(g));
  return v;
}

// 1..130 (every tail of every vector width, with a full 64-byte body) and longer lengths
// around the unrolled loops and the blocks of the reductions.
inline std::vector<int> lengths(bool long_ones = true) {
  std::vector<int> l;
  for (int n = 1; n <= 130; ++n) l.push_back(n);
  if (long_ones)
    for (int n : {255, 256, 257, 1120, 1121, 4095, 8192, 8193, 16447, 40000}) l.push_back(n);
  return l;
}

}  // namespace veks_test
