// SPDX-License-Identifier: MIT
// A call on memory whose every byte is marked with what the call may do with it.
#ifndef TESTS_MEMORY_MARKED_CALL_H_
#define TESTS_MEMORY_MARKED_CALL_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/shapes.h"

// Where the images of a call lie. A plane's pitch is its row and the padding, and a little more for
// each further plane, downwards or upwards.
struct Place {
  int srcPadding, dstPadding;  // bytes
  bool srcUpwards, dstUpwards;
  int address;  // of the first byte, modulo 64
};

inline constexpr int mostPadding = 37;

// A mark that is wrong by one byte, beside which a right kernel looks like a wrong one: it is there
// to be found.
enum class Fault {
  None,
  SourceEndsEarly,  // the last byte of a source plane: the kernel reads one byte too far
  RegionEndsEarly,  // the last byte of a destination plane: the kernel writes one byte too far
  RegionEndsLate,   // the byte after a destination plane: the kernel leaves one byte unwritten
};

struct MarkedCall {
  const Conversion* conversion;
  int variant;
  pxmSize size;
  Place place;
  Fault fault = Fault::None;
  std::size_t faultyPlane = 0;
};

// How many planes of a call can have the fault.
std::size_t planesWithFault(const MarkedCall& call);

// What is wrong with a call, and who says so: the checker, or two calls that differ in nothing but
// the bytes that may not be read. Some checkers end the process instead. No checker follows every
// operation: MemorySanitizer takes a product by a constant to depend on what its low bits depend
// on, and loses the high bits that scalar code keeps of it. There the two calls differ.
enum class Finding { None, Rejected, ByChecker, ByComparison };

// Memory for calls, made once.
class MarkedMemory {
 public:
  // What a call may do with a byte. Load is for bytes that have no part in any result.
  enum class Use : std::uint8_t { Nothing, Load, Read, Write, ReadAndWrite };

  MarkedMemory(int mostWidth, int mostHeight);

  Finding findingOf(const MarkedCall& call);

 private:
  struct Plane {
    std::vector<std::uint8_t> bytes, results;
    std::vector<Use> uses;
    std::size_t first;       // where row offsets count from
    std::size_t end;         // of the bytes that the call may touch
    bool isFollowed = true;  // the checker knows whether results have a value
  };

  static void place(Plane& plane, const std::vector<RowSpan>& rows, Use use, int address);
  static void passFourthBytes(Plane& plane, pxmSize size, int pitch);
  static void fill(Plane& plane, std::uint8_t other);
  static void mark(const Plane& plane);
  static bool marksAreKept(const Plane& plane);
  static bool othersStayed(const Plane& plane, std::uint8_t other);
  static pxmStatus makeCall(const MarkedCall& call, const CallArguments& arguments,
                            std::uint8_t stack);
  void placeAll(const MarkedCall& call, CallArguments& arguments);
  void makeWrong(const MarkedCall& call);

  std::array<Plane, 3> src_, dst_;
  std::vector<Plane*> planes_;  // of the call
};

#endif
