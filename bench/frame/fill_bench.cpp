// Throughput of the byte kernels of Zero, Set, Copy and Move against the C library's memset,
// memcpy and memmove, from 4 KiB (first-level cache) to 256 MiB (main memory).
//
// Buffers are 64-byte aligned, allocated once per size and written before any timing, so page
// faults are not measured. Every benchmark runs several repetitions; the repetitions of all
// benchmarks are shuffled (random interleaving) so that the library and the C library share the
// machine's noise. At the end the program prints, per operation and size, the ratio of the
// library's throughput to the C library's, each taken from the fastest repetition (minimum wall
// time per iteration) measured in this process. A ratio below 1 means the library was slower.
//
// Defaults (each can be overridden on the command line): --benchmark_repetitions=100,
// --benchmark_min_time=0.002, --benchmark_enable_random_interleaving=true.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "veks.h"

namespace {

// The C library is called through volatile pointers, so the compiler can neither expand the
// calls inline nor drop them.
void* (*volatile c_memset)(void*, int, size_t) = &std::memset;
void* (*volatile c_memcpy)(void*, const void*, size_t) = &std::memcpy;
void* (*volatile c_memmove)(void*, const void*, size_t) = &std::memmove;

// Moves "by a small offset" shift the destination this many bytes against the source.
constexpr size_t kOverlap = 16;
// Spare bytes after each buffer (room for the offset of the overlapping moves).
constexpr size_t kSlack = 256;

constexpr size_t kSizes[] = {size_t{4} << 10, size_t{256} << 10, size_t{8} << 20,
                             size_t{256} << 20};
constexpr int kNumSizes = sizeof kSizes / sizeof kSizes[0];

std::string size_label(size_t n) {
  return n >= (size_t{1} << 20) ? std::to_string(n >> 20) + "MiB" : std::to_string(n >> 10) + "KiB";
}

struct FreeDeleter {
  void operator()(unsigned char* p) const { std::free(p); }
};
using Buffer = std::unique_ptr<unsigned char[], FreeDeleter>;

Buffer make_buffer(size_t n, int fill) {
  auto p = static_cast<unsigned char*>(std::aligned_alloc(64, n + kSlack));
  if (p == nullptr) {
    std::fprintf(stderr, "cannot allocate %zu bytes\n", n + kSlack);
    std::exit(1);
  }
  std::memset(p, fill, n + kSlack);  // every page is faulted in before timing
  return Buffer(p);
}

// A source and a destination of one size, allocated once for the whole program.
struct Buffers {
  size_t n;
  Buffer src, dst;
};

enum class Impl { kVeks, kLibc };

// One operation: what the library does and what the C library does for the same bytes.
struct Op {
  const char* name;
  const char* libc_name;
  // Runs the operation once on n bytes; returns false if the library reported an error.
  bool (*run)(Impl, Buffers&);
};

bool run_zero(Impl impl, Buffers& b) {
  unsigned char* d = b.dst.get();
  benchmark::DoNotOptimize(d);
  if (impl == Impl::kVeks) {
    if (veksZero_8u(d, static_cast<int>(b.n)) != vekStatusOk) return false;
  } else {
    c_memset(d, 0, b.n);
  }
  benchmark::ClobberMemory();
  return true;
}

bool run_set_8u(Impl impl, Buffers& b) {
  unsigned char* d = b.dst.get();
  benchmark::DoNotOptimize(d);
  if (impl == Impl::kVeks) {
    if (veksSet_8u(0x5A, d, static_cast<int>(b.n)) != vekStatusOk) return false;
  } else {
    c_memset(d, 0x5A, b.n);
  }
  benchmark::ClobberMemory();
  return true;
}

// The C library has no 32-bit pattern fill: memset of the same byte count is the reference.
bool run_set_32f(Impl impl, Buffers& b) {
  unsigned char* d = b.dst.get();
  benchmark::DoNotOptimize(d);
  if (impl == Impl::kVeks) {
    if (veksSet_32f(1.5f, reinterpret_cast<Vek32f*>(d), static_cast<int>(b.n / 4)) != vekStatusOk)
      return false;
  } else {
    c_memset(d, 0x5A, b.n);
  }
  benchmark::ClobberMemory();
  return true;
}

bool run_copy(Impl impl, Buffers& b) {
  const unsigned char* s = b.src.get();
  unsigned char* d = b.dst.get();
  benchmark::DoNotOptimize(s);
  benchmark::DoNotOptimize(d);
  if (impl == Impl::kVeks) {
    if (veksCopy_8u(s, d, static_cast<int>(b.n)) != vekStatusOk) return false;
  } else {
    c_memcpy(d, s, b.n);
  }
  benchmark::ClobberMemory();
  return true;
}

bool move(Impl impl, const unsigned char* s, unsigned char* d, size_t n) {
  benchmark::DoNotOptimize(s);
  benchmark::DoNotOptimize(d);
  if (impl == Impl::kVeks) {
    if (veksMove_8u(s, d, static_cast<int>(n)) != vekStatusOk) return false;
  } else {
    c_memmove(d, s, n);
  }
  benchmark::ClobberMemory();
  return true;
}

// Separate buffers: no overlap.
bool run_move(Impl impl, Buffers& b) { return move(impl, b.src.get(), b.dst.get(), b.n); }

// Overlapping, destination below the source (copies forward).
bool run_move_down(Impl impl, Buffers& b) {
  return move(impl, b.dst.get() + kOverlap, b.dst.get(), b.n);
}

// Overlapping, destination above the source (copies backward).
bool run_move_up(Impl impl, Buffers& b) {
  return move(impl, b.dst.get(), b.dst.get() + kOverlap, b.n);
}

const Op kOps[] = {
    {"Zero_8u", "memset", run_zero},
    {"Set_8u", "memset", run_set_8u},
    {"Set_32f", "memset", run_set_32f},
    {"Copy_8u", "memcpy", run_copy},
    {"Move_8u", "memmove", run_move},
    {"Move_8u_fwd16", "memmove", run_move_down},  // dst = src - 16
    {"Move_8u_back16", "memmove", run_move_up},   // dst = src + 16
};
constexpr int kNumOps = sizeof kOps / sizeof kOps[0];

// The fastest repetition of one benchmark.
struct Best {
  double seconds = 0;  // wall time per iteration; 0 until measured
};

struct Cell {
  int op, size;
  Impl impl;
};

std::map<std::string, Cell> g_cells;        // registered name -> where it goes in the table
Best g_best[kNumOps][kNumSizes][2];         // [op][size][impl]
std::unique_ptr<Buffers> g_buf[kNumSizes];  // allocated on first use, kept to the end

Buffers& buffers(int size) {
  if (!g_buf[size]) {
    const size_t n = kSizes[size];
    g_buf[size] = std::make_unique<Buffers>(Buffers{n, make_buffer(n, 1), make_buffer(n, 2)});
  }
  return *g_buf[size];
}

void bench(benchmark::State& state, int op, int size, Impl impl) {
  Buffers& b = buffers(size);
  if (!kOps[op].run(impl, b)) {  // also warms the caches and the branch predictors
    state.SkipWithError("the library reported an error");
    return;
  }
  for (auto _ : state) kOps[op].run(impl, b);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(b.n));
}

