// The power-of-two transforms against long-double references (a direct DFT up to 4096 points, a
// radix-2 recursion above): every kind, direction, packed layout and normalisation. Every vector
// is guarded, and every specification, init and work buffer is allocated with exactly the size
// GetSize reports, starting one byte past a 64-byte boundary (so Init's rounding takes 63 bytes
// of slack) and ending the allocation (so AddressSanitizer sees any access beyond it). Also: in
// place equals out of place bit for bit, the three layouts hold the same numbers, GetSize's sizes
// and check order, Init's checks and header, the execution statuses, and one specification
// shared by two threads.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <numbers>
#include <optional>
#include <random>
#include <thread>
#include <type_traits>
#include <vector>

#include "support/guarded.hpp"
#include "veks.h"

namespace {

using veks_test::Guarded;
using LD = long double;
using CL = std::complex<LD>;

enum Shape { kInter, kSplit, kReal };
enum Layout { kPack, kPerm, kCCS };
constexpr int kFlags[] = {VEK_FFT_NORM_FWD_N, VEK_FFT_NORM_INV_N, VEK_FFT_NORM_SQRT_N,
                          VEK_FFT_NORM_NONE};
constexpr VekAccuracyHint kHint = 3;
constexpr LD kC = 2;  // every relative RMS error stays below kC * eps * log2(N)
template <class R>
constexpr LD kEps = std::is_same_v<R, float> ? 0x1p-24L : 0x1p-53L;

template <class Rt, class Sp, Shape S, int Id, int Limit>
struct KindBase {
  using R = Rt;
  using Spec = Sp;
  static constexpr Shape shape = S;
  static constexpr int id = Id, limit = Limit, layouts = S == kReal ? 3 : 1;
};
// The six kinds, their identifiers and order limits, their functions indexed by layout.
#define VEKS_COMPLEX_KIND(Name, T, Rt, Sh, Id, Limit)                                        \
  struct Name : KindBase<Rt, VeksFFTSpec_C_##T, Sh, Id, Limit> {                             \
    static constexpr auto get_size = veksFFTGetSize_C_##T;                                   \
    static constexpr auto init = veksFFTInit_C_##T;                                          \
    static constexpr decltype(&veksFFTFwd_CToC_##T) fwd[] = {veksFFTFwd_CToC_##T},           \
                                                    inv[] = {veksFFTInv_CToC_##T};           \
    static constexpr decltype(&veksFFTFwd_CToC_##T##_I) fwd_i[] = {veksFFTFwd_CToC_##T##_I}, \
                                                        inv_i[] = {veksFFTInv_CToC_##T##_I}; \
  };
#define VEKS_REAL_KIND(Name, T, Id, Limit)                                                        \
  struct Name : KindBase<Vek##T, VeksFFTSpec_R_##T, kReal, Id, Limit> {                           \
    static constexpr auto get_size = veksFFTGetSize_R_##T;                                        \
    static constexpr auto init = veksFFTInit_R_##T;                                               \
    static constexpr decltype(&veksFFTFwd_RToPack_##T) fwd[] = {veksFFTFwd_RToPack_##T,           \
                                                                veksFFTFwd_RToPerm_##T,           \
                                                                veksFFTFwd_RToCCS_##T},           \
                                                       inv[] = {veksFFTInv_PackToR_##T,           \
                                                                veksFFTInv_PermToR_##T,           \
                                                                veksFFTInv_CCSToR_##T};           \
    static constexpr decltype(&veksFFTFwd_RToPack_##T##_I) fwd_i[] = {veksFFTFwd_RToPack_##T##_I, \
                                                                      veksFFTFwd_RToPerm_##T##_I, \
                                                                      veksFFTFwd_RToCCS_##T##_I}, \
                                                           inv_i[] = {veksFFTInv_PackToR_##T##_I, \
                                                                      veksFFTInv_PermToR_##T##_I, \
                                                                      veksFFTInv_CCSToR_##T##_I}; \
  };
VEKS_COMPLEX_KIND(C32fc, 32fc, float, kInter, 4, 28)
VEKS_COMPLEX_KIND(C32f, 32f, float, kSplit, 5, 28)
VEKS_REAL_KIND(R32f, 32f, 6, 29)
VEKS_COMPLEX_KIND(C64fc, 64fc, double, kInter, 7, 27)
VEKS_COMPLEX_KIND(C64f, 64f, double, kSplit, 8, 27)
VEKS_REAL_KIND(R64f, 64f, 9, 28)

constexpr long long r64(long long v) { return (v + 63) / 64 * 64; }
unsigned char* align64(unsigned char* p) {
  return p + (64 - reinterpret_cast<uintptr_t>(p) % 64) % 64;
}
size_t ccs_len(size_t n) { return n == 1 ? 2 : n + 2; }

// A caller block of exactly `size` bytes starting `offset` bytes past a 64-byte boundary; it ends
// its allocation, and every byte starts as kFill.
class Exact {
 public:
  static constexpr unsigned char kFill = 0xE5;
  Exact() = default;
  explicit Exact(size_t size, size_t offset = 1)
      : size_(size),
        off_(offset),
        raw_(static_cast<unsigned char*>(::operator new (size + offset, std::align_val_t{64}))) {
    std::memset(raw_.get(), kFill, size + offset);
  }
  unsigned char* get() const { return size_ ? raw_.get() + off_ : nullptr; }
  static bool filled(const unsigned char* from, const unsigned char* to) {
    return std::all_of(from, to, [](unsigned char c) { return c == kFill; });
  }

 private:
  struct Free {
    void operator()(unsigned char* p) const { ::operator delete (p, std::align_val_t{64}); }
  };
  size_t size_ = 0, off_ = 0;
  std::unique_ptr<unsigned char, Free> raw_;
};

// GetSize, exact allocations and Init for one order and flag.
template <class K>
struct Plan {
  Plan(int order, int flag, size_t offset = 1) {
    EXPECT_EQ(K::get_size(order, flag, kHint, &spec_size, &init_size, &work_size), vekStatusOk);
    spec = Exact(size_t(std::max(spec_size, 0)), offset);
    init = Exact(size_t(std::max(init_size, 0)));
    work = Exact(size_t(std::max(work_size, 0)));
    EXPECT_EQ(K::init(&h, order, flag, kHint, spec.get(), init.get()), vekStatusOk)
        << "order " << order << ", flag " << flag;
  }
  unsigned char* buf() const { return work.get(); }  // null when no work buffer is needed
  int spec_size = 0, init_size = 0, work_size = 0;
  Exact spec, init, work;
  typename K::Spec* h = nullptr;
};

template <class R>
using Cplx = std::conditional_t<std::is_same_v<R, float>, Vek32fc, Vek64fc>;

// One execution call; d holds the data pointers in argument order.
template <class K>
VekStatus invoke(bool inv, int lay, bool in_place, const std::array<typename K::R*, 4>& d,
                 const typename K::Spec* h, unsigned char* w) {
  if constexpr (K::shape == kSplit) {
    return in_place ? (inv ? K::inv_i : K::fwd_i)[0](d[0], d[1], h, w)
                    : (inv ? K::inv : K::fwd)[0](d[0], d[1], d[2], d[3], h, w);
  } else {
    using E = std::conditional_t<K::shape == kInter, Cplx<typename K::R>, typename K::R>;
    const auto e = [&](int i) { return reinterpret_cast<E*>(d[i]); };
    return in_place ? (inv ? K::inv_i : K::fwd_i)[lay](e(0), h, w)
                    : (inv ? K::inv : K::fwd)[lay](e(0), e(1), h, w);
  }
}

// One transform on guarded copies of x placed `mis` bytes past a 64-byte boundary (complex
// values interleaved, also for the split kinds); returns the out_n output values and checks the
// status, the guards and, out of place, that the source was left alone.
template <class K>
std::vector<typename K::R> run(const typename K::Spec* h, unsigned char* w, bool inv, int lay,
                               bool in_place, const std::vector<typename K::R>& x, size_t out_n,
                               size_t mis = 0) {
  using R = typename K::R;
  const size_t parts = K::shape == kSplit ? 2 : 1, in_n = x.size() / parts, o_n = out_n / parts;
  std::vector<Guarded<R>> b;
  b.reserve(4);
  for (size_t p = 0; p < parts; ++p) b.emplace_back(in_place ? std::max(in_n, o_n) : in_n, mis);
  for (size_t p = 0; p < parts && !in_place; ++p) b.emplace_back(o_n, mis);
  std::array<R*, 4> d{};
  for (size_t i = 0; i < b.size(); ++i) d[i] = b[i].data();
  for (size_t i = 0; i < x.size(); ++i) b[i % parts][i / parts] = x[i];
  for (auto& g : b) g.remember();
  EXPECT_EQ(invoke<K>(inv, lay, in_place, d, h, w), vekStatusOk);
  const size_t o = in_place ? 0 : parts;
  std::vector<R> out(out_n);
  for (size_t i = 0; i < out_n; ++i) out[i] = b[o + i % parts][i / parts];
  for (size_t i = 0; i < b.size(); ++i) {
    EXPECT_TRUE(b[i].guards_intact()) << "wrote outside vector " << i;
    if (i < o) {
      EXPECT_TRUE(b[i].unchanged()) << "wrote into the source";
    }
  }
  return out;
}

template <class R>
bool same_bits(const std::vector<R>& a, const std::vector<R>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(R)) == 0;
}
template <class R>
std::vector<R> random_vec(size_t n, std::mt19937& gen) {
  std::uniform_real_distribution<float> u(-1, 1);  // values exact in both precisions
  std::vector<R> v(n);
  for (auto& e : v) e = u(gen);
  return v;
}
// sqrt(sum |got - scale * want|^2 / sum |scale * want|^2)
template <class R>
LD rel_rms(const std::vector<R>& got, const std::vector<LD>& want, LD scale) {
  if (got.size() != want.size()) return INFINITY;
  LD e = 0, r = 0;
  for (size_t i = 0; i < got.size(); ++i) {
    const LD w = want[i] * scale, d = got[i] - w;
    e += d * d, r += w * w;
  }
  return std::sqrt(e / r);
}
LD scale_of(int flag, bool inv, size_t n) {
  if (flag == VEK_FFT_NORM_SQRT_N) return 1 / std::sqrt(LD(n));
  return flag == (inv ? VEK_FFT_NORM_INV_N : VEK_FFT_NORM_FWD_N) ? 1 / LD(n) : 1;
}

// A CCS spectrum (R0 0 R1 I1 ... R(N/2) 0) in the given layout.
template <class V>
std::vector<V> layout_of(const std::vector<V>& ccs, int lay, size_t n) {
  if (lay == kCCS) return ccs;
  std::vector<V> out{ccs[0]};
  if (n == 1) return out;
  if (lay == kPerm) out.push_back(ccs[n]);
  out.insert(out.end(), ccs.begin() + 2, ccs.begin() + static_cast<ptrdiff_t>(n + (lay == kPack)));
  return out;
}

// exp(-2*pi*i*j/n) for j < n, from sinl/cosl of the exact fraction j/n.
std::vector<CL> roots(size_t n) {
  std::vector<CL> w(n);
  for (size_t j = 0; j < n; ++j) {
    const LD a = 2 * std::numbers::pi_v<LD> * LD(j) / LD(n);
    w[j] = {std::cos(a), -std::sin(a)};
  }
  return w;
}
CL mul(CL a, CL b) {
  return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}
void radix2(const CL* x, size_t stride, CL* y, size_t n, const CL* w, size_t wstride) {
  if (n == 1) return void(y[0] = x[0]);
  radix2(x, 2 * stride, y, n / 2, w, 2 * wstride);
  radix2(x + stride, 2 * stride, y + n / 2, n / 2, w, 2 * wstride);
  for (size_t k = 0; k < n / 2; ++k) {
    const CL a = y[k], t = mul(w[k * wstride], y[k + n / 2]);
    y[k] = a + t, y[k + n / 2] = a - t;
  }
}
// Forward DFT in long double: the direct sum up to 4096 points, radix-2 above.
std::vector<CL> dft(const std::vector<CL>& x, const std::vector<CL>& w) {
  const size_t n = x.size();
  std::vector<CL> y(n);
  if (n > 4096) return radix2(x.data(), 1, y.data(), n, w.data(), 1), y;
  for (size_t k = 0; k < n; ++k)
    for (size_t j = 0; j < n; ++j) y[k] += mul(x[j], w[(k * j) & (n - 1)]);
  return y;
}

// One order's input and references: x holds n complex values (its real parts are the real
// signal, its first n/2 + 1 values the half of a Hermitian spectrum, DC and Nyquist taken real).
struct Case {
  explicit Case(int ord) : order(ord), n(size_t{1} << ord) {
    std::mt19937 gen(unsigned(ord) * 7919u + 1);
    x = random_vec<float>(2 * n, gen);
    const auto w = roots(n);
    std::vector<CL> xc(n), y(n);
    for (size_t j = 0; j < n; ++j) xc[j] = {x[2 * j], x[2 * j + 1]};
    z = dft(xc, w);
    half.assign(x.begin(), x.begin() + static_cast<ptrdiff_t>(ccs_len(n)));
    half[1] = 0, half.back() = 0;
    for (size_t k = 0; k < n; ++k) {
      const size_t h = std::min(k, n - k);
      y[k] = {half[2 * h], k > n / 2 ? -half[2 * h + 1] : half[2 * h + 1]};
    }
    yd = dft(y, w);
  }
  int order;
  size_t n;
  std::vector<float> x;
  std::vector<CL> z, yd;  // DFT of x; DFT of the Hermitian spectrum
  std::vector<LD> half;   // that spectrum in CCS order
};

// The input of one transform of kind K and its unscaled reference output.
template <class K>
std::pair<std::vector<typename K::R>, std::vector<LD>> io(const Case& c, bool inv, int lay) {
  const size_t n = c.n, mask = n - 1;
  std::vector<typename K::R> in;
  std::vector<LD> want;
  if constexpr (K::shape != kReal) {
    in.assign(c.x.begin(), c.x.end());
    for (size_t k = 0; k < n; ++k) {
      const CL v = c.z[inv ? (n - k) & mask : k];  // the inverse sum is the forward one reversed
      want.push_back(v.real()), want.push_back(v.imag());
    }
  } else if (!inv) {
    for (size_t j = 0; j < n; ++j) in.push_back(c.x[2 * j]);
    std::vector<LD> ccs;
    for (size_t k = 0; 2 * k <= n; ++k) {  // the spectrum of the real parts
      const CL v = (c.z[k] + std::conj(c.z[(n - k) & mask])) / LD(2);
      ccs.push_back(v.real()), ccs.push_back(v.imag());
    }
    want = layout_of(ccs, lay, n);
  } else {
    for (LD v : layout_of(c.half, lay, n)) in.push_back(static_cast<typename K::R>(v));
    for (size_t j = 0; j < n; ++j) want.push_back(c.yd[(n - j) & mask].real());
  }
  return {in, want};
}

// Each flag, direction and layout of kind K against the references; returns the largest error
// in units of eps * log2(N).
template <class K>
LD check_accuracy(const Case& c, std::initializer_list<int> flags) {
  using R = typename K::R;
  const LD unit = kEps<R> * std::max(c.order, 1);
  LD worst = 0;
  for (int flag : flags) {
    Plan<K> p(c.order, flag);
    for (int inv = 0; inv < 2; ++inv)
      for (int lay = 0; lay < K::layouts; ++lay) {
        const auto [in, want] = io<K>(c, inv, lay);
        const auto got =
            run<K>(p.h, p.buf(), inv, lay, false, in, want.size(), sizeof(R) * size_t(c.order % 3));
        const LD err = rel_rms(got, want, scale_of(flag, inv, c.n));
        EXPECT_LE(err, c.order ? kC * unit : 0)  // one point is copied
            << "order " << c.order << ", flag " << flag << (inv ? ", inverse" : ", forward")
            << ", layout " << lay;
        worst = std::max(worst, err / unit);
      }
  }
  return worst;
}

template <class K>
class FFT : public ::testing::Test {};
using Kinds = ::testing::Types<C32fc, C32f, R32f, C64fc, C64f, R64f>;
TYPED_TEST_SUITE(FFT, Kinds);

TYPED_TEST(FFT, MatchesTheReferenceAtEveryOrderAndFlag) {
  LD worst = 0;
  for (int order = 0; order <= 16; ++order)
    worst = std::max(worst, check_accuracy<TypeParam>(Case(order), {1, 2, 4, 8}));
  std::printf("largest error: %.3Lf eps log2(N)\n", worst);
}

// Larger orders, where the blocked algorithm runs (from 19 in 32f, 18 in 64f; one more for the
// real kinds, whose complex pass runs at half length).
struct Large {
  const char* name;
  LD (*check)(const Case&, std::initializer_list<int>);
  int order;
};
class FFTLarge : public ::testing::TestWithParam<Large> {};
TEST_P(FFTLarge, MatchesTheReference) {
  const LD worst = GetParam().check(Case(GetParam().order), {1, 2});
  std::printf("largest error: %.3Lf eps log2(N)\n", worst);
}
INSTANTIATE_TEST_SUITE_P(
    Orders, FFTLarge,
    ::testing::Values(
        Large{"C32fc_19", check_accuracy<C32fc>, 19}, Large{"C32fc_20", check_accuracy<C32fc>, 20},
        Large{"C32fc_22", check_accuracy<C32fc>, 22}, Large{"C32f_19", check_accuracy<C32f>, 19},
        Large{"R32f_19", check_accuracy<R32f>, 19}, Large{"R32f_20", check_accuracy<R32f>, 20},
        Large{"R32f_22", check_accuracy<R32f>, 22}, Large{"C64fc_18", check_accuracy<C64fc>, 18},
        Large{"C64fc_20", check_accuracy<C64fc>, 20}, Large{"C64f_18", check_accuracy<C64f>, 18},
        Large{"R64f_19", check_accuracy<R64f>, 19}, Large{"R64f_21", check_accuracy<R64f>, 21}),
    [](const auto& param) { return std::string(param.param.name); });

// In place and out of place agree bit for bit at every order up to 20; the inverse of the forward
// returns the input (times N unnormalised); the three packed layouts of one signal hold the same
// numbers, and their inverses agree.
TYPED_TEST(FFT, InPlaceMatchesOutOfPlaceAndRoundTrips) {
  using K = TypeParam;
  using R = typename K::R;
  std::mt19937 gen(7);
  for (int order = 0; order <= 20; ++order) {
    const int flag = kFlags[order % 4];
    const size_t n = size_t{1} << order, mis = sizeof(R) * size_t(order % 3);
    Plan<K> p(order, flag);
    const auto x = random_vec<R>(K::shape == kReal ? n : 2 * n, gen);
    const std::vector<LD> want(x.begin(), x.end());
    std::vector<R> y[3], z[3];
    for (int lay = 0; lay < K::layouts; ++lay) {
      const size_t spec_n = K::shape != kReal ? 2 * n : lay == kCCS ? ccs_len(n) : n;
      y[lay] = run<K>(p.h, p.buf(), false, lay, false, x, spec_n, mis);
      EXPECT_TRUE(same_bits(y[lay], run<K>(p.h, p.buf(), false, lay, true, x, spec_n, mis)))
          << "forward, order " << order << ", layout " << lay;
      z[lay] = run<K>(p.h, p.buf(), true, lay, false, y[lay], x.size(), mis);
      EXPECT_TRUE(same_bits(z[lay], run<K>(p.h, p.buf(), true, lay, true, y[lay], x.size(), mis)))
          << "inverse, order " << order << ", layout " << lay;
      const LD err = rel_rms(z[lay], want, flag == VEK_FFT_NORM_NONE ? LD(n) : 1);
      EXPECT_LE(err, 2 * kC * kEps<R> * order)
          << "round trip, order " << order << ", flag " << flag;
    }
    if constexpr (K::shape == kReal) {
      EXPECT_TRUE(same_bits(y[kPack], layout_of(y[kCCS], kPack, n))) << "order " << order;
      EXPECT_TRUE(same_bits(y[kPerm], layout_of(y[kCCS], kPerm, n))) << "order " << order;
      EXPECT_EQ(y[kCCS][1], 0) << "order " << order;
      EXPECT_EQ(y[kCCS].back(), 0) << "order " << order;
      EXPECT_TRUE(same_bits(z[kPack], z[kPerm]) && same_bits(z[kCCS], z[kPerm])) << order;
    }
  }
}

// The sizes the tables fix, or nothing where the blocked large-order tables decide them.
struct Sizes {
  long long spec, init, work;
  bool spec_at_least;  // the 64f recombination tables are sized by the implementation
};
template <class K>
std::optional<Sizes> fixed_sizes(int order) {
  constexpr bool f32 = std::is_same_v<typename K::R, float>;
  const long long n = 1LL << order, cs = f32 ? 8 : 16;  // cs: bytes of one complex value
  const long long init = order >= 11 ? r64(f32 ? n + 4 : 2 * n + 8) + 64 : 0;  // base sine table
  if (K::shape != kReal) {
    if (order <= 6) return Sizes{208, 0, 0, false};
    if (order > (f32 ? 18 : 17)) return std::nullopt;
    return Sizes{r64(cs * n + cs) + r64(n + 4) + 256, init, r64(cs * n) + 64, false};
  }
  if (order <= 4) return Sizes{208, 0, 0, false};
  if (order > (f32 ? 19 : 18)) return std::nullopt;
  // Two recombination tables of N/4 complex factors each, two-level from order 19 in 32f.
  const long long rec = f32 && order >= 19 ? 8192 + (8LL << (order - 12)) : r64(cs * n / 4);
  if (order <= 7) return Sizes{2 * rec + 256, 0, 0, !f32};
  const long long m = n / 2;
  return Sizes{r64(cs * m + cs) + r64(m + 4) + 2 * rec + 256, init, r64(cs * m) + 64, !f32};
}

TYPED_TEST(FFT, GetSizeReportsTheTableSizesAndChecksInOrder) {
  using K = TypeParam;
  constexpr bool f32 = std::is_same_v<typename K::R, float>;
  int s[3];
  const auto size = [&](int order, int flag, int null_at = -1) {
    int* q[3] = {&s[0], &s[1], &s[2]};
    if (null_at >= 0) q[null_at] = nullptr;
    return K::get_size(order, flag, kHint, q[0], q[1], q[2]);
  };
  for (int order = 0; order <= K::limit; ++order) {
    ASSERT_EQ(size(order, 1), vekStatusOk) << order;
    const std::array<long long, 3> got{s[0], s[1], s[2]};
    for (int flag : {2, 4, 8}) {
      EXPECT_EQ(size(order, flag), vekStatusOk);
      EXPECT_EQ((std::array<long long, 3>{s[0], s[1], s[2]}), got)
          << "flag " << flag << ", order " << order;
    }
    if (const auto f = fixed_sizes<K>(order)) {
      EXPECT_TRUE(f->spec_at_least ? got[0] >= f->spec : got[0] == f->spec)
          << "order " << order << ": " << got[0] << ", want " << f->spec;
      EXPECT_EQ(got[1], f->init) << order;
      EXPECT_EQ(got[2], f->work) << order;
    } else {  // the recombination tables and the base sine table at least; no overflow
      const long long n = 1LL << order;
      const long long rec = K::shape == kReal && f32 ? 2 * (8192 + (8LL << (order - 12))) : 0;
      EXPECT_GE(got[0], rec + 256) << order;
      EXPECT_GE(got[1], r64(f32 ? n + 4 : 2 * n + 8) + 64) << order;
      EXPECT_GE(got[2], 0) << order;
    }
  }
  // The order is checked against 0..30 first, the pointers, the flag, then the kind's limit.
  for (int order : {-1, 31, INT_MIN, INT_MAX}) EXPECT_EQ(size(order, 3), vekStatusBadFftOrder);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(size(31, 3, i), vekStatusBadFftOrder);
    EXPECT_EQ(size(30, 3, i), vekStatusNullPtr);
  }
  for (int flag : {0, 3, 5, 16, -1}) EXPECT_EQ(size(0, flag), vekStatusBadFftFlag);
  EXPECT_EQ(size(30, 3), vekStatusBadFftFlag);
  EXPECT_EQ(size(K::limit + 1, 3), vekStatusBadFftFlag);
  EXPECT_EQ(size(K::limit + 1, 1), vekStatusBadFftOrder);
  EXPECT_EQ(size(30, 8), vekStatusBadFftOrder);
}

TEST(FFTSizes, SplitKindsShareTheInterleavedSizes) {
  for (int order = 0; order <= 28; ++order)
    for (int flag : kFlags) {
      int a[3], b[3], c[3], d[3];
      EXPECT_EQ(veksFFTGetSize_C_32fc(order, flag, 0, &a[0], &a[1], &a[2]), vekStatusOk);
      EXPECT_EQ(veksFFTGetSize_C_32f(order, flag, 0, &b[0], &b[1], &b[2]), vekStatusOk);
      EXPECT_EQ(0, std::memcmp(a, b, sizeof a)) << order;
      if (order > 27) continue;
      EXPECT_EQ(veksFFTGetSize_C_64fc(order, flag, 0, &c[0], &c[1], &c[2]), vekStatusOk);
      EXPECT_EQ(veksFFTGetSize_C_64f(order, flag, 0, &d[0], &d[1], &d[2]), vekStatusOk);
      EXPECT_EQ(0, std::memcmp(c, d, sizeof c)) << order;
    }
}

// The first header fields; the scale factor is a float in 32f specifications, a double in 64f.
template <class R>
struct Header {
  int32_t id, order, fwd_scaled, inv_scaled;
  R scale;
  int32_t hint, work, zero;
};
template <class R>
Header<R> header_of(const void* h) {
  Header<R> v;
  std::memcpy(&v, h, sizeof v);
  return v;
}

TYPED_TEST(FFT, InitChecksInOrderAndFillsTheHeader) {
  using K = TypeParam;
  using R = typename K::R;
  using Spec = typename K::Spec;
  Spec* const unset = reinterpret_cast<Spec*>(uintptr_t{0x4000});
  Spec* h = unset;
  int sz[3];
  ASSERT_EQ(K::get_size(11, 1, kHint, &sz[0], &sz[1], &sz[2]), vekStatusOk);
  const Exact blk{size_t(sz[0])};
  unsigned char* const at = align64(blk.get());
  EXPECT_EQ(K::init(nullptr, -1, 3, kHint, nullptr, nullptr), vekStatusNullPtr);
  for (int order : {-1, K::limit + 1, INT_MIN})
    EXPECT_EQ(K::init(&h, order, 3, kHint, nullptr, nullptr), vekStatusBadFftOrder);
  EXPECT_EQ(K::init(&h, 3, 3, kHint, nullptr, nullptr), vekStatusNullPtr);
  for (int flag : {0, 3, 16, -1}) {  // a zeroed header holding the order and the hint
    EXPECT_EQ(K::init(&h, 5, flag, kHint, blk.get(), nullptr), vekStatusBadFftFlag);
    unsigned char want[144] = {};
    const int32_t order = 5, hint = kHint;
    std::memcpy(want + offsetof(Header<R>, order), &order, 4);
    std::memcpy(want + offsetof(Header<R>, hint), &hint, 4);
    EXPECT_EQ(0, std::memcmp(at, want, sizeof want)) << "flag " << flag;
    EXPECT_TRUE(Exact::filled(blk.get(), at)) << "wrote before the aligned handle";
  }
  EXPECT_EQ(K::init(&h, 11, 1, kHint, blk.get(), nullptr), vekStatusNullPtr);
  EXPECT_EQ(h, unset) << "the handle is written only on success";

  for (int order = 0; order <= 20; ++order)
    for (int flag : kFlags) {
      const Plan<K> p(order, flag);
      const auto f = header_of<R>(p.h);
      const size_t n = size_t{1} << order;
      const R scale = flag == VEK_FFT_NORM_SQRT_N ? static_cast<R>(1 / std::sqrt(double(n)))
                      : flag == VEK_FFT_NORM_NONE ? R(0)
                                                  : R(1) / static_cast<R>(n);
      EXPECT_EQ(reinterpret_cast<unsigned char*>(p.h), align64(p.spec.get()));
      EXPECT_EQ(f.id, K::id);
      EXPECT_EQ(f.order, order);
      EXPECT_EQ(f.fwd_scaled, flag == VEK_FFT_NORM_FWD_N || flag == VEK_FFT_NORM_SQRT_N);
      EXPECT_EQ(f.inv_scaled, flag == VEK_FFT_NORM_INV_N || flag == VEK_FFT_NORM_SQRT_N);
      EXPECT_EQ(f.scale, scale) << "order " << order << ", flag " << flag;
      EXPECT_EQ(f.hint, kHint);
      EXPECT_EQ(f.work, std::max(p.work_size - 64, 0)) << "order " << order;
      EXPECT_EQ(f.zero, 0);
    }
  if constexpr (std::is_same_v<R, float>) {
    EXPECT_EQ(header_of<R>(Plan<K>(1, VEK_FFT_NORM_SQRT_N).h).scale, 0.70710677f);
  }
}

// Specifications built at an unaligned address and at an aligned one hold the same bytes from
// their handles on; words that point into the block are compared as offsets from the handle.
TYPED_TEST(FFT, SpecificationContentDoesNotDependOnAlignment) {
  using K = TypeParam;
  for (int order : {0, 4, 6, 7, 9, 12, 18, 19, 20}) {
    const Plan<K> a(order, VEK_FFT_NORM_SQRT_N, 1), b(order, VEK_FFT_NORM_SQRT_N, 0);
    const auto* ha = reinterpret_cast<const unsigned char*>(a.h);
    const auto* hb = reinterpret_cast<const unsigned char*>(b.h);
    ASSERT_EQ(ha, a.spec.get() + 63);
    ASSERT_EQ(hb, b.spec.get());
    EXPECT_TRUE(Exact::filled(a.spec.get(), ha)) << "wrote before the handle";
    const size_t len = size_t(a.spec_size) - 64;
    size_t differ = 0;
    for (size_t i = 0; i + 8 <= len; i += 8) {
      uint64_t u, v;
      std::memcpy(&u, ha + i, 8), std::memcpy(&v, hb + i, 8);
      const uint64_t ua = reinterpret_cast<uintptr_t>(ha), ub = reinterpret_cast<uintptr_t>(hb);
      differ += u >= ua && u < ua + len ? v - ub != u - ua : u != v;
    }
    EXPECT_EQ(differ, 0u) << "order " << order;
    EXPECT_EQ(0, std::memcmp(ha + len / 8 * 8, hb + len / 8 * 8, len % 8));
  }
}

TYPED_TEST(FFT, ExecutionChecksWriteNothing) {
  using K = TypeParam;
  using R = typename K::R;
  using Spec = typename K::Spec;
  const auto set_id = [](Spec* h, int32_t id) { std::memcpy(h, &id, sizeof id); };
  for (int order : {3, 10}) {  // no work buffer; a work buffer for every kind
    Plan<K> p(order, VEK_FFT_NORM_SQRT_N);
    const Exact failed{size_t(p.spec_size)};
    Spec* unused = nullptr;
    ASSERT_EQ(K::init(&unused, order, 3, kHint, failed.get(), p.init.get()), vekStatusBadFftFlag);
    const auto* zeroed = reinterpret_cast<const Spec*>(align64(failed.get()));
    for (int inv = 0; inv < 2; ++inv)
      for (int lay = 0; lay < K::layouts; ++lay)
        for (int ip = 0; ip < 2; ++ip) {
          std::vector<Guarded<R>> g;
          g.reserve(4);
          std::array<R*, 4> d{};
          const int np = (K::shape == kSplit ? 2 : 1) * (ip ? 1 : 2);
          for (int i = 0; i < np; ++i)
            d[size_t(i)] = g.emplace_back((size_t{2} << order) + 2).data();
          const auto expect = [&](VekStatus want, std::array<R*, 4> dd, const Spec* h,
                                  unsigned char* w, const char* what) {
            EXPECT_EQ(invoke<K>(inv, lay, ip, dd, h, w), want)
                << what << ", order " << order << ", inverse " << inv << ", layout " << lay
                << ", in place " << ip;
            for (auto& b : g) EXPECT_TRUE(b.unchanged()) << what;
          };
          expect(vekStatusNullPtr, d, nullptr, p.buf(), "null specification");
          expect(vekStatusNullPtr, {}, nullptr, nullptr, "null specification and data");
          expect(vekStatusSpecMismatch, d, zeroed, p.buf(), "specification of a failed Init");
          expect(vekStatusSpecMismatch, {}, zeroed, nullptr, "identifier before the data");
          for (int32_t id : {0, 4, 5, 6, 7, 8, 9, 13, -1}) {
            if (id == K::id) continue;
            set_id(p.h, id);
            expect(vekStatusSpecMismatch, d, p.h, p.buf(), "identifier of another kind");
          }
          set_id(p.h, K::id);
          for (int i = 0; i < np; ++i) {
            auto dd = d;
            dd[size_t(i)] = nullptr;
            expect(vekStatusNullPtr, dd, p.h, p.buf(), "null data pointer");
          }
          if (p.work_size > 0) expect(vekStatusNullPtr, d, p.h, nullptr, "null work buffer");
          if (p.work_size == 0) {  // and accepted when none is needed
            EXPECT_EQ(invoke<K>(inv, lay, ip, d, p.h, nullptr), vekStatusOk);
          }
        }
  }
}

// One specification used by two threads at once, each with its own work buffer, gives the
// serial results; order 20 runs the blocked algorithm.
TYPED_TEST(FFT, OneSpecificationServesTwoThreads) {
  using K = TypeParam;
  using R = typename K::R;
  std::mt19937 gen(11);
  const int lay = K::shape == kReal ? kPerm : 0;
  for (int order : {11, 20}) {
    const Plan<K> p(order, VEK_FFT_NORM_SQRT_N);
    const size_t len = (K::shape == kReal ? size_t{1} : size_t{2}) << order;
    std::vector<std::vector<R>> in(6), serial(6), par(6);
    for (size_t j = 0; j < in.size(); ++j) {
      in[j] = random_vec<R>(len, gen);
      serial[j] = run<K>(p.h, p.buf(), j & 1, lay, false, in[j], len);
    }
    const auto worker = [&](size_t first) {
      const Exact w{size_t(p.work_size)};
      for (size_t j = first; j < in.size(); j += 2)
        par[j] = run<K>(p.h, w.get(), j & 1, lay, false, in[j], len);
    };
    std::thread t0(worker, 0), t1(worker, 1);
    t0.join(), t1.join();
    for (size_t j = 0; j < in.size(); ++j)
      EXPECT_TRUE(same_bits(serial[j], par[j])) << "order " << order << ", transform " << j;
  }
}

}  // namespace
