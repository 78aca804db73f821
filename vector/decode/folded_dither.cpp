// SPDX-License-Identifier: MIT
#include "vector/decode/folded_dither.h"

#include "decode/dither_matrix.h"

namespace pxm {
namespace {

struct Numbers {
  int bias, factor, offset;
};

// The level of each component at one place of the matrix, as the dither defines it.
struct Levels {
  int of[256];
};

constexpr Levels levelsAt(int bits, int threshold) {
  Levels levels = {};
  for (int v = 0; v < 256; ++v)
    levels.of[v] = bits == 4   ? ditherLevel<4>(v, threshold)
                   : bits == 5 ? ditherLevel<5>(v, threshold)
                               : ditherLevel<6>(v, threshold);
  return levels;
}

struct Interval {
  int64_t least, most;
  constexpr void narrow(int64_t from, int64_t to) {
    if (least < from) least = from;
    if (most > to) most = to;
  }
};

// How the levels of one component are folded: components every `step` sixteenths.
struct Folding {
  int bits, step;
  constexpr int white(int offset) const { return (255 - offset) >> (8 - bits); }
};

// The least sum of component and bias that makes a byte.
constexpr int64_t sumFor(int64_t byte, int factor) {
  return ((byte << 16) + factor - 1) / factor;
}

// The biases that give the levels with the other numbers. `change` comes off the bias from 128 on.
constexpr Interval biasesFor(const Levels& levels, Folding folding, int factor, int offset,
                             int change) {
  const int shift = 8 - folding.bits;
  Interval biases = {0, 4095};
  for (int x = 0; x < 4096 && biases.least <= biases.most; x += folding.step) {
    const int64_t level = levels.of[x >> fractionBits];
    const int unbiased = x < slopeChangesFrom6 ? x : x - change;
    const int64_t first = sumFor((level << shift) + offset, factor);
    const int64_t next = sumFor(((level + 1) << shift) + offset, factor);
    if (level > 0) biases.narrow(first - unbiased, 4095);
    if (level < levels.of[255]) biases.narrow(0, next - 1 - unbiased);
  }
  return biases;
}

// Numbers with a factor near the slope of the levels. A factor that is off by k moves white against
// black by k / 16 of a byte, and what bias and offset can make up for is a byte or two: so the
// window has 8 above the slope and 24 below, where the offset adds. Were it too small, some place
// would have no numbers, and this would not compile.
constexpr Numbers fold(Folding folding, int threshold, int change) {
  const int slope = 4096 * (255 - (255 >> folding.bits)) / 255;
  const Levels levels = levelsAt(folding.bits, threshold);
  const int offsets = folding.bits == 6 ? 8 : 1;
  for (int offset = 0; offset < offsets; ++offset) {
    if (folding.white(offset) != levels.of[255]) continue;
    for (int factor = slope + 8; factor > slope - 24; --factor) {
      const Interval biases = biasesFor(levels, folding, factor, offset, change);
      if (biases.least <= biases.most) return {static_cast<int>(biases.least), factor, offset};
    }
  }
  __builtin_unreachable();
}

constexpr FoldedDither foldAll(Folding folding, const int32_t (&matrix)[4][4]) {
  FoldedDither folded = {};
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column) {
      const bool changesSlope =
          folding.bits == 6 && row == slopeChangeRow6 && column == slopeChangeColumn6;
      const Numbers n = fold(folding, matrix[row][column], changesSlope ? slopeChange6 : 0);
      FoldedDither::Row& numbers = folded.rows[row];
      for (int lane = column >> 1; lane < 16; lane += 2) {
        numbers.bias[column & 1][lane] = static_cast<int16_t>(n.bias);
        numbers.factor[column & 1][lane] = static_cast<int16_t>(n.factor);
        const int byte = (lane & 8) * 2 + (column & 1) * 8 + (lane & 7);
        numbers.offset[byte] = static_cast<uint8_t>(n.offset);
      }
    }
  return folded;
}

constexpr int32_t matrix444[4][4] = PXM_DITHER_MATRIX_444;
constexpr int32_t matrix555[4][4] = PXM_DITHER_MATRIX_555;

constexpr FoldedDither folded4 = foldAll({4, 1}, matrix444);
constexpr FoldedDither folded5 = foldAll({5, 1 << fractionBits}, matrix555);
constexpr FoldedDither folded6 = foldAll({6, 1 << fractionBits}, matrix555);

}  // namespace

constinit const FoldedDither foldedDither4 = folded4;
constinit const FoldedDither foldedDither5 = folded5;
constinit const FoldedDither foldedDither6 = folded6;

}  // namespace pxm
