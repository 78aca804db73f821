// SPDX-License-Identifier: MIT
// Holds the vector decoding of 4:2:0 and YUV 4:2:0, which goes by row pairs, to known pixels: what
// lies beyond the region, and which store comes last.
#include <gtest/gtest.h>

#include <algorithm>
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

// Planes of exactly the bytes that a region needs, and a few more after the last row of luma and
// of chroma.
Planes planesWithRoom(int width, int height, int moreLuma, int moreChroma) {
  Planes planes(width, height, (width + 1) / 2, (height + 1) / 2);
  for (int k = 0; k < 3; ++k) {
    const Bytes more = noise(static_cast<std::size_t>(k == 0 ? moreLuma : moreChroma),
                             static_cast<std::uint32_t>(40 + k));
    planes.plane[k].insert(planes.plane[k].end(), more.begin(), more.end());
  }
  return planes;
}

// The word of the pixel whose luma is at a place and whose chroma is at half of it, inside the
// region or beyond.
int wordAt(const DecodeName& name, Variant variant, bool inBlock, const Planes& planes, int row,
           int column) {
  return decodePixel(name, variant, inBlock, planes.at(0, row, column),
                     planes.at(1, row / 2, column / 2), planes.at(2, row / 2, column / 2), row,
                     column);
}

std::vector<std::string_view> pairNames(std::string_view front, bool dither) {
  std::vector<std::string_view> names;
  for (std::string_view name : namesFrom(front)) {
    if (parseDecodeName(name)->dither == dither) names.push_back(name);
  }
  return names;
}

constexpr int kStep = 60;

// ---- Two pixels beyond an odd corner -----------------------------------------------------------

// In rows that do not overlap. Beyond the region the samples are those that follow in memory.
Canvas expectedDither(std::string_view name, const Planes& planes, int width, int height) {
  const DecodeName parsed = parseDecodeName(name).value();
  const auto word = [&](int row, int column) {
    return wordAt(parsed, Variant::mx, true, planes, row, column);
  };
  Canvas canvas = wordCanvas(width, height, kStep, word);
  if (width % 2 == 1 && height % 2 == 1) {
    for (int column : {width, width + 1}) {
      canvas.putWord((height - 1) * kStep + 2 * column, word(height - 1, column));
    }
  }
  return canvas;
}

TEST(OracleVectorPairs, DitherWritesTwoPixelsBeyondAnOddCorner) {
  for (const char* front : {"YCbCr420To", "YUV420To"}) {
    for (std::string_view name : pairNames(front, true)) {
      for (int width = 1; width <= 17; ++width) {
        for (int height = 1; height <= 6; ++height) {
          const bool overrun = width % 2 == 1 && height % 2 == 1;
          const Planes planes = planesWithRoom(width, height, overrun ? 2 : 0, overrun ? 1 : 0);
          for (Variant variant : kVectorVariants) {
            Canvas canvas;
            EXPECT_EQ(decode(name, variant, planes.call(canvas, kStep, width, height)), 0);
            EXPECT_EQ(canvas, expectedDither(name, planes, width, height))
                << name << " " << width << " by " << height;
          }
        }
      }
    }
  }
}

TEST(OracleVectorPairs, DitherOfOnePixelWritesThree) {
  const Bytes luma = {100, 150, 200}, u = {90, 140}, v = {60, 170};
  for (Variant variant : kVectorVariants) {
    Canvas canvas, wanted;
    decode("YCbCr420ToBGR565Dither_8u16u_P3C3R", variant,
           {{luma.data(), u.data(), v.data()}, {1, 1, 1}, canvas.origin(), 2, 1, 1});
    wanted.putWord(0, packDither(decodeStaged(100, 90, 60), 565, true, 0, 0));
    wanted.putWord(2, packDither(decodeStaged(150, 90, 60), 565, true, 0, 1));
    wanted.putWord(4, packDither(decodeStaged(200, 140, 170), 565, true, 0, 2));
    EXPECT_EQ(canvas, wanted);
  }
}

