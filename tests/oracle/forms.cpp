// SPDX-License-Identifier: MIT

#include "forms.h"

#include "arithmetic.h"
#include "oracle.h"

namespace oracle {
namespace {

using Wide = std::int64_t;

Rgb saturated(const Indices& i) {
  return {saturate(i.r), saturate(i.g), saturate(i.b)};
}

// The multipliers of a staged form. Those of green are subtracted.
struct StagedFactors {
  Wide red, greenU, greenV, blue;
};

// Adds the chroma terms to luma scaled by 16. Each product is shifted on its own before it is
// added, which is what sets the staged forms apart.
Indices stagedSum(Wide luma, int first, int second, const StagedFactors& f) {
  const Wide u = Wide{first} * 128 - 16384;
  const Wide v = Wide{second} * 128 - 16384;
  const Wide red = floorShift(v * f.red, 16);
  const Wide greenU = floorShift(u * f.greenU, 16);
  const Wide greenV = floorShift(v * f.greenV, 16);
  const Wide blue = floorShift(u * f.blue, 16);
  return {floorShift(luma + red, 4), floorShift(luma - greenU - greenV, 4),
          floorShift(luma + blue, 4)};
}

}  // namespace

Indices stagedIndices(int y, int cb, int cr) {
  const Wide luma = floorShift(Wide{y} * 128 * 9535 - kStagedBlack, 16);
  return stagedSum(luma, cb, cr, {13074, 3211, 6660, 16523});
}

Indices wideIndices(int y, int cb, int cr) {
  const Wide luma = Wide{y} * 76284 - kWideBlack;
  const Wide u = Wide{cb} - 128;
  const Wide v = Wide{cr} - 128;
  return {floorShift(luma + v * 104595, 16), floorShift(luma - u * 25690 - v * 53281, 16),
          floorShift(luma + u * 132186, 16)};
}

Indices foldedIndices(int y, int cb, int cr) {
  const Wide luma = Wide{y} * 76284;
  return {floorShift(luma + Wide{cr} * 104595 + kFoldedOffsetR, 16),
          floorShift(luma - Wide{cb} * 25690 - Wide{cr} * 53281 + kFoldedOffsetG, 16),
          floorShift(luma + Wide{cb} * 132186 + kFoldedOffsetB, 16)};
}

// Green is rounded to nearest as well.
Indices roundedIndices(int y, int cb, int cr) {
  const Wide luma = Wide{y} * 76284 - kWideBlack + kRounding;
  const Wide u = Wide{cb} - 128;
  const Wide v = Wide{cr} - 128;
  return {floorShift(luma + v * 104595, 16), floorShift(luma - u * 25690 - v * 53281, 16),
          floorShift(luma + u * 132186, 16)};
}

Indices yuvPlainIndices(int y, int u, int v) {
  const Wide luma = Wide{y} * 65536;
  const Wide du = Wide{u} - 128;
  const Wide dv = Wide{v} - 128;
  return {floorShift(luma + dv * 74711, 16), floorShift(luma - dv * 38076 - du * 25821, 16),
          floorShift(luma + du * 133169, 16)};
}

// Red and blue are rounded to nearest. Green is not.
Indices yuvRoundedIndices(int y, int u, int v) {
  const Wide luma = Wide{y} * 65536;
  const Wide du = Wide{u} - 128;
  const Wide dv = Wide{v} - 128;
  return {floorShift(luma + dv * 74711 + kYuvRounding, 16),
          floorShift(luma - dv * 38076 - du * 25821, 16),
          floorShift(luma + du * 133169 + kYuvRounding, 16)};
}

Indices yuvStagedIndices(int y, int u, int v) {
  return stagedSum(Wide{y} * 16, u, v, {9338, 3227, 4759, 16646});
}

Rgb decodeStaged(int y, int cb, int cr) {
  return saturated(stagedIndices(y, cb, cr));
}
Rgb decodeWide(int y, int cb, int cr) {
  return saturated(wideIndices(y, cb, cr));
}
Rgb decodeFolded(int y, int cb, int cr) {
  return saturated(foldedIndices(y, cb, cr));
}
Rgb decodeRounded(int y, int cb, int cr) {
  return saturated(roundedIndices(y, cb, cr));
}
Rgb decodeYuvPlain(int y, int u, int v) {
  return saturated(yuvPlainIndices(y, u, v));
}
Rgb decodeYuvRounded(int y, int u, int v) {
  return saturated(yuvRoundedIndices(y, u, v));
}
Rgb decodeYuvStaged(int y, int u, int v) {
  return saturated(yuvStagedIndices(y, u, v));
}

}  // namespace oracle
