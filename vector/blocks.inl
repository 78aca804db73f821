// SPDX-License-Identifier: MIT
// A vector variant's meaning of a row: blocks, then columns.
#ifndef PXM_VECTOR_BLOCKS_INL
#define PXM_VECTOR_BLOCKS_INL

#include "vector/decode.inl"

PXM_TEXT_BEGIN

template <class Source, class Form, class Packer, class RestForm = Form>
using Walked = Blocks<Source, Form, Packer, RestForm>;

PXM_TEXT_END

#endif
