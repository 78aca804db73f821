// SPDX-License-Identifier: MIT
#include "test_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace examples {

namespace {

// Components from 0 to kFull; 256 steps for each of 8 bits keep ramps free of double rounding.
constexpr int64_t kFull = 255 * 256;

struct Rgb {
  int64_t r, g, b;
};

constexpr Rgb rgb8(int r, int g, int b) {
  return {r * 256, g * 256, b * 256};
}

// A place in an area that is size wide and high.
struct Place {
  int64_t x, y;
  int64_t width, height;
  int64_t frame;
};

// The colour part / whole of the way from one to another.
Rgb mix(const Rgb& from, const Rgb& to, int64_t part, int64_t whole) {
  const auto one = [&](int64_t a, int64_t b) { return (a * (whole - part) + b * part) / whole; };
  return {one(from.r, to.r), one(from.g, to.g), one(from.b, to.b)};
}

// From 0 at the first to limit at the last of count places.
int64_t spread(int64_t index, int64_t count, int64_t limit) {
  return count > 1 ? index * limit / (count - 1) : 0;
}

Rgb bars(const Place& p) {
  static constexpr Rgb kBars[8] = {rgb8(255, 255, 255), rgb8(255, 255, 0), rgb8(0, 255, 255),
                                   rgb8(0, 255, 0),     rgb8(255, 0, 255), rgb8(255, 0, 0),
                                   rgb8(0, 0, 255),     rgb8(0, 0, 0)};
  return kBars[p.x * 8 / p.width];
}

constexpr Rgb kBlack = {0, 0, 0};
constexpr Rgb kDarkSkin = rgb8(58, 32, 24);
constexpr Rgb kLightSkin = rgb8(255, 224, 196);

Rgb ramps(const Place& p) {
  static constexpr Rgb kFrom[5] = {kBlack, kBlack, kBlack, kBlack, kDarkSkin};
  static constexpr Rgb kTo[5] = {rgb8(255, 255, 255), rgb8(255, 0, 0), rgb8(0, 255, 0),
                                 rgb8(0, 0, 255), kLightSkin};
  const int64_t strip = p.y * 5 / p.height;
  return mix(kFrom[strip], kTo[strip], spread(p.x, p.width, kFull), kFull);
}

// 512 + 512 sin(phase), 1024 phases to the turn, by a rational approximation.
int64_t wave(int64_t phase) {
  constexpr int64_t kHalf = 512;
  phase = ((phase % (2 * kHalf)) + 2 * kHalf) % (2 * kHalf);
  const int64_t x = phase % kHalf;
  const int64_t product = x * (kHalf - x);
  const int64_t sine = 512 * 16 * product / (5 * kHalf * kHalf - 4 * product);
  return phase < kHalf ? 512 + sine : 512 - sine;
}

// Rings that become finer outwards, to four pixels from ring to ring at the nearest edge.
Rgb zonePlate(const Place& p) {
  const int64_t dx = 2 * p.x - p.width + 1;
  const int64_t dy = 2 * p.y - p.height + 1;
  const int64_t reach = std::max<int64_t>(1, std::min(p.width, p.height));
  const int64_t phase = 64 * (dx * dx + dy * dy) / reach + 256 - 64 * p.frame;
  const int64_t level = wave(phase) * kFull / 1024;
  return {level, level, level};
}

Rgb sky(const Place& p) {
  static constexpr Rgb kZenith = rgb8(24, 44, 96);
  static constexpr Rgb kMiddle = rgb8(126, 120, 170);
  static constexpr Rgb kHorizon = rgb8(250, 190, 130);
  const int64_t down = spread(p.y, p.height, 2 * kFull);
  return down < kFull ? mix(kZenith, kMiddle, down, kFull)
                      : mix(kMiddle, kHorizon, down - kFull, kFull);
}

// Distances are in half pixels. The light comes from the upper left; its direction is
// (-1, -1, 1.25) at a length of 1.887.
Rgb ball(const Place& p) {
  constexpr int64_t kSwing = 64;
  const int64_t step = p.frame % (2 * kSwing);
  const int64_t swing = p.width / 4 * (step < kSwing ? step : 2 * kSwing - step) / kSwing;
  const int64_t dx = 2 * (p.x - swing) - p.width + 1;
  const int64_t dy = 2 * p.y - p.height + 1;
  const int64_t radius = std::min(p.width, p.height) * 4 / 5;
  const int64_t below = radius * radius - dx * dx - dy * dy;
  if (below <= 0) {
    return sky(p);
  }
  const auto depth = static_cast<int64_t>(256 * std::sqrt(static_cast<double>(below)));
  const int64_t facing = (-256 * dx - 256 * dy) * 100 + depth * 125;
  const int64_t whole = 256 * 189 * radius;
  return mix(kDarkSkin, kLightSkin, std::clamp<int64_t>(facing, 0, whole), whole);
}

Rgb colourAt(int64_t x, int64_t y, int64_t width, int64_t height, int64_t frame) {
  const int64_t barsEnd = (height * 2 + 14) / 15;
  const int64_t rampsEnd = std::max(barsEnd, height * 7 / 15);
  const int64_t plateEnd = std::min(width / 2, height - rampsEnd);
  if (y < barsEnd) {
    return bars({x, y, width, barsEnd, frame});
  }
  if (y < rampsEnd) {
    return ramps({x, y - barsEnd, width, rampsEnd - barsEnd, frame});
  }
  if (x < plateEnd) {
    return zonePlate({x, y - rampsEnd, plateEnd, height - rampsEnd, frame});
  }
  return ball({x - plateEnd, y - rampsEnd, width - plateEnd, height - rampsEnd, frame});
}

// Rounds n / d to the nearest; n and d are positive.
unsigned char rounded(int64_t n, int64_t d) {
  return static_cast<unsigned char>((n + d / 2) / d);
}

// Luma weights 0.299, 0.587, 0.114; chroma is the difference to luma, scaled to 128 +- 112.
std::array<unsigned char, 3> toYcbcr(const Rgb& c) {
  const int64_t luma = 299 * c.r + 587 * c.g + 114 * c.b;  // 0 to 1000 kFull
  const int64_t yScale = 1000 * kFull;
  const int64_t cbScale = 886 * kFull;
  const int64_t crScale = 701 * kFull;
  return {rounded(16 * yScale + 219 * luma, yScale),
          rounded(128 * cbScale + 112 * (1000 * c.b - luma), cbScale),
          rounded(128 * crScale + 112 * (1000 * c.r - luma), crScale)};
}

}  // namespace

void drawTestPicture(int width, int height, int frame, YcbcrPlanes& planes) {
  for (auto& plane : planes.plane) {
    plane.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
  }
  size_t i = 0;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x, ++i) {
      const auto samples = toYcbcr(colourAt(x, y, width, height, frame));
      for (size_t component = 0; component < 3; ++component) {
        planes.plane[component][i] = samples[component];
      }
    }
  }
}

}  // namespace examples
