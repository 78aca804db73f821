// SPDX-License-Identifier: MIT
// Which chain stands for which scalar form, and how a family's rows are cut.
#ifndef PXM_VECTOR_FORMS_INL
#define PXM_VECTOR_FORMS_INL

#include "decode/sources.inl"
#include "vector/chains.inl"
#include "vector/walk.inl"

PXM_TEXT_BEGIN

template <class Form>
struct ChainOf {  // DecodeStaged; required: DecodeWide and DecodeFolded too
  using Type = NarrowChain;
  static constexpr bool repeatsLastBlock = false;
};
template <>
struct ChainOf<DecodeRounded> {
  using Type = RoundedNarrowChain;
  static constexpr bool repeatsLastBlock = false;
};
template <>
struct ChainOf<DecodeYuvStaged> {
  using Type = StagedYuvChain;
  static constexpr bool repeatsLastBlock = false;
};
template <>
struct ChainOf<DecodeYuvRounded> {  // required: not rounded in lanes
  using Type = StagedYuvChain;
  static constexpr bool repeatsLastBlock = true;
};

template <class SourceRows, class Chain>
constexpr Cut cutOf = cutByEight;
template <class Chain>
constexpr Cut cutOf<PlanarRows<1, 1>, Chain> = cutByEightFour;
template <class Chain>
constexpr Cut cutOf<PlanarRows<2, 1>, Chain> = cutByEightFour;
template <>
constexpr Cut cutOf<PlanarRows<2, 1>, StagedYuvChain> = cutByEightFourTwo;
template <class Chain>
constexpr Cut cutOf<PlanarRow411, Chain> = cutByEightFour;

PXM_TEXT_END

#endif
