// SPDX-License-Identifier: MIT
// Decoding in lanes; compiled once for each vector variant.
#include PXM_VARIANT_TEXT

#include "vector/decode.inl"

PXM_TEXT_BEGIN

constexpr bool hasBlocks = true;

template <class Source, class Form, class Packer, class RestForm = Form>
using Walked = Blocks<Source, Form, Packer, RestForm>;

PXM_TEXT_END

#ifdef PXM_VARIANT_KERNELS
#include PXM_VARIANT_KERNELS
#endif

#include "decode/entries.inl"
