// SPDX-License-Identifier: MIT
// Rows of pixels, column by column.
#ifndef PXM_DECODE_COLUMNS_INL
#define PXM_DECODE_COLUMNS_INL

#include "decode/sources.inl"

PXM_TEXT_BEGIN

// One row of pixels, each with its own chroma.
template <class SourceImage, class Form, class PixelPacker>
struct Columns {
  using Source = SourceImage;
  using Packer = PixelPacker;
  typename Source::Row source;
  Pixels::Row out;
  Packer packer;

  // The columns x to width - 1, from left to right.
  PXM_INLINE void tail(ptrdiff_t x, ptrdiff_t width) const {
    for (; x < width; ++x) out.store(x, packer.pack(Form::decode(source.at(x)), out.number, x));
  }
};

PXM_TEXT_END

#endif
