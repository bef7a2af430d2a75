// Exact references for integer results: wide-integer rounding with ties to even (or another
// mode) and saturation, and test vectors that mix a type's extremes with random values.
#pragma once

#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace veks_test {

using i128 = __int128;

// floor(n / d) rounded by mode (0 toward zero, 1 nearest even, 2 nearest away) for d > 0.
inline i128 div_round(i128 n, i128 d, int mode) {
  i128 q = n / d, r = n % d;
  if (r < 0) {  // floor
    --q;
    r += d;
  }
  if (mode == 0) return (q < 0 && r != 0) ? q + 1 : q;
  if (2 * r > d || (2 * r == d && (mode == 2 ? q >= 0 : (q & 1) != 0))) ++q;
  return q;
}

// r * 2^-sf, rounded by mode and saturated to [lo, hi]; exact for |r| < 2^126 and any sf.
inline i128 scaled(i128 r, int sf, i128 lo, i128 hi, int mode = 1) {
  i128 q;
  if (sf > 0) {
    q = sf >= 127 ? 0 : div_round(r, i128(1) << sf, mode);
  } else {
    const int k = -sf;
    const i128 bound = i128(1) << 100;  // anything this large saturates every type
    q = r;
    for (int i = 0; i < k && q != 0 && q < bound && q > -bound; ++i) q *= 2;
  }
  return q > hi ? hi : q < lo ? lo : q;
}

template <class T>
i128 lo_of() {
  return std::numeric_limits<T>::min();
}
template <class T>
i128 hi_of() {
  return std::numeric_limits<T>::max();
}

// n values of T: the extremes, their neighbours, 0, +-1, then random values.
template <class T>
std::vector<T> edge_and_random(size_t n, unsigned seed) {
  using Lim = std::numeric_limits<T>;
  std::vector<T> v = {Lim::min(),
                      Lim::max(),
                      0,
                      1,
                      static_cast<T>(Lim::max() - 1),
                      static_cast<T>(Lim::min() + 1),
                      static_cast<T>(-1),
                      2};
  std::mt19937_64 rng(seed);
  while (v.size() < n) {
    const uint64_t bits = rng();
    T x;
    static_assert(sizeof(T) <= 8);
    __builtin_memcpy(&x, &bits, sizeof x);
    v.push_back(x);
  }
  v.resize(n);
  return v;
}

}  // namespace veks_test
