// SPDX-License-Identifier: MIT
// YUV 4:2:0 to 16-bit pixels. Without dither, three forms meet: whole blocks are rounded in scalar
// code and the chain in SIMD, the odd last column and the odd last row are truncated in both.
#include "tests/examples/row_pairs.h"

namespace examples {
namespace {

constexpr const char* bgr444 = "YUV420ToBGR444_8u16u_P3C3R";
constexpr const char* bgr555 = "YUV420ToBGR555_8u16u_P3C3R";
constexpr const char* bgr565 = "YUV420ToBGR565_8u16u_P3C3R";

// Samples of one value each, in planes of a few columns more than the region.
std::vector<Source> equal(int width, int height, int y, int u, int v) {
  const int pitch = width + 2, chromaPitch = width / 2 + 2, chromaRows = (height + 1) / 2;
  return {{samples(pitch * height, y), pitch},
          {samples(chromaPitch * chromaRows, u), chromaPitch},
          {samples(chromaPitch * chromaRows, v), chromaPitch}};
}

// One word in whole blocks, which `columns` columns of paired rows have, and another in an odd last
// column and row.
Target edged(int width, int height, int inBlocks, int atEdges, int columns) {
  const int even = width / 2 * 2;
  std::vector<int> paired(static_cast<std::size_t>(columns), inBlocks);
  if (width > even) paired[static_cast<std::size_t>(even)] = atEdges;
  Pattern rows(static_cast<std::size_t>(height), paired);
  if (height % 2 == 1) rows.back() = twoParts(0, 0, width, atEdges);
  return pixelRows(2 * width + 6, rows);
}

// U = 5, V = 184, Y = 0 is (63, 16, 0) by the chain, (64, 15, 0) by the rounded form and (63, 15,
// 0) by the truncated one.
struct Telling {
  const char *format, *name;
  int chain, rounded, truncated;
};
constexpr Telling telling[] = {{"555", bgr555, 0x1C40, 0x2020, 0x1C20},
                               {"565", bgr565, 0x3880, 0x4060, 0x3860}};

// Sizes, and the columns that SIMD stores of a pair: two more than the even width where blocks end
// with one of four.
struct Size {
  int width, height, columns;
};
constexpr Size sizes[] = {
    {2, 2, 2},   {2, 3, 2},   {3, 2, 3},   {3, 3, 3},   {4, 2, 6},   {4, 3, 6},   {4, 5, 6},
    {5, 2, 6},   {5, 3, 6},   {6, 2, 6},   {6, 5, 6},   {7, 2, 7},   {7, 3, 7},   {8, 2, 8},
    {9, 2, 9},   {9, 7, 9},   {10, 2, 10}, {11, 2, 11}, {12, 2, 14}, {12, 4, 14}, {13, 2, 14},
    {13, 3, 14}, {14, 2, 14}, {15, 2, 15}, {16, 2, 16}, {17, 3, 17}, {18, 2, 18}, {19, 2, 19},
    {20, 2, 22}, {21, 3, 22}, {22, 2, 22}, {23, 2, 23}, {31, 2, 31}, {32, 2, 32}, {33, 2, 33},
    {36, 2, 38}, {37, 2, 38}, {38, 2, 38}, {80, 2, 80},
};

}  // namespace

std::vector<Example> decodeYuv420() {
  std::vector<Example> all = {
      // Y = 3, V = 132 is a red of 7.56.
      {"width 2, height 2 is rounded in scalar code",
       {bgr555},
       2,
       2,
       equal(2, 2, 3, 128, 132),
       {pixelRows(4, {{0x0400, 0x0400}, {0x0400, 0x0400}})},
       In::Scalar},
      {"width 3, height 3 is rounded but for its last column and row",
       {bgr555},
       3,
       3,
       equal(3, 3, 3, 128, 132),
       {pixelRows(6, {{0x0400, 0x0400, 0}, {0x0400, 0x0400, 0}, {0, 0, 0}})},
       In::Scalar},
      {"width 3, height 2 is rounded but for its last column",
       {"YUV420ToRGB565_8u16u_P3C3R"},
       3,
       2,
       equal(3, 2, 3, 128, 132),
       {pixelRows(6, {{1, 1, 0}, {1, 1, 0}})},
       In::Scalar},
      {"width 2, height 3 is rounded but for its last row",
       {"YUV420ToRGB565_8u16u_P3C3R"},
       2,
       3,
       equal(2, 3, 3, 128, 132),
       {pixelRows(4, {{1, 1}, {1, 1}, {0, 0}})},
       In::Scalar},
      {"SIMD rounds nothing",
       {bgr555},
       3,
       3,
       equal(3, 3, 3, 128, 132),
       {pixelRows(6, {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}})},
       In::Simd},
      // Y = 0, U = 0, V = 10 is a green of 118.55: 118 in scalar code and 119 by the chain, which
      // is the form of dither. Both are 29 of six bits; 119 leaves a residue of 420, which exceeds
      // half of the thresholds up to 839.
      {"green is not rounded",
       {bgr565},
       2,
       2,
       equal(2, 2, 0, 0, 10),
       {equalPixels(2, 2, 4, 29 << 5)}},
      {"green of dither is that of the chain",
       {"YUV420ToBGR565Dither_8u16u_P3C3R"},
       4,
       4,
       equal(4, 4, 0, 0, 10),
       {repeated(4, 4,
                 {{30 << 5, 29 << 5, 30 << 5, 29 << 5},
                  {29 << 5, 30 << 5, 29 << 5, 30 << 5},
                  {30 << 5, 29 << 5, 30 << 5, 29 << 5},
                  {29 << 5, 29 << 5, 29 << 5, 30 << 5}})}},
      // With Y = 1 it is 119 in scalar code, still 29 of six bits, and 120 by the chain, which
      // is 30.
      {"plain green of scalar code is below that of the chain",
       {bgr565},
       2,
       2,
       equal(2, 2, 1, 0, 10),
       {equalPixels(2, 2, 4, 29 << 5)},
       In::Scalar},
      {"plain green of the chain is above that of scalar code",
       {bgr565},
       2,
       2,
       equal(2, 2, 1, 0, 10),
       {equalPixels(2, 2, 4, 30 << 5)},
       In::Simd},
      // 2.032 * 127 is 258, and 1.140 * 127 is 144.8.
      {"blue draws on U", {bgr444}, 2, 2, equal(2, 2, 0, 255, 128), {equalPixels(2, 2, 4, 0x000F)}},
      {"red draws on V", {bgr444}, 2, 2, equal(2, 2, 0, 128, 255), {equalPixels(2, 2, 4, 0x0900)}},
      // Y = 16 n is grey n of four bits.
      {"luma is not scaled",
       {bgr444, "YUV420ToRGB444_8u16u_P3C3R"},
       2,
       2,
       greys(2, {16, 128, 240, 255}),
       {pixelRows(4, {{0x0111, 0x0888}, {0x0FFF, 0x0FFF}})}},
      {"each plane has a pitch of its own, and a pair of rows one of its chroma",
       {bgr444},
       2,
       4,
       {{samples(18, 0), 5}, {{255, 0x55, 0x55, 128}, 3}, {{128, 0x55, 255}, 2}},
       {pixelRows(4, {{0x000F, 0x000F}, {0x000F, 0x000F}, {0x0900, 0x0900}, {0x0900, 0x0900}})}},
      {"negative source pitches read upwards",
       {bgr444},
       2,
       4,
       {{samples(8, 0), -2, 6}, {{255, 128}, -1, 1}, {{128, 255}, -1, 1}},
       {pixelRows(4, {{0x0900, 0x0900}, {0x0900, 0x0900}, {0x000F, 0x000F}, {0x000F, 0x000F}})}},
      {"dither goes on in every block and into an odd last row",
       {"YUV420ToBGR444Dither_8u16u_P3C3R", "YUV420ToRGB444Dither_8u16u_P3C3R"},
       22,
       7,
       greys(22, samples(154, 96)),
       {repeated(22, 7, grey96)}},
      {"an odd corner and two pixels after it have the phases of their places",
       {"YUV420ToBGR444Dither_8u16u_P3C3R"},
       5,
       3,
       greys(5, samples(17, 96)),
       {{20,
         {{0, words({0x666, 0x666, 0x666, 0x555, 0x666})},
          {20, words({0x555, 0x666, 0x555, 0x666, 0x555})},
          {40, words({0x666, 0x555, 0x666, 0x666, 0x666, 0x555, 0x666})}}}},
       In::Simd},
      // The second of the two takes the chroma that follows in memory: V = 255 is a red of 144, at
      // the threshold 279 level 17 and a residue of 1079.
      {"dithered width 1, height 1 stores three pixels in SIMD",
       {"YUV420ToBGR565Dither_8u16u_P3C3R"},
       1,
       1,
       {{{0, 255, 0}}, {{128, 128}}, {{128, 255}}},
       {pixelRows(6, {{0, 0xFFFF, 18 << 11}})},
       In::Simd},
      // The upper rows run into columns 0 and 1 of the lower with the very samples of those; the
      // last row runs past the image.
      {"the block too many of tight rows shows after the last row",
       {bgr444},
       4,
       4,
       greys(4, {16, 32, 48, 64, 80, 96, 112, 128, 144, 160, 176, 192, 208, 224, 240, 255, 1, 2}),
       {{8,
         {{0, words({0x111, 0x222, 0x333, 0x444, 0x555, 0x666, 0x777, 0x888, 0x999, 0xAAA, 0xBBB,
                     0xCCC, 0xDDD, 0xEEE, 0xFFF, 0xFFF, 0x000, 0x000})}}}},
       In::Simd},
      // Where the source has more room between its rows, they are samples of their own: 9 and 10
      // after the upper row, 11 and 12 after the lower.
      {"the block too many of an upper row covers the first columns of the lower",
       {bgr444},
       4,
       2,
       greys(8, {16, 32, 48, 64, 144, 160, 0, 0, 80, 96, 112, 128, 176, 192, 0, 0}),
       {{8, {{0, words({0x111, 0x222, 0x333, 0x444, 0x999, 0xAAA, 0x777, 0x888, 0xBBB, 0xCCC})}}}},
       In::Simd},
      {"the block too many takes the chroma that follows in memory",
       {bgr444},
       4,
       2,
       {{samples(14, 0), 8}, {{128, 128, 255}}, {{128, 128, 128}}},
       {pixelRows(20, {{0, 0, 0, 0, 0x00F, 0x00F}, {0, 0, 0, 0, 0x00F, 0x00F}})},
       In::Simd},
      {"an odd last column is stored over the block too many",
       {bgr555},
       5,
       2,
       equal(5, 2, 0, 5, 184),
       {pixelRows(20, {{0x1C40, 0x1C40, 0x1C40, 0x1C40, 0x1C20, 0x1C40},
                       {0x1C40, 0x1C40, 0x1C40, 0x1C40, 0x1C20, 0x1C40}})},
       In::Simd},
  };
  for (const Example& e : inRowPairs("YUV420")) all.push_back(e);

