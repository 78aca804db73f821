// SPDX-License-Identifier: MIT
// Clips for tests, as bytes.
#ifndef PXM_TESTS_PROGRAMS_CLIP_BYTES_H
#define PXM_TESTS_PROGRAMS_CLIP_BYTES_H

#include <string>
#include <vector>

namespace programs {

/// One YCbCr sample triple.
struct Sample {
  int y, cb, cr;
};

/// A header line with the size and C444.
std::string header(int width, int height);

/// A FRAME line and the planes of a picture given row by row.
std::string frame(const std::vector<Sample>& samples);

/// A whole clip of one frame.
std::string clip(int width, int height, const std::vector<Sample>& samples);

/// A whole clip of one frame in one colour.
std::string flatClip(int width, int height, const Sample& sample);

}  // namespace programs

#endif
