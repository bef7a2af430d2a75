// Kernels of the packed-spectrum products, the conjugates and the complex copies: 512-bit
// vectors, masked heads and tails, nothing outside the caller's ranges touched.
#include "arith/conj.hpp"

#include "frame/intrin.hpp"

#include <cstdint>
#include <type_traits>

#include "vekcore.h"

namespace veks::kern {

namespace {

using VI = __m512i;

// ---- complex products ----------------------------------------------------------------------

// Interleaved complex values of T in a 512-bit vector: loads of whole and partial vectors,
// duplication of the real or imaginary parts, the swap of each pair, and the two alternating
// fused multiply-adds.
template <class T>
struct Cx;

template <>
struct Cx<float> {
  using V = __m512;
  static constexpr size_t kPer = 8;  // complex values per vector
  static __mmask16 mask(size_t m) {
    return static_cast<__mmask16>(_bzhi_u32(0xFFFF, static_cast<unsigned>(2 * m)));
  }
  static V load(const float* p) { return _mm512_loadu_ps(p); }
  static V load_first(const float* p, size_t m) { return _mm512_maskz_loadu_ps(mask(m), p); }
  static void store(float* p, V v) { _mm512_storeu_ps(p, v); }
  static void stream(float* p, V v) { _mm512_stream_ps(p, v); }
  static void store_first(float* p, size_t m, V v) { _mm512_mask_storeu_ps(p, mask(m), v); }
  static V re(V y) { return _mm512_moveldup_ps(y); }
  static V im(V y) { return _mm512_movehdup_ps(y); }
  static V swap(V x) { return _mm512_permute_ps(x, 0xB1); }
  static V mul(V x, V y) { return _mm512_mul_ps(x, y); }
  static V fmaddsub(V x, V y, V z) { return _mm512_fmaddsub_ps(x, y, z); }
  static V fmsubadd(V x, V y, V z) { return _mm512_fmsubadd_ps(x, y, z); }
  static V fmadd(V x, V y, V z) { return _mm512_fmadd_ps(x, y, z); }
  static V fmsub(V x, V y, V z) { return _mm512_fmsub_ps(x, y, z); }
  static V plus_minus() {
    return _mm512_set_ps(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1);
  }
};

template <>
struct Cx<double> {
  using V = __m512d;
  static constexpr size_t kPer = 4;
  static __mmask8 mask(size_t m) {
    return static_cast<__mmask8>(_bzhi_u32(0xFF, static_cast<unsigned>(2 * m)));
  }
  static V load(const double* p) { return _mm512_loadu_pd(p); }
  static V load_first(const double* p, size_t m) { return _mm512_maskz_loadu_pd(mask(m), p); }
  static void store(double* p, V v) { _mm512_storeu_pd(p, v); }
  static void stream(double* p, V v) { _mm512_stream_pd(p, v); }
  static void store_first(double* p, size_t m, V v) { _mm512_mask_storeu_pd(p, mask(m), v); }
  static V re(V y) { return _mm512_movedup_pd(y); }
  static V im(V y) { return _mm512_permute_pd(y, 0xFF); }
  static V swap(V x) { return _mm512_permute_pd(x, 0x55); }
  static V mul(V x, V y) { return _mm512_mul_pd(x, y); }
  static V fmaddsub(V x, V y, V z) { return _mm512_fmaddsub_pd(x, y, z); }
  static V fmsubadd(V x, V y, V z) { return _mm512_fmsubadd_pd(x, y, z); }
  static V fmadd(V x, V y, V z) { return _mm512_fmadd_pd(x, y, z); }
  static V fmsub(V x, V y, V z) { return _mm512_fmsub_pd(x, y, z); }
  static V plus_minus() { return _mm512_set_pd(-1, 1, -1, 1, -1, 1, -1, 1); }
};

// (a, b) * (c, d) = (ac - bd, ad + bc): the product of the swapped pair with the imaginary part
// is rounded once, the rest is one fused operation.
// (a, b) * conj(c, d) = (ac + bd, bc - ad): the same, then the rounding error of the first
// product (exact through a fused multiply-subtract) is added back, so that a value times its
// own conjugate has an imaginary part of exactly 0.
template <class T, bool Conj>
inline typename Cx<T>::V product(typename Cx<T>::V x, typename Cx<T>::V y) {
  using X = Cx<T>;
  // Keep both operands in registers: the compiler would otherwise read each again as a memory
  // operand of every shuffle and multiply using it, and the loads bound this loop.
  __asm__("" : "+v"(x), "+v"(y));
  const auto xs = X::swap(x), yi = X::im(y);
  const auto t = X::mul(xs, yi);
  if constexpr (Conj) {
    const auto e = X::fmsub(xs, yi, t);  // xs * yi - t, exactly
    return X::fmadd(e, X::plus_minus(), X::fmsubadd(x, X::re(y), t));
  } else {
    return X::fmaddsub(x, X::re(y), t);
  }
}

// Destinations of at least this many bytes that are neither source may be written with
// non-temporal stores when all three vectors together exceed the largest cache.
constexpr size_t kStreamMinBytes = size_t{1} << 20;

bool exceeds_cache(size_t bytes) {
  int size = 0;
  return vekGetMaxCacheSizeB(&size) == vekStatusOk && size > 0 && bytes > static_cast<size_t>(size);
}

template <class T, bool Conj, bool Stream>
inline size_t mul_body(const T* a, const T* b, T* d, size_t j, size_t m) {
  using X = Cx<T>;
  constexpr size_t P = X::kPer, S = 2 * P;  // complex values and T per vector
  for (; j + 2 * P <= m; j += 2 * P) {
    const size_t i = 2 * j;
    const auto r0 = product<T, Conj>(X::load(a + i), X::load(b + i));
    const auto r1 = product<T, Conj>(X::load(a + i + S), X::load(b + i + S));
    if constexpr (Stream) {
      X::stream(d + i, r0);
      X::stream(d + i + S, r1);
    } else {
      X::store(d + i, r0);
      X::store(d + i + S, r1);
    }
  }
  if constexpr (Stream) _mm_sfence();
  return j;
}

}  // namespace

template <class T, bool Conj>
void mul_pairs(const T* a, const T* b, T* d, size_t m) {
  using X = Cx<T>;
  constexpr size_t P = X::kPer;
  size_t j = 0;
  // Align the destination to 64 bytes when its pairs can reach a boundary: a masked head.
  const auto addr = reinterpret_cast<uintptr_t>(d);
  bool aligned = false;
  if (m >= 4 * P && addr % (2 * sizeof(T)) == 0) {
    j = (64 - addr % 64) % 64 / (2 * sizeof(T));
    if (j) X::store_first(d, j, product<T, Conj>(X::load_first(a, j), X::load_first(b, j)));
    aligned = true;
  }
  const size_t bytes = m * 2 * sizeof(T);
  if (aligned && bytes >= kStreamMinBytes && d != a && d != b && exceeds_cache(3 * bytes)) {
    j = mul_body<T, Conj, true>(a, b, d, j, m);
  } else {
    j = mul_body<T, Conj, false>(a, b, d, j, m);
  }
  for (; j + P <= m; j += P)
    X::store(d + 2 * j, product<T, Conj>(X::load(a + 2 * j), X::load(b + 2 * j)));
  if (j < m) {
    const size_t r = m - j;
    X::store_first(d + 2 * j, r,
                   product<T, Conj>(X::load_first(a + 2 * j, r), X::load_first(b + 2 * j, r)));
  }
}

template void mul_pairs<float, false>(const float*, const float*, float*, size_t);
template void mul_pairs<float, true>(const float*, const float*, float*, size_t);
template void mul_pairs<double, false>(const double*, const double*, double*, size_t);
template void mul_pairs<double, true>(const double*, const double*, double*, size_t);

// ---- conjugates ----------------------------------------------------------------------------

namespace {

// Conjugates every complex element of a vector: floating-point imaginary parts get their sign
// bit flipped, 16-bit ones are negated with saturation (-(-32768) = 32767).
template <class E>
inline VI conj_lanes(VI v) {
  if constexpr (std::is_same_v<E, Vek16sc>) {
    return _mm512_mask_subs_epi16(v, 0xAAAAAAAA, _mm512_setzero_si512(), v);
  } else if constexpr (sizeof(E) == 8) {  // 32fc: the sign bit of each odd 32-bit lane
    return _mm512_xor_si512(v, _mm512_set1_epi64(INT64_MIN));
  } else {  // 64fc: the sign bit of each odd 64-bit lane
    static_assert(sizeof(E) == 16);
    return _mm512_mask_xor_epi64(v, 0xAA, v, _mm512_set1_epi64(INT64_MIN));
  }
}

// Permutation indices that reverse the first r complex elements of a vector (lanes past r are
// don't-care).
template <class E>
inline VI reverse_index(size_t r) {
  const auto k = static_cast<long long>(r);
  if constexpr (sizeof(E) == 4) {
    return _mm512_sub_epi32(_mm512_set1_epi32(static_cast<int>(k - 1)),
                            _mm512_set_epi32(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0));
  } else if constexpr (sizeof(E) == 8) {
    return _mm512_sub_epi64(_mm512_set1_epi64(k - 1), _mm512_set_epi64(7, 6, 5, 4, 3, 2, 1, 0));
  } else {  // two 64-bit lanes per element: lane l takes 2 (r - 1 - l / 2) + l % 2
    return _mm512_add_epi64(_mm512_set1_epi64(2 * k - 2),
                            _mm512_set_epi64(-5, -6, -3, -4, -1, -2, 1, 0));
  }
}

template <class E>
inline VI reverse_conj(VI idx, VI v) {
  if constexpr (sizeof(E) == 4) {
    return conj_lanes<E>(_mm512_permutexvar_epi32(idx, v));
  } else {
    return conj_lanes<E>(_mm512_permutexvar_epi64(idx, v));
  }
}

inline VI load(const char* p) { return _mm512_loadu_si512(p); }
inline void store(char* p, VI v) { _mm512_storeu_si512(p, v); }

}  // namespace

template <class E>
void conj(const E* s, E* d, size_t n) {
  const auto* p = reinterpret_cast<const char*>(s);
  auto* q = reinterpret_cast<char*>(d);
  const size_t bytes = n * sizeof(E);
  size_t i = 0;
  for (; i + 128 <= bytes; i += 128) {
    const VI x0 = load(p + i), x1 = load(p + i + 64);
    store(q + i, conj_lanes<E>(x0));
    store(q + i + 64, conj_lanes<E>(x1));
  }
  for (; i < bytes; i += 64) {
    const __mmask64 k = first_bytes(bytes - i);
    _mm512_mask_storeu_epi8(q + i, k, conj_lanes<E>(_mm512_maskz_loadu_epi8(k, p + i)));
  }
}

// Whole vectors are taken from both ends and stored crosswise, every load before the stores
// that could overwrite it, so that d == s reverses in place. The fewer than two vectors left in
// the middle are loaded completely before they are stored.
template <class E>
void conj_flip(const E* s, E* d, size_t n) {
  constexpr size_t U = sizeof(E), V = 64 / U;
  const auto* p = reinterpret_cast<const char*>(s);
  auto* q = reinterpret_cast<char*>(d);
  const VI full = reverse_index<E>(V);
  size_t lo = 0, hi = n;
  for (; hi - lo >= 2 * V; lo += V, hi -= V) {
    const VI front = load(p + lo * U), back = load(p + (hi - V) * U);
    store(q + lo * U, reverse_conj<E>(full, back));
    store(q + (hi - V) * U, reverse_conj<E>(full, front));
  }
  const size_t r = hi - lo;
  if (r > V) {  // the last V elements go first, the other r - V after them
    const size_t k = r - V;
    const __mmask64 m = first_bytes(k * U);
    const VI back = load(p + (hi - V) * U), front = _mm512_maskz_loadu_epi8(m, p + lo * U);
    store(q + lo * U, reverse_conj<E>(full, back));
    _mm512_mask_storeu_epi8(q + (lo + V) * U, m, reverse_conj<E>(reverse_index<E>(k), front));
  } else if (r > 0) {
    const __mmask64 m = first_bytes(r * U);
    const VI x = _mm512_maskz_loadu_epi8(m, p + lo * U);
    _mm512_mask_storeu_epi8(q + lo * U, m, reverse_conj<E>(reverse_index<E>(r), x));
  }
}

template <class E>
void copy_complex(const E* s, E* d, size_t n) {
  const auto* p = reinterpret_cast<const char*>(s);
  auto* q = reinterpret_cast<char*>(d);
  const size_t bytes = n * sizeof(E);
  size_t i = 0;
  for (; i + 128 <= bytes; i += 128) {
    const VI x0 = load(p + i), x1 = load(p + i + 64);
    store(q + i, x0);
    store(q + i + 64, x1);
  }
  for (; i < bytes; i += 64) {
    const __mmask64 k = first_bytes(bytes - i);
    _mm512_mask_storeu_epi8(q + i, k, _mm512_maskz_loadu_epi8(k, p + i));
  }
}

template void conj<Vek16sc>(const Vek16sc*, Vek16sc*, size_t);
template void conj<Vek32fc>(const Vek32fc*, Vek32fc*, size_t);
template void conj<Vek64fc>(const Vek64fc*, Vek64fc*, size_t);
template void conj_flip<Vek16sc>(const Vek16sc*, Vek16sc*, size_t);
template void conj_flip<Vek32fc>(const Vek32fc*, Vek32fc*, size_t);
template void conj_flip<Vek64fc>(const Vek64fc*, Vek64fc*, size_t);
template void copy_complex<Vek32fc>(const Vek32fc*, Vek32fc*, size_t);
template void copy_complex<Vek64fc>(const Vek64fc*, Vek64fc*, size_t);

}  // namespace veks::kern
