// SPDX-License-Identifier: MIT
// One pixel through the matrix in single floats, each operation rounded on its own in the rounding
// mode that the caller has set. Nothing may be fused or put in another order.
#ifndef PXM_TWIST_ARITHMETIC_INL
#define PXM_TWIST_ARITHMETIC_INL

#include <stdint.h>
#include <xmmintrin.h>

#include "frame/level.h"

PXM_LEVEL_BEGIN

// Samples of a pixel, or its results, -128 to 127.
struct Triple {
  int8_t channel[3];
};

// The matrix as given, row r for result r; kept apart from the pixels, which may alias anything.
struct Matrix {
  float row[3][4];
  PXM_INLINE explicit Matrix(const float (*twist)[4]) {
    for (int r = 0; r < 3; ++r)
      for (int c = 0; c < 4; ++c) row[r][c] = twist[r][c];
  }
};

// To the nearest integer, halves to even, clamped. The truncation is the processor's own, because
// NaN is in its domain: it gives INT32_MIN, which is even and whose low byte is 0.
PXM_INLINE int8_t roundedToByte(float p) {
  if (p >= 127.0f) return 127;
  if (p <= -128.0f) return -128;
  const float q = p + (p < 0.0f ? -0.5f : 0.5f);
  int i = _mm_cvttss_si32(_mm_set_ss(q));
  if ((i & 1) && static_cast<float>(i) == q) i += p < 0.0f ? 1 : -1;  // it stood on a half
  return static_cast<int8_t>(i);
}

// The constant is added second, not last.
PXM_INLINE Triple twisted(const Matrix& matrix, const Triple& s) {
  Triple result;
  for (int r = 0; r < 3; ++r) {
    const float* const t = matrix.row[r];
    float p = t[0] * s.channel[0];
    p = p + t[3];
    p = p + t[1] * s.channel[1];
    p = p + t[2] * s.channel[2];
    result.channel[r] = roundedToByte(p);
  }
  return result;
}

PXM_LEVEL_END

#endif
