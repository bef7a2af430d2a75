// Add, subtract, multiply, their constant forms, multiply-accumulate, square and absolute value:
// integers against exact wide results scaled with ties to even and saturated, at every scale
// factor from -40 to 70; floats against the operation in the element precision (complex
// products within 2 ulp of their partial products); the argument checks of the family.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "support/checks.hpp"
#include "support/guarded.hpp"
#include "support/refs.hpp"

namespace {

using namespace veks_test;

constexpr int kNoScale = INT_MIN;  // zero-fill bound of the members without a scale factor

template <class T>
constexpr bool is_cplx = !std::is_arithmetic_v<T>;

// The extremes, then random values of every magnitude (products also land inside the range at
// small scale factors); complex element 0 is (min, min), whose products overflow the doubled width.
// Floats: either sign, binary exponents -20..20.
template <class T>
std::vector<T> data(size_t n, unsigned seed) {
  if constexpr (is_cplx<T>) {
    using R = decltype(T{}.re);
    const auto r = data<R>(2 * n, seed);
    std::vector<T> v(n);
    for (size_t i = 0; i < n; ++i) v[i] = {r[2 * i], r[(2 * i + 2 * seed + 1) % (2 * n)]};
    if constexpr (std::is_integral_v<R>)
      v[0] = {std::numeric_limits<R>::min(), std::numeric_limits<R>::min()};
    return v;
  } else if constexpr (std::is_floating_point_v<T>) {
    Rng r{seed};
    std::vector<T> v(n);
    for (T& x : v) x = r.wide<T>(-20, 20);
    return v;
  } else {
    auto v = edge_and_random<T>(n, seed);
    for (size_t i = 8; i < n; ++i) v[i] = static_cast<T>(v[i] >> (i % (8 * sizeof(T))));
    return v;
  }
}

// References: integers exact in i128, floats in their own precision, complex values as a pair of
// components; complex float products in long double with the magnitude that bounds their error.
struct Approx {
  LD re, im, scale;
};
template <class T>
auto w(T x) {
  return std::conditional_t<std::is_integral_v<T>, i128, T>(x);
}
template <class Op>
auto parts(Op op) {
  return [op](auto x, auto y) {
    if constexpr (is_cplx<decltype(x)>)
      return std::pair{op(w(x.re), w(y.re)), op(w(x.im), w(y.im))};
    else
      return op(w(x), w(y));
  };
}
const auto plus = parts([](auto x, auto y) { return x + y; });
const auto minus = parts([](auto x, auto y) { return x - y; });   // SubC: x - val
const auto rminus = parts([](auto x, auto y) { return y - x; });  // Sub: src2 - src1, SubCRev
const auto times = [](auto x, auto y) {
  if constexpr (!is_cplx<decltype(x)>) {
    return w(x) * w(y);
  } else if constexpr (std::is_integral_v<decltype(x.re)>) {
    return std::pair{w(x.re) * y.re - w(x.im) * y.im, w(x.re) * y.im + w(x.im) * y.re};
  } else {
    const LD ac = LD(x.re) * y.re, bd = LD(x.im) * y.im, ad = LD(x.re) * y.im, bc = LD(x.im) * y.re;
    return Approx{ac - bd, ad + bc, std::fabs(ac) + std::fabs(bd) + std::fabs(ad) + std::fabs(bc)};
  }
};
const auto square = [](auto x, auto) { return times(x, x); };
const auto mac = [](auto x, auto y) {  // y += x * y
  const auto p = times(x, y);
  if constexpr (is_cplx<decltype(x)>)
    return Approx{p.re + y.re, p.im + y.im, p.scale + std::fabs(y.re) + std::fabs(y.im)};
  else
    return w(y) + p;
};
const auto absolute = [](auto x, auto) {
  if constexpr (std::is_floating_point_v<decltype(x)>)
    return std::fabs(x);
  else
    return x < 0 ? -i128(x) : i128(x);
};

// Integers: 0 above the zero-fill bound, else the exact result scaled and saturated. Floats: the
// same bits; complex float products within 2 ulp of the sum of their partial products.
template <class TD, class W>
bool matches(TD got, W want, int sf, int bound) {
  if constexpr (std::is_same_v<W, Approx>) {
    const LD tol = 2 * std::numeric_limits<decltype(got.re)>::epsilon() * want.scale;
    return std::fabs(got.re - want.re) <= tol && std::fabs(got.im - want.im) <= tol;
  } else if constexpr (is_cplx<TD>) {
    return matches(got.re, want.first, sf, bound) && matches(got.im, want.second, sf, bound);
  } else if constexpr (std::is_floating_point_v<TD>) {
    return same_bits(got, static_cast<TD>(want));
  } else {
    return i128(got) == (bound != kNoScale && sf > bound ? 0 : i128(scaled<TD>(want, sf)));
  }
}

// f(args..., sf), or f(args...) for a member without a scale factor.
template <class F, class... A>
VekStatus call(F f, int sf, A... a) {
  if constexpr (std::is_invocable_v<F, A..., int>)
    return f(a..., sf);
  else
    return f(a...);
}
// Every form is called as (a, b, d, n, sf); the adapters turn the signatures into it.
#define ADAPT(name, ...)                                                                    \
  template <class F>                                                                        \
  auto name(F f) {                                                                          \
    return [f](auto* a, [[maybe_unused]] auto* b, auto* d, int n, int sf) { __VA_ARGS__; }; \
  }
ADAPT(bin, return call(f, sf, a, b, d, n))
ADAPT(ip, std::copy(b, b + n, d); return call(f, sf, a, d, n))  // in place on the second operand
ADAPT(cst, return call(f, sf, a, b[0], d, n))                   // b holds the constant everywhere
ADAPT(cst_ip, std::copy(a, a + n, d); return call(f, sf, b[0], d, n))
ADAPT(cst_alias, std::copy(a, a + n, d); return call(f, sf, d, b[0], d, n))
ADAPT(un, return call(f, sf, a, d, n))
ADAPT(un_ip, std::copy(a, a + n, d); return call(f, sf, d, n))
ADAPT(acc, std::copy(b, b + n, d); return call(f, sf, a, b, d, n))  // the accumulator starts as b
ADAPT(acc_c, std::copy(b, b + n, d); return call(f, sf, a, b[0], d, n))
#undef ADAPT

template <class TD, class TA, class TB, class F, class Exact>
::testing::AssertionResult run(F form, const std::vector<TA>& a, const std::vector<TB>& b, size_t n,
                               int sf, Exact exact, int bound) {
  Guarded<TD> d(n, (n * sizeof(TD)) % 64);
  if (form(a.data(), b.data(), d.data(), int(n), sf) != vekStatusOk)
    return ::testing::AssertionFailure() << "status, len " << n << " sf " << sf;
  for (size_t i = 0; i < n; ++i)
    if (!matches(d[i], exact(a[i], b[i]), sf, bound))
      return ::testing::AssertionFailure() << "len " << n << " sf " << sf << " element " << i;
  if (!d.guards_intact()) return ::testing::AssertionFailure() << "wrote outside, len " << n;
  return ::testing::AssertionSuccess();
}

// Every form of a member against exact(a[i], b[i]): each scale factor from -40 to 70 at length
// 77, and each length 1..130 at misaligned destinations at the scale factors the kernels treat
// apart. Constant members take each of the extremes, 0, 1 and random values as the constant. A
// real float first operand starts with -0, -inf and a NaN (one NaN operand: its payload is kept
// whatever the operand order).
template <class TA, class TB = TA, class TD = TB, class Exact, class... Forms>
void sweep(const char* name, Exact exact, int bound, bool constant, Forms... forms) {
  SCOPED_TRACE(name);
  auto a = data<TA>(130, 1);
  if constexpr (std::is_floating_point_v<TA>) a[0] = -0.0, a[1] = -INFINITY, a[2] = NAN;
  auto bs = data<TB>(constant ? 10 : 130, 2);
  if constexpr (std::is_floating_point_v<TB>) bs[0] = -0.0;  // a constant -0 keeps its sign
  if constexpr (std::is_same_v<TB, Vek32fc> || std::is_same_v<TB, Vek64fc>) bs[0] = {-0.0, -0.0};
  const int sf_lo = bound == kNoScale ? 0 : -40, sf_hi = bound == kNoScale ? 0 : 70;
  for (size_t c = 0; c < (constant ? bs.size() : 1); ++c) {
    const std::vector<TB> b = constant ? std::vector<TB>(130, bs[c]) : bs;
    for (int sf = sf_lo; sf <= sf_hi; ++sf) {
      const bool every = (!constant || c % 4 == 1) &&
                         (bound == kNoScale || sf == -20 || (sf >= -3 && sf <= 2) || sf == 5);
      for (size_t n = every ? 1 : 77; n <= (every ? 130 : 77); ++n)
        for (const auto& ok : {run<TD>(forms, a, b, n, sf, exact, bound)...})
          ASSERT_TRUE(ok) << "constant " << c;
    }
  }
}

// A member in its out-of-place and in-place forms (S and I name suffixes), vector or constant.
#define VEC(op, T, ex, Z, S, I) \
  sweep<Vek##T>(#op #T, ex, Z, false, bin(veks##op##_##T##S), ip(veks##op##_##T##I))
#define CST(op, T, ex, Z, S, I) \
  sweep<Vek##T>(#op #T, ex, Z, true, cst(veks##op##_##T##S), cst_ip(veks##op##_##T##I))
#define UN(op, T, ex, Z, S, I) \
  sweep<Vek##T>(#op #T, ex, Z, false, un(veks##op##_##T##S), un_ip(veks##op##_##T##I))
#define SIX(M, op, ex, z8, z16s, z16u, z32s, z16sc, z32sc)                  \
  M(op, 8u, ex, z8, _Sfs, _ISfs), M(op, 16s, ex, z16s, _Sfs, _ISfs),        \
      M(op, 16u, ex, z16u, _Sfs, _ISfs), M(op, 32s, ex, z32s, _Sfs, _ISfs), \
      M(op, 16sc, ex, z16sc, _Sfs, _ISfs), M(op, 32sc, ex, z32sc, _Sfs, _ISfs)

TEST(ScaledIntegers, VectorForms) {
  SIX(VEC, Add, plus, 9, 16, 17, 32, 16, 32), SIX(VEC, Sub, rminus, 9, 16, 16, 32, 16, 32);
  SIX(VEC, Mul, times, 16, 30, 32, 62, 31, 63);
  sweep<Vek64s>("Add64s", plus, 64, false, bin(veksAdd_64s_Sfs));
  sweep<Vek16s, Vek16s, Vek32s>("Mul16s32s", times, 30, false, bin(veksMul_16s32s_Sfs));
  sweep<Vek16u, Vek16s>("Mul16u16s", times, 32, false, bin(veksMul_16u16s_Sfs));
  // Without a scale factor: exact and saturated.
  VEC(Add, 16s, plus, kNoScale, , _I), VEC(Sub, 16s, rminus, kNoScale, , _I);
  VEC(Mul, 16s, times, kNoScale, , _I);
  sweep<Vek16u>("Add16u", plus, kNoScale, false, bin(veksAdd_16u));
  sweep<Vek32u>("Add32u", plus, kNoScale, false, bin(veksAdd_32u));
  sweep<Vek8u, Vek8u, Vek16u>("Add8u16u", plus, kNoScale, false, bin(veksAdd_8u16u));
  sweep<Vek16s, Vek32s>("Add16s32s", plus, kNoScale, false, ip(veksAdd_16s32s_I));
  sweep<Vek8u, Vek8u, Vek16u>("Mul8u16u", times, kNoScale, false, bin(veksMul_8u16u));
  // Multiply-accumulate, square and absolute value (which saturates the minimum).
  sweep<Vek16s>("AddProduct16s", mac, 31, false, acc(veksAddProduct_16s_Sfs));
  sweep<Vek16s, Vek16s, Vek32s>("AddProduct16s32s", mac, 32, false, acc(veksAddProduct_16s32s_Sfs));
  sweep<Vek32s>("AddProduct32s", mac, 62, false, acc(veksAddProduct_32s_Sfs));
  UN(Sqr, 8u, square, 16, _Sfs, _ISfs), UN(Sqr, 16s, square, 30, _Sfs, _ISfs);
  UN(Sqr, 16u, square, 32, _Sfs, _ISfs), UN(Sqr, 16sc, square, 31, _Sfs, _ISfs);
  UN(Abs, 16s, absolute, kNoScale, , _I), UN(Abs, 32s, absolute, kNoScale, , _I);
}

// Products of operands near 2^12 span 2^23..2^28, where binary32 no longer holds every integer;
// about one in 500 lies next to a tie at a given shift. Each shift must still round them
// exactly, for real and for complex products.
TEST(ScaledIntegers, LargeSixteenBitProductsAtEveryShift) {
  Rng r{7};
  const int n = 1 << 16;
  std::vector<Vek16s> a(n), b(n), d(n);
  for (int i = 0; i < n; ++i) {
    a[i] = static_cast<Vek16s>(r.range(2048, 16383) * (r.next() & 1 ? -1 : 1));
    b[i] = static_cast<Vek16s>(r.range(2048, 16383));
  }
  std::vector<Vek16sc> ca(n / 2), cb(n / 2), cd(n / 2);
  std::memcpy(ca.data(), a.data(), 2 * size_t(n));
  std::memcpy(cb.data(), b.data(), 2 * size_t(n));
  for (int sf = 1; sf <= 16; ++sf) {
    ASSERT_EQ(veksMul_16s_Sfs(a.data(), b.data(), d.data(), n, sf), vekStatusOk);
    for (int i = 0; i < n; ++i)
      ASSERT_EQ(d[i], scaled<Vek16s>(i128(a[i]) * b[i], sf))
          << a[i] << " * " << b[i] << " sf " << sf;
    ASSERT_EQ(veksMul_16sc_Sfs(ca.data(), cb.data(), cd.data(), n / 2, sf), vekStatusOk);
    for (int i = 0; i < n / 2; ++i)
      ASSERT_TRUE(matches(cd[i], times(ca[i], cb[i]), sf, 31)) << "complex " << i << " sf " << sf;
  }
}

TEST(ScaledIntegers, ConstantForms) {
  // The 8-bit constant forms zero-fill from scale factor 9 although 255 + 255 rounds to 1 there.
  SIX(CST, AddC, plus, 8, 16, 17, 32, 16, 32), SIX(CST, SubC, minus, 8, 16, 16, 32, 16, 32);
  SIX(CST, SubCRev, rminus, 8, 16, 16, 32, 16, 32), SIX(CST, MulC, times, 16, 30, 32, 62, 31, 63);
  // 64-bit members exist out of place or in place only.
  sweep<Vek64s>("AddC64s", plus, 64, true, cst(veksAddC_64s_Sfs), cst_alias(veksAddC_64s_Sfs));
  sweep<Vek64u>("AddC64u", plus, 65, true, cst(veksAddC_64u_Sfs), cst_alias(veksAddC_64u_Sfs));
  sweep<Vek64s>("MulC64s", times, 126, true, cst_ip(veksMulC_64s_ISfs));
  sweep<Vek16s>("AddC16s", plus, kNoScale, true, cst_ip(veksAddC_16s_I));
  sweep<Vek16s>("SubC16s", minus, kNoScale, true, cst_ip(veksSubC_16s_I));
  sweep<Vek16s>("MulC16s", times, kNoScale, true, cst_ip(veksMulC_16s_I));
}

TEST(Floats, EveryFormAtEveryLength) {
#define FLOATS(T)                                                                   \
  VEC(Add, T, plus, kNoScale, , _I), VEC(Sub, T, rminus, kNoScale, , _I),           \
      VEC(Mul, T, times, kNoScale, , _I), CST(AddC, T, plus, kNoScale, , _I),       \
      CST(SubC, T, minus, kNoScale, , _I), CST(SubCRev, T, rminus, kNoScale, , _I), \
      CST(MulC, T, times, kNoScale, , _I), UN(Sqr, T, square, kNoScale, , _I),      \
      sweep<Vek##T>("AddProduct" #T, mac, kNoScale, false, acc(veksAddProduct_##T))
  FLOATS(32f), FLOATS(64f), FLOATS(32fc), FLOATS(64fc);
  UN(Abs, 32f, absolute, kNoScale, , _I), UN(Abs, 64f, absolute, kNoScale, , _I);
  sweep<Vek32f>("AddProductC32f", mac, kNoScale, true, acc_c(veksAddProductC_32f));
  // 16-bit integers into binary32: the operation on the converted operands (0 * -5 gives -0).
  const auto f32 = [](auto op) {
    return [op](Vek16s x, Vek16s y) { return op(float(x), float(y)); };
  };
  sweep<Vek16s, Vek16s, Vek32f>("Add16s32f", f32(plus), kNoScale, false, bin(veksAdd_16s32f));
  sweep<Vek16s, Vek16s, Vek32f>("Sub16s32f", f32(rminus), kNoScale, false, bin(veksSub_16s32f));
  sweep<Vek16s, Vek16s, Vek32f>("Mul16s32f", f32(times), kNoScale, false, bin(veksMul_16s32f));
  const auto rtimes = [](float x, Vek32fc y) { return std::pair{x * y.re, x * y.im}; };
  sweep<Vek32f, Vek32fc>("Mul32f32fc", rtimes, kNoScale, false, bin(veksMul_32f32fc),
                         ip(veksMul_32f32fc_I));
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
        const Vek16s want = std::isnan(p) ? -32768 : round_sat<Vek16s>(std::ldexp(LD(p), -sf));
        ASSERT_TRUE(d[i] == want && (sf != 0 || low[i] == want)) << sf << " " << s[i] << " " << val;
      }
    }
  const auto x = edge_and_random<Vek64s>(77, 15);
  for (double val : {0.75, -3.0, 1.0 / 3.0, 1e-300, 1e300, 0.0})
    for (int sf : {-70, -1, 0, 1, 30, 64, 200}) {
      std::vector<Vek64s> d = x;
      ASSERT_EQ(veksMulC_64f64s_ISfs(val, d.data(), 77, sf), 0);
      int e;
      const auto m = static_cast<long long>(std::ldexp(std::frexp(val, &e), 53));  // m 2^(e-53)
      for (size_t i = 0; i < x.size(); ++i)
        ASSERT_EQ(d[i], scaled<Vek64s>(i128(x[i]) * m, (long long)sf - (e - 53)))
            << val << " " << sf;
    }
}

TEST(ArithChecks, PointersThenLengthAndNothingWritten) {
  const int n = expect_family_checks(
      {"veksAdd", "veksSub", "veksMul", "veksDiv", "veksSqr", "veksAbs", "veksAnd", "veksOr",
       "veksXor", "veksNot", "veksLShiftC", "veksRShiftC", "veksConj", "veksMagnitude", "veksPhase",
       "veksPowerSpectr", "veksCartToPolar", "veksPolarToCart"},
      [](const std::string& name) {
        CheckSpec s;
        if (name.find("ShiftC") != std::string::npos) s.len_at = s.kLast;
        if (name.find("C_32s_") != std::string::npos || name.find("CRev_32s_") != std::string::npos)
          s.len_at = s.kSecondInt;  // the constant first
        return s;
      });
  EXPECT_GE(n, 300);
}

}  // namespace
