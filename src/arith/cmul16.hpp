// Complex 16-bit products, 16 elements per step. Each component is the sum of two exact 32-bit
// products formed by multiply-add instructions. The real part ac - bd is formed as
// ac + b(~d) + b, which wraps only in an intermediate and always ends in range (it lies within
// 2^31 - 2^15 of 0). Only (-32768, -32768) * (-32768, -32768) reaches 2^31 (in the imaginary
// part); it wraps to -2^31, a value no product takes, so the scale step reads that pattern as
// +2^31: saturating paths first turn it into 2^31 - 1, and the rounding paths below each say how
// they keep it.
#pragma once

#include "frame/intrin.hpp"

#include "frame/check.hpp"
#include "frame/fill.hpp"
#include "frame/scale.hpp"
#include "frame/shapes.hpp"
#include "frame/stream.hpp"
#include "frame/wide16.hpp"

namespace veks {
namespace cmul16 {

using V32 = simd::Vec<int32_t>;

inline __mmask16 is_top(__m512i r) {
  return _mm512_cmpeq_epi32_mask(r, _mm512_set1_epi32(INT32_MIN));
}

inline __m512i fix_top(__m512i r) {  // -2^31 read as 2^31, clamped to 2^31 - 1
  return _mm512_mask_mov_epi32(r, is_top(r), _mm512_set1_epi32(INT32_MAX));
}

// round(r * 2^-s) with ties to even for 2 <= s <= 31 (used from 16), from h = r / 2 (exact, with
// -2^31 read as 2^31) and the bit l that the halving dropped.
inline __m512i round_down(__m512i r, int s) {
  const __m512i h =
      _mm512_mask_mov_epi32(_mm512_srai_epi32(r, 1), is_top(r), _mm512_set1_epi32(1 << 30));
  const __m512i one = _mm512_set1_epi32(1), l = _mm512_and_si512(r, one);
  const __m128i s1 = _mm_cvtsi32_si128(s - 1);
  const __m512i odd = _mm512_and_si512(_mm512_sra_epi32(h, s1), one);
  const __m512i bias = _mm512_sub_epi32(_mm512_set1_epi32(1 << (s - 2)), one);
  return _mm512_sra_epi32(_mm512_add_epi32(_mm512_add_epi32(h, bias), _mm512_or_si512(l, odd)), s1);
}

// The same for 2 <= s <= 15. r + 2^(s-1) - 1 cannot overflow for a real part, and one more where
// the kept part is odd makes the ties go to even. An imaginary part may be 2^31, wrapped to
// -2^31: offset by 2^31 - 2^16 every imaginary part lies in [0, 2^32 - 2^16) as an unsigned
// number, so it is rounded there with a logical shift and the scaled offset taken off again.
// The offset is a multiple of 2^(s+1): it changes neither the dropped bits nor the parity.
struct Short {
  __m128i s;
  __m512i bias, odd_bit, bias_off, off;
  explicit Short(int sf)
      : s(_mm_cvtsi32_si128(sf)),
        bias(_mm512_set1_epi32((1 << (sf - 1)) - 1)),
        odd_bit(_mm512_set1_epi32(1 << sf)),
        bias_off(_mm512_set1_epi32(static_cast<int32_t>((1u << (sf - 1)) - 1 + 0x7FFF0000u))),
        off(_mm512_set1_epi32(static_cast<int32_t>(0x7FFF0000u >> sf))) {}
  // (t + 1 where r's kept part is odd) >> s, arithmetic or logical.
  template <bool Logical>
  __m512i shift(__m512i r, __m512i t) const {
    t = _mm512_mask_sub_epi32(t, _mm512_test_epi32_mask(r, odd_bit), t, _mm512_set1_epi32(-1));
    return Logical ? _mm512_srl_epi32(t, s) : _mm512_sra_epi32(t, s);
  }
  __m512i real(__m512i r) const { return shift<false>(r, _mm512_add_epi32(r, bias)); }
  __m512i imag(__m512i r) const {
    return _mm512_sub_epi32(shift<true>(r, _mm512_add_epi32(r, bias_off)), off);
  }
};

// The same for 1 <= s <= 9 through binary32: components below 2^24 in magnitude convert
// exactly and are scaled exactly, and larger ones reach 2^15 after the shift, where the pack
// saturates whatever the conversion rounded. The imaginary part is converted less one, which
// is exact in 32 bits (its wrapped 2^31 becomes 2^31 - 1), and the one is added back with the
// scale by a single multiply-add.
struct ViaFloat : wide16::ScaleDownFloat {
  using ScaleDownFloat::ScaleDownFloat;
  __m512i real(__m512i r) const { return scale(r); }
  __m512i imag(__m512i r) const {
    const __m512 f = _mm512_cvtepi32_ps(_mm512_sub_epi32(r, _mm512_set1_epi32(1)));
    return nearest(_mm512_fmadd_ps(f, k, k));
  }
};

// The scaled real and imaginary parts.
template <class Scale>
inline void finish(const Scale& s, __m512i& re, __m512i& im) {
  if constexpr (std::is_same_v<Scale, int>) {
    re = round_down(re, s);
    im = round_down(im, s);
  } else if constexpr (std::is_same_v<Scale, Short> || std::is_same_v<Scale, ViaFloat>) {
    re = s.real(re);
    im = s.imag(im);
  } else if constexpr (std::is_same_v<Scale, ScaleNone<Vek16s>>) {
    im = fix_top(im);  // the pack saturates
  } else {
    re = reinterpret_cast<__m512i>(s(reinterpret_cast<V32>(re)));
    im = reinterpret_cast<__m512i>(s(reinterpret_cast<V32>(fix_top(im))));
  }
}

// The second operand prepared once: (c, ~d) for the real parts and (d, c) for the imaginary.
struct Operand {
  __m512i for_re, for_im;
  explicit Operand(__m512i y)
      : for_re(_mm512_xor_si512(y, _mm512_set1_epi32(int32_t(0xFFFF0000u)))),
        for_im(_mm512_rol_epi32(y, 16)) {}
};

// 16 complex products of x and y, scaled, saturated and interleaved again.
template <class Scale>
inline __m512i step(const Scale& s, __m512i x, const Operand& y) {
  __m512i re = _mm512_add_epi32(_mm512_madd_epi16(x, y.for_re), _mm512_srai_epi32(x, 16));
  __m512i im = _mm512_madd_epi16(x, y.for_im);
  finish(s, re, im);
  // packs gives re0..re3 im0..im3 per 128-bit lane; interleave the pairs again.
  const __m512i packed = _mm512_packs_epi32(re, im);
  const __m512i order =
      _mm512_broadcast_i32x4(_mm_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15));
  return _mm512_shuffle_epi8(packed, order);
}

template <class Scale>
void run(const Vek16sc* x, const Vek16sc* y, __m512i yconst, Vek16sc* d, size_t n, const Scale& s) {
  // The lambdas take the pointers and the scale by value: captured by reference they were read
  // again from memory after every store.
  const auto each = [=](auto operand, size_t traffic) {
    blocks_nt<16, 4>(n, d, stream_traffic(traffic, d, x, y), [=](auto kind, size_t i, size_t c) {
      if constexpr (kind) {
        put<decltype(kind)>(d + i, 0, step(s, _mm512_loadu_si512(x + i), operand(kind, i, c)));
      } else {
        const __mmask16 m = static_cast<__mmask16>(_bzhi_u32(~0u, static_cast<unsigned>(c)));
        put<decltype(kind)>(d + i, 4 * c,
                            step(s, _mm512_maskz_loadu_epi32(m, x + i), operand(kind, i, c)));
      }
    });
  };
  if (y == nullptr) {
    const Operand yc(yconst);
    each([yc](auto, size_t, size_t) { return yc; }, 8 * n);
  } else {
    each(
        [y](auto kind, size_t i, size_t c) {
          if constexpr (kind) {
            return Operand(_mm512_loadu_si512(y + i));
          } else {
            const auto m = static_cast<__mmask16>(_bzhi_u32(~0u, static_cast<unsigned>(c)));
            return Operand(_mm512_maskz_loadu_epi32(m, y + i));
          }
        },
        12 * n);
  }
}

// Products of x with y (or with the constant when y is null), zero-filled above 31.
inline void products(const Vek16sc* x, const Vek16sc* y, Vek16sc c, Vek16sc* d, int len, int sf) {
  if (sf > 31) {
    zero_fill(d, len);
    return;
  }
  int32_t cbits;
  __builtin_memcpy(&cbits, &c, sizeof cbits);
  const __m512i yconst = _mm512_set1_epi32(cbits);
  const size_t n = static_cast<size_t>(len);
  if (sf >= 1 && sf <= 9) {
    run(x, y, yconst, d, n, ViaFloat(sf));
  } else if (sf >= 10 && sf <= 15) {
    run(x, y, yconst, d, n, Short(sf));
  } else if (sf >= 16) {
    run(x, y, yconst, d, n, sf);
  } else {
    with_scale<Vek16s>(sf, 31, [&](auto scale) { run(x, y, yconst, d, n, scale); });
  }
}

}  // namespace cmul16

