// Allocation, the version record and the block operations (Zero, Set, Copy, Move, Flip) against
// plain references (memset, memcpy, a copy through a temporary, loops), on lengths and
// alignments that reach every kernel path, with guard bytes around every destination. The
// non-temporal paths depend on the cache size the core library reports: the tests steer it and
// check that the stored values never depend on it.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <climits>
#include <cstring>
#include <string>
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
    if (g.bytes_ptr()[i] != want[i])
      return ::testing::AssertionFailure() << "byte " << i << " of " << n << " is "
                                           << int{g.bytes_ptr()[i]} << ", want " << int{want[i]};
  if (!g.guards_intact()) return ::testing::AssertionFailure() << "wrote outside the vector";
  return ::testing::AssertionSuccess();
}

// An element whose bytes all differ from each other and from the guard and fill bytes, so that a
// pattern stored at the wrong phase shows.
template <class E>
Bytes repeated(size_t n) {
  Bytes r(n * sizeof(E));
  for (size_t i = 0; i < r.size(); ++i)
    r[i] = static_cast<unsigned char>(0x31 + 11 * (i % sizeof(E)));
  return r;
}
template <class E>
E distinct_value() {
  E v;
  std::memcpy(&v, repeated<E>(1).data(), sizeof v);
  return v;
}

struct Case {
  int len;
  size_t misalign;
};
std::string describe(const Case& c) {
  return "len " + std::to_string(c.len) + ", misaligned by " + std::to_string(c.misalign);
}
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

class RestoresCacheSize : public ::testing::Test {
 protected:
  void SetUp() override { saved_ = vekSetMaxCacheSizeB(0); }
  void TearDown() override { vekSetMaxCacheSizeB(saved_); }
  int saved_ = 0;
};

