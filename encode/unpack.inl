// SPDX-License-Identifier: MIT
// 16-bit words to red, green and blue: fields shifted up to 8 bits, the low bits zero, so that a
// full field is 248 or 252 and never 255. Green of 565 keeps its sixth bit.
#ifndef PXM_ENCODE_UNPACK_INL
#define PXM_ENCODE_UNPACK_INL

#include "frame/layout.h"
#include "frame/level.h"

PXM_LEVEL_BEGIN

// Of one pixel, or the sum over a group of pixels.
struct Components {
  int red, green, blue;
};

// The field of so many bits at a bit.
template <int bits, int at>
PXM_INLINE int unpackedField(int word) {
  constexpr int shift = at + bits - 8;
  if constexpr (shift < 0)
    return word << -shift & topOfByte<bits>;
  else
    return word >> shift & topOfByte<bits>;
}

// Spare bits are ignored.
template <class F, int redAt, int blueAt>
struct Unpack {
  using Fields = F;
  PXM_INLINE static Components unpack(int word) {
    return {unpackedField<F::redBits, redAt>(word), unpackedField<F::greenBits, F::greenAt>(word),
            unpackedField<F::blueBits, blueAt>(word)};
  }
};
struct UnpackBgr555 : Unpack<Layout<555>, Layout<555>::highAt, 0> {};
struct UnpackBgr565 : Unpack<Layout<565>, Layout<565>::highAt, 0> {};
struct UnpackRgb565 : Unpack<Layout<565>, 0, Layout<565>::highAt> {};

PXM_LEVEL_END

#endif
