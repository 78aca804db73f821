// SPDX-License-Identifier: MIT
#include "tests/hashes/images.h"

#include <cstring>
#include <stdexcept>

namespace {

constexpr std::size_t lineBytes = 64;
constexpr int mostBytesPerPixel = 4, mostPadding = 64, slack = 256;

// Whole words. An odd pitch that loses its low bit moves a row by a byte.
std::size_t slackOf(int rows) {
  return static_cast<std::size_t>((slack + rows + 7) / 8 * 8);
}

std::size_t memoryOf(int pitch, int rows) {
  const std::size_t image = static_cast<std::size_t>(pitch) * static_cast<std::size_t>(rows);
  return (image + 7) / 8 * 8 + 2 * slackOf(rows);
}

int pitchOf(PlaneSize plane, int padding, int number) {
  return plane.rowBytes + (padding > 0 ? padding + 2 * number : 0);
}

void fill(std::uint8_t* bytes, std::size_t count, Numbers& numbers) {
  for (std::size_t i = 0; i < count; i += sizeof(std::uint64_t)) {
    const std::uint64_t word = numbers();
    std::memcpy(bytes + i, &word, sizeof word);
  }
}

std::vector<PlaneSize> threePlanes(const LoadedConversion& c, pxmSize size) {
  const int columns = c.has("411") ? 4 : c.has("420") || c.has("422") ? 2 : 1;
  const int rows = c.has("420") ? 2 : 1;
  const PlaneSize chroma = {(size.width + columns - 1) / columns, (size.height + rows - 1) / rows};
  return {{size.width, size.height}, chroma, chroma};
}

std::vector<PlaneSize> twistPlanes(const LoadedConversion& c, pxmSize size) {
  if (c.has("P3R")) return threePlanes(c, size);
  return {{(c.has("AC4") ? 4 : 3) * size.width, size.height}};
}

}  // namespace

PlaneSizes planesOf(const LoadedConversion& c, pxmSize size) {
  const std::vector<PlaneSize> words = {{2 * size.width, size.height}};
  const std::vector<PlaneSize> triples = {{3 * size.width, size.height}};
  switch (c.kind) {
    case Kind::Decode:
      if (c.has("_P3C3R")) return {threePlanes(c, size), words};
      return {c.has("_C2C3R") ? words : triples, words};
    case Kind::Encode:
      return {words, c.has("C3P3R") ? threePlanes(c, size) : words};
    case Kind::Depth:
      if (c.has("_16u8u_")) return {words, triples};
      return {triples, words};
    default:
      const std::vector<PlaneSize> planes = twistPlanes(c, size);
      if (c.has("_IP3R") || c.has("IR")) return {{}, planes};
      return {planes, planes};
  }
}

void Hash::add(const std::uint8_t* bytes, std::size_t count) {
  for (std::size_t i = 0; i < count; i += sizeof(std::uint64_t)) {
    std::uint64_t word;
    std::memcpy(&word, bytes + i, sizeof word);
    add(word);
  }
}

ImageMemory::ImageMemory(pxmSize largest, std::size_t shift)
    : room_(memoryOf(mostBytesPerPixel * largest.width + mostPadding, largest.height)),
      shift_(shift),
      pattern_(room_) {
  for (int i = 0; i < 3; ++i) {
    src_.push_back(newPlane());
    dst_.push_back(newPlane());
  }
  Numbers numbers(1);
  fill(pattern_.data(), room_, numbers);
}

ImageMemory::Plane ImageMemory::newPlane() const {
  Plane plane;
  plane.memory.resize(room_ + lineBytes + shift_);
  const auto beyond = reinterpret_cast<std::uintptr_t>(plane.memory.data()) % lineBytes;
  plane.bytes = plane.memory.data() + (lineBytes - beyond) + shift_;
  return plane;
}

std::uint8_t* ImageMemory::place(Plane& plane, PlaneSize size, int pitch, bool upwards) const {
  plane.used = memoryOf(pitch, size.rows);
  if (plane.used > room_) throw std::length_error("an image that does not fit its memory");
  std::uint8_t* const top = plane.bytes + slackOf(size.rows);
  return upwards ? top + std::ptrdiff_t{pitch} * (size.rows - 1) : top;
}

CallArguments ImageMemory::layOut(const PlaneSizes& planes, pxmSize size, Pitches pitches,
                                  Numbers& numbers) {
  CallArguments a = {};
  a.size = size;
  for (Plane& plane : src_) plane.used = 0;
  for (Plane& plane : dst_) plane.used = 0;
  for (std::size_t i = 0; i < planes.dst.size(); ++i) {
    const int pitch = pitchOf(planes.dst[i], pitches.dstPadding, static_cast<int>(i));
    a.dst[i] = place(dst_[i], planes.dst[i], pitch, pitches.upwards);
    a.dstStep[i] = pitches.upwards ? -pitch : pitch;
  }
  for (std::size_t i = 0; i < planes.src.size(); ++i) {
    const int pitch = pitchOf(planes.src[i], pitches.srcPadding, static_cast<int>(i));
    a.src[i] = place(src_[i], planes.src[i], pitch, pitches.upwards);
    a.srcStep[i] = pitches.upwards ? -pitch : pitch;
  }
  inPlace_ = planes.src.empty();
  for (std::size_t i = 0; i < src_.size(); ++i) {
    if (inPlace_) src_[i].used = dst_[i].used;
    fill(src_[i].bytes, src_[i].used, numbers);
  }
  return a;
}

void ImageMemory::resetDestinations() {
  for (std::size_t i = 0; i < dst_.size(); ++i)
    std::memcpy(dst_[i].bytes, inPlace_ ? src_[i].bytes : pattern_.data(), dst_[i].used);
}

void ImageMemory::addDestinations(Hash& hash) const {
  for (const Plane& plane : dst_) hash.add(plane.bytes, plane.used);
}
