// A benchmark harness that times each library operation beside a block copy moving the same
// number of bytes, in the same process, and prints the ratio of the two.
//
// An operation's traffic is every byte it reads plus every byte it writes (veksAdd_32f on n
// elements: 12n bytes). Its baseline is veksCopy_8u of traffic / 2 bytes, which reads and writes
// that same traffic, so a ratio of 1 means the operation streams its data as fast as a copy
// does. Buffers are 64-byte aligned, allocated once and written before any timing. All
// repetitions of all benchmarks are shuffled, so operation and copy share the machine's noise,
// and every figure is taken from the fastest repetition (minimum time per iteration).
//
// A second table times short batches of calls (about 2 microseconds each, each after an untimed
// batch that brings its buffers back into the caches, operation and copy alternating) and keeps
// the fastest batch of each. On a shared machine a repetition's mean includes the slow phases the
// neighbours cause; the fastest batch shows what the code does when it has the core, so the two
// tables together separate the kernel from the noise.
//
// Defaults (overridable on the command line): --benchmark_repetitions=20,
// --benchmark_min_time=0.01, --benchmark_enable_random_interleaving=true.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "veks.h"

namespace veks_bench {

// n elements of T, 64-byte aligned, kept until the program ends; every byte is written.
template <class T>
T* buffer(size_t n) {
  struct Free {
    void operator()(void* p) const { std::free(p); }
  };
  static std::vector<std::unique_ptr<void, Free>> keep;
  const size_t bytes = (n * sizeof(T) + 63) / 64 * 64;
  void* p = std::aligned_alloc(64, bytes);
  if (p == nullptr) {
    std::fprintf(stderr, "cannot allocate %zu bytes\n", bytes);
    std::exit(1);
  }
  std::memset(p, 0, bytes);
  keep.emplace_back(p);
  return static_cast<T*>(p);
}

// n components uniform in [lo, hi] (integers or floating point; complex types through their
// component type and twice the count).
template <class C>
C* random_buffer(size_t n, double lo, double hi, unsigned seed = 1) {
  C* p = buffer<C>(n);
  std::mt19937_64 g(seed);
  std::uniform_real_distribution<double> u(lo, hi);
  for (size_t i = 0; i < n; ++i) p[i] = static_cast<C>(u(g));
  return p;
}

inline std::string count_label(size_t n) {
  if (n >= (size_t{1} << 20) && n % (size_t{1} << 20) == 0) return std::to_string(n >> 20) + "M";
  if (n >= (size_t{1} << 10) && n % (size_t{1} << 10) == 0) return std::to_string(n >> 10) + "K";
  return std::to_string(n);
}

class Versus {
 public:
  // `sizes` are the element counts of the table's columns.
  explicit Versus(std::vector<size_t> sizes) : sizes_(std::move(sizes)) {}

  // Adds `op` at column `col`: `run` performs it once and returns its status; `traffic` is the
  // bytes it reads and writes.
  void add(const std::string& op, size_t col, size_t traffic, std::function<int()> run) {
    if (std::find(ops_.begin(), ops_.end(), op) == ops_.end()) ops_.push_back(op);
    const std::string name = op + "/" + count_label(sizes_[col]);
    const std::string base = "copy/" + std::to_string(traffic / 2) + "B";
    cells_[{op, col}] = Cell{name, base};
    entries_.push_back({name, std::move(run), traffic});
    if (!copies_.count(base)) {
      copies_[base] = traffic / 2;
      auto* s = buffer<unsigned char>(traffic / 2);
      auto* d = buffer<unsigned char>(traffic / 2);
      std::memset(s, 7, traffic / 2);
      const int len = static_cast<int>(traffic / 2);
      entries_.push_back({base, [s, d, len] { return veksCopy_8u(s, d, len); }, traffic});
    }
  }

