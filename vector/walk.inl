// SPDX-License-Identifier: MIT
// How rows are cut into blocks and a scalar tail.
#ifndef PXM_VECTOR_WALK_INL
#define PXM_VECTOR_WALK_INL

#include <stddef.h>

#include "frame/variant.h"

PXM_TEXT_BEGIN

// Main blocks up to width & bound, then at most one block of each smaller size for which the width
// has the bit, then the scalar tail. Required: the bound is not always main's own multiple, and the
// columns that it leaves out are as scalar code makes them.
struct Cut {
  int main, bound;
  int smaller[3];
};

// The leading columns of a row that must go through blocks.
constexpr int VectorColumns(const Cut& cut, int width) {
  int columns = width & cut.bound;
  for (const int size : cut.smaller) columns += width & size;
  return columns;
}

template <int size, class Row>
PXM_INLINE void blockIfWidthHas(const Row& row, ptrdiff_t& x, int width) {
  if constexpr (size != 0)
    if (width & size) {
      row.template block<size>(x);
      x += size;
    }
}

constexpr bool isSmaller(const Cut& cut, int size) {
  return cut.smaller[0] == size || cut.smaller[1] == size || cut.smaller[2] == size;
}

// Walks one row, or the rows that share a row of chroma, from the left. Several main blocks may be
// worked on at once: `widest` columns. Where blocks give what the scalar tail gives, they take the
// four columns and the two that may be left of its own. The tail may go on `beyond` the row.
template <class Row>
PXM_INLINE void walk(const Row& row, int width, int beyond = 0) {
  constexpr Cut cut = Row::cut;
  ptrdiff_t x = 0;
  const ptrdiff_t end = width & cut.bound;
  if constexpr (Row::widest != 0) x = row.widestBlocks(x, end);
  if constexpr (Row::widest > 2 * cut.main)
    if (x + Row::widest / 2 <= end) {
      row.template block<Row::widest / 2>(x);
      x += Row::widest / 2;
    }
  for (; x < end; x += cut.main) row.template block<cut.main>(x);
  blockIfWidthHas<cut.smaller[0]>(row, x, width);
  blockIfWidthHas<cut.smaller[1]>(row, x, width);
  blockIfWidthHas<cut.smaller[2]>(row, x, width);
  if constexpr (Row::restFitsBlocks) {
    blockIfWidthHas<isSmaller(cut, 4) ? 0 : 4>(row, x, width);
    blockIfWidthHas<isSmaller(cut, 2) ? 0 : 2>(row, x, width);
  }
  if constexpr (Row::repeatsLastBlock) row.oneBlockTooMany(x, width);
  row.tail(x, ptrdiff_t{width} + beyond);
}

PXM_TEXT_END

#endif
