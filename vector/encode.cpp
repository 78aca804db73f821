// SPDX-License-Identifier: MIT
// Encoding in lanes; compiled once for each vector variant.
#include PXM_VARIANT_TEXT

#include "vector/encode.inl"

PXM_TEXT_BEGIN

// A row is blocks, then groups.
template <class Pixels, class TargetRow, template <int> class GroupOf, Rest rest>
using Encoded = EncodedBlocks<Pixels, TargetRow, GroupOf, rest>;

PXM_TEXT_END

#include "encode/entries.inl"
