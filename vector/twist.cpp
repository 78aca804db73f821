// SPDX-License-Identifier: MIT
// The colour twist in lanes; compiled once for each vector variant.
#include PXM_VARIANT_TEXT

#include "vector/twist.inl"

PXM_TEXT_BEGIN

// Whatever rounding mode the caller has set, a kernel rounds to nearest. Required: with the mode
// the caller's exception flags come back too, but only if the mode was another.
template <class Kernel>
struct RoundedToNearest {
  template <class Images>
  PXM_INLINE static void run(const Images& a) {
    const unsigned kept = ApplyRoundingControl(0);
    Kernel::run(a);
    if (kept & roundingField) RestoreMxcsr(kept);
  }
};
using TwistC3 = RoundedToNearest<TwistRowC3>;
using TwistAC4 = RoundedToNearest<TwistRowAC4>;
using TwistP3 = RoundedToNearest<TwistPixelsP3>;

PXM_TEXT_END

#include "twist/entries.inl"
