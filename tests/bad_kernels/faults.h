// SPDX-License-Identifier: MIT
// What is put in the place of entries and functions that are right.
#ifndef TESTS_BAD_KERNELS_FAULTS_H_
#define TESTS_BAD_KERNELS_FAULTS_H_

#include <cstddef>
#include <cstdint>

#include "frame/signatures.h"
#include "include/pxmcc90lgc.h"

extern "C" {
// The rows of faults.def. Those of conversions take what the export takes.
#pragma GCC visibility push(hidden)
// The rows of faults.def that are entries take what the export takes.
#define KERNEL(name, conversion, ...) decltype(legacy90pxmi##conversion) bad_##name;
#include "tests/bad_kernels/faults.def"

// Set before a bad one can run.
extern void* goodEntry;                 // what a bad entry stands for
extern void* const* goodEntries;        // those of all variants of its conversion
extern std::int32_t* goodVariantIndex;  // of the program or the library that it stands in
extern void* goodStartUp;               // pxm::startUp of the program
#pragma GCC visibility pop
}

// Calls a good entry with arguments of exactly the types of its conversion.
template <class... Arguments>
pxmStatus callEntry(void* entry, Arguments... arguments) {
  return reinterpret_cast<pxmStatus (*)(Arguments...)>(entry)(arguments...);
}

template <class... Arguments>
pxmStatus good(Arguments... arguments) {
  return callEntry(goodEntry, arguments...);
}

// Begins the definition of a bad entry; its parameters are those of the family.
#define BAD(name, family) pxmStatus bad_##name PARAMETERS(family)

// Rows by their numbers. Pixels stand at even pitches.
inline const std::uint8_t* rowOf(const std::uint8_t* first, int y, int pitch) {
  return first + std::ptrdiff_t{y} * pitch;
}
inline std::uint16_t* rowOf(std::uint16_t* first, int y, int pitch) {
  return first + std::ptrdiff_t{y} * (pitch >> 1);
}

// A read or a write that the compiler must leave where it is.
inline std::uint8_t touched(const void* byte) {
  return *static_cast<const volatile std::uint8_t*>(byte);
}
inline void rewrite(const void* byte) {
  auto* const b = static_cast<volatile std::uint8_t*>(const_cast<void*>(byte));
  *b = *b;
}
inline void flip(const void* byte) {
  auto* const b = static_cast<volatile std::uint8_t*>(const_cast<void*>(byte));
  *b = static_cast<std::uint8_t>(*b ^ 1);
}

#endif
