// SPDX-License-Identifier: MIT
// Pictures from PNG files.
#ifndef PXM_EXAMPLES_PNG_INPUT_H
#define PXM_EXAMPLES_PNG_INPUT_H

#include <memory>
#include <string>

#include "picture_size.h"

namespace examples {

/// Which byte of a pixel stands first.
enum class ByteOrder { kRgb, kBgr };

/// Three bytes a pixel, rows without padding. Two readable pixels follow the last row.
struct BytePicture {
  Size size;
  std::unique_ptr<unsigned char[]> bytes;

  /// Bytes from row to row.
  int step() const { return size.width * 3; }
};

/// Reads a picture of any kind as 8-bit colours; "-" is standard input. Palettes, gray and 16-bit
/// samples are turned into them, and transparent pixels stand on black.
/// A Failure names the file.
BytePicture readPng(const std::string& path, ByteOrder order);

}  // namespace examples

#endif
