// SPDX-License-Identifier: MIT
// Packing through a 4x4 ordered dither: the nearest level below, raised by one where what is left
// over exceeds the threshold of the pixel's place. The place counts from the region's first pixel.
#ifndef PXM_DECODE_DITHER_INL
#define PXM_DECODE_DITHER_INL

#include "decode/dither_matrix.h"
#include "decode/pack.inl"

PXM_LEVEL_BEGIN

// A component v, 0 to 255, to a level of `bits` bits. `step` is 256 * 255 / (2^bits - 1), near
// enough: 4352, 2105, 1036 for 4, 5, 6 bits.
template <int bits, int step>
PXM_INLINE int ditherLevel(int v, int threshold) {
  const int level = v * ((1 << bits) - 1) >> 8;
  const int residue = v * 256 - level * step;
  return level + (threshold < residue);
}

PXM_INLINE int DitherLevel4(int v, int threshold) {
  return ditherLevel<4, 4352>(v, threshold);
}
PXM_INLINE int DitherLevel5(int v, int threshold) {
  return ditherLevel<5, 2105>(v, threshold);
}

// The threshold is halved here, and only here. Required: white stays one level below the top at
// row phase 3, column phase 0, where the halved threshold, 1048, equals the residue of 255.
PXM_INLINE int DitherLevel6(int v, int threshold) {
  return ditherLevel<6, 1036>(v, threshold >> 1);
}

template <int bits>
PXM_INLINE int ditherLevelOf(int v, int threshold) {
  if constexpr (bits == 4) return DitherLevel4(v, threshold);
  if constexpr (bits == 5) return DitherLevel5(v, threshold);
  if constexpr (bits == 6) return DitherLevel6(v, threshold);
}

template <int pixelFormat>
struct PackDither : Fields<pixelFormat> {
  static constexpr int format = pixelFormat;
  static constexpr bool dithers = true;
  using Fields<pixelFormat>::Fields;

  // The three components share the threshold of their pixel.
  PXM_INLINE uint16_t pack(const Channels& c, int row, ptrdiff_t column) const {
    const auto& matrix = format == 444 ? DitherMatrix444 : DitherMatrix555;
    const int threshold = matrix[row & 3][column & 3];
    return this->word(ditherLevelOf<Fields<format>::redBits>(c.red, threshold),
                      ditherLevelOf<Fields<format>::greenBits>(c.green, threshold),
                      ditherLevelOf<Fields<format>::blueBits>(c.blue, threshold));
  }
};

PXM_LEVEL_END

#endif
