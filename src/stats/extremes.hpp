// Extremes and their first indices, element-wise minima and maxima, the order of the largest
// magnitude, nearest table entries, counting inside an open interval and zero crossings.
//
// Index searches run in chunks of 2 KiB: lane-wise minima and maxima of a chunk (four
// independent vectors) update a per-lane record of the best key and the first chunk where each
// lane reached it (strictly better only). The first chunk holding the final extreme follows from
// that record, and its first element equal to the extreme is the index the sequential rule
// (replace only on strictly better) reports. Floating-point data also carries a cheap probe per
// chunk (a lane sum, NaN when the chunk may hold a NaN); the first NaN ends the search and is the
// result, value and index, of every minimum and maximum.
#pragma once

#include <bit>

#include "frame/map.hpp"
#include "stats/reduce.hpp"

namespace veks::stats {

// ---- keys: what the searches compare -----------------------------------------------------------

template <class V, class To>
using recast_t = VecN<To, lanes_of<V>>;

// The element itself.
struct Plain {
  template <class X>
  X operator()(X x) const {
    return x;
  }
};
// The magnitude: integers as unsigned values of the same width (|-32768| is 32768), floating
// point with the sign bit cleared.
struct Magnitude {
  template <class X>
  auto operator()(X x) const {
    using T = simd::lane_t<X>;
    if constexpr (std::is_floating_point_v<T>) {
      using I = std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>;
      if constexpr (simd::is_vector<X>) {
        using B = recast_t<X, I>;
        return reinterpret_cast<X>(reinterpret_cast<B>(x) &
                                   simd::splat<B>(std::numeric_limits<I>::max() >> 1));
      } else {
        return std::fabs(x);
      }
    } else {
      using U = std::make_unsigned_t<T>;
      if constexpr (simd::is_vector<X> && sizeof(X) == 64 && sizeof(T) == 2) {
        return reinterpret_cast<recast_t<X, U>>(_mm512_abs_epi16(reinterpret_cast<__m512i>(x)));
      } else if constexpr (simd::is_vector<X> && sizeof(X) == 64 && sizeof(T) == 4) {
        return reinterpret_cast<recast_t<X, U>>(_mm512_abs_epi32(reinterpret_cast<__m512i>(x)));
      } else if constexpr (simd::is_vector<X>) {
        using B = recast_t<X, U>;
        const B s = reinterpret_cast<B>(x >> (8 * sizeof(T) - 1));
        return (reinterpret_cast<B>(x) ^ s) - s;
      } else {
        const U s = static_cast<U>(x >> (8 * sizeof(T) - 1));
        return static_cast<U>((static_cast<U>(x) ^ s) - s);
      }
    }
  }
};

template <class Key, class T>
using key_t = decltype(Key{}(T{}));

// Lane-wise maximum (kMax) or minimum of 512-bit vectors in one instruction; a NaN in v is
// ignored (the result keeps m).
template <bool kMax, class V>
inline V pick_lanes(V v, V m) {
  using T = lane_t<V>;
  const __m512i a = reinterpret_cast<__m512i>(v), b = reinterpret_cast<__m512i>(m);
  constexpr bool s = std::is_signed_v<T>;
  if constexpr (std::is_same_v<T, float>) {
    const __m512 x = reinterpret_cast<__m512>(v), y = reinterpret_cast<__m512>(m);
    return reinterpret_cast<V>(kMax ? _mm512_max_ps(x, y) : _mm512_min_ps(x, y));
  } else if constexpr (std::is_same_v<T, double>) {
    const __m512d x = reinterpret_cast<__m512d>(v), y = reinterpret_cast<__m512d>(m);
    return reinterpret_cast<V>(kMax ? _mm512_max_pd(x, y) : _mm512_min_pd(x, y));
  } else if constexpr (sizeof(T) == 1) {
    return reinterpret_cast<V>(kMax ? (s ? _mm512_max_epi8(a, b) : _mm512_max_epu8(a, b))
                                    : (s ? _mm512_min_epi8(a, b) : _mm512_min_epu8(a, b)));
  } else if constexpr (sizeof(T) == 2) {
    return reinterpret_cast<V>(kMax ? (s ? _mm512_max_epi16(a, b) : _mm512_max_epu16(a, b))
                                    : (s ? _mm512_min_epi16(a, b) : _mm512_min_epu16(a, b)));
  } else if constexpr (sizeof(T) == 4) {
    return reinterpret_cast<V>(kMax ? (s ? _mm512_max_epi32(a, b) : _mm512_max_epu32(a, b))
                                    : (s ? _mm512_min_epi32(a, b) : _mm512_min_epu32(a, b)));
  } else {
    return reinterpret_cast<V>(kMax ? (s ? _mm512_max_epi64(a, b) : _mm512_max_epu64(a, b))
                                    : (s ? _mm512_min_epi64(a, b) : _mm512_min_epu64(a, b)));
  }
}

// Lanes 0..N-1 as a vector of unsigned integers of the lane width of V.
template <class V>
inline auto lane_iota() {
  using U = std::conditional_t<
      sizeof(lane_t<V>) == 1, uint8_t,
      std::conditional_t<sizeof(lane_t<V>) == 2, uint16_t,
                         std::conditional_t<sizeof(lane_t<V>) == 4, uint32_t, uint64_t>>>;
  using I = recast_t<V, U>;
  I v;
  for (size_t i = 0; i < lanes_of<V>; ++i) v[i] = static_cast<U>(i);
  return v;
}

enum class Cmp { eq, lt, gt, unord };

// The lanes of a `c` b as bits, lane 0 lowest: one comparison into a mask register (a vector
// comparison result would take two more instructions to become a mask).
template <Cmp c, class V>
inline uint64_t cmp_mask(V a, V b) {
  using T = lane_t<V>;
  if constexpr (std::is_floating_point_v<T>) {
    constexpr int p = c == Cmp::eq   ? _CMP_EQ_OQ
                      : c == Cmp::lt ? _CMP_LT_OQ
                      : c == Cmp::gt ? _CMP_GT_OQ
                                     : _CMP_UNORD_Q;
    if constexpr (sizeof(T) == 4) {
      return _mm512_cmp_ps_mask(reinterpret_cast<__m512>(a), reinterpret_cast<__m512>(b), p);
    } else {
      return _mm512_cmp_pd_mask(reinterpret_cast<__m512d>(a), reinterpret_cast<__m512d>(b), p);
    }
  } else {
    static_assert(c != Cmp::unord, "integers are always ordered");
    constexpr int p = c == Cmp::eq ? _MM_CMPINT_EQ : c == Cmp::lt ? _MM_CMPINT_LT : _MM_CMPINT_NLE;
    const __m512i x = reinterpret_cast<__m512i>(a), y = reinterpret_cast<__m512i>(b);
    constexpr bool s = std::is_signed_v<T>;
    if constexpr (sizeof(T) == 1) {
      return s ? _mm512_cmp_epi8_mask(x, y, p) : _mm512_cmp_epu8_mask(x, y, p);
    } else if constexpr (sizeof(T) == 2) {
      return s ? _mm512_cmp_epi16_mask(x, y, p) : _mm512_cmp_epu16_mask(x, y, p);
    } else if constexpr (sizeof(T) == 4) {
      return s ? _mm512_cmp_epi32_mask(x, y, p) : _mm512_cmp_epu32_mask(x, y, p);
    } else {
      return s ? _mm512_cmp_epi64_mask(x, y, p) : _mm512_cmp_epu64_mask(x, y, p);
    }
  }
}

// Index of the first element in [from, to) of p whose key satisfies hit (key vector -> lane
// mask), or `to`. Four vectors are tested per step (one branch for all four).
template <class T, class Key, class Hit>
size_t find_first(const T* p, size_t from, size_t to, Key key, Hit hit) {
  constexpr size_t N = 64 / sizeof(T);
  auto bits = [&](size_t i) { return hit(key(simd::load<N>(p + i))); };
  size_t i = from;
  for (; i + 4 * N <= to; i += 4 * N) {
    const uint64_t b[4] = {bits(i), bits(i + N), bits(i + 2 * N), bits(i + 3 * N)};
    if ((b[0] | b[1] | b[2] | b[3]) != 0) {
      size_t k = 0;
      while (b[k] == 0) ++k;
      return i + k * N + static_cast<size_t>(std::countr_zero(b[k]));
    }
  }
  for (; i < to; i += N) {
    const size_t c = std::min(N, to - i);
    const uint64_t b =
        hit(key(simd::load_first<N>(p + i, c))) & _bzhi_u64(~0ULL, static_cast<unsigned>(c));
    if (b != 0) return i + static_cast<size_t>(std::countr_zero(b));
  }
  return to;
}

struct Found {
  size_t imin = 0, imax = 0;
};

// Per lane, the best key of every chunk so far and the first chunk where the lane reached it
// (replaced only on strictly better). The first chunk holding the overall extreme is then the
// smallest chunk recorded by a lane whose best equals it; no lane reduction runs per chunk.
template <bool kMax, class V>
struct LaneRecord {
  using Ids = VecN<uint32_t, 16>;
  static constexpr size_t kIds = (lanes_of<V> + 15) / 16;
  V best;
  Ids id[kIds] = {};

