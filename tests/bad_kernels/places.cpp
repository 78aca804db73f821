// SPDX-License-Identifier: MIT
// Entries that have the right numbers in the wrong places.
#include <cstring>
#include <vector>

#include "frame/dispatch.h"
#include "tests/bad_kernels/faults.h"

namespace {

// Decodes as if the image began so many columns and rows earlier.
pxmStatus decodeMoved(int columns, int rows, const std::uint8_t* src, int srcStep,
                      std::uint16_t* dst, int dstStep, pxmSize size) {
  const int pitch = 3 * (size.width + columns);
  const auto pixels =
      static_cast<std::size_t>(size.width + columns) * static_cast<std::size_t>(size.height + rows);
  std::vector<std::uint8_t> moved(3 * pixels);
  std::vector<std::uint16_t> decoded(pixels);
  const auto width = static_cast<std::size_t>(size.width);
  for (int y = 0; y < size.height; ++y)
    std::memcpy(moved.data() + std::ptrdiff_t{y + rows} * pitch + 3 * columns,
                rowOf(src, y, srcStep), 3 * width);
  const int decodedPitch = 2 * (size.width + columns);
  const pxmStatus status =
      good(static_cast<const std::uint8_t*>(moved.data()), pitch, decoded.data(), decodedPitch,
           pxmSize{size.width + columns, size.height + rows});
  for (int y = 0; y < size.height; ++y)
    std::memcpy(rowOf(dst, y, dstStep), rowOf(decoded.data(), y + rows, decodedPitch) + columns,
                2 * width);
  return status;
}

// A plane's rows, tight.
std::vector<std::uint8_t> copied(const std::uint8_t* plane, int pitch, int width, int height) {
  std::vector<std::uint8_t> bytes;
  for (int y = 0; y < height; ++y) {
    const std::uint8_t* const row = rowOf(plane, y, pitch);
    bytes.insert(bytes.end(), row, row + width);
  }
  return bytes;
}

}  // namespace

BAD(DithersOneColumnOn, DecodeInterleaved) {
  return decodeMoved(1, 0, src, srcStep, dst, dstStep, roiSize);
}

BAD(DithersOneRowOn, DecodeInterleaved) {
  return decodeMoved(0, 1, src, srcStep, dst, dstStep, roiSize);
}

BAD(DithersByAddress, DecodeInterleaved) {
  const int odd = static_cast<int>(reinterpret_cast<std::uintptr_t>(dst) & 1);
  return decodeMoved(odd, 0, src, srcStep, dst, dstStep, roiSize);
}

BAD(LastColumnHasItsNeighboursChroma, DecodePlanar) {
  if (roiSize.width % 2 == 0 || roiSize.width < 3)
    return good(static_cast<const std::uint8_t**>(src), static_cast<int*>(srcStep), dst, dstStep,
                roiSize);
  const int pairs = (roiSize.width + 1) / 2, h = roiSize.height;
  std::vector<std::uint8_t> chroma[] = {copied(src[1], srcStep[1], pairs, h),
                                        copied(src[2], srcStep[2], pairs, h)};
  for (auto& plane : chroma)
    for (std::size_t last = static_cast<std::size_t>(pairs) - 1; last < plane.size();
         last += static_cast<std::size_t>(pairs))
      plane[last] = plane[last - 1];
  const std::uint8_t* planes[] = {src[0], chroma[0].data(), chroma[1].data()};
  int pitches[] = {srcStep[0], pairs, pairs};
  return good(static_cast<const std::uint8_t**>(planes), static_cast<int*>(pitches), dst, dstStep,
              roiSize);
}

BAD(LastRowHasItsNeighboursChroma, DecodePlanar) {
  if (roiSize.height % 2 == 0 || roiSize.height < 3)
    return good(static_cast<const std::uint8_t**>(src), static_cast<int*>(srcStep), dst, dstStep,
                roiSize);
  const int y = roiSize.height - 1, pair = y / 2 - 1;
  good(static_cast<const std::uint8_t**>(src), static_cast<int*>(srcStep), dst, dstStep,
       pxmSize{roiSize.width, y});
  const std::uint8_t* planes[] = {rowOf(src[0], y, srcStep[0]), rowOf(src[1], pair, srcStep[1]),
                                  rowOf(src[2], pair, srcStep[2])};
  return good(static_cast<const std::uint8_t**>(planes), static_cast<int*>(srcStep),
              rowOf(dst, y, dstStep), dstStep, pxmSize{roiSize.width, 1});
}

// Scalar code follows the mode.
BAD(TwistsInTheCallersMode, TwistInterleaved) {
  return callEntry(goodEntries[pxm::variant_mx], src, srcStep, dst, dstStep, roiSize, twist);
}

BAD(TakesAnotherVariantsKernel, DecodeInterleaved) {
  return callEntry(goodEntries[pxm::variant_l9], src, srcStep, dst, dstStep, roiSize);
}

BAD(TakesAnotherProcessorsKernel, DecodeInterleaved) {
  return callEntry(goodEntries[pxm::variant_l9], src, srcStep, dst, dstStep, roiSize);
}
