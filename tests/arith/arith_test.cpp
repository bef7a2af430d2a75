// Add, subtract, multiply, their constant forms, multiply-accumulate, square and absolute value
// against references written here: exact wide-integer results scaled with ties to even and
// saturated, for every scale factor from -40 to 70; floats against the same operation in the
// element precision or long double. The argument checks of every arithmetic export.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/checks.hpp"
#include "support/guarded.hpp"
#include "support/refs.hpp"

namespace {

using veks_test::edge_and_random;
using veks_test::Guarded;
using veks_test::i128;

constexpr size_t kN = 77;  // a full vector body and a masked tail for every lane width

// The stored value of an exact result r of an _Sfs member with zero-fill bound `bound`; members
// without a scale factor (kNoScale) saturate.
constexpr int kNoScale = -1;
template <class TD>
i128 expect(i128 r, int sf, int bound) {
  return bound != kNoScale && sf > bound ? 0 : veks_test::scaled<TD>(r, sf);
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
  const auto a = edge_and_random<T>(kN, 3);
  for (T val : edge_and_random<T>(10, 4))
    for (int sf = first_sf(bound); sf <= last_sf(bound); ++sf) {
      Guarded<T> d(kN, 2 * sizeof(T));
      std::vector<T> in = a;
      ASSERT_EQ(fn(a.data(), val, d.data(), int(kN), sf), vekStatusOk);
      ASSERT_EQ(ifn(val, in.data(), int(kN), sf), vekStatusOk);
      for (size_t i = 0; i < kN; ++i)
        ASSERT_TRUE(i128(d[i]) == expect<T>(exact(a[i], val), sf, bound) && in[i] == d[i])
            << "sf=" << sf << " x=" << +a[i] << " val=" << +val << " in place " << +in[i];
      ASSERT_TRUE(d.guards_intact());
    }
}

i128 add(i128 x, i128 y) { return x + y; }
i128 sub(i128 x, i128 y) { return x - y; }   // SubC: x - val
i128 rsub(i128 x, i128 y) { return y - x; }  // Sub: pSrc2 - pSrc1; SubCRev: val - x
i128 mul(i128 x, i128 y) { return x * y; }
// A member without a scale factor seen as one with (the scale factor dropped).
template <class F>
auto no_sf(F f) {
  return [f](auto... a) {
    return [&]<size_t... I>(std::index_sequence<I...>) {
      const auto args = std::tuple(a...);
      return f(std::get<I>(args)...);
    }
    (std::make_index_sequence<sizeof...(a) - 1>{});
  };
}
// In-place members run as out-of-place ones: the source copied to the destination first.
template <class F>
auto via_inplace(F fi) {
  return [fi](auto* s, auto val, auto* d, int n, int sf) {
    std::copy(s, s + n, d);
    return fi(val, d, n, sf);
  };
}

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
  constexpr int kN0 = kNoScale;
  sweep_binary<Vek16s, Vek16s, Vek16s>("Add_16s", no_sf(veksAdd_16s), no_sf(veksAdd_16s_I), add,
                                       kN0);
  sweep_binary<Vek16u, Vek16u, Vek16u>("Add_16u", no_sf(veksAdd_16u), nullptr, add, kN0);
  sweep_binary<Vek32u, Vek32u, Vek32u>("Add_32u", no_sf(veksAdd_32u), nullptr, add, kN0);
  sweep_binary<Vek8u, Vek8u, Vek16u>("Add_8u16u", no_sf(veksAdd_8u16u), nullptr, add, kN0);
  sweep_binary<Vek16s, Vek32s, Vek32s>(
      "Add_16s32s_I",
      [](auto a, auto b, auto d, int n, int) {
        return std::copy(b, b + n, d), veksAdd_16s32s_I(a, d, n);
      },
      nullptr, add, kN0);
  sweep_binary<Vek16s, Vek16s, Vek16s>("Sub_16s", no_sf(veksSub_16s), no_sf(veksSub_16s_I), rsub,
                                       kN0);
  sweep_binary<Vek16s, Vek16s, Vek16s>("Mul_16s", no_sf(veksMul_16s), no_sf(veksMul_16s_I), mul,
                                       kN0);
  sweep_binary<Vek8u, Vek8u, Vek16u>("Mul_8u16u", no_sf(veksMul_8u16u), nullptr, mul, kN0);
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
  // 64-bit members exist out of place or in place only: the other form is the same call.
  const auto to_i = [](auto f) {
    return [f](auto val, auto* d, int n, int sf) { return f(d, val, d, n, sf); };
  };
  sweep_const<Vek64s>("AddC_64s", veksAddC_64s_Sfs, to_i(veksAddC_64s_Sfs), add, 64);
  sweep_const<Vek64u>("AddC_64u", veksAddC_64u_Sfs, to_i(veksAddC_64u_Sfs), add, 65);
  sweep_const<Vek64s>("MulC_64s", via_inplace(veksMulC_64s_ISfs), veksMulC_64s_ISfs, mul, 126);
  sweep_const<Vek16s>("AddC_16s_I", via_inplace(no_sf(veksAddC_16s_I)), no_sf(veksAddC_16s_I), add,
                      kNoScale);
  sweep_const<Vek16s>("SubC_16s_I", via_inplace(no_sf(veksSubC_16s_I)), no_sf(veksSubC_16s_I), sub,
                      kNoScale);
  sweep_const<Vek16s>("MulC_16s_I", via_inplace(no_sf(veksMulC_16s_I)), no_sf(veksMulC_16s_I), mul,
                      kNoScale);
}