  explicit LaneRecord(lane_t<V> start) : best(simd::splat<V>(start)) {}

  void update(V m, uint32_t chunk) {
    constexpr Cmp kBetter = kMax ? Cmp::gt : Cmp::lt;
    const uint64_t better = cmp_mask<kBetter>(m, best);
    best = pick_lanes<kMax>(m, best);
    const __m512i c = _mm512_set1_epi32(static_cast<int>(chunk));
    for (size_t j = 0; j < kIds; ++j)
      id[j] = reinterpret_cast<Ids>(_mm512_mask_mov_epi32(
          reinterpret_cast<__m512i>(id[j]), static_cast<__mmask16>(better >> (16 * j)), c));
  }

  // The extreme, and the first chunk holding it.
  lane_t<V> value() const {
    if constexpr (kMax) {
      return reduce_lanes(best, vmax_lane);
    } else {
      return reduce_lanes(best, vmin_lane);
    }
  }
  size_t chunk(lane_t<V> v) const {
    const uint64_t at = cmp_mask<Cmp::eq>(best, simd::splat<V>(v));
    __m512i c = _mm512_set1_epi32(-1);
    for (size_t j = 0; j < kIds; ++j)
      c = _mm512_mask_min_epu32(c, static_cast<__mmask16>(at >> (16 * j)), c,
                                reinterpret_cast<__m512i>(id[j]));
    return reduce_lanes(reinterpret_cast<Ids>(c), vmin_lane);
  }
};

// probe + v, on the multiply-add units (v * 1 + probe is the same sum): the adders are busy
// with the minima and maxima.
template <class V>
inline V probe_add(V probe, V v) {
  if constexpr (std::is_same_v<lane_t<V>, float>) {
    return reinterpret_cast<V>(_mm512_fmadd_ps(reinterpret_cast<__m512>(v), _mm512_set1_ps(1),
                                               reinterpret_cast<__m512>(probe)));
  } else {
    return reinterpret_cast<V>(_mm512_fmadd_pd(reinterpret_cast<__m512d>(v), _mm512_set1_pd(1),
                                               reinterpret_cast<__m512d>(probe)));
  }
}

inline constexpr size_t kChunkBytes = 2048;

// First indices of the smallest and largest keys of p[0..n) (either may be skipped).
template <bool kMin, bool kMax, class Key, class T>
Found search(const T* p, size_t n) {
  using K = key_t<Key, T>;
  constexpr size_t N = 64 / sizeof(T);
  constexpr size_t kChunk = kChunkBytes / sizeof(T);
  using V = VecN<K, N>;
  constexpr bool kFloat = std::is_floating_point_v<K>;
  const Key key{};
  const K hi = kFloat ? std::numeric_limits<K>::infinity() : std::numeric_limits<K>::max();
  const K lo = kFloat ? -std::numeric_limits<K>::infinity() : std::numeric_limits<K>::lowest();
  LaneRecord<false, V> rmin(hi);
  LaneRecord<true, V> rmax(lo);
  for (size_t c = 0; c < n; c += kChunk) {
    const size_t len = std::min(kChunk, n - c);
    const T* q = p + c;
    V mn[4], mx[4], probe[4] = {};
    for (size_t k = 0; k < 4; ++k) mn[k] = simd::splat<V>(hi), mx[k] = simd::splat<V>(lo);
    auto step = [&](size_t k, V v) {
      if constexpr (kMin) mn[k] = pick_lanes<false>(v, mn[k]);
      if constexpr (kMax) mx[k] = pick_lanes<true>(v, mx[k]);
      if constexpr (kFloat) probe[k] = probe_add(probe[k], v);
    };
    size_t i = 0;
#pragma GCC unroll 1
    for (; i + 4 * N <= len; i += 4 * N) {
#pragma GCC unroll 4
      for (size_t k = 0; k < 4; ++k) step(k, key(simd::load<N>(q + i + k * N)));
    }
    for (; i + N <= len; i += N) step(0, key(simd::load<N>(q + i)));
    if (i < len) {
      const V v = key(simd::load_first<N>(q + i, len - i));
      const auto in = lane_iota<V>() < static_cast<lane_t<decltype(lane_iota<V>())>>(len - i);
      if constexpr (kMin) mn[0] = simd::select<V>(in & (v < mn[0]), v, mn[0]);
      if constexpr (kMax) mx[0] = simd::select<V>(in & (v > mx[0]), v, mx[0]);
      if constexpr (kFloat) probe[0] += v;  // the lanes past the end are zero
    }
    if constexpr (kFloat) {
      const V sum = tree_sum<4>(probe);
      if (cmp_mask<Cmp::unord>(sum, sum) != 0) {  // a NaN, or infinities that cancelled: look
        const size_t at =
            find_first(q, 0, len, key, [](auto x) { return cmp_mask<Cmp::unord>(x, x); });
        if (at < len) return {c + at, c + at};
      }
    }
    const auto id = static_cast<uint32_t>(c / kChunk);
    if constexpr (kMin) rmin.update(tree<4>(mn, vmin_lane), id);
    if constexpr (kMax) rmax.update(tree<4>(mx, vmax_lane), id);
  }
  Found f;
  if constexpr (kMin) {
    const K v = rmin.value();
    const size_t at = rmin.chunk(v) * kChunk;
    f.imin = find_first(p, at, std::min(n, at + kChunk), key,
                        [&](auto x) { return cmp_mask<Cmp::eq>(x, simd::splat<V>(v)); });
  }
  if constexpr (kMax) {
    const K v = rmax.value();
    const size_t at = rmax.chunk(v) * kChunk;
    f.imax = find_first(p, at, std::min(n, at + kChunk), key,
                        [&](auto x) { return cmp_mask<Cmp::eq>(x, simd::splat<V>(v)); });
  }
  return f;
}

// ---- Min, Max, MinAbs, MaxAbs, with and without indices, MinMax ------------------------------

struct Min {
  static constexpr bool kMin = true;
  using Key = Plain;
};
struct Max {
  static constexpr bool kMin = false;
  using Key = Plain;
};
struct MinAbs {
  static constexpr bool kMin = true;
  using Key = Magnitude;
};
struct MaxAbs {
  static constexpr bool kMin = false;
  using Key = Magnitude;
};

// The reported value: the element's key, integer magnitudes above the type's maximum saturated.
template <class Key, class T>
inline T value_at(const T* p, size_t i) {
  const auto k = Key{}(p[i]);
  if constexpr (std::is_integral_v<T>) {
    return saturate_to<T>(k);
  } else {
    return k;
  }
}

template <class Op, class T>
VekStatus extreme(const T* src, int len, T* val) {
  VEKS_TRY(check_ptrs_len(len, src, val));
  const Found f = search<Op::kMin, !Op::kMin, typename Op::Key>(src, static_cast<size_t>(len));
  *val = value_at<typename Op::Key>(src, Op::kMin ? f.imin : f.imax);
  return vekStatusOk;
}

// The index pointer is optional: it is checked after the length, and a null one makes the call
// the value-only member.
template <class Op, class T>
VekStatus extreme_indx(const T* src, int len, T* val, int* index) {
  VEKS_TRY(check_ptrs_len(len, src, val));
  const Found f = search<Op::kMin, !Op::kMin, typename Op::Key>(src, static_cast<size_t>(len));
  const size_t i = Op::kMin ? f.imin : f.imax;
  *val = value_at<typename Op::Key>(src, i);
  if (index != nullptr) *index = static_cast<int>(i);
  return vekStatusOk;
}

template <class T>
VekStatus min_max(const T* src, int len, T* mn, T* mx) {
  VEKS_TRY(check_ptrs_len(len, src, mn, mx));
  const Found f = search<true, true, Plain>(src, static_cast<size_t>(len));
  *mn = src[f.imin];
  *mx = src[f.imax];
  return vekStatusOk;
}

template <class T>
VekStatus min_max_indx(const T* src, int len, T* mn, int* imin, T* mx, int* imax) {
  VEKS_TRY(check_ptrs_len(len, src, mn, imin, mx, imax));
  const Found f = search<true, true, Plain>(src, static_cast<size_t>(len));
  *mn = src[f.imin];
  *imin = static_cast<int>(f.imin);
  *mx = src[f.imax];
  *imax = static_cast<int>(f.imax);
  return vekStatusOk;
}

// ---- element-wise minimum and maximum ----------------------------------------------------------

// The smaller (larger) of x and y; a NaN in either gives that NaN (x's when both are NaN).
template <bool kMin>
struct Pick {
  template <class L>
  L operator()(L x, L y) const {
    const L r = kMin ? simd::select<L>(y < x, y, x) : simd::select<L>(y > x, y, x);
    if constexpr (std::is_floating_point_v<lane_t<L>>) {
      return simd::select<L>(y != y, y, simd::select<L>(x != x, x, r));
    } else {
      return r;
    }
  }
};

template <bool kMin, class T>
VekStatus every(const T* a, const T* b, T* dst, Vek32u len) {
  if (a == nullptr || b == nullptr || dst == nullptr) return vekStatusNullPtr;
  if (len == 0) return vekStatusBadSize;
  map<T>(len, dst, Pick<kMin>{}, a, b);
  return vekStatusOk;
}
template <bool kMin, class T>
VekStatus every_i(const T* src, T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, src, srcdst));
  map<T>(static_cast<size_t>(len), srcdst, Pick<kMin>{}, src, srcdst);
  return vekStatusOk;
}

