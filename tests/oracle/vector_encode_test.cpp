// SPDX-License-Identifier: MIT
// Holds the encoding of the SIMD variants to known columns and bytes.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_encode.h"
#include "tests/oracle/test_vector.h"

namespace oracle {
namespace {

// The columns of the vector blocks at a width.
struct AtWidth {
  int width;
  int columns;
};
using Columns = std::vector<AtWidth>;

const Columns k422 = {{2, 0},   {7, 0},   {8, 8},   {9, 8},   {15, 8},  {16, 0},
                      {17, 0},  {23, 0},  {24, 8},  {31, 8},  {32, 32}, {33, 32},
                      {39, 32}, {40, 40}, {47, 40}, {48, 32}, {55, 32}, {56, 40},
                      {63, 40}, {64, 64}, {71, 64}, {72, 72}, {79, 72}, {80, 64}};
const Columns k420 = {{2, 0},   {3, 0},   {4, 4},   {7, 4},   {8, 0},   {11, 0},  {12, 4},
                      {15, 4},  {16, 16}, {19, 16}, {20, 20}, {23, 20}, {24, 16}, {27, 16},
                      {28, 20}, {31, 20}, {32, 32}, {35, 32}, {36, 36}, {80, 80}};
const Columns kFours = {{4, 4},   {5, 4},   {7, 4},   {8, 8},   {11, 8},  {12, 12}, {15, 12},
                        {16, 16}, {19, 16}, {31, 28}, {32, 32}, {35, 32}, {80, 80}};
const Columns kSixteens = {{1, 0},   {2, 0},   {8, 0},   {15, 0},  {16, 16}, {17, 16},
                           {31, 16}, {32, 32}, {47, 32}, {48, 48}, {80, 80}};

struct Encoder {
  std::string_view name;
  const Columns& columns;
};

const Encoder kEncoders[] = {
    {"BGR555ToYCbCr422_16u8u_C3P3R", k422},    {"BGR565ToYCbCr422_16u8u_C3P3R", k422},
    {"BGR555ToYCbCr422_16u8u_C3C2R", k422},    {"BGR565ToYCbCr422_16u8u_C3C2R", k422},
    {"BGR555ToYCbCr420_16u8u_C3P3R", k420},    {"BGR565ToYCbCr420_16u8u_C3P3R", k420},
    {"BGR555ToYCrCb420_16u8u_C3P3R", k420},    {"BGR565ToYCrCb420_16u8u_C3P3R", k420},
    {"BGR555ToYCbCr411_16u8u_C3P3R", kFours},  {"BGR565ToYCbCr411_16u8u_C3P3R", kFours},
    {"BGR555ToYUV420_16u8u_C3P3R", kFours},    {"BGR565ToYUV420_16u8u_C3P3R", kFours},
    {"RGB565ToYUV420_16u8u_C3P3R", kSixteens}, {"RGB565ToYUV422_16u8u_C3P3R", kSixteens}};

bool holds(std::string_view name, std::string_view word) {
  return name.find(word) != name.npos;
}

TEST(OracleVectorEncode, ColumnsByWidth) {
  for (const Encoder& encoder : kEncoders) {
    for (auto [width, columns] : encoder.columns) {
      for (Variant variant : kVectorVariants) {
        EXPECT_EQ(encoderVectorColumns(encoder.name, variant, width), columns)
            << encoder.name << " " << width;
      }
      EXPECT_EQ(encoderVectorColumns(encoder.name, Variant::mx, width), 0);
    }
  }
}

TEST(OracleVectorEncode, NamesThatDoNotEncodeAreRefusedAloud) {
  for (const char* name : {"BGR565ToBGR_16u8u_C3R", "YCbCrToBGR565_8u16u_C3R", "BGR555ToYUV422",
                           "ColorTwist32f_8s_C3R"}) {
    EXPECT_THROW(encoderVectorColumns(name, Variant::m7, 32), std::invalid_argument);
    EXPECT_THROW(encoderVectorColumns(name, Variant::mx, 32), std::invalid_argument);
  }
}

// ---- Pictures of one colour, which the lanes and the scalar code see differently ---------------

// The bytes that a colour comes to: luma and the two chroma.
struct Code {
  int y, first, second;
};

// A colour in the words of an encoder.
struct Colour {
  std::uint16_t word555, word565;
  Code lanes, scalar;
};

std::uint16_t wordFor(const Encoder& encoder, const Colour& colour) {
  return encoder.name.starts_with("BGR555") ? colour.word555 : colour.word565;
}

// Red 160, green 136, blue 80. Luma 5263 + 8773 + 1003 + 2112 = 17151 is one below 134 * 128, and
// 134.005 without the truncations. Cb is 100 in SIMD, and 99.99 in one piece. Red 40, green 184,
// blue 56 is one code off in luma and Cr.
constexpr Colour kCbColour = {0x522A, 0xA44A, {133, 100, 142}, {134, 99, 142}};
constexpr Colour kCrColour = {0x16E7, 0x2DC7, {124, 93, 74}, {125, 93, 73}};

// BGR555 of red 16, green 64, blue 168:
//   lanes: 612 + 4808 + 2451 + 64 = 7935, luma 61. U: 84 * 256 - 244 * 32 = 13696,
//     3369 + 8224 = 11593, 181. V: 8 * 256 - 244 * 32 = -5760, -2526 + 8224 = 5698, 89.
//   scalar: 61.504, luma 62. U: 427 * 32244 / 2^18 = 52. V: -181 * 57475 / 2^18 = -39.7.
// BGR565 of green 100, blue 200:
//   lanes: 7513 + 2918 + 64 = 10495, luma 81. U: 25600 - 10368 = 15232, 3747 + 8224 = 11971, 187.
//     V: -10368, -4547 + 8224 = 3677, 57.
//   scalar: 81.5002, luma 82. U: 475 * 32244 / 2^18 = 58. V: -325 * 57475 / 2^18 = -71.3.
constexpr Colour kBgrYuv555 = {0x0915, 0, {61, 181, 89}, {62, 180, 88}};
constexpr Colour kBgrYuv565 = {0, 0x0339, {81, 187, 57}, {82, 186, 56}};

// RGB565 of red 8, green 4, blue 48: 4 + 4 + 10 = 18, luma 9, U from 96 - 18 = 78 that gives 19, V
// from 16 - 18 that gives -1. The scalar code finds a luma of 10.2, U 18.8 and V -1.5.
constexpr Colour kRgbYuv = {0, 0x3021, {9, 147, 127}, {10, 146, 126}};

std::vector<Colour> coloursFor(const Encoder& encoder) {
  if (!holds(encoder.name, "YUV")) return {kCbColour, kCrColour};
  if (encoder.name.starts_with("BGR555")) return {kBgrYuv555};
  if (encoder.name.starts_with("BGR565")) return {kBgrYuv565};
  return {kRgbYuv};
}

// What the layouts make of a region.
struct Layout {
  explicit Layout(std::string_view name)
      : groupWidth(holds(name, "411") ? 4 : 2),
        rowPairs(holds(name, "420")),
        interleaved(holds(name, "C3C2")),
        crFirst(holds(name, "YCrCb")),
        wholeLuma(!holds(name, "YUV") && !holds(name, "411")),
        lumaBeyond(name.starts_with("BGR555ToYCbCr411")) {}

