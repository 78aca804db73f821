// SPDX-License-Identifier: MIT
// A call as an assembly programmer writes it: each argument is one 64-bit word, where the system's
// convention has it, and every register that a callee must keep holds a value of the test's.
#ifndef TESTS_SUPPORT_HAND_WRITTEN_CALL_H_
#define TESTS_SUPPORT_HAND_WRITTEN_CALL_H_

#include <cstdint>

// What a callee must leave as it found it. A convention that keeps fewer leaves the rest untouched.
struct KeptRegisters {
  std::uint64_t general[8];     // rbx, rbp, r12 to r15; rdi and rsi on Windows
  std::uint64_t vector[10][2];  // xmm6 to xmm15 on Windows
  std::uint64_t direction;      // the direction flag, as it stands in rflags
  std::uint32_t mxcsr;
  std::uint32_t x87Control;
};

// Loads the registers of `before`, calls `function` with six words, of which it takes as many as it
// has arguments, and stores the registers in `after`. Of `before` only general and vector are used.
// Windows: an exception of the callee is caught here, and the result is caughtException.
extern "C" std::uint32_t handWrittenCall(const void* function, const std::uint64_t (&words)[6],
                                         const KeptRegisters& before, KeptRegisters& after);

constexpr std::uint32_t caughtException = 0x5EED5EED;

#endif