template <class C>
std::pair<i128, i128> cmul(C x, C y) {
  return {i128(x.re) * y.re - i128(x.im) * y.im, i128(x.re) * y.im + i128(x.im) * y.re};
}

// Complex integers: each component exact, then scaled and saturated on its own; the constant
// forms take the first element of the second vector as the constant.
TEST(ScaledIntegers, ComplexMembersScaleEachComponent) {
  const auto check = [](const char* name, auto fn, auto exact, int bound, auto c) {
    using C = decltype(c);
    using R = decltype(C{}.re);
    SCOPED_TRACE(name);
    const auto ra = edge_and_random<R>(2 * kN, 5), rb = edge_and_random<R>(2 * kN, 6);
    std::vector<C> a(kN), b(kN);
    for (size_t i = 0; i < kN; ++i)
      a[i] = {ra[2 * i], ra[2 * i + 1]}, b[i] = {rb[(2 * i + 7) % (2 * kN)], rb[2 * i + 1]};
    a[0] = b[0] = {std::numeric_limits<R>::min(), std::numeric_limits<R>::min()};  // 2^(2w-1)
    for (int sf = -40; sf <= 70; ++sf) {
      Guarded<C> d(kN, 4 * sizeof(R));
      ASSERT_EQ(fn(a.data(), b.data(), d.data(), int(kN), sf), vekStatusOk);
      for (size_t i = 0; i < kN; ++i) {
        const auto [re, im] = exact(a[i], b[i]);
        ASSERT_TRUE(d[i].re == expect<R>(re, sf, bound) && d[i].im == expect<R>(im, sf, bound))
            << "sf=" << sf << " i=" << i;
      }
      ASSERT_TRUE(d.guards_intact());
    }
  };
  const auto cadd = [](auto x, auto y) {
    return std::pair<i128, i128>{x.re + i128(y.re), x.im + i128(y.im)};
  };
  const auto csub = [](auto x, auto y) {
    return std::pair<i128, i128>{y.re - i128(x.re), y.im - i128(x.im)};
  };
  const auto cm = [](auto x, auto y) { return cmul(x, y); };
  const auto inplace = [](auto fi) {
    return [fi](auto* a, auto* b, auto* d, int n, int sf) {
      return std::copy(b, b + n, d), fi(a, d, n, sf);
    };
  };
  const auto as_const = [](auto fc) {
    return [fc](auto* a, auto* b, auto* d, int n, int sf) { return fc(a, b[0], d, n, sf); };
  };
  const auto with_b0 = [](auto op) {
    return [op](auto x, auto) {
      decltype(x) m{};
      m.re = m.im = std::numeric_limits<decltype(x.re)>::min();
      return op(x, m);
    };
  };
  const Vek16sc c16{};
  const Vek32sc c32{};
  check("Add_16sc", veksAdd_16sc_Sfs, cadd, 16, c16);
  check("Add_16sc_I", inplace(veksAdd_16sc_ISfs), cadd, 16, c16);
  check("Add_32sc", veksAdd_32sc_Sfs, cadd, 32, c32);
  check("Sub_16sc", veksSub_16sc_Sfs, csub, 16, c16);
  check("Sub_32sc_I", inplace(veksSub_32sc_ISfs), csub, 32, c32);
  check("Mul_16sc", veksMul_16sc_Sfs, cm, 31, c16);
  check("Mul_16sc_I", inplace(veksMul_16sc_ISfs), cm, 31, c16);
  check("Mul_32sc", veksMul_32sc_Sfs, cm, 63, c32);
  check("Mul_32sc_I", inplace(veksMul_32sc_ISfs), cm, 63, c32);
  // Constants (min, min): the overflow-prone case of the 32-bit sums.
  check("MulC_16sc", as_const(veksMulC_16sc_Sfs), with_b0(cm), 31, c16);
  check("MulC_32sc", as_const(veksMulC_32sc_Sfs), with_b0(cm), 63, c32);
  check("AddC_16sc", as_const(veksAddC_16sc_Sfs), with_b0(cadd), 16, c16);
  check("SubCRev_16sc", as_const(veksSubCRev_16sc_Sfs), with_b0(csub), 16, c16);
  check("SubC_32sc", as_const(veksSubC_32sc_Sfs),
        with_b0([&](auto x, auto y) { return csub(y, x); }), 32, c32);
}