  int groupWidth;
  bool rowPairs, interleaved, crFirst;
  bool wholeLuma;   // whatever is in no group has its luma
  bool lumaBeyond;  // the same in the columns alone, and in the SIMD variants alone

  int lumaWidth(int width) const {
    return wholeLuma || lumaBeyond ? width : width / groupWidth * groupWidth;
  }
  int lumaHeight(int height) const { return wholeLuma || !rowPairs ? height : height / 2 * 2; }
  int chromaHeight(int height) const { return rowPairs ? height / 2 : height; }

  // Whether a pixel lies in a block.
  bool inLanes(int x, int y, int columns, int height) const {
    return x < columns && !(rowPairs && y == height - 1 && height % 2 == 1);
  }
};

constexpr std::array kSteps = {84, 45, 47};

// The planes of a picture of one colour.
std::array<Canvas, 3> planesOf(const Layout& layout, const Colour& colour, int columns, int width,
                               int height) {
  std::array<Canvas, 3> planes;
  for (int y = 0; y < layout.lumaHeight(height); ++y) {
    for (int x = 0; x < layout.lumaWidth(width); ++x) {
      planes[0].putByte(y * kSteps[0] + x,
                        layout.inLanes(x, y, columns, height) ? colour.lanes.y : colour.scalar.y);
    }
  }
  for (int j = 0; j < layout.chromaHeight(height); ++j) {
    for (int i = 0; i < width / layout.groupWidth; ++i) {
      const Code& code = i * layout.groupWidth < columns ? colour.lanes : colour.scalar;
      planes[1].putByte(j * kSteps[1] + i, layout.crFirst ? code.second : code.first);
      planes[2].putByte(j * kSteps[2] + i, layout.crFirst ? code.first : code.second);
    }
  }
  return planes;
}

// The odd last pixel of an interleaved row has a Cb of its own, which is that of its scalar group.
std::array<Canvas, 3> interleavedPlanesOf(const Colour& colour, int columns, int width,
                                          int height) {
  std::array<Canvas, 3> planes;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const Code& code = x < columns ? colour.lanes : colour.scalar;
      planes[0].putByte(y * 2 * kSteps[0] + 2 * x, code.y);
      planes[0].putByte(y * 2 * kSteps[0] + 2 * x + 1, x % 2 == 0 ? code.first : code.second);
    }
  }
  return planes;
}

