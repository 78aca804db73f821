// SPDX-License-Identifier: MIT
// 4:1:1 to 16-bit pixels: one chroma pair for four columns, and a pitch that counts bytes.
#include "tests/examples/example.h"

namespace examples {
namespace {

constexpr const char* bgr555 = "YCbCr411ToBGR555_8u16u_P3C3R";
constexpr const char* bgr565 = "YCbCr411ToBGR565_8u16u_P3C3R";

// The status of a width that is no multiple of four.
constexpr int remainder = 35;

// Four pixels in the rounded forms, which agree on these colours.
struct Colour {
  const char* claim;
  int y, cb, cr;
  int word555, word565;
};
constexpr Colour colours[] = {
    {"black is zero", 16, 128, 128, 0x0000, 0x0000},
    {"white is rounded to 255", 235, 128, 128, 0x7FFF, 0xFFFF},
    {"red is (254, 0, 0)", 81, 90, 240, 0x7C00, 0xF800},
    {"green is (0, 255, 1)", 145, 54, 34, 0x03E0, 0x07E0},
    {"blue is (0, 0, 255)", 41, 240, 110, 0x001F, 0x001F},
    {"the largest samples are (255, 125, 255)", 255, 255, 255, 0x7DFF, 0xFBFF},
    {"the least samples are (0, 136, 0)", 0, 0, 0, 0x0220, 0x0440},
};

// Rows of four pixels, black ones above white ones.
std::vector<Source> blackAndWhite() {
  return {{{16, 16, 16, 16, 235, 235, 235, 235}, 4}, {{128, 128}}, {{128, 128}}};
}
const Bytes black = words(4, 0), white = words(4, 0xFFFF);

}  // namespace

std::vector<Example> decode411() {
  std::vector<Example> all = {
      {"width 3 is rejected",
       {bgr555, bgr565},
       3,
       1,
       {{samples(3, 81)}, {{90}}, {{240}}},
       {untouched(6)},
       In::Every,
       -6},
      {"width 4 is good",
       {bgr555},
       4,
       1,
       {{samples(4, 81)}, {{90}}, {{240}}},
       {pixelRows(8, {{0x7C00, 0x7C00, 0x7C00, 0x7C00}})}},
      {"width 6 warns, and its remainder takes the chroma of the last whole group",
       {bgr565},
       6,
       1,
       {{samples(6, 81)}, {{90}}, {{240}}},
       {equalPixels(6, 1, 12, 0xF800)},
       In::Every,
       remainder},
      // 81 with neutral chroma is a grey of 76: 9, 19 and 9.
      {"width 11 gives its remainder the chroma of the second group",
       {bgr565},
       11,
       1,
       {{samples(11, 81)}, {{128, 90}}, {{128, 240}}},
       {pixelRows(22, {twoParts(4, 0x4A69, 11, 0xF800)})},
       In::Every,
       remainder},
      {"width 11 of two rows takes each row's own chroma",
       {bgr565},
       11,
       2,
       {{samples(22, 81), 11}, {{128, 90, 0x55, 90, 128}, 3}, {{128, 240, 0x55, 240, 128}, 3}},
       {pixelRows(22, {twoParts(4, 0x4A69, 11, 0xF800), twoParts(4, 0xF800, 11, 0x4A69)})},
       In::Every,
       remainder},

      {"odd pitch stays odd", {bgr565}, 4, 2, blackAndWhite(), {{21, {{0, black}, {21, white}}}}},
      {"odd pitch stays odd upwards",
       {bgr565},
       4,
       2,
       blackAndWhite(),
       {{-21, {{0, black}, {-21, white}}}}},
      {"even pitch goes upwards",
       {bgr565},
       4,
       2,
       blackAndWhite(),
       {{-40, {{0, black}, {-40, white}}}}},
      {"pitch zero stores every row over the first",
       {bgr565},
       4,
       2,
       blackAndWhite(),
       {{0, {{0, white}}}}},
      {"pitch 1 leaves a byte of the upper row",
       {bgr565},
       4,
       2,
       blackAndWhite(),
       {{1, {{0, {0}}, {1, white}}}}},
      {"pitch 5 leaves five bytes of the upper row",
       {bgr565},
       4,
       2,
       blackAndWhite(),
       {{5, {{0, {0, 0, 0, 0, 0}}, {5, white}}}}},
      {"pitch 3 of an odd width leaves three bytes of the upper row",
       {bgr565},
       9,
       2,
       {{{16, 16, 16, 16, 16, 16, 16, 16, 16, 235, 235, 235, 235, 235, 235, 235, 235, 235}, 9},
        {samples(4, 128), 2},
        {samples(4, 128), 2}},
       {{3, {{0, {0, 0, 0}}, {3, words(9, 0xFFFF)}}}},
       In::Every,
       remainder},
      {"negative source pitches read upwards",
       {bgr565},
       4,
       2,
       {{{16, 16, 16, 16, 81, 81, 81, 81}, -4, 4}, {{128, 90}, -1, 1}, {{128, 240}, -1, 1}},
       {pixelRows(8, {{0xF800, 0xF800, 0xF800, 0xF800}, {0, 0, 0, 0}})}},
      {"pixels may stand at an odd address",
       {bgr555, bgr565},
       4,
       1,
       {{samples(4, 16)}, {{128}}, {{128}}},
       {{8, {{1, black}}, {}, 1}}},
  };

  for (const Colour& c : colours) {
    for (const auto& [name, word] : {std::pair{bgr555, c.word555}, std::pair{bgr565, c.word565}})
      all.push_back({std::string(c.claim) + (name == bgr555 ? ", 555" : ", 565"),
                     {name},
                     4,
                     1,
                     {{samples(4, c.y)}, {samples(1, c.cb)}, {samples(1, c.cr)}},
                     {equalPixels(4, 1, 8, word)}});
  }

  // Y = 0, Cb = 0, Cr = 10 has a green of 127 by the rounded form and of 128 by the chain. The
  // planes end with the last whole group.
  const struct {
    const char* name;
    int chain, rounded;
  } telling[] = {{bgr555, 0x0200, 0x01E0}, {bgr565, 0x0400, 0x03E0}};
  for (const auto& [name, chain, rounded] : telling) {
    for (const int width : {4, 5, 6, 7, 8, 11, 12, 15, 16, 31, 32, 33, 36, 39, 64, 67, 80}) {
      const std::string of =
          (name == bgr555 ? ": 555, width " : ": 565, width ") + std::to_string(width);
      const std::vector<Source> source = {
          {samples(width, 0)}, {samples(width / 4, 0)}, {samples(width / 4, 10)}};
      const int status = width % 4 == 0 ? 0 : remainder;
      all.push_back({"scalar code is the rounded form" + of,
                     {name},
                     width,
                     1,
                     source,
                     {pixelRows(1, {twoParts(0, chain, width, rounded)})},
                     In::Scalar,
                     status});
      all.push_back({"SIMD is the rounded chain in blocks of four and the form after" + of,
                     {name},
                     width,
                     1,
                     source,
                     {pixelRows(1, {twoParts(width / 4 * 4, chain, width, rounded)})},
                     In::Simd,
                     status});
    }
  }
  return all;
}

}  // namespace examples
