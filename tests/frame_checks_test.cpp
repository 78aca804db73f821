// SPDX-License-Identifier: MIT
// Bad arguments: which status they get, and that the first failing check decides it.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "catalogue/variants.h"
#include "frame/dispatch.h"
#include "tests/oracle/oracle.h"
#include "tests/support/argument_faults.h"

namespace {

using oracle::Argument;

// One way to make an argument bad.
struct Fault {
  oracle::Check check;
  int plane;  // which of the three, where planes are meant
  int value;  // what the number is, where a number is meant
};

// The worst and the nearest bad value of every argument that a conversion checks.
std::vector<Fault> faultsOf(std::string_view name) {
  std::vector<Fault> faults;
  for (const oracle::Check& check : oracle::checksOf(name)) switch (check.argument) {
      case Argument::Src:
      case Argument::Dst:
      case Argument::SrcDst:
      case Argument::Twist:
        faults.push_back({check, -1, 0});
        break;
      case Argument::SrcPlanes:
      case Argument::DstPlanes:
      case Argument::SrcDstPlanes:
        for (int plane = 0; plane < 3; ++plane) faults.push_back({check, plane, 0});
        break;
      default:
        for (const int value : {check.minimum - 1, 0, -1, INT_MIN})
          faults.push_back({check, -1, value});
    }
  return faults;
}

void apply(const Fault& fault, FaultyCall& call) {
  switch (fault.check.argument) {
    case Argument::Src:
      call.nullSrc = true;
      break;
    case Argument::Dst:
      call.nullDst = true;
      break;
    case Argument::SrcDst:
      call.nullSrcDst = true;
      break;
    case Argument::Twist:
      call.nullTwist = true;
      break;
    case Argument::SrcPlanes:
      call.nullSrcPlane = fault.plane;
      break;
    case Argument::DstPlanes:
      call.nullDstPlane = fault.plane;
      break;
    case Argument::SrcDstPlanes:
      call.nullSrcDstPlane = fault.plane;
      break;
    case Argument::Width:
      call.width = fault.value;
      break;
    case Argument::Height:
      call.height = fault.value;
      break;
    case Argument::SrcStep:
      call.srcStep = fault.value;
      break;
    case Argument::DstStep:
      call.dstStep = fault.value;
      break;
    case Argument::SrcDstStep:
      call.srcDstStep = fault.value;
      break;
  }
}

void expectRejection(const CheckedCall& conversion, const FaultyCall& call, int status) {
  bool untouched = false;
  EXPECT_EQ(conversion.call(call, &untouched), status);
  EXPECT_TRUE(untouched) << "a rejection has written something";
}

bool arePlanes(Argument a) {
  return a == Argument::SrcPlanes || a == Argument::DstPlanes || a == Argument::SrcDstPlanes;
}

bool planesComeBefore(std::string_view name, Argument argument) {
  for (const oracle::Check& check : oracle::checksOf(name)) {
    if (check.argument == argument) return false;
    if (arePlanes(check.argument)) return true;
  }
  return false;
}

// Every single fault and every pair; in a pair the check that stands first decides. Faults come in
// the order of the checks.
int expectTheFirstFaultToDecide(const CheckedCall& conversion) {
  const std::vector<Fault> faults = faultsOf(conversion.name);
  int calls = 0;
  for (std::size_t i = 0; i < faults.size(); ++i)
    for (std::size_t j = i; j < faults.size(); ++j) {
      SCOPED_TRACE(std::string(conversion.name) + ", faults " + std::to_string(i) + " and " +
                   std::to_string(j));
      FaultyCall call;
      apply(faults[i], call);
      apply(faults[j], call);
      call.unreadablePitches = true;
      call.unreadablePlanes = faults[i].plane < 0 && faults[j].plane < 0 &&
                              !planesComeBefore(conversion.name, faults[i].check.argument);
      expectRejection(conversion, call, faults[i].check.status);
      ++calls;
    }
  return calls;
}

TEST(Checks, EveryPairOfFaultsInEveryExportOfEveryVariant) {
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    int calls = 0;
    for (const CheckedCall& conversion : exportedConversions())
      calls += expectTheFirstFaultToDecide(conversion);
    RecordProperty(variantTags[variant], calls);
  }
}

TEST(Checks, RejectionsTouchNoImage) {
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const CheckedCall& conversion : exportedConversions())
      for (const Fault& fault : faultsOf(conversion.name)) {
        FaultyCall call;
        apply(fault, call);
        call.unreadableImages = true;
        bool untouched = false;
        EXPECT_EQ(conversion.call(call, &untouched), fault.check.status) << conversion.name;
      }
  }
}

TEST(Checks, EveryPairOfFaultsInEveryFamily) {
  ASSERT_EQ(checkedConversions().size(), 98u);
  for (const CheckedCall& conversion : checkedConversions())
    expectTheFirstFaultToDecide(conversion);
}

