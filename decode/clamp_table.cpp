// SPDX-License-Identifier: MIT
#include "decode/clamp_table.h"

namespace pxm {
namespace {

constexpr ClampEntries clamped() {
  ClampEntries table = {};
  for (int i = clampFirst; i <= clampLast; ++i)
    table.entry[i - clampFirst] = static_cast<uint8_t>(i < 0 ? 0 : i > 255 ? 255 : i);
  return table;
}

}  // namespace

constinit const ClampEntries ClampTable = clamped();

}  // namespace pxm
