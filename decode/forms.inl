// SPDX-License-Identifier: MIT
// The decode forms: one luma and two chroma samples to red, green and blue, ITU-R BT.601 studio
// range, in 32-bit integers with arithmetic shifts. They are near each other and differ in
// low-order bits; which kernel uses which is part of its output.
#ifndef PXM_DECODE_FORMS_INL
#define PXM_DECODE_FORMS_INL

#include "decode/clamp_table.h"
#include "frame/variant.h"

PXM_TEXT_BEGIN

// Samples as stored, 0 to 255.
struct Samples {
  int y, cb, cr;
};

// Components, 0 to 255.
struct Channels {
  int red, green, blue;
};

PXM_INLINE int clampToByte(int index) {
  return ClampTable.entry[index - clampFirst];
}

// Two shifts: each product is cut to 1/16 of a level by a shift of its own before any addition,
// then the sum to levels. 9535, 13074, 3211, 6660, 16523 are 1.164, 1.596, 0.392, 0.813, 2.017 in
// units of 1/8192, rounded down. Sums stay in -4500..8600.
struct DecodeStaged {
  PXM_INLINE static Channels decode(const Samples& s) {
    const int luma = (s.y * 128 * 9535 - 16 * 128 * 9535) >> 16;
    const int u = s.cb * 128 - 16384;
    const int v = s.cr * 128 - 16384;
    return {
        clampToByte((luma + (v * 13074 >> 16)) >> 4),
        clampToByte((luma - (u * 3211 >> 16) - (v * 6660 >> 16)) >> 4),
        clampToByte((luma + (u * 16523 >> 16)) >> 4),
    };
  }
};

// One shift: 1.164, 1.596, 0.392, 0.813, 2.017 in units of 1/65536.
struct DecodeWide {
  PXM_INLINE static Channels decode(const Samples& s) {
    const int luma = s.y * 76284 - 16 * 76284;
    const int u = s.cb - 128;
    const int v = s.cr - 128;
    return {
        clampToByte((luma + v * 104595) >> 16),
        clampToByte((luma - u * 25690 - v * 53281) >> 16),
        clampToByte((luma + u * 132186) >> 16),
    };
  }
};

PXM_TEXT_END

#endif
