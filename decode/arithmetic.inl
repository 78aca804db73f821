// SPDX-License-Identifier: MIT
// The decode forms: one luma and two chroma samples to red, green and blue, in 32-bit integers with
// arithmetic shifts. They are near each other and differ in low-order bits; which kernel uses which
// is part of its output. A form makes the terms of a chroma pair once and joins each luma sample
// that shares it to them.
#ifndef PXM_DECODE_ARITHMETIC_INL
#define PXM_DECODE_ARITHMETIC_INL

#include "decode/clamp_table.h"
#include "frame/level.h"

PXM_LEVEL_BEGIN

// Two chroma samples as stored, 0 to 255: Cb and Cr, or U and V.
struct Chroma {
  int cb, cr;
};

// What a chroma pair adds to each component, in units of the form.
struct Terms {
  int red, green, blue;
};

// Components, 0 to 255.
struct Channels {
  int red, green, blue;
};

PXM_INLINE int clampToByte(int index) {
  return ClampTable.entry[index - clampFirst];
}

template <int shift>
PXM_INLINE Channels sum(int luma, const Terms& t) {
  return {clampToByte((luma + t.red) >> shift), clampToByte((luma + t.green) >> shift),
          clampToByte((luma + t.blue) >> shift)};
}

// Two shifts: each product is truncated to 1/16 of a level by a shift of its own before any
// addition, then the sum to levels. The weights of u and v are in units of 1/8192, rounded down.
// Sums of YCbCr stay in -4500..8600.
template <int redV, int greenU, int greenV, int blueU>
struct StagedTerms {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb * 128 - 16384;
    const int v = c.cr * 128 - 16384;
    return {v * redV >> 16, -(u * greenU >> 16) - (v * greenV >> 16), u * blueU >> 16};
  }
};

// 1.164, 1.596, 0.392, 0.813, 2.017.
struct DecodeStaged : StagedTerms<13074, 3211, 6660, 16523> {
  PXM_INLINE static Channels join(int y, const Terms& t) {
    return sum<4>((y * 128 * 9535 - 16 * 128 * 9535) >> 16, t);
  }
};

// 1.140, 0.394, 0.581, 2.032.
struct DecodeYuvStaged : StagedTerms<9338, 3227, 4759, 16646> {
  PXM_INLINE static Channels join(int y, const Terms& t) { return sum<4>(y * 16, t); }
};

// One shift: the same weights in units of 1/65536.
struct DecodeWide {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb - 128;
    const int v = c.cr - 128;
    return {v * 104595, -u * 25690 - v * 53281, u * 132186};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) {
    return sum<16>(y * 76284 - 16 * 76284, t);
  }
};

// The wide form to the nearest level, green included.
struct DecodeRounded : DecodeWide {
  PXM_INLINE static Channels join(int y, const Terms& t) {
    return sum<16>(y * 76284 - 16 * 76284 + 32768, t);
  }
};

// The wide form with its offsets folded into one constant a component. Required as they stand: they
// are 57, 14 and 13 lower than the wide form's.
struct DecodeFolded {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    return {c.cr * 104595 - 14608761, -c.cb * 25690 - c.cr * 53281 + 8887730,
            c.cb * 132186 - 18140365};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) { return sum<16>(y * 76284, t); }
};

struct DecodeYuvPlain {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb - 128;
    const int v = c.cr - 128;
    return {v * 74711, -v * 38076 - u * 25821, u * 133169};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) { return sum<16>(y * 65536, t); }
};

// Red and blue to the nearest level. Required: green is truncated.
struct DecodeYuvRounded : DecodeYuvPlain {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const Terms t = DecodeYuvPlain::chroma(c);
    return {t.red + 32768, t.green, t.blue + 32768};
  }
};

template <class Form>
PXM_INLINE Channels decodePixel(int y, const Chroma& c) {
  return Form::join(y, Form::chroma(c));
}

PXM_LEVEL_END

#endif
