// SPDX-License-Identifier: MIT
// Pictures through png2y4m and y4m2rgb and back.
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

#include "png_bytes.h"
#include "program_run.h"

namespace programs {
namespace {

struct Route {
  const char* name;
  const char* via;
  const char* chroma;
  const char* matrix;
};

constexpr Route kRoutes[] = {
    {"Bgr555By420", "bgr555", "420", "ycbcr"},     {"Bgr565By420", "bgr565", "420", "ycbcr"},
    {"Bgr555By422", "bgr555", "422", "ycbcr"},     {"Bgr565By422", "bgr565", "422", "ycbcr"},
    {"Bgr555By411", "bgr555", "411", "ycbcr"},     {"Bgr565By411", "bgr565", "411", "ycbcr"},
    {"Bgr555ByYuv420", "bgr555", "yuv420", "yuv"}, {"Bgr565ByYuv420", "bgr565", "yuv420", "yuv"},
    {"Rgb565ByYuv420", "rgb565", "yuv420", "yuv"}};

// V of full-range YUV holds no saturated red or cyan.
const Rgb kColours[] = {{0, 0, 0},      {255, 255, 255}, {128, 128, 128}, {200, 40, 40},
                        {40, 160, 72},  {32, 24, 248},   {72, 248, 16},   {248, 232, 40},
                        {224, 64, 232}, {96, 232, 240},  {255, 224, 196}, {58, 32, 24}};

// Two reductions lose up to a level of 5 bits each, the samples between them up to three of 8 bits.
constexpr int kLoss = 8 + 8 + 3;

// Groups of four by two pixels are uniform, and whole except at the right and lower edges.
Rgb colourAt(int x, int y) {
  return kColours[static_cast<size_t>(x / 4 + 3 * (y / 2)) % std::size(kColours)];
}

class RoundTrip : public ProgramTest, public testing::WithParamInterface<Route> {
 protected:
  // Takes a picture to planes and back to its own 16-bit pixels.
  void expectNear(const std::string& png, int width, int height) const {
    const Route& route = GetParam();
    store("in.png", png);
    ASSERT_TRUE(
        succeeded(png2y4m({"--via", route.via, "--chroma", route.chroma, "in.png", "clip.y4m"})));
    ASSERT_TRUE(
        succeeded(y4m2rgb({"--to", route.via, "--matrix", route.matrix, "clip.y4m", "out.png"})));
    const Picture picture = readPicture(path("out.png"));
    ASSERT_EQ(picture.width, width);
    ASSERT_EQ(picture.height, height);
    for (size_t i = 0; i < picture.bytes.size(); ++i) {
      const int place = static_cast<int>(i / 3);
      const Rgb colour = colourAt(place % width, place / width);
      ASSERT_LE(std::abs(picture.bytes[i] - colour[i % 3]), kLoss)
          << "byte " << i << " of " << width << "x" << height;
    }
  }
};

TEST_P(RoundTrip, UniformColoursStayNear) {
  const int width = 4 * static_cast<int>(std::size(kColours));
  expectNear(rgbPng(width, 2, colourAt), width, 2);
}

TEST_P(RoundTrip, EverySizeKeepsItsEdges) {
  for (int width = 1; width <= 6; ++width) {
    for (int height = 1; height <= 3; height += 2) {
      expectNear(rgbPng(width, height, colourAt), width, height);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, RoundTrip, testing::ValuesIn(kRoutes),
                         [](const auto& parameters) { return parameters.param.name; });

}  // namespace
}  // namespace programs
