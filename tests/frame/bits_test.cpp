// Bit-string copies in both bit numberings and byte-order reversal against bit-by-bit and
// byte-by-byte references: every offset phase and length pattern, the bits and bytes a call must
// keep, the bytes it may read (arrays against inaccessible pages).
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>
#include <random>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;
using Bytes = std::vector<unsigned char>;

// Copies bit so + i of s to bit dof + i of d; bit q is bit q % 8 of byte q / 8, counted from the
// most significant bit when msb, else from the least significant one.
void ref_copy(const unsigned char* s, uint64_t so, unsigned char* d, uint64_t dof, uint64_t len,
              bool msb) {
  const auto mask = [msb](uint64_t q) { return 1u << (msb ? 7 - q % 8 : q % 8); };
  for (uint64_t i = 0, q = dof; i < len; ++i, ++q)
    d[q / 8] = static_cast<unsigned char>(s[(so + i) / 8] & mask(so + i) ? d[q / 8] | mask(q)
                                                                         : d[q / 8] & ~mask(q));
}

// At least `bytes` (reserved, untouched until used) with an inaccessible page on each side:
// touching a byte before first() or at end() faults in every build.
class Fenced {
 public:
  explicit Fenced(size_t bytes = 1) : page_(static_cast<size_t>(sysconf(_SC_PAGESIZE))) {
    size_ = (bytes + page_ - 1) / page_ * page_ + 2 * page_;
    void* m = mmap(nullptr, size_, PROT_READ | PROT_WRITE,
                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (m == MAP_FAILED) throw std::bad_alloc();
    base_ = static_cast<unsigned char*>(m);
    mprotect(base_, page_, PROT_NONE);
    mprotect(base_ + size_ - page_, page_, PROT_NONE);
  }
  ~Fenced() { munmap(base_, size_); }
  unsigned char* first() { return base_ + page_; }
  unsigned char* end() { return base_ + size_ - page_; }

 private:
  size_t page_, size_;
  unsigned char* base_;
};

Bytes random_bytes(std::mt19937& rng, size_t n) {
  Bytes v(n);
  return std::generate(v.begin(), v.end(), [&] { return static_cast<unsigned char>(rng()); }), v;
}

struct Order {
  VekStatus (*fn)(const Vek8u*, int, Vek8u*, int, int);
  bool msb;
};
const Order kOrders[] = {{veksCopyLE_1u, false}, {veksCopyBE_1u, true}};

// The two numberings by hand (the reference follows them); offsets are checked after the length.
TEST(BitCopy, NumberingsAndBadOffsets) {
  const Vek8u be = 0xB0, le = 0x0D;  // 1 0 1 1 from the top, from the bottom
  Vek8u d1 = 0, d2 = 0, s[1] = {}, d[1] = {};
  ASSERT_EQ(veksCopyBE_1u(&be, 1, &d1, 4, 3) | veksCopyLE_1u(&le, 1, &d2, 4, 3), vekStatusOk);
  EXPECT_TRUE(d1 == 0x06 && d2 == 0x60);  // bits 1..3 (0 1 1) land at positions 4..6
  for (auto [so, dof] : {std::pair{-1, 0}, {0, -1}, {INT_MIN, 0}, {0, INT_MIN}})
    EXPECT_EQ(veksCopyLE_1u(s, so, d, dof, 8), vekStatusBadArg);
}

// Every bit phase of both arrays, offsets past the first bytes, lengths from inside one byte to
// three 64-bit words: random bits, ones into zeros and zeros into ones (which show exactly the bits
// that change), at three placements where any access outside the permitted bytes faults: the
// source ending at a fence into a guarded destination (whose bytes before the copied range are
// compared too), the first source byte starting a page with the destination ending at one, and
// both starting a page. Onto the same string nothing changes.
TEST(BitCopy, EveryOffsetPairAndLengthAtPageEdges) {
  std::mt19937 rng(2024);
  Fenced fs, fd;
  std::vector<int> offsets;
  for (int o = 0; o < 16; ++o) offsets.push_back(o);
  offsets.insert(offsets.end(), {8 * 5 + 7, 8 * 37 + 3});
  for (const Order& o : kOrders)
    for (int so : offsets)
      for (int dof : offsets)
        for (int len = 1; len <= 200; ++len) {
          const size_t ns = (so + len - 1) / 8 + 1, nd = (dof + len - 1) / 8 + 1, s0 = so / 8,
                       d0 = dof / 8;
          Bytes src = random_bytes(rng, ns), init = random_bytes(rng, nd);
          if (len % 3)
            src.assign(ns, len % 3 == 1 ? 0xFF : 0), init.assign(nd, len % 3 == 1 ? 0 : 0xFF);
          Bytes want = init;
          ref_copy(src.data(), so, want.data(), dof, len, o.msb);
          unsigned char* ps = fs.end() - ns;
          std::memcpy(ps + s0, src.data() + s0, ns - s0);
          Guarded<Vek8u> dst(nd, (so * 16 + dof + len) % 64);
          std::memcpy(dst.data(), init.data(), nd);
          bool ok = o.fn(ps, so, dst.data(), dof, len) == vekStatusOk &&
                    Bytes(dst.data(), dst.data() + nd) == want && dst.guards_intact();
          for (const bool dst_at_end : {true, false}) {
            ps = fs.first() - s0;
            unsigned char* pd = dst_at_end ? fd.end() - nd : fd.first() - d0;
            std::memcpy(ps + s0, src.data() + s0, ns - s0);
            std::memcpy(pd + d0, init.data() + d0, nd - d0);
            ok = ok && o.fn(ps, so, pd, dof, len) == vekStatusOk &&
                 std::equal(want.begin() + d0, want.end(), pd + d0);
          }
          if (so == dof && len % 7 == 0) {
            dst.remember();
            ok = ok && o.fn(dst.data(), so, dst.data(), so, len) == vekStatusOk && dst.unchanged();
          }
          ASSERT_TRUE(ok) << (o.msb ? "BE" : "LE") << " offsets " << so << ", " << dof << " len "
                          << len;
        }
}

// Offsets just below 2^31 put offset + len above 2^31: 64-bit bit indices. The bytes are 256 MiB
// in, untouched except near the copied ranges.
TEST(BitCopy, OffsetsNearTheIntLimit) {
  std::mt19937 rng(7);
  constexpr int kSo = INT_MAX - 5, kDo = INT_MAX - 60, kLen = 200;
  constexpr size_t kSpan = (size_t{INT_MAX} + 512) / 8 + 64, s0 = kSo / 8, d0 = kDo / 8, w = 40;
  Fenced fs(kSpan), fd(kSpan);
  unsigned char *src = fs.first(), *dst = fd.first();
  for (const Order& o : kOrders) {
    const Bytes s = random_bytes(rng, w), before = random_bytes(rng, w);
    std::memcpy(src + s0, s.data(), w);
    std::memcpy(dst + d0 - 8, before.data(), w);
    Bytes want = before;
    ref_copy(s.data(), kSo % 8, want.data() + 8, kDo % 8, kLen, o.msb);
    ASSERT_EQ(o.fn(src, kSo, dst, kDo, kLen), vekStatusOk);
    EXPECT_EQ(Bytes(dst + d0 - 8, dst + d0 - 8 + w), want) << o.msb;
  }
}

// ---- byte swaps -------------------------------------------------------------------------------

// Lengths 1..200 at byte offsets that put elements across cache lines and off their natural
// alignment, and against page fences: out of place, in place, the same array twice, and back.
template <class E>
void check_swap(size_t width, VekStatus (*out)(const E*, E*, int), VekStatus (*in)(E*, int)) {
  std::mt19937 rng(11);
  Fenced fs, fd;
  const size_t kMis[] = {0, 1, 3, 6, 33, 63};
  const auto e = [](unsigned char* p) { return reinterpret_cast<E*>(p); };
  for (int len = 1; len <= 200; ++len)
    for (size_t ms : kMis) {
      const size_t md = kMis[(ms + len) % 6], n = width * len;
      const Bytes x = random_bytes(rng, n);
      Bytes want(n);
      for (size_t i = 0; i < n; ++i) want[i] = x[i / width * width + width - 1 - i % width];
      Guarded<Vek8u> src(n, ms), dst(n, md), io(n, md), back(n, ms);
      std::memcpy(src.data(), x.data(), n);
      std::memcpy(io.data(), x.data(), n);
      src.remember();
      const auto is = [n](unsigned char* p, const Bytes& v) { return Bytes(p, p + n) == v; };
      bool ok = (out(e(src.data()), e(dst.data()), len) | in(e(io.data()), len)) == vekStatusOk &&
                src.unchanged() && dst.guards_intact() && io.guards_intact() &&
                is(dst.data(), want) && is(io.data(), want);
      ok = ok &&
           (out(e(src.data()), e(src.data()), len) | out(e(dst.data()), e(back.data()), len)) ==
               vekStatusOk &&
           is(src.data(), want) && is(back.data(), x);
      for (int at_end = 0; at_end < 2 && ms == 0; ++at_end) {
        unsigned char* ps = at_end ? fs.end() - n : fs.first();
        unsigned char* pd = at_end ? fd.end() - n : fd.first();
        std::memcpy(ps, x.data(), n);
        ok = ok && (out(e(ps), e(pd), len) | in(e(ps), len)) == vekStatusOk && is(pd, want) &&
             is(ps, want);
      }
      ASSERT_TRUE(ok) << width << " bytes, len " << len << ", offset " << ms;
    }
}

TEST(SwapBytes, EveryLengthAndOffsetInPlaceOutOfPlaceAndAtPageEdges) {
  check_swap<Vek16u>(2, veksSwapBytes_16u, veksSwapBytes_16u_I);
  check_swap<Vek8u>(3, veksSwapBytes_24u, veksSwapBytes_24u_I);
  check_swap<Vek32u>(4, veksSwapBytes_32u, veksSwapBytes_32u_I);
  check_swap<Vek64u>(8, veksSwapBytes_64u, veksSwapBytes_64u_I);
}

}  // namespace
