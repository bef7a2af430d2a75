// Thresholding: each element compared with a level and, on the wrong side of it, replaced by the
// level, a given value, the level with the element's sign, or (LTInv) its reciprocal after its
// magnitude is raised to the level. Real types compare values; complex types compare magnitudes
// and keep the phase. Every member exists out of place and in place (the same code with the
// source as destination). Checks: pointers, length, relation (-5), negative level (-19), crossed
// levels (-18).
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "convert/fpenv.hpp"
#include "convert/lanes.hpp"
#include "frame/check.hpp"
#include "frame/map.hpp"
#include "frame/split.hpp"

namespace veks::thr {

template <class T>
inline constexpr bool is_float = std::is_floating_point_v<T>;

// The unsigned integer of a floating-point type's width, for bit-pattern work.
template <class T>
using bits_t = std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>;

template <class T>
inline bits_t<T> bits_of(T x) {
  bits_t<T> b;
  std::memcpy(&b, &x, sizeof b);
  return b;
}

// Runs d[i] = f(s[i]) in lanes of W; floating point under a scope that keeps the caller's flags
// (comparisons with NaN signal).
template <class W, class T, class F>
VekStatus each(const T* s, T* d, int len, F&& f) {
  const size_t n = static_cast<size_t>(len);
  if constexpr (is_float<T>) {
    const FpScope fp;
    map<W>(n, d, f, s);
  } else {
    map<W>(n, d, f, s);
  }
  return vekStatusOk;
}

// Lane type in which |x| of an integer element is exact (|-32768| = 32768).
template <class T>
using abs_lane_t =
    std::conditional_t<is_float<T>, T, std::conditional_t<sizeof(T) == 2, int32_t, int64_t>>;

// ---- real members ------------------------------------------------------------------------------

template <class T>
VekStatus lt(const T* s, T* d, int len, T level) {  // level where x < level
  VEKS_TRY(check_ptrs_len(len, s, d));
  return each<T>(s, d, len, [level](auto x) {
    return simd::select<decltype(x)>(x < level, simd::splat<decltype(x)>(level), x);
  });
}
template <class T>
VekStatus gt(const T* s, T* d, int len, T level) {  // level where x > level
  VEKS_TRY(check_ptrs_len(len, s, d));
  return each<T>(s, d, len, [level](auto x) {
    return simd::select<decltype(x)>(x > level, simd::splat<decltype(x)>(level), x);
  });
}
template <class T>
VekStatus rel(const T* s, T* d, int len, T level, int relation) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (relation != 0 && relation != 4) return vekStatusBadArg;
  return relation == 0 ? lt(s, d, len, level) : gt(s, d, len, level);
}
template <class T>
VekStatus lt_val(const T* s, T* d, int len, T level, T value) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  return each<T>(s, d, len, [=](auto x) {
    return simd::select<decltype(x)>(x < level, simd::splat<decltype(x)>(value), x);
  });
}
template <class T>
VekStatus gt_val(const T* s, T* d, int len, T level, T value) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  return each<T>(s, d, len, [=](auto x) {
    return simd::select<decltype(x)>(x > level, simd::splat<decltype(x)>(value), x);
  });
}
template <class T>
VekStatus lt_val_gt_val(const T* s, T* d, int len, T level_lt, T value_lt, T level_gt, T value_gt) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (level_lt > level_gt) return vekStatusLevelsCrossed;
  return each<T>(s, d, len, [=](auto x) {
    using L = decltype(x);
    return simd::select<L>(x < level_lt, simd::splat<L>(value_lt),
                           simd::select<L>(x > level_gt, simd::splat<L>(value_gt), x));
  });
}

