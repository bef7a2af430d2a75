// The floating-point control state around a kernel: the caller's MXCSR is saved on entry and
// written back on exit, so neither its rounding mode nor its exception flags ever change, whatever
// the kernel raised (saturating conversions, comparisons with NaN, division by zero). During the
// scope every exception is masked and subnormals are processed as values (no flush, no
// denormals-are-zero).
#pragma once

#include "frame/intrin.hpp"

namespace veks {

enum class FpRound : unsigned { Nearest = 0, Down = 1, Up = 2, Zero = 3, Caller = 4 };

class FpScope {
 public:
  explicit FpScope(FpRound r = FpRound::Nearest) : saved_(_mm_getcsr()) {
    const unsigned rc = r == FpRound::Caller ? (saved_ & 0x6000u) : static_cast<unsigned>(r) << 13;
    load(0x1F80u | rc);
  }
  ~FpScope() { load(saved_); }
  FpScope(const FpScope&) = delete;
  FpScope& operator=(const FpScope&) = delete;

 private:
  // The memory clobber keeps the kernel's loads and stores on their side of the switch.
  static void load(unsigned v) { __asm__ volatile("ldmxcsr %0" : : "m"(v) : "memory"); }
  unsigned saved_;
};

}  // namespace veks