TEST(ScaledIntegers, AccumulateSquareAndAbs) {
  const auto a = edge_and_random<Vek16s>(kN, 7), b = edge_and_random<Vek16s>(kN, 8);
  const auto c16 = edge_and_random<Vek16s>(kN, 9);
  const auto c32 = edge_and_random<Vek32s>(kN, 10), a32 = edge_and_random<Vek32s>(kN, 11);
  for (int sf = -40; sf <= 70; ++sf) {
    std::vector<Vek16s> d16 = c16, sq(kN);
    std::vector<Vek32s> d32 = c32, p32 = c32;
    std::vector<Vek16sc> z(kN), zs(kN);
    for (size_t i = 0; i < kN; ++i) z[i] = zs[i] = {a[i], b[i]};
    ASSERT_EQ(veksAddProduct_16s_Sfs(a.data(), b.data(), d16.data(), int(kN), sf) |
                  veksAddProduct_16s32s_Sfs(a.data(), b.data(), d32.data(), int(kN), sf) |
                  veksAddProduct_32s_Sfs(a32.data(), c32.data(), p32.data(), int(kN), sf) |
                  veksSqr_16s_Sfs(a.data(), sq.data(), int(kN), sf) |
                  veksSqr_16sc_ISfs(zs.data(), int(kN), sf),
              0);
    for (size_t i = 0; i < kN; ++i) {
      ASSERT_EQ(d16[i], expect<Vek16s>(c16[i] + i128(a[i]) * b[i], sf, 31)) << sf;
      ASSERT_EQ(d32[i], expect<Vek32s>(c32[i] + i128(a[i]) * b[i], sf, 32)) << sf;
      ASSERT_EQ(p32[i], expect<Vek32s>(c32[i] + i128(a32[i]) * c32[i], sf, 62)) << sf;
      ASSERT_EQ(sq[i], expect<Vek16s>(i128(a[i]) * a[i], sf, 30)) << sf;
      const auto [re, im] = cmul(z[i], z[i]);
      ASSERT_TRUE(zs[i].re == expect<Vek16s>(re, sf, 31) && zs[i].im == expect<Vek16s>(im, sf, 31));
    }
  }
  const auto u = edge_and_random<Vek16u>(kN, 12);
  std::vector<Vek16u> su(kN);
  std::vector<Vek16s> abs16(kN);
  std::vector<Vek32s> abs32 = a32;
  ASSERT_EQ(veksSqr_16u_Sfs(u.data(), su.data(), int(kN), 17) |
                veksAbs_16s(a.data(), abs16.data(), int(kN)) | veksAbs_32s_I(abs32.data(), int(kN)),
            0);
  for (size_t i = 0; i < kN; ++i) {  // Abs saturates the minimum
    EXPECT_EQ(su[i], expect<Vek16u>(i128(u[i]) * u[i], 17, 32));
    EXPECT_EQ(abs16[i], a[i] == INT16_MIN ? INT16_MAX : std::abs(a[i]));
    EXPECT_EQ(abs32[i], a32[i] == INT32_MIN ? INT32_MAX : std::abs(a32[i]));
  }
}