TEST(Checks, TheLeastSizePassesAndTheStatusAfterTheKernelIsTheFamilys) {
  for (const CheckedCall& conversion : checkedConversions()) {
    int leastWidth = 1, leastHeight = 1;
    for (const oracle::Check& check : oracle::checksOf(conversion.name)) {
      if (check.argument == Argument::Width) leastWidth = check.minimum;
      if (check.argument == Argument::Height) leastHeight = check.minimum;
    }
    for (int width = leastWidth; width < leastWidth + 9; ++width)
      for (int height = leastHeight; height < leastHeight + 5; ++height) {
        FaultyCall call;
        call.width = width;
        call.height = height;
        bool untouched;
        EXPECT_EQ(conversion.call(call, &untouched),
                  oracle::statusAfter(conversion.name, width, height))
            << conversion.name << " " << width << "x" << height;
      }
  }
}

// ---- Literal statuses --------------------------------------------------------------------------

struct Example {
  const char* claim;
  std::vector<std::string_view> names;
  oracle::CallFacts facts;
  int status;
  bool convertsNothing = false;  // rows that lie so are in no memory: only the checks are called
};

std::vector<std::string_view> allNames() {
  return {oracle::conversionNames().begin(), oracle::conversionNames().end()};
}

std::vector<std::string_view> namesWith(std::string_view front, bool with = true) {
  std::vector<std::string_view> names = allNames();
  std::erase_if(names, [&](std::string_view name) { return name.starts_with(front) != with; });
  return names;
}

oracle::CallFacts sized(int width, int height) {
  return {.nulls = {}, .width = width, .height = height};
}

std::vector<Example> examples() {
  const std::vector<std::string_view> yuvFromBgr = {"BGR555ToYUV420_16u8u_C3P3R",
                                                    "BGR565ToYUV420_16u8u_C3P3R"};
  const std::vector<std::string_view> from420 = {
      "BGR555ToYCbCr420_16u8u_C3P3R", "BGR565ToYCbCr420_16u8u_C3P3R",
      "BGR555ToYCrCb420_16u8u_C3P3R", "BGR565ToYCrCb420_16u8u_C3P3R"};
  const std::vector<std::string_view> to422 = {
      "BGR555ToYCbCr422_16u8u_C3C2R", "BGR565ToYCbCr422_16u8u_C3C2R",
      "BGR555ToYCbCr422_16u8u_C3P3R", "BGR565ToYCbCr422_16u8u_C3P3R"};
  const std::vector<std::string_view> to411 = {"BGR555ToYCbCr411_16u8u_C3P3R",
                                               "BGR565ToYCbCr411_16u8u_C3P3R"};
  const std::vector<std::string_view> twist = {"ColorTwist32f_8s_C3R", "ColorTwist32f_8s_AC4R",
                                               "ColorTwist32f_8s_P3R"};
  const std::vector<std::string_view> twistInPlace = {
      "ColorTwist32f_8s_C3IR", "ColorTwist32f_8s_AC4IR", "ColorTwist32f_8s_IP3R"};
  return {
      {"good arguments pass", allNames(), {}, 0},
      {"everything bad at once is a null pointer",
       allNames(),
       {.nulls = {Argument::Src, Argument::Dst, Argument::SrcDst, Argument::Twist},
        .width = 0,
        .height = 0},
       -8},
      {"only the twist looks at pitches",
       namesWith("ColorTwist", false),
       {.nulls = {}, .srcStep = -3, .dstStep = 0, .srcDstStep = 0},
       0,
       true},

      {"sizes come before planes in decoders",
       {"YCbCr420ToBGR565_8u16u_P3C3R", "YUV420ToRGB555Dither_8u16u_P3C3R"},
       {.nulls = {Argument::SrcPlanes}, .height = 0},
       -6},
      {"planes come before sizes in 4:1:1",
       {"YCbCr411ToBGR555_8u16u_P3C3R", "YCbCr411ToBGR565_8u16u_P3C3R"},
       {.nulls = {Argument::SrcPlanes}, .height = 0},
       -8},
      {"planes come before sizes in encoders",
       {"BGR565ToYCbCr420_16u8u_C3P3R", "BGR555ToYUV420_16u8u_C3P3R", "BGR565ToYUV420_16u8u_C3P3R"},
       {.nulls = {Argument::DstPlanes}, .width = 0, .height = 0},
       -8},
      {"sizes come before planes from RGB565",
       {"RGB565ToYUV420_16u8u_C3P3R", "RGB565ToYUV422_16u8u_C3P3R"},
       {.nulls = {Argument::DstPlanes}, .width = 0, .height = 0},
       -6},

      {"decoders take one pixel", namesWith("YCbCr420To"), sized(1, 1), 0},
      {"decoders of YUV take one pixel", namesWith("YUV420To"), sized(1, 1), 0},
      {"4:1:1 takes four columns", namesWith("YCbCr411To"), sized(4, 1), 0},
      {"4:1:1 rejects three", namesWith("YCbCr411To"), sized(3, 1), -6},
      {"4:1:1 warns of six", namesWith("YCbCr411To"), sized(6, 1), 35},
      {"encoders to 4:1:1 take four columns", to411, sized(4, 1), 0},
      {"encoders to 4:1:1 reject three", to411, sized(3, 1), -6},
      {"encoders to 4:1:1 warn of six", to411, sized(6, 1), 35},
      {"encoders to 4:2:0 take odd sizes", from420, sized(3, 3), 0},
      {"encoders to 4:2:0 reject one column", from420, sized(1, 8), -6},
      {"encoders to 4:2:0 reject one row", from420, sized(8, 1), -6},
      {"encoders to 4:2:2 take one row", to422, sized(2, 1), 0},
      {"encoders to 4:2:2 take odd widths", to422, sized(3, 1), 0},
      {"encoders to 4:2:2 reject one column", to422, sized(1, 1), -6},
      {"YUV 4:2:0 from BGR takes even sizes", yuvFromBgr, sized(2, 2), 0},
      {"YUV 4:2:0 from BGR warns of odd widths", yuvFromBgr, sized(3, 2), 35},
      {"YUV 4:2:0 from BGR warns of odd heights", yuvFromBgr, sized(2, 3), 35},
      {"YUV 4:2:0 from BGR rejects one column", yuvFromBgr, sized(1, 2), -6},
      {"YUV 4:2:0 from BGR rejects one row", yuvFromBgr, sized(2, 1), -6},
      {"YUV 4:2:0 from RGB warns of one pixel", {"RGB565ToYUV420_16u8u_C3P3R"}, sized(1, 1), 35},
      {"YUV 4:2:2 takes odd heights", {"RGB565ToYUV422_16u8u_C3P3R"}, sized(2, 3), 0},
      {"YUV 4:2:2 warns of odd widths", {"RGB565ToYUV422_16u8u_C3P3R"}, sized(3, 2), 35},

      {"a pitch of 1 is good enough for the twist",
       namesWith("ColorTwist"),
       {.nulls = {}, .width = 1, .height = 1, .srcStep = 1, .dstStep = 1, .srcDstStep = 1},
       0},
      {"a source pitch of 0 is rejected", twist, {.nulls = {}, .srcStep = 0}, -14},
      {"a negative destination pitch is rejected", twist, {.nulls = {}, .dstStep = -1}, -14},
      {"in place there is one pitch", twistInPlace, {.nulls = {}, .srcStep = 0, .dstStep = 0}, 0},
      {"in place a pitch of 0 is rejected", twistInPlace, {.nulls = {}, .srcDstStep = 0}, -14},
      {"the matrix comes before the pitch", twist, {.nulls = {Argument::Twist}, .srcStep = 0}, -8},
      {"the size comes before the pitch", twist, {.nulls = {}, .width = 0, .srcStep = 0}, -6},
  };
}

