// Forward power-of-two FFT speed of veks against FFTW 3, single-threaded, in one process.
//
// Kinds: complex to complex on interleaved Vek32fc and Vek64fc, and real to packed spectrum in
// 32f and 64f (veks RToPerm, the library's native real layout, against FFTW's r2c), each out of
// place and in place, for N = 2^4 .. 2^22 (--quick: up to 2^16, fewer and shorter repetitions;
// under a minute, most of it FFTW's planning, which VEKS_FFTW_WISDOM below saves). veks uses
// VEK_FFT_NORM_NONE (no scaling pass, as FFTW does not scale). FFTW is planned once per size with
// FFTW_MEASURE on the very buffers veks runs on (64-byte aligned); plans and specifications are
// made before any timing. Before timing, each veks result is compared with FFTW's; a mismatch is
// marked in the table.
//
// Timing: each benchmark iteration times a batch of transforms with the steady clock (the
// clock's own cost, measured at start, is subtracted); in-place batches restart from the input
// whenever further unscaled transforms could overflow (each multiplies the magnitude by about
// sqrt(N)), and that refill is not timed. Repeated in place, each transform reads what the one
// before wrote, so for small N (up to about 2^6) the in-place columns measure the latency of one
// transform, the out-of-place columns (same source, independent results) its throughput. All
// repetitions of all benchmarks are shuffled so veks and FFTW share the machine's noise, and each
// figure is the fastest batch seen over all repetitions. Defaults (overridable):
// --benchmark_repetitions=8 (--quick: 5), --benchmark_min_time=0.01 (--quick: 0.004),
// --benchmark_enable_random_interleaving=true.
// VEKS_FFTW_WISDOM=<path> keeps FFTW's plans in <path>.32f / <path>.64f between runs, which saves
// most of the planning time.
//
// The table gives ns per transform, FFTW time / veks time (above 1: veks is faster) and MFLOPS
// by FFTW's convention: 5 N log2 N / t for complex transforms, 2.5 N log2 N / t for real ones.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "transform/fft_api.hpp"

