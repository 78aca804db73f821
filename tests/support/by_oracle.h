// SPDX-License-Identifier: MIT
#ifndef TESTS_SUPPORT_BY_ORACLE_H_
#define TESTS_SUPPORT_BY_ORACLE_H_

#include "catalogue/conversions.h"
#include "tests/oracle/variants.h"

// A variant as the oracle knows it; throws where the oracle knows none of that tag.
oracle::Variant oracleVariant(int variant);

// Carries a call out by the oracle and returns its status.
int convertByOracle(const Conversion& conversion, int variant, const CallArguments& arguments);

// A matrix that saturates some results and not others.
extern const float ordinaryTwist[3][4];

#endif