// Every length 1..130 (every tail) at misaligned addresses for the members with their own
// 16-bit and complex kernels, at the scale factors those kernels special-case.
TEST(ScaledIntegers, EveryLengthAndMisalignment) {
  const auto a = edge_and_random<Vek16s>(260, 16), b = edge_and_random<Vek16s>(260, 17);
  const auto* za = reinterpret_cast<const Vek16sc*>(a.data());
  const auto* zb = reinterpret_cast<const Vek16sc*>(b.data());
  for (size_t n = 1; n <= 130; ++n)
    for (int sf : {-20, -3, 0, 1, 2, 5}) {
      Guarded<Vek16s> add(n, 2), mul(n, 6), subc(n, 10);
      Guarded<Vek16sc> cm(n, 4);
      ASSERT_EQ(veksAdd_16s_Sfs(a.data(), b.data(), add.data(), int(n), sf) |
                    veksMul_16s_Sfs(a.data(), b.data(), mul.data(), int(n), sf) |
                    veksSubC_16s_Sfs(a.data(), b[3], subc.data(), int(n), sf) |
                    veksMul_16sc_Sfs(za, zb, cm.data(), int(n), sf),
                0);
      for (size_t i = 0; i < n; ++i) {
        const auto [re, im] = cmul(za[i], zb[i]);
        ASSERT_TRUE(add[i] == expect<Vek16s>(i128(a[i]) + b[i], sf, 16) &&
                    mul[i] == expect<Vek16s>(i128(a[i]) * b[i], sf, 30) &&
                    subc[i] == expect<Vek16s>(i128(a[i]) - b[3], sf, 16) &&
                    cm[i].re == expect<Vek16s>(re, sf, 31) &&
                    cm[i].im == expect<Vek16s>(im, sf, 31))
            << "len " << n << " sf " << sf << " i " << i;
      }
      ASSERT_TRUE(add.guards_intact() && mul.guards_intact() && subc.guards_intact() &&
                  cm.guards_intact());
    }
}

TEST(ScaledIntegers, DocumentedExamples) {
  Vek16s d[2], e[2];
  const Vek16s x[2] = {16384, 3}, y[2] = {2, 1};
  veksMul_16s_Sfs(x, y, d, 2, 0);
  EXPECT_EQ(d[0], 32767);
  veksMul_16s_Sfs(x, y, e, 2, 16);
  veksMul_16s_Sfs(x, y, d, 2, 1);
  EXPECT_TRUE(e[0] == 0 && d[1] == 2);  // 0.5 and 1.5 go to even
  const Vek8u m = 255;
  Vek8u r1, r2;
  veksAdd_8u_Sfs(&m, &m, &r1, 1, 9);
  veksAddC_8u_Sfs(&m, 255, &r2, 1, 9);
  EXPECT_TRUE(r1 == 1 && r2 == 0);
}

// Picks the binary32 or the binary64 member.
template <class T, class F, class D>
constexpr auto pick(F f, D d) {
  if constexpr (std::is_same_v<T, float>) {
    return f;
  } else {
    return d;
  }
}

// Real members equal the operation in the element precision bit for bit, at every length.
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
        rsubc(n), mulc(n), sqr(n), abs(n), acc(n);
    std::copy(b.begin(), b.end(), acc.data());
    const int len = int(n);
    ASSERT_EQ(
        pick<T>(veksAdd_32f, veksAdd_64f)(a.data(), b.data(), add.data(), len) |
            pick<T>(veksSub_32f, veksSub_64f)(a.data(), b.data(), sub.data(), len) |
            pick<T>(veksMul_32f, veksMul_64f)(a.data(), b.data(), mul.data(), len) |
            pick<T>(veksAddC_32f, veksAddC_64f)(a.data(), c, addc.data(), len) |
            pick<T>(veksSubC_32f, veksSubC_64f)(a.data(), c, subc.data(), len) |
            pick<T>(veksSubCRev_32f, veksSubCRev_64f)(a.data(), c, rsubc.data(), len) |
            pick<T>(veksMulC_32f, veksMulC_64f)(a.data(), c, mulc.data(), len) |
            pick<T>(veksSqr_32f, veksSqr_64f)(a.data(), sqr.data(), len) |
            pick<T>(veksAbs_32f, veksAbs_64f)(a.data(), abs.data(), len) |
            pick<T>(veksAddProduct_32f, veksAddProduct_64f)(a.data(), b.data(), acc.data(), len),
        0);
    for (size_t i = 0; i < n; ++i) {
      const T p = a[i] * b[i];
      ASSERT_TRUE(add[i] == a[i] + b[i] && sub[i] == b[i] - a[i] && mul[i] == p &&
                  addc[i] == a[i] + c && subc[i] == a[i] - c && rsubc[i] == c - a[i] &&
                  mulc[i] == a[i] * c && sqr[i] == a[i] * a[i] && abs[i] == std::fabs(a[i]) &&
                  acc[i] == b[i] + p)
          << "len " << n << " i " << i;
    }
    for (auto* g : {&add, &sub, &mul, &addc, &subc, &rsubc, &mulc, &sqr, &abs, &acc})
      ASSERT_TRUE(g->guards_intact());
    if constexpr (std::is_same_v<T, float>) {
      std::vector<T> accc = b;
      ASSERT_EQ(veksAddProductC_32f(a.data(), c, accc.data(), len), 0);
      for (size_t i = 0; i < n; ++i) ASSERT_EQ(accc[i], b[i] + T(a[i] * c));
    }
  }
}

