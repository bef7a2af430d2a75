// Allocation, the version record and the block operations (Zero, Set, Copy, Move, Flip), tested
// through the exports: every element type against plain references (memset, memcpy, loops, a
// copy through a temporary), on lengths and alignments that reach every kernel path, with guard
// bytes around every destination. The non-temporal decisions depend on the cache size the core
// library reports; the tests steer it and check that the stored values never depend on it.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;
using Bytes = std::vector<unsigned char>;

constexpr size_t kMiB = size_t{1} << 20;
// Byte counts where the kernels change strategy.
constexpr size_t kFillLarge = 2 * kMiB;  // Zero: string stores above; Set: non-temporal decision
constexpr size_t kCopyBlock = 32768;     // Copy: block kernel from here
constexpr size_t kCopyLarge = 4 * kMiB;  // Copy: non-temporal decision above
constexpr size_t kMoveShort = 128;       // Move: short path up to here

// ---- helpers ---------------------------------------------------------------------------------

uint64_t mix(uint64_t x) {
  x += 0x9E3779B97F4A7C15ULL;
  x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
  x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
  return x ^ (x >> 31);
}

// Pseudo-random bytes that differ from the guard and fill bytes in most places.
void fill_random(unsigned char* p, size_t n, uint64_t seed) {
  for (size_t i = 0; i < n; i += 8) {
    const uint64_t v = mix(seed * 0x100000001B3ULL + i);
    std::memcpy(p + i, &v, std::min<size_t>(8, n - i));
  }
}

// Index of the first byte where a and b differ, or -1.
long long first_diff(const unsigned char* a, const unsigned char* b, size_t n) {
  if (std::memcmp(a, b, n) == 0) return -1;
  for (size_t i = 0; i < n; ++i)
    if (a[i] != b[i]) return static_cast<long long>(i);
  return -1;
}

::testing::AssertionResult same_bytes(const unsigned char* got, const unsigned char* want,
                                      size_t n) {
  const long long at = first_diff(got, want, n);
  if (at < 0) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "byte " << at << " of " << n << " is " << int{got[at]}
                                       << ", expected " << int{want[at]};
}

// The vector in g holds exactly `want` and nothing around it changed.
template <class E>
::testing::AssertionResult holds(Guarded<E>& g, const unsigned char* want) {
  auto r = same_bytes(g.bytes_ptr(), want, g.size() * sizeof(E));
  if (!r) return r;
  if (!g.guards_intact())
    return ::testing::AssertionFailure()
           << "a byte outside the " << g.size() << " elements changed";
  return ::testing::AssertionSuccess();
}

// An element whose bytes all differ from each other and from the guard and fill bytes, so that
// a pattern stored at the wrong phase or not at all shows.
template <class E>
E distinct_value() {
  unsigned char b[sizeof(E)];
  for (size_t i = 0; i < sizeof(E); ++i) b[i] = static_cast<unsigned char>(0x31 + 11 * i);
  E v;
  std::memcpy(&v, b, sizeof v);
  return v;
}

template <class E>
Bytes repeated(const E& v, size_t n) {
  Bytes r(n * sizeof(E));
  for (size_t i = 0; i < n; ++i) std::memcpy(r.data() + i * sizeof(E), &v, sizeof(E));
  return r;
}

// n elements of es bytes in reverse order.
Bytes reversed(const unsigned char* p, size_t n, size_t es) {
  Bytes r(n * es);
  for (size_t i = 0; i < n; ++i) std::memcpy(r.data() + i * es, p + (n - 1 - i) * es, es);
  return r;
}

struct Case {
  int len;
  size_t misalign;
};

std::string describe(const Case& c) {
  return "len " + std::to_string(c.len) + ", destination misaligned by " +
         std::to_string(c.misalign);
}

