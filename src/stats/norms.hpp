// Norms of a vector or of the difference of two vectors, and dot products. Floating-point data
// accumulates in several independent lane vectors combined in a tree; integer data accumulates
// exactly (64-bit lanes, or 32-bit lanes within blocks where no lane can overflow) and is scaled
// once at the end.
#pragma once

#include "stats/sums.hpp"

namespace veks::stats {

struct Inf {};
struct L1 {};
struct L2 {};
struct L2Sqr {};

// The bit pattern of a floating-point lane type as integers of the same width.
template <class V>
using bits_t = VecN<std::conditional_t<sizeof(lane_t<V>) == 4, int32_t, int64_t>, lanes_of<V>>;

template <class V>
inline bits_t<V> abs_bits(V v) {
  using B = bits_t<V>;
  return reinterpret_cast<B>(v) & simd::splat<B>(std::numeric_limits<lane_t<B>>::max());
}
template <class V>
inline V vabs(V v) {
  if constexpr (std::is_floating_point_v<lane_t<V>>) {
    return reinterpret_cast<V>(abs_bits(v));
  } else {
    return simd::select<V>(v < 0, -v, v);
  }
}
template <class T, class B>
inline T from_bits(B b) {
  T t;
  std::memcpy(&t, &b, sizeof t);
  return t;
}

// Exchanges the two parts of every complex value held in adjacent lanes.
inline F16 swap_pairs(F16 v) {
  return __builtin_shufflevector(v, v, 1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14);
}
template <class V>
requires(lanes_of<V> == 8) inline V swap_pairs(V v) {
  return __builtin_shufflevector(v, v, 1, 0, 3, 2, 5, 4, 7, 6);
}

// ---- norms -------------------------------------------------------------------------------------

// Floating-point real data: the largest magnitude (compared as bit patterns, so a NaN wins), the
// sum of magnitudes, or the sum of squares by fused multiply-add.
template <class K, class W, class X>
W norm_real_fp(const X& x, size_t n) {
  constexpr size_t N = 64 / sizeof(W);
  using V = VecN<W, N>;
  if constexpr (std::is_same_v<K, Inf>) {
    using B = bits_t<V>;
    B acc[4] = {};
    accumulate<N, 4>(
        n, acc, [](B& a, V v) { a = simd::vmax(a, abs_bits(v)); }, x);
    return from_bits<W>(reduce_lanes(tree<4>(acc, vmax_lane), vmax_lane));
  } else {
    V acc[4] = {};
    if constexpr (std::is_same_v<K, L1>) {
      accumulate<N, 4>(
          n, acc, [](V& a, V v) { a += vabs(v); }, x);
    } else {
      accumulate<N, 4>(
          n, acc, [](V& a, V v) { a = fmadd(v, v, a); }, x);
    }
    return sum_lanes(tree_sum<4>(acc));
  }
}

// Vek16s data (x in 32-bit lanes): the exact largest magnitude, sum of magnitudes (32-bit lanes
// over blocks of 65,536, blocks added in 64 bits) or sum of squares (64-bit lanes).
template <class K, class X>
uint64_t norm_16s(const X& x, size_t n) {
  using U32 = VecN<uint32_t, 16>;
  using U64 = VecN<uint64_t, 16>;
  if constexpr (std::is_same_v<K, Inf>) {
    I32x16 acc[4] = {};
    accumulate<16, 4>(
        n, acc, [](I32x16& a, I32x16 v) { a = simd::vmax(a, vabs(v)); }, x);
    return static_cast<uint64_t>(reduce_lanes(tree<4>(acc, vmax_lane), vmax_lane));
  } else if constexpr (std::is_same_v<K, L1>) {
    uint64_t total = 0;
    for (size_t b = 0; b < n; b += kIntBlock) {
      U32 acc[4] = {};
      auto xb = x;
      xb.advance(b);
      accumulate<16, 4>(
          std::min(kIntBlock, n - b), acc,
          [](U32& a, I32x16 v) { a += simd::convert<uint32_t>(vabs(v)); }, xb);
      total += sum_lanes(tree_sum<4>(acc));
    }
    return total;
  } else {
    U64 acc[2] = {};
    accumulate<16, 2>(
        n, acc,
        [](U64& a, I32x16 v) {
          const U32 u = simd::convert<uint32_t>(v);  // x^2 < 2^32 for differences of 16-bit data
          a += simd::convert<uint64_t>(u * u);
        },
        x);
    return sum_lanes(acc[0] + acc[1]);
  }
}

// Complex data (interleaved parts in lanes of W): the largest re^2 + im^2 (root taken at the
// end), the sum of magnitudes, or the sum of re^2 + im^2.
template <class K, class W, class X>
W norm_complex(const X& x, size_t m) {
  constexpr size_t N = 64 / sizeof(W);
  using V = VecN<W, N>;
  if constexpr (std::is_same_v<K, Inf>) {
    using B = bits_t<V>;
    B acc[2] = {};
    accumulate<N, 2>(
        m, acc,
        [](B& a, V v) {
          const V sq = v * v;
          a = simd::vmax(a, abs_bits(sq + swap_pairs(sq)));
        },
        x);
    return std::sqrt(from_bits<W>(reduce_lanes(simd::vmax(acc[0], acc[1]), vmax_lane)));
  } else if constexpr (std::is_same_v<K, L1>) {
    V acc[2] = {};
    accumulate<N, 2>(
        m, acc,
        [](V& a, V v) {
          const V sq = v * v;
          V mag = sq + swap_pairs(sq);
          if constexpr (N == 16) {
            mag = reinterpret_cast<V>(_mm512_maskz_sqrt_ps(0x5555, reinterpret_cast<__m512>(mag)));
          } else {
            mag = reinterpret_cast<V>(_mm512_maskz_sqrt_pd(0x55, reinterpret_cast<__m512d>(mag)));
          }
          a += mag;
        },
        x);
    return sum_lanes(acc[0] + acc[1]);
  } else {
    V acc[4] = {};
    accumulate<N, 4>(
        m, acc, [](V& a, V v) { a = fmadd(v, v, a); }, x);
    return std::sqrt(sum_lanes(tree_sum<4>(acc)));
  }
}

// A view of a Vek16s vector or a difference that can move its start.
template <class T>
struct Load16 : Load<int32_t, T> {
  void advance(size_t b) { this->p += b; }
};
template <class T>
struct Diff16 : Diff<int32_t, T> {
  void advance(size_t by) {
    this->a += by;
    this->b += by;
  }
};

// The result of norm K of x (n elements of S) as D; sf is used by integer destinations.
template <class K, class S, class D, class X>
D norm_value(const X& x, size_t n, int sf) {
  if constexpr (std::is_same_v<S, Vek16s>) {
    const uint64_t v = norm_16s<K>(x, n);
    if constexpr (std::is_floating_point_v<D>) {
      if constexpr (std::is_same_v<K, L2>) {
        return static_cast<D>(std::sqrt(static_cast<double>(v)));
      } else {
        return static_cast<D>(v);
      }
    } else if constexpr (std::is_same_v<K, L2>) {
      // The root in double, divided or multiplied by the double value of the 32-bit integer
      // 1 << (|sf| mod 32) (so sf = 31 divides by -2^31), then truncated toward zero.
      double r = std::sqrt(static_cast<double>(v));
      if (sf != 0) {
        const unsigned k = static_cast<unsigned>(sf > 0 ? sf : -static_cast<long long>(sf)) % 32;
        const double f = static_cast<int32_t>(1u << k);
        r = sf > 0 ? r / f : r * f;
      }
      if (r >= 2147483647.0) return 2147483647;
      if (r <= -2147483648.0) return -2147483647 - 1;
      return static_cast<D>(r);
    } else {
      return scale_exact<D>(static_cast<i128>(v), sf, 63, 8 * sizeof(D) - 1);
    }
  } else if constexpr (comps<S> == 2) {
    return static_cast<D>(norm_complex<K, D>(x, 2 * n));
  } else {
    const D r = norm_real_fp<K, D>(x, n);
    return std::is_same_v<K, L2> ? std::sqrt(r) : r;
  }
}

// The lane type a norm of S with result D computes in.
template <class S, class D>
using norm_lane_t = std::conditional_t<std::is_integral_v<S>, int32_t, D>;

template <class K, class S, class D>
VekStatus norm(const S* src, int len, D* dst) {
  VEKS_TRY(check_ptrs_len(len, src, dst));
  if constexpr (std::is_integral_v<S>) {
    *dst = norm_value<K, S, D>(Load16<S>{{src}}, static_cast<size_t>(len), 0);
  } else {
    *dst = norm_value<K, S, D>(Load<norm_lane_t<S, D>, comp_t<S>>{comps_of(src)},
                               static_cast<size_t>(len), 0);
  }
  return vekStatusOk;
}
template <class K, class S, class D>
VekStatus norm_sfs(const S* src, int len, D* dst, int sf) {
  VEKS_TRY(check_ptrs_len(len, src, dst));
  *dst = norm_value<K, S, D>(Load16<S>{{src}}, static_cast<size_t>(len), sf);
  return vekStatusOk;
}
template <class K, class S, class D>
VekStatus norm_diff(const S* a, const S* b, int len, D* dst) {
  VEKS_TRY(check_ptrs_len(len, a, b, dst));
  if constexpr (std::is_integral_v<S>) {
    *dst = norm_value<K, S, D>(Diff16<S>{{a, b}}, static_cast<size_t>(len), 0);
  } else {
    *dst = norm_value<K, S, D>(Diff<norm_lane_t<S, D>, comp_t<S>>{comps_of(a), comps_of(b)},
                               static_cast<size_t>(len), 0);
  }
  return vekStatusOk;
}
template <class K, class S, class D>
VekStatus norm_diff_sfs(const S* a, const S* b, int len, D* dst, int sf) {
  VEKS_TRY(check_ptrs_len(len, a, b, dst));
  *dst = norm_value<K, S, D>(Diff16<S>{{a, b}}, static_cast<size_t>(len), sf);
  return vekStatusOk;
}

// ---- dot products ------------------------------------------------------------------------------

// The elements of a real vector, each repeated for the two parts of a complex partner.
template <class W, class T>
struct Dup {
  const T* p;
  static VecN<W, 16> pairs(VecN<W, 8> v) {
    return __builtin_shufflevector(v, v, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7);
  }
  static VecN<W, 8> pairs(VecN<W, 4> v) {
    return __builtin_shufflevector(v, v, 0, 0, 1, 1, 2, 2, 3, 3);
  }
  template <size_t N>
  VecN<W, N> full(size_t i) const {
    return pairs(simd::convert<W>(simd::load<N / 2>(p + i / 2)));
  }
  template <size_t N>
  VecN<W, N> part(size_t i, size_t c) const {
    return pairs(simd::convert<W>(load_part<N / 2>(p + i / 2, c / 2)));
  }
};

template <class V>
inline V mul_add(V x, V y, V acc) {
  if constexpr (std::is_floating_point_v<lane_t<V>>) {
    return fmadd(x, y, acc);
  } else {
    return acc + x * y;
  }
}

// Exact integer products in 64-bit lanes, each split into its high and low 32 bits so that no
// lane can overflow for any length: the dot product is (sum hi) * 2^32 + sum lo.
struct HiLo {
  I64x8 hi, lo;
};

// The dot product of a and b (n elements) in lanes of W; out gets the components (real, or
// real and imaginary). Integer lanes give exact results.
template <class W, class R, class A, class B>
void dot_core(const A* a, const B* b, size_t n, R* out) {
  constexpr size_t N = 64 / sizeof(W);
  using V = VecN<W, N>;
  const auto* ca = comps_of(a);
  const auto* cb = comps_of(b);
  if constexpr (comps<A> == 1 && comps<B> == 1) {
    if constexpr (std::is_integral_v<W>) {
      HiLo acc[2] = {};
      accumulate<N, 2>(
          n, acc,
          [](HiLo& s, V x, V y) {
            const V p = x * y;
            s.hi += p >> 32;
            s.lo += p & 0xFFFFFFFF;
          },
          Load<W, comp_t<A>>{ca}, Load<W, comp_t<B>>{cb});
      const i128 hi = sum_lanes(acc[0].hi + acc[1].hi), lo = sum_lanes(acc[0].lo + acc[1].lo);
      out[0] = static_cast<R>(hi * (i128{1} << 32) + lo);
    } else {
      // Single precision: 32 lanes (two accumulators); from 1,121 elements on, the elements
      // before the first source's 64-byte boundary are a masked group of their own.
      constexpr size_t U = sizeof(W) == 4 ? 2 : 4;
      V acc[U] = {};
      size_t h = 0;
      if (sizeof(W) == 4 && n >= 1121) h = head_count<64>(a, n, sizeof(A));
      if (h > 0)
        acc[0] = fmadd(Load<W, A>{a}.template part<N>(0, h), Load<W, B>{b}.template part<N>(0, h),
                       acc[0]);
      accumulate<N, U>(
          n - h, acc, [](V& s, V x, V y) { s = fmadd(x, y, s); }, Load<W, A>{a + h},
          Load<W, B>{b + h});
      out[0] = static_cast<R>(sum_lanes(tree_sum<U>(acc)));
    }
  } else if constexpr (comps<A> == 2 && comps<B> == 2) {
    // Lanes of p hold re*re' and im*im', lanes of q re*im' and im*re'.
    struct PQ {
      V p, q;
    };
    PQ acc[2] = {};
    accumulate<N, 2>(
        2 * n, acc,
        [](PQ& s, V x, V y) {
          s.p = mul_add(x, y, s.p);
          s.q = mul_add(x, swap_pairs(y), s.q);
        },
        Load<W, comp_t<A>>{ca}, Load<W, comp_t<B>>{cb});
    W p[2], q[2];
    sum_comps<2>(acc[0].p + acc[1].p, p);
    sum_comps<2>(acc[0].q + acc[1].q, q);
    out[0] = static_cast<R>(p[0] - p[1]);
    out[1] = static_cast<R>(q[0] + q[1]);
  } else {
    static_assert(comps<A> == 1 && comps<B> == 2, "real times complex");
    V acc[4] = {};
    accumulate<N, 4>(
        2 * n, acc, [](V& s, V x, V y) { s = mul_add(x, y, s); }, Dup<W, A>{a},
        Load<W, comp_t<B>>{cb});
    W r[2];
    sum_comps<2>(tree_sum<4>(acc), r);
    out[0] = static_cast<R>(r[0]);
    out[1] = static_cast<R>(r[1]);
  }
}

// Floating-point and exact integer dot products, computed in lanes of W.
template <class W, class A, class B, class D>
VekStatus dot(const A* a, const B* b, int len, D* dst) {
  VEKS_TRY(check_ptrs_len(len, a, b, dst));
  using R = std::conditional_t<std::is_integral_v<W>, i128, W>;
  R v[comps<D>];
  dot_core<W>(a, b, static_cast<size_t>(len), v);
  store_parts(dst, v);
  return vekStatusOk;
}

// Exact integer dot products scaled with the factor clamped to 2^-31 .. 2^31.
template <class A, class B, class D>
VekStatus dot_sfs(const A* a, const B* b, int len, D* dst, int sf) {
  VEKS_TRY(check_ptrs_len(len, a, b, dst));
  i128 v;
  dot_core<int64_t>(a, b, static_cast<size_t>(len), &v);
  *dst = scale_exact<D>(v, sf, 31, 31);
  return vekStatusOk;
}

}  // namespace veks::stats
