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

// Required: to 4:2:2 and 4:2:0 what is left of 32 and of 16 columns is scalar but for one block of
// 8 and of 4 that the width's bits ask for, however wide the rest is; from RGB565 all of it is.
template <class Group, class TargetRow>
struct EncodeCut;
template <>
struct EncodeCut<YCbCrGroup<2>, PlanarTarget<1, 1>> {
  static constexpr Cut cut = {16, ~31, {8}};
};
template <>
struct EncodeCut<YCbCrGroup<2>, PackedTarget422> {
  static constexpr Cut cut = {16, ~31, {8}};
};
template <>
struct EncodeCut<YCbCrGroup<4>, PlanarTarget<2, 1>> {
  static constexpr Cut cut = {16, ~15, {4}};
};
template <>
struct EncodeCut<YCbCrGroup<4>, PlanarTarget<1, 2>> {
  static constexpr Cut cut = {32, ~31, {16, 8, 4}};
};
template <>
struct EncodeCut<YuvGroupOfBgr<4>, PlanarTarget<2, 1>> {
  static constexpr Cut cut = {16, ~15, {8, 4}};
};
template <int n, class TargetRow>
struct EncodeCut<YuvGroupOfRgb<n>, TargetRow> {
  static constexpr Cut cut = {16, ~15, {}};
};

PXM_TEXT_END

#endif
