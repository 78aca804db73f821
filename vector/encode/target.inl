// SPDX-License-Identifier: MIT
// Where the bytes of an iteration go, and scratch blocks for those of a remainder.
#ifndef PXM_VECTOR_ENCODE_TARGET_INL
#define PXM_VECTOR_ENCODE_TARGET_INL

#include "encode/target.inl"
#include "vector/lanes.inl"
#include "vector/scratch.inl"

PXM_LEVEL_BEGIN

template <int columns, int rows, int shift>
PXM_INLINE void storeChroma(const PlanarTarget<rows, shift>& target, ptrdiff_t x,
                            const ChromaBytes& chroma) {
  storeBytes<(columns >> shift)>(target.first + (x >> shift), chroma.first);
  storeBytes<(columns >> shift)>(target.second + (x >> shift), chroma.second);
}

// The luma of an iteration, row by row, and the chroma that `columns` columns of it share.
template <int columns, int rows, int shift, class Luma>
PXM_INLINE void store(const PlanarTarget<rows, shift>& target, ptrdiff_t x, const Luma& luma,
                      const ChromaBytes& chroma) {
  for (int row = 0; row < rows; ++row) storeLuma(target.y[row] + x, luma.of[row]);
  storeChroma<columns>(target, x, chroma);
}
template <int, class Luma>
PXM_INLINE void store(const InterleavedTarget422& target, ptrdiff_t x, const Luma& luma,
                      const ChromaBytes& chroma) {
  storeInterleaved(target.bytes + 2 * x, luma.of[0], chroma);
}

// A scratch block for fewer than `step` columns. `take` makes the pointers of a target its own,
// `give` copies n columns, after as many as
// are skipped, to where a target points.
template <class TargetRow, int step>
struct TargetScratch;

template <int rows, int shift, int step>
struct TargetScratch<PlanarTarget<rows, shift>, step> {
  uint8_t luma[rows][step], first[step >> shift], second[step >> shift];

  PXM_INLINE void take(PlanarTarget<rows, shift>& target) {
    for (int row = 0; row < rows; ++row) target.y[row] = luma[row];
    target.first = first;
    target.second = second;
  }
  PXM_INLINE void give(const PlanarTarget<rows, shift>& target, ptrdiff_t x, int n,
                       int skipped) const {
    for (int row = 0; row < rows; ++row) copyBytes(target.y[row] + x, luma[row] + skipped, n);
    copyBytes(target.first + (x >> shift), first + (skipped >> shift), n >> shift);
    copyBytes(target.second + (x >> shift), second + (skipped >> shift), n >> shift);
  }
};

template <int step>
struct TargetScratch<InterleavedTarget422, step> {
  uint8_t bytes[2 * step];

  PXM_INLINE void take(InterleavedTarget422& target) { target.bytes = bytes; }
  PXM_INLINE void give(const InterleavedTarget422& target, ptrdiff_t x, int n, int skipped) const {
    copyBytes(target.bytes + 2 * x, bytes + 2 * skipped, 2 * n);
  }
};

PXM_LEVEL_END

#endif
