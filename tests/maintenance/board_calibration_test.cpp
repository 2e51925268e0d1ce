#include "maintenance/board_calibration.h"

#include <optional>

#include "maintenance/paper_board.h"
#include "maintenance/service_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FakeUi;
using test::FramesAre;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

using Sweep = BoardCalibration::Sweep;

constexpr const char* kCaption = "Board Switch Calibration";

struct NotedView final : BoardCalibrationView {
  int Shown = 0;
  std::function<void()> OnShow;
  void ShowCalibration() override {
    ++Shown;
    if (OnShow) OnShow();
  }
};

/// A machine with a problem board in its slot.
class CalibrationDesk : public ServiceDesk {
 protected:
  PaperBoard board;
  NotedView view;
  std::optional<ServiceLink> way;
  std::optional<BoardCalibration> calibration;
  std::optional<std::size_t> silentFrom;  ///< the machine is silent from this frame on

  void SetUp() override {
    RuntimeError error;
    ASSERT_TRUE(desk.Prog.Log.Start(desk.Folder.Path(), error));
    Use(0x90);
    Damage = [this](const Bytes& plain, const Bytes& wire) {
      if (silentFrom && bridge.Sent.size() > *silentFrom) return Bytes{};
      const Bytes reply = board.ReplyTo(plain);
      return reply.empty() ? wire : test::OnTheWire(reply, 21);
    };
  }
  void Run(int answer = kYes) {
    desk.Ui.Answers = {answer};
    desk.Ui.Boxes.clear();
    bridge.Sent.clear();
    way.emplace(desk.Prog, machine, [this] { ++recoveries; });
    calibration.emplace(desk.Prog, *way, [this] { return desk.Loop.Quitting(); });
    calibration->Run(view);
  }
  /// As many steps have been made.
  [[nodiscard]] std::size_t Steps() const { return board.Trials.size(); }
  [[nodiscard]] std::string LastLine() const { return desk.LogLines().back(); }
};

// Trials 255 to 100 going down, then 99 to 131 going up.
TEST_F(CalibrationDesk, TwoFramesAStepDownAndUp) {
  Run();
  ASSERT_THAT(bridge.Sent, SizeIs(2 * (156 + 33)));
  EXPECT_TRUE(FramesAre({bridge.Sent.begin(), bridge.Sent.begin() + 4},
                        {"13 0E 00 00 FF 01 00", "1B 05 00 00 00 00 00", "13 0E 00 00 FE 01 00",
                         "1B 05 00 00 00 00 00"}));
  EXPECT_TRUE(FramesAre({bridge.Sent.begin() + 310, bridge.Sent.begin() + 314},
                        {"13 0E 00 00 64 01 00", "1B 05 00 00 00 00 00", "13 0E 00 00 63 01 00",
                         "1B 05 00 00 00 00 00"}));
  EXPECT_TRUE(FramesAre({bridge.Sent.end() - 2, bridge.Sent.end()},
                        {"13 0E 00 00 83 01 00", "1B 05 00 00 00 00 00"}));
}

TEST_F(CalibrationDesk, TenMillisecondsStandBetweenSettingAndReading) {
  std::vector<std::chrono::milliseconds> at;
  OnFrame = [&](const Bytes&) {
    at.push_back(std::chrono::duration_cast<std::chrono::milliseconds>(desk.Clock.Elapsed()));
  };
  Run();
  ASSERT_THAT(at, SizeIs(378));
  for (std::size_t step = 0; step < at.size(); step += 2) {
    ASSERT_EQ((at[step + 1] - at[step]).count(), 10) << step;
  }
}

// Lost at d the sweep down ends at d - 1: the value has counted on. Int(199 / 10) is 19.
TEST_F(CalibrationDesk, WhatEachBoardComesTo) {
  struct Row {
    int Lost;
    int Seen;
    int SensOn;
    int Last;
    int Recommended;
  };
  for (const Row& row : {Row{19, 22, 20, 20, 0},           // seen at all of them
                         Row{20, 22, 20, 20, 0},           // the same: 20 is not tried
                         Row{21, 22, 20, 23, 0},           // lost at the last
                         Row{22, 30, 21, 31, 19},          // 21 - 2
                         Row{26, 27, 25, 28, 23},          // 25 - 2
                         Row{100, 101, 99, 102, 90},       // 99 - 9
                         Row{101, 120, 100, 121, 90},      // 100 - 10
                         Row{150, 180, 149, 181, 135},     // 149 - 14
                         Row{199, 200, 198, 201, 179},     // 198 - 19
                         Row{200, 220, 199, 221, 180},     // 199 - 19
                         Row{201, 202, 200, 203, 200},     // 200 itself is no problem
                         Row{254, 255, 253, 255, 200},     // never seen again
                         Row{255, 256, 254, 255, 200}}) {  // lost at once
    for (const bool flipPlate : {false, true}) {
      SCOPED_TRACE(std::to_string(row.Lost) + (flipPlate ? " flip plate" : ""));
      board = PaperBoard(row.Seen, row.Lost);
      board.FlipPlate = flipPlate;
      Run();
      EXPECT_EQ(calibration->SensOn(), row.SensOn);
      EXPECT_EQ(calibration->TrialSensitivity(), row.Last);
      EXPECT_EQ(calibration->RecommendedSensitivity(), row.Recommended);
      EXPECT_EQ(LastLine(), "   Board Switch Calibration: " + std::to_string(row.SensOn) + "," +
                                std::to_string(row.Last));
    }
  }
}

