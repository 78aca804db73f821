// SPDX-License-Identifier: MIT
// Holds the distances of rows to known numbers.
#include "tests/oracle/rows.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace oracle {
namespace {

std::int64_t addressOf(const std::uint8_t* byte) {
  return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(byte));
}

std::int64_t distance(const std::uint8_t* from, const std::uint8_t* to) {
  return addressOf(to) - addressOf(from);
}

// An address with room on both sides. Nothing is read there.
std::uint8_t* const kMiddle = reinterpret_cast<std::uint8_t*>(std::uintptr_t{1} << 46);

TEST(OracleRows, WrapKeeps32Bits) {
  EXPECT_EQ(wrap32(0x7FFFFFFF), 2147483647);
  EXPECT_EQ(wrap32(0x80000000), -2147483648LL);
  EXPECT_EQ(wrap32(0xFFFFFFFF), -1);
  EXPECT_EQ(wrap32(0x100000001), 1);
  EXPECT_EQ(wrap32(-2147483649LL), 2147483647);
}

TEST(OracleRows, FullWidthRowsDoNotWrap) {
  EXPECT_EQ(distance(kMiddle, rowAt(kMiddle, 0x40000000, 5)), 0x140000000);
  EXPECT_EQ(distance(kMiddle, rowAt(kMiddle, -0x80000000LL, 3)), -0x180000000);
}

TEST(OracleRows, WrappedRowsWrap) {
  EXPECT_EQ(distance(kMiddle, wrappedRowAt(kMiddle, 0x40000000, 1)), 0x40000000);
  EXPECT_EQ(distance(kMiddle, wrappedRowAt(kMiddle, 0x40000000, 2)), -2147483648LL);
  EXPECT_EQ(distance(kMiddle, wrappedRowAt(kMiddle, 0x40000000, 5)), 0x40000000);
}

TEST(OracleRows, WrappedPixelRowsWrapBeforeTheyAreDoubled) {
  EXPECT_EQ(distance(kMiddle, wrappedPixelRowAt(kMiddle, 0x7FFFFFFE, 2)), 0xFFFFFFFC);
  EXPECT_EQ(distance(kMiddle, wrappedPixelRowAt(kMiddle, 0x7FFFFFFF, 4)), -8);
  EXPECT_EQ(distance(kMiddle, wrappedPixelRowAt(kMiddle, -641, 1)), -642);
}

TEST(OracleRows, EvenStepRoundsDown) {
  EXPECT_EQ(evenStep(641), 640);
  EXPECT_EQ(evenStep(-641), -642);
  EXPECT_EQ(evenStep(21), 20);
  EXPECT_EQ(evenStep(-22), -22);
}

TEST(OracleRows, WordsAreLittleEndianAtAnyAddress) {
  std::uint8_t bytes[5] = {};
  storeWord(bytes + 1, 1, 0x1234);
  EXPECT_EQ(bytes[3], 0x34);
  EXPECT_EQ(bytes[4], 0x12);
  EXPECT_EQ(loadWord(bytes + 1, 1), 0x1234);
}

}  // namespace
}  // namespace oracle
