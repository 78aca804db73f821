// SPDX-License-Identifier: MIT
#include "tests/fuzz/run.h"

#include <xmmintrin.h>

#include <cstdio>
#include <cstdlib>

#include "catalogue/variants.h"
#include "frame/dispatch.h"
#include "tests/fuzz/calls.h"
#include "tests/fuzz/faults.h"
#include "tests/support/by_oracle.h"

namespace {

constexpr unsigned allMasked = 0x1F80, roundingField = 0x6000, flags = 0x3F;

unsigned mxcsrOf(const Case& c) {
  return allMasked | c.mxcsr;
}

}  // namespace

const std::vector<int>& variants() {
  static const std::vector<int> all = runnableVariants();
  return all;
}

void fail(const Case& c, int variant, const CallArguments& a, const char* what) {
  std::fprintf(stderr, "%.*s in %s, %d x %d: %s\n", static_cast<int>(c.conversion->name.size()),
               c.conversion->name.data(), variantTags[variant], a.size.width, a.size.height, what);
  for (int i = 0; i < 3; ++i)
    std::fprintf(stderr, "  plane %d: source %p, pitch %d; destination %p, pitch %d\n", i,
                 static_cast<const void*>(a.src[i]), a.srcStep[i], static_cast<void*>(a.dst[i]),
                 a.dstStep[i]);
  std::fprintf(stderr, "  MXCSR %04x, null arguments %03x, seed %llu\n", mxcsrOf(c), c.nulls,
               static_cast<unsigned long long>(c.seed));
  std::abort();
}

void requireStatus(const Case& c, int variant, const CallArguments& a, int status, int wanted) {
  if (status == wanted) return;
  char what[64];
  std::snprintf(what, sizeof what, "status %d, want %d", status, wanted);
  fail(c, variant, a, what);
}

// A twist raises flags, unless it is one of SIMD that finds another rounding mode than to nearest:
// that restores them.
pxmStatus callLibrary(const Case& c, int variant, const CallArguments& a) {
  const unsigned outside = _mm_getcsr(), inside = mxcsrOf(c);
  VariantIndex = variant;
  _mm_setcsr(inside);
  const pxmStatus status = faults::call(*c.conversion, variant, a);
  const unsigned after = _mm_getcsr();
  _mm_setcsr(outside);
  CallCounts& counts = callCounts();
  ++counts.calls;
  if (status < 0) ++counts.rejected;
  const bool raises =
      c.conversion->kind == Kind::Twist && (variant == 0 || !(inside & roundingField));
  if ((after ^ inside) & (raises ? ~flags : ~0u)) fail(c, variant, a, "MXCSR is another");
  return status;
}

int callOracle(const Case& c, int variant, const CallArguments& a) {
  const unsigned outside = _mm_getcsr();
  _mm_setcsr(mxcsrOf(c));
  const int status = convertByOracle(*c.conversion, variant, a);
  _mm_setcsr(outside);
  return status;
}

bool hasPlanes(const Conversion& c, bool source) {
  switch (c.kind) {
    case Kind::Decode:
      return source && c.has("P3C3R");
    case Kind::Encode:
      return !source && c.has("C3P3R");
    default:
      return c.has("P3");
  }
}

bool isInPlace(const Conversion& c) {
  return c.kind == Kind::Twist && (c.has("IR") || c.has("IP3"));
}