TEST_F(CalibrationDesk, ABoardThatIsAlwaysSeenSkipsTheSweepUp) {
  board = PaperBoard(1, 0);
  Run();
  EXPECT_THAT(board.Trials, SizeIs(235)) << "255 to 21";
  EXPECT_EQ(board.Trials.back(), 21);
  EXPECT_EQ(calibration->Label2(), "On: 20");
  EXPECT_EQ(calibration->Label3(), "Off: 20");
  EXPECT_EQ(calibration->Progress(), 100);
}

TEST_F(CalibrationDesk, ABoardLostAtOnceIsTriedAtTheHighestOnce) {
  board = PaperBoard(256, 255);
  Run();
  EXPECT_THAT(board.Trials, ElementsAre(255, 254)) << "the sweep up ends at 255";
  EXPECT_EQ(calibration->Label3(), "Off: 255");
}

// The boxes.

TEST_F(CalibrationDesk, ABoardThatCannotBeSensedIsTold) {
  board = PaperBoard(1, 0);
  Run(kOk);
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{
                                 "      The Board is too transparent or incorrectly fitted     "
                                 "\r\n      \r\n      Board Switch calibration failed     \r\n",
                                 16, kCaption}));
  EXPECT_EQ(LastLine(), "   Board Switch Calibration: 20,20");
}

TEST_F(CalibrationDesk, TheRecommendationIsAskedForByItsNumber) {
  Run();
  EXPECT_THAT(
      desk.Ui.Boxes,
      ElementsAre(FakeUi::Box{"      The Board Switch Sensitivity value of 90 is recommended.      "
                              "\r\n      \r\n      Do you want to update it?     ",
                              68, kCaption}));
}

TEST_F(CalibrationDesk, ABoardWithoutProblemGets200) {
  board = PaperBoard(230, 220);
  Run();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{desk.Prog.Texts.Msg114, 4, kCaption}));
  EXPECT_THAT(desk.Prog.Texts.Msg114, HasSubstr("value 200 is recommended"));
}

TEST_F(CalibrationDesk, ANoKeepsNothingAndIsLoggedAllTheSame) {
  for (const int lost : {100, 220}) {
    board = PaperBoard(230, lost);
    Run(kNo);
    EXPECT_EQ(calibration->RecommendedSensitivity(), 0);
    EXPECT_EQ(LastLine(), "   Board Switch Calibration: " + std::to_string(lost - 1) + ",231");
  }
}

TEST_F(CalibrationDesk, WhatIsRecommendedIsShownWhileTheBoxAsks) {
  int shown = -1;
  view.OnShow = [&] { shown = calibration->RecommendedSensitivity(); };
  int asked = -1;
  desk.Ui.OnBox = [&] { asked = shown; };
  Run(kNo);
  EXPECT_EQ(asked, 90);
}

// What is shown.

TEST_F(CalibrationDesk, TheLabelsAndTheProgressCountOn) {
  struct Look {
    std::string Label1;
    std::string Label2;
    int Progress;
    bool operator==(const Look&) const = default;
  };
  std::vector<Look> looks;
  view.OnShow = [&] {
    looks.push_back({calibration->Label1(), calibration->Label2(), calibration->Progress()});
  };
  Run();
  ASSERT_THAT(looks, SizeIs(156 + 33 + 1));
  EXPECT_EQ(looks[0], (Look{"Check: 254    1", "", 0}));
  EXPECT_EQ(looks[154], (Look{"Check: 100    1", "", 30}));        // 155 / 255 x 50 = 30.4
  EXPECT_EQ(looks[155], (Look{"Check: 99    0", "", 30}));         // 156 / 255 x 50 = 30.6
  EXPECT_EQ(looks[156], (Look{"Check: 100    0", "On: 99", 69}));  // 100 / 255 x 50 + 50
  EXPECT_EQ(looks[188], (Look{"Check: 132    1", "On: 99", 75}));  // 132 / 255 x 50 + 50 = 75.9
  EXPECT_EQ(looks[189], (Look{"Check: 132    1", "On: 99", 100}));
  EXPECT_EQ(calibration->Label3(), "Off: 132");
  EXPECT_TRUE(calibration->Over());
}

