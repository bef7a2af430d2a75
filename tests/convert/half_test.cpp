// Half precision: every one of the 65,536 half values, every rounding boundary of binary32 to
// half (each half value, each midpoint, and the binary32 neighbours of both), on the hardware path
// and on the software path (hardware conversion disabled through the core library), which must
// agree bit for bit, NaNs included.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <vector>

#include "convert/support.hpp"
#include "vekcore.h"

namespace {

using namespace veks_test;

long double half_value(uint16_t h) {
  const int e = (h >> 10) & 0x1F, m = h & 0x3FF;
  long double v = e == 0    ? std::ldexp(static_cast<long double>(m), -24)
                  : e == 31 ? (m ? NAN : INFINITY)
                            : std::ldexp(static_cast<long double>(1024 + m), e - 25);
  return (h & 0x8000) ? -v : v;
}
// x (not NaN) rounded to a half value: nearest with ties to even (infinity from 65520 on), or
// toward zero (65504 at most).
long double half_round(long double x, bool to_zero) {
  const long double a = std::fabs(x), q = std::ldexp(1.0L, std::max(std::ilogb(a), -14) - 10);
  long double r = std::isinf(a) ? a : (to_zero ? std::trunc(a / q) : std::nearbyint(a / q)) * q;
  if (r > 65504 && !std::isinf(a)) r = to_zero ? 65504 : INFINITY;
  return std::copysign(r, x);
}
// The half h holds the value v (not NaN), zeros with their sign.
bool holds(Vek16f h, long double v) {
  const long double x = half_value(static_cast<uint16_t>(h));
  return x == v && std::signbit(x) == std::signbit(v);
}

// Runs f(out) on both paths (the hardware one only where the processor has it); both outputs must
// have the same bytes.
template <class T, class F>
void both_paths(F&& f) {
  std::vector<std::vector<T>> out;
  for (int sw = !ownGetFeature(VEK_FEATURE_F16C); sw < 2; ++sw) {
    const Vek64u before = sw ? vekDisableFeatures(VEK_FEATURE_F16C) : 0;
    EXPECT_EQ(ownGetFeature(VEK_FEATURE_F16C) == 0, sw == 1);
    f(out.emplace_back());
    if (sw) vekDisableFeatures(before);
  }
  EXPECT_TRUE(out.size() == 1 || (out[0].size() == out[1].size() &&
                                  (out[0].empty() || !std::memcmp(out[0].data(), out[1].data(),
                                                                  out[0].size() * sizeof(T)))))
      << "the two paths differ";
}

TEST(Half, EveryHalfToFloat) {
  std::vector<Vek16f> h(65536);
  std::iota(h.begin(), h.end(), 0);
  both_paths<float>([&](std::vector<float>& out) {
    out.resize(h.size());
    ASSERT_EQ(veksConvert_16f32f(h.data(), out.data(), 65536), vekStatusOk);
    for (size_t i = 0; i < h.size(); ++i) {
      const long double want = half_value(h[i]);
      uint32_t b;
      std::memcpy(&b, &out[i], 4);
      ASSERT_TRUE(std::isnan(want) ? std::isnan(out[i]) && (b & 0x400000)  // quiet
                                   : out[i] == want && std::signbit(out[i]) == std::signbit(want))
          << std::hex << h[i];
    }
  });
}

// Every rounding boundary of binary32 to half and the special values, both signs.
std::vector<float> boundaries() {
  std::vector<float> v;
  for (unsigned h = 0; h <= 0x7BFF; ++h) {
    const float x = static_cast<float>(half_value(static_cast<uint16_t>(h)));
    const float mid = static_cast<float>(
        (x + (h == 0x7BFF ? 65536.0L : half_value(static_cast<uint16_t>(h + 1)))) / 2);
    for (float y : {x, std::nextafter(x, INFINITY), mid, std::nextafter(mid, 0.0f),
                    std::nextafter(mid, INFINITY)})
      v.insert(v.end(), {y, -y});
  }
  for (uint32_t b :
       {0x7F800000u, 0xFF800000u, 0x7F7FFFFFu, 0x00000001u, 0x80400000u, 0x33000000u, 0x33000001u,
        0x7FC00000u, 0x7F800001u, 0xFFFFFFFFu, 0x7FA5A5A5u, 0x7FFFE000u, 0x47800000u}) {
    float f;
    std::memcpy(&f, &b, 4);
    v.push_back(f);
  }
  return v;
}

// Every boundary under each mode (in any caller rounding, which is kept), then the tails and
// offsets of both kernels, there and back.
TEST(Half, FloatToHalfEveryBoundaryAndEveryShape) {
  const auto in = boundaries();
  const int n = static_cast<int>(in.size());
  for (int mode : {0, 1, 5})
    both_paths<Vek16f>([&](std::vector<Vek16f>& out) {
      out.resize(in.size());
      VekStatus st = -1;
      ASSERT_TRUE(keeps_fenv(kRoundings[1 + mode % 3], FE_INEXACT,
                             [&] { st = veksConvert_32f16f(in.data(), out.data(), n, mode); }));
      ASSERT_EQ(st, vekStatusOk);
      for (size_t i = 0; i < in.size(); ++i)
        ASSERT_TRUE(std::isnan(in[i]) ? (out[i] & 0x7E00) == 0x7E00  // quiet
                                      : holds(out[i], half_round(in[i], mode == 0)))
            << in[i] << " mode " << mode << ": " << std::hex << out[i];
    });
  both_paths<Vek16f>([&](std::vector<Vek16f>&) {
    for (const Shape& sh : shapes()) {
      Guarded<float> s(sh.len, (sh.misalign * 4) % 64), back(sh.len, off<float>(sh.misalign));
      Guarded<Vek16f> h(sh.len, (sh.misalign * 2) % 64);
      for (size_t i = 0; i < sh.len; ++i) s[i] = in[(i * 977 + sh.len) % in.size()];
      const int len = static_cast<int>(sh.len);
      ASSERT_EQ(veksConvert_32f16f(s.data(), h.data(), len, 1) |
                    veksConvert_16f32f(h.data(), back.data(), len),
                vekStatusOk);
      for (size_t i = 0; i < sh.len; ++i)
        ASSERT_TRUE(std::isnan(s[i]) ||
                    (holds(h[i], half_round(s[i], false)) && back[i] == half_round(s[i], false)));
      ASSERT_TRUE(h.guards_intact() && back.guards_intact());
    }
  });
}

TEST(Half, Int16BothWaysEveryValue) {
  std::vector<Vek16s> in(65536);  // every 16-bit integer, then every half
  std::iota(in.begin(), in.end(), 0);
  for (int mode : {0, 1})
    both_paths<Vek16f>([&](std::vector<Vek16f>& out) {
      out.resize(in.size());
      ASSERT_EQ(veksConvert_16s16f(in.data(), out.data(), 65536, mode), vekStatusOk);
      for (size_t i = 0; i < in.size(); ++i)
        ASSERT_TRUE(holds(out[i], half_round(in[i], mode == 0))) << in[i] << " mode " << mode;
    });
  const std::vector<Vek16f>& h = in;
  for (int mode : {0, 1, 2})
    for (int sf : {0, 1, -4, 10, -20})
      both_paths<Vek16s>([&](std::vector<Vek16s>& out) {
        out.resize(h.size());
        VekStatus st = -1;
        ASSERT_TRUE(keeps_fenv(FE_DOWNWARD, 0, [&] {
          st = veksConvert_16f16s_Sfs(h.data(), out.data(), 65536, mode, sf);
        }));
        ASSERT_EQ(st, vekStatusOk);
        for (size_t i = 0; i < h.size(); ++i) {
          long double v = std::ldexp(half_value(h[i]), -sf);
          v = mode == 1 ? std::nearbyint(v) : mode == 0 ? std::trunc(v) : std::round(v);
          ASSERT_EQ(out[i], std::isnan(v) ? -32768 : std::clamp(v, -32768.0L, 32767.0L))
              << std::hex << h[i] << std::dec << " mode " << mode << " sf " << sf;
        }
      });
}

// Rounding modes outside each member's set are refused before anything is written (pointers and
// lengths: the conversion family walk).
TEST(Half, BadRoundModesWriteNothing) {
  const float f[4] = {1, 2, 3, 4};
  const Vek16s i[4] = {1, 2, 3, 4};
  Guarded<Vek16f> h(4);
  Guarded<Vek16s> d(4);
  EXPECT_EQ(veksConvert_32f16f(f, h.data(), 4, 2), vekStatusBadRoundMode);
  for (int bad : {2, -1, 3})
    EXPECT_EQ(veksConvert_16s16f(i, h.data(), 4, bad), vekStatusBadRoundMode);
  for (int bad : {3, -1, 7})
    EXPECT_EQ(veksConvert_16f16s_Sfs(h.data(), d.data(), 4, bad, 0), vekStatusBadRoundMode);
  EXPECT_TRUE(h.unchanged() && d.unchanged());
}

}  // namespace
