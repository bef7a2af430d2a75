#include "frame/bits.hpp"

#include "frame/intrin.hpp"

#include <cstdint>
#include <cstring>

namespace veks::kern {

namespace {

using u8 = unsigned char;

template <bool Msb>
inline unsigned get_bit(const u8* s, size_t q) {
  const unsigned b = q & 7;
  return (s[q >> 3] >> (Msb ? 7 - b : b)) & 1u;
}

template <bool Msb>
inline void put_bit(u8* d, size_t q, unsigned bit) {
  const unsigned b = q & 7;
  const u8 m = static_cast<u8>(1u << (Msb ? 7 - b : b));
  d[q >> 3] = static_cast<u8>(bit ? d[q >> 3] | m : d[q >> 3] & ~m);
}

// The 64 string bits from bit q, laid out as 8 bytes in the string's own numbering. Reads byte
// (q >> 3) + 8 only when q is not byte aligned, and then bit q + 63 lies in it.
template <bool Msb>
inline uint64_t get64(const u8* s, size_t q) {
  const size_t k = q >> 3;
  const unsigned r = q & 7;
  uint64_t w;
  std::memcpy(&w, s + k, 8);
  if (r == 0) return w;
  if constexpr (Msb) {
    const uint64_t x = (__builtin_bswap64(w) << r) | (s[k + 8] >> (8 - r));
    return __builtin_bswap64(x);
  } else {
    return (w >> r) | (static_cast<uint64_t>(s[k + 8]) << (64 - r));
  }
}

template <bool Msb>
inline u8 get8(const u8* s, size_t q) {
  const size_t k = q >> 3;
  const unsigned r = q & 7;
  if (r == 0) return s[k];
  return static_cast<u8>(Msb ? (s[k] << r) | (s[k + 1] >> (8 - r))
                             : (s[k] >> r) | (s[k + 1] << (8 - r)));
}

template <bool Msb>
void copy_bits_t(const u8* s, size_t sq, u8* d, size_t dq, size_t len) {
  size_t i = 0;
  for (; i < len && ((dq + i) & 7) != 0; ++i) put_bit<Msb>(d, dq + i, get_bit<Msb>(s, sq + i));
  for (; len - i >= 64; i += 64) {
    const uint64_t w = get64<Msb>(s, sq + i);
    std::memcpy(d + ((dq + i) >> 3), &w, 8);
  }
  for (; len - i >= 8; i += 8) d[(dq + i) >> 3] = get8<Msb>(s, sq + i);
  for (; i < len; ++i) put_bit<Msb>(d, dq + i, get_bit<Msb>(s, sq + i));
}

using V = __m512i;

// In-lane byte shuffle reversing each group of W bytes.
template <size_t W>
inline V group_reverse_control() {
  alignas(64) u8 c[64];
  for (size_t i = 0; i < 64; ++i) c[i] = static_cast<u8>((i % 16) / W * W + (W - 1 - i % W));
  return _mm512_load_si512(c);
}

template <size_t W>
void swap_simple(const u8* s, u8* d, size_t bytes) {
  const V ctl = group_reverse_control<W>();
  size_t i = 0;
  for (; i + 64 <= bytes; i += 64)
    _mm512_storeu_si512(d + i, _mm512_shuffle_epi8(_mm512_loadu_si512(s + i), ctl));
  if (i < bytes) {
    const __mmask64 m = first_bytes(bytes - i);
    _mm512_mask_storeu_epi8(d + i, m, _mm512_shuffle_epi8(_mm512_maskz_loadu_epi8(m, s + i), ctl));
  }
}

// 24-bit elements: 16 of them (48 bytes) per step, spread to four 12-byte groups, one per
// 128-bit lane, reversed in lane, and packed back.
void swap_24(const u8* s, u8* d, size_t bytes) {
  const V spread = _mm512_set_epi32(11, 11, 10, 9, 8, 8, 7, 6, 5, 5, 4, 3, 2, 2, 1, 0);
  const V pack = _mm512_set_epi32(15, 15, 15, 15, 14, 13, 12, 10, 9, 8, 6, 5, 4, 2, 1, 0);
  const V ctl =
      _mm512_broadcast_i32x4(_mm_set_epi8(15, 14, 13, 12, 9, 10, 11, 6, 7, 8, 3, 4, 5, 0, 1, 2));
  for (size_t i = 0; i < bytes; i += 48) {
    const __mmask64 m = first_bytes(bytes - i < 48 ? bytes - i : 48);
    const V x = _mm512_permutexvar_epi32(spread, _mm512_maskz_loadu_epi8(m, s + i));
    const V y = _mm512_permutexvar_epi32(pack, _mm512_shuffle_epi8(x, ctl));
    _mm512_mask_storeu_epi8(d + i, m, y);
  }
}

}  // namespace

void copy_bits(const unsigned char* src, size_t src_bit, unsigned char* dst, size_t dst_bit,
               size_t len, bool msb_first) {
  if (msb_first)
    copy_bits_t<true>(src, src_bit, dst, dst_bit, len);
  else
    copy_bits_t<false>(src, src_bit, dst, dst_bit, len);
}

void swap_bytes(const void* src, void* dst, size_t n, size_t width) {
  auto s = static_cast<const u8*>(src);
  auto d = static_cast<u8*>(dst);
  switch (width) {
    case 2: return swap_simple<2>(s, d, n * 2);
    case 3: return swap_24(s, d, n * 3);
    case 4: return swap_simple<4>(s, d, n * 4);
    default: return swap_simple<8>(s, d, n * 8);
  }
}

}  // namespace veks::kern
