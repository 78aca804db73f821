// SPDX-License-Identifier: MIT
// 16-bit packed pixels as a display shows them.
#ifndef PXM_EXAMPLES_PACKED16_H
#define PXM_EXAMPLES_PACKED16_H

namespace examples {

/// Place of one component in a 16-bit pixel.
struct PackedField {
  int shift;  ///< its lowest bit
  int bits;   ///< 4, 5 or 6
};

/// Places of the three components.
struct PackedLayout {
  PackedField red;
  PackedField green;
  PackedField blue;
};

/// A component in 8 bits. The bits are repeated below themselves, which maps the highest value to
/// 255, the lowest to 0 and the others evenly between.
inline unsigned char expandField(unsigned pixel, PackedField field) {
  const unsigned value = (pixel >> field.shift) & ((1u << field.bits) - 1u);
  const unsigned wide = value << (8 - field.bits);
  return static_cast<unsigned char>(wide | (wide >> field.bits));
}

/// A row of pixels as bytes R, G, B, R, G, B...
inline void expandRow(const unsigned short* pixels, int width, const PackedLayout& layout,
                      unsigned char* rgb) {
  for (int x = 0; x < width; ++x) {
    *rgb++ = expandField(pixels[x], layout.red);
    *rgb++ = expandField(pixels[x], layout.green);
    *rgb++ = expandField(pixels[x], layout.blue);
  }
}

}  // namespace examples

#endif
