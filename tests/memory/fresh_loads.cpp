// SPDX-License-Identifier: MIT
// The first calls of 64 threads in a library that has just been loaded, thousands of times. In
// every other round each thread loads it, calls and lets go; in the others it is loaded once and
// its start-up undone, so that the first calls of all meet in the trampolines. Usage: fresh_loads
// LIBRARY ROUNDS
#include <dlfcn.h>

#include <map>
#include <stdexcept>
#include <string>

#include "catalogue/loaded_library.h"
#include "catalogue/shared_library.h"
#include "frame/features.h"
#include "tests/memory/crowd.h"

namespace {

// What one thread sees of the library, and where the library keeps its state.
class Library {
 public:
  explicit Library(const std::string& path) : path_(path) {
    const LoadedLibrary library(path);
    conversions_ = library.conversions();
    for (const LoadedConversion& conversion : conversions_)
      conversion.call(expected_.emplace_back().arguments());
    void* const handle = openLibrary(path);
    const std::map<std::string, void*> symbols = hiddenSymbols(handle);
    char* const base = anchorOf(handle);
    index_ = static_cast<char*>(symbols.at("VariantIndex")) - base;
    cache_ = static_cast<char*>(symbols.at("_ZN3pxm16featureMaskCacheE")) - base;
    closeLibrary(handle);
  }

  const std::string& path() const { return path_; }

  // Loads it, and puts its state back to what it is before start-up.
  void* loadWithoutStart() const {
    void* const handle = openLibrary(path_);
    if (handle == nullptr) throw std::runtime_error(openFailure());
    char* const base = anchorOf(handle);
    *reinterpret_cast<std::int32_t*>(base + index_) = -1;
    *reinterpret_cast<pxm::FeatureMaskCache*>(base + cache_) = {0, 0};
    return handle;
  }

  // Whether a conversion of a loaded library does what it did for one thread.
  bool converts(void* handle, std::size_t number) const {
    if (handle == nullptr) return false;
    const std::size_t i = number % conversions_.size();
    LoadedConversion conversion = conversions_[i];
    conversion.function = exportedSymbol(handle, "legacy90pxmi" + std::string(conversion.name));
    SmallCall call;
    return conversion.call(call.arguments()) >= 0 && call == expected_[i];
  }

  bool isLoaded() const {
    void* const handle = dlopen(path_.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) dlclose(handle);
    return handle != nullptr;
  }

 private:
  static char* anchorOf(void* handle) {
    return static_cast<char*>(exportedSymbol(handle, "legacy90pxmccInit"));
  }

  std::string path_;
  std::vector<LoadedConversion> conversions_;
  std::vector<SmallCall> expected_;
  std::ptrdiff_t index_, cache_;
};

}  // namespace

int main(int argc, char** argv) {
  const int rounds = roundsOf(argc == 3 ? argv[2] : "");
  const Library library(argv[1]);
  void* unstarted = nullptr;
  long stayed = 0;
  const auto prepare = [&](int round) {
    if (unstarted != nullptr) closeLibrary(unstarted);
    stayed += library.isLoaded();
    unstarted = round % 2 == 0 ? nullptr : library.loadWithoutStart();
  };
  const CrowdCounts counts = meetInCrowd(rounds, prepare, [&](int round, int thread) {
    const auto number = static_cast<std::size_t>(round / 2 + thread);
    if (unstarted != nullptr) return library.converts(unstarted, number);
    void* const own = openLibrary(library.path());
    const bool right = library.converts(own, number);
    if (own != nullptr) closeLibrary(own);
    return right;
  });
  std::printf("cases: %ld first calls from %d threads in %d fresh loads\n", counts.calls, crowdSize,
              rounds);
  if (counts.wrong == 0 && stayed == 0) return 0;
  std::printf("%ld went wrong, %ld times the library stayed loaded\n", counts.wrong, stayed);
  return 1;
}
