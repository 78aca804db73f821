// SPDX-License-Identifier: MIT
// What AVX2 owes in particular: from interleaved 4:2:2 to BGR555 and BGR565, and to these alone,
// all components are rounded.
#ifndef PXM_VECTOR_DECODE_ROUNDED_INL
#define PXM_VECTOR_DECODE_ROUNDED_INL

#include "decode/image.inl"
#include "decode/kernel_of.inl"

PXM_LEVEL_BEGIN

// The tail. Required: its weights are those of no other form.
struct DecodeRoundedLow {
  PXM_INLINE static Terms chroma(const Chroma& c) {
    const int u = c.cb - greyChroma;
    const int v = c.cr - greyChroma;
    return {v * 104593, -u * 25689 - v * 53279, u * 132184};
  }
  PXM_INLINE static Channels join(int y, const Terms& t) {
    return sum<16>((y - blackLuma) * 76282 + halfLevel, t);
  }
};

template <>
struct ChainOf<DecodeRoundedLow> : Chosen<RoundedNarrowChain, Exactness::Differs> {};

// Required: in BGR order an image one pixel wide is no special case, and its Cr is the byte before
// the row.
template <class Packer>
struct RoundedToBgr {
  PXM_INLINE static void run(const BytesToPixels& a, int dstPitch, int isBgr) {
    using Source = InterleavedImage422LastCr;
    if (isBgr)
      EveryRow<Source>::decode<DecodeRoundedLow, Packer>(a, dstPitch, 1);
    else
      EveryRowOrThreeBytes<Source>::decode<DecodeFolded, Packer>(a, dstPitch, 0);
  }
};
template <>
struct KernelOf<EveryRowOrThreeBytes<InterleavedImage422LastCr>, DecodeFolded, PackPlain<555>>
    : RoundedToBgr<PackPlain<555>> {};
template <>
struct KernelOf<EveryRowOrThreeBytes<InterleavedImage422LastCr>, DecodeFolded, PackPlain<565>>
    : RoundedToBgr<PackPlain<565>> {};

PXM_LEVEL_END

#endif
