// SPDX-License-Identifier: MIT
#include "frame/dispatch.h"

int pxmLibraryEntry(void*, unsigned reason, void*) {
  if (reason == pxm::processAttach) (void)pxmStartUp();
  return 1;
}

// Windows calls pxmLibraryEntry itself, which is the entry point of the library's file. An ELF
// object is notified of its load and of nothing else.
#ifdef __ELF__
[[gnu::constructor]] static void atLoad() {
  (void)pxmLibraryEntry(nullptr, pxm::processAttach, nullptr);
}
#endif
