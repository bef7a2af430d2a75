// Bitwise And, Or, Xor (of two vectors or with a constant) and Not on unsigned elements. The
// operations run on lanes of the element type itself: 64 bytes per vector whatever its width.
#pragma once

#include "frame/shapes.hpp"

namespace veks {

// Zero-fill and copy through the exported block primitives, by element size.
template <class T>
VekStatus zero_exported(T* d, int len) {
  if constexpr (sizeof(T) == 1) {
    return veksZero_8u(reinterpret_cast<Vek8u*>(d), len);
  } else if constexpr (sizeof(T) == 2) {
    return veksZero_16s(reinterpret_cast<Vek16s*>(d), len);
  } else {
    static_assert(sizeof(T) == 4);
    return veksZero_32s(reinterpret_cast<Vek32s*>(d), len);
  }
}
template <class T>
VekStatus copy_exported(const T* s, T* d, int len) {
  if constexpr (sizeof(T) == 1) {
    return veksCopy_8u(reinterpret_cast<const Vek8u*>(s), reinterpret_cast<Vek8u*>(d), len);
  } else if constexpr (sizeof(T) == 2) {
    return veksCopy_16s(reinterpret_cast<const Vek16s*>(s), reinterpret_cast<Vek16s*>(d), len);
  } else {
    static_assert(sizeof(T) == 4);
    return veksCopy_32s(reinterpret_cast<const Vek32s*>(s), reinterpret_cast<Vek32s*>(d), len);
  }
}

// What a zero constant makes of the operation: nothing special, every result 0 (And), or every
// result the source element (Or, Xor).
enum class WithZero { kCompute, kZero, kSource };

struct BitAnd {
  static constexpr WithZero kWithZero = WithZero::kZero;
  template <class L>
  static L apply(L x, L y) {
    return x & y;
  }
};
struct BitOr {
  static constexpr WithZero kWithZero = WithZero::kSource;
  template <class L>
  static L apply(L x, L y) {
    return x | y;
  }
};
struct BitXor {
  static constexpr WithZero kWithZero = WithZero::kSource;
  template <class L>
  static L apply(L x, L y) {
    return x ^ y;
  }
};

// d[i] = a[i] op b[i]; the in-place form is srcdst[i] = srcdst[i] op src[i] (the operations
// commute).
template <class Op, class T>
VekStatus logic(const T* a, const T* b, T* d, int len) {
  return binary<Op, T, T, T>(a, b, d, len);
}
template <class Op, class T>
VekStatus logic_i(const T* src, T* srcdst, int len) {
  return binary_i<Op, T, T, T>(src, srcdst, len);
}

// d[i] = s[i] op val. A zero constant zero-fills (And) or copies (Or, Xor) through the block
// primitives, which is the same result.
template <class Op, class T>
VekStatus logic_c(const T* s, T val, T* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (val == 0 && Op::kWithZero == WithZero::kZero) return zero_exported(d, len);
  if (val == 0 && Op::kWithZero == WithZero::kSource) {
    return s == d ? vekStatusOk : copy_exported(s, d, len);
  }
  return const_op<Op, T, T, T>(s, val, d, len);
}
template <class Op, class T>
VekStatus logic_c_i(T val, T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  if (val == 0 && Op::kWithZero == WithZero::kZero) return zero_exported(srcdst, len);
  if (val == 0 && Op::kWithZero == WithZero::kSource) return vekStatusOk;
  return const_i<Op, T, T>(val, srcdst, len);
}

// d[i] = ~s[i].
template <class T>
VekStatus logic_not(const T* s, T* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  map<T>(
      static_cast<size_t>(len), d, [](auto x) { return ~x; }, s);
  return vekStatusOk;
}
template <class T>
VekStatus logic_not_i(T* srcdst, int len) {
  return logic_not(srcdst, srcdst, len);
}

}  // namespace veks
