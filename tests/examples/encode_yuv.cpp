// SPDX-License-Identifier: MIT
// 16-bit pixels to YUV 4:2:0 and 4:2:2. Words to 31 are blues of BGR and reds of RGB565.
#include <string>
#include <utility>

#include "tests/examples/encode.h"

namespace examples {
namespace {

constexpr const char* bgr555 = "BGR555ToYUV420_16u8u_C3P3R";
constexpr const char* bgr565 = "BGR565ToYUV420_16u8u_C3P3R";
constexpr const char* rgb420 = "RGB565ToYUV420_16u8u_C3P3R";
constexpr const char* rgb422 = "RGB565ToYUV422_16u8u_C3P3R";

// The columns of blocks: from BGR of four, from RGB of sixteen.
constexpr BlockColumns bgrWidths[] = {
    {2, 0},   {3, 0},   {4, 4},   {5, 4},   {7, 4},   {8, 8},   {11, 8},  {12, 12},
    {15, 12}, {16, 16}, {19, 16}, {31, 28}, {32, 32}, {35, 32}, {80, 80},
};
constexpr BlockColumns rgbWidths[] = {
    {2, 0},   {8, 0},   {15, 0},  {16, 16}, {17, 16}, {29, 16},
    {31, 16}, {32, 32}, {47, 32}, {48, 48}, {80, 80},
};

// Three rows of one colour. The odd column has nothing, nor has the odd row of 4:2:0.
Example filled(std::string claim, const char* name, int word, BlockColumns at, Code inBlocks,
               Code after, In in) {
  const auto [width, columns] = at;
  const bool everyRow = name == rgb422;
  const Bytes y = samplesOf(width / 2 * 2, columns, inBlocks.y, after.y);
  const Bytes u = samplesOf(width / 2, columns / 2, inBlocks.first, after.first);
  const Bytes v = samplesOf(width / 2, columns / 2, inBlocks.second, after.second);
  return {std::move(claim) + ", width " + std::to_string(width),
          {name},
          width,
          3,
          {{words(3 * width, word), 2 * width}},
          {rows(84, std::vector<Bytes>(everyRow ? 3 : 2, y)),
           rows(45, std::vector<Bytes>(everyRow ? 3 : 1, u)),
           rows(47, std::vector<Bytes>(everyRow ? 3 : 1, v))},
          in,
          everyRow && width % 2 == 0 ? 0 : 35};
}

// A colour that SIMD and scalar code see differently.
struct Telling {
  const char* name;
  int word;
  Code simd, scalar;
};
constexpr Telling telling[] = {
    // BGR555 of red 16, green 64, blue 168.
    //   SIMD: 612 + 4808 + 2451 + 64 = 7935, luma 61. U: 84 * 256 - 244 * 32 = 13696,
    //     3369 + 8224 = 11593, 181. V: 8 * 256 - 244 * 32 = -5760, -2526 + 8224 = 5698, 89.
    //   Scalar: 61.504, luma 62. U: 427 * 32244 / 2^18 = 52. V: -181 * 57475 / 2^18 = -39.7.
    {bgr555, 0x0915, {61, 181, 89}, {62, 180, 88}},
    // BGR565 of green 100, blue 200.
    //   SIMD: 7513 + 2918 + 64 = 10495, luma 81. U: 25600 - 10368 = 15232, 3747 + 8224 = 11971,
    //     187. V: -10368, -4547 + 8224 = 3677, 57.
    //   Scalar: 81.5002, luma 82. U: 475 * 32244 / 2^18 = 58. V: -325 * 57475 / 2^18 = -71.3.
    {bgr565, 0x0339, {81, 187, 57}, {82, 186, 56}},
    // RGB565 of red 8, green 4, blue 48.
    //   SIMD: 4 + 4 + 10 = 18, luma 9, U from 96 - 18 = 78 that gives 19, V from 16 - 18 that gives
    //     -1.
    //   Scalar: 10.2, U 18.8 and V -1.5.
    {rgb420, 0x3021, {9, 147, 127}, {10, 146, 126}},
    {rgb422, 0x3021, {9, 147, 127}, {10, 146, 126}},
};

}  // namespace

std::vector<Example> encodeYuv() {
  std::vector<Example> all = {
      {"four colours of BGR555",
       {bgr555},
       2,
       2,
       {{words({0x7C00, 0x03E0, 0x001F, 0x7FFF}), 4}},
       {rows(24, {{74, 146}, {28, 248}}), rows(13, {{128}}), rows(11, {{128}})}},
      {"four colours of BGR565",
       {bgr565},
       2,
       2,
       {{words({0xF800, 0x07E0, 0x001F, 0xFFFF}), 4}},
       {rows(24, {{74, 148}, {28, 250}}), rows(13, {{127}}), rows(11, {{127}})}},
      // 0.587 * 252 is 147.9: 148 from BGR.
      {"four colours of RGB565, whose luma is not rounded",
       {rgb420},
       2,
       2,
       {{words({0xF800, 0x07E0, 0x001F, 0xFFFF}), 4}},
       {rows(24, {{28, 147}, {74, 250}}), rows(13, {{127}}), rows(11, {{127}})}},
      {"three reds and a green of BGR565",
       {bgr565},
       2,
       2,
       {{words({0xF800, 0xF800, 0xF800, 0x07E0}), 4}},
       {rows(24, {{74, 74}, {74, 148}}), rows(13, {{82}}), rows(11, {{210}})}},
      {"three blues and a green of RGB565",
       {rgb420},
       2,
       2,
       {{words({0xF800, 0xF800, 0xF800, 0x07E0}), 4}},
       {rows(24, {{28, 28}, {28, 147}}), rows(13, {{191}}), rows(11, {{77}})}},
      {"two blues",
       {rgb422},
       2,
       1,
       {{words({0xF800, 0xF800}), 4}},
       {rows(2, {{28, 28}}), rows(1, {{236}}), rows(1, {{103}})}},
      {"4:2:2 takes height 1",
       {rgb422},
       2,
       1,
       {{words({0xFFFF, 0xFFFF}), 4}},
       {rows(2, {{250, 250}}), rows(1, {{127}}), rows(1, {{126}})}},
      // A red of two is 0.299 * 124 = 37.1: 128 - 18.2 and 128 + 76.2.
      {"chroma is of pairs of pixels in 4:2:2",
       {rgb422},
       4,
       1,
       {{words({0x001F, 0, 0, 0x001F}), 8}},
       {rows(4, {{74, 0, 0, 74}}), rows(2, {{109, 109}}), rows(2, {{204, 204}})}},
      {"three by three of BGR555 is one block",
       {bgr555},
       3,
       3,
       {{words({0x7C00, 0x7C00, 0x1234, 0x7C00, 0x7C00, 0x1234, 0x1234, 0x1234, 0x1234}), 6}},
       {rows(3, {{74, 74}, {74, 74}}), rows(1, {{91}}), rows(1, {{255}})},
       In::Every,
       35},
      {"three by three of BGR565 is one block",
       {bgr565},
       3,
       3,
       {{words({0xF800, 0xF800, 0x1234, 0xF800, 0xF800, 0x1234, 0x1234, 0x1234, 0x1234}), 6}},
       {rows(3, {{74, 74}, {74, 74}}), rows(1, {{91}}), rows(1, {{255}})},
       In::Every,
       35},
      {"three by three of RGB565 is one block",
       {rgb420},
       3,
       3,
       {{words({0x001F, 0x001F, 0x1234, 0x001F, 0x001F, 0x1234, 0x1234, 0x1234, 0x1234}), 6}},
       {rows(3, {{74, 74}, {74, 74}}), rows(1, {{91}}), rows(1, {{255}})},
       In::Every,
       35},
      {"height 1 of BGR is rejected",
       {bgr555, bgr565},
       2,
       1,
       {{words(2, 0), 4}},
       {untouched(2), untouched(1), untouched(1)},
       In::Every,
       -6},
      {"width 1 of BGR is rejected",
       {bgr555, bgr565},
       1,
       4,
       {{words(4, 0), 2}},
       {untouched(1), untouched(1), untouched(1)},
       In::Every,
       -6},
      {"height 1 of RGB565 to 4:2:0 stores nothing",
       {rgb420},
       2,
       1,
       {{words(2, 0), 4}},
       {untouched(2), untouched(1), untouched(1)},
       In::Every,
       35},
      {"width 1 of RGB565 stores nothing",
       {rgb420, rgb422},
       1,
       4,
       {{words(4, 0), 2}},
       {untouched(1), untouched(1), untouched(1)},
       In::Every,
       35},

      // Blues of 8 * 8, 16 * 8, 24 * 8 and 31 * 8 have luma 7, 15, 22 and 28. Their means are 96
      // and 220: U 170 and 224, V 118 and 106. Of seven columns four are in blocks, and the last
      // has nothing, nor has the last row.
      {"an odd pitch of BGR loses its low bit for the lower row of a pair alone",
       {bgr555, bgr565},
       7,
       5,
       {placed(21, {{0, words(7, 8)}, {20, words(7, 16)}, {42, words(7, 24)}, {62, words(7, 31)}})},
       {rows(9, {samples(6, 7), samples(6, 15), samples(6, 22), samples(6, 28)}),
        rows(5, {samples(3, 170), samples(3, 224)}), rows(4, {samples(3, 118), samples(3, 106)})},
       In::Every,
       35},
      {"negative pitches of BGR go upwards, an odd one grows for the lower row of a pair alone",
       {bgr555, bgr565},
       7,
       4,
       {placed(-21,
               {{0, words(7, 8)}, {-22, words(7, 16)}, {-42, words(7, 24)}, {-64, words(7, 31)}})},
       {rows(-9, {samples(6, 7), samples(6, 15), samples(6, 22), samples(6, 28)}),
        rows(-5, {samples(3, 170), samples(3, 224)}), rows(-4, {samples(3, 118), samples(3, 106)})},
       In::Every,
       35},
      {"chroma pitches of BGR of zero and one keep the later rows",
       {bgr555, bgr565},
       6,
       4,
       {placed(12, {{0, words(6, 8)}, {12, words(6, 16)}, {24, words(6, 24)}, {36, words(6, 31)}})},
       {rows(6, {samples(6, 7), samples(6, 15), samples(6, 22), samples(6, 28)}),
        rows(0, {{224, 224, 224}}), rows(1, {{118, 106, 106, 106}})}},
      // Reds of 8 * 8, 24 * 8, 6 * 8 and 14 * 8 have luma 19, 57, 14 and 33. Their means are 128
      // and 80: U 109 and 116, V 206 and 177. Of 19 columns 16 are in blocks.
      {"an odd pitch of RGB565 stays odd",
       {rgb420},
       19,
       4,
       {placed(41,
               {{0, words(19, 8)}, {41, words(19, 24)}, {82, words(19, 6)}, {123, words(19, 14)}})},
       {rows(19, {samples(18, 19), samples(18, 57), samples(18, 14), samples(18, 33)}),
        rows(11, {samples(9, 109), samples(9, 116)}), rows(9, {samples(9, 206), samples(9, 177)})},
       In::Every,
       35},
      {"negative pitches of RGB565 go upwards",
       {rgb420},
       19,
       4,
       {placed(
           -41,
           {{0, words(19, 8)}, {-41, words(19, 24)}, {-82, words(19, 6)}, {-123, words(19, 14)}})},
       {rows(-19, {samples(18, 19), samples(18, 57), samples(18, 14), samples(18, 33)}),
        rows(-11, {samples(9, 109), samples(9, 116)}),
        rows(-9, {samples(9, 206), samples(9, 177)})},
       In::Every,
       35},
      // Reds of 8 * 8, 16 * 8 and 24 * 8 have luma 19, 38 and 57, U 118, 109 and 99, V 167, 206 and
      // 246.
      {"an odd pitch of RGB565 to 4:2:2 stays odd",
       {rgb422},
       19,
       3,
       {placed(41, {{0, words(19, 8)}, {41, words(19, 16)}, {82, words(19, 24)}})},
       {rows(19, {samples(18, 19), samples(18, 38), samples(18, 57)}),
        rows(11, {samples(9, 118), samples(9, 109), samples(9, 99)}),
        rows(9, {samples(9, 167), samples(9, 206), samples(9, 246)})},
       In::Every,
       35},
      {"negative pitches of RGB565 to 4:2:2 go upwards",
       {rgb422},
       19,
       3,
       {placed(-41, {{0, words(19, 8)}, {-41, words(19, 16)}, {-82, words(19, 24)}})},
       {rows(-19, {samples(18, 19), samples(18, 38), samples(18, 57)}),
        rows(-11, {samples(9, 118), samples(9, 109), samples(9, 99)}),
        rows(-9, {samples(9, 167), samples(9, 206), samples(9, 246)})},
       In::Every,
       35},
      {"pitch zero of RGB565 to 4:2:2 keeps the last row",
       {rgb422},
       18,
       2,
       {placed(36, {{0, words(18, 8)}, {36, words(18, 16)}})},
       {rows(0, {samples(18, 38)}), rows(0, {samples(9, 109)}), rows(0, {samples(9, 206)})}},

      // Luma at a pitch of one: the upper row of a block of two by two is stored over the lower row
      // of the block before it. In SIMD no order is documented for the two rows of a pair.
      {"blocks of BGR go from left to right, in each the upper row first",
       {bgr555, bgr565},
       4,
       2,
       {{words({1, 3, 5, 7, 9, 11, 13, 15}), 8}},
       {{1, {{0, {1, 8, 5, 12, 14}}}}, rows(2, {{149, 163}}), rows(2, {{123, 120}})},
       In::Scalar},
      {"blocks of RGB565 go from left to right, in each the upper row first",
       {rgb420},
       4,
       2,
       {{words({1, 3, 5, 7, 9, 11, 13, 15}), 8}},
       {{1, {{0, {2, 21, 11, 31, 35}}}}, rows(2, {{121, 116}}), rows(2, {{157, 177}})},
       In::Scalar},
  };

  // Two columns after the blocks. Before the clamp V of red is 280, and from BGR in SIMD 281; V of
  // cyan is -27, and in SIMD -26. SIMD rounds U and V from BGR: 91.6 of red becomes 92.
  constexpr BlockColumns at = {18, 16};
  const struct {
    const char* claim;
    const char* name;
    int word;
    Code inBlocks, after;
  } colours[] = {
      {"black of BGR555", bgr555, 0, {0, 128, 128}, {0, 128, 128}},
      {"black of BGR565", bgr565, 0, {0, 128, 128}, {0, 128, 128}},
      {"black of RGB565", rgb420, 0, {0, 128, 128}, {0, 128, 128}},
      {"black of RGB565 to 4:2:2", rgb422, 0, {0, 128, 128}, {0, 128, 128}},
      {"white of BGR555", bgr555, 0x7FFF, {248, 128, 128}, {248, 128, 128}},
      {"white of BGR565 is not neutral", bgr565, 0xFFFF, {250, 127, 126}, {250, 127, 126}},
      {"white of RGB565 is not neutral", rgb420, 0xFFFF, {250, 127, 126}, {250, 127, 126}},
      {"white of RGB565 to 4:2:2 is not neutral", rgb422, 0xFFFF, {250, 127, 126}, {250, 127, 126}},
      {"V of red of BGR565 is clamped", bgr565, 0xF800, {74, 92, 255}, {74, 91, 255}},
      {"V of cyan of BGR565 is clamped", bgr565, 0x07FF, {176, 163, 0}, {176, 163, 0}},
      {"blue of BGR565", bgr565, 0x001F, {28, 236, 103}, {28, 236, 103}},
      {"V of red of RGB565 is clamped", rgb420, 0x001F, {74, 91, 255}, {74, 91, 255}},
      {"V of red of RGB565 to 4:2:2 is clamped", rgb422, 0x001F, {74, 91, 255}, {74, 91, 255}},
      {"V of cyan of RGB565 is clamped", rgb420, 0xFFE0, {176, 163, 0}, {176, 163, 0}},
      {"V of cyan of RGB565 to 4:2:2 is clamped", rgb422, 0xFFE0, {176, 163, 0}, {176, 163, 0}},
      {"blue of RGB565", rgb420, 0xF800, {28, 236, 103}, {28, 236, 103}},
      {"blue of RGB565 to 4:2:2", rgb422, 0xF800, {28, 236, 103}, {28, 236, 103}},
      // 0.587 * 252 is 147.9.
      {"green of BGR565 is rounded", bgr565, 0x07E0, {148, 55, 0}, {148, 55, 0}},
      {"green of RGB565 is rounded in SIMD alone", rgb420, 0x07E0, {148, 55, 0}, {147, 55, 0}},
      {"green of RGB565 to 4:2:2 is rounded in SIMD alone",
       rgb422,
       0x07E0,
       {148, 55, 0},
       {147, 55, 0}},
      // SIMD: 16000 * 16122 / 65536 = 3936.04, which with 8224 is 190 * 64. By 16121 it is one
      // less. V: -3456 * 28737 / 65536 = -1515.4, which with 8224 is 104.8 * 64.
      {"the factor of U from BGR is 16122 in SIMD",
       bgr555,
       2 << 5 | 19,
       {27, 190, 104},
       {27, 189, 104}},
      // SIMD: 374 * 16121 / 65536 = 91.998. By 16122 it is 92.
      {"the factor of U from RGB565 is 16121 in SIMD",
       rgb420,
       27 << 11 | 2 << 5,
       {29, 219, 102},
       {29, 220, 102}},
      {"the factor of U from RGB565 to 4:2:2 is 16121 in SIMD",
       rgb422,
       27 << 11 | 2 << 5,
       {29, 219, 102},
       {29, 220, 102}},
  };
  for (const auto& c : colours) {
    all.push_back(filled(c.claim, c.name, c.word, at, c.inBlocks, c.after, In::Simd));
    all.push_back(filled(c.claim + std::string(", scalar"), c.name, c.word, at, c.after, c.after,
                         In::Scalar));
  }

  for (const Telling& t : telling) {
    const auto add = [&](const BlockColumns& columns) {
      const std::string name = t.name;
      all.push_back(filled(name + " in blocks and after", t.name, t.word, columns, t.simd, t.scalar,
                           In::Simd));
      all.push_back(filled(name + " in scalar code", t.name, t.word, columns, t.scalar, t.scalar,
                           In::Scalar));
    };
    if (t.name == bgr555 || t.name == bgr565) {
      for (const BlockColumns& columns : bgrWidths) add(columns);
    } else {
      for (const BlockColumns& columns : rgbWidths) add(columns);
    }
  }
  return all;
}

}  // namespace examples
