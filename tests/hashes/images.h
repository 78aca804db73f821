// SPDX-License-Identifier: MIT
// The images of calls and the memory that they stand in.
#ifndef TESTS_HASHES_IMAGES_H_
#define TESTS_HASHES_IMAGES_H_

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "catalogue/loaded_library.h"

struct PlaneSize {
  int rowBytes, rows;
};

// One or three planes each; in place there are no sources.
struct PlaneSizes {
  std::vector<PlaneSize> src, dst;
};

// The planes of an image, with every sample that a partly filled group would have. The same for all
// variants.
PlaneSizes planesOf(const LoadedConversion& conversion, pxmSize size);

// Bytes between rows; upwards, pitches are negative.
struct Pitches {
  int srcPadding, dstPadding;
  bool upwards;
};

// A 64-bit hash of all that it is given, in order.
class Hash {
 public:
  void add(std::uint64_t word) {
    value_ = (value_ ^ word) * 0x100000001b3;
    value_ ^= value_ >> 32;  // a product alone never takes a high bit to a lower one
  }
  void add(const std::uint8_t* bytes, std::size_t count);  // a multiple of 8
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xcbf29ce484222325;
};

using Numbers = std::mt19937_64;

// Memory for the images of one call after another. Each plane has slack on both sides, for rows
// that are read or written a little beyond, and further for rows that drift by the low bits of
// pitches.
class ImageMemory {
 public:
  // `shift`: how many bytes after a cache line all memory begins.
  ImageMemory(pxmSize largest, std::size_t shift);

  // Lays the planes out and fills sources, or what is converted in place, with random bytes. The
  // matrix stays zero.
  CallArguments layOut(const PlaneSizes& planes, pxmSize size, Pitches pitches, Numbers& numbers);

  // Gives all memory of the destinations that were laid out its bytes from before any call.
  void resetDestinations();

  void addDestinations(Hash& hash) const;

 private:
  struct Plane {
    std::vector<std::uint8_t> memory;
    std::uint8_t* bytes;   // where the memory that counts begins
    std::size_t used = 0;  // how much of it the current call has, a multiple of 8
  };

  Plane newPlane() const;
  std::uint8_t* place(Plane& plane, PlaneSize size, int pitch, bool upwards) const;

  std::size_t room_, shift_;
  std::vector<Plane> src_, dst_;
  std::vector<std::uint8_t> pattern_;
  bool inPlace_ = false;
};

#endif
