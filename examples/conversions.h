// SPDX-License-Identifier: MIT
// The library's conversions of planes to 16-bit pixels, by source, target and dither.
#ifndef PXM_EXAMPLES_CONVERSIONS_H
#define PXM_EXAMPLES_CONVERSIONS_H

#include <string>
#include <string_view>

#include "packed16.h"
#include "picture_buffers.h"
#include "pxmcc90lgc.h"
#include "y4m_header.h"

namespace examples {

using PlanarConversion = pxmStatus (*)(const unsigned char* src[3], int srcStep[3],
                                       unsigned short* dst, int dstStep, pxmSize roiSize);

/// What samples mean, as --matrix names it.
enum class Matrix { kYcbcr, kYuv };

/// A target as --to names it.
struct TargetFormat {
  std::string_view name;
  PackedLayout layout;
};

/// The conversions to one target; null where the library has none.
struct ConversionPair {
  PlanarConversion plain;
  PlanarConversion dither;
};

/// Planes of one chroma format under one matrix.
struct SourceFormat {
  Matrix matrix;
  int xShift;  ///< as in ChromaFormat
  int yShift;
  SizeRule sizes;
  ConversionPair to[6];  ///< by target
};

/// @return the target of that name; throws a UsageFailure if there is none.
const TargetFormat& findTarget(std::string_view name);

/// The names of all targets, separated by a text.
std::string targetNames(std::string_view separator);

/// @return the source that a clip is; throws a UsageFailure if the matrix is not for its chroma.
const SourceFormat& findSource(const ChromaFormat& chroma, Matrix matrix);

/// @return the conversion of the clip to the target; throws a UsageFailure if there is none.
PlanarConversion findConversion(const ChromaFormat& chroma, const SourceFormat& source,
                                const TargetFormat& target, bool dither);

/// Converts the planes of a picture to its pixels.
void convertPicture(PictureBuffers& buffers, PlanarConversion conversion);

}  // namespace examples

#endif