int leastHeight(std::string_view name) {
  return holds(name, "420") && !name.starts_with("RGB") ? 2 : 1;
}

int statusOf(std::string_view name, int width, int height) {
  const bool warns = holds(name, "411") ? width % 4 != 0
                     : holds(name, "YUV")
                         ? width % 2 != 0 || (holds(name, "420") && height % 2 != 0)
                         : false;
  return warns ? 35 : 0;
}

void expectColour(const Encoder& encoder, const Colour& colour, AtWidth at, int height) {
  const Layout layout(encoder.name);
  const auto wanted = layout.interleaved ? interleavedPlanesOf(colour, at.columns, at.width, height)
                                         : planesOf(layout, colour, at.columns, at.width, height);
  for (Variant variant : kVectorVariants) {
    EncodeScene scene(Words(static_cast<std::size_t>(at.width * height), wordFor(encoder, colour)));
    for (std::size_t k = 0; k < 3; ++k) scene.step[k] = kSteps[k];
    if (layout.interleaved) scene.step[0] = 2 * kSteps[0];
    EXPECT_EQ(scene.run(encoder.name, 2 * at.width, at.width, height, variant),
              statusOf(encoder.name, at.width, height));
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_EQ(scene.plane[k], wanted[k]) << encoder.name << " " << at.width << " by " << height;
    }
  }
}

TEST(OracleVectorEncode, ColourShowsWhichColumnsAreEncodedInLanes) {
  for (const Encoder& encoder : kEncoders) {
    for (const Colour& colour : coloursFor(encoder)) {
      for (AtWidth at : encoder.columns) {
        for (int height = leastHeight(encoder.name); height <= 3; ++height) {
          expectColour(encoder, colour, at, height);
        }
      }
    }
  }
}

// ---- Single bytes ------------------------------------------------------------------------------

// What becomes of a picture of one colour.
EncodeScene filled(std::string_view name, std::uint16_t word, int width, int height,
                   Variant variant = Variant::m7) {
  EncodeScene scene(Words(static_cast<std::size_t>(width * height), word));
  for (std::size_t k = 0; k < 3; ++k) scene.step[k] = kSteps[k];
  if (holds(name, "C3C2")) scene.step[0] = 2 * kSteps[0];
  scene.run(name, 2 * width, width, height, variant);
  return scene;
}

void expectFirst(const EncodeScene& scene, int y, int first, int second) {
  EXPECT_EQ(scene.plane[0].byteAt(0), y);
  EXPECT_EQ(scene.plane[1].byteAt(0), first);
  EXPECT_EQ(scene.plane[2].byteAt(0), second);
}

