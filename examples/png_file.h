// SPDX-License-Identifier: MIT
// Pictures as PNG files.
#ifndef PXM_EXAMPLES_PNG_FILE_H
#define PXM_EXAMPLES_PNG_FILE_H

#include <functional>
#include <string>

namespace examples {

/// Stores row y of a picture as 3 x width bytes R, G, B. Must not throw.
using RowSource = std::function<void(int y, unsigned char* rgb)>;

/// Writes an 8-bit RGB picture. The file appears whole or not at all; a Failure names it.
void writePng(const std::string& path, int width, int height, const RowSource& rowSource);

}  // namespace examples

#endif
