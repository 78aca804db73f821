// SPDX-License-Identifier: MIT
// Holds the names of the conversions to their grammar.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"

namespace oracle {
namespace {

// The names that the grammar of the exports produces.
std::vector<std::string> decodersOf(const std::string& source, std::vector<std::string> layouts) {
  std::vector<std::string> names;
  for (const char* order : {"BGR", "RGB"}) {
    for (int depth : {444, 555, 565}) {
      for (const char* dither : {"", "Dither"}) {
        for (const std::string& layout : layouts) {
          names.push_back(source + "To" + order + std::to_string(depth) + dither + "_8u16u_" +
                          layout);
        }
      }
    }
  }
  return names;
}

std::vector<std::string> encoders() {
  std::vector<std::string> names;
  for (const std::string source : {"BGR555To", "BGR565To"}) {
    for (const char* target : {"YCbCr411", "YCbCr420", "YCbCr422", "YCrCb420", "YUV420"}) {
      names.push_back(source + target + "_16u8u_C3P3R");
    }
    names.push_back(source + "YCbCr422_16u8u_C3C2R");
  }
  names.push_back("RGB565ToYUV420_16u8u_C3P3R");
  names.push_back("RGB565ToYUV422_16u8u_C3P3R");
  return names;
}

std::vector<std::string> namesByGrammar() {
  std::vector<std::string> all = encoders();
  const auto add = [&](const std::vector<std::string>& more) {
    all.insert(all.end(), more.begin(), more.end());
  };
  add(decodersOf("YCbCr", {"C3R", "P3C3R"}));
  add(decodersOf("YCbCr422", {"C2C3R", "P3C3R"}));
  add(decodersOf("YCbCr420", {"P3C3R"}));
  add(decodersOf("YUV420", {"P3C3R"}));
  add({"YCbCr411ToBGR555_8u16u_P3C3R", "YCbCr411ToBGR565_8u16u_P3C3R"});
  add({"BGR565ToBGR_16u8u_C3R", "RGB565ToRGB_16u8u_C3R"});
  add({"BGRToBGR565_8u16u_C3R", "RGBToRGB565_8u16u_C3R"});
  for (const char* layout : {"C3R", "C3IR", "AC4R", "AC4IR", "P3R", "IP3R"}) {
    all.push_back(std::string("ColorTwist32f_8s_") + layout);
  }
  std::sort(all.begin(), all.end());
  return all;
}

TEST(OracleNames, NinetyEightInByteOrder) {
  const auto& names = conversionNames();
  EXPECT_EQ(names.size(), 98u);
  for (std::size_t i = 1; i < names.size(); ++i) EXPECT_LT(names[i - 1], names[i]);
}

TEST(OracleNames, ListIsWhatTheGrammarProduces) {
  const std::vector<std::string> listed(conversionNames().begin(), conversionNames().end());
  EXPECT_EQ(listed, namesByGrammar());
}

TEST(OracleNames, DecodersPerSource) {
  std::array<int, 5> count{};
  for (std::string_view name : conversionNames()) {
    if (const auto parsed = parseDecodeName(name))
      ++count[static_cast<std::size_t>(parsed->source)];
  }
  EXPECT_EQ(count, (std::array<int, 5>{24, 24, 12, 12, 2}));
}

TEST(OracleNames, WordsOfAName) {
  const auto dithered = parseDecodeName("YCbCr422ToRGB444Dither_8u16u_C2C3R").value();
  EXPECT_EQ(dithered.source, DecodeSource::YCbCr422);
  EXPECT_FALSE(dithered.bgr);
  EXPECT_EQ(dithered.depth, 444);
  EXPECT_TRUE(dithered.dither);
  EXPECT_EQ(dithered.layout, DecodeLayout::C2C3);
  const auto plain = parseDecodeName("YUV420ToBGR565_8u16u_P3C3R").value();
  EXPECT_EQ(plain.source, DecodeSource::YUV420);
  EXPECT_TRUE(plain.bgr);
  EXPECT_EQ(plain.depth, 565);
  EXPECT_FALSE(plain.dither);
  EXPECT_EQ(plain.layout, DecodeLayout::P3C3);
}

// Puts a name back together, which shows that no word was misread.
std::string assembled(const DecodeName& n) {
  const char* sources[] = {"YCbCr", "YCbCr422", "YCbCr420", "YUV420", "YCbCr411"};
  const char* layouts[] = {"C3R", "C2C3R", "P3C3R"};
  return std::string(sources[static_cast<int>(n.source)]) + (n.bgr ? "ToBGR" : "ToRGB") +
         std::to_string(n.depth) + (n.dither ? "Dither" : "") + "_8u16u_" +
         layouts[static_cast<int>(n.layout)];
}

TEST(OracleNames, TakingApartLosesNothing) {
  for (std::string_view name : conversionNames()) {
    if (const auto parsed = parseDecodeName(name)) {
      EXPECT_EQ(assembled(*parsed), name);
    }
  }
}

TEST(OracleNames, NamesThatDoNotExist) {
  for (const char* name :
       {"", "YCbCr", "YCbCrToBGR565", "YCbCr411ToRGB555_8u16u_P3C3R",
        "YCbCr411ToBGR444_8u16u_P3C3R", "YCbCr411ToBGR565Dither_8u16u_P3C3R",
        "YCbCr420ToBGR565_8u16u_C3R", "YCbCr422ToBGR565_8u16u_C3R", "YCbCrToBGR565_8u16u_C2C3R",
        "YCbCrToBGR565_8u16u_C3R_", "YCbCrToBGR565_16u8u_C3R", "BGR565ToBGR_16u8u_C3R",
        "legacy90pxmiYCbCrToBGR565_8u16u_C3R"}) {
    EXPECT_FALSE(parseDecodeName(name).has_value()) << name;
  }
  EXPECT_THROW(decode("BGR565ToBGR_16u8u_C3R", Variant::mx, {}), std::invalid_argument);
  EXPECT_THROW(decode("YCbCr411ToRGB555_8u16u_P3C3R", Variant::l9, {}), std::invalid_argument);
  EXPECT_THROW(checksOf("BGR555ToYUV422_16u8u_C3P3R"), std::invalid_argument);
  EXPECT_THROW(statusAfter("RGB555ToYUV420_16u8u_C3P3R", 2, 2), std::invalid_argument);
}

TEST(OracleNames, EachConverterTakesItsKindAlone) {
  for (const char* name : {"BGR565ToBGR_16u8u_C3R", "YCbCrToBGR565_8u16u_C3R", "BGR555ToYUV422",
                           "ColorTwist32f_8s_C3R"}) {
    EXPECT_THROW(encode(name, Variant::mx, {}), std::invalid_argument) << name;
    EXPECT_THROW(encoderVectorColumns(name, Variant::m7, 32), std::invalid_argument) << name;
  }
  for (const char* name : {"BGR565ToYUV420_16u8u_C3P3R", "BGR555ToBGR_16u8u_C3R", ""}) {
    EXPECT_THROW(convertDepth(name, Variant::mx, {}), std::invalid_argument) << name;
  }
}

}  // namespace
}  // namespace oracle
