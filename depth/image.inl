// SPDX-License-Identifier: MIT
// Whole images: rows and pitches. The pitch of 16-bit pixels counts pixels, so an odd one loses its
// low bit; that of bytes is exact.
#ifndef PXM_DEPTH_IMAGE_INL
#define PXM_DEPTH_IMAGE_INL

#include "depth/level_row.inl"
#include "frame/rows.inl"
#include "frame/signatures.h"

PXM_LEVEL_BEGIN

PXM_INLINE ptrdiff_t evenPitch(int step) {
  return ptrdiff_t{step >> 1} * 2;
}

PXM_INLINE void convertExpand565(const PixelsToBytes& a) {
  const uint8_t* const source = reinterpret_cast<const uint8_t*>(a.src);
  for (int y = 0; y < a.height; ++y)
    expandRow(rowAt(source, y, evenPitch(a.srcStep)), rowAt(a.dst, y, a.dstStep), a.width);
}

PXM_INLINE void convertPack888(const BytesToPixels& a) {
  uint8_t* const out = reinterpret_cast<uint8_t*>(a.dst);
  for (int y = 0; y < a.height; ++y)
    packRow(rowAt(a.src, y, a.srcStep), rowAt(out, y, evenPitch(a.dstStep)), a.width);
}

PXM_LEVEL_END

#endif
