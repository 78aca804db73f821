// SPDX-License-Identifier: MIT
// 16-bit pixels to 4:2:0. Words to 31 are blues of 555 and 565 alike.
#include <string>
#include <utility>

#include "tests/examples/encode.h"

namespace examples {
namespace {

constexpr const char* bgr555 = "BGR555ToYCbCr420_16u8u_C3P3R";
constexpr const char* bgr565 = "BGR565ToYCbCr420_16u8u_C3P3R";

// At widths to 80 the columns of blocks. Blocks of 16 end where 16 more do not fit, and one block
// of four follows where width % 8 allows it.
constexpr BlockColumns widths[] = {
    {2, 0},   {3, 0},   {4, 4},   {7, 4},   {8, 0},   {11, 0},  {12, 4},
    {15, 4},  {16, 16}, {19, 16}, {20, 20}, {23, 20}, {24, 16}, {27, 16},
    {28, 20}, {31, 20}, {32, 32}, {35, 32}, {36, 36}, {80, 80},
};

// Three rows of one colour. The odd last row is not in blocks; all of it has luma.
Example filled(std::string claim, const char* name, int word, BlockColumns at, Code inBlocks,
               Code after, In in) {
  const auto [width, columns] = at;
  const Bytes luma = samplesOf(width, columns, inBlocks.y, after.y);
  return {std::move(claim) + ", width " + std::to_string(width),
          {name},
          width,
          3,
          {{words(3 * width, word), 2 * width}},
          {rows(84, {luma, luma, samples(width, after.y)}),
           rows(45, {samplesOf(width / 2, columns / 2, inBlocks.first, after.first)}),
           rows(47, {samplesOf(width / 2, columns / 2, inBlocks.second, after.second)})},
          in};
}

// One code for a block of 16, a block of four and two columns after them.
Example filled(std::string claim, const char* name, int word, Code code) {
  return filled(std::move(claim), name, word, {22, 20}, code, code, In::Every);
}

}  // namespace

std::vector<Example> encode420() {
  std::vector<Example> all = {
      {"three reds and a green of 555",
       {bgr555},
       2,
       2,
       {{words({0x7C00, 0x7C00, 0x7C00, 0x03E0}), 4}},
       {rows(24, {{80, 80}, {80, 141}}), rows(13, {{82}}), rows(11, {{186}})}},
      {"three reds and a green of 565",
       {bgr565},
       2,
       2,
       {{words({0xF800, 0xF800, 0xF800, 0x07E0}), 4}},
       {rows(24, {{80, 80}, {80, 143}}), rows(13, {{82}}), rows(11, {{186}})}},
      {"four colours of 555",
       {bgr555},
       2,
       2,
       {{words({0x7C00, 0x03E0, 0x001F, 0x7FFF}), 4}},
       {rows(2, {{80, 141}, {40, 229}}), rows(1, {{128}}), rows(1, {{128}})}},
      // Green is 508 of 2 * 248 + 2 * 252.
      {"four colours of 565",
       {bgr565},
       2,
       2,
       {{words({0xF800, 0x07E0, 0x001F, 0xFFFF}), 4}},
       {rows(2, {{80, 143}, {40, 231}}), rows(1, {{127}}), rows(1, {{127}})}},
      // One blue of four is 128.125 + 0.439 * 62 = 155.3 and 128.125 - 0.071 * 62 = 123.7.
      {"chroma is of two by two pixels",
       {bgr555, bgr565},
       4,
       2,
       {{words({0x001F, 0, 0, 0, 0, 0, 0, 0x001F}), 8}},
       {rows(4, {{40, 16, 16, 16}, {16, 16, 16, 40}}), rows(2, {{155, 155}}),
        rows(2, {{123, 123}})}},
      {"odd last row and column have luma and no part in chroma",
       {bgr555},
       3,
       3,
       {{words({0x7C00, 0x7C00, 0x001F, 0x7C00, 0x03E0, 0x7FFF, 0, 0x03E0, 0x7C00}), 6}},
       {rows(3, {{80, 80, 40}, {80, 141, 229}, {16, 141, 80}}), rows(1, {{82}}), rows(1, {{186}})}},
      {"width 1 is rejected",
       {bgr555, bgr565},
       1,
       8,
       {{words(8, 0), 2}},
       {untouched(1), untouched(1), untouched(1)},
       In::Every,
       -6},
      {"height 1 is rejected",
       {bgr555, bgr565},
       8,
       1,
       {{words(8, 0), 16}},
       {untouched(8), untouched(4), untouched(4)},
       In::Every,
       -6},
      filled("black of 555", bgr555, 0, {16, 128, 128}),
      filled("black of 565", bgr565, 0, {16, 128, 128}),
      filled("white of 555", bgr555, 0x7FFF, {229, 128, 128}),
      filled("bit 15 is not read", bgr555, 0xFFFF, {229, 128, 128}),
      // 252 of green against 248.
      filled("white of 565 is not neutral", bgr565, 0xFFFF, {231, 126, 126}),
      filled("red of 555", bgr555, 0x7C00, {80, 91, 236}),
      filled("red of 565", bgr565, 0xF800, {80, 91, 236}),
      filled("green of 555", bgr555, 0x03E0, {141, 55, 36}),
      filled("green of 565", bgr565, 0x07E0, {143, 54, 35}),
      filled("blue of 555", bgr555, 0x001F, {40, 236, 110}),
      filled("blue of 565", bgr565, 0x001F, {40, 236, 110}),

      // Blues of 8 * 8, 16 * 8, 24 * 8 and 31 * 8 have luma 22, 29, 35 and 40. Their means are 96
      // and 220: Cb 170 and 224, Cr 121 and 112.
      {"an odd pitch loses its low bit for the lower row of a pair alone",
       {bgr555, bgr565},
       7,
       5,
       {placed(21, {{0, words(7, 8)},
                    {20, words(7, 16)},
                    {42, words(7, 24)},
                    {62, words(7, 31)},
                    {84, words(7, 0)}})},
       {rows(9, {samples(7, 22), samples(7, 29), samples(7, 35), samples(7, 40), samples(7, 16)}),
        rows(5, {samples(3, 170), samples(3, 224)}), rows(4, {samples(3, 121), samples(3, 112)})}},
      {"a negative odd pitch grows for the lower row of a pair alone",
       {bgr555, bgr565},
       7,
       5,
       {placed(-21, {{0, words(7, 8)},
                     {-22, words(7, 16)},
                     {-42, words(7, 24)},
                     {-64, words(7, 31)},
                     {-84, words(7, 0)}})},
       {rows(9, {samples(7, 22), samples(7, 29), samples(7, 35), samples(7, 40), samples(7, 16)}),
        rows(5, {samples(3, 170), samples(3, 224)}), rows(4, {samples(3, 121), samples(3, 112)})}},
      {"negative pitches go upwards, each by its own",
       {bgr555, bgr565},
       7,
       5,
       {placed(-14, {{0, words(7, 8)},
                     {-14, words(7, 16)},
                     {-28, words(7, 24)},
                     {-42, words(7, 31)},
                     {-56, words(7, 0)}})},
       {rows(-9, {samples(7, 22), samples(7, 29), samples(7, 35), samples(7, 40), samples(7, 16)}),
        rows(-5, {samples(3, 170), samples(3, 224)}),
        rows(-4, {samples(3, 121), samples(3, 112)})}},
      {"chroma pitches of zero and one keep the later rows",
       {bgr555, bgr565},
       7,
       4,
       {placed(14, {{0, words(7, 8)}, {14, words(7, 16)}, {28, words(7, 24)}, {42, words(7, 31)}})},
       {rows(7, {samples(7, 22), samples(7, 29), samples(7, 35), samples(7, 40)}),
        rows(0, {{224, 224, 224}}), rows(1, {{121, 112, 112, 112}})}},

      // The blue of word 2n has luma 16.5 + 1.568 n: 16, 18, 19, 21, 22, 24, 25, 27, 29, 30, 32 and
      // 33. Here rows share bytes. In SIMD no order is documented for the two rows of a pair.
      {"luma pitch zero keeps the last row",
       {bgr555, bgr565},
       2,
       5,
       {{words({0, 2, 4, 6, 8, 10, 12, 14, 16, 18}), 4}},
       {{0, {{0, {29, 30}}}}, rows(1, {{138}, {166}}), rows(1, {{126}, {121}})},
       In::Scalar},
      {"luma pitch one keeps the later of two rows",
       {bgr555, bgr565},
       2,
       5,
       {{words({0, 2, 4, 6, 8, 10, 12, 14, 16, 18}), 4}},
       {{1, {{0, {16, 19, 22, 25, 29, 30}}}}, rows(1, {{138}, {166}}), rows(1, {{126}, {121}})},
       In::Scalar},
      {"blocks of two by two go from left to right, in each the upper row first",
       {bgr555, bgr565},
       5,
       2,
       {{words({0, 2, 4, 6, 8, 10, 12, 14, 16, 18}), 10}},
       {{1, {{0, {16, 24, 19, 27, 22, 30}}}}, rows(2, {{149, 163}}), rows(2, {{124, 122}})},
       In::Scalar},
      {"an odd last column comes before the next pair of rows",
       {bgr555, bgr565},
       3,
       4,
       {{words({0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22}), 6}},
       {{2, {{0, {16, 18, 19, 22, 25, 27, 29, 32, 33}}}},
        rows(1, {{142}, {184}}),
        rows(1, {{125}, {119}})},
       In::Scalar},
  };

  for (const TellingColour& t : tellingYCbCr) {
    for (const bool of555 : {true, false}) {
      const char* const name = of555 ? bgr555 : bgr565;
      const std::string claim = std::string(t.colour) + (of555 ? " of 555" : " of 565");
      const int word = of555 ? t.word555 : t.word565;
      for (const BlockColumns at : widths) {
        all.push_back(
            filled(claim + " in blocks and after", name, word, at, t.simd, t.scalar, In::Simd));
        all.push_back(
            filled(claim + " in scalar code", name, word, at, t.scalar, t.scalar, In::Scalar));
      }
    }
  }

  // YCrCb is the same with its chroma planes exchanged.
  for (std::size_t i = 0, count = all.size(); i < count; ++i) {
    Example e = all[i];
    e.claim += ", Cr first";
    for (std::string_view& name : e.names)
      name = name == bgr555 ? "BGR555ToYCrCb420_16u8u_C3P3R" : "BGR565ToYCrCb420_16u8u_C3P3R";
    std::swap(e.dst[1], e.dst[2]);
    all.push_back(e);
  }
  return all;
}

}  // namespace examples
