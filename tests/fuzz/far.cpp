// SPDX-License-Identifier: MIT
// Rows whose offsets leave 32 bits. Where each of them stands is the oracle's matter: what can be
// touched are all places that some way of counting gives, and there both have to leave the same.
#include <sys/mman.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "catalogue/shapes.h"
#include "tests/fuzz/classes.h"
#include "tests/fuzz/converted.h"
#include "tests/fuzz/numbers.h"
#include "tests/fuzz/run.h"
#include "tests/support/pages.h"

namespace {

using Offsets = std::vector<std::int64_t>;

constexpr std::int64_t GiB = std::int64_t{1} << 30;
constexpr std::int64_t before = 16, after = 48;  // bytes around the first of a row

// None is near to a multiple of another row's, but for those beside 2^31, whose rows overlap.
constexpr int farPitches[] = {1342177280, -1342177280, 2147483584, -2147483584, INT_MAX,   INT_MIN,
                              805306369,  -805306369,  715827904,  1610612737,  300000001, -65536};

// Addresses from -16 to +16 GiB around an origin.
class Range {
 public:
  Range() : all_(static_cast<std::uint8_t*>(reservePages(size))) {
    if (!all_) std::abort();
  }
  std::uint8_t* origin() const { return all_ + size / 2; }

  // Lets the places of rows be touched, and fills them by where they stand.
  void open(const Offsets& offsets, std::uint64_t seed) {
    const auto page = static_cast<std::uintptr_t>(pageSize());
    for (const std::int64_t offset : offsets) {
      const auto first = reinterpret_cast<std::uintptr_t>(origin() + offset - before);
      const auto begin = first & ~(page - 1);
      const auto end = (first + before + after + page - 1) & ~(page - 1);
      if (!setAccess(reinterpret_cast<void*>(begin), end - begin, Access::ReadWrite)) std::abort();
    }
    fill(offsets, seed);
  }
  void fill(const Offsets& offsets, std::uint64_t seed) {
    for (const std::int64_t offset : offsets)
      for (std::int64_t at = (offset - before) & ~7; at < offset + after; at += 8) {
        const std::uint64_t eight = Numbers(seed ^ static_cast<std::uint64_t>(at)).next();
        std::memcpy(origin() + at, &eight, 8);
      }
  }
  void close() {
    madvise(all_, size, MADV_DONTNEED);
    setAccess(all_, size, Access::None);
  }

 private:
  static constexpr std::size_t size = 32 * GiB;
  std::uint8_t* const all_;
};

struct Ranges {
  Range src[3], dst[3], expected[3];
};

std::int64_t wrapped(std::int64_t offset) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(offset));
}

// Every way to count to a row: in full, wrapped, in pixels, by half a pitch, and one on from the
// row before.
Offsets placesOf(int pitch, int rows) {
  const std::int64_t even = pitch - (pitch & 1);
  Offsets places;
  for (int y = 0; y < rows; ++y) {
    const std::int64_t ways[] = {std::int64_t{pitch} * y, wrapped(std::int64_t{pitch} * y),
                                 even * y, 2 * wrapped(even / 2 * y), even / 2 * y};
    for (const std::int64_t way : ways) places.insert(places.end(), {way, way + pitch, way + even});
  }
  std::ranges::sort(places);
  places.erase(std::unique(places.begin(), places.end()), places.end());
  return places;
}

bool wrappedRowsOverlap(int pitch, int rows) {
  for (int y = 0; y < rows; ++y)
    for (int other = 0; other < y; ++other)
      if (std::abs(wrapped(std::int64_t{pitch} * y) - wrapped(std::int64_t{pitch} * other)) < after)
        return true;
  return false;
}

int farPitch(const Case& c, const PlaneWish& wish) {
  const int pitch = farPitches[static_cast<std::size_t>(wish.pitch.value) % std::size(farPitches)];
  return c.conversion->kind == Kind::Twist && pitch < 1 ? farPitches[0] : pitch;
}

struct FarCall {
  CallArguments library = {}, oracle = {};
  Offsets src[3], dst[3];
  bool destinationOverlaps = false;
};

FarCall arranged(const Case& c, Ranges& ranges, const Shape& shape) {
  FarCall call;
  call.library.size = c.size;
  std::memcpy(call.library.twist, c.twist, sizeof c.twist);
  call.oracle = call.library;
  for (std::size_t i = 0; i < shape.src.size(); ++i) {
    const int pitch = farPitch(c, c.src[shape.onePitch ? 0 : i]);
    call.src[i] = placesOf(pitch, c.size.height);
    ranges.src[i].open(call.src[i], c.seed + i);
    call.library.src[i] = call.oracle.src[i] = ranges.src[i].origin();
    call.library.srcStep[i] = call.oracle.srcStep[i] = pitch;
  }
  for (std::size_t i = 0; i < shape.dst.size(); ++i) {
    const int pitch = farPitch(c, c.dst[shape.onePitch ? 0 : i]);
    call.dst[i] = placesOf(pitch, c.size.height);
    call.destinationOverlaps |= wrappedRowsOverlap(pitch, c.size.height);
    ranges.dst[i].open(call.dst[i], ~c.seed - i);
    ranges.expected[i].open(call.dst[i], ~c.seed - i);
    call.library.dst[i] = ranges.dst[i].origin();
    call.oracle.dst[i] = ranges.expected[i].origin();
    call.library.dstStep[i] = call.oracle.dstStep[i] = pitch;
  }
  return call;
}

bool sameBytes(const Offsets& offsets, const Range& got, const Range& wanted) {
  return std::ranges::all_of(offsets, [&](std::int64_t offset) {
    return std::memcmp(got.origin() + offset - before, wanted.origin() + offset - before,
                       before + after) == 0;
  });
}

void callInClass(const Case& c, int k, Ranges& ranges, const FarCall& call) {
  const bool scalarAlone =
      c.conversion->kind == Kind::Encode && c.conversion->has("420_") && call.destinationOverlaps;
  bool asked = false;
  int wanted = 0;
  forEachVariant(c, [&](int variant) {
    if (classOf(*c.conversion, variant) != k || (variant > 0 && scalarAlone)) return;
    for (std::size_t i = 0; i < 3; ++i) {
      ranges.dst[i].fill(call.dst[i], ~c.seed - i);
      if (!asked) ranges.expected[i].fill(call.dst[i], ~c.seed - i);
    }
    if (!asked) wanted = callOracle(c, variant, call.oracle);
    asked = true;
    requireStatus(c, variant, call.library, callLibrary(c, variant, call.library), wanted);
    for (std::size_t i = 0; i < 3; ++i)
      if (!sameBytes(call.dst[i], ranges.dst[i], ranges.expected[i]))
        fail(c, variant, call.library, "rows that are far apart differ");
  });
}

}  // namespace

void expectFarRows(const Case& c) {
  static Ranges ranges;
  const Shape shape = shapeOf(*c.conversion, 0, c.size.width, c.size.height);
  const FarCall call = arranged(c, ranges, shape);
  for (int k = 0; k < classCount; ++k) callInClass(c, k, ranges, call);
  for (std::size_t i = 0; i < shape.src.size(); ++i) ranges.src[i].close();
  for (std::size_t i = 0; i < shape.dst.size(); ++i) {
    ranges.dst[i].close();
    ranges.expected[i].close();
  }
}
