// SPDX-License-Identifier: MIT
// Entries that convert well and read what is not theirs, or where it is not.
#include <emmintrin.h>

#include "tests/bad_kernels/faults.h"

BAD(ReadsBeforeTheRow, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status < 0) return status;
  for (int y = 0; y < roiSize.height; ++y) touched(rowOf(src, y, srcStep) - 1);
  return status;
}

BAD(ReadsAfterTheRow, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status < 0) return status;
  for (int y = 0; y < roiSize.height; ++y) touched(rowOf(src, y, srcStep) + 3 * roiSize.width);
  return status;
}

BAD(ReadsFourBytesForThree, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status < 0) return status;
  const std::uint8_t* const pixel = rowOf(src, roiSize.height - 1, srcStep) + 3 * roiSize.width - 3;
  for (int i = 0; i < 4; ++i) touched(pixel + i);
  return status;
}

BAD(ReadsTheRowAbove, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status == pxmStatusOk) touched(rowOf(src, -1, srcStep));
  return status;
}

BAD(ReadsBetweenRows, TwistInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize, twist);
  if (status < 0) return status;
  for (int y = 0; y + 1 < roiSize.height; ++y)
    touched(src + std::ptrdiff_t{y} * srcStep + 3 * roiSize.width);
  return status;
}

BAD(AssumesAlignedRows, DecodeInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  if (status < 0 || 3 * roiSize.width < 16) return status;
  for (int y = 0; y < roiSize.height; ++y) {
    const auto* const sixteen = reinterpret_cast<const __m128i*>(rowOf(src, y, srcStep));
    asm volatile("movdqa %0, %%xmm0" : : "m"(*sixteen) : "xmm0");
  }
  return status;
}

BAD(WrapsItsOffsets, DecodeInterleaved) {
  for (unsigned y = 0; y < static_cast<unsigned>(roiSize.height); ++y) {
    const auto offset = static_cast<int>(y * static_cast<unsigned>(srcStep));
    good(src + offset, srcStep, rowOf(dst, static_cast<int>(y), dstStep), dstStep,
         pxmSize{roiSize.width, 1});
  }
  return pxmStatusOk;
}

BAD(DoesNotWrapItsOffsets, DecodePlanar) {
  for (int y = 0; y < roiSize.height; y += 2) {
    const std::uint8_t* planes[] = {rowOf(src[0], y, srcStep[0]), rowOf(src[1], y / 2, srcStep[1]),
                                    rowOf(src[2], y / 2, srcStep[2])};
    const int rows = y + 1 < roiSize.height ? 2 : 1;
    good(static_cast<const std::uint8_t**>(planes), static_cast<int*>(srcStep),
         rowOf(dst, y, dstStep), dstStep, pxmSize{roiSize.width, rows});
  }
  return pxmStatusOk;
}

BAD(ReadsBeforeItsChecks, DecodeInterleaved) {
  if (src != nullptr) touched(src);
  return good(src, srcStep, dst, dstStep, roiSize);
}

BAD(ReadsPlanesBeforeItsChecks, DecodePlanar) {
  if (src != nullptr) touched(src);
  return good(static_cast<const std::uint8_t**>(src), static_cast<int*>(srcStep), dst, dstStep,
              roiSize);
}
