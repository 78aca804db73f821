// SPDX-License-Identifier: MIT
// Decoding in plain code: the reference that the other variants are measured against.
#include "decode/columns.inl"

PXM_TEXT_BEGIN

template <class Source, class Form, class Packer, class RestForm = Form>
using Walked = Columns<Source, Form, Packer, RestForm>;

PXM_TEXT_END

#include "decode/entries.inl"
