// SPDX-License-Identifier: MIT
// Which lane form stands for which scalar one, and how the encoders' rows are cut.
#ifndef PXM_VECTOR_ENCODE_FORMS_INL
#define PXM_VECTOR_ENCODE_FORMS_INL

#include "encode/targets.inl"
#include "vector/walk.inl"
#include "vector/weights.inl"

PXM_TEXT_BEGIN

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

// Required: the bounds of the YCbCr encoders to 4:2:2 and 4:2:0 are multiples of twice their main
// block, and what is left of it then is scalar; so is all below 16 columns from RGB565.
template <class Group, class TargetRow>
constexpr Cut encodeCut = {};
template <>
constexpr Cut encodeCut<YCbCrGroup<2>, PlanarTarget<1, 1>> = {16, ~31, {8}};
template <>
constexpr Cut encodeCut<YCbCrGroup<2>, PackedTarget422> = {16, ~31, {8}};
template <>
constexpr Cut encodeCut<YCbCrGroup<4>, PlanarTarget<2, 1>> = {8, ~15, {4}};
template <>
constexpr Cut encodeCut<YCbCrGroup<4>, PlanarTarget<1, 2>> = {32, ~31, {16, 8, 4}};
template <>
constexpr Cut encodeCut<YuvGroupOfBgr<4>, PlanarTarget<2, 1>> = {8, ~7, {4}};
template <class TargetRow, int n>
constexpr Cut encodeCut<YuvGroupOfRgb<n>, TargetRow> = {8, ~15, {}};

PXM_TEXT_END

#endif
