// Half precision: every one of the 65,536 half values, every rounding boundary of binary32 to
// half (each half value, each midpoint, and the binary32 neighbours of both), on the hardware path
// and on the software path (hardware conversion disabled through the core library), which must
// agree bit for bit, NaNs included.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <cstring>
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

// x (not NaN) to half: nearest with ties to even, or toward zero. Overflow: nearest rounds to
// infinity from 65520 on, toward zero stays at 65504.
uint16_t half_of(long double x, bool to_zero) {
  const uint16_t sign = std::signbit(x) ? 0x8000 : 0;
  const long double a = std::fabs(x);
  if (std::isinf(a)) return sign | 0x7C00;
  unsigned lo = 0, hi = 0x7BFF;  // largest finite half whose value is <= a
  while (lo < hi) {
    const unsigned mid = (lo + hi + 1) / 2;
    if (half_value(static_cast<uint16_t>(mid)) <= a)
      lo = mid;
    else
      hi = mid - 1;
  }
  if (to_zero) return static_cast<uint16_t>(sign | lo);
  const long double below = half_value(static_cast<uint16_t>(lo)),
                    above = lo == 0x7BFF ? 65536.0L : half_value(static_cast<uint16_t>(lo + 1));
  const bool up = a - below > above - a || (a - below == above - a && (lo & 1));
  return static_cast<uint16_t>(sign | (lo + (up ? 1 : 0)));
}

bool is_nan_half(uint16_t h) { return (h & 0x7C00) == 0x7C00 && (h & 0x3FF); }

// Runs f(software) on both paths; the hardware one only where the processor has it.
template <class F>
void both_paths(F&& f) {
  if (ownGetFeature(VEK_FEATURE_F16C)) f(false);
  const Vek64u before = vekDisableFeatures(VEK_FEATURE_F16C);
  EXPECT_FALSE(ownGetFeature(VEK_FEATURE_F16C));
  f(true);
  vekDisableFeatures(before);
}

std::vector<uint16_t> all_halves() {
  std::vector<uint16_t> h(65536);
  for (size_t i = 0; i < h.size(); ++i) h[i] = static_cast<uint16_t>(i);
  return h;
}

TEST(Half, EveryHalfToFloat) {
  const auto h = all_halves();
  std::vector<std::vector<uint32_t>> bits;
  both_paths([&](bool) {
    std::vector<float> out(h.size());
    ASSERT_EQ(veksConvert_16f32f(reinterpret_cast<const Vek16f*>(h.data()), out.data(), 65536),
              vekStatusOk);
    for (size_t i = 0; i < h.size(); ++i) {
      const long double want = half_value(h[i]);
      if (std::isnan(want)) {
        uint32_t b;
        std::memcpy(&b, &out[i], 4);
        ASSERT_TRUE(std::isnan(out[i]) && (b & 0x400000)) << std::hex << h[i];  // quiet
      } else {
        ASSERT_EQ(out[i], want) << std::hex << h[i];
        ASSERT_EQ(std::signbit(out[i]), std::signbit(want));
      }
    }
    bits.emplace_back(h.size());
    std::memcpy(bits.back().data(), out.data(), 4 * out.size());
  });
  for (size_t p = 1; p < bits.size(); ++p) EXPECT_EQ(bits[p], bits[0]);
}

