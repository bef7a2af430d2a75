// Type conversion: widening and integer-to-float, float-to-integer with a rounding mode and a scale
// factor, integer narrowing with a scale factor, binary64 to binary32, half precision and the
// complex packing helpers. Each is one generic routine instantiated per export by the manifest.
#pragma once

#include "frame/intrin.hpp"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "convert/fpenv.hpp"
#include "convert/lanes.hpp"
#include "frame/check.hpp"
#include "frame/map.hpp"
#include "vekcore.h"

namespace veks::cvt {

// ---- integer and floating-point widening ------------------------------------------------------

// 512-bit binary32 or binary64 lanes times 2^e, rounded once in the current mode (no spurious
// overflow to infinity or underflow to zero on the way, 0 * 2^huge stays 0).
template <class L>
inline L scale2(L x, L e) {
  if constexpr (sizeof(simd::lane_t<L>) == 4) {
    return reinterpret_cast<L>(
        _mm512_scalef_ps(reinterpret_cast<__m512>(x), reinterpret_cast<__m512>(e)));
  } else {
    return reinterpret_cast<L>(
        _mm512_scalef_pd(reinterpret_cast<__m512d>(x), reinterpret_cast<__m512d>(e)));
  }
}

// pDst[i] = pSrc[i] in the destination type: exact where it holds the value, otherwise rounded in
// the caller's rounding mode; the caller's exception flags are kept.
template <class S, class D>
VekStatus widen(const ptr_t<S>* s, D* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  const size_t n = static_cast<size_t>(len);
  if constexpr (sizeof(D) == 4 && (is24<S> || (std::is_integral_v<S> && sizeof(S) <= 4))) {
    // Integers of up to 32 bits into 32-bit lanes, converted there (rounding only 32s to 32f, in
    // the caller's mode).
    const FpScope fp(FpRound::Caller);
    const size_t src_bytes = is24<S> ? 3 : sizeof(ptr_t<S>);
    blocks_nt<16, 4>(n, d, n * (4 + src_bytes), [=](auto full, size_t i, size_t c) {
      const __m512i v = load_i32<S, full>(s, i, c);
      if constexpr (std::is_floating_point_v<D>) {
        store_ps<decltype(full)>(d + i, c, _mm512_cvtepi32_ps(v));
      } else {
        store_i32<Vek32s, decltype(full)>(reinterpret_cast<Vek32s*>(d), i, c, v);
      }
    });
  } else {
    const FpScope fp(FpRound::Caller);
    using W = std::conditional_t<(sizeof(D) > sizeof(S)), D,
                                 std::conditional_t<std::is_floating_point_v<D>, D, S>>;
    map<W>(
        n, d, [](auto x) { return x; }, s);
  }
  return vekStatusOk;
}

// Integer to floating point, then times 2^-sf (both steps rounded in the caller's mode).
template <class S, class D>
VekStatus widen_sfs(const S* s, D* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  const FpScope fp(FpRound::Caller);
  const D e = -static_cast<D>(sf);
  const size_t n = static_cast<size_t>(len);
  if constexpr (sizeof(D) == 4) {
    const __m512 ev = _mm512_set1_ps(e);
    blocks_nt<16, 4>(n, d, n * (4 + sizeof(S)), [=](auto full, size_t i, size_t c) {
      const __m512 x = _mm512_cvtepi32_ps(load_i32<S, full>(s, i, c));
      store_ps<decltype(full)>(d + i, c, _mm512_scalef_ps(x, ev));
    });
  } else {
    map<D>(
        n, d, [e](auto x) { return scale2(x, simd::splat<decltype(x)>(e)); }, s);
  }
  return vekStatusOk;
}

// ---- integer narrowing with a scale factor ----------------------------------------------------

// r * 2^-sf rounded to nearest with ties to even, then limited to [lo, hi]; r is an exact integer
// in lanes of W. Each policy serves one range of sf and never overflows its lanes.
template <class W>
struct NarrowNone {
  W lo, hi;
  template <class L>
  L operator()(L r) const {
    return simd::clamp(r, simd::splat<L>(lo), simd::splat<L>(hi));
  }
};
template <class W>
struct NarrowDown {  // 0 < sf < bits(W)
  W lo, hi;
  int sf;
  template <class L>
  L operator()(L r) const {
    const W rem_mask = static_cast<W>((uint64_t{1} << sf) - 1),
            half = static_cast<W>(uint64_t{1} << (sf - 1));
    const L q = r >> sf, rem = r & rem_mask;
    const L up = (rem > half) | ((rem == half) & ((q & 1) != 0));  // -1 where rounding up
    return simd::clamp(L(q - up), simd::splat<L>(lo), simd::splat<L>(hi));
  }
};
template <class W>
struct NarrowUp {  // 0 < -sf < bits of the destination: clamp first so the shift cannot overflow
  W lo, hi;
  int k;
  template <class L>
  L operator()(L r) const {
    const L c = simd::clamp(r, simd::splat<L>(static_cast<W>((lo >> k) - 1)),
                            simd::splat<L>(static_cast<W>((hi >> k) + 1)));
    return simd::clamp(L(c << k), simd::splat<L>(lo), simd::splat<L>(hi));
  }
};
template <class W>
struct NarrowSign {  // only the sign of r counts
  W lo, hi;
  template <class L>
  L operator()(L r) const {
    const L z = simd::splat<L>(0);
    return simd::select<L>(r > z, simd::splat<L>(hi),
                           simd::select<L>(r < z, simd::splat<L>(lo), z));
  }
};

template <class D, class W, class Body>
void with_narrow(int sf, Body&& body) {
  constexpr W lo = static_cast<W>(Elem<D>::lo), hi = static_cast<W>(Elem<D>::hi);
  constexpr int wbits = 8 * sizeof(W), dbits = is24<D> ? 24 : 8 * static_cast<int>(sizeof(D));
  if (sf == 0) {
    body(NarrowNone<W>{lo, hi});
  } else if (sf >= wbits) {
    body(NarrowSign<W>{0, 0});  // |r * 2^-sf| <= 1/2: every result rounds to 0
  } else if (sf > 0) {
    body(NarrowDown<W>{lo, hi, sf});
  } else if (sf > -dbits) {
    body(NarrowUp<W>{lo, hi, -sf});
  } else {
    body(NarrowSign<W>{lo, hi});
  }
}

// Integer to a narrower integer (8, 16, 24 or 32 bits), scaled by 2^-sf with ties to even.
template <class S, class D>
VekStatus narrow_sfs(const S* s, ptr_t<D>* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  using W = std::conditional_t<(sizeof(S) <= 2), int32_t, int64_t>;
  constexpr size_t N = 64 / sizeof(W);
  const size_t n = static_cast<size_t>(len);
  with_narrow<D, W>(sf, [&](auto policy) {
    blocks<N>(n, [&](auto full, size_t i, size_t c) {
      const auto r =
          policy(simd::convert<W>(full ? simd::load<N>(s + i) : simd::load_first<N>(s + i, c)));
      if constexpr (is24<D>) {
        store24(d + 3 * i, c,
                _mm512_zextsi256_si512(reinterpret_cast<__m256i>(simd::convert<int32_t>(r))));
      } else if constexpr (full) {
        simd::store(d + i, simd::convert<D>(r));
      } else {
        simd::store_first(d + i, c, simd::convert<D>(r));
      }
    });
  });
  return vekStatusOk;
}
template <class S, class D>
VekStatus narrow(const S* s, D* d, int len) {
  return narrow_sfs<S, D>(s, d, len, 0);
}

// ---- floating point to integer ------------------------------------------------------------------

enum class Rnd { Zero, Even, Away };

// rndMode 1 nearest-even, 0 truncation, anything else ties away from zero.
struct PickAwayOtherwise {
  static Rnd pick(int m) { return m == 1 ? Rnd::Even : m == 0 ? Rnd::Zero : Rnd::Away; }
};
// rndMode 2 ties away, 0 truncation, anything else nearest-even.
struct PickAwayOn2 {
  static Rnd pick(int m) { return m == 2 ? Rnd::Away : m == 0 ? Rnd::Zero : Rnd::Even; }
};

// The scale factor 2^-sf as the bit pattern 1.0 - sf * (one exponent step), in the integer width
// of the type and wrapping: exact for the type's normal exponents, 0 or infinity just outside
// them, other powers of two (or their negatives) further out. No range check.
template <class F>
inline F factor_of(int sf) {
  using U = std::conditional_t<sizeof(F) == 4, uint32_t, uint64_t>;
  constexpr U one = static_cast<U>(sizeof(F) == 4 ? 0x3F800000ULL : 0x3FF0000000000000ULL);
  constexpr U step = U{1} << (sizeof(F) == 4 ? 23 : 52);
  const U bits =
      static_cast<U>(one - static_cast<U>(static_cast<std::make_signed_t<U>>(sf)) * step);
  F f;
  std::memcpy(&f, &bits, sizeof f);
  return f;
}

constexpr int kRoundEven = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;
constexpr int kRoundZero = _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC;

// Ties away from zero is done as: add 1/2 with the sign of the value, the sum rounded toward zero,
// then truncate; exact for every binary32 and binary64 value. The add is issued as v * 1 + 1/2
// (the same single rounding) because the multiply-add units are idle here, while the adders also
// run the clamp and the conversion. The other two modes convert with their rounding embedded in
// the instruction.
template <Rnd R>
inline __m512 prepare(__m512 v) {
  if constexpr (R != Rnd::Away) return v;
  const __m512i half =
      _mm512_ternarylogic_epi32(_mm512_castps_si512(v), _mm512_set1_epi32(INT32_MIN),
                                _mm512_set1_epi32(0x3F000000), 0xEA);  // (v & sign) | 0.5
  return _mm512_fmadd_round_ps(v, _mm512_set1_ps(1.0f), _mm512_castsi512_ps(half), kRoundZero);
}
template <Rnd R>
inline __m512d prepare(__m512d v) {
  if constexpr (R != Rnd::Away) return v;
  const __m512i half =
      _mm512_ternarylogic_epi64(_mm512_castpd_si512(v), _mm512_set1_epi64(INT64_MIN),
                                _mm512_set1_epi64(0x3FE0000000000000LL), 0xEA);
  return _mm512_fmadd_round_pd(v, _mm512_set1_pd(1.0), _mm512_castsi512_pd(half), kRoundZero);
}

// Sixteen binary32 lanes (already scaled) rounded to 32-bit lanes that are at most D's maximum;
// the lower limit is left to the store. The upper limit is applied first with the lane as second
// operand, so a NaN lane stays NaN and converts to INT32_MIN, as lanes below -2^31 do.
template <class D, Rnd R, bool Scaled>
inline __m512i f32_to_i32(__m512 v, __m512 f) {
  if constexpr (Scaled && R == Rnd::Away) {
    // the product is exact (a power of two) but for overflow and underflow, so the half is added
    // in the same rounding step; its sign is that of the product
    const __m512i half = _mm512_ternarylogic_epi32(
        _mm512_castps_si512(v), _mm512_set1_epi32(INT32_MIN),
        _mm512_castps_si512(
            _mm512_or_ps(_mm512_and_ps(f, _mm512_set1_ps(-0.0f)), _mm512_set1_ps(0.5f))),
        0x6A);  // (v & sign) ^ (sign(f) | 0.5)
    v = _mm512_fmadd_round_ps(v, f, _mm512_castsi512_ps(half), kRoundZero);
  } else {
    if constexpr (Scaled) v = _mm512_mul_ps(v, f);
    v = prepare<R>(v);
  }
  if constexpr (Elem<D>::hi < (int64_t{1} << 24))
    v = _mm512_min_ps(_mm512_set1_ps(static_cast<float>(Elem<D>::hi)), v);
  const __m512i q = R == Rnd::Even ? _mm512_cvt_roundps_epi32(v, kRoundEven)
                                   : _mm512_cvtt_roundps_epi32(v, _MM_FROUND_NO_EXC);
  if constexpr (Elem<D>::hi < (int64_t{1} << 24)) {
    return q;
  } else {  // 2^31 - 1 has no binary32: lanes from 2^31 up are set afterwards
    const __mmask16 big = _mm512_cmp_ps_mask(v, _mm512_set1_ps(2147483648.0f), _CMP_GE_OQ);
    return _mm512_mask_mov_epi32(q, big, _mm512_set1_epi32(INT32_MAX));
  }
}
template <class D, Rnd R>
inline __m256i f64_to_i32(__m512d v) {
  v = _mm512_min_pd(_mm512_set1_pd(static_cast<double>(Elem<D>::hi)), prepare<R>(v));
  return R == Rnd::Even ? _mm512_cvt_roundpd_epi32(v, kRoundEven)
                        : _mm512_cvtt_roundpd_epi32(v, _MM_FROUND_NO_EXC);
}

// Stores 32-bit lanes at most D's maximum, raising them to D's minimum first (INT32_MIN from NaN
// included): by the saturating narrowing stores where D has one.
template <class D, class Full>
inline void store_sat(ptr_t<D>* d, size_t i, size_t c, __m512i q) {
  if constexpr (std::is_same_v<D, Vek16s>) {
    store_epi16<Full>(d + i, c, _mm512_cvtsepi32_epi16(q));
  } else if constexpr (std::is_same_v<D, Vek16u>) {
    store_epi16<Full>(d + i, c,
                      _mm512_cvtusepi32_epi16(_mm512_max_epi32(q, _mm512_setzero_si512())));
  } else if constexpr (std::is_same_v<D, Vek8s>) {
    store_i32<D, Full>(d, i, c, _mm512_max_epi32(q, _mm512_set1_epi32(-128)));
  } else {
    store_i32<D, Full>(d, i, c,
                       _mm512_max_epi32(q, _mm512_set1_epi32(static_cast<int32_t>(Elem<D>::lo))));
  }
}

// Runs the conversion of n elements to D: load(full, i, count) gives 16 source lanes (binary32),
// load(i) the address of element i (binary64); lanes are scaled by factor when Scaled.
template <class S, class D, Rnd R, bool Scaled, class Load>
void f2i_run(ptr_t<D>* d, size_t n, S factor, Load&& load) {
  if constexpr (std::is_same_v<S, float>) {
    const __m512 f = _mm512_set1_ps(factor);
    blocks_nt<32, sizeof(ptr_t<D>) * (is24<D> ? 3 : 1)>(
        n, d, n * (4 + sizeof(ptr_t<D>) * (is24<D> ? 3 : 1)), [=](auto full, size_t i, size_t c) {
          using K = decltype(full);
          if constexpr (full && std::is_same_v<D, Vek16s>) {
            // 32 elements: one saturating pack of two vectors, then the 64-bit groups back in order
            const __m512i q0 = f32_to_i32<D, R, Scaled>(load(full, i, 16), f);
            const __m512i q1 = f32_to_i32<D, R, Scaled>(load(full, i + 16, 16), f);
            const __m512i packed = _mm512_permutexvar_epi64(
                _mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), _mm512_packs_epi32(q0, q1));
            put<K>(d + i, 64, packed);
          } else {
            store_sat<D, K>(d, i, c < 16 ? c : 16,
                            f32_to_i32<D, R, Scaled>(load(full, i, c < 16 ? c : 16), f));
            if (full || c > 16)
              store_sat<D, K>(d, i + 16, c - 16,
                              f32_to_i32<D, R, Scaled>(load(full, i + 16, c - 16), f));
          }
        });
  } else if constexpr (std::is_same_v<D, Vek64s>) {
    const __m512d f = _mm512_set1_pd(factor);
    blocks_nt<8, 8>(n, d, 16 * n, [=](auto full, size_t i, size_t c) {
      __m512d v = load_pd<full>(load(i), c);
      if constexpr (Scaled) v = _mm512_mul_pd(v, f);
      v = prepare<R>(v);
      // NaN and lanes below -2^63 convert to INT64_MIN; lanes from 2^63 up are set afterwards.
      const __m512i q0 = R == Rnd::Even ? _mm512_cvt_roundpd_epi64(v, kRoundEven)
                                        : _mm512_cvtt_roundpd_epi64(v, _MM_FROUND_NO_EXC);
      const __mmask8 big = _mm512_cmp_pd_mask(v, _mm512_set1_pd(9223372036854775808.0), _CMP_GE_OQ);
      const __m512i q = _mm512_mask_mov_epi64(q0, big, _mm512_set1_epi64(INT64_MAX));
      put<decltype(full)>(d + i, 8 * c, q);
    });
  } else {
    const __m512d f = _mm512_set1_pd(factor);
    blocks_nt<16, sizeof(ptr_t<D>) * (is24<D> ? 3 : 1)>(
        n, d, n * (8 + sizeof(ptr_t<D>) * (is24<D> ? 3 : 1)), [=](auto full, size_t i, size_t c) {
          __m512d a = load_pd<full>(load(i), c);
          __m512d b = load_pd<full>(load(i) + 8, c > 8 ? c - 8 : 0);
          if constexpr (Scaled) {
            a = _mm512_mul_pd(a, f);
            b = _mm512_mul_pd(b, f);
          }
          const __m256i lo = f64_to_i32<D, R>(a), hi = f64_to_i32<D, R>(b);
          const __m512i q = _mm512_inserti64x4(_mm512_castsi256_si512(lo), hi, 1);
          store_sat<D, decltype(full)>(d, i, c, q);
        });
  }
}

