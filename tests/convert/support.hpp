// Helpers of the conversion and threshold tests: element access that also reads the packed 24-bit
// formats, the floating-point environment around a call, and input vectors built from boundary
// values and random ones.
#pragma once

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace veks_test {

template <bool Signed>
struct P24 {};  // packed 24-bit destinations and sources, 3 bytes per element
using P24s = P24<true>;
using P24u = P24<false>;

template <class T>
struct Layout {
  using Elem = T;
  static constexpr size_t width = 1;
  static constexpr long long lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
};
template <bool Signed>
struct Layout<P24<Signed>> {
  using Elem = Vek8u;
  static constexpr size_t width = 3;
  static constexpr long long lo = Signed ? -(1LL << 23) : 0, hi = (1LL << (23 + !Signed)) - 1;
};

// Element i of a vector of T held in `p` (as integers or floating point).
template <class T>
auto get(const typename Layout<T>::Elem* p, size_t i) {
  if constexpr (Layout<T>::width == 3) {
    const Vek8u* b = p + 3 * i;
    long long v = b[0] | (b[1] << 8) | (b[2] << 16);
    if (std::is_same_v<T, P24s> && v >= (1LL << 23)) v -= 1LL << 24;
    return v;
  } else {
    return p[i];
  }
}
template <class T>
void put(typename Layout<T>::Elem* p, size_t i, long double v) {
  if constexpr (Layout<T>::width == 3) {
    for (int k = 0; k < 3; ++k)
      p[3 * i + k] = static_cast<Vek8u>(static_cast<long long>(v) >> (8 * k));
  } else {
    p[i] = static_cast<T>(v);
  }
}

// Runs call() under rounding mode `mode` with the flags `flags` raised; both must be as they were.
template <class F>
::testing::AssertionResult keeps_fenv(int mode, int flags, F&& call) {
  std::feclearexcept(FE_ALL_EXCEPT);
  std::fesetround(mode);
  std::feraiseexcept(flags);
  call();
  const int got_mode = std::fegetround(), got_flags = std::fetestexcept(FE_ALL_EXCEPT);
  std::fesetround(FE_TONEAREST);
  std::feclearexcept(FE_ALL_EXCEPT);
  if (got_mode != mode || got_flags != flags)
    return ::testing::AssertionFailure()
           << "rounding " << got_mode << " (was " << mode << "), flags 0x" << std::hex << got_flags
           << " (were 0x" << flags << ")";
  return ::testing::AssertionSuccess();
}

inline constexpr int kRoundings[] = {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};

// n values of F: boundary values of a range [lo, hi] (the limits and their neighbours at 1 and 1/2,
// halves around zero, zeros, infinities, NaN, the smallest subnormal, F's extremes, powers of two
// around the integer widths), rounded to F, then random values across twice the range, half of
// them on halves.
template <class F>
std::vector<F> float_inputs(size_t n, long double lo, long double hi, unsigned seed) {
  using L = std::numeric_limits<F>;
  std::vector<F> v = {0, L::infinity(),  L::max(),       L::quiet_NaN(), 0.5, 1.5, 2.5, 3.5,
                      1, F(0.49999997L), L::denorm_min()};
  for (long double d : {-1.0L, -0.5L, 0.0L, 0.5L, 1.0L})
    v.insert(v.end(), {static_cast<F>(lo + d), static_cast<F>(hi + d)});
  for (int e : {15, 16, 23, 24, 31, 32, 52, 53, 63, 64}) v.push_back(std::ldexp(F{1}, e));
  for (size_t i = 0, m = v.size(); i < m; ++i) v.push_back(-v[i]);
  std::mt19937_64 g(seed);
  std::uniform_real_distribution<long double> u(2 * std::min(lo, -hi) - 4, 2 * hi + 4);
  while (v.size() < n) {
    long double x = u(g);
    if (v.size() % 2) x = std::floor(x) + 0.5L;
    v.push_back(static_cast<F>(x));
  }
  return v;
}

// A misalignment of k units of T's alignment, within a 64-byte line.
template <class T>
size_t off(size_t k) {
  return (k * alignof(T)) % 64;
}

// Lengths that run the vector body, its tail and single elements, each with a misalignment.
struct Shape {
  size_t len, misalign;
};
inline std::vector<Shape> shapes() {
  std::vector<Shape> s;
  for (size_t n = 1; n <= 70; ++n) s.push_back({n, (n * 5) % 64});
  for (size_t n : {127u, 128u, 129u, 1000u}) s.push_back({n, n % 7});
  return s;
}

}  // namespace veks_test
