// SPDX-License-Identifier: MIT
// From row numbers to addresses, and 16-bit words at any address.
#ifndef PXM_FRAME_ROWS_INL
#define PXM_FRAME_ROWS_INL

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "frame/level.h"

PXM_LEVEL_BEGIN

// A full-width multiple of the pitch from the first row.
template <class T>
PXM_INLINE T* rowAt(T* first, ptrdiff_t row, ptrdiff_t pitch) {
  return first + row * pitch;
}

// Row times pitch as a signed 32-bit product. Required: it wraps before it is widened.
PXM_INLINE ptrdiff_t wrappedOffset(int row, int pitch) {
  return static_cast<int32_t>(static_cast<uint32_t>(row) * static_cast<uint32_t>(pitch));
}

template <class T>
PXM_INLINE T* wrappedRowAt(T* first, int row, int pitch) {
  return first + wrappedOffset(row, pitch);
}

PXM_INLINE uint16_t load16(const uint8_t* row, ptrdiff_t x) {
  uint16_t word;
  memcpy(&word, row + 2 * x, sizeof word);
  return word;
}

PXM_INLINE void store16(uint8_t* row, ptrdiff_t x, uint16_t word) {
  memcpy(row + 2 * x, &word, sizeof word);
}

PXM_LEVEL_END

#endif
