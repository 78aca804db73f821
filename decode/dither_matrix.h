// SPDX-License-Identifier: MIT
#ifndef PXM_DECODE_DITHER_MATRIX_H
#define PXM_DECODE_DITHER_MATRIX_H

#include <stdint.h>

#pragma GCC visibility push(hidden)

namespace pxm {

// Thresholds of the ordered dither in 1/256 of a component's unit, at (row & 3, column & 3) of the
// region: for the fields of 444 pixels, and for those of 555 and 565 pixels.
extern const int32_t DitherMatrix444[4][4];
extern const int32_t DitherMatrix555[4][4];

}  // namespace pxm

#pragma GCC visibility pop

#endif
