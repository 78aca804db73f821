// SPDX-License-Identifier: MIT
#include "tests/fuzz/classes.h"

#include "tests/oracle/oracle.h"
#include "tests/support/by_oracle.h"

int classOf(const Conversion& conversion, int variant) {
  if (conversion.kind == Kind::Depth || variant == 0) return 0;
  if (conversion.kind != Kind::Decode) return 1;
  return oracle::hasWideLanes(*oracle::parseDecodeName(conversion.name), oracleVariant(variant))
             ? 2
             : 1;
}
