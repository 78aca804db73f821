// SPDX-License-Identifier: MIT
// The rows that the kernels of a level are made of: scalar ones, or blocks with a scalar tail.
#ifndef PXM_ENCODE_LEVEL_ROW_INL
#define PXM_ENCODE_LEVEL_ROW_INL

#ifdef PXM_SIMD
#include "vector/encode/row.inl"
#else
#include "encode/row.inl"
#endif

PXM_LEVEL_BEGIN

#ifdef PXM_SIMD
template <class Pixels, class TargetRow, template <int> class GroupOf, Tail tail>
using Row = SimdRow<Pixels, TargetRow, GroupOf, tail>;
#else
template <class Pixels, class TargetRow, template <int> class GroupOf, Tail tail>
using Row = ScalarRow<Pixels, TargetRow, GroupOf, tail>;
#endif

PXM_LEVEL_END

#endif
