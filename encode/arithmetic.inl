// SPDX-License-Identifier: MIT
// Red, green and blue to luma and chroma, in 32-bit integers with arithmetic shifts. YCbCr is ITU-R
// BT.601 studio range by a full matrix; YUV is full range by differences from luma. The sums of a
// group of 2 or 4 pixels are never divided: the last shift does it.
#ifndef PXM_ENCODE_ARITHMETIC_INL
#define PXM_ENCODE_ARITHMETIC_INL

#include <stdint.h>

#include "encode/numbers.h"
#include "encode/unpack.inl"

PXM_LEVEL_BEGIN

// The bits that a group of n pixels adds to a shift.
template <int n>
constexpr int groupBits = n == 4   ? 2
                          : n == 2 ? 1
                                   : 0;

// 16 to 231, never out of a byte.
PXM_INLINE uint8_t EncodeLuma(const Components& c) {
  using namespace ycbcr;
  return static_cast<uint8_t>(
      (lumaBlue * c.blue + lumaGreen * c.green + lumaRed * c.red + lumaBias) >> 16);
}

// The byte is the eight bits from the shift on. 256 less keeps the sum mostly negative and the byte
// as it is.
template <int n>
PXM_INLINE uint8_t chromaByte(int weighted) {
  constexpr int bias = n * (ycbcr::chromaBias - 256 * 65536);
  return static_cast<uint8_t>((weighted + bias) >> (16 + groupBits<n>));
}

// The weights add up to zero, so grey is the bias alone.
template <int n>
PXM_INLINE uint8_t EncodeCb(const Components& sum) {
  using namespace ycbcr;
  return chromaByte<n>(cbBlue * sum.blue - cbGreen * sum.green - cbRed * sum.red);
}

template <int n>
PXM_INLINE uint8_t EncodeCr(const Components& sum) {
  using namespace ycbcr;
  return chromaByte<n>(crRed * sum.red - crBlue * sum.blue - crGreen * sum.green);
}

PXM_INLINE uint8_t EncodeCbSingle(const Components& c) {
  return EncodeCb<1>(c);
}

// Luma, not yet rounded, in units of 1/65536; below 2^24.
PXM_INLINE int EncodeYuvWeight(const Components& c) {
  return yuv::lumaRed * c.red + yuv::lumaGreen * c.green + yuv::lumaBlue * c.blue;
}

template <int rounding>
PXM_INLINE uint8_t EncodeYuvLuma(int weight) {
  return static_cast<uint8_t>((weight + rounding) >> 16);
}

// The sum of a component less the sum of luma, in whole levels, rounded up but for 1/65536 of the
// group.
template <int n>
PXM_INLINE int lumaDifference(int sum, int weights) {
  constexpr int bias = n == 4 ? 131071 : 65535;
  return ((sum << 16) - weights + bias) >> 16;
}

// Of B - Y. Stays in 18..236, so the low eight bits are the value.
template <int n>
PXM_INLINE uint8_t EncodeU(int sumBlue, int weights) {
  return static_cast<uint8_t>(
      (lumaDifference<n>(sumBlue, weights) * yuv::u >> (16 + groupBits<n>)) - 128);
}

// Of R - Y. Reaches -27..280: the one saturation of the encoders.
template <int n>
PXM_INLINE uint8_t EncodeV(int sumRed, int weights) {
  const int v = (lumaDifference<n>(sumRed, weights) * yuv::v >> (16 + groupBits<n>)) + 128;
  return static_cast<uint8_t>(v < 0 ? 0 : v > 255 ? 255 : v);
}

// A group of n pixels while it is being read: gives each pixel's luma and, when all have been
// added, the group's two chroma samples.
template <int n>
struct YCbCrGroup {
  Components sum = {0, 0, 0};
  PXM_INLINE uint8_t add(const Components& c) {
    sum = {sum.red + c.red, sum.green + c.green, sum.blue + c.blue};
    return EncodeLuma(c);
  }
  PXM_INLINE uint8_t first() const { return EncodeCb<n>(sum); }
  PXM_INLINE uint8_t second() const { return EncodeCr<n>(sum); }
};

template <int n, int rounding>
struct YuvGroup {
  int red = 0, blue = 0, weights = 0;
  PXM_INLINE uint8_t add(const Components& c) {
    const int weight = EncodeYuvWeight(c);
    red += c.red;
    blue += c.blue;
    weights += weight;
    return EncodeYuvLuma<rounding>(weight);
  }
  PXM_INLINE uint8_t first() const { return EncodeU<n>(blue, weights); }
  PXM_INLINE uint8_t second() const { return EncodeV<n>(red, weights); }
};

// Required: from RGB luma is truncated, from BGR it is rounded.
template <int n>
using YuvGroupOfBgr = YuvGroup<n, yuv::lumaHalf>;
template <int n>
using YuvGroupOfRgb = YuvGroup<n, 0>;

PXM_LEVEL_END

#endif
