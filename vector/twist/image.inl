// SPDX-License-Identifier: MIT
// The colour twist over an image in SIMD. Rounding modes are the caller's matter: what runs between
// two changes of the mode is no part of the function that makes them, or compilers might move
// arithmetic out of there.
#ifndef PXM_VECTOR_TWIST_IMAGE_INL
#define PXM_VECTOR_TWIST_IMAGE_INL

#include "frame/rows.inl"
#include "vector/float_lanes.inl"
#include "vector/twist/row.inl"

PXM_LEVEL_BEGIN

// Required: where there are upper halves a twist ends by clearing them.
PXM_INLINE void clearUpperHalves() {
#ifdef __AVX__
  _mm256_zeroupper();
#endif
}

// Interleaved pixels of three bytes, or of four, of which the fourth is not written. In place
// (TwistRowC3I, TwistRowAC4I) source and destination are one.
template <int pixelBytes>
struct InterleavedTwist {
  PXM_SHARED static void run(const TwistImage& a) {
    const TwistColumns<FloatLanes> columns(a.twist);
    for (int y = 0; y < a.height; ++y)
      TwistBlocks<FloatLanes, PixelPlace<pixelBytes>>::row(
          {rowAt(a.src, y, a.srcStep), rowAt(a.dst, y, a.dstStep)}, a.width, columns);
    clearUpperHalves();
  }
};

// Three planes with one pitch.
struct PlanarTwist {
  PXM_SHARED static void run(const TwistPlanes& a) {
    const TwistColumns<FloatLanes> columns(a.twist);
    PlanarPlace row = {{a.src[0], a.src[1], a.src[2]}, {a.dst[0], a.dst[1], a.dst[2]}, 0, 0};
    for (int y = 0; y < a.height; ++y, row.from += a.srcStep, row.to += a.dstStep)
      TwistBlocks<FloatLanes, PlanarPlace>::row(row, a.width, columns);
    clearUpperHalves();
  }
};

PXM_LEVEL_END

#endif
