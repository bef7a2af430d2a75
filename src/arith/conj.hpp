// Products of real-signal spectra in the packed layouts Pack and Perm, the product with a
// conjugate, expansion of Pack, Perm and CCS into the full conjugate-symmetric spectrum, and the
// conjugate and conjugate-reversed copies of complex vectors.
//
// A packed spectrum of a real signal of length N holds real numbers at position 0 and, for even
// N, at the Nyquist position; everything between is one run of interleaved complex pairs. The
// kernels of conj.cpp work on such runs; this layer finds them and checks the arguments.
#pragma once

#include <cstddef>

#include "frame/check.hpp"

namespace veks {

namespace kern {
// d[j] = a[j] * b[j] (Conj: a[j] * conj(b[j])) over m interleaved complex values; d may equal a
// or b. Each component is one fused multiply-add of one rounded product.
template <class T, bool Conj>
void mul_pairs(const T* a, const T* b, T* d, size_t m);
// d[j] = conj(s[j]) over n complex elements of type E; d may equal s.
template <class E>
void conj(const E* s, E* d, size_t n);
// d[j] = conj(s[n - 1 - j]); d may equal s (the ends swap), no other overlap.
template <class E>
void conj_flip(const E* s, E* d, size_t n);
// Copies n complex elements (no overlap).
template <class E>
void copy_complex(const E* s, E* d, size_t n);
}  // namespace kern

// Where the parts of a packed spectrum of length n stand.
struct PackedRoles {
  size_t pairs_at;  // first position of the run of complex pairs
  size_t pairs;     // number of pairs: (n - 1) / 2 in every layout
  size_t nyquist;   // position of R(n/2) when n is even
  bool has_nyquist;
};
// Pack: R0, pairs from position 1, R(n/2) last.
constexpr PackedRoles pack_roles(size_t n) { return {1, (n - 1) / 2, n - 1, n % 2 == 0}; }
// Perm: R0, R(n/2), pairs from position 2; for odd n identical to Pack.
constexpr PackedRoles perm_roles(size_t n) {
  return n % 2 ? pack_roles(n) : PackedRoles{2, (n - 1) / 2, 1, true};
}
// CCS (as read by the expansion): R0, I0, pairs from position 2, R(n/2), I(n/2).
constexpr PackedRoles ccs_roles(size_t n) { return {2, (n - 1) / 2, n, n % 2 == 0}; }

struct PackLayout {
  static constexpr PackedRoles roles(size_t n) { return pack_roles(n); }
};
struct PermLayout {
  static constexpr PackedRoles roles(size_t n) { return perm_roles(n); }
};
struct CcsLayout {
  static constexpr PackedRoles roles(size_t n) { return ccs_roles(n); }
};

// d = a (.) b position by position in the layout: real positions as real products, pairs as
// complex products (Conj: with the conjugate of b). d may equal a or b.
template <class Layout, bool Conj, class T>
void mul_packed(const T* a, const T* b, T* d, size_t n) {
  const PackedRoles r = Layout::roles(n);
  const T r0 = a[0] * b[0];
  const T rn = r.has_nyquist ? a[r.nyquist] * b[r.nyquist] : T{0};
  kern::mul_pairs<T, Conj>(a + r.pairs_at, b + r.pairs_at, d + r.pairs_at, r.pairs);
  d[0] = r0;
  if (r.has_nyquist) d[r.nyquist] = rn;
}

template <class Layout, class T>
VekStatus mul_spectra(const T* a, const T* b, T* d, int len) {
  VEKS_TRY(check_ptrs_len(len, a, b, d));
  mul_packed<Layout, false>(a, b, d, static_cast<size_t>(len));
  return vekStatusOk;
}
// srcdst = src (.) srcdst: bit for bit the out-of-place product with pSrc1 = src and
// pSrc2 = srcdst (the rounding of a pair product depends on the operands' order).
template <class Layout, class T>
VekStatus mul_spectra_i(const T* src, T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, src, srcdst));
  mul_packed<Layout, false>(src, srcdst, srcdst, static_cast<size_t>(len));
  return vekStatusOk;
}
// srcdst = srcdst (.) conj(src).
template <class Layout, class T>
VekStatus mul_spectra_conj_i(const T* src, T* srcdst, int len) {
  VEKS_TRY(check_ptrs_len(len, src, srcdst));
  mul_packed<Layout, true>(srcdst, src, srcdst, static_cast<size_t>(len));
  return vekStatusOk;
}

// The full spectrum of length n from a packed one: d[0] = R0, the pairs copied, d[n/2] = R(n/2)
// for even n (imaginary parts +0 whatever the layout holds there), and the upper half the
// conjugates of the pairs in reverse order.
template <class Layout, class T, class C>
VekStatus expand_spectrum(const T* s, C* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  const auto n = static_cast<size_t>(len);
  const PackedRoles r = Layout::roles(n);
  // A run of pairs is a run of complex elements; C is two T with the alignment of T.
  const C* pairs = reinterpret_cast<const C*>(s + r.pairs_at);
  if (r.pairs) {
    kern::copy_complex(pairs, d + 1, r.pairs);
    kern::conj_flip(pairs, d + n / 2 + 1, r.pairs);
  }
  d[0] = C{s[0], T{0}};
  if (r.has_nyquist) d[n / 2] = C{s[r.nyquist], T{0}};
  return vekStatusOk;
}

template <class E>
VekStatus conj(const E* s, E* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  kern::conj(s, d, static_cast<size_t>(len));
  return vekStatusOk;
}
template <class E>
VekStatus conj_i(E* srcdst, int len) {
  return conj(srcdst, srcdst, len);
}
template <class E>
VekStatus conj_flip(const E* s, E* d, int len) {
  VEKS_TRY(check_ptrs_len(len, s, d));
  kern::conj_flip(s, d, static_cast<size_t>(len));
  return vekStatusOk;
}

}  // namespace veks
