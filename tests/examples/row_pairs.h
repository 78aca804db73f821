// SPDX-License-Identifier: MIT
// What the tables of 4:2:0 and of YUV 4:2:0 share: both go by pairs of rows. Luma 0 is black and
// luma 255 is full white in both.
#ifndef TESTS_EXAMPLES_ROW_PAIRS_H_
#define TESTS_EXAMPLES_ROW_PAIRS_H_

#include "tests/examples/example.h"

namespace examples {

struct Format {
  const char* name;
  int white;
};
inline constexpr Format formats[] = {{"444", 0x0FFF}, {"555", 0x7FFF}, {"565", 0xFFFF}};

// Three planes with neutral chroma, the luma row after row without a gap.
std::vector<Source> greys(int pitch, const Bytes& luma);

// Black above white, in rows one pixel apart. A block covers the block before it and its own upper
// row, up to the first pixel of that: zeroes are where blocks begin. `columns` is how many are
// stored, which may be more than the width.
Example blocksBegin(const std::string& claim, const std::vector<std::string_view>& names, In in,
                    int width, int columns, const std::vector<int>& begins, int white);

// Columns at which blocks of a width begin: of two columns everywhere; of eight, four and two; and
// of sixteen, eight and two.
struct Blocks {
  int width;
  std::vector<int> ofTwo, ofEight, ofSixteen;
};
const std::vector<Blocks>& blocks();

// What a family's dithering conversions do at odd corners, and what is the same in both families.
std::vector<Example> inRowPairs(const std::string& family);

}  // namespace examples

#endif
