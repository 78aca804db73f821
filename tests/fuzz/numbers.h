// SPDX-License-Identifier: MIT
// Random numbers from a seed that stands in the input: cheap, because every call takes new ones.
#ifndef TESTS_FUZZ_NUMBERS_H_
#define TESTS_FUZZ_NUMBERS_H_

#include <cstdint>

class Numbers {
 public:
  explicit Numbers(std::uint64_t seed) : state_(seed) {}
  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t z = state_;
    z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9u;
    z = (z ^ z >> 27) * 0x94D049BB133111EBu;
    return z ^ z >> 31;
  }

 private:
  std::uint64_t state_;
};

#endif
