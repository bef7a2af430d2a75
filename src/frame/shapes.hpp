// Checked shapes of the element-wise operations: each owns the argument checks of one signature
// pattern and runs the operation through map(), integer results under the scale-factor policy.
//
// An operation is a functor Op with a static `apply` on lanes of a wide computing type W: two
// lanes for binary shapes (x from the first vector, y from the second vector or the constant),
// one for unary shapes, three for the accumulating shape (x, y, and the accumulator z). Complex
// elements are processed as their interleaved components: an Op for complex data sees the real
// parts in even lanes and the imaginary parts in odd lanes (see simd::pair helpers).
//
// Template arguments: Op, the zero-fill bound (scale factors above it make every result zero),
// then optionally W; element types are deduced from the arguments. The default W is the
// destination's component type for floating-point destinations, otherwise a signed integer
// twice as wide as the widest integer involved.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/check.hpp"
#include "frame/map.hpp"
#include "frame/scale.hpp"
#include "frame/types.hpp"
#include "frame/wide16.hpp"

namespace veks {

// The exact computing lane type of integer sums and products of the given width.
template <class T>
using wide_t =
    std::conditional_t<std::is_floating_point_v<T>, T,
                       std::conditional_t<(sizeof(T) <= 2), int32_t,
                                          std::conditional_t<(sizeof(T) == 4), int64_t, __int128>>>;

// Zero-fills len elements through the exported Zero family, as results known to be zero are.
template <class T>
void zero_fill(T* d, int len) {
  if constexpr (sizeof(T) == 1) {
    veksZero_8u(reinterpret_cast<Vek8u*>(d), len);
  } else if constexpr (sizeof(T) == 2) {
    veksZero_16s(reinterpret_cast<Vek16s*>(d), len);
  } else if constexpr (sizeof(T) == 4) {
    veksZero_32s(reinterpret_cast<Vek32s*>(d), len);
  } else if constexpr (sizeof(T) == 8) {
    veksZero_64s(reinterpret_cast<Vek64s*>(d), len);
  } else {
    static_assert(sizeof(T) == 16);
    veksZero_64sc(reinterpret_cast<Vek64sc*>(d), len);
  }
}

// Lanes of L holding the element v everywhere: a real value in every lane, or a complex value
// as (re, im) pairs.
template <class L, class T>
inline L splat_elem(const T& v) {
  using S = simd::lane_t<L>;
  if constexpr (is_complex_v<T>) {
    return simd::pairs<L>(static_cast<S>(v.re), static_cast<S>(v.im));
  } else {
    return simd::splat<L>(static_cast<S>(v));
  }
}

namespace detail {

template <class T, class... Ts>
struct Widest {
  using type = T;
};
template <class T, class U, class... Ts>
struct Widest<T, U, Ts...> : Widest<std::conditional_t<(sizeof(U) > sizeof(T)), U, T>, Ts...> {};

template <class W, class TD, class... TS>
using lane_type_t = std::conditional_t<
    !std::is_void_v<W>, W,
    std::conditional_t<std::is_floating_point_v<comp_t<TD>>, comp_t<TD>,
                       wide_t<typename Widest<comp_t<TD>, comp_t<TS>...>::type>>>;

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
void finish_with(TD* d, int len, int sf, Run&& run) {
  using CD = comp_t<TD>;
  if constexpr (std::is_floating_point_v<CD>) {
    run(Identity{});
  } else {
    with_scale<CD>(sf, ZeroAbove, [&](auto scale) {
      if constexpr (std::is_same_v<decltype(scale), ScaleZero>) {
        zero_fill(d, len);
      } else {
        run(scale);
      }
    });
  }
}

// d[i] = finish(f(s[i]...)) over the components of len elements.
template <int ZeroAbove, class W, class TD, class F, class... TS>
void run(TD* d, int len, int sf, F&& f, const TS*... s) {
  finish_with<TD, ZeroAbove>(d, len, sf, [&](auto fin) {
    map<W>(
        static_cast<size_t>(len) * comps_v<TD>, comps_of(d),
        [&](auto... x) { return fin(f(x...)); }, comps_of(s)...);
  });
}

template <class Op>
inline constexpr auto apply_op = [](auto... x) { return Op::apply(x...); };

// Op(x, val) with the constant spread over the lanes.
template <class Op, class T>
auto with_const(const T& val) {
  return [val](auto x) { return Op::apply(x, splat_elem<decltype(x)>(val)); };
}

// 16-bit operations with their own exact 32-bit step (src/frame/wide16.hpp).
template <class Op, class W, class TA, class TB, class TD>
inline constexpr bool use_wide16 =
    HasExact16<Op> && (std::is_void_v<W> || std::is_same_v<W, int32_t>)&&std::is_same_v<
                          TA, Vek16s>&& std::is_same_v<TB, Vek16s>&& std::is_same_v<TD, Vek16s>;

template <class Op, int ZeroAbove>
void run16(const Vek16s* x, const Vek16s* y, Vek16s yconst, Vek16s* d, int len, int sf) {
  if (sf > ZeroAbove) {
    zero_fill(d, len);
    return;
  }
  wide16::apply<Op>(x, y, _mm512_set1_epi16(yconst), d, static_cast<size_t>(len), sf);
}

}  // namespace detail

// d[i] = Op(a[i], b[i]), scaled by 2^-sf and saturated for integer destinations.
template <class Op, int ZeroAbove, class W = void, class TA, class TB, class TD>
VekStatus binary_sfs(const TA* a, const TB* b, TD* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, a, b, d));
  if constexpr (detail::use_wide16<Op, W, TA, TB, TD>) {
    detail::run16<Op, ZeroAbove>(a, b, 0, d, len, sf);
  } else {
    detail::run<ZeroAbove, detail::lane_type_t<W, TD, TA, TB>>(d, len, sf, detail::apply_op<Op>, a,
                                                               b);
  }
  return vekStatusOk;
}
// In place: srcdst[i] = Op(src[i], srcdst[i]).
template <class Op, int ZeroAbove, class W = void, class TA, class TD>
VekStatus binary_isfs(const TA* src, TD* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, src, srcdst));
  detail::run<ZeroAbove, detail::lane_type_t<W, TD, TA>>(srcdst, len, sf, detail::apply_op<Op>, src,
                                                         static_cast<const TD*>(srcdst));
  return vekStatusOk;
}
// d[i] = Op(s[i], val).
template <class Op, int ZeroAbove, class W = void, class TS, class TD>
VekStatus const_sfs(const TS* s, TS val, TD* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  detail::run<ZeroAbove, detail::lane_type_t<W, TD, TS>>(d, len, sf, detail::with_const<Op>(val),
                                                         s);
  return vekStatusOk;
}
// In place: srcdst[i] = Op(srcdst[i], val).
template <class Op, int ZeroAbove, class W = void, class TS>
VekStatus const_isfs(TS val, TS* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  if constexpr (detail::use_wide16<Op, W, TS, TS, TS>) {
    detail::run16<Op, ZeroAbove>(srcdst, nullptr, val, srcdst, len, sf);
  } else {
    detail::run<ZeroAbove, detail::lane_type_t<W, TS>>(srcdst, len, sf, detail::with_const<Op>(val),
                                                       static_cast<const TS*>(srcdst));
  }
  return vekStatusOk;
}
// d[i] = Op(s[i]).
template <class Op, int ZeroAbove, class W = void, class TS, class TD>
VekStatus unary_sfs(const TS* s, TD* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  detail::run<ZeroAbove, detail::lane_type_t<W, TD, TS>>(d, len, sf, detail::apply_op<Op>, s);
  return vekStatusOk;
}
template <class Op, int ZeroAbove, class W = void, class T>
VekStatus unary_isfs(T* srcdst, int len, int sf) {
  return unary_sfs<Op, ZeroAbove, W>(static_cast<const T*>(srcdst), srcdst, len, sf);
}
// Accumulating: srcdst[i] = Op(a[i], b[i], srcdst[i]).
template <class Op, int ZeroAbove, class W = void, class TA, class TB, class TD>
VekStatus accumulate_sfs(const TA* a, const TB* b, TD* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, a, b, srcdst));
  detail::run<ZeroAbove, detail::lane_type_t<W, TD, TA, TB>>(srcdst, len, sf, detail::apply_op<Op>,
                                                             a, b, static_cast<const TD*>(srcdst));
  return vekStatusOk;
}
// Accumulating with a constant: srcdst[i] = Op(s[i], val, srcdst[i]).
template <class Op, class W = void, class TS, class TD>
VekStatus accumulate_const(const TS* s, TS val, TD* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, s, srcdst));
  detail::run<0, detail::lane_type_t<W, TD, TS>>(
      srcdst, len, 0,
      [val](auto x, auto z) { return Op::apply(x, splat_elem<decltype(x)>(val), z); }, s,
      static_cast<const TD*>(srcdst));
  return vekStatusOk;
}