// Shows, per benchmark, its fastest repetition (as "min") with the median and the coefficient of
// variation, and records the fastest repetition for the final table. (The console rows give
// bytes_per_second with binary prefixes, G/s = 2^30 bytes/s; the final tables use 10^9.)
class MinReporter : public benchmark::ConsoleReporter {
 public:
  MinReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    std::vector<Run> shown;
    for (const Run& r : runs) {
      const auto it = g_cells.find(r.run_name.function_name);
      if (r.error_occurred || it == g_cells.end()) {
        shown.push_back(r);
        continue;
      }
      if (r.run_type == Run::RT_Iteration) {
        const double t = per_iteration(r);
        const auto f = fastest_.find(r.run_name.function_name);
        if (f == fastest_.end() || t < per_iteration(f->second)) {
          fastest_[r.run_name.function_name] = r;
        }
        Best& best = g_best[it->second.op][it->second.size][static_cast<int>(it->second.impl)];
        if (best.seconds == 0 || t < best.seconds) best.seconds = t;
        if (r.repetitions <= 1) shown.push_back(r);
      } else if (r.aggregate_name == "median") {
        const auto f = fastest_.find(r.run_name.function_name);
        if (f != fastest_.end()) {
          Run m = f->second;
          m.run_type = Run::RT_Aggregate;
          m.aggregate_name = "min";
          m.aggregate_unit = benchmark::kTime;
          shown.push_back(m);
        }
        shown.push_back(r);
      } else if (r.aggregate_name == "cv") {
        shown.push_back(r);
      }
    }
    if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
  }

 private:
  static double per_iteration(const Run& r) {
    return r.real_accumulated_time / static_cast<double>(r.iterations);
  }
  std::map<std::string, Run> fastest_;
};

