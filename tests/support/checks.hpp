// The argument checks of every export of a family, whatever its signature: each pointer null in
// turn (with a valid and with bad lengths) gives vekStatusNullPtr; with every pointer valid a
// length below 1 gives vekStatusBadSize; the family's other int arguments are tried at 0 and at
// their extremes, other numbers at 0 and 1, since they are checked after the length; no failing
// call writes anything.
#pragma once

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace veks_test {

struct CheckSpec {
  static constexpr int kFirstInt = -1, kSecondInt = -2, kLast = -3, kSkip = -4;
  int len_at = kFirstInt;  // argument index of the length (a constant of Vek32s is an int too)
  unsigned optional = 0;   // pointer arguments (bit per index) that may be null
};

template <class R, class... A>
void expect_checks(const std::string& name, R (*fn)(A...), CheckSpec spec = {}) {
  if constexpr (std::is_same_v<R, VekStatus> && sizeof...(A) > 0) {
    if (spec.len_at == CheckSpec::kSkip) return;
    constexpr size_t n = sizeof...(A);
    constexpr bool is_ptr[] = {std::is_pointer_v<A>...};
    constexpr bool is_int[] = {std::is_same_v<A, int>...};
    constexpr bool is_uns[] = {std::is_same_v<A, unsigned>...};
    size_t len_at = spec.len_at == CheckSpec::kLast ? n - 1 : static_cast<size_t>(spec.len_at);
    for (int skip = spec.len_at == CheckSpec::kSecondInt, k = 0; spec.len_at < 0 && k < int(n); ++k)
      if (spec.len_at != CheckSpec::kLast && is_int[k] && skip-- == 0) {
        len_at = static_cast<size_t>(k);
        break;
      }
    ASSERT_TRUE(len_at < n && (is_int[len_at] || is_uns[len_at])) << name << ": no length";
    Guarded<unsigned char> buf(512);
    const auto call = [&](size_t null_at, long long len, int other) {
      return [&]<size_t... I>(std::index_sequence<I...>) {
        const auto arg = [&]<class T>(size_t i) -> T {
          if constexpr (std::is_pointer_v<T>) {
            return i == null_at ? nullptr : reinterpret_cast<T>(buf.data());
          } else if constexpr (std::is_integral_v<T>) {
            return static_cast<T>(i == len_at              ? len
                                  : std::is_same_v<T, int> ? other
                                                           : other == INT_MAX);
          } else if constexpr (std::is_floating_point_v<T>) {
            return static_cast<T>(other == INT_MAX);  // 0 and 1: zero-fill and copy routes
          } else {
            return T{};
          }
        };
        return fn(arg.template operator()<A>(I)...);
      }
      (std::index_sequence_for<A...>{});
    };
    const std::vector<long long> bad =
        is_uns[len_at] ? std::vector<long long>{0} : std::vector<long long>{0, -1, INT_MIN};
    for (int other : {0, INT_MIN, INT_MAX}) {
      for (size_t k = 0; k < n; ++k) {
        if (!is_ptr[k] || (spec.optional >> k & 1)) continue;
        EXPECT_EQ(call(k, 4, other), vekStatusNullPtr) << name << ": argument " << k << " null";
        for (long long len : bad)
          EXPECT_EQ(call(k, len, other), vekStatusNullPtr) << name << ": null " << k << ", " << len;
      }
      for (long long len : bad)
        EXPECT_EQ(call(n, len, other), vekStatusBadSize) << name << ": len " << len;
    }
    EXPECT_TRUE(buf.unchanged()) << name << " wrote on an error";
  }
}

// Runs expect_checks on every export whose name starts with one of `prefixes`; `spec` gives the
// exceptions by a part of the name. Returns how many exports were checked.
template <class Spec>
int expect_family_checks(std::initializer_list<const char*> prefixes, Spec spec) {
  int checked = 0;
  const auto mine = [&](const char* name) {
    for (const char* p : prefixes)
      if (std::strncmp(name, p, std::strlen(p)) == 0) return true;
    return false;
  };
#define VEKS_EXPORT(name) \
  if (mine(#name)) expect_checks(#name, name, spec(std::string(#name))), ++checked;
#include "veks_exports.inc"
#undef VEKS_EXPORT
  return checked;
}

}  // namespace veks_test
