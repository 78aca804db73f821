// SPDX-License-Identifier: MIT
#include "catalogue/loaded_library.h"

#include <stdexcept>

#include "catalogue/argument_lists.h"
#include "catalogue/shared_library.h"

namespace {

template <class Function>
pxmStatus callAs(void* function, const CallArguments& a) {
  return argument_lists::call(reinterpret_cast<Function>(function), a);
}

// The header tells the argument list; nothing is linked by these names.
const LoadedConversion allConversions[] = {
#define ROW(name, kind) {#name, kind, nullptr, callAs<decltype(&legacy90pxmi##name)>},
#define DECODE(name, ...) ROW(name, Kind::Decode)
#define ENCODE(name, ...) ROW(name, Kind::Encode)
#define DEPTH(name, ...) ROW(name, Kind::Depth)
#define TWIST(name, ...) ROW(name, Kind::Twist)
#include "frame/conversions.def"
#undef ROW
};

}  // namespace

LoadedLibrary::LoadedLibrary(const std::string& path) : handle_(openLibrary(path)) {
  if (handle_ == nullptr) throw std::runtime_error("cannot open " + path + ": " + openFailure());
  variantIndex_ = static_cast<std::int32_t*>(hiddenSymbols(handle_).at("VariantIndex"));
  if (variantIndex_ == nullptr) throw std::runtime_error(path + " has no symbol VariantIndex");
  version_ = reinterpret_cast<decltype(version_)>(exported("legacy90pxmccGetLibVersion"));
  for (LoadedConversion conversion : allConversions) {
    conversion.function = exported("legacy90pxmi" + std::string(conversion.name));
    conversions_.push_back(conversion);
  }
}

LoadedLibrary::~LoadedLibrary() {
  closeLibrary(handle_);
}

void* LoadedLibrary::exported(const std::string& name) const {
  void* const function = exportedSymbol(handle_, name);
  if (function == nullptr) throw std::runtime_error("the library does not export " + name);
  return function;
}