template <class S, class D, class Load>
void f2i_dispatch(ptr_t<D>* d, size_t n, Rnd r, int sf, Load&& load) {
  const auto go = [&]<Rnd R>() {
    if (sf == 0) {
      f2i_run<S, D, R, false>(d, n, S{1}, load);
    } else {
      f2i_run<S, D, R, true>(d, n, factor_of<S>(sf), load);
    }
  };
  if (r == Rnd::Even) {
    go.template operator()<Rnd::Even>();
  } else if (r == Rnd::Zero) {
    go.template operator()<Rnd::Zero>();
  } else {
    go.template operator()<Rnd::Away>();
  }
}

// Floating point to integer: scaled by the factor of sf, rounded as rndMode selects through Pick,
// saturated to D, NaN to D's minimum. Neither rndMode nor sf is checked.
template <class S, class D, class Pick>
VekStatus f2i(const S* s, ptr_t<D>* d, int len, int rnd, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  const FpScope fp;
  const size_t n = static_cast<size_t>(len);
  if constexpr (std::is_same_v<S, float>) {
    f2i_dispatch<S, D>(d, n, Pick::pick(rnd), sf,
                       [s](auto full, size_t i, size_t c) { return load_ps<full>(s + i, c); });
  } else {
    f2i_dispatch<S, D>(d, n, Pick::pick(rnd), sf, [s](size_t i) { return s + i; });
  }
  return vekStatusOk;
}

