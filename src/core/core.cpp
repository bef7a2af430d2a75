// libvekcore: aligned allocation, processor facts and the process-wide settings that the
// threaded and cache-sensitive operations of libveksk0 read.
#include "vekcore.h"

#include <cpuid.h>
#include <sched.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>

namespace {

// ---- processor facts, read once -------------------------------------------------------------

struct CpuId {
  unsigned a = 0, b = 0, c = 0, d = 0;
};

CpuId cpuid(unsigned leaf, unsigned sub = 0) {
  CpuId r;
  __cpuid_count(leaf, sub, r.a, r.b, r.c, r.d);
  return r;
}

Vek64u detect_features() {
  const unsigned max_leaf = static_cast<unsigned>(__get_cpuid_max(0, nullptr));
  if (max_leaf < 1) return 0;
  const CpuId l1 = cpuid(1);
  Vek64u f = 0;
  if (l1.c & (1u << 20)) f |= VEK_FEATURE_SSE42;
  const bool osxsave = l1.c & (1u << 27);
  unsigned xcr0 = 0;
  if (osxsave) {
    unsigned hi = 0;
    __asm__("xgetbv" : "=a"(xcr0), "=d"(hi) : "c"(0));
  }
  const bool ymm_os = (xcr0 & 0x6) == 0x6;
  const bool zmm_os = ymm_os && (xcr0 & 0xE0) == 0xE0;
  if (ymm_os && (l1.c & (1u << 28))) f |= VEK_FEATURE_AVX;
  if (ymm_os && (l1.c & (1u << 12))) f |= VEK_FEATURE_FMA;
  if (ymm_os && (l1.c & (1u << 29))) f |= VEK_FEATURE_F16C;
  if (max_leaf >= 7) {
    const CpuId l7 = cpuid(7);
    if (ymm_os && (l7.b & (1u << 5))) f |= VEK_FEATURE_AVX2;
    if (l7.b & (1u << 8)) f |= VEK_FEATURE_BMI2;
    if (zmm_os) {
      if (l7.b & (1u << 16)) f |= VEK_FEATURE_AVX512F;
      if (l7.b & (1u << 17)) f |= VEK_FEATURE_AVX512DQ;
      if (l7.b & (1u << 28)) f |= VEK_FEATURE_AVX512CD;
      if (l7.b & (1u << 30)) f |= VEK_FEATURE_AVX512BW;
      if (l7.b & (1u << 31)) f |= VEK_FEATURE_AVX512VL;
    }
  }
  return f;
}

// Largest cache from the deterministic cache-parameter leaf (4 on Intel, 0x8000001D on AMD);
// 0 when the processor reports neither.
long long detect_max_cache() {
  unsigned leaf = 0;
  const unsigned max_ext = static_cast<unsigned>(__get_cpuid_max(0x80000000u, nullptr));
  if (max_ext >= 0x8000001Du && (cpuid(0x80000001u).c & (1u << 22)))
    leaf = 0x8000001Du;
  else if (__get_cpuid_max(0, nullptr) >= 4)
    leaf = 4;
  if (leaf == 0) return 0;
  long long best = 0;
  for (unsigned sub = 0; sub < 16; ++sub) {
    const CpuId r = cpuid(leaf, sub);
    if ((r.a & 0x1F) == 0) break;  // no more caches
    const long long ways = ((r.b >> 22) & 0x3FF) + 1, parts = ((r.b >> 12) & 0x3FF) + 1;
    const long long line = (r.b & 0xFFF) + 1, sets = static_cast<long long>(r.c) + 1;
    const long long size = ways * parts * line * sets;
    if (size > best) best = size;
  }
  return best > 0x7FFFFFFF ? 0x7FFFFFFF : best;
}

int detect_cores() {
  cpu_set_t set;
  if (sched_getaffinity(0, sizeof set, &set) == 0) {
    const int n = CPU_COUNT(&set);
    if (n > 0) return n;
  }
  const long n = sysconf(_SC_NPROCESSORS_ONLN);
  return n > 0 ? static_cast<int>(n) : 1;
}

const Vek64u g_features = detect_features();
const long long g_cache = detect_max_cache();

// ---- process-wide settings -------------------------------------------------------------------

std::atomic<int> g_threads{detect_cores()};
std::atomic<int> g_cache_setting{0};  // 0: detected, > 0: that size, < 0: report failure
std::atomic<Vek64u> g_disabled{0};

struct StatusName {
  VekStatus status;
  const char* text;
};

constexpr StatusName kStatusNames[] = {
    {vekStatusOk, "vekStatusOk: no error"},
    {vekStatusNotSupported, "vekStatusNotSupported: the processor does not report this"},
    {vekStatusBadArg, "vekStatusBadArg: an argument is outside its allowed set"},
    {vekStatusBadSize, "vekStatusBadSize: a length or size is below its minimum"},
    {vekStatusBadMode, "vekStatusBadMode: the zero-crossing type is not 0, 1 or 2"},
    {vekStatusNullPtr, "vekStatusNullPtr: a required pointer is null"},
    {vekStatusStateTooLarge, "vekStatusStateTooLarge: a state size reaches 2^31 - 1 bytes"},
    {vekStatusZeroDivisor, "vekStatusZeroDivisor: the constant divisor is zero"},
    {vekStatusBadDataType, "vekStatusBadDataType: the data-type code is not supported"},
    {vekStatusBadFftOrder, "vekStatusBadFftOrder: FFT order outside its range"},
    {vekStatusBadFftFlag, "vekStatusBadFftFlag: normalisation flag not a defined value"},
    {vekStatusSpecMismatch, "vekStatusSpecMismatch: the block is not of this operation"},
    {vekStatusLevelsCrossed, "vekStatusLevelsCrossed: lower level above upper level"},
    {vekStatusNegativeLevel, "vekStatusNegativeLevel: negative threshold level"},
    {vekStatusBadFilterOrder, "vekStatusBadFilterOrder: filter order below 1"},
    {vekStatusBadTapsLen, "vekStatusBadTapsLen: number of taps below 1"},
    {vekStatusBadRelFreq, "vekStatusBadRelFreq: relative frequency outside [0, 1)"},
    {vekStatusBadMultiRatePhase, "vekStatusBadMultiRatePhase: phase outside [0, factor)"},
    {vekStatusBadMultiRateFactor, "vekStatusBadMultiRateFactor: factor below 1"},
    {vekStatusBadSamplePhase, "vekStatusBadSamplePhase: phase outside [0, factor)"},
    {vekStatusBadSampleFactor, "vekStatusBadSampleFactor: factor below 1"},
    {vekStatusNegativeShift, "vekStatusNegativeShift: negative shift count"},
    {vekStatusBadMaskSize, "vekStatusBadMaskSize: mask size below 1"},
    {vekStatusBadWaveletOffset, "vekStatusBadWaveletOffset: filter offset below -1"},
    {vekStatusBadJaehneMagn, "vekStatusBadJaehneMagn: magnitude out of range"},
    {vekStatusWindowTooWide, "vekStatusWindowTooWide: window parameter too large"},
    {vekStatusBadTrianglePhase, "vekStatusBadTrianglePhase: phase outside [0, 2pi)"},
    {vekStatusBadTriangleAsym, "vekStatusBadTriangleAsym: asymmetry out of range"},
    {vekStatusBadTriangleFreq, "vekStatusBadTriangleFreq: frequency outside [0, 0.5)"},
    {vekStatusBadTriangleMagn, "vekStatusBadTriangleMagn: magnitude not positive"},
    {vekStatusBadTonePhase, "vekStatusBadTonePhase: phase outside [0, 2pi)"},
    {vekStatusBadToneFreq, "vekStatusBadToneFreq: frequency outside [0, 0.5)"},
    {vekStatusBadToneMagn, "vekStatusBadToneMagn: magnitude not positive"},
    {vekStatusBadRipple, "vekStatusBadRipple: passband ripple outside (0, 30] dB"},
    {vekStatusBadSparsePositions, "vekStatusBadSparsePositions: tap positions not increasing"},
    {vekStatusBadCutoff, "vekStatusBadCutoff: cut-off frequency outside (0, 0.5)"},
    {vekStatusBadDesignOrder, "vekStatusBadDesignOrder: design order outside 1..32"},
    {vekStatusBadFilterKind, "vekStatusBadFilterKind: unknown filter kind"},
    {vekStatusBadRoundMode, "vekStatusBadRoundMode: rounding mode not a defined value"},
    {vekStatusBadAlgType, "vekStatusBadAlgType: undefined algorithm or option bits"},
    {vekStatusSignalTooShort, "vekStatusSignalTooShort: signal not longer than its extension"},
    {vekStatusWarnNegSqrt, "vekStatusWarnNegSqrt: square root of a negative argument"},
    {vekStatusWarnSingular, "vekStatusWarnSingular: zero argument of a singular operation"},
    {vekStatusWarnEvenMask, "vekStatusWarnEvenMask: even mask size, next lower odd used"},
    {vekStatusWarnZeroDivisor, "vekStatusWarnZeroDivisor: a divisor element was zero"},
    {vekStatusWarnNegLog, "vekStatusWarnNegLog: logarithm of a negative argument"},
    {vekStatusWarnNaN, "vekStatusWarnNaN: the input holds a NaN"},
};

}  // namespace

