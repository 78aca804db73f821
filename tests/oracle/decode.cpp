// SPDX-License-Identifier: MIT

#include <cstddef>
#include <stdexcept>
#include <string>

#include "arithmetic.h"
#include "oracle.h"

namespace oracle {
namespace {

// A place in the region, counted from its top left.
struct Place {
  int row;
  int column;
};

// The address of a row. The pitch may have any sign.
template <typename Byte>
Byte* rowAt(Byte* first, std::int64_t step, int row) {
  return first + static_cast<std::ptrdiff_t>(step * row);
}

// The distance of two destination rows in bytes. The kernels count whole pixels, so an odd pitch
// loses its low bit, and a negative odd one grows.
std::int64_t evenStep(int dstStep) {
  return floorShift(dstStep, 1) * 2;
}

void store(const DecodeCall& call, Place place, std::uint16_t word) {
  std::uint8_t* row = rowAt(call.dst, evenStep(call.dstStep), place.row);
  std::uint8_t* pixel = row + std::ptrdiff_t{place.column} * 2;
  pixel[0] = static_cast<std::uint8_t>(word % 256);
  pixel[1] = static_cast<std::uint8_t>(word / 256);
}

struct Samples {
  int y;
  int cb;
  int cr;
};

Samples interleaved444(const DecodeCall& call, Place place) {
  const std::uint8_t* row = rowAt(call.src[0], call.srcStep[0], place.row);
  const std::uint8_t* pixel = row + std::ptrdiff_t{place.column} * 3;
  return {pixel[0], pixel[1], pixel[2]};
}

// The three planes share one pitch.
Samples planar444(const DecodeCall& call, Place place) {
  const auto sample = [&](int plane) -> int {
    return rowAt(call.src[plane], call.srcStep[0], place.row)[place.column];
  };
  return {sample(0), sample(1), sample(2)};
}

void decode444(const DecodeName& name, Variant variant, const DecodeCall& call) {
  for (Place p{0, 0}; p.row < call.height; ++p.row) {
    for (p.column = 0; p.column < call.width; ++p.column) {
      const Samples s =
          name.layout == DecodeLayout::C3 ? interleaved444(call, p) : planar444(call, p);
      store(call, p, decodePixel444(name, variant, s.y, s.cb, s.cr, p.row, p.column));
    }
  }
}

}  // namespace

std::uint16_t decodePixel444(const DecodeName& name, [[maybe_unused]] Variant variant, int y,
                             int cb, int cr, int row, int column) {
  const bool wide = name.layout == DecodeLayout::C3 && !name.dither;
  const Rgb c = wide ? decodeWide(y, cb, cr) : decodeStaged(y, cb, cr);
  if (name.dither) return packDither(c, name.depth, name.bgr, row, column);
  return packPlain(c, name.depth, name.bgr);
}

int decode(std::string_view name, Variant variant, const DecodeCall& call) {
  const auto parsed = parseDecodeName(name);
  if (!parsed || parsed->source != DecodeSource::YCbCr) {
    throw std::invalid_argument("not a conversion of 4:4:4: " + std::string(name));
  }
  decode444(*parsed, variant, call);
  return statusAfter(name, call.width, call.height);
}

}  // namespace oracle
