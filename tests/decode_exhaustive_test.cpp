// SPDX-License-Identifier: MIT
// All 16,777,216 triples of samples through every decoding conversion of every level: whole images,
// which blocks cover, and narrow ones, which are scalar tails or the smallest blocks.
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/oracle/oracle.h"
#include "tests/support/by_oracle.h"
#include "tests/support/cases.h"
#include "tests/support/stride.h"

namespace {

constexpr std::uint32_t tripleCount = 1u << 24;

Cases& cases = casesOf("pixels compared with the oracle");

// How luma and chroma of a source belong together.
struct Sharing {
  int columns, rows;  // pixels that share a chroma pair
  bool packed444, packed422;
};

Sharing sharingOf(const Conversion& c) {
  if (c.has("_C2C3R")) return {2, 1, false, true};
  if (c.has("8u16u_C3R")) return {1, 1, true, false};
  return {c.has("411To")                     ? 4
          : c.has("422To") || c.has("420To") ? 2
                                             : 1,
          c.has("420To") ? 2 : 1, false, false};
}

// An image of 2^24 pixels in which each triple stands once. Groups take chroma pairs in a scrambled
// order, so that neighbours differ in all samples and none keeps step with the columns. A shift of
// 0 to 31 moves each triple to another of 32 columns.
struct AllTriples {
  int width, height;
  Sharing sharing;
  std::vector<std::uint8_t> y, cb, cr;  // of pixels, of groups

  AllTriples(int imageWidth, const Sharing& s, int shift = 0)
      : width(imageWidth),
        height(static_cast<int>(tripleCount) / imageWidth),
        sharing(s),
        y(tripleCount),
        cb(tripleCount / static_cast<unsigned>(s.columns * s.rows)),
        cr(cb.size()) {
    const int groupsInRow = width / s.columns;
    const auto perGroup = static_cast<unsigned>(s.columns * s.rows);
    for (std::uint32_t g = 0; g < cb.size(); ++g) {
      const std::uint32_t order = g * 0x9E3779B1u & static_cast<std::uint32_t>(cb.size() - 1);
      const int row = static_cast<int>(g) / groupsInRow,
                column = (static_cast<int>(g) + shift / s.columns) % groupsInRow;
      const std::size_t place = group(row * s.rows, column * s.columns);
      cb[place] = static_cast<std::uint8_t>(order);
      cr[place] = static_cast<std::uint8_t>(order >> 8);
      for (unsigned i = 0; i < perGroup; ++i)
        at(row * s.rows + static_cast<int>(i) / s.columns,
           column * s.columns + static_cast<int>(i) % s.columns) =
            static_cast<std::uint8_t>((order >> 16) * perGroup +
                                      (i + static_cast<unsigned>(shift)) % perGroup);
    }
  }

  std::uint8_t& at(int row, int column) {
    return y[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
             static_cast<std::size_t>(column)];
  }
  std::size_t group(int row, int column) const {
    return static_cast<std::size_t>(row / sharing.rows) *
               static_cast<std::size_t>(width / sharing.columns) +
           static_cast<std::size_t>(column / sharing.columns);
  }

  // The interleaved form: Y Cb Cr, or Y Cb Y Cr.
  std::vector<std::uint8_t> interleaved() const {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(3 * std::size_t{tripleCount});
    for (std::size_t i = 0; i < tripleCount; ++i) {
      bytes.push_back(y[i]);
      if (sharing.packed444) bytes.push_back(cb[i]);
      if (sharing.packed444) bytes.push_back(cr[i]);
      if (sharing.packed422) bytes.push_back(i % 2 ? cr[i / 2] : cb[i / 2]);
    }
    return bytes;
  }
};

class DecodeExhaustive : public testing::TestWithParam<Conversion> {
 protected:
  // What the oracle says of every pixel, for one variant.
  static std::vector<unsigned short> expected(const Conversion& c, oracle::Variant variant,
                                              const AllTriples& image, bool inBlocks) {
    const oracle::DecodeName name = *oracle::parseDecodeName(c.name);
    std::vector<unsigned short> pixels(tripleCount);
    std::size_t i = 0;
    for (int row = 0; row < image.height; ++row)
      for (int column = 0; column < image.width; ++column, ++i) {
        const std::size_t g = image.group(row, column);
        pixels[i] = oracle::decodePixel(name, variant, inBlocks, image.y[i], image.cb[g],
                                        image.cr[g], row, column);
      }
    return pixels;
  }

