// Binary64 lane kernels of the root, magnitude, phase and polar families: an overflow-free
// hypotenuse, the principal complex square root, a four-quadrant arctangent, and sine and cosine
// with an argument reduction that stays accurate for every finite argument. Eight lanes of
// AVX-512; special values follow C99 Annex F.
#pragma once

// clang-format off
#include "frame/intrin.hpp"  // first: before anything else includes <immintrin.h>
// clang-format on

#include <cstdint>

namespace veks::vm {

using D = __m512d;
using M = __mmask8;

inline D set(double x) { return _mm512_set1_pd(x); }
inline constexpr double kInf = __builtin_inf();

inline D vabs(D x) { return _mm512_abs_pd(x); }
inline M eq(D a, D b) { return _mm512_cmp_pd_mask(a, b, _CMP_EQ_OQ); }
inline M lt(D a, D b) { return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ); }
inline M gt(D a, D b) { return _mm512_cmp_pd_mask(a, b, _CMP_GT_OQ); }
inline M sign_bit(D x) { return _mm512_movepi64_mask(_mm512_castpd_si512(x)); }
// Lane-wise m ? b : a.
inline D pick(M m, D a, D b) { return _mm512_mask_blend_pd(m, a, b); }
// mag (non-negative) with the sign bit of s.
inline D with_sign(D mag, D s) { return _mm512_or_pd(mag, _mm512_and_pd(s, set(-0.0))); }
inline D negate_if(M m, D x) { return _mm512_mask_xor_pd(x, m, x, set(-0.0)); }
inline D fma(D a, D b, D c) { return _mm512_fmadd_pd(a, b, c); }
inline D fnma(D a, D b, D c) { return _mm512_fnmadd_pd(a, b, c); }  // c - a * b

// a + b = s + e exactly (Knuth).
inline D two_sum(D a, D b, D& e) {
  const D s = _mm512_add_pd(a, b), bb = _mm512_sub_pd(s, a);
  e = _mm512_add_pd(_mm512_sub_pd(a, _mm512_sub_pd(s, bb)), _mm512_sub_pd(b, bb));
  return s;
}

// ---- magnitude ---------------------------------------------------------------------------

// sqrt(big^2 + small^2) for 1 <= big < 4 and 0 <= small <= big: the sum of squares is carried
// to about 106 bits and one Newton correction of the binary64 root leaves ~0.5 ulp.
inline D hypot_core(D big, D small) {
  const D q = _mm512_mul_pd(big, big), qe = fma(big, big, -q);
  const D p = _mm512_mul_pd(small, small), pe = fma(small, small, -p);
  const D s = _mm512_add_pd(q, p);
  const D lo = _mm512_add_pd(_mm512_add_pd(_mm512_sub_pd(q, s), p), _mm512_add_pd(qe, pe));
  const D h = _mm512_sqrt_pd(s);
  const D res = _mm512_add_pd(fnma(h, h, s), lo);
  return fma(res, _mm512_mul_pd(set(0.5), _mm512_rcp14_pd(h)), h);
}

// |x + iy| with the semantics of C99 hypot: no intermediate overflow or underflow (both parts
// are scaled by the power of two of the larger), +inf if either part is infinite (even with a
// NaN), NaN for any other NaN; within 1 ulp.
inline D hypot(D x, D y) {
  const D ax = vabs(x), ay = vabs(y);
  const M sw = gt(ay, ax);
  const D big = pick(sw, ax, ay), small = pick(sw, ay, ax);
  const D e = _mm512_getexp_pd(big);  // floor(log2 big), subnormals included
  const D ne = _mm512_sub_pd(_mm512_setzero_pd(), e);
  D h = _mm512_scalef_pd(hypot_core(_mm512_scalef_pd(big, ne), _mm512_scalef_pd(small, ne)), e);
  h = _mm512_mask_mov_pd(h, eq(big, _mm512_setzero_pd()), _mm512_setzero_pd());
  return _mm512_mask_mov_pd(h, eq(ax, set(kInf)) | eq(ay, set(kInf)), set(kInf));
}

// |x + iy| of binary32 parts (exact in binary64): the sum of squares is one rounding, the root
// a 14-bit reciprocal square root and one Newton step, ~2^-28 relative: enough for a binary32
// result within 1 ulp (at most about 0.53 ulp).
inline D hypot_f32(D x, D y) {
  const D s = fma(x, x, _mm512_mul_pd(y, y));
  const D r = _mm512_rsqrt14_pd(s);
  D h = _mm512_mul_pd(s, r);
  h = fma(fnma(h, h, s), _mm512_mul_pd(r, set(0.5)), h);
  h = _mm512_mask_mov_pd(h, eq(s, _mm512_setzero_pd()), _mm512_setzero_pd());
  return _mm512_mask_mov_pd(h, eq(vabs(x), set(kInf)) | eq(vabs(y), set(kInf)), set(kInf));
}

