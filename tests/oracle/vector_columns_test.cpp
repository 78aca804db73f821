// SPDX-License-Identifier: MIT
// Holds the columns of the vector blocks to literal widths.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"
#include "tests/oracle/test_vector.h"

namespace oracle {
namespace {

using Widths = std::array<int, 22>;

// The columns at the widths 0 to 17, 31, 32, 33 and 80, by the size of the smallest block.
constexpr Widths kWidths = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10,
                            11, 12, 13, 14, 15, 16, 17, 31, 32, 33, 80};
constexpr Widths kBy8 = {0, 0, 0, 0, 0, 0, 0, 0, 8, 8, 8, 8, 8, 8, 8, 8, 16, 16, 24, 32, 32, 80};
constexpr Widths kBy4 = {0, 0,  0,  0,  4,  4,  4,  4,  8,  8,  8,
                         8, 12, 12, 12, 12, 16, 16, 28, 32, 32, 80};
constexpr Widths kBy2 = {0,  0,  2,  2,  4,  4,  6,  6,  8,  8,  10,
                         10, 12, 12, 14, 14, 16, 16, 30, 32, 32, 80};

void expectColumns(std::string_view name, Variant variant, const Widths& columns) {
  for (std::size_t i = 0; i < kWidths.size(); ++i) {
    EXPECT_EQ(vectorColumns(name, variant, kWidths[i]), columns[i]) << name << " " << kWidths[i];
  }
}

void expectColumns(std::string_view front, std::string_view back, const Widths& columns,
                   std::size_t count) {
  std::size_t found = 0;
  for (std::string_view name : namesFrom(front)) {
    if (!name.ends_with(back) || hasWideLanes(parseDecodeName(name).value(), Variant::l9)) continue;
    for (Variant variant : kVectorVariants) expectColumns(name, variant, columns);
    ++found;
  }
  EXPECT_EQ(found, count) << front;
}

TEST(OracleVectorColumns, Planar444) {
  expectColumns("YCbCrTo", "_P3C3R", kBy8, 12);
}

TEST(OracleVectorColumns, Interleaved444) {
  expectColumns("YCbCrTo", "_C3R", kBy8, 12);
}

TEST(OracleVectorColumns, Interleaved422) {
  expectColumns("YCbCr422To", "_C2C3R", kBy8, 10);
}

TEST(OracleVectorColumns, Planar422) {
  expectColumns("YCbCr422To", "_P3C3R", kBy4, 12);
}

TEST(OracleVectorColumns, YCbCr420) {
  expectColumns("YCbCr420To", "", kBy4, 9);
}

TEST(OracleVectorColumns, Yuv420) {
  expectColumns("YUV420To", "", kBy2, 12);
}

TEST(OracleVectorColumns, YCbCr411) {
  expectColumns("YCbCr411To", "", kBy4, 2);
}

// The five names with lanes of 256 bits, and what the other variants do with them.
TEST(OracleVectorColumns, WideLanes) {
  std::vector<std::string_view> wide;
  for (std::string_view name : conversionNames()) {
    const auto parsed = parseDecodeName(name);
    if (parsed && hasWideLanes(*parsed, Variant::l9)) wide.push_back(name);
  }
  EXPECT_EQ(wide, (std::vector<std::string_view>{
                      "YCbCr420ToBGR444_8u16u_P3C3R", "YCbCr420ToBGR555_8u16u_P3C3R",
                      "YCbCr420ToBGR565_8u16u_P3C3R", "YCbCr422ToBGR555_8u16u_C2C3R",
                      "YCbCr422ToBGR565_8u16u_C2C3R"}));
  for (std::string_view name : wide) {
    expectColumns(name, Variant::l9, kBy8);
    for (Variant variant : kVectorVariants) {
      if (variant == Variant::l9) continue;
      EXPECT_FALSE(hasWideLanes(parseDecodeName(name).value(), variant));
      expectColumns(name, variant, name.starts_with("YCbCr420") ? kBy4 : kBy8);
    }
  }
}

TEST(OracleVectorColumns, TheReferenceHasNone) {
  for (std::string_view name : conversionNames()) {
    if (!parseDecodeName(name)) continue;
    for (int width : kWidths) EXPECT_EQ(vectorColumns(name, Variant::mx, width), 0);
    EXPECT_FALSE(hasWideLanes(parseDecodeName(name).value(), Variant::mx));
  }
}

TEST(OracleVectorColumns, NamesThatDoNotDecodeAreRefusedAloud) {
  for (const char* name : {"BGR565ToBGR_16u8u_C3R", "BGR555ToYCbCr420_16u8u_C3P3R", ""}) {
    EXPECT_THROW(vectorColumns(name, Variant::m7, 8), std::invalid_argument);
  }
}

}  // namespace
}  // namespace oracle
