// SPDX-License-Identifier: MIT
#include "png_bytes.h"

#include <png.h>

namespace programs {

namespace {

void append(png_structp png, png_bytep bytes, size_t count) {
  static_cast<std::string*>(png_get_io_ptr(png))
      ->append(reinterpret_cast<const char*>(bytes), count);
}

void flush(png_structp) {}

void setPalette(png_structp png, png_infop info, const std::vector<Rgb>& palette) {
  std::vector<png_color> entries;
  for (const Rgb& colour : palette) {
    entries.push_back({static_cast<png_byte>(colour[0]), static_cast<png_byte>(colour[1]),
                       static_cast<png_byte>(colour[2])});
  }
  if (!entries.empty()) {
    png_set_PLTE(png, info, entries.data(), static_cast<int>(entries.size()));
  }
}

void setTransparency(png_structp png, png_infop info, const PngKind& kind) {
  if (!kind.transparentEntries.empty()) {
    png_set_tRNS(png, info, kind.transparentEntries.data(),
                 static_cast<int>(kind.transparentEntries.size()), nullptr);
  }
  if (!kind.transparentColour.empty()) {
    const auto& values = kind.transparentColour;
    png_color_16 colour = {};
    colour.gray = colour.red = static_cast<png_uint_16>(values[0]);
    colour.green = static_cast<png_uint_16>(values[values.size() > 1 ? 1 : 0]);
    colour.blue = static_cast<png_uint_16>(values[values.size() > 2 ? 2 : 0]);
    png_set_tRNS(png, info, nullptr, 0, &colour);
  }
}

}  // namespace

std::string pngFile(const PngKind& kind, int width, int height,
                    const std::vector<std::string>& rows) {
  std::string bytes;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(png, &bytes, append, flush);
  png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height),
               kind.bits, kind.colourType,
               kind.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  setPalette(png, info, kind.palette);
  setTransparency(png, info, kind);
  if (kind.gamma > 0) {
    png_set_gAMA(png, info, kind.gamma);
  }
  std::vector<std::string> copies = rows;
  std::vector<png_bytep> pointers;
  for (std::string& row : copies) {
    pointers.push_back(reinterpret_cast<png_bytep>(row.data()));
  }
  png_write_info(png, info);
  png_write_image(png, pointers.data());
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return bytes;
}

std::string rgbPng(int width, int height, const std::function<Rgb(int x, int y)>& colourAt) {
  std::vector<std::string> rows(static_cast<size_t>(height));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (const int component : colourAt(x, y)) {
        rows[static_cast<size_t>(y)] += static_cast<char>(component);
      }
    }
  }
  return pngFile({.colourType = PNG_COLOR_TYPE_RGB}, width, height, rows);
}

std::string flatPng(int width, int height, const Rgb& colour) {
  return rgbPng(width, height, [&](int, int) { return colour; });
}

}  // namespace programs