// |x + iy| of binary32 parts in binary32 lanes (16 in a zmm register, 8 in a ymm register, the
// same operations either way), on the adders and multiply-add units only (on this core the
// conversions and permutes share one unit, which a binary64 sum of squares would saturate):
// x^2 and y^2 are split exactly into rounded squares and their errors, the two squares are added
// with their rounding error recovered, and the correction is added once, so the binary32 sum s
// is within 2^-24 (plus a negligible term) of the exact x^2 + y^2. Its root then lies within a
// quarter ulp of |z| before its own rounding: within 1 ulp in all. This holds while
// 2^-100 <= s <= the largest binary32 (where the errors of the squares are exact too); `outside`
// gets the other lanes with a non-zero part, which the caller takes from hypot_f32. Each lane's
// result depends on that lane alone.
namespace f32 {
inline __m512 mul(__m512 a, __m512 b) { return _mm512_mul_ps(a, b); }
inline __m256 mul(__m256 a, __m256 b) { return _mm256_mul_ps(a, b); }
inline __m512 add(__m512 a, __m512 b) { return _mm512_add_ps(a, b); }
inline __m256 add(__m256 a, __m256 b) { return _mm256_add_ps(a, b); }
inline __m512 sub(__m512 a, __m512 b) { return _mm512_sub_ps(a, b); }
inline __m256 sub(__m256 a, __m256 b) { return _mm256_sub_ps(a, b); }
inline __m512 fms(__m512 a, __m512 b, __m512 c) { return _mm512_fmsub_ps(a, b, c); }
inline __m256 fms(__m256 a, __m256 b, __m256 c) { return _mm256_fmsub_ps(a, b, c); }
inline __m512 max(__m512 a, __m512 b) { return _mm512_max_ps(a, b); }
inline __m256 max(__m256 a, __m256 b) { return _mm256_max_ps(a, b); }
inline __m512 min(__m512 a, __m512 b) { return _mm512_min_ps(a, b); }
inline __m256 min(__m256 a, __m256 b) { return _mm256_min_ps(a, b); }
inline __m512 sqrt(__m512 a) { return _mm512_sqrt_ps(a); }
inline __m256 sqrt(__m256 a) { return _mm256_sqrt_ps(a); }
// Lanes with s below 2^-100, infinite or NaN, unless x and y are both zero (checked only when
// there are any: a vector of zeros is common).
template <class V, class K>
inline void outside(V s, V x, V y, K& k) {
  if constexpr (sizeof(V) == 64) {
    k = _mm512_cmp_ps_mask(s, _mm512_set1_ps(0x1p-100f), _CMP_NGE_UQ) |
        _mm512_fpclass_ps_mask(s, 0x08);
    if (k) [[unlikely]] {
      const V z = _mm512_setzero_ps();
      k &= static_cast<K>(
          ~(_mm512_cmp_ps_mask(x, z, _CMP_EQ_OQ) & _mm512_cmp_ps_mask(y, z, _CMP_EQ_OQ)));
    }
  } else {
    k = _mm256_cmp_ps_mask(s, _mm256_set1_ps(0x1p-100f), _CMP_NGE_UQ) |
        _mm256_fpclass_ps_mask(s, 0x08);
    if (k) [[unlikely]] {
      const V z = _mm256_setzero_ps();
      k &= static_cast<K>(
          ~(_mm256_cmp_ps_mask(x, z, _CMP_EQ_OQ) & _mm256_cmp_ps_mask(y, z, _CMP_EQ_OQ)));
    }
  }
}
}  // namespace f32

template <class V, class K>
inline V hypot_f32_in_range(V x, V y, K& off) {
  using namespace f32;
  const V p = mul(x, x), pe = fms(x, x, p);
  const V q = mul(y, y), qe = fms(y, y, q);
  const V hi = max(p, q), lo = min(p, q);
  const V s = add(hi, lo);
  const V t = sub(lo, sub(s, hi));  // s + t = hi + lo exactly
  const V sum = add(s, add(t, add(pe, qe)));
  f32::outside(sum, x, y, off);
  return f32::sqrt(sum);
}

