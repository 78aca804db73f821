// SPDX-License-Identifier: MIT
// Calls that the checks reject.
#ifndef TESTS_FUZZ_REJECTED_H_
#define TESTS_FUZZ_REJECTED_H_

#include "tests/fuzz/case.h"

// The status that a case has to be rejected with, or pxmStatusOk.
int rejectionOf(const Case& c);

// Such a call has to return that status and to touch nothing.
void expectRejection(const Case& c, int status);

#endif
