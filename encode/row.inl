// SPDX-License-Identifier: MIT
// Rows of pixels, group by group: the only scalar loop over pixels of the encoders.
#ifndef PXM_ENCODE_ROW_INL
#define PXM_ENCODE_ROW_INL

#include "encode/arithmetic.inl"
#include "encode/target.inl"

PXM_LEVEL_BEGIN

// What becomes of the columns that are no whole group.
enum class Tail {
  Untouched,  // neither read nor written
  Luma,       // their luma, and no part in chroma
  LumaAndCb,  // one pixel: its luma, and a Cb of its own in the byte after
};

// What an image needs of a row type: a target, the pixels of each row, and `convert`.
template <class R>
concept EncodedRow = requires(const R& row, int width) {
  R{row.target, {row.source[0]}};
  row.convert(width);
};

// The rows that share a row of chroma.
template <class Pixels, class TargetRow, template <int> class GroupOf, Tail tail>
struct ScalarRow {
  static constexpr int rowCount = TargetRow::rowCount;
  static constexpr int columns = TargetRow::columns;
  using Group = GroupOf<rowCount * columns>;

  TargetRow target;
  const uint8_t* source[rowCount];

  PXM_INLINE void convert(int width) const { groups(0, width); }

  // The columns x to width - 1, from left to right. x starts a group.
  PXM_INLINE void groups(ptrdiff_t x, ptrdiff_t width) const {
    for (; x + columns <= width; x += columns) group(x);
    if constexpr (tail != Tail::Untouched)
      for (; x < width; ++x) single(x);
  }

 private:
  PXM_INLINE Components pixel(int row, ptrdiff_t x) const {
    return Pixels::unpack(load16(source[row], x));
  }

  PXM_INLINE void group(ptrdiff_t x) const {
    Group group;
    for (int row = 0; row < rowCount; ++row)
      for (int i = 0; i < columns; ++i) target.luma(row, x + i, group.add(pixel(row, x + i)));
    target.chroma(x, group.first(), group.second());
  }

  PXM_INLINE void single(ptrdiff_t x) const {
    for (int row = 0; row < rowCount; ++row) {
      const Components c = pixel(row, x);
      target.luma(row, x, EncodeLuma(c));
      if constexpr (tail == Tail::LumaAndCb) target.bytes[2 * x + 1] = EncodeCbSingle(c);
    }
  }
};

PXM_LEVEL_END

#endif
