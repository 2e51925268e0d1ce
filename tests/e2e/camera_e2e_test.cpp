#include <csignal>
#include <filesystem>
#include <map>

#include "e2e/maintain_fixture.h"
#include "support/png_pixels.h"

// The camera's commands of the command line, with the simulated machine as another program at the
// other end of a pseudo-terminal.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class CameraEndToEnd : public MaintainEndToEnd {
 protected:
  [[nodiscard]] std::string File(const std::string& name) const { return folder / name; }
};

// The record is right: the rank's frame has its top in row 20, and its left side in column 64 less
// a quarter of its width of 25.
TEST_F(CameraEndToEnd, APictureIsWhatTheCameraSees) {
  const std::string named = Start();
  const Outcome outcome = Maintain(named, {"picture", "card.png"});
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Err, InProgram());
  const test::PngPixels png(test::Content(File("card.png")));
  EXPECT_TRUE(png.Grey);
  ASSERT_EQ(png.Values.size(), 128U * 192);
  int left = 128;
  int top = 192;
  for (int y = 0; y < 192; ++y) {
    for (int x = 0; x < 128; ++x) {
      EXPECT_NEAR(png.At(x, y), png.At(x, y) < 130 ? 40 : 220, 4) << x << "," << y;
      if (png.At(x, y) >= 130) continue;
      left = std::min(left, x);
      top = std::min(top, y);
    }
  }
  EXPECT_EQ(std::pair(left, top), std::pair(59, 21)) << "the frame stands one pixel outside";
}

TEST_F(CameraEndToEnd, AFileThatIsThereIsReplacedOnlyWithOverwrite) {
  const std::string named = Start();
  test::WriteContent(File("card.png"), "mine");
  const Outcome refused = Yes(named, {"picture", "card.png"});
  EXPECT_EQ(refused.Status, 1);
  EXPECT_THAT(refused.Err, EndsWith("Not replaced.\n"));
  EXPECT_EQ(test::Content(File("card.png")), "mine");
  EXPECT_EQ(CountLines(" Maintenance: "), 0) << "the machine is not asked";
  auto words = On(named, {"picture", "card.png"});
  words.insert(words.begin(), "--overwrite");
  EXPECT_EQ(Process(words, Around()).Finish().Status, 0);
  EXPECT_THAT(test::Content(File("card.png")), StartsWith("\x89PNG"));
}

