// SPDX-License-Identifier: MIT
// The encode forms in 16-bit lanes, over any lane type. Required: unlike the scalar forms they
// truncate each product on its own. No sum leaves its 16 bits, so wrapping and saturating steps
// agree.
#ifndef PXM_VECTOR_ENCODE_ARITHMETIC_INL
#define PXM_VECTOR_ENCODE_ARITHMETIC_INL

#include "encode/arithmetic.inl"
#include "vector/field.inl"
#include "vector/lane.inl"

PXM_LEVEL_BEGIN

// A colour component in a lane: its bits stand `headroom` places below the top, zeros around them.
template <int headroom, class L>
struct LaneField {
  L bits;
};

// The field of `bits` bits at a bit of pixels as a component.
template <int bits, int at, int headroom, class L>
PXM_INLINE LaneField<headroom, L> laneField(L word) {
  return {movedField<bits, at, 16 - headroom - bits>(word)};
}

// Pixels to components, as near to the top as is cheapest: red stays where it is.
template <class Pixels>
struct LaneUnpack {
  using F = typename Pixels::Fields;
  template <class L>
  using Red = LaneField<F::spareBits, L>;
  template <class L>
  using Green = LaneField<F::spareBits, L>;
  template <class L>
  using Blue = LaneField<0, L>;

  template <class L>
  PXM_INLINE static Red<L> red(L word) {
    return laneField<F::redBits, F::highAt, F::spareBits>(word);
  }
  template <class L>
  PXM_INLINE static Green<L> green(L word) {
    return laneField<F::greenBits, F::greenAt, F::spareBits>(word);
  }
  template <class L>
  PXM_INLINE static Blue<L> blue(L word) {
    return laneField<F::blueBits, 0, 0>(word);
  }
};

// The components of pixels, and the luma that is made from them.
template <class Unpack, class L>
struct LanePixels {
  typename Unpack::template Red<L> red;
  typename Unpack::template Green<L> green;
  typename Unpack::template Blue<L> blue;
  L luma;
};

// A component times `weight`/65536, the component as if it stood at the top.
template <int weight, int headroom, class L>
PXM_INLINE L weighted(LaneField<headroom, L> c) {
  static_assert(weight << headroom < 65536);
  return LaneMulHiU(c.bits, broadcast<L>(weight << headroom));
}

// Sums of a component over the rows of a group: 32 times its eight-bit value.
template <int headroom, class L>
PXM_INLINE L chromaScaled(LaneField<headroom, L> c) {
  return shiftRightLogical<3 - headroom>(c.bits);
}
template <int headroom, class L>
PXM_INLINE L chromaScaled(LaneField<headroom, L> upper, LaneField<headroom, L> lower) {
  if constexpr (headroom == 0) return shiftRightLogical<2>(average(upper.bits, lower.bits));
  if constexpr (headroom == 1) return shiftRightLogical<2>(upper.bits + lower.bits);
}

// Luma by three weights and a bias, all in units of 1/65536.
template <class Unpack, int red, int green, int blue, int bias, class L>
PXM_INLINE LanePixels<Unpack, L> pixelsOf(L word) {
  const auto r = Unpack::red(word);
  const auto g = Unpack::green(word);
  const auto b = Unpack::blue(word);
  const L sum = weighted<laneWeight<red>>(r) + weighted<laneWeight<green>>(g) +
                weighted<laneWeight<blue>>(b) + broadcast<L>(laneBias<bias>);
  return {r, g, b, shiftRightLogical<laneLumaBits>(sum)};
}

// What the chroma of a group is made from, at first a lane for each column and then for each group.
template <class L>
struct LaneParts {
  L first, second, third;
};
template <class L>
struct LaneChromaPair {
  L first, second;
};

template <class L>
PXM_INLINE LaneParts<L> parts(L first, L second, L third) {
  return {first, second, third};
}

// The sums of neighbours, those of the third part `factor` times as large.
template <int factor, class L>
PXM_INLINE LaneParts<L> addParts(const LaneParts<L>& a, const LaneParts<L>& b) {
  return {addNeighbours<1>(a.first, b.first), addNeighbours<1>(a.second, b.second),
          addNeighbours<factor>(a.third, b.third)};
}

// A lane form is made of four steps. `pixels` takes words to what each pixel gives, its luma sample
// among it. `columns` takes one row, or two, to parts; `neighbours` adds those of neighbouring
// columns, or pairs of columns; `chroma` takes the sums of n pixels to the group's two samples.

// YCbCr: luma before its shift is 2112 for black and 29637 for white.
template <class Pixels>
struct LaneYCbCr {
  using Unpack = LaneUnpack<Pixels>;

  template <class L>
  PXM_INLINE static LanePixels<Unpack, L> pixels(L word) {
    return pixelsOf<Unpack, ycbcr::lumaRed, ycbcr::lumaGreen, ycbcr::lumaBlue, ycbcr::lumaBias>(
        word);
  }

