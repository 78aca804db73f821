// SPDX-License-Identifier: MIT
// Encoding in plain code: the reference that the other variants are measured against.
#include "encode/groups.inl"

PXM_TEXT_BEGIN

// A row is its groups, from the first to the last.
template <class Pixels, class TargetRow, template <int> class GroupOf, Rest rest>
using Encoded = Groups<Pixels, TargetRow, GroupOf, rest>;

template <class Row>
PXM_INLINE void walk(const Row& row, int width) {
  row.tail(0, width);
}

PXM_TEXT_END

#include "encode/entries.inl"
