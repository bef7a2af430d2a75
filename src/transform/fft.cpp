// Power-of-two FFT: specification sizes and set-up, small-order kernels, execution of the complex
// and real kinds, the real-spectrum recombination and the packed layouts.
#include "transform/fft.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "frame/check.hpp"
#include "transform/fft_fixed.hpp"
#include "transform/fft_kernels.hpp"
#include "transform/fft_spec.hpp"

namespace veks::fft {
namespace {

template <class T>
T* align64(T* p) {
  const auto a = reinterpret_cast<uintptr_t>(p);
  return reinterpret_cast<T*>((a + 63) & ~uintptr_t{63});
}

template <class R>
constexpr const R* fixed_sine() {
  if constexpr (sizeof(R) == 4) {
    return fft_fix_twiddle_table_32f;
  } else {
    return fft_fix_twiddle_table_64f;
  }
}

// ---- sizes ------------------------------------------------------------------------------------
struct Sizes {
  int64_t spec, init, work;
};

template <class R>
constexpr int64_t base_table_bytes(int order) {  // N/4 + 1 sine values
  return int64_t(((int64_t{1} << order) / 4 + 1) * int64_t(sizeof(R)));
}
template <class R>
constexpr int64_t rec_table_bytes(int order) {
  constexpr int64_t cs = 2 * sizeof(R);
  if (order < Prec<R>::rec_two_level) return ru64(((int64_t{1} << order) / 4) * cs);
  return 1024 * cs + cs * (int64_t{1} << (order - 12));
}

// Sizes of a complex pass of the given order (no header).
template <class R>
Sizes pass_sizes(int order, int base_order) {
  constexpr int64_t cs = 2 * sizeof(R);
  const int64_t n = int64_t{1} << order;
  const int64_t base = base_order <= 10 ? 0 : ru64(base_table_bytes<R>(base_order)) + 64;
  if (order <= Prec<R>::mid_max) return {ru64(cs * n + cs) + ru64(n + 4), base, ru64(cs * n) + 64};
  const LargeSizes l = large_sizes<R>(order);
  return {l.spec, l.init + base, l.work > 0 ? l.work + 64 : 0};
}

template <class Spec>
Sizes sizes_of(int order) {
  using K = Kind<Spec>;
  using R = typename K::real_t;
  if constexpr (!K::real) {
    if (order <= 6) return {kSmallSpecBytes, 0, 0};
    const Sizes s = pass_sizes<R>(order, order);
    return {s.spec + 256, s.init, s.work};
  } else {
    if (order <= 4) return {kSmallSpecBytes, 0, 0};
    const int64_t rec = 2 * rec_table_bytes<R>(order);
    if (order <= 7) return {rec + 256, 0, 0};
    const Sizes s = pass_sizes<R>(order - 1, order);
    return {s.spec + rec + 256, s.init, s.work};
  }
}

// ---- twiddle tables ---------------------------------------------------------------------------
// sin(2 pi k / 2^order), k = 0 .. 2^(order-2), computed in long double from the nearer octant.
template <class R>
void build_sine(R* s, int order) {
  const int64_t n = int64_t{1} << order, q = n / 4;
  const long double step = 6.283185307179586476925286766559005768L / static_cast<long double>(n);
  for (int64_t k = 0; k <= q; ++k) {
    s[k] = static_cast<R>(2 * k <= q ? std::sin(step * static_cast<long double>(k))
                                     : std::cos(step * static_cast<long double>(q - k)));
  }
}

// Recombination factors W_N^k (forward) and W_N^-k (inverse), k < N/4; from order
// rec_two_level on as 1024 low factors followed by the factors of k = 1024 i.
template <class R>
void build_rec(R* fwd, R* inv, const R* sine, int base, int order) {
  const size_t n4 = (size_t{1} << order) / 4;
  auto put = [&](size_t idx, size_t t) {
    twiddle(sine, base, order, t, fwd + 2 * idx);
    inv[2 * idx] = fwd[2 * idx];
    inv[2 * idx + 1] = -fwd[2 * idx + 1];
  };
  if (order < Prec<R>::rec_two_level) {
    for (size_t k = 0; k < n4; ++k) put(k, k);
  } else {
    for (size_t k = 0; k < 1024; ++k) put(k, k);
    for (size_t i = 0; i < n4 / 1024; ++i) put(1024 + i, 1024 * i);
  }
}

// ---- small kernels ----------------------------------------------------------------------------
// The register kernel of a complex transform of the order in place: the 256-bit one for 16
// double points, the full-width one otherwise (which also serves every order out of place).
template <class R, int Order, bool Inv>
using InPlace = std::conditional_t<std::is_same_v<R, double> && Order == 4, Sixteen<Inv>,
                                   Straight<R, Order, Inv, Prec<R>::logv>>;
template <class R, int Order, bool Inv>
constexpr bool kOwnInPlace =
    !std::is_same_v<InPlace<R, Order, Inv>, Straight<R, Order, Inv, Prec<R>::logv>>;

template <class R, int Order, bool Inv>
struct SmallC {
  static constexpr Plan plan = make_plan(Order, Prec<R>::logv);
  static constexpr auto tw = [] {
    std::array<R, 2 * plan_twiddles(plan) + 2> t{};
    if (Order >= 2) fill_twiddles(plan, fixed_sine<R>(), 10, t.data());
    return t;
  }();
  static void run(const R* src, R* dst, bool scaled, R scale) {
    if constexpr (Order == 0) {
      dst[0] = scaled ? src[0] * scale : src[0];
      dst[1] = scaled ? src[1] * scale : src[1];
    } else if constexpr (Order == 1) {
      R y[4] = {src[0] + src[2], src[1] + src[3], src[0] - src[2], src[1] - src[3]};
      for (int i = 0; i < 4; ++i) dst[i] = scaled ? y[i] * scale : y[i];
    } else if (kOwnInPlace<R, Order, Inv> && src == dst) {
      InPlace<R, Order, Inv>::run(src, dst, tw.data(), scaled, scale);
    } else {
      Straight<R, Order, Inv, Prec<R>::logv>::run(src, dst, tw.data(), scaled, scale);
    }
  }
  static void plain(const R* src, R* dst) { run(src, dst, false, R(1)); }
  static void scaled(const R* src, R* dst, R scale) { run(src, dst, true, scale); }
};

template <class R>
using SmallFn = void (*)(const R*, R*);
template <class R>
using SmallScaleFn = void (*)(const R*, R*, R);

// Per-order tables of a kernel template K<Order> (orders 0 .. N-1): the plain and the scaled
// entry points.
template <template <int> class K, class R, int... O>
constexpr std::array<SmallFn<R>, sizeof...(O)> plain_table(std::integer_sequence<int, O...>) {
  return {&K<O>::plain...};
}
template <template <int> class K, class R, int... O>
constexpr std::array<SmallScaleFn<R>, sizeof...(O)> scaled_table(std::integer_sequence<int, O...>) {
  return {&K<O>::scaled...};
}
template <class R>
void run_table(const SmallFn<R>* plain, const SmallScaleFn<R>* with, int order, const R* src,
               R* dst, bool scaled, R scale) {
  if (scaled) {
    with[size_t(order)](src, dst, scale);
  } else {
    plain[size_t(order)](src, dst);
  }
}

template <class R, bool Inv>
struct CKernel {
  template <int O>
  using K = SmallC<R, O, Inv>;
};
// Per-order kernels of the complex transforms up to order 6.
template <class R>
constexpr auto tbl_cFFTfwd_small =
    plain_table<CKernel<R, false>::template K, R>(std::make_integer_sequence<int, 7>{});
template <class R>
constexpr auto tbl_cFFTfwd_small_scale =
    scaled_table<CKernel<R, false>::template K, R>(std::make_integer_sequence<int, 7>{});
template <class R>
constexpr auto tbl_cFFTinv_small =
    plain_table<CKernel<R, true>::template K, R>(std::make_integer_sequence<int, 7>{});
template <class R>
constexpr auto tbl_cFFTinv_small_scale =
    scaled_table<CKernel<R, true>::template K, R>(std::make_integer_sequence<int, 7>{});

template <class R, bool Inv>
void small_complex(int order, const R* src, R* dst, bool scaled, R scale) {
  if constexpr (Inv) {
    run_table(tbl_cFFTinv_small<R>.data(), tbl_cFFTinv_small_scale<R>.data(), order, src, dst,
              scaled, scale);
  } else {
    run_table(tbl_cFFTfwd_small<R>.data(), tbl_cFFTfwd_small_scale<R>.data(), order, src, dst,
              scaled, scale);
  }
}

// Orders 7 .. straight_max with the specification's twiddles.
template <class R, bool Inv, int... O>
void straight_mid_of(int order, const R* src, R* dst, const R* tw, bool scaled, R scale,
                     std::integer_sequence<int, O...>) {
  ((order == O + 7 ? Straight<R, O + 7, Inv, Prec<R>::logv>::run(src, dst, tw, scaled, scale)
                   : void()),
   ...);
}
template <class R, bool Inv>
void straight_mid(int order, const R* src, R* dst, const R* tw, bool scaled, R scale) {
  straight_mid_of<R, Inv>(order, src, dst, tw, scaled, scale,
                          std::make_integer_sequence<int, Prec<R>::straight_max - 6>{});
}

// ---- execution of one complex transform of the given order on interleaved buffers ------------
template <class R, bool Inv>
void complex_pass(const Header<R>* h, int order, const R* src, R* dst, R* work, bool scaled,
                  R scale) {
  if (order <= 6) {
    small_complex<R, Inv>(order, src, dst, scaled, scale);
  } else if (order <= Prec<R>::straight_max) {
    straight_mid<R, Inv>(order, src, dst, h->twiddle, scaled, scale);
  } else if (order <= Prec<R>::mid_max) {
    Plan plan;
    std::memcpy(&plan, h->plan, sizeof plan);
    run_plan<R, (1 << Prec<R>::logv), Inv>(plan, Buf<R>{const_cast<R*>(src)}, Buf<R>{dst},
                                           Buf<R>{work}, h->twiddle, scaled, scale);
  } else {
    large_run<R, Inv>(h, order, Inter<R>{const_cast<R*>(src)}, Inter<R>{dst}, work, scaled, scale);
  }
}

// ---- checks -----------------------------------------------------------------------------------
template <class Spec>
const Header<typename Kind<Spec>::real_t>* header_of(const Spec* s) {
  return reinterpret_cast<const Header<typename Kind<Spec>::real_t>*>(s);
}

// Null specification, identifier, data pointers, then the work buffer when one is needed.
template <class Spec, class... P>
VekStatus check_exec(const Spec* spec, Vek8u* buffer, const P*... p) {
  if (!spec) return vekStatusNullPtr;
  const auto* h = header_of(spec);
  if (h->id != Kind<Spec>::id) return vekStatusSpecMismatch;
  if (!(... && static_cast<bool>(p))) return vekStatusNullPtr;
  if (h->work_size > 0 && !buffer) return vekStatusNullPtr;
  return vekStatusOk;
}

template <class R>
R* work_of(const Header<R>* h, Vek8u* buffer) {
  return h->work_size > 0 && buffer ? reinterpret_cast<R*>(align64(buffer)) : nullptr;
}

// ---- real transforms --------------------------------------------------------------------------
template <class R, int W>
CV<R, W> conj(CV<R, W> v) {  // flips the sign bits of the imaginary lanes
  using U = std::conditional_t<sizeof(R) == 4, uint32_t, uint64_t>;
  typedef U UV __attribute__((vector_size(sizeof(CV<R, W>))));
  UV m{};
  for (int i = 1; i < 2 * W; i += 2) m[i] = U{1} << (8 * sizeof(U) - 1);
  return reinterpret_cast<CV<R, W>>(reinterpret_cast<UV>(v) ^ m);
}

// W factors W_N^k, k = k0 .. k0 + W - 1, from a one- or two-level table (blocks never straddle
// a 1024 boundary).
template <class R, int W>
CV<R, W> rec_factors(const R* t, bool two_level, size_t k0) {
  if (!two_level) return ld<R, W>(t + 2 * k0);
  const CV<R, W> lo = ld<R, W>(t + 2 * (k0 & 1023));
  const R* hi = t + 2 * (1024 + (k0 >> 10));
  return cmul<false>(lo, splat<CV<R, W>>(hi[0]), splat<CV<R, W>>(hi[1]));
}

// Lane l = element M-k-l: lane 0 from hi (element M-k), lanes l >= 1 from lo (M-k-W .. M-k-1).
template <class V, size_t... I>
V partner(V lo, V hi, std::index_sequence<I...>) {
  constexpr size_t n = sizeof...(I);
  return __builtin_shufflevector(lo, hi, (I / 2 == 0 ? n + (I & 1) : n - 2 * (I / 2) + (I & 1))...);
}

// Forward: the spectrum Z of z[n] = x[2n] + i x[2n+1] (M points) becomes X[0..M] in Perm order:
// X[k] = E + W^k O, X[M-k] = conj(E - W^k O), E = (Z[k] + conj Z[M-k]) / 2,
// O = -i (Z[k] - conj Z[M-k]) / 2. Inverse: Z[k] = E' + i O', Z[M-k] = conj(E' - i O'),
// E' = X[k] + conj X[M-k], O' = (X[k] - conj X[M-k]) W^-k.
template <class R, int W, bool Inv>
void rec_block(R* d, size_t m, size_t k, const R* t, bool two_level) {
  if constexpr (W == 1) {
    R w[2] = {t[2 * k], t[2 * k + 1]};
    if (two_level) {
      const R* lo = t + 2 * (k & 1023);
      const R* hi = t + 2 * (1024 + (k >> 10));
      w[0] = std::fma(lo[0], hi[0], -lo[1] * hi[1]);
      w[1] = std::fma(lo[0], hi[1], lo[1] * hi[0]);
    }
    R* pa = d + 2 * k;
    R* pb = d + 2 * (m - k);
    const R h = Inv ? R(1) : R(0.5);
    const R er = h * (pa[0] + pb[0]), ei = h * (pa[1] - pb[1]);
    const R dr = h * (pa[0] - pb[0]), di = h * (pa[1] + pb[1]);
    // tt = dd * w; X[k] = e + q tt, X[M-k] = conj(e - q tt), q = -i (forward) or +i (inverse).
    const R tr = std::fma(dr, w[0], -di * w[1]), ti = std::fma(dr, w[1], di * w[0]);
    const R qr = Inv ? -ti : ti, qi = Inv ? tr : -tr;
    pa[0] = er + qr;
    pa[1] = ei + qi;
    pb[0] = er - qr;
    pb[1] = -(ei - qi);
    return;
  }
  using V = CV<R, W>;
  const V a = ld<R, W>(d + 2 * k);
  // Z[M-k-l], l < W, from the two aligned blocks around it: loads the size and place of the
  // complex pass's stores, so they are forwarded from those stores.
  V hi{};  // element M-k alone: the block after it may hold this loop's fresh stores
  hi[0] = d[2 * (m - k)];
  hi[1] = d[2 * (m - k) + 1];
  const V b =
      conj<R, W>(partner(ld<R, W>(d + 2 * (m - k - W)), hi, std::make_index_sequence<2 * W>{}));
  const V w = rec_factors<R, W>(t, two_level, k);
  V e = a + b, dd = a - b;
  if (!Inv) {
    const V half = splat<V>(R(0.5));
    e *= half;
    dd *= half;
  }
  const V tt = cmul<false>(dd, w);
  st<R, W>(d + 2 * k, addw<Inv>(e, tt));
  st<R, W>(d + 2 * (m - k - W + 1), rev(conj<R, W>(subw<Inv>(e, tt))));
}

// V: the widest block, no wider than the complex pass's stores (so that every load is forwarded
// from one store).
template <class R, bool Inv, int V>
void recombine_w(R* d, size_t n, const R* t, bool two_level) {
  const size_t m = n / 2;
  if (!Inv) {
    const R zr = d[0], zi = d[1];
    d[0] = zr + zi;
    d[1] = zr - zi;
  } else {
    const R x0 = d[0], xm = d[1];
    d[0] = x0 + xm;
    d[1] = x0 - xm;
  }
  // Pairs (k, M-k) for 1 <= k < M/2 in blocks aligned to their width (so no block straddles a
  // 1024 boundary of a two-level table): widths 1, 2, 4, .. up to V, then V, then down again.
  size_t k = 1;
  auto step = [&]<int Wd>() {
    if (2 * k + 2 * Wd <= m + 1) {
      rec_block<R, Wd, Inv>(d, m, k, t, two_level);
      k += Wd;
      return true;
    }
    return false;
  };
  auto up = [&]<int Wd>(auto self) {
    if constexpr (Wd < V) {
      if (k == Wd && step.template operator()<Wd>()) self.template operator()<2 * Wd>(self);
    }
  };
  up.template operator()<1>(up);
  if (k == V) {
    while (step.template operator()<V>()) {
    }
  }
  auto down = [&]<int Wd>(auto self) {
    if constexpr (Wd >= 1) {
      while (step.template operator()<Wd>()) {
      }
      self.template operator()<Wd / 2>(self);
    }
  };
  down.template operator()<V / 2>(down);
  // k = M/2 pairs with itself: X = conj Z (forward), Z = 2 conj X (inverse).
  R* c = d + 2 * (m / 2);
  c[1] = -c[1];
  if (Inv) {
    c[0] *= R(2);
    c[1] *= R(2);
  }
}

template <class R, bool Inv>
void recombine(R* d, size_t n, int order, const R* t) {
  const bool two_level = order >= Prec<R>::rec_two_level;
  const int pass = order - 1;
  const int w = pass > 6 ? Prec<R>::logv : std::min(pass / 2, Prec<R>::logv);
  switch (w) {
    case 0: return recombine_w<R, Inv, 1>(d, n, t, two_level);
    case 1: return recombine_w<R, Inv, 2>(d, n, t, two_level);
    case 2: return recombine_w<R, Inv, 4>(d, n, t, two_level);
    default:
      if constexpr (Prec<R>::logv == 3) return recombine_w<R, Inv, 8>(d, n, t, two_level);
  }
}

// Real transforms of up to 128 points in registers (those above kRealFullMax): the half-length
// straight-line transform and the recombination of every k at once (partner M-k found by a
// shuffle), with no store between them. Same arithmetic as recombine(); factors W_N^k (forward) or
// W_N^-k (inverse), k < M.
template <class R, int Order, bool Inv>
struct RealStraight {
  using S = Straight<R, Order - 1, Inv, Prec<R>::logv>;
  using V = typename S::V;
  static constexpr int W = S::W, NV = S::NV, M = S::N;
  // The forward factors carry the recombination's halving (exact), so that it costs nothing.
  static constexpr auto factors = [] {
    std::array<R, 2 * M> t{};
    for (size_t k = 0; k < size_t{M}; ++k) {
      twiddle(fixed_sine<R>(), 10, Order, k, t.data() + 2 * k);
      if (Inv) t[2 * k + 1] = -t[2 * k + 1];
      if (!Inv) t[2 * k] *= R(0.5), t[2 * k + 1] *= R(0.5);
    }
    return t;
  }();
  // conj Z[M-k-l] in lane l of block i (k = W i), Z[0] pairing with itself.
  static V mirror(const V* z, int i) {
    return conj<R, W>(
        partner(z[(2 * NV - i - 1) % NV], z[(NV - i) % NV], std::make_index_sequence<2 * W>{}));
  }
  static void fwd(const R* src, R* dst, bool scaled, R scale) {
    V z[NV], x[NV];
#pragma GCC unroll 64
    for (int i = 0; i < NV; ++i) z[i] = ld<R, W>(src + 2 * W * i);
    S::regs(z, SmallC<R, Order - 1, false>::tw.data(), scaled, scale);
    const V half = splat<V>(R(0.5));
#pragma GCC unroll 64
    for (int i = 0; i < NV; ++i) {  // e = (a + b) / 2 fused into the final add
      const V a = z[i], b = mirror(z, i);
      const V t = cmul<false>(a - b, ld<R, W>(factors.data() + 2 * W * i));
      x[i] = fmsubadd(a + b, half, swap(t));
    }
    x[0][0] = z[0][0] + z[0][1];  // X[0] and X[M], both real
    x[0][1] = z[0][0] - z[0][1];
#pragma GCC unroll 64
    for (int i = 0; i < NV; ++i) st<R, W>(dst + 2 * W * i, x[i]);
  }
  static void inv(const R* src, R* dst, bool scaled, R scale) {
    V x[NV], z[NV];
#pragma GCC unroll 64
    for (int i = 0; i < NV; ++i) x[i] = ld<R, W>(src + 2 * W * i);
#pragma GCC unroll 64
    for (int i = 0; i < NV; ++i) {
      V a = x[i], b = mirror(x, i);
      if (i == 0) {  // X[0] and X[M] sit in the first complex lane
        a[1] = R(0);
        b[0] = x[0][1];
        b[1] = R(0);
      }
      z[i] = addw<true>(a + b, cmul<false>(a - b, ld<R, W>(factors.data() + 2 * W * i)));
    }
    S::regs(z, SmallC<R, Order - 1, true>::tw.data(), scaled, scale);
#pragma GCC unroll 64
    for (int i = 0; i < NV; ++i) st<R, W>(dst + 2 * W * i, z[i]);
  }
};
// Real transforms of 8 .. 2^kRealFullMax points as complex transforms of the same length with
// zero imaginary parts: at these sizes the full-width complex kernels beat the half-length path,
// and they are as accurate as the complex kinds. The inverse completes the spectrum by symmetry
// (X[N-k] = conj X[k]) and keeps the real parts. S is the complex kernel.
template <class R, int Order, bool Inv, class S = Straight<R, Order, Inv, Prec<R>::logv>>
struct RealFull {
  using V = typename S::V;
  static constexpr int W = S::W, NV = S::NV, H = NV / 2;
  using Half = CV<R, W / 2>;  // W reals
  // (x[l], 0) in complex lane l.
  template <size_t... I>
  static V widen(Half h, std::index_sequence<I...>) {
    return __builtin_shufflevector(h, Half{}, (I % 2 ? size_t{W} : I / 2)...);
  }
  // The real lanes of a and b, in order.
  template <size_t... I>
  static V reals(V a, V b, std::index_sequence<I...>) {
    return __builtin_shufflevector(a, b, (2 * I)...);
  }
  static const R* tw() { return SmallC<R, Order, Inv>::tw.data(); }

