// SPDX-License-Identifier: MIT
// Pictures that png2y4m rejects with one line and without a clip.
#include <string>
#include <vector>

#include "png_bytes.h"
#include "program_run.h"

namespace programs {
namespace {

using Names = std::vector<std::string>;

const std::string kWhole = flatPng(5, 3, {200, 40, 40});
constexpr size_t kSignature = 8;
constexpr size_t kHeader = 12 + 13;  // the chunk with the size

class DamagedPng : public ProgramTest {
 protected:
  // A picture is rejected by name, from a file and from standard input.
  void expectRefusal(const std::string& bytes, const std::string& reason) const {
    store("in.png", bytes);
    EXPECT_TRUE(failedWith(png2y4m({"--via=bgr565", "--chroma=422", "in.png", "out.y4m"}), 1,
                           "png2y4m", "'in.png': " + reason));
    EXPECT_TRUE(
        failedWith(png2y4m({"--via=bgr565", "--chroma=422", "-", "out.y4m"}, {.input = bytes}), 1,
                   "png2y4m", "'standard input': " + reason));
    EXPECT_EQ(files(), Names{"in.png"});
  }
};

TEST_F(DamagedPng, EmptyFile) {
  expectRefusal("", "the file is empty");
}

TEST_F(DamagedPng, ForeignFiles) {
  expectRefusal("YUV4MPEG2 W1 H1 C444\n", "this is not a PNG picture");
  expectRefusal("\xff\xd8\xff\xe0", "this is not a PNG picture");
  expectRefusal("GIF89a" + std::string(100, '\0'), "this is not a PNG picture");
}

TEST_F(DamagedPng, CutInTheSignature) {
  expectRefusal(kWhole.substr(0, 5), "the picture ends inside its signature");
}

TEST_F(DamagedPng, CutInTheColours) {
  expectRefusal(kWhole.substr(0, kSignature + kHeader + 12),
                "the picture is damaged (the file ends too early)");
}

TEST_F(DamagedPng, WithoutItsEnd) {
  expectRefusal(kWhole.substr(0, kWhole.size() - 12), "the picture is damaged (");
}

TEST_F(DamagedPng, ChecksumOfTheColours) {
  std::string bytes = kWhole;
  bytes[kSignature + kHeader + 10] ^= 1;
  expectRefusal(bytes, "the picture is damaged (IDAT: ");
}

TEST_F(DamagedPng, AnotherColourType) {
  std::string bytes = kWhole;
  bytes[kSignature + 8 + 9] = 5;
  expectRefusal(bytes, "the picture is damaged (");
}

// The right checksum for a size that only the header claims: the colours are of 5x3.
TEST_F(DamagedPng, HeaderWithoutTheColours) {
  const std::string tall = flatPng(5, 30, {1, 2, 3});
  expectRefusal(tall.substr(0, kSignature + kHeader) + kWhole.substr(kSignature + kHeader),
                "the picture is damaged (");
}

TEST_F(DamagedPng, AbsurdSizes) {
  std::string bytes = kWhole;
  bytes.replace(kSignature + 8, 8, "\x7f\xff\xff\xff\x7f\xff\xff\xff");
  bytes.replace(kSignature + 8 + 13, 4, "\x9b\xab\x9c\x31");
  store("vast.png", bytes);
  bytes.replace(kSignature + 8, 8, std::string("\x01\x00\x00\x01\x00\x00\x00\x01", 8));
  bytes.replace(kSignature + 8 + 13, 4, "\x4d\xe1\x8a\x5b");
  store("wide.png", bytes);
  EXPECT_TRUE(failedWith(png2y4m({"--via=bgr565", "--chroma=422", "vast.png", "out.y4m"}), 1,
                         "png2y4m", "2147483647x2147483647 pixels do not fit into the memory"));
  EXPECT_TRUE(failedWith(png2y4m({"--via=bgr565", "--chroma=422", "wide.png", "out.y4m"}), 1,
                         "png2y4m", "rows of more than 16777216 pixels are not read"));
  EXPECT_EQ(files(), (Names{"vast.png", "wide.png"}));
}

TEST_F(DamagedPng, EveryLengthIsRefused) {
  for (size_t length = 0; length < kWhole.size(); ++length) {
    const Outcome outcome = png2y4m({"--via=bgr565", "--chroma=411", "-", "out.y4m"},
                                    {.input = kWhole.substr(0, length)});
    EXPECT_TRUE(failedWith(outcome, 1, "png2y4m", "'standard input': ")) << length;
    EXPECT_EQ(files(), Names{}) << length;
  }
}

TEST_F(DamagedPng, EveryDamagedByteIsRefused) {
  for (size_t i = 0; i < kWhole.size(); ++i) {
    std::string bytes = kWhole;
    bytes[i] ^= 0x20;
    const Outcome outcome =
        png2y4m({"--via=bgr565", "--chroma=411", "-", "out.y4m"}, {.input = bytes});
    EXPECT_TRUE(failedWith(outcome, 1, "png2y4m", "'standard input': ")) << i;
    EXPECT_EQ(files(), Names{}) << i;
  }
}

}  // namespace
}  // namespace programs
