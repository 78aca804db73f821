// SPDX-License-Identifier: MIT
// Converts a picture in bands of rows, one for each thread, to the same bytes as in one call.
//
// What a program that does so has to heed:
//  - Where a conversion dithers, bands start at multiples of four rows: its 4x4 pattern starts anew
//    with the first row of each call. In 4:2:0 they start at multiples of two, as two rows share
//    their chroma. Otherwise they start anywhere.
//  - Rows that are left over go with the last band and make none of their own: plain conversions of
//    YUV 4:2:0 write nothing of a single row.
//  - After each destination row, within its pitch, there is room for two pixels. Some processor
//    variants write there at some sizes. Without the room they would write into the first row of
//    the next band, which another thread may have finished.
// Source planes are only read, so bands share them. The library itself needs no preparation.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "command_line.h"
#include "conversions.h"
#include "failure.h"
#include "picture_buffers.h"
#include "status.h"
#include "test_picture.h"

namespace {

using examples::area;
using examples::ChromaSupport;
using examples::Failure;
using examples::Matrix;
using examples::PictureBuffers;
using examples::UsageFailure;

constexpr const char* kHelp =
    "Usage: bands [--to FORMAT] [--dither] [--chroma FORMAT] [--size WxH]\n"
    "             [--threads N] [--unit N]\n"
    "\n"
    "Converts a test picture to 16-bit pixels, in one call and in bands of rows, one\n"
    "for each thread; checks that both make the same bytes, and times both.\n"
    "\n"
    "  --to FORMAT      bgr565 (the default), rgb565, bgr555, rgb555, bgr444 or rgb444\n"
    "  --dither         round by an ordered pattern instead of dropping the low bits\n"
    "  --chroma FORMAT  444, 422, 420 (the default) or 411: ITU-R BT.601 in studio\n"
    "                   range; yuv420: the same samples taken as YUV 4:2:0. 411 goes to\n"
    "                   bgr565 and bgr555 only, without --dither\n"
    "  --size WxH       size in pixels, each from 1 to 16384 (1920x1080)\n"
    "  --threads N      number of threads, from 1 to 1024; by default as many as the\n"
    "                   machine runs at once\n"
    "  --unit N         start bands at multiples of N rows, from 1 to 16384; by default\n"
    "                   4 with --dither, otherwise 2 in 4:2:0 and 1 elsewhere. Units that\n"
    "                   are no multiple of these show what goes wrong, with a number of\n"
    "                   threads that does not divide the picture into such multiples\n"
    "  --help           print this text\n"
    "  --version        print the version\n"
    "\n"
    "There are no more bands than whole units, and each takes at least one unit; rows\n"
    "left over go with the last. Times are medians of 15 runs. Those in bands include\n"
    "the start of the threads, which a program with many pictures saves.\n"
    "\n"
    "An error is one line on standard error and an exit status of 1, also if the bytes\n"
    "differ, or of 2 for a command line that cannot be carried out.\n";

constexpr unsigned kMostThreads = 1024;
constexpr int kRuns = 15;

/// A source as --chroma names it.
struct Source {
  std::string_view name;
  Matrix matrix;
  examples::ChromaFormat chroma;
};

constexpr Source kSources[] = {
    {"444", Matrix::kYcbcr, {"444", 0, 0, ChromaSupport::kRead}},
    {"422", Matrix::kYcbcr, {"422", 1, 0, ChromaSupport::kRead}},
    {"420", Matrix::kYcbcr, {"420", 1, 1, ChromaSupport::kRead}},
    {"411", Matrix::kYcbcr, {"411", 2, 0, ChromaSupport::kRead}},
    {"yuv420", Matrix::kYuv, {"420", 1, 1, ChromaSupport::kRead}},
};

struct Options {
  std::string_view to = "bgr565";
  std::string_view chroma = "420";
  bool dither = false;
  examples::Size size = {1920, 1080};
  int threads = 0;  // as many as the machine runs at once
  int unit = 0;     // what the conversion needs
};

/// A picture, and how it is converted.
struct Picture {
  const Source& source;
  examples::PlanarConversion conversion;
  PictureBuffers buffers;

