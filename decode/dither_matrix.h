// SPDX-License-Identifier: MIT
#ifndef PXM_DECODE_DITHER_MATRIX_H
#define PXM_DECODE_DITHER_MATRIX_H

#include <stdint.h>

// 289 times the classic 4x4 index matrix, 0 to 15.
#define PXM_DITHER_MATRIX_444                                                 \
  {                                                                           \
    {0, 2312, 578, 2890}, {3468, 1156, 4046, 1734}, {867, 3179, 289, 2601}, { \
      4335, 2023, 3757, 1445                                                  \
    }                                                                         \
  }

// 839 / 6 times the index matrix, rounded down.
#define PXM_DITHER_MATRIX_555                                               \
  {                                                                         \
    {0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, { \
      2097, 978, 1817, 699                                                  \
    }                                                                       \
  }

#pragma GCC visibility push(hidden)

namespace pxm {

// Thresholds of the ordered dither in 1/256 of a component's unit, at (row & 3, column & 3) of the
// region: for the fields of 444 pixels, and for those of 555 and 565 pixels.
extern const int32_t DitherMatrix444[4][4];
extern const int32_t DitherMatrix555[4][4];

}  // namespace pxm

#pragma GCC visibility pop

#endif
