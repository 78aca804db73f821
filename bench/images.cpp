// SPDX-License-Identifier: MIT
#include "bench/images.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

#include "catalogue/shapes.h"

namespace {

// Up and down between -64 and 64.
int wave(int position, int period) {
  const int phase = position % period;
  return std::abs(phase * 256 / period - 128) - 64;
}

// -6 to 6.
int noise(int x, int y) {
  std::uint32_t bits =
      static_cast<std::uint32_t>(x) * 0x9E3779B1u ^ static_cast<std::uint32_t>(y) * 0x85EBCA77u;
  bits = (bits ^ (bits >> 15)) * 0x2C1B3C6Du;
  return static_cast<int>((bits >> 16) % 13) - 6;
}

struct Samples {
  int luma, cb, cr;
};

int toByte(double value) {
  return static_cast<int>(std::lround(std::clamp(value, 0.0, 255.0)));
}

Samples samplesOf(const Picture::Colour& c, bool fullRange) {
  const double luma = 0.299 * c.red + 0.587 * c.green + 0.114 * c.blue;
  if (fullRange)
    return {toByte(luma), toByte(128 + 0.492 * (c.blue - luma)),
            toByte(128 + 0.877 * (c.red - luma))};
  return {toByte(16 + luma * 219 / 255), toByte(128 + (c.blue - luma) * 0.564 * 224 / 255),
          toByte(128 + (c.red - luma) * 0.713 * 224 / 255)};
}

int pack(const Picture::Colour& c, Pixels pixels, bool redLow) {
  const int low = redLow ? c.red : c.blue, high = redLow ? c.blue : c.red;
  if (pixels == Pixels::Bits565) return low >> 3 | (c.green >> 2) << 5 | (high >> 3) << 11;
  if (pixels == Pixels::Bits555) return low >> 3 | (c.green >> 3) << 5 | (high >> 3) << 10;
  return low >> 4 | (c.green >> 4) << 4 | (high >> 4) << 8;
}

// Writes a plane to the end of its pitch and one row further, by a value for every byte.
template <class ByteAt>
void fill(const Plane& plane, ByteAt byteAt) {
  for (int y = 0; y <= plane.rows; ++y)
    for (int x = 0; x < plane.pitch; ++x)
      plane.data[static_cast<std::ptrdiff_t>(y) * plane.pitch + x] =
          static_cast<std::uint8_t>(byteAt(x, y));
}

constexpr std::size_t pageBytes = 4096;
constexpr std::size_t skew = 9 * 64;  // from one plane's place in its page to the next one's

std::size_t roomFor(const Plane& plane) {
  const auto rows = static_cast<std::size_t>(plane.rows) + 2;
  return static_cast<std::size_t>(plane.pitch) * rows + 64;
}

std::vector<Plane> planesOf(const std::vector<PlaneShape>& shapes, int width) {
  std::vector<Plane> planes;
  for (const PlaneShape& shape : shapes) {
    // What a library may write beyond an odd width is 16 bytes at most.
    const int pitch = width % 2 ? (shape.rowBytes + 16 + 63) / 64 * 64 : shape.rowBytes;
    planes.push_back({nullptr, pitch, shape.rowBytes, shape.rows});
  }
  return planes;
}

}  // namespace

Picture::Picture(int width, int height) : width_(width), height_(height) {}

Picture::Colour Picture::smooth(int x, int y) const {
  x = std::min(x, width_ - 1);
  y = std::min(y, height_ - 1);
  return {128 + wave(x * 2 + y, 317), 128 + wave(x + y * 3 + 90, 229),
          128 + wave(x * 3 - y + 2 * height_, 401)};
}

Picture::Colour Picture::noisy(int x, int y) const {
  const Colour c = smooth(x, y);
  const int more = noise(std::min(x, width_ - 1), std::min(y, height_ - 1));
  return {c.red + more, c.green + more, c.blue + more};
}

