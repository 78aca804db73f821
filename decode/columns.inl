// SPDX-License-Identifier: MIT
// Rows of pixels, column by column: the only scalar loop over pixels.
#ifndef PXM_DECODE_COLUMNS_INL
#define PXM_DECODE_COLUMNS_INL

#include "decode/pixels.inl"
#include "decode/sources.inl"

PXM_TEXT_BEGIN

// The rows that share a row of chroma. RestForm is for the columns that are no whole chroma group.
template <class SourceRows, class Form, class PixelPacker, class RestForm = Form>
struct Columns {
  static constexpr int rowCount = SourceRows::rowCount;
  static constexpr int group = 1 << SourceRows::chromaShift;
  using Packer = PixelPacker;

  SourceRows source;
  PixelRow out[rowCount];
  Packer packer;

  // The columns x to width - 1, from left to right, in groups that share their chroma; in a group
  // the upper row first. x starts a group.
  PXM_INLINE void tail(ptrdiff_t x, ptrdiff_t width) const {
    for (; x + group <= width; x += group) columns<Form>(x, x + group, source.chroma(x));
    if constexpr (group > 1)
      if (x < width) columns<RestForm>(x, width, source.chromaOfRest(x));
  }

 private:
  template <class GroupForm>
  PXM_INLINE void columns(ptrdiff_t from, ptrdiff_t to, const Chroma& chroma) const {
    const Terms terms = GroupForm::chroma(chroma);
    for (int row = 0; row < rowCount; ++row)
      for (ptrdiff_t x = from; x < to; ++x)
        out[row].store(x,
                       packer.pack(GroupForm::join(source.y(row, x), terms), out[row].number, x));
  }
};

// Plain code: a row is its columns, from the first to the last and `beyond` it.
template <class SourceRows, class Form, class PixelPacker, class RestForm>
PXM_INLINE void walk(const Columns<SourceRows, Form, PixelPacker, RestForm>& row, int width,
                     int beyond = 0) {
  row.tail(0, ptrdiff_t{width} + beyond);
}

PXM_TEXT_END

#endif
