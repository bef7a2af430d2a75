// The scale-factor rule of the _Sfs operations as policies. An exact integer result r, held in
// a lane type wide enough for it, is stored as saturate(round(r * 2^-sf)) with ties to even.
// with_scale() picks one policy per call; each policy maps r to the saturated result, still in
// the wide lane type, ready to be narrowed to the destination type D.
#pragma once

#include <limits>

#include "frame/simd.hpp"
#include "frame/types.hpp"

namespace veks {

template <class D>
inline constexpr int bits_of = static_cast<int>(8 * sizeof(D));

// r clamped to the range of D.
template <class D, class L>
inline L saturate(L r) {
  using S = simd::lane_t<L>;
  using Lim = Limits<D>;
  if constexpr (Limits<S>::min() < Lim::min())
    r = simd::vmax(r, simd::splat<L>(static_cast<S>(Lim::min())));
  if constexpr (Limits<S>::max() > Lim::max())
    r = simd::vmin(r, simd::splat<L>(static_cast<S>(Lim::max())));
  return r;
}

// sf above the operation's bound: every result is zero. Shapes may test for this policy and
// zero-fill instead of computing.
struct ScaleZero {
  template <class L>
  L operator()(L) const {
    return simd::splat<L>(0);
  }
};

// sf == 0: saturation only.
template <class D>
struct ScaleNone {
  template <class L>
  L operator()(L r) const {
    return saturate<D>(r);
  }
};

// sf > 0: divide by 2^sf, ties to even. The lane type must hold r + 2^(sf - 1).
template <class D>
struct ScaleDown {
  int sf;
  template <class L>
  L operator()(L r) const {
    using S = simd::lane_t<L>;
    const L bias = simd::splat<L>(static_cast<S>((S{1} << (sf - 1)) - 1));
    if constexpr (sizeof(L) == 64 && std::is_same_v<S, int32_t>) {
      // one shift fewer: the kept part's lowest bit tested in place adds the extra one
      const __m512i t = reinterpret_cast<__m512i>(r + bias);
      const __mmask16 odd =
          _mm512_test_epi32_mask(reinterpret_cast<__m512i>(r), _mm512_set1_epi32(1 << sf));
      const __m512i up = _mm512_mask_sub_epi32(t, odd, t, _mm512_set1_epi32(-1));
      return saturate<D>(reinterpret_cast<L>(_mm512_sra_epi32(up, _mm_cvtsi32_si128(sf))));
    } else {
      const L odd = (r >> sf) & simd::splat<L>(1);
      return saturate<D>((r + bias + odd) >> sf);
    }
  }
};

// -bits(D) < sf < 0: multiply by 2^-sf, saturating; r is compared and clamped before the shift
// so the shift never overflows the lane. An unsigned lane type needs an unsigned D.
template <class D>
struct ScaleUp {
  int k;  // -sf
  template <class L>
  L operator()(L r) const {
    using S = simd::lane_t<L>;
    using Lim = Limits<D>;
    const L lo_in = simd::splat<L>(static_cast<S>(Lim::min() >> k));
    const L hi_in = simd::splat<L>(static_cast<S>(Lim::max() >> k));
    const L shifted = simd::clamp(r, lo_in, hi_in) << k;
    const L out = simd::select<L>(r > hi_in, simd::splat<L>(static_cast<S>(Lim::max())), shifted);
    return simd::select<L>(r < lo_in, simd::splat<L>(static_cast<S>(Lim::min())), out);
  }
};

// sf <= -bits(D): only the sign of r counts.
template <class D>
struct ScaleSign {
  template <class L>
  L operator()(L r) const {
    using S = simd::lane_t<L>;
    using Lim = Limits<D>;
    const L zero = simd::splat<L>(0);
    const L pos = simd::select<L>(r > zero, simd::splat<L>(static_cast<S>(Lim::max())), zero);
    return simd::select<L>(r < zero, simd::splat<L>(static_cast<S>(Lim::min())), pos);
  }
};

// Calls body(policy) with the policy for scale factor sf and destination D; zero_above is the
// operation's bound beyond which every result is zero.
template <class D, class Body>
decltype(auto) with_scale(int sf, int zero_above, Body&& body) {
  if (sf > zero_above) return body(ScaleZero{});
  if (sf == 0) return body(ScaleNone<D>{});
  if (sf > 0) return body(ScaleDown<D>{sf});
  if (sf > -bits_of<D>) return body(ScaleUp<D>{-sf});
  return body(ScaleSign<D>{});
}

}  // namespace veks
