// SPDX-License-Identifier: MIT
// Who carries out the calls of a list of hashes: a library from its file, or the oracle.
#ifndef TESTS_HASHES_CONVERTERS_H_
#define TESTS_HASHES_CONVERTERS_H_

#include <memory>
#include <string>
#include <vector>

#include "catalogue/loaded_library.h"

class Converter {
 public:
  virtual ~Converter() = default;

  // All conversions, in byte order.
  virtual const std::vector<LoadedConversion>& conversions() const = 0;

  virtual bool runs(int variant) const = 0;

  // The first variant whose code for a kind of conversion is this one's as well.
  virtual int sameCodeAs(int variant, Kind kind) const = 0;

  virtual int convert(const LoadedConversion& conversion, int variant, const CallArguments& a) = 0;
};

std::unique_ptr<Converter> converterOfLibrary(const std::string& path);
std::unique_ptr<Converter> converterOfOracle();

#endif