// ---- order of the largest magnitude ------------------------------------------------------------

// Integers: the bit length of the OR of all magnitudes. Floating point: the biased exponent of
// the largest magnitude less (bias - 1), 0 when every element is zero; a NaN or an infinity
// makes a second, element-by-element pass over the non-NaN elements and the warning.
// The length is checked before the pointers.
template <class T>
VekStatus max_order(const T* src, int len, int* order) {
  if (len < 1) return vekStatusBadSize;
  if (src == nullptr || order == nullptr) return vekStatusNullPtr;
  const size_t n = static_cast<size_t>(len);
  constexpr size_t N = 64 / sizeof(T);
  using V = VecN<T, N>;
  if constexpr (std::is_integral_v<T>) {
    using B = recast_t<V, std::make_unsigned_t<T>>;
    B acc[4] = {};
    accumulate<N, 4>(
        n, acc, [](B& a, V v) { a |= Magnitude{}(v); }, Load<T, T>{src});
    const auto all =
        reduce_lanes(acc[0] | acc[1] | acc[2] | acc[3], [](auto x, auto y) { return x | y; });
    *order = static_cast<int>(std::bit_width(all));
    return vekStatusOk;
  } else {
    using I = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
    using B = recast_t<V, I>;
    constexpr int kMant = std::numeric_limits<T>::digits - 1;
    constexpr int kBias = std::numeric_limits<T>::max_exponent - 1;
    constexpr I kMaxFinite = (I{2 * kBias} << kMant) | ((I{1} << kMant) - 1);
    B acc[4] = {};
    accumulate<N, 4>(
        n, acc, [](B& a, V v) { a = simd::vmax(a, reinterpret_cast<B>(Magnitude{}(v))); },
        Load<T, T>{src});
    I top = reduce_lanes(tree<4>(acc, vmax_lane), vmax_lane);
    VekStatus st = vekStatusOk;
    if (top > kMaxFinite) {
      top = 0;
      for (size_t i = 0; i < n; ++i) {
        const T m = std::fabs(src[i]);
        if (m == m) top = std::max(top, std::bit_cast<I>(m));
      }
      st = vekStatusWarnNaN;
    }
    *order = top == 0 ? 0 : static_cast<int>(top >> kMant) - (kBias - 1);
    return st;
  }
}

