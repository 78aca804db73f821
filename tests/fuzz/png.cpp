// SPDX-License-Identifier: MIT
// Every input is a picture. It is read as png2y4m reads it, as it is and with the checksums of its
// chunks made right, and encoded in every way that there is. A picture is read or is a Failure;
// nothing else.
#include <zlib.h>

#include <cstring>
#include <string>
#include <vector>

#include "examples/encodings.h"
#include "examples/failure.h"
#include "examples/png_input.h"
#include "tests/fuzz/calls.h"
#include "tests/fuzz/memory_file.h"

namespace {

using examples::ByteOrder;
using examples::Failure;
using Bytes = std::vector<std::uint8_t>;

// Memory for a picture is asked for before its colours are read.
constexpr std::uint64_t mostPixels = 1 << 16;

constexpr std::size_t signatureBytes = 8, sizeBytes = 4, typeBytes = 4, checksumBytes = 4;

std::uint32_t numberAt(const Bytes& bytes, std::size_t at) {
  return std::uint32_t{bytes[at]} << 24 | std::uint32_t{bytes[at + 1]} << 16 |
         std::uint32_t{bytes[at + 2]} << 8 | bytes[at + 3];
}

// Most changes of a picture break a checksum, and libpng stops there.
Bytes withChecksums(Bytes bytes) {
  std::size_t at = signatureBytes;
  while (bytes.size() >= at + sizeBytes + typeBytes + checksumBytes) {
    const std::uint64_t size = numberAt(bytes, at);
    const std::uint64_t end = at + sizeBytes + typeBytes + size;
    if (end + checksumBytes > bytes.size()) break;
    const auto sum = static_cast<std::uint32_t>(
        crc32(0, bytes.data() + at + sizeBytes, static_cast<uInt>(typeBytes + size)));
    for (std::size_t i = 0; i < checksumBytes; ++i)
      bytes[end + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
    at = end + checksumBytes;
  }
  return bytes;
}

bool isSmall(const Bytes& bytes) {
  constexpr std::size_t width = signatureBytes + sizeBytes + typeBytes, height = width + 4;
  return bytes.size() < height + 4 ||
         std::uint64_t{numberAt(bytes, width)} * numberAt(bytes, height) <= mostPixels;
}

// Each byte that is promised can be read: of the rows and of the room after them.
unsigned sumOf(const examples::BytePicture& picture) {
  const std::size_t count = 3 * examples::area(picture.size.width, picture.size.height) + 2 * 3;
  unsigned sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += picture.bytes[i];
  return sum;
}

void encode(const examples::BytePicture& picture, const examples::PixelFormat& pixels) {
  for (const char* const chroma : {"420", "422", "411", "yuv420"}) try {
      const examples::EncodedPicture encoded(picture, pixels, examples::findChromaEncoding(chroma));
      volatile unsigned char last = encoded.planeRow(2, encoded.samples(2).height - 1)[0];
      (void)last;
    } catch (const examples::UsageFailure&) {
    }
}

void readPicture(const Bytes& bytes) {
  const MemoryFile file(bytes.data(), bytes.size());
  for (const char* const via : {"bgr555", "rgb565"}) {
    const examples::PixelFormat& pixels = examples::findPixelFormat(via);
    const examples::BytePicture picture = examples::readPng(file.path(), pixels.order);
    volatile unsigned sum = sumOf(picture);
    (void)sum;
    encode(picture, pixels);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const Bytes asIs(bytes, bytes + size);
  for (const Bytes& picture : {asIs, withChecksums(asIs)}) try {
      if (isSmall(picture)) readPicture(picture);
    } catch (const Failure&) {
    }
  ++callCounts().calls;
  return 0;
}