  for (const auto& [width, height] :
       {std::pair{1, 1}, {1, 2}, {1, 5}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {12, 1}})
    all.push_back({"nothing is stored without dither at width " + std::to_string(width) +
                       ", height " + std::to_string(height),
                   namesOf("YUV420To", "", Kinds::Plain),
                   width,
                   height,
                   equal(width, height, 200, 128, 128),
                   {untouched(40)}});

  for (const Telling& t : telling) {
    for (const Size& s : sizes) {
      const std::string of = std::string(": ") + t.format + ", " + std::to_string(s.width) +
                             " by " + std::to_string(s.height);
      const std::vector<Source> source = equal(s.width, s.height, 0, 5, 184);
      all.push_back({"scalar code is rounded in whole blocks and truncated at odd edges" + of,
                     {t.name},
                     s.width,
                     s.height,
                     source,
                     {edged(s.width, s.height, t.rounded, t.truncated, s.width)},
                     In::Scalar});
      all.push_back({"SIMD is the chain in blocks of two and truncated at odd edges" + of,
                     {t.name},
                     s.width,
                     s.height,
                     source,
                     {edged(s.width, s.height, t.chain, t.truncated, s.columns)},
                     In::Simd});
    }
  }

  for (const Format& f : formats) {
    for (const std::string order : {"BGR", "RGB"}) {
      const std::string front = "YUV420To" + order + f.name, of = ": " + order + f.name;
      for (const Blocks& b : blocks()) {
        // The block too many begins at column 4 or 12, and stores two columns.
        const bool more = b.width % 8 == 4 || b.width % 8 == 5;
        const int columns = more ? b.width / 2 * 2 + 2 : b.width;
        std::vector<int> begins = b.ofEight;
        if (b.width % 8 == 4) begins.push_back(b.width);
        all.push_back(blocksBegin("scalar code takes two columns at a time" + of,
                                  namesOf(front, ""), In::Scalar, b.width, b.width, b.ofTwo,
                                  f.white));
        all.push_back(blocksBegin("dither has blocks of eight, four and two in SIMD" + of,
                                  namesOf(front, "", Kinds::Dither), In::Simd, b.width, b.width,
                                  b.ofEight, f.white));
        all.push_back(blocksBegin("SIMD has blocks of eight, four and two, and one too many" + of,
                                  namesOf(front, "", Kinds::Plain), In::Simd, b.width, columns,
                                  begins, f.white));
      }
    }
  }
  return all;
}

}  // namespace examples
