// SPDX-License-Identifier: MIT
// Red, green and blue to one 16-bit word. The colour that a format spells first sits in the low
// bits; green never moves; spare bits are zero.
#ifndef PXM_DECODE_PACK_INL
#define PXM_DECODE_PACK_INL

#include <stddef.h>
#include <stdint.h>

#include "decode/arithmetic.inl"

PXM_LEVEL_BEGIN

template <int format>
struct Layout;

template <>
struct Layout<444> {
  static constexpr int redBits = 4, greenBits = 4, blueBits = 4;
};

template <>
struct Layout<555> {
  static constexpr int redBits = 5, greenBits = 5, blueBits = 5;
};

template <>
struct Layout<565> {
  static constexpr int redBits = 5, greenBits = 6, blueBits = 5;
};

// Fields into their places, in either channel order.
template <int format>
struct Fields : Layout<format> {
  using Layout<format>::redBits, Layout<format>::greenBits, Layout<format>::blueBits;
  static constexpr int greenShift = blueBits;
  static constexpr int topShift = blueBits + greenBits;

  int redShift, blueShift;

  PXM_INLINE explicit Fields(int isBgr)
      : redShift(isBgr ? topShift : 0), blueShift(isBgr ? 0 : topShift) {}

  PXM_INLINE bool isBgr() const { return redShift != 0; }

  PXM_INLINE uint16_t word(int red, int green, int blue) const {
    return static_cast<uint16_t>(red << redShift | green << greenShift | blue << blueShift);
  }
};

// Drops the low bits, without rounding.
template <int pixelFormat>
struct PackPlain : Fields<pixelFormat> {
  static constexpr int format = pixelFormat;
  static constexpr bool dithers = false;
  using Fields<pixelFormat>::Fields;

  // Rows and columns are all alike.
  PXM_INLINE uint16_t pack(const Channels& c, int, ptrdiff_t) const {
    return this->word(c.red >> (8 - this->redBits), c.green >> (8 - this->greenBits),
                      c.blue >> (8 - this->blueBits));
  }
};

PXM_LEVEL_END

#endif
