// SPDX-License-Identifier: MIT
// How rows are planned: blocks, and a scalar tail.
#ifndef PXM_VECTOR_PLAN_INL
#define PXM_VECTOR_PLAN_INL

#include "frame/level.h"

PXM_LEVEL_BEGIN

// Main blocks up to width & bound, then at most one block of each smaller size for which the width
// has the bit, then the scalar tail. Required: the bound is not always main's own multiple, and the
// columns that it leaves out are as scalar code makes them. Where rows overlap, the order of the
// blocks decides what stays.
struct BlockPlan {
  int main, bound;
  int smaller[3];
};

// The leading columns of a row that go through blocks.
constexpr int VectorColumns(const BlockPlan& plan, int width) {
  int columns = width & plan.bound;
  for (const int size : plan.smaller) columns += width & size;
  return columns;
}

PXM_LEVEL_END

#endif
