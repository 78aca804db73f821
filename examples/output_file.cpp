// SPDX-License-Identifier: MIT
#include "output_file.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "failure.h"

namespace examples {

namespace {

constexpr int kTemporaryNames = 1000;

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

}  // namespace

OutputFile::OutputFile(const std::string& path) : path_(path) {
  if (path == "-") {
    path_ = "standard output";
    file_ = stdout;
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
    std::remove(temporary_.c_str());
  }
}

// The temporary name does not contain the target's, which may be as long as a name can be.
void OutputFile::openTemporary() {
  const size_t slash = path_.rfind('/');
  const std::string directory = slash == std::string::npos ? "" : path_.substr(0, slash + 1);
  const std::string stem = directory + ".unfinished-" + std::to_string(getpid()) + "-";
  for (int i = 0; i < kTemporaryNames && file_ == nullptr; ++i) {
    const std::string name = stem + std::to_string(i);
    file_ = std::fopen(name.c_str(), "wbx");
    if (file_ != nullptr) {
      temporary_ = name;
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
  if (std::rename(temporary_.c_str(), path_.c_str()) != 0) {
    throw Failure(systemFailure("write", path_, errno));
  }
  temporary_.clear();
}

}  // namespace examples
