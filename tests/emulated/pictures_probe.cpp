// SPDX-License-Identifier: MIT
// Every conversion of the shared library, by its exported name and in the variant that the
// processor gets, against the oracle: pictures_probe TAG. Meant to run on emulated processors that
// lack every newer instruction.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/support/by_oracle.h"

namespace {

constexpr int width = 68, height = 6, pitch = 4 * width, planeBytes = pitch * (height + 1);

// Three planes in which no row repeats another: 251 is the largest prime below 256.
std::vector<std::uint8_t> samples() {
  std::vector<std::uint8_t> bytes(3 * planeBytes);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<std::uint8_t>(i * 7 % 251 + (i / 251) % 5);
  return bytes;
}

CallArguments arguments(const std::vector<std::uint8_t>& source, std::vector<std::uint8_t>& out) {
  CallArguments a = {};
  for (int i = 0; i < 3; ++i) {
    a.src[i] = source.data() + i * planeBytes;
    a.dst[i] = out.data() + i * planeBytes;
    a.srcStep[i] = a.dstStep[i] = pitch;
  }
  a.size = {width, height};
  std::memcpy(a.twist, ordinaryTwist, sizeof a.twist);
  return a;
}

bool sameAsOracle(const Conversion& conversion, int variant) {
  static const std::vector<std::uint8_t> source = samples();
  std::vector<std::uint8_t> got = source, want = source;  // in place, these are the samples
  const pxmStatus status = conversion.call(arguments(source, got));
  CallArguments expected = arguments(source, want);
  if (conversion.has("IR") || conversion.has("IP3"))
    expected.src[0] = expected.src[1] = expected.src[2] = nullptr;
  return status == convertByOracle(conversion, variant, expected) && got == want && got != source;
}

}  // namespace

int main(int argc, char** argv) {
  const char* tag = legacy90pxmccGetLibVersion()->variantTag;
  if (argc != 2 || std::strcmp(argv[1], tag) != 0) {
    std::fprintf(stderr, "pictures_probe: variant %s runs\n", tag);
    return 1;
  }
  const int variant = variantNamed(tag);
  long wrong = 0;
  for (const Conversion& conversion : conversions())
    if (!sameAsOracle(conversion, variant)) {
      ++wrong;
      std::fprintf(stderr, "pictures_probe: %s differs\n", std::string(conversion.name).c_str());
    }
  std::printf("%s: %zu conversions, %ld wrong\n", tag, conversions().size(), wrong);
  return wrong != 0;
}
