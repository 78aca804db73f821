// SPDX-License-Identifier: MIT
#ifndef PXM_DECODE_FOLDED_DITHER_H
#define PXM_DECODE_FOLDED_DITHER_H

#include <stdint.h>

#pragma GCC visibility push(hidden)

namespace pxm {

// The dither of a component v, 0 to 255, as one addition and one multiplication of unsigned 16-bit
// lanes, with a bias and a factor for each place of the matrix:
//
//     level << shift, and a fraction below  =  upper half of (v * scale + bias) * factor
//
// One place of the 6-bit levels, row 0 and column 2, has thresholds on no straight line, but on one
// with a bend: there foldedBend6 comes off the bias where v is 128 or more. The numbers are
// searched for by the compiler. Rows hold their four columns twice, as eight lanes.
struct FoldedDither {
  alignas(16) uint16_t bias[4][8];
  alignas(16) uint16_t factor[4][8];
};

constexpr int foldedScale4 = 16, foldedShift4 = 0;
constexpr int foldedScale5 = 16, foldedShift5 = 7;
constexpr int foldedScale6 = 128, foldedShift6 = 5;
constexpr int foldedBend6 = 32;
extern const FoldedDither foldedDither4, foldedDither5, foldedDither6;

}  // namespace pxm

#pragma GCC visibility pop

#endif
