// SPDX-License-Identifier: MIT
// 16-bit pixels to 4:2:2, interleaved and in planes. Words to 31 are blues of 555 and 565 alike.
#include <string>
#include <tuple>

#include "tests/examples/encode.h"

namespace examples {
namespace {

constexpr const char* bgr555 = "BGR555ToYCbCr422_16u8u_C3C2R";
constexpr const char* bgr565 = "BGR565ToYCbCr422_16u8u_C3C2R";
constexpr const char* planar555 = "BGR555ToYCbCr422_16u8u_C3P3R";
constexpr const char* planar565 = "BGR565ToYCbCr422_16u8u_C3P3R";

// At widths to 80 the columns of blocks. Blocks of 32 end where 32 more do not fit, and one block
// of eight follows where width % 16 allows it.
constexpr BlockColumns widths[] = {
    {2, 0},   {7, 0},   {8, 8},   {9, 8},   {15, 8},  {16, 0},  {17, 0},  {23, 0},
    {24, 8},  {31, 8},  {32, 32}, {33, 32}, {39, 32}, {40, 40}, {47, 40}, {48, 32},
    {55, 32}, {56, 40}, {63, 40}, {64, 64}, {71, 64}, {72, 72}, {79, 72}, {80, 64},
};

// Y, Cb, Y, Cr of a row of one colour. The Cb that an odd last pixel has of its own is that of a
// pair.
Bytes interleavedRow(int width, int inBlocks, Code simd, Code scalar) {
  Bytes row;
  for (int x = 0; x < width; ++x) {
    const Code& code = x < inBlocks ? simd : scalar;
    row.push_back(static_cast<std::uint8_t>(code.y));
    row.push_back(static_cast<std::uint8_t>(x % 2 == 0 ? code.first : code.second));
  }
  return row;
}

Bytes interleavedRow(int width, Code code) {
  return interleavedRow(width, 0, code, code);
}

// Two rows of one colour.
struct Filled {
  std::string claim;
  int word, width, inBlocks;
  Code simd, scalar;
  In in = In::Every;

