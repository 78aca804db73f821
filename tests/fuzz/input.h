// SPDX-License-Identifier: MIT
// The bytes that a fuzzer makes up, taken one number after the other. What lies beyond their end is
// zero, so that every string of bytes is an input.
#ifndef TESTS_FUZZ_INPUT_H_
#define TESTS_FUZZ_INPUT_H_

#include <cstddef>
#include <cstdint>

class Input {
 public:
  Input() = default;
  Input(const std::uint8_t* bytes, std::size_t size) : next_(bytes), left_(size) {}

  std::uint8_t byte() {
    if (left_ == 0) return 0;
    --left_;
    return *next_++;
  }
  unsigned word() {
    const unsigned low = byte();
    return low | static_cast<unsigned>(byte()) << 8;
  }
  int below(int bound) { return byte() % bound; }

  const std::uint8_t* rest() const { return next_; }
  std::size_t left() const { return left_; }

 private:
  const std::uint8_t* next_ = nullptr;
  std::size_t left_ = 0;
};

#endif
