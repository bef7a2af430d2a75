// Conversion between Cartesian and polar forms. CartToPolar stores exactly what Magnitude and
// Phase of the same type store; PolarToCart evaluates r cos(phi) and r sin(phi) in binary64
// with an exact argument reduction, so every finite phase keeps the accuracy.
#pragma once

// clang-format off
#include "frame/intrin.hpp"  // first: before anything else includes <immintrin.h>
// clang-format on

#include "arith/lanes.hpp"
#include "arith/magnitude.hpp"
#include "arith/vmath.hpp"
#include "frame/check.hpp"

namespace veks {
namespace polar_detail {

template <class Src, class E>
void to_polar(Src src, E* magn, E* phase, int len) {
  using P = typename Src::part;
  lanes::blocks8(0, static_cast<size_t>(len), [&](size_t i, unsigned r) {
    __m512d re, im;
    src(i, r, re, im);
    const __m512d m = Magnitude::apply<P>(re, im), ph = Phase::apply<P>(re, im);
    lanes::store(magn + i, m, r);
    lanes::store(phase + i, ph, r);
  });
}

// store(i, r, re, im) receives r cos(phi) and r sin(phi) of elements [i, i + r).
template <class E, class Store>
void to_cart(const E* magn, const E* phase, int len, Store&& store) {
  lanes::blocks8(0, static_cast<size_t>(len), [&](size_t i, unsigned r) {
    const __m512d m = lanes::load(magn + i, r);
    __m512d s, c;
    vm::sincos(lanes::load(phase + i, r), s, c);
    store(i, r, _mm512_mul_pd(m, c), _mm512_mul_pd(m, s));
  });
}

}  // namespace polar_detail

template <class E>
VekStatus cart_to_polar_split(const E* pSrcRe, const E* pSrcIm, E* pDstMagn, E* pDstPhase,
                              int len) {
  VEKS_TRY(check_ptrs_len(len, pSrcRe, pSrcIm, pDstMagn, pDstPhase));
  polar_detail::to_polar(lanes::Split<E>{pSrcRe, pSrcIm}, pDstMagn, pDstPhase, len);
  return vekStatusOk;
}
template <class C>
VekStatus cart_to_polar(const C* pSrc, lanes::part_t<C>* pDstMagn, lanes::part_t<C>* pDstPhase,
                        int len) {
  VEKS_TRY(check_ptrs_len(len, pSrc, pDstMagn, pDstPhase));
  polar_detail::to_polar(lanes::Interleaved<C>{pSrc}, pDstMagn, pDstPhase, len);
  return vekStatusOk;
}

template <class E>
VekStatus polar_to_cart_split(const E* pSrcMagn, const E* pSrcPhase, E* pDstRe, E* pDstIm,
                              int len) {
  VEKS_TRY(check_ptrs_len(len, pSrcMagn, pSrcPhase, pDstRe, pDstIm));
  polar_detail::to_cart(pSrcMagn, pSrcPhase, len,
                        [&](size_t i, unsigned r, __m512d re, __m512d im) {
                          lanes::store(pDstRe + i, re, r);
                          lanes::store(pDstIm + i, im, r);
                        });
  return vekStatusOk;
}
template <class E, class C>
VekStatus polar_to_cart(const E* pSrcMagn, const E* pSrcPhase, C* pDst, int len) {
  VEKS_TRY(check_ptrs_len(len, pSrcMagn, pSrcPhase, pDst));
  polar_detail::to_cart(
      pSrcMagn, pSrcPhase, len,
      [&](size_t i, unsigned r, __m512d re, __m512d im) { lanes::store(pDst + i, re, im, r); });
  return vekStatusOk;
}

}  // namespace veks
