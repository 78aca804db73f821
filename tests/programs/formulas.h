// SPDX-License-Identifier: MIT
// The conversions as formulas in floating point, with bounds for roundings in fixed point.
#ifndef PXM_TESTS_PROGRAMS_FORMULAS_H
#define PXM_TESTS_PROGRAMS_FORMULAS_H

#include <array>

#include "clip_bytes.h"

namespace programs {

/// Red, green and blue of a sample triple, unclamped: studio range and full-range YUV.
std::array<double, 3> components(const Sample& s);
std::array<double, 3> yuvComponents(const Sample& s);

/// Y, Cb, Cr and Y, U, V of red, green and blue, unrounded and unclamped.
std::array<double, 3> samplesOf(const std::array<int, 3>& rgb);
std::array<double, 3> yuvSamplesOf(const std::array<int, 3>& rgb);

/// What a display shows of a level: its bits with the highest of them repeated below.
int shown(int level, int bits);

/// The level of a component when its low bits are dropped.
int plainLevel(double value, int bits);

/// True if no rounding changes the level.
bool isClear(double value, int bits);

/// True if a display shows a component between the bounds of rounding down and up.
bool isDithered(int byte, double value, int bits);

/// A target of --to and the bits of its red, green and blue.
struct Target {
  const char* name;
  std::array<int, 3> bits;
};

inline constexpr Target kTargets[] = {{"bgr565", {5, 6, 5}}, {"rgb565", {5, 6, 5}},
                                      {"bgr555", {5, 5, 5}}, {"rgb555", {5, 5, 5}},
                                      {"bgr444", {4, 4, 4}}, {"rgb444", {4, 4, 4}}};

}  // namespace programs

#endif
