// SPDX-License-Identifier: MIT
// The library's conversions of YCbCr 4:4:4 planes by target and dither.
#ifndef PXM_EXAMPLES_CONVERSIONS_H
#define PXM_EXAMPLES_CONVERSIONS_H

#include <string>
#include <string_view>

#include "packed16.h"
#include "picture_buffers.h"
#include "pxmcc90lgc.h"

namespace examples {

using PlanarConversion = pxmStatus (*)(const unsigned char* src[3], int srcStep,
                                       unsigned short* dst, int dstStep, pxmSize roiSize);

/// A target as --to names it.
struct TargetFormat {
  std::string_view name;
  PackedLayout layout;
  PlanarConversion plain;
  PlanarConversion dither;
};

/// @return the target of that name; throws a UsageFailure if there is none.
const TargetFormat& findTarget(std::string_view name);

/// The names of all targets, separated by a text.
std::string targetNames(std::string_view separator);

/// Converts the planes of a picture to its pixels.
void convertPicture(PictureBuffers& buffers, PlanarConversion conversion);

}  // namespace examples

#endif
