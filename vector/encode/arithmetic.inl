// SPDX-License-Identifier: MIT
// The encode forms in 16-bit lanes, over any lane type. Required: unlike the scalar forms they
// truncate each product on its own. No sum leaves its 16 bits, so wrapping and saturating steps
// agree.
#ifndef PXM_VECTOR_ENCODE_ARITHMETIC_INL
#define PXM_VECTOR_ENCODE_ARITHMETIC_INL

#include "encode/arithmetic.inl"
#include "vector/lane.inl"

PXM_LEVEL_BEGIN

// A colour component in a lane: its bits stand `headroom` places below the top, zeros around them.
template <int headroom, class L>
struct LaneField {
  L bits;
};

// Pixels to components, as near to the top as is cheapest.
template <class Pixels>
struct LaneUnpack;
template <>
struct LaneUnpack<UnpackBgr555> {
  template <class L>
  using Red = LaneField<1, L>;
  template <class L>
  using Green = LaneField<1, L>;
  template <class L>
  using Blue = LaneField<0, L>;

  template <class L>
  PXM_INLINE static Red<L> red(L word) {
    return {word & broadcast<L>(0x7C00)};
  }
  template <class L>
  PXM_INLINE static Green<L> green(L word) {
    return {shiftLeft<5>(word) & broadcast<L>(0x7C00)};
  }
  template <class L>
  PXM_INLINE static Blue<L> blue(L word) {
    return {shiftLeft<11>(word)};
  }
};
template <>
struct LaneUnpack<UnpackBgr565> {
  template <class L>
  using Red = LaneField<0, L>;
  template <class L>
  using Green = LaneField<0, L>;
  template <class L>
  using Blue = LaneField<0, L>;

  template <class L>
  PXM_INLINE static Red<L> red(L word) {
    return {word & broadcast<L>(0xF800)};
  }
  template <class L>
  PXM_INLINE static Green<L> green(L word) {
    return {shiftLeft<5>(word) & broadcast<L>(0xFC00)};
  }
  template <class L>
  PXM_INLINE static Blue<L> blue(L word) {
    return {shiftLeft<11>(word)};
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

// Luma by three weights, and a bias in units of 1/128.
template <class Unpack, int red, int green, int blue, int bias, class L>
PXM_INLINE LanePixels<Unpack, L> pixelsOf(L word) {
  const auto r = Unpack::red(word);
  const auto g = Unpack::green(word);
  const auto b = Unpack::blue(word);
  const L sum = weighted<red>(r) + weighted<green>(g) + weighted<blue>(b) + broadcast<L>(bias);
  return {r, g, b, shiftRightLogical<7>(sum)};
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

// YCbCr: luma from 2112 >> 7 for black to 29637 >> 7 for white.
template <class Pixels>
struct LaneYCbCr {
  using Unpack = LaneUnpack<Pixels>;

  template <class L>
  PXM_INLINE static LanePixels<Unpack, L> pixels(L word) {
    return pixelsOf<Unpack, 8422, 16515, 3212, 2112>(word);
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

  // The bias is 128 and an eighth of a level.
  template <int n, class L>
  PXM_INLINE static LaneChromaPair<L> chroma(const LaneParts<L>& sum) {
    constexpr int bias = n == 4 ? 16400 : 8200, shift = 5 + groupBits<n>;
    const L r = sum.first, g = sum.second, b = sum.third;
    const L cb = times<28770>(b) - (times<9699>(r) + times<19071>(g));
    const L cr = times<28770>(r) - (times<24117>(g) + times<4653>(b));
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
    return pixelsOf<Unpack, 9798, 19235, 3736, 64>(word);
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
    return {fromDifference<16122>(sum.second - sum.third),
            fromDifference<28737>(sum.first - sum.third)};
  }

 private:
  // 8224 is 128 and a half.
  template <int weight, class L>
  PXM_INLINE static L fromDifference(L difference) {
    return shiftRight<6>(LaneMulHi(difference, broadcast<L>(weight)) + broadcast<L>(8224));
  }
};

// YUV of RGB565: red in the low bits. Its weight of blue less luma is 16121, not 16122.
struct LaneYuvOfRgb565 {
  template <class L>
  struct Pixels {
    L red, blue, twiceLuma;
    L luma;
  };

  template <class L>
  PXM_INLINE static Pixels<L> pixels(L word) {
    const L r = shiftLeft<5>(word) & broadcast<L>(0x3E0);
    const L g = shiftRightLogical<1>(word) & broadcast<L>(0x3F0);
    const L b = shiftRightLogical<6>(word) & broadcast<L>(0x3E0);
    const L sum = LaneMulHi(r, broadcast<L>(9798)) + LaneMulHi(b, broadcast<L>(3736)) +
                  LaneMulHi(g, broadcast<L>(19235));
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
    return {LaneMulHi(blue - luma, broadcast<L>(16121)) + broadcast<L>(128),
            LaneMulHi(red - luma, broadcast<L>(28737)) + broadcast<L>(128)};
  }
};

PXM_LEVEL_END

#endif
