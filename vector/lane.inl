// SPDX-License-Identifier: MIT
// What the arithmetic asks of a lane type: 16-bit lanes in a register, or in registers of two
// halves. Operations are found by the type of their arguments; these two have none.
#ifndef PXM_VECTOR_LANE_INL
#define PXM_VECTOR_LANE_INL

#include <stdint.h>

#include "frame/level.h"

PXM_LEVEL_BEGIN

// One value in all lanes.
template <class L>
L broadcast(int value);

// As many lanes as a register has, from an address that is aligned to its size.
template <class L>
L loadLanes(const void* p);

// As many pixels as there are lanes, from any address.
template <class L>
L loadPixels(const uint8_t* p);

PXM_LEVEL_END

#endif
