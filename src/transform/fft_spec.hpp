// Layout of the FFT specification block and the per-kind constants.
#pragma once

#include <cstddef>
#include <cstdint>

#include "transform/fft_kernels.hpp"
#include "veks.h"

namespace veks::fft {

template <class Spec>
struct Kind;
template <class R, int Id, int MaxOrder, bool Real, bool Split>
struct KindOf {
  using real_t = R;
  static constexpr int id = Id, max_order = MaxOrder;
  static constexpr bool real = Real, split = Split;
};
template <>
struct Kind<VeksFFTSpec_C_32fc> : KindOf<float, 4, 28, false, false> {};
template <>
struct Kind<VeksFFTSpec_C_32f> : KindOf<float, 5, 28, false, true> {};
template <>
struct Kind<VeksFFTSpec_R_32f> : KindOf<float, 6, 29, true, false> {};
template <>
struct Kind<VeksFFTSpec_C_64fc> : KindOf<double, 7, 27, false, false> {};
template <>
struct Kind<VeksFFTSpec_C_64f> : KindOf<double, 8, 27, false, true> {};
template <>
struct Kind<VeksFFTSpec_R_64f> : KindOf<double, 9, 28, true, false> {};

// Per precision: complex lanes of a full vector, the last complex order of the cache-resident
// passes, the first real order with two-level recombination tables, the last order whose
// transform runs with all its data in registers (or as good as: its stack frame).
template <class R>
struct Prec;
template <>
struct Prec<float> {
  static constexpr int logv = 3, mid_max = 18, rec_two_level = 19, straight_max = 9;
};
template <>
struct Prec<double> {
  static constexpr int logv = 2, mid_max = 17, rec_two_level = 19, straight_max = 8;
};

constexpr int64_t ru64(int64_t x) { return (x + 63) & ~int64_t{63}; }
constexpr int kHeaderBytes = 144;
constexpr int kSmallSpecBytes = 208;

// Tables of the blocked large-order transform (built by Init, read by execution).
template <class R>
struct LargeTables {
  const Plan* row_plan;  // the row transforms' plan and twiddles
  const R* row_tw;
  const Plan* col_plan;  // the column transforms' plan (vertical passes) and twiddles
  const R* col_tw;
  const R* step;  // W_N^(k l) for k < rows, l < block width
  const R* lo;    // W_N^t for t < 2^lo_bits
  const R* hi;    // W_N^(i 2^lo_bits)
};

template <class R>
struct Header {
  int32_t id;
  int32_t order;
  int32_t fwd_scaled;
  int32_t inv_scaled;
  R scale;
  int32_t hint;
  int32_t work_size;
  int32_t zero;
  const uint8_t* plan;  // pass plan of the complex pass (the permutation-table area)
  const R* twiddle;     // twiddles of the complex pass
  const R* rec_fwd;     // W_N^k, k < N/4 (real kinds)
  const R* rec_inv;     // W_N^-k, k < N/4 (real kinds)
  LargeTables<R> large;
};
static_assert(sizeof(Header<float>) <= kHeaderBytes && sizeof(Header<double>) <= kHeaderBytes);

// Large-order sizes in bytes (without the alignment slack of GetSize).
struct LargeSizes {
  int64_t spec, init, work;
};
template <class R>
LargeSizes large_sizes(int order);
// Builds the large-order tables at `at` (64-byte aligned) from the base sine table of the order.
template <class R>
void large_init(Header<R>* h, uint8_t* at, const R* sine, int sine_order, int order);
// Data of a large transform: interleaved complex values or split real and imaginary arrays.
template <class R>
struct Inter {
  R* p;
};
template <class R>
struct Split {
  R* re;
  R* im;
};
template <class R, bool Inv, class IO>
void large_run(const Header<R>* h, int order, IO src, IO dst, R* work, bool scaled, R scale);

}  // namespace veks::fft
