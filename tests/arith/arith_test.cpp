// Add, subtract, multiply, their constant forms, multiply-accumulate, square and absolute value
// against references written here: exact wide-integer results scaled with ties to even and
// saturated, for every scale factor from -40 to 70; floats against the same operation in the
// element precision or long double. The argument checks of every arithmetic export.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "support/checks.hpp"
#include "support/guarded.hpp"
#include "support/refs.hpp"

namespace {

using veks_test::edge_and_random;
using veks_test::Guarded;
using veks_test::i128;

constexpr size_t kN = 77;          // a full vector body and a masked tail for every lane width
constexpr int kNoScale = INT_MIN;  // zero-fill bound of the members without a scale factor

template <class T>
constexpr bool is_cplx = requires(T t) {
  t.im;
};

// n integers (or complex integers): the extremes, then random values of every magnitude (so that
// products also land inside the range at small scale factors); a complex element 0 is (min, min),
// whose products overflow the doubled width.
template <class T>
std::vector<T> ints(size_t n, unsigned seed) {
  if constexpr (is_cplx<T>) {
    using R = decltype(T{}.re);
    const auto r = ints<R>(2 * n, seed);
    std::vector<T> v(n);
    for (size_t i = 0; i < n; ++i) v[i] = {r[2 * i], r[(2 * i + 2 * seed + 1) % (2 * n)]};
    v[0] = {std::numeric_limits<R>::min(), std::numeric_limits<R>::min()};
    return v;
  } else {
    auto v = edge_and_random<T>(n, seed);
    for (size_t i = 8; i < n; ++i) v[i] = static_cast<T>(v[i] >> (i % (8 * sizeof(T))));
    return v;
  }
}

// Exact results: i128 for real elements, a pair of components for complex ones.
template <class Op>
auto parts(Op op) {
  return [op](auto x, auto y) {
    if constexpr (is_cplx<decltype(x)>)
      return std::pair<i128, i128>{op(i128(x.re), i128(y.re)), op(i128(x.im), i128(y.im))};
    else
      return op(i128(x), i128(y));
  };
}
const auto plus = parts([](i128 x, i128 y) { return x + y; });
const auto minus = parts([](i128 x, i128 y) { return x - y; });   // SubC: x - val
const auto rminus = parts([](i128 x, i128 y) { return y - x; });  // Sub: src2 - src1, SubCRev
const auto times = [](auto x, auto y) {
  if constexpr (is_cplx<decltype(x)>)
    return std::pair<i128, i128>{i128(x.re) * y.re - i128(x.im) * y.im,
                                 i128(x.re) * y.im + i128(x.im) * y.re};
  else
    return i128(x) * y;
};
const auto square = [](auto x, auto) { return times(x, x); };
const auto mac = [](auto x, auto y) { return i128(y) + i128(x) * y; };  // y += x * y
const auto absolute = [](auto x, auto) { return x < 0 ? -i128(x) : i128(x); };

// The stored value of an exact result r: 0 above the zero-fill bound, else scaled and saturated.
template <class R>
bool stores(R got, i128 r, int sf, int bound) {
  return i128(got) == (bound != kNoScale && sf > bound ? 0 : i128(veks_test::scaled<R>(r, sf)));
}
template <class TD, class W>
bool matches(TD got, W want, int sf, int bound) {
  if constexpr (is_cplx<TD>)
    return stores(got.re, want.first, sf, bound) && stores(got.im, want.second, sf, bound);
  else
    return stores(got, want, sf, bound);
}

// Every form is called as (a, b, d, n, sf); the adapters turn the other signatures into it.
#define ADAPT(name, ...)                                                                           \
  template <class F>                                                                               \
  auto name(F f) {                                                                                 \
    return [f](auto* a, [[maybe_unused]] auto* b, auto* d, int n, int sf) { return __VA_ARGS__; }; \
  }
ADAPT(ip, std::copy(b, b + n, d), f(a, d, n, sf))               // in place on the second operand
ADAPT(cst, f(a, b[0], d, n, sf))                                // b holds the constant everywhere
ADAPT(cst_ip, std::copy(a, a + n, d), f(b[0], d, n, sf))        // in place on the first operand
ADAPT(cst_alias, std::copy(a, a + n, d), f(d, b[0], d, n, sf))  // source as destination
ADAPT(un, f(a, d, n, sf))
ADAPT(un_ip, std::copy(a, a + n, d), f(d, n, sf))
ADAPT(acc_b, std::copy(b, b + n, d), f(a, b, d, n, sf))  // the accumulator starts as b
#undef ADAPT
template <class F>
auto no_sf(F f) {  // a member without a scale factor, seen as one with
  return [f](auto... a) {
    return [&]<size_t... I>(std::index_sequence<I...>) {
      const auto args = std::tuple(a...);
      return f(std::get<I>(args)...);
    }
    (std::make_index_sequence<sizeof...(a) - 1>{});
  };
}

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
// apart. Constant members take each of the extremes, 0, 1 and random values as the constant.
template <class TA, class TB = TA, class TD = TB, class Exact, class... Forms>
void sweep(const char* name, Exact exact, int bound, bool constant, Forms... forms) {
  SCOPED_TRACE(name);
  const auto a = ints<TA>(130, 1);
  const auto bs = ints<TB>(constant ? 10 : 130, 2);
  const int sf_lo = bound == kNoScale ? 0 : -40, sf_hi = bound == kNoScale ? 0 : 70;
  for (size_t c = 0; c < (constant ? bs.size() : 1); ++c) {
    const std::vector<TB> b = constant ? std::vector<TB>(130, bs[c]) : bs;
    for (int sf = sf_lo; sf <= sf_hi; ++sf) {
      const bool every = (!constant || c % 4 == 1) &&
                         (bound == kNoScale || sf == -20 || (sf >= -3 && sf <= 2) || sf == 5);
      for (size_t n = every ? 1 : kN; n <= (every ? 130 : kN); ++n)
        for (const auto& ok : {run<TD>(forms, a, b, n, sf, exact, bound)...})
          ASSERT_TRUE(ok) << "constant " << c;
    }
  }
}

// A member of one element type in out-of-place and in-place forms.
#define SFS(op, T, exact, Z) \
  sweep<Vek##T>(#op #T, exact, Z, false, veks##op##_##T##_Sfs, ip(veks##op##_##T##_ISfs))
#define SFS_C(op, T, exact, Z) \
  sweep<Vek##T>(#op #T, exact, Z, true, cst(veks##op##_##T##_Sfs), cst_ip(veks##op##_##T##_ISfs))

TEST(ScaledIntegers, VectorForms) {
  SFS(Add, 8u, plus, 9), SFS(Add, 16s, plus, 16), SFS(Add, 16u, plus, 17), SFS(Add, 32s, plus, 32);
  SFS(Add, 16sc, plus, 16), SFS(Add, 32sc, plus, 32);
  SFS(Sub, 8u, rminus, 9), SFS(Sub, 16s, rminus, 16), SFS(Sub, 16u, rminus, 16),
      SFS(Sub, 32s, rminus, 32);
  SFS(Sub, 16sc, rminus, 16), SFS(Sub, 32sc, rminus, 32);
  SFS(Mul, 8u, times, 16), SFS(Mul, 16s, times, 30), SFS(Mul, 16u, times, 32),
      SFS(Mul, 32s, times, 62);
  SFS(Mul, 16sc, times, 31), SFS(Mul, 32sc, times, 63);
  sweep<Vek64s>("Add64s", plus, 64, false, veksAdd_64s_Sfs);
  sweep<Vek16s, Vek16s, Vek32s>("Mul16s32s", times, 30, false, veksMul_16s32s_Sfs);
  sweep<Vek16u, Vek16s>("Mul16u16s", times, 32, false, veksMul_16u16s_Sfs);
  // Without a scale factor: exact and saturated.
  sweep<Vek16s>("Add16s", plus, kNoScale, false, no_sf(veksAdd_16s), ip(no_sf(veksAdd_16s_I)));
  sweep<Vek16u>("Add16u", plus, kNoScale, false, no_sf(veksAdd_16u));
  sweep<Vek32u>("Add32u", plus, kNoScale, false, no_sf(veksAdd_32u));
  sweep<Vek8u, Vek8u, Vek16u>("Add8u16u", plus, kNoScale, false, no_sf(veksAdd_8u16u));
  sweep<Vek16s, Vek32s>("Add16s32s", plus, kNoScale, false, ip(no_sf(veksAdd_16s32s_I)));
  sweep<Vek16s>("Sub16s", rminus, kNoScale, false, no_sf(veksSub_16s), ip(no_sf(veksSub_16s_I)));
  sweep<Vek16s>("Mul16s", times, kNoScale, false, no_sf(veksMul_16s), ip(no_sf(veksMul_16s_I)));
  sweep<Vek8u, Vek8u, Vek16u>("Mul8u16u", times, kNoScale, false, no_sf(veksMul_8u16u));
}

TEST(ScaledIntegers, ConstantForms) {
  // The 8-bit constant forms zero-fill from scale factor 9 although 255 + 255 rounds to 1 there.
  SFS_C(AddC, 8u, plus, 8), SFS_C(AddC, 16s, plus, 16), SFS_C(AddC, 16u, plus, 17);
  SFS_C(AddC, 32s, plus, 32), SFS_C(AddC, 16sc, plus, 16), SFS_C(AddC, 32sc, plus, 32);
  SFS_C(SubC, 8u, minus, 8), SFS_C(SubC, 16s, minus, 16), SFS_C(SubC, 16u, minus, 16);
  SFS_C(SubC, 32s, minus, 32), SFS_C(SubC, 16sc, minus, 16), SFS_C(SubC, 32sc, minus, 32);
  SFS_C(SubCRev, 8u, rminus, 8), SFS_C(SubCRev, 16s, rminus, 16), SFS_C(SubCRev, 16u, rminus, 16);
  SFS_C(SubCRev, 32s, rminus, 32), SFS_C(SubCRev, 16sc, rminus, 16),
      SFS_C(SubCRev, 32sc, rminus, 32);
  SFS_C(MulC, 8u, times, 16), SFS_C(MulC, 16s, times, 30), SFS_C(MulC, 16u, times, 32);
  SFS_C(MulC, 32s, times, 62), SFS_C(MulC, 16sc, times, 31), SFS_C(MulC, 32sc, times, 63);
  // 64-bit members exist out of place or in place only.
  sweep<Vek64s>("AddC64s", plus, 64, true, cst(veksAddC_64s_Sfs), cst_alias(veksAddC_64s_Sfs));
  sweep<Vek64u>("AddC64u", plus, 65, true, cst(veksAddC_64u_Sfs), cst_alias(veksAddC_64u_Sfs));
  sweep<Vek64s>("MulC64s", times, 126, true, cst_ip(veksMulC_64s_ISfs));
  sweep<Vek16s>("AddC16s", plus, kNoScale, true, cst_ip(no_sf(veksAddC_16s_I)));
  sweep<Vek16s>("SubC16s", minus, kNoScale, true, cst_ip(no_sf(veksSubC_16s_I)));
  sweep<Vek16s>("MulC16s", times, kNoScale, true, cst_ip(no_sf(veksMulC_16s_I)));
}

// Multiply-accumulate, square and absolute value
// (which saturates the minimum).
TEST(ScaledIntegers, AccumulateSquareAndAbs) {
  sweep<Vek16s>("AddProduct16s", mac, 31, false, acc_b(veksAddProduct_16s_Sfs));
  sweep<Vek16s, Vek16s, Vek32s>("AddProduct16s32s", mac, 32, false,
                                acc_b(veksAddProduct_16s32s_Sfs));
  sweep<Vek32s>("AddProduct32s", mac, 62, false, acc_b(veksAddProduct_32s_Sfs));
#define SQR(T, Z) \
  sweep<Vek##T>("Sqr" #T, square, Z, false, un(veksSqr_##T##_Sfs), un_ip(veksSqr_##T##_ISfs))
  SQR(8u, 16), SQR(16s, 30), SQR(16u, 32), SQR(16sc, 31);
#undef SQR
  sweep<Vek16s>("Abs16s", absolute, kNoScale, false, un(no_sf(veksAbs_16s)),
                un_ip(no_sf(veksAbs_16s_I)));
  sweep<Vek32s>("Abs32s", absolute, kNoScale, false, un(no_sf(veksAbs_32s)),
                un_ip(no_sf(veksAbs_32s_I)));
}

// The binary32 or the binary64 member, by T.
#define PICK(name, I) \
  std::get<std::is_same_v<T, float> ? 0 : 1>(std::tuple(&veks##name##_32f##I, &veks##name##_64f##I))
#define PICKC(name, I)                        \
  std::get<std::is_same_v<T, float> ? 0 : 1>( \
      std::tuple(&veks##name##_32fc##I, &veks##name##_64fc##I))

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
    const int len = int(n);
    const auto check = [&](const char* what, auto call, auto ref) {
      Guarded<T> d(n, (n * sizeof(T)) % 64);
      std::copy(b.begin(), b.end(), d.data());  // the accumulator of AddProduct
      ASSERT_EQ(call(d.data()), vekStatusOk) << what;
      for (size_t i = 0; i < n; ++i)
        ASSERT_EQ(d[i], ref(a[i], b[i])) << what << " " << n << " " << i;
      ASSERT_TRUE(d.guards_intact()) << what;
    };
// One member: the call writing d, and the expected element from x = a[i], y = b[i].
#define CHECK(call, ref)                 \
  check(                                 \
      #call, [&](T* d) { return call; }, \
      [&]([[maybe_unused]] T x, [[maybe_unused]] T y) { return T(ref); })
    CHECK(PICK(Add, )(a.data(), b.data(), d, len), x + y);
    CHECK(PICK(Sub, )(a.data(), b.data(), d, len), y - x);
    CHECK(PICK(Mul, )(a.data(), b.data(), d, len), x * y);
    CHECK(PICK(AddC, )(a.data(), c, d, len), x + c);
    CHECK(PICK(SubC, )(a.data(), c, d, len), x - c);
    CHECK(PICK(SubCRev, )(a.data(), c, d, len), c - x);
    CHECK((std::copy(a.begin(), a.end(), d), PICK(MulC, _I)(c, d, len)), x * c);
    CHECK(PICK(Sqr, )(a.data(), d, len), x * x);
    CHECK((std::copy(a.begin(), a.end(), d), PICK(Abs, _I)(d, len)), std::fabs(x));
    CHECK(PICK(AddProduct, )(a.data(), b.data(), d, len), y + T(x * y));
    if constexpr (std::is_same_v<T, float>)
      CHECK(veksAddProductC_32f(a.data(), c, d, len), y + T(x * c));
#undef CHECK
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
        (PICKC(Mul, )(a.data(), b.data(), mul.data(), len) |
         PICKC(MulC, )(a.data(), c, mulc.data(), len) | PICKC(Sqr, )(a.data(), sqr.data(), len) |
         PICKC(AddProduct, )(a.data(), b.data(), acc.data(), len) |
         PICKC(Add, )(a.data(), b.data(), add.data(), len) |
         PICKC(Mul, _I)(a.data(), inpl.data(), len)),
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
