// SPDX-License-Identifier: MIT
// Shows a clip as a 16-bit display does: one PNG picture for each frame.
#include <getopt.h>
#include <unistd.h>

#include <chrono>
#include <climits>
#include <cstdio>
#include <string>

#include "conversions.h"
#include "failure.h"
#include "picture_buffers.h"
#include "picture_names.h"
#include "png_file.h"
#include "y4m.h"

namespace {

using examples::Failure;
using examples::PictureBuffers;
using examples::PictureNames;
using examples::TargetFormat;
using examples::UsageFailure;
using examples::Y4mReader;

constexpr const char* kHelp =
    "Usage: y4m2png --to FORMAT [--dither] [--frames N] INPUT OUTPUT.png\n"
    "\n"
    "Converts a YUV4MPEG2 clip to 16-bit pixels and writes what a display shows of\n"
    "them as 8-bit RGB pictures in the PNG format.\n"
    "\n"
    "  --to FORMAT  bgr565, rgb565, bgr555, rgb555, bgr444 or rgb444; the colour that\n"
    "               is spelt first sits in the low bits\n"
    "  --dither     round by an ordered pattern instead of dropping the low bits\n"
    "  --frames N   stop after N frames\n"
    "  --help       print this text\n"
    "\n"
    "INPUT is a file, or - for standard input. Its chroma format is C444; its samples\n"
    "are taken as ITU-R BT.601 in studio range.\n"
    "\n"
    "OUTPUT.png is the name of the picture. For a clip of several frames it holds one\n"
    "%d, or %0Nd for at least N digits, where the number of the frame goes; frames\n"
    "count from 1. %% stands for one percent sign. Without a place for the number, a\n"
    "clip that goes on after its first frame is an error, and no picture is written,\n"
    "unless --frames 1 is given.\n"
    "\n"
    "An error is one line on standard error and an exit status of 1, or of 2 for a\n"
    "command line that cannot be carried out. Pictures are written whole or not at\n"
    "all. Pictures of the frames before an error stay.\n";

struct Options {
  const TargetFormat* target = nullptr;
  bool dither = false;
  bool help = false;
  long long frames = LLONG_MAX;
  std::string input;
  std::string output;
};

/// One line on a terminal, renewed a few times a second; nothing elsewhere.
class Progress {
 public:
  ~Progress() {
    if (shown_) {
      show();
      std::fputc('\n', stderr);
    }
  }

  void frameDone(long long number) {
    frames_ = number;
    const auto now = Clock::now();
    if (!terminal_ || now - last_ < std::chrono::milliseconds(250)) {
      return;
    }
    last_ = now;
    shown_ = true;
    show();
  }

 private:
  void show() const {
    std::fprintf(stderr, "\ry4m2png: %lld frames done", frames_);
    std::fflush(stderr);
  }

  using Clock = std::chrono::steady_clock;
  const bool terminal_ = isatty(STDERR_FILENO) == 1;
  bool shown_ = false;
  long long frames_ = 0;
  Clock::time_point last_ = Clock::now();
};

long long frameLimit(const char* text) {
  const long long frames = examples::positiveNumber(text, LLONG_MAX);
  if (frames == 0) {
    throw UsageFailure("--frames " + examples::quoted(text) + " is not a number from 1 up");
  }
  return frames;
}

void readPositional(int argc, char** argv, Options& options) {
  if (options.target == nullptr) {
    throw UsageFailure("--to FORMAT is missing");
  }
  if (argc - optind != 2) {
    throw UsageFailure(argc - optind < 2 ? "INPUT or OUTPUT is missing"
                                         : examples::quoted(argv[optind + 2]) + " is too much");
  }
  options.input = argv[optind];
  options.output = argv[optind + 1];
}

Options readCommandLine(int argc, char** argv) {
  static const option kOptions[] = {{"to", required_argument, nullptr, 't'},
                                    {"dither", no_argument, nullptr, 'd'},
                                    {"frames", required_argument, nullptr, 'f'},
                                    {"help", no_argument, nullptr, 'h'},
                                    {nullptr, 0, nullptr, 0}};
  Options options;
  opterr = 0;
  for (int c; (c = getopt_long(argc, argv, ":h", kOptions, nullptr)) != -1;) {
    if (c == 't') {
      options.target = &examples::findTarget(optarg);
    } else if (c == 'd') {
      options.dither = true;
    } else if (c == 'f') {
      options.frames = frameLimit(optarg);
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

void writePicture(const PictureBuffers& buffers, const TargetFormat& target,
                  const std::string& path) {
  examples::writePng(path, buffers.width(), buffers.height(), [&](int y, unsigned char* rgb) {
    examples::expandRow(buffers.row(y), buffers.width(), target.layout, rgb);
  });
}

void convertClip(const Options& options) {
  const PictureNames names(options.output);
  Y4mReader reader(options.input);
  if (!reader.hasFrame()) {
    throw Failure(examples::quoted(options.input) + ": the clip has no frames");
  }
  PictureBuffers buffers(reader.header());
  Progress progress;
  for (long long number = 1; number <= options.frames && reader.hasFrame(); ++number) {
    reader.readFrame(buffers);
    if (!names.numbered() && options.frames > 1 && reader.hasFrame()) {
      throw UsageFailure("the clip has more than one frame and OUTPUT " +
                         examples::quoted(options.output) + " has no %d for their numbers");
    }
    examples::convertPicture(buffers,
                             options.dither ? options.target->dither : options.target->plain);
    writePicture(buffers, *options.target, names.name(number));
    progress.frameDone(number);
  }
}

void run(int argc, char** argv) {
  const Options options = readCommandLine(argc, argv);
  if (options.help) {
    examples::printToStandardOutput(kHelp);
    return;
  }
  convertClip(options);
}

}  // namespace

int main(int argc, char** argv) {
  return examples::runProgram("y4m2png", run, argc, argv);
}
