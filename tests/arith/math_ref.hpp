// Independent models for the root, magnitude, phase and polar tests: a random source, ulp
// distances against long-double values, and exact integer rounding with a scale factor.
#pragma once

#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <tuple>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "support/guarded.hpp"
#include "veks.h"

namespace roots_test {

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
  // A value of either sign with a random significand and a binary exponent in [elo, ehi].
  template <class F>
  F wide(int elo, int ehi) {
    const F m = static_cast<F>(1 + unit());
    const F v = std::ldexp(m, range(elo, ehi));
    return next() & 1 ? -v : v;
  }
};

// ulp(v) of a binary32 or binary64 result whose exact value is v.
template <class F>
long double ulp_of(long double v) {
  constexpr int p = std::numeric_limits<F>::digits;
  constexpr int emin = std::numeric_limits<F>::min_exponent - 1;
  int e = v == 0 ? emin : std::ilogb(v);
  if (e < emin) e = emin;
  return std::ldexp(1.0L, e - p + 1);
}

// |r - v| in ulps of v (of `scale` when given: the bound is relative to another quantity).
template <class F>
long double ulps(F r, long double v) {
  return std::fabs(static_cast<long double>(r) - v) / ulp_of<F>(v);
}
template <class F>
long double ulps(F r, long double v, long double scale) {
  return std::fabs(static_cast<long double>(r) - v) / ulp_of<F>(scale);
}

template <class F>
bool same_bits(F a, F b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

// R_T of a long double, ties to even, saturated.
template <class T>
T round_sat(long double v) {
  using L = std::numeric_limits<T>;
  if (v >= static_cast<long double>(L::max())) return L::max();
  if (v <= static_cast<long double>(L::min())) return L::min();
  return static_cast<T>(std::nearbyintl(v));
}

// Whether R_T(v) may be either neighbour: v is within 1e-9 of a half-integer (the tests'
// long-double references are far more accurate than that).
inline bool near_half(long double v) {
  const long double f = v - std::floor(v);
  return std::fabs(f - 0.5L) < 1e-9L;
}

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
  uint64_t n = static_cast<uint64_t>(std::sqrt(static_cast<long double>(num) / den));
  while (u128(n) * n * den > num) --n;
  while (u128(n + 1) * (n + 1) * den <= num) ++n;
  // Compare y with n + 1/2: 4 num against (2n + 1)^2 den.
  const u128 lhs = 4 * num, rhs = u128(2 * n + 1) * (2 * n + 1) * den;
  if (lhs > rhs || (lhs == rhs && (n & 1))) ++n;
  const auto hi = static_cast<uint64_t>(std::numeric_limits<T>::max());
  return static_cast<T>(n > hi ? hi : n);
}

// The argument checks of an export whatever its signature: each pointer argument null in turn
// gives vekStatusNullPtr, also with a bad length; with every pointer valid, a length below 1
// gives vekStatusBadSize (the first int argument is the length, any later one the scale factor,
// tried at its extremes); nothing is written.
template <class... A>
void expect_checks(const char* name, VekStatus (*fn)(A...)) {
  constexpr size_t n = sizeof...(A);
  constexpr bool is_ptr[] = {std::is_pointer_v<A>...};
  size_t first_int = 0;
  while (first_int < n && is_ptr[first_int]) ++first_int;
  veks_test::Guarded<unsigned char> buf(256);
  const auto call = [&](size_t null_at, int len, int sf) {
    return [&]<size_t... I>(std::index_sequence<I...>) {
      const auto arg = [&]<class T>(size_t i) -> T {
        if constexpr (std::is_pointer_v<T>) {
          return i == null_at ? nullptr : reinterpret_cast<T>(buf.data());
        } else {
          return static_cast<T>(i == first_int ? len : sf);
        }
      };
      return fn(arg.template operator()<A>(I)...);
    }
    (std::index_sequence_for<A...>{});
  };
  for (int sf : {0, INT_MIN, INT_MAX}) {
    for (int len : {4, 1, 0, -1, INT_MIN}) {
      for (size_t k = 0; k < first_int; ++k)
        EXPECT_EQ(call(k, len, sf), vekStatusNullPtr)
            << name << ": pointer " << k << ", len " << len;
      if (len < 1) {
        EXPECT_EQ(call(n, len, sf), vekStatusBadSize) << name << ": len " << len;
      }
    }
  }
  EXPECT_TRUE(buf.unchanged()) << name;
}

}  // namespace roots_test
