// And, Or, Xor, their constant forms and Not on 8u, 16u and 32u: every length 1..130 with
// misaligned vectors against element-by-element references, out of place, in place and with the
// destination equal to a source. A zero constant takes the zero-fill and copy routes.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "veks.h"

namespace {

using namespace veks_test;

// And, Or, Xor (index 0, 1, 2) of one element type, vector and constant forms, and Not.
template <class T>
struct Members {
  VekStatus (*vv[3])(const T*, const T*, T*, int);
  VekStatus (*vv_i[3])(const T*, T*, int);
  VekStatus (*vc[3])(const T*, T, T*, int);
  VekStatus (*vc_i[3])(T, T*, int);
  VekStatus (*not_)(const T*, T*, int);
  VekStatus (*not_i)(T*, int);
};
#define MEMBERS(S)                                                                              \
  Members<Vek##S> {                                                                             \
    {veksAnd_##S, veksOr_##S, veksXor_##S}, {veksAnd_##S##_I, veksOr_##S##_I, veksXor_##S##_I}, \
        {veksAndC_##S, veksOrC_##S, veksXorC_##S},                                              \
        {veksAndC_##S##_I, veksOrC_##S##_I, veksXorC_##S##_I}, veksNot_##S, veksNot_##S##_I     \
  }
template <class T>
Members<T> members() {
  if constexpr (sizeof(T) == 1)
    return MEMBERS(8u);
  else if constexpr (sizeof(T) == 2)
    return MEMBERS(16u);
  else
    return MEMBERS(32u);
}
#undef MEMBERS

template <class T>
T op(int k, T x, T y) {
  return static_cast<T>(k == 0 ? x & y : k == 1 ? x | y : x ^ y);
}

template <class T>
class Logic : public ::testing::Test {};
using LogicTypes = ::testing::Types<Vek8u, Vek16u, Vek32u>;
TYPED_TEST_SUITE(Logic, LogicTypes);

TYPED_TEST(Logic, EveryLengthAndAlignmentMatchesTheReference) {
  using T = TypeParam;
  using Form = std::function<VekStatus(T*)>;
  const Members<T> m = members<T>();
  const T consts[] = {0, static_cast<T>(~T{0}), static_cast<T>(0x5A3C96E1u)};
  for (int len = 1; len <= 130; ++len) {
    const auto n = static_cast<size_t>(len);
    Guarded<T> a(n, n % 7 * sizeof(T)), b(n, n * 3 % 64 / sizeof(T) * sizeof(T));
    fill_bytes(a.data(), n * sizeof(T), n);
    fill_bytes(b.data(), n * sizeof(T), n + 1000);
    a.remember(), b.remember();
    // Each form writes d at an offset of its own: the first (out of place) into a fresh vector,
    // the others into a copy of `init` (the in-place operand); all must hold ref(a[i], b[i]).
    const auto check = [&](const Guarded<T>& init, auto ref,
                           std::initializer_list<Form> forms) -> ::testing::AssertionResult {
      int k = 0;
      for (const Form& form : forms) {
        Guarded<T> d(n, n * 5 % 64 / sizeof(T) * sizeof(T));
        if (k) std::memcpy(d.data(), init.data(), n * sizeof(T));
        if (form(d.data()) != vekStatusOk) return ::testing::AssertionFailure() << "status";
        for (size_t i = 0; i < n; ++i)
          if (d[i] != ref(a[i], b[i]))
            return ::testing::AssertionFailure() << "len " << n << " form " << k << " at " << i;
        if (!d.guards_intact() || !a.unchanged() || !b.unchanged())
          return ::testing::AssertionFailure() << "len " << n << " form " << k << " wrote outside";
        ++k;
      }
      return ::testing::AssertionSuccess();
    };
    for (int k = 0; k < 3; ++k) {
      ASSERT_TRUE(check(b, [k](T x, T y) { return op(k, x, y); },
                        {[&](T* d) { return m.vv[k](a.data(), b.data(), d, len); },
                         [&](T* d) { return m.vv_i[k](a.data(), d, len); },
                         [&](T* d) { return m.vv[k](a.data(), d, d, len); }}))
          << "operation " << k;
      for (T c : consts)
        ASSERT_TRUE(check(a, [k, c](T x, T) { return op(k, x, c); },
                          {[&](T* d) { return m.vc[k](a.data(), c, d, len); },
                           [&](T* d) { return m.vc_i[k](c, d, len); },
                           [&](T* d) { return m.vc[k](d, c, d, len); }}))
            << "operation " << k << ", constant " << +c;
    }
    ASSERT_TRUE(check(
        a, [](T x, T) { return static_cast<T>(~x); },
        {[&](T* d) { return m.not_(a.data(), d, len); }, [&](T* d) { return m.not_i(d, len); }}));
  }
}

}  // namespace
