// SPDX-License-Identifier: MIT
// A library as it stands in a file: its conversions by their exported names, in any variant.
#ifndef CATALOGUE_LOADED_LIBRARY_H_
#define CATALOGUE_LOADED_LIBRARY_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/conversions.h"

struct LoadedConversion {
  std::string_view name;  // without the prefix of exports
  Kind kind;
  void* function;
  pxmStatus (*callThrough)(void* function, const CallArguments&);

  pxmStatus call(const CallArguments& a) const { return callThrough(function, a); }
  bool has(std::string_view part) const { return name.find(part) != std::string_view::npos; }
};

class LoadedLibrary {
 public:
  // Throws std::runtime_error where the file is no such library, or lacks a name.
  explicit LoadedLibrary(const std::string& path);
  ~LoadedLibrary();
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  // All conversions, in byte order.
  const std::vector<LoadedConversion>& conversions() const { return conversions_; }

  // Every conversion is that of this variant from now on.
  void select(int variant) { *variantIndex_ = variant; }

  // What the library calls the selected variant.
  std::string tag() const { return version_()->variantTag; }

 private:
  void* exported(const std::string& name) const;

  void* handle_;
  std::int32_t* variantIndex_;
  const pxmVersionRecord* (*version_)();
  std::vector<LoadedConversion> conversions_;
};

#endif
