// Packed-spectrum products and expansion against the full complex spectra read from the layouts
// (a reference written here from the layout definitions, products in long double with the 1-ulp
// bound), for every length 1..130 and some long ones; Conj and ConjFlip against element-wise
// references; in place, aliasing, offsets from 64-byte boundaries.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <tuple>
#include <vector>

#include "support/guarded.hpp"
#include "support/refs.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;
using LC = std::complex<long double>;

enum class Layout { kPack, kPerm, kCcs };

// X[0..n) of a real signal's spectrum held in a packed layout.
template <class T>
std::vector<LC> expand_ref(Layout layout, const T* p, int n) {
  std::vector<LC> x(static_cast<size_t>(n));
  const int half = n / 2;
  const bool even = n % 2 == 0;
  for (int k = 0; k <= half; ++k) {
    long double re = 0, im = 0;
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
    x[static_cast<size_t>(k)] = {re, im};
  }
  for (int k = half + 1; k < n; ++k)
    x[static_cast<size_t>(k)] = std::conj(x[static_cast<size_t>(n - k)]);
  return x;
}

// got is the product a (.) b (conj: a (.) conj(b)) of two spectra of length n in the layout:
// real positions correctly rounded, pair components within 1 ulp of |ac| + |bd| (|ad| + |bc|).
template <class T>
::testing::AssertionResult is_product(Layout layout, bool conj, const T* a, const T* b,
                                      const T* got, int n) {
  const auto x = expand_ref(layout, a, n), y = expand_ref(layout, b, n),
             z = expand_ref(layout, got, n);
  for (int k = 0; k <= n / 2; ++k) {
    const auto i = static_cast<size_t>(k);
    const LC u = x[i], v = conj ? std::conj(y[i]) : y[i];
    if (k == 0 || (n % 2 == 0 && k == n / 2)) {
      const T want = static_cast<T>(u.real()) * static_cast<T>(v.real());
      if (z[i].real() != want)
        return ::testing::AssertionFailure()
               << "real position of X[" << k << "] is " << z[i].real() << ", expected " << want;
      continue;
    }
    const long double ac = u.real() * v.real(), bd = u.imag() * v.imag(), ad = u.real() * v.imag(),
                      bc = u.imag() * v.real();
    const long double dre = std::fabs(z[i].real() - (ac - bd)),
                      dim = std::fabs(z[i].imag() - (ad + bc));
    if (dre > veks_test::ulp_of<T>(std::fabs(ac) + std::fabs(bd)) ||
        dim > veks_test::ulp_of<T>(std::fabs(ad) + std::fabs(bc)))
      return ::testing::AssertionFailure()
             << "X[" << k << "] of " << n << " is (" << z[i].real() << ", " << z[i].imag()
             << "), errors " << dre << ", " << dim;
  }
  return ::testing::AssertionSuccess();
}

// Values with exponents spread over [-20, 20] and both signs, so that products cancel.
template <class T>
void fill_spectrum(T* p, size_t n, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> mant(-1, 1);
  std::uniform_int_distribution<int> ex(-20, 20);
  for (size_t i = 0; i < n; ++i) p[i] = static_cast<T>(std::ldexp(mant(rng), ex(rng)));
}

template <class T>
bool same_bytes(const T* a, const T* b, size_t n) {
  return std::memcmp(a, b, n * sizeof(T)) == 0;
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
  std::vector<int> ns = veks_test::lengths(false);
  ns.insert(ns.end(), {255, 256, 1000, 1001, 4098});
  return ns;
}

