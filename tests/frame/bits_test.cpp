// Bit-string copies in both bit numberings and byte-order reversal, against plain bit-by-bit and
// byte-by-byte references: every offset and length pattern, the bits and bytes a call must keep,
// the bytes it may read, the order of the argument checks.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;
using Bytes = std::vector<unsigned char>;

// ---- references -------------------------------------------------------------------------------

// Bit `pos` of the string starting at bit 0 of `p`: position pos mod 8 of byte pos div 8, counted
// from the most significant bit when msb_first, else from the least significant one.
unsigned ref_get(const unsigned char* p, uint64_t pos, bool msb_first) {
  const unsigned b = static_cast<unsigned>(pos % 8);
  return (p[pos / 8] >> (msb_first ? 7 - b : b)) & 1u;
}

void ref_set(unsigned char* p, uint64_t pos, bool msb_first, unsigned bit) {
  const unsigned b = static_cast<unsigned>(pos % 8);
  const auto mask = static_cast<unsigned char>(1u << (msb_first ? 7 - b : b));
  p[pos / 8] = static_cast<unsigned char>(bit ? p[pos / 8] | mask : p[pos / 8] & ~mask);
}

void ref_copy(const unsigned char* src, uint64_t so, unsigned char* dst, uint64_t dof, uint64_t len,
              bool msb_first) {
  for (uint64_t i = 0; i < len; ++i)
    ref_set(dst, dof + i, msb_first, ref_get(src, so + i, msb_first));
}

Bytes ref_swap(const Bytes& in, size_t width) {
  Bytes out(in.size());
  for (size_t e = 0; e + width <= in.size(); e += width)
    for (size_t k = 0; k < width; ++k) out[e + k] = in[e + width - 1 - k];
  return out;
}

// ---- buffers ----------------------------------------------------------------------------------

// Pages that can be read and written with an inaccessible page on each side, so that touching a
// byte just before first() or at end() faults in every build, sanitized or not.
class Fenced {
 public:
  explicit Fenced(size_t bytes) : page_(static_cast<size_t>(sysconf(_SC_PAGESIZE))) {
    inner_ = (bytes + page_ - 1) / page_ * page_;
    total_ = inner_ + 2 * page_;
    void* m = mmap(nullptr, total_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (m == MAP_FAILED) throw std::bad_alloc();
    base_ = static_cast<unsigned char*>(m);
    if (mprotect(base_, page_, PROT_NONE) != 0 ||
        mprotect(base_ + page_ + inner_, page_, PROT_NONE) != 0)
      throw std::bad_alloc();
  }
  ~Fenced() { munmap(base_, total_); }
  Fenced(const Fenced&) = delete;
  Fenced& operator=(const Fenced&) = delete;

  unsigned char* first() { return base_ + page_; }
  unsigned char* end() { return base_ + page_ + inner_; }

 private:
  size_t page_, inner_ = 0, total_ = 0;
  unsigned char* base_ = nullptr;
};

Bytes random_bytes(std::mt19937& rng, size_t n) {
  Bytes v(n);
  for (auto& b : v) b = static_cast<unsigned char>(rng());
  return v;
}

std::string hex(const unsigned char* p, size_t n) {
  std::ostringstream s;
  s << std::hex;
  for (size_t i = 0; i < n; ++i) s << (i ? " " : "") << static_cast<unsigned>(p[i]);
  return s.str();
}

// ---- bit copies -------------------------------------------------------------------------------

using BitCopy = VekStatus (*)(const Vek8u*, int, Vek8u*, int, int);

struct Order {
  const char* name;
  BitCopy fn;
  bool msb_first;
};
const Order kOrders[] = {{"CopyLE_1u", veksCopyLE_1u, false}, {"CopyBE_1u", veksCopyBE_1u, true}};

TEST(BitCopy, OneByteExamplesInBothNumberings) {
  // 0xB0 is 1 0 1 1 0 0 0 0 from the most significant bit: bits 1..3 are 0 1 1, and at
  // positions 4..6 from the top they weigh 8 4 2.
  const Vek8u be_src = 0xB0;
  Vek8u be_dst = 0;
  ASSERT_EQ(veksCopyBE_1u(&be_src, 1, &be_dst, 4, 3), vekStatusOk);
  EXPECT_EQ(be_dst, 0x06);
  // 0x0D is 1 0 1 1 0 0 0 0 from the least significant bit: bits 1..3 are 0 1 1, and at
  // positions 4..6 from the bottom they weigh 16 32 64.
  const Vek8u le_src = 0x0D;
  Vek8u le_dst = 0;
  ASSERT_EQ(veksCopyLE_1u(&le_src, 1, &le_dst, 4, 3), vekStatusOk);
  EXPECT_EQ(le_dst, 0x60);
}

TEST(BitCopy, ThirteenZeroBitsIntoOnesKeepEveryOtherBit) {
  // Destination bits 3..15 are cleared; bits 0..2 of the first byte stay set, and nothing
  // beyond the two touched bytes changes.
  for (const Order& o : kOrders) {
    SCOPED_TRACE(o.name);
    const Vek8u src[3] = {0, 0, 0};
    Guarded<Vek8u> dst(2, 5, 0xFF);
    ASSERT_EQ(o.fn(src, 5, dst.data(), 3, 13), vekStatusOk);
    EXPECT_EQ(dst[0], o.msb_first ? 0xE0 : 0x07);
    EXPECT_EQ(dst[1], 0x00);
    EXPECT_TRUE(dst.guards_intact());
  }
}

// The copy of `len` bits from `src` at bit `so` into `init` at bit `dof`: checks the result
// against the reference at three placements of the arrays. (1) The source ends exactly at an
// inaccessible page and the destination is a guarded buffer: the whole destination array is
// compared (bytes before the touched range included) and the guards must be intact. (2) The
// first source byte read starts a page and the destination ends at a page. (3) Both start a page.
// A read or write outside the permitted bytes faults in (1) to (3).
class BitCopyAtEdges {
 public:
  BitCopyAtEdges() : s_(4096), d_(4096) {}

