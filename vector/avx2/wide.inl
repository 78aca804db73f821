// SPDX-License-Identifier: MIT
// Rows of pixels in 256-bit lanes: main blocks of 16 columns, one of 8, then the scalar tail.
#ifndef PXM_VECTOR_AVX2_WIDE_INL
#define PXM_VECTOR_AVX2_WIDE_INL

#include "vector/avx2/lanes.inl"
#include "vector/blocks.inl"
#ifdef PXM_WIDE_LANES
#include "vector/avx2/decode.inl"
#endif

PXM_TEXT_BEGIN

constexpr Cut cutBySixteenEight = {16, ~15, {8}};

// A: the luma times 128 less 2048.
PXM_INLINE I16x16 wideLuma(I16x16 y) {
  return LaneMulHi(shiftLeft<7>(y - all<I16x16>(16)), all<I16x16>(9535));
}

template <class Packer>
using Blocks420 = Blocks<PlanarRows<2, 1>, DecodeStaged, Packer, DecodeStaged>;

// Both chroma planes share a register: Cr in the low half, Cb in the high half.
template <class Packer>
struct WideRows420 : Blocks420<Packer> {
  static constexpr Cut cut = cutBySixteenEight;
  static constexpr int widest = 0;

  template <int n>
  PXM_INLINE void block(ptrdiff_t x) const {
    if constexpr (n == 16)
      wideBlock(x);
    else
      Blocks420<Packer>::template block<n>(x);
  }

  PXM_INLINE void wideBlock(ptrdiff_t x) const {
    const __m128i crCb = _mm_unpacklo_epi64(loadBytes<8>(this->source.cr + (x >> 1)),
                                            loadBytes<8>(this->source.cb + (x >> 1)));
    const I16x16 c = shiftLeft<7>(widened(crCb) - all<I16x16>(128));
    const I16x16 redBlue = LaneMulHi(c, halves(13074, 16523));
    const I16x16 greens = LaneMulHi(c, halves(6660, 3211));
    const I16x8 green = lowHalf(greens) + highHalf(greens);
    const LaneTerms<I16x16> terms = {doubled(lowHalf(redBlue)), doubled(green),
                                     doubled(highHalf(redBlue))};
    const LaneRow<Packer, I16x16> lanes(0);
    const TwoOfPixels<I16x16> rows =
        packTwo<true>(lanes, luma(0, x), terms, lanes, luma(1, x), terms);
    storePixels(this->out[0].pixels + 2 * x, rows.first);
    storePixels(this->out[1].pixels + 2 * x, rows.second);
  }

 private:
  PXM_INLINE I16x16 luma(int row, ptrdiff_t x) const {
    return wideLuma(widened(loadBytes<16>(this->source.luma[row] + x)));
  }
};

// The tail of the wide 4:2:2 kernels, rounded in all components. Required: its weights are those of
// no other form.
struct DecodeRoundedLow {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb - 128;
    const int v = c.cr - 128;
    return {v * 104593, -u * 25689 - v * 53279, u * 132184};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) {
    return sum<16>((y - 16) * 76282 + 32768, t);
  }
};

template <>
struct ChainOf<DecodeRoundedLow> {
  using Type = RoundedNarrowChain;
  static constexpr bool repeatsLastBlock = false;
};

template <class Packer>
using Blocks422 = Blocks<PackedRow422LastCr, DecodeRoundedLow, Packer, DecodeRoundedLow>;

// Cb and Cr share a register in turn, and each takes its own weights there. Required: an image one
// pixel wide is no special case, and its Cr is the byte ahead of the row.
template <class Packer>
struct WideRow422 : Blocks422<Packer> {
  static constexpr Cut cut = cutBySixteenEight;
  static constexpr int widest = 32;

  template <int n>
  PXM_INLINE void block(ptrdiff_t x) const {
    if constexpr (n == 16)
      wideBlock(x);
    else
      Blocks422<Packer>::template block<n>(x);
  }

  PXM_INLINE void wideBlock(ptrdiff_t x) const {
    const I16x16 words = wordsAt(x);
    storePixels(this->out[0].pixels + 2 * x, packed(words, words).first);
  }

  PXM_INLINE void widestBlock(ptrdiff_t x) const {
    const TwoOfPixels<I16x16> columns = packed(wordsAt(x), wordsAt(x + 16));
    storePixels(this->out[0].pixels + 2 * x, columns.first);
    storePixels(this->out[0].pixels + 2 * x + 32, columns.second);
  }

 private:
  PXM_INLINE static TwoOfPixels<I16x16> packed(I16x16 a, I16x16 b) {
    const LaneRow<Packer, I16x16> lanes(0);
    return packTwo<true>(lanes, luma(a), terms(a), lanes, luma(b), terms(b));
  }
  PXM_INLINE I16x16 wordsAt(ptrdiff_t x) const { return load16Lanes(this->source.samples + 2 * x); }
  PXM_INLINE static I16x16 luma(I16x16 words) {
    return wideLuma(words & all<I16x16>(255)) + all<I16x16>(8);
  }
  PXM_INLINE static LaneTerms<I16x16> terms(I16x16 words) {
    const I16x16 c = shiftLeft<7>(shiftRightLogical<8>(words) - all<I16x16>(128));
    const I16x16 blueRed = LaneMulHi(c, alternating(16523, 13074));
    const I16x16 greens = LaneMulHi(c, alternating(3211, 6660));
    return {oddWordsDoubled(blueRed), evenWordsDoubled(greens) + oddWordsDoubled(greens),
            evenWordsDoubled(blueRed)};
  }
};

PXM_TEXT_END

#endif
