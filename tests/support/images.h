// SPDX-License-Identifier: MIT
// Images for calls whose results matter less than what else the calls do.
#ifndef TESTS_SUPPORT_IMAGES_H_
#define TESTS_SUPPORT_IMAGES_H_

#include <array>
#include <cstdint>
#include <cstring>

#include "catalogue/conversions.h"
#include "tests/support/by_oracle.h"
#include "tests/support/random.h"

// Images that have room for any conversion of 100 columns and of 8 rows less than there are; above
// and below stand rows that some read from.
template <int rowCount>
struct ImagesOfRows {
  static constexpr int pitch = 512, rows = rowCount, firstRow = 4;
  using Plane = std::array<std::uint8_t, pitch * rows>;
  std::array<Plane, 3> src, dst;

  explicit ImagesOfRows(Random& random) {
    for (Plane& plane : src) random.fill(plane.data(), plane.size());
    for (Plane& plane : dst) random.fill(plane.data(), plane.size());
  }

  // Upwards by negative pitches, which the twist rejects.
  CallArguments arguments(pxmSize size, bool upwards = false) {
    CallArguments a = {};
    const int first = upwards ? rows - firstRow : firstRow;
    for (std::size_t i = 0; i < 3; ++i) {
      a.src[i] = src[i].data() + first * pitch;
      a.dst[i] = dst[i].data() + first * pitch;
      a.srcStep[i] = a.dstStep[i] = upwards ? -pitch : pitch;
    }
    a.size = size;
    std::memcpy(a.twist, ordinaryTwist, sizeof a.twist);
    return a;
  }
};

using Images = ImagesOfRows<16>;
using TallImages = ImagesOfRows<112>;

#endif
