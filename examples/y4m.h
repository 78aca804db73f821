// SPDX-License-Identifier: MIT
// YUV4MPEG2 clips, frame by frame.
#ifndef PXM_EXAMPLES_Y4M_H
#define PXM_EXAMPLES_Y4M_H

#include <cstdio>
#include <string>
#include <string_view>

#include "output_file.h"
#include "picture_buffers.h"
#include "picture_size.h"
#include "y4m_header.h"

namespace examples {

/// Reads a clip. Every Failure names the clip.
class Y4mReader {
 public:
  /// Opens a clip and reads its header; "-" is standard input.
  explicit Y4mReader(const std::string& path);
  ~Y4mReader();
  Y4mReader(const Y4mReader&) = delete;
  Y4mReader& operator=(const Y4mReader&) = delete;

  const Y4mHeader& header() const { return header_; }

  /// Reads the line that begins a frame, once for each frame.
  /// @return false if the clip ends where a frame could begin.
  bool hasFrame();

  /// Reads the samples of the frame that hasFrame() has announced and pads them.
  void readFrame(PictureBuffers& buffers);

 private:
  enum class LineEnd { kComplete, kEndOfFile, kTooLong };

  LineEnd readLine(std::string& line);
  void readSamples(unsigned char* samples, size_t count);
  void readHeader();
  std::string frameName() const;
  [[noreturn]] void fail(const std::string& reason) const;

  std::string path_;
  std::FILE* file_;
  Y4mHeader header_;
  long long framesRead_ = 0;
  bool frameBegun_ = false;
};

/// Writes the header of a clip with 25 frames a second and square pixels.
/// @param format its chroma and range as the header spells them, such as "C444"
void writeY4mHeader(OutputFile& file, Size size, std::string_view format);

/// Writes the line that begins a frame; the samples of its three planes follow.
void writeY4mFrameLine(OutputFile& file);

}  // namespace examples

#endif