// ---- half precision ---------------------------------------------------------------------------

using U32x16 = simd::VecN<uint32_t, 16>;
using F32x16 = simd::VecN<float, 16>;

// Software binary16 -> binary32, bit for bit what the hardware conversion gives (signalling NaNs
// come out quiet).
inline __m512 half_to_float_sw(__m256i h16) {
  const U32x16 h = reinterpret_cast<U32x16>(_mm512_cvtepu16_epi32(h16));
  const U32x16 sign = (h & 0x8000u) << 16, e = (h >> 10) & 0x1Fu, man = h & 0x3FFu;
  const U32x16 normal = sign | ((e + 112u) << 23) | (man << 13);
  const U32x16 special = sign | 0x7F800000u | (man << 13) |
                         simd::select<U32x16>(man != 0u, U32x16{} + 0x400000u, U32x16{});
  const F32x16 tiny = simd::convert<float>(man) * 0x1p-24f;  // exact
  const U32x16 sub = sign | reinterpret_cast<U32x16>(tiny);
  return reinterpret_cast<__m512>(
      simd::select<U32x16>(e == 0u, sub, simd::select<U32x16>(e == 31u, special, normal)));
}

// Software binary32 -> binary16, rounded to nearest-even (ToZero false) or toward zero, bit for
// bit what the hardware conversion gives. The subnormal results are rounded by one binary32
// addition, so the floating-point rounding mode must be the one asked for.
template <bool ToZero>
inline __m256i float_to_half_sw(__m512 x) {
  const U32x16 u = reinterpret_cast<U32x16>(x);
  const U32x16 sign = (u >> 16) & 0x8000u, a = u & 0x7FFFFFFFu;
  U32x16 norm;
  if constexpr (ToZero) {
    norm = simd::vmin<U32x16>((a - 0x38000000u) >> 13, U32x16{} + 0x7BFFu);
  } else {
    norm =
        simd::vmin<U32x16>((a - 0x38000000u + 0xFFFu + ((a >> 13) & 1u)) >> 13, U32x16{} + 0x7C00u);
  }
  const U32x16 sub = reinterpret_cast<U32x16>(reinterpret_cast<F32x16>(a) + 0.5f) - 0x3F000000u;
  const U32x16 nan = 0x7E00u | ((a >> 13) & 0x3FFu);
  const U32x16 mag =
      simd::select<U32x16>(a > 0x7F800000u, nan,
                           simd::select<U32x16>(a == 0x7F800000u, U32x16{} + 0x7C00u,
                                                simd::select<U32x16>(a >= 0x38800000u, norm, sub)));
  return _mm512_cvtepi32_epi16(reinterpret_cast<__m512i>(mag | sign));
}

