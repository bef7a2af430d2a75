// Transforms whose data exceed the caches, N = J x L: column transforms of length J over blocks
// of B adjacent columns gathered into the work buffer (twiddled and written to the bit-reversed
// row), in-cache row transforms of length L written back in bit-reversed order, then one tiled
// bit-reversal permutation of the whole array. Everything after the column pass runs in place
// in the destination, so the work buffer holds only a column block or two rows.
#include <algorithm>
#include <cstring>

#include "frame/stream.hpp"
#include "transform/fft_spec.hpp"

namespace veks::fft {
namespace {

struct Geometry {
  int order, lr, lc, lb;
  size_t block;  // columns per block
};

template <class R>
Geometry geometry(int order) {
  const int lr = std::min(16, (order + 1) / 2 + 2);
  return {order, lr, order - lr, (order + 1) / 2, sizeof(R) == 4 ? size_t{32} : size_t{16}};
}

inline size_t rev_bits(size_t x, int bits) {
  uint32_t v = uint32_t(x);
  v = ((v >> 1) & 0x55555555u) | ((v & 0x55555555u) << 1);
  v = ((v >> 2) & 0x33333333u) | ((v & 0x33333333u) << 2);
  v = ((v >> 4) & 0x0F0F0F0Fu) | ((v & 0x0F0F0F0Fu) << 4);
  v = __builtin_bswap32(v);
  return bits == 0 ? 0 : size_t(v >> (32 - bits));
}

constexpr uint8_t kRev5[32] = {0, 16, 8, 24, 4, 20, 12, 28, 2, 18, 10, 26, 6, 22, 14, 30,
                               1, 17, 9, 25, 5, 21, 13, 29, 3, 19, 11, 27, 7, 23, 15, 31};

// Index k = [a (5 bits) | mid | b (5 bits)] of a 2^order array goes to
// [rev b | rev mid | rev a]. f(a, b, r, c) per element of one 32 x 32 tile, where source row a,
// column b goes to row r = rev b, column c = rev a; destination rows are written in order.
template <class F>
inline void tile(F f) {
  for (size_t r = 0; r < 32; ++r) {
    for (size_t c = 0; c < 32; ++c) f(kRev5[c], kRev5[r], r, c);
  }
}

// Out of place: put(rev(k), z[k]) through tiles staged in tb (1024 elements).
template <class E, class Put>
void bitrev_copy(int order, const E* z, E* tb, Put put) {
  const int mb = order - 10;
  const size_t stride = size_t{1} << (order - 5);
  for (size_t mid = 0; mid < (size_t{1} << mb); ++mid) {
    const size_t dof = rev_bits(mid, mb) * 32;
    for (size_t a = 0; a < 32; ++a)
      std::memcpy(tb + 32 * a, z + a * stride + mid * 32, 32 * sizeof(E));
    tile(
        [&](size_t a, size_t b, size_t r, size_t c) { put(r * stride + dof + c, tb[32 * a + b]); });
  }
}

// In place: tiles swap with their bit-reversed partners through two 1024-element buffers.
template <class E>
void bitrev_inplace(E* d, int order, E* ta, E* tb) {
  const int mb = order - 10;
  const size_t stride = size_t{1} << (order - 5);
  for (size_t mid = 0; mid < (size_t{1} << mb); ++mid) {
    const size_t pm = rev_bits(mid, mb);
    if (pm < mid) continue;
    for (size_t a = 0; a < 32; ++a) {
      std::memcpy(ta + 32 * a, d + a * stride + mid * 32, 32 * sizeof(E));
      if (pm != mid) std::memcpy(tb + 32 * a, d + a * stride + pm * 32, 32 * sizeof(E));
    }
    tile([&](size_t a, size_t b, size_t r, size_t c) {
      d[r * stride + pm * 32 + c] = ta[32 * a + b];
    });
    if (pm != mid) {
      tile([&](size_t a, size_t b, size_t r, size_t c) {
        d[r * stride + mid * 32 + c] = tb[32 * a + b];
      });
    }
  }
}

template <class R>
struct Cpx {
  R re, im;
};

template <class R>
void lookup(const LargeTables<R>& t, int lb, size_t idx, R* out) {
  const R* l = t.lo + 2 * (idx & ((size_t{1} << lb) - 1));
  const R* h = t.hi + 2 * (idx >> lb);
  out[0] = std::fma(l[0], h[0], -l[1] * h[1]);
  out[1] = std::fma(l[0], h[1], l[1] * h[0]);
}

}  // namespace

template <class R>
LargeSizes large_sizes(int order) {
  const Geometry g = geometry<R>(order);
  constexpr int64_t cs = 2 * sizeof(R);
  constexpr int logv = Prec<R>::logv;
  const int64_t j = int64_t{1} << g.lc, l = int64_t{1} << g.lr;
  const int64_t spec =
      2 * ru64(sizeof(Plan)) + ru64(cs * int64_t(plan_twiddles(make_plan(g.lr, logv)) + 1)) +
      ru64(cs * int64_t(plan_twiddles(make_plan(g.lc, 0)) + 1)) + ru64(cs * j * int64_t(g.block)) +
      ru64(cs << g.lb) + ru64(cs << (order - g.lb));
  const int64_t work = cs * std::max({2 * j * int64_t(g.block), 2 * l, int64_t{2048}});
  return {spec, 0, work};
}

template <class R>
void large_init(Header<R>* h, uint8_t* at, const R* sine, int sine_order, int order) {
  const Geometry g = geometry<R>(order);
  constexpr int64_t cs = 2 * sizeof(R);
  LargeTables<R>& t = h->large;
  auto take = [&](int64_t bytes) {
    uint8_t* p = at;
    at += ru64(bytes);
    return p;
  };
  const Plan rp = make_plan(g.lr, Prec<R>::logv), cp = make_plan(g.lc, 0);
  auto* rpp = reinterpret_cast<Plan*>(take(sizeof(Plan)));
  auto* cpp = reinterpret_cast<Plan*>(take(sizeof(Plan)));
  std::memcpy(rpp, &rp, sizeof rp);
  std::memcpy(cpp, &cp, sizeof cp);
  t.row_plan = rpp;
  t.col_plan = cpp;
  R* rtw = reinterpret_cast<R*>(take(cs * int64_t(plan_twiddles(rp) + 1)));
  fill_twiddles(rp, sine, sine_order, rtw);
  t.row_tw = rtw;
  R* ctw = reinterpret_cast<R*>(take(cs * int64_t(plan_twiddles(cp) + 1)));
  fill_twiddles(cp, sine, sine_order, ctw);
  t.col_tw = ctw;
  const size_t rows = size_t{1} << g.lc;
  R* step = reinterpret_cast<R*>(take(cs * int64_t(rows * g.block)));
  for (size_t k = 0; k < rows; ++k) {
    for (size_t l = 0; l < g.block; ++l) {
      twiddle(sine, sine_order, order, k * l, step + 2 * (k * g.block + l));
    }
  }
  t.step = step;
  R* lo = reinterpret_cast<R*>(take(cs << g.lb));
  for (size_t i = 0; i < (size_t{1} << g.lb); ++i) twiddle(sine, sine_order, order, i, lo + 2 * i);
  R* hi = reinterpret_cast<R*>(take(cs << (order - g.lb)));
  for (size_t i = 0; i < (size_t{1} << (order - g.lb)); ++i) {
    twiddle(sine, sine_order, order, i << g.lb, hi + 2 * i);
  }
  t.lo = lo;
  t.hi = hi;
}

template <class R, bool Inv, class IO>
void large_run(const Header<R>* h, int order, IO src, IO dst, R* work, bool scaled, R scale) {
  constexpr int W = 1 << Prec<R>::logv;
  using V = CV<R, W>;
  const Geometry g = geometry<R>(order);
  const LargeTables<R>& t = h->large;
  const size_t rows = size_t{1} << g.lc, len = size_t{1} << g.lr, bw = g.block;
  const size_t n = size_t{1} << order;
  constexpr bool split = std::is_same_v<IO, Split<R>>;

  // Column pass: src -> dst, rows written to their bit-reversed places. Out of place, a
  // destination larger than the caches is written around them: its lines were not read by this
  // pass, and fetching each one before overwriting it would add a third of the pass's traffic.
  bool around = false;
  if constexpr (!split) {
    around = src.p != dst.p && reinterpret_cast<uintptr_t>(dst.p) % 64 == 0 &&
             worth_streaming(4 * n * sizeof(R));
  }
  R* a = work;
  R* b = work + 2 * rows * bw;
  for (size_t m0 = 0; m0 < len; m0 += bw) {
    for (size_t j = 0; j < rows; ++j) {
      const size_t at = j * len + m0;
      if constexpr (split) {
        for (size_t l = 0; l < bw; ++l) {
          a[2 * (j * bw + l)] = src.re[at + l];
          a[2 * (j * bw + l) + 1] = src.im[at + l];
        }
      } else {
        if (m0 + bw < len) {  // the next block's row, while this one is copied
          for (size_t c = 0; c < 2 * bw * sizeof(R); c += 64) {
            __builtin_prefetch(reinterpret_cast<const char*>(src.p + 2 * (at + bw)) + c);
          }
        }
        std::memcpy(a + 2 * j * bw, src.p + 2 * at, 2 * bw * sizeof(R));
      }
    }
    run_plan<R, W, Inv>(*t.col_plan, Buf<R>{a}, Buf<R>{a}, Buf<R>{b}, t.col_tw, false, R(1), bw);
    for (size_t k = 0; k < rows; ++k) {
      R w[2];
      lookup(t, g.lb, (k * m0) & (n - 1), w);
      const V wr = splat<V>(w[0]), wi = splat<V>(w[1]);
      const size_t at = rev_bits(k, g.lc) * len + m0;
      for (size_t l = 0; l < bw; l += W) {
        const V f = cmul<false>(ld<R, W>(t.step + 2 * (k * bw + l)), wr, wi);
        const V y = cmul<Inv>(ld<R, W>(a + 2 * (k * bw + l)), f);
        if constexpr (split) {
          for (int i = 0; i < W; ++i) {
            dst.re[at + l + size_t(i)] = y[2 * i];
            dst.im[at + l + size_t(i)] = y[2 * i + 1];
          }
        } else if (around) {
          st_around<R, W>(dst.p + 2 * (at + l), y);
        } else {
          st<R, W>(dst.p + 2 * (at + l), y);
        }
      }
    }
  }
  if (around) _mm_sfence();

  // Row pass: each row transformed in cache and written back in bit-reversed order.
  R* z = work;
  R* s = work + 2 * len;
  for (size_t r = 0; r < rows; ++r) {
    const size_t at = r * len;
    if constexpr (split) {
      for (size_t i = 0; i < len; ++i) {
        z[2 * i] = dst.re[at + i];
        z[2 * i + 1] = dst.im[at + i];
      }
      run_plan<R, W, Inv>(*t.row_plan, Buf<R>{z}, Buf<R>{z}, Buf<R>{s}, t.row_tw, scaled, scale);
      bitrev_copy(g.lr, reinterpret_cast<const Cpx<R>*>(z), reinterpret_cast<Cpx<R>*>(s),
                  [&](size_t di, Cpx<R> v) {
                    dst.re[at + di] = v.re;
                    dst.im[at + di] = v.im;
                  });
    } else {
      run_plan<R, W, Inv>(*t.row_plan, Buf<R>{dst.p + 2 * at}, Buf<R>{z}, Buf<R>{s}, t.row_tw,
                          scaled, scale);
      auto* dc = reinterpret_cast<Cpx<R>*>(dst.p + 2 * at);
      bitrev_copy(g.lr, reinterpret_cast<const Cpx<R>*>(z), reinterpret_cast<Cpx<R>*>(s),
                  [&](size_t di, Cpx<R> v) { dc[di] = v; });
    }
  }

  // The whole array from bit-reversed to natural order.
  if constexpr (split) {
    bitrev_inplace(dst.re, order, work, work + 1024);
    bitrev_inplace(dst.im, order, work, work + 1024);
  } else {
    auto* tc = reinterpret_cast<Cpx<R>*>(work);
    bitrev_inplace(reinterpret_cast<Cpx<R>*>(dst.p), order, tc, tc + 1024);
  }
}

#define VEKS_FFT_LARGE(R)                                                                          \
  template LargeSizes large_sizes<R>(int);                                                         \
  template void large_init<R>(Header<R>*, uint8_t*, const R*, int, int);                           \
  template void large_run<R, false, Inter<R>>(const Header<R>*, int, Inter<R>, Inter<R>, R*, bool, \
                                              R);                                                  \
  template void large_run<R, true, Inter<R>>(const Header<R>*, int, Inter<R>, Inter<R>, R*, bool,  \
                                             R);                                                   \
  template void large_run<R, false, Split<R>>(const Header<R>*, int, Split<R>, Split<R>, R*, bool, \
                                              R);                                                  \
  template void large_run<R, true, Split<R>>(const Header<R>*, int, Split<R>, Split<R>, R*, bool,  \
                                             R);
VEKS_FFT_LARGE(float)
VEKS_FFT_LARGE(double)
#undef VEKS_FFT_LARGE

}  // namespace veks::fft
