// Sums, means and standard deviations. Single precision offers two accumulations chosen by the
// hint (fast single-precision partials folded into double every 8,192 elements, or every element
// widened to double); integers accumulate exactly and are scaled, rounded and saturated once.
#pragma once

#include "stats/reduce.hpp"

namespace veks::stats {

using F16 = VecN<float, 16>;
using D8 = VecN<double, 8>;

inline constexpr size_t kFastBlock = 8192;  // fast single-precision partials restart after this
inline constexpr size_t kIntBlock = 65536;  // Vek16s elements whose sum fits 32-bit lanes

// The low and high halves of 16 floats, widened to double.
inline void widen(F16 v, D8& lo, D8& hi) {
  const __m512 m = reinterpret_cast<__m512>(v);
  lo = reinterpret_cast<D8>(_mm512_cvtps_pd(_mm512_castps512_ps256(m)));
  hi = reinterpret_cast<D8>(_mm512_cvtps_pd(_mm512_extractf32x8_ps(m, 1)));
}
// Eight floats widened to double straight from memory: the conversion is the bottleneck of the
// double accumulations (one per cycle), and splitting a 16-float vector first would add a
// shuffle on the same port.
inline D8 widen8(const float* p) {
  return reinterpret_cast<D8>(_mm512_cvtps_pd(_mm256_loadu_ps(p)));
}
inline D8 widen8_first(const float* p, size_t count) {
  const auto m = static_cast<__mmask8>(_bzhi_u32(0xFF, static_cast<unsigned>(count)));
  return reinterpret_cast<D8>(_mm512_cvtps_pd(_mm256_maskz_loadu_ps(m, p)));
}

// Calls f(k, x) for the floats of p[0..n) widened to double, 8 at a time: group k of every step
// of 64 floats goes to accumulator k (k < 8), so element i always meets accumulator (i / 8) % 8,
// lane i % 8, in element order; the final partial step is masked, its missing lanes zero.
template <class F>
inline void each_widened(const float* p, size_t n, F&& f) {
  size_t i = 0;
  for (; i + 64 <= n; i += 64) {
#pragma GCC unroll 8
    for (size_t k = 0; k < 8; ++k) f(k, widen8(p + i + 8 * k));
  }
  for (size_t k = 0; i < n; ++k, i += 8)
    f(k, i + 8 <= n ? widen8(p + i) : widen8_first(p + i, n - i));
}

inline F16 fmadd(F16 a, F16 b, F16 c) {
  return reinterpret_cast<F16>(_mm512_fmadd_ps(
      reinterpret_cast<__m512>(a), reinterpret_cast<__m512>(b), reinterpret_cast<__m512>(c)));
}
inline D8 fmadd(D8 a, D8 b, D8 c) {
  return reinterpret_cast<D8>(_mm512_fmadd_pd(
      reinterpret_cast<__m512d>(a), reinterpret_cast<__m512d>(b), reinterpret_cast<__m512d>(c)));
}

// Elements of esize bytes before the next Bound-byte boundary of p (at most n).
template <size_t Bound>
inline size_t head_count(const void* p, size_t n, size_t esize) {
  const size_t to = (Bound - reinterpret_cast<uintptr_t>(p) % Bound) % Bound;
  return std::min(n, to / esize);
}

inline bool fast_path(VekAccuracyHint hint, const void* p) {
  return hint == vekHintFast && reinterpret_cast<uintptr_t>(p) % 4 == 0;
}

// ---- Vek32f and Vek32fc sums -------------------------------------------------------------------

// Accurate: every value widened to double into 64 partials (8 vectors of 8, filled in element
// order), combined in a tree; the values before the source's next 64-byte boundary are a group
// of their own. f holds m floats, C interleaved components; out[k] gets component k.
template <size_t C>
void sum_accurate(const float* f, size_t m, double* out) {
  const size_t h = head_count<64>(f, m / C, 4 * C) * C;
  double head[C] = {};
  if (h > 0) {
    D8 lo, hi;
    widen(simd::load_first<16>(f, h), lo, hi);
    sum_comps<C>(lo + hi, head);
  }
  // x * 1 + acc is acc + x rounded once, run on the multiply-add units: the adders share their
  // port with the conversions, which are the bottleneck here.
  const D8 one = simd::splat<D8>(1);
  D8 acc[8] = {};
  each_widened(f + h, m - h, [&](size_t k, D8 x) { acc[k] = fmadd(x, one, acc[k]); });
  sum_comps<C>(tree_sum<8>(acc), out);
  for (size_t k = 0; k < C; ++k) out[k] += head[k];
}

// Fast: 32 single-precision lanes over blocks of 8,192 elements, each block's partials widened
// and added into double; the values before the source's next 32-byte boundary are a group of
// their own.
template <size_t C>
void sum_fast(const float* f, size_t m, double* out) {
  const size_t h = head_count<32>(f, m / C, 4 * C) * C;
  D8 total{};
  if (h > 0) {
    D8 lo, hi;
    widen(simd::load_first<16>(f, h), lo, hi);
    total = lo + hi;
  }
  for (size_t b = h; b < m; b += kFastBlock * C) {
    const float* p = f + b;
    const size_t len = std::min(kFastBlock * C, m - b);
    F16 a0{}, a1{};
    size_t i = 0;
    for (; i + 64 <= len; i += 64) {
      a0 += simd::load<16>(p + i) + simd::load<16>(p + i + 32);
      a1 += simd::load<16>(p + i + 16) + simd::load<16>(p + i + 48);
    }
    for (; i + 16 <= len; i += 16) a0 += simd::load<16>(p + i);
    if (i < len) a1 += simd::load_first<16>(p + i, len - i);
    D8 l0, h0, l1, h1;
    widen(a0, l0, h0);
    widen(a1, l1, h1);
    total += (l0 + h0) + (l1 + h1);
  }
  sum_comps<C>(total, out);
}

template <size_t C>
inline void sum_f32_parts(const float* f, size_t m, VekAccuracyHint hint, double* out) {
  if (fast_path(hint, f)) {
    sum_fast<C>(f, m, out);
  } else {
    sum_accurate<C>(f, m, out);
  }
}

template <class E>
VekStatus sum_f32(const E* src, int len, E* sum, VekAccuracyHint hint) {
  VEKS_TRY(check_ptrs_len(len, src, sum));
  double s[comps<E>];
  sum_f32_parts<comps<E>>(comps_of(src), byte_count(len, comps<E>), hint, s);
  store_parts(sum, s);
  return vekStatusOk;
}

// v rounded to single precision. The barrier keeps g++ 12 from folding a vectorised
// double -> float -> double round trip into nothing (seen on the two parts of Mean_32fc).
inline float as_float(double v) {
  float f = static_cast<float>(v);
  asm("" : "+x"(f));
  return f;
}

// The sum rounded to single precision as the Sum member returns it, then divided in double.
template <class E>
VekStatus mean_f32(const E* src, int len, E* mean, VekAccuracyHint hint) {
  VEKS_TRY(check_ptrs_len(len, src, mean));
  double s[comps<E>];
  sum_f32_parts<comps<E>>(comps_of(src), byte_count(len, comps<E>), hint, s);
  for (double& v : s) v = static_cast<double>(as_float(v)) / len;
  store_parts(mean, s);
  return vekStatusOk;
}

// ---- Vek64f and Vek64fc sums -------------------------------------------------------------------

template <class E>
void sum_f64_parts(const E* src, int len, double* out) {
  D8 acc[8] = {};
  accumulate<8, 8>(
      byte_count(len, comps<E>), acc, [](D8& a, D8 v) { a += v; },
      Load<double, double>{comps_of(src)});
  sum_comps<comps<E>>(tree_sum<8>(acc), out);
}

template <class E>
VekStatus sum_f64(const E* src, int len, E* sum) {
  VEKS_TRY(check_ptrs_len(len, src, sum));
  double s[comps<E>];
  sum_f64_parts(src, len, s);
  store_parts(sum, s);
  return vekStatusOk;
}

template <class E>
VekStatus mean_f64(const E* src, int len, E* mean) {
  VEKS_TRY(check_ptrs_len(len, src, mean));
  double s[comps<E>];
  sum_f64_parts(src, len, s);
  for (double& v : s) v /= len;
  store_parts(mean, s);
  return vekStatusOk;
}

// ---- exact integer sums ------------------------------------------------------------------------

using I32x16 = VecN<int32_t, 16>;
using I64x8 = VecN<int64_t, 8>;

// Exact component sums of Vek16s data (m values, C interleaved components): 32-bit lanes over
// blocks of 65,536 elements, each block's total added into 64 bits.
template <size_t C>
void exact_sum(const int16_t* p, size_t m, int64_t* out) {
  for (size_t k = 0; k < C; ++k) out[k] = 0;
  for (size_t b = 0; b < m; b += kIntBlock * C) {
    const size_t len = std::min(kIntBlock * C, m - b);
    I32x16 acc[4] = {};
    if constexpr (C == 1) {  // adjacent pairs added by one multiply-add against ones
      accumulate<32, 4>(
          len, acc,
          [](I32x16& a, VecN<int16_t, 32> v) {
            a += reinterpret_cast<I32x16>(
                _mm512_madd_epi16(reinterpret_cast<__m512i>(v), _mm512_set1_epi16(1)));
          },
          Load<int16_t, int16_t>{p + b});
    } else {
      accumulate<16, 4>(
          len, acc, [](I32x16& a, I32x16 v) { a += v; }, Load<int32_t, int16_t>{p + b});
    }
    int32_t part[C];
    sum_comps<C>(tree_sum<4>(acc), part);
    for (size_t k = 0; k < C; ++k) out[k] += part[k];
  }
}

// Exact component sums of Vek32s data in 64-bit lanes.
template <size_t C>
void exact_sum(const int32_t* p, size_t m, int64_t* out) {
  I64x8 acc[4] = {};
  accumulate<8, 4>(
      m, acc, [](I64x8& a, I64x8 v) { a += v; }, Load<int64_t, int32_t>{p});
  sum_comps<C>(tree_sum<4>(acc), out);
}

// Sums of Vek16s data: the exact sum times 2^-sf (a double factor), clamped to 32 bits and
// rounded to nearest even, then saturated to the destination.
template <class S, class D>
VekStatus sum_int(const S* src, int len, D* sum, int sf) {
  VEKS_TRY(check_ptrs_len(len, src, sum));
  int64_t v[comps<S>];
  exact_sum<comps<S>>(comps_of(src), byte_count(len, comps<S>), v);
  comp_t<D> r[comps<S>];
  for (size_t k = 0; k < comps<S>; ++k) {
    if constexpr (sizeof(comp_t<S>) == 2) {
      r[k] =
          saturate_to<comp_t<D>>(round_clamp<int32_t>(static_cast<double>(v[k]) * pow2_factor(sf)));
    } else {  // Vek32s: integer rounding shifts, factors up to 2^-63 and 2^31
      r[k] = scale_exact<comp_t<D>>(v[k], sf, 63, 31);
    }
  }
  store_parts(sum, r);
  return vekStatusOk;
}

// Means of integer data: the exact sum divided by len in double, times 2^-sf, clamped to the
// destination and rounded to nearest even.
template <class E>
VekStatus mean_int(const E* src, int len, E* mean, int sf) {
  VEKS_TRY(check_ptrs_len(len, src, mean));
  int64_t v[comps<E>];
  exact_sum<comps<E>>(comps_of(src), byte_count(len, comps<E>), v);
  comp_t<E> r[comps<E>];
  for (size_t k = 0; k < comps<E>; ++k)
    r[k] = round_clamp<comp_t<E>>(static_cast<double>(v[k]) / len * pow2_factor(sf));
  store_parts(mean, r);
  return vekStatusOk;
}

// ---- standard deviations -----------------------------------------------------------------------

// The sample deviation of n values from S = sum x and Q = sum x^2 in double:
// sqrt(max(nQ - S^2, 0) / (n(n - 1))), numerator, denominator and root in single precision.
inline float sample_sd_32f(double s, double q, double n) {
  const float num = static_cast<float>(std::max(n * q - s * s, 0.0));
  const float den = static_cast<float>(n * (n - 1));
  return std::sqrt(num / den);
}

// S and Q of single-precision data by the path the hint selects.
inline void sums_sq_f32(const float* f, size_t n, VekAccuracyHint hint, double& s, double& q) {
  D8 ds{}, dq{};
  if (fast_path(hint, f)) {  // 16 single lanes each for S and Q, folded every 8,192 elements
    for (size_t b = 0; b < n; b += kFastBlock) {
      const float* p = f + b;
      const size_t len = std::min(kFastBlock, n - b);
      F16 fs{}, fq{};
      size_t i = 0;
      for (; i + 64 <= len; i += 64) {
        const F16 v0 = simd::load<16>(p + i), v1 = simd::load<16>(p + i + 16),
                  v2 = simd::load<16>(p + i + 32), v3 = simd::load<16>(p + i + 48);
        fs += (v0 + v1) + (v2 + v3);
        fq += fmadd(v1, v1, v0 * v0) + fmadd(v3, v3, v2 * v2);
      }
      for (; i < len; i += 16) {
        const F16 v = i + 16 <= len ? simd::load<16>(p + i) : simd::load_first<16>(p + i, len - i);
        fs += v;
        fq = fmadd(v, v, fq);
      }
      D8 lo, hi;
      widen(fs, lo, hi);
      ds += lo + hi;
      widen(fq, lo, hi);
      dq += lo + hi;
    }
  } else {  // every value widened to double; Q by fused multiply-add
    D8 as[8] = {}, aq[8] = {};
    each_widened(f, n, [&](size_t k, D8 x) {
      as[k] += x;
      aq[k] = fmadd(x, x, aq[k]);
    });
    ds = tree_sum<8>(as);
    dq = tree_sum<8>(aq);
  }
  s = sum_lanes(ds);
  q = sum_lanes(dq);
}

VekStatus inline mean_sd_f32(const float* src, int len, float* mean, float* sd,
                             VekAccuracyHint hint) {
  if (len < 2) return vekStatusBadSize;
  double s, q;
  sums_sq_f32(src, static_cast<size_t>(len), hint, s, q);
  const double n = len;
  if (mean != nullptr) *mean = static_cast<float>(static_cast<double>(as_float(s)) / n);
  *sd = sample_sd_32f(s, q, n);
  return vekStatusOk;
}

inline VekStatus stddev_f32(const Vek32f* src, int len, Vek32f* sd, VekAccuracyHint hint) {
  VEKS_TRY(check_ptrs_len(len, src, sd));
  return mean_sd_f32(src, len, nullptr, sd, hint);
}
inline VekStatus mean_stddev_f32(const Vek32f* src, int len, Vek32f* mean, Vek32f* sd,
                                 VekAccuracyHint hint) {
  VEKS_TRY(check_ptrs_len(len, src, mean, sd));
  return mean_sd_f32(src, len, mean, sd, hint);
}

// Double data: one pass over x and x - x[0] (the shift keeps n*Q - S^2 from cancelling), the
// sample deviation in double.
struct Shifted {
  const double* p;
  double x0;
  template <size_t N>
  D8 full(size_t i) const {
    return simd::load<N>(p + i) - x0;
  }
  template <size_t N>
  D8 part(size_t i, size_t c) const {
    const D8 iota = {0, 1, 2, 3, 4, 5, 6, 7};
    return simd::select<D8>(iota < static_cast<double>(c), simd::load_first<N>(p + i, c) - x0,
                            D8{});
  }
};

inline VekStatus mean_sd_f64(const double* src, int len, double* mean, double* sd) {
  if (len < 2) return vekStatusBadSize;
  struct Acc {
    D8 s, t, q;
  };
  Acc acc[4] = {};
  accumulate<8, 4>(
      static_cast<size_t>(len), acc,
      [](Acc& a, D8 x, D8 y) {
        a.s += x;
        a.t += y;
        a.q = fmadd(y, y, a.q);
      },
      Load<double, double>{src}, Shifted{src, src[0]});
  D8 s{}, t{}, q{};
  for (const Acc& a : acc) s += a.s, t += a.t, q += a.q;
  const double n = len, st = sum_lanes(t);
  if (mean != nullptr) *mean = sum_lanes(s) / n;
  *sd = std::sqrt(std::max(n * sum_lanes(q) - st * st, 0.0) / (n * (n - 1)));
  return vekStatusOk;
}
inline VekStatus stddev_f64(const Vek64f* src, int len, Vek64f* sd) {
  VEKS_TRY(check_ptrs_len(len, src, sd));
  return mean_sd_f64(src, len, nullptr, sd);
}
inline VekStatus mean_stddev_f64(const Vek64f* src, int len, Vek64f* mean, Vek64f* sd) {
  VEKS_TRY(check_ptrs_len(len, src, mean, sd));
  return mean_sd_f64(src, len, mean, sd);
}

// Vek16s data: S and Q exact (S in 32-bit lanes per block of 65,536, Q in 64-bit lanes), the
// deviation sqrt(max(nQ - S^2, 0) / (n(n - 1))) in double, times 2^-sf, above 2^31 - 1 clamped,
// rounded to nearest even, then saturated to D; the mean as the Mean member computes it.
template <class D>
VekStatus mean_sd_16s(const Vek16s* src, int len, D* mean, D* sd, int sf) {
  if (len < 2) return vekStatusBadSize;
  using U64x16 = VecN<uint64_t, 16>;
  struct Acc {
    I32x16 s;
    U64x16 q;
  };
  int64_t s = 0;
  uint64_t q = 0;
  const size_t n = static_cast<size_t>(len);
  for (size_t b = 0; b < n; b += kIntBlock) {
    Acc acc[2] = {};
    accumulate<16, 2>(
        std::min(kIntBlock, n - b), acc,
        [](Acc& a, I32x16 x) {
          a.s += x;
          a.q += simd::convert<uint64_t>(simd::convert<uint32_t>(x * x));
        },
        Load<int32_t, int16_t>{src + b});
    s += sum_lanes(acc[0].s + acc[1].s);
    q += sum_lanes(acc[0].q + acc[1].q);
  }
  const double dn = len, ds = static_cast<double>(s);
  const double var = std::max(dn * static_cast<double>(q) - ds * ds, 0.0) / (dn * (dn - 1));
  const double v = std::sqrt(var) * pow2_factor(sf);
  *sd = saturate_to<D>(round_clamp<int32_t>(v, 0, 2147483647.0));
  if (mean != nullptr) *mean = round_clamp<D>(ds / dn * pow2_factor(sf));
  return vekStatusOk;
}
template <class D>
VekStatus stddev_16s(const Vek16s* src, int len, D* sd, int sf) {
  VEKS_TRY(check_ptrs_len(len, src, sd));
  return mean_sd_16s<D>(src, len, nullptr, sd, sf);
}
template <class D>
VekStatus mean_stddev_16s(const Vek16s* src, int len, D* mean, D* sd, int sf) {
  VEKS_TRY(check_ptrs_len(len, src, mean, sd));
  return mean_sd_16s<D>(src, len, mean, sd, sf);
}

}  // namespace veks::stats
