// SPDX-License-Identifier: MIT
// The library's conversions of 16-bit pixels to planes, by pixel and chroma format.
#ifndef PXM_EXAMPLES_ENCODINGS_H
#define PXM_EXAMPLES_ENCODINGS_H

#include <memory>
#include <string_view>

#include "picture_size.h"
#include "png_input.h"
#include "pxmcc90lgc.h"

namespace examples {

using PixelReduction = pxmStatus (*)(const unsigned char* src, int srcStep, unsigned short* dst,
                                     int dstStep, pxmSize roiSize);
using PixelEncoding = pxmStatus (*)(const unsigned short* src, int srcStep, unsigned char* dst[3],
                                    int dstStep[3], pxmSize roiSize);

/// 16-bit pixels as --via names them.
struct PixelFormat {
  std::string_view name;
  ByteOrder order;  ///< of the bytes that the reduction takes
  PixelReduction reduction;
};

/// Planes as --chroma names them.
struct ChromaEncoding {
  std::string_view name;
  std::string_view headerWords;  ///< chroma and range as the header of a clip spells them
  int xShift;                    ///< one chroma sample stands for 2^xShift columns
  int yShift;                    ///< and 2^yShift rows
  PixelEncoding from[3];         ///< by pixel format; null where the library has none
};

/// @return the format of that name; throws a UsageFailure if there is none.
const PixelFormat& findPixelFormat(std::string_view name);
const ChromaEncoding& findChromaEncoding(std::string_view name);

/// @return the encoding from one to the other; throws a UsageFailure if there is none.
PixelEncoding findEncoding(const PixelFormat& pixels, const ChromaEncoding& chroma);

/// Three planes of 8-bit samples. The encoders round chroma planes down and leave columns and rows
/// over at odd sizes, where a clip rounds chroma planes up: the planes hold a picture that is
/// padded to whole groups of pixels by its last column and row.
class EncodedPicture {
 public:
  EncodedPicture(const BytePicture& picture, const PixelFormat& pixels,
                 const ChromaEncoding& chroma);

  /// Samples of a plane as a clip has it: luma without the padding, chroma rounded up.
  Size samples(int i) const { return i == 0 ? shown_ : chroma_; }
  const unsigned char* planeRow(int i, int y) const {
    return planes_[i].get() + area(planeStep(i), y);
  }

 private:
  std::unique_ptr<unsigned short[]> reduce(const BytePicture& picture, const PixelFormat& pixels);

  int pixelPitch() const { return padded_.width + kRowRoom; }
  int planeStep(int i) const { return (i == 0 ? padded_ : chroma_).width + kRowRoom; }

  Size shown_;
  Size padded_;
  Size chroma_;
  std::unique_ptr<unsigned char[]> planes_[3];
};

}  // namespace examples

#endif