FaultyCall faultyCall(const oracle::CallFacts& facts) {
  FaultyCall call;
  for (const Argument argument : facts.nulls) apply({{argument, 0, 0}, 1, 0}, call);
  call.width = facts.width;
  call.height = facts.height;
  call.srcStep = facts.srcStep;
  call.dstStep = facts.dstStep;
  call.srcDstStep = facts.srcDstStep;
  return call;
}

int byOracle(std::string_view name, const oracle::CallFacts& facts) {
  const int rejection = oracle::rejectionOf(name, facts);
  return rejection != 0 ? rejection : oracle::statusAfter(name, facts.width, facts.height);
}

void expectHolds(const Example& e, const std::vector<CheckedCall>& conversions) {
  for (const CheckedCall& conversion : conversions) {
    if (std::ranges::count(e.names, conversion.name) == 0) continue;
    bool untouched = false;
    EXPECT_EQ(conversion.call(faultyCall(e.facts), &untouched), e.status)
        << e.claim << ": " << conversion.name;
    if (e.status < 0) {
      EXPECT_TRUE(untouched) << e.claim << ": " << conversion.name;
    }
  }
}

TEST(Checks, LiteralStatuses) {
  for (const Example& e : examples()) {
    ASSERT_FALSE(e.names.empty()) << e.claim;
    for (const std::string_view name : e.names)
      EXPECT_EQ(byOracle(name, e.facts), e.status) << e.claim << ": oracle " << name;
    expectHolds(e, checkedConversions());
    if (e.convertsNothing) continue;
    for (const int variant : runnableVariants()) {
      const SelectedVariant selected(variant);
      expectHolds(e, exportedConversions());
    }
  }
}

TEST(Checks, EveryConversionChecksAPointerFirstAndBothSizes) {
  for (const std::string_view name : oracle::conversionNames()) {
    const std::vector<oracle::Check> checks = oracle::checksOf(name);
    EXPECT_EQ(checks.front().status, -8) << name;
    EXPECT_EQ(std::ranges::count(checks, -6, &oracle::Check::status), 2) << name;
  }
}

}  // namespace
