// SPDX-License-Identifier: MIT
// Every input is a clip. It is read as y4m2rgb reads it, under both matrices, and its first frames
// are converted in every way that there is. A clip is read or is a Failure; nothing else.
#include "examples/y4m.h"

#include <string>

#include "examples/conversions.h"
#include "examples/failure.h"
#include "tests/fuzz/calls.h"
#include "tests/fuzz/guard.h"
#include "tests/fuzz/memory_file.h"

namespace {

using examples::Failure;
using examples::PictureBuffers;

// Memory for the pictures of a header is asked for before a frame is read: a fuzzer would find
// nothing but how much there is.
constexpr size_t mostPixels = 1 << 16;
constexpr int mostFrames = 3;

constexpr const char* targets[] = {"bgr565", "rgb565", "bgr555", "rgb555", "bgr444", "rgb444"};

// Each pixel that is shown has to have a value.
void requirePixels(const PictureBuffers& buffers) {
  for (int y = 0; y < buffers.shown().height; ++y)
    guard::requireValues(buffers.row(y),
                         sizeof(short) * static_cast<size_t>(buffers.shown().width));
}

void convert(const examples::ChromaFormat& chroma, const examples::SourceFormat& source,
             PictureBuffers& buffers) {
  for (const char* const target : targets)
    for (const bool dither : {false, true}) try {
        examples::convertPicture(
            buffers,
            examples::findConversion(chroma, source, examples::findTarget(target), dither));
        requirePixels(buffers);
      } catch (const examples::UsageFailure&) {
      }
}

void readClip(const std::string& path, examples::Matrix matrix) {
  examples::Y4mReader reader(path);
  const examples::Y4mHeader& header = reader.header();
  const examples::SourceFormat& source = examples::findSource(*header.chroma, matrix);
  if (examples::area(header.width, header.height) > mostPixels || !reader.hasFrame()) return;
  PictureBuffers buffers(header, source.sizes);
  for (int frame = 0; frame < mostFrames && reader.hasFrame(); ++frame) {
    reader.readFrame(buffers);
    convert(*header.chroma, source, buffers);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const MemoryFile file(bytes, size);
  for (const examples::Matrix matrix : {examples::Matrix::kYcbcr, examples::Matrix::kYuv}) try {
      readClip(file.path(), matrix);
    } catch (const Failure&) {
    }
  ++callCounts().calls;
  return 0;
}
