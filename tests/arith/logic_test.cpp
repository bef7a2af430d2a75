// And, Or, Xor, their constant forms and Not on 8u, 16u and 32u: every length 1..130 with
// misaligned vectors against element-by-element references, the in-place forms and a
// destination equal to a source against the out-of-place result.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;

enum class Op { kAnd, kOr, kXor, kNot };

template <class T>
T reference(Op op, T x, T y) {
  switch (op) {
    case Op::kAnd: return static_cast<T>(x & y);
    case Op::kOr: return static_cast<T>(x | y);
    case Op::kXor: return static_cast<T>(x ^ y);
    case Op::kNot: break;
  }
  return static_cast<T>(~x);
}

// The seven operations of one element type, each out of place and in place.
template <class T>
struct Ops {
  using Bin = VekStatus (*)(const T*, const T*, T*, int);
  using BinI = VekStatus (*)(const T*, T*, int);
  using Con = VekStatus (*)(const T*, T, T*, int);
  using ConI = VekStatus (*)(T, T*, int);
  struct Vv {
    Op op;
    Bin f;
    BinI fi;
  };
  struct Vc {
    Op op;
    Con f;
    ConI fi;
  };
  std::vector<Vv> vv;
  std::vector<Vc> vc;
  VekStatus (*not_)(const T*, T*, int);
  VekStatus (*not_i)(T*, int);
};

#define VEKS_LOGIC_OPS(S)                                 \
  Ops<Vek##S> ops_##S() {                                 \
    return {{{Op::kAnd, veksAnd_##S, veksAnd_##S##_I},    \
             {Op::kOr, veksOr_##S, veksOr_##S##_I},       \
             {Op::kXor, veksXor_##S, veksXor_##S##_I}},   \
            {{Op::kAnd, veksAndC_##S, veksAndC_##S##_I},  \
             {Op::kOr, veksOrC_##S, veksOrC_##S##_I},     \
             {Op::kXor, veksXorC_##S, veksXorC_##S##_I}}, \
            veksNot_##S,                                  \
            veksNot_##S##_I};                             \
  }                                                       \
  struct Logic##S {                                       \
    using T = Vek##S;                                     \
    static Ops<T> ops() { return ops_##S(); }             \
  };
VEKS_LOGIC_OPS(8u)
VEKS_LOGIC_OPS(16u)
VEKS_LOGIC_OPS(32u)
#undef VEKS_LOGIC_OPS

template <class P>
class Logic : public ::testing::Test {};
using LogicTypes = ::testing::Types<Logic8u, Logic16u, Logic32u>;
TYPED_TEST_SUITE(Logic, LogicTypes);

template <class T>
void fill_random(Guarded<T>& g, std::mt19937_64& rng) {
  for (size_t i = 0; i < g.size(); ++i) g[i] = static_cast<T>(rng());
  g.remember();
}

template <class T>
::testing::AssertionResult holds(Guarded<T>& g, const std::vector<T>& want) {
  for (size_t i = 0; i < want.size(); ++i)
    if (g[i] != want[i])
      return ::testing::AssertionFailure()
             << "element " << i << " is " << +g[i] << ", expected " << +want[i];
  if (!g.guards_intact()) return ::testing::AssertionFailure() << "wrote outside the vector";
  return ::testing::AssertionSuccess();
}

// Every operation, every length 1..130, sources and destination at different offsets from a
// 64-byte boundary; the in-place forms and the
// out-of-place form with pDst == pSrc2 (or pSrc) give the same vector.
TYPED_TEST(Logic, EveryLengthAndAlignmentMatchesTheReference) {
  using T = typename TypeParam::T;
  const Ops<T> ops = TypeParam::ops();
  std::mt19937_64 rng(7);
  const T consts[] = {0, static_cast<T>(~T{0}), static_cast<T>(0x5A3C96E1u)};
  for (int len = 1; len <= 130; ++len) {
    const auto n = static_cast<size_t>(len);
    const size_t m1 = n % 7 * sizeof(T), m2 = n * 3 % 64 / sizeof(T) * sizeof(T),
                 md = n * 5 % 64 / sizeof(T) * sizeof(T);
    Guarded<T> a(n, m1), b(n, m2);
    fill_random(a, rng);
    fill_random(b, rng);
    SCOPED_TRACE(::testing::Message() << "len " << len);
    std::vector<T> want(n);
    for (const auto& f : ops.vv) {
      for (size_t i = 0; i < n; ++i) want[i] = reference(f.op, a[i], b[i]);
      Guarded<T> d(n, md), in(n, md), same(n, md);
      std::memcpy(in.data(), b.data(), n * sizeof(T));
      std::memcpy(same.data(), b.data(), n * sizeof(T));
      ASSERT_EQ(f.f(a.data(), b.data(), d.data(), len), vekStatusOk);
      ASSERT_EQ(f.fi(a.data(), in.data(), len), vekStatusOk);
      ASSERT_EQ(f.f(a.data(), same.data(), same.data(), len), vekStatusOk);
      ASSERT_TRUE(holds(d, want));
      ASSERT_TRUE(holds(in, want)) << "in place";
      ASSERT_TRUE(holds(same, want)) << "pDst == pSrc2";
      ASSERT_TRUE(a.unchanged() && b.unchanged());
      for (size_t i = 0; i < n; ++i) want[i] = reference(f.op, a[i], a[i]);  // x op x
      ASSERT_EQ(f.f(a.data(), a.data(), d.data(), len), vekStatusOk);
      ASSERT_TRUE(holds(d, want)) << "pSrc1 == pSrc2";
    }
    for (const auto& f : ops.vc)
      for (T c : consts) {
        for (size_t i = 0; i < n; ++i) want[i] = reference(f.op, a[i], c);
        Guarded<T> d(n, md), in(n, md), same(n, md);
        std::memcpy(in.data(), a.data(), n * sizeof(T));
        std::memcpy(same.data(), a.data(), n * sizeof(T));
        ASSERT_EQ(f.f(a.data(), c, d.data(), len), vekStatusOk);
        ASSERT_EQ(f.fi(c, in.data(), len), vekStatusOk);
        ASSERT_EQ(f.f(same.data(), c, same.data(), len), vekStatusOk);
        ASSERT_TRUE(holds(d, want)) << "constant " << +c;
        ASSERT_TRUE(holds(in, want)) << "constant " << +c << ", in place";
        ASSERT_TRUE(holds(same, want)) << "constant " << +c << ", pDst == pSrc";
        ASSERT_TRUE(a.unchanged());
      }
    for (size_t i = 0; i < n; ++i) want[i] = reference(Op::kNot, a[i], T{0});
    Guarded<T> d(n, md), in(n, md);
    std::memcpy(in.data(), a.data(), n * sizeof(T));
    ASSERT_EQ(ops.not_(a.data(), d.data(), len), vekStatusOk);
    ASSERT_EQ(ops.not_i(in.data(), len), vekStatusOk);
    ASSERT_TRUE(holds(d, want)) << "Not";
    ASSERT_TRUE(holds(in, want)) << "Not in place";
  }
}

}  // namespace
