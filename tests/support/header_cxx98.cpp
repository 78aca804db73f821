// SPDX-License-Identifier: MIT
// The public header, and nothing else, as C++98.
#include <pxmcc90lgc.h>

int headerIsPlainCxx();
int headerIsPlainCxx() {
  return static_cast<int>(sizeof(pxmVersionRecord));
}
