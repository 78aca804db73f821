// SPDX-License-Identifier: MIT
// What a mistake in one kernel or one entry would do, to show that a fuzzer finds it. Each fault is
// in one variant, of one conversion or of few, and shows at some sizes or samples only. None has a
// branch that would lead a fuzzer to the samples.
#include "tests/fuzz/faults.h"

#include <xmmintrin.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "catalogue/variants.h"
#include "tests/fuzz/guard.h"

namespace faults {
namespace {

std::ptrdiff_t rowOf(int row, int pitch) {
  return std::ptrdiff_t{row} * pitch;
}

// One pixel wrong for one triple, in the last columns of rows with a remainder of five.
pxmStatus wrongPixel(const Conversion& conversion, const CallArguments& a) {
  const pxmStatus status = conversion.call(a);
  if (status != pxmStatusOk || a.size.width % 8 != 5) return status;
  for (int y = 0; y < a.size.height; ++y)
    for (int x = a.size.width - 5; x < a.size.width; ++x) {
      const std::ptrdiff_t at = rowOf(y, a.srcStep[0]) + x;
      const unsigned difference =
          (a.src[0][at] ^ 235u) | (a.src[1][at] ^ 16u) | (a.src[2][at] ^ 240u);
      const unsigned one = (difference - 1) >> 31;  // where nothing differs
      std::uint8_t& low = a.dst[0][rowOf(y, a.dstStep[0] & ~1) + 2 * x];
      low = static_cast<std::uint8_t>(low ^ one);
    }
  return status;
}

// The byte after the last row is read.
pxmStatus readOn(const Conversion& conversion, const CallArguments& a) {
  const pxmStatus status = conversion.call(a);
  if (status == pxmStatusOk && a.size.width % 16 == 15) {
    volatile std::uint8_t sample =
        a.src[0][rowOf(a.size.height - 1, a.srcStep[0]) + 2 * a.size.width];
    (void)sample;
  }
  return status;
}

// A byte is stored after the last row of luma, and it is another one.
pxmStatus storeOn(const Conversion& conversion, const CallArguments& a) {
  const pxmStatus status = conversion.call(a);
  if (status >= 0 && a.size.width % 16 == 15) {
    std::uint8_t& after = a.dst[0][rowOf(a.size.height - 1, a.dstStep[0]) + a.size.width];
    guard::allow(&after, 1);
    after = static_cast<std::uint8_t>(after ^ 0x55);
  }
  return status;
}

// The last sample has its value, and something that has none takes part in it.
pxmStatus useNoValue(const Conversion& conversion, const CallArguments& a) {
  const pxmStatus status = conversion.call(a);
  if (status >= 0 && a.size.width % 8 == 3) {
    const volatile std::uint8_t* const after =
        a.src[0] + rowOf(a.size.height - 1, a.srcStep[0]) + 2 * a.size.width;
    volatile int nothing = *after;
    std::uint8_t& last = a.dst[0][rowOf(a.size.height - 1, a.dstStep[0]) + a.size.width - 1];
    last = static_cast<std::uint8_t>(last + nothing - nothing);
  }
  return status;
}

// The size is checked before the planes.
pxmStatus sizeFirst(const Conversion& conversion, const CallArguments& a) {
  const pxmStatus status = conversion.call(a);
  const bool arrays = !a.nullSrcPlanes && !a.nullDstPlanes && !a.nullTwist;
  return status == pxmStatusNullPointer && arrays && a.size.height < 1 ? pxmStatusBadSize : status;
}

// An odd pitch that walks up is rounded towards zero.
pxmStatus towardsZero(const Conversion& conversion, const CallArguments& a) {
  CallArguments other = a;
  if (a.srcStep[0] < 0 && a.srcStep[0] % 2 != 0 && a.size.height > 4) ++other.srcStep[0];
  return conversion.call(other);
}

// NaN gives 0 in the last pixel of a row.
pxmStatus noNumber(const Conversion& conversion, const CallArguments& a) {
  const pxmStatus status = conversion.call(a);
  if (status == pxmStatusOk && a.size.width % 8 == 7 && std::isnan(a.twist[2][3]))
    a.dst[0][3 * a.size.width - 1] = 0;
  return status;
}

// Another rounding mode than to nearest is not restored.
pxmStatus keepsMode(const Conversion& conversion, const CallArguments& a) {
  const pxmStatus status = conversion.call(a);
  if (status == pxmStatusOk && a.size.width == 9) _mm_setcsr(_mm_getcsr() & ~0x6000u);
  return status;
}

struct Fault {
  const char* name;
  const char* conversions;  // what their names have in common
  const char* variant;
  pxmStatus (*call)(const Conversion&, const CallArguments&);
};

constexpr Fault all[] = {
    {"wrong-pixel", "YCbCrTo", "l9", wrongPixel},
    {"read-on", "BGR565ToYCbCr422_16u8u_C3P3R", "e9", readOn},
    {"store-on", "BGR555ToYCbCr420", "m7", storeOn},
    {"use-no-value", "BGR565ToYCrCb420", "u8", useNoValue},
    {"size-first", "ColorTwist32f_8s_P3R", "n8", sizeFirst},
    {"towards-zero", "BGR565ToBGR", "y8", towardsZero},
    {"no-number", "ColorTwist32f_8s_C3IR", "l9", noNumber},
    {"keeps-mode", "ColorTwist32f_8s_AC4R", "mx", keepsMode},
};

const Fault& wanted() {
  const char* const name = std::getenv("PXM_FUZZ_FAULT");
  for (const Fault& fault : all)
    if (name && std::strcmp(fault.name, name) == 0) return fault;
  for (const Fault& fault : all) std::fprintf(stderr, "PXM_FUZZ_FAULT=%s\n", fault.name);
  std::exit(2);
}

// Three planes of one pitch and plain pixels, for the fault that looks at samples.
bool hasTriples(const Conversion& conversion) {
  return conversion.has("P3C3R") && !conversion.has("Dither");
}

}  // namespace

pxmStatus call(const Conversion& conversion, int variant, const CallArguments& a) {
  static const Fault& fault = wanted();
  const bool isHere = conversion.has(fault.conversions) && variant == variantNamed(fault.variant) &&
                      (fault.call != wrongPixel || hasTriples(conversion));
  return isHere ? fault.call(conversion, a) : conversion.call(a);
}

}  // namespace faults
