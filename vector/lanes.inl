// SPDX-License-Identifier: MIT
// The lanes of the level, the widest of them as WideLanes, and how samples reach them and leave
// them.
#ifndef PXM_VECTOR_LANES_INL
#define PXM_VECTOR_LANES_INL

#ifdef __AVX2__
#include "vector/avx2/load.inl"
#include "vector/avx2/store.inl"
#else
#include "vector/sse/load.inl"
#include "vector/sse/store.inl"
#endif

PXM_LEVEL_BEGIN

using NarrowLanes = I16x8;
#ifdef __AVX2__
using WideLanes = I16x16;
#else
using WideLanes = I16x8;
#endif

PXM_LEVEL_END

#endif
