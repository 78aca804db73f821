// SPDX-License-Identifier: MIT
// Depth conversion in plain code.
#include "depth/depth.inl"

PXM_TEXT_BEGIN

PXM_INLINE void expandRow(const uint8_t* source, uint8_t* out, int width) {
  expandColumns(source, out, 0, width);
}

PXM_INLINE void packRow(const uint8_t* source, uint8_t* out, int width) {
  packColumns(source, out, 0, width);
}

PXM_TEXT_END

#include "depth/entries.inl"
