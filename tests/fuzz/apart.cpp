// SPDX-License-Identifier: MIT
// What a program consists of whose target is a library of its own. It needs the target, though
// nothing here calls it.
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

extern int (*const target)(const std::uint8_t* bytes, std::size_t size);
int (*const target)(const std::uint8_t* bytes, std::size_t size) = LLVMFuzzerTestOneInput;
