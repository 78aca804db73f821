// SPDX-License-Identifier: MIT
// Writes a clip that shows what few bits do to colours. The same bytes on every machine.
#include <getopt.h>

#include <string>
#include <string_view>

#include "failure.h"
#include "output_file.h"
#include "test_picture.h"
#include "y4m.h"

namespace {

using examples::UsageFailure;

constexpr const char* kHelp =
    "Usage: testclip [--size WxH] [--frames N] OUTPUT\n"
    "\n"
    "Writes a YUV4MPEG2 clip in C444: saturated bars, colour ramps, a zone plate and\n"
    "a skin-coloured ball before a dusk sky. The rings and the ball move.\n"
    "\n"
    "  --size WxH  size in pixels, each from 1 to 16384 (640x360)\n"
    "  --frames N  number of frames, from 1 to 1000000 (1)\n"
    "  --help      print this text\n"
    "\n"
    "OUTPUT is a file, or - for standard output.\n"
    "\n"
    "An error is one line on standard error and an exit status of 1, or of 2 for a\n"
    "command line that cannot be carried out. A file is written whole or not at all.\n";

constexpr long long kMostFrames = 1000000;

struct Options {
  examples::Size size = {640, 360};
  int frames = 1;
  bool help = false;
  std::string output;
};

void readFrames(std::string_view text, Options& options) {
  options.frames = static_cast<int>(examples::positiveNumber(text, kMostFrames));
  if (options.frames == 0) {
    throw UsageFailure("--frames " + examples::quoted(text) + " is not 1 to 1000000");
  }
}

void readPositional(int argc, char** argv, Options& options) {
  if (argc - optind != 1) {
    throw UsageFailure(argc == optind ? "OUTPUT is missing"
                                      : examples::quoted(argv[optind + 1]) + " is too much");
  }
  options.output = argv[optind];
  if (options.output.empty()) {
    throw UsageFailure("OUTPUT '' is not the name of a file");
  }
}

Options readCommandLine(int argc, char** argv) {
  static const option kOptions[] = {{"size", required_argument, nullptr, 's'},
                                    {"frames", required_argument, nullptr, 'f'},
                                    {"help", no_argument, nullptr, 'h'},
                                    {nullptr, 0, nullptr, 0}};
  Options options;
  opterr = 0;
  for (int c; (c = getopt_long(argc, argv, ":h", kOptions, nullptr)) != -1;) {
    if (c == 's') {
      options.size = examples::readSize(optarg);
    } else if (c == 'f') {
      readFrames(optarg, options);
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

void run(int argc, char** argv) {
  const Options options = readCommandLine(argc, argv);
  if (options.help) {
    examples::printToStandardOutput(kHelp);
    return;
  }
  examples::OutputFile file(options.output);
  examples::YcbcrPlanes planes;
  examples::writeY4mHeader(file, options.size, "C444");
  for (int frame = 0; frame < options.frames; ++frame) {
    examples::drawTestPicture(options.size.width, options.size.height, frame, planes);
    examples::writeY4mFrameLine(file);
    for (const auto& plane : planes.plane) {
      file.write(plane.data(), plane.size());
    }
  }
  file.commit();
}

}  // namespace

int main(int argc, char** argv) {
  return examples::runProgram("testclip", run, argc, argv);
}
