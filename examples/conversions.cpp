// SPDX-License-Identifier: MIT
#include "conversions.h"

#include "failure.h"

namespace examples {

namespace {

// The colour that a name spells first sits in the low bits.
constexpr PackedLayout kBgr444 = {{8, 4}, {4, 4}, {0, 4}};
constexpr PackedLayout kRgb444 = {{0, 4}, {4, 4}, {8, 4}};
constexpr PackedLayout kBgr555 = {{10, 5}, {5, 5}, {0, 5}};
constexpr PackedLayout kRgb555 = {{0, 5}, {5, 5}, {10, 5}};
constexpr PackedLayout kBgr565 = {{11, 5}, {5, 6}, {0, 5}};
constexpr PackedLayout kRgb565 = {{0, 5}, {5, 6}, {11, 5}};

constexpr TargetFormat kTargets[] = {
    {"bgr565", kBgr565, legacy90pxmiYCbCrToBGR565_8u16u_P3C3R,
     legacy90pxmiYCbCrToBGR565Dither_8u16u_P3C3R},
    {"rgb565", kRgb565, legacy90pxmiYCbCrToRGB565_8u16u_P3C3R,
     legacy90pxmiYCbCrToRGB565Dither_8u16u_P3C3R},
    {"bgr555", kBgr555, legacy90pxmiYCbCrToBGR555_8u16u_P3C3R,
     legacy90pxmiYCbCrToBGR555Dither_8u16u_P3C3R},
    {"rgb555", kRgb555, legacy90pxmiYCbCrToRGB555_8u16u_P3C3R,
     legacy90pxmiYCbCrToRGB555Dither_8u16u_P3C3R},
    {"bgr444", kBgr444, legacy90pxmiYCbCrToBGR444_8u16u_P3C3R,
     legacy90pxmiYCbCrToBGR444Dither_8u16u_P3C3R},
    {"rgb444", kRgb444, legacy90pxmiYCbCrToRGB444_8u16u_P3C3R,
     legacy90pxmiYCbCrToRGB444Dither_8u16u_P3C3R},
};

}  // namespace

const TargetFormat& findTarget(std::string_view name) {
  for (const TargetFormat& target : kTargets) {
    if (target.name == name) {
      return target;
    }
  }
  throw UsageFailure("--to " + quoted(name) + " is not one of " + targetNames(", "));
}

std::string targetNames(std::string_view separator) {
  std::string names;
  for (const TargetFormat& target : kTargets) {
    names += names.empty() ? "" : separator;
    names += target.name;
  }
  return names;
}

void convertPicture(PictureBuffers& buffers, PlanarConversion conversion) {
  const unsigned char* planes[3] = {buffers.plane(0), buffers.plane(1), buffers.plane(2)};
  const pxmSize size = {buffers.width(), buffers.height()};
  const pxmStatus status =
      conversion(planes, buffers.planeStep(0), buffers.pixels(), buffers.pixelStep(), size);
  if (status < 0) {
    throw Failure("the conversion is refused with status " + std::to_string(status));
  }
}

}  // namespace examples
