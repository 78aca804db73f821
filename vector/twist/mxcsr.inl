// SPDX-License-Identifier: MIT
// The rounding mode of the processor's float arithmetic, in bits 13 and 14 of MXCSR; zero rounds to
// nearest.
#ifndef PXM_VECTOR_TWIST_MXCSR_INL
#define PXM_VECTOR_TWIST_MXCSR_INL

#include <xmmintrin.h>

#include "frame/level.h"

PXM_LEVEL_BEGIN

constexpr unsigned roundingField = 0x6000;

// Sets the field to `wanted`, unless it is so already; returns MXCSR as it was.
PXM_INLINE unsigned ApplyRoundingControl(unsigned wanted) {
  const unsigned mxcsr = _mm_getcsr();
  if ((mxcsr & roundingField) != wanted) _mm_setcsr((mxcsr & ~roundingField) | wanted);
  return mxcsr;
}

PXM_INLINE void RestoreMxcsr(unsigned value) {
  _mm_setcsr(value);
}

PXM_LEVEL_END

#endif
