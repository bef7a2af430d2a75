// Magnitude, phase and power of complex vectors, split or interleaved, into binary32, binary64
// or scaled integer results. Each operation is one binary64 lane kernel over the exact parts;
// split and interleaved sources go through the same kernel, so they give identical results.
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

// |z|: binary32 parts in binary32 words (within 1 ulp), binary64 parts with
// hypot semantics, integer parts exactly (re^2 + im^2 < 2^32 is exact, its root correctly
// rounded, so every rounding to binary32 or through a scale factor is the correct one).
struct Magnitude {
  template <class P>
  static __m512d apply(__m512d re, __m512d im) {
    if constexpr (std::is_same_v<P, Vek32f>) {
      return vm::hypot_f32_lanes(re, im);
    } else if constexpr (std::is_same_v<P, Vek64f>) {
      return vm::hypot(re, im);
    } else {
      return _mm512_sqrt_pd(vm::fma(re, re, _mm512_mul_pd(im, im)));
    }
  }
};

// arg z = atan2(im, re); integer parts have no negative zero, so (0, 0) gives 0 and the
// negative real axis +pi.
struct Phase {
  template <class P>
  static __m512d apply(__m512d re, __m512d im) {
    return vm::atan2(im, re);
  }
};

// re^2 + im^2 in binary64: exact for integer parts, one rounding for binary32 parts (then one
// more to binary32), within 1 ulp for binary64 parts.
struct Power {
  template <class P>
  static __m512d apply(__m512d re, __m512d im) {
    return vm::fma(re, re, _mm512_mul_pd(im, im));
  }
};

namespace cx_detail {

// Magnitude of binary32 parts into binary32, 16 elements at a time: the values of
// Magnitude::apply<Vek32f>, without the trips through binary64.
template <class Src>
void magnitude_f32(Src src, Vek32f* d, size_t first, size_t count) {
  const auto block = [&](size_t i, unsigned r) {
    __m512 re, im;
    src.load16(i, r, re, im);
    __mmask16 outside;
    __m512 h = vm::hypot_f32_in_range(re, im, outside);
    if (outside) [[unlikely]] {
      const __m256 lo = _mm512_cvtpd_ps(vm::hypot_f32(_mm512_cvtps_pd(_mm512_castps512_ps256(re)),
                                                      _mm512_cvtps_pd(_mm512_castps512_ps256(im))));
      const __m256 hi =
          _mm512_cvtpd_ps(vm::hypot_f32(_mm512_cvtps_pd(_mm512_extractf32x8_ps(re, 1)),
                                        _mm512_cvtps_pd(_mm512_extractf32x8_ps(im, 1))));
      h = _mm512_mask_mov_ps(h, outside, _mm512_insertf32x8(_mm512_castps256_ps512(lo), hi, 1));
    }
    _mm512_mask_storeu_ps(d + i, static_cast<__mmask16>(_bzhi_u32(0xFFFFu, r)), h);
  };
  size_t i = first;
  const size_t end = first + count;
  for (; i + 16 <= end; i += 16) block(i, 16u);
  if (i < end) block(i, static_cast<unsigned>(end - i));
}

template <class Op, int Threshold, class Src, class TD>
void run(Src src, TD* d, int len, int sf) {
  using P = typename Src::part;
  if constexpr (std::is_same_v<Op, Magnitude> && std::is_same_v<P, Vek32f>) {
    run_split(len, Threshold, [=](int first, int count) {
      magnitude_f32(src, d, static_cast<size_t>(first), static_cast<size_t>(count));
      return 0;
    });
    return;
  }
  const lanes::Finish<TD> fin(sf);
  run_split(len, Threshold, [=](int first, int count) {
    lanes::blocks8(static_cast<size_t>(first), static_cast<size_t>(count),
                   [&](size_t i, unsigned r) {
                     __m512d re, im;
                     src(i, r, re, im);
                     lanes::store(d + i, fin(Op::template apply<P>(re, im)), r);
                   });
    return 0;
  });
}

}  // namespace cx_detail

// d[i] = Op(re[i] + i im[i]).
template <class Op, class E, class TD, int Threshold>
VekStatus cx_split(const E* pSrcRe, const E* pSrcIm, TD* pDst, int len) {
  VEKS_TRY(check_ptrs_len(len, pSrcRe, pSrcIm, pDst));
  cx_detail::run<Op, Threshold>(lanes::Split<E>{pSrcRe, pSrcIm}, pDst, len, 0);
  return vekStatusOk;
}
template <class Op, class E, class TD, int Threshold>
VekStatus cx_split_sfs(const E* pSrcRe, const E* pSrcIm, TD* pDst, int len, int scaleFactor) {
  VEKS_TRY(check_ptrs_len(len, pSrcRe, pSrcIm, pDst));
  cx_detail::run<Op, Threshold>(lanes::Split<E>{pSrcRe, pSrcIm}, pDst, len, scaleFactor);
  return vekStatusOk;
}
// d[i] = Op(src[i]).
template <class Op, class C, class TD, int Threshold>
VekStatus cx_inter(const C* pSrc, TD* pDst, int len) {
  VEKS_TRY(check_ptrs_len(len, pSrc, pDst));
  cx_detail::run<Op, Threshold>(lanes::Interleaved<C>{pSrc}, pDst, len, 0);
  return vekStatusOk;
}
template <class Op, class C, class TD, int Threshold>
VekStatus cx_inter_sfs(const C* pSrc, TD* pDst, int len, int scaleFactor) {
  VEKS_TRY(check_ptrs_len(len, pSrc, pDst));
  cx_detail::run<Op, Threshold>(lanes::Interleaved<C>{pSrc}, pDst, len, scaleFactor);
  return vekStatusOk;
}

}  // namespace veks
