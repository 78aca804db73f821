// SPDX-License-Identifier: MIT
//
// A second, independent statement of what the conversions compute. It is plain rather than fast,
// shares no code, header or table with the library, and exists only to be compared with it.

#ifndef TESTS_ORACLE_ORACLE_H_
#define TESTS_ORACLE_ORACLE_H_

#include "basics.h"
#include "checks.h"
#include "decode.h"
#include "depth.h"
#include "encode.h"
#include "twist.h"
#include "vector_decode.h"
#include "vector_encode.h"

#endif  // TESTS_ORACLE_ORACLE_H_