  testing::AssertionResult run(const Order& o, const Bytes& src, int so, const Bytes& init, int dof,
                               int len, size_t misalign) {
    Bytes want = init;
    ref_copy(src.data(), static_cast<uint64_t>(so), want.data(), static_cast<uint64_t>(dof),
             static_cast<uint64_t>(len), o.msb_first);
    const size_t s0 = static_cast<size_t>(so) / 8, d0 = static_cast<size_t>(dof) / 8;
    const size_t ns = src.size(), nd = init.size();
    std::ostringstream what;
    what << o.name << " srcBitOffset " << so << " dstBitOffset " << dof << " len " << len;

    {  // (1)
      unsigned char* ps = s_.end() - ns;
      std::memcpy(ps + s0, src.data() + s0, ns - s0);
      Guarded<Vek8u> dst(nd, misalign);
      std::memcpy(dst.bytes_ptr(), init.data(), nd);
      const VekStatus st = o.fn(ps, so, dst.data(), dof, len);
      if (st != vekStatusOk) return testing::AssertionFailure() << what.str() << ": status " << st;
      if (std::memcmp(dst.bytes_ptr(), want.data(), nd) != 0)
        return testing::AssertionFailure()
               << what.str() << " (guarded destination)\n  source " << hex(src.data(), ns)
               << "\n  before " << hex(init.data(), nd) << "\n  want   " << hex(want.data(), nd)
               << "\n  got    " << hex(dst.bytes_ptr(), nd);
      if (!dst.guards_intact())
        return testing::AssertionFailure() << what.str() << ": wrote outside the destination";
    }
    for (const bool dst_at_end : {true, false}) {  // (2), (3)
      unsigned char* ps = s_.first() - s0;
      unsigned char* pd = dst_at_end ? d_.end() - nd : d_.first() - d0;
      std::memcpy(ps + s0, src.data() + s0, ns - s0);
      std::memcpy(pd + d0, init.data() + d0, nd - d0);
      const VekStatus st = o.fn(ps, so, pd, dof, len);
      if (st != vekStatusOk) return testing::AssertionFailure() << what.str() << ": status " << st;
      if (std::memcmp(pd + d0, want.data() + d0, nd - d0) != 0)
        return testing::AssertionFailure()
               << what.str() << (dst_at_end ? " (destination at a page end)" : " (at page starts)")
               << "\n  want " << hex(want.data() + d0, nd - d0) << "\n  got  "
               << hex(pd + d0, nd - d0);
    }
    return testing::AssertionSuccess();
  }

