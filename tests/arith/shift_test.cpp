// Left and right shifts by a constant on 8u, 16u, 16s and 32s: every count from 0 to beyond the
// element width (and INT_MAX) on every length 1..130, against wide-integer references; the
// in-place forms and pDst == pSrc; negative counts.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;

template <class T>
constexpr int kWidth = 8 * sizeof(T);

// Left: the low w bits of x * 2^k, read as T; right: floor(x / 2^k). Counts of w and more give
// 0, or -1 for negative x on the right.
template <class T>
T shifted_left(T x, int k) {
  if (k >= kWidth<T>) return 0;
  const auto bits = static_cast<uint64_t>(static_cast<std::make_unsigned_t<T>>(x));
  uint64_t r = bits;
  for (int i = 0; i < k; ++i) r *= 2;
  return static_cast<T>(static_cast<std::make_unsigned_t<T>>(r));  // modulo 2^w
}
template <class T>
T shifted_right(T x, int k) {
  const int64_t p = int64_t{1} << (k < 40 ? k : 40);  // 2^40 already exceeds every |x|
  int64_t q = int64_t{x} / p;
  if (int64_t{x} % p != 0 && x < 0) --q;
  return static_cast<T>(q);
}

#define VEKS_SHIFT_TYPE(S)                                                                     \
  struct Shift##S {                                                                            \
    using T = Vek##S;                                                                          \
    static VekStatus l(const T* s, int v, T* d, int n) { return veksLShiftC_##S(s, v, d, n); } \
    static VekStatus li(int v, T* d, int n) { return veksLShiftC_##S##_I(v, d, n); }           \
    static VekStatus r(const T* s, int v, T* d, int n) { return veksRShiftC_##S(s, v, d, n); } \
    static VekStatus ri(int v, T* d, int n) { return veksRShiftC_##S##_I(v, d, n); }           \
  };
VEKS_SHIFT_TYPE(8u)
VEKS_SHIFT_TYPE(16u)
VEKS_SHIFT_TYPE(16s)
VEKS_SHIFT_TYPE(32s)
#undef VEKS_SHIFT_TYPE

template <class P>
class Shift : public ::testing::Test {};
using ShiftTypes = ::testing::Types<Shift8u, Shift16u, Shift16s, Shift32s>;
TYPED_TEST_SUITE(Shift, ShiftTypes);

template <class T>
::testing::AssertionResult holds(Guarded<T>& g, const std::vector<T>& want) {
  for (size_t i = 0; i < want.size(); ++i)
    if (g[i] != want[i])
      return ::testing::AssertionFailure()
             << "element " << i << " is " << +g[i] << ", expected " << +want[i];
  if (!g.guards_intact()) return ::testing::AssertionFailure() << "wrote outside the vector";
  return ::testing::AssertionSuccess();
}

TYPED_TEST(Shift, EveryCountAndLengthMatchesTheReference) {
  using T = typename TypeParam::T;
  using P = TypeParam;
  constexpr int w = kWidth<T>;
  std::vector<int> counts;
  for (int k = 0; k <= w + 2; ++k) counts.push_back(k);
  for (int k : {31, 32, 33, 64, 1000, INT_MAX})
    if (k > w + 2) counts.push_back(k);
  std::mt19937_64 rng(3);
  for (int len = 1; len <= 130; ++len) {
    const auto n = static_cast<size_t>(len);
    Guarded<T> s(n, n % 5 * sizeof(T));
    for (size_t i = 0; i < n; ++i) s[i] = static_cast<T>(rng());
    s[0] = std::numeric_limits<T>::min();  // the extremes are in every vector
    s[n - 1] = std::numeric_limits<T>::max();
    s.remember();
    std::vector<T> want(n);
    for (int k : counts) {
      SCOPED_TRACE(::testing::Message() << "len " << len << ", count " << k);
      for (bool left : {true, false}) {
        for (size_t i = 0; i < n; ++i)
          want[i] = left ? shifted_left(s[i], k) : shifted_right(s[i], k);
        const size_t md = (n * 7 + static_cast<size_t>(k)) % 16 * sizeof(T);
        Guarded<T> d(n, md), in(n, md), same(n, md);
        std::memcpy(in.data(), s.data(), n * sizeof(T));
        std::memcpy(same.data(), s.data(), n * sizeof(T));
        ASSERT_EQ((left ? P::l : P::r)(s.data(), k, d.data(), len), vekStatusOk);
        ASSERT_EQ((left ? P::li : P::ri)(k, in.data(), len), vekStatusOk);
        ASSERT_EQ((left ? P::l : P::r)(same.data(), k, same.data(), len), vekStatusOk);
        ASSERT_TRUE(holds(d, want)) << (left ? "left" : "right");
        ASSERT_TRUE(holds(in, want)) << (left ? "left" : "right") << ", in place";
        ASSERT_TRUE(holds(same, want)) << (left ? "left" : "right") << ", pDst == pSrc";
        ASSERT_TRUE(s.unchanged());
      }
    }
  }
}

// A negative count is seen after the pointers and the length (which the argument-check walker
// of arith_test covers at every count), and writes nothing.
TYPED_TEST(Shift, NegativeCount) {
  using P = TypeParam;
  veks_test::Guarded<typename P::T> s(5), d(5);
  for (int val : {-1, INT_MIN})
    EXPECT_TRUE(P::l(s.data(), val, d.data(), 5) == vekStatusNegativeShift &&
                P::r(s.data(), val, d.data(), 5) == vekStatusNegativeShift &&
                P::li(val, d.data(), 3) == vekStatusNegativeShift &&
                P::ri(val, d.data(), 3) == vekStatusNegativeShift);
  EXPECT_TRUE(s.unchanged() && d.unchanged());
}

}  // namespace
