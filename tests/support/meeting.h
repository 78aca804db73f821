// SPDX-License-Identifier: MIT
#ifndef TESTS_SUPPORT_MEETING_H_
#define TESTS_SUPPORT_MEETING_H_

#include <atomic>
#include <thread>

// A barrier that threads leave as close together as the system lets them: they spin, so that nobody
// has to be woken. Each time all have arrived, the last one calls `prepare` and they go on.
template <class Prepare>
class Meeting {
 public:
  Meeting(int threads, Prepare prepare) : threads_(threads), prepare_(prepare) {}

  void arriveAndWait() {
    const int round = round_.load();
    if (arrived_.fetch_add(1) + 1 == threads_) {
      arrived_ = 0;
      prepare_();
      ++round_;
    } else {
      while (round_.load() == round) std::this_thread::yield();
    }
  }

 private:
  const int threads_;
  Prepare prepare_;
  std::atomic<int> arrived_ = 0, round_ = 0;
};

#endif
