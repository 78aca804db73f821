// SPDX-License-Identifier: MIT

#include <cstddef>

#include "encode_job.h"
#include "vector_encode.h"

namespace oracle {
namespace {

struct Sums {
  int r = 0;
  int g = 0;
  int b = 0;
  void add(Rgb c) {
    r += c.r;
    g += c.g;
    b += c.b;
  }
};

constexpr YCbCrForms kScalar = {encodeLuma, encodeCb, encodeCr};
constexpr YCbCrForms kLanes = {laneLuma, laneCb, laneCr};

// The forms of the group that begins at a column.
const YCbCrForms& formsAt(const EncodeJob& job, int column) {
  return column < job.vectorColumns ? kLanes : kScalar;
}

int cbOf(const YCbCrForms& forms, const Sums& s, int groupSize) {
  return forms.cb(s.r, s.g, s.b, groupSize);
}
int crOf(const YCbCrForms& forms, const Sums& s, int groupSize) {
  return forms.cr(s.r, s.g, s.b, groupSize);
}

// Encodes the luma of a pixel that is in no group. No block does that.
void encodeLumaOnly(const EncodeJob& job, const std::uint8_t* source, std::uint8_t* luma,
                    int column) {
  storeByte(luma, column, encodeLuma(pixelAt(job, source, column)));
}

// Encodes the luma of count pixels from a column on, and sums their components.
Sums encodeGroup(const EncodeJob& job, const YCbCrForms& forms, const std::uint8_t* source,
                 std::uint8_t* luma, int column, int count) {
  Sums sums;
  for (int k = 0; k < count; ++k) {
    const Rgb c = pixelAt(job, source, column + k);
    storeByte(luma, column + k, forms.luma(c));
    sums.add(c);
  }
  return sums;
}

void encodePairOfRows(const EncodeJob& job, int pair) {
  const EncodeCall& call = job.call;
  const auto source = sourcePair(call, pair, evenStep(call.srcStep));
  const auto luma = lumaPair(call, pair);
  std::uint8_t* cb = wrappedRowAt(call.dst[1], call.dstStep[1], pair);
  std::uint8_t* cr = wrappedRowAt(call.dst[2], call.dstStep[2], pair);
  for (int i = 0; i < call.width / 2; ++i) {
    const YCbCrForms& forms = formsAt(job, 2 * i);
    Sums sums = encodeGroup(job, forms, source.upper, luma.upper, 2 * i, 2);
    const Sums lower = encodeGroup(job, forms, source.lower, luma.lower, 2 * i, 2);
    sums.add({lower.r, lower.g, lower.b});
    storeByte(cb, i, cbOf(forms, sums, 4));
    storeByte(cr, i, crOf(forms, sums, 4));
  }
  if (call.width % 2 != 0) {
    encodeLumaOnly(job, source.upper, luma.upper, call.width - 1);
    encodeLumaOnly(job, source.lower, luma.lower, call.width - 1);
  }
}

}  // namespace

// An odd last column or row gets its luma and no chroma.
void encode420(const EncodeJob& job) {
  const EncodeCall& call = job.call;
  const int pairs = call.height / 2;
  for (int pair = 0; pair < pairs; ++pair) encodePairOfRows(job, pair);
  if (call.height % 2 == 0) return;
  const std::uint8_t* source = rowAt(call.src, std::int64_t{call.srcStep} * 2, pairs);
  std::uint8_t* luma = wrappedRowAt(call.dst[0], call.dstStep[0], call.height - 1);
  for (int column = 0; column < call.width; ++column) encodeLumaOnly(job, source, luma, column);
}

// An odd last pixel gets its luma and no chroma.
void encode422Planar(const EncodeJob& job) {
  const EncodeCall& call = job.call;
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src, call.srcStep, row);
    std::uint8_t* luma = rowAt(call.dst[0], call.dstStep[0], row);
    std::uint8_t* cb = rowAt(call.dst[1], call.dstStep[1], row);
    std::uint8_t* cr = rowAt(call.dst[2], call.dstStep[2], row);
    for (int i = 0; i < call.width / 2; ++i) {
      const YCbCrForms& forms = formsAt(job, 2 * i);
      const Sums sums = encodeGroup(job, forms, source, luma, 2 * i, 2);
      storeByte(cb, i, cbOf(forms, sums, 2));
      storeByte(cr, i, crOf(forms, sums, 2));
    }
    if (call.width % 2 != 0) encodeLumaOnly(job, source, luma, call.width - 1);
  }
}

// An odd last pixel gets its luma and a Cb of its own, and no Cr.
void encode422Interleaved(const EncodeJob& job) {
  const EncodeCall& call = job.call;
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src, call.srcStep, row);
    std::uint8_t* target = rowAt(call.dst[0], call.dstStep[0], row);
    for (int i = 0; i < call.width / 2; ++i, target += 4) {
      const YCbCrForms& forms = formsAt(job, 2 * i);
      const Rgb even = pixelAt(job, source, 2 * i), odd = pixelAt(job, source, 2 * i + 1);
      const Sums sums{even.r + odd.r, even.g + odd.g, even.b + odd.b};
      storeByte(target, 0, forms.luma(even));
      storeByte(target, 1, cbOf(forms, sums, 2));
      storeByte(target, 2, forms.luma(odd));
      storeByte(target, 3, crOf(forms, sums, 2));
    }
    if (call.width % 2 == 0) continue;
    const Rgb last = pixelAt(job, source, call.width - 1);
    storeByte(target, 0, encodeLuma(last));
    storeByte(target, 1, encodeCbSingle(last));
  }
}

// The columns after the last whole group of four get their luma at most.
void encode411(const EncodeJob& job, bool lumaBeyond) {
  const EncodeCall& call = job.call;
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src, call.srcStep, row);
    std::uint8_t* luma = rowAt(call.dst[0], call.dstStep[0], row);
    std::uint8_t* cb = rowAt(call.dst[1], call.dstStep[1], row);
    std::uint8_t* cr = rowAt(call.dst[2], call.dstStep[2], row);
    for (int i = 0; i < call.width / 4; ++i) {
      const YCbCrForms& forms = formsAt(job, 4 * i);
      const Sums sums = encodeGroup(job, forms, source, luma, 4 * i, 4);
      storeByte(cb, i, cbOf(forms, sums, 4));
      storeByte(cr, i, crOf(forms, sums, 4));
    }
    if (!lumaBeyond) continue;
    for (int column = call.width / 4 * 4; column < call.width; ++column) {
      encodeLumaOnly(job, source, luma, column);
    }
  }
}

}  // namespace oracle
