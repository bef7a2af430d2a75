// Zero, Set, Copy, Move and Flip for every element type: the typed layer checks arguments and
// hands bytes to the kernels of fill.cpp, which work by element size only.
#pragma once

#include <climits>
#include <cstddef>

#include "frame/check.hpp"

namespace veks {

namespace kern {
// Byte counts above this use string stores (Zero) or consider non-temporal stores (Set).
inline constexpr size_t kFillLargeBytes = size_t{2} << 20;
// Copies below this many bytes take the small-copy kernel; above kCopyNtMinBytes the block
// kernel considers non-temporal stores.
inline constexpr size_t kCopyBlockBytes = 32768;
inline constexpr size_t kCopyNtMinBytes = size_t{4} << 20;
// Typed copies above INT_MAX bytes run in pieces of this many bytes (a multiple of 32 and of
// every element size).
inline constexpr size_t kCopyPieceBytes = 2147483616;
// Moves up to this many bytes take the short path.
inline constexpr size_t kMoveShortBytes = 128;

void zero_bytes(void* dst, size_t n);
// Fills n bytes (a multiple of esize, which is 1, 2, 4, 8 or 16) with copies of *elem.
void fill_pattern(void* dst, size_t n, const void* elem, size_t esize);
// Copies n <= INT_MAX bytes between non-overlapping ranges.
void copy_bytes(const void* src, void* dst, size_t n);
// Copies n bytes; the ranges may overlap.
void move_bytes(const void* src, void* dst, size_t n);
// Reverses n elements of esize bytes (1, 2, 4, 8 or 16) from src into dst; src == dst reverses
// in place.
void flip_elems(const void* src, void* dst, size_t n, size_t esize);
}  // namespace kern

template <class T>
VekStatus zero(T* dst, int len) {
  VEKS_TRY(check_ptrs_len(len, dst));
  kern::zero_bytes(dst, byte_count(len, sizeof(T)));
  return vekStatusOk;
}

template <class T>
VekStatus set(T val, T* dst, int len) {
  VEKS_TRY(check_ptrs_len(len, dst));
  kern::fill_pattern(dst, byte_count(len, sizeof(T)), &val, sizeof(T));
  return vekStatusOk;
}

template <class T>
VekStatus copy(const T* src, T* dst, int len) {
  VEKS_TRY(check_ptrs_len(len, src, dst));
  auto s = reinterpret_cast<const char*>(src);
  auto d = reinterpret_cast<char*>(dst);
  size_t n = byte_count(len, sizeof(T));
  for (; n > size_t{INT_MAX}; n -= kern::kCopyPieceBytes) {
    kern::copy_bytes(s, d, kern::kCopyPieceBytes);
    s += kern::kCopyPieceBytes;
    d += kern::kCopyPieceBytes;
  }
  kern::copy_bytes(s, d, n);
  return vekStatusOk;
}

template <class T>
VekStatus move(const T* src, T* dst, int len) {
  VEKS_TRY(check_ptrs_len(len, src, dst));
  kern::move_bytes(src, dst, byte_count(len, sizeof(T)));
  return vekStatusOk;
}

template <class T>
VekStatus flip(const T* src, T* dst, int len) {
  VEKS_TRY(check_ptrs_len(len, src, dst));
  kern::flip_elems(src, dst, static_cast<size_t>(len), sizeof(T));
  return vekStatusOk;
}

template <class T>
VekStatus flip_inplace(T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  kern::flip_elems(srcdst, srcdst, static_cast<size_t>(len), sizeof(T));
  return vekStatusOk;
}

}  // namespace veks
