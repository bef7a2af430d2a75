// Packed-spectrum products and expansion against the full complex spectra read from the layouts
// (products in long double with the 1-ulp bound), at every length 1..130 and some long ones;
// Conj and ConjFlip against element-wise references; in place, aliasing, misaligned operands.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <complex>
#include <cstring>
#include <tuple>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "veks.h"

namespace {

using namespace veks_test;
using LC = std::complex<LD>;

enum class Layout { kPack, kPerm, kCcs };

// X[0..n) of a real signal's spectrum held in a packed layout.
template <class T>
std::vector<LC> expand_ref(Layout layout, const T* p, int n) {
  std::vector<LC> x(static_cast<size_t>(n));
  const int half = n / 2;
  const bool even = n % 2 == 0;
  for (int k = 0; k <= half; ++k) {
    LD re = 0, im = 0;
    if (layout == Layout::kCcs) {
      re = p[2 * k];
      im = (k == 0 || (even && k == half)) ? 0 : p[2 * k + 1];
    } else if (k == 0) {
      re = p[0];
    } else if (even && k == half) {
      re = layout == Layout::kPack ? p[n - 1] : p[1];
    } else {
      const int at = (layout == Layout::kPerm && even) ? 2 * k : 2 * k - 1;
      re = p[at];
      im = p[at + 1];
    }
    x[size_t(k)] = {re, im};
  }
  for (int k = half + 1; k < n; ++k) x[size_t(k)] = std::conj(x[size_t(n - k)]);
  return x;
}

// got is a (.) b (conj: a (.) conj(b)) in the layout: real positions correctly rounded, pair
// components within 1 ulp of |ac| + |bd| (|ad| + |bc|).
template <class T>
::testing::AssertionResult is_product(Layout layout, bool conj, const T* a, const T* b,
                                      const T* got, int n) {
  const auto x = expand_ref(layout, a, n), y = expand_ref(layout, b, n),
             z = expand_ref(layout, got, n);
  for (size_t k = 0; k <= size_t(n) / 2; ++k) {
    const LC u = x[k], v = conj ? std::conj(y[k]) : y[k];
    const LD ac = u.real() * v.real(), bd = u.imag() * v.imag(), ad = u.real() * v.imag(),
             bc = u.imag() * v.real();
    const bool ok =
        k == 0 || 2 * k == size_t(n)
            ? z[k].real() == T(u.real()) * T(v.real())
            : std::fabs(z[k].real() - (ac - bd)) <= ulp_of<T>(std::fabs(ac) + std::fabs(bd)) &&
                  std::fabs(z[k].imag() - (ad + bc)) <= ulp_of<T>(std::fabs(ad) + std::fabs(bc));
    if (!ok) return ::testing::AssertionFailure() << "X[" << k << "] of " << n;
  }
  return ::testing::AssertionSuccess();
}

template <class T>
bool same_bytes(const T* a, const T* b, size_t n) {
  return std::memcmp(a, b, n * sizeof(T)) == 0;
}
template <class T>
Guarded<T> copy_at(const Guarded<T>& g, size_t misalign) {
  Guarded<T> c(g.size(), misalign);
  std::memcpy(c.data(), g.data(), g.size() * sizeof(T));
  return c;
}

// The binary32 or binary64 member, by T.
#define PICK(name, ...)                \
  (std::get < std::is_same_v<T, float> \
       ? 0                             \
       : 1 > (std::tuple(&veks##name##_32f##__VA_ARGS__, &veks##name##_64f##__VA_ARGS__)))

template <class T>
class Spectrum : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Spectrum, Precisions);

std::vector<int> spectrum_lengths() {  // every tail and both parities; the unrolled loop
  std::vector<int> ns = lengths(false);
  ns.insert(ns.end(), {255, 256, 1000, 1001, 4098});
  return ns;
}

// MulPack and MulPerm out of place, in place and into either source, MulPackConj_I, with the
// operands at offsets from a 64-byte boundary that change with the length. Values of either sign
// and exponents -20..20, so that products cancel.
template <class T>
void check_products(int n, Rng& rng) {
  SCOPED_TRACE(::testing::Message() << "N " << n);
  const auto len = size_t(n);
  const size_t o1 = len % 16 * sizeof(T), o2 = len * 3 % 16 * sizeof(T),
               od = len * 5 % 16 * sizeof(T);
  Guarded<T> a(len, o1), b(len, o2);
  for (size_t i = 0; i < len; ++i) a[i] = rng.wide<T>(-20, 20), b[i] = rng.wide<T>(-20, 20);
  a.remember(), b.remember();
  for (const Layout layout : {Layout::kPack, Layout::kPerm}) {
    const bool pack = layout == Layout::kPack;
    const auto f = pack ? PICK(MulPack) : PICK(MulPerm);
    const auto fi = pack ? PICK(MulPack, _I) : PICK(MulPerm, _I);
    Guarded<T> d(len, od), in = copy_at(b, o2), d1 = copy_at(a, o1), d2 = copy_at(b, o2);
    ASSERT_EQ(f(a.data(), b.data(), d.data(), n) | fi(a.data(), in.data(), n) |
                  f(d1.data(), b.data(), d1.data(), n) | f(a.data(), d2.data(), d2.data(), n),
              vekStatusOk);
    ASSERT_TRUE(is_product(layout, false, a.data(), b.data(), d.data(), n)) << "Pack " << pack;
    ASSERT_TRUE(a.unchanged() && b.unchanged());
    for (auto* g : {&d, &in, &d1, &d2})  // in place and aliased: bit for bit out of place
      ASSERT_TRUE(same_bytes(g->data(), d.data(), len) && g->guards_intact()) << "Pack " << pack;
  }
  Guarded<T> c = copy_at(b, od), self = copy_at(a, o1);
  ASSERT_EQ(PICK(MulPackConj, _I)(a.data(), c.data(), n), vekStatusOk);
  ASSERT_TRUE(is_product(Layout::kPack, true, b.data(), a.data(), c.data(), n)) << "PackConj";
  ASSERT_TRUE(c.guards_intact() && a.unchanged());
  // A spectrum times its own conjugate: |X[k]|^2 with imaginary parts exactly 0.
  ASSERT_EQ(PICK(MulPackConj, _I)(self.data(), self.data(), n), vekStatusOk);
  ASSERT_TRUE(is_product(Layout::kPack, true, a.data(), a.data(), self.data(), n));
  for (const LC& z : expand_ref(Layout::kPack, self.data(), n)) ASSERT_EQ(z.imag(), 0);
}

TYPED_TEST(Spectrum, ProductsMatchTheComplexProductsOfTheExpandedSpectra) {
  Rng rng{5};
  for (int n : spectrum_lengths()) ASSERT_NO_FATAL_FAILURE(check_products<TypeParam>(n, rng));
  // Long destinations apart from both sources may be streamed past the (steered) cache.
  const int saved = vekSetMaxCacheSizeB(65536);
  for (int n : {600000, 600001}) ASSERT_NO_FATAL_FAILURE(check_products<TypeParam>(n, rng));
  vekSetMaxCacheSizeB(saved);
}

// The layouts by hand: N = 4 in Pack and Perm, N = 3 and 2.
TYPED_TEST(Spectrum, SmallSpectraByHand) {
  using T = TypeParam;
  const std::tuple<VekStatus (*)(const T*, const T*, T*, int), std::vector<T>, std::vector<T>,
                   std::vector<T>>
      rows[] = {{PICK(MulPack), {1, 2, 3, 4}, {5, 6, 7, 8}, {5, -9, 32, 32}},
                {PICK(MulPerm), {1, 4, 2, 3}, {5, 8, 6, 7}, {5, 32, -9, 32}},
                {PICK(MulPerm), {1, 2, 3}, {5, 6, 7}, {5, -9, 32}},
                {PICK(MulPack), {3, -2}, {5, 7}, {15, -14}}};
  for (const auto& [f, a, b, want] : rows) {
    std::vector<T> d(a.size());
    ASSERT_EQ(f(a.data(), b.data(), d.data(), int(a.size())), vekStatusOk);
    EXPECT_EQ(d, want) << "N " << a.size();
  }
}

// Expansion copies exactly; the CCS imaginary slots of R0 and R(N/2) are not read.
TYPED_TEST(Spectrum, ExpansionIsTheConjugateSymmetricSpectrum) {
  using T = TypeParam;
  using C = std::conditional_t<std::is_same_v<T, float>, Vek32fc, Vek64fc>;
  Rng rng{8};
  const std::pair<Layout, VekStatus (*)(const T*, C*, int)> ex[] = {{Layout::kPack, PICK(ConjPack)},
                                                                    {Layout::kPerm, PICK(ConjPerm)},
                                                                    {Layout::kCcs, PICK(ConjCCS)}};
  for (int n : spectrum_lengths())
    for (const auto& [layout, f] : ex) {
      SCOPED_TRACE(::testing::Message() << "N " << n << ", layout " << int(layout));
      const auto len = size_t(n);
      const size_t slen = layout == Layout::kCcs ? len + 2 - len % 2 : len;
      Guarded<T> s(slen, len % 16 * sizeof(T));
      for (size_t i = 0; i < slen; ++i) s[i] = rng.wide<T>(-20, 20);
      if (layout == Layout::kCcs) s[1] = s[slen - 1] = 9;
      s.remember();
      Guarded<C> d(len, len * 3 % 8 * sizeof(T));
      ASSERT_EQ(f(s.data(), d.data(), n), vekStatusOk);
      const std::vector<LC> want = expand_ref(layout, s.data(), n);
      for (size_t k = 0; k < len; ++k) {
        const C wk{T(want[k].real()), T(want[k].imag())};
        ASSERT_TRUE(same_bytes(&d[k], &wk, 1)) << "X[" << k << "]";
      }
      ASSERT_TRUE(d.guards_intact() && s.unchanged());
    }
}

// -(-32768) saturates to 32767; floating-point negation flips the sign bit (NaN, -0 included).
template <class E>
E conj_ref(E x) {
  if constexpr (std::is_same_v<E, Vek16sc>)
    x.im = sat<Vek16s>(-i128(x.im));
  else
    x.im = -x.im;
  return x;
}

// Conj out of place and in place, ConjFlip out of place and on one vector given twice, on random
// bit patterns (NaNs, infinities, -0 and the most negative integer all occur).
template <class E>
void check_conj(VekStatus (*conj)(const E*, E*, int), VekStatus (*conj_i)(E*, int),
                VekStatus (*flip)(const E*, E*, int)) {
  constexpr size_t kPart = sizeof(E) / 2;
  for (int n : spectrum_lengths()) {
    SCOPED_TRACE(::testing::Message() << "len " << n);
    const auto len = size_t(n);
    Guarded<E> s(len, len % 32 * kPart);
    fill_bytes(s.data(), len * sizeof(E), len);
    if constexpr (std::is_same_v<E, Vek16sc>) s[len / 2].im = INT16_MIN;
    s.remember();
    std::vector<E> want_c(len), want_f(len);
    for (size_t i = 0; i < len; ++i)
      want_c[i] = conj_ref(s[i]), want_f[i] = conj_ref(s[len - 1 - i]);
    const size_t od = len * 7 % 32 * kPart;
    Guarded<E> d(len, od), f(len, od), ci = copy_at(s, od), fi = copy_at(s, od);
    ASSERT_EQ(conj(s.data(), d.data(), n) | flip(s.data(), f.data(), n) | conj_i(ci.data(), n) |
                  flip(fi.data(), fi.data(), n),
              vekStatusOk);
    ASSERT_TRUE(s.unchanged());
    for (auto* g : {&d, &ci, &f, &fi})
      ASSERT_TRUE(same_bytes(g->data(), (g == &d || g == &ci ? want_c : want_f).data(), len) &&
                  g->guards_intact());
  }
}

TEST(Conjugate, EveryLengthInPlaceAndOutOfPlace) {
  check_conj(veksConj_16sc, veksConj_16sc_I, veksConjFlip_16sc);
  check_conj(veksConj_32fc, veksConj_32fc_I, veksConjFlip_32fc);
  check_conj(veksConj_64fc, veksConj_64fc_I, veksConjFlip_64fc);
}

}  // namespace