  Example interleaved(const char* name) const {
    const Bytes row = interleavedRow(width, inBlocks, simd, scalar);
    return {claim + ", width " + std::to_string(width) + ", interleaved",
            {name},
            width,
            2,
            {{words(2 * width, word), 2 * width}},
            {rows(164, {row, row})},
            in};
  }
  Example planar(const char* name) const {
    const Bytes y = samplesOf(width, inBlocks, simd.y, scalar.y);
    const Bytes cb = samplesOf(width / 2, inBlocks / 2, simd.first, scalar.first);
    const Bytes cr = samplesOf(width / 2, inBlocks / 2, simd.second, scalar.second);
    return {claim + ", width " + std::to_string(width) + ", planar",
            {name},
            width,
            2,
            {{words(2 * width, word), 2 * width}},
            {rows(84, {y, y}), rows(45, {cb, cb}), rows(47, {cr, cr})},
            in};
  }
};

}  // namespace

std::vector<Example> encode422() {
  std::vector<Example> all = {
      {"width 2 is four bytes",
       {bgr555},
       2,
       1,
       {{words({0x7C00, 0x001F}), 4}},
       {rows(4, {{80, 164, 40, 173}})}},
      {"an odd last pixel of 555 ends on a Cb of its own",
       {bgr555},
       3,
       1,
       {{words({0x7C00, 0x001F, 0x03E0}), 6}},
       {rows(6, {{80, 164, 40, 173, 141, 55}})}},
      {"an odd last pixel of 565 ends on a Cb of its own",
       {bgr565},
       3,
       1,
       {{words({0xF800, 0x001F, 0x07E0}), 6}},
       {rows(6, {{80, 164, 40, 173, 143, 54}})}},
      {"an odd last pixel of 555 has luma alone in planes",
       {planar555},
       3,
       1,
       {{words({0x7C00, 0x001F, 0x03E0}), 6}},
       {rows(3, {{80, 40, 141}}), rows(1, {{164}}), rows(1, {{173}})}},
      {"an odd last pixel of 565 has luma alone in planes",
       {planar565},
       3,
       1,
       {{words({0xF800, 0x001F, 0x07E0}), 6}},
       {rows(3, {{80, 40, 143}}), rows(1, {{164}}), rows(1, {{173}})}},
      {"width 5 is ten bytes in each row",
       {bgr555, bgr565},
       5,
       3,
       {{words(15, 0), 10}},
       {rows(24, {{16, 128, 16, 128, 16, 128, 16, 128, 16, 128},
                  {16, 128, 16, 128, 16, 128, 16, 128, 16, 128},
                  {16, 128, 16, 128, 16, 128, 16, 128, 16, 128}})}},
      // One blue of two is 128.125 + 0.439 * 124 = 182.6 and 128.125 - 0.071 * 124 = 119.3.
      {"chroma is of pairs of pixels",
       {bgr555, bgr565},
       8,
       1,
       {{words({0x001F, 0, 0, 0, 0, 0, 0, 0x001F}), 16}},
       {rows(16, {{40, 182, 16, 119, 16, 128, 16, 128, 16, 128, 16, 128, 16, 182, 40, 119}})}},
      {"chroma is of pairs of pixels in planes",
       {planar555, planar565},
       8,
       1,
       {{words({0x001F, 0, 0, 0, 0, 0, 0, 0x001F}), 16}},
       {rows(8, {{40, 16, 16, 16, 16, 16, 16, 40}}), rows(4, {{182, 128, 128, 182}}),
        rows(4, {{119, 128, 128, 119}})}},
      {"width 1 is rejected",
       {bgr555, bgr565},
       1,
       8,
       {{words(8, 0), 2}},
       {untouched(2)},
       In::Every,
       -6},
      {"width 1 is rejected in planes",
       {planar555, planar565},
       1,
       8,
       {{words(8, 0), 2}},
       {untouched(1), untouched(1), untouched(1)},
       In::Every,
       -6},

      // Blues of 8 * 8, 16 * 8, 24 * 8 and 31 * 8 have luma 22, 29, 35 and 40, Cb 156, 184, 212 and
      // 236, Cr 123, 119, 114 and 110. Of nine columns eight are in blocks.
      {"odd pitches stay odd",
       {bgr555, bgr565},
       9,
       4,
       {placed(21, {{0, words(9, 8)}, {21, words(9, 16)}, {42, words(9, 24)}, {63, words(9, 31)}})},
       {rows(23, {interleavedRow(9, {22, 156, 123}), interleavedRow(9, {29, 184, 119}),
                  interleavedRow(9, {35, 212, 114}), interleavedRow(9, {40, 236, 110})})}},
      {"odd pitches stay odd in planes",
       {planar555, planar565},
       9,
       4,
       {placed(21, {{0, words(9, 8)}, {21, words(9, 16)}, {42, words(9, 24)}, {63, words(9, 31)}})},
       {rows(11, {samples(9, 22), samples(9, 29), samples(9, 35), samples(9, 40)}),
        rows(5, {samples(4, 156), samples(4, 184), samples(4, 212), samples(4, 236)}),
        rows(7, {samples(4, 123), samples(4, 119), samples(4, 114), samples(4, 110)})}},
      {"negative pitches go upwards",
       {bgr555, bgr565},
       9,
       3,
       {placed(-21, {{0, words(9, 8)}, {-21, words(9, 16)}, {-42, words(9, 24)}})},
       {rows(-23, {interleavedRow(9, {22, 156, 123}), interleavedRow(9, {29, 184, 119}),
                   interleavedRow(9, {35, 212, 114})})}},
      {"negative pitches go upwards in planes, each by its own",
       {planar555, planar565},
       9,
       3,
       {placed(-21, {{0, words(9, 8)}, {-21, words(9, 16)}, {-42, words(9, 24)}})},
       {rows(-11, {samples(9, 22), samples(9, 29), samples(9, 35)}),
        rows(-5, {samples(4, 156), samples(4, 184), samples(4, 212)}),
        rows(-7, {samples(4, 123), samples(4, 119), samples(4, 114)})}},
      {"pitch zero keeps the last row",
       {bgr555, bgr565},
       9,
       2,
       {placed(18, {{0, words(9, 8)}, {18, words(9, 16)}})},
       {rows(0, {interleavedRow(9, {29, 184, 119})})}},
      {"pitch zero keeps the last row in planes",
       {planar555, planar565},
       9,
       2,
       {placed(18, {{0, words(9, 8)}, {18, words(9, 16)}})},
       {rows(0, {samples(9, 29)}), rows(0, {samples(4, 184)}), rows(0, {samples(4, 119)})}},
      {"pitch one keeps the later of two rows",
       {bgr555, bgr565},
       3,
       3,
       {placed(6, {{0, words(3, 8)}, {6, words(3, 16)}, {12, words(3, 24)}})},
       {{1, {{0, {22, 29}}, {2, interleavedRow(3, {35, 212, 114})}}}}},
      {"pitch three keeps the later of two rows",
       {bgr555, bgr565},
       3,
       2,
       {placed(6, {{0, words(3, 8)}, {6, words(3, 16)}})},
       {{3, {{0, {22, 156, 22}}, {3, interleavedRow(3, {29, 184, 119})}}}}},
      {"pitch one keeps the later of two rows in planes",
       {planar555, planar565},
       9,
       2,
       {placed(18, {{0, words(9, 8)}, {18, words(9, 16)}})},
       {rows(1, {{22}, samples(9, 29)}), rows(1, {{156}, samples(4, 184)}),
        rows(1, {{123}, samples(4, 119)})}},
  };

  const auto both = [&](const Filled& filled, bool of555) {
    all.push_back(filled.interleaved(of555 ? bgr555 : bgr565));
    all.push_back(filled.planar(of555 ? planar555 : planar565));
  };
  // One code in a block of 32, in a block of eight and in the columns after them.
  for (const auto& [colour, word, code] : {std::tuple{"black of 555", 0, Code{16, 128, 128}},
                                           {"white of 555", 0x7FFF, {229, 128, 128}},
                                           {"bit 15 is not read", 0xFFFF, {229, 128, 128}},
                                           {"red of 555", 0x7C00, {80, 91, 236}},
                                           {"green of 555", 0x03E0, {141, 55, 36}},
                                           {"blue of 555", 0x001F, {40, 236, 110}}})
    both({colour, word, 43, 40, code, code}, true);
  for (const auto& [colour, word, code] :
       {std::tuple{"black of 565", 0, Code{16, 128, 128}},
        {"white of 565 is not neutral", 0xFFFF, {231, 126, 126}},  // 252 of green against 248
        {"red of 565", 0xF800, {80, 91, 236}},
        {"green of 565", 0x07E0, {143, 54, 35}},
        {"blue of 565", 0x001F, {40, 236, 110}}})
    both({colour, word, 43, 40, code, code}, false);

  for (const TellingColour& t : tellingYCbCr) {
    for (const bool of555 : {true, false}) {
      const std::string claim = std::string(t.colour) + (of555 ? " of 555" : " of 565");
      const int word = of555 ? t.word555 : t.word565;
      for (const auto& [width, inBlocks] : widths) {
        both({claim + " in blocks and after", word, width, inBlocks, t.simd, t.scalar, In::Simd},
             of555);
        both({claim + " in scalar code", word, width, 0, t.scalar, t.scalar, In::Scalar}, of555);
      }
    }
  }
  return all;
}

}  // namespace examples