inline bool hw_half() { return ownGetFeature(VEK_FEATURE_F16C) != 0; }

template <bool ToZero>
inline __m256i float_to_half(__m512 v, bool hw) {
  if (hw) {
    __m256i h = _mm512_cvtps_ph(v, ToZero ? kRoundZero : kRoundEven);
    // kept in a register: the form that stores straight to memory is much slower on some cores
    __asm__("" : "+v"(h));
    return h;
  }
  return float_to_half_sw<ToZero>(v);
}

// Binary32 lanes from load(full, i, count), 16 at a time, into binary16 at d + i; whole blocks of
// 32 are stored as one full vector (half-vector stores slow the streamed calls).
template <bool ToZero, class Load>
void to_half_run(Vek16f* d, size_t n, bool hw, Load load) {
  const FpScope fp(ToZero ? FpRound::Zero : FpRound::Nearest);
  blocks_nt<32, 2>(n, d, 6 * n, [=](auto full, size_t i, size_t c) {
    using K = decltype(full);
    if constexpr (full) {
      const __m256i lo = float_to_half<ToZero>(load(full, i, 16), hw);
      const __m256i hi = float_to_half<ToZero>(load(full, i + 16, 16), hw);
      put<K>(d + i, 64, _mm512_inserti64x4(_mm512_castsi256_si512(lo), hi, 1));
    } else {
      const size_t c0 = c < 16 ? c : 16;
      store_epi16<K>(d + i, c0, float_to_half<ToZero>(load(full, i, c0), hw));
      if (c > 16)
        store_epi16<K>(d + i + 16, c - 16, float_to_half<ToZero>(load(full, i + 16, c - 16), hw));
    }
  });
}

