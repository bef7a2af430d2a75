// Division: vector by vector, by a constant, a constant by a vector, and integer division with
// a rounding mode. Zero divisors are substituted element by element and reported as a warning
// once the whole destination is written; large calls split over two threads.
//
// Integer quotients y / (x * 2^sf) are computed in binary32 or binary64 lanes, chosen per call
// so that the floating-point quotient can never cross a rounding boundary of the exact one:
// for non-saturated results an exact quotient that is not itself an integer or a half-integer
// lies farther from one than the division's rounding error. Scale factors are clamped where
// every result is already 0 or saturated, which keeps the scaled operands exact.
#pragma once

// clang-format off
#include "frame/intrin.hpp"  // first: before anything else includes <immintrin.h>
// clang-format on

#include <cstdint>
#include <type_traits>

#include "arith/basic.hpp"
#include "frame/check.hpp"
#include "frame/map.hpp"
#include "frame/shapes.hpp"
#include "frame/split.hpp"
#include "frame/types.hpp"

namespace veks {

enum DivMode { kDivTrunc = 0, kDivNearestEven = 1, kDivNearestAway = 2 };

namespace div {

// The substitute of a quotient whose divisor is zero: the destination's maximum for y >= 0, its
// minimum for y < 0.
template <class TD, class L>
L substitute(L y) {
  using F = simd::lane_t<L>;
  return simd::select<L>(y < 0, simd::splat<L>(static_cast<F>(Limits<TD>::min())),
                         simd::splat<L>(static_cast<F>(Limits<TD>::max())));
}

// q rounded by the mode and clamped to TD's range (floating lanes holding integral values).
template <class TD, int Mode, class L>
L round_clamp(L q) {
  using F = simd::lane_t<L>;
  L r;
  if constexpr (Mode == kDivTrunc) {
    r = simd::round_trunc(q);
  } else if constexpr (Mode == kDivNearestEven) {
    r = simd::round_even(q);
  } else {
    const L t = simd::round_trunc(simd::select<L>(q < 0, -q, q) + simd::splat<L>(F(0.5)));
    r = simd::select<L>(q < 0, -t, t);
  }
  return simd::clamp(r, simd::splat<L>(static_cast<F>(Limits<TD>::min())),
                     simd::splat<L>(static_cast<F>(Limits<TD>::max())));
}

// The mask of the first k of n lanes.
template <class M>
M valid(size_t k, size_t n) {
  return k == n ? ~M{} : simd::iota<M>() < static_cast<simd::lane_t<M>>(k);
}

template <class M>
bool any(M m) {
  for (size_t i = 0; i < simd::lanes_of<M>; ++i)
    if (m[i]) return true;
  return false;
}

// Factors applied to dividend and divisor for a clamped scale factor.
template <class F>
struct Scale {
  F y, x;
};
template <class F>
Scale<F> scale_of(int sf) {
  F p = 1;
  for (int i = 0; i < (sf < 0 ? -sf : sf); ++i) p *= 2;
  return sf < 0 ? Scale<F>{p, 1} : Scale<F>{1, p};
}

// Runs body(k, x lanes, y lanes) over the components of n elements; x and y are pointers or,
// for constants, the element itself.
template <class W, class TD, class X, class Y, class Body>
void map_xy(X x, Y y, TD* d, size_t n, Body&& body) {
  using L = simd::VecN<W, 64 / sizeof(W)>;
  const size_t m = n * comps_v<TD>;
  if constexpr (!std::is_pointer_v<X>) {
    const L xv = splat_elem<L>(x);
    map_n<W>(
        m, comps_of(d), [&](size_t k, L yv) { return body(k, xv, yv); }, comps_of(y));
  } else if constexpr (!std::is_pointer_v<Y>) {
    const L yv = splat_elem<L>(y);
    map_n<W>(
        m, comps_of(d), [&](size_t k, L xv) { return body(k, xv, yv); }, comps_of(x));
  } else {
    map_n<W>(m, comps_of(d), body, comps_of(x), comps_of(y));
  }
}

// Binary32 quotients rounded to integer lanes by the mode: the rounding is folded into the
// conversion, which the compiler does not find on its own. Quotients stay within 2^24 in
// magnitude (zero divisors are replaced before the division).
template <int Mode>
inline __m512i rounded(__m512 q) {
  if constexpr (Mode == kDivTrunc) {
    return _mm512_cvtt_roundps_epi32(q, _MM_FROUND_NO_EXC);
  } else if constexpr (Mode == kDivNearestEven) {
    return _mm512_cvt_roundps_epi32(q, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
  } else {  // q * 1 + 1/2 with the sign of q, rounded toward zero (on the multiply-add units),
            // then truncated
    const __m512i half = _mm512_ternarylogic_epi32(
        _mm512_castps_si512(q), _mm512_set1_epi32(INT32_MIN), _mm512_set1_epi32(0x3F000000), 0xEA);
    q = _mm512_fmadd_round_ps(q, _mm512_set1_ps(1.0f), _mm512_castsi512_ps(half),
                              _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
    return _mm512_cvtt_roundps_epi32(q, _MM_FROUND_NO_EXC);
  }
}

// 8-bit operands in binary32 lanes, 16 at a time: elements [i, i + r) of a vector (the other
// lanes 0), or a constant in every lane.
template <class T>
inline __m512 f32_lanes(const T* p, size_t i, unsigned r) {
  static_assert(sizeof(T) == 1);
  const auto m = static_cast<__mmask16>(_bzhi_u32(0xFFFFu, r));
  const __m128i b = r == 16 ? _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i))
                            : _mm_maskz_loadu_epi8(m, p + i);
  return _mm512_cvtepi32_ps(std::is_signed_v<T> ? _mm512_cvtepi8_epi32(b)
                                                : _mm512_cvtepu8_epi32(b));
}
template <class T>
inline __m512 f32_lanes(T v, size_t, unsigned) {
  return _mm512_set1_ps(static_cast<float>(v));
}

// The binary32 quotients with 8-bit results, 16 per step, clamped by the saturating narrowing.
template <int Mode, bool Scaled, class TD, class X, class Y>
bool f32_quotients(X x, Y y, TD* d, size_t n, Scale<float> sc) {
  static_assert(std::is_same_v<TD, Vek8u>);
  const __m512 ky = _mm512_set1_ps(sc.y), kx = _mm512_set1_ps(sc.x), one = _mm512_set1_ps(1.0f);
  const __m512i hi = _mm512_set1_epi32(255);
  __mmask16 zeros = 0;
  const auto block = [&](size_t i, unsigned r) __attribute__((always_inline)) {
    __m512 xv = f32_lanes(x, i, r), yv = f32_lanes(y, i, r);
    const auto m = static_cast<__mmask16>(_bzhi_u32(0xFFFFu, r));
    const __mmask16 z = _mm512_cmp_ps_mask(xv, _mm512_setzero_ps(), _CMP_EQ_OQ) & m;
    zeros |= z;
    xv = _mm512_mask_mov_ps(xv, z, one);
    if constexpr (Scaled) {
      xv = _mm512_mul_ps(xv, kx);
      yv = _mm512_mul_ps(yv, ky);
    }
    const __m512i q = _mm512_mask_mov_epi32(rounded<Mode>(_mm512_div_ps(yv, xv)), z, hi);
    _mm_mask_storeu_epi8(d + i, m,
                         _mm512_cvtusepi32_epi8(_mm512_max_epi32(q, _mm512_setzero_si512())));
  };
  size_t i = 0;
  for (; i + 16 <= n; i += 16) block(i, 16u);
  if (i < n) block(i, static_cast<unsigned>(n - i));
  return zeros != 0;
}

// 16-bit operands, 32 per step. The low and the high four words of each 128-bit lane become
// two binary32 vectors, which the saturating pack puts back in order. Each word w is paired
// with the high word 0x4B00, giving 2^23 + w for unsigned data, or, with its sign bit flipped,
// 2^23 + 2^15 + w for signed data; one multiply-add removes the offset and applies the scale,
// exactly. This keeps the conversion units, which bound the widening form, nearly idle.
template <class T>
struct Words {
  static constexpr bool is_signed = std::is_signed_v<T>;
  static constexpr float offset = is_signed ? 8421376.0f : 8388608.0f;
  __m512i flip = _mm512_set1_epi16(is_signed ? int16_t(0x8000) : 0);
  __m512i high = _mm512_set1_epi16(0x4B00);
  // The two vectors of the 32 words at p + i (the lanes of m, the rest 0) scaled by k; a
  // constant in every lane.
  void load(const T* p, size_t i, __mmask32 m, float k, __m512i& w, __m512& lo, __m512& hi) const {
    w = _mm512_maskz_loadu_epi16(m, p + i);
    const __m512i t = _mm512_xor_si512(w, flip);
    const __m512 kv = _mm512_set1_ps(k), off = _mm512_set1_ps(-offset * k);
    lo = _mm512_fmadd_ps(_mm512_castsi512_ps(_mm512_unpacklo_epi16(t, high)), kv, off);
    hi = _mm512_fmadd_ps(_mm512_castsi512_ps(_mm512_unpackhi_epi16(t, high)), kv, off);
  }
  void load(T v, size_t, __mmask32, float k, __m512i& w, __m512& lo, __m512& hi) const {
    w = _mm512_set1_epi16(static_cast<int16_t>(v));
    lo = hi = _mm512_set1_ps(static_cast<float>(v) * k);
  }
};

// The quotients with 16-bit results. Zero divisors are replaced by 1 before the division and
// their quotients by the substitutes after it, on a path taken only by steps that have one.
template <int Mode, class TD, class X, class Y>
bool f32_quotients16(X x, Y y, TD* d, size_t n, Scale<float> sc) {
  const Words<TD> words;
  __mmask32 zeros = 0;
  const auto step = [&](size_t i, __mmask32 m) __attribute__((always_inline)) {
    __m512i xw, yw;
    __m512 xl, xh, yl, yh;
    words.load(x, i, m, sc.x, xw, xl, xh);
    words.load(y, i, m, sc.y, yw, yl, yh);
    const __mmask32 z = std::is_pointer_v<X> ? _mm512_testn_epi16_mask(xw, xw) : 0;
    if (z != 0) [[unlikely]] {
      const __m512 one = _mm512_set1_ps(1.0f);
      xl = _mm512_mask_mov_ps(xl, static_cast<__mmask16>(_pext_u32(z, 0x0F0F0F0Fu)), one);
      xh = _mm512_mask_mov_ps(xh, static_cast<__mmask16>(_pext_u32(z, 0xF0F0F0F0u)), one);
    }
    const __m512i ql = rounded<Mode>(_mm512_div_ps(yl, xl)),
                  qh = rounded<Mode>(_mm512_div_ps(yh, xh));
    __m512i r = Words<TD>::is_signed ? _mm512_packs_epi32(ql, qh) : _mm512_packus_epi32(ql, qh);
    if (z != 0) [[unlikely]] {
      zeros |= z & m;
      r = _mm512_mask_mov_epi16(r, z, _mm512_set1_epi16(static_cast<int16_t>(Limits<TD>::max())));
      if constexpr (Words<TD>::is_signed)
        r = _mm512_mask_mov_epi16(r, z & _mm512_movepi16_mask(yw), _mm512_set1_epi16(INT16_MIN));
    }
    _mm512_mask_storeu_epi16(d + i, m, r);
  };
  size_t i = 0;
  for (; i + 32 <= n; i += 32) step(i, ~__mmask32{0});
  if (i < n) step(i, static_cast<__mmask32>(_bzhi_u32(~0u, static_cast<unsigned>(n - i))));
  return zeros != 0;
}

// Integer quotients y / (x * 2^sf) in lanes of F; returns whether a divisor was zero.
template <class F, int Mode, class TD, class X, class Y>
bool int_quotients(X x, Y y, TD* d, size_t n, Scale<F> sc) {
  using TX = std::remove_cv_t<std::remove_pointer_t<X>>;
  using TY = std::remove_cv_t<std::remove_pointer_t<Y>>;
  if constexpr (std::is_same_v<F, float> && sizeof(TD) == 2 && sizeof(TX) <= 2 && sizeof(TY) <= 2) {
    return f32_quotients16<Mode>(x, y, d, n, sc);
  } else if constexpr (std::is_same_v<F, float> && sizeof(TD) == 1) {
    if (sc.x == 1 && sc.y == 1) return f32_quotients<Mode, false>(x, y, d, n, sc);
    return f32_quotients<Mode, true>(x, y, d, n, sc);
  } else {
    using L = simd::VecN<F, 64 / sizeof(F)>;
    using M = decltype(L{} == L{});
    M zeros{};
    map_xy<F>(x, y, d, n, [&](size_t k, L xv, L yv) {
      const M z = (xv == 0) & valid<M>(k, simd::lanes_of<L>);
      zeros |= z;
      const L q = (yv * sc.y) / (simd::select<L>(z, simd::splat<L>(1), xv) * sc.x);
      return simd::select<L>(z, substitute<TD>(yv), round_clamp<TD, Mode>(q));
    });
    return any(zeros);
  }
}

// One quotient in long double, for the 32-bit results of negative scale factors, where a
// binary64 quotient could round across a boundary: the operands and 2^k are exact, and the
// 64-bit significand keeps the quotient on the right side of every boundary.
template <int Mode, class TD>
TD int_quotient_exact(long long x, long long y, int k) {
  if (x == 0) return y < 0 ? Limits<TD>::min() : Limits<TD>::max();
  long double q = static_cast<long double>(y) / static_cast<long double>(x);
  for (int i = 0; i < k; ++i) q *= 2;
  const long double a = q < 0 ? -q : q;
  long double t = static_cast<long double>(static_cast<unsigned long long>(a < 1e19L ? a : 1e19L));
  const long double f = a - t;
  if constexpr (Mode == kDivNearestEven) {
    if (f > 0.5L || (f == 0.5L && static_cast<unsigned long long>(t) % 2 == 1)) t += 1;
  } else if constexpr (Mode == kDivNearestAway) {
    if (f >= 0.5L) t += 1;
  }
  const long double r = q < 0 ? -t : t;
  if (r <= static_cast<long double>(Limits<TD>::min())) return Limits<TD>::min();
  if (r >= static_cast<long double>(Limits<TD>::max())) return Limits<TD>::max();
  return static_cast<TD>(r);
}

template <class X>
long long element(X x, size_t i) {
  if constexpr (std::is_pointer_v<X>) {
    return static_cast<long long>(x[i]);
  } else {
    return static_cast<long long>(x);
  }
}

// The binary32 path serves 8- and 16-bit operands from sf -6 up; binary64 everything else.
template <class TX, class TY>
inline bool fits_binary32(int sf) {
  return sizeof(TX) <= 2 && sizeof(TY) <= 2 && sf >= -6;
}

template <int Mode, class TD, class X, class Y>
bool int_divide(X x, Y y, TD* d, size_t n, int sf) {
  using TX = std::remove_cv_t<std::remove_pointer_t<X>>;
  using TY = std::remove_cv_t<std::remove_pointer_t<Y>>;
  if (sizeof(TD) == 4 && sf < 0) {
    bool zero = false;
    const int k = sf < -64 ? 64 : -sf;  // from 2^64 on every non-zero quotient saturates
    for (size_t i = 0; i < n; ++i) {
      zero |= element(x, i) == 0;
      d[i] = int_quotient_exact<Mode, TD>(element(x, i), element(y, i), k);
    }
    return zero;
  }
  const int k = sf > 40 ? 40 : sf < -48 ? -48 : sf;
  if (fits_binary32<TX, TY>(sf)) return int_quotients<float, Mode>(x, y, d, n, scale_of<float>(k));
  return int_quotients<double, Mode>(x, y, d, n, scale_of<double>(k));
}

template <class X>
X offset(X p, int first) {
  if constexpr (std::is_pointer_v<X>) {
    return p + first;
  } else {
    return p;
  }
}

// Calls body(std::integral_constant<int, mode>) for a checked mode.
template <class Body>
bool with_mode(int mode, Body&& body) {
  switch (mode) {
    case kDivTrunc: return body(std::integral_constant<int, kDivTrunc>{});
    case kDivNearestEven: return body(std::integral_constant<int, kDivNearestEven>{});
    default: return body(std::integral_constant<int, kDivNearestAway>{});
  }
}

// Runs the integer division of len elements through the threading frame from `threshold` on
// (0: always serial); warning 6 when any divisor was zero.
template <int Threshold, class TD, class X, class Y>
VekStatus run_int(X x, Y y, TD* d, int len, int mode, int sf) {
  const int flagged = run_split(len, Threshold, [&](int first, int count) {
    return with_mode(mode,
                     [&](auto m) {
                       return int_divide<decltype(m)::value>(offset(x, first), offset(y, first),
                                                             d + first, static_cast<size_t>(count),
                                                             sf);
                     })
               ? 1
               : 0;
  });
  return flagged ? vekStatusWarnZeroDivisor : vekStatusOk;
}

}  // namespace div

// pDst[i] = pSrc2[i] / pSrc1[i] * 2^-sf, ties to even, saturated; zero divisors substituted.
template <int Threshold, class TX, class TY, class TD>
VekStatus div_sfs(const TX* x, const TY* y, TD* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, x, y, d));
  return div::run_int<Threshold>(x, y, d, len, kDivNearestEven, sf);
}
template <int Threshold, class TX, class TD>
VekStatus div_isfs(const TX* x, TD* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, x, srcdst));
  return div::run_int<Threshold>(x, static_cast<const TD*>(srcdst), srcdst, len, kDivNearestEven,
                                 sf);
}
// The same with the caller's rounding mode (0, 1 or 2; anything else is refused).
template <int Threshold, class T>
VekStatus div_round_sfs(const T* x, const T* y, T* d, int len, int mode, int sf) {
  VEKS_TRY(check_ptrs_len(len, x, y, d));
  if (mode < 0 || mode > 2) return vekStatusBadRoundMode;
  return div::run_int<Threshold>(x, y, d, len, mode, sf);
}
template <int Threshold, class T>
VekStatus div_round_isfs(const T* x, T* srcdst, int len, int mode, int sf) {
  VEKS_TRY(check_ptrs_len(len, x, srcdst));
  if (mode < 0 || mode > 2) return vekStatusBadRoundMode;
  return div::run_int<Threshold>(x, static_cast<const T*>(srcdst), srcdst, len, mode, sf);
}
// pDst[i] = pSrc[i] / val * 2^-sf; a zero constant is refused.
template <int Threshold, class T>
VekStatus divc_sfs(const T* s, T val, T* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (val == 0) return vekStatusZeroDivisor;
  div::run_int<Threshold>(val, s, d, len, kDivNearestEven, sf);
  return vekStatusOk;
}
template <int Threshold, class T>
VekStatus divc_isfs(T val, T* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  if (val == 0) return vekStatusZeroDivisor;
  div::run_int<Threshold>(val, static_cast<const T*>(srcdst), srcdst, len, kDivNearestEven, sf);
  return vekStatusOk;
}
// pDst[i] = val / pSrc[i], ties to even; zero elements give the maximum and warning 6.
template <int Threshold, class T>
VekStatus divcrev(const T* s, T val, T* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  return div::run_int<Threshold>(s, val, d, len, kDivNearestEven, 0);
}
template <int Threshold, class T>
VekStatus divcrev_i(T val, T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  return div::run_int<Threshold>(static_cast<const T*>(srcdst), val, srcdst, len, kDivNearestEven,
                                 0);
}