 private:
  Fenced s_, d_;
};

TEST(BitCopy, EveryOffsetPairAndLengthMatchesTheReference) {
  // Offsets 0..15 cover every bit phase of both arrays and offsets past the first byte; lengths
  // 1..200 cover copies inside one byte, across a few bytes and runs of one to three 64-bit words.
  std::mt19937 rng(2024);
  BitCopyAtEdges edges;
  for (const Order& o : kOrders)
    for (int so = 0; so < 16; ++so)
      for (int dof = 0; dof < 16; ++dof)
        for (int len = 1; len <= 200; ++len) {
          const Bytes src = random_bytes(rng, static_cast<size_t>((so + len - 1) / 8 + 1));
          const Bytes init = random_bytes(rng, static_cast<size_t>((dof + len - 1) / 8 + 1));
          const size_t misalign = static_cast<size_t>(so * 16 + dof + len) % 64;
          ASSERT_TRUE(edges.run(o, src, so, init, dof, len, misalign));
        }
}

TEST(BitCopy, AllOnesAndAllZerosShowExactlyTheCopiedRange) {
  // Source ones into destination zeros and the converse: the bits that change are exactly
  // dstBitOffset .. dstBitOffset + len - 1, whatever random data would have hidden.
  BitCopyAtEdges edges;
  for (const Order& o : kOrders)
    for (const unsigned char fill : {0x00, 0xFF})
      for (int so = 0; so < 16; ++so)
        for (int dof = 0; dof < 16; ++dof)
          for (int len = 1; len <= 136; ++len) {
            const Bytes src(static_cast<size_t>((so + len - 1) / 8 + 1),
                            static_cast<unsigned char>(~fill));
            const Bytes init(static_cast<size_t>((dof + len - 1) / 8 + 1), fill);
            ASSERT_TRUE(edges.run(o, src, so, init, dof, len, static_cast<size_t>(dof)));
          }
}

TEST(BitCopy, LargeOffsetsAddressLaterBytes) {
  // (p, 8k + r) is the same string as (p + k, r), for the source and for the destination.
  std::mt19937 rng(7);
  for (const Order& o : kOrders)
    for (const int k : {1, 2, 5, 37})
      for (const int r : {0, 3, 7})
        for (const int len : {1, 13, 64, 71, 150}) {
          SCOPED_TRACE(std::string(o.name) + " k " + std::to_string(k) + " r " + std::to_string(r) +
                       " len " + std::to_string(len));
          const Bytes src = random_bytes(rng, 64);
          const Bytes init = random_bytes(rng, 64);
          Bytes a = init, b = init, c = init;
          ASSERT_EQ(o.fn(src.data(), 8 * k + r, a.data(), 3, len), vekStatusOk);
          ASSERT_EQ(o.fn(src.data() + k, r, b.data(), 3, len), vekStatusOk);
          EXPECT_EQ(a, b) << "source offset";
          ASSERT_EQ(o.fn(src.data(), 5, c.data() + k, r, len), vekStatusOk);
          Bytes d = init;
          ASSERT_EQ(o.fn(src.data(), 5, d.data(), 8 * k + r, len), vekStatusOk);
          EXPECT_EQ(c, d) << "destination offset";
        }
}

TEST(BitCopy, OffsetsNearTheIntLimitUseSixtyFourBitIndices) {
  // Bit offsets just below 2^31 put offset + len above 2^31: the bytes are 256 MiB in, reserved
  // but never touched except near the end.
  constexpr int kSo = INT_MAX - 5, kDo = INT_MAX - 60, kLen = 200;
  constexpr size_t kSpan = (size_t{INT_MAX} + 512) / 8 + 64;
  const auto map = [] {
    void* m = mmap(nullptr, kSpan, PROT_READ | PROT_WRITE,
                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    return m == MAP_FAILED ? nullptr : static_cast<unsigned char*>(m);
  };
  unsigned char* src = map();
  unsigned char* dst = map();
  ASSERT_NE(src, nullptr);
  ASSERT_NE(dst, nullptr);
  std::mt19937 rng(99);
  const size_t s0 = kSo / 8, d0 = kDo / 8, window = 40;  // bytes around the copied ranges
  for (const Order& o : kOrders) {
    SCOPED_TRACE(o.name);
    const Bytes s = random_bytes(rng, window), before = random_bytes(rng, window);
    std::memcpy(src + s0, s.data(), window);
    std::memcpy(dst + d0 - 8, before.data(), window);
    Bytes want = before;  // want[8] is byte d0
    ref_copy(s.data(), kSo % 8, want.data() + 8, kDo % 8, kLen, o.msb_first);
    ASSERT_EQ(o.fn(src, kSo, dst, kDo, kLen), vekStatusOk);
    EXPECT_EQ(Bytes(dst + d0 - 8, dst + d0 - 8 + window), want);
  }
  munmap(src, kSpan);
  munmap(dst, kSpan);
}

TEST(BitCopy, CopyOntoTheSameStringChangesNothing) {
  std::mt19937 rng(3);
  for (const Order& o : kOrders)
    for (int off = 0; off < 16; ++off)
      for (int len = 1; len <= 200; ++len) {
        Guarded<Vek8u> buf(static_cast<size_t>((off + len - 1) / 8 + 1),
                           static_cast<size_t>(len % 64));
        const Bytes init = random_bytes(rng, buf.size());
        std::memcpy(buf.bytes_ptr(), init.data(), init.size());
        buf.remember();
        ASSERT_EQ(o.fn(buf.data(), off, buf.data(), off, len), vekStatusOk);
        ASSERT_TRUE(buf.unchanged()) << o.name << " offset " << off << " len " << len;
      }
}

TEST(BitCopy, ChecksPointersThenLengthThenOffsetsAndWritesNothing) {
  struct Case {
    bool src, dst;
    int so, dof, len;
    VekStatus want;
  };
  const Case cases[] = {
      {false, true, 0, 0, 8, vekStatusNullPtr},      {true, false, 0, 0, 8, vekStatusNullPtr},
      {false, false, 0, 0, 8, vekStatusNullPtr},     {false, true, -1, 0, 8, vekStatusNullPtr},
      {true, false, 0, -1, 8, vekStatusNullPtr},     {false, true, -1, -1, 0, vekStatusNullPtr},
      {true, true, 0, 0, 0, vekStatusBadSize},       {true, true, 0, 0, -1, vekStatusBadSize},
      {true, true, 0, 0, INT_MIN, vekStatusBadSize}, {true, true, -1, -1, 0, vekStatusBadSize},
      {true, true, -1, 0, 8, vekStatusBadArg},       {true, true, 0, -1, 8, vekStatusBadArg},
      {true, true, INT_MIN, 0, 8, vekStatusBadArg},  {true, true, 0, INT_MIN, 8, vekStatusBadArg},
      {true, true, -1, -1, 8, vekStatusBadArg},
  };
  for (const Order& o : kOrders)
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(o.name) + (c.src ? "" : " null src") + (c.dst ? "" : " null dst") +
                   " offsets " + std::to_string(c.so) + "," + std::to_string(c.dof) + " len " +
                   std::to_string(c.len));
      const Vek8u src[4] = {0x12, 0x34, 0x56, 0x78};
      Guarded<Vek8u> dst(4, 0, 0x5C);
      EXPECT_EQ(o.fn(c.src ? src : nullptr, c.so, c.dst ? dst.data() : nullptr, c.dof, c.len),
                c.want);
      EXPECT_TRUE(dst.unchanged());
    }
}

