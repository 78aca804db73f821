// SPDX-License-Identifier: MIT
// How bytes are marked for a checker that watches the process, and how their marks are read.
#ifndef TESTS_MEMORY_MARKS_H_
#define TESTS_MEMORY_MARKS_H_

#include <cstddef>

namespace marks {

// The checker that this program was built for, or runs under; null where nobody watches.
const char* checker();

// May be neither read nor written. MemorySanitizer knows no such bytes: there they have no value,
// and isWithoutValue says later whether they still have none.
void forbid(const void* bytes, std::size_t count);

// Have no value until something is stored there: what is computed from them has none either, and
// whoever steers by them is reported.
void undefine(const void* bytes, std::size_t count);

// Have the value that they hold.
void define(const void* bytes, std::size_t count);

// Whether every bit has a value.
bool hasValue(const void* bytes, std::size_t count);

// Whether no byte has a value; true where the checker reports every touch by itself.
bool isWithoutValue(const void* bytes, std::size_t count);

// Whether values are followed through pmaddwd lane by lane. Memcheck takes half a register as one:
// it loses four columns that have a value where the four beside them have none.
bool followsProductSums();

// What the checker has reported so far, where it goes on after a report.
unsigned reports();

}  // namespace marks

#endif
