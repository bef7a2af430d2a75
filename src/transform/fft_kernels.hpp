// The complex transform of 2^order points as self-sorting (Stockham) decimation-in-frequency
// passes. The first pass reads W-point columns a whole vector at a time, multiplies by the
// twiddles and transposes W x W so that every later pass finds its W consecutive points in one
// vector ("vertical" passes, radix 8, 4 or 2, twiddles broadcast). Each pass reads one buffer
// and writes the other; the last pass has no twiddles and can run in place, so a transform
// needs the destination and one scratch buffer of the same size, and nothing else.
#pragma once

#include <cstddef>
#include <cstdint>

#include "transform/fft_simd.hpp"

namespace veks::fft {

// ---- butterflies: a[0..Rad) replaced by its Rad-point DFT, natural order ----------------------
template <int Rad, bool Inv, class V>
inline void dft(V* a) {
  if constexpr (Rad == 2) {
    const V t = a[0] - a[1];
    a[0] = a[0] + a[1];
    a[1] = t;
  } else if constexpr (Rad == 4) {
    const V s02 = a[0] + a[2], d02 = a[0] - a[2];
    const V s13 = a[1] + a[3], d13 = a[1] - a[3];
    a[0] = s02 + s13;
    a[2] = s02 - s13;
    a[1] = addw<Inv>(d02, d13);
    a[3] = subw<Inv>(d02, d13);
  } else {
    static_assert(Rad == 8);
    using R = std::remove_cvref_t<decltype(a[0][0])>;
    const V r = splat<V>(R(0.70710678118654752440L));
    V b[4], d[4];
    for (int k = 0; k < 4; ++k) {
      b[k] = a[k] + a[k + 4];
      d[k] = a[k] - a[k + 4];
    }
    dft<4, Inv>(b);
    const V p1 = addw<Inv>(d[1], d[1]);  // (1 + w) d1 = sqrt(2) w8 d1
    const V m3 = subw<Inv>(d[3], d[3]);  // (1 - w) d3 = -sqrt(2) w8^3 d3
    const V s02 = addw<Inv>(d[0], d[2]), d02 = subw<Inv>(d[0], d[2]);
    const V s13 = r * (p1 - m3), d13 = r * (p1 + m3);
    a[0] = b[0];
    a[2] = b[1];
    a[4] = b[2];
    a[6] = b[3];
    a[1] = s02 + s13;
    a[5] = s02 - s13;
    a[3] = addw<Inv>(d02, d13);
    a[7] = subw<Inv>(d02, d13);
  }
}

// ---- plans ------------------------------------------------------------------------------------
// Pass sequence for one order: the first (transposing) pass has radix 2^w, the vertical passes
// the radices in rad[]; the last vertical pass has no twiddles.
struct Plan {
  int order = 0;
  int w = 0;   // log2 of the first pass's radix (= lanes per vector in that pass)
  int nv = 0;  // vertical passes
  int8_t rad[12] = {};
};

// logv: log2 of the complex lanes of a full vector (3 for float, 2 for double).
constexpr Plan make_plan(int order, int logv) {
  Plan p;
  p.order = order;
  p.w = order / 2 < logv ? order / 2 : logv;
  int r = order - p.w;
  int n8 = r / 3, tail = r % 3;
  if (tail == 1 && n8 > 0) {
    --n8;
    tail = 4;  // 8 * 2 becomes 4 * 4
  }
  for (int i = 0; i < n8; ++i) p.rad[p.nv++] = 8;
  if (tail == 4) {
    p.rad[p.nv++] = 4;
    p.rad[p.nv++] = 4;
  } else if (tail == 2) {
    p.rad[p.nv++] = 4;
  } else if (tail == 1) {
    p.rad[p.nv++] = 2;
  }
  return p;
}

// Number of complex twiddles the plan reads: (W - 1) N / W for the first pass plus
// (rad - 1) m for every vertical pass but the last (m = its number of column groups).
constexpr size_t plan_twiddles(const Plan& p) {
  const size_t n = size_t{1} << p.order, wn = size_t{1} << p.w;
  size_t total = (wn - 1) * (n / wn), len = n / wn;
  for (int i = 0; i + 1 < p.nv; ++i) {
    total += size_t(p.rad[i] - 1) * (len / size_t(p.rad[i]));
    len /= size_t(p.rad[i]);
  }
  return total;
}

// exp(-2 pi i t / 2^order) for 0 <= t < 2^order from a quarter-wave sine table of base order
// `base` >= order (sine[k] = sin(2 pi k / 2^base), k = 0 .. 2^(base-2)). Octant-exact: every
// value is an entry of the table, negated or not.
template <class R>
constexpr void twiddle(const R* sine, int base, int order, size_t t, R* out) {
  const size_t q = size_t{1} << (base - 2);
  const size_t k = t << (base - order);
  R c, s;
  if (k <= q) {
    s = sine[k];
    c = sine[q - k];
  } else if (k <= 2 * q) {
    s = sine[2 * q - k];
    c = -sine[k - q];
  } else if (k <= 3 * q) {
    s = -sine[k - 2 * q];
    c = -sine[3 * q - k];
  } else {
    s = -sine[4 * q - k];
    c = sine[k - 3 * q];
  }
  out[0] = c;
  out[1] = -s;
}

// Fills the twiddles of a plan (layout as the passes read them) from a sine table.
template <class R>
constexpr void fill_twiddles(const Plan& p, const R* sine, int base, R* tw) {
  const size_t n = size_t{1} << p.order, wn = size_t{1} << p.w;
  // First pass: per block of W columns p0.., for j = 1..W-1, W consecutive W_N^(j p).
  for (size_t p0 = 0; p0 < n / wn; p0 += wn) {
    for (size_t j = 1; j < wn; ++j) {
      for (size_t l = 0; l < wn; ++l, tw += 2) twiddle(sine, base, p.order, j * (p0 + l), tw);
    }
  }
  // Vertical passes: per column group p, W_len^(j p) for j = 1..rad-1.
  size_t len = n / wn, stride = wn;
  for (int i = 0; i + 1 < p.nv; ++i) {
    const size_t rad = size_t(p.rad[i]), m = len / rad;
    for (size_t q = 0; q < m; ++q) {
      for (size_t j = 1; j < rad; ++j, tw += 2) twiddle(sine, base, p.order, j * q * stride, tw);
    }
    len = m;
    stride *= rad;
  }
}

// ---- buffers ----------------------------------------------------------------------------------
// A buffer of complex values, either one array or two halves in separate arrays (the split
// transforms borrow their two destination arrays as one scratch buffer). Passes resolve an
// address once per block; a block never straddles the halves.
template <class R>
struct Buf {
  R* a;
  R* b = nullptr;
  size_t half = SIZE_MAX;
  R* at(size_t i) const { return i < half ? a + 2 * i : b + 2 * (i - half); }
  bool operator==(const Buf& o) const { return a == o.a && b == o.b && half == o.half; }
};

// ---- passes -----------------------------------------------------------------------------------
// First pass: columns p of N/W rows, W columns per vector; writes y[W p + j].
template <class R, int W, bool Inv>
void pass_first(Buf<R> x, Buf<R> y, size_t n, const R* tw) {
  using V = CV<R, W>;
  const size_t m = n / W;
  const R* xk[W];
  for (int k = 0; k < W; ++k) xk[k] = x.at(size_t(k) * m);
  for (size_t p0 = 0; p0 < m; p0 += W, tw += 2 * W * (W - 1)) {
    V a[W];
    for (int k = 0; k < W; ++k) a[k] = ld<R, W>(xk[k] + 2 * p0);
    dft<W, Inv>(a);
    for (int j = 1; j < W; ++j) a[j] = cmul<Inv>(a[j], ld<R, W>(tw + 2 * W * (j - 1)));
    transpose<W>(a);
    R* yb = y.at(W * p0);
    for (int p = 0; p < W; ++p) st<R, W>(yb + 2 * W * p, a[p]);
  }
}

// Vertical pass of radix Rad over stride s (columns q < s, W at a time).
template <class R, int W, int Rad, bool Inv>
void pass_vertical(Buf<R> x, Buf<R> y, size_t n, size_t s, const R* tw) {
  using V = CV<R, W>;
  const size_t m = n / (s * Rad);
  const R* xk[Rad];
  for (int k = 0; k < Rad; ++k) xk[k] = x.at(size_t(k) * m * s);
  for (size_t p = 0; p < m; ++p, tw += 2 * (Rad - 1)) {
    V wr[Rad], wi[Rad];
    for (int j = 1; j < Rad; ++j) {
      wr[j] = splat<V>(tw[2 * (j - 1)]);
      wi[j] = splat<V>(tw[2 * (j - 1) + 1]);
    }
    R* yb = y.at(Rad * s * p);
    for (size_t q = 0; q < s; q += W) {
      V a[Rad];
      for (int k = 0; k < Rad; ++k) a[k] = ld<R, W>(xk[k] + 2 * (s * p + q));
      dft<Rad, Inv>(a);
      st<R, W>(yb + 2 * q, a[0]);
      for (int j = 1; j < Rad; ++j)
        st<R, W>(yb + 2 * (s * size_t(j) + q), cmul<Inv>(a[j], wr[j], wi[j]));
    }
  }
}

// Last pass: one column group, no twiddles, optional scale; may run in place.
template <class R, int W, int Rad, bool Inv>
void pass_last(Buf<R> x, Buf<R> y, size_t n, bool scaled, R scale) {
  using V = CV<R, W>;
  const size_t s = n / Rad;
  const R* xk[Rad];
  R* yk[Rad];
  for (int k = 0; k < Rad; ++k) {
    xk[k] = x.at(size_t(k) * s);
    yk[k] = y.at(size_t(k) * s);
  }
  const V f = splat<V>(scale);
  for (size_t q = 0; q < s; q += W) {
    V a[Rad];
    for (int k = 0; k < Rad; ++k) a[k] = ld<R, W>(xk[k] + 2 * q);
    dft<Rad, Inv>(a);
    if (scaled) {
      for (int j = 0; j < Rad; ++j) a[j] *= f;
    }
    for (int j = 0; j < Rad; ++j) st<R, W>(yk[j] + 2 * q, a[j]);
  }
}

// Runs a plan whose first pass has W = 2^plan.w lanes (vertical passes use the same width).
// A plan with w = 0 has vertical passes only and may transform `batch` interleaved sequences at
// once (element j of sequence l at j * batch + l; batch a multiple of W).
// Passes alternate scratch, destination, scratch, ... so that the last pass either runs in
// place in the destination or moves scratch to destination; src may equal dst.
template <class R, int W, bool Inv>
void run_plan(const Plan& p, Buf<R> src, Buf<R> dst, Buf<R> scr, const R* tw, bool scaled, R scale,
              size_t batch = 1) {
  const size_t n = (size_t{1} << p.order) * batch;
  Buf<R> cur = src;
  int pass = 1;
  auto next = [&] { return (pass++ & 1) ? scr : dst; };
  size_t s = batch;
  if (p.w > 0) {
    const Buf<R> t = next();
    pass_first<R, W, Inv>(cur, t, n, tw);
    tw += 2 * (W - 1) * (n / W);
    cur = t;
    s = W;
  }
  for (int i = 0; i + 1 < p.nv; ++i) {
    const Buf<R> t = next();
    const int rad = p.rad[i];
    if (rad == 8) {
      pass_vertical<R, W, 8, Inv>(cur, t, n, s, tw);
    } else if (rad == 4) {
      pass_vertical<R, W, 4, Inv>(cur, t, n, s, tw);
    } else {
      pass_vertical<R, W, 2, Inv>(cur, t, n, s, tw);
    }
    tw += 2 * size_t(rad - 1) * (n / (s * size_t(rad)));
    s *= size_t(rad);
    cur = t;
  }
  const int rad = p.rad[p.nv - 1];
  if (rad == 8) {
    pass_last<R, W, 8, Inv>(cur, dst, n, scaled, scale);
  } else if (rad == 4) {
    pass_last<R, W, 4, Inv>(cur, dst, n, scaled, scale);
  } else {
    pass_last<R, W, 2, Inv>(cur, dst, n, scaled, scale);
  }
}

// ---- straight-line kernels (up to 512 points in float, 256 in double) -------------------------
// K's transform of src into dst (which may be src) through registers: K::NV vectors of K::W
// points, natural order.
template <class K, class R>
[[gnu::always_inline]] inline void in_registers(const R* src, R* dst, const R* tw, bool scaled,
                                                R scale) {
  typename K::V x[K::NV];
#pragma GCC unroll 64
  for (int i = 0; i < K::NV; ++i) x[i] = ld<R, K::W>(src + 2 * K::W * i);
  K::regs(x, tw, scaled, scale);
#pragma GCC unroll 64
  for (int i = 0; i < K::NV; ++i) st<R, K::W>(dst + 2 * K::W * i, x[i]);
}

// The same passes with the whole transform held in registers: every index is a compile-time
// constant, so the passes reduce to butterflies on named registers and the transposes.
template <class R, int Order, bool Inv, int Logv>
struct Straight {
  static constexpr Plan p = make_plan(Order, Logv);
  static constexpr int W = 1 << p.w, N = 1 << Order, NV = N / W;
  using V = CV<R, W>;