TEST_F(CalibrationDesk, EachTrialIsAPointOfItsSweep) {
  board = PaperBoard(253, 252);
  Run();
  EXPECT_THAT(calibration->Points(), ElementsAre(BoardCalibration::Point{255, true, Sweep::kDown},
                                                 BoardCalibration::Point{254, true, Sweep::kDown},
                                                 BoardCalibration::Point{253, true, Sweep::kDown},
                                                 BoardCalibration::Point{252, false, Sweep::kDown},
                                                 BoardCalibration::Point{251, false, Sweep::kUp},
                                                 BoardCalibration::Point{252, false, Sweep::kUp},
                                                 BoardCalibration::Point{253, true, Sweep::kUp}));
}

TEST_F(CalibrationDesk, WhereTheBoardIsLostAndSeenAgain) {
  using Found = std::pair<std::optional<int>, std::optional<int>>;
  for (const auto& [slot, expected] : {std::pair{PaperBoard(131, 100), Found(100, 131)},
                                       {PaperBoard(256, 230), Found(230, {})},
                                       {PaperBoard(1, 0), Found({}, {})}}) {
    board = slot;
    Run();
    EXPECT_EQ(Found(calibration->LostAt(), calibration->SeenAgainAt()), expected);
  }
}

// What ends it early. 156 steps go down, 33 up.

TEST_F(CalibrationDesk, CancelIsHeardBehindEachStepAndSaysNothing) {
  for (const std::size_t step : {1U, 2U, 80U, 155U, 156U, 157U, 158U, 188U, 189U}) {
    SCOPED_TRACE(step);
    board = {};
    view.OnShow = [&] {
      if (Steps() == step) calibration->Cancel();
    };
    Run();
    EXPECT_THAT(board.Trials, SizeIs(step));
    EXPECT_THAT(bridge.Sent, SizeIs(2 * step)) << "nothing puts the switch back: required";
    EXPECT_EQ(calibration->RecommendedSensitivity(), 0);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  }
  EXPECT_THAT(desk.LogLines(), Not(Contains(HasSubstr(kCaption))));
}

TEST_F(CalibrationDesk, CancelAtTheLastStepOfABoardThatIsAlwaysSeenSaysNothing) {
  board = PaperBoard(1, 0);
  view.OnShow = [&] {
    if (Steps() == 235) calibration->Cancel();
  };
  Run();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(CalibrationDesk, CancelDuringTheWaitLetsTheStepEnd) {
  OnFrame = [&](const Bytes&) {
    if (bridge.Sent.size() == 3) desk.Loop.After(5, [&] { calibration->Cancel(); });
  };
  Run();
  EXPECT_THAT(bridge.Sent, SizeIs(4));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(CalibrationDesk, AProgramThatQuitsEndsItAtTheNextStep) {
  for (const std::size_t step : {1U, 156U, 189U}) {
    SCOPED_TRACE(step);
    board = {};
    view.OnShow = [&] {
      if (Steps() == step) desk.Loop.Quit();
    };
    Run();
    EXPECT_THAT(board.Trials, SizeIs(step));
    EXPECT_EQ(calibration->RecommendedSensitivity(), 0);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    desk.Loop.Restart();
  }
}

// A machine that is silent from a frame that sets is missed at the frame that reads.
TEST_F(CalibrationDesk, ALostLinkLeavesAtOnceBehindItsOwnBox) {
  for (const std::size_t frame : {0U, 1U, 2U, 3U, 310U, 311U, 312U, 313U, 376U, 377U}) {
    SCOPED_TRACE(frame);
    board = {};
    silentFrom = frame;
    Run();
    const std::size_t reading = frame | 1U;
    EXPECT_THAT(bridge.Sent, SizeIs(reading + 2)) << "the reading, and its retry";
    EXPECT_EQ(calibration->RecommendedSensitivity(), 0);
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{desk.Prog.Texts.Msg055, kOkCritical,
                                                       "Communication Error"}));
  }
  EXPECT_THAT(desk.LogLines(), Not(Contains(HasSubstr(kCaption))));
  EXPECT_EQ(recoveries, 10);
}

TEST_F(CalibrationDesk, AReplyThatIsBadOnceIsAskedForAgain) {
  const auto good = Damage;
  for (const std::size_t frame : {1U, 155U, 313U}) {
    SCOPED_TRACE(frame);
    board = {};
    Damage = [&](const Bytes& plain, const Bytes& wire) {
      Bytes reply = good(plain, wire);
      if (bridge.Sent.size() == frame + 1) reply.back() ^= 1U;
      return reply;
    };
    Run();
    EXPECT_THAT(bridge.Sent, SizeIs(378 + 1));
    EXPECT_EQ(calibration->RecommendedSensitivity(), 90);
  }
}

TEST_F(CalibrationDesk, AnAnswerToAnotherSelectorIsNone) {
  const auto good = Damage;
  bool other = true;
  Damage = [&](const Bytes& plain, const Bytes& wire) {
    if (plain[0] != 0x1B || !std::exchange(other, false)) return good(plain, wire);
    return test::OnTheWire(test::Short({0x1B, 4, 0}), 21);
  };
  Run();
  EXPECT_EQ(calibration->SensOn(), 99) << "that was no board lost at 255";
}

}  // namespace
}  // namespace morvane::maintenance