// ---- nearest table entries ---------------------------------------------------------------------

// The index of the entry of the ascending table t[0..m) nearest to v; a value exactly between
// two entries goes to the lower one.
inline int nearest_index(Vek16u v, const Vek16u* t, int m) {
  if (m == 1 || v <= t[0]) return 0;
  if (v >= t[m - 1]) return m - 1;
  int base = 0, width = m - 1;
  while (width > 1) {
    const int half = width / 2;
    if (v < t[base + half]) {
      width = half;
    } else {
      base += half;
      width -= half;
    }
  }
  return v - t[base] > t[base + 1] - v ? base + 1 : base;
}

inline VekStatus find_nearest(const Vek16u* vals, Vek16u* out_vals, int* out_idx, int len,
                              const Vek16u* table, int tbl_len) {
  VEKS_TRY(check_ptrs_len(len, vals, out_vals, out_idx, table));
  if (tbl_len < 1) return vekStatusBadSize;
  for (int i = 0; i < len; ++i) {
    const int k = nearest_index(vals[i], table, tbl_len);
    out_vals[i] = table[k];
    out_idx[i] = k;
  }
  return vekStatusOk;
}

inline VekStatus find_nearest_one(Vek16u val, Vek16u* out_val, int* out_idx, const Vek16u* table,
                                  int tbl_len) {
  VEKS_TRY(check_ptrs_len(tbl_len, out_val, out_idx, table));
  const int k = nearest_index(val, table, tbl_len);
  *out_val = table[k];
  *out_idx = k;
  return vekStatusOk;
}

