// SPDX-License-Identifier: MIT
// Where luma and chroma go. An image knows pointers and pitches and hands out rows; a row knows
// where a column's luma and a group's two chroma samples stand.
#ifndef PXM_ENCODE_TARGET_INL
#define PXM_ENCODE_TARGET_INL

#include "frame/rows.inl"
#include "frame/signatures.h"

PXM_LEVEL_BEGIN

// Rows of luma, `rows` of them, that share one row of each chroma plane; one chroma sample for
// 1 << shift columns.
template <int rows, int shift>
struct PlanarTarget {
  static constexpr int rowCount = rows;
  static constexpr int columns = 1 << shift;
  uint8_t* y[rows];
  uint8_t *first, *second;

  PXM_INLINE void luma(int row, ptrdiff_t x, uint8_t sample) const { y[row][x] = sample; }
  PXM_INLINE void chroma(ptrdiff_t x, uint8_t a, uint8_t b) const {
    first[x >> shift] = a;
    second[x >> shift] = b;
  }
};

// Y, Cb, Y, Cr of two pixels.
struct InterleavedTarget422 {
  static constexpr int rowCount = 1;
  static constexpr int columns = 2;
  uint8_t* bytes;

  PXM_INLINE void luma(int, ptrdiff_t x, uint8_t sample) const { bytes[2 * x] = sample; }
  PXM_INLINE void chroma(ptrdiff_t x, uint8_t cb, uint8_t cr) const {
    bytes[2 * x + 1] = cb;
    bytes[2 * x + 3] = cr;
  }
};

// Three planes with a pitch each.
struct TargetPlanes {
  using Arguments = PixelsToPlanes;
  uint8_t *y, *first, *second;
  int yPitch, firstPitch, secondPitch;

  PXM_INLINE explicit TargetPlanes(const Arguments& a)
      : y(a.dst[0]),
        first(a.dst[1]),
        second(a.dst[2]),
        yPitch(a.dstStep[0]),
        firstPitch(a.dstStep[1]),
        secondPitch(a.dstStep[2]) {}
};

// Rows at full-width multiples of the pitches.
template <int shift>
struct TargetRows : TargetPlanes {
  using TargetPlanes::TargetPlanes;
  using Row = PlanarTarget<1, shift>;
  PXM_INLINE Row row(int n) const {
    return {{rowAt(y, n, yPitch)}, rowAt(first, n, firstPitch), rowAt(second, n, secondPitch)};
  }
};

// Rows at products that wrap in 32 bits.
template <int shift>
struct WrappedTargetRows : TargetPlanes {
  using TargetPlanes::TargetPlanes;
  using Row = PlanarTarget<1, shift>;
  PXM_INLINE Row row(int n) const {
    return {{wrappedRowAt(y, n, yPitch)},
            wrappedRowAt(first, n, firstPitch),
            wrappedRowAt(second, n, secondPitch)};
  }
};

// Pairs of rows at products that wrap in 32 bits; the lower row is one pitch on, in full width.
struct TargetPairs : TargetPlanes {
  using TargetPlanes::TargetPlanes;
  PXM_INLINE PlanarTarget<2, 1> pair(int n) const {
    uint8_t* const upper = lumaRow(2 * n);
    return {{upper, upper + yPitch},
            wrappedRowAt(first, n, firstPitch),
            wrappedRowAt(second, n, secondPitch)};
  }
  PXM_INLINE uint8_t* lumaRow(int n) const { return wrappedRowAt(y, n, yPitch); }
};

struct InterleavedTargetImage {
  using Arguments = PixelsToBytes;
  using Row = InterleavedTarget422;
  uint8_t* image;
  ptrdiff_t pitch;

  PXM_INLINE explicit InterleavedTargetImage(const Arguments& a) : image(a.dst), pitch(a.dstStep) {}
  PXM_INLINE InterleavedTarget422 row(int n) const { return {rowAt(image, n, pitch)}; }
};

PXM_LEVEL_END

#endif