// |x| compared with level as unsigned bit patterns (floating point: NaN lies above every level,
// -0 stays -0) or exactly in a wider integer; Less selects LTAbs, otherwise GTAbs.
template <bool Less, class T>
VekStatus abs_level(const T* s, T* d, int len, T level) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (level < 0) return vekStatusNegativeLevel;
  if constexpr (is_float<T>) {
    using B = bits_t<T>;
    constexpr B kSign = B{1} << (8 * sizeof(T) - 1);
    const B lb = bits_of(level) & ~kSign;
    return each<B>(reinterpret_cast<const B*>(s), reinterpret_cast<B*>(d), len, [=](auto u) {
      using L = decltype(u);
      const L a = u & ~kSign;
      const L m =
          Less ? simd::vmax<L>(a, simd::splat<L>(lb)) : simd::vmin<L>(a, simd::splat<L>(lb));
      return L(m | (u & kSign));
    });
  } else {
    using W = abs_lane_t<T>;
    const W lw = level;
    return each<W>(s, d, len, [=](auto x) {
      using L = decltype(x);
      const L z = simd::splat<L>(0), a = simd::select<L>(x < z, -x, x);
      const L signed_level = simd::select<L>(x < z, simd::splat<L>(-lw), simd::splat<L>(lw));
      return simd::select<L>(Less ? (a < lw) : (a > lw), signed_level, x);
    });
  }
}
template <class T>
VekStatus lt_abs(const T* s, T* d, int len, T level) {
  return abs_level<true>(s, d, len, level);
}
template <class T>
VekStatus gt_abs(const T* s, T* d, int len, T level) {
  return abs_level<false>(s, d, len, level);
}

// value where |x| < level; any level (a negative one replaces nothing).
template <class T>
VekStatus lt_abs_val(const T* s, T* d, int len, T level, T value) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  using W = abs_lane_t<T>;
  const W lw = level, vw = value;
  return each<W>(s, d, len, [=](auto x) {
    using L = decltype(x);
    L a;
    if constexpr (is_float<T>) {
      using B = bits_t<T>;
      using BL = simd::VecN<B, simd::lanes_of<L>>;
      a = reinterpret_cast<L>(reinterpret_cast<BL>(x) & ~(B{1} << (8 * sizeof(T) - 1)));
    } else {
      a = simd::select<L>(x < 0, -x, x);
    }
    return simd::select<L>(a < lw, simd::splat<L>(vw), x);
  });
}

// ---- LTInv ------------------------------------------------------------------------------------

inline constexpr int kInvThreaded = 8192;  // elements from which LTInv splits its work

// Status of LTInv from the kernels' flag: a zero met with level 0 warns with 4 on the calling
// thread and with 6 on the threaded path.
inline VekStatus inv_status(int flagged, int len) {
  if (flagged == 0) return vekStatusOk;
  return len >= kInvThreaded ? vekStatusWarnZeroDivisor : vekStatusWarnSingular;
}

// 1 / (sign(x) * max(|x|, level)); level 0: the plain reciprocal, a zero giving an infinity of
// its sign and a non-zero kernel flag. Exceptions are masked in every thread that runs it.
template <class T>
VekStatus lt_inv(const T* s, T* d, int len, T level) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (level < 0) return vekStatusNegativeLevel;
  using B = bits_t<T>;
  constexpr B kSign = B{1} << (8 * sizeof(T) - 1);
  const bool plain = level == 0;
  const B lb = bits_of(level) & ~kSign;
  const int flagged = run_split(len, kInvThreaded, [=](int first, int count) -> int {
    const FpScope fp;
    const size_t n = static_cast<size_t>(count), at = static_cast<size_t>(first);
    const B* in = reinterpret_cast<const B*>(s) + at;
    if (plain) {
      bool zero = false;
      for (size_t i = 0; i < n; ++i) zero |= (in[i] & ~kSign) == 0;
      map<T>(
          n, d + at, [](auto x) { return T{1} / x; }, s + at);
      return zero ? 1 : 0;
    }
    map<B>(
        n, reinterpret_cast<B*>(d + at),
        [=](auto u) {
          using L = decltype(u);
          using FL = simd::VecN<T, simd::lanes_of<L>>;
          const L m = simd::vmax<L>(u & ~kSign, simd::splat<L>(lb)) | (u & kSign);
          return reinterpret_cast<L>(T{1} / reinterpret_cast<FL>(m));
        },
        in);
    return 0;
  });
  return inv_status(flagged, len);
}

// ---- complex members ---------------------------------------------------------------------------

template <class C>
using part_t = decltype(C{}.re);

