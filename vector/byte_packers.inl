// SPDX-License-Identifier: MIT
// Two registers of pixels at once, without dither: components as bytes, which the narrowing clamps,
// to packed pixels. The colour order is known here, so that no shift is by a count of the run.
#ifndef PXM_VECTOR_BYTE_PACKERS_INL
#define PXM_VECTOR_BYTE_PACKERS_INL

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

// Two registers of pixels, in the order of the lumas that they came from: narrowing and taking
// bytes in turn both stay within the halves of a register.
template <class L>
struct TwoOfPixels {
  L first, second;
};

// Sixteenths of two registers of values as bytes.
template <class L>
PXM_INLINE L levels(L a, L b) {
  return narrowed(shiftRight<4>(a), shiftRight<4>(b));
}

template <int depth, bool isBgr, class L>
PXM_INLINE TwoOfPixels<L> packTwo(L lumaA, const LaneTerms<L>& a, L lumaB, const LaneTerms<L>& b) {
  const L red = levels(lumaA + a.red, lumaB + b.red);
  const L green = levels(lumaA - a.green, lumaB - b.green);
  const L blue = levels(lumaA + a.blue, lumaB + b.blue);
  const PixelBytes<L> bytes =
      isBgr ? pixelBytes<depth>(blue, green, red) : pixelBytes<depth>(red, green, blue);
  return {lowBytesInTurn(bytes.low, bytes.high), highBytesInTurn(bytes.low, bytes.high)};
}

PXM_TEXT_END

#endif
