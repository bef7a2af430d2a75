// Accuracy of the veks power-of-two FFTs against FFTW 3, both measured against a long-double
// reference transform.
//
// For every kind (C_32fc, C_32f split, R_32f, C_64fc, C_64f split, R_64f), forward and inverse,
// and every order from 0 to 22, inputs of values uniform in [-1, 1) (one input from order 12 up,
// 2^(12 - order) inputs below, errors pooled over them) go through veks (out of place, unscaled:
// VEK_FFT_NORM_NONE), through FFTW (FFTW_ESTIMATE plans, or FFTW_MEASURE with
// --measure; FFTW's interleaved transform stands in for the split kinds) and through the
// reference; each result's error is the relative RMS error ||y - ref|| / ||ref||. The real kinds
// run all three packed layouts (Perm, Pack, CCS) and report the worst; the inverse real input is
// a Hermitian half spectrum (imaginary parts of the DC and Nyquist bins zero). Every veks call is
// also made in place and must give bit-identical results.
//
// The reference is an iterative radix-2 FFT in long double (64-bit significand) whose twiddles
// come from sinl / cosl of arguments reduced with integers to [0, pi/4]; its own error grows by
// a few long-double roundings (2^-64) per stage, near 2e-19 at order 22, three orders of magnitude
// below the errors of double-precision transforms.
//
// The program fails (exit status 1) if, anywhere, veks's error exceeds margin * max(FFTW's
// error, u), u being the unit roundoff of the precision (2^-24, 2^-53) and margin 2 by default
// (--margin=x), if an in-place result differs from the out-of-place one, or if a call fails.
// Built without FFTW, the bound is margin * u * max(1, order). --max-order=k stops at order k.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "transform/fft_api.hpp"