// ---- byte swaps -------------------------------------------------------------------------------

struct Swap {
  const char* name;
  size_t width;
  VekStatus (*out)(const unsigned char*, unsigned char*, int);
  VekStatus (*in)(unsigned char*, int);
};

template <class T>
const T* as(const unsigned char* p) {
  return reinterpret_cast<const T*>(p);
}
template <class T>
T* as(unsigned char* p) {
  return reinterpret_cast<T*>(p);
}

const Swap kSwaps[] = {
    {"SwapBytes_16u", 2,
     [](const unsigned char* s, unsigned char* d, int n) {
       return veksSwapBytes_16u(as<Vek16u>(s), as<Vek16u>(d), n);
     },
     [](unsigned char* p, int n) { return veksSwapBytes_16u_I(as<Vek16u>(p), n); }},
    {"SwapBytes_24u", 3,
     [](const unsigned char* s, unsigned char* d, int n) { return veksSwapBytes_24u(s, d, n); },
     [](unsigned char* p, int n) { return veksSwapBytes_24u_I(p, n); }},
    {"SwapBytes_32u", 4,
     [](const unsigned char* s, unsigned char* d, int n) {
       return veksSwapBytes_32u(as<Vek32u>(s), as<Vek32u>(d), n);
     },
     [](unsigned char* p, int n) { return veksSwapBytes_32u_I(as<Vek32u>(p), n); }},
    {"SwapBytes_64u", 8,
     [](const unsigned char* s, unsigned char* d, int n) {
       return veksSwapBytes_64u(as<Vek64u>(s), as<Vek64u>(d), n);
     },
     [](unsigned char* p, int n) { return veksSwapBytes_64u_I(as<Vek64u>(p), n); }},
};

