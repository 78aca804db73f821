// SPDX-License-Identifier: MIT
// A shared library as a program opens it at run time, by the system's own means.
#ifndef CATALOGUE_SHARED_LIBRARY_H_
#define CATALOGUE_SHARED_LIBRARY_H_

#include <map>
#include <string>

// Opens the file at a path; null if that fails, for the reason that openFailure() tells.
void* openLibrary(const std::string& path);
std::string openFailure();
void closeLibrary(void* library);

// The address of an exported name; null if there is none.
void* exportedSymbol(void* library, const std::string& name);

// The addresses, in this process, of what the library's full symbol table names, hidden or not.
std::map<std::string, void*> hiddenSymbols(void* library);

#endif
