// Bit-string copies in both bit numberings and byte-order reversal against bit-by-bit and
// byte-by-byte references: every offset phase and length pattern, the bits and bytes a call must
// keep, the bytes it may read (arrays against inaccessible pages).
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <climits>
#include <cstring>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;
using Bytes = std::vector<unsigned char>;

// Bit pos of the string at p: bit pos % 8 of byte pos / 8, counted from the most significant bit
// when msb, else from the least significant one.
unsigned ref_get(const unsigned char* p, uint64_t pos, bool msb) {
  return (p[pos / 8] >> (msb ? 7 - pos % 8 : pos % 8)) & 1u;
}
void ref_copy(const unsigned char* s, uint64_t so, unsigned char* d, uint64_t dof, uint64_t len,
              bool msb) {
  for (uint64_t i = 0; i < len; ++i) {
    const uint64_t q = dof + i;
    const auto m = static_cast<unsigned char>(1u << (msb ? 7 - q % 8 : q % 8));
    d[q / 8] = static_cast<unsigned char>(ref_get(s, so + i, msb) ? d[q / 8] | m : d[q / 8] & ~m);
  }
}

// Pages with an inaccessible page on each side: touching a byte before first() or at end()
// faults in every build.
class Fenced {
 public:
  Fenced() : page_(static_cast<size_t>(sysconf(_SC_PAGESIZE))) {
    void* m = mmap(nullptr, 3 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (m == MAP_FAILED) throw std::bad_alloc();
    base_ = static_cast<unsigned char*>(m);
    mprotect(base_, page_, PROT_NONE);
    mprotect(base_ + 2 * page_, page_, PROT_NONE);
  }
  ~Fenced() { munmap(base_, 3 * page_); }
  unsigned char* first() { return base_ + page_; }
  unsigned char* end() { return base_ + 2 * page_; }

 private:
  size_t page_;
  unsigned char* base_;
};

Bytes random_bytes(std::mt19937& rng, size_t n) {
  Bytes v(n);
  for (auto& b : v) b = static_cast<unsigned char>(rng());
  return v;
}

struct Order {
  const char* name;
  VekStatus (*fn)(const Vek8u*, int, Vek8u*, int, int);
  bool msb;
};
const Order kOrders[] = {{"CopyLE_1u", veksCopyLE_1u, false}, {"CopyBE_1u", veksCopyBE_1u, true}};

// The two bit numberings by hand (the reference below follows them); offsets are checked after
// the length.
TEST(BitCopy, DocumentedExamples) {
  // 0xB0 from the top is 1 0 1 1 ...: bits 1..3 (0 1 1) land at positions 4..6 from the top.
  const Vek8u be = 0xB0, le = 0x0D;  // 0x0D from the bottom is 1 0 1 1 ...
  Vek8u d1 = 0, d2 = 0;
  ASSERT_EQ(veksCopyBE_1u(&be, 1, &d1, 4, 3), vekStatusOk);
  ASSERT_EQ(veksCopyLE_1u(&le, 1, &d2, 4, 3), vekStatusOk);
  EXPECT_TRUE(d1 == 0x06 && d2 == 0x60);
  const Vek8u s[1] = {};
  Vek8u d[1] = {};
  for (auto [so, dof] : {std::pair{-1, 0}, {0, -1}, {INT_MIN, 0}, {0, INT_MIN}})
    EXPECT_EQ(veksCopyLE_1u(s, so, d, dof, 8), vekStatusBadArg);
}

// Copies len bits against the reference at three placements, where any read or write outside
// the permitted bytes faults: the source ending at a fence with a guarded destination (whose
// bytes before the copied range are compared too), the first source byte starting a page with the
// destination ending at one, and both starting a page.
class BitCopyAtEdges {
 public:
  testing::AssertionResult run(const Order& o, const Bytes& src, int so, const Bytes& init, int dof,
                               int len) {
    Bytes want = init;
    ref_copy(src.data(), so, want.data(), dof, len, o.msb);
    const size_t s0 = so / 8, d0 = dof / 8, ns = src.size(), nd = init.size();
    const std::string what = std::string(o.name) + " offsets " + std::to_string(so) + ", " +
                             std::to_string(dof) + " len " + std::to_string(len);
    unsigned char* ps = s_.end() - ns;
    std::memcpy(ps + s0, src.data() + s0, ns - s0);
    Guarded<Vek8u> dst(nd, (so * 16 + dof + len) % 64);
    std::memcpy(dst.data(), init.data(), nd);
    if (o.fn(ps, so, dst.data(), dof, len) != vekStatusOk ||
        std::memcmp(dst.data(), want.data(), nd) != 0 || !dst.guards_intact())
      return testing::AssertionFailure() << what << " (guarded destination)";
    for (const bool dst_at_end : {true, false}) {
      ps = s_.first() - s0;
      unsigned char* pd = dst_at_end ? d_.end() - nd : d_.first() - d0;
      std::memcpy(ps + s0, src.data() + s0, ns - s0);
      std::memcpy(pd + d0, init.data() + d0, nd - d0);
      if (o.fn(ps, so, pd, dof, len) != vekStatusOk ||
          std::memcmp(pd + d0, want.data() + d0, nd - d0) != 0)
        return testing::AssertionFailure()
               << what << (dst_at_end ? " (page end)" : " (page start)");
    }
    return testing::AssertionSuccess();
  }

