// Exact reduction of huge arguments modulo pi/2: the rare lanes of the sine and cosine kernel
// whose argument is at least 2^30.
#include <bit>
#include <cstdint>

#include "arith/vmath.hpp"

namespace veks::vm {
namespace {

// The bits of 2/pi after the binary point, most significant first, behind one word of zeros:
// bit i (weight 2^-i, i >= 1) is bit 63 - (i + 63) % 64 of word (i + 63) / 64.
constexpr uint64_t kTwoOverPi[21] = {
    0x0000000000000000ULL, 0xA2F9836E4E441529ULL, 0xFC2757D1F534DDC0ULL, 0xDB6295993C439041ULL,
    0xFE5163ABDEBBC561ULL, 0xB7246E3A424DD2E0ULL, 0x06492EEA09D1921CULL, 0xFE1DEB1CB129A73EULL,
    0xE88235F52EBB4484ULL, 0xE99C7026B45F7E41ULL, 0x3991D639835339F4ULL, 0x9C845F8BBDF9283BULL,
    0x1FF897FFDE05980FULL, 0xEF2F118B5A0A6D1FULL, 0x6D367ECF27CB09B7ULL, 0x4F463F669E5FEA2DULL,
    0x7527BAC7EBE5F17BULL, 0x3D0739F78A5292EAULL, 0x6BFB5FB11F8D5D08ULL, 0x56033046FC7B6BABULL,
    0xF0CFBC209AF4361DULL};

using u128 = unsigned __int128;

}  // namespace

int reduce_pio2_huge(double x, double* r) {
  const uint64_t bits = std::bit_cast<uint64_t>(x);
  const int ex = static_cast<int>((bits >> 52) & 0x7FF) - 1075;  // |x| = m * 2^ex
  const uint64_t m = (bits & ((uint64_t{1} << 52) - 1)) | (uint64_t{1} << 52);
  // |x| * 2/pi = m * sum_i b_i 2^(ex - i); the terms with i <= ex - 2 are multiples of 4 and
  // drop out. The 192 bits from i0 = ex - 1 on leave the rest below 2^-137.
  const int g = ex - 1 + 63;  // index of bit i0 in the table, >= 40 for |x| >= 2^30
  const int w = g / 64, sh = g % 64;
  uint64_t win[3];
  for (int k = 0; k < 3; ++k)
    win[k] = sh == 0 ? kTwoOverPi[w + k]
                     : (kTwoOverPi[w + k] << sh) | (kTwoOverPi[w + k + 1] >> (64 - sh));
  // m * window, four 64-bit limbs; the binary point lies 190 bits up.
  const u128 p2 = static_cast<u128>(m) * win[2];
  const u128 p1 = static_cast<u128>(m) * win[1] + static_cast<uint64_t>(p2 >> 64);
  const u128 p0 = static_cast<u128>(m) * win[0] + static_cast<uint64_t>(p1 >> 64);
  const auto l0 = static_cast<uint64_t>(p2), l1 = static_cast<uint64_t>(p1);
  const auto l2 = static_cast<uint64_t>(p0);
  unsigned n = static_cast<unsigned>(l2 >> 62) & 3;
  const uint64_t fhi = (l2 << 2) | (l1 >> 62);
  const uint64_t flo = (l1 << 2) | (l0 >> 62);
  // Nearest quadrant: a fraction of one half or more counts from the next one, negatively.
  if (fhi >> 63) ++n;
  const auto shi = static_cast<int64_t>(fhi);  // two's complement: fraction - 1 when >= 1/2
  const long double f =
      static_cast<long double>(shi) * 0x1p-64L + static_cast<long double>(flo) * 0x1p-128L;
  const long double rr = f * 1.57079632679489661923132169163975144L;
  double rd = static_cast<double>(rr);
  if (bits >> 63) {
    rd = -rd;
    n = 0u - n;
  }
  *r = rd;
  return static_cast<int>(n & 3);
}

}  // namespace veks::vm
