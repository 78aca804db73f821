// SPDX-License-Identifier: MIT
// Calls with every register loaded that a caller may leave anything in, on a stack of the test's
// own, and a callee that records what arrives. ELF only; one thread at a time.
#ifndef TESTS_SUPPORT_ALL_REGISTERS_H_
#define TESTS_SUPPORT_ALL_REGISTERS_H_

#include <cstddef>
#include <cstdint>

// Where a register stands in AllRegisters::general. The first six carry arguments, al says how many
// vector registers do to functions of variable arguments, r10 is the static chain, and the six
// before rsp are kept by every callee.
enum GeneralRegister : std::size_t {
  rdi,
  rsi,
  rdx,
  rcx,
  r8,
  r9,
  rax,
  r10,
  rbx,
  rbp,
  r12,
  r13,
  r14,
  r15,
  rsp
};

struct AllRegisters {
  std::uint64_t general[16];  // the last is not used
  std::uint64_t mask[8];
  std::uint8_t vector[32][64];
};

// How much of `vector` this machine has: 16 or 32 bytes of the first sixteen, or all of it together
// with `mask`.
extern "C" int bytesOfVectorRegisters;
void findVectorRegisters();  // sets it

// Calls `function`, whose return address goes directly below `stackTop`, which is aligned to 16
// bytes. All registers but rsp and r11 are those of `before`. Returns rax.
extern "C" std::uint64_t callWithAllRegisters(const void* function, const AllRegisters& before,
                                              void* stackTop);

// Stores its registers in `arrived` and returns 0.
extern "C" AllRegisters arrived;
extern "C" void recordArrival();

// Writes the word above its return address, which is its caller's.
extern "C" void writeAboveReturnAddress();

// Write the word that many bytes below their return address.
extern "C" void useStack64();
extern "C" void useStack2000();

#endif
