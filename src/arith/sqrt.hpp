// Square roots: correctly rounded real roots with a NaN and warning 3 for negative elements,
// principal complex roots, and integer roots stored as R_T(sqrt(x) * 2^-sf).
#pragma once

// clang-format off
#include "frame/intrin.hpp"  // first: before anything else includes <immintrin.h>
// clang-format on

#include <type_traits>

#include "arith/lanes.hpp"
#include "arith/vmath.hpp"
#include "frame/check.hpp"
#include "frame/split.hpp"

namespace veks {
namespace sqrt_detail {

// One block of r <= 16 (binary32) or r <= 8 (binary64) roots; returns the lanes that were < 0.
inline unsigned block(const Vek32f* s, Vek32f* d, unsigned r) {
  const auto m = static_cast<__mmask16>(_bzhi_u32(0xFFFFu, r));
  const __m512 x = _mm512_maskz_loadu_ps(m, s);
  _mm512_mask_storeu_ps(d, m, _mm512_sqrt_ps(x));
  return _mm512_cmp_ps_mask(x, _mm512_setzero_ps(), _CMP_LT_OQ);
}
inline unsigned block(const Vek64f* s, Vek64f* d, unsigned r) {
  const auto m = static_cast<__mmask8>(_bzhi_u32(0xFFu, r));
  const __m512d x = _mm512_maskz_loadu_pd(m, s);
  _mm512_mask_storeu_pd(d, m, _mm512_sqrt_pd(x));
  return _mm512_cmp_pd_mask(x, _mm512_setzero_pd(), _CMP_LT_OQ);
}

// The hardware root is the IEEE one (a negative argument gives the default NaN); the kernel
// only notes whether a negative element was met.
template <class T>
int real_kernel(const T* s, T* d, size_t n) {
  constexpr unsigned N = 64 / sizeof(T);
  unsigned neg = 0;
  size_t i = 0;
  for (; i + N <= n; i += N) neg |= block(s + i, d + i, N);
  if (i < n) neg |= block(s + i, d + i, static_cast<unsigned>(n - i));
  return neg != 0;
}

template <class T, int Threshold>
VekStatus real(const T* s, T* d, int len) {
  const int flagged = run_split(len, Threshold, [=](int first, int count) {
    return real_kernel(s + first, d + first, static_cast<size_t>(count));
  });
  return flagged ? vekStatusWarnNegSqrt : vekStatusOk;
}

// Integer roots through binary64: the root of an integer below 2^32 is either a multiple of 1/2
// after scaling or far from every half-integer compared with the error of the binary64 root, so
// rounding the binary64 value gives the correctly rounded result. Negative elements store 0.
template <class TS, class TD, int Threshold>
VekStatus integer(const TS* s, TD* d, int len, int sf) {
  const lanes::Finish<TD> fin(sf);
  const int flagged = run_split(len, Threshold, [=](int first, int count) {
    unsigned neg = 0;
    lanes::blocks8(static_cast<size_t>(first), static_cast<size_t>(count),
                   [&](size_t i, unsigned r) {
                     const __m512d x = lanes::load(s + i, r);
                     if constexpr (std::is_signed_v<TS>) neg |= vm::lt(x, _mm512_setzero_pd());
                     const __m512d v = _mm512_sqrt_pd(_mm512_max_pd(x, _mm512_setzero_pd()));
                     lanes::store(d + i, fin(v), r);
                   });
    return neg != 0;
  });
  return flagged ? vekStatusWarnNegSqrt : vekStatusOk;
}

// Complex roots in binary64: binary32 and 16-bit parts need no scaling, binary64 parts do.
// Integer destinations round each part through the scale factor.
template <class C, int Threshold>
VekStatus complex(const C* s, C* d, int len, int sf) {
  constexpr bool kScaled = std::is_same_v<C, Vek64fc>;
  const lanes::Finish<lanes::part_t<C>> fin(sf);
  run_split(len, Threshold, [=](int first, int count) {
    lanes::blocks8(static_cast<size_t>(first), static_cast<size_t>(count),
                   [&](size_t i, unsigned r) {
                     __m512d a, b, wr, wi;
                     lanes::load(s + i, r, a, b);
                     vm::csqrt<kScaled>(a, b, wr, wi);
                     lanes::store(d + i, fin(wr), fin(wi), r);
                   });
    return 0;
  });
  return vekStatusOk;
}

}  // namespace sqrt_detail

// Sqrt_32f, _64f: IEEE roots; warning 3 when an element was negative (it holds a NaN).
template <class T, int Threshold>
VekStatus sqrt_real(const T* pSrc, T* pDst, int len) {
  VEKS_TRY(check_ptrs_len(len, pSrc, pDst));
  return sqrt_detail::real<T, Threshold>(pSrc, pDst, len);
}
template <class T, int Threshold>
VekStatus sqrt_real_i(T* pSrcDst, int len) {
  VEKS_TRY(check_ptrs_len(len, pSrcDst));
  return sqrt_detail::real<T, Threshold>(pSrcDst, pSrcDst, len);
}

// Sqrt_8u/16u/16s/32s16s_Sfs: R_TD(sqrt(x) * 2^-sf); negative elements store 0, warning 3.
template <class TS, class TD, int Threshold>
VekStatus sqrt_int_sfs(const TS* pSrc, TD* pDst, int len, int scaleFactor) {
  VEKS_TRY(check_ptrs_len(len, pSrc, pDst));
  return sqrt_detail::integer<TS, TD, Threshold>(pSrc, pDst, len, scaleFactor);
}
template <class T, int Threshold>
VekStatus sqrt_int_isfs(T* pSrcDst, int len, int scaleFactor) {
  VEKS_TRY(check_ptrs_len(len, pSrcDst));
  return sqrt_detail::integer<T, T, Threshold>(pSrcDst, pSrcDst, len, scaleFactor);
}

// Sqrt_32fc, _64fc: principal roots (C99 csqrt); never a warning.
template <class C, int Threshold>
VekStatus sqrt_complex(const C* pSrc, C* pDst, int len) {
  VEKS_TRY(check_ptrs_len(len, pSrc, pDst));
  return sqrt_detail::complex<C, Threshold>(pSrc, pDst, len, 0);
}
template <class C, int Threshold>
VekStatus sqrt_complex_i(C* pSrcDst, int len) {
  VEKS_TRY(check_ptrs_len(len, pSrcDst));
  return sqrt_detail::complex<C, Threshold>(pSrcDst, pSrcDst, len, 0);
}
// Sqrt_16sc_Sfs: principal roots of the exact parts, each part R_16s(part * 2^-sf).
template <class C, int Threshold>
VekStatus sqrt_complex_sfs(const C* pSrc, C* pDst, int len, int scaleFactor) {
  VEKS_TRY(check_ptrs_len(len, pSrc, pDst));
  return sqrt_detail::complex<C, Threshold>(pSrc, pDst, len, scaleFactor);
}
template <class C, int Threshold>
VekStatus sqrt_complex_isfs(C* pSrcDst, int len, int scaleFactor) {
  VEKS_TRY(check_ptrs_len(len, pSrcDst));
  return sqrt_detail::complex<C, Threshold>(pSrcDst, pSrcDst, len, scaleFactor);
}

}  // namespace veks
