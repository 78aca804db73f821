// SPDX-License-Identifier: MIT
// How rows are cut into blocks and a scalar tail: the only code that knows it.
#ifndef PXM_VECTOR_WALK_INL
#define PXM_VECTOR_WALK_INL

#include <stddef.h>

#include "frame/variant.h"

PXM_TEXT_BEGIN

// Main blocks up to width & bound, then at most one block of each smaller size for which the width
// has the bit, then the scalar tail. The bound is not always main's own multiple.
struct Cut {
  int main, bound, second, third;
};

constexpr Cut cutByEight = {8, ~7, 0, 0};         // a chroma pair for each pixel, or interleaved
constexpr Cut cutByEightFour = {8, ~7, 4, 0};     // 4:2:0, planar 4:2:2, 4:1:1
constexpr Cut cutByEightFourTwo = {8, ~7, 4, 2};  // YUV 4:2:0

// The leading columns of a row that blocks cover.
constexpr int VectorColumns(Cut cut, int width) {
  return (width & cut.bound) + (width & cut.second) + (width & cut.third);
}
static_assert(VectorColumns(cutByEight, 15) == 8);
static_assert(VectorColumns(cutByEightFour, 15) == 12);
static_assert(VectorColumns(cutByEightFourTwo, 15) == 14);

// Walks one row, or the rows that share a row of chroma, from the left.
template <class Row>
PXM_INLINE void walk(const Row& row, int width) {
  constexpr Cut cut = Row::cut;
  ptrdiff_t x = 0;
  const ptrdiff_t end = width & cut.bound;
  if constexpr (cut.main == 8)
    for (; x + 16 <= end; x += 16) row.twoBlocks(x);
  for (; x < end; x += cut.main) row.template block<cut.main>(x);
  if constexpr (cut.second != 0)
    if (width & cut.second) {
      row.template block<cut.second>(x);
      x += cut.second;
    }
  if constexpr (cut.third != 0) {
    if (width & cut.third) {
      row.template block<cut.third>(x);
      x += cut.third;
    }
    if constexpr (Row::repeatsLastBlock) row.oneBlockTooMany(x, width);
  }
  row.tail(x, width);
}

PXM_TEXT_END

#endif