// rndMode 2 is refused; 0 rounds toward zero, every other value to nearest-even.
inline VekStatus convert_32f16f(const Vek32f* s, Vek16f* d, int len, int rnd) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (rnd == 2) return vekStatusBadRoundMode;
  const auto load = [s](auto full, size_t i, size_t c) { return load_ps<full>(s + i, c); };
  if (rnd == 0) {
    to_half_run<true>(d, static_cast<size_t>(len), hw_half(), load);
  } else {
    to_half_run<false>(d, static_cast<size_t>(len), hw_half(), load);
  }
  return vekStatusOk;
}

// rndMode 0 rounds toward zero, 1 to nearest-even; other values are refused.
inline VekStatus convert_16s16f(const Vek16s* s, Vek16f* d, int len, int rnd) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (rnd != 0 && rnd != 1) return vekStatusBadRoundMode;
  const auto load = [s](auto full, size_t i, size_t c) {
    return _mm512_cvtepi32_ps(_mm512_cvtepi16_epi32(load_epi16<full>(s + i, c)));
  };
  if (rnd == 0) {
    to_half_run<true>(d, static_cast<size_t>(len), hw_half(), load);
  } else {
    to_half_run<false>(d, static_cast<size_t>(len), hw_half(), load);
  }
  return vekStatusOk;
}

