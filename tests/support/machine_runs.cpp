// SPDX-License-Identifier: MIT
#include "frame/dispatch.h"
#include "tests/support/variants.h"

bool machineRuns(int variant) {
  switch (variant) {
    case pxm::variant_m7:
      return __builtin_cpu_supports("sse3");
    case pxm::variant_u8:
    case pxm::variant_n8:
      return __builtin_cpu_supports("ssse3");
    case pxm::variant_y8:
      return __builtin_cpu_supports("sse4.1");
    case pxm::variant_e9:
      return __builtin_cpu_supports("avx");
    case pxm::variant_l9:
      return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi2");
    default:
      return true;
  }
}