  template <class... P>
  PXM_INLINE static auto columns(P... rows) {
    return parts(chromaScaled(rows.red...), chromaScaled(rows.green...),
                 chromaScaled(rows.blue...));
  }

  template <class L>
  PXM_INLINE static LaneParts<L> neighbours(const LaneParts<L>& a, const LaneParts<L>& b) {
    return addParts<1>(a, b);
  }

  // A sum has 32 for a level of each pixel, and so has the bias, which is that of scalar code.
  template <int n, class L>
  PXM_INLINE static LaneChromaPair<L> chroma(const LaneParts<L>& sum) {
    constexpr int bias = n * (ycbcr::chromaBias >> (16 - 5)), shift = 5 + groupBits<n>;
    const L r = sum.first, g = sum.second, b = sum.third;
    const L cb = times<ycbcr::cbBlue>(b) - (times<ycbcr::cbRed>(r) + times<ycbcr::cbGreen>(g));
    const L cr = times<ycbcr::crRed>(r) - (times<ycbcr::crGreen>(g) + times<ycbcr::crBlue>(b));
    return {shiftRightLogical<shift>(cb + broadcast<L>(bias)),
            shiftRightLogical<shift>(cr + broadcast<L>(bias))};
  }

 private:
  template <int weight, class L>
  PXM_INLINE static L times(L sum) {
    return LaneMulHiU(sum, broadcast<L>(weight));
  }
};

// YUV of BGR. Required: chroma is made from luma as it is rounded, and from five bits of red and
// blue against 32 times luma.
template <class Pixels>
struct LaneYuvOfBgr {
  using Unpack = LaneUnpack<Pixels>;

  template <class L>
  PXM_INLINE static LanePixels<Unpack, L> pixels(L word) {
    return pixelsOf<Unpack, yuv::lumaRed, yuv::lumaGreen, yuv::lumaBlue, yuv::lumaHalf>(word);
  }

  template <class P>
  PXM_INLINE static auto columns(P upper, P lower) {
    return parts(chromaScaled(upper.red, lower.red), chromaScaled(upper.blue, lower.blue),
                 upper.luma + lower.luma);
  }

  template <class L>
  PXM_INLINE static LaneParts<L> neighbours(const LaneParts<L>& a, const LaneParts<L>& b) {
    return addParts<32>(a, b);
  }

  template <int n, class L>
  PXM_INLINE static LaneChromaPair<L> chroma(const LaneParts<L>& sum) {
    static_assert(n == 4);
    return {fromDifference<yuv::u / 2>(sum.second - sum.third),
            fromDifference<yuv::v / 2>(sum.first - sum.third)};
  }

 private:
  // 128 and a half, with 64 for a level.
  template <int weight, class L>
  PXM_INLINE static L fromDifference(L difference) {
    return shiftRight<6>(LaneMulHi(difference, broadcast<L>(weight)) + broadcast<L>(128 * 64 + 32));
  }
};

// YUV of RGB565: red in the low bits. Required: its weight of blue less luma is one less than that
// of BGR.
struct LaneYuvOfRgb565 {
  template <class L>
  struct Pixels {
    L red, blue, twiceLuma;
    L luma;
  };

  template <class L>
  PXM_INLINE static Pixels<L> pixels(L word) {
    using F = UnpackRgb565::Fields;
    const L r = laneField<F::redBits, 0, 6>(word).bits;
    const L g = laneField<F::greenBits, F::greenAt, 6>(word).bits;
    const L b = laneField<F::blueBits, F::highAt, 6>(word).bits;
    const L sum = LaneMulHi(r, broadcast<L>(laneWeight<yuv::lumaRed>)) +
                  LaneMulHi(b, broadcast<L>(laneWeight<yuv::lumaBlue>)) +
                  LaneMulHi(g, broadcast<L>(laneWeight<yuv::lumaGreen>));
    return {r, b, sum, average(sum, broadcast<L>(0))};
  }

  template <class P>
  PXM_INLINE static auto columns(P row) {
    return parts(row.red, row.blue, row.twiceLuma);
  }
  template <class P>
  PXM_INLINE static auto columns(P upper, P lower) {
    return parts(upper.red + lower.red, upper.blue + lower.blue, upper.twiceLuma + lower.twiceLuma);
  }

  template <class L>
  PXM_INLINE static LaneParts<L> neighbours(const LaneParts<L>& a, const LaneParts<L>& b) {
    return addParts<1>(a, b);
  }

  template <int n, class L>
  PXM_INLINE static LaneChromaPair<L> chroma(const LaneParts<L>& sum) {
    constexpr int bits = groupBits<n>;
    const L luma = shiftRightLogical<bits>(sum.third);
    const L red = shiftRightLogical<1 + bits>(sum.first);
    const L blue = shiftRightLogical<1 + bits>(sum.second);
    return {LaneMulHi(blue - luma, broadcast<L>(yuv::u / 2 - 1)) + broadcast<L>(128),
            LaneMulHi(red - luma, broadcast<L>(yuv::v / 2)) + broadcast<L>(128)};
  }
};

PXM_LEVEL_END

#endif