namespace {

using veks_fft::alloc;
using veks_fft::Api;
using veks_fft::Buf;
using veks_fft::VeksPlan;
using LD = long double;

struct CL {
  LD re = 0, im = 0;
};

// exp(sign * 2 pi i k / n) for 0 <= k < n, n a power of two: k / n is split with integers into
// quarter turns and a remainder, and the remainder folded to [0, pi/4] before sinl and cosl.
CL root(uint64_t k, uint64_t n, int sign) {
  const LD half_pi = 1.570796326794896619231321691639751442L;
  const uint64_t q = (4 * k) / n, r = (4 * k) % n;  // angle = (q + r / n) quarter turns
  LD c, s;
  if (2 * r <= n) {
    c = std::cos(half_pi * static_cast<LD>(r) / static_cast<LD>(n));
    s = std::sin(half_pi * static_cast<LD>(r) / static_cast<LD>(n));
  } else {
    c = std::sin(half_pi * static_cast<LD>(n - r) / static_cast<LD>(n));
    s = std::cos(half_pi * static_cast<LD>(n - r) / static_cast<LD>(n));
  }
  for (uint64_t i = 0; i < q; ++i) {  // one quarter turn: (c, s) -> (-s, c)
    const LD t = c;
    c = -s;
    s = t;
  }
  return {c, sign * s};
}

// Unscaled DFT of a in place: sum_j a[j] exp(sign * 2 pi i j k / n).
void reference(std::vector<CL>& a, int sign) {
  const size_t n = a.size();
  for (size_t i = 1, j = 0; i < n; ++i) {  // bit reversal
    size_t bit = n >> 1;
    for (; j & bit; bit >>= 1) j ^= bit;
    j |= bit;
    if (i < j) std::swap(a[i], a[j]);
  }
  std::vector<CL> w(n / 2);
  for (size_t k = 0; k < n / 2; ++k) w[k] = root(k, n, sign);
  for (size_t len = 2; len <= n; len *= 2) {
    const size_t step = n / len;
    for (size_t b = 0; b < n; b += len) {
      for (size_t j = 0; j < len / 2; ++j) {
        const CL t = w[j * step], v = a[b + j + len / 2];
        const CL p{t.re * v.re - t.im * v.im, t.re * v.im + t.im * v.re};
        const CL u = a[b + j];
        a[b + j] = {u.re + p.re, u.im + p.im};
        a[b + j + len / 2] = {u.re - p.re, u.im - p.im};
      }
    }
  }
}

// ||y - ref|| / ||ref|| over all the results added (ref all zero: the plain norm of y).
struct Err {
  LD num = 0, den = 0;
  template <class R>
  void add(const R* y, const LD* ref, size_t n) {
    for (size_t i = 0; i < n; ++i) {
      const LD d = static_cast<LD>(y[i]) - ref[i];
      num += d * d;
      den += ref[i] * ref[i];
    }
  }
  double value() const { return static_cast<double>(std::sqrt(den > 0 ? num / den : num)); }
};

// Packed real spectra of length n: layout 0 Perm, 1 Pack, 2 CCS; `ccs` holds the n / 2 + 1 bins
// R0 I0 R1 I1 ... (ccs_len(n) reals).
const char* const kLayout[3] = {"Perm", "Pack", "CCS"};
size_t ccs_len(size_t n) { return 2 * (n / 2 + 1); }

template <class R>
void from_ccs(const R* ccs, R* out, size_t n, int layout) {
  if (layout == 2 || n == 1) {
    std::copy(ccs, ccs + (layout == 2 ? ccs_len(n) : 1), out);
    return;
  }
  if (layout == 0) {
    out[0] = ccs[0];
    out[1] = ccs[n];
    std::copy(ccs + 2, ccs + n, out + 2);
  } else {
    out[0] = ccs[0];
    std::copy(ccs + 2, ccs + n, out + 1);
    out[n - 1] = ccs[n];
  }
}

template <class R>
void to_ccs(const R* in, R* ccs, size_t n, int layout) {
  if (layout == 2) {
    std::copy(in, in + ccs_len(n), ccs);
    return;
  }
  std::fill(ccs, ccs + ccs_len(n), R(0));
  ccs[0] = in[0];
  if (n == 1) return;
  if (layout == 0) {
    ccs[n] = in[1];
    std::copy(in + 2, in + n, ccs + 2);
  } else {
    std::copy(in + 1, in + n - 1, ccs + 2);
    ccs[n] = in[n - 1];
  }
}

struct Result {
  Err veks[3], peer;  // veks: per packed layout for the real kinds, else [0]
  bool has_peer = false;
  std::string trouble;  // a failed call or an in-place difference
};

struct Options {
  double margin = 2;
  int max_order = 22;
  unsigned fftw_flags = 0;
};

// Kinds: 0 complex interleaved, 1 complex split, 2 real. One input, one direction, one order;
// the errors are added to res.
template <class R>
void trial(int kind, bool inverse, int order, const Options& opt, std::mt19937_64& gen,
           Result& res) {
  using A = Api<R>;
  using C = typename A::C;
  const size_t n = size_t{1} << order, h = n / 2;
  const int ni = static_cast<int>(n), sign = inverse ? 1 : -1;
  std::uniform_real_distribution<double> u(-1, 1);
  const bool real = kind == 2;
  const bool spectrum_in = real && inverse;
  // Input: n complex values, n real samples or the CCS half spectrum; output likewise (a real
  // forward result is compared as CCS).
  const size_t in_len = !real ? 2 * n : inverse ? ccs_len(n) : n;
  const size_t out_len = !real ? 2 * n : inverse ? n : ccs_len(n);
  Buf<R> x = alloc<R>(in_len);
  for (size_t i = 0; i < in_len; ++i) x[i] = static_cast<R>(u(gen));
  if (spectrum_in) x[1] = x[2 * h + 1] = 0;  // DC and Nyquist bins are real

  // Reference, as out_len reals.
  std::vector<CL> a(n);
  if (!real) {
    for (size_t i = 0; i < n; ++i) a[i] = {x[2 * i], x[2 * i + 1]};
  } else if (!inverse) {
    for (size_t i = 0; i < n; ++i) a[i] = {x[i], 0};
  } else {
    for (size_t k = 0; k <= h; ++k) a[k] = {x[2 * k], x[2 * k + 1]};
    for (size_t k = h + 1; k < n; ++k) a[k] = {x[2 * (n - k)], -x[2 * (n - k) + 1]};
  }
  reference(a, sign);
  std::vector<LD> ref(out_len);
  for (size_t i = 0; i < out_len; ++i) {
    if (real && inverse)
      ref[i] = a[i].re;
    else
      ref[i] = (i & 1) ? a[i / 2].im : a[i / 2].re;
  }

  // Every buffer handed to veks has exactly the length the call may touch.
  auto same = [&](const R* p, const R* q, size_t len, const char* what) {
    if (std::memcmp(p, q, len * sizeof(R)) != 0 && res.trouble.empty())
      res.trouble = std::string("in place differs") + what;
  };
  auto status = [&](int s, const char* what) {
    if (s < 0 && res.trouble.empty())
      res.trouble = std::string(what) + " status " + std::to_string(s);
    return s >= 0;
  };
  if (kind == 0) {
    VeksPlan<typename A::SpecC> p(order, VEK_FFT_NORM_NONE, A::size_c, A::init_c);
    Buf<R> y = alloc<R>(2 * n), z = alloc<R>(2 * n);
    const C* cx = reinterpret_cast<const C*>(x.get());
    C* cy = reinterpret_cast<C*>(y.get());
    C* cz = reinterpret_cast<C*>(z.get());
    std::copy(x.get(), x.get() + in_len, z.get());
    if (status((inverse ? A::inv_c : A::fwd_c)(cx, cy, p.spec, p.buf()), "out of place") &&
        status((inverse ? A::inv_c_i : A::fwd_c_i)(cz, p.spec, p.buf()), "in place"))
      same(y.get(), z.get(), out_len, "");
    res.veks[0].add(y.get(), ref.data(), out_len);
  } else if (kind == 1) {
    VeksPlan<typename A::SpecS> p(order, VEK_FFT_NORM_NONE, A::size_s, A::init_s);
    std::vector<R> re(n), im(n), ore(n), oim(n);
    for (size_t i = 0; i < n; ++i) re[i] = x[2 * i], im[i] = x[2 * i + 1];
    if (status((inverse ? A::inv_s : A::fwd_s)(re.data(), im.data(), ore.data(), oim.data(), p.spec,
                                               p.buf()),
               "out of place") &&
        status((inverse ? A::inv_s_i : A::fwd_s_i)(re.data(), im.data(), p.spec, p.buf()),
               "in place")) {
      same(ore.data(), re.data(), n, " (re)");
      same(oim.data(), im.data(), n, " (im)");
    }
    std::vector<R> y(2 * n);
    for (size_t i = 0; i < n; ++i) y[2 * i] = ore[i], y[2 * i + 1] = oim[i];
    res.veks[0].add(y.data(), ref.data(), out_len);
  } else {
    VeksPlan<typename A::SpecR> p(order, VEK_FFT_NORM_NONE, A::size_r, A::init_r);
    using Fn = VekStatus (*)(const R*, R*, const typename A::SpecR*, Vek8u*);
    using FnI = VekStatus (*)(R*, const typename A::SpecR*, Vek8u*);
    const Fn fwd[3] = {A::fwd_perm, A::fwd_pack, A::fwd_ccs};
    const Fn inv[3] = {A::inv_perm, A::inv_pack, A::inv_ccs};
    const FnI fwd_i[3] = {A::fwd_perm_i, A::fwd_pack_i, A::fwd_ccs_i};
    const FnI inv_i[3] = {A::inv_perm_i, A::inv_pack_i, A::inv_ccs_i};
    std::vector<R> ccs(ccs_len(n));
    for (int layout = 0; layout < 3; ++layout) {
      const size_t packed_len = layout == 2 ? ccs_len(n) : n;
      const size_t len_in = inverse ? packed_len : n, len_out = inverse ? n : packed_len;
      Buf<R> packed = alloc<R>(packed_len), y = alloc<R>(len_out),
             z = alloc<R>(std::max(len_in, len_out));
      const R* src = x.get();
      if (inverse) {
        from_ccs(x.get(), packed.get(), n, layout);
        src = packed.get();
      }
      std::copy(src, src + len_in, z.get());
      if (!status((inverse ? inv : fwd)[layout](src, y.get(), p.spec, p.buf()), kLayout[layout]) ||
          !status((inverse ? inv_i : fwd_i)[layout](z.get(), p.spec, p.buf()), kLayout[layout]))
        break;
      same(y.get(), z.get(), len_out, (std::string(" (") + kLayout[layout] + ")").c_str());
      const R* got = y.get();
      if (!inverse) {
        to_ccs(y.get(), ccs.data(), n, layout);
        got = ccs.data();
      }
      res.veks[layout].add(got, ref.data(), out_len);
    }
  }

#ifdef VEKS_HAVE_FFTW
  {
    // FFTW's complex-to-real transform overwrites its input, so plans are made first and the
    // input is copied in afterwards.
    Buf<R> fi = alloc<R>(in_len), fo = alloc<R>(out_len);
    typename A::Plan plan =
        !real      ? A::dft(ni, reinterpret_cast<C*>(fi.get()), reinterpret_cast<C*>(fo.get()),
                       inverse ? FFTW_BACKWARD : FFTW_FORWARD, opt.fftw_flags)
        : !inverse ? A::r2c(ni, fi.get(), reinterpret_cast<C*>(fo.get()), opt.fftw_flags)
                   : A::c2r(ni, reinterpret_cast<C*>(fi.get()), fo.get(), opt.fftw_flags);
    if (plan == nullptr) veks_fft::die("FFTW planning", -1);
    std::copy(x.get(), x.get() + in_len, fi.get());
    A::run(plan);
    A::destroy(plan);
    res.peer.add(fo.get(), ref.data(), out_len);
    res.has_peer = true;
  }
#else
  (void)ni;
  (void)opt;
#endif
}

template <class R>
bool run_kind(int kind, const Options& opt) {
  const char* names[3] = {"c (interleaved)", " (split)", " (real; worst of Perm, Pack, CCS)"};
  const char* prefix = kind == 2 ? "R_" : "C_";
  const double unit = std::ldexp(1.0, sizeof(R) == 4 ? -24 : -53);
  std::printf("\n%s%s%s\n%5s | %10s %10s %7s | %10s %10s %7s\n", prefix, Api<R>::name, names[kind],
              "order", "fwd veks", "FFTW", "ratio", "inv veks", "FFTW", "ratio");
  bool ok = true;
  std::mt19937_64 gen(static_cast<uint64_t>(kind) * 1000003u + sizeof(R));
  for (int order = 0; order <= opt.max_order; ++order) {
    std::printf("%5d |", order);
    std::string notes;
    for (int inverse = 0; inverse < 2; ++inverse) {
      // Small orders average over several inputs (4096 points in all), so that their figures
      // do not hang on one draw.
      Result res;
      for (int t = 0; t < std::max(1, 4096 >> order); ++t)
        trial<R>(kind, inverse, order, opt, gen, res);
      struct {
        double veks, peer;
        const std::string& trouble;
      } r{std::max({res.veks[0].value(), res.veks[1].value(), res.veks[2].value()}),
          res.has_peer ? res.peer.value() : -1, res.trouble};
      const double bound = r.peer >= 0 ? opt.margin * std::max(r.peer, unit)
                                       : opt.margin * unit * std::max(1, order);
      const bool bad = !(r.veks <= bound) || !r.trouble.empty();
      ok &= !bad;
      std::printf(" %10.2e", r.veks);
      if (r.peer >= 0) {
        std::printf(" %10.2e", r.peer);
        if (r.peer > 0)
          std::printf(r.veks < 1000 * r.peer ? " %7.2f" : " %7.1e", r.veks / r.peer);
        else
          std::printf(" %7s", r.veks > 0 ? "inf" : "-");
      } else {
        std::printf(" %10s %7s", "n/a", "");
      }
      std::printf("%s|", bad ? "*" : " ");
      if (!r.trouble.empty()) notes += std::string(inverse ? " inv: " : " fwd: ") + r.trouble;
    }
    std::printf("%s\n", notes.c_str());
    std::fflush(stdout);
  }
  return ok;
}

}  // namespace