namespace {

using veks_fft::alloc;
using veks_fft::Api;
using veks_fft::Buf;
using veks_fft::VeksPlan;
using Clock = std::chrono::steady_clock;

// One kind at one size and placement: the veks call, the FFTW call, and how to refill the
// in-place buffer.
struct Case {
  std::string kind;
  bool complex = true, in_place = false;
  int order = 0;
  int batch = 1;                                // transforms per timed batch
  int limit = std::numeric_limits<int>::max();  // transforms from the input before refilling
  std::function<void(int)> veks, fftw;          // k transforms
  std::function<void()> refill;
  std::string note;                       // a failed cross-check, if any
  double best[2] = {HUGE_VAL, HUGE_VAL};  // seconds per transform: veks, FFTW
  double flops() const {
    const double n = std::ldexp(1.0, order);
    return (complex ? 5.0 : 2.5) * n * order;
  }
};

double g_clock_cost = 0;  // seconds of one back-to-back pair of clock reads

double measure_clock_cost() {
  double best = HUGE_VAL;
  for (int i = 0; i < 20000; ++i) {
    const auto t0 = Clock::now();
    const auto t1 = Clock::now();
    best = std::min(best, std::chrono::duration<double>(t1 - t0).count());
  }
  return best;
}

void time_case(benchmark::State& st, Case* c, int who) {
  const std::function<void(int)>& f = who == 0 ? c->veks : c->fftw;
  int since = c->limit;  // the buffer may hold another benchmark's output: refill first
  for (auto _ : st) {
    if (c->in_place) {
      if (since > c->limit - c->batch) {
        c->refill();
        since = 0;
      }
      since += c->batch;
    }
    const auto t0 = Clock::now();
    f(c->batch);
    benchmark::ClobberMemory();
    const auto t1 = Clock::now();
    const double t = std::max(std::chrono::duration<double>(t1 - t0).count() - g_clock_cost, 0.0);
    st.SetIterationTime(t);
    c->best[who] = std::min(c->best[who], t / c->batch);
  }
}

// Relative RMS distance of a from b over n reals.
template <class R>
double distance(const R* a, const R* b, size_t n) {
  double num = 0, den = 0;
  for (size_t i = 0; i < n; ++i) {
    const double d = static_cast<double>(a[i]) - static_cast<double>(b[i]);
    num += d * d;
    den += static_cast<double>(b[i]) * static_cast<double>(b[i]);
  }
  return den > 0 ? std::sqrt(num / den) : std::sqrt(num);
}

// Buffers and FFTW plans, kept until the program ends.
struct Store {
  std::vector<std::shared_ptr<void>> buffers;
  std::vector<std::function<void()>> cleanup;
  ~Store() {
    for (auto& f : cleanup) f();
  }
};

template <class R>
void add_cases(std::vector<std::unique_ptr<Case>>& cases, Store& store, int order) {
  using A = Api<R>;
  using C = typename A::C;
  const size_t n = size_t{1} << order;
  // Batches of about 8 K points keep the clock's cost small against the work timed; in place,
  // about 1e30 (float) or 1e300 (double) of growth from inputs in [-1, 1) is allowed before the
  // buffer is refilled.
  const int batch = static_cast<int>(std::max<size_t>(1, 8192 / n));
  const double headroom = sizeof(R) == 4 ? 30 : 300;
  const int limit = std::max(1, static_cast<int>(headroom / std::log10(std::sqrt(double(n)))));
  std::mt19937_64 gen(static_cast<uint64_t>(order) * 7919u + sizeof(R));
  std::uniform_real_distribution<double> u(-1, 1);

  for (int real = 0; real < 2; ++real) {
    // Complex: input and output of n complex values. Real: n reals in, and an output of n + 2
    // reals (FFTW's r2c writes n / 2 + 1 complex values; veks writes n reals in Perm layout).
    const size_t in_reals = real ? n : 2 * n, out_reals = real ? n + 2 : 2 * n;
    auto in = std::make_shared<Buf<R>>(alloc<R>(in_reals));
    auto out = std::make_shared<Buf<R>>(alloc<R>(out_reals));
    R* x = in->get();
    R* y = out->get();
    const std::string kind =
        real ? std::string("r2c ") + A::name : std::string("c2c ") + A::name + "c";

    store.buffers.push_back(in);
    store.buffers.push_back(out);
    // k transforms; returns the status of the last.
    std::function<int(bool, int)> run_veks;
    if (real) {
      auto p = std::make_shared<VeksPlan<typename A::SpecR>>(order, VEK_FFT_NORM_NONE, A::size_r,
                                                             A::init_r);
      run_veks = [p, x, y](bool in_place, int k) {
        const auto* spec = p->spec;
        Vek8u* work = p->buf();
        int s = 0;
        for (int i = 0; i < k; ++i)
          s = in_place ? A::fwd_perm_i(y, spec, work) : A::fwd_perm(x, y, spec, work);
        return s;
      };
    } else {
      auto p = std::make_shared<VeksPlan<typename A::SpecC>>(order, VEK_FFT_NORM_NONE, A::size_c,
                                                             A::init_c);
      C* cx = reinterpret_cast<C*>(x);
      C* cy = reinterpret_cast<C*>(y);
      run_veks = [p, cx, cy](bool in_place, int k) {
        const auto* spec = p->spec;
        Vek8u* work = p->buf();
        int s = 0;
        for (int i = 0; i < k; ++i)
          s = in_place ? A::fwd_c_i(cy, spec, work) : A::fwd_c(cx, cy, spec, work);
        return s;
      };
    }

    for (int in_place = 0; in_place < 2; ++in_place) {
      auto c = std::make_unique<Case>();
      c->kind = kind;
      c->complex = !real;
      c->in_place = in_place;
      c->order = order;
      c->batch = in_place ? std::min(batch, limit) : batch;
      c->limit = in_place ? limit : std::numeric_limits<int>::max();
      c->veks = [run_veks, in_place](int k) { benchmark::DoNotOptimize(run_veks(in_place, k)); };
      c->refill = [x, y, in_reals] { std::copy(x, x + in_reals, y); };
#ifdef VEKS_HAVE_FFTW
      // FFTW_MEASURE overwrites the arrays while planning, so the input is written afterwards.
      R* src = in_place ? y : x;
      const int ni = static_cast<int>(n);
      typename A::Plan plan = real ? A::r2c(ni, src, reinterpret_cast<C*>(y), FFTW_MEASURE)
                                   : A::dft(ni, reinterpret_cast<C*>(src), reinterpret_cast<C*>(y),
                                            FFTW_FORWARD, FFTW_MEASURE);
      if (plan == nullptr) veks_fft::die("FFTW planning", -1);
      store.cleanup.push_back([plan] { A::destroy(plan); });
      c->fftw = [plan](int k) {
        for (int i = 0; i < k; ++i) A::run(plan);
      };
#endif
      for (size_t i = 0; i < in_reals; ++i) x[i] = static_cast<R>(u(gen));

      // Cross-check on the input: veks's Perm result against FFTW's n / 2 + 1 bins.
      c->refill();
      if (int s = run_veks(in_place, 1); s < 0) {
        c->note = "veks status " + std::to_string(s);
        c->veks = nullptr;
      }
#ifdef VEKS_HAVE_FFTW
      if (c->veks) {
        std::vector<R> mine(y, y + (real ? n : 2 * n));
        c->refill();
        c->fftw(1);
        std::vector<R> peer(y, y + (real ? n : 2 * n));
        if (real && n > 1) {  // FFTW's R0 0 R1 I1 ... R(n/2) 0 to Perm
          peer[0] = y[0];
          peer[1] = y[n];
          std::copy(y + 2, y + n, peer.begin() + 2);
        }
        const double tol = sizeof(R) == 4 ? 1e-5 : 1e-13;
        if (const double d = distance(mine.data(), peer.data(), mine.size()); !(d <= tol)) {
          char buf[64];
          std::snprintf(buf, sizeof buf, "differs from FFTW by %.1e", d);
          c->note = buf;
        }
      }
#endif
      c->refill();
      cases.push_back(std::move(c));
    }
  }
}

// Keeps the console quiet apart from the context block (CPU, caches, load) and errors.
class Quiet : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    std::vector<Run> shown;
    for (const Run& r : runs)
      if (r.error_occurred) shown.push_back(r);
    if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
  }
};

