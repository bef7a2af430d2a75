// The threading frame: who computes which range, when it falls back to the caller's thread, and
// how the kernels' flags are counted.
#include <gtest/gtest.h>
#include <omp.h>

#include <algorithm>
#include <mutex>
#include <vector>

#include "frame/split.hpp"

namespace {

struct Call {
  int first, count, thread, team;
  bool operator<(const Call& o) const { return first < o.first; }
};

class ThreadCount : public ::testing::Test {
 protected:
  void TearDown() override { vekSetNumThreads(saved_); }
  int saved_ = ownGetNumThreads();
  // run_split over len elements with `threads` threads; a call flags when its range reaches
  // flag_from. Returns the calls sorted by first element.
  std::vector<Call> run(int threads, int len, int threshold, int* flags, int flag_from = -1) {
    EXPECT_EQ(vekSetNumThreads(threads), vekStatusOk);
    std::vector<Call> calls;
    std::mutex m;
    *flags = veks::run_split(len, threshold, [&](int first, int count) {
      std::lock_guard<std::mutex> lock(m);
      calls.push_back({first, count, omp_get_thread_num(), omp_get_num_threads()});
      return flag_from >= 0 && first + count > flag_from ? 1 : 0;
    });
    std::sort(calls.begin(), calls.end());
    return calls;
  }
};

TEST_F(ThreadCount, TwoChunksWithTheRemainderLastFromTheThreshold) {
  int flags = -1;
  auto c = run(2, 4097, 4096, &flags);
  ASSERT_EQ(c.size(), 2u);
  EXPECT_TRUE(c[0].first == 0 && c[0].count == 2048 && c[0].thread == 0 && c[0].team == 2);
  EXPECT_TRUE(c[1].first == 2048 && c[1].count == 2049 && c[1].thread == 1 && flags == 0);
  c = run(8, 1000, 10, &flags);  // the team is capped at two threads
  ASSERT_EQ(c.size(), 2u);
  EXPECT_TRUE(c[0].count == 500 && c[1].first == 500 && c[1].count == 500);
  c = run(2, 4095, 4096, &flags, 0);  // below the threshold: serial, its own flag
  ASSERT_EQ(c.size(), 1u);
  EXPECT_TRUE(c[0].first == 0 && c[0].count == 4095 && c[0].team == 1 && flags == 1);
  EXPECT_EQ(run(1, 10000, 1, &flags).size(), 1u);  // one thread
  c = run(3, 2, 1, &flags);                        // fewer elements than threads
  ASSERT_EQ(c.size(), 1u);
  EXPECT_EQ(c[0].count, 2);
}

TEST_F(ThreadCount, CountsThreadsThatFlagged) {
  int flags = -1;
  run(2, 100, 1, &flags, 0);  // both ranges flag
  EXPECT_EQ(flags, 2);
  run(2, 100, 1, &flags, 99);  // only the last range holds element 99
  EXPECT_EQ(flags, 1);
  run(2, 100, 1, &flags, 1000);
  EXPECT_EQ(flags, 0);
}

}  // namespace
