// SPDX-License-Identifier: MIT
#include "decode/folded_dither.h"

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

// The least factor that gives every level with this bias, or 0: each component leaves the factor an
// interval.
constexpr int factorFor(const Levels& levels, int scale, int shift, int bias) {
  int64_t least = 1, most = 65535;
  for (int v = 0; v < 256 && least <= most; ++v) {
    const int64_t x = v * scale + bias;
    const int64_t from = int64_t{levels.of[v]} << (16 + shift);
    const int64_t to = (int64_t{levels.of[v] + 1} << (16 + shift)) - 1;
    if (x == 0) {
      if (from > 0) return 0;
      continue;
    }
    if (least < (from + x - 1) / x) least = (from + x - 1) / x;
    if (most > to / x) most = to / x;
  }
  return least <= most ? static_cast<int>(least) : 0;
}

constexpr Numbers fold(int bits, int scale, int shift, int threshold) {
  const Levels levels = levelsAt(bits, threshold);
  const int mostBias = (512 * scale) >> bits;  // two levels
  for (int bias = 0; bias < mostBias; ++bias)
    if (const int factor = factorFor(levels, scale, shift, bias)) return {bias, factor};
  return {0, 0};
}

constexpr FoldedDither foldAll(int bits, int scale, int shift, const int32_t (&matrix)[4][4]) {
  FoldedDither folded = {};
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column) {
      const Numbers n = fold(bits, scale, shift, matrix[row][column]);
      folded.bias[row][column] = static_cast<uint16_t>(n.bias);
      folded.factor[row][column] = static_cast<uint16_t>(n.factor);
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
static_assert(placesWithout(folded4) == 0 && placesWithout(folded5) == 0);
static_assert(placesWithout(folded6) == 1 && folded6.factor[0][2] == 0);

}  // namespace

constinit const FoldedDither foldedDither4 = folded4;
constinit const FoldedDither foldedDither5 = folded5;
constinit const FoldedDither foldedDither6 = folded6;

}  // namespace pxm
