// SPDX-License-Identifier: MIT
// Memory for one picture on its way from planes to 16-bit pixels.
#ifndef PXM_EXAMPLES_PICTURE_BUFFERS_H
#define PXM_EXAMPLES_PICTURE_BUFFERS_H

#include <cstring>
#include <memory>

#include "picture_size.h"
#include "y4m_header.h"

namespace examples {

/// Three planes of 8-bit samples and one image of 16-bit pixels.
/// The picture is padded to the size that the conversion takes. Chroma planes have what they need
/// for that: a clip rounds them up to whole samples, and padding ends with the last of them.
/// Two pixels of room follow EACH destination row, and two readable bytes follow the last row of
/// every source plane, which is enough for two luma samples and one chroma sample: some processor
/// variants of the subsampled formats use it at odd sizes.
class PictureBuffers {
 public:
  /// Throws a Failure if the size is more than the conversion or the machine can hold.
  PictureBuffers(const Y4mHeader& header, const SizeRule& rule)
      : shown_{header.width, header.height},
        converted_(rule.padded(shown_)),
        chroma_{header.chroma->chromaWidth(header.width),
                header.chroma->chromaHeight(header.height)} {
    if (rule.rowsWithin32Bits) {
      requireRowsWithin32Bits(converted_);
    }
    requireMemory(converted_, kBytesPerPixel);
    for (int i = 0; i < 3; ++i) {
      const size_t count = area(planeStep(i), (i == 0 ? converted_ : chroma_).height);
      planes_[i] = std::make_unique_for_overwrite<unsigned char[]>(count + kSourceRoom);
      std::memset(planes_[i].get() + count, 0, kSourceRoom);
    }
    pixels_ =
        std::make_unique_for_overwrite<unsigned short[]>(area(pixelPitch(), converted_.height));
  }

  /// The picture as the clip has it.
  Size shown() const { return shown_; }
  /// The picture as it is converted.
  Size converted() const { return converted_; }
  /// Samples of a plane as the clip has it.
  Size samples(int i) const { return i == 0 ? shown_ : chroma_; }

  unsigned char* plane(int i) { return planes_[i].get(); }
  unsigned char* planeRow(int i, int y) { return planes_[i].get() + area(planeStep(i), y); }
  /// Bytes from row to row of a plane.
  int planeStep(int i) const { return (i == 0 ? converted_ : chroma_).width; }

  /// Pads the luma plane after its samples have been stored.
  void padPlanes() {
    repeatEdges(planes_[0].get(), static_cast<size_t>(planeStep(0)), shown_, converted_);
  }

  unsigned short* pixels() { return pixels_.get(); }
  /// Bytes from row to row of the destination.
  int pixelStep() const { return pixelPitch() * 2; }
  const unsigned short* row(int y) const { return pixels_.get() + area(pixelPitch(), y); }

 private:
  static constexpr size_t kSourceRoom = 2;
  static constexpr int kBytesPerPixel = 5;  // three planes and a 16-bit pixel

  int pixelPitch() const { return converted_.width + kRowRoom; }

  Size shown_;
  Size converted_;
  Size chroma_;
  std::unique_ptr<unsigned char[]> planes_[3];
  std::unique_ptr<unsigned short[]> pixels_;
};

}  // namespace examples

#endif
