// SPDX-License-Identifier: MIT
// The conversions as data: names and how to call them by their exported names, never the expected
// answer.
#ifndef CATALOGUE_CONVERSIONS_H_
#define CATALOGUE_CONVERSIONS_H_

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "include/pxmcc90lgc.h"

// The arguments of any conversion, images as bytes. What a conversion has less of stands first: an
// interleaved image is src[0], one pitch for three planes is srcStep[0]. In place, dst is where the
// samples are read and written.
struct CallArguments {
  const std::uint8_t* src[3];
  int srcStep[3];
  std::uint8_t* dst[3];
  int dstStep[3];
  pxmSize size;
  float twist[3][4];
  // Null in place of the array of planes, or of the matrix.
  bool nullSrcPlanes = false, nullDstPlanes = false, nullTwist = false;
};

enum class Kind { Decode, Encode, Depth, Twist };

struct Conversion {
  std::string_view name;  // without the prefix of exports
  Kind kind;
  pxmStatus (*call)(const CallArguments&);  // through the exported name

  bool has(std::string_view part) const { return name.find(part) != std::string_view::npos; }
  friend std::ostream& operator<<(std::ostream& out, const Conversion& c) { return out << c.name; }
};

// All conversions, in byte order.
const std::vector<Conversion>& conversions();
std::vector<Conversion> conversionsOf(Kind kind);
const Conversion& conversionNamed(std::string_view name);

#endif