// Lengths 1..300, each aligned and at a misalignment that cycles through 1..63; one element
// either side of 64, 128 and 256 bytes at every misalignment 0..63; a few longer vectors whose
// bodies run the unrolled loops with assorted tails.
std::vector<Case> short_cases(size_t es) {
  std::vector<Case> cs;
  for (int n = 1; n <= 300; ++n) {
    cs.push_back({n, 0});
    cs.push_back({n, 1 + static_cast<size_t>(n * 7) % 63});
  }
  for (size_t b : {size_t{64}, size_t{128}, size_t{256}}) {
    const int mid = static_cast<int>(b / es);
    for (int n = std::max(1, mid - 1); n <= mid + 1; ++n)
      for (size_t m = 0; m < 64; ++m) cs.push_back({n, m});
  }
  for (int n : {511, 512, 513, 1000, 4097, 10007}) cs.push_back({n, static_cast<size_t>(n) % 64});
  return cs;
}

// The element counts one below, at and one above a byte threshold.
std::vector<int> around(size_t bytes, size_t es) {
  const int mid = static_cast<int>(bytes / es);
  return {mid - 1, mid, mid + 1};
}

int max_len(const std::vector<Case>& cs) {
  int m = 0;
  for (const Case& c : cs) m = std::max(m, c.len);
  return m;
}

// Each test starts from the detected cache size and leaves the setting as it found it.
class RestoresCacheSize : public ::testing::Test {
 protected:
  void SetUp() override { saved_ = vekSetMaxCacheSizeB(0); }
  void TearDown() override { vekSetMaxCacheSizeB(saved_); }

 private:
  int saved_ = 0;
};

// ---- the element types -----------------------------------------------------------------------

