// SPDX-License-Identifier: MIT
// Rows of pixels of the kernels that always have 256-bit lanes: main blocks of 16 columns, two at
// once, one of 8, then the scalar tail.
#ifndef PXM_VECTOR_AVX2_WIDE_INL
#define PXM_VECTOR_AVX2_WIDE_INL

#include "vector/avx2/columns.inl"
#include "vector/blocks.inl"

PXM_TEXT_BEGIN

constexpr Cut cutBySixteenEight = {16, ~15, {8}};

template <class Packer>
using WideRows420 =
    Blocks<PlanarRows<2, 1>, DecodeStaged, Packer, DecodeStaged, cutBySixteenEight, 32>;

// The tail of the wide 4:2:2 kernels, rounded in all components. Required: its weights are those of
// no other form.
struct DecodeRoundedLow {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb - 128;
    const int v = c.cr - 128;
    return {v * 104593, -u * 25689 - v * 53279, u * 132184};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) {
    return sum<16>((y - 16) * 76282 + 32768, t);
  }
};

template <>
struct ChainOf<DecodeRoundedLow> {
  using Type = RoundedNarrowChain;
  static constexpr bool isTheForm = false;
  static constexpr bool repeatsLastBlock = false;
};

// Required: an image one pixel wide is no special case, and its Cr is the byte ahead of the row.
template <class Packer>
using WideRow422 =
    Blocks<PackedRow422LastCr, DecodeRoundedLow, Packer, DecodeRoundedLow, cutBySixteenEight, 32>;

PXM_TEXT_END

#endif
