// SPDX-License-Identifier: MIT
// The remainder of a row, the columns that fill no whole iteration: its samples are copied to a
// scratch block, go through the same loop as all others, and come back. Not a byte more is read or
// written than the remainder has.
#ifndef PXM_VECTOR_SCRATCH_INL
#define PXM_VECTOR_SCRATCH_INL

#include <stddef.h>
#include <stdint.h>

#include "vector/plan.inl"
#include "vector/sse/lanes.inl"

PXM_LEVEL_BEGIN

// n bytes, at least one, between places that do not overlap. The last piece may overlap the one
// before it.
PXM_SHARED void copyBytes(uint8_t* to, const uint8_t* from, int n) {
  if (n >= 16) {
    for (int i = 0; i + 16 < n; i += 16) storeBytes<16>(to + i, loadBytes<16>(from + i));
    storeBytes<16>(to + n - 16, loadBytes<16>(from + n - 16));
  } else if (n >= 8) {
    storeBytes<8>(to, loadBytes<8>(from));
    storeBytes<8>(to + n - 8, loadBytes<8>(from + n - 8));
  } else if (n >= 4) {
    storeBytes<4>(to, loadBytes<4>(from));
    storeBytes<4>(to + n - 4, loadBytes<4>(from + n - 4));
  } else {
    for (int i = 0; i < n; ++i) to[i] = from[i];
  }
}

template <int columns>
PXM_INLINE void copyPixels(uint8_t* to, const uint8_t* from) {
  constexpr int bytes = columns == 16 ? 16 : 2 * columns;
  storeBytes<bytes>(to, loadBytes<bytes>(from));
  if constexpr (columns == 16) copyPixels<8>(to + 16, from + 16);
}

template <int n>
struct Size {};

// The first n pixels of two rows, in the order of the plan's blocks, upper row first.
template <BlockPlan plan>
PXM_SHARED void copyPixelPairs(uint8_t* upper, const uint8_t* fromUpper, uint8_t* lower,
                               const uint8_t* fromLower, int n) {
  ptrdiff_t at = 0;
  const auto block = [&]<int columns>(Size<columns>) PXM_INLINE_LAMBDA {
    if (n < columns) return false;
    copyPixels<columns>(upper + at, fromUpper + at);
    copyPixels<columns>(lower + at, fromLower + at);
    at += 2 * columns;
    n -= columns;
    return true;
  };
  while (block(Size<plan.main>())) continue;
  if constexpr (plan.smaller[0] > 2) block(Size<plan.smaller[0]>());
  while (block(Size<2>())) continue;
  block(Size<1>());
}

PXM_LEVEL_END

#endif
