// SPDX-License-Identifier: MIT

#include <cstddef>

#include "decode_job.h"
#include "rows.h"

namespace oracle {
namespace {

// The samples of a pixel of an interleaved row. The odd last pixel has one chroma byte of its own:
// it is both Cb and Cr where dithered, and Cb beside the Cr of the pair before where plain. In a
// region one pixel wide that Cr is the byte before the row.
Samples interleaved422(const DecodeJob& job, const std::uint8_t* row, int column) {
  const std::uint8_t* luma = row + std::ptrdiff_t{column} * 2;
  const bool second = column % 2 == 1;
  if (second) return {luma[0], luma[-1], luma[1]};
  const bool paired = column + 1 < job.call.width;
  if (paired) return {luma[0], luma[1], luma[3]};
  return {luma[0], luma[1], job.name.dither ? luma[1] : luma[-1]};
}

// An image one pixel wide is stored as three bytes, whatever the depth and the colour order, and
// its rows lie half a pitch apart.
void decodeWidth1(const DecodeCall& call) {
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src[0], call.srcStep[0], row);
    std::uint8_t* target = rowAt(call.dst, floorShift(call.dstStep, 1), row);
    const Rgb c = decodeFolded(source[0], source[1], source[1]);
    target[0] = static_cast<std::uint8_t>(c.r);
    target[1] = static_cast<std::uint8_t>(c.g);
    target[2] = static_cast<std::uint8_t>(c.b);
  }
}

}  // namespace

// The distance of a source row wraps in every plane; that of a destination row does not. The plain
// vector kernels leave a region one pixel wide as it is.
void decode422Planar(const DecodeJob& job) {
  const DecodeCall& call = job.call;
  if (call.width == 1 && !job.name.dither && job.variant != Variant::mx) return;
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* luma = wrappedRowAt(call.src[0], call.srcStep[0], row);
    const std::uint8_t* cb = wrappedRowAt(call.src[1], call.srcStep[1], row);
    const std::uint8_t* cr = wrappedRowAt(call.src[2], call.srcStep[2], row);
    std::uint8_t* target = rowAt(call.dst, evenStep(call.dstStep), row);
    for (int column = 0; column < call.width; ++column) {
      const Samples s{luma[column], cb[column / 2], cr[column / 2]};
      storeWord(target, column, pixelAt(job, s, row, column));
    }
  }
}

void decode422Interleaved(const DecodeJob& job) {
  const DecodeCall& call = job.call;
  if (call.width == 1 && !job.name.dither && !hasWideLanes(job.name, job.variant)) {
    return decodeWidth1(call);
  }
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src[0], call.srcStep[0], row);
    std::uint8_t* target = rowAt(call.dst, evenStep(call.dstStep), row);
    for (int column = 0; column < call.width; ++column) {
      const Samples s = interleaved422(job, source, column);
      storeWord(target, column, pixelAt(job, s, row, column));
    }
  }
}

}  // namespace oracle
