// SPDX-License-Identifier: MIT
// PNG pictures for tests.
#ifndef PXM_TESTS_PROGRAMS_PNG_BYTES_H
#define PXM_TESTS_PROGRAMS_PNG_BYTES_H

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace programs {

/// Red, green and blue, 0 to 255.
using Rgb = std::array<int, 3>;

/// What a picture is made of.
struct PngKind {
  int colourType;  ///< as PNG numbers it
  int bits = 8;    ///< of a sample
  bool interlaced = false;
  std::vector<Rgb> palette = {};
  std::vector<unsigned char> transparentEntries = {};  ///< alpha of the first palette entries
  std::vector<unsigned> transparentColour = {};        ///< one gray, or red, green, blue
  double gamma = 0;                                    ///< 0 for none
};

/// A picture from its rows as PNG packs them.
std::string pngFile(const PngKind& kind, int width, int height,
                    const std::vector<std::string>& rows);

/// An 8-bit RGB picture whose colours are a function of their place.
std::string rgbPng(int width, int height, const std::function<Rgb(int x, int y)>& colourAt);

/// An 8-bit RGB picture in one colour.
std::string flatPng(int width, int height, const Rgb& colour);

}  // namespace programs

#endif
