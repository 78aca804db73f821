// SPDX-License-Identifier: MIT
// 565 pixels to three bytes and back. Bits move, colours have no part in it: the low field goes
// with byte 0, the middle field with byte 1, the high field with byte 2.
#ifndef PXM_DEPTH_ROW_INL
#define PXM_DEPTH_ROW_INL

#include "frame/layout.h"
#include "frame/rows.inl"
#include "frame/signatures.h"

PXM_LEVEL_BEGIN

using DepthFields = Layout<565>;

// How far the fields stand from the low end of their bytes.
constexpr int outerInByte = 8 - DepthFields::outerBits, greenInByte = 8 - DepthFields::greenBits;

// The low bits of a byte become zero, not copies of the high bits.
PXM_INLINE void expandPixel(uint8_t* bytes, int word) {
  using F = DepthFields;
  bytes[0] = static_cast<uint8_t>(word << outerInByte);
  bytes[1] = static_cast<uint8_t>(word >> (F::greenAt - greenInByte) & topOfByte<F::greenBits>);
  bytes[2] = static_cast<uint8_t>(word >> (F::highAt - outerInByte) & topOfByte<F::outerBits>);
}

PXM_INLINE uint16_t packPixel(const uint8_t* bytes) {
  using F = DepthFields;
  return static_cast<uint16_t>(bytes[0] >> outerInByte | bytes[1] >> greenInByte << F::greenAt |
                               bytes[2] >> outerInByte << F::highAt);
}

// The columns x to width - 1 of a row.
PXM_INLINE void expandColumns(const uint8_t* source, uint8_t* out, ptrdiff_t x, ptrdiff_t width) {
  for (; x < width; ++x) expandPixel(out + 3 * x, load16(source, x));
}

PXM_INLINE void packColumns(const uint8_t* source, uint8_t* out, ptrdiff_t x, ptrdiff_t width) {
  for (; x < width; ++x) store16(out, x, packPixel(source + 3 * x));
}

#ifndef PXM_SIMD
PXM_INLINE void expandRow(const uint8_t* source, uint8_t* out, int width) {
  expandColumns(source, out, 0, width);
}

PXM_INLINE void packRow(const uint8_t* source, uint8_t* out, int width) {
  packColumns(source, out, 0, width);
}
#endif

PXM_LEVEL_END

#endif