TEST(OracleVectorPairs, ThePlainConversionsOf420StayInTheRegion) {
  for (std::string_view name : pairNames("YCbCr420To", false)) {
    const DecodeName parsed = parseDecodeName(name).value();
    for (int width = 1; width <= 26; ++width) {
      for (int height = 1; height <= 5; ++height) {
        const Planes planes = planesWithRoom(width, height, 0, 0);
        const Canvas wanted = wordCanvas(width, height, kStep, [&](int row, int column) {
          return wordAt(parsed, Variant::mx, false, planes, row, column);
        });
        for (Variant variant : kVectorVariants) {
          Canvas canvas;
          decode(name, variant, planes.call(canvas, kStep, width, height));
          EXPECT_EQ(canvas, wanted) << name << " " << width << " by " << height;
        }
      }
    }
  }
}

// A block at column 4 or 12 takes the matrix from its first column, as a block at column 0 does.
TEST(OracleVectorPairs, EveryBlockTakesTheSameThresholds) {
  for (const char* name :
       {"YCbCr420ToBGR444Dither_8u16u_P3C3R", "YUV420ToBGR444Dither_8u16u_P3C3R"}) {
    for (int width : {4, 12, 14, 20}) {
      const Canvas canvas =
          decodedFrom(Source::uniform(102, 128, 128), name, Variant::m7, kStep, width, 4);
      for (int row = 0; row < 4; ++row) {
        for (int column = 4; column < width; ++column) {
          EXPECT_EQ(canvas.wordAt(row * kStep + 2 * column),
                    canvas.wordAt(row * kStep + 2 * (column % 4)));
        }
      }
    }
  }
}

TEST(OracleVectorPairs, WideLanesOf420EqualTheOthers) {
  const Source source = Source::noisy();
  for (std::string_view name : pairNames("YCbCr420To", false)) {
    for (int width : {7, 8, 9, 12, 15, 16, 23, 24, 31}) {
      EXPECT_EQ(decodedFrom(source, name, Variant::l9, 80, width, 5),
                decodedFrom(source, name, Variant::e9, 80, width, 5));
    }
  }
}

// ---- Plain YUV ---------------------------------------------------------------------------------

// These samples give three words: by the chain, in the blocks of the reference and in its odd last
// row and column.
TEST(OracleVectorPairs, PlainYuvIsTheChainInItsBlocksAndThePlainFormElsewhere) {
  const Source source = Source::uniform(0, 5, 184);
  for (auto [name, chain, rounded, plain] :
       {std::tuple{"YUV420ToBGR555_8u16u_P3C3R", 0x1C40, 0x2020, 0x1C20},
        {"YUV420ToBGR565_8u16u_P3C3R", 0x3880, 0x4060, 0x3860}}) {
    for (auto [width, height] : {std::pair{3, 3}, {7, 2}, {6, 5}, {9, 7}, {17, 3}}) {
      const auto words = [&, width = width, height = height](int inside, int edge) {
        return wordCanvas(width, height, kStep, [=](int row, int column) {
          return row < height / 2 * 2 && column < width / 2 * 2 ? inside : edge;
        });
      };
      EXPECT_EQ(decodedFrom(source, name, Variant::mx, kStep, width, height),
                words(rounded, plain));
      for (Variant variant : kVectorVariants) {
        EXPECT_EQ(decodedFrom(source, name, variant, kStep, width, height), words(chain, plain));
      }
    }
  }
}

