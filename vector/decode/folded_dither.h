// SPDX-License-Identifier: MIT
#ifndef PXM_VECTOR_DECODE_FOLDED_DITHER_H
#define PXM_VECTOR_DECODE_FOLDED_DITHER_H

#include <stdint.h>

#include "decode/numbers.h"

#pragma GCC visibility push(hidden)

namespace pxm {

// The dither of a component as one addition and one multiplication of signed 16-bit lanes, with
// numbers of its own for each place of the matrix. The component is in sixteenths, from below 0 to
// above 255; the result, clamped to a byte, has the level in its top bits and a fraction below:
//
//     upper half of (component + bias) * factor
//
// For five and six bits the component has no fraction. The thresholds of four bits lie on a
// straight line, where a fraction does no harm.
//
// Of six bits, `offset` comes off the byte, 0 if it were less: where it is 4 or more, white is not
// the highest level. At one place, slopeChangeRow6 and slopeChangeColumn6, the thresholds lie on no
// straight line, but on one that changes its slope: there slopeChange6 comes off the bias from
// slopeChangesFrom6 on.
//
// The numbers are searched for by the compiler. They stand by row, those of the even columns before
// those of the odd ones, as often as sixteen lanes hold them; of bytes, by halves of a register.
// Loops take them from memory: there are more numbers than registers.
struct FoldedDither {
  struct alignas(32) Row {
    int16_t bias[2][16], factor[2][16];
    uint8_t offset[32];
  };
  Row rows[4];
};

constexpr int slopeChange6 = 4, slopeChangeRow6 = 0, slopeChangeColumn6 = 2;
constexpr int slopeChangesFrom6 = 128 << fractionBits;
extern const FoldedDither foldedDither4, foldedDither5, foldedDither6;

}  // namespace pxm

#pragma GCC visibility pop

#endif
