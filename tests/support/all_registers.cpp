// SPDX-License-Identifier: MIT
#include "tests/support/all_registers.h"

static_assert(offsetof(AllRegisters, mask) == 128 && offsetof(AllRegisters, vector) == 192 &&
              sizeof(AllRegisters) == 2240);

void findVectorRegisters() {
  bytesOfVectorRegisters = 16;
  if (__builtin_cpu_supports("avx")) bytesOfVectorRegisters = 32;
  if (__builtin_cpu_supports("avx512bw")) bytesOfVectorRegisters = 64;
}