// The widths with a block too many, and those around them without.
TEST(OracleVectorPairs, PlainYuvRunsABlockTooManyAtWidths4And5And12And13) {
  const std::vector<int> overrun = {4, 5, 12, 13, 20, 21};
  const Source source = Source::uniform(0, 5, 184);
  for (int width = 2; width <= 23; ++width) {
    const bool more = std::find(overrun.begin(), overrun.end(), width) != overrun.end();
    for (int height = 2; height <= 5; ++height) {
      Canvas wanted = wordCanvas(width, height, kStep, [&](int row, int column) {
        return row < height / 2 * 2 && column < width / 2 * 2 ? 0x1C40 : 0x1C20;
      });
      for (int row = 0; more && row < height / 2 * 2; ++row) {
        if (width % 2 == 0) wanted.putWord(row * kStep + 2 * width, 0x1C40);
        wanted.putWord(row * kStep + 2 * (width / 2 * 2 + 1), 0x1C40);
      }
      for (Variant variant : kVectorVariants) {
        EXPECT_EQ(decodedFrom(source, "YUV420ToBGR555_8u16u_P3C3R", variant, kStep, width, height),
                  wanted)
            << width << " by " << height;
      }
    }
  }
}

// The block too many decodes the samples that follow in memory, and no more of them.
TEST(OracleVectorPairs, PlainYuvBlockTooManyDecodesWhatFollowsInMemory) {
  for (std::string_view name : pairNames("YUV420To", false)) {
    const DecodeName parsed = parseDecodeName(name).value();
    for (int width : {4, 5, 12, 13}) {
      for (int height : {2, 3, 4}) {
        const bool even = width % 2 == 0, oddRow = height % 2 == 1;
        // An odd last row stands after the last pair, and is room enough.
        const Planes planes = planesWithRoom(width, height,
                                             oddRow ? 0
                                             : even ? 2
                                                    : 1,
                                             even && !oddRow ? 1 : 0);
        const int end = width / 2 * 2;
        Canvas wanted = wordCanvas(width, height, kStep, [&](int row, int column) {
          const bool inBlock = row < height / 2 * 2 && column < end;
          return wordAt(parsed, Variant::m7, inBlock, planes, row, column);
        });
        for (int row = 0; row < height / 2 * 2; ++row) {
          for (int column = width; column < end + 2; ++column) {
            wanted.putWord(row * kStep + 2 * column,
                           wordAt(parsed, Variant::m7, true, planes, row, column));
          }
        }
        for (Variant variant : kVectorVariants) {
          Canvas canvas;
          decode(name, variant, planes.call(canvas, kStep, width, height));
          EXPECT_EQ(canvas, wanted) << name << " " << width << " by " << height;
        }
      }
    }
  }
}

TEST(OracleVectorPairs, PlainYuvOfWidth1OrHeight1WritesAndReadsNothing) {
  const std::uint8_t* none = nullptr;
  for (std::string_view name : pairNames("YUV420To", false)) {
    for (Variant variant : kVectorVariants) {
      for (auto [width, height] : {std::pair{1, 5}, {5, 1}, {4, 1}, {1, 1}}) {
        Canvas canvas;
        EXPECT_EQ(decode(name, variant,
                         {{none, none, none}, {1, 1, 1}, canvas.origin(), 2, width, height}),
                  0);
        EXPECT_EQ(canvas, Canvas());
      }
    }
  }
}

// ---- Order of the stores -----------------------------------------------------------------------

// Columns of a row pair that are stored as one, upper row first.
struct Stores {
  int first, size;
  bool inBlock;
};

// Puts the stores of all row pairs, and then of an odd last row, over one another.
Canvas inOrder(const DecodeName& name, Variant variant, const Source& source, int dstStep,
               int height, const std::vector<Stores>& pair, const std::vector<Stores>& oddRow) {
  Canvas canvas;
  for (int top = 0; top < height; top += 2) {
    const bool whole = top + 1 < height;
    for (const Stores& stores : whole ? pair : oddRow) {
      for (int row = top; row < top + (whole ? 2 : 1); ++row) {
        for (int x = stores.first; x < stores.first + stores.size; ++x) {
          canvas.putWord(
              row * dstStep + 2 * x,
              decodePixel(name, variant, stores.inBlock, source.at(0, row, x),
                          source.at(1, row / 2, x / 2), source.at(2, row / 2, x / 2), row, x));
        }
      }
    }
  }
  return canvas;
}

