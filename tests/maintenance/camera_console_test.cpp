#include <algorithm>
#include <array>

#include "maintenance/console_desk.h"
#include "maintenance/setup_search.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using ::testing::Contains;
using ::testing::IsEmpty;

/// The console at a machine with a camera, whose lights are on.
class Camera : public ConsoleDesk {
 protected:
  void StartLit(const std::string& options = "") {
    Start(options);
    console->Console().Outputs = 0x30;
    Poll();
    bridge.Sent.clear();
  }
  void AutoSetup(std::deque<int> answers) {
    desk.Ui.Answers = std::move(answers);
    console->AutoSetup_command();
  }
  [[nodiscard]] wire::PositionBlock Stored(wire::CardIndex index) const {
    return sim->Parameters().Records[static_cast<std::size_t>(index)].Positions;
  }
  /// The frame one pixel outside of all pixels of the label picture that have this class.
  [[nodiscard]] wire::SymbolFrame FrameOf(int label) const {
    int left = 255;
    int top = 255;
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < PixelPlane::kHeight; ++y) {
      for (int x = 0; x < PixelPlane::kWidth; ++x) {
        if (pictures->LabelImage.At(x, y) != label) continue;
        left = std::min(left, x - 1);
        top = std::min(top, y - 1);
        right = std::max(right, x + 1);
        bottom = std::max(bottom, y + 1);
      }
    }
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    return {byte(left), byte(right), byte(top), byte(bottom)};
  }
};

TEST_F(Camera, ACardIsCapturedRecognisedAndItsLabelsFetched) {
  StartLit("card=HQ");
  RecognitionBench& bench = console->Bench();
  bench.Capture();
  EXPECT_NE(bench.Shown().Cap_time, "");
  bench.Showb();
  EXPECT_NEAR(pictures->CardImage.At(0, 0), 220, 4) << "paper";
  bench.Reco();
  EXPECT_EQ(bench.Shown().Verdict.Symbol + bench.Shown().Verdict.Suit, "QH");
  EXPECT_EQ(bench.Shown().Verdict.Reco_error, "OK");
  EXPECT_EQ(bench.Shown().Verdict.Threshold, "46,46");
  bench.Showb();
  EXPECT_EQ(bench.SymbolBox(), FrameOf(2));
  EXPECT_EQ(bench.SuitBox(), FrameOf(3));
  EXPECT_EQ(bench.Shown().Symbol_size_y, "40");
  EXPECT_EQ(bench.Shown().Suit_size_y, "28");
}

TEST_F(Camera, AFedCardIsRecognisedAndHeldAgainstWhatIsExpected) {
  StartLit();
  console->Bench().HoldC = "none of them";
  console->Feed_card();
  Poll(3);
  EXPECT_EQ(console->Bench().Shown().Verdict.Reco_error, "OK");
  EXPECT_TRUE(console->Bench().HoldStop());
  EXPECT_FALSE(console->Bench().RecoOn());
  bridge.Sent.clear();
  console->Bench().Reco();
  EXPECT_THAT(bridge.Sent, IsEmpty()) << "it is dead at the first surprise";
}

// Auto Setup.

struct Found {
  wire::CardIndex Index;
  const char* Name;
  const char* Options;
  wire::PositionBlock Positions;
};

class EachIndex : public Camera, public ::testing::WithParamInterface<Found> {};

/// The frame of a symbol of n pixels is n + 1 high: two thirds of it below row 20 the start point.
INSTANTIATE_TEST_SUITE_P(
    Camera, EachIndex,
    ::testing::Values(
        Found{wire::CardIndex::Standard, "Standard", "ideal=93/71", {93, 71, 66, 20 + 27}},
        Found{wire::CardIndex::Standard, "Standard", "ideal=8/113", {8, 113, 66, 20 + 27}},
        Found{wire::CardIndex::Jumbo, "Large", "index=jumbo,ideal=118/22", {118, 22, 66, 20 + 47}},
        Found{wire::CardIndex::Small,
              "Small",
              "index=small,ideal=200/100",
              {200, 100, 66, 20 + 16}}));

