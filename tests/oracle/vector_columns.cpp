// SPDX-License-Identifier: MIT

#include <stdexcept>

#include "oracle.h"

namespace oracle {
namespace {

// The size of the smallest block of a kernel. All larger ones are multiples of it.
int smallestBlock(const DecodeName& name, Variant variant) {
  switch (name.source) {
    case DecodeSource::YCbCr:
      return 8;
    case DecodeSource::YCbCr422:
      return name.layout == DecodeLayout::P3C3 ? 4 : 8;
    case DecodeSource::YCbCr420:
      return hasWideLanes(name, variant) ? 8 : 4;
    case DecodeSource::YUV420:
      return 2;
    case DecodeSource::YCbCr411:
      return 4;
  }
  throw std::invalid_argument("no such source");
}

}  // namespace

bool hasWideLanes(const DecodeName& name, Variant variant) {
  if (variant != Variant::l9 || !name.bgr || name.dither) return false;
  if (name.source == DecodeSource::YCbCr420) return true;
  return name.layout == DecodeLayout::C2C3 && name.depth != 444;
}

int vectorColumns(const DecodeName& name, Variant variant, int width) {
  if (variant == Variant::mx) return 0;
  const int block = smallestBlock(name, variant);
  return width / block * block;
}

}  // namespace oracle
