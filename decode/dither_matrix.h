// SPDX-License-Identifier: MIT
#ifndef PXM_DECODE_DITHER_MATRIX_H
#define PXM_DECODE_DITHER_MATRIX_H

#include <stdint.h>

#include "frame/inline.h"

// The classic 4x4 index matrix, 0 to 15, with `of` around each index.
#define PXM_DITHER_MATRIX(of)                                                                     \
  {                                                                                               \
    {of(0), of(8), of(2), of(10)}, {of(12), of(4), of(14), of(6)}, {of(3), of(11), of(1), of(9)}, \
    {                                                                                             \
      of(15), of(7), of(13), of(5)                                                                \
    }                                                                                             \
  }
#define PXM_DITHER_THRESHOLD_444(index) (289 * (index))
#define PXM_DITHER_THRESHOLD_555(index) (839 * (index) / 6)
#define PXM_DITHER_MATRIX_444 PXM_DITHER_MATRIX(PXM_DITHER_THRESHOLD_444)
#define PXM_DITHER_MATRIX_555 PXM_DITHER_MATRIX(PXM_DITHER_THRESHOLD_555)

#pragma GCC visibility push(hidden)

namespace pxm {

// Thresholds of the ordered dither in 1/256 of a component's unit, at (row & 3, column & 3) of the
// region: for the fields of 444 pixels, and for those of 555 and 565 pixels.
extern const int32_t DitherMatrix444[4][4];
extern const int32_t DitherMatrix555[4][4];

namespace {

// A component v, 0 to 255, to a level of `bits` bits. `step` is 256 * 255 / (2^bits - 1), near
// enough.
template <int bits, int step>
PXM_INLINE constexpr int steppedLevel(int v, int threshold) {
  const int level = v * ((1 << bits) - 1) >> 8;
  const int residue = v * 256 - level * step;
  return level + (threshold < residue);
}

PXM_INLINE constexpr int DitherLevel4(int v, int threshold) {
  return steppedLevel<4, 4352>(v, threshold);
}
PXM_INLINE constexpr int DitherLevel5(int v, int threshold) {
  return steppedLevel<5, 2105>(v, threshold);
}

// The threshold is halved here, and only here. Required: white stays one level below the top at
// row phase 3, column phase 0, where the halved threshold, 1048, equals the residue of 255.
PXM_INLINE constexpr int DitherLevel6(int v, int threshold) {
  return steppedLevel<6, 1036>(v, threshold >> 1);
}

template <int bits>
PXM_INLINE constexpr int ditherLevel(int v, int threshold) {
  if constexpr (bits == 4) return DitherLevel4(v, threshold);
  if constexpr (bits == 5) return DitherLevel5(v, threshold);
  if constexpr (bits == 6) return DitherLevel6(v, threshold);
}

}  // namespace

}  // namespace pxm

#pragma GCC visibility pop

#endif