  static void fwd(const R* src, R* dst, bool scaled, R scale) {
    V z[NV];
#pragma GCC unroll 64
    for (int i = 0; i < NV; ++i) {
      Half h;
      std::memcpy(&h, src + W * i, sizeof h);
      z[i] = widen(h, std::make_index_sequence<2 * W>{});
    }
    S::regs(z, tw(), scaled, scale);
    z[0][1] = z[H][0];  // X[M] is real: it takes the imaginary slot of X[0]
#pragma GCC unroll 64
    for (int i = 0; i < H; ++i) st<R, W>(dst + 2 * W * i, z[i]);
  }
  static void inv(const R* src, R* dst, bool scaled, R scale) {
    V z[NV];
#pragma GCC unroll 64
    for (int i = 0; i < H; ++i) z[i] = ld<R, W>(src + 2 * W * i);
    const R xm = z[0][1];
    z[0][1] = R(0);
#pragma GCC unroll 64
    for (int j = 0; j < H; ++j) {  // Y[M + jW + l] = conj X[M - jW - l]
      z[H + j] =
          conj<R, W>(partner(z[H - j - 1], z[(H - j) % H], std::make_index_sequence<2 * W>{}));
    }
    z[H][0] = xm;
    z[H][1] = R(0);
    S::regs(z, tw(), scaled, scale);
#pragma GCC unroll 64
    for (int i = 0; i < H; ++i) {
      st<R, W>(dst + 2 * W * i, reals(z[2 * i], z[2 * i + 1], std::make_index_sequence<2 * W>{}));
    }
  }
};
constexpr int kRealFullMax = 6;
constexpr int kRealStraightMax = 7;
template <class R, bool Inv, int... O>
void real_straight_of(int order, const R* src, R* dst, bool scaled, R scale,
                      std::integer_sequence<int, O...>) {
  auto one = [&]<int Order>() {
    using K = std::conditional_t<(Order <= kRealFullMax), RealFull<R, Order, Inv>,
                                 RealStraight<R, Order, Inv>>;
    Inv ? K::inv(src, dst, scaled, scale) : K::fwd(src, dst, scaled, scale);
  };
  ((order == O + 6 ? one.template operator()<O + 6>() : void()), ...);
}
// Real orders 6 .. kRealStraightMax in registers, Perm layout in and out.
template <class R, bool Inv>
void real_straight(int order, const R* src, R* dst, bool scaled, R scale) {
  real_straight_of<R, Inv>(order, src, dst, scaled, scale,
                           std::make_integer_sequence<int, kRealStraightMax - 5>{});
}

// Perm (native) to the requested layout, in place (CCS needs N + 2 elements).
template <class L, class R>
void perm_to(R* d, size_t n) {
  if constexpr (std::is_same_v<L, Pack>) {
    const R nyq = d[1];
    std::memmove(d + 1, d + 2, (n - 2) * sizeof(R));
    d[n - 1] = nyq;
  } else if constexpr (std::is_same_v<L, CCS>) {
    d[n] = d[1];
    d[n + 1] = R(0);
    d[1] = R(0);
  }
}
// The requested layout in src to Perm in dst (src may equal dst).
template <class L, class R>
void to_perm(const R* s, R* d, size_t n) {
  if constexpr (std::is_same_v<L, Pack>) {
    const R nyq = s[n - 1];
    std::memmove(d + 2, s + 1, (n - 2) * sizeof(R));
    d[0] = s[0];
    d[1] = nyq;
  } else {
    const R nyq = std::is_same_v<L, CCS> ? s[n] : s[1];
    if (d != s) std::memcpy(d + 2, s + 2, (n - 2) * sizeof(R));
    d[0] = s[0];
    d[1] = nyq;
  }
}

// One or two points: the spectrum is the sum (and the difference).
template <class L, class R>
void tiny_real_fwd(int order, const R* src, R* dst, bool scaled, R scale) {
  const R f = scaled ? scale : R(1);
  if (order == 0) {
    const R x = scaled ? src[0] * scale : src[0];
    dst[0] = x;
    if constexpr (std::is_same_v<L, CCS>) dst[1] = R(0);
    return;
  }
  const R a = src[0], b = src[1];
  const R x0 = scaled ? (a + b) * f : a + b, x1 = scaled ? (a - b) * f : a - b;
  dst[0] = x0;
  if constexpr (std::is_same_v<L, CCS>) {
    dst[1] = R(0);
    dst[2] = x1;
    dst[3] = R(0);
  } else {
    dst[1] = x1;
  }
}
template <class L, class R>
void tiny_real_inv(int order, const R* src, R* dst, bool scaled, R scale) {
  if (order == 0) {
    dst[0] = scaled ? src[0] * scale : src[0];
    return;
  }
  const R a = src[0], b = std::is_same_v<L, CCS> ? src[2] : src[1];
  dst[0] = scaled ? (a + b) * scale : a + b;
  dst[1] = scaled ? (a - b) * scale : a - b;
}

// Real kernels of orders 0 .. 5 from per-order tables (one set per layout); they write the
// requested layout themselves and fold the scale in.
template <class R, class L, int Order, bool Inv>
struct SmallR {
  static void run(const R* src, R* dst, bool scaled, R scale) {
    constexpr size_t n = size_t{1} << Order;
    if constexpr (Order <= 1) {
      if constexpr (Inv) {
        tiny_real_inv<L>(Order, src, dst, scaled, scale);
      } else {
        tiny_real_fwd<L>(Order, src, dst, scaled, scale);
      }
    } else if constexpr (!Inv) {
      if constexpr (Order == 2) {
        small_complex<R, false>(1, src, dst, scaled, scale);
        recombine<R, false>(dst, n, 2, nullptr);  // reads no factor at this order
      } else if (kOwnInPlace<R, Order, false> && src == dst) {
        RealFull<R, Order, false, InPlace<R, Order, false>>::fwd(src, dst, scaled, scale);
      } else {
        RealFull<R, Order, false>::fwd(src, dst, scaled, scale);
      }
      perm_to<L>(dst, n);
    } else if constexpr (Order == 2) {
      to_perm<L>(src, dst, n);
      recombine<R, true>(dst, n, 2, nullptr);
      small_complex<R, true>(1, dst, dst, scaled, scale);
    } else {
      const R* s = src;
      if constexpr (!std::is_same_v<L, Perm>) {
        to_perm<L>(src, dst, n);
        s = dst;
      }
      if (kOwnInPlace<R, Order, true> && s == dst) {
        RealFull<R, Order, true, InPlace<R, Order, true>>::inv(s, dst, scaled, scale);
      } else {
        RealFull<R, Order, true>::inv(s, dst, scaled, scale);
      }
    }
  }
  static void plain(const R* src, R* dst) { run(src, dst, false, R(1)); }
  static void scaled(const R* src, R* dst, R scale) { run(src, dst, true, scale); }
};
template <class R, class L, bool Inv>
struct RKernel {
  template <int O>
  using K = SmallR<R, L, O, Inv>;
};
template <class R, class L>
constexpr auto tbl_rFFTfwd_small =
    plain_table<RKernel<R, L, false>::template K, R>(std::make_integer_sequence<int, 6>{});
template <class R, class L>
constexpr auto tbl_rFFTfwd_small_scale =
    scaled_table<RKernel<R, L, false>::template K, R>(std::make_integer_sequence<int, 6>{});
template <class R, class L>
constexpr auto tbl_rFFTinv_small =
    plain_table<RKernel<R, L, true>::template K, R>(std::make_integer_sequence<int, 6>{});
template <class R, class L>
constexpr auto tbl_rFFTinv_small_scale =
    scaled_table<RKernel<R, L, true>::template K, R>(std::make_integer_sequence<int, 6>{});

template <class R, class L, bool Inv>
void real_small(int order, const R* src, R* dst, bool scaled, R scale) {
  if constexpr (Inv) {
    run_table(tbl_rFFTinv_small<R, L>.data(), tbl_rFFTinv_small_scale<R, L>.data(), order, src, dst,
              scaled, scale);
  } else {
    run_table(tbl_rFFTfwd_small<R, L>.data(), tbl_rFFTfwd_small_scale<R, L>.data(), order, src, dst,
              scaled, scale);
  }
}
constexpr int kRealSmallMax = 5;

}  // namespace

// ---- GetSize / Init ---------------------------------------------------------------------------
template <class Spec>
VekStatus get_size(int order, int flag, VekAccuracyHint, int* pSpecSize, int* pSpecBufferSize,
                   int* pBufferSize) {
  if (order < 0 || order > 30) return vekStatusBadFftOrder;
  if (!pSpecSize || !pSpecBufferSize || !pBufferSize) return vekStatusNullPtr;
  if (flag != VEK_FFT_NORM_NONE && flag != VEK_FFT_NORM_SQRT_N && flag != VEK_FFT_NORM_FWD_N &&
      flag != VEK_FFT_NORM_INV_N) {
    return vekStatusBadFftFlag;
  }
  if (order > Kind<Spec>::max_order) return vekStatusBadFftOrder;
  const Sizes s = sizes_of<Spec>(order);
  *pSpecSize = int(s.spec);
  *pSpecBufferSize = int(s.init);
  *pBufferSize = int(s.work);
  return vekStatusOk;
}

namespace {
// Init of the interleaved complex and the real kinds; `id` is the identifier the header gets.
template <class Spec>
VekStatus init_kind(int id, Header<typename Kind<Spec>::real_t>** out, int order, int flag,
                    VekAccuracyHint hint, Vek8u* pSpec, Vek8u* pSpecBuffer) {
  using K = Kind<Spec>;
  using R = typename K::real_t;
  if (order < 0 || order > K::max_order) return vekStatusBadFftOrder;
  if (!pSpec) return vekStatusNullPtr;
  uint8_t* base = align64(pSpec);
  auto* h = reinterpret_cast<Header<R>*>(base);
  std::memset(base, 0, kHeaderBytes);
  h->order = order;
  h->hint = hint;
  const int64_t n = int64_t{1} << order;
  switch (flag) {
    case VEK_FFT_NORM_NONE: break;
    case VEK_FFT_NORM_SQRT_N:
      h->fwd_scaled = h->inv_scaled = 1;
      h->scale = static_cast<R>(1.0 / std::sqrt(static_cast<double>(n)));
      break;
    case VEK_FFT_NORM_FWD_N:
    case VEK_FFT_NORM_INV_N:
      (flag == VEK_FFT_NORM_FWD_N ? h->fwd_scaled : h->inv_scaled) = 1;
      h->scale = R(1) / static_cast<R>(n);
      break;
    default: return vekStatusBadFftFlag;
  }
  h->id = id;
  if (order >= 11 && !pSpecBuffer) return vekStatusNullPtr;

  const int pass = K::real ? order - 1 : order;
  if ((K::real && order <= 4) || (!K::real && order <= 6)) {
    *out = h;
    return vekStatusOk;
  }
  // Base sine table: the constant one up to order 10, else built in the init buffer.
  const R* sine = fixed_sine<R>();
  int sine_order = 10;
  if (order > 10) {
    R* s = reinterpret_cast<R*>(align64(pSpecBuffer));
    build_sine(s, order);
    sine = s;
    sine_order = order;
  }
  uint8_t* at = base + kHeaderBytes;
  if (pass > 6) {
    if (pass <= Prec<R>::mid_max) {
      const Plan plan = make_plan(pass, Prec<R>::logv);
      std::memcpy(at, &plan, sizeof plan);
      h->plan = at;
      at = align64(at + ru64((int64_t{1} << pass) + 4));
      R* tw = reinterpret_cast<R*>(at);
      fill_twiddles(plan, sine, sine_order, tw);
      h->twiddle = tw;
      at += ru64(int64_t(2 * sizeof(R)) * ((int64_t{1} << pass) + 1));
      h->work_size = int32_t(ru64(int64_t(2 * sizeof(R)) << pass));
    } else {
      at = align64(at);
      const LargeSizes l = large_sizes<R>(pass);
      large_init<R>(h, at, sine, sine_order, pass);
      at += l.spec;
      h->work_size = int32_t(l.work);
    }
  }
  if constexpr (K::real) {
    at = align64(at);
    R* fwd = reinterpret_cast<R*>(at);
    R* inv = reinterpret_cast<R*>(at + rec_table_bytes<R>(order));
    build_rec(fwd, inv, sine, sine_order, order);
    h->rec_fwd = fwd;
    h->rec_inv = inv;
  }
  *out = h;
  return vekStatusOk;
}

template <class Spec>
struct Interleaved {
  using type = Spec;
};
template <>
struct Interleaved<VeksFFTSpec_C_32f> {
  using type = VeksFFTSpec_C_32fc;
};
template <>
struct Interleaved<VeksFFTSpec_C_64f> {
  using type = VeksFFTSpec_C_64fc;
};
}  // namespace

template <class Spec>
VekStatus init(Spec** ppFFTSpec, int order, int flag, VekAccuracyHint hint, Vek8u* pSpec,
               Vek8u* pSpecBuffer) {
  using Base = typename Interleaved<Spec>::type;
  if (!ppFFTSpec) return vekStatusNullPtr;
  Header<typename Kind<Spec>::real_t>* h = nullptr;
  VEKS_TRY(init_kind<Base>(Kind<Base>::id, &h, order, flag, hint, pSpec, pSpecBuffer));
  h->id = Kind<Spec>::id;  // the split kinds share the interleaved layout
  *ppFFTSpec = reinterpret_cast<Spec*>(h);
  return vekStatusOk;
}

// ---- execution --------------------------------------------------------------------------------
template <class D, class C, class Spec>
VekStatus ctoc(const C* pSrc, C* pDst, const Spec* pFFTSpec, Vek8u* pBuffer) {
  using R = typename Kind<Spec>::real_t;
  VEKS_TRY(check_exec(pFFTSpec, pBuffer, pSrc, pDst));
  const auto* h = header_of(pFFTSpec);
  const bool scaled = D::inv ? h->inv_scaled : h->fwd_scaled;
  complex_pass<R, D::inv>(h, h->order, reinterpret_cast<const R*>(pSrc), reinterpret_cast<R*>(pDst),
                          work_of(h, pBuffer), scaled, h->scale);
  return vekStatusOk;
}

template <class D, class R, class Spec>
VekStatus ctoc_split(const R* pSrcRe, const R* pSrcIm, R* pDstRe, R* pDstIm, const Spec* pFFTSpec,
                     Vek8u* pBuffer) {
  VEKS_TRY(check_exec(pFFTSpec, pBuffer, pSrcRe, pSrcIm, pDstRe, pDstIm));
  const auto* h = header_of(pFFTSpec);
  const bool scaled = D::inv ? h->inv_scaled : h->fwd_scaled;
  const int order = h->order;
  const size_t n = size_t{1} << order;
  if (order > Prec<R>::mid_max) {
    large_run<R, D::inv>(h, order, Split<R>{const_cast<R*>(pSrcRe), const_cast<R*>(pSrcIm)},
                         Split<R>{pDstRe, pDstIm}, work_of(h, pBuffer), scaled, h->scale);
    return vekStatusOk;
  }
  // Interleave into the work buffer (a local one for the small orders), transform there in place
  // with the destination arrays as the second buffer, and split the result out.
  alignas(64) R local[2 << 6];
  R* z = order <= 6 ? local : work_of(h, pBuffer);
  for (size_t i = 0; i < n; ++i) {
    z[2 * i] = pSrcRe[i];
    z[2 * i + 1] = pSrcIm[i];
  }
  if (order <= 6) {
    small_complex<R, D::inv>(order, z, z, scaled, h->scale);
  } else if (order <= Prec<R>::straight_max) {
    straight_mid<R, D::inv>(order, z, z, h->twiddle, scaled, h->scale);
  } else {
    Plan plan;
    std::memcpy(&plan, h->plan, sizeof plan);
    run_plan<R, (1 << Prec<R>::logv), D::inv>(
        plan, Buf<R>{z}, Buf<R>{z}, Buf<R>{pDstRe, pDstIm, n / 2}, h->twiddle, scaled, h->scale);
  }
  for (size_t i = 0; i < n; ++i) {
    pDstRe[i] = z[2 * i];
    pDstIm[i] = z[2 * i + 1];
  }
  return vekStatusOk;
}

template <class L, class R, class Spec>
VekStatus rfwd(const R* pSrc, R* pDst, const Spec* pFFTSpec, Vek8u* pBuffer) {
  VEKS_TRY(check_exec(pFFTSpec, pBuffer, pSrc, pDst));
  const auto* h = header_of(pFFTSpec);
  const int order = h->order;
  const size_t n = size_t{1} << order;
  const bool scaled = h->fwd_scaled;
  if (order <= kRealSmallMax) {
    real_small<R, L, false>(order, pSrc, pDst, scaled, h->scale);
    return vekStatusOk;
  }
  if (order <= kRealStraightMax) {
    real_straight<R, false>(order, pSrc, pDst, scaled, h->scale);
  } else {
    complex_pass<R, false>(h, order - 1, pSrc, pDst, work_of(h, pBuffer), scaled, h->scale);
    recombine<R, false>(pDst, n, order, h->rec_fwd);  // none at order 2: it reads no factor
  }
  perm_to<L>(pDst, n);
  return vekStatusOk;
}

template <class L, class R, class Spec>
VekStatus rinv(const R* pSrc, R* pDst, const Spec* pFFTSpec, Vek8u* pBuffer) {
  VEKS_TRY(check_exec(pFFTSpec, pBuffer, pSrc, pDst));
  const auto* h = header_of(pFFTSpec);
  const int order = h->order;
  const size_t n = size_t{1} << order;
  const bool scaled = h->inv_scaled;
  if (order <= kRealSmallMax) {
    real_small<R, L, true>(order, pSrc, pDst, scaled, h->scale);
    return vekStatusOk;
  }
  if (order <= kRealStraightMax) {
    const R* s = pSrc;
    if constexpr (!std::is_same_v<L, Perm>) {
      to_perm<L>(pSrc, pDst, n);
      s = pDst;
    }
    real_straight<R, true>(order, s, pDst, scaled, h->scale);
    return vekStatusOk;
  }
  to_perm<L>(pSrc, pDst, n);
  recombine<R, true>(pDst, n, order, h->rec_inv);  // none at order 2: it reads no factor
  complex_pass<R, true>(h, order - 1, pDst, pDst, work_of(h, pBuffer), scaled, h->scale);
  return vekStatusOk;
}

// ---- instantiations ---------------------------------------------------------------------------
#define VEKS_FFT_KIND(S)                                                       \
  template VekStatus get_size<S>(int, int, VekAccuracyHint, int*, int*, int*); \
  template VekStatus init<S>(S**, int, int, VekAccuracyHint, Vek8u*, Vek8u*);
VEKS_FFT_KIND(VeksFFTSpec_C_32fc)
VEKS_FFT_KIND(VeksFFTSpec_C_32f)
VEKS_FFT_KIND(VeksFFTSpec_R_32f)
VEKS_FFT_KIND(VeksFFTSpec_C_64fc)
VEKS_FFT_KIND(VeksFFTSpec_C_64f)
VEKS_FFT_KIND(VeksFFTSpec_R_64f)
#undef VEKS_FFT_KIND

#define VEKS_FFT_REAL(L, R, SR)                                \
  template VekStatus rfwd<L>(const R*, R*, const SR*, Vek8u*); \
  template VekStatus rinv<L>(const R*, R*, const SR*, Vek8u*);
#define VEKS_FFT_COMPLEX(D, R, C, SC, SS)                      \
  template VekStatus ctoc<D>(const C*, C*, const SC*, Vek8u*); \
  template VekStatus ctoc_split<D>(const R*, const R*, R*, R*, const SS*, Vek8u*);
VEKS_FFT_COMPLEX(Fwd, float, Vek32fc, VeksFFTSpec_C_32fc, VeksFFTSpec_C_32f)
VEKS_FFT_COMPLEX(Inv, float, Vek32fc, VeksFFTSpec_C_32fc, VeksFFTSpec_C_32f)
VEKS_FFT_COMPLEX(Fwd, double, Vek64fc, VeksFFTSpec_C_64fc, VeksFFTSpec_C_64f)
VEKS_FFT_COMPLEX(Inv, double, Vek64fc, VeksFFTSpec_C_64fc, VeksFFTSpec_C_64f)
#undef VEKS_FFT_COMPLEX
VEKS_FFT_REAL(Pack, float, VeksFFTSpec_R_32f)
VEKS_FFT_REAL(Perm, float, VeksFFTSpec_R_32f)
VEKS_FFT_REAL(CCS, float, VeksFFTSpec_R_32f)
VEKS_FFT_REAL(Pack, double, VeksFFTSpec_R_64f)
VEKS_FFT_REAL(Perm, double, VeksFFTSpec_R_64f)
VEKS_FFT_REAL(CCS, double, VeksFFTSpec_R_64f)
#undef VEKS_FFT_REAL

}  // namespace veks::fft
