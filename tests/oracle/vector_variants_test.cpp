// SPDX-License-Identifier: MIT
// Holds the SIMD variants to one another and to the reference.
#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string_view>

#include "tests/oracle/oracle.h"
#include "tests/oracle/samples.h"
#include "tests/oracle/test_images.h"
#include "tests/oracle/test_vector.h"

namespace oracle {
namespace {

// Widths around every size of a block, with 1 left out where a family rejects it.
constexpr int kWidths[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 15, 16, 17, 24, 25, 31, 32, 33};
constexpr int kStep = 76;

bool rejects(std::string_view name, int width) {
  return width < 4 && name.starts_with("YCbCr411");
}

template <typename Visit>
void forAllSizes(std::string_view name, Visit visit) {
  for (int width : kWidths) {
    if (rejects(name, width)) continue;
    for (int height = 1; height <= 5; ++height) visit(width, height);
  }
}

TEST(OracleVectorVariants, SeventyFourNames) {
  EXPECT_EQ(decodeNames().size(), 74u);
}

TEST(OracleVectorVariants, AllAgreeWithM7ButForTwoNamesInL9) {
  const Source source = Source::noisy();
  std::set<std::string_view> different;
  for (std::string_view name : decodeNames()) {
    forAllSizes(name, [&](int width, int height) {
      const Canvas wanted = decodedFrom(source, name, Variant::m7, kStep, width, height);
      for (Variant variant : kVectorVariants) {
        if (decodedFrom(source, name, variant, kStep, width, height) == wanted) continue;
        EXPECT_EQ(variant, Variant::l9) << name << " " << width << " by " << height;
        different.insert(name);
      }
    });
  }
  EXPECT_EQ(different, (std::set<std::string_view>{"YCbCr422ToBGR555_8u16u_C2C3R",
                                                   "YCbCr422ToBGR565_8u16u_C2C3R"}));
}

// Puts back what the reference leaves alone: two columns beyond an odd corner.
Canvas withoutOverrun(Canvas canvas, int width, int height) {
  const int at = (height - 1) * kStep + 2 * width;
  for (int i = 0; i < 4; ++i) canvas.putByte(at + i, Canvas::kUntouched);
  return canvas;
}

bool decodesAsTheReference(const DecodeName& n) {
  if (n.dither) return true;
  return n.source != DecodeSource::YUV420 && n.source != DecodeSource::YCbCr411 &&
         n.layout == DecodeLayout::P3C3;
}

bool overrunsItsCorner(const DecodeName& n, int width, int height) {
  const bool sharesRows = n.source == DecodeSource::YCbCr420 || n.source == DecodeSource::YUV420;
  return n.dither && sharesRows && width % 2 == 1 && height % 2 == 1;
}

TEST(OracleVectorVariants, FamiliesThatEqualTheReference) {
  const Source source = Source::noisy();
  int names = 0;
  for (std::string_view name : decodeNames()) {
    const DecodeName parsed = parseDecodeName(name).value();
    if (!decodesAsTheReference(parsed)) continue;
    ++names;
    forAllSizes(name, [&](int width, int height) {
      if (width == 1 && name.starts_with("YCbCr422") && !parsed.dither) return;
      const Canvas wanted = decodedFrom(source, name, Variant::mx, kStep, width, height);
      for (Variant variant : kVectorVariants) {
        Canvas canvas = decodedFrom(source, name, variant, kStep, width, height);
        if (overrunsItsCorner(parsed, width, height)) {
          EXPECT_NE(canvas, wanted) << name;
          canvas = withoutOverrun(canvas, width, height);
        }
        EXPECT_EQ(canvas, wanted) << name << " " << width << " by " << height;
      }
    });
  }
  // 36 that dither, and six plain ones of planar 4:4:4, of planar 4:2:2 and of 4:2:0.
  EXPECT_EQ(names, 36 + 18);
}

// Whether any of a few images tells a variant from the reference, in sizes without an overrun.
bool differsFromTheReference(std::string_view name, Variant variant) {
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    const Source source = Source::noisy(seed);
    const Canvas canvas = decodedFrom(source, name, variant, 48, 16, 8);
    if (canvas != decodedFrom(source, name, Variant::mx, 48, 16, 8)) return true;
  }
  return false;
}

TEST(OracleVectorVariants, FamiliesThatDifferFromTheReference) {
  for (std::string_view name : decodeNames()) {
    const bool same = decodesAsTheReference(parseDecodeName(name).value());
    for (Variant variant : kVectorVariants) {
      EXPECT_EQ(differsFromTheReference(name, variant), !same) << name;
    }
  }
}

TEST(OracleVectorVariants, StatusIsThatOfTheReference) {
  const Source source = Source::noisy();
  for (std::string_view name : decodeNames()) {
    forAllSizes(name, [&](int width, int height) {
      const bool warns = name.starts_with("YCbCr411") && width % 4 != 0;
      for (Variant variant : kVectorVariants) {
        Canvas canvas;
        EXPECT_EQ(decode(name, variant, source.call(canvas, kStep, width, height)), warns ? 35 : 0);
      }
    });
  }
}

// ---- Pixels ------------------------------------------------------------------------------------

// The forms of a name, in and after the vector columns.
struct Forms {
  Rgb (*inColumns)(int, int, int);
  Rgb (*behind)(int, int, int);
};

Forms formsOf(std::string_view name, Variant variant) {
  const bool dither = name.find("Dither") != std::string_view::npos;
  if (name.starts_with("YUV420")) {
    return {stagedYuvChain, dither ? decodeYuvStaged : decodeYuvPlain};
  }
  if (name.starts_with("YCbCr411")) return {roundedNarrowChain, decodeRounded};
  if (variant == Variant::l9 && isOwnWayOfL9(name))
    return {roundedNarrowChain, decodeWideLanesTail};
  if (!dither && name.ends_with("_C2C3R")) return {narrowChain, decodeFolded};
  if (!dither && name.ends_with("_C3R")) return {narrowChain, decodeWide};
  return {narrowChain, decodeStaged};
}

TEST(OracleDecodePixel, TakesTheFormOfItsColumn) {
  const Bytes samples = noise(3 * 400, 8);
  for (std::string_view name : decodeNames()) {
    const DecodeName parsed = parseDecodeName(name).value();
    for (Variant variant : kVectorVariants) {
      const Forms forms = formsOf(name, variant);
      for (std::size_t i = 0; i < samples.size(); i += 3) {
        const int y = samples[i], u = samples[i + 1], v = samples[i + 2];
        const int row = static_cast<int>(i) / 12, column = static_cast<int>(i) / 3;
        EXPECT_EQ(decodePixel(parsed, variant, true, y, u, v, row, column),
                  packedBy(parsed, forms.inColumns(y, u, v), row, column));
        EXPECT_EQ(decodePixel(parsed, variant, false, y, u, v, row, column),
                  packedBy(parsed, forms.behind(y, u, v), row, column));
      }
    }
  }
}

TEST(OracleDecodePixel, InTheReferenceTheColumnMattersToPlainYuvAlone) {
  const Bytes samples = noise(3 * 400, 8);
  for (std::string_view name : decodeNames()) {
    const DecodeName parsed = parseDecodeName(name).value();
    int different = 0;
    for (std::size_t i = 0; i < samples.size(); i += 3) {
      const int y = samples[i], u = samples[i + 1], v = samples[i + 2];
      const int inside = decodePixel(parsed, Variant::mx, true, y, u, v, 0, 0);
      const int behind = decodePixel(parsed, Variant::mx, false, y, u, v, 0, 0);
      different += inside != behind;
      if (isPlainYuvName(name)) {
        EXPECT_EQ(inside, packedBy(parsed, decodeYuvRounded(y, u, v), 0, 0));
        EXPECT_EQ(behind, packedBy(parsed, decodeYuvPlain(y, u, v), 0, 0));
      }
    }
    EXPECT_EQ(different > 0, isPlainYuvName(name)) << name;
  }
}

TEST(OracleDecodePixel, Of444FollowsTheWidth) {
  const DecodeName name = parseDecodeName("YCbCrToRGB555_8u16u_C3R").value();
  for (int column = 0; column < 19; ++column) {
    EXPECT_EQ(decodePixel444(name, Variant::mx, 79, 112, 98, 0, column, 19), 0x1583);
    for (Variant variant : kVectorVariants) {
      EXPECT_EQ(decodePixel444(name, variant, 79, 112, 98, 0, column, 19),
                column < 16 ? 0x15A3 : 0x1583);
    }
  }
}

TEST(OracleDecodePixel, Of444WithoutAWidthLiesInVectorColumns) {
  const DecodeName name = parseDecodeName("YCbCrToRGB555_8u16u_C3R").value();
  EXPECT_EQ(decodePixel444(name, Variant::mx, 79, 112, 98, 0, 0), 0x1583);
  for (Variant variant : kVectorVariants) {
    EXPECT_EQ(decodePixel444(name, variant, 79, 112, 98, 0, 0), 0x15A3);
  }
}

}  // namespace
}  // namespace oracle
