// Allocation, the version record and the block operations (Zero, Set, Copy, Move, Flip) against
// plain references on lengths and alignments that reach every kernel path, with guard bytes
// around every destination. The tests steer the cache size that selects the non-temporal paths
// and check that the stored values never depend on it.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <climits>
#include <cstring>
#include <thread>
#include <vector>

#include "support/checks.hpp"
#include "support/guarded.hpp"
#include "support/refs.hpp"

namespace {

using veks_test::fill_bytes;
using veks_test::Guarded;
using Bytes = std::vector<unsigned char>;

constexpr size_t kMiB = size_t{1} << 20;
constexpr size_t kFillLarge = 2 * kMiB, kCopyBlock = 32768, kCopyLarge = 4 * kMiB;

template <class E>
::testing::AssertionResult holds(Guarded<E>& g, const unsigned char* want) {
  const size_t n = g.size() * sizeof(E);
  for (size_t i = 0; i < n; ++i)
    if (g.bytes_ptr()[i] != want[i]) return ::testing::AssertionFailure() << "byte " << i;
  if (!g.guards_intact()) return ::testing::AssertionFailure() << "wrote outside the vector";
  return ::testing::AssertionSuccess();
}

// n elements whose bytes all differ from each other and from the guard and fill bytes, so that a
// pattern stored at the wrong phase shows.
template <class E>
Bytes repeated(size_t n) {
  Bytes r(n * sizeof(E));
  for (size_t i = 0; i < r.size(); ++i)
    r[i] = static_cast<unsigned char>(0x31 + 11 * (i % sizeof(E)));
  return r;
}

struct Case {
  int len;
  size_t misalign;
};
// Lengths 1..300 aligned and at a misalignment cycling through 1..63; one element either side
// of 64, 128 and 256 bytes at every misalignment; longer vectors through the unrolled loops.
std::vector<Case> short_cases(size_t es) {
  std::vector<Case> cs;
  for (int n = 1; n <= 300; ++n) cs.insert(cs.end(), {{n, 0}, {n, 1 + size_t(n * 7) % 63}});
  for (size_t b : {64, 128, 256})
    for (int n = std::max<int>(1, int(b / es) - 1); n <= int(b / es) + 1; ++n)
      for (size_t m = 0; m < 64; ++m) cs.push_back({n, m});
  for (int n : {511, 512, 513, 1000, 4097, 10007}) cs.push_back({n, size_t(n) % 64});
  return cs;
}
// Element counts one below, at and one above a byte threshold.
std::vector<int> around(size_t bytes, size_t es) {
  const int mid = static_cast<int>(bytes / es);
  return {mid - 1, mid, mid + 1};
}

// The members of one element type, for the typed tests.
template <class T, auto Zero, auto Set, auto Copy, auto Move>
struct Block {
  using E = T;
  static constexpr auto zero = Zero, set = Set, copy = Copy, move = Move;
};
template <class T, auto Flip, auto FlipI>
struct Flips {
  using E = T;
  static constexpr auto flip = Flip, flip_i = FlipI;
};
#define BLOCK(S) Block<Vek##S, veksZero_##S, veksSet_##S, veksCopy_##S, veksMove_##S>
#define FLIP(S) Flips<Vek##S, veksFlip_##S, veksFlip_##S##_I>
using BlockTypes =
    ::testing::Types<BLOCK(8u), BLOCK(16s), BLOCK(16sc), BLOCK(32s), BLOCK(32f), BLOCK(32sc),
                     BLOCK(32fc), BLOCK(64s), BLOCK(64f), BLOCK(64sc), BLOCK(64fc)>;
using FlipTypes =
    ::testing::Types<FLIP(8u), FLIP(16u), FLIP(32f), FLIP(32fc), FLIP(64f), FLIP(64fc)>;
#undef BLOCK
#undef FLIP
template <class P>
class BlockOps : public ::testing::Test {  // restores the reported cache size
  void SetUp() override { saved_ = vekSetMaxCacheSizeB(0); }
  void TearDown() override { vekSetMaxCacheSizeB(saved_); }
  int saved_ = 0;
};
TYPED_TEST_SUITE(BlockOps, BlockTypes);
template <class P>
class FlipOps : public ::testing::Test {};
TYPED_TEST_SUITE(FlipOps, FlipTypes);

// Zero and Set at c into guarded vectors, and a copy of random bytes from a source misaligned by
// sm, against memset, the repeated element and the source.
template <class P>
::testing::AssertionResult fills_and_copies(const Case& c, size_t sm, uint64_t seed) {
  using E = typename P::E;
  const Bytes want = repeated<E>(size_t(c.len)), zeros(want.size(), 0);
  Guarded<E> z(c.len, c.misalign), v(c.len, c.misalign), s(c.len, sm), d(c.len, c.misalign);
  E e;
  std::memcpy(&e, want.data(), sizeof e);
  fill_bytes(s.data(), c.len * sizeof(E), seed);
  s.remember();
  if (P::zero(z.data(), c.len) | P::set(e, v.data(), c.len) | P::copy(s.data(), d.data(), c.len))
    return ::testing::AssertionFailure() << "status";
  if (!holds(z, zeros.data()) || !holds(v, want.data()) || !holds(d, s.bytes_ptr()) ||
      !s.unchanged())
    return ::testing::AssertionFailure() << "len " << c.len << " at " << c.misalign << ", " << sm;
  return ::testing::AssertionSuccess();
}

// Every short path and the copy block at every misalignment (misalignments that are not
// multiples of the element size must still lay the pattern down from the first byte); around the
// large-fill and large-copy thresholds with a reported cache (0: queried) that allows streaming
// (1 MiB, or one byte either side of the byte count), a failing query (-1) and a cache just too
// large, the vectors misaligned by 1 and 60 (not element-aligned) and 16 (element-aligned only).
TYPED_TEST(BlockOps, ZeroSetAndCopyStoreTheSameOnEveryPathWhicheverTheCacheSelects) {
  const size_t es = sizeof(typename TypeParam::E);
  struct Run {
    Case c;
    size_t sm;
    int cache;
  };
  std::vector<Run> runs;
  for (const Case& c : short_cases(es)) runs.push_back({c, (c.misalign * 5 + 3) % 64, 0});
  for (int len : around(kCopyBlock, es))
    for (size_t m = 0; m < 64; ++m) runs.push_back({{len, m}, 63 - m, 0});
  std::vector<int> lens = around(kFillLarge, es);
  lens.push_back(static_cast<int>(3 * kMiB / es) + 5);
  const int big = static_cast<int>(lens.back() * es);  // streams only above the cache
  for (int cache : {1 << 20, -1, big - 1, big})
    for (int len : lens)
      for (size_t m : {0, 1, 16, 60})
        if (cache < big - 1 || (len == lens.back() && m % 16 == 0))
          runs.push_back({{len, m}, 63 - m, cache});
  const int bytes = static_cast<int>((kCopyLarge / es + 1) * es);
  for (int cache : {1 << 20, bytes, bytes + 1, -1})
    for (int len : around(kCopyLarge, es))
      for (auto [dm, sm] : {std::pair<size_t, size_t>{0, 0}, {1, 62}, {60, 3}})
        runs.push_back({{len, dm}, sm, cache});
  uint64_t seed = 1;
  for (const Run& r : runs) {
    vekSetMaxCacheSizeB(r.cache);
    ASSERT_TRUE(fills_and_copies<TypeParam>(r.c, r.sm, seed++)) << "cache " << r.cache;
  }
}

// Moves within one buffer, the destination k bytes above or below the source (k = 0: the same
// vector twice), against a copy through a temporary.
TYPED_TEST(BlockOps, MoveEqualsACopyThroughATemporaryForEveryOverlap) {
  using E = typename TypeParam::E;
  constexpr size_t es = sizeof(E);
  std::vector<int> lens = {777, 3001};
  for (int n = 1; n <= 40; ++n) lens.push_back(n);
  for (size_t b : {64, 128, 192, 256, 320, 1024})
    for (int n : around(b, es)) lens.push_back(n);
  uint64_t seed = 100;
  for (int len : lens) {
    const size_t bytes = len * es;
    for (size_t k : {size_t{0}, size_t{1}, size_t{3}, es - 1, es, es + 1, size_t{17}, size_t{63},
                     size_t{64}, size_t{65}, size_t{129}, size_t{256}, bytes - 1, bytes + 67})
      for (bool up : {true, false}) {
        Guarded<unsigned char> buf(bytes + k, (len + k) % 64);
        unsigned char* base = buf.bytes_ptr();
        fill_bytes(base, bytes + k, seed++);
        unsigned char *src = up ? base : base + k, *dst = up ? base + k : base;
        Bytes want(base, base + bytes + k);
        const Bytes temp(src, src + bytes);
        std::memcpy(want.data() + (dst - base), temp.data(), bytes);
        ASSERT_EQ(TypeParam::move(reinterpret_cast<E*>(src), reinterpret_cast<E*>(dst), len), 0);
        ASSERT_TRUE(holds(buf, want.data())) << len << ", " << k << (up ? " up" : " down");
      }
  }
}

// pDst[i] = pSrc[len - 1 - i] by whole elements; in place, and one vector given twice, alike.
TYPED_TEST(FlipOps, ReversesTheElementsOutOfPlaceInPlaceAndOnTheSameVector) {
  using E = typename TypeParam::E;
  uint64_t seed = 200;
  for (const Case& c : short_cases(sizeof(E))) {
    Guarded<E> s(c.len, (c.misalign * 3 + 1) % 64), d(c.len, c.misalign), a(c.len, c.misalign),
        b(c.len, c.misalign);
    fill_bytes(s.data(), c.len * sizeof(E), seed++);
    s.remember();
    for (Guarded<E>* g : {&a, &b}) std::memcpy(g->data(), s.data(), c.len * sizeof(E));
    Bytes want(c.len * sizeof(E));
    for (int i = 0; i < c.len; ++i)
      std::memcpy(&want[i * sizeof(E)], s.bytes_ptr() + (c.len - 1 - i) * sizeof(E), sizeof(E));
    ASSERT_EQ(TypeParam::flip(s.data(), d.data(), c.len) | TypeParam::flip_i(a.data(), c.len) |
                  TypeParam::flip(b.data(), b.data(), c.len),
              vekStatusOk);
    ASSERT_TRUE(s.unchanged() && holds(d, want.data()) && holds(a, want.data()) &&
                holds(b, want.data()))
        << c.len << " at " << c.misalign;
  }
}

TEST(BlockChecks, PointersThenLengthAndNothingWritten) {
  const auto spec = [](const std::string& name) {
    veks_test::CheckSpec s;
    if (name.find("_1u") != std::string::npos) s.len_at = s.kLast;
    if (name == "veksSet_32s") s.len_at = s.kSecondInt;  // the value first
    return s;
  };
  EXPECT_EQ(
      veks_test::expect_family_checks({"veksZero_", "veksSet_", "veksCopy_", "veksMove_",
                                       "veksFlip_", "veksSwapBytes_", "veksCopyLE_", "veksCopyBE_"},
                                      spec),
      4 * 11 + 2 * 6 + 2 * 4 + 2);
}

// 536,870,913 elements of 32f are 2,147,483,652 bytes, more than one call of the byte kernel
// takes. The source repeats with a prime period of 1,000,003 bytes: a piece copied from or to the
// wrong place cannot match.
TEST(CopyAbove2GiB, CopiesEveryElementInPieces) {
  constexpr int kLen = 536870913;
  constexpr size_t kBytes = size_t{kLen} * 4, kPeriod = 1000003, kGuard = 64;
  const auto map = [](size_t n) {
    void* p =
        mmap(nullptr, n, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    return p == MAP_FAILED ? nullptr : static_cast<unsigned char*>(p);
  };
  unsigned char *s = map(kBytes), *m = map(kBytes + 2 * kGuard + 4);
  if (!s || !m) GTEST_SKIP() << "could not map 2 x 2 GiB";
  fill_bytes(s, kPeriod, 77);
  for (size_t have = kPeriod; have < kBytes; have *= 2)
    std::memcpy(s + have, s, std::min(have, kBytes - have));
  unsigned char* const d = m + kGuard + 4;  // element-aligned, not 64-byte aligned
  std::memset(d - kGuard, 0xA7, kGuard);
  std::memset(d + kBytes, 0xA7, kGuard);
  ASSERT_EQ(veksCopy_32f(reinterpret_cast<Vek32f*>(s), reinterpret_cast<Vek32f*>(d), kLen), 0);
  const Bytes guard(kGuard, 0xA7);
  EXPECT_TRUE(std::memcmp(d - kGuard, guard.data(), kGuard) == 0 &&
              std::memcmp(d + kBytes, guard.data(), kGuard) == 0)
      << "guards";
  EXPECT_EQ(std::memcmp(d, s, kBytes), 0);
  munmap(s, kBytes);
  munmap(m, kBytes + 2 * kGuard + 4);
}

// Aligned usable vectors of the element size; null for len < 1 and for more than 2^31 - 1 bytes,
// also where the byte count wraps around in 32 bits (268,435,457 x 16 = 2^32 + 16).
TEST(Malloc, AlignedVectorsOfTheElementSizeUpTo2GiBMinusOne) {
  static_assert(sizeof(Vek8sc) == 2 && sizeof(Vek16sc) == 4 && sizeof(Vek32sc) == 8 &&
                sizeof(Vek64fc) == 16);
#define ALLOC(S)                                                     \
  std::pair<size_t, void* (*)(int)> {                                \
    sizeof(Vek##S), [](int n) -> void* { return veksMalloc_##S(n); } \
  }
  const std::pair<size_t, void* (*)(int)> all[] = {
      ALLOC(8u),   ALLOC(8s),   ALLOC(16u),  ALLOC(16s),  ALLOC(32u),
      ALLOC(32s),  ALLOC(32f),  ALLOC(64s),  ALLOC(64f),  ALLOC(8sc),
      ALLOC(16sc), ALLOC(32sc), ALLOC(32fc), ALLOC(64sc), ALLOC(64fc)};
#undef ALLOC
  for (const auto& [size, alloc] : all) {
    for (int len : {1, 3, 64, 100003}) {
      auto* p = static_cast<unsigned char*>(alloc(len));
      ASSERT_NE(p, nullptr);
      EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u);
      std::memset(p, 0x3C, len * size);  // usable to the last byte (AddressSanitizer)
      veksFree(p);
    }
    for (long long len : {0LL, -1LL, (long long)INT_MIN, INT_MAX / (long long)size + 1,
                          (1LL << 32) / (long long)size + 1})
      EXPECT_TRUE(len > INT_MAX || (len >= 1 && size == 1) || !alloc(int(len))) << len;
  }
  veksFree(nullptr);
  for (void* b : {static_cast<void*>(veksMalloc_64fc(134217727)),
                  static_cast<void*>(veksMalloc_8u(INT_MAX))}) {
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(b) % 64, 0u);
    static_cast<unsigned char*>(b)[INT_MAX - 16] = 1;
    veksFree(b);
  }
}

TEST(Version, RecordHoldsTheLibraryIdentityAndIsOneConstantObject) {
  const VekVersionRecord* v = veksGetLibVersion();
  ASSERT_NE(v, nullptr);
  EXPECT_EQ(sizeof(VekVersionRecord), 48u);
  EXPECT_EQ(offsetof(VekVersionRecord, name), 24u);
  EXPECT_TRUE(v->major == 9 && v->minor == 0 && v->majorBuild == 2 && v->build == 49912);
  unsigned char raw[48];
  std::memcpy(raw, v, sizeof raw);
  const unsigned char cpu_and_gap[8] = {'k', '0', 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(std::memcmp(raw + 16, cpu_and_gap, 8), 0) << "targetCpu and the four bytes after it";
  EXPECT_STREQ(v->name, "vekSP AVX-512F/CD/BW/DQ/VL (k0 threaded)");
  EXPECT_STREQ(v->version, "9.0.2 (r49912)");
  EXPECT_STREQ(v->buildDate, "Dec 29 2015");
  const VekVersionRecord* other = nullptr;
  std::thread([&] { other = veksGetLibVersion(); }).join();
  EXPECT_TRUE(veksGetLibVersion() == v && other == v);
}

}  // namespace
