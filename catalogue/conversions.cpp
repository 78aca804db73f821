// SPDX-License-Identifier: MIT
#include "catalogue/conversions.h"

#include <algorithm>
#include <stdexcept>

#include "catalogue/argument_lists.h"

namespace {

template <auto exported>
pxmStatus callExport(const CallArguments& a) {
  return argument_lists::call(exported, a);
}

}  // namespace

const std::vector<Conversion>& conversions() {
#define ROW(name, kind) {#name, kind, callExport<&legacy90pxmi##name>},
  static const std::vector<Conversion> all = {
#define DECODE(name, ...) ROW(name, Kind::Decode)
#define ENCODE(name, ...) ROW(name, Kind::Encode)
#define DEPTH(name, ...) ROW(name, Kind::Depth)
#define TWIST(name, ...) ROW(name, Kind::Twist)
#include "frame/conversions.def"
  };
#undef ROW
  return all;
}

std::vector<Conversion> conversionsOf(Kind kind) {
  std::vector<Conversion> some;
  std::ranges::copy_if(conversions(), std::back_inserter(some),
                       [kind](const Conversion& c) { return c.kind == kind; });
  return some;
}

const Conversion& conversionNamed(std::string_view name) {
  const auto found = std::ranges::find(conversions(), name, &Conversion::name);
  if (found == conversions().end()) throw std::invalid_argument(std::string(name));
  return *found;
}
