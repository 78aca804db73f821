// SPDX-License-Identifier: MIT
// The colour twist in plain code.
#include "twist/entries.inl"
