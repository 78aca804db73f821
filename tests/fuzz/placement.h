// SPDX-License-Identifier: MIT
// The planes of a call in one piece of memory, so that whatever is written beside them shows.
#ifndef TESTS_FUZZ_PLACEMENT_H_
#define TESTS_FUZZ_PLACEMENT_H_

#include <cstddef>
#include <vector>

#include "catalogue/shapes.h"
#include "tests/fuzz/case.h"
#include "tests/fuzz/classes.h"

// Bytes from `begin` up to `end`, as offsets in the memory.
struct Stretch {
  std::ptrdiff_t begin, end;
  friend bool operator==(const Stretch&, const Stretch&) = default;
};

struct Placement {
  bool exists[classCount];  // a class has variants that run here
  // What a class may touch, and of that what it may write.
  std::vector<Stretch> touched[classCount], written[classCount];
  std::ptrdiff_t src[3], dst[3];  // where the first samples stand
  int srcStep[3], dstStep[3];
  std::ptrdiff_t size;       // of the memory
  bool destinationOverlaps;  // rows of a plane share bytes
};

// `variants` has a variant for each class, or -1. The size of the case is one that its conversion
// takes.
Placement place(const Case& c, const int (&variants)[classCount]);

#endif
