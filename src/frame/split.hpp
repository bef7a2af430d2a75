// The threading frame of the threaded element-wise operations. All argument checks happen
// before it; the threads write disjoint ranges.
#pragma once

#include <omp.h>

#include <atomic>

#include "vekcore.h"

namespace veks {

// Runs kernel(first, count) over [0, len) on min(ownGetNumThreads(), 2) threads: the master
// computes chunk = len / t and rem = len % t for the actual team size t, all wait at a barrier,
// thread i takes [i * chunk, i * chunk + chunk) and the last thread also the remainder. With one
// thread, or len below the thread count, the kernel runs once on the caller's thread and its
// flag is returned; otherwise the number of threads whose kernel returned non-zero.
template <class Kernel>
int omp_split(int len, Kernel&& kernel) {
  const int n = ownGetNumThreads();
  if (n <= 1 || len < n) return kernel(0, len);
  std::atomic<int> flagged{0};
  int chunk = 0, rem = 0;
#pragma omp parallel num_threads(n < 2 ? n : 2)
  {
#pragma omp master
    {
      const int t = omp_get_num_threads();
      chunk = len / t;
      rem = len % t;
    }
#pragma omp barrier
    const int i = omp_get_thread_num(), t = omp_get_num_threads();
    const int count = i == t - 1 ? chunk + rem : chunk;
    if (kernel(i * chunk, count) != 0) flagged.fetch_add(1, std::memory_order_relaxed);
  }
  return flagged.load(std::memory_order_relaxed);
}

// The serial kernel below `threshold` elements, the threaded frame from it on; a threshold of 0
// (or below) never threads.
template <class Kernel>
int run_split(int len, int threshold, Kernel&& kernel) {
  return threshold > 0 && len >= threshold ? omp_split(len, kernel) : kernel(0, len);
}

}  // namespace veks
