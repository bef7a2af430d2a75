// Specification-block helpers: alignment of the caller's pointer and the identifier word.
#include <gtest/gtest.h>

#include "frame/block.hpp"

namespace {

TEST(Block, AlignsUpWithinTheSlack) {
  alignas(64) unsigned char buf[256] = {};
  for (size_t off = 0; off < 64; ++off) {
    unsigned char* b = veks::align_block(buf + off);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(b) % 64, 0u);
    EXPECT_GE(b, buf + off);
    EXPECT_LT(b, buf + off + veks::kBlockSlack);
  }
  EXPECT_EQ(veks::align_up(1), 64u);
  EXPECT_EQ(veks::align_up(64), 64u);
  EXPECT_EQ(veks::align_up(65), 128u);
}

TEST(Block, IdentifierWordIsCheckedExactly) {
  static_assert(veks::fourcc("II01") == 0x49493031u);
  static_assert(veks::fourcc("WI04") == 0x57493034u);
  alignas(64) unsigned char buf[64] = {};
  EXPECT_EQ(veks::check_block_id(buf, 4), vekStatusSpecMismatch);
  veks::set_block_id(buf, 4);
  EXPECT_EQ(veks::check_block_id(buf, 4), vekStatusOk);
  EXPECT_EQ(veks::check_block_id(buf, 5), vekStatusSpecMismatch);
  EXPECT_EQ(buf[0], 4);  // a 32-bit word in the machine's byte order
}

}  // namespace
