// Runs a scope on two threads (the calls from their thresholds on split in two ranges) and
// restores the thread count after it.
#pragma once

#include "vekcore.h"

namespace veks_test {

struct TwoThreads {
  int saved = 1;
  TwoThreads() { vekGetNumThreads(&saved), vekSetNumThreads(2); }
  ~TwoThreads() { vekSetNumThreads(saved); }
};

}  // namespace veks_test
