// SPDX-License-Identifier: MIT
// The decode forms: one luma and two chroma samples to red, green and blue, in 32-bit integers with
// arithmetic shifts. They are near each other and differ in low-order bits; which kernel uses which
// is part of its output. A form makes the terms of a chroma pair once and joins each luma sample
// that shares it to them.
#ifndef PXM_DECODE_ARITHMETIC_INL
#define PXM_DECODE_ARITHMETIC_INL

#include "decode/clamp_table.h"
#include "decode/numbers.h"
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
// addition, then the sum to levels. The samples come 128 times as large, which with weights in
// units of 1/8192 makes sixteenths of what the shift leaves. Sums of YCbCr stay in -4500..8600.
constexpr int stagedScale = 128;
static_assert(stagedScale * 8192 == 65536 << fractionBits);
template <class Weights>
struct StagedTerms : Narrowed<Weights> {
  using W = Narrowed<Weights>;
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb * stagedScale - greyChroma * stagedScale;
    const int v = c.cr * stagedScale - greyChroma * stagedScale;
    return {v * W::redV >> 16, -(u * W::greenU >> 16) - (v * W::greenV >> 16), u * W::blueU >> 16};
  }
};

struct DecodeStaged : StagedTerms<YCbCrWeights> {
  PXM_INLINE static Channels join(int y, const Terms& t) {
    constexpr int black = blackLuma * stagedScale * W::luma;
    return sum<fractionBits>((y * stagedScale * W::luma - black) >> 16, t);
  }
};

struct DecodeYuvStaged : StagedTerms<YuvWeights> {
  PXM_INLINE static Channels join(int y, const Terms& t) {
    return sum<fractionBits>(y * (1 << fractionBits), t);
  }
};

// Half a level in units of 1/65536.
constexpr int halfLevel = 32768;

// One shift: the weights in units of 1/65536.
struct DecodeWide : YCbCrWeights {
  static constexpr int black = blackLuma * luma;
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb - greyChroma;
    const int v = c.cr - greyChroma;
    return {v * redV, -u * greenU - v * greenV, u * blueU};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) { return sum<16>(y * luma - black, t); }
};

// The wide form to the nearest level, green included.
struct DecodeRounded : DecodeWide {
  PXM_INLINE static Channels join(int y, const Terms& t) {
    return sum<16>(y * luma - black + halfLevel, t);
  }
};

// The wide form with its offsets folded into one constant a component. Required as they stand: they
// are 57, 14 and 13 lower than the wide form's.
struct DecodeFolded : YCbCrWeights {
  static constexpr int black = DecodeWide::black;
  static constexpr int redOffset = -greyChroma * redV - black - 57;
  static constexpr int greenOffset = greyChroma * (greenU + greenV) - black - 14;
  static constexpr int blueOffset = -greyChroma * blueU - black - 13;
  PXM_INLINE static Terms chroma(const Chroma& c) {
    return {c.cr * redV + redOffset, -c.cb * greenU - c.cr * greenV + greenOffset,
            c.cb * blueU + blueOffset};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) { return sum<16>(y * luma, t); }
};

struct DecodeYuvPlain : YuvWeights {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb - greyChroma;
    const int v = c.cr - greyChroma;
    return {v * redV, -v * greenV - u * greenU, u * blueU};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) { return sum<16>(y * luma, t); }
};

// Red and blue to the nearest level. Required: green is truncated.
struct DecodeYuvRounded : DecodeYuvPlain {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const Terms t = DecodeYuvPlain::chroma(c);
    return {t.red + halfLevel, t.green, t.blue + halfLevel};
  }
};

template <class Form>
PXM_INLINE Channels decodePixel(int y, const Chroma& c) {
  return Form::join(y, Form::chroma(c));
}

PXM_LEVEL_END

#endif
