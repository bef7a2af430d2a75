// Power-of-two Fourier transforms: the entry points the export manifest binds to.
#pragma once

#include "veks.h"

namespace veks::fft {

struct Fwd {
  static constexpr bool inv = false;
};
struct Inv {
  static constexpr bool inv = true;
};
// Packed real-spectrum layouts.
struct Pack {};
struct Perm {};
struct CCS {};

template <class Spec>
VekStatus get_size(int order, int flag, VekAccuracyHint hint, int* pSpecSize, int* pSpecBufferSize,
                   int* pBufferSize);
template <class Spec>
VekStatus init(Spec** ppFFTSpec, int order, int flag, VekAccuracyHint hint, Vek8u* pSpec,
               Vek8u* pSpecBuffer);

template <class D, class C, class Spec>
VekStatus ctoc(const C* pSrc, C* pDst, const Spec* pFFTSpec, Vek8u* pBuffer);
template <class D, class C, class Spec>
VekStatus ctoc_i(C* pSrcDst, const Spec* pFFTSpec, Vek8u* pBuffer) {
  return ctoc<D>(pSrcDst, pSrcDst, pFFTSpec, pBuffer);
}
template <class D, class R, class Spec>
VekStatus ctoc_split(const R* pSrcRe, const R* pSrcIm, R* pDstRe, R* pDstIm, const Spec* pFFTSpec,
                     Vek8u* pBuffer);
template <class D, class R, class Spec>
VekStatus ctoc_split_i(R* pSrcDstRe, R* pSrcDstIm, const Spec* pFFTSpec, Vek8u* pBuffer) {
  return ctoc_split<D>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pFFTSpec, pBuffer);
}
template <class L, class R, class Spec>
VekStatus rfwd(const R* pSrc, R* pDst, const Spec* pFFTSpec, Vek8u* pBuffer);
template <class L, class R, class Spec>
VekStatus rfwd_i(R* pSrcDst, const Spec* pFFTSpec, Vek8u* pBuffer) {
  return rfwd<L>(pSrcDst, pSrcDst, pFFTSpec, pBuffer);
}
template <class L, class R, class Spec>
VekStatus rinv(const R* pSrc, R* pDst, const Spec* pFFTSpec, Vek8u* pBuffer);
template <class L, class R, class Spec>
VekStatus rinv_i(R* pSrcDst, const Spec* pFFTSpec, Vek8u* pBuffer) {
  return rinv<L>(pSrcDst, pSrcDst, pFFTSpec, pBuffer);
}

}  // namespace veks::fft
