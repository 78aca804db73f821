// SPDX-License-Identifier: MIT
// l9: AVX2 processors. The lanes of e9, and five kernels with lanes twice as wide.
#include "vector/sse/lanes.inl"

#define PXM_VARIANT_KERNELS "vector/avx2/l9_kernels.inl"
