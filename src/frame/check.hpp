// Argument checks shared by every operation: pointers in argument order, then the length.
// Family parameters and block identifiers follow in the operation's own code, through VEKS_TRY.
#pragma once

#include <cstddef>

#include "veks.h"

namespace veks {

// vekStatusNullPtr if any pointer is null, else vekStatusBadSize if len < 1, else vekStatusOk.
template <class... P>
constexpr VekStatus check_ptrs_len(int len, const P*... p) {
  if (!(... && static_cast<bool>(p))) return vekStatusNullPtr;
  return len < 1 ? vekStatusBadSize : vekStatusOk;
}

// Bytes of len elements of the given size, in 64-bit arithmetic (len is known to be positive).
constexpr size_t byte_count(int len, size_t elem_size) {
  return static_cast<size_t>(len) * elem_size;
}

}  // namespace veks

// Returns the status of a check from the enclosing function when it is not vekStatusOk.
#define VEKS_TRY(...)                                            \
  do {                                                           \
    if (const VekStatus veks_s_ = (__VA_ARGS__); veks_s_ != 0) { \
      return veks_s_;                                            \
    }                                                            \
  } while (0)