// ---- counting ----------------------------------------------------------------------------------

using I32v = VecN<int32_t, 16>;

// Elements with lower < x < upper: both bounds excluded.
inline VekStatus count_in_range(const Vek32s* src, int len, int* count, Vek32s lower,
                                Vek32s upper) {
  VEKS_TRY(check_ptrs_len(len, src, count));
  I32v acc[4] = {};
  const size_t n = static_cast<size_t>(len);
  const I32v lo = simd::splat<I32v>(lower), hi = simd::splat<I32v>(upper);
  size_t i = 0;
  for (; i + 16 <= n; i += 16) {
    const I32v v = simd::load<16>(src + i);
    acc[(i / 16) % 4] -= (v > lo) & (v < hi);
  }
  int r = sum_lanes(acc[0] + acc[1] + acc[2] + acc[3]);
  for (; i < n; ++i) r += lower < src[i] && src[i] < upper;
  *count = r;
  return vekStatusOk;
}

// ---- zero crossings ----------------------------------------------------------------------------

// The sign class of each lane: -1, 0 or +1 (a NaN is neither below nor above zero: class 0).
template <class V>
inline I32v sign_class(V x) {
  return reinterpret_cast<I32v>((x > 0) & 1) - reinterpret_cast<I32v>((x < 0) & 1);
}

