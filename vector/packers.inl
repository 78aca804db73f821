// SPDX-License-Identifier: MIT
// Components in lanes to packed pixels, two registers of pixels at once: narrowing clamps the
// components to bytes whose top bits are the levels, and the fields are put together as bytes. The
// colour order is known here, so that no shift is by a count of the run.
#ifndef PXM_VECTOR_PACKERS_INL
#define PXM_VECTOR_PACKERS_INL

#include "decode/dither.inl"
#include "decode/folded_dither.h"
#include "vector/chains.inl"

PXM_TEXT_BEGIN

// Bytes, in lanes of two. Shifts are by lanes, and what crosses a byte is masked off.
constexpr int inBothBytes(int byte) {
  return byte << 8 | byte;
}
template <int n, class L>
PXM_INLINE L shiftBytesRight(L bytes) {
  return shiftRightLogical<n>(bytes) & all<L>(inBothBytes(0xFF >> n));
}

// The low and the high bytes of pixels, from the component in the low field, green, and the
// component in the high field.
template <class L>
struct PixelBytes {
  L low, high;
};

template <int depth, class L>
PXM_INLINE PixelBytes<L> pixelBytes(L low, L green, L high) {
  if constexpr (depth == 444)
    return {shiftBytesRight<4>(low) | (green & all<L>(0xF0F0)), shiftBytesRight<4>(high)};
  if constexpr (depth == 555)
    return {shiftBytesRight<3>(low) | (shiftLeft<2>(green) & all<L>(0xE0E0)),
            (shiftRightLogical<1>(high) & all<L>(0x7C7C)) | shiftBytesRight<6>(green)};
  if constexpr (depth == 565)
    return {shiftBytesRight<3>(low) | (shiftLeft<3>(green) & all<L>(0xE0E0)),
            (high & all<L>(0xF8F8)) | shiftBytesRight<5>(green)};
}

// What a packer does to the components of one row, which end between 0 and 255 or are clamped to
// that by the narrowing. A block starts at a multiple of four columns, so the column phase needs no
// care.
template <class Packer, class L>
struct LaneRow;

// The level, without its fraction.
template <int depth, class L>
struct LaneRow<PackPlain<depth>, L> {
  PXM_INLINE explicit LaneRow(int) {}
  PXM_INLINE LaneChannels<L> bytes(L luma, const LaneTerms<L>& terms) const {
    const LaneChannels<L> c = join(luma, terms);
    return {shiftRight<4>(c.red), shiftRight<4>(c.green), shiftRight<4>(c.blue)};
  }
};

// One bias serves the three components.
template <class L>
struct LaneRow<PackDither<444>, L> {
  L bias, factor;
  PXM_INLINE explicit LaneRow(int row)
      : bias(loadLanes<L>(foldedDither4.bias[row & 3])),
        factor(loadLanes<L>(foldedDither4.factor[row & 3])) {}

  PXM_INLINE LaneChannels<L> bytes(L luma, const LaneTerms<L>& terms) const {
    const LaneChannels<L> c = join(luma + bias, terms);
    return {LaneMulHi(c.red, factor), LaneMulHi(c.green, factor), LaneMulHi(c.blue, factor)};
  }
};

template <class L>
PXM_INLINE L withoutFraction(L sixteenths) {
  return sixteenths & all<L>(~15);
}

template <class L>
struct LaneRow<PackDither<555>, L> {
  L bias, factor;
  PXM_INLINE explicit LaneRow(int row)
      : bias(loadLanes<L>(foldedDither5.bias[row & 3])),
        factor(loadLanes<L>(foldedDither5.factor[row & 3])) {}

  PXM_INLINE L byte(L sixteenths) const {
    return LaneMulHi(withoutFraction(sixteenths) + bias, factor);
  }
  PXM_INLINE LaneChannels<L> bytes(L luma, const LaneTerms<L>& terms) const {
    const LaneChannels<L> c = join(luma, terms);
    return {byte(c.red), byte(c.green), byte(c.blue)};
  }
};

// Red and blue are those of 555. Green has numbers of its own, and in row 0 a bend.
template <class L>
struct LaneRow<PackDither<565>, L> {
  LaneRow<PackDither<555>, L> five;
  L bias, factor, lower;
  bool bends;
  PXM_INLINE explicit LaneRow(int row)
      : five(row),
        bias(loadLanes<L>(foldedDither6.bias[row & 3])),
        factor(loadLanes<L>(foldedDither6.factor[row & 3])),
        lower(loadLanes<L>(foldedDither6.lower[row & 3])),
        bends((row & 3) == 0) {}

  PXM_INLINE L greenByte(L sixteenths) const {
    static_assert(foldedBend6 == 2048 >> 9);
    static constexpr int16_t bend[8] = {0, 0, foldedBend6, 0, 0, 0, foldedBend6, 0};
    L biased = withoutFraction(sixteenths) + bias;
    if (bends) biased = biased - (shiftRight<9>(sixteenths) & loadLanes<L>(bend));
    return LaneMulHi(biased, factor);
  }
  PXM_INLINE LaneChannels<L> bytes(L luma, const LaneTerms<L>& terms) const {
    const LaneChannels<L> c = join(luma, terms);
    return {five.byte(c.red), greenByte(c.green), five.byte(c.blue)};
  }
};

// What is left to do with green once it is narrowed, a register of each row.
template <class Row, class L>
PXM_INLINE L settled(L green, const Row&, const Row&) {
  return green;
}
template <class L>
PXM_INLINE L settled(L green, const LaneRow<PackDither<565>, L>& rowA,
                     const LaneRow<PackDither<565>, L>& rowB) {
  return subtractBytes(green, narrowed(rowA.lower, rowB.lower));
}

// Two registers of pixels, in the order of the lumas that they came from: narrowing and taking
// bytes in turn both stay within the halves of a register.
template <class L>
struct TwoOfPixels {
  L first, second;
};

template <bool isBgr, class Packer, class L>
PXM_INLINE TwoOfPixels<L> packTwo(const LaneRow<Packer, L>& rowA, L lumaA, const LaneTerms<L>& a,
                                  const LaneRow<Packer, L>& rowB, L lumaB, const LaneTerms<L>& b) {
  const LaneChannels<L> first = rowA.bytes(lumaA, a), second = rowB.bytes(lumaB, b);
  const L red = narrowed(first.red, second.red);
  const L green = settled(narrowed(first.green, second.green), rowA, rowB);
  const L blue = narrowed(first.blue, second.blue);
  const PixelBytes<L> bytes = isBgr ? pixelBytes<Packer::depth>(blue, green, red)
                                    : pixelBytes<Packer::depth>(red, green, blue);
  return {lowBytesInTurn(bytes.low, bytes.high), highBytesInTurn(bytes.low, bytes.high)};
}

PXM_TEXT_END

#endif