template <bool Full>
inline __m512 load_half(const Vek16f* s, size_t i, size_t c, bool hw) {
  const __m256i h = load_epi16<Full>(s + i, c);
  return hw ? _mm512_cvtph_ps(h) : half_to_float_sw(h);
}

inline VekStatus convert_16f32f(const Vek16f* s, Vek32f* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  const size_t n = static_cast<size_t>(len);
  const bool hw = hw_half();
  blocks_nt<16, 4>(n, d, 6 * n, [&](auto full, size_t i, size_t c) {
    store_ps<decltype(full)>(d + i, c, load_half<full>(s, i, c, hw));
  });
  return vekStatusOk;
}

// Half to 16s as binary32 to 16s does (the half value is exact in binary32); rndMode 0, 1 and 2
// are accepted, other values refused.
inline VekStatus convert_16f16s_sfs(const Vek16f* s, Vek16s* d, int len, int rnd, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (rnd < 0 || rnd > 2) return vekStatusBadRoundMode;
  const FpScope fp;
  const bool hw = hw_half();
  f2i_dispatch<float, Vek16s>(
      d, static_cast<size_t>(len), PickAwayOtherwise::pick(rnd), sf,
      [s, hw](auto full, size_t i, size_t c) { return load_half<full>(s, i, c, hw); });
  return vekStatusOk;
}

