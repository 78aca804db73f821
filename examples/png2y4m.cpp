// SPDX-License-Identifier: MIT
// Reduces a picture to 16-bit pixels and encodes these as a clip.
#include <getopt.h>

#include <string>

#include "encodings.h"
#include "failure.h"
#include "output_file.h"
#include "png_input.h"
#include "y4m.h"

namespace {

using examples::EncodedPicture;
using examples::OutputFile;
using examples::UsageFailure;

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
    "and cyan. y4m2png --matrix yuv takes them as they are.\n"
    "\n"
    "An error is one line on standard error and an exit status of 1, or of 2 for a\n"
    "command line that cannot be carried out. A file is written whole or not at all.\n";

constexpr long long kMostFrames = 1000000;

struct Options {
  const examples::PixelFormat* via = nullptr;
  const examples::ChromaEncoding* chroma = nullptr;
  long long frames = 1;
  bool help = false;
  std::string input;
  std::string output;
};

long long frameCount(const char* text) {
  const long long frames = examples::positiveNumber(text, kMostFrames);
  if (frames == 0) {
    throw UsageFailure("--frames " + examples::quoted(text) + " is not 1 to 1000000");
  }
  return frames;
}

void readPositional(int argc, char** argv, Options& options) {
  if (options.via == nullptr || options.chroma == nullptr) {
    throw UsageFailure(options.via == nullptr ? "--via FORMAT is missing"
                                              : "--chroma FORMAT is missing");
  }
  examples::findEncoding(*options.via, *options.chroma);
  if (argc - optind != 2) {
    throw UsageFailure(argc - optind < 2 ? "INPUT or OUTPUT is missing"
                                         : examples::quoted(argv[optind + 2]) + " is too much");
  }
  options.input = argv[optind];
  options.output = argv[optind + 1];
  if (options.output.empty()) {
    throw UsageFailure("OUTPUT '' is not the name of a file");
  }
}

Options readCommandLine(int argc, char** argv) {
  static const option kOptions[] = {{"via", required_argument, nullptr, 'v'},
                                    {"chroma", required_argument, nullptr, 'c'},
                                    {"frames", required_argument, nullptr, 'f'},
                                    {"help", no_argument, nullptr, 'h'},
                                    {nullptr, 0, nullptr, 0}};
  Options options;
  opterr = 0;
  for (int c; (c = getopt_long(argc, argv, ":h", kOptions, nullptr)) != -1;) {
    if (c == 'v') {
      options.via = &examples::findPixelFormat(optarg);
    } else if (c == 'c') {
      options.chroma = &examples::findChromaEncoding(optarg);
    } else if (c == 'f') {
      options.frames = frameCount(optarg);
    } else if (c == 'h') {
      options.help = true;
      return options;
    } else if (c == ':') {
      throw UsageFailure(examples::quoted(argv[optind - 1]) + " needs a value");
    } else {
      throw UsageFailure("option " + examples::quoted(argv[optind - 1]) + " is not known");
    }
  }
  readPositional(argc, argv, options);
  return options;
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
  const Options options = readCommandLine(argc, argv);
  if (options.help) {
    examples::printToStandardOutput(kHelp);
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
