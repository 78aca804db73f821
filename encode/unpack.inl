// SPDX-License-Identifier: MIT
// 16-bit words to red, green and blue: fields shifted up to 8 bits, the low bits zero, so that a
// full field is 248 or 252 and never 255. Green of 565 keeps its sixth bit.
#ifndef PXM_ENCODE_UNPACK_INL
#define PXM_ENCODE_UNPACK_INL

#include "frame/level.h"

PXM_LEVEL_BEGIN

// Of one pixel, or the sum over a group of pixels.
struct Components {
  int red, green, blue;
};

// Bit 15 is ignored.
struct UnpackBgr555 {
  PXM_INLINE static Components unpack(int word) {
    return {word >> 7 & 0xF8, word >> 2 & 0xF8, word << 3 & 0xF8};
  }
};

struct UnpackBgr565 {
  PXM_INLINE static Components unpack(int word) {
    return {word >> 8 & 0xF8, word >> 3 & 0xFC, word << 3 & 0xF8};
  }
};

struct UnpackRgb565 {
  PXM_INLINE static Components unpack(int word) {
    return {word << 3 & 0xF8, word >> 3 & 0xFC, word >> 8 & 0xF8};
  }
};

PXM_LEVEL_END

#endif
