// Throughput of the statistics reductions at 4 K, 64 K and 16 M elements, each beside a copy of
// the same traffic (the shared harness) and beside a plain read of the same bytes: a 32-bit sum
// loop the compiler vectorises, registered as its own rows ("read/<bytes>B"). The reductions
// only read, so the read loop is their natural limit; after the harness's table the program
// prints, per operation and size, read time / operation time (> 0.9 is the goal), once from the
// fastest repetitions and once from the fastest batches of calls.
#include <cstdint>

#include "support/versus.hpp"

// g++ 12 reports a false -Wrestrict inside std::string concatenation at -O3.
#pragma GCC diagnostic ignored "-Wrestrict"

namespace {

using veks_bench::Versus;

// The plain read: every 32-bit word of the buffer added up.
__attribute__((noinline)) uint32_t read_sum(const uint32_t* p, size_t n) {
  uint32_t s = 0;
  for (size_t i = 0; i < n; ++i) s += p[i];
  return s;
}

struct Row {
  std::string op, read;
  size_t col;
};

void print_reads(const std::vector<size_t>& sizes, const std::vector<Row>& rows,
                 const std::map<std::string, double>& best, const char* how) {
  std::printf(
      "\nratio = plain read time / operation time for the same bytes read (%s; goal >= 0.9)"
      "\n%-22s",
      how, "operation");
  for (size_t s : sizes) std::printf(" %22s", veks_bench::count_label(s).c_str());
  std::printf("\n%-22s", "");
  for (size_t i = 0; i < sizes.size(); ++i) std::printf(" %22s", "GB/s op|read  ratio");
  std::printf("\n");
  std::vector<std::string> ops;
  for (const Row& r : rows)
    if (std::find(ops.begin(), ops.end(), r.op) == ops.end()) ops.push_back(r.op);
  for (const std::string& op : ops) {
    std::printf("%-22s", op.c_str());
    for (size_t c = 0; c < sizes.size(); ++c) {
      const auto r = std::find_if(rows.begin(), rows.end(),
                                  [&](const Row& w) { return w.op == op && w.col == c; });
      const std::string label = "/" + veks_bench::count_label(sizes[c]);
      const auto t = best.find(op + label), b = best.find(r->read + label);
      if (t == best.end() || b == best.end()) {
        std::printf(" %22s", "n/a");
        continue;
      }
      const double gb = std::stod(std::string(r->read.begin() + 5, r->read.end())) * 1e-9;
      std::printf("   %6.1f|%6.1f %6.2f", gb / t->second, gb / b->second, b->second / t->second);
    }
    std::printf("\n");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<size_t> sizes = {size_t{4} << 10, size_t{64} << 10, size_t{16} << 20};
  Versus v(sizes);
  std::vector<Row> rows;
  std::map<size_t, bool> reads;
  auto add = [&](const std::string& op, size_t col, size_t bytes, std::function<int()> run) {
    v.add(op, col, bytes, std::move(run));
    const std::string read = "read/" + std::to_string(bytes) + "B";
    rows.push_back({op, read, col});
    if (!reads[bytes]) {
      reads[bytes] = true;
      const auto* p = veks_bench::random_buffer<uint32_t>(bytes / 4, 0, 1e9, 3);
      v.add(read, col, bytes, [p, bytes] {
        benchmark::DoNotOptimize(read_sum(p, bytes / 4));
        return 0;
      });
    }
  };
  static Vek32f f32;
  static Vek32s s32;
  static Vek16s s16;
  static int i0, i1;
  for (size_t c = 0; c < sizes.size(); ++c) {
    const size_t n = sizes[c];
    const int len = static_cast<int>(n);
    const auto* x = veks_bench::random_buffer<Vek32f>(n, -1, 1, 1);
    const auto* y = veks_bench::random_buffer<Vek32f>(n, -1, 1, 2);
    const auto* h = veks_bench::random_buffer<Vek16s>(n, -32768, 32767, 3);
    add("Sum_32f fast", c, 4 * n, [=] { return veksSum_32f(x, len, &f32, vekHintFast); });
    add("Sum_32f accurate", c, 4 * n, [=] { return veksSum_32f(x, len, &f32, vekHintAccurate); });
    add("DotProd_32f", c, 8 * n, [=] { return veksDotProd_32f(x, y, len, &f32); });
    add("Norm_L2_32f", c, 4 * n, [=] { return veksNorm_L2_32f(x, len, &f32); });
    add("StdDev_32f fast", c, 4 * n, [=] { return veksStdDev_32f(x, len, &f32, vekHintFast); });
    add("StdDev_32f accurate", c, 4 * n, [=] { return veksStdDev_32f(x, len, &f32, vekHintNone); });
    add("MinMaxIndx_32f", c, 4 * n,
        [=] { return veksMinMaxIndx_32f(x, len, &f32, &i0, &f32, &i1); });
    add("Sum_16s32s_Sfs", c, 2 * n, [=] { return veksSum_16s32s_Sfs(h, len, &s32, 0); });
    add("MaxAbsIndx_16s", c, 2 * n, [=] { return veksMaxAbsIndx_16s(h, len, &s16, &i0); });
  }

  const int rc = v.main(argc, argv, "Statistics: reductions beside a copy of the same traffic");
  if (rc != 0) return rc;
  print_reads(sizes, rows, v.repetitions(), "fastest repetitions");
  print_reads(sizes, rows, v.batches(), "fastest batches of calls");
  return 0;
}
