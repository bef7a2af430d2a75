// Traits of the element types: complex elements are handled as arrays of their components, and
// integer limits are also given for the 128-bit lanes of the 64-bit operations.
#pragma once

#include <cstddef>
#include <limits>
#include <type_traits>

#include "veks.h"

namespace veks {

template <class T>
struct ElemTraits {
  using comp = T;
  static constexpr size_t comps = 1;
};
#define VEKS_COMPLEX_ELEM(C, R)        \
  template <>                          \
  struct ElemTraits<C> {               \
    using comp = R;                    \
    static constexpr size_t comps = 2; \
  };
VEKS_COMPLEX_ELEM(Vek8sc, Vek8s)
VEKS_COMPLEX_ELEM(Vek16sc, Vek16s)
VEKS_COMPLEX_ELEM(Vek32sc, Vek32s)
VEKS_COMPLEX_ELEM(Vek64sc, Vek64s)
VEKS_COMPLEX_ELEM(Vek32fc, Vek32f)
VEKS_COMPLEX_ELEM(Vek64fc, Vek64f)
#undef VEKS_COMPLEX_ELEM

// The component type of an element (Vek16s for Vek16sc) and the components per element.
template <class T>
using comp_t = typename ElemTraits<std::remove_const_t<T>>::comp;
template <class T>
inline constexpr size_t comps_v = ElemTraits<std::remove_const_t<T>>::comps;
template <class T>
inline constexpr bool is_complex_v = comps_v<T> == 2;

template <class T>
inline auto* comps_of(T* p) {
  using C = std::conditional_t<std::is_const_v<T>, const comp_t<T>, comp_t<T>>;
  return reinterpret_cast<C*>(p);
}

// Integer limits, also for __int128 (which the standard library leaves unspecialised in strict
// C++ mode).
template <class T>
struct Limits {
  static constexpr T min() { return std::numeric_limits<T>::min(); }
  static constexpr T max() { return std::numeric_limits<T>::max(); }
};
template <>
struct Limits<__int128> {
  static constexpr __int128 max() {
    return static_cast<__int128>(~static_cast<unsigned __int128>(0) >> 1);
  }
  static constexpr __int128 min() { return -max() - 1; }
};

}  // namespace veks
