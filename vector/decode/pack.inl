// SPDX-License-Identifier: MIT
// Components in SIMD to packed pixels, a register of even columns and one of odd columns at once:
// narrowing clamps the components to bytes whose top bits are the levels, and the fields are put
// together as bytes.
#ifndef PXM_VECTOR_DECODE_PACK_INL
#define PXM_VECTOR_DECODE_PACK_INL

#include "decode/dither.inl"
#include "vector/decode/arithmetic.inl"
#include "vector/decode/folded_dither.h"
#include "vector/decode/samples.inl"

PXM_LEVEL_BEGIN

// Bytes, in lanes of two. Shifts are by lanes, and what crosses a byte is masked off.
template <int n, class L>
PXM_INLINE L shiftBytesRight(L bytes) {
  return shiftRightLogical<n>(bytes) & broadcast<L>(inBothBytes(0xFF >> n));
}

template <int n, class L>
PXM_INLINE L shiftedRight(L lanes) {
  if constexpr (n == 0)
    return lanes;
  else
    return shiftRightLogical<n>(lanes);
}

// The low and the high bytes of pixels, from the component in the low field, green, and the
// component in the high field.
template <class L>
struct PixelBytes {
  L low, high;
};

template <int format, class L>
PXM_INLINE PixelBytes<L> pixelBytes(L low, L green, L high) {
  using F = Layout<format>;
  constexpr int greenShift = F::highAt - 8;  // what of green stands in the high byte
  constexpr int greenMask = inBothBytes(topOfByte<8 - F::greenAt>);
  constexpr int top = topOfByte<F::outerBits>;
  constexpr int highMask = inBothBytes(top >> F::spareBits);
  if constexpr (greenShift == 0)
    return {shiftBytesRight<8 - F::outerBits>(low) | (green & broadcast<L>(greenMask)),
            shiftedRight<F::spareBits>(high) & broadcast<L>(highMask)};
  else
    return {shiftBytesRight<8 - F::outerBits>(low) |
                (shiftLeft<greenShift>(green) & broadcast<L>(greenMask)),
            (shiftedRight<F::spareBits>(high) & broadcast<L>(highMask)) |
                shiftBytesRight<8 - greenShift>(green)};
}

// What a packer does to the components of one row, at even columns or at odd ones: they end between
// 0 and 255, or are clamped to that by the narrowing. A block starts at a multiple of four columns,
// so the column phase needs no care.
template <class Packer, class L>
struct LaneRow;

// The level, without its fraction.
template <int format, class L>
struct LaneRow<PackPlain<format>, L> {
  PXM_INLINE explicit LaneRow(int) {}
  template <Parity>
  PXM_INLINE LaneChannels<L> bytes(L luma, const LaneTerms<L>& terms) const {
    const LaneChannels<L> c = join(luma, terms);
    return {shiftRight<fractionBits>(c.red), shiftRight<fractionBits>(c.green),
            shiftRight<fractionBits>(c.blue)};
  }
  PXM_INLINE L greenWithOffset(L bytes) const { return bytes; }
};

// The numbers of a folded dither for one row.
template <class L>
struct FoldedRow {
  const FoldedDither::Row* numbers;
  PXM_INLINE FoldedRow(const FoldedDither& folded, int row) : numbers(&folded.rows[row & 3]) {}

  template <Parity parity>
  PXM_INLINE L bias() const {
    return loadLanes<L>(numbers->bias[parity]);
  }
  template <Parity parity>
  PXM_INLINE L biased(L sixteenths) const {
    return (sixteenths & broadcast<L>(-1 << fractionBits)) + bias<parity>();
  }
  template <Parity parity>
  PXM_INLINE L byte(L biased) const {
    return LaneMulHi(biased, loadLanes<L>(numbers->factor[parity]));
  }
};

// One bias serves the three components.
template <class L>
struct LaneRow<PackDither<444>, L> {
  FoldedRow<L> four;
  PXM_INLINE explicit LaneRow(int row) : four(foldedDither4, row) {}

  template <Parity p>
  PXM_INLINE LaneChannels<L> bytes(L luma, const LaneTerms<L>& terms) const {
    const LaneChannels<L> c = join(luma + four.template bias<p>(), terms);
    return {four.template byte<p>(c.red), four.template byte<p>(c.green),
            four.template byte<p>(c.blue)};
  }
  PXM_INLINE L greenWithOffset(L bytes) const { return bytes; }
};

template <class L>
struct LaneRow<PackDither<555>, L> {
  FoldedRow<L> five;
  PXM_INLINE explicit LaneRow(int row) : five(foldedDither5, row) {}

