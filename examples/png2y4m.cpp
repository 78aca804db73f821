// SPDX-License-Identifier: MIT
// Reduces a picture to 16-bit pixels and encodes these as a clip.
#include <string>

#include "command_line.h"
#include "encodings.h"
#include "failure.h"
#include "output_file.h"
#include "png_input.h"
#include "y4m.h"

namespace {

using examples::EncodedPicture;
using examples::OutputFile;

constexpr const char* kHelp =
    "Usage: png2y4m --via FORMAT --chroma FORMAT [--frames N] INPUT.png OUTPUT.y4m\n"
    "\n"
    "Reduces a picture to 16-bit pixels and encodes these as a YUV4MPEG2 clip.\n"
    "\n"
    "  --via FORMAT     bgr555, bgr565 or rgb565; the colour that is spelt first sits\n"
    "                   in the low bits. The low bits of colours are dropped\n"
    "  --chroma FORMAT  420, 422 or 411: ITU-R BT.601 in studio range, written as\n"
    "                   C420jpeg, C422, C411; yuv420: full range with the analogue\n"
    "                   colour differences, written as C420jpeg. rgb565 goes with\n"
    "                   yuv420 only\n"
    "  --frames N       number of equal frames, from 1 to 1000000 (1)\n"
    "  --help           print this text\n"
    "  --version        print the version\n"
    "\n"
    "INPUT.png is a file, or - for standard input. Palettes, gray and 16-bit samples\n"
    "are turned into 8-bit colours, transparent pixels stand on black. OUTPUT.y4m is\n"
    "a file, or - for standard output.\n"
    "\n"
    "A clip rounds its chroma planes up where the encoders round down. The picture is\n"
    "padded by its last column and row to whole groups of pixels that share a chroma\n"
    "sample, and the clip gets its own size of the luma.\n"
    "\n"
    "The analogue differences of yuv420 are not those that players expect of\n"
    "C420jpeg: blue ones are smaller, red ones larger, and cut off in saturated red\n"
    "and cyan. y4m2rgb --matrix yuv takes them as they are.\n"
    "\n"
    "An error is one line on standard error and an exit status of 1, or of 2 for a\n"
    "command line that cannot be carried out. A file is written whole or not at all.\n";

constexpr long long kMostFrames = 1000000;

struct Options {
  const examples::PixelFormat* via = nullptr;
  const examples::ChromaEncoding* chroma = nullptr;
  bool hasVia = false;
  bool hasChroma = false;
  long long frames = 1;
  std::string input;
  std::string output;
};

// False if there is nothing to convert.
bool readOptions(int argc, char** argv, Options& options) {
  const examples::CommandLine line = {"png2y4m",
                                      kHelp,
                                      {{"via", "FORMAT",
                                        [&](const char* value) {
                                          options.via = &examples::findPixelFormat(value);
                                          options.hasVia = true;
                                        },
                                        &options.hasVia},
                                       {"chroma", "FORMAT",
                                        [&](const char* value) {
                                          options.chroma = &examples::findChromaEncoding(value);
                                          options.hasChroma = true;
                                        },
                                        &options.hasChroma},
                                       {"frames", "N",
                                        [&](const char* value) {
                                          options.frames =
                                              examples::numberOf("frames", value, kMostFrames);
                                        }}},
                                      {{"INPUT", &options.input}, {"OUTPUT", &options.output}}};
  if (!examples::readCommandLine(line, argc, argv)) {
    return false;
  }
  examples::findEncoding(*options.via, *options.chroma);
  examples::requireOtherFile(options.input, options.output);
  return true;
}

void writeFrame(OutputFile& file, const EncodedPicture& picture) {
  examples::writeY4mFrameLine(file);
  for (int i = 0; i < 3; ++i) {
    const auto [width, height] = picture.samples(i);
    for (int y = 0; y < height; ++y) {
      file.write(picture.planeRow(i, y), static_cast<size_t>(width));
    }
  }
}

void run(int argc, char** argv) {
  Options options;
  if (!readOptions(argc, argv, options)) {
    return;
  }
  const EncodedPicture picture(examples::readPng(options.input, options.via->order), *options.via,
                               *options.chroma);
  OutputFile file(options.output);
  examples::writeY4mHeader(file, picture.samples(0), options.chroma->headerWords);
  for (long long frame = 0; frame < options.frames; ++frame) {
    writeFrame(file, picture);
  }
  file.commit();
}

}  // namespace

int main(int argc, char** argv) {
  return examples::runProgram("png2y4m", run, argc, argv);
}
