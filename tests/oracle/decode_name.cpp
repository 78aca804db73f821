// SPDX-License-Identifier: MIT

#include "oracle.h"

namespace oracle {
namespace {

// Removes word from the front of rest, if it stands there.
bool take(std::string_view& rest, std::string_view word) {
  if (!rest.starts_with(word)) return false;
  rest.remove_prefix(word.size());
  return true;
}

// The longer words come first, since one source word begins the others.
std::optional<DecodeSource> takeSource(std::string_view& rest) {
  if (take(rest, "YCbCr422")) return DecodeSource::YCbCr422;
  if (take(rest, "YCbCr420")) return DecodeSource::YCbCr420;
  if (take(rest, "YCbCr411")) return DecodeSource::YCbCr411;
  if (take(rest, "YUV420")) return DecodeSource::YUV420;
  if (take(rest, "YCbCr")) return DecodeSource::YCbCr;
  return std::nullopt;
}

std::optional<int> takeDepth(std::string_view& rest) {
  if (take(rest, "444")) return 444;
  if (take(rest, "555")) return 555;
  if (take(rest, "565")) return 565;
  return std::nullopt;
}

std::optional<DecodeLayout> wholeLayout(std::string_view rest) {
  if (rest == "C3R") return DecodeLayout::C3;
  if (rest == "C2C3R") return DecodeLayout::C2C3;
  if (rest == "P3C3R") return DecodeLayout::P3C3;
  return std::nullopt;
}

// The words of a name combine freely except for the interleaved layouts, each of which belongs to
// one source, and for 4:1:1, which has two names only.
bool exists(const DecodeName& n) {
  if (n.source == DecodeSource::YCbCr411) {
    return n.layout == DecodeLayout::P3C3 && n.bgr && n.depth != 444 && !n.dither;
  }
  if (n.layout == DecodeLayout::C3) return n.source == DecodeSource::YCbCr;
  if (n.layout == DecodeLayout::C2C3) return n.source == DecodeSource::YCbCr422;
  return true;
}

}  // namespace

std::optional<DecodeName> parseDecodeName(std::string_view name) {
  std::string_view rest = name;
  const auto source = takeSource(rest);
  if (!source || !take(rest, "To")) return std::nullopt;
  const bool bgr = take(rest, "BGR");
  if (!bgr && !take(rest, "RGB")) return std::nullopt;
  const auto depth = takeDepth(rest);
  const bool dither = take(rest, "Dither");
  if (!depth || !take(rest, "_8u16u_")) return std::nullopt;
  const auto layout = wholeLayout(rest);
  if (!layout) return std::nullopt;
  const DecodeName parsed{*source, bgr, *depth, dither, *layout};
  return exists(parsed) ? std::optional(parsed) : std::nullopt;
}

}  // namespace oracle
