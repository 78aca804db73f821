// SPDX-License-Identifier: MIT
// How many calls have been made. PXM_FUZZ_CALLS in the environment names a file that keeps the
// numbers, so that they outlive the process, whatever ends it, and add up over runs.
#ifndef TESTS_FUZZ_CALLS_H_
#define TESTS_FUZZ_CALLS_H_

#include <cstdint>

struct CallCounts {
  std::uint64_t calls;     // all that returned, the rejected ones too
  std::uint64_t rejected;  // of these, those that returned a negative status
};

CallCounts& callCounts();

#endif
