// SPDX-License-Identifier: MIT
#include "picture_size.h"

#ifdef _WIN32
#include <windows.h>
#undef min
#undef max
#else
#include <unistd.h>
#endif

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string>

#include "failure.h"

namespace examples {

namespace {

constexpr int kMaxWidth = INT_MAX / 8;
constexpr size_t kMaxPixels = size_t{1} << 56;

int paddedSide(int side, int least, int multiple) {
  const long long wanted = std::max(side, least);
  const long long whole = (wanted + multiple - 1) / multiple * multiple;
  return static_cast<int>(std::min<long long>(whole, INT_MAX));
}

#ifdef _WIN32
size_t machineMemory() {
  MEMORYSTATUSEX status = {};
  status.dwLength = sizeof status;
  return GlobalMemoryStatusEx(&status) ? status.ullTotalPhys : SIZE_MAX;
}
#else
size_t machineMemory() {
  const long pages = sysconf(_SC_PHYS_PAGES);
  const long pageSize = sysconf(_SC_PAGESIZE);
  return pages > 0 && pageSize > 0 ? static_cast<size_t>(pages) * static_cast<size_t>(pageSize)
                                   : SIZE_MAX;
}
#endif

std::string picturesOf(Size size) {
  return "pictures of " + std::to_string(size.width) + "x" + std::to_string(size.height) +
         " pixels ";
}

}  // namespace

Size readSize(std::string_view text) {
  const size_t x = text.find('x');
  Size size;
  if (x != std::string_view::npos) {
    size.width = static_cast<int>(positiveNumber(text.substr(0, x), kLongestSide));
    size.height = static_cast<int>(positiveNumber(text.substr(x + 1), kLongestSide));
  }
  if (size.width == 0 || size.height == 0) {
    throw UsageFailure("--size " + quoted(text) + " is not 1x1 to 16384x16384");
  }
  return size;
}

Size SizeRule::padded(Size size) const {
  return {paddedSide(size.width, leastWidth, widthMultiple),
          paddedSide(size.height, leastHeight, heightMultiple)};
}

void requireMemory(Size size, int bytesPerPixel) {
  const size_t pixels =
      (static_cast<size_t>(size.width) + kRowRoom) * static_cast<size_t>(size.height);
  if (size.width > kMaxWidth || pixels > kMaxPixels ||
      pixels * static_cast<size_t>(bytesPerPixel) > machineMemory()) {
    throw Failure(picturesOf(size) + "do not fit into the memory of this machine");
  }
}

void requireRowsWithin32Bits(Size size) {
  if (2 * (static_cast<size_t>(size.width) + kRowRoom) * static_cast<size_t>(size.height) >
      INT_MAX) {
    throw Failure(picturesOf(size) + "are too large for the conversion");
  }
}

}  // namespace examples
