// SPDX-License-Identifier: MIT
#ifndef TESTS_SUPPORT_HIDDEN_SYMBOLS_H_
#define TESTS_SUPPORT_HIDDEN_SYMBOLS_H_

#include <map>
#include <string>

// The addresses, in this process, of what the symbol table (.symtab) of a loaded shared object
// names, hidden or not. `handle` is dlopen's.
std::map<std::string, void*> hiddenSymbols(void* handle);

#endif