struct Walk {
  const char* name;
  Variant variant;
  int width;
  std::vector<Stores> pair;
  std::vector<Stores> oddRow;
};

const std::vector<Walk>& walks() {
  static const std::vector<Walk> all = {
      {"YCbCr420ToBGR565_8u16u_P3C3R",
       Variant::e9,
       31,
       {{0, 8, true}, {8, 8, true}, {16, 8, true}, {24, 4, true}, {28, 2, false}, {30, 1, false}},
       {{0, 31, false}}},
      {"YCbCr420ToRGB565_8u16u_P3C3R",
       Variant::l9,
       14,
       {{0, 8, true}, {8, 4, true}, {12, 2, false}},
       {{0, 14, false}}},
      {"YCbCr420ToBGR565_8u16u_P3C3R",
       Variant::l9,
       31,
       {{0, 16, true},
        {16, 8, true},
        {24, 2, false},
        {26, 2, false},
        {28, 2, false},
        {30, 1, false}},
       {{0, 31, false}}},
      {"YCbCr420ToBGR444_8u16u_P3C3R",
       Variant::l9,
       7,
       {{0, 2, false}, {2, 2, false}, {4, 2, false}, {6, 1, false}},
       {{0, 7, false}}},
      {"YCbCr420ToBGR555Dither_8u16u_P3C3R",
       Variant::l9,
       15,
       {{0, 8, true}, {8, 4, true}, {12, 2, false}, {14, 1, false}},
       {{0, 17, false}}},
      {"YUV420ToBGR565Dither_8u16u_P3C3R",
       Variant::u8,
       15,
       {{0, 8, true}, {8, 4, true}, {12, 2, true}, {14, 1, false}},
       {{0, 17, false}}},
      {"YUV420ToBGR565_8u16u_P3C3R",
       Variant::n8,
       15,
       {{0, 8, true}, {8, 4, true}, {12, 2, true}, {14, 1, false}},
       {{0, 15, false}}},
      {"YUV420ToBGR565_8u16u_P3C3R",
       Variant::y8,
       13,
       {{0, 8, true}, {8, 4, true}, {12, 2, true}, {12, 1, false}},
       {{0, 13, false}}},
      {"YUV420ToRGB444_8u16u_P3C3R",
       Variant::l9,
       12,
       {{0, 8, true}, {8, 4, true}, {12, 2, true}},
       {{0, 12, false}}},
      {"YUV420ToBGR555_8u16u_P3C3R",
       Variant::m7,
       5,
       {{0, 4, true}, {4, 2, true}, {4, 1, false}},
       {{0, 5, false}}},
      {"YUV420ToBGR555_8u16u_P3C3R",
       Variant::m7,
       10,
       {{0, 8, true}, {8, 2, true}},
       {{0, 10, false}}},
  };
  return all;
}

TEST(OracleVectorPairs, OverlappingRowsAreDeterminedByTheOrderOfTheBlocks) {
  const Source source = Source::noisy();
  for (const Walk& w : walks()) {
    const DecodeName name = parseDecodeName(w.name).value();
    for (int height : {2, 3, 4, 7}) {
      for (int pixels : {0, 1, 3, 8, 12, w.width - 1, w.width, w.width + 1, -1, -5, -w.width}) {
        EXPECT_EQ(decodedFrom(source, w.name, w.variant, 2 * pixels, w.width, height),
                  inOrder(name, w.variant, source, 2 * pixels, height, w.pair, w.oddRow))
            << w.name << " " << w.width << " by " << height << ", " << pixels << " pixels apart";
      }
    }
  }
}

