// SPDX-License-Identifier: MIT
// Memory for one picture on its way through a conversion.
#ifndef PXM_EXAMPLES_PICTURE_BUFFERS_H
#define PXM_EXAMPLES_PICTURE_BUFFERS_H

#include <unistd.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "failure.h"
#include "y4m_header.h"

namespace examples {

/// Three planes of 8-bit samples and one image of 16-bit pixels.
/// Two pixels of room follow EACH destination row, and two readable bytes follow the last row of
/// every source plane, which is enough for two luma samples and one chroma sample: some processor
/// variants of the subsampled formats use it at odd sizes.
class PictureBuffers {
 public:
  /// Throws a Failure if the size is more than the pitches or the memory of the machine can hold.
  explicit PictureBuffers(const Y4mHeader& header)
      : width_(header.width),
        height_(header.height),
        chromaWidth_(header.chroma->chromaWidth(header.width)),
        chromaHeight_(header.chroma->chromaHeight(header.height)) {
    checkSize();
    for (int i = 0; i < 3; ++i) {
      planes_[i] = std::make_unique_for_overwrite<unsigned char[]>(planeBytes(i) + kSourceRoom);
      std::memset(planes_[i].get() + planeBytes(i), 0, kSourceRoom);
    }
    pixels_ = std::make_unique_for_overwrite<unsigned short[]>(pixelCount());
  }

  int width() const { return width_; }
  int height() const { return height_; }

  unsigned char* plane(int i) { return planes_[i].get(); }
  size_t planeBytes(int i) const {
    return i == 0 ? product(width_, height_) : product(chromaWidth_, chromaHeight_);
  }
  /// Bytes from row to row of a plane.
  int planeStep(int i) const { return i == 0 ? width_ : chromaWidth_; }

  unsigned short* pixels() { return pixels_.get(); }
  /// Bytes from row to row of the destination.
  int pixelStep() const { return (width_ + kPixelRoom) * 2; }
  const unsigned short* row(int y) const { return pixels_.get() + product(width_ + kPixelRoom, y); }

 private:
  static constexpr int kPixelRoom = 2;
  static constexpr size_t kSourceRoom = 2;
  static constexpr int kMaxWidth = INT_MAX / 2 - kPixelRoom;  // keeps the pitch in an int
  static constexpr size_t kMaxPixels = size_t{1} << 56;       // keeps the sums in a size_t

  static size_t product(int a, int b) { return static_cast<size_t>(a) * static_cast<size_t>(b); }
  size_t pixelCount() const { return product(width_ + kPixelRoom, height_); }

  size_t totalBytes() const {
    return pixelCount() * 2 + planeBytes(0) + 2 * planeBytes(1) + 3 * kSourceRoom;
  }

  static size_t machineMemory() {
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGESIZE);
    return pages > 0 && pageSize > 0 ? static_cast<size_t>(pages) * static_cast<size_t>(pageSize)
                                     : SIZE_MAX;
  }

  void checkSize() const {
    if (width_ > kMaxWidth || pixelCount() > kMaxPixels || totalBytes() > machineMemory()) {
      throw Failure("pictures of " + std::to_string(width_) + "x" + std::to_string(height_) +
                    " pixels do not fit into the memory of this machine");
    }
  }

  int width_;
  int height_;
  int chromaWidth_;
  int chromaHeight_;
  std::unique_ptr<unsigned char[]> planes_[3];
  std::unique_ptr<unsigned short[]> pixels_;
};

}  // namespace examples

#endif
