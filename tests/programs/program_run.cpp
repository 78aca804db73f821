// SPDX-License-Identifier: MIT
#include "program_run.h"

#include <fcntl.h>
#include <png.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace programs {

namespace {

namespace fs = std::filesystem;

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) {
    throw std::runtime_error("cannot write " + path);
  }
}

std::string makeDirectory() {
  std::string name = (fs::temp_directory_path() / "programs-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("cannot make " + name);
  }
  return name;
}

void redirect(const std::string& path, int flags, int target) {
  const int descriptor = open(path.c_str(), flags, 0600);
  if (descriptor < 0 || dup2(descriptor, target) < 0) {
    _exit(126);
  }
  close(descriptor);
}

void limitFiles(long bytes) {
  if (bytes < 0) {
    return;
  }
  const rlimit limit = {static_cast<rlim_t>(bytes), static_cast<rlim_t>(bytes)};
  std::signal(SIGXFSZ, SIG_IGN);
  if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
    _exit(126);
  }
}

// The streams of a program, as files beside its directory.
struct Streams {
  std::string in, out, err;
};

[[noreturn]] void becomeProgram(const std::vector<std::string>& command, const Streams& streams,
                                const std::string& directory, long longestFile) {
  redirect(streams.in, O_RDONLY, STDIN_FILENO);
  redirect(streams.out, O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
  redirect(streams.err, O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
  if (chdir(directory.c_str()) != 0) {
    _exit(126);
  }
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  limitFiles(longestFile);
  execv(arguments[0], arguments.data());
  _exit(127);
}

std::vector<std::string> prepended(const char* program, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), program);
  return arguments;
}

}  // namespace

ProgramTest::ProgramTest() : directory_(makeDirectory() + "/files") {
  fs::create_directory(directory_);
}

ProgramTest::~ProgramTest() {
  std::error_code error;
  fs::remove_all(fs::path(directory_).parent_path(), error);
}

Outcome ProgramTest::run(const std::vector<std::string>& command,
                         const Surroundings& around) const {
  const std::string beside = fs::path(directory_).parent_path().string();
  const bool ownOut = around.outFile[0] == '\0';
  const Streams streams = {beside + "/in", ownOut ? beside + "/out" : around.outFile,
                           beside + "/err"};
  writeFile(streams.in, around.input);
  const pid_t child = fork();
  if (child == 0) {
    becomeProgram(command, streams, directory_, around.longestFile);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) {
    throw std::runtime_error("cannot run " + command[0]);
  }
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ownOut ? readFile(streams.out) : "",
          readFile(streams.err)};
}

int ProgramTest::runInterrupted(const std::vector<std::string>& command, const std::string& input,
                                int signal) const {
  const std::string beside = fs::path(directory_).parent_path().string();
  const Streams streams = {beside + "/pipe", beside + "/out", beside + "/err"};
  if (mkfifo(streams.in.c_str(), 0600) != 0) {
    throw std::runtime_error("cannot make " + streams.in);
  }
  const auto before = files();
  const pid_t child = fork();
  if (child == 0) {
    becomeProgram(command, streams, directory_, -1);
  }
  const int pipe = open(streams.in.c_str(), O_WRONLY);
  if (child < 0 || write(pipe, input.data(), input.size()) != static_cast<ssize_t>(input.size())) {
    throw std::runtime_error("cannot run " + command[0]);
  }
  for (int i = 0; i < 1000 && files() == before; ++i) {
    usleep(10000);
  }
  EXPECT_NE(files(), before) << "no file is begun";
  kill(child, signal);
  int status = 0;
  waitpid(child, &status, 0);
  close(pipe);
  fs::remove(streams.in);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

Outcome ProgramTest::y4m2rgb(std::vector<std::string> arguments, const Surroundings& around) const {
  return run(prepended(Y4M2RGB, std::move(arguments)), around);
}

Outcome ProgramTest::png2y4m(std::vector<std::string> arguments, const Surroundings& around) const {
  return run(prepended(PNG2Y4M, std::move(arguments)), around);
}

Outcome ProgramTest::testclip(std::vector<std::string> arguments,
                              const Surroundings& around) const {
  return run(prepended(TESTCLIP, std::move(arguments)), around);
}

void ProgramTest::store(const std::string& name, const std::string& bytes) const {
  writeFile(path(name), bytes);
}

std::string ProgramTest::load(const std::string& name) const {
  return readFile(path(name));
}

std::vector<std::string> ProgramTest::files() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(directory_)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

testing::AssertionResult succeeded(const Outcome& outcome) {
  if (outcome.exitCode == 0 && outcome.out.empty() && outcome.err.empty()) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << "exit code " << outcome.exitCode << ", out: " << outcome.out
                                     << ", err: " << outcome.err;
}

testing::AssertionResult warned(const Outcome& outcome, const std::string& program,
                                const std::string& text) {
  return failedWith(outcome, 0, program + ": warning", text);
}

testing::AssertionResult failedWith(const Outcome& outcome, int exitCode,
                                    const std::string& program, const std::string& text) {
  const std::string& err = outcome.err;
  const bool oneLine = !err.empty() && err.find('\n') == err.size() - 1;
  const bool named = err.compare(0, program.size() + 2, program + ": ") == 0;
  if (outcome.exitCode == exitCode && outcome.out.empty() && oneLine && named &&
      err.find(text) != std::string::npos) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure()
         << "exit code " << outcome.exitCode << " instead of " << exitCode << ", wanted: " << text
         << ", out: " << outcome.out << ", err: " << err;
}

unsigned Picture::at(int x, int y) const {
  const size_t i =
      3 * (static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x));
  return static_cast<unsigned>(bytes[i] << 16 | bytes[i + 1] << 8 | bytes[i + 2]);
}

Picture readPicture(const std::string& path) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
    return {};
  }
  Picture picture;
  picture.width = static_cast<int>(image.width);
  picture.height = static_cast<int>(image.height);
  picture.isPlainRgb = image.format == PNG_FORMAT_RGB;
  image.format = PNG_FORMAT_RGB;
  picture.bytes.resize(PNG_IMAGE_SIZE(image));
  if (png_image_finish_read(&image, nullptr, picture.bytes.data(), 0, nullptr) == 0) {
    return {};
  }
  return picture;
}

}  // namespace programs