  // Vertical pass I: in x (s = stride in complex values), out y.
  template <int I, int S>
  [[gnu::always_inline]] static inline void vertical(const V* x, V* y, const R* tw) {
    constexpr int rad = p.rad[I];
    constexpr int m = N / (S * rad);
#pragma GCC unroll 64
    for (int q = 0; q < m; ++q) {
#pragma GCC unroll 64
      for (int c = 0; c < S; c += W) {
        V a[rad];
#pragma GCC unroll 8
        for (int k = 0; k < rad; ++k) a[k] = x[(c + S * (q + k * m)) / W];
        dft<rad, Inv>(a);
        y[(c + S * rad * q) / W] = a[0];
#pragma GCC unroll 8
        for (int j = 1; j < rad; ++j) {
          const R* t = tw + 2 * ((rad - 1) * q + j - 1);
          y[(c + S * (rad * q + j)) / W] = cmul<Inv>(a[j], splat<V>(t[0]), splat<V>(t[1]));
        }
      }
    }
  }
  template <int I, int S>
  [[gnu::always_inline]] static inline void rest(V* x, V* y, const R* tw, bool scaled, R scale) {
    constexpr int rad = p.rad[I];
    if constexpr (I + 1 < p.nv) {
      vertical<I, S>(x, y, tw);
      rest<I + 1, S * rad>(y, x, tw + 2 * (rad - 1) * (N / (S * rad)), scaled, scale);
    } else {
      constexpr int s = N / rad;
#pragma GCC unroll 64
      for (int c = 0; c < s; c += W) {
        V a[rad];
#pragma GCC unroll 8
        for (int k = 0; k < rad; ++k) a[k] = x[(c + s * k) / W];
        dft<rad, Inv>(a);
#pragma GCC unroll 8
        for (int j = 0; j < rad; ++j) y[(c + s * j) / W] = scaled ? a[j] * splat<V>(scale) : a[j];
      }
    }
  }
  // The transform of x[] (natural order, W points per register), left in x[].
  [[gnu::always_inline]] static inline void regs(V* x, const R* tw, bool scaled, R scale) {
    V y[NV];
    constexpr int m = N / W;
#pragma GCC unroll 64
    for (int b = 0; b < m / W; ++b) {
      V a[W];
#pragma GCC unroll 8
      for (int k = 0; k < W; ++k) a[k] = x[b + k * (m / W)];
      dft<W, Inv>(a);
#pragma GCC unroll 8
      for (int j = 1; j < W; ++j)
        a[j] = cmul<Inv>(a[j], ld<R, W>(tw + 2 * W * ((W - 1) * b + j - 1)));
      transpose<W>(a);
#pragma GCC unroll 8
      for (int k = 0; k < W; ++k) y[W * b + k] = a[k];
    }
    rest<0, W>(y, x, tw + 2 * (W - 1) * m, scaled, scale);
    // rest() ends in x after an odd number of vertical passes' ping-pong (counting the last);
    // the copy costs nothing once the registers are allocated.
    if constexpr (p.nv % 2 == 0) {
#pragma GCC unroll 64
      for (int i = 0; i < NV; ++i) x[i] = y[i];
    }
  }
  static inline void run(const R* src, R* dst, const R* tw, bool scaled, R scale) {
    in_registers<Straight>(src, dst, tw, scaled, scale);
  }
};

// The 16-point double transform of Straight<double, 4, Inv, 2> on 256-bit registers, two points
// in each: the same operations on every value, so the results are bit-identical, but its
// transpose is one round of 128-bit lane exchanges where the full-width kernel needs two rounds
// of 512-bit permutes. It is the shorter path from load to store, and the full-width kernel the
// faster one when calls do not wait on each other: it serves transforms in place, where one
// call's output is typically the next one's input.
template <bool Inv>
struct Sixteen {
  using V = CV<double, 2>;
  static constexpr int W = 2, NV = 8;
  // x[i] holds points 2i and 2i + 1, in and out.
  [[gnu::always_inline]] static inline void regs(V* x, const double* tw, bool scaled,
                                                 double scale) {
    V b[4][2];  // b[j][h]: output j of the first radix-4 of columns 2h and 2h + 1, twiddled
#pragma GCC unroll 2
    for (int h = 0; h < 2; ++h) {
      V a[4] = {x[h], x[2 + h], x[4 + h], x[6 + h]};
      dft<4, Inv>(a);
      b[0][h] = a[0];
#pragma GCC unroll 4
      for (int j = 1; j < 4; ++j)
        b[j][h] = cmul<Inv>(a[j], ld<double, 2>(tw + 8 * (j - 1) + 4 * h));
    }
#pragma GCC unroll 2
    for (int h = 0; h < 2; ++h) {
      V a[4];  // a[c]: column c's outputs 2h and 2h + 1
#pragma GCC unroll 2
      for (int q = 0; q < 2; ++q) {
        a[2 * q] = __builtin_shufflevector(b[2 * h][q], b[2 * h + 1][q], 0, 1, 4, 5);
        a[2 * q + 1] = __builtin_shufflevector(b[2 * h][q], b[2 * h + 1][q], 2, 3, 6, 7);
      }
      dft<4, Inv>(a);
#pragma GCC unroll 4
      for (int m = 0; m < 4; ++m) x[2 * m + h] = scaled ? a[m] * splat<V>(scale) : a[m];
    }
  }
  static inline void run(const double* src, double* dst, const double* tw, bool scaled,
                         double scale) {
    in_registers<Sixteen>(src, dst, tw, scaled, scale);
  }
};

}  // namespace veks::fft
