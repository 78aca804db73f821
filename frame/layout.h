// SPDX-License-Identifier: MIT
// Where the fields of 16-bit pixels stand: the one place that says it, for scalar code and SIMD,
// decoders, encoders and depth conversions.
#ifndef PXM_FRAME_LAYOUT_H
#define PXM_FRAME_LAYOUT_H

namespace pxm {

// The low field begins at bit 0; green and the high field follow without a gap, the spare bits are
// the highest. Red and blue, in either order, are as wide as each other.
template <int bitsOfOuter, int bitsOfGreen>
struct LayoutOf {
  static constexpr int redBits = bitsOfOuter, greenBits = bitsOfGreen, blueBits = bitsOfOuter;
  static constexpr int outerBits = bitsOfOuter;
  static constexpr int greenAt = outerBits, highAt = outerBits + greenBits;
  static constexpr int spareBits = 16 - highAt - outerBits;
};

template <int format>
struct Layout;
template <>
struct Layout<444> : LayoutOf<4, 4> {};
template <>
struct Layout<555> : LayoutOf<5, 5> {};
template <>
struct Layout<565> : LayoutOf<5, 6> {};

// The highest n bits of a byte.
template <int n>
constexpr int topOfByte = 0xFF << (8 - n) & 0xFF;

}  // namespace pxm

#endif
