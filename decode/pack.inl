// SPDX-License-Identifier: MIT
// Red, green and blue to one 16-bit word. The colour that a format spells first sits in the low
// bits; green never moves; spare bits are zero.
#ifndef PXM_DECODE_PACK_INL
#define PXM_DECODE_PACK_INL

#include <stddef.h>
#include <stdint.h>

#include "decode/arithmetic.inl"
#include "frame/layout.h"

PXM_LEVEL_BEGIN

// Fields into their places, in either channel order.
template <int format>
struct Fields : Layout<format> {
  using Layout<format>::greenAt, Layout<format>::highAt;

  int redShift, blueShift;

  PXM_INLINE explicit Fields(int isBgr)
      : redShift(isBgr ? highAt : 0), blueShift(isBgr ? 0 : highAt) {}

  PXM_INLINE bool isBgr() const { return redShift != 0; }

  PXM_INLINE uint16_t word(int red, int green, int blue) const {
    return static_cast<uint16_t>(red << redShift | green << greenAt | blue << blueShift);
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