  // Runs everything and prints the table; returns the process exit code.
  int main(int argc, char** argv, const char* title) {
    std::vector<char*> args{argv[0]};
    static char reps[] = "--benchmark_repetitions=20";
    static char min_time[] = "--benchmark_min_time=0.01";
    static char interleave[] = "--benchmark_enable_random_interleaving=true";
    args.insert(args.end(), {reps, min_time, interleave});
    for (int i = 1; i < argc; ++i) args.push_back(argv[i]);
    int n = static_cast<int>(args.size());
    args.push_back(nullptr);
    benchmark::Initialize(&n, args.data());
    if (benchmark::ReportUnrecognizedArguments(n, args.data())) return 1;

    for (Entry& e : entries_) {
      benchmark::RegisterBenchmark(e.name.c_str(), [&e](benchmark::State& st) {
        if (e.run() < 0) {  // also warms caches and predictors
          st.SkipWithError("the library reported an error");
          return;
        }
        for (auto _ : st) {
          benchmark::DoNotOptimize(e.run());
          benchmark::ClobberMemory();
        }
        st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * e.traffic));
      })->UseRealTime();
    }
    Reporter rep(best_);
    benchmark::RunSpecifiedBenchmarks(&rep);
    batches_ = fastest_batches();
    print(title, best_, "fastest repetitions");
    print(title, batches_, "fastest batches of calls");
    benchmark::Shutdown();
    return 0;
  }

  // Seconds per call of every benchmark by name ("op/64K"): from the fastest repetition, and from
  // the fastest batch. Filled by main().
  const std::map<std::string, double>& repetitions() const { return best_; }
  const std::map<std::string, double>& batches() const { return batches_; }

 private:
  struct Entry {
    std::string name;
    std::function<int()> run;
    size_t traffic;
  };
  struct Cell {
    std::string name, base;
  };

  // Keeps the fastest repetition of each benchmark; shows only the aggregates.
  class Reporter : public benchmark::ConsoleReporter {
   public:
    explicit Reporter(std::map<std::string, double>& best) : best_(best) {}
    void ReportRuns(const std::vector<Run>& runs) override {
      std::vector<Run> shown;
      for (const Run& r : runs) {
        if (r.run_type == Run::RT_Iteration && !r.error_occurred) {
          const double t = r.real_accumulated_time / static_cast<double>(r.iterations);
          auto [it, fresh] = best_.emplace(r.run_name.function_name, t);
          if (!fresh) it->second = std::min(it->second, t);
        }
        if (r.error_occurred || r.repetitions <= 1 ||
            (r.run_type == Run::RT_Aggregate && r.aggregate_name == "median"))
          shown.push_back(r);
      }
      if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
    }

   private:
    std::map<std::string, double>& best_;
  };

  // Per call: the fastest of up to 200 rounds of batches (fewer for calls of over 250 us, so that
  // no entry spends more than about 50 ms here), the entries taken in turn within a round.
  std::map<std::string, double> fastest_batches() const {
    using Clock = std::chrono::steady_clock;
    std::map<std::string, double> fast;
    std::vector<size_t> batch;
    std::vector<int> rounds;
    for (const Entry& e : entries_) {  // calls per batch: about 2 us from the repetition figure
      const auto t = best_.find(e.name);
      const double per = t == best_.end() ? 0 : t->second;
      batch.push_back(per > 0 ? std::max<size_t>(1, static_cast<size_t>(2e-6 / per)) : 0);
      rounds.push_back(per > 0 ? std::clamp(static_cast<int>(0.05 / per), 10, 200) : 0);
    }
    for (int round = 0; round < 200; ++round) {
      for (size_t i = 0; i < entries_.size(); ++i) {
        if (round >= rounds[i]) continue;
        // one untimed batch first: the previous entry has just evicted this one's buffers
        for (size_t k = 0; k < batch[i]; ++k) benchmark::DoNotOptimize(entries_[i].run());
        const auto t0 = Clock::now();
        for (size_t k = 0; k < batch[i]; ++k) benchmark::DoNotOptimize(entries_[i].run());
        const double per = std::chrono::duration<double>(Clock::now() - t0).count() /
                           static_cast<double>(batch[i]);
        auto [it, fresh] = fast.emplace(entries_[i].name, per);
        if (!fresh) it->second = std::min(it->second, per);
      }
    }
    return fast;
  }

  void print(const char* title, const std::map<std::string, double>& best, const char* how) const {
    std::printf(
        "\n%s\nratio = copy time / operation time for the same traffic "
        "(%s; > 1: faster than the copy)\n%-28s",
        title, how, "operation");
    for (size_t s : sizes_) std::printf(" %20s", count_label(s).c_str());
    std::printf("\n%-28s", "");
    for (size_t i = 0; i < sizes_.size(); ++i) std::printf(" %20s", "GB/s op|copy  ratio");
    std::printf("\n");
    for (const std::string& op : ops_) {
      std::printf("%-28s", op.c_str());
      for (size_t c = 0; c < sizes_.size(); ++c) {
        const auto cell = cells_.find({op, c});
        const auto t = cell == cells_.end() ? best.end() : best.find(cell->second.name);
        const auto b = cell == cells_.end() ? best.end() : best.find(cell->second.base);
        if (t == best.end() || b == best.end()) {
          std::printf(" %20s", "n/a");
          continue;
        }
        const double traffic = 2.0 * static_cast<double>(copies_.at(cell->second.base));
        std::printf("  %5.1f|%5.1f %6.2f", traffic / t->second * 1e-9, traffic / b->second * 1e-9,
                    b->second / t->second);
      }
      std::printf("\n");
    }
  }

  std::vector<size_t> sizes_;
  std::vector<std::string> ops_;
  std::map<std::pair<std::string, size_t>, Cell> cells_;
  std::map<std::string, size_t> copies_;
  std::vector<Entry> entries_;
  std::map<std::string, double> best_, batches_;
};

}  // namespace veks_bench