// Per pair (x, y), in units of half a crossing: product test (x * y < 0 in the element's own
// arithmetic: single precision for Vek32f, so an underflowing product does not count, exact
// sign comparisons for Vek16s), sign-bit test (the sign bits differ), or |class(y) - class(x)|.
template <int kMeasure, class V>
inline I32v crossing_halves(V x, V y) {
  if constexpr (kMeasure == 0) {
    if constexpr (std::is_floating_point_v<lane_t<V>>) {
      return reinterpret_cast<I32v>(x * y < 0) & 2;
    } else {
      return reinterpret_cast<I32v>(((x > 0) & (y < 0)) | ((x < 0) & (y > 0))) & 2;
    }
  } else if constexpr (kMeasure == 1) {
    if constexpr (std::is_floating_point_v<lane_t<V>>) {
      return reinterpret_cast<I32v>((reinterpret_cast<I32v>(x) ^ reinterpret_cast<I32v>(y)) < 0) &
             2;
    } else {
      return reinterpret_cast<I32v>((x ^ y) < 0) & 2;
    }
  } else {
    const I32v d = sign_class(y) - sign_class(x);
    return simd::select<I32v>(d < 0, -d, d);
  }
}

// Half-crossings over the np pairs (p[i], p[i + 1]), elements widened to W (16 lanes).
template <int kMeasure, class W, class T>
uint64_t count_halves(const T* p, size_t np) {
  uint64_t total = 0;
  // Each lane gains at most 2 per 16 pairs: blocks of 2^28 pairs keep the lanes and their sum
  // within 32 bits.
  constexpr size_t kBlock = size_t{1} << 28;
  for (size_t b = 0; b < np; b += kBlock) {
    const size_t len = std::min(kBlock, np - b);
    const T* q = p + b;
    I32v acc{};
    size_t i = 0;
    for (; i + 16 <= len; i += 16) {
      acc += crossing_halves<kMeasure>(simd::convert<W>(simd::load<16>(q + i)),
                                       simd::convert<W>(simd::load<16>(q + i + 1)));
    }
    if (i < len) {  // zero pairs past the end add nothing
      acc += crossing_halves<kMeasure>(simd::convert<W>(simd::load_first<16>(q + i, len - i)),
                                       simd::convert<W>(simd::load_first<16>(q + i + 1, len - i)));
    }
    total += static_cast<uint32_t>(sum_lanes(acc));
  }
  return total;
}

template <class T>
VekStatus zero_crossing(const T* src, Vek32u len, Vek32f* result, int measure) {
  if (src == nullptr || result == nullptr) return vekStatusNullPtr;
  if (len == 0) return vekStatusBadSize;
  if (measure < 0 || measure > 2) return vekStatusBadMode;
  using W = std::conditional_t<std::is_floating_point_v<T>, float, int32_t>;
  const size_t np = static_cast<size_t>(len) - 1;
  uint64_t halves = 0;
  if (measure == 0) halves = count_halves<0, W>(src, np);
  if (measure == 1) halves = count_halves<1, W>(src, np);
  if (measure == 2) halves = count_halves<2, W>(src, np);
  *result = static_cast<float>(static_cast<double>(halves) * 0.5);
  return vekStatusOk;
}

}  // namespace veks::stats