Images::Images(const Conversion& conversion, const Picture& picture) {
  const Shape shape = shapeOf(conversion, 0, picture.width(), picture.height());
  const bool inPlace = shape.src.empty();
  src_ = planesOf(inPlace ? shape.dst : shape.src, picture.width());
  dst_ = planesOf(shape.dst, picture.width());
  allocate();
  fillSources(conversion, picture);

  arguments_.size = {picture.width(), picture.height()};
  for (std::size_t i = 0; i < src_.size() && !inPlace; ++i) {
    arguments_.src[i] = src_[i].data;
    arguments_.srcStep[i] = src_[i].pitch;
  }
  for (std::size_t i = 0; i < dst_.size(); ++i) {
    arguments_.dst[i] = dst_[i].data;
    arguments_.dstStep[i] = dst_[i].pitch;
  }
  const float twist[3][4] = {{1, 0.5f, 0, 1}, {0, 1, 0.25f, 2}, {0.125f, 0, 1, 3}};
  std::memcpy(arguments_.twist, twist, sizeof twist);
}

void Images::clearDestination() const {
  for (const Plane& plane : dst_) std::memset(plane.data, 0, roomFor(plane) - 64);
}

void Images::allocate() {
  std::size_t end = 0, place = 0;
  std::vector<std::size_t> starts;
  for (const auto* planes : {&src_, &dst_})
    for (const Plane& plane : *planes) {
      starts.push_back((end + pageBytes - 1) / pageBytes * pageBytes + skew * place++);
      end = starts.back() + roomFor(plane);
    }
  const std::size_t bytes = (end + pageBytes - 1) / pageBytes * pageBytes;
  memory_.reset(static_cast<std::uint8_t*>(std::aligned_alloc(pageBytes, bytes)));
  if (!memory_) throw std::bad_alloc();
  std::memset(memory_.get(), 0, bytes);
  auto start = starts.begin();
  for (auto* planes : {&src_, &dst_})
    for (Plane& plane : *planes) plane.data = memory_.get() + *start++;
}

void Images::fillSources(const Conversion& conversion, const Picture& picture) {
  const Work work = workOf(conversion);
  const auto luma = [&](int x, int y) {
    return samplesOf(picture.noisy(x, y), work.fullRange).luma;
  };
  const auto chroma = [&](bool cr, int x, int y) {
    const Samples s = samplesOf(picture.smooth(x, y), work.fullRange);
    return cr ? s.cr : s.cb;
  };
  if (work.kind == Kind::Twist) {
    for (const Plane& plane : src_) fill(plane, [](int x, int y) { return (x * 7 + y) % 251; });
    for (const Plane& plane : dst_) fill(plane, [](int x, int y) { return (x * 7 + y) % 251; });
  } else if (work.kind == Kind::Encode || work.toBytes) {
    fill(src_[0], [&](int x, int y) {
      const int word = pack(picture.noisy(x / 2, y), work.pixels, work.redLow);
      return x % 2 ? word >> 8 : word & 255;
    });
  } else if (work.kind == Kind::Depth) {
    fill(src_[0], [&](int x, int y) {
      const Picture::Colour c = picture.noisy(x / 3, y);
      return x % 3 == 1 ? c.green : (x % 3 == 0) == work.redLow ? c.red : c.blue;
    });
  } else if (work.layout == Layout::Interleaved444) {
    fill(src_[0],
         [&](int x, int y) { return x % 3 == 0 ? luma(x / 3, y) : chroma(x % 3 == 2, x / 3, y); });
  } else if (work.layout == Layout::Interleaved422) {
    fill(src_[0], [&](int x, int y) {
      return x % 2 == 0 ? luma(x / 2, y) : chroma(x % 4 == 3, x / 4 * 2, y);
    });
  } else {
    const int columns = work.layout == Layout::Planes444   ? 1
                        : work.layout == Layout::Planes411 ? 4
                                                           : 2;
    const int rows = work.layout == Layout::Planes420 ? 2 : 1;
    fill(src_[0], luma);
    for (const int i : {1, 2})
      fill(src_[static_cast<std::size_t>(i)],
           [&](int x, int y) { return chroma(i == 2, x * columns, y * rows); });
  }
}
