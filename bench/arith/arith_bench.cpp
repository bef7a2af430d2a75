// Element-wise arithmetic beside a copy of the same traffic, at 4 K, 64 K and 16 M elements.
#include "support/versus.hpp"

namespace {

using veks_bench::buffer;
using veks_bench::random_buffer;

}  // namespace

int main(int argc, char** argv) {
  const std::vector<size_t> sizes = {size_t{4} << 10, size_t{64} << 10, size_t{16} << 20};
  veks_bench::Versus v(sizes);
  for (size_t c = 0; c < sizes.size(); ++c) {
    const size_t n = sizes[c];
    const int len = static_cast<int>(n);
    float* f1 = random_buffer<float>(2 * n, -4, 4, 1);
    float* f2 = random_buffer<float>(2 * n, 0.5, 4, 2);
    float* fd = buffer<float>(2 * n);
    // Unit-modulus pairs (0.6, 0.8): in-place products keep the destination's magnitudes, so
    // repeated calls never drift into subnormals, infinities or NaNs.
    float* unit = buffer<float>(2 * n);
    for (size_t i = 0; i < 2 * n; ++i) unit[i] = i % 2 ? 0.8f : 0.6f;
    Vek16s* s1 = random_buffer<Vek16s>(2 * n, -32768, 32767, 3);
    Vek16s* s2 = random_buffer<Vek16s>(2 * n, -32768, 32767, 4);
    Vek16s* sd = buffer<Vek16s>(2 * n);
    auto* c1 = reinterpret_cast<Vek32fc*>(f1);
    auto* c2 = reinterpret_cast<Vek32fc*>(f2);
    auto* cd = reinterpret_cast<Vek32fc*>(fd);
    auto* z1 = reinterpret_cast<Vek16sc*>(s1);
    auto* z2 = reinterpret_cast<Vek16sc*>(s2);
    auto* zd = reinterpret_cast<Vek16sc*>(sd);
    v.add("Add_32f", c, 12 * n, [=] { return veksAdd_32f(f1, f2, fd, len); });
    v.add("Add_16s_Sfs sf=1", c, 6 * n, [=] { return veksAdd_16s_Sfs(s1, s2, sd, len, 1); });
    for (int sf : {0, 1, 5, -3}) {
      v.add("Mul_16s_Sfs sf=" + std::to_string(sf), c, 6 * n,
            [=] { return veksMul_16s_Sfs(s1, s2, sd, len, sf); });
    }
    v.add("Mul_16sc_Sfs sf=0", c, 12 * n, [=] { return veksMul_16sc_Sfs(z1, z2, zd, len, 0); });
    v.add("Mul_16sc_Sfs sf=3", c, 12 * n, [=] { return veksMul_16sc_Sfs(z1, z2, zd, len, 3); });
    v.add("Mul_32fc", c, 24 * n, [=] { return veksMul_32fc(c1, c2, cd, len); });
    v.add("MulC_32f_I", c, 8 * n, [=] { return veksMulC_32f_I(1.0001f, fd, len); });
    v.add("Div_32f", c, 12 * n, [=] { return veksDiv_32f(f2, f1, fd, len); });
    v.add("Div_Round_16s_Sfs mode=1", c, 6 * n,
          [=] { return veksDiv_Round_16s_Sfs(s1, s2, sd, len, 1, 0); });
    v.add("Div_Round_16s_Sfs mode=2", c, 6 * n,
          [=] { return veksDiv_Round_16s_Sfs(s1, s2, sd, len, 2, 0); });
    v.add("Sqrt_32f", c, 8 * n, [=] { return veksSqrt_32f(f2, fd, len); });
    v.add("Magnitude_32fc", c, 12 * n, [=] { return veksMagnitude_32fc(c1, fd, len); });
    v.add("MulPerm_32f", c, 12 * n, [=] { return veksMulPerm_32f(f1, f2, fd, len); });
    v.add("MulPerm_32f_I", c, 12 * n, [=] { return veksMulPerm_32f_I(unit, fd, len); });
  }
  return v.main(argc, argv, "Element-wise arithmetic");
}
