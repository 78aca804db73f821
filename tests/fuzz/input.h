// SPDX-License-Identifier: MIT
// The bytes that a fuzzer makes up, taken one number after the other. Fuzzers like short inputs:
// what lies beyond the end is made from all that is there, so that every string of bytes is a whole
// input and no two of them say the same.
#ifndef TESTS_FUZZ_INPUT_H_
#define TESTS_FUZZ_INPUT_H_

#include <cstddef>
#include <cstdint>

#include "tests/fuzz/numbers.h"

class Input {
 public:
  Input() = default;
  Input(const std::uint8_t* bytes, std::size_t size) : next_(bytes), left_(size) {
    std::uint64_t hash = size;
    for (std::size_t i = 0; i < size; ++i) hash = Numbers(hash ^ bytes[i]).next();
    beyond_ = Numbers(hash);
  }

  std::uint8_t byte() {
    if (left_ == 0) return static_cast<std::uint8_t>(beyond_.next());
    --left_;
    return *next_++;
  }
  unsigned word() {
    const unsigned low = byte();
    return low | static_cast<unsigned>(byte()) << 8;
  }
  int below(int bound) { return byte() % bound; }

  std::size_t left() const { return left_; }

 private:
  const std::uint8_t* next_ = nullptr;
  std::size_t left_ = 0;
  Numbers beyond_{0};
};

#endif
