// The core library: aligned allocation, pointer alignment, the process-wide settings that steer
// the library, and status strings.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "vekcore.h"

namespace {

TEST(Core, MallocAlignsTo64BytesAndRefusesNonPositiveLengths) {
  for (int n : {1, 3, 64, 1000, 1 << 20}) {
    void* p = vekMalloc(n);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u);
    std::memset(p, 0xA5, static_cast<size_t>(n));
    vekFree(p);
  }
  EXPECT_TRUE(vekMalloc(0) == nullptr && vekMalloc(-1) == nullptr);
  vekFree(nullptr);
  alignas(64) char buf[256];
  EXPECT_EQ(vekAlignPtr(buf, 64), buf);
  EXPECT_EQ(vekAlignPtr(buf + 1, 64), buf + 64);
  EXPECT_EQ(vekAlignPtr(buf + 63, 32), buf + 64);
  EXPECT_EQ(vekAlignPtr(buf + 3, 1), buf + 3);
  EXPECT_EQ(vekAlignPtr(buf + 3, 48), buf + 3);  // not a power of two: unchanged
}

TEST(Core, CacheSizeCanBeSetFailedAndRestored) {
  int detected = 0, size = 0;
  ASSERT_EQ(vekGetMaxCacheSizeB(&detected), vekStatusOk);  // this machine reports its caches
  EXPECT_GT(detected, 64 * 1024);
  EXPECT_EQ(vekGetMaxCacheSizeB(nullptr), vekStatusNullPtr);
  EXPECT_EQ(vekSetMaxCacheSizeB(8 << 20), 0);
  ASSERT_EQ(vekGetMaxCacheSizeB(&size), vekStatusOk);
  EXPECT_EQ(size, 8 << 20);
  vekSetMaxCacheSizeB(-1);
  size = 123;
  EXPECT_EQ(vekGetMaxCacheSizeB(&size), vekStatusNotSupported);
  EXPECT_EQ(size, 123);  // nothing written on failure
  EXPECT_EQ(vekSetMaxCacheSizeB(0), -1);
  ASSERT_EQ(vekGetMaxCacheSizeB(&size), vekStatusOk);
  EXPECT_EQ(size, detected);
}

TEST(Core, ThreadCountAndFeatures) {
  const int saved = ownGetNumThreads();
  EXPECT_GE(saved, 1);
  EXPECT_EQ(vekSetNumThreads(0), vekStatusBadSize);
  EXPECT_EQ(ownGetNumThreads(), saved);
  EXPECT_EQ(vekSetNumThreads(5), vekStatusOk);
  int n = 0;
  EXPECT_EQ(vekGetNumThreads(&n), vekStatusOk);
  EXPECT_EQ(n, 5);
  EXPECT_EQ(vekGetNumThreads(nullptr), vekStatusNullPtr);
  vekSetNumThreads(saved);
  EXPECT_TRUE(ownGetFeature(VEK_FEATURE_AVX512F | VEK_FEATURE_AVX512CD | VEK_FEATURE_AVX512BW |
                            VEK_FEATURE_AVX512DQ | VEK_FEATURE_AVX512VL));
  const int f16c = ownGetFeature(0x4000);
  EXPECT_EQ(vekDisableFeatures(0x4000), 0u);
  EXPECT_FALSE(ownGetFeature(0x4000) || ownGetFeature(0x4000 | VEK_FEATURE_AVX512F));
  EXPECT_TRUE(ownGetFeature(VEK_FEATURE_AVX512F));
  EXPECT_EQ(vekDisableFeatures(0), 0x4000u);
  EXPECT_EQ(ownGetFeature(0x4000), f16c);
}

TEST(Core, StatusStringsNameEveryValue) {
  EXPECT_STREQ(vekGetStatusString(vekStatusOk), "vekStatusOk: no error");
  for (VekStatus s : {vekStatusNullPtr, vekStatusBadSize, vekStatusSpecMismatch,
                      vekStatusBadAlgType, vekStatusSignalTooShort, vekStatusWarnNaN})
    EXPECT_EQ(std::strncmp(vekGetStatusString(s), "vekStatus", 9), 0) << s;
  EXPECT_STREQ(vekGetStatusString(-1), "unknown error");
  EXPECT_STREQ(vekGetStatusString(1), "unknown warning");
}

}  // namespace