TEST_P(EachIndex, TheSearchReachesTheIdealPositionToTheStep) {
  Start(GetParam().Options);
  console->SelectIndex(static_cast<int>(GetParam().Index));
  const auto before = sim->Parameters();
  AutoSetup({kOk, kYes, kOk});
  EXPECT_EQ(Stored(GetParam().Index), GetParam().Positions);
  const auto& at = GetParam().Positions;
  EXPECT_THAT(desk.LogLines(),
              Contains("   AutoSetup OK for " + std::string(GetParam().Name) + " " +
                       std::to_string(at.PosX) + "," + std::to_string(at.PosY) + "," +
                       std::to_string(at.StartX) + "," + std::to_string(at.StartY)));
  auto after = sim->Parameters();
  after.Records[static_cast<std::size_t>(GetParam().Index)].Positions =
      before.Records[static_cast<std::size_t>(GetParam().Index)].Positions;
  EXPECT_EQ(after, before) << "nothing else has changed";
}

/// A quarter of the symbol may be 12 columns from the start point, 66: seen from 50 on.
TEST_F(Camera, ACardThreeColumnsAwayIsFoundInSixTrials) {
  Start("ideal=60/80");
  AutoSetup({kOk, kNo});
  EXPECT_EQ(SubCodes(0x22), (std::vector<int>{20, 30, 40, 50, 60, 60}));
}

TEST_F(Camera, HighSymbolsAreSeenOnlyUnderRaisedLimitsAndKeepThem) {
  Start("symbol=24x84,suit=22x74,ideal=60/60");
  AutoSetup({kOk, kYes, kOk});
  EXPECT_EQ(Stored(wire::CardIndex::Standard).PosY, 60);
  EXPECT_EQ(Text(Parameter::Sym_y_max), "86");
  EXPECT_EQ(Text(Parameter::Suit_y_max), "76");
  EXPECT_EQ(view.SymY, "Max Symbol Y:86");
  EXPECT_EQ(view.SuitY, "Max Suit Y:76");
}

TEST_F(Camera, AnotherCardNoneOrAMisreadOneIsNotFound) {
  for (const char* options : {"card=HT", "card=S9", "card=none", "misread=S9"}) {
    SCOPED_TRACE(options);
    Start(options);
    const auto before = sim->Parameters();
    AutoSetup({kOk});
    EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg117);
    EXPECT_EQ(sim->Parameters(), before);
  }
}

TEST_F(Camera, TheFinalPictureShowsTheStartPoint) {
  Start("ideal=60/80");
  view.OnSearch = [&] { EXPECT_FALSE(console->Bench().ButtonsOn()) << "until it is over"; };
  AutoSetup({kOk, kNo});
  EXPECT_EQ(pictures->Picture1.At(66 - 2, 47), kYellow);
  EXPECT_EQ(pictures->Picture1.At(66 - 5, 47), kBlue);
  EXPECT_NEAR(pictures->CardImage.At(0, 0), 220, 4);
  EXPECT_EQ(pictures->ImageMode, PictureStore::Kind::kGrey);
  EXPECT_TRUE(console->Bench().ButtonsOn());
}

// What comes meanwhile.

struct Event {
  const char* Name;
  std::function<void(Maintenance&)> Do;
};

const std::array<Event, 8> kEvents{{
    {"Capture", [](Maintenance& console) { console.Bench().Capture(); }},
    {"Reco", [](Maintenance& console) { console.Bench().Reco(); }},
    {"Showb", [](Maintenance& console) { console.Bench().Showb(); }},
    {"AutoSetup_command", [](Maintenance& console) { console.AutoSetup_command(); }},
    {"Magnify", [](Maintenance& console) { console.Magnify(); }},
    {"Feed_card", [](Maintenance& console) { console.Feed_card(); }},
    {"Get_param", [](Maintenance& console) { console.Get_param(); }},
    {"save_param", [](Maintenance& console) { console.save_param(); }},
}};

TEST_F(Camera, NoButtonDoesAnythingInALineOfAPicture) {
  desk.Prog.ServiceLevel = 2;
  StartLit();
  console->Bench().Capture();
  for (const Event& event : kEvents) {
    SCOPED_TRACE(event.Name);
    bridge.Sent.clear();
    OnFrame = [&](const Bytes&) { event.Do(*console); };
    console->Bench().Showb();
    OnFrame = nullptr;
    EXPECT_EQ(bridge.Sent.size(), 192U);
    EXPECT_EQ(bridge.Overlaps, 0);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    EXPECT_EQ(view.Magnified, 0);
  }
}