TEST(OracleVectorEncode, BlackAndWhite) {
  for (const Encoder& encoder : kEncoders) {
    if (holds(encoder.name, "C3C2")) continue;
    const bool yuv = holds(encoder.name, "YUV"), five = encoder.name.starts_with("BGR555");
    expectFirst(filled(encoder.name, 0, 32, 2), yuv ? 0 : 16, 128, 128);
    const int white = yuv ? (five ? 248 : 250) : (five ? 229 : 231);
    EXPECT_EQ(filled(encoder.name, 0xFFFF, 32, 2).plane[0].byteAt(0), white) << encoder.name;
  }
  const EncodeScene black = filled("BGR555ToYCbCr422_16u8u_C3C2R", 0, 8, 1);
  EXPECT_EQ(black.plane[0], byteRows({{16, 128, 16, 128, 16, 128, 16, 128,  //
                                       16, 128, 16, 128, 16, 128, 16, 128}},
                                     16));
}

// A blue among black pixels shows whose chroma it takes part in.
TEST(OracleVectorEncode, PixelsOfAGroup) {
  // One blue of two: 3483 + 8200 = 11683, divided by 64, and -563 + 8200 = 7637.
  EncodeScene pair(Words{0x001F, 0, 0, 0, 0, 0, 0, 0x001F});
  pair.run("BGR555ToYCbCr422_16u8u_C3P3R", 16, 8, 1, Variant::m7);
  EXPECT_EQ(pair.plane[0], byteRows({{40, 16, 16, 16, 16, 16, 16, 40}}, 8));
  EXPECT_EQ(pair.plane[1], byteRows({{182, 128, 128, 182}}, 4));
  EXPECT_EQ(pair.plane[2], byteRows({{119, 128, 128, 119}}, 4));
  // One blue of four: 3483 + 16400 = 19883, divided by 128, and -563 + 16400 = 15837.
  EncodeScene row(Words{0, 0, 0, 0x001F, 0, 0, 0x001F, 0});
  row.run("BGR565ToYCbCr411_16u8u_C3P3R", 16, 8, 1, Variant::m7);
  EXPECT_EQ(row.plane[0], byteRows({{16, 16, 16, 40, 16, 16, 40, 16}}, 8));
  EXPECT_EQ(row.plane[1], byteRows({{155, 155}}, 2));
  EXPECT_EQ(row.plane[2], byteRows({{123, 123}}, 2));
  EncodeScene square(Words{0x001F, 0, 0, 0, 0, 0, 0, 0x001F});
  square.run("BGR565ToYCrCb420_16u8u_C3P3R", 8, 4, 2, Variant::m7);
  EXPECT_EQ(square.plane[1], byteRows({{123, 123}}, 2));
  EXPECT_EQ(square.plane[2], byteRows({{155, 155}}, 2));
}

// The Y, Cb, Y and Cr of a pair, and of an odd pixel after the blocks Y and Cb.
TEST(OracleVectorEncode, InterleavedBytes) {
  const EncodeScene nine = filled("BGR555ToYCbCr422_16u8u_C3C2R", kCbColour.word555, 9, 1);
  EXPECT_EQ(nine.plane[0], byteRows({{133, 100, 133, 142, 133, 100, 133, 142, 133, 100, 133, 142,
                                      133, 100, 133, 142, 134, 99}},
                                    18));
  EXPECT_EQ(nine.plane[1], Canvas());
  EXPECT_EQ(nine.plane[2], Canvas());
}

TEST(OracleVectorEncode, ChromaPlanesAreExchangedInYCrCb) {
  const EncodeScene cbFirst = filled("BGR565ToYCbCr420_16u8u_C3P3R", kCbColour.word565, 4, 2);
  const EncodeScene crFirst = filled("BGR565ToYCrCb420_16u8u_C3P3R", kCbColour.word565, 4, 2);
  EXPECT_EQ(cbFirst.plane[1], byteRows({{100, 100}}, 2));
  EXPECT_EQ(cbFirst.plane[2], byteRows({{142, 142}}, 2));
  EXPECT_EQ(crFirst.plane[1], cbFirst.plane[2]);
  EXPECT_EQ(crFirst.plane[2], cbFirst.plane[1]);
}

