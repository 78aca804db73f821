// SPDX-License-Identifier: MIT
// Rows of pixels, group by group: the only scalar loop over pixels of the encoders.
#ifndef PXM_ENCODE_GROUPS_INL
#define PXM_ENCODE_GROUPS_INL

#include "encode/targets.inl"
#include "encode/weights.inl"

PXM_TEXT_BEGIN

// What becomes of the columns that are no whole group.
enum class Rest {
  Untouched,  // neither read nor written
  Luma,       // their luma, and no part in chroma
  LumaAndCb,  // one pixel: its luma, and a Cb of its own in the byte behind
};

// The rows that share a row of chroma.
template <class Pixels, class TargetRow, template <int> class GroupOf, Rest rest>
struct Groups {
  static constexpr int rowCount = TargetRow::rowCount;
  static constexpr int columns = TargetRow::columns;
  using Group = GroupOf<rowCount * columns>;

  TargetRow target;
  const uint8_t* source[rowCount];

  // The columns x to width - 1, from left to right. x starts a group.
  PXM_INLINE void tail(ptrdiff_t x, ptrdiff_t width) const {
    for (; x + columns <= width; x += columns) group(x);
    if constexpr (rest != Rest::Untouched)
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
      if constexpr (rest == Rest::LumaAndCb) target.bytes[2 * x + 1] = EncodeCbSingle(c);
    }
  }
};

PXM_TEXT_END

#endif
