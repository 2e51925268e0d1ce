// The camera of the simulated machine, against frames on paper.

#include <gmock/gmock.h>

#include "simulator/camera_talk.h"

namespace morvane::simulator {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

Options Printed(wire::CardIndex index) {
  Options options = Talk::Fast();
  options.Index = index;
  return options;
}

/// The darkest and the brightest pixel.
std::pair<int, int> Levels(const Rows& rows) {
  std::pair levels{255, 0};
  for (const Bytes& row : rows) {
    for (const int pixel : row) {
      levels = {std::min(levels.first, pixel), std::max(levels.second, pixel)};
    }
  }
  return levels;
}

bool IsInk(const Rows& rows, std::size_t x, std::size_t y) { return rows.at(y).at(x) < 120; }

TEST(Camera, APictureIs192LinesOf128PixelsInLongFrames) {
  CameraTalk talk;
  ASSERT_EQ(talk.Ask({10, 0, 0, 0, 7, 8, 9}).size(), 8U) << "filler";
  const Bytes line = talk.Ask({1, 191, 5, 5, 5, 5, 5});
  ASSERT_EQ(line.size(), 136U);
  EXPECT_EQ(line[0], 129);
  EXPECT_EQ(line[1], 191);
  EXPECT_THAT(Bytes(line.begin() + 2, line.begin() + 7), Each(0));
  EXPECT_TRUE(talk.Ask({1, 192}).empty());
  EXPECT_TRUE(talk.Ask({1, 255}).empty());
  EXPECT_TRUE(talk.Ask({2, 192}).empty());
}

TEST(Camera, BeforeTheFirstCaptureTheBufferIsEmpty) {
  CameraTalk talk;
  EXPECT_EQ(Levels(talk.Fetch()), std::pair(0, 0));
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 27}));
}

// A standard rank is 24 by 40, its frame 26 by 42 with its left side at 64 - 25/4 = 58 and its top
// in 20; the suit of 22 by 28 stands 8 rows below, in its middle.
TEST(Camera, AtItsIdealPositionTheRanksFrameStandsAtColumn64LessAQuarterAndRow20) {
  CameraTalk talk;
  EXPECT_THAT(Shapes(talk.Captured()), ElementsAre(Bounds{59, 82, 21, 60}, Bounds{60, 81, 69, 96}));
}

// 40 by 70: 64 - 41/4 = 54, and its middle suit of 36 by 54.
TEST(Camera, AJumboIndexIsLarger) {
  CameraTalk talk(Printed(wire::CardIndex::Jumbo));
  EXPECT_THAT(Shapes(talk.Captured(1)),
              ElementsAre(Bounds{55, 94, 21, 90}, Bounds{57, 92, 99, 152}));
}

// 16 by 24: 64 - 17/4 = 60, and 14 by 20.
TEST(Camera, ASmallIndexIsSmaller) {
  CameraTalk talk(Printed(wire::CardIndex::Small));
  EXPECT_THAT(Shapes(talk.Captured(2)),
              ElementsAre(Bounds{61, 76, 21, 44}, Bounds{62, 75, 53, 72}));
}

TEST(Camera, InkIsAbout40AndPaperAbout220) {
  CameraTalk talk;
  const Rows rows = talk.Captured();
  for (const Bytes& row : rows) {
    for (const int pixel : row) {
      EXPECT_TRUE((pixel >= 36 && pixel <= 44) || (pixel >= 216 && pixel <= 224)) << pixel;
    }
  }
  EXPECT_EQ(Levels(rows), std::pair(36, 224)) << "the noise reaches its ends";
}

TEST(Camera, TheSameSeedHasTheSameNoiseAndEachPictureItsOwn) {
  CameraTalk talk;
  const Rows first = talk.Captured();
  EXPECT_EQ(CameraTalk().Captured(), first);
  EXPECT_NE(CameraTalk(Talk::Fast(2)).Captured(), first);
  EXPECT_EQ(talk.Fetch(), first) << "it stays in the buffer";
  EXPECT_NE(talk.Captured(), first);
}

TEST(Camera, ARecordsPositionShiftsThePicturePixelByPixel) {
  CameraTalk talk;
  talk.WriteBlock({19, 1, 63, 78, 64, 20});
  EXPECT_EQ(Shapes(talk.Captured()).at(0), (Bounds{62, 85, 19, 58}));
}

