// SPDX-License-Identifier: MIT
// Entries that write what is not theirs, too little, or in another order.
#include <cstring>
#include <vector>

#include "tests/bad_kernels/faults.h"

BAD(WritesAfterTheRow, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status < 0) return status;
  for (int y = 0; y < roiSize.height; ++y) flip(rowOf(dst, y, dstStep) + roiSize.width);
  return status;
}

BAD(WritesIntoThePadding, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status == pxmStatusOk && dstStep > 2 * roiSize.width + 1)
    for (int y = 1; y < roiSize.height; ++y)
      flip(reinterpret_cast<std::uint8_t*>(rowOf(dst, y, dstStep)) - 1);
  return status;
}

BAD(WritesBeforeTheRow, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status < 0) return status;
  for (int y = 0; y < roiSize.height; ++y)
    flip(reinterpret_cast<std::uint8_t*>(rowOf(dst, y, dstStep)) - 1);
  return status;
}

BAD(RewritesThePadding, TwistInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize, twist);
  if (status < 0) return status;
  for (int y = 0; y + 1 < roiSize.height; ++y)
    rewrite(dst + std::ptrdiff_t{y} * dstStep + 3 * roiSize.width);
  return status;
}

BAD(LeavesTheLastPixelOut, DecodeInterleaved) {
  std::uint16_t* const last = rowOf(dst, roiSize.height - 1, dstStep) + roiSize.width - 1;
  std::uint16_t before;
  std::memcpy(&before, last, sizeof before);
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  std::memcpy(last, &before, sizeof before);
  return status;
}

BAD(AddsToTheDestination, DecodeInterleaved) {
  const auto width = static_cast<std::size_t>(roiSize.width);
  for (int y = 0; y < roiSize.height; ++y) {
    auto* const row = reinterpret_cast<std::uint8_t*>(rowOf(dst, y, dstStep));
    const std::vector<std::uint8_t> before(row, row + 2 * width);
    good(rowOf(src, y, srcStep), srcStep, rowOf(dst, y, dstStep), dstStep,
         pxmSize{roiSize.width, 1});
    for (std::size_t i = 0; i < 2 * width; ++i) row[i] |= before[i];
  }
  return pxmStatusOk;
}

BAD(ChangesTheSource, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status == pxmStatusOk) flip(src);
  return status;
}

BAD(RewritesTheSource, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status == pxmStatusOk) rewrite(src);
  return status;
}

BAD(MovesTheCallersPlanes, Encode420) {
  const pxmStatus status =
      good(src, srcStep, static_cast<std::uint8_t**>(dst), static_cast<int*>(dstStep), roiSize);
  for (int i = 0; status == pxmStatusOk && i < 3; ++i) dst[i] += dstStep[i];
  return status;
}

BAD(WritesRowsFromBelow, DecodeInterleaved) {
  for (int y = roiSize.height; y-- > 0;)
    good(rowOf(src, y, srcStep), srcStep, rowOf(dst, y, dstStep), dstStep,
         pxmSize{roiSize.width, 1});
  return pxmStatusOk;
}

BAD(WritesWhenItRejects, DecodeInterleaved) {
  if (dst != nullptr) dst[0] = 0;
  return good(src, srcStep, dst, dstStep, roiSize);
}