TEST(SwapBytes, ReversesTheBytesOfElementValues) {
  Vek16u a16[2] = {0x1234, 0xABCD}, b16[2];
  ASSERT_EQ(veksSwapBytes_16u(a16, b16, 2), vekStatusOk);
  EXPECT_EQ(b16[0], 0x3412);
  EXPECT_EQ(b16[1], 0xCDAB);
  Vek32u a32[1] = {0x12345678u}, b32[1];
  ASSERT_EQ(veksSwapBytes_32u(a32, b32, 1), vekStatusOk);
  EXPECT_EQ(b32[0], 0x78563412u);
  Vek64u a64[1] = {0x0102030405060708ull}, b64[1];
  ASSERT_EQ(veksSwapBytes_64u(a64, b64, 1), vekStatusOk);
  EXPECT_EQ(b64[0], 0x0807060504030201ull);
  const Vek8u a24[6] = {1, 2, 3, 4, 5, 6};
  Vek8u b24[6];
  ASSERT_EQ(veksSwapBytes_24u(a24, b24, 2), vekStatusOk);
  EXPECT_EQ(Bytes(b24, b24 + 6), (Bytes{3, 2, 1, 6, 5, 4}));
  ASSERT_EQ(veksSwapBytes_24u_I(b24, 2), vekStatusOk);
  EXPECT_EQ(Bytes(b24, b24 + 6), (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST(SwapBytes, EveryLengthAtMisalignedAddressesOutOfPlaceInPlaceAndTwice) {
  // Lengths 1..200 reach several full vectors and every tail; the byte offsets from a 64-byte
  // boundary put elements across cache lines and off their natural alignment.
  std::mt19937 rng(11);
  const size_t kMisalign[] = {0, 1, 3, 6, 33, 63};
  for (const Swap& sw : kSwaps)
    for (int len = 1; len <= 200; ++len)
      for (size_t ms : kMisalign) {
        const size_t md = kMisalign[(ms + static_cast<size_t>(len)) % std::size(kMisalign)];
        SCOPED_TRACE(std::string(sw.name) + " len " + std::to_string(len) + " src misalign " +
                     std::to_string(ms) + " dst misalign " + std::to_string(md));
        const size_t n = sw.width * static_cast<size_t>(len);
        const Bytes in = random_bytes(rng, n);
        const Bytes want = ref_swap(in, sw.width);

        Guarded<Vek8u> src(n, ms), dst(n, md);
        std::memcpy(src.bytes_ptr(), in.data(), n);
        src.remember();
        ASSERT_EQ(sw.out(src.bytes_ptr(), dst.bytes_ptr(), len), vekStatusOk);
        ASSERT_EQ(Bytes(dst.bytes_ptr(), dst.bytes_ptr() + n), want);
        EXPECT_TRUE(dst.guards_intact());
        EXPECT_TRUE(src.unchanged());

        // In place, and out of place with the destination equal to the source, give the same.
        Guarded<Vek8u> io(n, md);
        std::memcpy(io.bytes_ptr(), in.data(), n);
        ASSERT_EQ(sw.in(io.bytes_ptr(), len), vekStatusOk);
        ASSERT_EQ(Bytes(io.bytes_ptr(), io.bytes_ptr() + n), want);
        EXPECT_TRUE(io.guards_intact());
        std::memcpy(src.bytes_ptr(), in.data(), n);
        ASSERT_EQ(sw.out(src.bytes_ptr(), src.bytes_ptr(), len), vekStatusOk);
        ASSERT_EQ(Bytes(src.bytes_ptr(), src.bytes_ptr() + n), want);
        EXPECT_TRUE(src.guards_intact());

        // Swapping the result again restores the input, in place and out of place.
        ASSERT_EQ(sw.in(io.bytes_ptr(), len), vekStatusOk);
        EXPECT_EQ(Bytes(io.bytes_ptr(), io.bytes_ptr() + n), in);
        Guarded<Vek8u> back(n, ms);
        ASSERT_EQ(sw.out(dst.bytes_ptr(), back.bytes_ptr(), len), vekStatusOk);
        EXPECT_EQ(Bytes(back.bytes_ptr(), back.bytes_ptr() + n), in);
      }
}

TEST(SwapBytes, TouchesNoByteBeyondTheArrays) {
  // Arrays that start or end exactly at an inaccessible page: a vector load or store that strays
  // past the first or last element faults.
  std::mt19937 rng(5);
  Fenced s(4096), d(4096);
  for (const Swap& sw : kSwaps)
    for (int len = 1; len <= 200; ++len)
      for (const bool at_end : {true, false}) {
        SCOPED_TRACE(std::string(sw.name) + " len " + std::to_string(len) +
                     (at_end ? " at page ends" : " at page starts"));
        const size_t n = sw.width * static_cast<size_t>(len);
        const Bytes in = random_bytes(rng, n);
        const Bytes want = ref_swap(in, sw.width);
        unsigned char* ps = at_end ? s.end() - n : s.first();
        unsigned char* pd = at_end ? d.end() - n : d.first();
        std::memcpy(ps, in.data(), n);
        ASSERT_EQ(sw.out(ps, pd, len), vekStatusOk);
        ASSERT_EQ(Bytes(pd, pd + n), want);
        ASSERT_EQ(sw.in(ps, len), vekStatusOk);
        ASSERT_EQ(Bytes(ps, ps + n), want);
      }
}

TEST(SwapBytes, ChecksPointersThenLengthAndWritesNothing) {
  for (const Swap& sw : kSwaps) {
    SCOPED_TRACE(sw.name);
    Guarded<Vek8u> src(8 * 4, 0, 0x11), dst(8 * 4, 0, 0x22);
    unsigned char* s = src.bytes_ptr();
    unsigned char* d = dst.bytes_ptr();
    EXPECT_EQ(sw.out(nullptr, d, 4), vekStatusNullPtr);
    EXPECT_EQ(sw.out(s, nullptr, 4), vekStatusNullPtr);
    EXPECT_EQ(sw.out(nullptr, d, 0), vekStatusNullPtr);
    EXPECT_EQ(sw.out(s, nullptr, -1), vekStatusNullPtr);
    EXPECT_EQ(sw.out(s, d, 0), vekStatusBadSize);
    EXPECT_EQ(sw.out(s, d, -1), vekStatusBadSize);
    EXPECT_EQ(sw.out(s, d, INT_MIN), vekStatusBadSize);
    EXPECT_EQ(sw.in(nullptr, 4), vekStatusNullPtr);
    EXPECT_EQ(sw.in(nullptr, 0), vekStatusNullPtr);
    EXPECT_EQ(sw.in(d, 0), vekStatusBadSize);
    EXPECT_EQ(sw.in(d, -1), vekStatusBadSize);
    EXPECT_EQ(sw.in(d, INT_MIN), vekStatusBadSize);
    EXPECT_TRUE(src.unchanged());
    EXPECT_TRUE(dst.unchanged());
  }
}

}  // namespace