TEST_F(CameraEndToEnd, AFolderThatTakesNoFileIsToldBeforeTheMachineIsAsked) {
  const std::string named = Start();
  const Outcome outcome = Maintain(named, {"recognise", "--labels", "none/labels.png"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err,
              EndsWith("none/labels.png: No such file or directory. Nothing is written.\n"));
  EXPECT_EQ(CountLines(" Maintenance: "), 0);
}

TEST_F(CameraEndToEnd, AnInterruptLeavesNoPicture) {
  Process picture(On(Start(), {"picture", "card.png"}), Around());
  ASSERT_TRUE(picture.Until([&] { return CountLines(" Maintenance: ") == 1; }));
  picture.Signal(SIGINT);
  const Outcome outcome = picture.Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, InProgram() + "Broken off.\n");
  EXPECT_FALSE(std::filesystem::exists(File("card.png")));
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

// Its sizes are those of symbol= and suit=.
TEST_F(CameraEndToEnd, ARecognisedCardIsShownWithItsMeasurementsAndLabels) {
  const std::string named = Start(",card=HQ,symbol=26x44,suit=20x30,seed=3");
  const Outcome outcome = Maintain(named, {"recognise", "--labels", "labels.png"});
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  EXPECT_THAT(outcome.Out, StartsWith("Symbol: Q\nSuit: H\nThreshold: "));
  EXPECT_THAT(outcome.Out, HasSubstr("\nReco_error: OK\n"));
  EXPECT_THAT(outcome.Out, HasSubstr("\nSymbol_size_x: 26\nSymbol_size_y: 44\n"
                                     "Suit_size_x: 20\nSuit_size_y: 30\n"));
  const test::PngPixels png(test::Content(File("labels.png")));
  ASSERT_EQ(png.Values.size(), 3U * 128 * 192);
  std::map<std::vector<int>, int> colours;
  for (auto at = png.Values.begin(); at != png.Values.end(); at += 3) {
    ++colours[std::vector(at, at + 3)];
  }
  const int rank = colours[{192, 0, 0}];
  const int suit = colours[{0, 192, 255}];
  EXPECT_GT(rank, 26 * 44 / 8);
  EXPECT_LT(rank, 26 * 44);
  EXPECT_GT(suit, 20 * 30 / 8);
  EXPECT_LT(suit, 20 * 30);
  EXPECT_EQ(colours[(std::vector{255, 255, 255})] + colours[(std::vector{0, 0, 0})] + rank + suit,
            128 * 192);
}

TEST_F(CameraEndToEnd, WithoutACardNothingIsRecognisedAndTheStatusSaysSo) {
  const Outcome outcome = Maintain(Start(",card=none"), {"recognise"});
  EXPECT_EQ(outcome.Status, 3);
  EXPECT_THAT(outcome.Out, StartsWith("Symbol:\nSuit:\nThreshold: "));
  EXPECT_THAT(outcome.Out, Not(HasSubstr("Reco_error: OK")));
}

TEST_F(CameraEndToEnd, AutoSetupFindsTheIndexAndTheMachineKeepsItWithoutPower) {
  std::string named = Start(",ideal=93/71");
  EXPECT_EQ(Maintain(named, {"recognise"}).Status, 3) << "it looks elsewhere";
  const Outcome outcome = Yes(named, {"auto-setup"});
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  // The frame of 24 x 40 pixels goes from 20 to 61: 20 + Int(2 x 41 / 3).
  EXPECT_EQ(outcome.Out, "pos_x: 93\npos_y: 71\nstart_x: 66\nstart_y: 47\n");
  EXPECT_EQ(CountLines("   AutoSetup OK for Standard 93,71,66,47"), 1);
  SwitchOff();
  named = Start(",ideal=93/71");
  EXPECT_THAT(Maintain(named, {"parameters"}).Out,
              HasSubstr("\npos_x: 93\npos_y: 71\nstart_x: 66\nstart_y: 47\n"));
  EXPECT_EQ(Maintain(named, {"recognise"}).Status, 0);
}

TEST_F(CameraEndToEnd, AutoSetupWithAnotherCardChangesNothing) {
  const std::string named = Start(",card=HT");
  const std::string before = Maintain(named, {"parameters"}).Out;
  const Outcome outcome = Yes(named, {"auto-setup"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Out, "");
  EXPECT_THAT(outcome.Err, HasSubstr("Please be sure that the 10 of Spades is in the feeder"));
  EXPECT_THAT(outcome.Err, EndsWith("The machine keeps its parameters.\n"));
  EXPECT_EQ(CountLines("   AutoSetup Failed for Standard"), 1);
  EXPECT_EQ(Maintain(named, {"parameters"}).Out, before);
}

TEST_F(CameraEndToEnd, AutoSetupThatIsInterruptedGivesTheMachineItsLimitsBack) {
  const std::string named = Start(",card=HT");
  const std::string before = Maintain(named, {"parameters"}).Out;
  int searches = 0;
  for (const int number : EndSignals()) {
    Process search(YesOn(named, {"auto-setup"}), Around());
    ++searches;
    ASSERT_TRUE(search.Until([&] {
      return CountLines("   Autosetup temporary parameters update: ") == searches;
    })) << search.Err();
    search.Signal(number);
    const Outcome outcome = search.Finish();
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Err, InProgram() + "The machine keeps its parameters.\nBroken off.\n");
    EXPECT_EQ(CountLines("   Autosetup revert parameters: "), searches);
    EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
    EXPECT_EQ(Maintain(named, {"parameters"}).Out, before);
  }
}

}  // namespace
}  // namespace morvane::e2e
