// SPDX-License-Identifier: MIT
// Samples of neighbouring columns in SIMD: even columns in one register, odd columns in another.
// Both share the chroma of a pair, and neither splitting nor joining crosses a register's halves.
#ifndef PXM_VECTOR_DECODE_SAMPLES_INL
#define PXM_VECTOR_DECODE_SAMPLES_INL

#include "decode/numbers.h"
#include "vector/lane.inl"

PXM_LEVEL_BEGIN

// A byte in both bytes of a lane.
constexpr int inBothBytes(int byte) {
  return byte << 8 | byte;
}

enum Parity { even, odd };

template <class T>
struct ByParity {
  T even, odd;
};
template <class T>
ByParity(T, T) -> ByParity<T>;

// What columns of one parity have; if they are not told apart, what all have.
template <Parity parity, class T>
PXM_INLINE const T& at(const ByParity<T>& values) {
  return parity == even ? values.even : values.odd;
}
template <Parity, class T>
PXM_INLINE const T& at(const T& shared) {
  return shared;
}

// A byte for each column, in order: the even ones are the low bytes of lanes.
template <class L>
struct PairedBytes {
  L pairs;

  // The bytes as lanes, 1 << n times as large; a lane's sign is that of its byte at n = 8.
  template <int n>
  PXM_INLINE ByParity<L> scaled() const {
    if constexpr (n == 8)
      return {shiftLeft<8>(pairs), pairs & broadcast<L>(0xFF00)};
    else
      return {shiftLeft<n>(pairs) & broadcast<L>(0xFF << n),
              shiftRightLogical<8 - n>(pairs) & broadcast<L>(0xFF << n)};
  }
  PXM_INLINE PairedBytes biasRemoved() const {
    return {pairs ^ broadcast<L>(inBothBytes(greyChroma))};
  }
};

// The same with the bytes of all even columns before those of the odd ones, in each half.
template <class L>
struct SplitBytes {
  L halves;

  template <int n>
  PXM_INLINE ByParity<L> scaled() const {
    const ByParity<L> high = {interleaveLowBytes(broadcast<L>(0), halves),
                              interleaveHighBytes(broadcast<L>(0), halves)};
    if constexpr (n == 8)
      return high;
    else
      return {shiftRightLogical<8 - n>(high.even), shiftRightLogical<8 - n>(high.odd)};
  }
  PXM_INLINE SplitBytes biasRemoved() const {
    return {halves ^ broadcast<L>(inBothBytes(greyChroma))};
  }
};

// Of luma and chroma interleaved. The bytes of chroma are those of Cb and Cr interleaved.
template <class L>
struct InterleavedSamples {
  PairedBytes<L> luma, chroma;
};

// Of pixels of three bytes: a plane for each.
template <class L>
struct SplitPlanes {
  SplitBytes<L> first, second, third;
};

// How samples reach lanes; each kind of lanes has its own.
template <class L>
struct Loads;

PXM_LEVEL_END

#endif
