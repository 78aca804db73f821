// SPDX-License-Identifier: MIT
#include "formulas.h"

#include <cmath>

namespace programs {

namespace {

// Fixed point may round down a little earlier or later than the formula.
constexpr double kSlack = 0.6;

double clamped(double value) {
  return std::fmin(std::fmax(std::floor(value), 0), 255);
}

}  // namespace

std::array<double, 3> components(const Sample& s) {
  const double luma = 1.164 * (s.y - 16);
  return {luma + 1.596 * (s.cr - 128), luma - 0.392 * (s.cb - 128) - 0.813 * (s.cr - 128),
          luma + 2.017 * (s.cb - 128)};
}

std::array<double, 3> yuvComponents(const Sample& s) {
  return {s.y + 1.140 * (s.cr - 128), s.y - 0.394 * (s.cb - 128) - 0.581 * (s.cr - 128),
          s.y + 2.032 * (s.cb - 128)};
}

std::array<double, 3> samplesOf(const std::array<int, 3>& rgb) {
  const auto [r, g, b] = rgb;
  return {0.257 * r + 0.504 * g + 0.098 * b + 16, -0.148 * r - 0.291 * g + 0.439 * b + 128,
          0.439 * r - 0.368 * g - 0.071 * b + 128};
}

std::array<double, 3> yuvSamplesOf(const std::array<int, 3>& rgb) {
  const auto [r, g, b] = rgb;
  const double y = 0.299 * r + 0.587 * g + 0.114 * b;
  return {y, 0.492 * (b - y) + 128, 0.877 * (r - y) + 128};
}

int shown(int level, int bits) {
  switch (bits) {
    case 4:
      return level * 17;
    case 5:
      return level * 8 + level / 4;
    default:
      return level * 4 + level / 16;
  }
}

int plainLevel(double value, int bits) {
  return static_cast<int>(clamped(value)) >> (8 - bits);
}

bool isClear(double value, int bits) {
  return plainLevel(value - kSlack, bits) == plainLevel(value + kSlack, bits);
}

bool isDithered(int byte, double value, int bits) {
  const double scale = ((1 << bits) - 1) / 256.0;
  const int low = static_cast<int>(std::floor(clamped(value - kSlack) * scale));
  const int high = static_cast<int>(std::floor(clamped(value + kSlack) * scale)) + 1;
  for (int level = low; level <= high && level < 1 << bits; ++level) {
    if (byte == shown(level, bits)) {
      return true;
    }
  }
  return false;
}

}  // namespace programs
