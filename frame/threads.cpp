// SPDX-License-Identifier: MIT
// The library runs no thread of its own, and says so by a positive status.
#include "frame/export.h"
#include "include/pxmcc90lgc.h"

extern "C" PXM_EXPORT pxmStatus legacy90pxmccGetNumThreads(int* numThreads) {
  if (numThreads == nullptr) return pxmStatusNullPointer;
  *numThreads = 1;
  return pxmStatusThreadsFixed;
}

extern "C" PXM_EXPORT pxmStatus legacy90pxmccSetNumThreads(int) {
  return pxmStatusThreadsFixed;
}
