// Throughput of the conversions the filters lean on (32f16s_Sfs in every rounding mode, with and
// without a scale factor; 16s32f), of the half-precision pair and of Threshold_LT_32f, each beside
// a copy that moves the same bytes in the same run.
#include <cstddef>
#include <string>

#include "support/versus.hpp"

int main(int argc, char** argv) {
  const std::vector<size_t> sizes = {size_t{4} << 10, size_t{64} << 10, size_t{16} << 20};
  veks_bench::Versus table(sizes);
  for (size_t col = 0; col < sizes.size(); ++col) {
    const size_t n = sizes[col];
    const int len = static_cast<int>(n);
    auto* f32 = veks_bench::random_buffer<Vek32f>(n, -40000.0, 40000.0);
    auto* s16 = veks_bench::random_buffer<Vek16s>(n, -32768.0, 32767.0);
    auto* d16 = veks_bench::buffer<Vek16s>(n);
    auto* d32 = veks_bench::buffer<Vek32f>(n);
    auto* h16 = veks_bench::buffer<Vek16f>(n);
    veksConvert_32f16f(f32, h16, len, 1);
    for (int sf : {0, 3}) {
      for (int mode : {0, 1, 2}) {
        const std::string name =
            "32f16s_Sfs mode " + std::to_string(mode) + (sf ? " sf 3" : " sf 0");
        table.add(name, col, 6 * n,
                  [=] { return veksConvert_32f16s_Sfs(f32, d16, len, mode, sf); });
      }
    }
    table.add("16s32f", col, 6 * n, [=] { return veksConvert_16s32f(s16, d32, len); });
    table.add("32f16f", col, 6 * n, [=] { return veksConvert_32f16f(f32, h16, len, 1); });
    table.add("16f32f", col, 6 * n, [=] { return veksConvert_16f32f(h16, d32, len); });
    table.add("Threshold_LT_32f", col, 8 * n,
              [=] { return veksThreshold_LT_32f(f32, d32, len, 0.0f); });
  }
  return table.main(argc, argv, "Conversion and thresholding");
}
