// SPDX-License-Identifier: MIT
// Which chain stands for which scalar form, and how a family's rows are cut. Some chains are their
// form, sample for sample; the others differ from it.
#ifndef PXM_VECTOR_FORMS_INL
#define PXM_VECTOR_FORMS_INL

#include "decode/sources.inl"
#include "vector/chains.inl"
#include "vector/walk.inl"

PXM_TEXT_BEGIN

template <class Form>
struct ChainOf {  // required: of DecodeWide and DecodeFolded too
  using Type = NarrowChain;
  static constexpr bool isTheForm = false;
  static constexpr bool repeatsLastBlock = false;
};
template <>
struct ChainOf<DecodeStaged> : ChainOf<void> {
  static constexpr bool isTheForm = true;
};
template <>
struct ChainOf<DecodeRounded> {
  using Type = RoundedNarrowChain;
  static constexpr bool isTheForm = false;
  static constexpr bool repeatsLastBlock = false;
};
template <>
struct ChainOf<DecodeYuvStaged> {
  using Type = StagedYuvChain;
  static constexpr bool isTheForm = true;
  static constexpr bool repeatsLastBlock = false;
};
template <>
struct ChainOf<DecodeYuvRounded> {  // required: not rounded in lanes
  using Type = StagedYuvChain;
  static constexpr bool isTheForm = false;
  static constexpr bool repeatsLastBlock = true;
};

constexpr Cut cutByEight = {8, ~7, {}};             // a chroma pair for each pixel, or interleaved
constexpr Cut cutByEightFour = {8, ~7, {4}};        // 4:2:0, planar 4:2:2, 4:1:1
constexpr Cut cutByEightFourTwo = {8, ~7, {4, 2}};  // YUV 4:2:0
static_assert(VectorColumns(cutByEight, 15) == 8);
static_assert(VectorColumns(cutByEightFour, 15) == 12);
static_assert(VectorColumns(cutByEightFourTwo, 15) == 14);

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
