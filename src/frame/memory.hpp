// Typed allocation and the version record.
#pragma once

#include <climits>

#include "veks.h"

namespace veks {

// len elements from the core allocator; null for len < 1 or more than INT_MAX bytes.
template <class T>
T* vec_malloc(int len) {
  const long long bytes = static_cast<long long>(len) * static_cast<long long>(sizeof(T));
  if (len < 1 || bytes > INT_MAX) return nullptr;
  return static_cast<T*>(vekMalloc(static_cast<int>(bytes)));
}

const VekVersionRecord* lib_version();

}  // namespace veks
