// SPDX-License-Identifier: MIT
// 4:2:2 to 16-bit pixels. The words of neutral or saturated samples are those of the BT.601
// formulas to within a level, in every form; samples that tell the forms apart are named.
#include <utility>

#include "tests/examples/example.h"

namespace examples {
namespace {

constexpr const char* bgr555 = "YCbCr422ToBGR555_8u16u_C2C3R";
constexpr const char* bgr565 = "YCbCr422ToBGR565_8u16u_C2C3R";
constexpr const char* bgr565Dither = "YCbCr422ToBGR565Dither_8u16u_C2C3R";
constexpr const char* planar565 = "YCbCr422ToBGR565_8u16u_P3C3R";

// A row of Y, Cb, Y, Cr in which every pixel has the same samples. An odd last pixel takes its own
// chroma byte and the one before it, so that it has those of the others too.
Bytes interleavedRow(int width, int y, int cb, int cr) {
  Bytes row;
  for (int x = 0; x < width; ++x) {
    row.push_back(static_cast<std::uint8_t>(y));
    row.push_back(static_cast<std::uint8_t>(x % 2 == 0 ? cb : cr));
  }
  return row;
}

// Nine pixels of which all but the last three bytes are grey 130.
Source greysBefore(const Bytes& lastBytes) {
  Bytes row = samples(15, 128);
  row.insert(row.end(), lastBytes.begin(), lastBytes.end());
  return {row};
}

// Y = 57, Cb = 116, Cr = 163 is (103, 24, 23) by the chain of the SIMD variants, (103, 23, 23) by
// the scalar form, (104, 24, 23) by the rounded chain and (104, 24, 24) by the tail of the rounded
// two: four words in 555 and in 565.
struct Telling {
  const char* name;
  int chain, scalar, rounded, tail;
};
constexpr Telling telling[] = {{bgr555, 0x3062, 0x3042, 0x3462, 0x3463},
                               {bgr565, 0x60C2, 0x60A2, 0x68C2, 0x68C3}};

// Columns in blocks of eight have one word, the columns after them another.
Example inBlocksAndAfter(std::string claim, const char* name, In in, int width, int inBlocks,
                         int after) {
  return {std::move(claim) + ", width " + std::to_string(width),
          {name},
          width,
          1,
          {{interleavedRow(width, 57, 116, 163)}},
          {pixelRows(1, {twoParts(width / 8 * 8, inBlocks, width, after)})},
          in};
}

}  // namespace

std::vector<Example> decode422() {
  const auto interleavedNames = [](Kinds kinds) { return namesOf("YCbCr422To", "_C2C3R", kinds); };
  std::vector<Example> all = {
      {"width 2 is one pair",
       {bgr565},
       2,
       1,
       {{{81, 90, 81, 240}}},
       {pixelRows(4, {{0xF800, 0xF800}})}},
      {"planar width 2 is one pair",
       {planar565},
       2,
       1,
       {{{81, 81}}, {{90}}, {{240}}},
       {pixelRows(4, {{0xF800, 0xF800}})}},
      // Y = 128 with neutral chroma is grey 130; red and green tell which Cr the third pixel took.
      {"odd last pixel takes the low Cr before it",
       {bgr565},
       3,
       1,
       {{{128, 128, 128, 16, 128, 128}}},
       {pixelRows(6, {{0x06F0, 0x06F0, 0x06F0}})}},
      {"odd last pixel takes the high Cr before it",
       {bgr565},
       3,
       1,
       {{{128, 128, 128, 240, 128, 128}}},
       {pixelRows(6, {{0xF930, 0xF930, 0xF930}})}},
      // The pair before it has that Cr as well.
      {"odd last pixel after a block takes the low Cr before it: 565",
       {bgr565},
       9,
       1,
       {greysBefore({16, 128, 128})},
       {pixelRows(18, {{0x8410, 0x8410, 0x8410, 0x8410, 0x8410, 0x8410, 0x06F0, 0x06F0, 0x06F0}})}},
      {"odd last pixel after a block takes the high Cr before it: 555",
       {bgr555},
       9,
       1,
       {greysBefore({240, 128, 128})},
       {pixelRows(18, {{0x4210, 0x4210, 0x4210, 0x4210, 0x4210, 0x4210, 0x7C90, 0x7C90, 0x7C90}})}},
      // Under dither its own byte is Cb and Cr: 240 is full red and blue, whatever stands before
      // it.
      {"dithered odd last pixel takes its own byte twice",
       {"YCbCr422ToBGR444Dither_8u16u_C2C3R"},
       3,
       1,
       {{{16, 128, 16, 128, 128, 240}}},
       {pixelRows(6, {{0, 0, 0x0F0F}})}},
      {"dithered odd last pixel ignores the byte before it",
       {"YCbCr422ToBGR444Dither_8u16u_C2C3R"},
       3,
       1,
       {{{16, 255, 16, 100, 128, 240}}},
       {pixelRows(6, {{0x000F, 0x000F, 0x0F0F}})}},
      // Columns 6 and 7 are (0, 221, 130), and the last pixel is (255, 0, 255). 130 is level 7 of
      // four bits and a residue of 2816, as grey 96 is of level 5; 221 is level 12 and 4352.
      {"dithered odd last pixel after a block takes its own byte twice",
       {"YCbCr422ToBGR444Dither_8u16u_C2C3R"},
       9,
       1,
       {greysBefore({16, 128, 240})},
       {pixelRows(18, {{0x0888, 0x0888, 0x0888, 0x0777, 0x0888, 0x0888, 0x00D8, 0x00D7, 0x0F0F}})}},
      // A green of 24 by the staged form and 23 by the folded one: 5 of six bits and a residue of
      // 964 or 708. Half of the threshold of row 1, column 0 is 839.
      {"interleaved dither is staged in every column",
       {bgr565Dither},
       20,
       2,
       {{interleavedRow(40, 57, 116, 163), 40}},
       {repeated(20, 2, {{0x68C3, 0x60C3, 0x68C3, 0x60C3}, {0x60C2, 0x68C3, 0x60A2, 0x68C3}})}},
      {"planar dither is staged in every column",
       {"YCbCr422ToBGR565Dither_8u16u_P3C3R"},
       21,
       2,
       {{samples(42, 57), 21}, {samples(22, 116), 11}, {samples(22, 163), 11}},
       {repeated(21, 2, {{0x68C3, 0x60C3, 0x68C3, 0x60C3}, {0x60C2, 0x68C3, 0x60A2, 0x68C3}})}},
      // Y = 99 is grey 96.
      {"interleaved dither has its pattern from the first pixel on",
       {"YCbCr422ToBGR444Dither_8u16u_C2C3R", "YCbCr422ToRGB444Dither_8u16u_C2C3R"},
       19,
       7,
       {{interleavedRow(19 * 7, 99, 128, 128), 38}},
       {repeated(19, 7, grey96)}},
      {"planar dither has its pattern from the first pixel on",
       {"YCbCr422ToBGR444Dither_8u16u_P3C3R", "YCbCr422ToRGB444Dither_8u16u_P3C3R"},
       19,
       7,
       {{samples(19 * 7, 99), 19}, {samples(70, 128), 10}, {samples(70, 128), 10}},
       {repeated(19, 7, grey96)}},
      // Y = 235 is 254: full in five bits, 62 in six at the threshold 1678 of row 1, column 0.
      {"dithered width 1 is an ordinary pixel",
       {bgr565Dither},
       1,
       2,
       {{{16, 128, 235, 128}, 2}},
       {pixelRows(8, {{0}, {31 << 11 | 62 << 5 | 31}})}},
      {"planar width 1 is an ordinary pixel in scalar code",
       {planar565},
       1,
       2,
       {{{145, 81}}, {{54, 90}}, {{34, 240}}},
       {pixelRows(8, {{0x07E0}, {0xF800}})},
       In::Scalar},
      {"planar width 1 stores nothing in SIMD",
       namesOf("YCbCr422To", "_P3C3R", Kinds::Plain),
       1,
       2,
       {{{145, 81}}, {{54, 90}}, {{34, 240}}},
       {untouched(8)},
       In::Simd},
      {"planar dithered width 1 is an ordinary pixel",
       {"YCbCr422ToBGR565Dither_8u16u_P3C3R"},
       1,
       2,
       {{{81, 235}}, {{90, 128}}, {{240, 128}}},
       {pixelRows(6, {{0xF800}, {31 << 11 | 62 << 5 | 31}})}},
      {"odd pitches lose their low bit",
       {bgr565},
       2,
       3,
       {{{16, 128, 16, 128, 0, 81, 90, 81, 240, 0, 235, 128, 235, 128}, 5}},
       {{21, {{0, words(2, 0)}, {20, words(2, 0xF800)}, {40, words(2, 0xFFFF)}}}}},
      {"negative odd pitches grow",
       {bgr565},
       2,
       3,
       {{{16, 128, 16, 128, 0, 81, 90, 81, 240, 0, 235, 128, 235, 128}, 5}},
       {{-21, {{0, words(2, 0)}, {-22, words(2, 0xF800)}, {-44, words(2, 0xFFFF)}}}}},
      {"planar odd pitches lose their low bit",
       {planar565},
       2,
       2,
       {{{16, 16, 0, 81, 81}, 3}, {{128, 90}}, {{128, 240}}},
       {{21, {{0, words(2, 0)}, {20, words(2, 0xF800)}}}}},
      {"pitch zero stores every row over the first",
       {bgr565},
       2,
       2,
       {{{81, 90, 81, 240, 235, 128, 235, 128}, 4}},
       {{0, {{0, words(2, 0xFFFF)}}}}},
      {"negative source pitch reads upwards",
       {bgr565},
       2,
       2,
       {{{81, 90, 81, 240, 235, 128, 235, 128}, -4, 4}},
       {pixelRows(4, {{0xFFFF, 0xFFFF}, {0xF800, 0xF800}})}},
      {"planar source pitches are the planes' own, and negative ones read upwards",
       {planar565},
       2,
       2,
       {{{16, 16, 0, 81, 81}, -3, 3}, {{128, 90}, -1, 1}, {{128, 0, 240}, -2, 2}},
       {pixelRows(4, {{0xF800, 0xF800}, {0, 0}})}},
      {"interleaved pixels may stand at an odd address",
       namesOf("YCbCr422To", "_C2C3R"),
       9,
       1,
       {{interleavedRow(9, 16, 128, 128)}},
       {{18, {{1, words(9, 0)}}, {}, 1}}},
      {"planar pixels may stand at an odd address",
       namesOf("YCbCr422To", "_P3C3R"),
       9,
       1,
       {{samples(9, 16)}, {samples(5, 128)}, {samples(5, 128)}},
       {{18, {{1, words(9, 0)}}, {}, 1}}},
      // In the rounded two the byte before the row is Cr: 163, 200 and 60 here.
      {"rounded width 1 takes the byte before the row",
       {bgr565},
       1,
       3,
       {{{163, 57, 116, 200, 100, 90, 60, 120, 30}, 3, 1}},
       {pixelRows(8, {{0x68C3}, {0xD1A2}, {0x0EA0}})},
       In::L9},
      {"rounded width 1 of 555 takes the byte before the row",
       {bgr555},
       1,
       1,
       {{{163, 57, 116}, 3, 1}},
       {pixelRows(8, {{0x3463}})},
       In::L9},
      // (58, 143, 12) by the folded form and (58, 144, 12) by all others.
      {"what blocks do not cover is folded",
       {"YCbCr422ToRGB565_8u16u_C2C3R"},
       2,
       1,
       {{{105, 83, 105, 100}}},
       {pixelRows(4, {{0x0C67, 0x0C67}})}},
      // The channel order alone differs, but the RGB names of this variant are not rounded.
      {"RGB twin of a rounded name is not rounded",
       {"YCbCr422ToRGB555_8u16u_C2C3R"},
       9,
       1,
       {{interleavedRow(9, 57, 116, 163)}},
       {pixelRows(18, {{0x086C, 0x086C, 0x086C, 0x086C, 0x086C, 0x086C, 0x086C, 0x086C, 0x084C}})},
       In::Simd},
  };

  // One pixel wide and without dither, three bytes are stored: red, green and blue, whatever the
  // name says, in rows half a pitch apart. Chroma 90 is Cb and Cr: (76284 * 100 + 104595 * 90 -
  // 14608761) >> 16 is 37, (76284 * 100 - 78971 * 90 + 8887730) >> 16 is 143 and (76284 * 100 +
  // 132186 * 90 - 18140365) >> 16 is 21; with luma 200 they are 153, 260 and 137.
  const std::pair<int, int> halves[] = {{8, 4}, {9, 4}, {-8, -4}, {-9, -5}, {2, 1}};
  for (const std::string_view name : interleavedNames(Kinds::Plain)) {
    for (const auto& [pitch, half] : halves) {
      const bool rounded = name == bgr555 || name == bgr565;
      for (const In in : {In::Scalar, rounded ? In::SimdButL9 : In::Simd})
        all.push_back({"width 1 stores three bytes half a pitch apart: " + std::string(name) +
                           ", pitch " + std::to_string(pitch) +
                           (in == In::Scalar ? ", scalar" : ", SIMD"),
                       {name},
                       1,
                       2,
                       {{{100, 90, 200, 90}, 2}},
                       {{pitch, {{0, {37, 143, 21}}, {half, {153, 255, 137}}}}},
                       in});
    }
  }

  // By the chain and by the staged form it is (103, 24, 23) in every column.
  for (const int width : {2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 80})
    all.push_back(
        {"planar 555 is staged, width " + std::to_string(width),
         {"YCbCr422ToBGR555_8u16u_P3C3R"},
         width,
         1,
         {{samples(width, 57)}, {samples((width + 1) / 2, 116)}, {samples((width + 1) / 2, 163)}},
         {equalPixels(width, 1, 2 * width, 0x3062)}});

  for (const Telling& t : telling) {
    const std::string bits = t.name == bgr555 ? "555" : "565";
    for (const int width : {2, 3, 7, 8, 9, 15, 16, 17, 24, 31, 32, 33, 80}) {
      all.push_back(inBlocksAndAfter(bits + " is the scalar form", t.name, In::Scalar, width,
                                     t.scalar, t.scalar));
      all.push_back(inBlocksAndAfter(bits + " is the chain in blocks and the scalar form after",
                                     t.name, In::SimdButL9, width, t.chain, t.scalar));
      all.push_back(inBlocksAndAfter(bits + " is rounded in blocks and after", t.name, In::L9,
                                     width, t.rounded, t.tail));
    }
  }
  return all;
}

}  // namespace examples
