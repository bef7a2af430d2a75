// Byte kernels of Zero, Set, Copy, Move and Flip. Bodies use 64-byte vector stores with the
// destination aligned to 64 bytes; heads and tails use masked or overlapping stores, so no byte
// outside [dst, dst + n) is touched and no source byte outside [src, src + n) is read.
#include "frame/fill.hpp"

#include "frame/intrin.hpp"

#include <cstdint>
#include <cstring>

namespace veks::kern {

namespace {

using V = __m512i;

inline V load(const char* p) { return _mm512_loadu_si512(p); }
inline void store(char* p, V v) { _mm512_storeu_si512(p, v); }
inline size_t to_boundary(const char* p) { return 64 - (reinterpret_cast<uintptr_t>(p) & 63); }

bool cache_below(size_t bytes, bool at_least) {
  int size = 0;
  if (vekGetMaxCacheSizeB(&size) != vekStatusOk || size <= 0) return false;
  return at_least ? bytes >= static_cast<size_t>(size) : bytes > static_cast<size_t>(size);
}

// Fills [d, d + n) with v, whose byte 0 belongs at d. `rot` yields the same pattern as it must
// stand at an address a, given a - d (only called for 64-byte aligned a).
template <class Rot>
inline void fill_vec(char* d, size_t n, V v, Rot rot) {
  if (n <= 64) {
    _mm512_mask_storeu_epi8(d, first_bytes(n), v);
    return;
  }
  if (n <= 128) {
    store(d, v);
    store(d + n - 64, v);
    return;
  }
  if (n < 256) {
    store(d, v);
    store(d + 64, v);
    store(d + n - 128, v);
    store(d + n - 64, v);
    return;
  }
  store(d, v);
  char* a = d + to_boundary(d);
  char* const end = d + n;
  const V w = rot(static_cast<size_t>(a - d));
  for (; a + 256 <= end; a += 256) {
    _mm512_store_si512(a, w);
    _mm512_store_si512(a + 64, w);
    _mm512_store_si512(a + 128, w);
    _mm512_store_si512(a + 192, w);
  }
  for (; a + 64 <= end; a += 64) _mm512_store_si512(a, w);
  store(end - 64, v);  // n - 64 is a multiple of the element size: v's phase is right
}

// Large fill for an element-aligned destination: unaligned head, non-temporal body, fence,
// ordinary tail.
inline void fill_stream(char* d, size_t n, V v) {
  store(d, v);
  char* a = d + to_boundary(d);
  char* const end = d + n;
  for (; a + 256 <= end; a += 256) {
    _mm512_stream_si512(reinterpret_cast<V*>(a), v);
    _mm512_stream_si512(reinterpret_cast<V*>(a + 64), v);
    _mm512_stream_si512(reinterpret_cast<V*>(a + 128), v);
    _mm512_stream_si512(reinterpret_cast<V*>(a + 192), v);
  }
  for (; a + 64 <= end; a += 64) _mm512_stream_si512(reinterpret_cast<V*>(a), v);
  _mm_sfence();
  store(end - 64, v);
}

}  // namespace

void zero_bytes(void* dst, size_t n) {
  auto d = static_cast<char*>(dst);
  if (n > kFillLargeBytes) {
    __asm__ volatile("rep stosb" : "+D"(d), "+c"(n) : "a"(0) : "memory");
    return;
  }
  const V z = _mm512_setzero_si512();
  fill_vec(d, n, z, [&](size_t) { return z; });
}

void fill_pattern(void* dst, size_t n, const void* elem, size_t esize) {
  auto d = static_cast<char*>(dst);
  V v;
  switch (esize) {
    case 1: v = _mm512_set1_epi8(*static_cast<const char*>(elem)); break;
    case 2: {
      short e;
      std::memcpy(&e, elem, 2);
      v = _mm512_set1_epi16(e);
      break;
    }
    case 4: {
      int e;
      std::memcpy(&e, elem, 4);
      v = _mm512_set1_epi32(e);
      break;
    }
    case 8: {
      long long e;
      std::memcpy(&e, elem, 8);
      v = _mm512_set1_epi64(e);
      break;
    }
    default: v = _mm512_broadcast_i32x4(_mm_loadu_si128(static_cast<const __m128i*>(elem)));
  }
  const bool elem_aligned = reinterpret_cast<uintptr_t>(d) % esize == 0;
  if (n > kFillLargeBytes && elem_aligned && cache_below(n, false)) {
    fill_stream(d, n, v);
    return;
  }
  if (n > kFillLargeBytes && esize <= 8) {
    // Large fills that stay in the caches: string stores of the pattern repeated to 8 bytes (in
    // phase with d whatever its alignment), then the last n % 8 bytes.
    size_t words = n / 8;
    const auto q = static_cast<uint64_t>(_mm_cvtsi128_si64(_mm512_castsi512_si128(v)));
    __asm__ volatile("rep stosq" : "+D"(d), "+c"(words) : "a"(q) : "memory");
    _mm512_mask_storeu_epi8(d, first_bytes(n % 8), v);
    return;
  }
  fill_vec(d, n, v, [&](size_t off) {
    const size_t r = off % esize;  // non-zero only for destinations not aligned to the element
    if (r == 0) return v;
    alignas(64) char twice[128];
    _mm512_store_si512(twice, v);
    _mm512_store_si512(twice + 64, v);
    return load(twice + r);
  });
}

namespace {

// Copies n bytes with 64-byte loads; destination stores aligned in the body; `Stream` picks
// non-temporal stores for the body.
template <bool Stream>
inline void copy_block(const char* s, char* d, size_t n) {
  const V head = load(s);
  const V t0 = load(s + n - 256), t1 = load(s + n - 192), t2 = load(s + n - 128),
          t3 = load(s + n - 64);
  const size_t skip = to_boundary(d);
  const char* p = s + skip;
  char* a = d + skip;
  char* const stop = d + n - 256;
  for (; a + 256 <= stop; a += 256, p += 256) {
    const V x0 = load(p), x1 = load(p + 64), x2 = load(p + 128), x3 = load(p + 192);
    if constexpr (Stream) {
      _mm512_stream_si512(reinterpret_cast<V*>(a), x0);
      _mm512_stream_si512(reinterpret_cast<V*>(a + 64), x1);
      _mm512_stream_si512(reinterpret_cast<V*>(a + 128), x2);
      _mm512_stream_si512(reinterpret_cast<V*>(a + 192), x3);
    } else {
      _mm512_store_si512(a, x0);
      _mm512_store_si512(a + 64, x1);
      _mm512_store_si512(a + 128, x2);
      _mm512_store_si512(a + 192, x3);
    }
  }
  if constexpr (Stream) _mm_sfence();
  for (; a < stop; a += 64, p += 64) _mm512_store_si512(a, load(p));
  store(d, head);
  store(d + n - 256, t0);
  store(d + n - 192, t1);
  store(d + n - 128, t2);
  store(d + n - 64, t3);
}

inline void copy_small(const char* s, char* d, size_t n) {
  if (n <= 64) {
    const __mmask64 m = first_bytes(n);
    _mm512_mask_storeu_epi8(d, m, _mm512_maskz_loadu_epi8(m, s));
  } else if (n <= 128) {
    const V a = load(s), b = load(s + n - 64);
    store(d, a);
    store(d + n - 64, b);
  } else if (n <= 256) {
    const V a = load(s), b = load(s + 64), c = load(s + n - 128), e = load(s + n - 64);
    store(d, a);
    store(d + 64, b);
    store(d + n - 128, c);
    store(d + n - 64, e);
  } else {
    copy_block<false>(s, d, n);
  }
}

}  // namespace

void copy_bytes(const void* src, void* dst, size_t n) {
  auto s = static_cast<const char*>(src);
  auto d = static_cast<char*>(dst);
  if (n < kCopyBlockBytes) {
    copy_small(s, d, n);
  } else if (n > kCopyNtMinBytes && cache_below(n, true)) {
    copy_block<true>(s, d, n);
  } else {
    // Block copies that stay in the caches: the string-move instruction is the fastest on the
    // target from 32 KiB up (measured against the vector loop in bench/frame).
    __asm__ volatile("rep movsb" : "+D"(d), "+S"(s), "+c"(n) : : "memory");
  }
}

void move_bytes(const void* src, void* dst, size_t n) {
  auto s = static_cast<const char*>(src);
  auto d = static_cast<char*>(dst);
  if (n <= kMoveShortBytes) {  // every byte is loaded before any is stored
    if (n <= 64) {
      const __mmask64 m = first_bytes(n);
      _mm512_mask_storeu_epi8(d, m, _mm512_maskz_loadu_epi8(m, s));
    } else {
      const V a = load(s), b = load(s + n - 64);
      store(d, a);
      store(d + n - 64, b);
    }
    return;
  }
  const auto ds = reinterpret_cast<uintptr_t>(d), ss = reinterpret_cast<uintptr_t>(s);
  if (ds - ss >= n && ss - ds >= n) {  // no overlap: the copy kernels, non-temporal included
    copy_bytes(s, d, n);
    return;
  }
  // Overlapping ranges. The first and last 64 bytes are read before anything is stored and
  // written last; the body is written with stores aligned to 64 bytes.
  const V head = load(s), tail = load(s + n - 64);
  if (ds < ss) {
    // Forward: every store lands below the source bytes still to be read.
    size_t i = to_boundary(d);
    for (; i + 256 <= n - 64; i += 256) {
      const V x0 = load(s + i), x1 = load(s + i + 64), x2 = load(s + i + 128),
              x3 = load(s + i + 192);
      _mm512_store_si512(d + i, x0);
      _mm512_store_si512(d + i + 64, x1);
      _mm512_store_si512(d + i + 128, x2);
      _mm512_store_si512(d + i + 192, x3);
    }
    for (; i < n - 64; i += 64) _mm512_store_si512(d + i, load(s + i));
  } else {
    // Backward from the end: every store lands above the source bytes still to be read.
    // d + i: the first 64-byte boundary at or above d + n - 64, where the tail takes over.
    size_t i = n - 64 + ((64 - ((ds + n - 64) & 63)) & 63);
    for (; i >= 64 + 256; i -= 256) {
      const V x0 = load(s + i - 64), x1 = load(s + i - 128), x2 = load(s + i - 192),
              x3 = load(s + i - 256);
      _mm512_store_si512(d + i - 64, x0);
      _mm512_store_si512(d + i - 128, x1);
      _mm512_store_si512(d + i - 192, x2);
      _mm512_store_si512(d + i - 256, x3);
    }
    for (; i > 64; i -= 64) _mm512_store_si512(d + i - 64, load(s + i - 64));
  }
  store(d + n - 64, tail);
  store(d, head);
}

namespace {

// Reverses the order of the ES-byte elements of a 64-byte vector.
template <size_t ES>
inline V reverse(V v) {
  if constexpr (ES == 1) {
    const V in_lane = _mm512_set_epi64(0x0001020304050607, 0x08090A0B0C0D0E0F, 0x0001020304050607,
                                       0x08090A0B0C0D0E0F, 0x0001020304050607, 0x08090A0B0C0D0E0F,
                                       0x0001020304050607, 0x08090A0B0C0D0E0F);
    const V b = _mm512_shuffle_epi8(v, in_lane);
    return _mm512_shuffle_i64x2(b, b, 0x1B);
  } else if constexpr (ES == 2) {
    const V idx = _mm512_set_epi64(0x0000000100020003, 0x0004000500060007, 0x00080009000A000B,
                                   0x000C000D000E000F, 0x0010001100120013, 0x0014001500160017,
                                   0x00180019001A001B, 0x001C001D001E001F);
    return _mm512_permutexvar_epi16(idx, v);
  } else if constexpr (ES == 4) {
    return _mm512_permutexvar_epi32(
        _mm512_set_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15), v);
  } else if constexpr (ES == 8) {
    return _mm512_permutexvar_epi64(_mm512_set_epi64(0, 1, 2, 3, 4, 5, 6, 7), v);
  } else {
    static_assert(ES == 16);
    return _mm512_shuffle_i64x2(v, v, 0x1B);
  }
}

template <size_t ES>
struct Elem {
  char b[ES];
};

template <size_t ES>
void flip_n(const char* s, char* d, size_t n) {
  using E = Elem<ES>;
  constexpr size_t kV = 64 / ES;  // elements per vector
  if (s == d) {
    size_t i = 0, j = n;
    for (; j - i >= 2 * kV; i += kV, j -= kV) {
      const V a = load(d + i * ES), b = load(d + (j - kV) * ES);
      store(d + i * ES, reverse<ES>(b));
      store(d + (j - kV) * ES, reverse<ES>(a));
    }
    auto e = reinterpret_cast<E*>(d);
    for (; j > i + 1; ++i, --j) {
      const E t = e[i];
      e[i] = e[j - 1];
      e[j - 1] = t;
    }
    return;
  }
  size_t i = 0;
  for (; i + kV <= n; i += kV) store(d + i * ES, reverse<ES>(load(s + (n - i - kV) * ES)));
  auto se = reinterpret_cast<const E*>(s);
  auto de = reinterpret_cast<E*>(d);
  for (; i < n; ++i) de[i] = se[n - 1 - i];
}

}  // namespace

void flip_elems(const void* src, void* dst, size_t n, size_t esize) {
  auto s = static_cast<const char*>(src);
  auto d = static_cast<char*>(dst);
  switch (esize) {
    case 1: return flip_n<1>(s, d, n);
    case 2: return flip_n<2>(s, d, n);
    case 4: return flip_n<4>(s, d, n);
    case 8: return flip_n<8>(s, d, n);
    default: return flip_n<16>(s, d, n);
  }
}

}  // namespace veks::kern
