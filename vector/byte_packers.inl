// SPDX-License-Identifier: MIT
// Sixteen pixels at once without dither: components as bytes, which the narrowing clamps, to packed
// pixels. The colour order is known here, so that no shift is by a count of the run.
#ifndef PXM_VECTOR_BYTE_PACKERS_INL
#define PXM_VECTOR_BYTE_PACKERS_INL

#include "vector/chains.inl"

PXM_TEXT_BEGIN

// Bytes, in lanes of two. Shifts by lanes, and what crosses a byte is masked off.
constexpr int inBothBytes(int byte) {
  return byte << 8 | byte;
}
template <int n>
PXM_INLINE I16x8 shiftBytesRight(I16x8 bytes) {
  return shiftRightLogical<n>(bytes) & all<I16x8>(inBothBytes(0xFF >> n));
}

// The low and the high bytes of sixteen pixels, from the component in the low field, green, and the
// component in the high field.
struct PixelBytes {
  I16x8 low, high;
};

template <int depth>
PXM_INLINE PixelBytes pixelBytes(I16x8 low, I16x8 green, I16x8 high) {
  if constexpr (depth == 444)
    return {shiftBytesRight<4>(low) | (green & all<I16x8>(0xF0F0)), shiftBytesRight<4>(high)};
  if constexpr (depth == 555)
    return {shiftBytesRight<3>(low) | (shiftLeft<2>(green) & all<I16x8>(0xE0E0)),
            (shiftRightLogical<1>(high) & all<I16x8>(0x7C7C)) | shiftBytesRight<6>(green)};
  if constexpr (depth == 565)
    return {shiftBytesRight<3>(low) | (shiftLeft<3>(green) & all<I16x8>(0xE0E0)),
            (high & all<I16x8>(0xF8F8)) | shiftBytesRight<5>(green)};
}

struct SixteenPixels {
  I16x8 first, second;  // eight each
};

// Sixteenths of two times eight values as bytes.
PXM_INLINE I16x8 levels(I16x8 a, I16x8 b) {
  return {saturatedBytes(shiftRight<4>(a), shiftRight<4>(b))};
}

template <int depth, bool isBgr>
PXM_INLINE SixteenPixels packSixteen(I16x8 lumaA, const LaneTerms<I16x8>& a, I16x8 lumaB,
                                     const LaneTerms<I16x8>& b) {
  const I16x8 red = levels(lumaA + a.red, lumaB + b.red);
  const I16x8 green = levels(lumaA - a.green, lumaB - b.green);
  const I16x8 blue = levels(lumaA + a.blue, lumaB + b.blue);
  const PixelBytes bytes =
      isBgr ? pixelBytes<depth>(blue, green, red) : pixelBytes<depth>(red, green, blue);
  return {{inTurn(bytes.low.v, bytes.high.v)}, {upperInTurn(bytes.low.v, bytes.high.v)}};
}

PXM_TEXT_END

#endif
