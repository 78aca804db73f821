// SPDX-License-Identifier: MIT
// Every 4:4:4 conversion of the shared library, by its exported name and in the variant that the
// processor gets, against the oracle: pictures_probe TAG. Meant to run on emulated processors that
// lack every newer instruction.
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "include/pxmcc90lgc.h"
#include "tests/oracle/oracle.h"

namespace {

constexpr int width = 67, height = 5;

using Planar = pxmStatus(const unsigned char* [3], int, unsigned short*, int, pxmSize);
using Packed = pxmStatus(const unsigned char*, int, unsigned short*, int, pxmSize);

oracle::Variant runningVariant() {
  constexpr const char* tags[] = {"mx", "m7", "u8", "n8", "y8", "e9", "l9"};
  int index = 0;
  while (std::strcmp(tags[index], legacy90pxmccGetLibVersion()->variantTag) != 0) ++index;
  return oracle::Variant{index};
}

// Samples in which no row and no plane repeats another: 251 is the largest prime below 256.
std::vector<std::uint8_t> samples() {
  std::vector<std::uint8_t> bytes(3 * width * height);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<std::uint8_t>(i * 7 % 251 + (i / 251) % 5);
  return bytes;
}

bool sameAsOracle(std::string_view name, oracle::Variant variant) {
  static const std::vector<std::uint8_t> source = samples();
  void* exported = dlsym(RTLD_DEFAULT, ("legacy90pxmi" + std::string(name)).c_str());
  if (exported == nullptr) return false;
  const bool planar = name.find("P3C3R") != std::string_view::npos;
  const int pitch = planar ? width : 3 * width;
  const std::uint8_t* planes[3] = {source.data(), source.data() + width * height,
                                   source.data() + 2 * width * height};
  std::vector<unsigned short> got(width * height, 0x5A5A), want = got;
  const pxmStatus status = planar ? reinterpret_cast<Planar*>(exported)(planes, pitch, got.data(),
                                                                        2 * width, {width, height})
                                  : reinterpret_cast<Packed*>(exported)(
                                        planes[0], pitch, got.data(), 2 * width, {width, height});
  oracle::decode(name, variant,
                 {{planes[0], planes[1], planes[2]},
                  {pitch, pitch, pitch},
                  reinterpret_cast<std::uint8_t*>(want.data()),
                  2 * width,
                  width,
                  height});
  return status == pxmStatusOk && got == want;
}

}  // namespace

int main(int argc, char** argv) {
  const char* tag = legacy90pxmccGetLibVersion()->variantTag;
  if (argc != 2 || std::strcmp(argv[1], tag) != 0) {
    std::fprintf(stderr, "pictures_probe: variant %s runs\n", tag);
    return 1;
  }
  int checked = 0, wrong = 0;
  for (const std::string_view name : oracle::conversionNames())
    if (name.starts_with("YCbCrTo")) {
      ++checked;
      if (!sameAsOracle(name, runningVariant())) {
        ++wrong;
        std::fprintf(stderr, "pictures_probe: %s differs\n", std::string(name).c_str());
      }
    }
  std::printf("%s: %d conversions, %d wrong\n", tag, checked, wrong);
  return checked == 0 || wrong != 0;
}