  // The oracle is slow. It tells l9 from other SIMD variants in few names, and all of those from mx
  // in blocks alone.
  static oracle::Variant firstThatDecodesLike(const Conversion& c, int variant, bool inBlocks) {
    const oracle::Variant v = oracleVariant(variant);
    if (v == oracle::Variant::mx || oracle::hasWideLanes(*oracle::parseDecodeName(c.name), v))
      return v;
    return inBlocks ? oracle::kVectorVariants[0] : oracle::Variant::mx;
  }

  static void expectAllTriples(const std::vector<int>& variants, const Conversion& c, int width,
                               bool inBlocks, int shift = 0) {
    if (variants.empty()) return;
    const AllTriples image(width, sharingOf(c), shift);
    const bool packed = image.sharing.packed444 || image.sharing.packed422;
    const std::vector<std::uint8_t> bytes =
        packed ? image.interleaved() : std::vector<std::uint8_t>();
    const int chromaPitch = width / image.sharing.columns;
    CallArguments a = {};
    a.size = {width, image.height};
    a.src[0] = packed ? bytes.data() : image.y.data();
    a.src[1] = image.cb.data();
    a.src[2] = image.cr.data();
    a.srcStep[0] = image.sharing.packed444   ? 3 * width
                   : image.sharing.packed422 ? 2 * width
                                             : width;
    a.srcStep[1] = a.srcStep[2] = chromaPitch;
    std::vector<unsigned short> pixels(tripleCount), want;
    a.dst[0] = reinterpret_cast<std::uint8_t*>(pixels.data());
    a.dstStep[0] = 2 * width;
    std::optional<oracle::Variant> asked;
    for (const int variant : variants) {
      if (const oracle::Variant like = firstThatDecodesLike(c, variant, inBlocks); asked != like) {
        want = expected(c, like, image, inBlocks);
        asked = like;
      }
      const SelectedVariant selected(variant);
      ASSERT_EQ(c.call(a), pxmStatusOk);
      cases += tripleCount;
      if (pixels == want) continue;
      for (std::size_t i = 0; i < tripleCount; ++i)
        ASSERT_EQ(pixels[i], want[i])
            << variantTags[variant] << " width " << width << " pixel " << i;
    }
  }
};

TEST_P(DecodeExhaustive, AllTriplesThroughBlocks) {
  expectAllTriples(runnableLevels(Kind::Decode), GetParam(), 4096, true);
}

// One column, or two that share their chroma: the scalar tail, or a block that gives the same. Two
// columns are a block of plain YUV, and 4:1:1 takes no less than four.
TEST_P(DecodeExhaustive, AllTriplesThroughTheTail) {
  if (GetParam().has("YUV420") || GetParam().has("411")) GTEST_SKIP() << "has no tail of groups";
  expectAllTriples(runnableLevels(Kind::Decode), GetParam(), sharingOf(GetParam()).columns, false);
}

// Each way to load, and each chain, at each of the columns that an iteration works on: sixteen, and
// 32 in AVX2.
class EveryBlockPosition : public DecodeExhaustive {};

TEST_P(EveryBlockPosition, AllTriples) {
  const std::vector<int> levels = runnableLevels(Kind::Decode);
  std::vector<int> wide = levels;
  std::erase_if(wide, [](int variant) { return kernelLevel(variant, Kind::Decode) != "avx2"; });
  for (int shift = 1; shift < 32; shift += testStride()) {
    SCOPED_TRACE(shift);
    ASSERT_NO_FATAL_FAILURE(
        expectAllTriples(shift < 16 ? levels : wide, GetParam(), 4096, true, shift));
  }
}

INSTANTIATE_TEST_SUITE_P(, EveryBlockPosition,
                         testing::Values(conversionNamed("YCbCrToBGR565_8u16u_P3C3R"),
                                         conversionNamed("YCbCrToBGR565_8u16u_C3R"),
                                         conversionNamed("YCbCr422ToBGR565_8u16u_P3C3R"),
                                         conversionNamed("YCbCr422ToBGR565_8u16u_C2C3R"),
                                         conversionNamed("YCbCr422ToRGB565_8u16u_C2C3R"),
                                         conversionNamed("YCbCr420ToBGR565_8u16u_P3C3R"),
                                         conversionNamed("YCbCr420ToRGB565_8u16u_P3C3R"),
                                         conversionNamed("YUV420ToBGR565_8u16u_P3C3R"),
                                         conversionNamed("YCbCr411ToBGR565_8u16u_P3C3R")),
                         [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(, DecodeExhaustive, testing::ValuesIn(conversionsOf(Kind::Decode)),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