  template <Parity p>
  PXM_INLINE L byte(L sixteenths) const {
    return five.template byte<p>(five.template biased<p>(sixteenths));
  }
  template <Parity p>
  PXM_INLINE LaneChannels<L> bytes(L luma, const LaneTerms<L>& terms) const {
    const LaneChannels<L> c = join(luma, terms);
    return {byte<p>(c.red), byte<p>(c.green), byte<p>(c.blue)};
  }
  PXM_INLINE L greenWithOffset(L bytes) const { return bytes; }
};

// Red and blue are those of 555. Green has numbers of its own, and in row 0 a change of slope.
template <class L>
struct LaneRow<PackDither<565>, L> {
  LaneRow<PackDither<555>, L> redBlue;
  FoldedRow<L> six;
  bool changesSlope;
  PXM_INLINE explicit LaneRow(int row)
      : redBlue(row), six(foldedDither6, row), changesSlope((row & 3) == slopeChangeRow6) {}

  template <Parity p>
  PXM_INLINE L greenByte(L sixteenths) const {
    // Shifted, components have the bit of the change from there to 255, and from 0 to there they do
    // not; what lies outside is clamped with it or without.
    static_assert(slopeChange6 == slopeChangesFrom6 >> 9);
    // Of the even columns, this one fills lanes 1, 3, 5 and 7.
    static_assert(slopeChangeColumn6 == 2);
    L biased = six.template biased<p>(sixteenths);
    if constexpr (p == even) {
      alignas(32) static constexpr int16_t change[16] = {
          0, slopeChange6, 0, slopeChange6, 0, slopeChange6, 0, slopeChange6,
          0, slopeChange6, 0, slopeChange6, 0, slopeChange6, 0, slopeChange6};
      if (changesSlope) biased = biased - (shiftRight<9>(sixteenths) & loadLanes<L>(change));
    }
    return six.template byte<p>(biased);
  }
  template <Parity p>
  PXM_INLINE LaneChannels<L> bytes(L luma, const LaneTerms<L>& terms) const {
    const LaneChannels<L> c = join(luma, terms);
    return {redBlue.template byte<p>(c.red), greenByte<p>(c.green),
            redBlue.template byte<p>(c.blue)};
  }
  PXM_INLINE L greenWithOffset(L bytes) const {
    return subtractBytes(bytes, loadLanes<L>(six.numbers->offset));
  }
};

// Pixels in order; of a register with two halves, in each half of both.
template <class L>
struct PackedColumns {
  L first, second;
};

// Which component takes the low field: fixed where a loop serves one order, or chosen by a mask.
template <class L>
struct OuterFields {
  L low, high;
};
template <bool isBgr>
struct FixedOrder {
  static constexpr bool isAlwaysBgr = isBgr;
  template <class L>
  PXM_INLINE OuterFields<L> fields(L red, L blue) const {
    return isBgr ? OuterFields<L>{blue, red} : OuterFields<L>{red, blue};
  }
};
struct MaskedOrder {
  static constexpr bool isAlwaysBgr = false;
  bool isBgr;
  template <class L>
  PXM_INLINE OuterFields<L> fields(L red, L blue) const {
    const L exchange = (red ^ blue) & broadcast<L>(isBgr ? -1 : 0);
    return {red ^ exchange, blue ^ exchange};
  }
};

// Terms are those of each column, or of pairs of columns.
template <class Packer, class L, class Order, class Terms>
PXM_INLINE PackedColumns<L> packColumns(const Order& order, const LaneRow<Packer, L>& row,
                                        const ByParity<L>& luma, const Terms& terms) {
  const LaneChannels<L> e = row.template bytes<even>(luma.even, at<even>(terms));
  const LaneChannels<L> o = row.template bytes<odd>(luma.odd, at<odd>(terms));
  const L red = packUnsigned(e.red, o.red);
  const L green = row.greenWithOffset(packUnsigned(e.green, o.green));
  const L blue = packUnsigned(e.blue, o.blue);
  const OuterFields<L> outer = order.fields(red, blue);
  const PixelBytes<L> bytes = pixelBytes<Packer::format>(outer.low, green, outer.high);
  const L evenColumns = interleaveLowBytes(bytes.low, bytes.high);
  const L oddColumns = interleaveHighBytes(bytes.low, bytes.high);
  return {interleaveLowLanes(evenColumns, oddColumns),
          interleaveHighLanes(evenColumns, oddColumns)};
}

PXM_LEVEL_END

#endif