 private:
  Fenced s_, d_;
};

// Offsets 0..15 cover every bit phase of both arrays and offsets past the first byte; lengths
// 1..200 copies inside one byte up to three 64-bit words. Random bits, and ones into zeros or
// zeros into ones, which show exactly the bits that change.
TEST(BitCopy, EveryOffsetPairAndLengthMatchesTheReference) {
  std::mt19937 rng(2024);
  BitCopyAtEdges edges;
  for (const Order& o : kOrders)
    for (int so = 0; so < 16; ++so)
      for (int dof = 0; dof < 16; ++dof)
        for (int len = 1; len <= 200; ++len) {
          const size_t ns = (so + len - 1) / 8 + 1, nd = (dof + len - 1) / 8 + 1;
          Bytes src = random_bytes(rng, ns), init = random_bytes(rng, nd);
          if (len % 3) {
            src.assign(ns, len % 3 == 1 ? 0xFF : 0);
            init.assign(nd, len % 3 == 1 ? 0 : 0xFF);
          }
          ASSERT_TRUE(edges.run(o, src, so, init, dof, len));
        }
}

TEST(BitCopy, LargeOffsetsSameStringAndOffsetsNearTheIntLimit) {
  std::mt19937 rng(7);
  for (const Order& o : kOrders) {
    // (p, 8k + r) is the string (p + k, r), for the source and for the destination.
    for (int k : {1, 5, 37})
      for (int r : {0, 3, 7})
        for (int len : {1, 13, 71, 150}) {
          const Bytes src = random_bytes(rng, 64), init = random_bytes(rng, 64);
          Bytes a = init, b = init, c = init, d = init;
          ASSERT_EQ(o.fn(src.data(), 8 * k + r, a.data(), 3, len), vekStatusOk);
          ASSERT_EQ(o.fn(src.data() + k, r, b.data(), 3, len), vekStatusOk);
          ASSERT_EQ(o.fn(src.data(), 5, c.data() + k, r, len), vekStatusOk);
          ASSERT_EQ(o.fn(src.data(), 5, d.data(), 8 * k + r, len), vekStatusOk);
          EXPECT_TRUE(a == b && c == d) << o.name << " k " << k << " r " << r << " len " << len;
        }
    // Onto the same string: nothing changes.
    for (int off = 0; off < 16; ++off)
      for (int len = 1; len <= 200; len += 7) {
        Guarded<Vek8u> buf((off + len - 1) / 8 + 1, size_t(len) % 64);
        const Bytes init = random_bytes(rng, buf.size());
        std::memcpy(buf.data(), init.data(), init.size());
        buf.remember();
        ASSERT_EQ(o.fn(buf.data(), off, buf.data(), off, len), vekStatusOk);
        ASSERT_TRUE(buf.unchanged()) << o.name << " offset " << off << " len " << len;
      }
  }
  // Offsets just below 2^31 put offset + len above 2^31: 64-bit bit indices. The bytes are 256
  // MiB in, reserved but untouched except near the copied ranges.
  constexpr int kSo = INT_MAX - 5, kDo = INT_MAX - 60, kLen = 200;
  constexpr size_t kSpan = (size_t{INT_MAX} + 512) / 8 + 64, s0 = kSo / 8, d0 = kDo / 8, w = 40;
  const auto map = [] {
    void* m = mmap(nullptr, kSpan, PROT_READ | PROT_WRITE,
                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    return m == MAP_FAILED ? nullptr : static_cast<unsigned char*>(m);
  };
  unsigned char *src = map(), *dst = map();
  ASSERT_TRUE(src && dst);
  for (const Order& o : kOrders) {
    const Bytes s = random_bytes(rng, w), before = random_bytes(rng, w);
    std::memcpy(src + s0, s.data(), w);
    std::memcpy(dst + d0 - 8, before.data(), w);
    Bytes want = before;
    ref_copy(s.data(), kSo % 8, want.data() + 8, kDo % 8, kLen, o.msb);
    ASSERT_EQ(o.fn(src, kSo, dst, kDo, kLen), vekStatusOk);
    EXPECT_EQ(Bytes(dst + d0 - 8, dst + d0 - 8 + w), want) << o.name;
  }
  munmap(src, kSpan);
  munmap(dst, kSpan);
}

// ---- byte swaps -------------------------------------------------------------------------------

struct Swap {
  size_t width;
  VekStatus (*out)(const unsigned char*, unsigned char*, int);
  VekStatus (*in)(unsigned char*, int);
};
#define VEKS_SWAP(W, E)                                                                            \
  Swap {                                                                                           \
    W / 8,                                                                                         \
        [](const unsigned char* s, unsigned char* d, int n) {                                      \
          return veksSwapBytes_##W##u(reinterpret_cast<const E*>(s), reinterpret_cast<E*>(d), n);  \
        },                                                                                         \
        [](unsigned char* p, int n) { return veksSwapBytes_##W##u_I(reinterpret_cast<E*>(p), n); } \
  }
const Swap kSwaps[] = {VEKS_SWAP(16, Vek16u), VEKS_SWAP(24, Vek8u), VEKS_SWAP(32, Vek32u),
                       VEKS_SWAP(64, Vek64u)};

// Lengths 1..200 at byte offsets that put elements across cache lines and off their natural
// alignment, and against page fences: out of place, in place, the same array twice, and back.
TEST(SwapBytes, EveryLengthAndOffsetInPlaceOutOfPlaceAndAtPageEdges) {
  std::mt19937 rng(11);
  Fenced fs, fd;
  const size_t kMis[] = {0, 1, 3, 6, 33, 63};
  for (const Swap& sw : kSwaps)
    for (int len = 1; len <= 200; ++len)
      for (size_t ms : kMis) {
        const size_t md = kMis[(ms + len) % 6], n = sw.width * len;
        SCOPED_TRACE(::testing::Message() << sw.width << " bytes, len " << len << ", " << ms);
        const Bytes in = random_bytes(rng, n);
        Bytes want(n);
        for (size_t i = 0; i < n; ++i)
          want[i] = in[i / sw.width * sw.width + sw.width - 1 - i % sw.width];
        Guarded<Vek8u> src(n, ms), dst(n, md), io(n, md), back(n, ms);
        std::memcpy(src.data(), in.data(), n);
        std::memcpy(io.data(), in.data(), n);
        src.remember();
        ASSERT_EQ(sw.out(src.data(), dst.data(), len), vekStatusOk);
        ASSERT_EQ(sw.in(io.data(), len), vekStatusOk);
        ASSERT_TRUE(src.unchanged() && dst.guards_intact() && io.guards_intact());
        ASSERT_EQ(Bytes(dst.data(), dst.data() + n), want);
        ASSERT_EQ(Bytes(io.data(), io.data() + n), want);
        ASSERT_EQ(sw.out(src.data(), src.data(), len), vekStatusOk);
        ASSERT_EQ(Bytes(src.data(), src.data() + n), want);
        ASSERT_EQ(sw.out(dst.data(), back.data(), len), vekStatusOk);
        ASSERT_EQ(Bytes(back.data(), back.data() + n), in);
        if (ms != 0) continue;
        for (bool at_end : {true, false}) {
          unsigned char* ps = at_end ? fs.end() - n : fs.first();
          unsigned char* pd = at_end ? fd.end() - n : fd.first();
          std::memcpy(ps, in.data(), n);
          ASSERT_EQ(sw.out(ps, pd, len), vekStatusOk);
          ASSERT_EQ(sw.in(ps, len), vekStatusOk);
          ASSERT_TRUE(Bytes(pd, pd + n) == want && Bytes(ps, ps + n) == want);
        }
      }
}

}  // namespace