// The same for eight lanes held as binary64: the result is exactly what the 16-lane binary32
// kernel stores for these lanes.
inline D hypot_f32_lanes(D x, D y) {
  __mmask8 outside;
  const __m256 h = hypot_f32_in_range(_mm512_cvtpd_ps(x), _mm512_cvtpd_ps(y), outside);
  D r = _mm512_cvtps_pd(h);
  if (outside) [[unlikely]]
    r = _mm512_mask_mov_pd(r, outside, hypot_f32(x, y));
  return r;
}

// ---- complex square root --------------------------------------------------------------------

// The principal root w of a + ib (C99 csqrt, special values included). Unscaled: a and b come
// from binary32 or 16-bit values, whose squares cannot overflow or underflow binary64. Scaled:
// any binary64 parts; the parts are scaled by an even power of two first.
template <bool Scaled>
inline void csqrt(D a, D b, D& wr, D& wi) {
  const D ax = vabs(a), ab = vabs(b), zero = _mm512_setzero_pd();
  D t;
  if constexpr (!Scaled) {
    const D h = _mm512_sqrt_pd(fma(a, a, _mm512_mul_pd(b, b)));
    t = _mm512_sqrt_pd(_mm512_mul_pd(_mm512_add_pd(ax, h), set(0.5)));
  } else {
    const M sw = gt(ab, ax);
    const D big = pick(sw, ax, ab), small = pick(sw, ab, ax);
    const M z = eq(big, zero);
    const D e = _mm512_mask_mov_pd(_mm512_getexp_pd(big), z, zero);
    const D half =
        _mm512_roundscale_pd(_mm512_mul_pd(e, set(0.5)), _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
    const D ne = _mm512_mul_pd(half, set(-2.0));  // scale by 2^(-2 * half)
    const D h = hypot_core(_mm512_scalef_pd(big, ne), _mm512_scalef_pd(small, ne));
    const D tt =
        _mm512_sqrt_pd(_mm512_mul_pd(_mm512_add_pd(_mm512_scalef_pd(ax, ne), h), set(0.5)));
    t = _mm512_mask_mov_pd(_mm512_scalef_pd(tt, half), z, zero);
  }
  const D other = _mm512_div_pd(ab, _mm512_add_pd(t, t));
  const M aneg = lt(a, zero);
  wr = pick(aneg, t, other);
  wi = with_sign(pick(aneg, other, t), b);
  wi = _mm512_mask_mov_pd(wi, eq(t, zero), b);  // +-0 +- 0i
  const M finite = lt(ax, set(kInf)) & lt(ab, set(kInf));
  if (finite != 0xFF) [[unlikely]] {
    const M aneg_inf = eq(a, set(-kInf)), apos_inf = eq(a, set(kInf)), binf = eq(ab, set(kInf));
    wr = _mm512_mask_mov_pd(wr, aneg_inf, _mm512_sub_pd(b, b));  // 0, or NaN for a NaN b
    wi = _mm512_mask_mov_pd(wi, aneg_inf, with_sign(set(kInf), b));
    wr = _mm512_mask_mov_pd(wr, apos_inf, set(kInf));
    wi = _mm512_mask_mov_pd(wi, apos_inf, _mm512_mul_pd(b, zero));  // signed 0, or NaN
    wr = _mm512_mask_mov_pd(wr, binf, set(kInf));
    wi = _mm512_mask_mov_pd(wi, binf, b);
  }
}

// ---- arctangent -------------------------------------------------------------------------------

// atan(k/8) for k = 0..8 as a sum of two binary64 values.
alignas(64) inline constexpr double kAtanHi[16] = {0.0,
                                                   0x1.fd5ba9aac2f6ep-4,
                                                   0x1.f5b75f92c80ddp-3,
                                                   0x1.6f61941e4def1p-2,
                                                   0x1.dac670561bb4fp-2,
                                                   0x1.1e00babdefeb4p-1,
                                                   0x1.4978fa3269ee1p-1,
                                                   0x1.700a7c5784634p-1,
                                                   0x1.921fb54442d18p-1};
alignas(64) inline constexpr double kAtanLo[16] = {0.0,
                                                   -0x1.cd37686760c17p-59,
                                                   0x1.8ab6e3cf7afbdp-57,
                                                   -0x1.c63aae6f6e918p-56,
                                                   0x1.a2b7f222f65e2p-56,
                                                   -0x1.928df287a668fp-58,
                                                   0x1.2419a87f2a458p-56,
                                                   -0x1.8c34d25aadef6p-56,
                                                   0x1.1a62633145c07p-55};
inline constexpr double kPiHi = 0x1.921fb54442d18p+1, kPiLo = 0x1.1a62633145c07p-53;
inline constexpr double kPi2Hi = 0x1.921fb54442d18p+0, kPi2Lo = 0x1.1a62633145c07p-54;

// atan2(y, x) in [-pi, pi] with the C99 conventions for zeros, infinities and NaN; within 0.51
// ulp (1 ulp for subnormal results). With t = min/max of |x|, |y| in [0, 1] and c = k/8 the nearest
// eighth, atan t = atan c + atan u, u = (t - c) / (1 + t c), |u| <= 1/16, where a Taylor polynomial
// of degree 13 is exact to binary64; the sums up to the quadrant's 0, pi/2 or pi carry two binary64
// words.
inline D atan2(D y, D x) {
  const D ax = vabs(x), ay = vabs(y), zero = _mm512_setzero_pd(), one = set(1.0);
  const M sw = gt(ay, ax);
  D num = pick(sw, ay, ax), den = pick(sw, ax, ay);
  // Both zero: t = 0; an infinite larger part: t = 0, or 1 when both are infinite.
  const M dz = eq(den, zero), dinf = eq(den, set(kInf));
  num = _mm512_mask_mov_pd(num, dz, zero);
  num = _mm512_mask_mov_pd(num, dinf, _mm512_maskz_mov_pd(eq(num, set(kInf)), one));
  den = _mm512_mask_mov_pd(den, dz | dinf, one);
  const D ne = _mm512_sub_pd(zero, _mm512_getexp_pd(den));  // den to [1, 2)
  num = _mm512_scalef_pd(num, ne);
  den = _mm512_scalef_pd(den, ne);

  const D t = _mm512_mul_pd(num, _mm512_rcp14_pd(den));  // only selects the eighth
  const D k = _mm512_min_pd(_mm512_roundscale_pd(_mm512_mul_pd(t, set(8.0)),
                                                 _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC),
                            set(8.0));
  const D c = _mm512_mul_pd(k, set(0.125));
  // u = (num - c den) / (den + c num) to about 2^-100: c den is within a factor of two of num,
  // so num - c den is exact and only the rounding error of the product is carried; the divisor
  // is a sum of two; one correction step of the quotient.
  const D cd = _mm512_mul_pd(c, den), cde = fma(c, den, _mm512_sub_pd(zero, cd));
  const D nhi = _mm512_sub_pd(num, cd);
  const D cn = _mm512_mul_pd(c, num), cne = fma(c, num, _mm512_sub_pd(zero, cn));
  const D dhi = _mm512_add_pd(den, cn);
  const D dlo = _mm512_add_pd(_mm512_add_pd(_mm512_sub_pd(den, dhi), cn), cne);
  const D u = _mm512_div_pd(nhi, dhi);
  const D res = _mm512_sub_pd(_mm512_sub_pd(fnma(u, dhi, nhi), cde), _mm512_mul_pd(u, dlo));
  const D ulo = _mm512_mul_pd(res, _mm512_rcp14_pd(dhi));
  const D z = _mm512_mul_pd(u, u);
  D pl = set(1.0 / 13);
  pl = fma(pl, z, set(-1.0 / 11));
  pl = fma(pl, z, set(1.0 / 9));
  pl = fma(pl, z, set(-1.0 / 7));
  pl = fma(pl, z, set(1.0 / 5));
  pl = fma(pl, z, set(-1.0 / 3));
  const D tail = fma(_mm512_mul_pd(u, z), pl, ulo);  // atan(u + ulo) - u

  const __m512i idx = _mm512_cvtpd_epi64(k);
  const D chi = _mm512_permutex2var_pd(_mm512_load_pd(kAtanHi), idx, _mm512_load_pd(kAtanHi + 8));
  const D clo = _mm512_permutex2var_pd(_mm512_load_pd(kAtanLo), idx, _mm512_load_pd(kAtanLo + 8));
  D e1;
  const D ahi = two_sum(chi, u, e1);  // atan t = ahi + alo
  const D alo = _mm512_add_pd(_mm512_add_pd(e1, clo), tail);

  // Quadrant: x >= +0: 0 + a or pi/2 - a; x <= -0: pi - a or pi/2 + a (a = atan t).
  const M xneg = sign_bit(x), sub = static_cast<M>(sw ^ xneg);
  const M to_pi = static_cast<M>(xneg & ~sw);
  D qhi = _mm512_maskz_mov_pd(sw, set(kPi2Hi)), qlo = _mm512_maskz_mov_pd(sw, set(kPi2Lo));
  qhi = _mm512_mask_mov_pd(qhi, to_pi, set(kPiHi));
  qlo = _mm512_mask_mov_pd(qlo, to_pi, set(kPiLo));
  D e2;
  const D s = two_sum(qhi, negate_if(sub, ahi), e2);
  const D lo = _mm512_add_pd(_mm512_add_pd(e2, qlo), negate_if(sub, alo));
  const D r = with_sign(_mm512_add_pd(s, lo), y);
  return _mm512_mask_add_pd(r, _mm512_cmp_pd_mask(x, y, _CMP_UNORD_Q), x, y);
}

// ---- sine and cosine ----------------------------------------------------------------------

// For finite |x| >= 2^30: x = n * pi/2 + r with |r| <= pi/4, from the bits of 2/pi (exact
// reduction); returns n mod 4.
int reduce_pio2_huge(double x, double* r);

// sin x and cos x for every binary64 x, absolute error about 2^-52. |x| <= pi/4 is taken as it
// is; up to 2^30 the reduction subtracts n * pi/2 in three parts with fused multiply-adds;
// beyond, the rare lanes are reduced one by one from the bits of 2/pi. Taylor polynomials of
// degrees 17 (sine) and 16 (cosine) are exact to binary64 on |r| <= pi/4. Non-finite x: NaN.
inline void sincos(D x, D& sn, D& cs) {
  const D ax = vabs(x);
  const M small = _mm512_cmp_pd_mask(ax, set(0x1.921fb54442d18p-1), _CMP_LE_OQ);
  D q = _mm512_roundscale_pd(_mm512_mul_pd(x, set(0x1.45f306dc9c883p-1)),
                             _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
  q = _mm512_mask_mov_pd(q, small, _mm512_setzero_pd());
  D r = fnma(q, set(0x1.921fb54442d18p+0), x);
  r = fnma(q, set(0x1.1a62633145c07p-54), r);
  r = fnma(q, set(-0x1.f1976b7ed8fbcp-110), r);
  r = _mm512_mask_mov_pd(r, small, x);
  __m512i n = _mm512_cvtpd_epi64(q);
  const M huge = _mm512_cmp_pd_mask(ax, set(0x1p30), _CMP_GE_OQ) & lt(ax, set(kInf));
  if (huge) [[unlikely]] {
    alignas(64) double xs[8], rs[8];
    alignas(64) int64_t ns[8];
    _mm512_store_pd(xs, x);
    _mm512_store_pd(rs, r);
    _mm512_store_si512(ns, n);
    for (unsigned m = huge; m; m &= m - 1) {
      const unsigned i = static_cast<unsigned>(__builtin_ctz(m));
      ns[i] = reduce_pio2_huge(xs[i], &rs[i]);
    }
    r = _mm512_load_pd(rs);
    n = _mm512_load_si512(ns);
  }
  const D z = _mm512_mul_pd(r, r), ar = vabs(r);
  D ps = set(1.0 / 355687428096000.0);  // 1/17!
  ps = fma(ps, z, set(-1.0 / 1307674368000.0));
  ps = fma(ps, z, set(1.0 / 6227020800.0));
  ps = fma(ps, z, set(-1.0 / 39916800.0));
  ps = fma(ps, z, set(1.0 / 362880.0));
  ps = fma(ps, z, set(-1.0 / 5040.0));
  ps = fma(ps, z, set(1.0 / 120.0));
  ps = fma(ps, z, set(-1.0 / 6.0));
  const D s = _mm512_xor_pd(fma(_mm512_mul_pd(ar, z), ps, ar), _mm512_and_pd(r, set(-0.0)));
  D pc = set(1.0 / 20922789888000.0);  // 1/16!
  pc = fma(pc, z, set(-1.0 / 87178291200.0));
  pc = fma(pc, z, set(1.0 / 479001600.0));
  pc = fma(pc, z, set(-1.0 / 3628800.0));
  pc = fma(pc, z, set(1.0 / 40320.0));
  pc = fma(pc, z, set(-1.0 / 720.0));
  pc = fma(pc, z, set(1.0 / 24.0));
  pc = fma(pc, z, set(-0.5));
  const D c = fma(z, pc, set(1.0));
  const M odd = _mm512_test_epi64_mask(n, _mm512_set1_epi64(1));
  const M sneg = _mm512_test_epi64_mask(n, _mm512_set1_epi64(2));
  const M cneg =
      _mm512_test_epi64_mask(_mm512_add_epi64(n, _mm512_set1_epi64(1)), _mm512_set1_epi64(2));
  sn = negate_if(sneg, pick(odd, s, c));
  cs = negate_if(cneg, pick(odd, c, s));
}

}  // namespace veks::vm
