// SPDX-License-Identifier: MIT
#include "output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "failure.h"
#include "unfinished.h"

namespace examples {

namespace {

#ifndef O_BINARY  // Windows alone has files that are not
#define O_BINARY 0
#endif

constexpr int kTemporaryNames = 1000;
constexpr int kMostLinks = 40;  // as systems follow

// Null, with errno set, if the file is there already.
std::FILE* openNewFile(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_BINARY, 0666);
  return file < 0 ? nullptr : fdopen(file, "wb");
}

bool existsAsSpecialFile(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status) &&
         !std::filesystem::is_directory(status);
}

bool isDirectory(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error);
}

// Where a chain of links leads, whether a file is there or not.
std::string followed(const std::string& path) {
  std::filesystem::path at = path;
  std::error_code error;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(at, error); ++i) {
    const auto next = std::filesystem::read_symlink(at, error);
    if (error) {
      break;
    }
    at = next.is_absolute() ? next : at.parent_path() / next;
  }
  return at.string();
}

}  // namespace

OutputFile::OutputFile(const std::string& path) : path_(path), target_(followed(path)) {
  if (path == "-") {
    path_ = "standard output";
    file_ = stdout;
    widenPipe(stdout);
    return;
  }
  if (isDirectory(path)) {
    throw Failure(systemFailure("write", path_, EISDIR));
  }
  if (existsAsSpecialFile(path)) {
    file_ = std::fopen(path.c_str(), "wb");
  } else {
    openTemporary();
  }
  if (file_ == nullptr) {
    throw Failure(systemFailure("write", path_, errno));
  }
}

OutputFile::~OutputFile() {
  if (file_ != nullptr && file_ != stdout) {
    std::fclose(file_);
  }
  if (!temporary_.empty()) {
    const HeldSignals held;
    std::remove(temporary_.c_str());
    noteUnfinished("");
  }
}

// The temporary name does not contain the target's, which may be as long as a name can be.
void OutputFile::openTemporary() {
  const std::string plain = ".unfinished-" + std::to_string(getpid()) + "-";
  const std::string stem = (std::filesystem::path(target_).parent_path() / plain).string();
  for (int i = 0; i < kTemporaryNames && file_ == nullptr; ++i) {
    const std::string name = stem + std::to_string(i);
    const HeldSignals held;
    file_ = openNewFile(name);
    if (file_ != nullptr) {
      temporary_ = name;
      noteUnfinished(name);
    } else if (errno != EEXIST) {
      return;
    }
  }
}

bool OutputFile::tryWrite(const void* bytes, size_t count) {
  return std::fwrite(bytes, 1, count, file_) == count;
}

void OutputFile::write(const void* bytes, size_t count) {
  if (!tryWrite(bytes, count)) {
    throw Failure(systemFailure("write", path_, errno));
  }
}

void OutputFile::commit() {
  std::FILE* file = file_;
  file_ = nullptr;
  if ((file == stdout ? std::fflush(file) : std::fclose(file)) != 0) {
    throw Failure(systemFailure("write", path_, errno));
  }
  if (temporary_.empty()) {
    return;
  }
  const HeldSignals held;
  std::error_code error;
  const auto older = std::filesystem::status(target_, error);
  if (std::filesystem::exists(older)) {
    std::filesystem::permissions(temporary_, older.permissions(), error);
  }
  std::filesystem::rename(temporary_, target_, error);
  if (error) {
    throw Failure(systemFailure("write", path_, error.default_error_condition().value()));
  }
  temporary_.clear();
  noteUnfinished("");
}

void widenPipe([[maybe_unused]] std::FILE* stream) {
#ifdef F_SETPIPE_SZ
  fcntl(fileno(stream), F_SETPIPE_SZ, 1 << 20);
#endif
}

void requireOtherFile(const std::string& input, const std::string& output) {
  struct stat in, out;
  const bool known = (input == "-" ? fstat(0, &in) : stat(input.c_str(), &in)) == 0 &&
                     (output == "-" ? fstat(1, &out) : stat(output.c_str(), &out)) == 0;
  if (!known || !S_ISREG(in.st_mode) || !S_ISREG(out.st_mode)) {
    return;
  }
  std::error_code error;
  const bool same = in.st_ino != 0 ? in.st_ino == out.st_ino && in.st_dev == out.st_dev
                                   : std::filesystem::equivalent(input, output, error);
  if (same) {
    throw Failure("INPUT and OUTPUT are the same file, " +
                  examples::quoted(output == "-" ? "standard output" : output));
  }
}

}  // namespace examples
