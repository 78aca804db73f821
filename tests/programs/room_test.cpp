// SPDX-License-Identifier: MIT
// The programs' picture buffers under every variant: linked to the library's objects, so that a
// variant can be forced. Under a sanitizer of addresses a buffer without the room that a variant
// uses is a failure.
#include <gtest/gtest.h>

#include <string>

#include "catalogue/variants.h"
#include "examples/conversions.h"
#include "examples/picture_buffers.h"
#include "examples/y4m_header.h"

namespace {

using namespace examples;

void convertInEveryVariant(const Y4mHeader& header, const SourceFormat& source) {
  for (const ConversionPair& pair : source.to)
    for (const PlanarConversion conversion : {pair.plain, pair.dither})
      if (conversion != nullptr)
        for (const int variant : runnableVariants()) {
          const SelectedVariant selected(variant);
          PictureBuffers buffers(header, source.sizes);
          EXPECT_NO_THROW(convertPicture(buffers, conversion));
        }
}

void convertAllSizes(const std::string& chroma, Matrix matrix) {
  for (int width = 1; width <= 17; ++width)
    for (int height = 1; height <= 5; ++height) {
      const Y4mHeader header = parseY4mHeader("YUV4MPEG2 W" + std::to_string(width) + " H" +
                                              std::to_string(height) + " C" + chroma);
      convertInEveryVariant(header, findSource(*header.chroma, matrix));
    }
}

TEST(Room, OfEverySizeTo17By5InEveryVariant) {
  for (const char* chroma : {"444", "422", "420jpeg", "411"})
    convertAllSizes(chroma, Matrix::kYcbcr);
  convertAllSizes("420jpeg", Matrix::kYuv);
}

}  // namespace