void print_tables() {
  std::printf(
      "\nThroughput from the fastest repetition, GB/s (10^9 bytes/s), library | C library\n");
  std::printf("%-18s %-8s", "operation", "libc");
  for (size_t n : kSizes) std::printf(" %17s", size_label(n).c_str());
  std::printf("\n");
  for (int op = 0; op < kNumOps; ++op) {
    std::printf("%-18s %-8s", kOps[op].name, kOps[op].libc_name);
    for (int s = 0; s < kNumSizes; ++s) {
      const double v = g_best[op][s][0].seconds, c = g_best[op][s][1].seconds;
      if (v > 0 && c > 0) {
        std::printf("   %6.1f | %6.1f", kSizes[s] / v * 1e-9, kSizes[s] / c * 1e-9);
      } else {
        std::printf(" %17s", "n/a");
      }
    }
    std::printf("\n");
  }

  std::printf(
      "\nRatio of throughput, library / C library (min time over repetitions; < 1: slower)\n");
  std::printf("%-18s %-8s", "operation", "libc");
  for (size_t n : kSizes) std::printf(" %8s", size_label(n).c_str());
  std::printf("\n");
  int slower = 0;
  for (int op = 0; op < kNumOps; ++op) {
    std::printf("%-18s %-8s", kOps[op].name, kOps[op].libc_name);
    for (int s = 0; s < kNumSizes; ++s) {
      const double v = g_best[op][s][0].seconds, c = g_best[op][s][1].seconds;
      if (v > 0 && c > 0) {
        const double ratio = c / v;
        if (ratio < 1) ++slower;
        std::printf(" %7.3f%c", ratio, ratio < 1 ? '*' : ' ');
      } else {
        std::printf(" %8s", "n/a");
      }
    }
    std::printf("\n");
  }
  std::printf("* library slower than the C library (%d cells)\n", slower);
  std::printf(
      "Move_8u: separate buffers; _fwd16: dst = src - 16; _back16: dst = src + 16 "
      "(overlapping). Set_32f is compared with memset of as many bytes.\n");
}

}  // namespace

int main(int argc, char** argv) {
  // Defaults first, so that the same flags given on the command line override them.
  std::vector<char*> args;
  args.push_back(argv[0]);
  static char reps[] = "--benchmark_repetitions=100";
  static char min_time[] = "--benchmark_min_time=0.002";
  static char interleave[] = "--benchmark_enable_random_interleaving=true";
  args.push_back(reps);
  args.push_back(min_time);
  args.push_back(interleave);
  for (int i = 1; i < argc; ++i) args.push_back(argv[i]);
  int n_args = static_cast<int>(args.size());
  args.push_back(nullptr);
  benchmark::Initialize(&n_args, args.data());
  if (benchmark::ReportUnrecognizedArguments(n_args, args.data())) return 1;

  int cache = 0;
  if (vekGetMaxCacheSizeB(&cache) == vekStatusOk) {
    std::printf("largest cache reported by the core library: %d bytes (%.1f MiB)\n", cache,
                cache / 1048576.0);
  } else {
    std::printf("largest cache: not reported by the core library\n");
  }
  std::fflush(stdout);

  for (int s = 0; s < kNumSizes; ++s) {
    for (int op = 0; op < kNumOps; ++op) {
      for (Impl impl : {Impl::kVeks, Impl::kLibc}) {
        const std::string name = std::string(kOps[op].name) + "/" +
                                 (impl == Impl::kVeks ? "veks" : kOps[op].libc_name) + "/" +
                                 size_label(kSizes[s]);
        g_cells[name] = Cell{op, s, impl};
        benchmark::RegisterBenchmark(name.c_str(), bench, op, s, impl)->UseRealTime();
      }
    }
  }

  MinReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::fflush(stdout);
  print_tables();
  benchmark::Shutdown();
  return 0;
}
