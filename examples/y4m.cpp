// SPDX-License-Identifier: MIT
#include "y4m.h"

#include <cerrno>
#include <string_view>

#include "failure.h"

namespace examples {

namespace {

constexpr size_t kLongestLine = 65536;
constexpr std::string_view kFrameWord = "FRAME";

bool isFrameLine(std::string_view line) {
  return line.substr(0, kFrameWord.size()) == kFrameWord &&
         (line.size() == kFrameWord.size() || line[kFrameWord.size()] == ' ');
}

// True if more bytes after these can still make the line begin with the word.
bool mayBecome(std::string_view line, std::string_view word) {
  return line.substr(0, word.size()) == word.substr(0, line.size());
}

}  // namespace

Y4mReader::Y4mReader(const std::string& path)
    : path_(path == "-" ? "standard input" : path),
      file_(path == "-" ? stdin : std::fopen(path.c_str(), "rb")) {
  if (file_ == nullptr) {
    throw Failure(systemFailure("open", path_, errno));
  }
  widenPipe(file_);
  try {
    readHeader();
  } catch (...) {
    if (file_ != stdin) {
      std::fclose(file_);
    }
    throw;
  }
}

Y4mReader::~Y4mReader() {
  if (file_ != stdin) {
    std::fclose(file_);
  }
}

void Y4mReader::fail(const std::string& reason) const {
  throw Failure(quoted(path_) + ": " + reason);
}

std::string Y4mReader::frameName() const {
  return "frame " + std::to_string(framesRead_ + 1);
}

Y4mReader::LineEnd Y4mReader::readLine(std::string& line) {
  line.clear();
  errno = 0;
  for (int c = std::getc(file_); c != '\n'; c = std::getc(file_)) {
    if (c == EOF && std::ferror(file_) != 0) {
      throw Failure(systemFailure("read", path_, errno));
    }
    if (c == EOF) {
      return LineEnd::kEndOfFile;
    }
    if (line.size() == kLongestLine) {
      return LineEnd::kTooLong;
    }
    line += static_cast<char>(c);
  }
  return LineEnd::kComplete;
}

void Y4mReader::readHeader() {
  std::string line;
  const LineEnd end = readLine(line);
  if (end == LineEnd::kEndOfFile && line.empty()) {
    fail("the file is empty");
  }
  const bool cutInMagic = end == LineEnd::kEndOfFile && mayBecome(line, kY4mMagic);
  if (!beginsAsY4m(line) && !cutInMagic) {
    fail("this is not a YUV4MPEG2 clip");
  }
  if (end == LineEnd::kEndOfFile) {
    fail("the clip ends inside its header");
  }
  if (end == LineEnd::kTooLong) {
    fail("the header is damaged: its line does not end");
  }
  try {
    header_ = parseY4mHeader(line);
  } catch (const Failure& failure) {
    fail(failure.what());
  }
}

bool Y4mReader::hasFrame() {
  if (frameBegun_) {
    return true;
  }
  std::string line;
  const LineEnd end = readLine(line);
  if (end == LineEnd::kEndOfFile && line.empty()) {
    return false;
  }
  if (end == LineEnd::kEndOfFile && (isFrameLine(line) || mayBecome(line, kFrameWord))) {
    fail("the clip ends inside the FRAME line of " + frameName());
  }
  if (end != LineEnd::kComplete || !isFrameLine(line)) {
    fail("the clip is damaged: " + frameName() + " does not begin with a FRAME line");
  }
  frameBegun_ = true;
  return true;
}

void Y4mReader::readFrame(PictureBuffers& buffers) {
  for (int i = 0; i < 3; ++i) {
    const Size samples = buffers.samples(i);
    if (buffers.planeStep(i) == samples.width) {
      readSamples(buffers.plane(i), area(samples.width, samples.height));
      continue;
    }
    for (int y = 0; y < samples.height; ++y) {
      readSamples(buffers.planeRow(i, y), static_cast<size_t>(samples.width));
    }
  }
  buffers.padPlanes();
  frameBegun_ = false;
  ++framesRead_;
}

void Y4mReader::readSamples(unsigned char* samples, size_t count) {
  errno = 0;
  if (std::fread(samples, 1, count, file_) == count) {
    return;
  }
  if (std::ferror(file_) != 0) {
    throw Failure(systemFailure("read", path_, errno));
  }
  fail("the clip ends inside " + frameName());
}

void writeY4mHeader(OutputFile& file, Size size, std::string_view format) {
  const std::string line = std::string(kY4mMagic) + " W" + std::to_string(size.width) + " H" +
                           std::to_string(size.height) + " F25:1 Ip A1:1 " + std::string(format) +
                           "\n";
  file.write(line.data(), line.size());
}

void writeY4mFrameLine(OutputFile& file) {
  const std::string line = std::string(kFrameWord) + "\n";
  file.write(line.data(), line.size());
}

}  // namespace examples
