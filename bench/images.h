// SPDX-License-Identifier: MIT
// A test picture, and the images that a conversion of one size works on.
#ifndef BENCH_IMAGES_H_
#define BENCH_IMAGES_H_

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "bench/work.h"
#include "catalogue/conversions.h"

// Smooth colours that stay away from black, white and pure tones, with noise in the luma, which all
// layouts keep: what a decoder or encoder makes of it hardly depends on how chroma is sampled.
class Picture {
 public:
  Picture(int width, int height);

  struct Colour {
    int red, green, blue;
  };
  // Coordinates beyond the last column or row mean that column or row.
  Colour smooth(int x, int y) const;
  Colour noisy(int x, int y) const;

  int width() const { return width_; }
  int height() const { return height_; }

 private:
  int width_, height_;
};

struct Plane {
  std::uint8_t* data = nullptr;
  int pitch = 0;
  int rowBytes = 0, rows = 0;  // what the conversion reads or writes

  std::size_t bytes() const {
    return static_cast<std::size_t>(rowBytes) * static_cast<std::size_t>(rows);
  }
};

// All candidates share these, so none finds its images in a better place. Rows are tight where the
// width is even; rows of an odd width are padded to a multiple of 64 bytes, as several libraries
// demand. No two planes start at the same place in a page.
class Images {
 public:
  Images(const Conversion& conversion, const Picture& picture);

  // Of a conversion in place, the source is a spare copy of the image, for the copy to read.
  const std::vector<Plane>& src() const { return src_; }
  const std::vector<Plane>& dst() const { return dst_; }
  const CallArguments& arguments() const { return arguments_; }
  int width() const { return arguments_.size.width; }
  int height() const { return arguments_.size.height; }

  void clearDestination() const;

 private:
  void allocate();
  void fillSources(const Conversion& conversion, const Picture& picture);

  struct Free {
    void operator()(std::uint8_t* memory) const { std::free(memory); }
  };
  std::unique_ptr<std::uint8_t, Free> memory_;
  std::vector<Plane> src_, dst_;
  CallArguments arguments_ = {};
};

#endif
