// SPDX-License-Identifier: MIT
// The rows that the kernels of a level are made of: scalar ones, or blocks with a scalar tail.
#ifndef PXM_DECODE_LEVEL_ROW_INL
#define PXM_DECODE_LEVEL_ROW_INL

#ifdef PXM_SIMD
#include "vector/decode/row.inl"
#else
#include "decode/row.inl"
#endif

PXM_LEVEL_BEGIN

#ifdef PXM_SIMD
template <class Source, class Form, class Packer, class TailForm = Form>
using Row = SimdRow<Source, Form, Packer, TailForm>;
// For a row that an image has once: its code is small.
template <class Source, class Form, class Packer>
using LastRow = SimdRow<Source, Form, Packer, Form, Small>;
#else
template <class Source, class Form, class Packer, class TailForm = Form>
using Row = ScalarRow<Source, Form, Packer, TailForm>;
template <class Source, class Form, class Packer>
using LastRow = ScalarRow<Source, Form, Packer>;
#endif

PXM_LEVEL_END

#endif
