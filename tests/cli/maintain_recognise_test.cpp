#include <gmock/gmock.h>

#include <filesystem>

#include "cli/camera_desk.h"
#include "support/frame_list.h"
#include "support/png_pixels.h"

// maintain recognise.

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

struct Desk : CameraDesk {
  using CameraDesk::CameraDesk;
  const std::string Labels = Folder / "labels.png";
  ExitStatus Recognise(const MaintainRecogniseOptions& options = {}) {
    return RunOn(Bridge, options);
  }
  [[nodiscard]] std::vector<test::Bytes> Commands() const {
    std::vector<test::Bytes> frames;
    for (const auto& frame : Bridge.Sent) {
      if (frame[0] == 0x0A || frame[0] == 0x15) frames.push_back(frame);
    }
    return frames;
  }
};

// By the frames of the paper camera: the sizes are one less than the plain differences.
constexpr const char* kTenOfSpades =
    "Symbol: 10\n"
    "Suit: S\n"
    "Threshold: 46,0\n"
    "Reco_time: 258\n"
    "Reco_error: OK\n"
    "Symbol_size_x: 39\n"
    "Symbol_size_y: 59\n"
    "Suit_size_x: 39\n"
    "Suit_size_y: 49\n"
    "Reco_param1: 0\n"
    "Reco_param2: 0\n"
    "Cap_time: 1\n";

TEST(MaintainRecognise, ShowsTheVerdictAndTheMeasurements) {
  Desk desk;
  EXPECT_EQ(desk.Recognise(), kDone);
  EXPECT_EQ(desk.Screen.Output, kTenOfSpades);
  EXPECT_EQ(desk.Screen.Errors, "");
  EXPECT_THAT(desk.Sent(0x01), IsEmpty()) << "without --labels no picture is fetched";
}

TEST(MaintainRecognise, TheCardFamilyIsThatOfTheSettings) {
  Desk desk;
  for (const auto& [key, value] :
       {std::pair{kNational, "4"}, {kCardType, "1"}, {kThreshold, "2"}, {kCardIndex, "2"}}) {
    desk.Store.Set(key, value);
  }
  EXPECT_EQ(desk.Recognise(), kDone);
  EXPECT_TRUE(test::FramesAre(desk.Commands(), {"0A 02 00 00 .. .. ..", "15 04 01 02 02 00 00"}));
}

TEST(MaintainRecognise, WhatIsAskedForGoesBeforeTheSettingsAndIsNotStored) {
  Desk desk;
  desk.Store.Set(kNational, "4");
  EXPECT_EQ(desk.Recognise({.Index = 1, .National = 6, .CardType = 1, .Threshold = 2}), kDone);
  EXPECT_TRUE(test::FramesAre(desk.Commands(), {"0A 01 00 00 .. .. ..", "15 06 01 02 01 00 00"}));
  EXPECT_EQ(desk.Store.Get(kNational), "4");
  EXPECT_FALSE(desk.Store.Has(kThreshold));
}

TEST(MaintainRecognise, ACardThatIsNotRecognisedIsDoneButNotWholly) {
  Desk desk;
  desk.Verdict = {0x15, 1, 2, 10, 1, 46, 25};
  EXPECT_EQ(desk.Recognise(), kPartly);
  EXPECT_THAT(desk.Screen.Output,
              StartsWith("Symbol:\nSuit:\nThreshold: 46,0\nReco_time: 258\nReco_error: 25\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nSymbol_size_x: 39\n")) << "to see why";
}

TEST(MaintainRecognise, LabelsAreWrittenInTheColoursOfTheZoom) {
  Desk desk;
  desk.Classes = 4;
  EXPECT_EQ(desk.Recognise({.Labels = desk.Labels}), kDone);
  const test::PngPixels png(test::Content(desk.Labels));
  EXPECT_FALSE(png.Grey);
  ASSERT_EQ(png.Values.size(), 3U * 128 * 192);
  EXPECT_EQ(std::vector(png.Values.begin(), png.Values.begin() + 12),
            (std::vector{255, 255, 255, 0, 0, 0, 192, 0, 0, 0, 192, 255}));
  EXPECT_EQ(desk.Screen.Output, kTenOfSpades);
}

TEST(MaintainRecognise, LabelsOfACardThatIsNotRecognisedAreWrittenToo) {
  Desk desk;
  desk.Verdict.back() = 25;
  EXPECT_EQ(desk.Recognise({.Labels = desk.Labels}), kPartly);
  EXPECT_TRUE(std::filesystem::exists(desk.Labels));
}

TEST(MaintainRecognise, AFileOfLabelsThatIsThereStaysAndTheMachineIsNotAsked) {
  Desk desk;
  test::WriteContent(desk.Labels, "mine");
  EXPECT_EQ(desk.Recognise({.Labels = desk.Labels}), kFailed);
  EXPECT_EQ(test::Content(desk.Labels), "mine");
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Not replaced.\n"));
  EXPECT_THAT(desk.Bridge.Calls, IsEmpty());
}

TEST(MaintainRecognise, ALinkLostAtAnyExchangeIsAFailureWithoutAVerdict) {
  for (const int code : {0x0A, 0x15, 0x0F, 0x10}) {
    Desk desk;
    desk.Deaf = [code](const test::Bytes& plain) { return plain[0] == code; };
    EXPECT_EQ(desk.Recognise(), kFailed);
    EXPECT_EQ(desk.Screen.Output, "");
    EXPECT_EQ(desk.Screen.Errors,
              "Communication Error: Lost Communication with Morvane  -  Maintenance Aborted!\n");
  }
}

TEST(MaintainRecognise, AnInterruptInTheCaptureRecognisesNothing) {
  Desk desk;
  desk.OnFrame = [&](const test::Bytes& plain) {
    if (plain[0] == 0x0A) desk.Loop.Quit();
  };
  EXPECT_EQ(desk.Recognise(), kFailed);
  EXPECT_THAT(desk.Sent(0x15), IsEmpty());
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Screen.Errors, "Broken off.\n");
}

TEST(MaintainRecognise, ALinkLostAtTheLabelsIsAFailureBehindTheVerdict) {
  Desk desk;
  desk.Deaf = [](const test::Bytes& plain) { return plain[0] == 0x01 && plain[1] == 9; };
  EXPECT_EQ(desk.Recognise({.Labels = desk.Labels}), kFailed);
  EXPECT_EQ(desk.Screen.Output, kTenOfSpades);
  EXPECT_FALSE(std::filesystem::exists(desk.Labels));
}

}  // namespace
}  // namespace morvane::cli
