// SPDX-License-Identifier: MIT
// A file that appears under its name only when it is whole.
#ifndef PXM_EXAMPLES_OUTPUT_FILE_H
#define PXM_EXAMPLES_OUTPUT_FILE_H

#include <cstdio>
#include <string>

namespace examples {

/// Writes under a temporary name in the directory of the target and takes the target's name on
/// commit(). Without commit() the temporary file is deleted and an older target stays as it was.
/// A link stays one: what it leads to is written. An older target's permissions stay.
/// A target that exists and is no regular file (a device, a pipe) is written directly, and "-" is
/// standard output. A signal that ends the program deletes the temporary file; one such file is
/// open at a time.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// @return false, with errno set, if not all bytes can be written.
  bool tryWrite(const void* bytes, size_t count);

  /// Writes all bytes or throws a Failure.
  void write(const void* bytes, size_t count);

  /// Closes the file, checks that all of it has arrived and gives it its name.
  void commit();

  const std::string& path() const { return path_; }

 private:
  void openTemporary();

  std::string path_;
  std::string target_;     // the same, or where a link leads
  std::string temporary_;  // empty if the target is written directly
  std::FILE* file_ = nullptr;
};

/// Where a stream is a pipe, lets it hold as much as the system allows without asking: whole
/// pictures then pass with fewer changes between programs.
void widenPipe(std::FILE* stream);

/// Throws a Failure if both are one file; "-" is standard input, or standard output.
void requireOtherFile(const std::string& input, const std::string& output);

}  // namespace examples

#endif
