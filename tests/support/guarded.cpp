// SPDX-License-Identifier: MIT
#include "tests/support/guarded.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "tests/support/pages.h"

GuardedBytes::GuardedBytes(std::size_t leastSize)
    : size_((leastSize + pageSize() - 1) / pageSize() * pageSize()) {
  void* const all = reservePages(size_ + 2 * pageSize());
  if (all == nullptr) throw std::bad_alloc();
  bytes_ = static_cast<std::uint8_t*>(all) + pageSize();
  if (!setAccess(bytes_, size_, Access::ReadWrite)) throw std::bad_alloc();
}

GuardedBytes::~GuardedBytes() {
  releasePages(bytes_ - pageSize(), size_ + 2 * pageSize());
}

std::uint8_t* placeImage(const GuardedBytes& memory, Against side, int distance,
                         const std::vector<RowSpan>& rows) {
  std::ptrdiff_t begin = 0, end = 0;
  if (!rows.empty()) {
    begin = rows[0].begin;
    end = rows[0].end;
  }
  for (const RowSpan& row : rows) {
    begin = std::min(begin, row.begin);
    end = std::max(end, row.end);
  }
  if (end - begin + distance > static_cast<std::ptrdiff_t>(memory.size()))
    throw std::length_error("an image that does not fit its memory");
  return side == Against::FirstPage ? memory.begin() + distance - begin
                                    : memory.end() - distance - end;
}
