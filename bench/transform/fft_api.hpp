// The veks power-of-two transforms and their FFTW counterparts, one traits class per precision,
// shared by the transform benchmark and the accuracy tool. Complex buffers are Vek32fc / Vek64fc
// throughout; FFTW reads them through its own complex type, which has the same layout.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#ifdef VEKS_HAVE_FFTW
#include <fftw3.h>
#endif

#include "veks.h"

namespace veks_fft {

[[noreturn]] inline void die(const char* what, int status) {
  std::fprintf(stderr, "%s failed (status %d)\n", what, status);
  std::exit(2);
}

struct Free {
  void operator()(void* p) const { std::free(p); }
};
template <class T>
using Buf = std::unique_ptr<T[], Free>;

// n elements of T, 64-byte aligned, zeroed; exactly n (so that the sanitizers see any access
// beyond them).
template <class T>
Buf<T> alloc(size_t n) {
  const size_t bytes = n > 0 ? n * sizeof(T) : 1;
  void* p = nullptr;
  if (posix_memalign(&p, 64, bytes) != 0) die("posix_memalign", -1);
  std::memset(p, 0, bytes);
  return Buf<T>(static_cast<T*>(p));
}

// A veks specification with its work buffer (any alignment is accepted by the library; these
// are 64-byte aligned anyway). Init's buffer lives only while Init runs.
template <class Spec>
struct VeksPlan {
  using Size = VekStatus (*)(int, int, VekAccuracyHint, int*, int*, int*);
  using Init = VekStatus (*)(Spec**, int, int, VekAccuracyHint, Vek8u*, Vek8u*);
  VeksPlan(int order, int flag, Size size, Init init) {
    int spec_bytes = 0, init_bytes = 0, work_bytes = 0;
    if (VekStatus s = size(order, flag, vekHintNone, &spec_bytes, &init_bytes, &work_bytes); s < 0)
      die("veksFFTGetSize", s);
    mem = alloc<Vek8u>(static_cast<size_t>(spec_bytes));
    Buf<Vek8u> init_buf = alloc<Vek8u>(static_cast<size_t>(init_bytes));
    Spec* handle = nullptr;
    if (VekStatus s = init(&handle, order, flag, vekHintNone, mem.get(), init_buf.get()); s < 0)
      die("veksFFTInit", s);
    spec = handle;
    if (work_bytes > 0) work = alloc<Vek8u>(static_cast<size_t>(work_bytes));
  }
  Buf<Vek8u> mem, work;
  const Spec* spec = nullptr;
  Vek8u* buf() const { return work.get(); }
};

template <class R>
struct Api;

template <>
struct Api<float> {
  using C = Vek32fc;
  static constexpr const char* name = "32f";
  using SpecC = VeksFFTSpec_C_32fc;
  using SpecS = VeksFFTSpec_C_32f;
  using SpecR = VeksFFTSpec_R_32f;
  static constexpr auto size_c = &veksFFTGetSize_C_32fc;
  static constexpr auto init_c = &veksFFTInit_C_32fc;
  static constexpr auto size_s = &veksFFTGetSize_C_32f;
  static constexpr auto init_s = &veksFFTInit_C_32f;
  static constexpr auto size_r = &veksFFTGetSize_R_32f;
  static constexpr auto init_r = &veksFFTInit_R_32f;
  static constexpr auto fwd_c = &veksFFTFwd_CToC_32fc;
  static constexpr auto inv_c = &veksFFTInv_CToC_32fc;
  static constexpr auto fwd_c_i = &veksFFTFwd_CToC_32fc_I;
  static constexpr auto inv_c_i = &veksFFTInv_CToC_32fc_I;
  static constexpr auto fwd_s = &veksFFTFwd_CToC_32f;
  static constexpr auto inv_s = &veksFFTInv_CToC_32f;
  static constexpr auto fwd_s_i = &veksFFTFwd_CToC_32f_I;
  static constexpr auto inv_s_i = &veksFFTInv_CToC_32f_I;
  static constexpr auto fwd_perm = &veksFFTFwd_RToPerm_32f;
  static constexpr auto fwd_pack = &veksFFTFwd_RToPack_32f;
  static constexpr auto fwd_ccs = &veksFFTFwd_RToCCS_32f;
  static constexpr auto fwd_perm_i = &veksFFTFwd_RToPerm_32f_I;
  static constexpr auto fwd_pack_i = &veksFFTFwd_RToPack_32f_I;
  static constexpr auto fwd_ccs_i = &veksFFTFwd_RToCCS_32f_I;
  static constexpr auto inv_perm = &veksFFTInv_PermToR_32f;
  static constexpr auto inv_pack = &veksFFTInv_PackToR_32f;
  static constexpr auto inv_ccs = &veksFFTInv_CCSToR_32f;
  static constexpr auto inv_perm_i = &veksFFTInv_PermToR_32f_I;
  static constexpr auto inv_pack_i = &veksFFTInv_PackToR_32f_I;
  static constexpr auto inv_ccs_i = &veksFFTInv_CCSToR_32f_I;
#ifdef VEKS_HAVE_FFTW
  using Plan = fftwf_plan;
  static Plan dft(int n, C* in, C* out, int sign, unsigned flags) {
    return fftwf_plan_dft_1d(n, reinterpret_cast<fftwf_complex*>(in),
                             reinterpret_cast<fftwf_complex*>(out), sign, flags);
  }
  static Plan r2c(int n, float* in, C* out, unsigned flags) {
    return fftwf_plan_dft_r2c_1d(n, in, reinterpret_cast<fftwf_complex*>(out), flags);
  }
  static Plan c2r(int n, C* in, float* out, unsigned flags) {
    return fftwf_plan_dft_c2r_1d(n, reinterpret_cast<fftwf_complex*>(in), out, flags);
  }
  static void run(Plan p) { fftwf_execute(p); }
  static void destroy(Plan p) { fftwf_destroy_plan(p); }
  static void read_wisdom(const char* path) { fftwf_import_wisdom_from_filename(path); }
  static void write_wisdom(const char* path) { fftwf_export_wisdom_to_filename(path); }
#endif
};

template <>
struct Api<double> {
  using C = Vek64fc;
  static constexpr const char* name = "64f";
  using SpecC = VeksFFTSpec_C_64fc;
  using SpecS = VeksFFTSpec_C_64f;
  using SpecR = VeksFFTSpec_R_64f;
  static constexpr auto size_c = &veksFFTGetSize_C_64fc;
  static constexpr auto init_c = &veksFFTInit_C_64fc;
  static constexpr auto size_s = &veksFFTGetSize_C_64f;
  static constexpr auto init_s = &veksFFTInit_C_64f;
  static constexpr auto size_r = &veksFFTGetSize_R_64f;
  static constexpr auto init_r = &veksFFTInit_R_64f;
  static constexpr auto fwd_c = &veksFFTFwd_CToC_64fc;
  static constexpr auto inv_c = &veksFFTInv_CToC_64fc;
  static constexpr auto fwd_c_i = &veksFFTFwd_CToC_64fc_I;
  static constexpr auto inv_c_i = &veksFFTInv_CToC_64fc_I;
  static constexpr auto fwd_s = &veksFFTFwd_CToC_64f;
  static constexpr auto inv_s = &veksFFTInv_CToC_64f;
  static constexpr auto fwd_s_i = &veksFFTFwd_CToC_64f_I;
  static constexpr auto inv_s_i = &veksFFTInv_CToC_64f_I;
  static constexpr auto fwd_perm = &veksFFTFwd_RToPerm_64f;
  static constexpr auto fwd_pack = &veksFFTFwd_RToPack_64f;
  static constexpr auto fwd_ccs = &veksFFTFwd_RToCCS_64f;
  static constexpr auto fwd_perm_i = &veksFFTFwd_RToPerm_64f_I;
  static constexpr auto fwd_pack_i = &veksFFTFwd_RToPack_64f_I;
  static constexpr auto fwd_ccs_i = &veksFFTFwd_RToCCS_64f_I;
  static constexpr auto inv_perm = &veksFFTInv_PermToR_64f;
  static constexpr auto inv_pack = &veksFFTInv_PackToR_64f;
  static constexpr auto inv_ccs = &veksFFTInv_CCSToR_64f;
  static constexpr auto inv_perm_i = &veksFFTInv_PermToR_64f_I;
  static constexpr auto inv_pack_i = &veksFFTInv_PackToR_64f_I;
  static constexpr auto inv_ccs_i = &veksFFTInv_CCSToR_64f_I;
#ifdef VEKS_HAVE_FFTW
  using Plan = fftw_plan;
  static Plan dft(int n, C* in, C* out, int sign, unsigned flags) {
    return fftw_plan_dft_1d(n, reinterpret_cast<fftw_complex*>(in),
                            reinterpret_cast<fftw_complex*>(out), sign, flags);
  }
  static Plan r2c(int n, double* in, C* out, unsigned flags) {
    return fftw_plan_dft_r2c_1d(n, in, reinterpret_cast<fftw_complex*>(out), flags);
  }
  static Plan c2r(int n, C* in, double* out, unsigned flags) {
    return fftw_plan_dft_c2r_1d(n, reinterpret_cast<fftw_complex*>(in), out, flags);
  }
  static void run(Plan p) { fftw_execute(p); }
  static void destroy(Plan p) { fftw_destroy_plan(p); }
  static void read_wisdom(const char* path) { fftw_import_wisdom_from_filename(path); }
  static void write_wisdom(const char* path) { fftw_export_wisdom_to_filename(path); }
#endif
};

}  // namespace veks_fft
