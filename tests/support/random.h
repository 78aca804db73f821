// SPDX-License-Identifier: MIT
// Random numbers that can be had again: a failing test prints its seed, and PXM_TEST_SEED=<seed> in
// the environment repeats the run.
#ifndef TESTS_SUPPORT_RANDOM_H_
#define TESTS_SUPPORT_RANDOM_H_

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

// The seed of this process: from the environment, or a new one.
std::uint64_t testSeed();

// "PXM_TEST_SEED=<seed>": for SCOPED_TRACE, so that a failure says how to repeat it.
std::string seedMessage();

// Numbers that depend on the seed and on `what` only, not on the tests that ran before.
class Random {
 public:
  explicit Random(const std::string& what);
  int below(int bound) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(bound)); }
  void fill(void* bytes, std::size_t count);

 private:
  std::mt19937_64 engine_;
};

#endif
