// SPDX-License-Identifier: MIT
// Which chain stands for which scalar form, and how a family's rows are planned. Some chains are
// bit-exact with their form; the others differ from it. There is no default: what is not listed
// does not compile.
#ifndef PXM_VECTOR_DECODE_PLAN_INL
#define PXM_VECTOR_DECODE_PLAN_INL

#include "decode/pack.inl"
#include "decode/source.inl"
#include "vector/decode/arithmetic.inl"
#include "vector/plan.inl"

PXM_LEVEL_BEGIN

enum class Exactness { BitExact, Differs };

template <class C, Exactness exactness>
struct Chosen {
  using Chain = C;
  static constexpr bool isExact = exactness == Exactness::BitExact;
  PXM_INLINE static int columnsTooMany(int) { return 0; }
};

template <class Form>
struct ChainOf;
template <>
struct ChainOf<DecodeStaged> : Chosen<NarrowChain, Exactness::BitExact> {};
template <>
struct ChainOf<DecodeWide> : Chosen<NarrowChain, Exactness::Differs> {};
template <>
struct ChainOf<DecodeFolded> : Chosen<NarrowChain, Exactness::Differs> {};
template <>
struct ChainOf<DecodeRounded> : Chosen<RoundedNarrowChain, Exactness::Differs> {};
template <>
struct ChainOf<DecodeYuvStaged> : Chosen<StagedYuvChain, Exactness::BitExact> {};
// Required: not rounded in SIMD; and where the last whole block is one of four columns, one of two
// follows it, past the region. Its samples are what follows in memory.
template <>
struct ChainOf<DecodeYuvRounded> : Chosen<StagedYuvChain, Exactness::Differs> {
  PXM_INLINE static int columnsTooMany(int width) { return (width & 6) == 4 ? 2 : 0; }
};

constexpr BlockPlan planByEight = {8, ~7, {}};             // a chroma pair a pixel, or interleaved
constexpr BlockPlan planByEightFour = {8, ~7, {4}};        // 4:2:0, planar 4:2:2, 4:1:1
constexpr BlockPlan planByEightFourTwo = {8, ~7, {4, 2}};  // YUV 4:2:0
constexpr BlockPlan planBySixteenEight = {16, ~15, {8}};   // 4:2:0 to BGR in AVX2
static_assert(VectorColumns(planByEight, 15) == 8);
static_assert(VectorColumns(planByEightFour, 15) == 12);
static_assert(VectorColumns(planByEightFourTwo, 15) == 14);
static_assert(VectorColumns(planBySixteenEight, 31) == 24);

template <class SourceRows, class Form>
struct PlanOf;
template <BlockPlan p>
struct Plan {
  static constexpr BlockPlan plan = p;
};
template <class Form>
struct PlanOf<PlanarRows<1, 0>, Form> : Plan<planByEight> {};
template <class Form>
struct PlanOf<InterleavedRow444, Form> : Plan<planByEight> {};
template <class Form>
struct PlanOf<InterleavedRow422OwnByte, Form> : Plan<planByEight> {};
template <class Form>
struct PlanOf<InterleavedRow422LastCr, Form> : Plan<planByEight> {};
template <class Form>
struct PlanOf<PlanarRows<1, 1>, Form> : Plan<planByEightFour> {};
template <class Form>
struct PlanOf<PlanarRow411, Form> : Plan<planByEightFour> {};
template <>
struct PlanOf<PlanarRows<2, 1>, DecodeStaged> : Plan<planByEightFour> {};
template <>
struct PlanOf<PlanarRows<2, 1>, DecodeYuvStaged> : Plan<planByEightFourTwo> {};
template <>
struct PlanOf<PlanarRows<2, 1>, DecodeYuvRounded> : Plan<planByEightFourTwo> {};

// Required: in AVX2 the blocks of 4:2:0 without dither are others in BGR order. As the chain is
// bit-exact it shows only where two rows overlap.
template <class SourceRows, class Form, class Packer, bool isBgr>
constexpr BlockPlan planInOrder() {
#ifdef __AVX2__
  constexpr bool isByTwoRows = SourceRows::rowCount == 2 && ChainOf<Form>::isExact;
  if (isByTwoRows && isBgr && !Packer::dithers) return planBySixteenEight;
#endif
  return PlanOf<SourceRows, Form>::plan;
}

PXM_LEVEL_END

#endif