// MulPack and MulPerm out of place, in place, into either source, and MulPackConj_I; for each
// length the operands sit at different offsets from a 64-byte boundary.
template <class T>
void check_products(int n, std::mt19937_64& rng) {
  const auto len = static_cast<size_t>(n);
  const size_t off1 = len % 16 * sizeof(T), off2 = len * 3 % 16 * sizeof(T),
               offd = len * 5 % 16 * sizeof(T);
  Guarded<T> a(len, off1), b(len, off2);
  fill_spectrum(a.data(), len, rng);
  fill_spectrum(b.data(), len, rng);
  a.remember();
  b.remember();
  for (const Layout layout : {Layout::kPack, Layout::kPerm}) {
    SCOPED_TRACE(layout == Layout::kPack ? "Pack" : "Perm");
    const auto f = layout == Layout::kPack ? PICK(MulPack) : PICK(MulPerm);
    const auto fi = layout == Layout::kPack ? PICK(MulPack, _I) : PICK(MulPerm, _I);
    Guarded<T> d(len, offd), in(len, off2), d1(len, off1), d2(len, off2);
    std::memcpy(in.data(), b.data(), len * sizeof(T));
    std::memcpy(d1.data(), a.data(), len * sizeof(T));
    std::memcpy(d2.data(), b.data(), len * sizeof(T));
    ASSERT_EQ(f(a.data(), b.data(), d.data(), n), vekStatusOk);
    ASSERT_TRUE(is_product(layout, false, a.data(), b.data(), d.data(), n));
    ASSERT_TRUE(d.guards_intact() && a.unchanged() && b.unchanged());
    ASSERT_EQ(fi(a.data(), in.data(), n), vekStatusOk);
    ASSERT_EQ(f(d1.data(), b.data(), d1.data(), n), vekStatusOk);
    ASSERT_EQ(f(a.data(), d2.data(), d2.data(), n), vekStatusOk);
    ASSERT_TRUE(same_bytes(in.data(), d.data(), len) && in.guards_intact()) << "in place";
    ASSERT_TRUE(same_bytes(d1.data(), d.data(), len) && d1.guards_intact()) << "pDst == pSrc1";
    ASSERT_TRUE(same_bytes(d2.data(), d.data(), len) && d2.guards_intact()) << "pDst == pSrc2";
  }
  Guarded<T> c(len, offd), self(len, off1);
  std::memcpy(c.data(), b.data(), len * sizeof(T));
  std::memcpy(self.data(), a.data(), len * sizeof(T));
  ASSERT_EQ(PICK(MulPackConj, _I)(a.data(), c.data(), n), vekStatusOk);
  ASSERT_TRUE(is_product(Layout::kPack, true, b.data(), a.data(), c.data(), n)) << "PackConj";
  ASSERT_TRUE(c.guards_intact() && a.unchanged());
  // A spectrum times its own conjugate: |X[k]|^2 with imaginary parts exactly 0.
  ASSERT_EQ(PICK(MulPackConj, _I)(self.data(), self.data(), n), vekStatusOk);
  ASSERT_TRUE(is_product(Layout::kPack, true, a.data(), a.data(), self.data(), n));
  for (const LC& z : expand_ref(Layout::kPack, self.data(), n)) ASSERT_EQ(z.imag(), 0);
}

TYPED_TEST(Spectrum, ProductsMatchTheComplexProductsOfTheExpandedSpectra) {
  std::mt19937_64 rng(5);
  for (int n : spectrum_lengths()) {
    SCOPED_TRACE(::testing::Message() << "N " << n);
    check_products<TypeParam>(n, rng);
  }
}

// Long vectors whose destination is neither source may be written with non-temporal stores
// when they exceed the (steered) cache size: same results either way.
TYPED_TEST(Spectrum, LongProductsWithAndWithoutStreamingStores) {
  const int saved = vekSetMaxCacheSizeB(65536);
  std::mt19937_64 rng(6);
  for (int n : {600000, 600001}) {
    SCOPED_TRACE(::testing::Message() << "N " << n);
    check_products<TypeParam>(n, rng);
  }
  vekSetMaxCacheSizeB(saved);
}

// The examples of the layouts: N = 4 in Pack and Perm, N = 3, N = 2 and N = 1.
TYPED_TEST(Spectrum, SmallSpectraByHand) {
  using T = TypeParam;
  struct Row {
    VekStatus (*f)(const T*, const T*, T*, int);
    std::vector<T> a, b, want;
  };
  const Row rows[] = {
      {PICK(MulPack), {1, 2, 3, 4}, {5, 6, 7, 8}, {5, -9, 32, 32}},
      {PICK(MulPerm), {1, 4, 2, 3}, {5, 8, 6, 7}, {5, 32, -9, 32}},
      {PICK(MulPack), {1, 2, 3}, {5, 6, 7}, {5, -9, 32}},
      {PICK(MulPerm), {1, 2, 3}, {5, 6, 7}, {5, -9, 32}},
      {PICK(MulPack), {3, -2}, {5, 7}, {15, -14}},
      {PICK(MulPerm), {3, -2}, {5, 7}, {15, -14}},
      {PICK(MulPerm), {-3}, {5}, {-15}},
  };
  for (const Row& r : rows) {
    const int n = static_cast<int>(r.a.size());
    Guarded<T> d(r.a.size());
    ASSERT_EQ(r.f(r.a.data(), r.b.data(), d.data(), n), vekStatusOk);
    EXPECT_TRUE(same_bytes(d.data(), r.want.data(), r.a.size())) << "N " << n;
  }
}

