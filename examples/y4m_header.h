// SPDX-License-Identifier: MIT
// The first line of a YUV4MPEG2 clip.
#ifndef PXM_EXAMPLES_Y4M_HEADER_H
#define PXM_EXAMPLES_Y4M_HEADER_H

#include <string_view>

namespace examples {

/// Why a chroma tag is or is not read.
enum class ChromaSupport { kRead, kDeepSamples, kAlphaPlane, kNoChroma };

/// A chroma tag of the format and the size of its chroma planes: one chroma sample stands for
/// 2^xShift columns and 2^yShift rows.
struct ChromaFormat {
  std::string_view tag;
  int xShift;
  int yShift;
  ChromaSupport support;

  int chromaWidth(int width) const { return (width - 1) / (1 << xShift) + 1; }
  int chromaHeight(int height) const { return (height - 1) / (1 << yShift) + 1; }
};

/// What a header says of the range of samples (XCOLORRANGE).
enum class SampleRange { kUnstated, kLimited, kFull };

struct Y4mHeader {
  int width = 0;
  int height = 0;
  const ChromaFormat* chroma = nullptr;
  SampleRange range = SampleRange::kUnstated;
};

/// The word that a clip begins with.
inline constexpr std::string_view kY4mMagic = "YUV4MPEG2";

/// True if a line is the magic word alone or followed by a space.
bool beginsAsY4m(std::string_view line);

/// Reads the header line, given without its line end.
/// Throws a Failure with one clear reason if it is damaged or names a chroma format that is not
/// read; a header that names none means C420jpeg. Frame rate, interlacing, aspect, comments and
/// letters of later revisions are skipped, the first three after a check of their form.
Y4mHeader parseY4mHeader(std::string_view line);

}  // namespace examples

#endif
