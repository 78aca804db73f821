// SPDX-License-Identifier: MIT
// Where decoded pixels go: 16-bit words at any address.
#ifndef PXM_DECODE_TARGET_INL
#define PXM_DECODE_TARGET_INL

#include "frame/rows.inl"

PXM_LEVEL_BEGIN

// One row, and its number in the region, which the dither goes by.
struct PixelRow {
  uint8_t* pixels;
  int number;
  PXM_INLINE void store(ptrdiff_t x, uint16_t word) const { store16(pixels, x, word); }
};

// An image whose pitch counts pixels.
struct PixelImage {
  uint8_t* first;
  int pitch;

  PXM_INLINE PixelImage(uint16_t* image, int pitchInPixels)
      : first(reinterpret_cast<uint8_t*>(image)), pitch(pitchInPixels) {}

  PXM_INLINE PixelRow row(int n) const { return {rowAt(first, n, 2 * ptrdiff_t{pitch}), n}; }
  // The product of row and pitch wraps in 32 bits, then is duplicateBytes in full width.
  PXM_INLINE PixelRow wrappedRow(int n) const { return {first + 2 * wrappedOffset(n, pitch), n}; }
  PXM_INLINE PixelRow below(const PixelRow& row) const {
    return {row.pixels + 2 * ptrdiff_t{pitch}, row.number + 1};
  }
};

PXM_LEVEL_END

#endif