int main(int argc, char** argv) {
  Options opt;
#ifdef VEKS_HAVE_FFTW
  opt.fftw_flags = FFTW_ESTIMATE;
#endif
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (a.rfind("--margin=", 0) == 0) {
      opt.margin = std::stod(a.substr(9));
    } else if (a.rfind("--max-order=", 0) == 0) {
      opt.max_order = std::clamp(std::stoi(a.substr(12)), 0, 27);
#ifdef VEKS_HAVE_FFTW
    } else if (a == "--measure") {
      opt.fftw_flags = FFTW_MEASURE;
#endif
    } else {
      std::fprintf(stderr, "usage: %s [--margin=x] [--max-order=k] [--measure]\n", argv[0]);
      return 2;
    }
  }
#ifdef VEKS_HAVE_FFTW
  std::printf(
      "Relative RMS error against a long-double reference; ratio = veks error / FFTW error (> 1: "
      "veks less accurate).\nFFTW plans: %s. A '*' marks a failure: veks error above %.3g x "
      "max(FFTW error, unit roundoff), a failed call or an in-place difference.\n",
      opt.fftw_flags == FFTW_MEASURE ? "FFTW_MEASURE" : "FFTW_ESTIMATE", opt.margin);
  std::printf("Peer: %s (single), %s (double)\n", fftwf_version, fftw_version);
#else
  std::printf(
      "Relative RMS error against a long-double reference (built without FFTW). A '*' marks a "
      "failure: veks error above %.3g x unit roundoff x max(1, order), a failed call or an "
      "in-place difference.\n",
      opt.margin);
#endif
  bool ok = true;
  for (int kind = 0; kind < 3; ++kind) ok &= run_kind<float>(kind, opt);
  for (int kind = 0; kind < 3; ++kind) ok &= run_kind<double>(kind, opt);
  std::printf("\n%s\n",
              ok ? "PASS: veks is within the margin everywhere" : "FAIL: see the rows marked '*'");
  return ok ? 0 : 1;
}