TEST(Floats, RealMembersAreTheIeeeOperationsAtEveryLength) {
  check_real_floats<float>();
  check_real_floats<double>();
  const float s[3] = {-0.0f, -std::numeric_limits<float>::infinity(), std::nanf("")};
  float d[3];
  veksAbs_32f(s, d, 3);
  EXPECT_TRUE(!std::signbit(d[0]) && std::isinf(d[1]) && d[1] > 0 && std::isnan(d[2]) &&
              !std::signbit(d[2]));
}

// Complex products within 2 ulp of the sum of the partial products' magnitudes, in and out of
// place; sums and the accumulation exact.
template <class C>
void check_complex_floats() {
  using T = decltype(C{}.re);
  const T eps = std::numeric_limits<T>::epsilon();
  for (size_t n = 1; n <= 130; n += 3) {
    std::vector<C> a(n), b(n), mul(n), mulc(n), sqr(n), add(n), acc = b, inpl;
    for (size_t i = 0; i < n; ++i) {
      a[i] = {T(std::sin(double(i) + 0.3)), T(std::cos(2.0 * double(i)))};
      b[i] = {T(std::cos(double(i * n))), T(std::sin(0.5 * double(i)) - 0.25)};
    }
    acc = inpl = b;
    const C c = b[n / 3];
    const int len = int(n);
    ASSERT_EQ(
        pick<T>(veksMul_32fc, veksMul_64fc)(a.data(), b.data(), mul.data(), len) |
            pick<T>(veksMulC_32fc, veksMulC_64fc)(a.data(), c, mulc.data(), len) |
            pick<T>(veksSqr_32fc, veksSqr_64fc)(a.data(), sqr.data(), len) |
            pick<T>(veksAddProduct_32fc, veksAddProduct_64fc)(a.data(), b.data(), acc.data(), len) |
            pick<T>(veksAdd_32fc, veksAdd_64fc)(a.data(), b.data(), add.data(), len) |
            pick<T>(veksMul_32fc_I, veksMul_64fc_I)(a.data(), inpl.data(), len),
        0);
    const auto near = [&](C got, C x, C y) {
      using LD = long double;
      const LD re = LD(x.re) * y.re - LD(x.im) * y.im, im = LD(x.re) * y.im + LD(x.im) * y.re;
      const LD scale = std::fabs(LD(x.re) * y.re) + std::fabs(LD(x.im) * y.im) +
                       std::fabs(LD(x.re) * y.im) + std::fabs(LD(x.im) * y.re);
      return std::fabs(got.re - re) <= 2 * eps * scale && std::fabs(got.im - im) <= 2 * eps * scale;
    };
    for (size_t i = 0; i < n; ++i)
      ASSERT_TRUE(near(mul[i], a[i], b[i]) && near(mulc[i], a[i], c) && near(sqr[i], a[i], a[i]) &&
                  inpl[i].re == mul[i].re && inpl[i].im == mul[i].im &&
                  add[i].re == a[i].re + b[i].re && add[i].im == a[i].im + b[i].im &&
                  acc[i].re == b[i].re + mul[i].re && acc[i].im == b[i].im + mul[i].im)
          << "len " << n << " i " << i;
  }
}

TEST(Floats, ComplexProductsAreAccurateAtEveryLength) {
  check_complex_floats<Vek32fc>();
  check_complex_floats<Vek64fc>();
}