TEST(Camera, APositionedCaptureTakesItsPlaceFromTheFrame) {
  CameraTalk talk;
  EXPECT_EQ(Shapes(talk.CapturedAt(50, 110)).at(0), (Bounds{49, 72, 51, 90}));
  EXPECT_EQ(Shapes(talk.Captured()).at(0), (Bounds{59, 82, 21, 60})) << "nothing was stored";
}

TEST(Camera, TheIdealPositionIsAnOption) {
  Options options = Talk::Fast();
  options.Ideal = CameraPlace{97, 63};
  options.Symbol = PrintSize{30, 78};
  options.Suit = PrintSize{29, 70};
  CameraTalk talk(options);
  // 64 - 31/4 = 57.
  EXPECT_THAT(Shapes(talk.CapturedAt(97, 63)),
              ElementsAre(Bounds{58, 87, 21, 98}, Bounds{58, 86, 107, 176}));
}

TEST(Camera, WhatIsBeyondThePicturesEdgesIsNotSeen) {
  CameraTalk talk;
  EXPECT_EQ(Shapes(talk.CapturedAt(1, 80)).at(0), (Bounds{0, 23, 21, 60})) << "59 to the left";
  EXPECT_THAT(Shapes(talk.CapturedAt(60, 50)),
              ElementsAre(Bounds{59, 82, 0, 30}, Bounds{60, 81, 39, 66}))
      << "30 up";
  EXPECT_EQ(Shapes(talk.CapturedAt(110, 80)).at(0), (Bounds{109, 127, 21, 60}))
      << "50 to the right";
  const auto lowest = Shapes(talk.CapturedAt(60, 200));  // 120 down: the suit begins in row 189
  ASSERT_EQ(lowest.size(), 2U);
  EXPECT_EQ(lowest[0], (Bounds{59, 82, 141, 180}));
  EXPECT_EQ(lowest[1].Top, 189);
  EXPECT_EQ(lowest[1].Bottom, 191);
  EXPECT_TRUE(Shapes(talk.CapturedAt(255, 80)).empty());
}

TEST(Camera, InItsCornersATwoHasInkWhereItsFontHas) {
  Options options = Talk::Fast();
  options.Card = 1;
  CameraTalk talk(options);
  const Rows rows = talk.Captured();
  EXPECT_FALSE(IsInk(rows, 59, 21)) << "round";
  EXPECT_TRUE(IsInk(rows, 70, 21));
  EXPECT_TRUE(IsInk(rows, 59, 60)) << "a foot from side to side";
  EXPECT_TRUE(IsInk(rows, 82, 60));
  EXPECT_FALSE(IsInk(rows, 59, 45)) << "open to the left";
}

TEST(Camera, WithoutLedsOrPowerItIsDark) {
  CameraTalk talk;
  for (const std::uint8_t outputs : Bytes{0, 16, 32, 0xFF - 48}) {
    talk.Ask({23, outputs, 0});
    const auto [darkest, brightest] = Levels(talk.Captured());
    EXPECT_GE(darkest, 4);
    EXPECT_LE(brightest, 12) << int{outputs};
  }
  talk.Ask({23, 48, 0});
  EXPECT_EQ(Levels(talk.Captured()).second, 224);
}

TEST(Camera, WithoutACardItSeesTheBareMachine) {
  CameraTalk talk;
  talk.Machine.ShowCard(0);
  EXPECT_EQ(Levels(talk.Captured()), std::pair(146, 154));
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 26}));
}

TEST(Camera, ACaptureTellsTimeFocusAndItsMark) {
  CameraTalk talk;
  // 318 = 013Eh; from 36 to 224 are 188 levels.
  const Bytes reply = talk.Ask({10, 0, 0, 0});
  EXPECT_THAT(Bytes(reply.begin(), reply.begin() + 7), ElementsAre(10, 1, 0x3E, 188, 0, 23, 11));
  talk.Ask({23, 0, 0});
  EXPECT_EQ(talk.Ask({10, 0, 0, 0}).at(3), 8) << "in the dark";
}

