// SPDX-License-Identifier: MIT
// Twelve-bit components to packed pixels in lanes.
#ifndef PXM_VECTOR_PACKERS_INL
#define PXM_VECTOR_PACKERS_INL

#include "decode/dither.inl"
#include "decode/folded_dither.h"
#include "vector/chains.inl"

PXM_TEXT_BEGIN

// Red and blue levels to their places, in either colour order; green comes in its place.
template <int depth>
struct LaneFields : Layout<depth> {
  static constexpr int greenShift = Fields<depth>::greenShift;
  static constexpr int greenMask = ((1 << Layout<depth>::greenBits) - 1) << greenShift;
  LaneShift redShift, blueShift;
  PXM_INLINE explicit LaneFields(const Fields<depth>& fields)
      : redShift(fields.redShift), blueShift(fields.blueShift) {}

  template <class L>
  PXM_INLINE L word(L red, L greenField, L blue) const {
    return shiftLeft(red, redShift) | greenField | shiftLeft(blue, blueShift);
  }
};

// Drops what is below a field.
template <int depth>
struct LanePackPlain : LaneFields<depth> {
  using Fields = LaneFields<depth>;
  PXM_INLINE LanePackPlain(const PackPlain<depth>& packer, int) : Fields(packer) {}

  template <class L>
  PXM_INLINE L pack(const LaneChannels<L>& c) const {
    return this->word(shiftRightLogical<12 - Fields::redBits>(c.red), greenField(c.green),
                      shiftRightLogical<12 - Fields::blueBits>(c.blue));
  }

 private:
  template <class L>
  PXM_INLINE static L greenField(L green) {
    constexpr int shift = 12 - Fields::greenBits - Fields::greenShift;
    return shiftRightLogical<shift>(green) & all<L>(Fields::greenMask);
  }
};

// The numbers of one row of a folded dither, column by column. A block starts at a multiple of four
// columns, so the column phase needs no care.
template <class L>
struct FoldedRow {
  L bias, factor;
  PXM_INLINE FoldedRow(const FoldedDither& folded, int row)
      : bias(loadLanes<L>(folded.bias[row & 3])), factor(loadLanes<L>(folded.factor[row & 3])) {}

  // The level, shifted as the folded dither tells, of a scaled component.
  PXM_INLINE L level(L scaled) const { return LaneMulHiU(scaled + bias, factor); }
};

// The eight bits of a twelve-bit component, 16-scaled.
template <class L>
PXM_INLINE L wholeLevels(L twelve) {
  return twelve & all<L>(0xFF0);
}

template <class L>
PXM_INLINE L ditherField4(L twelve, const FoldedRow<L>& row) {
  static_assert(foldedScale4 == 16 && foldedShift4 == 0);
  return row.level(wholeLevels(twelve));
}

template <class L>
PXM_INLINE L ditherField5(L twelve, const FoldedRow<L>& row) {
  static_assert(foldedScale5 == 16);
  return shiftRightLogical<foldedShift5>(row.level(wholeLevels(twelve)));
}

// Six bits, at bit 5, of rows 1 to 3 and, with its bend, of row 0.
template <class L>
PXM_INLINE L ditherField6(L twelve, const FoldedRow<L>& row, bool isRow0) {
  static_assert(foldedScale6 == 128 && foldedShift6 == 5 && foldedBend6 == 2048 >> 6);
  static constexpr int16_t bends[8] = {0, 0, foldedBend6, 0, 0, 0, foldedBend6, 0};
  L scaled = shiftLeft<3>(twelve) & all<L>(0x7F80);
  if (isRow0) scaled = scaled - (shiftRightLogical<6>(twelve) & loadLanes<L>(bends));
  return row.level(scaled) & all<L>(0x7E0);
}

// The dither of one row.
template <int depth>
struct LanePackDither : LaneFields<depth> {
  int row;
  PXM_INLINE LanePackDither(const PackDither<depth>& packer, int rowNumber)
      : LaneFields<depth>(packer), row(rowNumber & 3) {}

  template <class L>
  PXM_INLINE L pack(const LaneChannels<L>& c) const {
    if constexpr (depth == 444) {
      const FoldedRow<L> four(foldedDither4, row);
      return this->word(ditherField4(c.red, four), shiftLeft<4>(ditherField4(c.green, four)),
                        ditherField4(c.blue, four));
    } else {
      const FoldedRow<L> five(foldedDither5, row);
      return this->word(ditherField5(c.red, five), greenField(c.green, five),
                        ditherField5(c.blue, five));
    }
  }

 private:
  template <class L>
  PXM_INLINE L greenField(L green, const FoldedRow<L>& five) const {
    if constexpr (depth == 555) return shiftLeft<5>(ditherField5(green, five));
    return ditherField6(green, FoldedRow<L>(foldedDither6, row), row == 0);
  }
};

// The lane form of a packer.
template <class Packer>
struct LanePackerOf;
template <int depth>
struct LanePackerOf<PackPlain<depth>> {
  using Type = LanePackPlain<depth>;
};
template <int depth>
struct LanePackerOf<PackDither<depth>> {
  using Type = LanePackDither<depth>;
};

PXM_TEXT_END

#endif