TEST_F(Camera, NoButtonDoesAnythingInASearch) {
  desk.Prog.ServiceLevel = 2;
  Start("ideal=60/80");
  AutoSetup({kOk, kNo});
  const std::size_t frames = bridge.Sent.size();
  for (const Event& event : kEvents) {
    SCOPED_TRACE(event.Name);
    Start("ideal=60/80");
    desk.Ui.Boxes.clear();
    OnFrame = [&](const Bytes&) { event.Do(*console); };
    AutoSetup({kOk, kNo});
    OnFrame = nullptr;
    EXPECT_EQ(bridge.Sent.size(), frames);
    EXPECT_EQ(bridge.Overlaps, 0);
    EXPECT_EQ(desk.Ui.Boxes.size(), 2U);
    EXPECT_EQ(view.Magnified, 0);
  }
}

TEST_F(Camera, TheCloseBoxOrAQuitEndsAFetchBehindItsLine) {
  for (const bool quits : {false, true}) {
    StartLit();
    OnFrame = [&](const Bytes& plain) {
      if (plain[0] != 0x01 || plain[1] != 100) return;
      if (quits) {
        desk.Loop.Quit();
      } else {
        console->Exit();
      }
    };
    console->Bench().Showb();
    OnFrame = nullptr;
    EXPECT_EQ(SubCodes(0x01).size(), 101U);
    console->Exit();
    EXPECT_TRUE(console->Closed());
    EXPECT_FALSE(machine.Link.IsOpen());
    EXPECT_FALSE(machine.PollLock);
    desk.Loop.Restart();
  }
}

TEST_F(Camera, ALinkLostAtAnyExchangeIsToldOnceAndTheNextWindowWorks) {
  const std::array<Event, 3> works{kEvents[0], kEvents[1], kEvents[2]};
  const std::array<std::size_t, 3> frames{1, 3, 192};
  for (std::size_t work = 0; work < works.size(); ++work) {
    for (std::size_t at = 1; at <= frames[work]; at += at > 10 ? 13 : 1) {
      SCOPED_TRACE(works[work].Name + std::to_string(at));
      StartLit();
      desk.Ui.Boxes.clear();
      Deaf = [&](const Bytes&) { return bridge.Sent.size() >= at; };
      works[work].Do(*console);
      Deaf = nullptr;
      ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
      EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg055);
      EXPECT_EQ(bridge.Sent.size(), at + 1);
      EXPECT_TRUE(console->Closed());
      EXPECT_FALSE(machine.PollLock);
      StartLit();
      EXPECT_TRUE(console->Controls().MachineKnown);
      EXPECT_TRUE(console->Bench().ButtonsOn());
    }
  }
}

// The zoom.

TEST_F(Camera, TheZoomIsForTechniciansAndWhileItIsOpenNothingPolls) {
  StartLit();
  console->Magnify();
  EXPECT_EQ(view.Magnified, 0);
  desk.Prog.ServiceLevel = 1;
  view.OnMagnify = [&] { desk.Loop.WaitMs(5 * Maintenance::kPollMs); };
  console->Magnify();
  EXPECT_EQ(view.Magnified, 1);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  Poll();
  EXPECT_FALSE(bridge.Sent.empty()) << "again behind it";
}

TEST_F(Camera, TheFirstContactDoesNotSufferFromAClickOnThePicture) {
  desk.Prog.ServiceLevel = 1;
  Open();
  console->Magnify();
  EXPECT_EQ(view.Magnified, 0);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  EXPECT_TRUE(console->Controls().MachineKnown);
}

TEST_F(Camera, PicturesOutliveTheConsole) {
  StartLit();
  console->Bench().Capture();
  console->Bench().Showb();
  const int before = pictures->CardImage.At(64, 40);
  console->Exit();
  Start();
  EXPECT_EQ(pictures->CardImage.At(64, 40), before);
  EXPECT_EQ(console->Bench().SymbolBox(), wire::SymbolFrame{}) << "measurements do not";
}

}  // namespace
}  // namespace morvane::maintenance
