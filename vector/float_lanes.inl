// SPDX-License-Identifier: MIT
// The float lanes of the level: eight, in the widest registers that it has.
#ifndef PXM_VECTOR_FLOAT_LANES_INL
#define PXM_VECTOR_FLOAT_LANES_INL

#if defined(__AVX2__)
#include "vector/avx2/float_lanes.inl"
#elif defined(__AVX__)
#include "vector/avx/float_lanes.inl"
#else
#include "vector/sse/float_lanes.inl"
#endif

PXM_LEVEL_BEGIN

#if defined(__AVX2__)
using FloatLanes = FloatLanesAvx2;
#elif defined(__AVX__)
using FloatLanes = FloatLanesAvx;
#else
using FloatLanes = FloatLanesSse;
#endif

PXM_LEVEL_END

#endif
