// SPDX-License-Identifier: MIT
// The numbers that the encode forms share, scalar ones and SIMD ones.
#ifndef PXM_ENCODE_NUMBERS_H
#define PXM_ENCODE_NUMBERS_H

namespace pxm {

// Weights in units of 1/65536: of luma, and of what chroma is made from.
namespace ycbcr {
constexpr int lumaRed = 16843, lumaGreen = 33030, lumaBlue = 6423;  // 0.257, 0.504, 0.098
constexpr int lumaBias = 16 * 65536 + 32768;                        // 16.5
// 0.439, -0.291, -0.148 and 0.439, -0.368, -0.071; each three add up to zero.
constexpr int cbBlue = 28770, cbGreen = 19071, cbRed = 9699;
constexpr int crRed = 28770, crGreen = 24117, crBlue = 4653;
static_assert(cbBlue == cbGreen + cbRed && crRed == crGreen + crBlue);
// For a pixel: 128 and an EIGHTH of an output step, not a half. Required.
constexpr int chromaBias = 128 * 65536 + 65536 / 8;
}  // namespace ycbcr

namespace yuv {
constexpr int lumaRed = 19595, lumaGreen = 38470, lumaBlue = 7471;  // 0.299, 0.587, 0.114
constexpr int lumaHalf = 32768;
constexpr int u = 32244, v = 57475;  // 0.492, 0.877
}  // namespace yuv

// The luma of 16-bit lanes is in units of 1/128 of a level. The weights that make it of components
// at the top of a lane are half as large, rounded up; a bias is so many times smaller.
constexpr int laneLumaBits = 7;
template <int weight>
constexpr int laneWeight = (weight + 1) / 2;
template <int bias>
constexpr int laneBias = bias >> (16 - laneLumaBits);
static_assert(laneBias<ycbcr::lumaBias> << (16 - laneLumaBits) == ycbcr::lumaBias);

}  // namespace pxm

#endif
