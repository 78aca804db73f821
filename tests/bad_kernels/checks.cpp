// SPDX-License-Identifier: MIT
// Entries whose checks, sizes or statuses are wrong.
#include "tests/bad_kernels/faults.h"

BAD(ChecksSizesFirst, Decode411) {
  if (roiSize.width < 4 || roiSize.height < 1) return pxmStatusBadSize;
  return good(static_cast<const std::uint8_t**>(src), static_cast<int*>(srcStep), dst, dstStep,
              roiSize);
}

BAD(DoesNotCheckTheHeight, Depth565To888) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize);
  return status == pxmStatusBadSize && roiSize.width >= 1 ? pxmStatusOk : status;
}

BAD(WarnsOfNothing, Decode411) {
  const pxmStatus status = good(static_cast<const std::uint8_t**>(src), static_cast<int*>(srcStep),
                                dst, dstStep, roiSize);
  return status == pxmStatusSizeWarning ? pxmStatusOk : status;
}

BAD(TakesColumnsIn16Bits, DecodeInterleaved) {
  if (roiSize.width < 1) return good(src, srcStep, dst, dstStep, roiSize);
  return good(src, srcStep, dst, dstStep, pxmSize{roiSize.width & 0xFFFF, roiSize.height});
}

BAD(TakesRowsIn16Bits, DecodeInterleaved) {
  if (roiSize.height < 1) return good(src, srcStep, dst, dstStep, roiSize);
  return good(src, srcStep, dst, dstStep, pxmSize{roiSize.width, roiSize.height & 0xFFFF});
}
