// Specification and state blocks: caller memory that Init rounds up to 64 bytes and marks with an
// identifier word checked by every use. Every GetSize adds kBlockSlack for the rounding.
#pragma once

#include <cstdint>
#include <cstring>

#include "veks.h"

namespace veks {

inline constexpr size_t kBlockAlign = 64;
inline constexpr size_t kBlockSlack = kBlockAlign;

constexpr size_t align_up(size_t v, size_t a = kBlockAlign) { return (v + a - 1) / a * a; }

// The caller's pointer rounded up to the next multiple of 64 bytes.
inline unsigned char* align_block(void* p) {
  const auto a = reinterpret_cast<uintptr_t>(p);
  return static_cast<unsigned char*>(p) + (align_up(a) - a);
}
inline const unsigned char* align_block(const void* p) { return align_block(const_cast<void*>(p)); }

// Four characters as the 32-bit value whose bytes from the most significant down are those
// characters ("II01" is 0x49493031).
constexpr uint32_t fourcc(const char (&s)[5]) {
  return uint32_t(uint8_t(s[0])) << 24 | uint32_t(uint8_t(s[1])) << 16 |
         uint32_t(uint8_t(s[2])) << 8 | uint32_t(uint8_t(s[3]));
}

inline uint32_t block_id(const void* block) {
  uint32_t id;
  std::memcpy(&id, block, sizeof id);
  return id;
}
// vekStatusSpecMismatch unless the block's first word is id; the last check of an operation.
inline VekStatus check_block_id(const void* block, uint32_t id) {
  return block_id(block) == id ? vekStatusOk : vekStatusSpecMismatch;
}
// Marks a block as ready; Init writes the identifier last, only on success.
inline void set_block_id(void* block, uint32_t id) { std::memcpy(block, &id, sizeof id); }

}  // namespace veks