// Every rounding boundary of binary32 to half and the special values, both signs.
std::vector<float> boundaries() {
  std::vector<float> v;
  for (unsigned h = 0; h <= 0x7BFF; ++h) {
    const float x = static_cast<float>(half_value(static_cast<uint16_t>(h)));
    const float mid =
        static_cast<float>((half_value(static_cast<uint16_t>(h)) +
                            (h == 0x7BFF ? 65536.0L : half_value(static_cast<uint16_t>(h + 1)))) /
                           2);
    for (float y : {x, std::nextafter(x, INFINITY), mid, std::nextafter(mid, 0.0f),
                    std::nextafter(mid, INFINITY)}) {
      v.push_back(y);
      v.push_back(-y);
    }
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

TEST(Half, FloatToHalfEveryBoundary) {
  const auto in = boundaries();
  const int n = static_cast<int>(in.size());
  for (int mode : {0, 1, 5}) {
    std::vector<std::vector<uint16_t>> paths;
    both_paths([&](bool) {
      std::vector<uint16_t> out(in.size());
      VekStatus st = -1;
      ASSERT_TRUE(keeps_fenv(kRoundings[paths.size() + 1], FE_INEXACT, [&] {
        st = veksConvert_32f16f(in.data(), reinterpret_cast<Vek16f*>(out.data()), n, mode);
      }));
      ASSERT_EQ(st, vekStatusOk);
      for (size_t i = 0; i < in.size(); ++i) {
        if (std::isnan(in[i])) {
          ASSERT_TRUE(is_nan_half(out[i]) && (out[i] & 0x200)) << std::hex << out[i];
        } else {
          ASSERT_EQ(out[i], half_of(in[i], mode == 0)) << "x=" << in[i] << " mode=" << mode;
        }
      }
      paths.push_back(out);
    });
    for (size_t p = 1; p < paths.size(); ++p) EXPECT_EQ(paths[p], paths[0]) << "mode " << mode;
  }
}

// Tails and offsets of the half kernels, both directions, both paths.
TEST(Half, LengthsAndOffsets) {
  const auto in = boundaries();
  both_paths([&](bool) {
    for (const Shape& sh : shapes()) {
      Guarded<float> s(sh.len, (sh.misalign * 4) % 64);
      for (size_t i = 0; i < sh.len; ++i) s[i] = in[(i * 977 + sh.len) % in.size()];
      Guarded<Vek16f> h(sh.len, (sh.misalign * 2) % 64);
      Guarded<float> back(sh.len, off<float>(sh.misalign));
      const int n = static_cast<int>(sh.len);
      ASSERT_EQ(veksConvert_32f16f(s.data(), h.data(), n, 1), vekStatusOk);
      ASSERT_EQ(veksConvert_16f32f(h.data(), back.data(), n), vekStatusOk);
      for (size_t i = 0; i < sh.len; ++i) {
        if (std::isnan(s[i])) continue;
        ASSERT_EQ(static_cast<uint16_t>(h[i]), half_of(s[i], false));
        ASSERT_EQ(back[i], half_value(half_of(s[i], false)));
      }
      ASSERT_TRUE(h.guards_intact() && back.guards_intact());
    }
  });
}

TEST(Half, Int16ToHalfEveryValue) {
  std::vector<Vek16s> in(65536);
  for (size_t i = 0; i < in.size(); ++i) in[i] = static_cast<Vek16s>(i - 32768);
  for (int mode : {0, 1}) {
    both_paths([&](bool) {
      std::vector<uint16_t> out(in.size());
      ASSERT_EQ(veksConvert_16s16f(in.data(), reinterpret_cast<Vek16f*>(out.data()), 65536, mode),
                vekStatusOk);
      for (size_t i = 0; i < in.size(); ++i)
        ASSERT_EQ(out[i], half_of(in[i], mode == 0)) << in[i] << " mode " << mode;
    });
  }
}

TEST(Half, HalfToInt16EveryValue) {
  const auto h = all_halves();
  for (int mode : {0, 1, 2}) {
    for (int sf : {0, 1, -4, 10, -20}) {
      both_paths([&](bool) {
        std::vector<Vek16s> out(h.size());
        ASSERT_TRUE(keeps_fenv(FE_DOWNWARD, 0, [&] {
          EXPECT_EQ(veksConvert_16f16s_Sfs(reinterpret_cast<const Vek16f*>(h.data()), out.data(),
                                           65536, mode, sf),
                    vekStatusOk);
        }));
        for (size_t i = 0; i < h.size(); ++i) {
          long double v = std::ldexp(half_value(h[i]), -sf);
          long long want;
          if (std::isnan(v)) {
            want = -32768;
          } else {
            v = mode == 1 ? std::nearbyint(v) : mode == 0 ? std::trunc(v) : std::round(v);
            want = v <= -32768 ? -32768 : v >= 32767 ? 32767 : static_cast<long long>(v);
          }
          ASSERT_EQ(out[i], want) << std::hex << h[i] << std::dec << " mode " << mode << " sf "
                                  << sf;
        }
      });
    }
  }
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
    EXPECT_EQ(veksConvert_16s16f(i, h.data(), 4, bad), vekStatusBadRoundMode) << bad;
  for (int bad : {3, -1, 7})
    EXPECT_EQ(veksConvert_16f16s_Sfs(h.data(), d.data(), 4, bad, 0), vekStatusBadRoundMode) << bad;
  EXPECT_TRUE(h.unchanged() && d.unchanged());
}

}  // namespace
