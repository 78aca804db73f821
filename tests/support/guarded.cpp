// SPDX-License-Identifier: MIT
#include "tests/support/guarded.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <new>
#include <stdexcept>

namespace {

std::size_t pageSize() {
  static const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  return size;
}

}  // namespace

GuardedBytes::GuardedBytes(std::size_t leastSize)
    : size_((leastSize + pageSize() - 1) / pageSize() * pageSize()) {
  void* all = mmap(nullptr, size_ + 2 * pageSize(), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (all == MAP_FAILED) throw std::bad_alloc();
  bytes_ = static_cast<std::uint8_t*>(all) + pageSize();
  if (mprotect(bytes_, size_, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
}

GuardedBytes::~GuardedBytes() {
  munmap(bytes_ - pageSize(), size_ + 2 * pageSize());
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
