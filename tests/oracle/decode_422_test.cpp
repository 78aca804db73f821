// SPDX-License-Identifier: MIT
// Holds the decoding of 4:2:2 to known pixels.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"

namespace oracle {
namespace {

std::vector<DecodeName> namesOf(DecodeLayout layout) {
  std::vector<DecodeName> names;
  for (std::string_view name : namesFrom("YCbCr422To")) {
    const DecodeName parsed = parseDecodeName(name).value();
    if (parsed.layout == layout) names.push_back(parsed);
  }
  return names;
}

std::string nameOf(const DecodeName& n) {
  return std::string("YCbCr422To") + (n.bgr ? "BGR" : "RGB") + std::to_string(n.depth) +
         (n.dither ? "Dither" : "") + "_8u16u_" +
         (n.layout == DecodeLayout::P3C3 ? "P3C3R" : "C2C3R");
}

// An interleaved image of exactly the bytes that are read.
struct Interleaved {
  static constexpr int kGap = 3;
  Bytes bytes;
  int step;

  Interleaved(int width, int height)
      : bytes(noise(static_cast<std::size_t>((height - 1) * (2 * width + kGap) + 2 * width), 9)),
        step(2 * width + kGap) {}

  int at(int row, int offset) const { return bytes[static_cast<std::size_t>(row * step + offset)]; }
};

Canvas decoded(const DecodeName& name, const Interleaved& image, int dstStep, int width, int height,
               Variant variant = Variant::mx) {
  Canvas canvas;
  EXPECT_EQ(decode(nameOf(name), variant,
                   {{image.bytes.data(), nullptr, nullptr},
                    {image.step, -1, -1},
                    canvas.origin(),
                    dstStep,
                    width,
                    height}),
            0);
  return canvas;
}

// The colour of a pixel of an interleaved row, told by cases.
Rgb interleavedColour(const DecodeName& name, const Interleaved& image, int width, int row, int x) {
  const int y = image.at(row, 2 * x);
  if (x == width - 1 && width % 2 == 1) {
    const int own = image.at(row, 2 * x + 1);
    if (name.dither) return decodeStaged(y, own, own);
    return decodeFolded(y, own, image.at(row, 2 * x - 1));
  }
  const int cb = image.at(row, x / 2 * 4 + 1), cr = image.at(row, x / 2 * 4 + 3);
  return name.dither ? decodeStaged(y, cb, cr) : decodeFolded(y, cb, cr);
}

Canvas expectedInterleaved(const DecodeName& name, const Interleaved& image, int step, int width,
                           int height) {
  return wordCanvas(width, height, step, [&](int row, int column) {
    return packedBy(name, interleavedColour(name, image, width, row, column), row, column);
  });
}

TEST(OracleDecode422, TwelveNamesOfEachLayout) {
  EXPECT_EQ(namesOf(DecodeLayout::C2C3).size(), 12u);
  EXPECT_EQ(namesOf(DecodeLayout::P3C3).size(), 12u);
}

TEST(OracleDecode422, Width2IsASinglePair) {
  const Bytes row = {145, 54, 81, 34};
  for (const DecodeName& name : namesOf(DecodeLayout::C2C3)) {
    Canvas canvas, wanted;
    decode(nameOf(name), Variant::mx,
           {{row.data(), nullptr, nullptr}, {4, 0, 0}, canvas.origin(), 4, 2, 1});
    for (int x = 0; x < 2; ++x) {
      const int y = x == 0 ? 145 : 81;
      const Rgb c = name.dither ? decodeStaged(y, 54, 34) : decodeFolded(y, 54, 34);
      wanted.putWord(2 * x, packedBy(name, c, 0, x));
    }
    EXPECT_EQ(canvas, wanted) << nameOf(name);
  }
}

// The last pixel of six bytes, decoded to the depth of 565.
int lastOfThree(bool dither, const Bytes& row) {
  Canvas canvas;
  decode(dither ? "YCbCr422ToBGR565Dither_8u16u_C2C3R" : "YCbCr422ToBGR565_8u16u_C2C3R",
         Variant::mx, {{row.data(), nullptr, nullptr}, {6, 0, 0}, canvas.origin(), 6, 3, 1});
  return canvas.wordAt(4);
}

TEST(OracleDecode422, Width3PlainTakesTheCrOfThePairBefore) {
  EXPECT_EQ(lastOfThree(false, {1, 2, 3, 200, 100, 90}),
            packPlain(decodeFolded(100, 90, 200), 565, true));
  EXPECT_NE(lastOfThree(false, {1, 2, 3, 200, 100, 90}),
            lastOfThree(false, {1, 2, 3, 60, 100, 90}));
  EXPECT_EQ(lastOfThree(false, {1, 2, 3, 200, 100, 90}),
            lastOfThree(false, {9, 8, 7, 200, 100, 90}));
}

TEST(OracleDecode422, Width3DitheringTakesItsOwnByteTwice) {
  EXPECT_EQ(lastOfThree(true, {1, 2, 3, 200, 100, 90}),
            packDither(decodeStaged(100, 90, 90), 565, true, 0, 2));
  for (int third = 0; third < 256; ++third) {
    const auto byte = static_cast<std::uint8_t>(third);
    EXPECT_EQ(lastOfThree(true, {1, 2, 3, byte, 100, 90}),
              lastOfThree(true, {1, 2, 3, 200, 100, 90}));
  }
}

TEST(OracleDecode422, Width1DitheringReadsTwoBytesAndWritesAWordPerRow) {
  for (const DecodeName& name : namesOf(DecodeLayout::C2C3)) {
    if (!name.dither) continue;
    const Interleaved image(1, 5);
    const Canvas wanted = wordCanvas(1, 5, 8, [&](int row, int) {
      const int own = image.at(row, 1);
      return packDither(decodeStaged(image.at(row, 0), own, own), name.depth, name.bgr, row, 0);
    });
    EXPECT_EQ(decoded(name, image, 8, 1, 5), wanted) << nameOf(name);
  }
}

Canvas expectedWidth1(const Interleaved& image, int halfPitch, int height) {
  Canvas canvas;
  for (int row = 0; row < height; ++row) {
    const Rgb c = decodeFolded(image.at(row, 0), image.at(row, 1), image.at(row, 1));
    canvas.putByte(row * halfPitch, c.r);
    canvas.putByte(row * halfPitch + 1, c.g);
    canvas.putByte(row * halfPitch + 2, c.b);
  }
  return canvas;
}

// Each of the six exports gives the same bytes. A small pitch lets later rows overwrite earlier
// ones.
TEST(OracleDecode422, Width1PlainWritesThreeBytesHalfAPitchApart) {
  for (const DecodeName& name : namesOf(DecodeLayout::C2C3)) {
    if (name.dither) continue;
    const Interleaved image(1, 4);
    for (auto [dstStep, half] : {std::pair{8, 4}, {9, 4}, {-9, -5}, {-8, -4}, {2, 1}, {5, 2}}) {
      EXPECT_EQ(decoded(name, image, dstStep, 1, 4), expectedWidth1(image, half, 4));
    }
  }
}

TEST(OracleDecode422, Width1PlainHasTheBytesRedGreenBlue) {
  const std::uint8_t row[2] = {100, 90};
  // Chroma 90 is both Cb and Cr: 100 * 76284 is 7628400, and 78971 is 25690 + 53281.
  const int r = (7628400 + 90 * 104595 - 14608761) >> 16;
  const int g = (7628400 - 90 * 78971 + 8887730) >> 16;
  const int b = (7628400 + 90 * 132186 - 18140365) >> 16;
  Canvas canvas, wanted;
  decode("YCbCr422ToBGR444_8u16u_C2C3R", Variant::mx,
         {{row, nullptr, nullptr}, {2, 0, 0}, canvas.origin(), 8, 1, 1});
  for (int k = 0; k < 3; ++k) wanted.putByte(k, k == 0 ? r : k == 1 ? g : b);
  EXPECT_EQ(canvas, wanted);
  EXPECT_EQ((Rgb{r, g, b}), (Rgb{37, 143, 21}));
}

// The byte before a row and the byte after it lie outside of the image.
TEST(OracleDecode422, EverySizeOfInterleavedImages) {
  for (const DecodeName& name : namesOf(DecodeLayout::C2C3)) {
    for (int width = 1; width <= 9; ++width) {
      if (width == 1 && !name.dither) continue;
      for (int height = 1; height <= 5; ++height) {
        const Interleaved image(width, height);
        EXPECT_EQ(decoded(name, image, 24, width, height),
                  expectedInterleaved(name, image, 24, width, height))
            << nameOf(name) << " " << width << " by " << height;
      }
    }
  }
}

Canvas expectedPlanar(const DecodeName& name, const Planes& planes, int step, int width,
                      int height) {
  return wordCanvas(width, height, step, [&](int row, int column) {
    const Rgb c = decodeStaged(planes.at(0, row, column), planes.at(1, row, column / 2),
                               planes.at(2, row, column / 2));
    return packedBy(name, c, row, column);
  });
}

TEST(OracleDecode422, EverySizeOfPlanarImages) {
  for (const DecodeName& name : namesOf(DecodeLayout::P3C3)) {
    for (int width = 1; width <= 9; ++width) {
      for (int height = 1; height <= 5; ++height) {
        const Planes planes(width, height, (width + 1) / 2, height);
        Canvas canvas;
        decode(nameOf(name), Variant::mx, planes.call(canvas, 24, width, height));
        EXPECT_EQ(canvas, expectedPlanar(name, planes, 24, width, height))
            << nameOf(name) << " " << width << " by " << height;
      }
    }
  }
}

TEST(OracleDecode422, Width1PlanarIsAPackedPixelPerRow) {
  const std::uint8_t luma[] = {145, 81}, cb[] = {54, 90}, cr[] = {34, 240};
  Canvas canvas, wanted;
  decode("YCbCr422ToBGR565_8u16u_P3C3R", Variant::mx,
         {{luma, cb, cr}, {1, 1, 1}, canvas.origin(), 8, 1, 2});
  wanted.putWord(0, 0x07E0);
  wanted.putWord(8, 0xF800);
  EXPECT_EQ(canvas, wanted);
}

TEST(OracleDecode422, PitchesOddNegativeAndZero) {
  for (auto [dstStep, step] : {std::pair{21, 20}, {-21, -22}, {-30, -30}, {0, 0}, {4, 4}}) {
    for (const DecodeName& name : namesOf(DecodeLayout::C2C3)) {
      const Interleaved image(7, 5);
      EXPECT_EQ(decoded(name, image, dstStep, 7, 5), expectedInterleaved(name, image, step, 7, 5));
    }
    for (const DecodeName& name : namesOf(DecodeLayout::P3C3)) {
      const Planes planes(7, 5, 4, 5);
      Canvas canvas;
      decode(nameOf(name), Variant::mx, planes.call(canvas, dstStep, 7, 5));
      EXPECT_EQ(canvas, expectedPlanar(name, planes, step, 7, 5));
    }
  }
}

TEST(OracleDecode422, EveryVariantDithersAsTheReference) {
  const Interleaved image(9, 3);
  for (const DecodeName& name : namesOf(DecodeLayout::C2C3)) {
    if (!name.dither) continue;
    for (int slot = 0; slot < 7; ++slot) {
      EXPECT_EQ(decoded(name, image, 20, 9, 3, static_cast<Variant>(slot)),
                expectedInterleaved(name, image, 20, 9, 3));
    }
  }
}

}  // namespace
}  // namespace oracle