// The same shapes without a scale factor: floating point, or integers computed exactly and
// saturated to the destination (a scale factor of 0).
template <class Op, class W = void, class TA, class TB, class TD>
VekStatus binary(const TA* a, const TB* b, TD* d, int len) {
  return binary_sfs<Op, 0, W>(a, b, d, len, 0);
}
template <class Op, class W = void, class TA, class TD>
VekStatus binary_i(const TA* src, TD* srcdst, int len) {
  return binary_isfs<Op, 0, W>(src, srcdst, len, 0);
}
template <class Op, class W = void, class TS, class TD>
VekStatus const_op(const TS* s, TS val, TD* d, int len) {
  return const_sfs<Op, 0, W>(s, val, d, len, 0);
}
template <class Op, class W = void, class TS>
VekStatus const_i(TS val, TS* srcdst, int len) {
  return const_isfs<Op, 0, W>(val, srcdst, len, 0);
}
template <class Op, class W = void, class TS, class TD>
VekStatus unary(const TS* s, TD* d, int len) {
  return unary_sfs<Op, 0, W>(s, d, len, 0);
}
template <class Op, class W = void, class T>
VekStatus unary_i(T* srcdst, int len) {
  return unary_isfs<Op, 0, W>(srcdst, len, 0);
}
template <class Op, class W = void, class TA, class TB, class TD>
VekStatus accumulate(const TA* a, const TB* b, TD* srcdst, int len) {
  return accumulate_sfs<Op, 0, W>(a, b, srcdst, len, 0);
}

}  // namespace veks
