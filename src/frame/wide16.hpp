// The 16-bit fast path of the scaled shapes: 32 elements of Vek16s per step, their exact 32-bit
// results formed in two registers in the order of the in-lane unpack instructions, scaled by the
// policy and narrowed by one saturating pack, which restores the element order. Operations opt
// in by providing `static void exact16(__m512i x, __m512i y, __m512i& lo, __m512i& hi)`; they may
// also provide `sat16(x, y)` (the result at scale factor 0) and `half16(x, y)` (at scale factor
// 1) computed directly in 16-bit lanes.
#pragma once

#include "frame/intrin.hpp"

#include "frame/scale.hpp"
#include "frame/simd.hpp"
#include "frame/stream.hpp"

namespace veks {

template <class Op>
concept HasExact16 = requires(__m512i v, __m512i& r) {
  Op::exact16(v, v, r, r);
};

namespace wide16 {

// Sign-extends the 16-bit lanes of x to 32 bits, in unpack order.
inline void widen(__m512i x, __m512i& lo, __m512i& hi) {
  const __m512i sign = _mm512_srai_epi16(x, 15);
  lo = _mm512_unpacklo_epi16(x, sign);
  hi = _mm512_unpackhi_epi16(x, sign);
}

using V32 = simd::Vec<int32_t>;

// The policies run on int32 lanes; saturation to 16 bits is left to the pack.
template <class Scale>
inline __m512i finish(Scale s, __m512i r) {
  return reinterpret_cast<__m512i>(s(reinterpret_cast<V32>(r)));
}

// Left shift by 1..15 for a 16-bit destination: anything beyond +-2^16 saturates, and within it
// the shifted value still fits 32 bits for the pack to saturate.
struct ScaleUpPacked {
  int k;
  V32 operator()(V32 r) const {
    return simd::clamp(r, simd::splat<V32>(-65536), simd::splat<V32>(65535)) << k;
  }
};

// Right shift by 1..9 with ties to even through binary32: results below 2^24 in magnitude
// convert exactly, and larger ones reach 2^15 after the shift, where the pack saturates
// whatever the conversion rounded. Three instructions instead of the integer form's four, and
// none on the shuffle units, which the unpacks and the pack keep busy.
struct ScaleDownFloat {
  __m512 k;  // 2^-sf
  explicit ScaleDownFloat(int sf) : k(_mm512_set1_ps(1.0f / static_cast<float>(1 << sf))) {}
  static __m512i nearest(__m512 f) {
    return _mm512_cvt_roundps_epi32(f, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
  }
  __m512i scale(__m512i r) const { return nearest(_mm512_mul_ps(_mm512_cvtepi32_ps(r), k)); }
  V32 operator()(V32 r) const { return reinterpret_cast<V32>(scale(reinterpret_cast<__m512i>(r))); }
};

// d[i] = step(x[i], y[i]) for 32 lanes at a time (y a pointer, or yconst when it is null).
template <class Step>
void run(const Vek16s* x, const Vek16s* y, __m512i yconst, Vek16s* d, size_t n, Step step) {
  blocks_nt<32, 2>(
      n, d, stream_traffic(n * (y ? 6 : 4), d, x, y), [=](auto kind, size_t i, size_t c) {
        if constexpr (kind) {
          const __m512i yv = y ? _mm512_loadu_si512(y + i) : yconst;
          put<decltype(kind)>(d + i, 0, step(_mm512_loadu_si512(x + i), yv));
        } else {
          const __mmask32 m = _bzhi_u32(~0u, static_cast<unsigned>(c));
          const __m512i yv = y ? _mm512_maskz_loadu_epi16(m, y + i) : yconst;
          put<decltype(kind)>(d + i, 2 * c, step(_mm512_maskz_loadu_epi16(m, x + i), yv));
        }
      });
}

// Runs Op over n elements at scale factor sf (not above the operation's zero-fill bound).
template <class Op>
void apply(const Vek16s* x, const Vek16s* y, __m512i yconst, Vek16s* d, size_t n, int sf) {
  if constexpr (requires(__m512i v) { Op::sat16(v, v); }) {
    if (sf == 0)
      return run(x, y, yconst, d, n, [](__m512i a, __m512i b) { return Op::sat16(a, b); });
  }
  if constexpr (requires(__m512i v) { Op::half16(v, v); }) {
    if (sf == 1)
      return run(x, y, yconst, d, n, [](__m512i a, __m512i b) { return Op::half16(a, b); });
  }
  // The policies run on int32 lanes and leave the final clamp to the saturating pack.
  const auto by = [&](auto s) {
    run(x, y, yconst, d, n, [s](__m512i a, __m512i b) {
      __m512i lo, hi;
      Op::exact16(a, b, lo, hi);
      return _mm512_packs_epi32(finish(s, lo), finish(s, hi));
    });
  };
  with_scale<Vek16s>(sf, INT32_MAX, [&](auto scale) {
    using S = decltype(scale);
    if constexpr (std::is_same_v<S, ScaleNone<Vek16s>>) {
      by(ScaleNone<int32_t>{});
    } else if constexpr (std::is_same_v<S, ScaleDown<Vek16s>>) {
      if (scale.sf <= 9)
        by(ScaleDownFloat(scale.sf));
      else
        by(ScaleDown<int32_t>{scale.sf});
    } else if constexpr (std::is_same_v<S, ScaleUp<Vek16s>>) {
      by(ScaleUpPacked{scale.k});
    } else {
      by(scale);
    }
  });
}

}  // namespace wide16
}  // namespace veks
