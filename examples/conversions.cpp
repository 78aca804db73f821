// SPDX-License-Identifier: MIT
#include "conversions.h"

#include <iterator>

#include "failure.h"
#include "status.h"

namespace examples {

namespace {

// The colour that a name spells first sits in the low bits.
constexpr PackedLayout kBgr444 = {{8, 4}, {4, 4}, {0, 4}};
constexpr PackedLayout kRgb444 = {{0, 4}, {4, 4}, {8, 4}};
constexpr PackedLayout kBgr555 = {{10, 5}, {5, 5}, {0, 5}};
constexpr PackedLayout kRgb555 = {{0, 5}, {5, 5}, {10, 5}};
constexpr PackedLayout kBgr565 = {{11, 5}, {5, 6}, {0, 5}};
constexpr PackedLayout kRgb565 = {{0, 5}, {5, 6}, {11, 5}};

// In the order of SourceFormat::to.
constexpr TargetFormat kTargets[] = {
    {"bgr565", kBgr565}, {"rgb565", kRgb565}, {"bgr555", kBgr555},
    {"rgb555", kRgb555}, {"bgr444", kBgr444}, {"rgb444", kRgb444},
};

// A conversion of three planes of equal size, which takes one pitch for all of them.
template <pxmStatus (*conversion)(const unsigned char* [3], int, unsigned short*, int, pxmSize)>
pxmStatus onePitch(const unsigned char* src[3], int srcStep[3], unsigned short* dst, int dstStep,
                   pxmSize roiSize) {
  return conversion(src, srcStep[0], dst, dstStep, roiSize);
}

// Every size is as good as another.
constexpr SourceFormat kYcbcr444 = {Matrix::kYcbcr,
                                    0,
                                    0,
                                    {},
                                    {{onePitch<legacy90pxmiYCbCrToBGR565_8u16u_P3C3R>,
                                      onePitch<legacy90pxmiYCbCrToBGR565Dither_8u16u_P3C3R>},
                                     {onePitch<legacy90pxmiYCbCrToRGB565_8u16u_P3C3R>,
                                      onePitch<legacy90pxmiYCbCrToRGB565Dither_8u16u_P3C3R>},
                                     {onePitch<legacy90pxmiYCbCrToBGR555_8u16u_P3C3R>,
                                      onePitch<legacy90pxmiYCbCrToBGR555Dither_8u16u_P3C3R>},
                                     {onePitch<legacy90pxmiYCbCrToRGB555_8u16u_P3C3R>,
                                      onePitch<legacy90pxmiYCbCrToRGB555Dither_8u16u_P3C3R>},
                                     {onePitch<legacy90pxmiYCbCrToBGR444_8u16u_P3C3R>,
                                      onePitch<legacy90pxmiYCbCrToBGR444Dither_8u16u_P3C3R>},
                                     {onePitch<legacy90pxmiYCbCrToRGB444_8u16u_P3C3R>,
                                      onePitch<legacy90pxmiYCbCrToRGB444Dither_8u16u_P3C3R>}}};

// Some variants write nothing of a region one pixel wide.
constexpr SourceFormat kYcbcr422 = {
    Matrix::kYcbcr,
    1,
    0,
    {.leastWidth = 2},
    {{legacy90pxmiYCbCr422ToBGR565_8u16u_P3C3R, legacy90pxmiYCbCr422ToBGR565Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr422ToRGB565_8u16u_P3C3R, legacy90pxmiYCbCr422ToRGB565Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr422ToBGR555_8u16u_P3C3R, legacy90pxmiYCbCr422ToBGR555Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr422ToRGB555_8u16u_P3C3R, legacy90pxmiYCbCr422ToRGB555Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr422ToBGR444_8u16u_P3C3R, legacy90pxmiYCbCr422ToBGR444Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr422ToRGB444_8u16u_P3C3R, legacy90pxmiYCbCr422ToRGB444Dither_8u16u_P3C3R}}};

constexpr SourceFormat kYcbcr420 = {
    Matrix::kYcbcr,
    1,
    1,
    {.rowsWithin32Bits = true},
    {{legacy90pxmiYCbCr420ToBGR565_8u16u_P3C3R, legacy90pxmiYCbCr420ToBGR565Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr420ToRGB565_8u16u_P3C3R, legacy90pxmiYCbCr420ToRGB565Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr420ToBGR555_8u16u_P3C3R, legacy90pxmiYCbCr420ToBGR555Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr420ToRGB555_8u16u_P3C3R, legacy90pxmiYCbCr420ToRGB555Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr420ToBGR444_8u16u_P3C3R, legacy90pxmiYCbCr420ToBGR444Dither_8u16u_P3C3R},
     {legacy90pxmiYCbCr420ToRGB444_8u16u_P3C3R, legacy90pxmiYCbCr420ToRGB444Dither_8u16u_P3C3R}}};

// Plain conversions write nothing of a region one pixel wide or high.
constexpr SourceFormat kYuv420 = {
    Matrix::kYuv,
    1,
    1,
    {.leastWidth = 2, .leastHeight = 2, .rowsWithin32Bits = true},
    {{legacy90pxmiYUV420ToBGR565_8u16u_P3C3R, legacy90pxmiYUV420ToBGR565Dither_8u16u_P3C3R},
     {legacy90pxmiYUV420ToRGB565_8u16u_P3C3R, legacy90pxmiYUV420ToRGB565Dither_8u16u_P3C3R},
     {legacy90pxmiYUV420ToBGR555_8u16u_P3C3R, legacy90pxmiYUV420ToBGR555Dither_8u16u_P3C3R},
     {legacy90pxmiYUV420ToRGB555_8u16u_P3C3R, legacy90pxmiYUV420ToRGB555Dither_8u16u_P3C3R},
     {legacy90pxmiYUV420ToBGR444_8u16u_P3C3R, legacy90pxmiYUV420ToBGR444Dither_8u16u_P3C3R},
     {legacy90pxmiYUV420ToRGB444_8u16u_P3C3R, legacy90pxmiYUV420ToRGB444Dither_8u16u_P3C3R}}};

// Less than a whole group of four columns is rejected or takes the chroma of another.
constexpr SourceFormat kYcbcr411 = {Matrix::kYcbcr,
                                    2,
                                    0,
                                    {.widthMultiple = 4},
                                    {{legacy90pxmiYCbCr411ToBGR565_8u16u_P3C3R, nullptr},
                                     {},
                                     {legacy90pxmiYCbCr411ToBGR555_8u16u_P3C3R, nullptr},
                                     {},
                                     {},
                                     {}}};

constexpr const SourceFormat* kSources[] = {&kYcbcr444, &kYcbcr422, &kYcbcr420, &kYuv420,
                                            &kYcbcr411};

// What there is for a source that does not go everywhere.
std::string whereItGoes(const SourceFormat& source) {
  std::string names;
  for (size_t i = 0; i < std::size(kTargets); ++i) {
    if (source.to[i].plain != nullptr) {
      names += names.empty() ? "" : " and ";
      names += kTargets[i].name;
    }
  }
  return names + " without --dither, and nowhere else";
}

}  // namespace

const TargetFormat& findTarget(std::string_view name) {
  for (const TargetFormat& target : kTargets) {
    if (target.name == name) {
      return target;
    }
  }
  throw UsageFailure("--to " + quoted(name) + " is not one of " + targetNames(", "));
}

std::string targetNames(std::string_view separator) {
  std::string names;
  for (const TargetFormat& target : kTargets) {
    names += names.empty() ? "" : separator;
    names += target.name;
  }
  return names;
}

const SourceFormat& findSource(const ChromaFormat& chroma, Matrix matrix) {
  for (const SourceFormat* source : kSources) {
    if (source->matrix == matrix && source->xShift == chroma.xShift &&
        source->yShift == chroma.yShift) {
      return *source;
    }
  }
  throw UsageFailure("the clip is C" + std::string(chroma.tag) +
                     ", and --matrix yuv is for 4:2:0 clips only");
}

PlanarConversion findConversion(const ChromaFormat& chroma, const SourceFormat& source,
                                const TargetFormat& target, bool dither) {
  const ConversionPair& pair = source.to[&target - kTargets];
  const PlanarConversion conversion = dither ? pair.dither : pair.plain;
  if (conversion == nullptr) {
    throw UsageFailure("the clip is C" + std::string(chroma.tag) + ", which goes to " +
                       whereItGoes(source));
  }
  return conversion;
}

void convertPicture(PictureBuffers& buffers, PlanarConversion conversion) {
  const unsigned char* planes[3] = {buffers.plane(0), buffers.plane(1), buffers.plane(2)};
  int steps[3] = {buffers.planeStep(0), buffers.planeStep(1), buffers.planeStep(2)};
  const pxmSize size = {buffers.converted().width, buffers.converted().height};
  requireDone(conversion(planes, steps, buffers.pixels(), buffers.pixelStep(), size));
}

}  // namespace examples
