// SPDX-License-Identifier: MIT
// Where samples come from and where pixels go: images with pitches, and their rows without.
#ifndef PXM_DECODE_SOURCES_INL
#define PXM_DECODE_SOURCES_INL

#include <stddef.h>
#include <string.h>

#include "decode/forms.inl"
#include "frame/signatures.h"

PXM_TEXT_BEGIN

// Rows stand at full-width multiples of the pitch from the first.
template <class T>
PXM_INLINE T* rowAt(T* image, int row, ptrdiff_t pitch) {
  return image + row * pitch;
}

// Three planes of equal size and one pitch.
struct Planar444 {
  using Arguments = PlanesOnePitchToPixels;
  Bytes plane[3];
  ptrdiff_t pitch;

  PXM_INLINE explicit Planar444(const Arguments& a)
      : plane{a.src[0], a.src[1], a.src[2]}, pitch(a.srcStep) {}

  struct Row {
    Bytes y, cb, cr;
    PXM_INLINE Samples at(ptrdiff_t x) const { return {y[x], cb[x], cr[x]}; }
  };
  PXM_INLINE Row row(int n) const {
    return {rowAt(plane[0], n, pitch), rowAt(plane[1], n, pitch), rowAt(plane[2], n, pitch)};
  }
};

// One image of three bytes a pixel: Y, Cb, Cr.
struct Packed444 {
  using Arguments = BytesToPixels;
  Bytes image;
  ptrdiff_t pitch;

  PXM_INLINE explicit Packed444(const Arguments& a) : image(a.src), pitch(a.srcStep) {}

  struct Row {
    Bytes samples;
    PXM_INLINE Samples at(ptrdiff_t x) const {
      return {samples[3 * x], samples[3 * x + 1], samples[3 * x + 2]};
    }
  };
  PXM_INLINE Row row(int n) const { return {rowAt(image, n, pitch)}; }
};

// 16-bit pixels at any address, the pitch counted in pixels.
struct Pixels {
  uint8_t* image;
  ptrdiff_t pitch;

  PXM_INLINE Pixels(uint16_t* first, int pitchInPixels)
      : image(reinterpret_cast<uint8_t*>(first)), pitch(ptrdiff_t{2} * pitchInPixels) {}

  struct Row {
    uint8_t* pixels;
    int number;
    PXM_INLINE void store(ptrdiff_t x, uint16_t word) const {
      memcpy(pixels + 2 * x, &word, sizeof word);
    }
  };
  PXM_INLINE Row row(int n) const { return {rowAt(image, n, pitch), n}; }
};

PXM_TEXT_END

#endif
