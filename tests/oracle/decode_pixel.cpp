// SPDX-License-Identifier: MIT

#include "decode_job.h"
#include "oracle.h"

namespace oracle {
namespace {

bool isWideLanes422(const DecodeName& name, Variant variant) {
  return name.source == DecodeSource::YCbCr422 && hasWideLanes(name, variant);
}

Rgb laneColour(const DecodeName& name, Variant variant, const Samples& s) {
  if (name.source == DecodeSource::YUV420) return stagedYuvChain(s.y, s.cb, s.cr);
  if (name.source == DecodeSource::YCbCr411) return roundedNarrowChain(s.y, s.cb, s.cr);
  if (isWideLanes422(name, variant)) return roundedNarrowChain(s.y, s.cb, s.cr);
  return narrowChain(s.y, s.cb, s.cr);
}

// The plain conversions of YUV round in the whole blocks of the reference, and nowhere else.
Rgb scalarYuv(const DecodeName& name, bool inWholeBlock, const Samples& s) {
  if (name.dither) return decodeYuvStaged(s.y, s.cb, s.cr);
  return inWholeBlock ? decodeYuvRounded(s.y, s.cb, s.cr) : decodeYuvPlain(s.y, s.cb, s.cr);
}

Rgb scalarYCbCr(const DecodeName& name, Variant variant, const Samples& s) {
  if (name.source == DecodeSource::YCbCr411) return decodeRounded(s.y, s.cb, s.cr);
  if (isWideLanes422(name, variant)) return decodeWideLanesTail(s.y, s.cb, s.cr);
  if (name.dither || name.layout == DecodeLayout::P3C3) return decodeStaged(s.y, s.cb, s.cr);
  const bool folded = name.layout == DecodeLayout::C2C3;
  return folded ? decodeFolded(s.y, s.cb, s.cr) : decodeWide(s.y, s.cb, s.cr);
}

Rgb colour(const DecodeName& name, Variant variant, bool inBlock, const Samples& s) {
  if (variant != Variant::mx && inBlock) return laneColour(name, variant, s);
  if (name.source == DecodeSource::YUV420) return scalarYuv(name, inBlock, s);
  return scalarYCbCr(name, variant, s);
}

}  // namespace

std::uint16_t decodePixel(const DecodeName& name, Variant variant, bool inVectorColumns, int y,
                          int cb, int cr, int row, int column) {
  return packed(name, colour(name, variant, inVectorColumns, {y, cb, cr}), row, column);
}

}  // namespace oracle
