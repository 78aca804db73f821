// SPDX-License-Identifier: MIT
#include "decode/folded_dither.h"

#include <initializer_list>

#include "decode/dither_matrix.h"

namespace pxm {
namespace {

struct Numbers {
  int bias, factor;
};

// The level of each component at one place of the matrix, as the dither defines it.
struct Levels {
  int of[256];
};

constexpr Levels levelsAt(int bits, int threshold) {
  const int most = (1 << bits) - 1;
  const int step = bits == 4 ? 4352 : bits == 5 ? 2105 : 1036;
  if (bits == 6) threshold >>= 1;
  Levels levels = {};
  for (int v = 0; v < 256; ++v) {
    const int below = v * most >> 8;
    levels.of[v] = below + (threshold < v * 256 - below * step);
  }
  return levels;
}

struct Interval {
  int64_t least, most;
  constexpr void narrow(int64_t from, int64_t to) {
    if (least < from) least = from;
    if (most > to) most = to;
  }
};

// The biases that give the levels of the components `from` to `to` - 1 with a factor.
constexpr Interval biasesFor(const Levels& levels, int scale, int shift, int factor, int from,
                             int to) {
  Interval biases = {0, 65535 - 255 * scale};
  for (int v = from; v < to && biases.least <= biases.most; ++v) {
    const int64_t level = levels.of[v];
    if (v > from && v + 1 < to && levels.of[v - 1] == level && levels.of[v + 1] == level) continue;
    const int64_t first = ((level << (16 + shift)) + factor - 1) / factor;
    const int64_t next = (((level + 1) << (16 + shift)) + factor - 1) / factor;
    biases.narrow(first - v * scale, next - 1 - v * scale);
  }
  return biases;
}

// A bias and a factor near the slope of the levels. `bend` comes off the bias from 128 on.
constexpr Numbers fold(int bits, int scale, int shift, int threshold, int bend) {
  const Levels levels = levelsAt(bits, threshold);
  const int slope = ((1 << bits) - 1) * (1 << (16 + shift)) / (256 * scale);
  const int far = 8 + slope / 128;
  for (int distance = 0; distance <= far; ++distance)
    for (const int factor : {slope + distance, slope - distance}) {
      Interval biases = biasesFor(levels, scale, shift, factor, 0, 128);
      if (biases.least > biases.most) continue;
      const Interval upper = biasesFor(levels, scale, shift, factor, 128, 256);
      biases.narrow(upper.least + bend, upper.most + bend);
      if (biases.least <= biases.most) return {static_cast<int>(biases.least), factor};
    }
  return {0, 0};
}

constexpr FoldedDither foldAll(int bits, int scale, int shift, const int32_t (&matrix)[4][4]) {
  FoldedDither folded = {};
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column) {
      const bool bends = bits == 6 && row == 0 && column == 2;
      const Numbers n = fold(bits, scale, shift, matrix[row][column], bends ? foldedBend6 : 0);
      for (const int lane : {column, column + 4}) {
        folded.bias[row][lane] = static_cast<uint16_t>(n.bias);
        folded.factor[row][lane] = static_cast<uint16_t>(n.factor);
      }
    }
  return folded;
}

constexpr int placesWithout(const FoldedDither& folded) {
  int places = 0;
  for (const auto& row : folded.factor)
    for (const uint16_t factor : row) places += factor == 0;
  return places;
}

constexpr int32_t matrix444[4][4] = PXM_DITHER_MATRIX_444;
constexpr int32_t matrix555[4][4] = PXM_DITHER_MATRIX_555;

constexpr FoldedDither folded4 = foldAll(4, foldedScale4, foldedShift4, matrix444);
constexpr FoldedDither folded5 = foldAll(5, foldedScale5, foldedShift5, matrix555);
constexpr FoldedDither folded6 = foldAll(6, foldedScale6, foldedShift6, matrix555);
static_assert(placesWithout(folded4) == 0 && placesWithout(folded5) == 0 &&
              placesWithout(folded6) == 0);

}  // namespace

constinit const FoldedDither foldedDither4 = folded4;
constinit const FoldedDither foldedDither5 = folded5;
constinit const FoldedDither foldedDither6 = folded6;

}  // namespace pxm
