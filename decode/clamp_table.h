// SPDX-License-Identifier: MIT
#ifndef PXM_DECODE_CLAMP_TABLE_H
#define PXM_DECODE_CLAMP_TABLE_H

#include <stdint.h>

#pragma GCC visibility push(hidden)

namespace pxm {

constexpr int clampFirst = -370, clampLast = 629;

// Saturation to 0..255 by one byte load: the value for index i stands at entry[i - clampFirst].
// Over all samples the decode forms reach indices -277 to 534.
struct ClampEntries {
  uint8_t entry[clampLast - clampFirst + 1];
};
extern const ClampEntries ClampTable;

}  // namespace pxm

#pragma GCC visibility pop

#endif
