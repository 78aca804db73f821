// SPDX-License-Identifier: MIT
#include "encodings.h"

#include <iterator>
#include <string>

#include "failure.h"
#include "status.h"

namespace examples {

namespace {

constexpr int kBytesPerPixel = 8;  // colours, a 16-bit pixel and three planes

// Bytes B, G, R to 16-bit pixels by dropping their low bits; the library has it for 565 only.
pxmStatus truncateToBgr555(const unsigned char* src, int srcStep, unsigned short* dst, int dstStep,
                           pxmSize roiSize) {
  for (int y = 0; y < roiSize.height; ++y) {
    const unsigned char* bgr = src + area(srcStep, y);
    unsigned short* row = dst + area(dstStep / 2, y);
    for (int x = 0; x < roiSize.width; ++x, bgr += 3) {
      row[x] = static_cast<unsigned short>(bgr[0] >> 3 | bgr[1] >> 3 << 5 | bgr[2] >> 3 << 10);
    }
  }
  return pxmStatusOk;
}

// In the order of ChromaEncoding::from.
constexpr PixelFormat kPixelFormats[] = {
    {"bgr555", ByteOrder::kBgr, truncateToBgr555},
    {"bgr565", ByteOrder::kBgr, legacy90pxmiBGRToBGR565_8u16u_C3R},
    {"rgb565", ByteOrder::kRgb, legacy90pxmiRGBToRGB565_8u16u_C3R},
};

constexpr ChromaEncoding kChromaEncodings[] = {
    {"420",
     "C420jpeg XCOLORRANGE=LIMITED",
     1,
     1,
     {legacy90pxmiBGR555ToYCbCr420_16u8u_C3P3R, legacy90pxmiBGR565ToYCbCr420_16u8u_C3P3R, nullptr}},
    {"422",
     "C422 XCOLORRANGE=LIMITED",
     1,
     0,
     {legacy90pxmiBGR555ToYCbCr422_16u8u_C3P3R, legacy90pxmiBGR565ToYCbCr422_16u8u_C3P3R, nullptr}},
    {"411",
     "C411 XCOLORRANGE=LIMITED",
     2,
     0,
     {legacy90pxmiBGR555ToYCbCr411_16u8u_C3P3R, legacy90pxmiBGR565ToYCbCr411_16u8u_C3P3R, nullptr}},
    {"yuv420",
     "C420jpeg XCOLORRANGE=FULL",
     1,
     1,
     {legacy90pxmiBGR555ToYUV420_16u8u_C3P3R, legacy90pxmiBGR565ToYUV420_16u8u_C3P3R,
      legacy90pxmiRGB565ToYUV420_16u8u_C3P3R}},
};

// The format of that name in a list, or a UsageFailure that names the option and the list.
template <class Format, size_t count>
const Format& findByName(const Format (&formats)[count], const char* option,
                         std::string_view name) {
  std::string names;
  for (const Format& format : formats) {
    if (format.name == name) {
      return format;
    }
    names += names.empty() ? "" : ", ";
    names += format.name;
  }
  throw UsageFailure(std::string(option) + " " + quoted(name) + " is not one of " + names);
}

}  // namespace

const PixelFormat& findPixelFormat(std::string_view name) {
  return findByName(kPixelFormats, "--via", name);
}

const ChromaEncoding& findChromaEncoding(std::string_view name) {
  return findByName(kChromaEncodings, "--chroma", name);
}

PixelEncoding findEncoding(const PixelFormat& pixels, const ChromaEncoding& chroma) {
  const PixelEncoding encoding = chroma.from[&pixels - kPixelFormats];
  if (encoding != nullptr) {
    return encoding;
  }
  std::string names;
  for (const ChromaEncoding& other : kChromaEncodings) {
    if (other.from[&pixels - kPixelFormats] != nullptr) {
      names += names.empty() ? "" : ", ";
      names += other.name;
    }
  }
  throw UsageFailure("--via " + std::string(pixels.name) + " goes with --chroma " + names +
                     " only");
}

EncodedPicture::EncodedPicture(const BytePicture& picture, const PixelFormat& pixels,
                               const ChromaEncoding& chroma)
    : shown_(picture.size) {
  const int columns = 1 << chroma.xShift;
  const int rows = 1 << chroma.yShift;
  const SizeRule wholeGroups = {.widthMultiple = columns, .heightMultiple = rows};
  padded_ = wholeGroups.padded(shown_);
  chroma_ = {padded_.width / columns, padded_.height / rows};
  requireMemory(padded_, kBytesPerPixel);
  requireRowsWithin32Bits(padded_);
  const auto words = reduce(picture, pixels);
  unsigned char* planes[3];
  int steps[3];
  for (int i = 0; i < 3; ++i) {
    const int height = (i == 0 ? padded_ : chroma_).height;
    steps[i] = planeStep(i);
    planes_[i] = std::make_unique_for_overwrite<unsigned char[]>(area(steps[i], height));
    planes[i] = planes_[i].get();
  }
  const PixelEncoding encoding = findEncoding(pixels, chroma);
  requireDone(
      encoding(words.get(), pixelPitch() * 2, planes, steps, {padded_.width, padded_.height}));
}

// The picture in 16-bit pixels, padded.
std::unique_ptr<unsigned short[]> EncodedPicture::reduce(const BytePicture& picture,
                                                         const PixelFormat& pixels) {
  auto words = std::make_unique_for_overwrite<unsigned short[]>(area(pixelPitch(), padded_.height));
  requireDone(pixels.reduction(picture.bytes.get(), picture.step(), words.get(), pixelPitch() * 2,
                               {shown_.width, shown_.height}));
  repeatEdges(words.get(), static_cast<size_t>(pixelPitch()), shown_, padded_);
  return words;
}

}  // namespace examples
