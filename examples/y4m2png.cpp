// SPDX-License-Identifier: MIT
// Shows a clip as a 16-bit display does: one PNG picture for each frame.
#include <getopt.h>
#include <unistd.h>

#include <chrono>
#include <climits>
#include <cstdio>
#include <string>
#include <string_view>

#include "conversions.h"
#include "failure.h"
#include "picture_buffers.h"
#include "picture_names.h"
#include "png_file.h"
#include "y4m.h"

namespace {

using examples::Failure;
using examples::Matrix;
using examples::PictureBuffers;
using examples::PictureNames;
using examples::SampleRange;
using examples::TargetFormat;
using examples::UsageFailure;
using examples::Y4mReader;

constexpr const char* kHelp =
    "Usage: y4m2png --to FORMAT [--dither] [--matrix MATRIX] [--frames N]\n"
    "               INPUT OUTPUT.png\n"
    "\n"
    "Converts a YUV4MPEG2 clip to 16-bit pixels and writes what a display shows of\n"
    "them as 8-bit RGB pictures in the PNG format.\n"
    "\n"
    "  --to FORMAT      bgr565, rgb565, bgr555, rgb555, bgr444 or rgb444; the colour\n"
    "                   that is spelt first sits in the low bits\n"
    "  --dither         round by an ordered pattern instead of dropping the low bits\n"
    "  --matrix MATRIX  ycbcr (the default): samples are ITU-R BT.601 in studio range;\n"
    "                   yuv: full range with the analogue colour differences, for\n"
    "                   4:2:0 clips only\n"
    "  --frames N       stop after N frames\n"
    "  --help           print this text\n"
    "\n"
    "INPUT is a file, or - for standard input. Its chroma format is C444, C422,\n"
    "C420jpeg, C420mpeg2, C420paldv, C420 or C411; a header that names none means\n"
    "C420jpeg. C411 goes to bgr565 and bgr555 only, without --dither. Each chroma\n"
    "sample serves all pixels that it stands for, wherever the format sites it. A\n"
    "header that states another range than that of the matrix draws a warning. HD\n"
    "video is BT.709; make it BT.601 by\n"
    "  ffmpeg -i FILE -vf scale=out_color_matrix=bt601:out_range=tv,format=yuv420p \\\n"
    "    -f yuv4mpegpipe -\n"
    "\n"
    "Some conversions take no picture of every size as a clip has it: C411 wants a\n"
    "width that is a multiple of 4, C422 a width of 2, the yuv matrix 2 by 2 pixels.\n"
    "The last column and row of a smaller picture are repeated for them. What is\n"
    "repeated is not shown.\n"
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
  Matrix matrix = Matrix::kYcbcr;
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

Matrix findMatrix(std::string_view name) {
  if (name != "ycbcr" && name != "yuv") {
    throw UsageFailure("--matrix " + examples::quoted(name) + " is not one of ycbcr, yuv");
  }
  return name == "yuv" ? Matrix::kYuv : Matrix::kYcbcr;
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
  static const option kOptions[] = {
      {"to", required_argument, nullptr, 't'},     {"dither", no_argument, nullptr, 'd'},
      {"matrix", required_argument, nullptr, 'm'}, {"frames", required_argument, nullptr, 'f'},
      {"help", no_argument, nullptr, 'h'},         {nullptr, 0, nullptr, 0}};
  Options options;
  opterr = 0;
  for (int c; (c = getopt_long(argc, argv, ":h", kOptions, nullptr)) != -1;) {
    if (c == 't') {
      options.target = &examples::findTarget(optarg);
    } else if (c == 'd') {
      options.dither = true;
    } else if (c == 'm') {
      options.matrix = findMatrix(optarg);
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
  const examples::Size size = buffers.shown();
  examples::writePng(path, size.width, size.height, [&](int y, unsigned char* rgb) {
    examples::expandRow(buffers.row(y), size.width, target.layout, rgb);
  });
}

// One line on stderr if the header states a range that is not the matrix's.
void checkRange(SampleRange stated, Matrix matrix) {
  if (stated == SampleRange::kFull && matrix == Matrix::kYcbcr) {
    std::fputs("y4m2png: warning: the clip is in full range, and is taken as studio range\n",
               stderr);
  } else if (stated == SampleRange::kLimited && matrix == Matrix::kYuv) {
    std::fputs("y4m2png: warning: the clip is in studio range, and is taken as full range\n",
               stderr);
  }
}

void convertClip(const Options& options) {
  const PictureNames names(options.output);
  Y4mReader reader(options.input);
  const examples::ChromaFormat& chroma = *reader.header().chroma;
  const examples::SourceFormat& source = examples::findSource(chroma, options.matrix);
  const auto conversion = examples::findConversion(chroma, source, *options.target, options.dither);
  if (!reader.hasFrame()) {
    throw Failure(examples::quoted(options.input) + ": the clip has no frames");
  }
  PictureBuffers buffers(reader.header(), source.sizes);
  checkRange(reader.header().range, options.matrix);
  Progress progress;
  for (long long number = 1; number <= options.frames && reader.hasFrame(); ++number) {
    reader.readFrame(buffers);
    if (!names.numbered() && options.frames > 1 && reader.hasFrame()) {
      throw UsageFailure("the clip has more than one frame and OUTPUT " +
                         examples::quoted(options.output) + " has no %d for their numbers");
    }
    examples::convertPicture(buffers, conversion);
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