// With a pitch of one pixel the lower row of a block of eight covers the upper but for its first.
TEST(OracleVectorPairs, LowerRowOfABlockIsStoredBehindAllOfItsUpperRow) {
  Bytes luma;
  for (int i = 0; i < 16; ++i) luma.push_back(static_cast<std::uint8_t>(8 * i + 100));
  const Bytes chroma(4, 128);
  for (Variant variant : kVectorVariants) {
    Canvas canvas, wanted;
    decode("YUV420ToBGR444_8u16u_P3C3R", variant,
           {{luma.data(), chroma.data(), chroma.data()}, {8, 4, 4}, canvas.origin(), 2, 8, 2});
    wanted.putWord(0, 0x0666);
    for (int x = 0; x < 8; ++x) {
      const int y = luma[static_cast<std::size_t>(8 + x)];
      wanted.putWord(2 * x + 2, packPlain({y, y, y}, 444, true));
    }
    EXPECT_EQ(canvas, wanted);
  }
}

// In tight rows a pair's block too many reaches into the row below it, which is stored later only
// where it belongs to the next pair.
TEST(OracleVectorPairs, BlockTooManyOfTightRowsStaysInTheLowerRowOfItsPair) {
  const Bytes luma = {16,  32,  48,  64,  80,  96,  112, 128, 144,
                      160, 176, 192, 208, 224, 240, 255, 1,   2};
  const Bytes chroma(5, 128);
  for (Variant variant : kVectorVariants) {
    Canvas canvas, wanted;
    decode("YUV420ToBGR444_8u16u_P3C3R", variant,
           {{luma.data(), chroma.data(), chroma.data()}, {4, 2, 2}, canvas.origin(), 8, 4, 4});
    // The upper rows run into columns 0 and 1 of the lower with the very samples of those; the last
    // row runs beyond the image.
    const int words[] = {0x111, 0x222, 0x333, 0x444, 0x555, 0x666, 0x777, 0x888, 0x999,
                         0xAAA, 0xBBB, 0xCCC, 0xDDD, 0xEEE, 0xFFF, 0xFFF, 0x000, 0x000};
    for (int i = 0; i < 18; ++i) wanted.putWord(2 * i, words[i]);
    EXPECT_EQ(canvas, wanted);
  }
}

// Here the rows of the source lie apart, and so the block too many shows in the lower row.
TEST(OracleVectorPairs, BlockTooManyOfAnUpperRowCoversTheLowerRowsFirstColumns) {
  const Bytes luma = {16, 32, 48, 64, 144, 160, 0, 0, 80, 96, 112, 128, 176, 192};
  const Bytes chroma(3, 128);
  for (Variant variant : kVectorVariants) {
    Canvas canvas, wanted;
    decode("YUV420ToBGR444_8u16u_P3C3R", variant,
           {{luma.data(), chroma.data(), chroma.data()}, {8, 3, 3}, canvas.origin(), 8, 4, 2});
    const int words[] = {0x111, 0x222, 0x333, 0x444, 0x999, 0xAAA, 0x777, 0x888, 0xBBB, 0xCCC};
    for (int i = 0; i < 10; ++i) wanted.putWord(2 * i, words[i]);
    EXPECT_EQ(canvas, wanted);
  }
}

// The scalar store of the odd last column comes after the block too many.
TEST(OracleVectorPairs, OddLastColumnIsStoredOverTheBlockTooMany) {
  const Canvas canvas = decodedFrom(Source::uniform(0, 5, 184), "YUV420ToBGR555_8u16u_P3C3R",
                                    Variant::m7, kStep, 5, 2);
  for (int row = 0; row < 2; ++row) {
    EXPECT_EQ(canvas.wordAt(row * kStep + 8), 0x1C20);
    EXPECT_EQ(canvas.wordAt(row * kStep + 10), 0x1C40);
  }
}

}  // namespace
}  // namespace oracle
