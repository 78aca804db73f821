// SPDX-License-Identifier: MIT
// Addresses around an origin, far in both directions, of which a test opens rows one by one.
// Nothing else of it can be touched, and only what is touched takes memory.
#ifndef TESTS_SUPPORT_SPARSE_RANGE_H_
#define TESTS_SUPPORT_SPARSE_RANGE_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tests/support/pages.h"

inline constexpr std::int64_t GiB = std::int64_t{1} << 30;

// The offsets of rows from the first, in bytes.
using Offsets = std::vector<std::int64_t>;

class SparseRange {
 public:
  // What is open around the first byte of a row.
  static constexpr std::int64_t roomBefore = 256, roomBehind = 512;

  SparseRange() : all_(static_cast<std::uint8_t*>(reservePages(size))) {}
  ~SparseRange() { releasePages(all_, size); }
  SparseRange(const SparseRange&) = delete;
  SparseRange& operator=(const SparseRange&) = delete;

  // Offsets from -9 to +9 GiB may be opened.
  std::uint8_t* origin() const { return all_ + reach; }

  void open(const Offsets& offsets) {
    const auto page = static_cast<std::int64_t>(pageSize());
    for (const std::int64_t offset : offsets) {
      const std::int64_t first = (reach + offset - roomBefore) / page * page;
      const std::int64_t end = reach + offset + roomBehind;
      setAccess(all_ + first, static_cast<std::size_t>(end - first), Access::ReadWrite);
    }
  }

 private:
  static constexpr std::int64_t reach = 9 * GiB + (GiB >> 10);
  static constexpr std::size_t size = 2 * reach;
  std::uint8_t* all_;
};

#endif
