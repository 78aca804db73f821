// SPDX-License-Identifier: MIT
// Clips that y4m2rgb rejects with one line and without a picture.
#include <string>
#include <vector>

#include "clip_bytes.h"
#include "program_run.h"

namespace programs {
namespace {

using Names = std::vector<std::string>;

const std::string kPixel = "FRAME\n\x10\x80\x80";

struct BadClip {
  const char* name;
  std::string bytes;
  const char* reason;
};

const BadClip kBadClips[] = {
    {"Empty", "", "the file is empty"},
    {"Foreign", "RIFF\x10\n\x01 AVI LIST", "not a YUV4MPEG2 clip"},
    {"ForeignWithoutLineEnd", std::string(200000, 'x'), "not a YUV4MPEG2 clip"},
    {"LongerMagic", "YUV4MPEG21 W1 H1 C444\n" + kPixel, "not a YUV4MPEG2 clip"},
    {"CutInMagic", "YUV4", "ends inside its header"},
    {"CutInHeader", "YUV4MPEG2 W1 H1 C4", "ends inside its header"},
    {"EndlessHeader", "YUV4MPEG2 W1 H1 C444 X" + std::string(200000, 'x'), "its line does not end"},
    {"NoWidth", "YUV4MPEG2 H1 C444\n" + kPixel, "does not tell the width"},
    {"NoHeight", "YUV4MPEG2 W1 C444\n" + kPixel, "does not tell the height"},
    {"BareMagic", "YUV4MPEG2\n", "does not tell the width"},
    {"WidthTwice", "YUV4MPEG2 W1 W2 H1 C444\n" + kPixel, "'W' stands in it twice"},
    {"ZeroWidth", "YUV4MPEG2 W0 H1 C444\n" + kPixel, "'0' is not a possible width"},
    {"NegativeHeight", "YUV4MPEG2 W1 H-1 C444\n" + kPixel, "'-1' is not a possible height"},
    {"SignedWidth", "YUV4MPEG2 W+1 H1 C444\n" + kPixel, "'+1' is not a possible width"},
    {"EmptyWidth", "YUV4MPEG2 W H1 C444\n" + kPixel, "'' is not a possible width"},
    {"WordyWidth", "YUV4MPEG2 W1x H1 C444\n" + kPixel, "'1x' is not a possible width"},
    {"HugeWidth", "YUV4MPEG2 W99999999999999999999 H1 C444\n" + kPixel, "not a possible width"},
    {"WidthPastInt", "YUV4MPEG2 W2147483648 H1 C444\n" + kPixel, "not a possible width"},
    {"WidthPastPitch", "YUV4MPEG2 W2147483647 H1 C444\n" + kPixel, "do not fit into the memory"},
    {"AbsurdSize", "YUV4MPEG2 W1000000000 H2147483647 C444\n" + kPixel,
     "do not fit into the memory"},
    {"BadRate", "YUV4MPEG2 W1 H1 F25 C444\n" + kPixel, "'25' is not a possible frame rate"},
    {"BadAspect", "YUV4MPEG2 W1 H1 A1:x C444\n" + kPixel, "'1:x' is not a possible pixel aspect"},
    {"BadInterlacing", "YUV4MPEG2 W1 H1 Izz C444\n" + kPixel, "'zz' is not a possible interlacing"},
    {"CarriageReturn", "YUV4MPEG2 W1 H1 C444\r\n" + kPixel, "'C444?' is unknown"},
    {"ControlCharacters", "YUV4MPEG2 W1 H1 C\x1b[2J\n" + kPixel, "'C?[2J' is unknown"},
    {"EmptyChromaTag", "YUV4MPEG2 W1 H1 C\n" + kPixel, "'C' is unknown"},
    {"UnknownChromaTag", "YUV4MPEG2 W1 H1 C999\n" + kPixel, "'C999' is unknown; readable: C444, "},
    {"CutInSubsampledPlane", "YUV4MPEG2 W3 H3 C420jpeg\nFRAME\n" + std::string(9 + 4 + 3, 'x'),
     "the clip ends inside frame 1"},
    {"TooLargeFor420", "YUV4MPEG2 W32768 H32768 C420jpeg\n" + kPixel,
     "pictures of 32768x32768 pixels are too large for the conversion"},
    {"DeepSamples", "YUV4MPEG2 W1 H1 C444p10\n" + kPixel, "'C444p10' has samples of more than 8"},
    {"DeepMono", "YUV4MPEG2 W1 H1 Cmono16\n" + kPixel, "'Cmono16' has samples of more than 8"},
    {"AlphaPlane", "YUV4MPEG2 W1 H1 C444alpha\n" + kPixel, "'C444alpha' has an alpha plane"},
    {"NoChromaPlanes", "YUV4MPEG2 W1 H1 Cmono\n" + kPixel, "'Cmono' has no chroma planes"},
    {"NoFrames", header(1, 1), "the clip has no frames"},
    {"NoFrameLine", header(1, 1) + "\x10\x80\x80\n", "frame 1 does not begin with a FRAME line"},
    {"LongerFrameWord", header(1, 1) + "FRAMES\n\x10\x80\x80", "does not begin with a FRAME line"},
    {"CutInFrameWord", header(1, 1) + "FRA", "ends inside the FRAME line of frame 1"},
    {"CutInFrameLine", header(1, 1) + "FRAME Ip", "ends inside the FRAME line of frame 1"},
    {"EndlessFrameLine", header(1, 1) + "FRAME " + std::string(200000, 'x'), "does not begin with"},
    {"CutBeforeSamples", header(1, 1) + "FRAME\n", "the clip ends inside frame 1"},
    {"CutInLastPlane", header(1, 1) + "FRAME\n\x10\x80", "the clip ends inside frame 1"},
    {"SizeWithoutSamples", "YUV4MPEG2 W4000 H4000 C444\n" + kPixel, "ends inside frame 1"},
    {"GarbageAfterFrame", header(1, 1) + kPixel + "junk\n", "frame 2 does not begin with"},
    {"CutInSecondFrameLine", header(1, 1) + kPixel + "FRAM", "FRAME line of frame 2"},
};

class DamagedClip : public ProgramTest, public testing::WithParamInterface<BadClip> {};

TEST_P(DamagedClip, IsRefused) {
  store("in.y4m", GetParam().bytes);
  const Outcome outcome = y4m2rgb({"--to", "bgr565", "in.y4m", "out.png"});
  EXPECT_TRUE(failedWith(outcome, 1, "y4m2rgb", GetParam().reason));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_P(DamagedClip, IsRefusedOnStandardInput) {
  const Outcome outcome = y4m2rgb({"--to", "rgb444", "-", "out.png"}, {.input = GetParam().bytes});
  EXPECT_TRUE(failedWith(outcome, 1, "y4m2rgb", GetParam().reason));
  EXPECT_EQ(files(), Names{});
}

INSTANTIATE_TEST_SUITE_P(All, DamagedClip, testing::ValuesIn(kBadClips),
                         [](const auto& parameters) { return parameters.param.name; });

class TruncatedClip : public ProgramTest {};

TEST_F(TruncatedClip, PicturesBeforeTheDamageStay) {
  store("in.y4m", header(1, 1) + kPixel + kPixel + "FRAME\n\x10");
  const Outcome outcome = y4m2rgb({"--to", "bgr565", "in.y4m", "%02d.png"});
  EXPECT_TRUE(failedWith(outcome, 1, "y4m2rgb", "the clip ends inside frame 3"));
  EXPECT_EQ(files(), (Names{"01.png", "02.png", "in.y4m"}));
}

TEST_F(TruncatedClip, EveryLengthIsRefused) {
  const std::string whole = flatClip(2, 3, {81, 90, 240});
  for (size_t length = 0; length < whole.size(); ++length) {
    const Outcome outcome =
        y4m2rgb({"--to", "bgr565", "-", "out.png"}, {.input = whole.substr(0, length)});
    EXPECT_TRUE(failedWith(outcome, 1, "y4m2rgb", "")) << length;
    EXPECT_EQ(files(), Names{}) << length;
  }
}

}  // namespace
}  // namespace programs
