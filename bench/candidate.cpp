// SPDX-License-Identifier: MIT
#include "bench/candidate.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "catalogue/variants.h"
#include "frame/dispatch.h"

namespace {

void touch(const std::uint8_t* bytes, std::size_t count) {
  __m128i sum = _mm_setzero_si128(), other = sum;
  for (std::size_t i = 0; i + 32 <= count; i += 32) {
    sum = _mm_xor_si128(sum, _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i)));
    other = _mm_xor_si128(other, _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i + 16)));
  }
  asm volatile("" : : "x"(sum), "x"(other));
}

struct Copy {
  const std::uint8_t* src;
  std::size_t read;
  std::uint8_t* dst;
  std::size_t written;

  // Where more is written than read, bytes that were just read are written once more.
  void piece(std::size_t from, std::size_t readEnd, std::size_t to, std::size_t writeEnd) const {
    const std::size_t in = readEnd - from, out = writeEnd - to;
    std::memcpy(dst + to, src + from, std::min(in, out));
    if (in > out) touch(src + from + out, in - out);
    if (out > in) std::memcpy(dst + to + in, src + from, std::min(in, out - in));
    if (out > 2 * in) std::memcpy(dst + to + 2 * in, src + from, out - 2 * in);
  }

  void pieces(std::size_t count) const {
    for (std::size_t i = 0; i < count; ++i)
      piece(read * i / count, read * (i + 1) / count, written * i / count,
            written * (i + 1) / count);
    asm volatile("" : : : "memory");
  }
};

std::size_t bytesOf(const std::vector<Plane>& planes) {
  std::size_t bytes = 0;
  for (const Plane& plane : planes) bytes += plane.bytes();
  return bytes;
}

}  // namespace

PeerClass peerClassOf(int variant) {
  using namespace pxm;
  static constexpr FeatureMask needed[] = {
#define VARIANT(tag, kernels, depth_kernels, needs, ...) needs,
#include "frame/variants.def"
  };
  if (needed[variant] == featureNone) return PeerClass::None;
  return needed[variant] & featureAvx ? PeerClass::Avx2 : PeerClass::Sse4;
}

const char* nameOf(PeerClass peerClass) {
  switch (peerClass) {
    case PeerClass::None:
      return "none";
    case PeerClass::Any:
      return "any";
    case PeerClass::Sse4:
      return "SSE4";
    default:
      return "AVX2";
  }
}

std::vector<Candidate> ourCandidates(const Conversion& conversion, const Images& images,
                                     const std::vector<int>& variants) {
  std::vector<Candidate> candidates;
  for (const int variant : variants)
    candidates.push_back({variantTags[variant], std::string(conversion.name), peerClassOf(variant),
                          [variant] { VariantIndex = variant; },
                          [&conversion, &images] { conversion.call(images.arguments()); }});
  return candidates;
}

std::vector<Candidate> otherBuildCandidates(LoadedLibrary& other, const Conversion& conversion,
                                            const Images& images,
                                            const std::vector<int>& variants) {
  const auto& all = other.conversions();
  const LoadedConversion& same = *std::ranges::find(all, conversion.name, &LoadedConversion::name);
  std::vector<Candidate> candidates;
  for (const int variant : variants) {
    const std::string tag = variantTags[variant];
    other.select(variant);
    if (other.tag() != tag) throw std::runtime_error("the other build has no " + tag + " there");
    candidates.push_back({otherBuildMaker(tag), std::string(conversion.name), PeerClass::None,
                          [&other, variant] { other.select(variant); },
                          [&same, &images] { same.call(images.arguments()); }});
  }
  return candidates;
}

std::string otherBuildMaker(const std::string& tag) {
  return "other " + tag;
}

std::vector<Candidate> copyCandidates(const Images& images) {
  const Copy copy = {images.src()[0].data, bytesOf(images.src()), images.dst()[0].data,
                     bytesOf(images.dst())};
  constexpr std::size_t pieceBytes = 8192;
  const std::size_t count = std::max<std::size_t>(1, copy.written / pieceBytes);
  return {{"copy", "memcpy in one piece", PeerClass::None, {}, [copy] { copy.pieces(1); }},
          {"copy", "memcpy in pieces", PeerClass::None, {}, [copy, count] { copy.pieces(count); }}};
}