// Complex elements are worked on as interleaved parts in binary64 lanes: even lanes real parts,
// odd lanes imaginary parts, a pair never split across vectors.
using D8 = simd::VecN<double, 8>;
using I8 = simd::VecN<int64_t, 8>;

inline D8 swap_pairs(D8 v) { return __builtin_shufflevector(v, v, 1, 0, 3, 2, 5, 4, 7, 6); }
inline D8 pairs(double re, double im) { return D8{re, im, re, im, re, im, re, im}; }
inline D8 vabs(D8 v) { return reinterpret_cast<D8>(reinterpret_cast<I8>(v) & INT64_MAX); }

// |x| of each element in both lanes of its pair: through the sum of squares for 16-bit and
// binary32 parts (exact or nearly so in binary64), scaled by the larger part for binary64 parts so
// that it neither overflows nor underflows.
template <class T>
inline D8 magnitude(D8 x) {
  if constexpr (std::is_same_v<T, double>) {
    const D8 a = vabs(x), b = swap_pairs(a);
    const D8 big = simd::vmax<D8>(a, b), q = simd::vmin<D8>(a, b) / big;
    const D8 root = reinterpret_cast<D8>(_mm512_sqrt_pd(reinterpret_cast<__m512d>(1.0 + q * q)));
    const D8 m = simd::select<D8>((big == 0.0) | (big == HUGE_VAL), big, big * root);
    return simd::select<D8>((a != a) | (b != b), a + b, m);  // a NaN part: NaN in both lanes
  } else {
    const D8 sq = x * x;
    return reinterpret_cast<D8>(_mm512_sqrt_pd(reinterpret_cast<__m512d>(sq + swap_pairs(sq))));
  }
}

// Rounds binary64 lanes to integral values, ties to even (for 16-bit complex results).
inline D8 round_even(D8 v) {
  return reinterpret_cast<D8>(_mm512_roundscale_pd(reinterpret_cast<__m512d>(v),
                                                   _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

// x moved to magnitude level along its own argument; a zero element (no argument) becomes level.
template <class T>
inline D8 to_level(D8 x, D8 mag, double level) {
  const D8 moved = x * (level / mag);
  const D8 r = simd::select<D8>(mag == 0.0, pairs(level, 0.0), moved);
  return std::is_same_v<T, double> || std::is_same_v<T, float> ? r : round_even(r);
}

// Runs f over the parts of n complex elements in binary64 lanes.
template <class C, class F>
void each_complex(const C* s, C* d, size_t n, F&& f) {
  using T = part_t<C>;
  const FpScope fp;
  map<double>(2 * n, reinterpret_cast<T*>(d), f, reinterpret_cast<const T*>(s));
}

template <class C>
void fill_zero(C* d, int len) {
  if constexpr (std::is_same_v<C, Vek16sc>) veksZero_16sc(d, len);
  if constexpr (std::is_same_v<C, Vek32fc>) veksZero_32fc(d, len);
  if constexpr (std::is_same_v<C, Vek64fc>) veksZero_64fc(d, len);
}
template <class C>
void copy(const C* s, C* d, int len) {
  if (s == d) return;
  if constexpr (std::is_same_v<C, Vek16sc>) veksCopy_16sc(s, d, len);
  if constexpr (std::is_same_v<C, Vek32fc>) veksCopy_32fc(s, d, len);
  if constexpr (std::is_same_v<C, Vek64fc>) veksCopy_64fc(s, d, len);
}

// Elements whose magnitude is below (Less) or above the level move to magnitude level keeping
// their argument. Level 0: nothing is below it (a copy), and everything is taken as above it (the
// destination is zeroed).
template <bool Less, class C>
VekStatus c_level(const C* s, C* d, int len, part_t<C> level) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (level < 0) return vekStatusNegativeLevel;
  if (level == 0) {
    if (Less) {
      copy(s, d, len);
    } else {
      fill_zero(d, len);
    }
    return vekStatusOk;
  }
  using T = part_t<C>;
  const double lv = static_cast<double>(level);
  each_complex(s, d, static_cast<size_t>(len), [lv](D8 x) {
    const D8 mag = magnitude<T>(x);
    return simd::select<D8>(Less ? (mag < lv) : (mag > lv), to_level<T>(x, mag, lv), x);
  });
  return vekStatusOk;
}
template <class C>
VekStatus c_lt(const C* s, C* d, int len, part_t<C> level) {
  return c_level<true>(s, d, len, level);
}
template <class C>
VekStatus c_gt(const C* s, C* d, int len, part_t<C> level) {
  return c_level<false>(s, d, len, level);
}
template <class C>
VekStatus c_rel(const C* s, C* d, int len, part_t<C> level, int relation) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (relation != 0 && relation != 4) return vekStatusBadArg;
  return relation == 0 ? c_lt(s, d, len, level) : c_gt(s, d, len, level);
}

// value where the magnitude is below (Less) or above the level.
template <bool Less, class C>
VekStatus c_val(const C* s, C* d, int len, part_t<C> level, C value) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (level < 0) return vekStatusNegativeLevel;
  using T = part_t<C>;
  const double lv = static_cast<double>(level);
  const D8 v = pairs(static_cast<double>(value.re), static_cast<double>(value.im));
  each_complex(s, d, static_cast<size_t>(len), [lv, v](D8 x) {
    const D8 mag = magnitude<T>(x);
    return simd::select<D8>(Less ? (mag < lv) : (mag > lv), v, x);
  });
  return vekStatusOk;
}
template <class C>
VekStatus c_lt_val(const C* s, C* d, int len, part_t<C> level, C value) {
  return c_val<true>(s, d, len, level, value);
}
template <class C>
VekStatus c_gt_val(const C* s, C* d, int len, part_t<C> level, C value) {
  return c_val<false>(s, d, len, level, value);
}

