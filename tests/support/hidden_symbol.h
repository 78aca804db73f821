// SPDX-License-Identifier: MIT
#ifndef TESTS_SUPPORT_HIDDEN_SYMBOL_H_
#define TESTS_SUPPORT_HIDDEN_SYMBOL_H_

#include <string>

// The address, in this process, of a symbol that stands in the symbol table (.symtab) of a loaded
// shared object, hidden or not; null where the table has no such name. `handle` is dlopen's.
void* hiddenSymbol(void* handle, const std::string& name);

#endif
