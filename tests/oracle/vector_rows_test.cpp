// SPDX-License-Identifier: MIT
// Holds the vector decoding of 4:4:4, 4:2:2 and 4:1:1, which goes row by row, to known pixels.
#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"
#include "tests/oracle/test_vector.h"

namespace oracle {
namespace {

// An interleaved image of equal samples, three bytes to a pixel or four to a pair, of exactly the
// bytes that a region needs.
Bytes equalPixels(int width, int height, Rgb s) {
  Bytes bytes;
  for (int i = 0; i < width * height; ++i) {
    for (int sample : {s.r, s.g, s.b}) bytes.push_back(static_cast<std::uint8_t>(sample));
  }
  return bytes;
}

Bytes equalPairs(int width, Rgb s) {
  Bytes bytes;
  for (int i = 0; i < width; ++i) {
    bytes.push_back(static_cast<std::uint8_t>(s.r));
    bytes.push_back(static_cast<std::uint8_t>(i % 2 == 0 ? s.g : s.b));
  }
  return bytes;
}

// A call of rows without a gap between them.
Canvas decodedBytes(std::string_view name, Variant variant, const Bytes& bytes, int step, int width,
                    int height) {
  Canvas canvas;
  EXPECT_EQ(decode(name, variant,
                   {{bytes.data(), nullptr, nullptr},
                    {step, -1, -1},
                    canvas.origin(),
                    2 * width,
                    width,
                    height}),
            0);
  return canvas;
}

// ---- 4:4:4 -------------------------------------------------------------------------------------

// These samples are 104 and 103 in green through the chain and through the wide form.
TEST(OracleVector444, InterleavedPlainWidth8IsAllChainAndWidth7AllScalar) {
  for (Variant variant : kVectorVariants) {
    for (int width : {1, 7, 8, 9, 15, 16, 17, 24, 31}) {
      const Bytes bytes = equalPixels(width, 2, {79, 112, 98});
      const int blocks = width / 8 * 8;
      EXPECT_EQ(decodedBytes("YCbCrToRGB555_8u16u_C3R", variant, bytes, 3 * width, width, 2),
                wordCanvas(width, 2, 2 * width,
                           [&](int, int column) { return column < blocks ? 0x15A3 : 0x1583; }));
    }
  }
}

TEST(OracleVector444, Width8Height1OfBgr565DecodesAllByTheChain) {
  const Bytes bytes = noise(24, 3);
  const DecodeName name = parseDecodeName("YCbCrToBGR565_8u16u_C3R").value();
  for (Variant variant : kVectorVariants) {
    for (int width : {8, 7}) {
      const Canvas wanted = wordCanvas(width, 1, 16, [&](int, int column) {
        const auto at = static_cast<std::size_t>(3 * column);
        const int y = bytes[at], cb = bytes[at + 1], cr = bytes[at + 2];
        return packedBy(name, width == 8 ? narrowChain(y, cb, cr) : decodeWide(y, cb, cr), 0, 0);
      });
      EXPECT_EQ(decodedBytes("YCbCrToBGR565_8u16u_C3R", variant, bytes, 24, width, 1), wanted);
    }
  }
}

TEST(OracleVector444, InterleavedDitherIsStagedInEveryColumn) {
  const Bytes bytes = noise(3 * 19, 4);
  const DecodeName name = parseDecodeName("YCbCrToBGR565Dither_8u16u_C3R").value();
  for (Variant variant : kVectorVariants) {
    const Canvas wanted = wordCanvas(19, 1, 38, [&](int row, int column) {
      const auto at = static_cast<std::size_t>(3 * column);
      const Rgb c = decodeStaged(bytes[at], bytes[at + 1], bytes[at + 2]);
      return packDither(c, name.depth, name.bgr, row, column);
    });
    EXPECT_EQ(decodedBytes("YCbCrToBGR565Dither_8u16u_C3R", variant, bytes, 57, 19, 1), wanted);
  }
}

// ---- Interleaved 4:2:2 -------------------------------------------------------------------------

// These samples give four words: by the chain, by the folded form of its tail, by the rounded chain
// and by the tail of the wide lanes.
constexpr Rgb kTelling{57, 116, 163};

struct Words422 {
  int chain, folded, rounded, tail;
};
constexpr Words422 k555 = {0x3062, 0x3042, 0x3462, 0x3463};
constexpr Words422 k565 = {0x60C2, 0x60A2, 0x68C2, 0x68C3};

// The last pixel of an odd width would take its own chroma byte and the one before it: the samples
// alternate, so that it has those of the others.
Canvas wordsBehind(int width, int inBlocks, int behind) {
  const int blocks = width / 8 * 8;
  return wordCanvas(width, 1, 2 * width,
                    [&](int, int column) { return column < blocks ? inBlocks : behind; });
}

TEST(OracleVector422, InterleavedPlainIsTheChainAndBehindItTheFoldedForm) {
  for (Variant variant : kVectorVariants) {
    if (variant == Variant::l9) continue;
    for (int width : {2, 3, 7, 8, 9, 15, 16, 17, 31, 32}) {
      const Bytes row = equalPairs(width, kTelling);
      for (auto [name, words] : {std::pair{"YCbCr422ToBGR555_8u16u_C2C3R", k555},
                                 {"YCbCr422ToBGR565_8u16u_C2C3R", k565}}) {
        EXPECT_EQ(decodedBytes(name, variant, row, 2 * width, width, 1),
                  wordsBehind(width, words.chain, words.folded));
      }
    }
  }
}

TEST(OracleVector422, InL9TwoNamesAreRoundedAndBehindTheBlocksTheirOwn) {
  for (int width : {2, 3, 7, 8, 9, 15, 16, 17, 24, 31, 32}) {
    const Bytes row = equalPairs(width, kTelling);
    for (auto [name, words] : {std::pair{"YCbCr422ToBGR555_8u16u_C2C3R", k555},
                               {"YCbCr422ToBGR565_8u16u_C2C3R", k565}}) {
      EXPECT_EQ(decodedBytes(name, Variant::l9, row, 2 * width, width, 1),
                wordsBehind(width, words.rounded, words.tail));
    }
  }
}

int swapped555(int word) {
  return (word & 0x03E0) | (word & 31) << 10 | word >> 10;
}

TEST(OracleVector422, InL9TheRgbTwinIsNotTheMirrorImage) {
  const Bytes row = equalPairs(9, kTelling);
  const Canvas bgr = decodedBytes("YCbCr422ToBGR555_8u16u_C2C3R", Variant::l9, row, 18, 9, 1);
  const Canvas rgb = decodedBytes("YCbCr422ToRGB555_8u16u_C2C3R", Variant::l9, row, 18, 9, 1);
  EXPECT_EQ(rgb.wordAt(0), swapped555(k555.chain));
  EXPECT_EQ(rgb.wordAt(16), swapped555(k555.folded));
  EXPECT_NE(bgr.wordAt(0), swapped555(rgb.wordAt(0)));
  EXPECT_NE(bgr.wordAt(16), swapped555(rgb.wordAt(16)));
  EXPECT_EQ(rgb, decodedBytes("YCbCr422ToRGB555_8u16u_C2C3R", Variant::e9, row, 18, 9, 1));
}

// The bytes before the last luma and after it are the chroma of an odd last pixel.
TEST(OracleVector422, InL9TheOddLastPixelTakesCbBehindAndCrAheadOfItsLuma) {
  for (int width : {3, 9, 17, 25}) {
    const Bytes row = noise(static_cast<std::size_t>(2 * width), 6);
    const auto last = row.end();
    const Rgb c = decodeWideLanesTail(last[-2], last[-1], last[-3]);
    for (auto [name, depth] :
         {std::pair{"YCbCr422ToBGR555_8u16u_C2C3R", 555}, {"YCbCr422ToBGR565_8u16u_C2C3R", 565}}) {
      const Canvas canvas = decodedBytes(name, Variant::l9, row, 2 * width, width, 1);
      EXPECT_EQ(canvas.wordAt(2 * width - 2), packPlain(c, depth, true));
      EXPECT_EQ(canvas.byteAt(2 * width), Canvas::kUntouched);
    }
  }
}

// The rows lie three bytes apart. The byte before the first is outside of the image.
TEST(OracleVector422, InL9Width1TakesTheByteAheadOfEachRowAndPacks) {
  const Bytes bytes = {200, 100, 90, 60, 120, 30, 210, 77, 10};
  for (auto [name, depth] :
       {std::pair{"YCbCr422ToBGR555_8u16u_C2C3R", 555}, {"YCbCr422ToBGR565_8u16u_C2C3R", 565}}) {
    Canvas canvas, wanted;
    EXPECT_EQ(decode(name, Variant::l9,
                     {{bytes.data() + 1, nullptr, nullptr}, {3, 0, 0}, canvas.origin(), 8, 1, 3}),
              0);
    wanted.putWord(0, packPlain(decodeWideLanesTail(100, 90, 200), depth, true));
    wanted.putWord(8, packPlain(decodeWideLanesTail(120, 30, 60), depth, true));
    wanted.putWord(16, packPlain(decodeWideLanesTail(77, 10, 210), depth, true));
    EXPECT_EQ(canvas, wanted);
  }
}

// All others store three bytes, and read none before the row.
TEST(OracleVector422, InterleavedPlainWidth1IsThreeBytesElsewhere) {
  const Bytes row = {100, 90};
  for (std::string_view name : namesFrom("YCbCr422To")) {
    const DecodeName parsed = parseDecodeName(name).value();
    if (parsed.layout != DecodeLayout::C2C3 || parsed.dither) continue;
    for (Variant variant : kVectorVariants) {
      if (variant == Variant::l9 && isOwnWayOfL9(name)) continue;
      Canvas wanted;
      for (int k = 0; k < 3; ++k) wanted.putByte(k, k == 0 ? 37 : k == 1 ? 143 : 21);
      EXPECT_EQ(decodedBytes(name, variant, row, 2, 1, 1), wanted) << name;
    }
  }
}

TEST(OracleVector422, InterleavedReadsNoByteBehindARow) {
  for (std::string_view name : namesFrom("YCbCr422To")) {
    if (!name.ends_with("_C2C3R")) continue;
    for (Variant variant : kVectorVariants) {
      for (int width = 2; width <= 34; ++width) {
        const Bytes row = noise(static_cast<std::size_t>(2 * width), 7);
        const Canvas canvas = decodedBytes(name, variant, row, 2 * width, width, 1);
        EXPECT_EQ(canvas.byteAt(-1), Canvas::kUntouched);
        EXPECT_EQ(canvas.byteAt(2 * width), Canvas::kUntouched);
      }
    }
  }
}

// ---- Planar 4:2:2 ------------------------------------------------------------------------------

TEST(OracleVector422, PlanarPlainWidth1WritesAndReadsNothingAndReportsSuccess) {
  const std::uint8_t* none = nullptr;
  for (std::string_view name : namesFrom("YCbCr422To")) {
    const DecodeName parsed = parseDecodeName(name).value();
    if (parsed.layout != DecodeLayout::P3C3 || parsed.dither) continue;
    for (Variant variant : kVectorVariants) {
      Canvas canvas;
      EXPECT_EQ(decode(name, variant, {{none, none, none}, {1, 1, 1}, canvas.origin(), 2, 1, 5}),
                0);
      EXPECT_EQ(canvas, Canvas()) << name;
    }
  }
}

TEST(OracleVector422, PlanarDitherWidth1DecodesAsUsual) {
  const Planes planes(1, 5, 1, 5);
  for (std::string_view name : namesFrom("YCbCr422To")) {
    const DecodeName parsed = parseDecodeName(name).value();
    if (parsed.layout != DecodeLayout::P3C3 || !parsed.dither) continue;
    for (Variant variant : kVectorVariants) {
      Canvas canvas;
      EXPECT_EQ(decode(name, variant, planes.call(canvas, 6, 1, 5)), 0);
      EXPECT_EQ(canvas, wordCanvas(1, 5, 6, [&](int row, int) {
                  const Rgb c = decodeStaged(planes.at(0, row, 0), planes.at(1, row, 0),
                                             planes.at(2, row, 0));
                  return packDither(c, parsed.depth, parsed.bgr, row, 0);
                }));
    }
  }
}

// ---- 4:1:1 -------------------------------------------------------------------------------------

// These samples differ by a step of green through the chain and through the rounded form. The
// planes end where the last whole group does.
TEST(OracleVector411, WholeGroupsAreTheChainAndLeftoversTheReference) {
  for (Variant variant : kVectorVariants) {
    for (int width : {4, 5, 6, 7, 8, 11, 31, 32, 33, 36, 39, 64, 67}) {
      const Bytes luma(static_cast<std::size_t>(width), 0);
      const Bytes cb(static_cast<std::size_t>(width / 4), 0);
      const Bytes cr(static_cast<std::size_t>(width / 4), 10);
      for (auto [name, chain, rounded] :
           {std::tuple{"YCbCr411ToBGR555_8u16u_P3C3R", 0x0200, 0x01E0},
            {"YCbCr411ToBGR565_8u16u_P3C3R", 0x0400, 0x03E0}}) {
        Canvas canvas;
        const DecodeCall call{
            {luma.data(), cb.data(), cr.data()}, {width, 1, 1}, canvas.origin(), 0, width, 1};
        EXPECT_EQ(decode(name, variant, call), width % 4 == 0 ? 0 : 35);
        Canvas wanted;
        for (int x = 0; x < width; ++x) wanted.putWord(2 * x, x < width / 4 * 4 ? chain : rounded);
        EXPECT_EQ(canvas, wanted) << name << " " << width;
      }
    }
  }
}

TEST(OracleVector411, LeftoversTakeTheLastWholeGroup) {
  const Bytes luma(11, 81);
  const Bytes cb = {128, 90}, cr = {128, 240};
  for (Variant variant : kVectorVariants) {
    Canvas canvas;
    EXPECT_EQ(decode("YCbCr411ToBGR565_8u16u_P3C3R", variant,
                     {{luma.data(), cb.data(), cr.data()}, {11, 2, 2}, canvas.origin(), 22, 11, 1}),
              35);
    for (int column = 8; column < 11; ++column) EXPECT_EQ(canvas.wordAt(2 * column), 0xF800);
  }
}

TEST(OracleVector411, OddPitchStaysOdd) {
  const Bytes luma(12, 235), chroma(3, 128);
  for (Variant variant : kVectorVariants) {
    Canvas canvas;
    decode("YCbCr411ToBGR565_8u16u_P3C3R", variant,
           {{luma.data(), chroma.data(), chroma.data()}, {4, 1, 1}, canvas.origin(), 21, 4, 3});
    EXPECT_EQ(canvas, wordCanvas(4, 3, 21, [](int, int) { return 0xFFFF; }));
  }
}

}  // namespace
}  // namespace oracle
