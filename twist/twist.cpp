// SPDX-License-Identifier: MIT
// The colour twist in plain code.
#include "twist/kernels.inl"

PXM_TEXT_BEGIN

using TwistC3 = TwistInterleaved<3>;
using TwistAC4 = TwistInterleaved<4>;
using TwistP3 = TwistThreePlanes;

PXM_TEXT_END

#include "twist/entries.inl"
