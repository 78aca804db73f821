// SPDX-License-Identifier: MIT
// Rows of pixels, column by column: the only scalar loop over pixels of the decoders.
#ifndef PXM_DECODE_ROW_INL
#define PXM_DECODE_ROW_INL

#include "decode/source.inl"
#include "decode/target.inl"

PXM_LEVEL_BEGIN

// What an image needs of a row type: its source, where its pixels go, a packer, and `convert`,
// which does `width` columns and, past the right edge, `overrun` more.
template <class R>
concept DecodedRow = requires(const R& row, int width, int overrun) {
  R{row.source, {row.out[0]}, row.packer};
  row.convert(width, overrun);
};

// The rows that share a row of chroma. TailForm is for the columns that are no whole chroma group.
template <class SourceRows, class Form, class Packer, class TailForm = Form>
struct ScalarRow {
  static constexpr int rowCount = SourceRows::rowCount;
  static constexpr int group = 1 << SourceRows::chromaShift;

  SourceRows source;
  PixelRow out[rowCount];
  Packer packer;

  PXM_INLINE void convert(int width, int overrun = 0) const {
    columns(0, ptrdiff_t{width} + overrun);
  }

  // The columns x to end - 1, from left to right, in groups that share their chroma; in a group the
  // upper row first. x starts a group.
  PXM_INLINE void columns(ptrdiff_t x, ptrdiff_t end) const {
    for (; x + group <= end; x += group) groupOf<Form>(x, x + group, source.chroma(x));
    if constexpr (group > 1)
      if (x < end) groupOf<TailForm>(x, end, source.tailChroma(x));
  }

 private:
  template <class GroupForm>
  PXM_INLINE void groupOf(ptrdiff_t from, ptrdiff_t to, const Chroma& chroma) const {
    const Terms terms = GroupForm::chroma(chroma);
    for (int row = 0; row < rowCount; ++row)
      for (ptrdiff_t x = from; x < to; ++x)
        out[row].store(x,
                       packer.pack(GroupForm::join(source.y(row, x), terms), out[row].number, x));
  }
};

PXM_LEVEL_END

#endif
