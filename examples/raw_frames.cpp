// SPDX-License-Identifier: MIT
#include "raw_frames.h"

#include <algorithm>

namespace examples {

RawFrames::RawFrames(const std::string& path, bool swap) : file_(path), swap_(swap) {}

// Rows come with room after them; one write of a whole frame is what a pipe is fastest with.
void RawFrames::write(const PictureBuffers& picture) {
  const auto [width, height] = picture.shown();
  frame_.resize(area(width, height));
  unsigned short* to = frame_.data();
  for (int y = 0; y < height; ++y) {
    const unsigned short* row = picture.row(y);
    if (swap_) {
      to = std::transform(row, row + width, to, [](unsigned short pixel) {
        return static_cast<unsigned short>(pixel << 8 | pixel >> 8);
      });
    } else {
      to = std::copy(row, row + width, to);
    }
  }
  file_.write(frame_.data(), frame_.size() * sizeof *to);
}

}  // namespace examples
