// SPDX-License-Identifier: MIT
// Decoding in plain code: the reference that the other variants are measured against.
#include "decode/columns.inl"

PXM_TEXT_BEGIN

// A row is its columns, from the first to the last.
template <class Source, class Form, class Packer, class RestForm = Form>
using Walked = Columns<Source, Form, Packer, RestForm>;

template <class Row>
PXM_INLINE void walk(const Row& row, int width) {
  row.tail(0, width);
}

PXM_TEXT_END

#include "decode/entries.inl"
