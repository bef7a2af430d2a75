// The power-of-two transforms against long-double references (a direct DFT up to 4096 points, a
// radix-2 recursion above): every kind, direction, packed layout and normalisation. Vectors are
// guarded; specification, init and work buffers have exactly the size GetSize reports, start one
// byte past a 64-byte boundary and end their allocation (so AddressSanitizer sees any access
// beyond). In place equals out of place bit for bit.
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
#include "vekcore.h"
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
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitized = true;  // the largest orders only in the faster builds
#else
constexpr bool kSanitized = false;
#endif
template <class R>
constexpr LD kEps = std::is_same_v<R, float> ? 0x1p-24L : 0x1p-53L;

template <class Rt, class Sp, Shape S, int Id, int Limit>
struct KindBase {
  using R = Rt;
  using Spec = Sp;
  static constexpr Shape shape = S;
  static constexpr int id = Id, limit = Limit, layouts = S == kReal ? 3 : 1;
};
// The six kinds: identifiers, order limits, functions indexed by layout.
#define VEKS_KIND(Name, Rt, Sh, Id, Limit, T, F, I, S)         \
  struct Name : KindBase<Rt, VeksFFTSpec_##T, Sh, Id, Limit> { \
    static constexpr auto get_size = veksFFTGetSize_##T;       \
    static constexpr auto init = veksFFTInit_##T;              \
    static constexpr std::array fwd{F(veksFFTFwd_, S)};        \
    static constexpr std::array inv{I(veksFFTInv_, S)};        \
    static constexpr std::array fwd_i{F(veksFFTFwd_, S##_I)};  \
    static constexpr std::array inv_i{I(veksFFTInv_, S##_I)};  \
  };
#define VEKS_C(P, S) P##CToC##S
#define VEKS_RF(P, S) P##RToPack##S, P##RToPerm##S, P##RToCCS##S
#define VEKS_RI(P, S) P##PackToR##S, P##PermToR##S, P##CCSToR##S
VEKS_KIND(C32fc, float, kInter, 4, 28, C_32fc, VEKS_C, VEKS_C, _32fc)
VEKS_KIND(C32f, float, kSplit, 5, 28, C_32f, VEKS_C, VEKS_C, _32f)
VEKS_KIND(R32f, float, kReal, 6, 29, R_32f, VEKS_RF, VEKS_RI, _32f)
VEKS_KIND(C64fc, double, kInter, 7, 27, C_64fc, VEKS_C, VEKS_C, _64fc)
VEKS_KIND(C64f, double, kSplit, 8, 27, C_64f, VEKS_C, VEKS_C, _64f)
VEKS_KIND(R64f, double, kReal, 9, 28, R_64f, VEKS_RF, VEKS_RI, _64f)

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

// The first header fields; the scale factor is a float in 32f specifications, a double in 64f.
template <class R>
struct Header {
  int32_t id, order, fwd_scaled, inv_scaled;
  R scale;
  int32_t hint, work, zero;
};

// GetSize, exact allocations and Init for one order and flag; the handle is the aligned block and
// the header holds the kind, order, normalisation, hint and work size.
template <class K>
struct Plan {
  Plan(int order, int flag, size_t offset = 1) {
    using R = typename K::R;
    EXPECT_EQ(K::get_size(order, flag, kHint, &spec_size, &init_size, &work_size), vekStatusOk);
    spec = Exact(size_t(std::max(spec_size, 0)), offset);
    init = Exact(size_t(std::max(init_size, 0)));
    work = Exact(size_t(std::max(work_size, 0)));
    EXPECT_EQ(K::init(&h, order, flag, kHint, spec.get(), init.get()), vekStatusOk)
        << "order " << order << ", flag " << flag;
    if (init_size > 0) std::memset(init.get(), 0x77, size_t(init_size));  // free for reuse now
    const double n = std::ldexp(1.0, order);
    const bool sq = flag == VEK_FFT_NORM_SQRT_N, none = flag == VEK_FFT_NORM_NONE;
    const R scale = sq ? static_cast<R>(1 / std::sqrt(n)) : none ? 0 : R(1) / R(n);
    const Header<R> want{
        K::id, order, flag == 1 || sq, flag == 2 || sq, scale, kHint, std::max(work_size - 64, 0),
        0};
    EXPECT_EQ(reinterpret_cast<unsigned char*>(h), align64(spec.get()));
    EXPECT_EQ(0, std::memcmp(h, &want, offsetof(Header<R>, zero) + 4))
        << "header, order " << order << ", flag " << flag;
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
  for (size_t p = 0; p < (in_place ? 1 : 2) * parts; ++p)
    b.emplace_back(p >= parts ? o_n : in_place ? std::max(in_n, o_n) : in_n, mis);
  std::array<R*, 4> d{};
  for (size_t i = 0; i < b.size(); ++i) d[i] = b[i].data();
  for (size_t i = 0; i < x.size(); ++i) b[i % parts][i / parts] = x[i];
  for (auto& g : b) g.remember();
  EXPECT_EQ(invoke<K>(inv, lay, in_place, d, h, w), vekStatusOk);
  const size_t o = in_place ? 0 : parts;
  std::vector<R> out(out_n);
  for (size_t i = 0; i < out_n; ++i) out[i] = b[o + i % parts][i / parts];
  for (size_t i = 0; i < b.size(); ++i)
    EXPECT_TRUE(b[i].guards_intact() && (i >= o || b[i].unchanged()))
        << "wrote outside vector " << i << " or into the source";
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
  Case(int ord, bool real) : order(ord), n(size_t{1} << ord) {
    std::mt19937 gen(unsigned(ord) * 7919u + 1);
    x = random_vec<float>(2 * n, gen);
    const auto w = roots(n);
    std::vector<CL> xc(n), y(n);
    for (size_t j = 0; j < n; ++j) xc[j] = {x[2 * j], x[2 * j + 1]};
    z = dft(xc, w);
    if (!real) return;
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

// Each flag, direction and layout of kind K against the references. Specifications sit at an
// aligned address for odd orders, one byte past one for even orders.
template <class K>
void check_accuracy(int order, std::initializer_list<int> flags) {
  using R = typename K::R;
  const Case c(order, K::shape == kReal);
  const LD unit = kEps<R> * std::max(c.order, 1);
  for (int flag : flags) {
    Plan<K> p(c.order, flag, 1 - size_t(order % 2));
    for (int inv = 0; inv < 2; ++inv)
      for (int lay = 0; lay < K::layouts; ++lay) {
        const auto [in, want] = io<K>(c, inv, lay);
        const auto got =
            run<K>(p.h, p.buf(), inv, lay, false, in, want.size(), sizeof(R) * size_t(c.order % 3));
        const LD err = rel_rms(got, want, scale_of(flag, inv, c.n));
        EXPECT_LE(err, c.order ? kC * unit : 0)  // one point is copied
            << "order " << c.order << ", flag " << flag << (inv ? ", inverse" : ", forward")
            << ", layout " << lay;
      }
  }
}

template <class K>
class FFT : public ::testing::Test {};
using Kinds = ::testing::Types<C32fc, C32f, R32f, C64fc, C64f, R64f>;
TYPED_TEST_SUITE(FFT, Kinds);

// Every flag to order 16, then two at larger orders, where the blocked algorithm runs (from 19 in
// 32f, 18 in 64f; one more for the real kinds, whose complex pass runs at half length).
TYPED_TEST(FFT, MatchesTheReferenceAtEveryOrderAndFlag) {
  using K = TypeParam;
  constexpr bool f32 = std::is_same_v<typename K::R, float>;
  for (int order = 0; order <= 16; ++order) check_accuracy<K>(order, {1, 2, 4, 8});
  check_accuracy<K>(f32 ? 19 : 18 + (K::shape == kReal), {1, 2});
  if (K::shape != kSplit) check_accuracy<K>(20, {1, 2});
  if (K::shape != kSplit && !kSanitized) check_accuracy<K>(f32 ? 22 : 21, {1, 2});
}

// In place and out of place agree bit for bit at every order up to 20; the inverse of the forward
// returns the input (times N unnormalised); the three packed layouts of one signal hold the same
// numbers, and their inverses agree; execution leaves the specification as Init built it. A small
// reported cache makes the aligned large orders write around the caches out of place.
TYPED_TEST(FFT, InPlaceMatchesOutOfPlaceAndRoundTrips) {
  using K = TypeParam;
  using R = typename K::R;
  std::mt19937 gen(7);
  vekSetMaxCacheSizeB(4 << 20);
  for (int order = 0; order <= 20; ++order) {
    const int flag = kFlags[order % 4];
    const size_t n = size_t{1} << order, mis = sizeof(R) * size_t((order + 1) % 3);
    Plan<K> p(order, flag);
    const std::vector<unsigned char> spec(p.spec.get(), p.spec.get() + p.spec_size);
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
      EXPECT_TRUE(same_bits(y[kPack], layout_of(y[kCCS], kPack, n)) &&
                  same_bits(y[kPerm], layout_of(y[kCCS], kPerm, n)))
          << "order " << order;
      EXPECT_TRUE(y[kCCS][1] == 0 && y[kCCS].back() == 0) << "order " << order;
      EXPECT_TRUE(same_bits(z[kPack], z[kPerm]) && same_bits(z[kCCS], z[kPerm])) << order;
    }
    EXPECT_TRUE(std::equal(spec.begin(), spec.end(), p.spec.get())) << "specification written";
  }
  vekSetMaxCacheSizeB(0);
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
      EXPECT_GT(got[2], 0) << order;
    }
  }
  // The order is checked against 0..30 first, the pointers, the flag, then the kind's limit.
  for (int order : {-1, 31, INT_MIN, INT_MAX}) EXPECT_EQ(size(order, 3), vekStatusBadFftOrder);
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(size(31, 3, i) == vekStatusBadFftOrder && size(30, 3, i) == vekStatusNullPtr) << i;
  for (int flag : {0, 3, 5, 16, -1}) EXPECT_EQ(size(0, flag), vekStatusBadFftFlag);
  EXPECT_EQ(size(30, 3), vekStatusBadFftFlag);
  EXPECT_EQ(size(K::limit + 1, 3), vekStatusBadFftFlag);
  EXPECT_EQ(size(K::limit + 1, 1), vekStatusBadFftOrder);
  EXPECT_EQ(size(30, 8), vekStatusBadFftOrder);
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
    for (int flag : kFlags) (void)Plan<K>(order, flag);  // which checks the header
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
          std::array<R*, 4> d{};
          for (int i = 0; i < (K::shape == kSplit ? 2 : 1) * (ip ? 1 : 2); ++i)
            g.emplace_back((size_t{2} << order) + 2);
          for (size_t i = 0; i < g.size(); ++i) d[i] = g[i].data();
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
          for (size_t i = 0; i < g.size(); ++i) {
            auto dd = d;
            dd[i] = nullptr;
            expect(vekStatusNullPtr, dd, p.h, p.buf(), "null data pointer");
          }
          if (p.work_size > 0) expect(vekStatusNullPtr, d, p.h, nullptr, "null work buffer");
          EXPECT_TRUE(p.work_size > 0 || invoke<K>(inv, lay, ip, d, p.h, nullptr) == vekStatusOk)
              << "no work buffer is needed";
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

// The largest complex transform that fits comfortably: 2 GiB per vector at order 28 (order 24
// under the sanitizer; 4.4 GB in all and about half a minute here). The input is a tone at bin m
// plus a few impulses, whose spectrum is known at any bin: sampled bins estimate the error over all
// of them (rounding the input to float adds about eps / 2). In place must equal out of place, and
// the inverse must return the input.
constexpr int kHugeOrder = kSanitized ? 24 : 28;
TEST(FFTHuge, LargestComplexOrder) {
  using cd = std::complex<double>;
  const size_t n = size_t{1} << kHugeOrder, mask = n - 1, lo_n = 1 << 14, bytes = n * 8;
  const Plan<C32fc> p(kHugeOrder, VEK_FFT_NORM_INV_N);
  std::mt19937_64 gen(5);
  const size_t m = gen() & mask;
  const auto cis = [&](size_t k, LD sign) {  // exp(sign * 2*pi*i*k/N)
    const LD a = 2 * std::numbers::pi_v<LD> * LD(k & mask) / LD(n);
    return CL(std::cos(a), sign * std::sin(a));
  };
  std::vector<cd> lo(lo_n), hi(n / lo_n);  // the tone from two tables of exact angles
  for (size_t t = 0; t < lo_n; ++t) lo[t] = cd(cis(m * t, 1));
  for (size_t u = 0; u < hi.size(); ++u) hi[u] = cd(cis(m * u * lo_n, 1));
  std::vector<std::pair<size_t, cd>> imps(8);
  for (auto& [at, a] : imps) at = gen() & mask, a = cd(double(gen() % 7) - 3, 1.5);
  std::sort(imps.begin(), imps.end(), [](auto& u, auto& v) { return u.first < v.first; });
  const auto each_input = [&](auto&& fn) {
    for (size_t j = 0, k = 0; j < n; ++j) {
      const cd h = hi[j / lo_n], l = lo[j % lo_n];
      cd v(h.real() * l.real() - h.imag() * l.imag(), h.real() * l.imag() + h.imag() * l.real());
      for (; k < imps.size() && imps[k].first == j; ++k) v += imps[k].second;
      fn(j, Vek32fc{float(v.real()), float(v.imag())});
    }
  };
  const Exact src{bytes + 64, 8}, dst{bytes + 64, 8};  // the last 64 bytes stay as guards
  auto *x = reinterpret_cast<Vek32fc*>(src.get()), *y = reinterpret_cast<Vek32fc*>(dst.get());
  double energy = 0, back = 0;
  size_t changed = 0;
  each_input(
      [&](size_t j, Vek32fc v) { x[j] = v, energy += double(v.re) * v.re + double(v.im) * v.im; });
  ASSERT_EQ(veksFFTFwd_CToC_32fc(x, y, p.h, p.buf()), vekStatusOk);
  each_input([&](size_t j, Vek32fc v) { changed += std::memcmp(&x[j], &v, sizeof v) != 0; });
  EXPECT_EQ(changed, 0u) << "wrote into the source";
  LD err = 0, tone_err = 0;  // random bins stand for all but bin m, which counts once
  for (int i = 0; i <= 4096; ++i) {
    const size_t k = i ? gen() & mask : m;
    CL want = k == m ? LD(n) : 0;
    for (auto& [at, a] : imps) want += mul(CL(a.real(), a.imag()), cis(at * k, -1));
    (i ? err : tone_err) += std::norm(CL(y[k].re, y[k].im) - want);
  }
  const LD unit = kEps<float> * kHugeOrder;
  const LD fwd_err = std::sqrt((tone_err + err * LD(n) / 4096) / (LD(n) * energy));
  EXPECT_LE(fwd_err, kC * unit) << "forward";
  ASSERT_EQ(veksFFTFwd_CToC_32fc_I(x, p.h, p.buf()), vekStatusOk);
  EXPECT_EQ(0, std::memcmp(x, y, bytes)) << "in place differs from out of place";
  ASSERT_EQ(veksFFTInv_CToC_32fc_I(y, p.h, p.buf()), vekStatusOk);
  each_input(
      [&](size_t j, Vek32fc v) { back += std::norm(cd(y[j].re, y[j].im) - cd(v.re, v.im)); });
  EXPECT_LE(std::sqrt(back / energy), 2 * kC * unit) << "round trip";
  EXPECT_TRUE(Exact::filled(src.get() + bytes, src.get() + bytes + 64) &&
              Exact::filled(dst.get() + bytes, dst.get() + bytes + 64));
}

}  // namespace
