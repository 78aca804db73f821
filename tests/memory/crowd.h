// SPDX-License-Identifier: MIT
// A crowd of threads whose first calls meet.
#ifndef TESTS_MEMORY_CROWD_H_
#define TESTS_MEMORY_CROWD_H_

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "catalogue/conversions.h"
#include "tests/support/meeting.h"

inline constexpr int crowdSize = 64;

struct CrowdCounts {
  long calls = 0, wrong = 0;
};

// In each round, once all threads have arrived, `prepare` runs with the number of the round, and
// then every thread calls `work` with the round and its own number. `work` says whether all went
// well.
template <class Prepare, class Work>
CrowdCounts meetInCrowd(int rounds, Prepare prepare, Work work) {
  int next = 0;
  Meeting meeting(crowdSize, [&] { prepare(next++); });
  std::atomic<long> calls = 0, wrong = 0;
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < crowdSize; ++thread)
      threads.emplace_back([&, thread] {
        for (int round = 0; round < rounds; ++round) {
          meeting.arriveAndWait();
          if (!work(round, thread)) wrong.fetch_add(1, std::memory_order_relaxed);
          calls.fetch_add(1, std::memory_order_relaxed);
        }
      });
  }
  return {calls, wrong};
}

// The images of one call of any conversion of 8 by 2 pixels, in a thread's own memory.
struct SmallCall {
  static constexpr int pitch = 32;
  std::uint8_t src[3][2 * pitch], dst[3][2 * pitch];

  CallArguments arguments() {
    CallArguments a = {};
    for (int i = 0; i < 3; ++i) {
      for (int at = 0; at < 2 * pitch; ++at) {
        src[i][at] = static_cast<std::uint8_t>(37 * at + 91 * i);
        dst[i][at] = static_cast<std::uint8_t>(at);
      }
      a.src[i] = src[i];
      a.dst[i] = dst[i];
      a.srcStep[i] = a.dstStep[i] = pitch;
      for (int k = 0; k < 4; ++k) a.twist[i][k] = static_cast<float>(i + k) / 4;
    }
    a.size = {8, 2};
    return a;
  }

  friend bool operator==(const SmallCall&, const SmallCall&) = default;
};

// The number of rounds, from the command line.
inline int roundsOf(const char* text) {
  const int rounds = std::atoi(text);
  if (rounds > 0) return rounds;
  std::fprintf(stderr, "'%s' is no number of rounds\n", text);
  std::exit(2);
}

#endif
