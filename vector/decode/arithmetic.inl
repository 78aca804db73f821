// SPDX-License-Identifier: MIT
// The decode forms in 16-bit lanes, over any lane type. Luma comes 1 << lumaScale times as large,
// chroma less 128 in the high byte of a lane; a component leaves in sixteenths. Every value that a
// lane takes fits 16 bits, so nothing wraps.
#ifndef PXM_VECTOR_DECODE_ARITHMETIC_INL
#define PXM_VECTOR_DECODE_ARITHMETIC_INL

#include "decode/arithmetic.inl"
#include "vector/lane.inl"

PXM_LEVEL_BEGIN

// What a chroma pair adds to red and blue and takes from green, in sixteenths of a level.
template <class L>
struct LaneTerms {
  L red, green, blue;
};

// Components in sixteenths of a level, from below 0 to above 255.
template <class L>
struct LaneChannels {
  L red, green, blue;
};

template <class L>
PXM_INLINE LaneChannels<L> join(L luma, const LaneTerms<L>& t) {
  return {luma + t.red, luma - t.green, luma + t.blue};
}

// The staged form. A, the luma times 128 less 2048, lies in -2048..30592 and L in -298..4450; no
// term exceeds 4131 in size.
struct NarrowChain {
  using W = DecodeStaged::W;
  static constexpr int lumaScale = 7;
  static_assert(1 << lumaScale == stagedScale);
  static constexpr bool pipelinesTerms = false;
  template <class L>
  PXM_INLINE static L luma(L y) {
    return LaneMulHi(y - broadcast<L>(blackLuma * stagedScale), broadcast<L>(W::luma));
  }
  // V stays 256-scaled against half the weights, which are even; those of U are not.
  static_assert(W::redV % 2 == 0 && W::greenV % 2 == 0);
  template <class L>
  PXM_INLINE static LaneTerms<L> chroma(L cb, L v) {
    const L u = shiftRight<1>(cb);
    return {LaneMulHi(v, broadcast<L>(W::redV / 2)),
            LaneMulHi(v, broadcast<L>(W::greenV / 2)) + LaneMulHi(u, broadcast<L>(W::greenU)),
            LaneMulHi(u, broadcast<L>(W::blueU))};
  }
};

// The same to the nearest level: half of one more.
struct RoundedNarrowChain : NarrowChain {
  template <class L>
  PXM_INLINE static L luma(L y) {
    return NarrowChain::luma(y) + broadcast<L>((1 << fractionBits) / 2);
  }
};

struct StagedYuvChain {
  using W = DecodeYuvStaged::W;
  static constexpr int lumaScale = fractionBits;
  static constexpr bool pipelinesTerms = true;  // for luma takes no multiplication
  template <class L>
  PXM_INLINE static L luma(L y) {
    return y;
  }
  template <class L>
  PXM_INLINE static LaneTerms<L> chroma(L cb, L cr) {
    const L u = shiftRight<1>(cb), v = shiftRight<1>(cr);
    return {LaneMulHi(v, broadcast<L>(W::redV)),
            LaneMulHi(u, broadcast<L>(W::greenU)) + LaneMulHi(v, broadcast<L>(W::greenV)),
            LaneMulHi(u, broadcast<L>(W::blueU))};
  }
};

PXM_LEVEL_END

#endif