// The members of one element type, for the typed tests.
#define VEKS_BLOCK_TYPE(S)                                                           \
  struct Block##S {                                                                  \
    using E = Vek##S;                                                                \
    static VekStatus zero(E* d, int n) { return veksZero_##S(d, n); }                \
    static VekStatus set(E v, E* d, int n) { return veksSet_##S(v, d, n); }          \
    static VekStatus copy(const E* s, E* d, int n) { return veksCopy_##S(s, d, n); } \
    static VekStatus move(const E* s, E* d, int n) { return veksMove_##S(s, d, n); } \
  };
#define VEKS_FLIP_TYPE(S)                                                            \
  struct Flip##S {                                                                   \
    using E = Vek##S;                                                                \
    static VekStatus flip(const E* s, E* d, int n) { return veksFlip_##S(s, d, n); } \
    static VekStatus flip_i(E* p, int n) { return veksFlip_##S##_I(p, n); }          \
  };
VEKS_BLOCK_TYPE(8u)
VEKS_BLOCK_TYPE(16s)
VEKS_BLOCK_TYPE(16sc)
VEKS_BLOCK_TYPE(32s)
VEKS_BLOCK_TYPE(32f)
VEKS_BLOCK_TYPE(32sc)
VEKS_BLOCK_TYPE(32fc)
VEKS_BLOCK_TYPE(64s)
VEKS_BLOCK_TYPE(64f)
VEKS_BLOCK_TYPE(64sc)
VEKS_BLOCK_TYPE(64fc)
VEKS_FLIP_TYPE(8u)
VEKS_FLIP_TYPE(16u)
VEKS_FLIP_TYPE(32f)
VEKS_FLIP_TYPE(32fc)
VEKS_FLIP_TYPE(64f)
VEKS_FLIP_TYPE(64fc)

using BlockTypes = ::testing::Types<Block8u, Block16s, Block16sc, Block32s, Block32f, Block32sc,
                                    Block32fc, Block64s, Block64f, Block64sc, Block64fc>;
using FlipTypes = ::testing::Types<Flip8u, Flip16u, Flip32f, Flip32fc, Flip64f, Flip64fc>;
template <class P>
class BlockOps : public RestoresCacheSize {};
TYPED_TEST_SUITE(BlockOps, BlockTypes);
template <class P>
class FlipOps : public ::testing::Test {};
TYPED_TEST_SUITE(FlipOps, FlipTypes);

// Copies a random source misaligned by sm into a destination at c and checks both.
template <class P>
::testing::AssertionResult copies(const Case& c, size_t sm, uint64_t seed) {
  using E = typename P::E;
  Guarded<E> s(c.len, sm), d(c.len, c.misalign);
  fill_bytes(s.data(), c.len * sizeof(E), seed);
  s.remember();
  const VekStatus st = P::copy(s.data(), d.data(), c.len);
  if (st != vekStatusOk || !s.unchanged())
    return ::testing::AssertionFailure() << "status " << st << " or the source changed";
  return holds(d, s.bytes_ptr());
}

// Zero, Set and Copy on every short path; misalignments that are not multiples of the element
// size must still lay the pattern down element by element from the first byte.
TYPED_TEST(BlockOps, ZeroSetAndCopyOnShortPathsAndAroundTheCopyBlock) {
  using E = typename TypeParam::E;
  std::vector<Case> cases = short_cases(sizeof(E));
  const Bytes want = repeated<E>(20000), zeros(20000 * sizeof(E), 0);
  for (const Case& c : cases) {
    Guarded<E> z(c.len, c.misalign), s(c.len, c.misalign);
    ASSERT_EQ(TypeParam::zero(z.data(), c.len), vekStatusOk);
    ASSERT_EQ(TypeParam::set(distinct_value<E>(), s.data(), c.len), vekStatusOk);
    ASSERT_TRUE(holds(z, zeros.data())) << describe(c);
    ASSERT_TRUE(holds(s, want.data())) << describe(c);
  }
  for (int len : around(kCopyBlock, sizeof(E)))
    for (size_t m = 0; m < 64; ++m) cases.push_back({len, m});
  uint64_t seed = 1;
  for (const Case& c : cases)
    ASSERT_TRUE(copies<TypeParam>(c, (c.misalign * 5 + 3) % 64, seed++)) << describe(c);
}

// Around the large-fill and large-copy thresholds: Zero's string stores, Set and Copy with a
// reported cache that allows streaming (1 MiB, or one byte either side of the byte count), a
// cache just too large, and a failing query; misalignments 1 and 60 are not element-aligned for the
// wider types, 16 is element-aligned but not 64-byte aligned.
TYPED_TEST(BlockOps, LargeFillsAndCopiesStoreTheSameWhicheverPathTheCacheSelects) {
  using E = typename TypeParam::E;
  std::vector<int> lens = around(kFillLarge, sizeof(E));
  lens.push_back(static_cast<int>(3 * kMiB / sizeof(E)) + 5);
  const Bytes want = repeated<E>(size_t(lens.back())), zeros(want.size(), 0);
  const int big = static_cast<int>(want.size());  // streams only above the reported cache
  for (int cache : {1 << 20, -1, big - 1, big}) {
    vekSetMaxCacheSizeB(cache);
    for (int len : lens)
      for (size_t m : {0, 1, 16, 60}) {
        if (cache >= big - 1 && (len != lens.back() || m % 16)) continue;
        Guarded<E> z(len, m), s(len, m);
        ASSERT_EQ(TypeParam::zero(z.data(), len), vekStatusOk);
        ASSERT_EQ(TypeParam::set(distinct_value<E>(), s.data(), len), vekStatusOk);
        ASSERT_TRUE(holds(z, zeros.data()) && holds(s, want.data()))
            << describe({len, m}) << ", cache " << cache;
      }
  }
  const std::vector<int> cl = around(kCopyLarge, sizeof(E));
  const int bytes = static_cast<int>(cl.back() * sizeof(E));
  for (int cache : {1 << 20, bytes, bytes + 1, -1}) {
    vekSetMaxCacheSizeB(cache);
    for (int len : cl)
      for (auto [dm, sm] : {std::pair<size_t, size_t>{0, 0}, {1, 62}, {60, 3}})
        ASSERT_TRUE(copies<TypeParam>({len, dm}, sm, uint64_t(len + cache)))
            << describe({len, dm}) << ", source by " << sm << ", cache " << cache;
  }
}

// Moves within one buffer, the destination k bytes above or below the source, against a copy
// through a temporary.
TYPED_TEST(BlockOps, MoveEqualsACopyThroughATemporaryForEveryOverlap) {
  using E = typename TypeParam::E;
  constexpr size_t es = sizeof(E);
  std::vector<int> lens;
  for (int n = 1; n <= 40; ++n) lens.push_back(n);
  for (size_t b : {64, 128, 192, 256, 320, 1024})
    for (int n : around(b, es))
      if (n > 40) lens.push_back(n);
  lens.insert(lens.end(), {777, 3001});
  uint64_t seed = 100;
  for (int len : lens) {
    const size_t bytes = len * es;
    // k = 0: the same vector given twice changes nothing
    for (size_t k : std::initializer_list<size_t>{0, 1, 3, es - 1, es, es + 1, 17, 63, 64, 65, 129,
                                                  255, 256, 1000, bytes - 1, bytes, bytes + 67}) {
      for (bool up : {true, false}) {
        Guarded<unsigned char> buf(bytes + k, (len + k) % 64);
        unsigned char* base = buf.bytes_ptr();
        fill_bytes(base, bytes + k, seed++);
        unsigned char *src = up ? base : base + k, *dst = up ? base + k : base;
        Bytes want(base, base + bytes + k);
        const Bytes temp(src, src + bytes);
        std::memcpy(want.data() + (dst - base), temp.data(), bytes);
        ASSERT_EQ(TypeParam::move(reinterpret_cast<E*>(src), reinterpret_cast<E*>(dst), len), 0);
        ASSERT_TRUE(holds(buf, want.data()))
            << "len " << len << ", " << k << (up ? " up" : " down");
      }
    }
  }
}

// pDst[i] = pSrc[len - 1 - i] by whole elements; in place, and one vector given twice, alike.
TYPED_TEST(FlipOps, ReversesTheElementsOutOfPlaceInPlaceAndOnTheSameVector) {
  using E = typename TypeParam::E;
  const std::vector<Case> cs = short_cases(sizeof(E));
  uint64_t seed = 200;
  for (const Case& c : cs) {
    Guarded<E> s(c.len, (c.misalign * 3 + 1) % 64), d(c.len, c.misalign), a(c.len, c.misalign),
        b(c.len, c.misalign);
    fill_bytes(s.data(), c.len * sizeof(E), seed++);
    s.remember();
    for (Guarded<E>* g : {&a, &b}) std::memcpy(g->data(), s.data(), c.len * sizeof(E));
    Bytes want(c.len * sizeof(E));
    for (int i = 0; i < c.len; ++i)
      std::memcpy(&want[i * sizeof(E)], s.bytes_ptr() + (c.len - 1 - i) * sizeof(E), sizeof(E));
    ASSERT_EQ(TypeParam::flip(s.data(), d.data(), c.len), vekStatusOk);
    ASSERT_EQ(TypeParam::flip_i(a.data(), c.len), vekStatusOk);
    ASSERT_EQ(TypeParam::flip(b.data(), b.data(), c.len), vekStatusOk);
    ASSERT_TRUE(s.unchanged()) << describe(c);
    ASSERT_TRUE(holds(d, want.data()) && holds(a, want.data()) && holds(b, want.data()))
        << describe(c);
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
// wrong place cannot match. Memory is mapped and populated up front.
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
  EXPECT_EQ(std::memcmp(d - kGuard, guard.data(), kGuard), 0) << "guard before";
  EXPECT_EQ(std::memcmp(d + kBytes, guard.data(), kGuard), 0) << "guard after";
  EXPECT_EQ(std::memcmp(d, s, kBytes), 0);
  munmap(s, kBytes);
  munmap(m, kBytes + 2 * kGuard + 4);
}

// Aligned usable vectors of the element size; null for len < 1 and for more than 2^31 - 1 bytes,
// also where the byte count wraps around in 32 bits (268,435,457 x 16 = 2^32 + 16).
TEST(Malloc, AlignedVectorsOfTheElementSizeUpTo2GiBMinusOne) {
#define VEKS_ALLOC(S)                                                \
  std::pair<size_t, void* (*)(int)> {                                \
    sizeof(Vek##S), [](int n) -> void* { return veksMalloc_##S(n); } \
  }
  const std::pair<size_t, void* (*)(int)> all[] = {
      VEKS_ALLOC(8u),   VEKS_ALLOC(8s),   VEKS_ALLOC(16u),  VEKS_ALLOC(16s),  VEKS_ALLOC(32u),
      VEKS_ALLOC(32s),  VEKS_ALLOC(32f),  VEKS_ALLOC(64s),  VEKS_ALLOC(64f),  VEKS_ALLOC(8sc),
      VEKS_ALLOC(16sc), VEKS_ALLOC(32sc), VEKS_ALLOC(32fc), VEKS_ALLOC(64sc), VEKS_ALLOC(64fc)};
#undef VEKS_ALLOC
  const size_t sizes[] = {1, 1, 2, 2, 4, 4, 4, 8, 8, 2, 4, 8, 8, 16, 16};
  for (size_t k = 0; k < std::size(all); ++k) {
    ASSERT_EQ(all[k].first, sizes[k]);
    for (int len : {1, 3, 64, 100003}) {
      auto* p = static_cast<unsigned char*>(all[k].second(len));
      ASSERT_NE(p, nullptr);
      EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u);
      std::memset(p, 0x3C, len * sizes[k]);  // usable to the last byte (AddressSanitizer)
      veksFree(p);
    }
    for (long long len : {0LL, -1LL, (long long)INT_MIN, INT_MAX / (long long)sizes[k] + 1,
                          (1LL << 32) / (long long)sizes[k] + 1})
      if (len <= INT_MAX && (len < 1 || sizes[k] > 1)) {
        EXPECT_EQ(all[k].second(int(len)), nullptr) << k << " len " << len;
      }
  }
  veksFree(nullptr);
  void* big[] = {veksMalloc_64fc(134217727), veksMalloc_8u(INT_MAX)};
  for (void* b : big) {
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
