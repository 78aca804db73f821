// SPDX-License-Identifier: MIT
// l9: AVX2 processors. The lanes of e9, and five kernels with lanes twice as wide; all kernels have
// them if the library is built so.
#include "vector/sse/lanes.inl"

#define PXM_VARIANT_KERNELS "vector/avx2/l9_kernels.inl"

#ifdef PXM_WIDE_LANES
#include "vector/avx2/columns.inl"
#include "vector/avx2/encode.inl"
#endif