  size_t pixelPitch() const { return static_cast<size_t>(buffers.pixelStep()) / 2; }
  size_t pixelCount() const {
    return pixelPitch() * static_cast<size_t>(buffers.converted().height);
  }
};

struct Band {
  int firstRow;
  int rows;
};

// Rows that a band may start at are multiples of this.
int rowUnit(const Source& source, bool dither) {
  return dither ? 4 : 1 << source.chroma.yShift;
}

std::vector<Band> split(int height, int unit, int threads) {
  const int units = std::max(height / unit, 1);
  const int count = std::min(threads, units);
  std::vector<Band> bands;
  for (int i = 0, first = 0; i < count; ++i) {
    const int unitsAbove = (units * (i + 1) + count - 1) / count;
    const int next = i + 1 == count ? height : unitsAbove * unit;
    bands.push_back({first, next - first});
    first = next;
  }
  return bands;
}

pxmStatus convertBand(Picture& picture, const Band& band) {
  PictureBuffers& buffers = picture.buffers;
  const int chromaRow = band.firstRow >> picture.source.chroma.yShift;
  const unsigned char* planes[3] = {buffers.planeRow(0, band.firstRow),
                                    buffers.planeRow(1, chromaRow), buffers.planeRow(2, chromaRow)};
  int steps[3] = {buffers.planeStep(0), buffers.planeStep(1), buffers.planeStep(2)};
  unsigned short* pixels =
      buffers.pixels() + picture.pixelPitch() * static_cast<size_t>(band.firstRow);
  return picture.conversion(planes, steps, pixels, buffers.pixelStep(),
                            {buffers.converted().width, band.rows});
}

void convertInOneCall(Picture& picture) {
  examples::requireDone(convertBand(picture, {0, picture.buffers.converted().height}));
}

// The caller's thread takes the first band.
void convertInBands(Picture& picture, const std::vector<Band>& bands) {
  std::vector<pxmStatus> statuses(bands.size());
  {
    std::vector<std::jthread> threads;
    for (size_t i = 1; i < bands.size(); ++i) {
      threads.emplace_back([&, i] { statuses[i] = convertBand(picture, bands[i]); });
    }
    statuses[0] = convertBand(picture, bands[0]);
  }
  for (const pxmStatus status : statuses) {
    examples::requireDone(status);
  }
}

// The bands start from the complement of what one call makes, so a pixel that they leave out
// differs.
void requireEqual(Picture& picture, const std::vector<Band>& bands) {
  unsigned short* pixels = picture.buffers.pixels();
  std::fill_n(pixels, picture.pixelCount(), static_cast<unsigned short>(0));
  convertInOneCall(picture);
  const std::vector<unsigned short> whole(pixels, pixels + picture.pixelCount());
  std::transform(whole.begin(), whole.end(), pixels,
                 [](unsigned short pixel) { return static_cast<unsigned short>(~pixel); });
  convertInBands(picture, bands);
  for (int y = 0; y < picture.buffers.converted().height; ++y) {
    const unsigned short* row = picture.buffers.row(y);
    if (!std::equal(row, row + picture.buffers.converted().width,
                    whole.data() + (row - picture.buffers.pixels()))) {
      throw Failure("in bands row " + std::to_string(y) + " differs from that of one call");
    }
  }
}

// Each chroma sample is that of the first pixel that it stands for.
void drawPicture(Picture& picture) {
  PictureBuffers& buffers = picture.buffers;
  const examples::Size size = buffers.shown();
  examples::YcbcrPlanes planes;
  examples::drawTestPicture(size.width, size.height, 0, planes);
  for (int i = 0; i < 3; ++i) {
    const int xShift = i == 0 ? 0 : picture.source.chroma.xShift;
    const int yShift = i == 0 ? 0 : picture.source.chroma.yShift;
    for (int y = 0; y < buffers.samples(i).height; ++y) {
      const unsigned char* row = planes.plane[i].data() + area(size.width, y << yShift);
      unsigned char* samples = buffers.planeRow(i, y);
      for (int x = 0; x < buffers.samples(i).width; ++x) {
        samples[x] = row[x << xShift];
      }
    }
  }
  buffers.padPlanes();
}

template <class Work>
double milliseconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

std::string inWords(const char* format, double number) {
  char text[64];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

// Both are timed alternately, so that what else the machine does falls on both.
std::string timed(Picture& picture, const std::vector<Band>& bands) {
  std::vector<double> whole;
  std::vector<double> parted;
  for (int run = 0; run < kRuns; ++run) {
    whole.push_back(milliseconds([&] { convertInOneCall(picture); }));
    parted.push_back(milliseconds([&] { convertInBands(picture, bands); }));
  }
  return "one call  " + inWords("%.3f ms\n", median(whole)) + "in bands  " +
         inWords("%.3f ms\n", median(parted)) + "speed-up  " +
         inWords("%.2f\n", median(whole) / median(parted));
}

std::string described(const Options& options, const std::vector<Band>& bands) {
  const auto byRows = [](const Band& a, const Band& b) { return a.rows < b.rows; };
  const auto [least, most] = std::minmax_element(bands.begin(), bands.end(), byRows);
  return "picture   " + std::to_string(options.size.width) + "x" +
         std::to_string(options.size.height) + ", " + std::string(options.chroma) + " to " +
         std::string(options.to) + (options.dither ? ", dithered" : "") + "\nbands     " +
         std::to_string(bands.size()) + " of " + std::to_string(least->rows) + " to " +
         std::to_string(most->rows) + " rows\n";
}

const Source& findSource(std::string_view name) {
  std::string names;
  for (const Source& source : kSources) {
    if (source.name == name) {
      return source;
    }
    names += names.empty() ? "" : ", ";
    names += source.name;
  }
  throw UsageFailure("--chroma " + examples::quoted(name) + " is not one of " + names);
}

// False if there is nothing to convert.
bool readOptions(int argc, char** argv, Options& options) {
  const auto number = [](const char* name, const char* value, long long limit) {
    return static_cast<int>(examples::numberOf(name, value, limit));
  };
  return examples::readCommandLine(
      {"bands",
       kHelp,
       {{"to", "FORMAT", [&](const char* value) { options.to = value; }},
        {"dither", nullptr, [&](const char*) { options.dither = true; }},
        {"chroma", "FORMAT", [&](const char* value) { options.chroma = value; }},
        {"size", "WxH", [&](const char* value) { options.size = examples::readSize(value); }},
        {"threads", "N",
         [&](const char* value) { options.threads = number("threads", value, kMostThreads); }},
        {"unit", "N",
         [&](const char* value) { options.unit = number("unit", value, examples::kLongestSide); }}},
       {}},
      argc, argv);
}

// By default one thread for each that the machine runs at once.
int threadCount(const Options& options) {
  const auto own = static_cast<int>(std::min(std::thread::hardware_concurrency(), kMostThreads));
  return options.threads != 0 ? options.threads : std::max(own, 1);
}

void run(int argc, char** argv) {
  Options options;
  if (!readOptions(argc, argv, options)) {
    return;
  }
  const Source& source = findSource(options.chroma);
  const examples::SourceFormat& format = examples::findSource(source.chroma, source.matrix);
  const auto conversion = examples::findConversion(
      source.chroma, format, examples::findTarget(options.to), options.dither);
  const examples::Y4mHeader header = {
      .width = options.size.width, .height = options.size.height, .chroma = &source.chroma};
  Picture picture = {source, conversion, PictureBuffers(header, format.sizes)};
  drawPicture(picture);
  const int unit = options.unit != 0 ? options.unit : rowUnit(source, options.dither);
  const std::vector<Band> bands =
      split(picture.buffers.converted().height, unit, threadCount(options));
  requireEqual(picture, bands);
  examples::printToStandardOutput(described(options, bands) + timed(picture, bands) +
                                  "equal     yes, " + std::to_string(options.size.height) +
                                  " rows\n");
}

}  // namespace

int main(int argc, char** argv) {
  return examples::runProgram("bands", run, argc, argv);
}
