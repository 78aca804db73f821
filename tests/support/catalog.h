// SPDX-License-Identifier: MIT
// The conversions that are exported, as data: names and addresses, never the expected answer.
#ifndef TESTS_SUPPORT_CATALOG_H_
#define TESTS_SUPPORT_CATALOG_H_

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "include/pxmcc90lgc.h"

// A call of any decoding conversion; a packed source is src[0] with srcStep[0], a family with one
// pitch takes srcStep[0] for its three planes.
struct DecodeArguments {
  const unsigned char* src[3];
  int srcStep[3];
  unsigned short* dst;
  int dstStep;
  pxmSize size;
};

// A slot table as it stands in the library: entries 0 to 6, and the trampoline at -1.
using SlotTable = const void* const*;

struct Decoder {
  std::string_view name;  // without the prefix of exports
  SlotTable slots;
  pxmStatus (*call)(DecodeArguments);  // through the exported name
  bool planar;
  bool dither;
  friend std::ostream& operator<<(std::ostream& out, const Decoder& d) { return out << d.name; }
};

// Every decoding conversion that is exported, in byte order.
const std::vector<Decoder>& decoders();
const Decoder& decoderNamed(std::string_view name);

inline constexpr int variantCount = 7;
extern const char* const variantTags[variantCount];

// Stores VariantIndex for the life of the object: every exported name jumps to that variant.
class SelectedVariant {
 public:
  explicit SelectedVariant(int variant);
  ~SelectedVariant();
  SelectedVariant(const SelectedVariant&) = delete;
  SelectedVariant& operator=(const SelectedVariant&) = delete;

 private:
  int before_;
};

// The variants that this machine can run and that have code of their own for a conversion; a slot
// that leads to an earlier slot's entry has nothing new to show. Variants that the machine cannot
// run are reported once, on standard error.
std::vector<int> variantsToTest(const Decoder& decoder);

#endif