// Complex integers and 64-bit, and the floating-point members: src/arith/div.cpp.
VekStatus div_16sc_sfs(const Vek16sc* x, const Vek16sc* y, Vek16sc* d, int len, int sf);
VekStatus div_16sc_isfs(const Vek16sc* x, Vek16sc* srcdst, int len, int sf);
VekStatus divc_16sc_sfs(const Vek16sc* s, Vek16sc val, Vek16sc* d, int len, int sf);
VekStatus divc_16sc_isfs(Vek16sc val, Vek16sc* srcdst, int len, int sf);
VekStatus divc_64s_isfs(Vek64s val, Vek64s* srcdst, int len, int sf);

namespace div {

// Floating-point quotients y / x of real or complex elements; returns whether a divisor was
// zero. Complex: ((ac + bd) + (bc - ad)i) / (c^2 + d^2) for y = a + bi, x = c + di.
template <class T, class X, class Y>
bool float_quotients(X x, Y y, T* d, size_t n) {
  using W = comp_t<T>;
  using L = simd::VecN<W, 64 / sizeof(W)>;
  using M = decltype(L{} == L{});
  M zeros{};
  map_xy<W>(x, y, d, n, [&](size_t k, L xv, L yv) {
    M z = xv == 0;
    if constexpr (is_complex_v<T>) z &= simd::swap_pairs(z);
    zeros |= z & valid<M>(k, simd::lanes_of<L>);
    if constexpr (is_complex_v<T>) {
      const L num = simd::mul_addsub(yv, simd::dup_re(xv), simd::swap_pairs(yv) * simd::dup_im(xv));
      const L sq = xv * xv;
      return num / (sq + simd::swap_pairs(sq));
    } else {
      return yv / xv;
    }
  });
  return any(zeros);
}

template <int Threshold, class T, class X, class Y>
VekStatus run_float(X x, Y y, T* d, int len) {
  const int flagged = run_split(len, Threshold, [&](int first, int count) {
    return float_quotients(offset(x, first), offset(y, first), d + first,
                           static_cast<size_t>(count))
               ? 1
               : 0;
  });
  return flagged ? vekStatusWarnZeroDivisor : vekStatusOk;
}

}  // namespace div

