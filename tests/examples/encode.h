// SPDX-License-Identifier: MIT
// What the tables of the encoders share.
//
// Luma of YCbCr is 16.5 + 0.257 R + 0.504 G + 0.098 B without its fraction. Cb is 128.125 + 0.439 B
// - 0.291 G - 0.148 R and Cr 128.125 + 0.439 R - 0.368 G - 0.071 B of a group's mean colour. Luma
// of YUV is 0.299 R + 0.587 G + 0.114 B, U is 128 + 0.492 (B - Y) and V 128 + 0.877 (R - Y). A full
// field of five bits is 248, of six 252. Scalar code adds up before it drops a fraction; SIMD drops
// that of each product, in units of 1/128 (luma) and of 1/64 or 1/128 (chroma), so that some
// colours are one code off.
#ifndef TESTS_EXAMPLES_ENCODE_H_
#define TESTS_EXAMPLES_ENCODE_H_

#include "tests/examples/example.h"

namespace examples {

// What a colour comes to: luma and the two chroma samples.
struct Code {
  int y, first, second;
};

// A colour that SIMD and scalar code see differently.
struct TellingColour {
  const char* colour;
  int word555, word565;
  Code simd, scalar;
};

// Red 160, green 136, blue 80: luma 5263 + 8773 + 1003 + 2112 = 17151 is one below 134 * 128, and
// 134.005 in one piece. Cb of a pair is 2247 - (1515 + 2532) + 8200 = 6400 = 100 * 64, of four 4495
// - (3030 + 5065) + 16400 = 12800 = 100 * 128, and 99.99 in one piece.
// Red 40, green 184, blue 56: luma 1315 + 11870 + 702 + 2112 = 15999 is one below 125 * 128. Cr of
// a pair is 1123 - (4333 + 254) + 8200 = 4736 = 74 * 64, of four 2247 - (8667 + 508) + 16400 = 9472
// = 74 * 128, and 73.99 in one piece.
constexpr TellingColour tellingYCbCr[] = {
    {"red 160", 0x522A, 0xA44A, {133, 100, 142}, {134, 99, 142}},
    {"red 40", 0x16E7, 0x2DC7, {124, 93, 74}, {125, 93, 73}},
};

// A width, and how many columns from the left SIMD encodes in blocks. The others, and all columns
// of the scalar variant, are encoded by scalar code.
struct BlockColumns {
  int width, inBlocks;
};

// Samples of a row: of so many columns one value, of the others another.
inline Bytes samplesOf(int width, int inBlocks, int value, int after) {
  Bytes row = samples(width, after);
  for (int x = 0; x < inBlocks; ++x)
    row[static_cast<std::size_t>(x)] = static_cast<std::uint8_t>(value);
  return row;
}

}  // namespace examples

#endif