TEST(Floats, MixedMembers) {
  const auto a = edge_and_random<Vek16s>(kN, 13), b = edge_and_random<Vek16s>(kN, 14);
  std::vector<Vek32f> add(kN), sub(kN), mul(kN), r(kN);
  std::vector<Vek32fc> z(kN), rz(kN);
  for (size_t i = 0; i < kN; ++i) r[i] = float(a[i]) / 7, z[i] = {float(b[i]) / 3, float(a[i]) / 5};
  const std::vector<Vek32fc> z0 = z;
  ASSERT_EQ(veksAdd_16s32f(a.data(), b.data(), add.data(), int(kN)) |
                veksSub_16s32f(a.data(), b.data(), sub.data(), int(kN)) |
                veksMul_16s32f(a.data(), b.data(), mul.data(), int(kN)) |
                veksMul_32f32fc(r.data(), z.data(), rz.data(), int(kN)) |
                veksMul_32f32fc_I(r.data(), z.data(), int(kN)),
            0);
  for (size_t i = 0; i < kN; ++i)
    EXPECT_TRUE(add[i] == float(a[i]) + float(b[i]) && sub[i] == float(b[i]) - float(a[i]) &&
                mul[i] == float(a[i]) * float(b[i]) && rz[i].re == r[i] * z0[i].re &&
                rz[i].im == r[i] * z0[i].im && z[i].re == rz[i].re && z[i].im == rz[i].im)
        << i;
}

// Float data times a float constant into 16s, rounded to even and saturated (NaN: -32768); the
// Low form at scale factor 0. 64-bit integers times a binary64 constant, exactly rounded.
TEST(Floats, FloatConstantsStoredAsIntegers) {
  const float nan = std::nanf(""), inf = std::numeric_limits<float>::infinity();
  const std::vector<float> s = {1.5f, 2.5f, -2.5f, 40000.0f, -1e9f, nan, inf, -inf, 0.75f, 1e-30f};
  const int n = int(s.size());
  for (int sf : {-200, -20, -3, 0, 1, 5, 40, 300})
    for (float val : {1.0f, -3.0f, 0.1f}) {
      std::vector<Vek16s> d(s.size()), low(s.size());
      ASSERT_EQ(veksMulC_32f16s_Sfs(s.data(), val, d.data(), n, sf) |
                    veksMulC_Low_32f16s(s.data(), val, low.data(), n),
                0);
      for (size_t i = 0; i < s.size(); ++i) {
        const float p = s[i] * val;
        const Vek16s want =
            std::isnan(p) ? -32768 : veks_test::round_sat<Vek16s>(std::ldexp((long double)p, -sf));
        ASSERT_TRUE(d[i] == want && (sf != 0 || low[i] == want)) << sf << " " << s[i] << " " << val;
      }
    }
  const auto x = edge_and_random<Vek64s>(kN, 15);
  for (double val : {0.75, -3.0, 1.0 / 3.0, 1e-300, 1e300, 0.0})
    for (int sf : {-70, -1, 0, 1, 30, 64, 200}) {
      std::vector<Vek64s> d = x;
      ASSERT_EQ(veksMulC_64f64s_ISfs(val, d.data(), int(kN), sf), 0);
      int e;
      const auto m =
          static_cast<long long>(std::ldexp(std::frexp(val, &e), 53));  // val = m 2^(e-53)
      for (size_t i = 0; i < kN; ++i)
        ASSERT_EQ(d[i], veks_test::scaled<Vek64s>(i128(x[i]) * m, (long long)sf - (e - 53)))
            << "val=" << val << " sf=" << sf << " x=" << x[i];
    }
}

TEST(ArithChecks, PointersThenLengthAndNothingWritten) {
  const int n = veks_test::expect_family_checks(
      {"veksAdd", "veksSub", "veksMul", "veksDiv", "veksSqr", "veksAbs", "veksAnd", "veksOr",
       "veksXor", "veksNot", "veksLShiftC", "veksRShiftC", "veksConj", "veksMagnitude", "veksPhase",
       "veksPowerSpectr", "veksCartToPolar", "veksPolarToCart"},
      [](const std::string& name) {
        veks_test::CheckSpec s;
        if (name.find("ShiftC") != std::string::npos) s.len_at = s.kLast;
        if (name.find("C_32s_") != std::string::npos || name.find("CRev_32s_") != std::string::npos)
          s.len_at = s.kSecondInt;  // the constant first
        return s;
      });
  EXPECT_GE(n, 300);
}

}  // namespace
