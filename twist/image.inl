// SPDX-License-Identifier: MIT
// The colour twist over an image, in scalar code. A pixel is read whole before any of it is
// written, so the two images may be one.
#ifndef PXM_TWIST_IMAGE_INL
#define PXM_TWIST_IMAGE_INL

#include "frame/rows.inl"
#include "frame/signatures.h"
#include "twist/arithmetic.inl"

PXM_LEVEL_BEGIN

// Interleaved pixels of three bytes, or of four: the fourth is not touched.
template <int pixelBytes>
struct InterleavedTwist {
  PXM_SHARED static void run(const TwistImage& a) {
    const Matrix matrix(a.twist);
    for (int y = 0; y < a.height; ++y) {
      Signed source = rowAt(a.src, y, a.srcStep);
      int8_t* out = rowAt(a.dst, y, a.dstStep);
      for (int x = 0; x < a.width; ++x, source += pixelBytes, out += pixelBytes) {
        const Triple result = twisted(matrix, {{source[0], source[1], source[2]}});
        for (int i = 0; i < 3; ++i) out[i] = result.channel[i];
      }
    }
  }
};

// Three planes with one pitch.
struct PlanarTwist {
  PXM_SHARED static void run(const TwistPlanes& a) {
    const Matrix matrix(a.twist);
    const Signed source[3] = {a.src[0], a.src[1], a.src[2]};
    int8_t* const out[3] = {a.dst[0], a.dst[1], a.dst[2]};
    for (int y = 0; y < a.height; ++y) {
      const ptrdiff_t from = ptrdiff_t{y} * a.srcStep, to = ptrdiff_t{y} * a.dstStep;
      for (ptrdiff_t x = 0; x < a.width; ++x) {
        const Triple result =
            twisted(matrix, {{source[0][from + x], source[1][from + x], source[2][from + x]}});
        for (int i = 0; i < 3; ++i) out[i][to + x] = result.channel[i];
      }
    }
  }
};

PXM_LEVEL_END

#endif
