// SPDX-License-Identifier: MIT
// The arithmetic of the colour twist on lanes of floats, a pixel to each lane, channel by channel.
// Required of each lane: three products, three additions in their order, the constant last, each
// rounded on its own.
#ifndef PXM_VECTOR_TWIST_ARITHMETIC_INL
#define PXM_VECTOR_TWIST_ARITHMETIC_INL

#include "frame/level.h"

PXM_LEVEL_BEGIN

// The matrix by columns, each number in all lanes. Column 3 is the constants.
template <class Lanes>
struct TwistColumns {
  using Floats = typename Lanes::Floats;
  struct Column {
    Floats row[3];
  } at[4];
  PXM_INLINE explicit TwistColumns(const float (*twist)[4])
      : at{column(twist, 0), column(twist, 1), column(twist, 2), column(twist, 3)} {}

 private:
  PXM_INLINE static Column column(const float (*twist)[4], int c) {
    return {{Floats::broadcast(twist[0][c]), Floats::broadcast(twist[1][c]),
             Floats::broadcast(twist[2][c])}};
  }
};

// To the nearest integers, halves to even, at most 127. The limit comes before the conversion,
// because 2^31 and more would come out as INT32_MIN; NaN becomes 127. What is below -128 is left to
// the saturating packs.
template <class Floats>
PXM_INLINE auto rounded(Floats a) {
  return nearestIntegers(minimum(a, Floats::broadcast(127.0f)));
}

template <int row, class Lanes>
PXM_INLINE auto twisted(const typename Lanes::Samples& s, const TwistColumns<Lanes>& columns) {
  const auto a0 = s.channel[0] * columns.at[0].row[row];
  const auto a1 = s.channel[1] * columns.at[1].row[row];
  const auto a2 = s.channel[2] * columns.at[2].row[row];
  return rounded(a0 + a1 + a2 + columns.at[3].row[row]);
}

template <class Lanes>
PXM_INLINE typename Lanes::Results twistedPixels(const typename Lanes::Samples& s,
                                                 const TwistColumns<Lanes>& columns) {
  return Lanes::pack(twisted<0>(s, columns), twisted<1>(s, columns), twisted<2>(s, columns));
}

PXM_LEVEL_END

#endif
