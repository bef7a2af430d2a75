#include "arith/div.hpp"

namespace veks {
namespace {

// The threshold of the threaded complex integer division.
constexpr int kDiv16scThreshold = 1024;

// Quotients of complex 16-bit integers in binary64 lanes. Products and sums of the components
// are exact there, and a quotient can no more cross a rounding boundary than a real one.
template <class X, class Y>
bool complex_quotients(X x, Y y, Vek16sc* d, size_t n, div::Scale<double> sc) {
  using L = simd::VecN<double, 8>;
  using M = decltype(L{} == L{});
  M zeros{};
  div::map_xy<double>(x, y, d, n, [&](size_t k, L xv, L yv) {
    M z = xv == 0;
    z &= simd::swap_pairs(z) & div::valid<M>(k, simd::lanes_of<L>);
    zeros |= z;
    const L num =
        yv * simd::dup_re(xv) + simd::swap_pairs(yv) * simd::dup_im(xv) * simd::pairs<L>(1.0, -1.0);
    const L sq = xv * xv;
    const L den = simd::select<L>(z, simd::splat<L>(1.0), sq + simd::swap_pairs(sq));
    const L q = (num * sc.y) / (den * sc.x);
    return simd::select<L>(z, div::substitute<Vek16s>(yv),
                           div::round_clamp<Vek16s, kDivNearestEven>(q));
  });
  return div::any(zeros);
}

template <class X, class Y>
VekStatus run_complex(X x, Y y, Vek16sc* d, int len, int sf, int threshold) {
  const auto sc = div::scale_of<double>(sf > 40 ? 40 : sf < -48 ? -48 : sf);
  const int flagged = run_split(len, threshold, [&](int first, int count) {
    return complex_quotients(div::offset(x, first), div::offset(y, first), d + first,
                             static_cast<size_t>(count), sc)
               ? 1
               : 0;
  });
  return flagged ? vekStatusWarnZeroDivisor : vekStatusOk;
}

// x / (v * 2^sf) for 64-bit integers, ties to even, saturated; v != 0. The magnitudes are
// divided exactly by long division, a bit of the scale factor at a time.
Vek64s quotient_64s(Vek64s x, Vek64s v, int sf) {
  using U = unsigned __int128;
  if (x == 0 || sf >= 64) return 0;  // |x| / (|v| * 2^64) <= 1/2 rounds to 0
  const bool neg = (x < 0) != (v < 0);
  const U n = x < 0 ? U(0) - U(static_cast<__int128>(x)) : U(x);
  U den = v < 0 ? U(0) - U(static_cast<__int128>(v)) : U(v);
  const U limit = neg ? U(1) << 63 : (U(1) << 63) - 1;
  if (sf < -127) return neg ? INT64_MIN : INT64_MAX;  // |x| * 2^128 / |v| > 2^64
  if (sf > 0) den <<= sf;
  U q = n / den, r = n % den;
  for (int i = 0; i < -sf && q <= limit; ++i) {
    q <<= 1;
    r <<= 1;
    if (r >= den) {
      r -= den;
      q += 1;
    }
  }
  if (q <= limit && (2 * r > den || (2 * r == den && (q & 1)))) ++q;
  if (q > limit) q = limit;
  return neg ? static_cast<Vek64s>(U(0) - q) : static_cast<Vek64s>(q);
}

}  // namespace

VekStatus div_16sc_sfs(const Vek16sc* x, const Vek16sc* y, Vek16sc* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, x, y, d));
  return run_complex(x, y, d, len, sf, kDiv16scThreshold);
}
VekStatus div_16sc_isfs(const Vek16sc* x, Vek16sc* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, x, srcdst));
  return run_complex(x, static_cast<const Vek16sc*>(srcdst), srcdst, len, sf, kDiv16scThreshold);
}
VekStatus divc_16sc_sfs(const Vek16sc* s, Vek16sc val, Vek16sc* d, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  if (detail::is_value(val, 0)) return vekStatusZeroDivisor;
  run_complex(val, s, d, len, sf, kDiv16scThreshold);
  return vekStatusOk;
}
VekStatus divc_16sc_isfs(Vek16sc val, Vek16sc* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  if (detail::is_value(val, 0)) return vekStatusZeroDivisor;
  run_complex(val, static_cast<const Vek16sc*>(srcdst), srcdst, len, sf, kDiv16scThreshold);
  return vekStatusOk;
}

// A zero constant is a warning here: every element takes the substitute (maximum for x >= 0,
// minimum for x < 0).
VekStatus divc_64s_isfs(Vek64s val, Vek64s* srcdst, int len, int sf) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  const size_t n = static_cast<size_t>(len);
  if (val == 0) {
    for (size_t i = 0; i < n; ++i) srcdst[i] = srcdst[i] < 0 ? INT64_MIN : INT64_MAX;
    return vekStatusWarnZeroDivisor;
  }
  for (size_t i = 0; i < n; ++i) srcdst[i] = quotient_64s(srcdst[i], val, sf);
  return vekStatusOk;
}

}  // namespace veks