// ---- complex packing --------------------------------------------------------------------------

template <class C>
using part_t = decltype(C{}.re);

namespace detail {
template <class T, size_t K, size_t... I>
inline simd::VecN<T, 2 * K> interleave(simd::VecN<T, K> a, simd::VecN<T, K> b,
                                       std::index_sequence<I...>) {
  return __builtin_shufflevector(a, b, ((I % 2) ? K + I / 2 : I / 2)...);
}
template <size_t Off, class T, size_t K2, size_t... I>
inline simd::VecN<T, K2 / 2> every_other(simd::VecN<T, K2> v, std::index_sequence<I...>) {
  return __builtin_shufflevector(v, v, (2 * I + Off)...);
}
}  // namespace detail

// One complex vector from a real and an imaginary vector; a null part is taken as zeros (both
// null is vekStatusNullPtr).
template <class C>
VekStatus real_to_cplx(const part_t<C>* re, const part_t<C>* im, C* d, int len) {
  if (re == nullptr && im == nullptr) return vekStatusNullPtr;
  VEKS_TRY(check_ptrs_len(len, d));
  using T = part_t<C>;
  constexpr size_t K = 32 / sizeof(T);
  T* out = reinterpret_cast<T*>(d);
  const size_t n = static_cast<size_t>(len);
  blocks<K>(n, [&](auto full, size_t i, size_t c) {
    const auto get = [&](const T* p) {
      if (p == nullptr) return simd::VecN<T, K>{};
      return full ? simd::load<K>(p + i) : simd::load_first<K>(p + i, c);
    };
    const auto v = detail::interleave<T, K>(get(re), get(im), std::make_index_sequence<2 * K>{});
    if constexpr (full) {
      simd::store(out + 2 * i, v);
    } else {
      simd::store_first(out + 2 * i, 2 * c, v);
    }
  });
  return vekStatusOk;
}

// Either part of a complex vector, or both: Parts selects which destinations exist.
template <class C, bool WantRe, bool WantIm>
void split_parts(const C* s, part_t<C>* re, part_t<C>* im, size_t n) {
  using T = part_t<C>;
  constexpr size_t K = 32 / sizeof(T);
  const T* in = reinterpret_cast<const T*>(s);
  blocks<K>(n, [&](auto full, size_t i, size_t c) {
    const simd::VecN<T, 2 * K> v =
        full ? simd::load<2 * K>(in + 2 * i) : simd::load_first<2 * K>(in + 2 * i, 2 * c);
    const auto put = [&](T* p, auto part) {
      if constexpr (full) {
        simd::store(p + i, part);
      } else {
        simd::store_first(p + i, c, part);
      }
    };
    if constexpr (WantRe)
      put(re, detail::every_other<0, T, 2 * K>(v, std::make_index_sequence<K>{}));
    if constexpr (WantIm)
      put(im, detail::every_other<1, T, 2 * K>(v, std::make_index_sequence<K>{}));
  });
}

template <class C>
VekStatus cplx_to_real(const C* s, part_t<C>* re, part_t<C>* im, int len) {
  VEKS_TRY(check_ptrs_len(len, s, re, im));
  split_parts<C, true, true>(s, re, im, static_cast<size_t>(len));
  return vekStatusOk;
}
template <class C>
VekStatus real_part(const C* s, part_t<C>* re, int len) {
  VEKS_TRY(check_ptrs_len(len, s, re));
  split_parts<C, true, false>(s, re, nullptr, static_cast<size_t>(len));
  return vekStatusOk;
}
template <class C>
VekStatus imag_part(const C* s, part_t<C>* im, int len) {
  VEKS_TRY(check_ptrs_len(len, s, im));
  split_parts<C, false, true>(s, nullptr, im, static_cast<size_t>(len));
  return vekStatusOk;
}

}  // namespace veks::cvt
