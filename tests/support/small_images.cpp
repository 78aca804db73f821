// SPDX-License-Identifier: MIT
#include "tests/support/small_images.h"

#include <gtest/gtest.h>

#include "catalogue/conversions.h"

namespace {

int chromaWidth(const Conversion& c, int width) {
  if (c.has("411")) return width / 4;
  if (c.has("422") || c.has("420")) return (width + 1) / 2;
  return width;
}

}  // namespace

Words decoded(std::string_view name, std::vector<Bytes> planes, int width, int height, int status) {
  const Conversion& c = conversionNamed(name);
  std::vector<unsigned short> pixels(static_cast<std::size_t>(width * height + 4), untouchedWord);
  CallArguments a = {};
  a.size = {width, height};
  a.dst[0] = reinterpret_cast<std::uint8_t*>(pixels.data());
  a.dstStep[0] = 2 * width;
  for (std::size_t i = 0; i < planes.size(); ++i) {
    planes[i].insert(planes[i].end(), 2, 0);  // some variants read on at odd sizes
    a.src[i] = planes[i].data();
    a.srcStep[i] = i == 0 ? width : chromaWidth(c, width);
  }
  if (c.has("C2C3R")) a.srcStep[0] = 2 * width;
  if (c.has("8u16u_C3R")) a.srcStep[0] = 3 * width;
  EXPECT_EQ(c.call(a), status) << name;
  return {pixels.begin(), pixels.end() - 4};
}
