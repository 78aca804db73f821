// SPDX-License-Identifier: MIT
// Packing through a 4x4 ordered dither: the nearest level below, raised by one where what is left
// over exceeds the threshold of the pixel's place. The place counts from the region's first pixel.
#ifndef PXM_DECODE_DITHER_INL
#define PXM_DECODE_DITHER_INL

#include "decode/dither_matrix.h"
#include "decode/pack.inl"

PXM_LEVEL_BEGIN

template <int pixelFormat>
struct PackDither : Fields<pixelFormat> {
  static constexpr int format = pixelFormat;
  static constexpr bool dithers = true;
  using Fields<pixelFormat>::Fields;

  // The three components share the threshold of their pixel.
  PXM_INLINE uint16_t pack(const Channels& c, int row, ptrdiff_t column) const {
    const auto& matrix = format == 444 ? DitherMatrix444 : DitherMatrix555;
    const int threshold = matrix[row & 3][column & 3];
    return this->word(ditherLevel<Fields<format>::redBits>(c.red, threshold),
                      ditherLevel<Fields<format>::greenBits>(c.green, threshold),
                      ditherLevel<Fields<format>::blueBits>(c.blue, threshold));
  }
};

PXM_LEVEL_END

#endif
