// The threading frame: who computes which range, when it falls back to the caller's thread, and
// how the kernels' flags are counted.
#include <gtest/gtest.h>

#include <omp.h>

#include <mutex>
#include <thread>
#include <vector>

#include "frame/split.hpp"

namespace {

struct Call {
  int first, count, thread, team;
};

class ThreadCount : public ::testing::Test {
 protected:
  void TearDown() override { vekSetNumThreads(saved_); }
  int saved_ = ownGetNumThreads();
};

std::vector<Call> run(int len, int threshold, int* result, int flag_from = -1) {
  std::vector<Call> calls;
  std::mutex m;
  *result = veks::run_split(len, threshold, [&](int first, int count) {
    std::lock_guard<std::mutex> lock(m);
    calls.push_back({first, count, omp_get_thread_num(), omp_get_num_threads()});
    return flag_from >= 0 && first + count > flag_from ? 1 : 0;
  });
  return calls;
}

TEST_F(ThreadCount, SplitsIntoTwoChunksWithTheRemainderLast) {
  ASSERT_EQ(vekSetNumThreads(2), vekStatusOk);
  int flags = -1;
  auto calls = run(4097, 4096, &flags);
  ASSERT_EQ(calls.size(), 2u);
  if (calls[0].thread > calls[1].thread) std::swap(calls[0], calls[1]);
  EXPECT_EQ(calls[0].first, 0);
  EXPECT_EQ(calls[0].count, 2048);
  EXPECT_EQ(calls[1].first, 2048);
  EXPECT_EQ(calls[1].count, 2049);
  EXPECT_EQ(calls[0].team, 2);
  EXPECT_EQ(flags, 0);
}

TEST_F(ThreadCount, CapsTheTeamAtTwoThreads) {
  ASSERT_EQ(vekSetNumThreads(8), vekStatusOk);
  int flags = -1;
  const auto calls = run(1000, 10, &flags);
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[0].count + calls[1].count, 1000);
}

TEST_F(ThreadCount, BelowTheThresholdRunsSerially) {
  ASSERT_EQ(vekSetNumThreads(2), vekStatusOk);
  int flags = -1;
  const auto calls = run(4095, 4096, &flags, 0);
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].first, 0);
  EXPECT_EQ(calls[0].count, 4095);
  EXPECT_EQ(calls[0].team, 1);
  EXPECT_EQ(flags, 1);  // the serial kernel's own flag
}

TEST_F(ThreadCount, OneThreadOrFewerElementsThanThreadsRunsSerially) {
  ASSERT_EQ(vekSetNumThreads(1), vekStatusOk);
  int flags = -1;
  EXPECT_EQ(run(10000, 1, &flags).size(), 1u);
  ASSERT_EQ(vekSetNumThreads(3), vekStatusOk);
  const auto calls = run(2, 1, &flags);
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].count, 2);
}

TEST_F(ThreadCount, CountsThreadsThatFlagged) {
  ASSERT_EQ(vekSetNumThreads(2), vekStatusOk);
  int flags = -1;
  run(100, 1, &flags, 0);  // both ranges flag
  EXPECT_EQ(flags, 2);
  run(100, 1, &flags, 99);  // only the last range holds element 99
  EXPECT_EQ(flags, 1);
  run(100, 1, &flags, 1000);
  EXPECT_EQ(flags, 0);
}

}  // namespace
