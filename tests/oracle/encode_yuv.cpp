// SPDX-License-Identifier: MIT

#include "encode_job.h"
#include "vector_encode.h"

namespace oracle {
namespace {

// What the chroma of a group comes from. Green takes part through the weight alone.
struct YuvSums {
  int r = 0;
  int b = 0;
  std::int64_t weight = 0;
  void add(Rgb c, std::int64_t pixelWeight) {
    r += c.r;
    b += c.b;
    weight += pixelWeight;
  }
};

// The scalar code of BGR rounds its luma to nearest. That of RGB does not.
int bgrLuma(std::int64_t weight) {
  return encodeYuvLuma(weight, 32768);
}
int rgbLuma(std::int64_t weight) {
  return encodeYuvLuma(weight, 0);
}

// In SIMD BGR has groups of four alone.
int bgrLanesU(int sumB, std::int64_t levelSum, int /*groupSize*/) {
  return laneBgrU(sumB, levelSum);
}
int bgrLanesV(int sumR, std::int64_t levelSum, int /*groupSize*/) {
  return laneBgrV(sumR, levelSum);
}

// The two ways in which a source is encoded.
struct YuvSource {
  YuvForms scalar;
  YuvForms lanes;
  const YuvForms& formsAt(const EncodeJob& job, int column) const {
    return column < job.vectorColumns ? lanes : scalar;
  }
};

constexpr YuvSource kBgr = {{encodeYuvWeight, bgrLuma, encodeU, encodeV},
                            {laneBgrLevel, laneBgrLuma, bgrLanesU, bgrLanesV}};
constexpr YuvSource kRgb = {{encodeYuvWeight, rgbLuma, encodeU, encodeV},
                            {laneRgbWeight, laneRgbLuma, laneRgbU, laneRgbV}};

// Encodes the luma of the two pixels from a column on, and adds them to the sums.
void encodeTwo(const EncodeJob& job, const YuvForms& forms, const std::uint8_t* source,
               std::uint8_t* luma, int column, YuvSums& sums) {
  for (int k = 0; k < 2; ++k) {
    const Rgb c = pixelAt(job, source, column + k);
    const std::int64_t weight = forms.weight(c);
    storeByte(luma, column + k, forms.luma(weight));
    sums.add(c, weight);
  }
}

// lowerStep is the distance from the upper to the lower row of a source pair. An odd last column or
// row is left alone, its luma as well.
void encodeYuv420(const EncodeJob& job, const YuvSource& kind, std::int64_t lowerStep) {
  const EncodeCall& call = job.call;
  for (int pair = 0; pair < call.height / 2; ++pair) {
    const auto source = sourcePair(call, pair, lowerStep);
    const auto luma = lumaPair(call, pair);
    std::uint8_t* u = wrappedRowAt(call.dst[1], call.dstStep[1], pair);
    std::uint8_t* v = wrappedRowAt(call.dst[2], call.dstStep[2], pair);
    for (int i = 0; i < call.width / 2; ++i) {
      const YuvForms& forms = kind.formsAt(job, 2 * i);
      YuvSums sums;
      encodeTwo(job, forms, source.upper, luma.upper, 2 * i, sums);
      encodeTwo(job, forms, source.lower, luma.lower, 2 * i, sums);
      storeByte(u, i, forms.u(sums.b, sums.weight, 4));
      storeByte(v, i, forms.v(sums.r, sums.weight, 4));
    }
  }
}

}  // namespace

void encodeBgrToYuv420(const EncodeJob& job) {
  encodeYuv420(job, kBgr, evenStep(job.call.srcStep));
}

void encodeRgbToYuv420(const EncodeJob& job) {
  encodeYuv420(job, kRgb, job.call.srcStep);
}

// An odd last column is left alone, its luma as well.
void encodeRgbToYuv422(const EncodeJob& job) {
  const EncodeCall& call = job.call;
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src, call.srcStep, row);
    std::uint8_t* luma = wrappedRowAt(call.dst[0], call.dstStep[0], row);
    std::uint8_t* u = wrappedRowAt(call.dst[1], call.dstStep[1], row);
    std::uint8_t* v = wrappedRowAt(call.dst[2], call.dstStep[2], row);
    for (int i = 0; i < call.width / 2; ++i) {
      const YuvForms& forms = kRgb.formsAt(job, 2 * i);
      YuvSums sums;
      encodeTwo(job, forms, source, luma, 2 * i, sums);
      storeByte(u, i, forms.u(sums.b, sums.weight, 2));
      storeByte(v, i, forms.v(sums.r, sums.weight, 2));
    }
  }
}

}  // namespace oracle
