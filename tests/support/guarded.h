// SPDX-License-Identifier: MIT
// Memory between two pages that nothing may touch.
#ifndef TESTS_SUPPORT_GUARDED_H_
#define TESTS_SUPPORT_GUARDED_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "catalogue/shapes.h"

// Readable and writable bytes with an inaccessible page directly on either side.
class GuardedBytes {
 public:
  explicit GuardedBytes(std::size_t leastSize);
  ~GuardedBytes();
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  std::uint8_t* begin() const { return bytes_; }
  std::uint8_t* end() const { return bytes_ + size_; }
  std::size_t size() const { return size_; }

 private:
  std::uint8_t* bytes_;
  std::size_t size_;  // leastSize, rounded up to whole pages
};

// Which guard page an image touches: its first byte is the first after one, or its last byte the
// last before the other.
enum class Against { FirstPage, LastPage };

// The byte that row offsets count from, for an image whose outermost byte stands `distance` bytes
// from a guard page. The image must fit.
std::uint8_t* placeImage(const GuardedBytes& memory, Against side, int distance,
                         const std::vector<RowSpan>& rows);

#endif