// Expansion of Pack, Perm and CCS copies exactly; the CCS imaginary slots of R0 and R(N/2) are
// not read.
TYPED_TEST(Spectrum, ExpansionIsTheConjugateSymmetricSpectrum) {
  using T = TypeParam;
  using C = std::conditional_t<std::is_same_v<T, float>, Vek32fc, Vek64fc>;
  std::mt19937_64 rng(8);
  const std::pair<Layout, VekStatus (*)(const T*, C*, int)> ex[] = {{Layout::kPack, PICK(ConjPack)},
                                                                    {Layout::kPerm, PICK(ConjPerm)},
                                                                    {Layout::kCcs, PICK(ConjCCS)}};
  for (int n : spectrum_lengths()) {
    const auto len = static_cast<size_t>(n);
    for (const auto& [layout, f] : ex) {
      SCOPED_TRACE(::testing::Message() << "N " << n << ", layout " << static_cast<int>(layout));
      const size_t slen = layout == Layout::kCcs ? len + 2 - len % 2 : len;
      Guarded<T> s(slen, len % 16 * sizeof(T));
      fill_spectrum(s.data(), slen, rng);
      if (layout == Layout::kCcs) {
        s[1] = 9;
        if (n % 2 == 0) s[slen - 1] = 9;
      }
      s.remember();
      Guarded<C> d(len, len * 3 % 8 * sizeof(T));
      ASSERT_EQ(f(s.data(), d.data(), n), vekStatusOk);
      const std::vector<LC> want = expand_ref(layout, s.data(), n);
      for (size_t k = 0; k < len; ++k) {
        const T wre = static_cast<T>(want[k].real()), wim = static_cast<T>(want[k].imag());
        ASSERT_TRUE(same_bytes(&d[k].re, &wre, 1) && same_bytes(&d[k].im, &wim, 1))
            << "X[" << k << "] is (" << d[k].re << ", " << d[k].im << ")";
      }
      ASSERT_TRUE(d.guards_intact() && s.unchanged());
    }
  }
}

// ---- Conj and ConjFlip -----------------------------------------------------------------------

// -(-32768) saturates to 32767; floating-point negation flips the sign bit (NaN, -0 included).
template <class E>
E conj_ref(E x) {
  if constexpr (std::is_same_v<E, Vek16sc>) {
    x.im = x.im == INT16_MIN ? INT16_MAX : static_cast<Vek16s>(-x.im);
  } else {
    x.im = -x.im;
  }
  return x;
}

// Out of place, in place, ConjFlip out of place and on one vector given twice, at every length.
template <class E>
void check_conj(VekStatus (*conj)(const E*, E*, int), VekStatus (*conj_i)(E*, int),
                VekStatus (*flip)(const E*, E*, int)) {
  constexpr size_t kPart = sizeof(E) / 2;
  std::mt19937_64 rng(9);
  for (int n : spectrum_lengths()) {
    SCOPED_TRACE(::testing::Message() << "len " << n);
    const auto len = static_cast<size_t>(n);
    Guarded<E> s(len, len % 32 * kPart);
    // Random bit patterns: NaNs, infinities, -0 and the most negative integer all occur.
    veks_test::fill_bytes(s.data(), len * sizeof(E), rng());
    if constexpr (std::is_same_v<E, Vek16sc>) s[len / 2].im = INT16_MIN;
    s.remember();
    std::vector<E> want_c(len), want_f(len);
    for (size_t i = 0; i < len; ++i) {
      want_c[i] = conj_ref(s[i]);
      want_f[i] = conj_ref(s[len - 1 - i]);
    }
    const size_t od = len * 7 % 32 * kPart;
    Guarded<E> d(len, od), f(len, od), ci(len, od), fi(len, od);
    std::memcpy(ci.data(), s.data(), len * sizeof(E));
    std::memcpy(fi.data(), s.data(), len * sizeof(E));
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
