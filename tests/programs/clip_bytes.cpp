// SPDX-License-Identifier: MIT
#include "clip_bytes.h"

namespace programs {

std::string header(int width, int height) {
  return "YUV4MPEG2 W" + std::to_string(width) + " H" + std::to_string(height) +
         " F25:1 Ip A1:1 C444\n";
}

std::string frame(const std::vector<Sample>& samples) {
  std::string y, cb, cr;
  for (const Sample& sample : samples) {
    y += static_cast<char>(sample.y);
    cb += static_cast<char>(sample.cb);
    cr += static_cast<char>(sample.cr);
  }
  return "FRAME\n" + y + cb + cr;
}

std::string clip(int width, int height, const std::vector<Sample>& samples) {
  return header(width, height) + frame(samples);
}

std::string flatClip(int width, int height, const Sample& sample) {
  const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
  return clip(width, height, std::vector<Sample>(count, sample));
}

}  // namespace programs
