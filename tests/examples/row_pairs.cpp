// SPDX-License-Identifier: MIT
#include "tests/examples/row_pairs.h"

namespace examples {
namespace {

// White regions, with two black samples after them in memory.
void addCorners(std::vector<Example>& all, const std::string& front, const Format& format) {
  const std::vector<std::string_view> names = namesOf(front + format.name, "", Kinds::Dither);
  const int sizes[][2] = {{1, 1}, {1, 2}, {2, 1}, {1, 3}, {3, 1}, {3, 2},  {2, 3},  {3, 3},
                          {4, 3}, {5, 3}, {7, 1}, {8, 3}, {9, 3}, {15, 1}, {17, 3}, {33, 1}};
  for (const auto& [width, height] : sizes) {
    Bytes luma = samples(width * height, 255);
    luma.insert(luma.end(), {0, 0});
    const std::string of =
        ": " + front + format.name + ", " + std::to_string(width) + " by " + std::to_string(height);
    const Target region = equalPixels(width, height, 80, format.white);
    all.push_back({"dither stores the region in scalar code" + of,
                   names,
                   width,
                   height,
                   greys(width, luma),
                   {region},
                   In::Scalar});
    Target withMore = region;
    if (width % 2 == 1 && height % 2 == 1)
      withMore.after.push_back({80 * (height - 1) + 2 * width, words(2, 0)});
    all.push_back({"dither stores two pixels past an odd corner in SIMD" + of,
                   names,
                   width,
                   height,
                   greys(width, luma),
                   {withMore},
                   In::Simd});
  }
}

}  // namespace

std::vector<Source> greys(int pitch, const Bytes& luma) {
  const int rows = static_cast<int>(luma.size()) / pitch;
  const int chromaPitch = (pitch + 1) / 2;
  const Source neutral = {samples(chromaPitch * ((rows + 1) / 2) + 1, 128), chromaPitch};
  return {{luma, pitch}, neutral, neutral};
}

Example blocksBegin(const std::string& claim, const std::vector<std::string_view>& names, In in,
                    int width, int columns, const std::vector<int>& begins, int white) {
  std::vector<int> stored = twoParts(0, 0, columns + 1, white);
  for (const int column : begins) stored[static_cast<std::size_t>(column)] = 0;
  Bytes luma = samples(columns, 0);
  luma.resize(static_cast<std::size_t>(2 * columns), 255);
  return {claim + ", width " + std::to_string(width),
          names,
          width,
          2,
          greys(columns, luma),
          {{2, {{0, words(stored)}}}},
          in};
}

const std::vector<Blocks>& blocks() {
  static const std::vector<Blocks> all = {
      {2, {0}, {0}, {0}},
      {3, {0, 2}, {0, 2}, {0, 2}},
      {4, {0, 2}, {0}, {0, 2}},
      {5, {0, 2, 4}, {0, 4}, {0, 2, 4}},
      {6, {0, 2, 4}, {0, 4}, {0, 2, 4}},
      {7, {0, 2, 4, 6}, {0, 4, 6}, {0, 2, 4, 6}},
      {8, {0, 2, 4, 6}, {0}, {0}},
      {9, {0, 2, 4, 6, 8}, {0, 8}, {0, 8}},
      {10, {0, 2, 4, 6, 8}, {0, 8}, {0, 8}},
      {11, {0, 2, 4, 6, 8, 10}, {0, 8, 10}, {0, 8, 10}},
      {12, {0, 2, 4, 6, 8, 10}, {0, 8}, {0, 8, 10}},
      {13, {0, 2, 4, 6, 8, 10, 12}, {0, 8, 12}, {0, 8, 10, 12}},
      {14, {0, 2, 4, 6, 8, 10, 12}, {0, 8, 12}, {0, 8, 10, 12}},
      {15, {0, 2, 4, 6, 8, 10, 12, 14}, {0, 8, 12, 14}, {0, 8, 10, 12, 14}},
      {16, {0, 2, 4, 6, 8, 10, 12, 14}, {0, 8}, {0}},
      {17, {0, 2, 4, 6, 8, 10, 12, 14, 16}, {0, 8, 16}, {0, 16}},
      {31,
       {0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30},
       {0, 8, 16, 24, 28, 30},
       {0, 16, 24, 26, 28, 30}},
      {32, {0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30}, {0, 8, 16, 24}, {0, 16}},
      {33,
       {0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30, 32},
       {0, 8, 16, 24, 32},
       {0, 16, 32}},
      {80,
       {0,  2,  4,  6,  8,  10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30, 32, 34, 36, 38,
        40, 42, 44, 46, 48, 50, 52, 54, 56, 58, 60, 62, 64, 66, 68, 70, 72, 74, 76, 78},
       {0, 8, 16, 24, 32, 40, 48, 56, 64, 72},
       {0, 16, 32, 48, 64}},
  };
  return all;
}

std::vector<Example> inRowPairs(const std::string& family) {
  const std::string to = family + "To", bgr = to + "BGR", rgb = to + "RGB";
  const std::vector<std::string_view> every = namesOf(to, ""),
                                      plain444 = namesOf(bgr + "444", "", Kinds::Plain);
  const std::vector<std::string_view> dithered565 = namesOf(bgr + "565", "", Kinds::Dither);
  const Bytes black = words(2, 0);
  std::vector<Example> all = {
      {"odd pitches lose their low bit",
       every,
       2,
       5,
       greys(2, samples(10, 0)),
       {{21, {{0, black}, {20, black}, {40, black}, {60, black}, {80, black}}}}},
      {"negative pitches go upwards, and odd ones grow",
       every,
       2,
       5,
       greys(2, samples(10, 0)),
       {{-21, {{0, black}, {-22, black}, {-44, black}, {-66, black}, {-88, black}}}}},
      {"pitch zero stores every row over the first",
       namesOf(bgr + "565", ""),
       2,
       2,
       greys(2, {0, 0, 255, 255}),
       {{0, {{0, words(2, 0xFFFF)}}}}},
      {"pixels may stand at an odd address",
       every,
       2,
       3,
       greys(2, samples(6, 0)),
       {{4, {{1, words(6, 0)}}, {}, 1}}},
      // In tight rows one pixel apart the upper row shows in the first pixel only.
      {"the lower row is stored last in a block",
       plain444,
       2,
       2,
       greys(2, {0, 0, 255, 0}),
       {{2, {{0, words({0, 0x0FFF, 0})}}}}},
      {"an odd last row is stored after the pairs",
       plain444,
       2,
       3,
       greys(2, {0, 0, 255, 255, 0, 0}),
       {{2, {{0, words({0, 0x0FFF, 0, 0})}}}}},
      // Full white dithered to 565 dips at row 3, column 0 of the pattern alone.
      {"dithered white dips in one row of seven",
       dithered565,
       6,
       7,
       greys(6, samples(42, 255)),
       {repeated(6, 7,
                 {{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                  {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                  {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                  {0xFFDF, 0xFFFF, 0xFFFF, 0xFFFF}})}},
      {"dithered white dips in two rows of eight",
       namesOf(rgb + "565", "", Kinds::Dither),
       5,
       8,
       greys(5, samples(40, 255)),
       {repeated(5, 8,
                 {{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                  {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                  {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                  {0xFFDF, 0xFFFF, 0xFFFF, 0xFFFF}})}},
  };
  for (const Format& format : formats)
    for (const std::string& front : {bgr, rgb}) addCorners(all, front, format);
  return all;
}

}  // namespace examples