inline VekStatus mul_16sc_sfs(const Vek16sc* a, const Vek16sc* b, Vek16sc* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, a, b, d));
  cmul16::products(a, b, {}, d, len, sf);
  return vekStatusOk;
}
inline VekStatus mul_16sc_isfs(const Vek16sc* a, Vek16sc* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, a, srcdst));
  cmul16::products(a, srcdst, {}, srcdst, len, sf);
  return vekStatusOk;
}
inline VekStatus mulc_16sc_sfs(const Vek16sc* s, Vek16sc val, Vek16sc* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (sf == 0 && val.re == 1 && val.im == 0) return copy(s, d, len);
  cmul16::products(s, nullptr, val, d, len, sf);
  return vekStatusOk;
}
inline VekStatus mulc_16sc_isfs(Vek16sc val, Vek16sc* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  if (sf == 0 && val.re == 1 && val.im == 0) return vekStatusOk;
  cmul16::products(srcdst, nullptr, val, srcdst, len, sf);
  return vekStatusOk;
}
inline VekStatus sqr_16sc_sfs(const Vek16sc* s, Vek16sc* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  cmul16::products(s, s, {}, d, len, sf);
  return vekStatusOk;
}
inline VekStatus sqr_16sc_isfs(Vek16sc* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  cmul16::products(srcdst, srcdst, {}, srcdst, len, sf);
  return vekStatusOk;
}

}  // namespace veks
