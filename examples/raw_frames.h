// SPDX-License-Identifier: MIT
// Frames of 16-bit pixels as displays, players and panels take them.
#ifndef PXM_EXAMPLES_RAW_FRAMES_H
#define PXM_EXAMPLES_RAW_FRAMES_H

#include <string>
#include <vector>

#include "output_file.h"
#include "picture_buffers.h"

namespace examples {

/// Writes frames one after the other: rows from the top, without a gap, each pixel low byte first.
class RawFrames {
 public:
  /// @param path a file, a device, or "-" for standard output
  /// @param swap high byte first
  RawFrames(const std::string& path, bool swap);

  void write(const PictureBuffers& picture);
  void commit() { file_.commit(); }

 private:
  OutputFile file_;
  const bool swap_;
  std::vector<unsigned short> frame_;
};

}  // namespace examples

#endif
