// SPDX-License-Identifier: MIT
// Which lane form stands for which scalar one, and how the encoders' rows are planned. There is no
// default.
#ifndef PXM_VECTOR_ENCODE_PLAN_INL
#define PXM_VECTOR_ENCODE_PLAN_INL

#include "encode/target.inl"
#include "vector/encode/arithmetic.inl"
#include "vector/plan.inl"

PXM_LEVEL_BEGIN

template <class Pixels, class Group>
struct LaneFormOf;
template <class Pixels, int n>
struct LaneFormOf<Pixels, YCbCrGroup<n>> {
  using Type = LaneYCbCr<Pixels>;
};
template <class Pixels, int n>
struct LaneFormOf<Pixels, YuvGroupOfBgr<n>> {
  using Type = LaneYuvOfBgr<Pixels>;
};
template <int n>
struct LaneFormOf<UnpackRgb565, YuvGroupOfRgb<n>> {
  using Type = LaneYuvOfRgb565;
};

// Required: to 4:2:2 and 4:2:0 what is left of 32 and of 16 columns is scalar but for one block of
// 8 and of 4 that the width's bits ask for, however wide the rest is; from RGB565 all of it is.
template <class Group, class TargetRow>
struct EncodePlan;
template <>
struct EncodePlan<YCbCrGroup<2>, PlanarTarget<1, 1>> {
  static constexpr BlockPlan plan = {16, ~31, {8}};
};
template <>
struct EncodePlan<YCbCrGroup<2>, InterleavedTarget422> {
  static constexpr BlockPlan plan = {16, ~31, {8}};
};
template <>
struct EncodePlan<YCbCrGroup<4>, PlanarTarget<2, 1>> {
  static constexpr BlockPlan plan = {16, ~15, {4}};
};
template <>
struct EncodePlan<YCbCrGroup<4>, PlanarTarget<1, 2>> {
  static constexpr BlockPlan plan = {32, ~31, {16, 8, 4}};
};
template <>
struct EncodePlan<YuvGroupOfBgr<4>, PlanarTarget<2, 1>> {
  static constexpr BlockPlan plan = {16, ~15, {8, 4}};
};
template <int n, class TargetRow>
struct EncodePlan<YuvGroupOfRgb<n>, TargetRow> {
  static constexpr BlockPlan plan = {16, ~15, {}};
};

PXM_LEVEL_END

#endif
