// Checked shapes of the element-wise operations: each owns the argument checks of one signature
// pattern and runs the operation through map(), integer results under the scale-factor policy.
// An operation is a functor Op with `template <class L> static L apply(L x, L y)` on wide lanes,
// where x is the element of the first vector and y the second vector's element or the constant.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/check.hpp"
#include "frame/map.hpp"
#include "frame/scale.hpp"

namespace veks {

// The computing lane type of an element type: exact sums and products of two 8- or 16-bit
// values fit 32 bits, of two 32-bit values 64 bits; floating point computes in its own type.
template <class T>
using wide_t = std::conditional_t<std::is_floating_point_v<T>, T,
                                  std::conditional_t<(sizeof(T) <= 2), int32_t, int64_t>>;

// Zero-fills len elements through the exported Zero family, as results known to be zero are.
template <class T>
void zero_fill(T* d, int len) {
  if constexpr (sizeof(T) == 1) {
    veksZero_8u(reinterpret_cast<Vek8u*>(d), len);
  } else if constexpr (sizeof(T) == 2) {
    veksZero_16s(reinterpret_cast<Vek16s*>(d), len);
  } else if constexpr (sizeof(T) == 4) {
    veksZero_32s(reinterpret_cast<Vek32s*>(d), len);
  } else {
    static_assert(sizeof(T) == 8);
    veksZero_64s(reinterpret_cast<Vek64s*>(d), len);
  }
}

namespace detail {

struct Identity {
  template <class L>
  L operator()(L r) const {
    return r;
  }
};

// Calls run(finish) where finish maps an exact wide result to what is stored: identity for
// floating point, the scale policy of sf for integers (zero-filling instead when sf is beyond
// ZeroAbove).
template <class TD, int ZeroAbove, class Run>
void finish_with(TD* d, size_t n, int sf, Run&& run) {
  if constexpr (std::is_floating_point_v<TD>) {
    run(Identity{});
  } else {
    with_scale<TD>(sf, ZeroAbove, [&](auto scale) {
      if constexpr (std::is_same_v<decltype(scale), ScaleZero>) {
        zero_fill(d, static_cast<int>(n));
      } else {
        run(scale);
      }
    });
  }
}

template <class Op, int ZeroAbove, class W, class TS, class TD>
void run_binary(const TS* a, const TS* b, TD* d, size_t n, int sf) {
  finish_with<TD, ZeroAbove>(d, n, sf, [&](auto fin) {
    map<W>(
        n, d, [&](auto x, auto y) { return fin(Op::apply(x, y)); }, a, b);
  });
}

template <class Op, int ZeroAbove, class W, class TS, class TD>
void run_const(const TS* s, TS val, TD* d, size_t n, int sf) {
  finish_with<TD, ZeroAbove>(d, n, sf, [&](auto fin) {
    map<W>(
        n, d,
        [&](auto x) { return fin(Op::apply(x, simd::splat<decltype(x)>(static_cast<W>(val)))); },
        s);
  });
}

}  // namespace detail

// d[i] = Op(a[i], b[i]), scaled by 2^-sf and saturated for integer destinations.
template <class Op, int ZeroAbove, class TS, class TD = TS, class W = wide_t<TS>>
VekStatus binary_sfs(const TS* a, const TS* b, TD* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, a, b, d));
  detail::run_binary<Op, ZeroAbove, W>(a, b, d, static_cast<size_t>(len), sf);
  return vekStatusOk;
}
// In place: srcdst[i] = Op(src[i], srcdst[i]).
template <class Op, int ZeroAbove, class TS, class TD = TS, class W = wide_t<TS>>
VekStatus binary_isfs(const TS* src, TD* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, src, srcdst));
  detail::run_binary<Op, ZeroAbove, W>(src, srcdst, srcdst, static_cast<size_t>(len), sf);
  return vekStatusOk;
}
// d[i] = Op(s[i], val).
template <class Op, int ZeroAbove, class TS, class TD = TS, class W = wide_t<TS>>
VekStatus const_sfs(const TS* s, TS val, TD* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  detail::run_const<Op, ZeroAbove, W>(s, val, d, static_cast<size_t>(len), sf);
  return vekStatusOk;
}
// In place: srcdst[i] = Op(srcdst[i], val).
template <class Op, int ZeroAbove, class TS, class W = wide_t<TS>>
VekStatus const_isfs(TS val, TS* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  detail::run_const<Op, ZeroAbove, W>(srcdst, val, srcdst, static_cast<size_t>(len), sf);
  return vekStatusOk;
}

// The same shapes without a scale factor: floating point, or integers computed exactly and
// saturated to the destination (a scale factor of 0).
template <class Op, class TS, class TD = TS, class W = wide_t<TS>>
VekStatus binary(const TS* a, const TS* b, TD* d, int len) {
  return binary_sfs<Op, 0, TS, TD, W>(a, b, d, len, 0);
}
template <class Op, class TS, class TD = TS, class W = wide_t<TS>>
VekStatus binary_i(const TS* src, TD* srcdst, int len) {
  return binary_isfs<Op, 0, TS, TD, W>(src, srcdst, len, 0);
}
template <class Op, class TS, class TD = TS, class W = wide_t<TS>>
VekStatus const_op(const TS* s, TS val, TD* d, int len) {
  return const_sfs<Op, 0, TS, TD, W>(s, val, d, len, 0);
}
template <class Op, class TS, class W = wide_t<TS>>
VekStatus const_i(TS val, TS* srcdst, int len) {
  return const_isfs<Op, 0, TS, W>(val, srcdst, len, 0);
}

}  // namespace veks
