// SPDX-License-Identifier: MIT
// A field of the 16-bit lanes of a register, moved.
#ifndef PXM_VECTOR_FIELD_INL
#define PXM_VECTOR_FIELD_INL

#include "frame/layout.h"
#include "vector/lane.inl"

PXM_LEVEL_BEGIN

// The field of `bits` bits at bit `from` comes to bit `to`, with zeros around it.
template <int bits, int from, int to, class L>
PXM_INLINE L movedField(L lanes) {
  if constexpr (from == 0 && to + bits == 16) {
    return shiftLeft<to>(lanes);
  } else {
    const auto moved = [=]() PXM_INLINE_LAMBDA {
      if constexpr (from < to) return shiftLeft<to - from>(lanes);
      if constexpr (from == to) return lanes;
      if constexpr (from > to) return shiftRightLogical<from - to>(lanes);
    };
    return moved() & broadcast<L>(((1 << bits) - 1) << to);
  }
}

PXM_LEVEL_END

#endif
