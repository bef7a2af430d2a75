// Bit-string copy and byte-order reversal.
#pragma once

#include <cstddef>

#include "frame/check.hpp"

namespace veks {

// Bit numbering within a byte: LsbFirst gives bit position b the weight 2^b, MsbFirst 2^(7 - b).
struct BitsLsbFirst {
  static constexpr bool kMsbFirst = false;
};
struct BitsMsbFirst {
  static constexpr bool kMsbFirst = true;
};

namespace kern {
void copy_bits(const unsigned char* src, size_t src_bit, unsigned char* dst, size_t dst_bit,
               size_t len, bool msb_first);
// Reverses the bytes of each of n elements of `width` bytes (2, 3, 4 or 8); src may equal dst.
void swap_bytes(const void* src, void* dst, size_t n, size_t width);
}  // namespace kern

template <class Order>
VekStatus copy_bits(const Vek8u* src, int src_bit, Vek8u* dst, int dst_bit, int len) {
  VEKS_TRY(check_ptrs_len(len, src, dst));
  if (src_bit < 0 || dst_bit < 0) return vekStatusBadArg;
  kern::copy_bits(src, static_cast<size_t>(src_bit), dst, static_cast<size_t>(dst_bit),
                  static_cast<size_t>(len), Order::kMsbFirst);
  return vekStatusOk;
}

template <size_t W, class E>
VekStatus swap_bytes(const E* src, E* dst, int len) {
  VEKS_TRY(check_ptrs_len(len, src, dst));
  kern::swap_bytes(src, dst, static_cast<size_t>(len), W);
  return vekStatusOk;
}

template <size_t W, class E>
VekStatus swap_bytes_inplace(E* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, srcdst));
  kern::swap_bytes(srcdst, srcdst, static_cast<size_t>(len), W);
  return vekStatusOk;
}

}  // namespace veks
