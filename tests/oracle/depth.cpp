// SPDX-License-Identifier: MIT

#include "depth.h"

#include <cstddef>
#include <stdexcept>
#include <string>

#include "checks.h"
#include "families.h"
#include "rows.h"

namespace oracle {
namespace {

// The 16-bit side is stepped in whole pixels.
void expand(const DepthCall& call) {
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src, evenStep(call.srcStep), row);
    std::uint8_t* target = rowAt(call.dst, call.dstStep, row);
    for (int column = 0; column < call.width; ++column, target += 3) {
      const auto bytes = expandDepth(loadWord(source, column));
      for (std::size_t k = 0; k < 3; ++k) target[k] = bytes[k];
    }
  }
}

void pack(const DepthCall& call) {
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src, call.srcStep, row);
    std::uint8_t* target = rowAt(call.dst, evenStep(call.dstStep), row);
    for (int column = 0; column < call.width; ++column, source += 3) {
      storeWord(target, column, packDepth({source[0], source[1], source[2]}));
    }
  }
}

}  // namespace

std::array<std::uint8_t, 3> expandDepth(std::uint16_t word) {
  return {static_cast<std::uint8_t>(word % 32 * 8), static_cast<std::uint8_t>(word / 32 % 64 * 4),
          static_cast<std::uint8_t>(word / 2048 * 8)};
}

std::uint16_t packDepth(const std::array<std::uint8_t, 3>& bytes) {
  return static_cast<std::uint16_t>(bytes[0] / 8 + bytes[1] / 4 * 32 + bytes[2] / 8 * 2048);
}

// The colour orders differ in name alone, and so do the variants.
int convertDepth(std::string_view name, [[maybe_unused]] Variant variant, const DepthCall& call) {
  if (familyOf(name) != Family::Depth) {
    throw std::invalid_argument("not a depth conversion: " + std::string(name));
  }
  if (name.starts_with("BGR565") || name.starts_with("RGB565")) {
    expand(call);
  } else {
    pack(call);
  }
  return statusAfter(name, call.width, call.height);
}

}  // namespace oracle