extern "C" {

void* vekMalloc(int length) {
  if (length < 1) return nullptr;
  void* p = nullptr;
  return posix_memalign(&p, 64, static_cast<size_t>(length)) == 0 ? p : nullptr;
}

void vekFree(void* ptr) { std::free(ptr); }

void* vekAlignPtr(void* ptr, int alignBytes) {
  if (alignBytes < 1 || (alignBytes & (alignBytes - 1)) != 0) return ptr;
  const uintptr_t a = static_cast<uintptr_t>(alignBytes);
  const uintptr_t p = reinterpret_cast<uintptr_t>(ptr);
  return static_cast<char*>(ptr) + (((p + a - 1) & ~(a - 1)) - p);
}

VekStatus vekGetMaxCacheSizeB(int* pSizeByte) {
  if (pSizeByte == nullptr) return vekStatusNullPtr;
  const int setting = g_cache_setting.load(std::memory_order_relaxed);
  if (setting < 0 || (setting == 0 && g_cache <= 0)) return vekStatusNotSupported;
  *pSizeByte = setting > 0 ? setting : static_cast<int>(g_cache);
  return vekStatusOk;
}

int vekSetMaxCacheSizeB(int size) { return g_cache_setting.exchange(size); }

int ownGetFeature(Vek64u mask) {
  const Vek64u have = g_features & ~g_disabled.load(std::memory_order_relaxed);
  return (have & mask) == mask;
}

Vek64u vekDisableFeatures(Vek64u mask) { return g_disabled.exchange(mask); }

int ownGetNumThreads(void) { return g_threads.load(std::memory_order_relaxed); }

VekStatus vekSetNumThreads(int n) {
  if (n < 1) return vekStatusBadSize;
  g_threads.store(n, std::memory_order_relaxed);
  return vekStatusOk;
}

VekStatus vekGetNumThreads(int* pNumThreads) {
  if (pNumThreads == nullptr) return vekStatusNullPtr;
  *pNumThreads = ownGetNumThreads();
  return vekStatusOk;
}

const char* vekGetStatusString(VekStatus status) {
  for (const StatusName& s : kStatusNames)
    if (s.status == status) return s.text;
  return status > 0 ? "unknown warning" : "unknown error";
}

}  // extern "C"