// Floating point: IEEE quotients pSrc2[i] / pSrc1[i]; zero divisors give infinities or NaN and
// warning 6.
template <int Threshold, class T>
VekStatus div_float(const T* x, const T* y, T* d, int len) {
  VEKS_TRY(check_ptrs_len(len, x, y, d));
  return div::run_float<Threshold>(x, y, d, len);
}
template <int Threshold, class T>
VekStatus div_float_i(const T* x, T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, x, srcdst));
  return div::run_float<Threshold>(x, static_cast<const T*>(srcdst), srcdst, len);
}
// pSrc[i] / val: real data is multiplied by the reciprocal 1/val (rounded once), complex data
// divided by the constant. A zero constant is refused; a NaN constant passes.
template <class T>
VekStatus divc_float(const T* s, T val, T* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (detail::is_value(val, 0)) return vekStatusZeroDivisor;
  if constexpr (is_complex_v<T>) {
    div::run_float<0>(val, s, d, len);
    return vekStatusOk;
  } else {
    return const_op<Mul>(s, T(1) / val, d, len);
  }
}
template <class T>
VekStatus divc_float_i(T val, T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  if (detail::is_value(val, 0)) return vekStatusZeroDivisor;
  if constexpr (is_complex_v<T>) {
    div::run_float<0>(val, static_cast<const T*>(srcdst), srcdst, len);
    return vekStatusOk;
  } else {
    return const_i<Mul>(T(1) / val, srcdst, len);
  }
}
// val / pSrc[i].
template <int Threshold, class T>
VekStatus divcrev_float(const T* s, T val, T* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  return div::run_float<Threshold>(s, val, d, len);
}
template <int Threshold, class T>
VekStatus divcrev_float_i(T val, T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  return div::run_float<Threshold>(static_cast<const T*>(srcdst), val, srcdst, len);
}

}  // namespace veks
