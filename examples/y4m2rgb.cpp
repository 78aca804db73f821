// SPDX-License-Identifier: MIT
// Converts a clip to 16-bit pixels: raw frames for a display, or PNG pictures of what it shows.
#include <unistd.h>

#include <chrono>
#include <climits>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "command_line.h"
#include "conversions.h"
#include "failure.h"
#include "picture_buffers.h"
#include "picture_names.h"
#include "png_file.h"
#include "raw_frames.h"
#include "y4m.h"

namespace {

using examples::Failure;
using examples::Matrix;
using examples::PictureBuffers;
using examples::PictureNames;
using examples::RawFrames;
using examples::SampleRange;
using examples::TargetFormat;
using examples::UsageFailure;
using examples::Y4mReader;

constexpr const char* kHelp =
    "Usage: y4m2rgb --to FORMAT [OPTION]... INPUT OUTPUT.png\n"
    "   or: y4m2rgb --raw --to FORMAT [OPTION]... INPUT OUTPUT\n"
    "\n"
    "Converts a YUV4MPEG2 clip to 16-bit pixels. Writes what a display shows of them\n"
    "as 8-bit RGB pictures in the PNG format, or, with --raw, the pixels themselves.\n"
    "\n"
    "  --to FORMAT      bgr565, rgb565, bgr555, rgb555, bgr444 or rgb444; the colour\n"
    "                   that is spelt first sits in the low bits\n"
    "  --dither         round by an ordered pattern instead of dropping the low bits\n"
    "  --raw            write frames of 16-bit pixels, low byte first, rows and frames\n"
    "                   without a gap\n"
    "  --swap           the same with the high byte first, for panels on SPI\n"
    "  --matrix MATRIX  ycbcr (the default): samples are ITU-R BT.601 in studio range;\n"
    "                   yuv: full range with the analogue colour differences, for\n"
    "                   4:2:0 clips only\n"
    "  --frames N       stop after N frames\n"
    "  --help           print this text\n"
    "  --version        print the version\n"
    "\n"
    "INPUT is a file, or - for standard input. Its chroma format is C444, C422,\n"
    "C420jpeg, C420mpeg2, C420paldv, C420 or C411; a header that names none means\n"
    "C420jpeg. C411 goes to bgr565 and bgr555 only, without --dither. Each chroma\n"
    "sample serves all pixels that it stands for, wherever the format sites it. A\n"
    "header that states another range than that of the matrix draws a warning. HD\n"
    "video is BT.709; ffmpeg -vf scale=out_color_matrix=bt601:out_range=tv makes it\n"
    "BT.601.\n"
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
    "Raw frames go to a file, a device or, where OUTPUT is -, to standard output, one\n"
    "after the other. bgr565 is what ffmpeg calls rgb565le, with --swap rgb565be.\n"
    "\n"
    "An error is one line on standard error and an exit status of 1, or of 2 for a\n"
    "command line that cannot be carried out. Files are written whole or not at all.\n"
    "Pictures of the frames before an error stay; to keep raw frames too, write them\n"
    "by - >FILE. What is left of a program that was killed is named .unfinished-*.\n";

struct Options {
  const TargetFormat* target = nullptr;
  bool hasTarget = false;
  Matrix matrix = Matrix::kYcbcr;
  bool dither = false;
  bool raw = false;
  bool swap = false;
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
    std::fprintf(stderr, "\ry4m2rgb: %lld frames done", frames_);
    std::fflush(stderr);
  }

  using Clock = std::chrono::steady_clock;
  const bool terminal_ = isatty(STDERR_FILENO) == 1;
  bool shown_ = false;
  long long frames_ = 0;
  Clock::time_point last_ = Clock::now();
};

/// Where frames go.
class Output {
 public:
  virtual ~Output() = default;
  virtual bool takesSeveral() const = 0;
  virtual void write(const PictureBuffers& buffers, long long number) = 0;
  virtual void finish() {}
};

class PngPictures : public Output {
 public:
  explicit PngPictures(const Options& options)
      : input_(options.input), names_(options.output), target_(*options.target) {}

  bool takesSeveral() const override { return names_.numbered(); }
  void write(const PictureBuffers& buffers, long long number) override {
    const examples::Size size = buffers.shown();
    const std::string path = names_.name(number);
    examples::requireOtherFile(input_, path);
    examples::writePng(path, size.width, size.height, [&](int y, unsigned char* rgb) {
      examples::expandRow(buffers.row(y), size.width, target_.layout, rgb);
    });
  }

 private:
  const std::string input_;
  const PictureNames names_;
  const TargetFormat& target_;
};

class RawOutput : public Output {
 public:
  explicit RawOutput(const Options& options) : frames_(options.output, options.swap) {}

  bool takesSeveral() const override { return true; }
  void write(const PictureBuffers& buffers, long long) override { frames_.write(buffers); }
  void finish() override { frames_.commit(); }

 private:
  RawFrames frames_;
};

std::unique_ptr<Output> makeOutput(const Options& options) {
  if (options.raw) {
    examples::requireOtherFile(options.input, options.output);
    return std::make_unique<RawOutput>(options);
  }
  return std::make_unique<PngPictures>(options);
}

Matrix findMatrix(std::string_view name) {
  if (name != "ycbcr" && name != "yuv") {
    throw UsageFailure("--matrix " + examples::quoted(name) + " is not one of ycbcr, yuv");
  }
  return name == "yuv" ? Matrix::kYuv : Matrix::kYcbcr;
}

// One line on stderr if the header states a range that is not the matrix's.
void checkRange(SampleRange stated, Matrix matrix) {
  if (stated == SampleRange::kFull && matrix == Matrix::kYcbcr) {
    std::fputs("y4m2rgb: warning: the clip is in full range, and is taken as studio range\n",
               stderr);
  } else if (stated == SampleRange::kLimited && matrix == Matrix::kYuv) {
    std::fputs("y4m2rgb: warning: the clip is in studio range, and is taken as full range\n",
               stderr);
  }
}

void convertClip(const Options& options) {
  const std::unique_ptr<Output> output = makeOutput(options);
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
    if (!output->takesSeveral() && options.frames > 1 && reader.hasFrame()) {
      throw UsageFailure("the clip has more than one frame and OUTPUT " +
                         examples::quoted(options.output) + " has no %d for their numbers");
    }
    examples::convertPicture(buffers, conversion);
    output->write(buffers, number);
    progress.frameDone(number);
  }
  output->finish();
}

void run(int argc, char** argv) {
  Options options;
  const examples::CommandLine line = {
      "y4m2rgb",
      kHelp,
      {{"to", "FORMAT",
        [&](const char* value) {
          options.target = &examples::findTarget(value);
          options.hasTarget = true;
        },
        &options.hasTarget},
       {"dither", nullptr, [&](const char*) { options.dither = true; }},
       {"raw", nullptr, [&](const char*) { options.raw = true; }},
       {"swap", nullptr, [&](const char*) { options.swap = true; }},
       {"matrix", "MATRIX", [&](const char* value) { options.matrix = findMatrix(value); }},
       {"frames", "N",
        [&](const char* value) {
          options.frames = examples::numberOf("frames", value, LLONG_MAX);
        }}},
      {{"INPUT", &options.input}, {"OUTPUT", &options.output}}};
  if (!examples::readCommandLine(line, argc, argv)) {
    return;
  }
  if (options.swap && !options.raw) {
    throw UsageFailure("--swap is for --raw");
  }
  convertClip(options);
}

}  // namespace

int main(int argc, char** argv) {
  return examples::runProgram("y4m2rgb", run, argc, argv);
}
