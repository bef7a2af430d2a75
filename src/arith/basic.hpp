// Element-wise add, subtract, multiply, multiply-accumulate, square and absolute value: each
// written once over lane types (scalars, integer lanes wide enough for exact results, floating
// point) and bound to the checked shapes of src/frame/shapes.hpp by the manifest.
#pragma once

#include <type_traits>

#include "frame/fill.hpp"
#include "frame/shapes.hpp"

namespace veks {

// The 16-bit forms also give their exact results for 32 lanes at once (src/frame/wide16.hpp).
struct Add {  // x + y
  template <class L>
  static L apply(L x, L y) {
    return x + y;
  }
  static void exact16(__m512i x, __m512i y, __m512i& lo, __m512i& hi) {
    __m512i xl, xh, yl, yh;
    wide16::widen(x, xl, xh);
    wide16::widen(y, yl, yh);
    lo = _mm512_add_epi32(xl, yl);
    hi = _mm512_add_epi32(xh, yh);
  }
  static __m512i sat16(__m512i x, __m512i y) { return _mm512_adds_epi16(x, y); }
  // (x + y) / 2 with ties to even: the rounded-up average, less one where it is an odd tie.
  static __m512i half16(__m512i x, __m512i y) {
    const __m512i bias = _mm512_set1_epi16(-32768);
    const __m512i up = _mm512_xor_si512(
        _mm512_avg_epu16(_mm512_xor_si512(x, bias), _mm512_xor_si512(y, bias)), bias);
    const __m512i odd_tie =
        _mm512_and_si512(_mm512_and_si512(_mm512_xor_si512(x, y), up), _mm512_set1_epi16(1));
    return _mm512_sub_epi16(up, odd_tie);
  }
};
struct Sub {  // x - y: SubC
  template <class L>
  static L apply(L x, L y) {
    return x - y;
  }
  static void exact16(__m512i x, __m512i y, __m512i& lo, __m512i& hi) {
    __m512i xl, xh, yl, yh;
    wide16::widen(x, xl, xh);
    wide16::widen(y, yl, yh);
    lo = _mm512_sub_epi32(xl, yl);
    hi = _mm512_sub_epi32(xh, yh);
  }
  static __m512i sat16(__m512i x, __m512i y) { return _mm512_subs_epi16(x, y); }
};
struct SubRev {  // y - x: Sub (second vector minus the first) and SubCRev (constant minus x)
  template <class L>
  static L apply(L x, L y) {
    return y - x;
  }
  static void exact16(__m512i x, __m512i y, __m512i& lo, __m512i& hi) {
    Sub::exact16(y, x, lo, hi);
  }
  static __m512i sat16(__m512i x, __m512i y) { return _mm512_subs_epi16(y, x); }
};
struct Mul {  // x * y
  template <class L>
  static L apply(L x, L y) {
    return x * y;
  }
  static void exact16(__m512i x, __m512i y, __m512i& lo, __m512i& hi) {
    const __m512i l = _mm512_mullo_epi16(x, y), h = _mm512_mulhi_epi16(x, y);
    lo = _mm512_unpacklo_epi16(l, h);
    hi = _mm512_unpackhi_epi16(l, h);
  }
};
// Complex x * y on interleaved lanes; floating point rounds each component once after a fused
// multiply-add.
struct CMul {
  template <class L>
  static L apply(L x, L y) {
    return simd::mul_subadd(simd::dup_re(x), y, simd::dup_im(x) * simd::swap_pairs(y));
  }
};
struct Sqr {
  template <class L>
  static L apply(L x) {
    return x * x;
  }
};
struct CSqr {
  template <class L>
  static L apply(L x) {
    return CMul::apply(x, x);
  }
};
// z + x * y, the product rounded before the sum in floating point.
struct MulAdd {
  template <class L>
  static L apply(L x, L y, L z) {
    return z + x * y;
  }
};
struct CMulAdd {
  template <class L>
  static L apply(L x, L y, L z) {
    return z + CMul::apply(x, y);
  }
};
// |x|: integers in lanes wide enough for |min| (the store saturates it to max); floating point
// clears the sign bit, so -0 gives +0 and NaNs keep their payload.
struct Abs {
  template <class L>
  static L apply(L x) {
    using S = simd::lane_t<L>;
    if constexpr (std::is_floating_point_v<S>) {
      using I = std::conditional_t<sizeof(S) == 4, int32_t, int64_t>;
      using VI = simd::VecN<I, simd::lanes_of<L>>;
      return reinterpret_cast<L>(reinterpret_cast<VI>(x) &
                                 simd::splat<VI>(~(I{1} << (8 * sizeof(I) - 1))));
    } else {
      return simd::select<L>(x < 0, -x, x);
    }
  }
};

namespace detail {
template <class T>
bool is_value(const T& v, int k) {
  if constexpr (is_complex_v<T>) {
    return v.re == static_cast<comp_t<T>>(k) && v.im == 0;
  } else {
    return v == static_cast<T>(k);
  }
}
}  // namespace detail

// Constant forms of integer data with the shortcuts that give identical results: x + 0 and
// x - 0 at scale factor 0 copy, x * 1 at scale factor 0 copies, x * 0 zero-fills.
template <class Op, int ZeroAbove, class W = void, class T>
VekStatus const_int_sfs(const T* s, T val, T* d, int len, int sf) {
  static_assert(!std::is_floating_point_v<comp_t<T>>);
  constexpr int kIdentity = std::is_same_v<Op, Mul> || std::is_same_v<Op, CMul> ? 1 : 0;
  constexpr bool kCanCopy = !std::is_same_v<Op, SubRev>;
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (kCanCopy && sf == 0 && detail::is_value(val, kIdentity)) return copy(s, d, len);
  if (kIdentity == 1 && detail::is_value(val, 0)) {
    zero_fill(d, len);
    return vekStatusOk;
  }
  return const_sfs<Op, ZeroAbove, W>(s, val, d, len, sf);
}
template <class Op, int ZeroAbove, class W = void, class T>
VekStatus const_int_isfs(T val, T* srcdst, int len, int sf) {
  constexpr int kIdentity = std::is_same_v<Op, Mul> || std::is_same_v<Op, CMul> ? 1 : 0;
  constexpr bool kCanCopy = !std::is_same_v<Op, SubRev>;
  VEKS_TRY(check_ptrs_len(len, srcdst));
  if (kCanCopy && sf == 0 && detail::is_value(val, kIdentity)) return vekStatusOk;
  if (kIdentity == 1 && detail::is_value(val, 0)) {
    zero_fill(srcdst, len);
    return vekStatusOk;
  }
  return const_isfs<Op, ZeroAbove, W>(val, srcdst, len, sf);
}
template <class Op, class W = void, class T>
VekStatus const_int_i(T val, T* srcdst, int len) {
  return const_int_isfs<Op, 0, W>(val, srcdst, len, 0);
}

}  // namespace veks
