// Shifts of every element by a constant count: left shifts (bits shifted out are lost, no
// saturation), logical right shifts of unsigned and arithmetic right shifts of signed elements.
// The hardware shifts take the count from a register and handle counts of the element width
// and more themselves (zeros, or copies of the sign bit); 8-bit elements shift as 16-bit lanes
// and drop the bits that crossed into the neighbouring byte.
#pragma once

#include "frame/intrin.hpp"

#include <algorithm>
#include <type_traits>

#include "arith/logic.hpp"
#include "frame/map.hpp"

namespace veks {

namespace detail {

struct ShiftLeft {
  template <class T>
  static __m512i apply(__m512i x, __m128i k, int count) {
    if constexpr (sizeof(T) == 1) {
      const auto kept = static_cast<char>(0xFF << count);  // count < 8 here
      return _mm512_and_si512(_mm512_sll_epi16(x, k), _mm512_set1_epi8(kept));
    } else if constexpr (sizeof(T) == 2) {
      return _mm512_sll_epi16(x, k);
    } else {
      return _mm512_sll_epi32(x, k);
    }
  }
};

struct ShiftRight {
  template <class T>
  static __m512i apply(__m512i x, __m128i k, int count) {
    if constexpr (sizeof(T) == 1) {
      static_assert(std::is_unsigned_v<T>);
      const auto kept = static_cast<char>(count >= 8 ? 0 : 0xFF >> count);
      return _mm512_and_si512(_mm512_srl_epi16(x, k), _mm512_set1_epi8(kept));
    } else if constexpr (sizeof(T) == 2) {
      return std::is_signed_v<T> ? _mm512_sra_epi16(x, k) : _mm512_srl_epi16(x, k);
    } else {
      return std::is_signed_v<T> ? _mm512_sra_epi32(x, k) : _mm512_srl_epi32(x, k);
    }
  }
};

template <class Dir, class T>
void shift_kernel(const T* s, T* d, size_t n, int count) {
  const __m128i k = _mm_cvtsi32_si128(count);
  map<T>(
      n, d,
      [&](auto x) {
        using V = decltype(x);
        return reinterpret_cast<V>(Dir::template apply<T>(reinterpret_cast<__m512i>(x), k, count));
      },
      s);
}

}  // namespace detail

// Left shift. A count above the element width minus one zero-fills the destination through the
// exported Zero primitive of the element size, after checking only the source pointer: the
// primitive's own pointer and length checks give the status. Otherwise the general order:
// pointers, length, then a negative count.
template <class T>
VekStatus lshift(const T* s, int val, T* d, int len) {
  if (val > bits_of<T> - 1) {
    if (s == nullptr) return vekStatusNullPtr;
    return zero_exported(d, len);
  }
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (val < 0) return vekStatusNegativeShift;
  detail::shift_kernel<detail::ShiftLeft>(s, d, static_cast<size_t>(len), val);
  return vekStatusOk;
}
template <class T>
VekStatus lshift_i(int val, T* srcdst, int len) {
  return lshift(srcdst, val, srcdst, len);
}

// Right shift, general check order for every count; counts of the element width and more give
// 0, or -1 for negative signed elements.
template <class T>
VekStatus rshift(const T* s, int val, T* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (val < 0) return vekStatusNegativeShift;
  detail::shift_kernel<detail::ShiftRight>(s, d, static_cast<size_t>(len),
                                           std::min(val, bits_of<T>));
  return vekStatusOk;
}
template <class T>
VekStatus rshift_i(int val, T* srcdst, int len) {
  return rshift(srcdst, val, srcdst, len);
}

}  // namespace veks