TEST(OracleVectorEncode, OddLastRowIsThatOfTheReference) {
  const EncodeScene scene = filled("BGR555ToYCbCr420_16u8u_C3P3R", kCbColour.word555, 5, 3);
  EXPECT_EQ(
      scene.plane[0],
      byteRows({{133, 133, 133, 133, 134}, {133, 133, 133, 133, 134}, {134, 134, 134, 134, 134}},
               kSteps[0]));
  EXPECT_EQ(scene.plane[1], byteRows({{100, 100}}, 2));
}

// After the last group BGR555 gives luma in the SIMD variants, and no one else does.
TEST(OracleVectorEncode, LumaBehindTheLastGroupOf411) {
  for (int slot = 0; slot < 7; ++slot) {
    const auto variant = static_cast<Variant>(slot);
    const int y = slot == 0 ? 134 : 133, cb = slot == 0 ? 99 : 100;
    const EncodeScene five =
        filled("BGR555ToYCbCr411_16u8u_C3P3R", kCbColour.word555, 7, 2, variant);
    std::vector<int> luma = {y, y, y, y};
    if (slot != 0) luma.insert(luma.end(), {134, 134, 134});
    EXPECT_EQ(five.plane[0], byteRows({luma, luma}, kSteps[0]));
    EXPECT_EQ(five.plane[1], byteRows({{cb}, {cb}}, kSteps[1]));
    EXPECT_EQ(five.plane[2], byteRows({{142}, {142}}, kSteps[2]));
    const EncodeScene six =
        filled("BGR565ToYCbCr411_16u8u_C3P3R", kCbColour.word565, 7, 2, variant);
    EXPECT_EQ(six.plane[0], byteRows({{y, y, y, y}, {y, y, y, y}}, kSteps[0]));
    EncodeScene again(Words(14, kCbColour.word555));
    EXPECT_EQ(again.run("BGR555ToYCbCr411_16u8u_C3P3R", 14, 7, 2, variant), 35);
    EXPECT_EQ(again.run("BGR555ToYCbCr411_16u8u_C3P3R", 14, 4, 2, variant), 0);
  }
}

// The last source pixel is the last byte that there is.
TEST(OracleVectorEncode, LumaBehindTheLastGroupIsReadToTheLastPixel) {
  EncodeScene scene(Words{0x7C00, 0x7C00, 0x7C00, 0x03E0, 0x7FFF, 0x001F});
  EXPECT_EQ(scene.run("BGR555ToYCbCr411_16u8u_C3P3R", 12, 6, 1, Variant::l9), 35);
  EXPECT_EQ(scene.plane[0], byteRows({{80, 80, 80, 141, 229, 40}}, 6));
}

// The factors of U: 16122 gives 190 where 16121 would give 189, and the other way round 219 stands
// against 220.
TEST(OracleVectorEncode, FactorsOfUInTheTwoSources) {
  const EncodeScene bgr = filled("BGR555ToYUV420_16u8u_C3P3R", 2 << 5 | 19, 4, 2);
  EXPECT_EQ(bgr.plane[1], byteRows({{190, 190}}, 2));
  for (const char* name : {"RGB565ToYUV420_16u8u_C3P3R", "RGB565ToYUV422_16u8u_C3P3R"}) {
    EXPECT_EQ(filled(name, 27 << 11 | 2 << 5, 16, 2).plane[1].byteAt(0), 219) << name;
  }
}

// Red and cyan of BGR: V is 281 and -26 before it becomes a byte.
TEST(OracleVectorEncode, VStopsAtBothEnds) {
  expectFirst(filled("BGR565ToYUV420_16u8u_C3P3R", 0xF800, 4, 2), 74, 92, 255);
  expectFirst(filled("BGR565ToYUV420_16u8u_C3P3R", 0x07FF, 4, 2), 176, 163, 0);
}

