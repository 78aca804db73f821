// SPDX-License-Identifier: MIT
// Writes a clip that shows what few bits do to colours. The same bytes on every machine.
#include <string>

#include "command_line.h"
#include "failure.h"
#include "output_file.h"
#include "test_picture.h"
#include "y4m.h"

namespace {

constexpr const char* kHelp =
    "Usage: testclip [--size WxH] [--frames N] OUTPUT\n"
    "\n"
    "Writes a YUV4MPEG2 clip in C444: saturated bars, colour ramps, a zone plate and\n"
    "a skin-coloured ball before a dusk sky. The rings and the ball move.\n"
    "\n"
    "  --size WxH  size in pixels, each from 1 to 16384 (640x360)\n"
    "  --frames N  number of frames, from 1 to 1000000 (1)\n"
    "  --help      print this text\n"
    "  --version   print the version\n"
    "\n"
    "OUTPUT is a file, or - for standard output.\n"
    "\n"
    "An error is one line on standard error and an exit status of 1, or of 2 for a\n"
    "command line that cannot be carried out. A file is written whole or not at all.\n";

constexpr long long kMostFrames = 1000000;

struct Options {
  examples::Size size = {640, 360};
  int frames = 1;
  std::string output;
};

void run(int argc, char** argv) {
  Options options;
  const examples::CommandLine line = {
      "testclip",
      kHelp,
      {{"size", "WxH", [&](const char* value) { options.size = examples::readSize(value); }},
       {"frames", "N",
        [&](const char* value) {
          options.frames = static_cast<int>(examples::numberOf("frames", value, kMostFrames));
        }}},
      {{"OUTPUT", &options.output}}};
  if (!examples::readCommandLine(line, argc, argv)) {
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
