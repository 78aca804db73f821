// SPDX-License-Identifier: MIT
// A stack of a test's own, every byte of which is known before a call and seen after it.
#ifndef TESTS_SUPPORT_OWN_STACK_H_
#define TESTS_SUPPORT_OWN_STACK_H_

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "tests/support/all_registers.h"
#include "tests/support/random.h"

class OwnStack {
 public:
  OwnStack() {
    findVectorRegisters();
    Random random("stack");
    random.fill(painted_.data(), painted_.size());
    memory_ = painted_;
  }

  // What a caller has there already: its frame, and room for any argument.
  void* top() { return memory_.data() + below; }

  std::uint64_t call(const void* function, const AllRegisters& registers) {
    memory_ = painted_;
    return callWithAllRegisters(function, registers, top());
  }

  // Whether the last call left the bytes above its return address as they were.
  bool isKeptAbove() const {
    return std::equal(memory_.begin() + below, memory_.end(), painted_.begin() + below);
  }

  // How many bytes below its return address the last call has written, red zone included.
  std::size_t depth() const {
    const auto lowest = std::mismatch(memory_.begin(), memory_.end(), painted_.begin()).first;
    const auto returnAddress = memory_.begin() + (below - 8);
    return lowest < returnAddress ? static_cast<std::size_t>(returnAddress - lowest) : 0;
  }

 private:
#ifdef __OPTIMIZE__
  static constexpr std::ptrdiff_t below = 1 << 13;
#else  // kernels that are not optimized need some 50 KiB
  static constexpr std::ptrdiff_t below = 1 << 17;
#endif
  static constexpr std::ptrdiff_t above = 1 << 10;
  using Bytes = std::array<std::uint8_t, below + above>;
  alignas(64) Bytes memory_;
  Bytes painted_;
};

#endif
