// Add, subtract, multiply, their constant forms, multiply-accumulate, square and absolute value,
// through the exports, against references written here: exact wide-integer results scaled
// with ties to even and saturated, for every scale factor from -40 to 70; floats against the
// same operation in the element precision or long double.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdint>
#include <limits>
#include <vector>

#include "support/exact.hpp"
#include "support/guarded.hpp"
#include "veks.h"

namespace {

using veks_test::edge_and_random;
using veks_test::Guarded;
using veks_test::hi_of;
using veks_test::i128;
using veks_test::lo_of;
using veks_test::scaled;

constexpr size_t kN = 77;  // a full vector body and a masked tail for every lane width

// The expected stored value of an exact result r of an _Sfs member with the given zero-fill
// bound; members without a scale factor (kNoScale) saturate.
constexpr int kNoScale = -1;
template <class TD>
i128 expect(i128 r, int sf, int bound) {
  return bound != kNoScale && sf > bound ? 0 : scaled(r, sf, lo_of<TD>(), hi_of<TD>());
}
int first_sf(int bound) { return bound == kNoScale ? 0 : -40; }
int last_sf(int bound) { return bound == kNoScale ? 0 : 70; }

// Vector-vector members: out of place against the reference, in place against out of place.
template <class TA, class TB, class TD, class F, class FI, class Exact>
void sweep_binary(const char* name, F fn, FI ifn, Exact exact, int bound) {
  SCOPED_TRACE(name);
  const auto a = edge_and_random<TA>(kN, 1);
  const auto b = edge_and_random<TB>(kN, 2);
  for (int sf = first_sf(bound); sf <= last_sf(bound); ++sf) {
    Guarded<TD> d(kN, 2 * sizeof(TD));
    ASSERT_EQ(fn(a.data(), b.data(), d.data(), int(kN), sf), vekStatusOk);
    for (size_t i = 0; i < kN; ++i)
      ASSERT_EQ(i128(d[i]), expect<TD>(exact(a[i], b[i]), sf, bound))
          << "sf=" << sf << " a=" << +a[i] << " b=" << +b[i];
    ASSERT_TRUE(d.guards_intact());
    if constexpr (!std::is_same_v<FI, std::nullptr_t>) {
      std::vector<TD> in(b.begin(), b.end());
      ASSERT_EQ(ifn(a.data(), in.data(), int(kN), sf), vekStatusOk);
      for (size_t i = 0; i < kN; ++i) ASSERT_EQ(in[i], d[i]) << "in place, sf=" << sf;
    }
  }
}

// Constant members, for constants from the type's extremes, 0, 1 and random values.
template <class T, class F, class FI, class Exact>
void sweep_const(const char* name, F fn, FI ifn, Exact exact, int bound) {
  SCOPED_TRACE(name);
  const auto a = edge_and_random<T>(kN, 3), vals = edge_and_random<T>(10, 4);
  for (T val : vals) {
    for (int sf = first_sf(bound); sf <= last_sf(bound); ++sf) {
      Guarded<T> d(kN, 2 * sizeof(T));
      ASSERT_EQ(fn(a.data(), val, d.data(), int(kN), sf), vekStatusOk);
      for (size_t i = 0; i < kN; ++i)
        ASSERT_EQ(i128(d[i]), expect<T>(exact(a[i], val), sf, bound))
            << "sf=" << sf << " x=" << +a[i] << " val=" << +val;
      ASSERT_TRUE(d.guards_intact());
      std::vector<T> in = a;
      ASSERT_EQ(ifn(val, in.data(), int(kN), sf), vekStatusOk);
      for (size_t i = 0; i < kN; ++i) ASSERT_EQ(in[i], d[i]) << "in place, sf=" << sf;
    }
  }
}

i128 add(i128 x, i128 y) { return x + y; }
i128 sub(i128 x, i128 y) { return x - y; }   // SubC: x - val
i128 rsub(i128 x, i128 y) { return y - x; }  // Sub: pSrc2 - pSrc1; SubCRev: val - x
i128 mul(i128 x, i128 y) { return x * y; }

TEST(ScaledIntegers, VectorFormsMatchExactResultsForEveryScaleFactor) {
  sweep_binary<Vek8u, Vek8u, Vek8u>("Add_8u", veksAdd_8u_Sfs, veksAdd_8u_ISfs, add, 9);
  sweep_binary<Vek16s, Vek16s, Vek16s>("Add_16s", veksAdd_16s_Sfs, veksAdd_16s_ISfs, add, 16);
  sweep_binary<Vek16u, Vek16u, Vek16u>("Add_16u", veksAdd_16u_Sfs, veksAdd_16u_ISfs, add, 17);
  sweep_binary<Vek32s, Vek32s, Vek32s>("Add_32s", veksAdd_32s_Sfs, veksAdd_32s_ISfs, add, 32);
  sweep_binary<Vek64s, Vek64s, Vek64s>("Add_64s", veksAdd_64s_Sfs, nullptr, add, 64);
  sweep_binary<Vek8u, Vek8u, Vek8u>("Sub_8u", veksSub_8u_Sfs, veksSub_8u_ISfs, rsub, 9);
  sweep_binary<Vek16s, Vek16s, Vek16s>("Sub_16s", veksSub_16s_Sfs, veksSub_16s_ISfs, rsub, 16);
  sweep_binary<Vek16u, Vek16u, Vek16u>("Sub_16u", veksSub_16u_Sfs, veksSub_16u_ISfs, rsub, 16);
  sweep_binary<Vek32s, Vek32s, Vek32s>("Sub_32s", veksSub_32s_Sfs, veksSub_32s_ISfs, rsub, 32);
  sweep_binary<Vek8u, Vek8u, Vek8u>("Mul_8u", veksMul_8u_Sfs, veksMul_8u_ISfs, mul, 16);
  sweep_binary<Vek16s, Vek16s, Vek16s>("Mul_16s", veksMul_16s_Sfs, veksMul_16s_ISfs, mul, 30);
  sweep_binary<Vek16u, Vek16u, Vek16u>("Mul_16u", veksMul_16u_Sfs, veksMul_16u_ISfs, mul, 32);
  sweep_binary<Vek32s, Vek32s, Vek32s>("Mul_32s", veksMul_32s_Sfs, veksMul_32s_ISfs, mul, 62);
  sweep_binary<Vek16s, Vek16s, Vek32s>("Mul_16s32s", veksMul_16s32s_Sfs, nullptr, mul, 30);
  sweep_binary<Vek16u, Vek16s, Vek16s>("Mul_16u16s", veksMul_16u16s_Sfs, nullptr, mul, 32);
  // Without a scale factor: exact and saturated.
  const auto sf0 = [](auto f) {
    return [f](auto a, auto b, auto d, int n, int) { return f(a, b, d, n); };
  };
  const auto sf0i = [](auto f) { return [f](auto a, auto d, int n, int) { return f(a, d, n); }; };
  sweep_binary<Vek16s, Vek16s, Vek16s>("Add_16s", sf0(veksAdd_16s), sf0i(veksAdd_16s_I), add,
                                       kNoScale);
  sweep_binary<Vek16u, Vek16u, Vek16u>("Add_16u", sf0(veksAdd_16u), nullptr, add, kNoScale);
  sweep_binary<Vek32u, Vek32u, Vek32u>("Add_32u", sf0(veksAdd_32u), nullptr, add, kNoScale);
  sweep_binary<Vek8u, Vek8u, Vek16u>("Add_8u16u", sf0(veksAdd_8u16u), nullptr, add, kNoScale);
  sweep_binary<Vek16s, Vek32s, Vek32s>("Add_16s32s_I", sf0([](auto a, auto b, auto d, int n) {
                                         std::copy(b, b + n, d);
                                         return veksAdd_16s32s_I(a, d, n);
                                       }),
                                       nullptr, add, kNoScale);
  sweep_binary<Vek16s, Vek16s, Vek16s>("Sub_16s", sf0(veksSub_16s), sf0i(veksSub_16s_I), rsub,
                                       kNoScale);
  sweep_binary<Vek16s, Vek16s, Vek16s>("Mul_16s", sf0(veksMul_16s), sf0i(veksMul_16s_I), mul,
                                       kNoScale);
  sweep_binary<Vek8u, Vek8u, Vek16u>("Mul_8u16u", sf0(veksMul_8u16u), nullptr, mul, kNoScale);
}

TEST(ScaledIntegers, ConstantFormsMatchExactResultsForEveryScaleFactor) {
  // The 8-bit constant forms zero-fill from scale factor 9 although 255 + 255 rounds to 1 there.
  sweep_const<Vek8u>("AddC_8u", veksAddC_8u_Sfs, veksAddC_8u_ISfs, add, 8);
  sweep_const<Vek16s>("AddC_16s", veksAddC_16s_Sfs, veksAddC_16s_ISfs, add, 16);
  sweep_const<Vek16u>("AddC_16u", veksAddC_16u_Sfs, veksAddC_16u_ISfs, add, 17);
  sweep_const<Vek32s>("AddC_32s", veksAddC_32s_Sfs, veksAddC_32s_ISfs, add, 32);
  sweep_const<Vek8u>("SubC_8u", veksSubC_8u_Sfs, veksSubC_8u_ISfs, sub, 8);
  sweep_const<Vek16s>("SubC_16s", veksSubC_16s_Sfs, veksSubC_16s_ISfs, sub, 16);
  sweep_const<Vek16u>("SubC_16u", veksSubC_16u_Sfs, veksSubC_16u_ISfs, sub, 16);
  sweep_const<Vek32s>("SubC_32s", veksSubC_32s_Sfs, veksSubC_32s_ISfs, sub, 32);
  sweep_const<Vek8u>("SubCRev_8u", veksSubCRev_8u_Sfs, veksSubCRev_8u_ISfs, rsub, 8);
  sweep_const<Vek16s>("SubCRev_16s", veksSubCRev_16s_Sfs, veksSubCRev_16s_ISfs, rsub, 16);
  sweep_const<Vek16u>("SubCRev_16u", veksSubCRev_16u_Sfs, veksSubCRev_16u_ISfs, rsub, 16);
  sweep_const<Vek32s>("SubCRev_32s", veksSubCRev_32s_Sfs, veksSubCRev_32s_ISfs, rsub, 32);
  sweep_const<Vek8u>("MulC_8u", veksMulC_8u_Sfs, veksMulC_8u_ISfs, mul, 16);
  sweep_const<Vek16s>("MulC_16s", veksMulC_16s_Sfs, veksMulC_16s_ISfs, mul, 30);
  sweep_const<Vek16u>("MulC_16u", veksMulC_16u_Sfs, veksMulC_16u_ISfs, mul, 32);
  sweep_const<Vek32s>("MulC_32s", veksMulC_32s_Sfs, veksMulC_32s_ISfs, mul, 62);
  // 64-bit members: out of place only, or in place only.
  const auto to_i = [](auto f) {
    return [f](auto val, auto* d, int n, int sf) {
      std::vector<std::remove_pointer_t<decltype(d)>> copy(d, d + n);
      return f(copy.data(), val, d, n, sf);
    };
  };
  const auto from_i = [](auto fi) {
    return [fi](auto* s, auto val, auto* d, int n, int sf) {
      std::copy(s, s + n, d);
      return fi(val, d, n, sf);
    };
  };
  sweep_const<Vek64s>("AddC_64s", veksAddC_64s_Sfs, to_i(veksAddC_64s_Sfs), add, 64);
  sweep_const<Vek64u>("AddC_64u", veksAddC_64u_Sfs, to_i(veksAddC_64u_Sfs), add, 65);
  sweep_const<Vek64s>("MulC_64s", from_i(veksMulC_64s_ISfs), veksMulC_64s_ISfs, mul, 126);
  const auto sf0 = [](auto fi) {
    return [fi](auto val, auto* d, int n, int) { return fi(val, d, n); };
  };
  sweep_const<Vek16s>("AddC_16s_I", from_i(sf0(veksAddC_16s_I)), sf0(veksAddC_16s_I), add,
                      kNoScale);
  sweep_const<Vek16s>("SubC_16s_I", from_i(sf0(veksSubC_16s_I)), sf0(veksSubC_16s_I), sub,
                      kNoScale);
  sweep_const<Vek16s>("MulC_16s_I", from_i(sf0(veksMulC_16s_I)), sf0(veksMulC_16s_I), mul,
                      kNoScale);
}

// Complex integers: each component exact, then scaled and saturated on its own.
template <class C, class F, class Exact>
void sweep_complex(const char* name, F fn, Exact exact, int bound) {
  SCOPED_TRACE(name);
  using R = decltype(C{}.re);
  const auto ra = edge_and_random<R>(2 * kN, 5), rb = edge_and_random<R>(2 * kN, 6);
  std::vector<C> a(kN), b(kN);
  for (size_t i = 0; i < kN; ++i) {
    a[i] = {ra[2 * i], ra[2 * i + 1]};
    b[i] = {rb[(2 * i + 7) % (2 * kN)], rb[2 * i + 1]};
  }
  b[0] = {std::numeric_limits<R>::min(), std::numeric_limits<R>::min()};
  a[0] = b[0];  // (min, min) * (min, min): an imaginary part of 2^(2w-1)
  for (int sf = -40; sf <= 70; ++sf) {
    Guarded<C> d(kN, 4 * sizeof(R));
    ASSERT_EQ(fn(a.data(), b.data(), d.data(), int(kN), sf), vekStatusOk);
    for (size_t i = 0; i < kN; ++i) {
      const auto [re, im] = exact(a[i], b[i]);
      ASSERT_EQ(i128(d[i].re), expect<R>(re, sf, bound)) << "sf=" << sf << " i=" << i;
      ASSERT_EQ(i128(d[i].im), expect<R>(im, sf, bound)) << "sf=" << sf << " i=" << i;
    }
    ASSERT_TRUE(d.guards_intact());
  }
}

template <class C>
std::pair<i128, i128> cmul(C x, C y) {
  return {i128(x.re) * y.re - i128(x.im) * y.im, i128(x.re) * y.im + i128(x.im) * y.re};
}

TEST(ScaledIntegers, ComplexMembersScaleEachComponent) {
  const auto cadd = [](auto x, auto y) {
    return std::pair<i128, i128>{x.re + i128(y.re), x.im + i128(y.im)};
  };
  const auto csub = [](auto x, auto y) {
    return std::pair<i128, i128>{y.re - i128(x.re), y.im - i128(x.im)};
  };
  const auto inplace = [](auto fi) {
    return [fi](auto* a, auto* b, auto* d, int n, int sf) {
      std::copy(b, b + n, d);
      return fi(a, d, n, sf);
    };
  };
  // The constant forms with the first element of the second vector as the constant.
  const auto as_const = [](auto fc) {
    return [fc](auto* a, auto* b, auto* d, int n, int sf) {
      std::vector<std::remove_const_t<std::remove_pointer_t<decltype(b)>>> c(b, b + n);
      for (auto& v : c) v = b[0];
      return fc(a, b[0], d, n, sf);
    };
  };
  sweep_complex<Vek16sc>("Add_16sc", veksAdd_16sc_Sfs, cadd, 16);
  sweep_complex<Vek16sc>("Add_16sc_I", inplace(veksAdd_16sc_ISfs), cadd, 16);
  sweep_complex<Vek32sc>("Add_32sc", veksAdd_32sc_Sfs, cadd, 32);
  sweep_complex<Vek16sc>("Sub_16sc", veksSub_16sc_Sfs, csub, 16);
  sweep_complex<Vek32sc>("Sub_32sc_I", inplace(veksSub_32sc_ISfs), csub, 32);
  sweep_complex<Vek16sc>("Mul_16sc", veksMul_16sc_Sfs, cmul<Vek16sc>, 31);
  sweep_complex<Vek16sc>("Mul_16sc_I", inplace(veksMul_16sc_ISfs), cmul<Vek16sc>, 31);
  sweep_complex<Vek32sc>("Mul_32sc", veksMul_32sc_Sfs, cmul<Vek32sc>, 63);
  sweep_complex<Vek32sc>("Mul_32sc_I", inplace(veksMul_32sc_ISfs), cmul<Vek32sc>, 63);
  // MulC with the constant (min, min): the overflow-prone case of the 32-bit sums.
  sweep_complex<Vek16sc>(
      "MulC_16sc", as_const(veksMulC_16sc_Sfs),
      [](auto x, auto) {
        return cmul(x, Vek16sc{-32768, -32768});
      },
      31);
  sweep_complex<Vek32sc>(
      "MulC_32sc", as_const(veksMulC_32sc_Sfs),
      [](auto x, auto) {
        return cmul(x, Vek32sc{INT32_MIN, INT32_MIN});
      },
      63);
  sweep_complex<Vek16sc>(
      "AddC_16sc", as_const(veksAddC_16sc_Sfs),
      [&](auto x, auto) {
        return cadd(x, Vek16sc{-32768, -32768});
      },
      16);
  sweep_complex<Vek16sc>(
      "SubCRev_16sc", as_const(veksSubCRev_16sc_Sfs),
      [&](auto x, auto) {
        return csub(x, Vek16sc{-32768, -32768});
      },
      16);
  sweep_complex<Vek32sc>(
      "SubC_32sc", as_const(veksSubC_32sc_Sfs),
      [&](auto x, auto) {
        return std::pair<i128, i128>{x.re - i128(INT32_MIN), x.im - i128(INT32_MIN)};
      },
      32);
}

TEST(ScaledIntegers, AccumulateSquareAndAbs) {
  const auto a = edge_and_random<Vek16s>(kN, 7), b = edge_and_random<Vek16s>(kN, 8);
  const auto c16 = edge_and_random<Vek16s>(kN, 9);
  const auto c32 = edge_and_random<Vek32s>(kN, 10), a32 = edge_and_random<Vek32s>(kN, 11);
  for (int sf = -40; sf <= 70; ++sf) {
    std::vector<Vek16s> d16 = c16, sq(kN);
    std::vector<Vek32s> d32 = c32, p32 = c32;
    ASSERT_EQ(veksAddProduct_16s_Sfs(a.data(), b.data(), d16.data(), int(kN), sf), 0);
    ASSERT_EQ(veksAddProduct_16s32s_Sfs(a.data(), b.data(), d32.data(), int(kN), sf), 0);
    ASSERT_EQ(veksAddProduct_32s_Sfs(a32.data(), c32.data(), p32.data(), int(kN), sf), 0);
    ASSERT_EQ(veksSqr_16s_Sfs(a.data(), sq.data(), int(kN), sf), 0);
    for (size_t i = 0; i < kN; ++i) {
      ASSERT_EQ(d16[i], expect<Vek16s>(c16[i] + i128(a[i]) * b[i], sf, 31)) << sf;
      ASSERT_EQ(d32[i], expect<Vek32s>(c32[i] + i128(a[i]) * b[i], sf, 32)) << sf;
      ASSERT_EQ(p32[i], expect<Vek32s>(c32[i] + i128(a32[i]) * c32[i], sf, 62)) << sf;
      ASSERT_EQ(sq[i], expect<Vek16s>(i128(a[i]) * a[i], sf, 30)) << sf;
    }
    std::vector<Vek16sc> z(kN), zs(kN);
    for (size_t i = 0; i < kN; ++i) z[i] = {a[i], b[i]};
    zs = z;
    ASSERT_EQ(veksSqr_16sc_ISfs(zs.data(), int(kN), sf), 0);
    for (size_t i = 0; i < kN; ++i) {
      const auto [re, im] = cmul(z[i], z[i]);
      ASSERT_EQ(zs[i].re, expect<Vek16s>(re, sf, 31));
      ASSERT_EQ(zs[i].im, expect<Vek16s>(im, sf, 31));
    }
  }
  const auto u = edge_and_random<Vek16u>(kN, 12);
  std::vector<Vek16u> su(kN);
  ASSERT_EQ(veksSqr_16u_Sfs(u.data(), su.data(), int(kN), 17), 0);
  for (size_t i = 0; i < kN; ++i) EXPECT_EQ(su[i], expect<Vek16u>(i128(u[i]) * u[i], 17, 32));
  // Abs saturates the minimum.
  std::vector<Vek16s> abs16(kN);
  std::vector<Vek32s> abs32 = a32;
  ASSERT_EQ(veksAbs_16s(a.data(), abs16.data(), int(kN)), 0);
  ASSERT_EQ(veksAbs_32s_I(abs32.data(), int(kN)), 0);
  for (size_t i = 0; i < kN; ++i) {
    EXPECT_EQ(abs16[i], a[i] == INT16_MIN ? INT16_MAX : std::abs(a[i]));
    EXPECT_EQ(abs32[i], a32[i] == INT32_MIN ? INT32_MAX : std::abs(a32[i]));
  }
}

// Every length from 1 to 130 (every vector tail) at misaligned addresses, for the members with
// their own 16-bit and complex kernels, at the scale factors those kernels special-case.
TEST(ScaledIntegers, EveryLengthAndMisalignment) {
  const auto a = edge_and_random<Vek16s>(260, 16), b = edge_and_random<Vek16s>(260, 17);
  for (size_t n = 1; n <= 130; ++n) {
    for (int sf : {-20, -3, 0, 1, 2, 5}) {
      Guarded<Vek16s> add(n, 2), mul(n, 6), subc(n, 10);
      Guarded<Vek16sc> cm(n, 4);
      ASSERT_EQ(veksAdd_16s_Sfs(a.data(), b.data(), add.data(), int(n), sf), 0);
      ASSERT_EQ(veksMul_16s_Sfs(a.data(), b.data(), mul.data(), int(n), sf), 0);
      ASSERT_EQ(veksSubC_16s_Sfs(a.data(), b[3], subc.data(), int(n), sf), 0);
      const auto* za = reinterpret_cast<const Vek16sc*>(a.data());
      const auto* zb = reinterpret_cast<const Vek16sc*>(b.data());
      ASSERT_EQ(veksMul_16sc_Sfs(za, zb, cm.data(), int(n), sf), 0);
      for (size_t i = 0; i < n; ++i) {
        ASSERT_EQ(add[i], expect<Vek16s>(i128(a[i]) + b[i], sf, 16)) << n << " " << sf;
        ASSERT_EQ(mul[i], expect<Vek16s>(i128(a[i]) * b[i], sf, 30)) << n << " " << sf;
        ASSERT_EQ(subc[i], expect<Vek16s>(i128(a[i]) - b[3], sf, 16)) << n << " " << sf;
        const auto [re, im] = cmul(za[i], zb[i]);
        ASSERT_EQ(cm[i].re, expect<Vek16s>(re, sf, 31)) << n << " " << sf;
        ASSERT_EQ(cm[i].im, expect<Vek16s>(im, sf, 31)) << n << " " << sf;
      }
      ASSERT_TRUE(add.guards_intact() && mul.guards_intact() && subc.guards_intact() &&
                  cm.guards_intact());
    }
  }
}

TEST(ScaledIntegers, DocumentedExamples) {
  Vek16s d[2];
  const Vek16s x[2] = {16384, 3}, y[2] = {2, 1};
  veksMul_16s_Sfs(x, y, d, 2, 0);
  EXPECT_EQ(d[0], 32767);
  veksMul_16s_Sfs(x, y, d, 2, 16);
  EXPECT_EQ(d[0], 0);  // 0.5 goes to even
  veksMul_16s_Sfs(x, y, d, 2, 1);
  EXPECT_EQ(d[1], 2);  // 1.5 goes to even
  const Vek8u m[1] = {255};
  Vek8u e[1];
  veksAdd_8u_Sfs(m, m, e, 1, 9);
  EXPECT_EQ(e[0], 1);
  veksAddC_8u_Sfs(m, 255, e, 1, 9);
  EXPECT_EQ(e[0], 0);
}

// Floating point: real members equal the operation in the element precision bit for bit.
template <class T>
void check_real_floats() {
  for (size_t n = 1; n <= 130; ++n) {
    std::vector<T> a(n), b(n);
    for (size_t i = 0; i < n; ++i) {
      a[i] = static_cast<T>(std::ldexp(std::sin(1.3 * double(i + n)), int(i % 40) - 20));
      b[i] = static_cast<T>(std::cos(0.7 * double(i)) * 3);
    }
    const T c = b[n / 2];
    Guarded<T> add(n, sizeof(T)), sub(n, sizeof(T)), mul(n, 3 * sizeof(T)), addc(n), subc(n),
        rsubc(n), mulc(n), sqr(n), abs(n);
    std::vector<T> acc = b, accc = b;
    if constexpr (std::is_same_v<T, float>) {
      veksAdd_32f(a.data(), b.data(), add.data(), int(n));
      veksSub_32f(a.data(), b.data(), sub.data(), int(n));
      veksMul_32f(a.data(), b.data(), mul.data(), int(n));
      veksAddC_32f(a.data(), c, addc.data(), int(n));
      veksSubC_32f(a.data(), c, subc.data(), int(n));
      veksSubCRev_32f(a.data(), c, rsubc.data(), int(n));
      veksMulC_32f(a.data(), c, mulc.data(), int(n));
      veksSqr_32f(a.data(), sqr.data(), int(n));
      veksAbs_32f(a.data(), abs.data(), int(n));
      veksAddProduct_32f(a.data(), b.data(), acc.data(), int(n));
      veksAddProductC_32f(a.data(), c, accc.data(), int(n));
    } else {
      veksAdd_64f(a.data(), b.data(), add.data(), int(n));
      veksSub_64f(a.data(), b.data(), sub.data(), int(n));
      veksMul_64f(a.data(), b.data(), mul.data(), int(n));
      veksAddC_64f(a.data(), c, addc.data(), int(n));
      veksSubC_64f(a.data(), c, subc.data(), int(n));
      veksSubCRev_64f(a.data(), c, rsubc.data(), int(n));
      veksMulC_64f(a.data(), c, mulc.data(), int(n));
      veksSqr_64f(a.data(), sqr.data(), int(n));
      veksAbs_64f(a.data(), abs.data(), int(n));
      veksAddProduct_64f(a.data(), b.data(), acc.data(), int(n));
      accc = acc;  // no 64f AddProductC: repeat the vector form's check
    }
    for (size_t i = 0; i < n; ++i) {
      ASSERT_EQ(add[i], a[i] + b[i]);
      ASSERT_EQ(sub[i], b[i] - a[i]);
      ASSERT_EQ(mul[i], a[i] * b[i]);
      ASSERT_EQ(addc[i], a[i] + c);
      ASSERT_EQ(subc[i], a[i] - c);
      ASSERT_EQ(rsubc[i], c - a[i]);
      ASSERT_EQ(mulc[i], a[i] * c);
      ASSERT_EQ(sqr[i], a[i] * a[i]);
      ASSERT_EQ(abs[i], std::fabs(a[i]));
      const T p = a[i] * b[i];
      ASSERT_EQ(acc[i], b[i] + p);
      if constexpr (std::is_same_v<T, float>) {
        const T pc = a[i] * c;
        ASSERT_EQ(accc[i], b[i] + pc);
      }
    }
    ASSERT_TRUE(add.guards_intact() && mul.guards_intact() && abs.guards_intact());
  }
}

TEST(Floats, RealMembersAreTheIeeeOperationsAtEveryLength) {
  check_real_floats<float>();
  check_real_floats<double>();
  const float s[3] = {-0.0f, -std::numeric_limits<float>::infinity(), std::nanf("")};
  float d[3];
  veksAbs_32f(s, d, 3);
  EXPECT_FALSE(std::signbit(d[0]));
  EXPECT_EQ(d[1], std::numeric_limits<float>::infinity());
  EXPECT_TRUE(std::isnan(d[2]) && !std::signbit(d[2]));
}

// Complex products within 2 ulp of the larger partial product, in and out of place.
template <class C>
void check_complex_floats() {
  using T = decltype(C{}.re);
  const T eps = std::numeric_limits<T>::epsilon();
  for (size_t n = 1; n <= 130; n += 3) {
    std::vector<C> a(n), b(n);
    for (size_t i = 0; i < n; ++i) {
      a[i] = {T(std::sin(double(i) + 0.3)), T(std::cos(2.0 * double(i)))};
      b[i] = {T(std::cos(double(i * n))), T(std::sin(0.5 * double(i)) - 0.25)};
    }
    std::vector<C> mul(n), mulc(n), sqr(n), acc = b, add(n), inpl = b;
    const C c = b[n / 3];
    if constexpr (std::is_same_v<T, float>) {
      veksMul_32fc(a.data(), b.data(), mul.data(), int(n));
      veksMulC_32fc(a.data(), c, mulc.data(), int(n));
      veksSqr_32fc(a.data(), sqr.data(), int(n));
      veksAddProduct_32fc(a.data(), b.data(), acc.data(), int(n));
      veksAdd_32fc(a.data(), b.data(), add.data(), int(n));
      veksMul_32fc_I(a.data(), inpl.data(), int(n));
    } else {
      veksMul_64fc(a.data(), b.data(), mul.data(), int(n));
      veksMulC_64fc(a.data(), c, mulc.data(), int(n));
      veksSqr_64fc(a.data(), sqr.data(), int(n));
      veksAddProduct_64fc(a.data(), b.data(), acc.data(), int(n));
      veksAdd_64fc(a.data(), b.data(), add.data(), int(n));
      veksMul_64fc_I(a.data(), inpl.data(), int(n));
    }
    const auto near = [&](C got, C x, C y, const char* what) {
      using LD = long double;
      const LD re = LD(x.re) * y.re - LD(x.im) * y.im, im = LD(x.re) * y.im + LD(x.im) * y.re;
      const LD scale = std::fabs(LD(x.re) * y.re) + std::fabs(LD(x.im) * y.im) +
                       std::fabs(LD(x.re) * y.im) + std::fabs(LD(x.im) * y.re);
      EXPECT_LE(std::fabs(got.re - re), 2 * eps * scale) << what;
      EXPECT_LE(std::fabs(got.im - im), 2 * eps * scale) << what;
    };
    for (size_t i = 0; i < n; ++i) {
      near(mul[i], a[i], b[i], "Mul");
      near(mulc[i], a[i], c, "MulC");
      near(sqr[i], a[i], a[i], "Sqr");
      ASSERT_EQ(inpl[i].re, mul[i].re);
      ASSERT_EQ(inpl[i].im, mul[i].im);
      ASSERT_EQ(add[i].re, a[i].re + b[i].re);
      ASSERT_EQ(add[i].im, a[i].im + b[i].im);
      const C p = mul[i];
      ASSERT_EQ(acc[i].re, b[i].re + p.re);
      ASSERT_EQ(acc[i].im, b[i].im + p.im);
    }
  }
}

TEST(Floats, ComplexProductsAreAccurateAtEveryLength) {
  check_complex_floats<Vek32fc>();
  check_complex_floats<Vek64fc>();
}

TEST(Floats, MixedMembers) {
  const auto a = edge_and_random<Vek16s>(kN, 13), b = edge_and_random<Vek16s>(kN, 14);
  std::vector<Vek32f> add(kN), sub(kN), mul(kN);
  veksAdd_16s32f(a.data(), b.data(), add.data(), int(kN));
  veksSub_16s32f(a.data(), b.data(), sub.data(), int(kN));
  veksMul_16s32f(a.data(), b.data(), mul.data(), int(kN));
  for (size_t i = 0; i < kN; ++i) {
    EXPECT_EQ(add[i], float(a[i]) + float(b[i]));
    EXPECT_EQ(sub[i], float(b[i]) - float(a[i]));
    EXPECT_EQ(mul[i], float(a[i]) * float(b[i]));
  }
  // Real times complex.
  std::vector<Vek32f> r(kN);
  std::vector<Vek32fc> z(kN), rz(kN);
  for (size_t i = 0; i < kN; ++i) {
    r[i] = float(a[i]) / 7;
    z[i] = {float(b[i]) / 3, float(a[i]) / 5};
  }
  veksMul_32f32fc(r.data(), z.data(), rz.data(), int(kN));
  veksMul_32f32fc_I(r.data(), z.data(), int(kN));
  for (size_t i = 0; i < kN; ++i) {
    EXPECT_EQ(rz[i].re, r[i] * (float(b[i]) / 3));
    EXPECT_EQ(rz[i].im, r[i] * (float(a[i]) / 5));
    EXPECT_EQ(z[i].re, rz[i].re);
  }
}

TEST(Floats, FloatConstantsStoredAsIntegers) {
  const float nan = std::nanf(""), inf = std::numeric_limits<float>::infinity();
  const std::vector<float> s = {1.5f, 2.5f, -2.5f, 40000.0f, -1e9f, nan, inf, -inf, 0.75f, 1e-30f};
  for (int sf : {-200, -20, -3, 0, 1, 5, 40, 300}) {
    for (float val : {1.0f, -3.0f, 0.1f}) {
      std::vector<Vek16s> d(s.size()), low(s.size());
      ASSERT_EQ(veksMulC_32f16s_Sfs(s.data(), val, d.data(), int(s.size()), sf), 0);
      veksMulC_Low_32f16s(s.data(), val, low.data(), int(s.size()));
      for (size_t i = 0; i < s.size(); ++i) {
        const float p = s[i] * val;
        long double want = std::isnan(p) ? -32768 : std::nearbyint(std::ldexp((long double)p, -sf));
        want = std::fmin(std::fmax(want, -32768.0L), 32767.0L);
        ASSERT_EQ(d[i], Vek16s(want)) << "sf=" << sf << " x=" << s[i] << " val=" << val;
        if (sf == 0) {
          ASSERT_EQ(low[i], d[i]);
        }
      }
    }
  }
  // 64-bit integers times a binary64 constant, exactly rounded: val = m * 2^e.
  const auto x = edge_and_random<Vek64s>(kN, 15);
  for (double val : {0.75, -3.0, 1.0 / 3.0, 1e-300, 1e300, 0.0}) {
    for (int sf : {-70, -1, 0, 1, 30, 64, 200}) {
      std::vector<Vek64s> d = x;
      ASSERT_EQ(veksMulC_64f64s_ISfs(val, d.data(), int(kN), sf), 0);
      int e;
      const auto m = static_cast<long long>(std::ldexp(std::frexp(val, &e), 53));
      const long long shift = (long long)sf - (e - 53);
      for (size_t i = 0; i < kN; ++i) {
        const i128 r = i128(x[i]) * m;
        const i128 want = shift > 126    ? 0
                          : shift < -126 ? (r > 0   ? INT64_MAX
                                            : r < 0 ? INT64_MIN
                                                    : 0)
                                         : scaled(r, int(shift), INT64_MIN, INT64_MAX);
        ASSERT_EQ(i128(d[i]), want) << "val=" << val << " sf=" << sf << " x=" << x[i];
      }
    }
  }
}

TEST(Checks, PointersInOrderThenLengthAndNothingWritten) {
  Guarded<Vek16s> d(8);
  const Vek16s a[8] = {};
  EXPECT_EQ(veksAdd_16s_Sfs(nullptr, a, d.data(), 0, 0), vekStatusNullPtr);
  EXPECT_EQ(veksAdd_16s_Sfs(a, nullptr, d.data(), 8, 0), vekStatusNullPtr);
  EXPECT_EQ(veksAdd_16s_Sfs(a, a, nullptr, 8, 0), vekStatusNullPtr);
  EXPECT_EQ(veksAdd_16s_Sfs(a, a, d.data(), 0, 0), vekStatusBadSize);
  EXPECT_EQ(veksMulC_16s_Sfs(a, 0, d.data(), -1, 0), vekStatusBadSize);  // before the zero-fill
  EXPECT_EQ(veksMulC_16s_ISfs(1, d.data(), 0, 0), vekStatusBadSize);     // before the copy
  EXPECT_EQ(veksAddProduct_16s_Sfs(a, a, nullptr, 8, 0), vekStatusNullPtr);
  EXPECT_EQ(veksSqr_32f(nullptr, nullptr, 4), vekStatusNullPtr);
  EXPECT_EQ(veksMul_32f32fc(nullptr, nullptr, nullptr, 0), vekStatusNullPtr);
  EXPECT_EQ(veksMulC_64f64s_ISfs(1.0, reinterpret_cast<Vek64s*>(d.data()), 0, 0), vekStatusBadSize);
  EXPECT_TRUE(d.unchanged());
}

}  // namespace
