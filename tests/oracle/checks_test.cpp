// SPDX-License-Identifier: MIT
// Holds the order of argument checks to known answers.
#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"

namespace oracle {
namespace {

TEST(OracleChecks, GoodArgumentsPassEverywhere) {
  for (std::string_view name : conversionNames()) EXPECT_EQ(rejectionOf(name, {}), 0) << name;
}

TEST(OracleChecks, AllNullWithAnEmptyRegionIsANullPointer) {
  const CallFacts facts{.nulls = {Argument::Src, Argument::Dst, Argument::SrcDst, Argument::Twist},
                        .width = 0,
                        .height = 0};
  for (std::string_view name : conversionNames()) EXPECT_EQ(rejectionOf(name, facts), -8) << name;
}

TEST(OracleChecks, PlanesAndSizesComeInTheFamilysOrder) {
  const CallFacts source{.nulls = {Argument::SrcPlanes}, .height = 0};
  EXPECT_EQ(rejectionOf("YCbCr420ToBGR565_8u16u_P3C3R", source), -6);
  EXPECT_EQ(rejectionOf("YCbCr411ToBGR565_8u16u_P3C3R", source), -8);
  const CallFacts destination{.nulls = {Argument::DstPlanes}, .height = 0};
  EXPECT_EQ(rejectionOf("BGR565ToYCbCr420_16u8u_C3P3R", destination), -8);
  EXPECT_EQ(rejectionOf("BGR565ToYUV420_16u8u_C3P3R", destination), -8);
  EXPECT_EQ(rejectionOf("RGB565ToYUV420_16u8u_C3P3R", destination), -6);
}

// The status of a call whose pointers and pitches are good.
int statusOf(std::string_view name, int width, int height) {
  const int rejection = rejectionOf(name, {.nulls = {}, .width = width, .height = height});
  return rejection != 0 ? rejection : statusAfter(name, width, height);
}

TEST(OracleChecks, SizesOfTheYuv420Encoders) {
  EXPECT_EQ(statusOf("BGR565ToYUV420_16u8u_C3P3R", 2, 2), 0);
  EXPECT_EQ(statusOf("BGR565ToYUV420_16u8u_C3P3R", 3, 2), 35);
  EXPECT_EQ(statusOf("BGR565ToYUV420_16u8u_C3P3R", 2, 3), 35);
  EXPECT_EQ(statusOf("BGR565ToYUV420_16u8u_C3P3R", 1, 2), -6);
  EXPECT_EQ(statusOf("RGB565ToYUV420_16u8u_C3P3R", 1, 1), 35);
}

TEST(OracleChecks, SizesOfTheOtherFamilies) {
  EXPECT_EQ(statusOf("RGB565ToYUV422_16u8u_C3P3R", 2, 3), 0);
  EXPECT_EQ(statusOf("RGB565ToYUV422_16u8u_C3P3R", 3, 2), 35);
  EXPECT_EQ(statusOf("BGR555ToYCbCr420_16u8u_C3P3R", 3, 3), 0);
  EXPECT_EQ(statusOf("BGR555ToYCrCb420_16u8u_C3P3R", 2, 1), -6);
  EXPECT_EQ(statusOf("BGR555ToYCbCr422_16u8u_C3C2R", 3, 1), 0);
  EXPECT_EQ(statusOf("BGR555ToYCbCr422_16u8u_C3P3R", 1, 1), -6);
  EXPECT_EQ(statusOf("YCbCr420ToRGB444_8u16u_P3C3R", 1, 1), 0);
}

TEST(OracleChecks, SizesOf411) {
  EXPECT_EQ(statusOf("YCbCr411ToBGR555_8u16u_P3C3R", 4, 1), 0);
  EXPECT_EQ(statusOf("YCbCr411ToBGR555_8u16u_P3C3R", 3, 1), -6);
  EXPECT_EQ(statusOf("YCbCr411ToBGR555_8u16u_P3C3R", 6, 1), 35);
  EXPECT_EQ(statusOf("BGR565ToYCbCr411_16u8u_C3P3R", 6, 1), 35);
}

TEST(OracleChecks, OrderOfTheTwist) {
  for (const char* name :
       {"ColorTwist32f_8s_C3R", "ColorTwist32f_8s_AC4R", "ColorTwist32f_8s_P3R"}) {
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .srcStep = 0}), -14);
    EXPECT_EQ(rejectionOf(name, {.nulls = {Argument::Twist}, .srcStep = 0}), -8);
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .width = 0, .srcStep = 0}), -6);
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .dstStep = -1}), -14);
  }
  for (const char* name :
       {"ColorTwist32f_8s_C3IR", "ColorTwist32f_8s_AC4IR", "ColorTwist32f_8s_IP3R"}) {
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .srcDstStep = 0}), -14);
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .srcStep = 0, .dstStep = 0}), 0);
  }
}

TEST(OracleChecks, OnlyTheTwistLooksAtPitches) {
  const CallFacts facts{.nulls = {}, .srcStep = -3, .dstStep = 0, .srcDstStep = 0};
  for (std::string_view name : conversionNames()) {
    EXPECT_EQ(rejectionOf(name, facts), name.starts_with("ColorTwist") ? -14 : 0) << name;
  }
}

TEST(OracleChecks, EveryConversionChecksAPointerFirstAndBothSizes) {
  for (std::string_view name : conversionNames()) {
    const auto checks = checksOf(name);
    EXPECT_EQ(checks.front().status, -8) << name;
    EXPECT_EQ(std::count_if(checks.begin(), checks.end(),
                            [](const Check& check) { return check.status == -6; }),
              2)
        << name;
  }
}

TEST(OracleChecks, ChecksOfAPlanarDecoder) {
  const std::vector<Check> wanted = {{Argument::Src, 0, -8},
                                     {Argument::Dst, 0, -8},
                                     {Argument::Width, 1, -6},
                                     {Argument::Height, 1, -6},
                                     {Argument::SrcPlanes, 0, -8}};
  EXPECT_EQ(checksOf("YUV420ToRGB555Dither_8u16u_P3C3R"), wanted);
}

}  // namespace
}  // namespace oracle
