// SPDX-License-Identifier: MIT
// The five kernels of l9 with 256-bit lanes, which stand in a unit of their own: the others are
// compiled without wide registers. Each serves the order BGR alone; the RGB twins stay on 128 bits.
#ifndef PXM_VECTOR_AVX2_WIDE_H
#define PXM_VECTOR_AVX2_WIDE_H

#include "frame/signatures.h"

#pragma GCC visibility push(hidden)

namespace pxm::l9 {

void wideYCbCr420ToBgr444(const PlanesToPixels& a, int dstPitch);
void wideYCbCr420ToBgr555(const PlanesToPixels& a, int dstPitch);
void wideYCbCr420ToBgr565(const PlanesToPixels& a, int dstPitch);
void wideYCbCr422C2ToBgr555(const BytesToPixels& a, int dstPitch);
void wideYCbCr422C2ToBgr565(const BytesToPixels& a, int dstPitch);

}  // namespace pxm::l9

#pragma GCC visibility pop

#endif