void print_table(const std::vector<std::unique_ptr<Case>>& cases) {
  std::printf(
      "\nForward FFT, one thread: ns per transform (fastest batch), ratio = FFTW time / veks time "
      "(> 1: veks faster),\nMFLOPS = 5 N log2 N / t (complex) or 2.5 N log2 N / t (real)\n");
  std::vector<std::string> kinds;
  for (const auto& c : cases)
    if (std::find(kinds.begin(), kinds.end(), c->kind) == kinds.end()) kinds.push_back(c->kind);
  std::map<std::string, std::vector<double>> ratios;
  std::map<std::string, std::string> losses;
  for (const std::string& kind : kinds) {
    std::printf("\n%-9s %-6s | %10s %10s %6s %7s %7s | %10s %10s %6s %7s %7s\n", kind.c_str(), "",
                "out: veks", "FFTW", "ratio", "MF veks", "MF FFTW", "in: veks", "FFTW", "ratio",
                "MF veks", "MF FFTW");
    for (int order = 0; order <= 30; ++order) {
      const Case* row[2] = {nullptr, nullptr};
      for (const auto& c : cases)
        if (c->kind == kind && c->order == order) row[c->in_place] = c.get();
      if (!row[0] && !row[1]) continue;
      std::printf("%-9s %-6s |", "", ("2^" + std::to_string(order)).c_str());
      std::string notes;
      for (const Case* c : row) {
        if (!c) {
          std::printf(" %10s %10s %6s %7s %7s |", "", "", "", "", "");
          continue;
        }
        const double tv = c->best[0], tf = c->best[1];
        auto cell = [](double t, int width, int digits, double v) {
          if (std::isfinite(t) && t > 0)
            std::printf(" %*.*f", width, digits, v);
          else
            std::printf(" %*s", width, "n/a");
        };
        cell(tv, 10, 1, tv * 1e9);
        cell(tf, 10, 1, tf * 1e9);
        if (std::isfinite(tv) && std::isfinite(tf) && tv > 0) {
          std::printf(" %6.2f", tf / tv);
          const std::string key = kind + (c->in_place ? " in place" : " out of place");
          ratios[key].push_back(tf / tv);
          if (tf / tv < 1) {
            char buf[32];
            std::snprintf(buf, sizeof buf, " 2^%d (%.2f)", order, tf / tv);
            losses[key] += buf;
          }
        } else {
          std::printf(" %6s", "n/a");
        }
        cell(tv, 7, 0, c->flops() / tv * 1e-6);
        cell(tf, 7, 0, c->flops() / tf * 1e-6);
        std::printf(" |");
        if (!c->note.empty())
          notes += std::string(c->in_place ? " in place: " : " out: ") + c->note;
      }
      std::printf("%s\n", notes.empty() ? "" : (" !" + notes).c_str());
    }
  }
  if (ratios.empty()) return;
  std::printf("\nGeometric mean of FFTW time / veks time over the sizes run:\n");
  for (const auto& [name, v] : ratios) {
    double s = 0;
    for (double r : v) s += std::log(r);
    std::printf("  %-26s %5.2f  (min %.2f, max %.2f)\n", name.c_str(),
                std::exp(s / double(v.size())), *std::min_element(v.begin(), v.end()),
                *std::max_element(v.begin(), v.end()));
  }
  std::printf("veks slower than FFTW (ratio < 1):%s\n", losses.empty() ? " nowhere" : "");
  for (const auto& [name, list] : losses) std::printf("  %-22s%s\n", name.c_str(), list.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  bool quick = false;
  for (int i = 1; i < argc; ++i) quick |= std::strcmp(argv[i], "--quick") == 0;
  std::vector<char*> args{argv[0]};
  static char reps[] = "--benchmark_repetitions=8", quick_reps[] = "--benchmark_repetitions=5";
  static char min_time[] = "--benchmark_min_time=0.01",
              quick_min_time[] = "--benchmark_min_time=0.004";
  static char interleave[] = "--benchmark_enable_random_interleaving=true";
  args.insert(args.end(),
              {quick ? quick_reps : reps, quick ? quick_min_time : min_time, interleave});
  for (int i = 1; i < argc; ++i)
    if (std::strcmp(argv[i], "--quick") != 0) args.push_back(argv[i]);
  int nargs = static_cast<int>(args.size());
  args.push_back(nullptr);
  benchmark::Initialize(&nargs, args.data());
  if (benchmark::ReportUnrecognizedArguments(nargs, args.data())) {
    std::fprintf(stderr, "extra option: --quick (N up to 2^16)\n");
    return 1;
  }
  const int max_order = quick ? 16 : 22;

  const char* wisdom = std::getenv("VEKS_FFTW_WISDOM");
#ifdef VEKS_HAVE_FFTW
  if (wisdom) {
    Api<float>::read_wisdom((std::string(wisdom) + ".32f").c_str());
    Api<double>::read_wisdom((std::string(wisdom) + ".64f").c_str());
  }
  // The version string names the SIMD instruction sets FFTW's codelets were built for.
  std::printf("Peer: %s (single), %s (double)\n", fftwf_version, fftw_version);
  std::printf("Planning FFTW (FFTW_MEASURE) and building veks specifications, N = 2^4 .. 2^%d\n",
              max_order);
#else
  std::printf("Built without FFTW: veks figures only, N = 2^4 .. 2^%d\n", max_order);
#endif
  std::fflush(stdout);
  std::vector<std::unique_ptr<Case>> cases;
  Store store;
  const auto t0 = Clock::now();
  for (int order = 4; order <= max_order; ++order) {
    add_cases<float>(cases, store, order);
    add_cases<double>(cases, store, order);
  }
  std::printf("... done in %.1f s\n", std::chrono::duration<double>(Clock::now() - t0).count());
#ifdef VEKS_HAVE_FFTW
  if (wisdom) {
    Api<float>::write_wisdom((std::string(wisdom) + ".32f").c_str());
    Api<double>::write_wisdom((std::string(wisdom) + ".64f").c_str());
  }
#else
  (void)wisdom;
#endif
  g_clock_cost = measure_clock_cost();

  for (auto& c : cases) {
    const std::string name =
        c->kind + (c->in_place ? " in/" : " out/") + "2^" + std::to_string(c->order);
    for (int who = 0; who < 2; ++who) {
      if (!(who == 0 ? c->veks : c->fftw)) continue;
      benchmark::RegisterBenchmark((name + (who ? " FFTW" : " veks")).c_str(), time_case, c.get(),
                                   who)
          ->UseManualTime();
    }
  }
  Quiet rep;
  benchmark::RunSpecifiedBenchmarks(&rep);
  print_table(cases);
  benchmark::Shutdown();
  return 0;
}
