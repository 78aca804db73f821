// SPDX-License-Identifier: MIT
// Every kind of PNG picture becomes the clip of its 8-bit RGB equivalent.
#include <png.h>

#include <string>
#include <vector>

#include "png_bytes.h"
#include "program_run.h"

namespace programs {
namespace {

// A picture two pixels wide in some kind, and its colours.
struct KindOfPng {
  const char* name;
  PngKind kind;
  std::string row;
  Rgb left, right;
};

const Rgb kBlack = {0, 0, 0};
const Rgb kWhite = {255, 255, 255};
const std::vector<Rgb> kTwoColours = {{200, 40, 40}, {40, 160, 72}};
const std::vector<Rgb> kPalette = {{200, 40, 40}, {40, 160, 72}, {100, 201, 52}};

// Half of 200, 80, 40 is 100, 40, 20, and no rounding of it reaches another level of 16-bit pixels.
const KindOfPng kKinds[] = {
    {"Gray1", {.colourType = PNG_COLOR_TYPE_GRAY, .bits = 1}, "\x40", kBlack, kWhite},
    {"Gray2",
     {.colourType = PNG_COLOR_TYPE_GRAY, .bits = 2},
     "\x60",
     {85, 85, 85},
     {170, 170, 170}},
    {"Gray4",
     {.colourType = PNG_COLOR_TYPE_GRAY, .bits = 4},
     "\x6c",
     {102, 102, 102},
     {204, 204, 204}},
    {"Gray8", {.colourType = PNG_COLOR_TYPE_GRAY}, "\x4d\xb1", {77, 77, 77}, {177, 177, 177}},
    {"Gray16",
     {.colourType = PNG_COLOR_TYPE_GRAY, .bits = 16},
     "\x4d\x4d\xb1\xb1",
     {77, 77, 77},
     {177, 177, 177}},
    {"GrayWithTransparentColour",
     {.colourType = PNG_COLOR_TYPE_GRAY, .transparentColour = {0x4d}},
     "\x4d\xb1",
     kBlack,
     {177, 177, 177}},
    {"GrayAndAlpha",
     {.colourType = PNG_COLOR_TYPE_GRAY_ALPHA},
     std::string("\xb1\xff\xb1\x00", 4),
     {177, 177, 177},
     kBlack},
    {"Palette1",
     {.colourType = PNG_COLOR_TYPE_PALETTE, .bits = 1, .palette = kTwoColours},
     "\x40",
     {200, 40, 40},
     {40, 160, 72}},
    {"Palette8",
     {.colourType = PNG_COLOR_TYPE_PALETTE, .palette = kPalette},
     "\x02\x01",
     {100, 201, 52},
     {40, 160, 72}},
    {"PaletteWithAlpha",
     {.colourType = PNG_COLOR_TYPE_PALETTE, .palette = kPalette, .transparentEntries = {255, 0}},
     "\x01\x02",
     kBlack,
     {100, 201, 52}},
    {"Rgb16",
     {.colourType = PNG_COLOR_TYPE_RGB, .bits = 16},
     "\xc8\xc8\x28\x28\x48\x48\x34\x34\xc9\xc9\x64\x64",
     {200, 40, 72},
     {52, 201, 100}},
    {"RgbWithTransparentColour",
     {.colourType = PNG_COLOR_TYPE_RGB, .transparentColour = {200, 40, 72}},
     "\xc8\x28\x48\x34\xc9\x64",
     kBlack,
     {52, 201, 100}},
    {"RgbAndAlpha",
     {.colourType = PNG_COLOR_TYPE_RGB_ALPHA},
     std::string("\xc8\x28\x48\xff\xc8\x50\x28\x80", 8),
     {200, 40, 72},
     {100, 40, 20}},
    {"RgbAndAlpha16",
     {.colourType = PNG_COLOR_TYPE_RGB_ALPHA, .bits = 16},
     std::string("\xc8\xc8\x28\x28\x48\x48\xff\xff\xc8\xc8\x50\x50\x28\x28\x80\x80", 16),
     {200, 40, 72},
     {100, 40, 20}},
    {"RgbAndAlphaWithGamma",
     {.colourType = PNG_COLOR_TYPE_RGB_ALPHA, .gamma = 0.45455},
     std::string("\xc8\x28\x48\xff\xc8\x50\x28\x80", 8),
     {200, 40, 72},
     {100, 40, 20}},
    {"Gamma",
     {.colourType = PNG_COLOR_TYPE_RGB, .gamma = 1},
     "\xc8\x28\x48\x34\xc9\x64",
     {200, 40, 72},
     {52, 201, 100}},
};

class PngKinds : public ProgramTest, public testing::WithParamInterface<KindOfPng> {
 protected:
  std::string clipOf(const std::string& png, const std::string& via) const {
    store("in.png", png);
    EXPECT_TRUE(succeeded(png2y4m({"--via", via, "--chroma", "yuv420", "in.png", "out.y4m"})));
    return load("out.y4m");
  }
};

TEST_P(PngKinds, GiveTheClipOfTheirColours) {
  const auto& [name, kind, row, left, right] = GetParam();
  const std::string equivalent =
      rgbPng(2, 9, [&, l = left, r = right](int x, int) { return x == 0 ? l : r; });
  for (const char* via : {"bgr565", "rgb565"}) {
    const std::string wanted = clipOf(equivalent, via);
    for (const bool interlaced : {false, true}) {
      PngKind variety = kind;
      variety.interlaced = interlaced;
      const std::string png = pngFile(variety, 2, 9, std::vector<std::string>(9, row));
      EXPECT_EQ(clipOf(png, via), wanted) << via << (interlaced ? ", interlaced" : "");
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, PngKinds, testing::ValuesIn(kKinds),
                         [](const auto& parameters) { return parameters.param.name; });

}  // namespace
}  // namespace programs
