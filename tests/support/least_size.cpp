// SPDX-License-Identifier: MIT
#include "tests/support/least_size.h"

#include "tests/oracle/checks.h"

pxmSize leastSize(const Conversion& conversion) {
  pxmSize least = {1, 1};
  for (const oracle::Check& check : oracle::checksOf(conversion.name)) {
    if (check.argument == oracle::Argument::Width) least.width = check.minimum;
    if (check.argument == oracle::Argument::Height) least.height = check.minimum;
  }
  return least;
}