// 1 / x' where x' is x moved to magnitude level when below it; level 0: the plain reciprocal, a
// zero element giving (infinity with the real part's sign, zero with the imaginary part's sign
// reversed) and a non-zero kernel flag.
template <class C>
VekStatus c_lt_inv(const C* s, C* d, int len, part_t<C> level) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (level < 0) return vekStatusNegativeLevel;
  using T = part_t<C>;
  const double lv = static_cast<double>(level);
  const int flagged = run_split(len, kInvThreaded, [=](int first, int count) -> int {
    const size_t at = static_cast<size_t>(first), n = static_cast<size_t>(count);
    bool zero = false;
    if (lv == 0) {
      const T* in = reinterpret_cast<const T*>(s + at);
      for (size_t i = 0; i < n; ++i) zero |= in[2 * i] == 0 && in[2 * i + 1] == 0;
    }
    each_complex(s + at, d + at, n, [lv](D8 x) {
      const D8 mag = magnitude<T>(x);
      const D8 y = lv > 0 ? simd::select<D8>(mag < lv, to_level<T>(x, mag, lv), x) : x;
      // 1/y = conj(y) / |y|^2, with y scaled by its larger part so that |y|^2 stays finite.
      const D8 a = vabs(y), big = simd::vmax<D8>(a, swap_pairs(a));
      const D8 u = y / big, conj = u * D8{1, -1, 1, -1, 1, -1, 1, -1};
      const D8 den = (u * u + swap_pairs(u * u)) * big;
      const D8 inv = conj / den;
      const I8 sign =
          (reinterpret_cast<I8>(y) ^ I8{0, INT64_MIN, 0, INT64_MIN, 0, INT64_MIN, 0, INT64_MIN}) &
          INT64_MIN;
      const D8 at_zero = reinterpret_cast<D8>(
          sign | reinterpret_cast<I8>(D8{HUGE_VAL, 0, HUGE_VAL, 0, HUGE_VAL, 0, HUGE_VAL, 0}));
      const D8 at_inf = reinterpret_cast<D8>(sign);  // 1 / infinity: a zero of conj(y)'s signs
      return simd::select<D8>(big == 0.0, at_zero, simd::select<D8>(big == HUGE_VAL, at_inf, inv));
    });
    return zero ? 1 : 0;
  });
  return inv_status(flagged, len);
}

// ---- in place: the same members with the source as destination --------------------------------

template <auto Member, class E, class... A>
VekStatus in_place(E* sd, int len, A... a) {
  return Member(sd, sd, len, a...);
}

}  // namespace veks::thr
