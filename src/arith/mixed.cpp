#include "arith/mixed.hpp"

#include <cmath>
#include <cstdint>
#include <cstring>

#include "frame/check.hpp"
#include "frame/map.hpp"
#include "frame/scale.hpp"

namespace veks {
namespace {

// d[k] = r[k] * c[k] over complex elements: each real value scales both components.
void real_times_complex(const float* r, const float* c, float* d, size_t len) {
  using V8 = simd::VecN<float, 8>;
  using V16 = simd::VecN<float, 16>;
  const auto spread = [](V8 v) -> V16 {
    return __builtin_shufflevector(v, v, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7);
  };
  size_t i = 0;
  for (; i + 8 <= len; i += 8)
    simd::store(d + 2 * i, spread(simd::load<8>(r + i)) * simd::load<16>(c + 2 * i));
  if (i < len) {
    const size_t rem = len - i;
    simd::store_first(
        d + 2 * i, 2 * rem,
        spread(simd::load_first<8>(r + i, rem)) * simd::load_first<16>(c + 2 * i, 2 * rem));
  }
}

}  // namespace

VekStatus mul_real_complex(const Vek32f* r, const Vek32fc* c, Vek32fc* d, int len) {
  VEKS_TRY(check_ptrs_len(len, r, c, d));
  real_times_complex(r, &c->re, &d->re, static_cast<size_t>(len));
  return vekStatusOk;
}

VekStatus mul_real_complex_i(const Vek32f* r, Vek32fc* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, r, srcdst));
  real_times_complex(r, &srcdst->re, &srcdst->re, static_cast<size_t>(len));
  return vekStatusOk;
}

// x * val * 2^-sf rounded exactly: val = m * 2^e with an integer m, so the product is the
// 117-bit integer x * m scaled by 2^(e - sf), which the scale policies round and saturate.
VekStatus mulc_64f64s_isfs(Vek64f val, Vek64s* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  const size_t n = static_cast<size_t>(len);
  if (!std::isfinite(val)) {
    // +-inf times a non-zero x saturates by sign; NaN, and inf times 0, give the minimum.
    for (size_t i = 0; i < n; ++i) {
      const Vek64s x = srcdst[i];
      const bool pos = !std::isnan(val) && x != 0 && ((x > 0) == (val > 0));
      srcdst[i] = pos ? INT64_MAX : INT64_MIN;
    }
    return vekStatusOk;
  }
  int e = 0;
  const double frac = std::frexp(val, &e);  // val = frac * 2^e, 0.5 <= |frac| < 1
  const auto m = static_cast<int64_t>(std::ldexp(frac, 53));
  int64_t shift = static_cast<int64_t>(sf) - (e - 53);  // divide x * m by 2^shift
  if (shift > 200) shift = 200;                         // |x * m| < 2^116: all zero
  if (shift < -200) shift = -200;                       // non-zero results saturate
  with_scale<Vek64s>(static_cast<int>(shift), 117, [&](auto scale) {
    for (size_t i = 0; i < n; ++i)
      srcdst[i] = static_cast<Vek64s>(scale(static_cast<__int128>(srcdst[i]) * m));
  });
  return vekStatusOk;
}

// The binary32 product, scaled by 2^-sf in binary64 (exact for |sf| <= 200; beyond, every
// non-zero result is 0 or saturated either way), rounded to nearest even and saturated.
VekStatus mulc_32f16s_sfs(const Vek32f* s, Vek32f val, Vek16s* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  const int k = sf > 200 ? 200 : sf < -200 ? -200 : sf;
  const double scale = std::ldexp(1.0, -k);
  map<double>(
      static_cast<size_t>(len), d,
      [&](auto x) {
        using L = decltype(x);
        const auto p =
            simd::convert<float>(x) * simd::splat<simd::VecN<float, simd::lanes_of<L>>>(val);
        L r = simd::round_even(simd::convert<double>(p) * scale);
        r = simd::clamp(r, simd::splat<L>(-32768.0), simd::splat<L>(32767.0));
        return simd::select<L>(r == r, r, simd::splat<L>(-32768.0));  // NaN gives the minimum
      },
      s);
  return vekStatusOk;
}

VekStatus mulc_low_32f16s(const Vek32f* s, Vek32f val, Vek16s* d, int len) {
  return mulc_32f16s_sfs(s, val, d, len, 0);
}

}  // namespace veks
