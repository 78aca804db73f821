// SPDX-License-Identifier: MIT
// Whole domains as strips, images of some 65,536 pixels each. Together they have every triple of
// samples, or every pixel and every sum of a chroma group.
#ifndef TESTS_HASHES_STRIPS_H_
#define TESTS_HASHES_STRIPS_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "tests/hashes/images.h"

// Pixels that share their chroma.
struct Group {
  int columns, rows;
  int size() const { return columns * rows; }
};

// The source of one call: planes with tight rows, or one interleaved image, and after each some
// bytes that are always the same.
struct Strip {
  pxmSize size;
  std::vector<std::vector<std::uint8_t>> planes;
};

class Domain {
 public:
  // The domain of what a conversion reads. Conversions that read the same have domains of one name.
  explicit Domain(const LoadedConversion& conversion);

  const std::string& name() const { return name_; }
  int strips() const;
  Strip strip(int index) const;

  // Whether a strip is of the sample: the first of each way to arrange the domain.
  bool isSampled(int index) const;

  // Which way of arranging the domain a strip belongs to, counted from 0.
  std::size_t arrangementOf(int index) const { return placeOf(index).part; }

 private:
  // One way to arrange the domain, or a piece of it.
  struct Part {
    int strips;
    std::function<Strip(int)> strip;
  };

  struct Place {
    std::size_t part;
    int index;
  };

  Place placeOf(int index) const;
  void addTriples(const LoadedConversion& conversion, Group group);
  void addWords(const LoadedConversion& conversion, Group group);

  std::string name_;
  std::vector<Part> parts_;
};

// Bytes after an image that a call may read or write.
inline constexpr std::size_t stripSlack = 64;

#endif
