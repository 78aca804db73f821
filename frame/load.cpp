// SPDX-License-Identifier: MIT
#include "frame/dispatch.h"

int pxmLibraryEntry(void*, unsigned reason, void*) {
  if (reason == pxm::processAttach) (void)pxmStartUp();
  return 1;
}

// The loader's notification on this platform: it has no others.
[[gnu::constructor]] static void atLoad() {
  (void)pxmLibraryEntry(nullptr, pxm::processAttach, nullptr);
}
