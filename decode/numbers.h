// SPDX-License-Identifier: MIT
// The numbers that the decode forms share, scalar ones and SIMD ones.
#ifndef PXM_DECODE_NUMBERS_H
#define PXM_DECODE_NUMBERS_H

namespace pxm {

// Samples as stored: luma of black in YCbCr, and chroma of grey.
constexpr int blackLuma = 16, greyChroma = 128;

// What a component of the staged forms, and of SIMD, has below a level: sixteenths.
constexpr int fractionBits = 4;

// Weights in units of 1/65536: of luma for all components, of u and v as each component has them.
// Green takes its two.
template <int lumaWeight, int redWeightV, int greenWeightU, int greenWeightV, int blueWeightU>
struct Weights {
  static constexpr int luma = lumaWeight;
  static constexpr int redV = redWeightV, greenU = greenWeightU, greenV = greenWeightV,
                       blueU = blueWeightU;
};

// 1.164, 1.596, 0.392, 0.813, 2.017.
using YCbCrWeights = Weights<76284, 104595, 25690, 53281, 132186>;
// 1, 1.140, 0.394, 0.581, 2.032.
using YuvWeights = Weights<65536, 74711, 25821, 38076, 133169>;

// The same in units of 1/8192, rounded down: what a multiplication of 16-bit numbers takes.
template <class W>
using Narrowed =
    Weights<(W::luma >> 3), (W::redV >> 3), (W::greenU >> 3), (W::greenV >> 3), (W::blueU >> 3)>;

}  // namespace pxm

#endif