// The word that is red to BGR is blue to RGB.
TEST(OracleVectorEncode, RgbHasRedInTheLowBits) {
  for (const char* name : {"RGB565ToYUV420_16u8u_C3P3R", "RGB565ToYUV422_16u8u_C3P3R"}) {
    expectFirst(filled(name, 0xF800, 16, 2), 28, 236, 103);
    expectFirst(filled(name, 0x001F, 16, 2), 74, 91, 255);
  }
}

// ---- Pictures without a pattern, against the forms ---------------------------------------------

// The offset of a source row. Pairs lie twice the pitch apart. The lower row loses the low bit in
// the encoders of BGR that take rows in pairs.
int rowOffset(std::string_view name, int srcStep, int row) {
  const bool even = holds(name, "420") && name.starts_with("BGR");
  return row / 2 * (2 * srcStep) + row % 2 * (even ? srcStep / 2 * 2 : srcStep);
}

struct LaneSums {
  int r = 0, g = 0, b = 0, count = 0;
  std::int64_t levels = 0, weights = 0;
  void add(Rgb c) {
    r += c.r;
    g += c.g;
    b += c.b;
    levels += laneBgrLevel(c);
    weights += laneRgbWeight(c);
    ++count;
  }
};

int laneLumaFor(std::string_view name, Rgb c) {
  if (!holds(name, "YUV")) return laneLuma(c);
  return name.starts_with("BGR") ? laneBgrLuma(laneBgrLevel(c)) : laneRgbLuma(laneRgbWeight(c));
}

std::pair<int, int> laneChromaFor(std::string_view name, const LaneSums& s) {
  if (!holds(name, "YUV")) {
    return {laneCb(s.r, s.g, s.b, s.count), laneCr(s.r, s.g, s.b, s.count)};
  }
  if (name.starts_with("BGR")) return {laneBgrU(s.b, s.levels), laneBgrV(s.r, s.levels)};
  return {laneRgbU(s.b, s.weights, s.count), laneRgbV(s.r, s.weights, s.count)};
}

// Holds the columns of the blocks to the forms, and all others to what mx makes of the picture.
void expectNoise(const Encoder& encoder, AtWidth at, int height, int srcStep) {
  const std::string_view name = encoder.name;
  const Layout layout(name);
  const Bytes source = noise(static_cast<std::size_t>(height * srcStep + 2 * at.width), 12);
  EncodeScene wanted(source);
  for (std::size_t k = 0; k < 3; ++k) wanted.step[k] = kSteps[k];
  wanted.run(name, srcStep, at.width, height);
  const auto pixel = [&](int x, int y) {
    return unpackFor(name, wanted.word(rowOffset(name, srcStep, y) + 2 * x));
  };
  const int rows = layout.rowPairs ? height / 2 * 2 : height;
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < at.columns; ++x) {
      wanted.plane[0].putByte(y * kSteps[0] + x, laneLumaFor(name, pixel(x, y)));
    }
    for (int x = at.width / 4 * 4; layout.lumaBeyond && x < at.width; ++x) {
      wanted.plane[0].putByte(y * kSteps[0] + x, encodeLuma(pixel(x, y)));
    }
  }
  for (int j = 0; j < layout.chromaHeight(height); ++j) {
    for (int i = 0; i < at.columns / layout.groupWidth; ++i) {
      LaneSums sums;
      for (int k = 0; k < layout.groupWidth; ++k) {
        const int x = i * layout.groupWidth + k;
        sums.add(pixel(x, layout.rowPairs ? 2 * j : j));
        if (layout.rowPairs) sums.add(pixel(x, 2 * j + 1));
      }
      const auto [first, second] = laneChromaFor(name, sums);
      wanted.plane[1].putByte(j * kSteps[1] + i, layout.crFirst ? second : first);
      wanted.plane[2].putByte(j * kSteps[2] + i, layout.crFirst ? first : second);
    }
  }
  for (Variant variant : kVectorVariants) {
    EncodeScene scene(source);
    for (std::size_t k = 0; k < 3; ++k) scene.step[k] = kSteps[k];
    scene.run(name, srcStep, at.width, height, variant);
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_EQ(scene.plane[k], wanted.plane[k]) << name << " " << at.width << " by " << height;
    }
  }
}

