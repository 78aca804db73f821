// SPDX-License-Identifier: MIT
#include "tests/support/guarded.h"

#include <sys/mman.h>
#include <unistd.h>

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

std::uint8_t* placeImage(const GuardedBytes& memory, Against side, std::ptrdiff_t pitch,
                         std::ptrdiff_t rowBytes, int height) {
  const std::ptrdiff_t lastRow = (height - 1) * pitch;
  const std::ptrdiff_t above = lastRow < 0 ? -lastRow : 0;               // bytes ahead of row 0
  const std::ptrdiff_t behind = (lastRow > 0 ? lastRow : 0) + rowBytes;  // from row 0 to the end
  if (above + behind > static_cast<std::ptrdiff_t>(memory.size()))
    throw std::length_error("an image that does not fit its memory");
  return side == Against::FirstPage ? memory.begin() + above : memory.end() - behind;
}