TEST(Camera, TheFocusMarkIsAnOptionAndItsFirmwares) {
  Options options = Talk::Fast();
  options.MarksFocus = false;
  const Bytes without = CameraTalk(options).Ask({10, 0, 0, 0});
  EXPECT_THAT(Bytes(without.begin() + 3, without.begin() + 7), ElementsAre(188, 0, 0, 0));
  options = Talk::Fast();
  options.FirmwareMinor = 0x71;
  const Bytes older = CameraTalk(options).Ask({10, 0, 0, 0});
  EXPECT_THAT(Bytes(older.begin() + 3, older.begin() + 7), ElementsAre(0, 0, 0, 0));
  options.FirmwareMinor = 0x72;
  EXPECT_EQ(CameraTalk(options).Ask({10, 0, 0, 0}).at(5), 23);
}

TEST(Camera, ACaptureNeedsTheRecordOfItsIndex) {
  Options options = Talk::Fast();
  options.FirmwareMinor = 0x65;
  EXPECT_TRUE(CameraTalk(options).Ask({10, 2, 0, 0}).empty());
  EXPECT_EQ(CameraTalk(options).Ask({10, 1, 0, 0}).size(), 8U);
  options.Hardware = 0x77;
  EXPECT_TRUE(CameraTalk(options).Ask({10, 1, 0, 0}).empty());
  EXPECT_TRUE(CameraTalk().Ask({10, 3, 0, 0}).empty()) << "there is no fourth";
}

TEST(Camera, PositionsOfTheirOwnBeginWith280) {
  Options options = Talk::Fast();
  options.FirmwareMinor = 0x7F;
  CameraTalk older(options);
  EXPECT_TRUE(older.Ask({10, 0, 0, 23, 60, 80}).empty());
  EXPECT_TRUE(older.Tried(60, 80).empty());
  options.FirmwareMinor = 0x80;
  CameraTalk talk(options);
  EXPECT_EQ(talk.Ask({10, 0, 0, 23, 60, 80}).size(), 8U);
  EXPECT_EQ(talk.Tried(60, 80), (Bytes{10, 1, 0}));
}

TEST(Camera, ACaptureThatCanBeNoneIsNotAnswered) {
  CameraTalk talk;
  EXPECT_TRUE(talk.Ask({10, 0, 1, 0}).empty());
  EXPECT_TRUE(talk.Ask({10, 0, 0, 24, 60, 80}).empty());
  EXPECT_TRUE(talk.Ask({10, 0, 1, 23, 60, 80}).empty());
  EXPECT_EQ(Levels(talk.Fetch()), std::pair(0, 0));
}

TEST(Camera, AFedCardStandsBeforeIt) {
  CameraTalk talk;
  EXPECT_EQ(talk.Machine.CardShown(), 9) << "the Ten of Spades at first";
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{38}));
  const std::uint64_t before = talk.Machine.Changed();
  talk.Ask({23, 48, 1});
  talk.Receive();
  EXPECT_EQ(talk.Machine.CardShown(), 38);
  EXPECT_NE(talk.Machine.Changed(), before);
  talk.Captured();
  EXPECT_EQ(talk.Recognised(), (Bytes{13, 3, 0})) << "the King of Diamonds";
}

TEST(Camera, NumbersThatAreNoCardsChangeNothing) {
  CameraTalk talk;
  talk.Machine.ShowCard(56);
  talk.Machine.ShowCard(-1);
  EXPECT_EQ(talk.Machine.CardShown(), 9);
}

TEST(Camera, APowerCycleEmptiesTheBufferAndLeavesTheCard) {
  CameraTalk talk;
  talk.Captured();
  talk.Recognised();
  talk.Machine.ShowCard(1);
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  EXPECT_EQ(Levels(talk.Fetch()), std::pair(0, 0));
  EXPECT_EQ(talk.Ask({15}).at(4), 0);
  EXPECT_EQ(talk.Machine.CardShown(), 1);
}

TEST(Camera, WithoutFirmwareNoneOfItsFramesIsAnswered) {
  Options options = Talk::Fast();
  options.BootMajor = options.BootMinor = 0;
  Talk talk(options);
  for (const std::uint8_t code : Bytes{1, 2, 10, 15, 16, 21, 34, 37}) {
    EXPECT_TRUE(talk.Ask({code}).empty()) << int{code};
  }
}

}  // namespace
}  // namespace morvane::simulator
