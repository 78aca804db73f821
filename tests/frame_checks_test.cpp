// SPDX-License-Identifier: MIT
// Bad arguments: which status they get, and that the first failing check decides it.
#include <gtest/gtest.h>

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

void expectRefusal(const CheckedCall& conversion, const FaultyCall& call, int status) {
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
      expectRefusal(conversion, call, faults[i].check.status);
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

TEST(Checks, EveryPairOfFaultsInEveryFamily) {
  ASSERT_EQ(checkedConversions().size(), 98u);
  for (const CheckedCall& conversion : checkedConversions())
    expectTheFirstFaultToDecide(conversion);
}

TEST(Checks, EverythingBadAtOnceIsANullPointer) {
  for (const CheckedCall& conversion : checkedConversions()) {
    SCOPED_TRACE(conversion.name);
    FaultyCall call;
    call.nullSrc = call.nullDst = call.nullSrcDst = call.nullTwist = true;
    call.width = call.height = 0;
    expectRefusal(conversion, call, -8);
  }
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

int statusOf(std::string_view name, const FaultyCall& call) {
  for (const CheckedCall& conversion : checkedConversions())
    if (conversion.name == name) {
      bool untouched;
      return conversion.call(call, &untouched);
    }
  ADD_FAILURE() << name;
  return 0;
}

TEST(Checks, SizesComeBeforePlanesInDecodersAndAfterThemInEncoders) {
  FaultyCall call;
  call.nullSrcPlane = call.nullDstPlane = 1;
  call.height = 0;
  EXPECT_EQ(statusOf("YCbCr420ToBGR565_8u16u_P3C3R", call), -6);
  EXPECT_EQ(statusOf("BGR565ToYCbCr420_16u8u_C3P3R", call), -8);
  EXPECT_EQ(statusOf("RGB565ToYUV420_16u8u_C3P3R", call), -6);
}

int statusOfSize(std::string_view name, int width, int height) {
  FaultyCall call;
  call.width = width;
  call.height = height;
  return statusOf(name, call);
}

TEST(Checks, SizesThatAreRefusedAndSizesThatAreWarnedOf) {
  EXPECT_EQ(statusOfSize("BGR565ToYUV420_16u8u_C3P3R", 2, 2), 0);
  EXPECT_EQ(statusOfSize("BGR565ToYUV420_16u8u_C3P3R", 3, 2), 35);
  EXPECT_EQ(statusOfSize("BGR565ToYUV420_16u8u_C3P3R", 1, 2), -6);
  EXPECT_EQ(statusOfSize("RGB565ToYUV420_16u8u_C3P3R", 1, 1), 35);
  EXPECT_EQ(statusOfSize("YCbCr411ToBGR555_8u16u_P3C3R", 4, 1), 0);
  EXPECT_EQ(statusOfSize("YCbCr411ToBGR555_8u16u_P3C3R", 3, 1), -6);
  EXPECT_EQ(statusOfSize("YCbCr411ToBGR555_8u16u_P3C3R", 6, 1), 35);
}

TEST(Checks, APitchOf1IsGoodEnoughForTheTwist) {
  FaultyCall call;
  call.srcStep = call.dstStep = call.srcDstStep = 1;
  call.width = call.height = 1;
  for (const CheckedCall& conversion : checkedConversions())
    if (conversion.name.starts_with("ColorTwist")) {
      EXPECT_EQ(statusOf(conversion.name, call), 0);
    }
}

TEST(Checks, TheTwistsPitchComesLast) {
  FaultyCall call;
  call.srcStep = 0;
  EXPECT_EQ(statusOf("ColorTwist32f_8s_C3R", call), -14);
  call.nullTwist = true;
  EXPECT_EQ(statusOf("ColorTwist32f_8s_C3R", call), -8);
  call.nullTwist = false;
  call.width = 0;
  EXPECT_EQ(statusOf("ColorTwist32f_8s_C3R", call), -6);
}

}  // namespace