#define VEKS_BLOCK_TYPE(S)                                                           \
  struct Block##S {                                                                  \
    using E = Vek##S;                                                                \
    static constexpr const char* kName = #S;                                         \
    static VekStatus zero(E* d, int n) { return veksZero_##S(d, n); }                \
    static VekStatus set(E v, E* d, int n) { return veksSet_##S(v, d, n); }          \
    static VekStatus copy(const E* s, E* d, int n) { return veksCopy_##S(s, d, n); } \
    static VekStatus move(const E* s, E* d, int n) { return veksMove_##S(s, d, n); } \
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
#undef VEKS_BLOCK_TYPE

#define VEKS_FLIP_TYPE(S)                                                            \
  struct Flip##S {                                                                   \
    using E = Vek##S;                                                                \
    static constexpr const char* kName = #S;                                         \
    static VekStatus flip(const E* s, E* d, int n) { return veksFlip_##S(s, d, n); } \
    static VekStatus flip_i(E* p, int n) { return veksFlip_##S##_I(p, n); }          \
  };
VEKS_FLIP_TYPE(8u)
VEKS_FLIP_TYPE(16u)
VEKS_FLIP_TYPE(32f)
VEKS_FLIP_TYPE(32fc)
VEKS_FLIP_TYPE(64f)
VEKS_FLIP_TYPE(64fc)
#undef VEKS_FLIP_TYPE

struct TypeName {
  template <class P>
  static std::string GetName(int) {
    return P::kName;
  }
};

using BlockTypes = ::testing::Types<Block8u, Block16s, Block16sc, Block32s, Block32f, Block32sc,
                                    Block32fc, Block64s, Block64f, Block64sc, Block64fc>;
using FlipTypes = ::testing::Types<Flip8u, Flip16u, Flip32f, Flip32fc, Flip64f, Flip64fc>;

template <class P>
class BlockOps : public RestoresCacheSize {};
TYPED_TEST_SUITE(BlockOps, BlockTypes, TypeName);

template <class P>
class FlipOps : public ::testing::Test {};
TYPED_TEST_SUITE(FlipOps, FlipTypes, TypeName);

// ---- Zero ------------------------------------------------------------------------------------

TYPED_TEST(BlockOps, ZeroClearsExactlyTheVectorOnShortPaths) {
  using E = typename TypeParam::E;
  const auto cases = short_cases(sizeof(E));
  const Bytes zeros(max_len(cases) * sizeof(E), 0);
  for (const Case& c : cases) {
    Guarded<E> d(c.len, c.misalign);
    ASSERT_EQ(TypeParam::zero(d.data(), c.len), vekStatusOk) << describe(c);
    ASSERT_TRUE(holds(d, zeros.data())) << describe(c);
  }
}

TYPED_TEST(BlockOps, ZeroClearsExactlyTheVectorAroundTheStringStoreThreshold) {
  using E = typename TypeParam::E;
  std::vector<int> lens = around(kFillLarge, sizeof(E));
  lens.push_back(static_cast<int>(3 * kMiB / sizeof(E)) + 5);
  const Bytes zeros(lens.back() * sizeof(E), 0);
  for (int len : lens)
    for (size_t m : {0, 1, 16, 63}) {
      const Case c{len, m};
      Guarded<E> d(c.len, c.misalign);
      ASSERT_EQ(TypeParam::zero(d.data(), c.len), vekStatusOk) << describe(c);
      ASSERT_TRUE(holds(d, zeros.data())) << describe(c);
    }
}

// ---- Set -------------------------------------------------------------------------------------

// Misalignments include ones that are not multiples of the element size: ordinary stores must
// then still lay the pattern down element by element from the first byte.
TYPED_TEST(BlockOps, SetRepeatsTheElementOnShortPaths) {
  using E = typename TypeParam::E;
  const E v = distinct_value<E>();
  const auto cases = short_cases(sizeof(E));
  const Bytes want = repeated(v, max_len(cases));
  for (const Case& c : cases) {
    Guarded<E> d(c.len, c.misalign);
    ASSERT_EQ(TypeParam::set(v, d.data(), c.len), vekStatusOk) << describe(c);
    ASSERT_TRUE(holds(d, want.data())) << describe(c);
  }
}

// With a reported cache of 1 MiB every fill above 2 MiB to an element-aligned destination may
// stream; with a failing query none may. Misalignments 1 and 60 are not element-aligned for the
// wider types, 16 is element-aligned for every type but not 64-byte aligned.
TYPED_TEST(BlockOps, SetRepeatsTheElementAroundTheLargeFillThreshold) {
  using E = typename TypeParam::E;
  const E v = distinct_value<E>();
  std::vector<int> lens = around(kFillLarge, sizeof(E));
  lens.push_back(static_cast<int>(3 * kMiB / sizeof(E)) + 5);
  const Bytes want = repeated(v, lens.back());
  for (int cache : {1 << 20, -1}) {
    vekSetMaxCacheSizeB(cache);
    for (int len : lens)
      for (size_t m : {0, 1, 16, 60}) {
        const Case c{len, m};
        Guarded<E> d(c.len, c.misalign);
        ASSERT_EQ(TypeParam::set(v, d.data(), c.len), vekStatusOk) << describe(c);
        ASSERT_TRUE(holds(d, want.data())) << describe(c) << ", reported cache " << cache;
      }
  }
}

class LargeSet : public RestoresCacheSize {};

// 16,000,000 bytes: non-temporal under a reported 8 MiB (or anything below the byte count) when
// the destination is aligned to the element, ordinary under 32 MiB, under exactly the byte count,
// when the query fails or when the destination is not element-aligned. The values stored must not
// depend on the path.
TEST_F(LargeSet, StoresTheSameValuesWhicheverPathTheCacheSizeSelects) {
  constexpr int kLen = 4000000;
  const Vek32f v = -1234.5625f;
  const Bytes want = repeated(v, kLen);
  const std::pair<int, size_t> runs[] = {{8 << 20, 0},  {8 << 20, 4},  {8 << 20, 1}, {15999999, 0},
                                         {16000000, 0}, {32 << 20, 0}, {-1, 0}};
  for (const auto& [cache, m] : runs) {
    vekSetMaxCacheSizeB(cache);
    Guarded<Vek32f> d(kLen, m);
    ASSERT_EQ(veksSet_32f(v, d.data(), kLen), vekStatusOk);
    EXPECT_TRUE(holds(d, want.data())) << "reported cache " << cache << ", misaligned by " << m;
  }
}

// ---- Copy ------------------------------------------------------------------------------------

// Copies a random source of c.len elements, misaligned by src_misalign, into a guarded
// destination and checks both.
template <class P>
::testing::AssertionResult copies(const Case& c, size_t src_misalign, uint64_t seed) {
  using E = typename P::E;
  Guarded<E> s(c.len, src_misalign);
  fill_random(s.bytes_ptr(), c.len * sizeof(E), seed);
  s.remember();
  Guarded<E> d(c.len, c.misalign);
  const VekStatus st = P::copy(s.data(), d.data(), c.len);
  if (st != vekStatusOk) return ::testing::AssertionFailure() << "status " << st;
  if (!s.unchanged()) return ::testing::AssertionFailure() << "the source changed";
  return holds(d, s.bytes_ptr());
}

TYPED_TEST(BlockOps, CopyReproducesTheSourceOnShortPathsAndAroundTheBlockThreshold) {
  using E = typename TypeParam::E;
  std::vector<Case> cases = short_cases(sizeof(E));
  for (int len : around(kCopyBlock, sizeof(E)))
    for (size_t m = 0; m < 64; ++m) cases.push_back({len, m});
  uint64_t seed = 1;
  for (const Case& c : cases) {
    const size_t sm = (c.misalign * 5 + 3) % 64;
    ASSERT_TRUE(copies<TypeParam>(c, sm, seed++)) << describe(c) << ", source by " << sm;
  }
}

// Above 4 MiB the copy streams when the reported cache is at most the byte count (1 MiB, or
// exactly the byte count); a reported cache one byte larger, or a failing query, keeps ordinary
// stores. The copy is the same.
TYPED_TEST(BlockOps, CopyReproducesTheSourceAroundTheNonTemporalThreshold) {
  using E = typename TypeParam::E;
  const std::vector<int> lens = around(kCopyLarge, sizeof(E));
  vekSetMaxCacheSizeB(1 << 20);
  for (int len : lens)
    for (const auto& [dm, sm] : {std::pair<size_t, size_t>{0, 0}, {1, 62}})
      ASSERT_TRUE(copies<TypeParam>({len, dm}, sm, len + dm))
          << describe({len, dm}) << ", source by " << sm << ", reported cache 1 MiB";
  const int len = lens.back();
  const int bytes = static_cast<int>(len * sizeof(E));
  for (int cache : {bytes, bytes + 1, -1}) {
    vekSetMaxCacheSizeB(cache);
    ASSERT_TRUE(copies<TypeParam>({len, 60}, 3, cache))
        << describe({len, 60}) << ", reported cache " << cache;
  }
}

// ---- Move ------------------------------------------------------------------------------------

// Moves within one guarded buffer with the destination k bytes above or below the source, and
// compares the whole buffer with the result of copying the source through a temporary.
TYPED_TEST(BlockOps, MoveEqualsACopyThroughATemporaryForEveryOverlap) {
  using E = typename TypeParam::E;
  constexpr size_t es = sizeof(E);
  std::vector<int> lens;
  for (int n = 1; n <= 40; ++n) lens.push_back(n);
  for (size_t b : {size_t{64}, kMoveShort, size_t{192}, size_t{256}, size_t{320}, size_t{1024}})
    for (int n : around(b, es))
      if (n > 40) lens.push_back(n);
  lens.push_back(777);
  lens.push_back(3001);
  uint64_t seed = 100;
  for (int len : lens) {
    const size_t bytes = len * es;
    std::vector<size_t> shifts = {1,    2,    3,         es - 1, es,        es + 1,    15,
                                  16,   17,   31,        32,     33,        63,        64,
                                  65,   127,  128,       129,    255,       256,       257,
                                  1000, 4099, bytes - 1, bytes,  bytes + 1, bytes + 67};
    for (size_t k : shifts) {
      if (k == 0) continue;
      for (bool up : {true, false}) {
        Guarded<unsigned char> buf(bytes + k, (len + k) % 64);
        unsigned char* base = buf.bytes_ptr();
        fill_random(base, bytes + k, seed++);
        unsigned char* src = up ? base : base + k;
        unsigned char* dst = up ? base + k : base;
        Bytes want(base, base + bytes + k);
        const Bytes temp(src, src + bytes);
        std::memcpy(want.data() + (dst - base), temp.data(), bytes);
        ASSERT_EQ(TypeParam::move(reinterpret_cast<const E*>(src), reinterpret_cast<E*>(dst), len),
                  vekStatusOk);
        ASSERT_TRUE(holds(buf, want.data())) << "len " << len << ", destination " << k << " bytes "
                                             << (up ? "above" : "below") << " the source";
      }
    }
    // Source and destination the same vector: nothing changes.
    Guarded<E> same(len, static_cast<size_t>(len) % 64);
    fill_random(same.bytes_ptr(), bytes, seed++);
    same.remember();
    ASSERT_EQ(TypeParam::move(same.data(), same.data(), len), vekStatusOk);
    ASSERT_TRUE(same.unchanged()) << "len " << len;
  }
}

// ---- argument checks -------------------------------------------------------------------------

// Null pointers are reported before lengths; a length below 1 with valid pointers gives
// vekStatusBadSize; no error writes anything.
TYPED_TEST(BlockOps, ErrorsLeaveEverythingUnchanged) {
  using E = typename TypeParam::E;
  using P = TypeParam;
  Guarded<E> s(8, 3), d(8, 5);
  fill_random(s.bytes_ptr(), 8 * sizeof(E), 9);
  s.remember();
  const E v = distinct_value<E>();
  for (int len : {8, 1, 0, -1, INT_MIN}) {
    SCOPED_TRACE("len " + std::to_string(len));
    EXPECT_EQ(P::zero(nullptr, len), vekStatusNullPtr);
    EXPECT_EQ(P::set(v, nullptr, len), vekStatusNullPtr);
    EXPECT_EQ(P::copy(nullptr, d.data(), len), vekStatusNullPtr);
    EXPECT_EQ(P::copy(s.data(), nullptr, len), vekStatusNullPtr);
    EXPECT_EQ(P::copy(nullptr, nullptr, len), vekStatusNullPtr);
    EXPECT_EQ(P::move(nullptr, d.data(), len), vekStatusNullPtr);
    EXPECT_EQ(P::move(s.data(), nullptr, len), vekStatusNullPtr);
    EXPECT_EQ(P::move(nullptr, nullptr, len), vekStatusNullPtr);
    if (len < 1) {
      EXPECT_EQ(P::zero(d.data(), len), vekStatusBadSize);
      EXPECT_EQ(P::set(v, d.data(), len), vekStatusBadSize);
      EXPECT_EQ(P::copy(s.data(), d.data(), len), vekStatusBadSize);
      EXPECT_EQ(P::move(s.data(), d.data(), len), vekStatusBadSize);
      EXPECT_EQ(P::move(d.data(), d.data(), len), vekStatusBadSize);
    }
    EXPECT_TRUE(d.unchanged());
    EXPECT_TRUE(s.unchanged());
  }
}

// ---- Flip ------------------------------------------------------------------------------------

std::vector<Case> flip_cases() {
  std::vector<Case> cs;
  for (int n = 1; n <= 300; ++n) {
    cs.push_back({n, 0});
    cs.push_back({n, 1 + static_cast<size_t>(n * 13) % 63});
  }
  for (int n : {511, 512, 513, 1000, 1001, 4097}) cs.push_back({n, static_cast<size_t>(n) % 64});
  return cs;
}

// pDst[i] = pSrc[len - 1 - i], whole elements (a complex pair stays in order), source untouched.
TYPED_TEST(FlipOps, OutOfPlaceReversesTheElements) {
  using E = typename TypeParam::E;
  uint64_t seed = 200;
  for (const Case& c : flip_cases()) {
    const size_t bytes = c.len * sizeof(E);
    const size_t sm = (c.misalign * 3 + 1) % 64;
    Guarded<E> s(c.len, sm), d(c.len, c.misalign);
    fill_random(s.bytes_ptr(), bytes, seed++);
    s.remember();
    const Bytes want = reversed(s.bytes_ptr(), c.len, sizeof(E));
    ASSERT_EQ(TypeParam::flip(s.data(), d.data(), c.len), vekStatusOk) << describe(c);
    ASSERT_TRUE(s.unchanged()) << describe(c);
    ASSERT_TRUE(holds(d, want.data())) << describe(c);
  }
}

// The in-place form, and the out-of-place form given one vector twice, both reverse it; the
// middle element of an odd length stays.
TYPED_TEST(FlipOps, InPlaceAndSamePointerReverseAlike) {
  using E = typename TypeParam::E;
  uint64_t seed = 300;
  for (const Case& c : flip_cases()) {
    const size_t bytes = c.len * sizeof(E);
    Guarded<E> a(c.len, c.misalign), b(c.len, c.misalign);
    fill_random(a.bytes_ptr(), bytes, seed);
    fill_random(b.bytes_ptr(), bytes, seed++);
    const Bytes want = reversed(a.bytes_ptr(), c.len, sizeof(E));
    ASSERT_EQ(TypeParam::flip_i(a.data(), c.len), vekStatusOk) << describe(c);
    ASSERT_EQ(TypeParam::flip(b.data(), b.data(), c.len), vekStatusOk) << describe(c);
    ASSERT_TRUE(holds(a, want.data())) << describe(c) << " (in place)";
    ASSERT_TRUE(holds(b, a.bytes_ptr())) << describe(c) << " (same pointer twice)";
  }
}

TYPED_TEST(FlipOps, ErrorsLeaveEverythingUnchanged) {
  using E = typename TypeParam::E;
  using P = TypeParam;
  Guarded<E> s(5, 1), d(5, 2);
  fill_random(s.bytes_ptr(), 5 * sizeof(E), 4);
  s.remember();
  for (int len : {5, 0, -1, INT_MIN}) {
    SCOPED_TRACE("len " + std::to_string(len));
    EXPECT_EQ(P::flip(nullptr, d.data(), len), vekStatusNullPtr);
    EXPECT_EQ(P::flip(s.data(), nullptr, len), vekStatusNullPtr);
    EXPECT_EQ(P::flip_i(nullptr, len), vekStatusNullPtr);
    if (len < 1) {
      EXPECT_EQ(P::flip(s.data(), d.data(), len), vekStatusBadSize);
      EXPECT_EQ(P::flip(d.data(), d.data(), len), vekStatusBadSize);
      EXPECT_EQ(P::flip_i(d.data(), len), vekStatusBadSize);
    }
    EXPECT_TRUE(d.unchanged());
    EXPECT_TRUE(s.unchanged());
  }
}

// ---- Copy above 2^31 - 1 bytes ---------------------------------------------------------------

// Anonymous memory mapped and populated up front: page faults inside the timed calls would cost
// more than the copy itself.
struct Mapping {
  explicit Mapping(size_t n) : size(n) {
    void* p =
        mmap(nullptr, n, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    if (p != MAP_FAILED) bytes = static_cast<unsigned char*>(p);
  }
  ~Mapping() {
    if (bytes) munmap(bytes, size);
  }
  Mapping(const Mapping&) = delete;
  Mapping& operator=(const Mapping&) = delete;
  size_t size;
  unsigned char* bytes = nullptr;  // zero-filled, page-aligned
};

// 536,870,913 elements of 32f are 2,147,483,652 bytes: more than one call of the byte kernel may
// take. The source repeats with a period of 1,000,003 bytes (prime, so no piece size is a
// multiple of it): a piece copied from or to the wrong place cannot match.
TEST(CopyAbove2GiB, CopiesEveryElementInPieces) {
  constexpr int kLen = 536870913;
  constexpr size_t kBytes = size_t{kLen} * sizeof(Vek32f);
  constexpr size_t kPeriod = 1000003, kGuard = 64, kMis = 4;
  const Mapping src(kBytes), dst(kBytes + 2 * kGuard + kMis);
  if (!src.bytes || !dst.bytes) GTEST_SKIP() << "could not map 2 x 2 GiB";

  unsigned char* const s = src.bytes;
  fill_random(s, kPeriod, 77);
  for (size_t have = kPeriod; have < kBytes;) {
    const size_t n = std::min(have, kBytes - have);
    std::memcpy(s + have, s, n);
    have += n;
  }
  // Element-aligned, not 64-byte aligned; guard bytes on both sides.
  unsigned char* const d = dst.bytes + kGuard + kMis;
  std::memset(d - kGuard, 0xA7, kGuard);
  std::memset(d + kBytes, 0xA7, kGuard);

  ASSERT_EQ(veksCopy_32f(reinterpret_cast<const Vek32f*>(s), reinterpret_cast<Vek32f*>(d), kLen),
            vekStatusOk);

  const Bytes guard(kGuard, 0xA7);
  EXPECT_TRUE(same_bytes(d - kGuard, guard.data(), kGuard)) << "guard before";
  EXPECT_TRUE(same_bytes(d + kBytes, guard.data(), kGuard)) << "guard after";
  // Where a piece may end (a multiple of 32 just below 2^31, 2^31 - 1, 2^31) and both ends.
  const size_t marks[] = {0, 2147483616, 2147483647, size_t{1} << 31, kBytes};
  for (size_t b : marks) {
    const size_t lo = b < 65536 ? 0 : b - 65536, hi = std::min(kBytes, b + 65536);
    EXPECT_TRUE(same_bytes(d + lo, s + lo, hi - lo)) << "near byte " << b << ", from byte " << lo;
  }
  EXPECT_TRUE(same_bytes(d, s, kBytes)) << "whole vector";
}

// ---- Malloc, Free, version record ------------------------------------------------------------

struct Allocator {
  const char* name;
  size_t elem;
  void* (*alloc)(int);
};

template <auto F>
void* allocate(int n) {
  return F(n);
}

const Allocator kAllocators[] = {{"8u", sizeof(Vek8u), allocate<veksMalloc_8u>},
                                 {"8s", sizeof(Vek8s), allocate<veksMalloc_8s>},
                                 {"16u", sizeof(Vek16u), allocate<veksMalloc_16u>},
                                 {"16s", sizeof(Vek16s), allocate<veksMalloc_16s>},
                                 {"32u", sizeof(Vek32u), allocate<veksMalloc_32u>},
                                 {"32s", sizeof(Vek32s), allocate<veksMalloc_32s>},
                                 {"32f", sizeof(Vek32f), allocate<veksMalloc_32f>},
                                 {"64s", sizeof(Vek64s), allocate<veksMalloc_64s>},
                                 {"64f", sizeof(Vek64f), allocate<veksMalloc_64f>},
                                 {"8sc", sizeof(Vek8sc), allocate<veksMalloc_8sc>},
                                 {"16sc", sizeof(Vek16sc), allocate<veksMalloc_16sc>},
                                 {"32sc", sizeof(Vek32sc), allocate<veksMalloc_32sc>},
                                 {"32fc", sizeof(Vek32fc), allocate<veksMalloc_32fc>},
                                 {"64sc", sizeof(Vek64sc), allocate<veksMalloc_64sc>},
                                 {"64fc", sizeof(Vek64fc), allocate<veksMalloc_64fc>}};

TEST(Malloc, GivesAlignedUsableVectorsOfTheElementSize) {
  const size_t sizes[] = {1, 1, 2, 2, 4, 4, 4, 8, 8, 2, 4, 8, 8, 16, 16};
  for (size_t i = 0; i < std::size(kAllocators); ++i) {
    const Allocator& a = kAllocators[i];
    SCOPED_TRACE(a.name);
    ASSERT_EQ(a.elem, sizes[i]);
    for (int len : {1, 3, 64, 1000, 100003}) {
      auto* p = static_cast<unsigned char*>(a.alloc(len));
      ASSERT_NE(p, nullptr) << "len " << len;
      EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u) << "len " << len;
      const size_t bytes = len * a.elem;
      Bytes pattern(bytes);
      fill_random(pattern.data(), bytes, len);
      std::memcpy(p, pattern.data(), bytes);
      EXPECT_TRUE(same_bytes(p, pattern.data(), bytes)) << "len " << len;
      veksFree(p);
    }
  }
  veksFree(nullptr);  // ignored; the allocator keeps working afterwards
  void* p = veksMalloc_32f(16);
  EXPECT_NE(p, nullptr);
  veksFree(p);
}

// Null for len <= 0 and for byte counts above 2^31 - 1, including counts that wrap around in
// 32 bits (268,435,457 x 16 = 2^32 + 16).
TEST(Malloc, RefusesNonPositiveLengthsAndMoreThan2GiBMinusOne) {
  for (const Allocator& a : kAllocators) {
    SCOPED_TRACE(a.name);
    for (int len : {0, -5, -1, INT_MIN}) EXPECT_EQ(a.alloc(len), nullptr) << "len " << len;
    if (a.elem == 1) continue;
    const long long over = static_cast<long long>(INT_MAX) / a.elem + 1;
    EXPECT_EQ(a.alloc(static_cast<int>(over)), nullptr) << "len " << over;
    EXPECT_EQ(a.alloc(INT_MAX), nullptr);
    const long long wraps = (1LL << 32) / a.elem + 1;
    if (wraps <= INT_MAX) {
      EXPECT_EQ(a.alloc(static_cast<int>(wraps)), nullptr) << "len " << wraps;
    }
  }
  EXPECT_EQ(veksMalloc_64fc(134217728), nullptr);
  EXPECT_EQ(veksMalloc_32f(0), nullptr);
  EXPECT_EQ(veksMalloc_32f(-5), nullptr);
}

// The largest requests still allowed reach the allocator (memory permitting; only a few pages are
// touched).
TEST(Malloc, AllowsUpTo2GiBMinusOne) {
  struct Big {
    void* p;
    size_t bytes;
  };
  const Big bigs[] = {{veksMalloc_64fc(134217727), size_t{134217727} * 16},
                      {veksMalloc_8u(INT_MAX), size_t{INT_MAX}}};
  for (const Big& b : bigs) {
    ASSERT_NE(b.p, nullptr) << b.bytes << " bytes";
    EXPECT_EQ(reinterpret_cast<uintptr_t>(b.p) % 64, 0u);
    auto* c = static_cast<unsigned char*>(b.p);
    c[0] = 1;
    c[b.bytes - 1] = 2;
    EXPECT_EQ(c[0] + c[b.bytes - 1], 3);
  }
  for (const Big& b : bigs) veksFree(b.p);
}

TEST(Version, RecordHoldsTheLibraryIdentityAndIsOneConstantObject) {
  const VekVersionRecord* v = veksGetLibVersion();
  ASSERT_NE(v, nullptr);
  EXPECT_EQ(sizeof(VekVersionRecord), 48u);
  EXPECT_EQ(offsetof(VekVersionRecord, targetCpu), 16u);
  EXPECT_EQ(offsetof(VekVersionRecord, name), 24u);
  EXPECT_EQ(v->major, 9);
  EXPECT_EQ(v->minor, 0);
  EXPECT_EQ(v->majorBuild, 2);
  EXPECT_EQ(v->build, 49912);
  unsigned char raw[48];
  std::memcpy(raw, v, sizeof raw);
  const unsigned char cpu_and_gap[8] = {'k', '0', 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(std::memcmp(raw + 16, cpu_and_gap, 8), 0) << "targetCpu and the four bytes after it";
  ASSERT_NE(v->name, nullptr);
  ASSERT_NE(v->version, nullptr);
  ASSERT_NE(v->buildDate, nullptr);
  EXPECT_STREQ(v->name, "vekSP AVX-512F/CD/BW/DQ/VL (k0 threaded)");
  EXPECT_STREQ(v->version, "9.0.2 (r49912)");
  EXPECT_STREQ(v->buildDate, "Dec 29 2015");
  EXPECT_EQ(veksGetLibVersion(), v);
  const VekVersionRecord* other = nullptr;
  std::thread([&] { other = veksGetLibVersion(); }).join();
  EXPECT_EQ(other, v);
}

}  // namespace