TEST(OracleVectorEncode, PicturesWithoutAPattern) {
  for (const Encoder& encoder : kEncoders) {
    if (holds(encoder.name, "C3C2")) continue;
    for (AtWidth at : encoder.columns) {
      for (int height = leastHeight(encoder.name); height <= 5; ++height) {
        expectNoise(encoder, at, height, 2 * at.width + 4);
        expectNoise(encoder, at, height, 2 * at.width + 7);
      }
    }
  }
}

// The interleaved bytes are those of the planes.
TEST(OracleVectorEncode, InterleavedPicturesWithoutAPattern) {
  for (const std::string front : {"BGR555ToYCbCr422_16u8u_", "BGR565ToYCbCr422_16u8u_"}) {
    for (auto [width, columns] : k422) {
      const Bytes source = noise(static_cast<std::size_t>(3 * (2 * width + 3)), 13);
      EncodeScene planar(source), mixed(source);
      for (std::size_t k = 0; k < 3; ++k) planar.step[k] = kSteps[k];
      mixed.step[0] = 2 * kSteps[0];
      planar.run(front + "C3P3R", 2 * width + 3, width, 3, Variant::u8);
      mixed.run(front + "C3C2R", 2 * width + 3, width, 3, Variant::u8);
      Canvas wanted;
      for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < width; ++x) {
          const int at = y * 2 * kSteps[0] + 2 * x;
          wanted.putByte(at, planar.plane[0].byteAt(y * kSteps[0] + x));
          const std::size_t plane = x % 2 == 0 ? 1 : 2;
          const bool odd = x == width - 1 && width % 2 == 1;
          wanted.putByte(at + 1, odd ? encodeCbSingle(unpackFor(
                                           front, mixed.word(y * (2 * width + 3) + 2 * x)))
                                     : planar.plane[plane].byteAt(y * kSteps[plane] + x / 2));
        }
      }
      EXPECT_EQ(mixed.plane[0], wanted) << front << width;
      EXPECT_EQ(mixed.plane[1], Canvas());
    }
  }
}

// Below the smallest block, and at the widths that the walk of the blocks leaves out.
TEST(OracleVectorEncode, WidthsWithoutBlocksGiveTheBytesOfTheReference) {
  for (const Encoder& encoder : kEncoders) {
    int found = 0;
    for (auto [width, columns] : encoder.columns) {
      if (columns != 0) continue;
      ++found;
      const Bytes source = noise(static_cast<std::size_t>(6 * width), 14);
      EncodeScene reference(source), scene(source);
      const int status = reference.run(encoder.name, 2 * width, width, 3);
      for (Variant variant : kVectorVariants) {
        EXPECT_EQ(scene.run(encoder.name, 2 * width, width, 3, variant), status);
        for (int k = 0; k < 3; ++k) EXPECT_EQ(scene.plane[k], reference.plane[k]) << encoder.name;
      }
    }
    EXPECT_EQ(found == 0, &encoder.columns == &kFours) << encoder.name;
  }
}

// An odd negative pitch grows towards the lower row, which lies 34 bytes before the upper one.
TEST(OracleVectorEncode, NegativePitches) {
  Words words(64, kCbColour.word565);
  words[0] = 0x001F;
  const Bytes source = bytesOf(words);
  EncodeScene scene{Bytes()};
  encode("BGR565ToYCbCr420_16u8u_C3P3R", Variant::e9,
         {source.data() + 34,
          -33,
          {scene.plane[0].origin(), scene.plane[1].origin(), scene.plane[2].origin()},
          {-20, -5, -6},
          16,
          2});
  EXPECT_EQ(scene.plane[0].byteAt(0), 133);
  EXPECT_EQ(scene.plane[0].byteAt(-20), 40);
  EXPECT_EQ(scene.plane[0].byteAt(-19), 133);
  EXPECT_EQ(scene.plane[1].byteAt(1), 100);
}

}  // namespace
}  // namespace oracle
