// SPDX-License-Identifier: MIT
//
// The processor variants, stated a second time: everything that tests expect of them as such.

#ifndef TESTS_ORACLE_VARIANTS_H_
#define TESTS_ORACLE_VARIANTS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace oracle {

// In slot order. All but mx are SIMD variants. Depth conversion alone is the same in all of them
// for every input.
enum class Variant {
#define VARIANT(tag, ...) tag,
#include "frame/variants.def"
};

// Tag and label of a variant's version record. Of the feature mask: the fewest bits that choose the
// variant, and the bits that stay enabled.
struct VariantFacts {
  std::string_view tag, label;
  std::uint64_t fewest, known;
};

inline constexpr VariantFacts kVariants[] = {
    {"mx", "pxmCC PX (mx)", 0, 7},
    {"m7", "pxmCC SSE3 (m7)", 0x8, 15},
    {"u8", "pxmCC SSSE3 (u8)", 0x10, 31},
    {"n8", "pxmCC Mote (n8)", 0x30, 63},
    {"y8", "pxmCC SSE4.1/4.2 (y8)", 0x40, 527583},
    {"e9", "pxmCC AVX (e9)", 0x300, 552927},
    {"l9", "pxmCC AVX2 (l9)", 0x8300, 1044479},
};
inline constexpr std::size_t kVariantCount = std::size(kVariants);

constexpr const VariantFacts& factsOf(Variant variant) {
  return kVariants[static_cast<std::size_t>(variant)];
}

// All but mx.
inline constexpr auto kVectorVariants = [] {
  std::array<Variant, kVariantCount - 1> all = {};
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = Variant{static_cast<int>(i) + 1};
  return all;
}();

constexpr std::optional<Variant> variantOfTag(std::string_view tag) {
  for (std::size_t i = 0; i < kVariantCount; ++i) {
    if (kVariants[i].tag == tag) return Variant{static_cast<int>(i)};
  }
  return std::nullopt;
}

// Every variant of the library has its line here, in the same order.
#define VARIANT(tag, ...)                                                    \
  static_assert(variantOfTag(#tag).has_value(),                              \
                "tests/oracle/variants.h does not know variant '" #tag "'"); \
  static_assert(!variantOfTag(#tag) || *variantOfTag(#tag) == Variant::tag,  \
                "tests/oracle/variants.h has variant '" #tag "' at another slot");
#include "frame/variants.def"

// The choice for a feature mask: the first line whose features are all there wins.
constexpr Variant variantFor(std::uint64_t mask) {
  const bool avx = mask & 0x100 && mask & 0x200;
  if (avx && mask & 0x8000) return Variant::l9;
  if (avx) return Variant::e9;
  if (mask & 0x40) return Variant::y8;
  if (mask & 0x20 && mask & 0x10) return Variant::n8;
  if (mask & 0x10 && !(mask & 0x20)) return Variant::u8;
  if (mask & 0x8) return Variant::m7;
  return Variant::mx;
}

}  // namespace oracle

#endif  // TESTS_ORACLE_VARIANTS_H_
