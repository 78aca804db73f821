// SPDX-License-Identifier: MIT
// Decoding in lanes; compiled once for each vector variant.
#include PXM_VARIANT_TEXT

#include "vector/blocks.inl"

#ifdef PXM_VARIANT_KERNELS
#include PXM_VARIANT_KERNELS
#endif

#include "decode/entries.inl"
