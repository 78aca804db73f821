// SPDX-License-Identifier: MIT
// 16-bit pixels to 4:1:1. Words to 31 are blues of 555 and 565 alike.
#include <string>
#include <utility>

#include "tests/examples/encode.h"

namespace examples {
namespace {

constexpr const char* bgr555 = "BGR555ToYCbCr411_16u8u_C3P3R";
constexpr const char* bgr565 = "BGR565ToYCbCr411_16u8u_C3P3R";

constexpr int widths[] = {4, 5, 6, 7, 8, 11, 12, 15, 16, 19, 31, 32, 35, 80};

// Two rows of one colour. Every whole group has one code; columns after the last have luma, or
// nothing.
Example filled(std::string claim, const char* name, int word, int width, Code code, In in,
               int lumaAfter = -1) {
  const int inGroups = width / 4 * 4;
  const Bytes y = samplesOf(lumaAfter < 0 ? inGroups : width, inGroups, code.y, lumaAfter);
  const Bytes cb = samples(width / 4, code.first), cr = samples(width / 4, code.second);
  return {std::move(claim) + ", width " + std::to_string(width),
          {name},
          width,
          2,
          {{words(2 * width, word), 2 * width}},
          {rows(84, {y, y}), rows(45, {cb, cb}), rows(47, {cr, cr})},
          in,
          width % 4 == 0 ? 0 : 35};
}

}  // namespace

std::vector<Example> encode411() {
  std::vector<Example> all = {
      {"width 4 is four luma and one of each chroma",
       {bgr555},
       4,
       1,
       {{words({0x7C00, 0x7C00, 0x7C00, 0x03E0}), 8}},
       {rows(4, {{80, 80, 80, 141}}), rows(1, {{82}}), rows(1, {{186}})}},
      // Green is 508 of 2 * 248 + 2 * 252.
      {"four colours of 565",
       {bgr565},
       4,
       1,
       {{words({0xF800, 0x07E0, 0x001F, 0xFFFF}), 8}},
       {rows(4, {{80, 143, 40, 231}}), rows(1, {{127}}), rows(1, {{127}})}},
      // One blue of four is 128.125 + 0.439 * 62 = 155.3 and 128.125 - 0.071 * 62 = 123.7.
      {"chroma is of four pixels of a row",
       {bgr555, bgr565},
       8,
       1,
       {{words({0, 0, 0, 0x001F, 0, 0, 0x001F, 0}), 16}},
       {rows(8, {{16, 16, 16, 40, 16, 16, 40, 16}}), rows(2, {{155, 155}}), rows(2, {{123, 123}})}},
      {"width 3 is rejected",
       {bgr555, bgr565},
       3,
       1,
       {{words(3, 0), 6}},
       {untouched(3), untouched(1), untouched(1)},
       In::Every,
       -6},
      {"column 4 of 555 is left alone in scalar code",
       {bgr555},
       5,
       1,
       {{words({0x7C00, 0x7C00, 0x7C00, 0x03E0, 0x1234}), 10}},
       {rows(5, {{80, 80, 80, 141}}), rows(1, {{82}}), rows(1, {{186}})},
       In::Scalar,
       35},
      {"columns after the last group of 555 have luma in SIMD",
       {bgr555},
       6,
       1,
       {{words({0x7C00, 0x7C00, 0x7C00, 0x03E0, 0x7FFF, 0x001F}), 12}},
       {rows(6, {{80, 80, 80, 141, 229, 40}}), rows(1, {{82}}), rows(1, {{186}})},
       In::Simd,
       35},
      {"column 4 of 565 is left alone",
       {bgr565},
       5,
       1,
       {{words({0xF800, 0xF800, 0xF800, 0x07E0, 0x1234}), 10}},
       {rows(5, {{80, 80, 80, 143}}), rows(1, {{82}}), rows(1, {{186}})},
       In::Every,
       35},

      // Blues of 8 * 8, 16 * 8, 24 * 8 and 31 * 8 have luma 22, 29, 35 and 40, Cb 156, 184, 212 and
      // 236, Cr 123, 119, 114 and 110.
      {"odd pitches stay odd",
       {bgr555, bgr565},
       8,
       4,
       {placed(21, {{0, words(8, 8)}, {21, words(8, 16)}, {42, words(8, 24)}, {63, words(8, 31)}})},
       {rows(11, {samples(8, 22), samples(8, 29), samples(8, 35), samples(8, 40)}),
        rows(3, {samples(2, 156), samples(2, 184), samples(2, 212), samples(2, 236)}),
        rows(5, {samples(2, 123), samples(2, 119), samples(2, 114), samples(2, 110)})}},
      {"negative pitches go upwards, each by its own",
       {bgr555, bgr565},
       8,
       3,
       {placed(-21, {{0, words(8, 8)}, {-21, words(8, 16)}, {-42, words(8, 24)}})},
       {rows(-11, {samples(8, 22), samples(8, 29), samples(8, 35)}),
        rows(-3, {samples(2, 156), samples(2, 184), samples(2, 212)}),
        rows(-5, {samples(2, 123), samples(2, 119), samples(2, 114)})}},
      {"pitch zero keeps the last row",
       {bgr555, bgr565},
       8,
       2,
       {placed(16, {{0, words(8, 8)}, {16, words(8, 16)}})},
       {rows(0, {samples(8, 29)}), rows(0, {samples(2, 184)}), rows(0, {samples(2, 119)})}},
      {"pitch one keeps the later of two rows",
       {bgr555, bgr565},
       8,
       2,
       {placed(16, {{0, words(8, 8)}, {16, words(8, 16)}})},
       {rows(1, {{22}, samples(8, 29)}), rows(1, {{156}, samples(2, 184)}),
        rows(1, {{123}, samples(2, 119)})}},
      filled("black of 555", bgr555, 0, 16, {16, 128, 128}, In::Every),
      filled("black of 565", bgr565, 0, 16, {16, 128, 128}, In::Every),
      filled("white of 555", bgr555, 0x7FFF, 16, {229, 128, 128}, In::Every),
      filled("bit 15 is not read", bgr555, 0xFFFF, 16, {229, 128, 128}, In::Every),
      // 252 of green against 248.
      filled("white of 565 is not neutral", bgr565, 0xFFFF, 16, {231, 126, 126}, In::Every),
  };

  for (const TellingColour& t : tellingYCbCr) {
    const std::string colour = t.colour;
    for (const int width : widths) {
      all.push_back(filled(colour + " of 555, all groups are blocks", bgr555, t.word555, width,
                           t.simd, In::Simd, t.scalar.y));
      all.push_back(filled(colour + " of 565, all groups are blocks", bgr565, t.word565, width,
                           t.simd, In::Simd));
      all.push_back(filled(colour + " of 555 in scalar code", bgr555, t.word555, width, t.scalar,
                           In::Scalar));
      all.push_back(filled(colour + " of 565 in scalar code", bgr565, t.word565, width, t.scalar,
                           In::Scalar));
    }
  }
  return all;
}

}  // namespace examples
