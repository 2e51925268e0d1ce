#include "maintenance/calibration_command.h"

#include "maintenance/board_calibration.h"
#include "maintenance/console_desk.h"
#include "maintenance/paper_board.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FakeUi;
using test::FramesAre;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

/// The whole flow of the button, at a machine whose board switch is on paper.
class CalibrationCommandDesk : public ConsoleDesk {
 protected:
  PaperBoard board;

  void StartWith(const std::string& options = "") {
    Damage = nullptr;
    Start(options);
    Damage = [this](const Bytes& plain, const Bytes& wire) {
      const Bytes reply = board.ReplyTo(plain);
      return reply.empty() ? wire : test::OnTheWire(reply, 21);
    };
    bridge.Sent.clear();
  }
  void Press(std::deque<int> answers) {
    desk.Ui.Answers = std::move(answers);
    console->Calibrate_Board_Switch();
  }
  /// The frames that set a trial or write the parameters, by their sixth byte.
  [[nodiscard]] std::vector<Bytes> Writes(int trial) const {
    std::vector<Bytes> writes;
    for (const Bytes& frame : bridge.Sent) {
      if (frame[0] == 0x13 && (frame[1] == 14 && frame[5] == 1) == (trial == 1)) {
        writes.push_back(frame);
      }
    }
    return writes;
  }
  /// What the log says of them; boxes have another head there.
  [[nodiscard]] std::vector<std::string> Outcomes() const {
    std::vector<std::string> lines;
    for (const std::string& line : LinesWith("Board Switch Calibration: ")) {
      if (line.starts_with("   B")) lines.push_back(line);
    }
    return lines;
  }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const FakeUi::Box& box : desk.Ui.Boxes) texts.push_back(box.Text);
    return texts;
  }
};

TEST_F(CalibrationCommandDesk, AnythingButOkEndsItBeforeAFrame) {
  StartWith();
  Press({kCancel});
  EXPECT_THAT(
      desk.Ui.Boxes,
      ElementsAre(FakeUi::Box{"      You have entered Calibrate Board Switch function.      \r\n"
                              "      Please insert the problem board into the machine.    \r\n\r\n"
                              "      Click OK to proceed.     ",
                              1, "Calibrate Board Switch"}));
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_FALSE(machine.PollLock);
}

TEST_F(CalibrationCommandDesk, TheParametersAreReadAnewBeforeTheSweeps) {
  StartWith();
  Type(Parameter::pos_x, "9");
  Press({kOk, kNo});
  ASSERT_THAT(bridge.Sent, SizeIs(6 + 378));
  EXPECT_TRUE(FramesAre({bridge.Sent.begin(), bridge.Sent.begin() + 7},
                        {"11 01 .. .. .. .. ..", "11 02 .. .. .. .. ..", "11 03 .. .. .. .. ..",
                         "11 04 .. .. .. .. ..", "11 09 .. .. .. .. ..", "11 0E .. .. .. .. ..",
                         "13 0E 00 00 FF 01 00"}));
  EXPECT_FALSE(console->Boxes().Edited());
}

TEST_F(CalibrationCommandDesk, AYesWritesTheRecommendationAndReadsItBack) {
  StartWith();
  const auto before = sim->Parameters();
  Press({kOk, kYes, kOk});
  EXPECT_EQ(sim->Parameters().Video.BoardSen, 90);
  EXPECT_EQ(sim->Parameters().Records, before.Records);
  EXPECT_EQ(sim->Parameters().Video.Brightness, before.Video.Brightness);
  EXPECT_EQ(Text(Parameter::Board_Sen), "90");
  EXPECT_THAT(Texts(), ElementsAre(desk.Prog.Texts.Msg125, HasSubstr("value of 90 is"),
                                   desk.Prog.Texts.Msg056));
  ASSERT_THAT(Writes(0), SizeIs(6));
  EXPECT_TRUE(FramesAre({Writes(0)[0]}, {"13 0E 80 80 5A 00 00"}));
  EXPECT_THAT(LinesWith("   Parameters update: 0"), SizeIs(1));
  EXPECT_THAT(LinesWith("   Parameters update: 0")[0], ::testing::EndsWith(",90"));
  EXPECT_FALSE(machine.PollLock);
}

TEST_F(CalibrationCommandDesk, ANoLeavesTheMachineItsParameters) {
  StartWith();
  const auto before = sim->Parameters();
  Press({kOk, kNo});
  EXPECT_EQ(sim->Parameters(), before);
  EXPECT_THAT(Writes(0), IsEmpty());
  EXPECT_EQ(Text(Parameter::Board_Sen), "180");
  EXPECT_THAT(Outcomes(), ElementsAre("   Board Switch Calibration: 99,132"));
  EXPECT_FALSE(console->Boxes().Edited());
}

TEST_F(CalibrationCommandDesk, ABoardThatCannotBeSensedChangesNothing) {
  StartWith();
  board = PaperBoard(1, 0);
  Press({kOk, kOk});
  EXPECT_THAT(Writes(0), IsEmpty());
  EXPECT_EQ(Text(Parameter::Board_Sen), "180");
  EXPECT_THAT(Outcomes(), ElementsAre("   Board Switch Calibration: 20,20"));
}

TEST_F(CalibrationCommandDesk, ACancelTellsTheMachineNothingMore) {
  StartWith();
  view.OnCalibration = [&] {
    if (board.Trials.size() == 20) view.Calibration->Cancel();
  };
  Press({kOk});
  EXPECT_THAT(bridge.Sent, SizeIs(6 + 40));
  EXPECT_THAT(Texts(), ElementsAre(desk.Prog.Texts.Msg125));
  EXPECT_THAT(Outcomes(), IsEmpty());
  EXPECT_FALSE(machine.PollLock);
  Poll();
  EXPECT_FALSE(console->Closed());
}

TEST_F(CalibrationCommandDesk, NothingPollsMeanwhile) {
  StartWith();
  Poll(3);
  bridge.Sent.clear();
  view.OnCalibration = [&] { desk.Loop.WaitMs(2 * Maintenance::kPollMs); };
  Press({kOk, kNo});
  EXPECT_THAT(SubCodes(0x17), IsEmpty());
  EXPECT_THAT(SubCodes(0x1B), Each(5));
  Poll();
  EXPECT_THAT(SubCodes(0x17), SizeIs(1));
}

TEST_F(CalibrationCommandDesk, WhoLeavesMeanwhileIsGoneBehindIt) {
  StartWith();
  bool asked = false;
  view.OnCalibration = [&] {
    if (std::exchange(asked, true)) return;
    console->Exit();
    EXPECT_FALSE(console->Closed());
  };
  Press({kOk, kNo});
  EXPECT_TRUE(console->Closed());
}

TEST_F(CalibrationCommandDesk, TheSimulatedMachinesOwnSwitchComesToTheSame) {
  Start("board-switch=100/131");
  sim->InsertBoard(3);
  Press({kOk, kYes, kOk});
  EXPECT_THAT(Outcomes(), ElementsAre("   Board Switch Calibration: 99,132"));
  EXPECT_EQ(sim->Parameters().Video.BoardSen, 90);
}

TEST_F(CalibrationCommandDesk, AnOlderFirmwareIsToldAndNothingIsSent) {
  StartWith("firmware=2.7F");
  Press({});
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      Calibration requires firmware 2.80 or later. The "
                                      "machine has 2.7F.      ",
                                      kOkCritical, "Calibrate Board Switch"}));
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(CalibrationCommandDesk, WhichFirmwaresCan) {
  for (const auto& [firmware, prompts] :
       {std::pair{"1.99", false}, {"2.7F", false}, {"2.80", true}, {"3.00", true}}) {
    StartWith(std::string("firmware=") + firmware);
    desk.Ui.Boxes.clear();
    Press({kCancel});
    EXPECT_EQ(desk.Ui.Boxes.back().Text == desk.Prog.Texts.Msg125, prompts) << firmware;
  }
}

TEST_F(CalibrationCommandDesk, AMachineWithoutAnOpticalSwitchIsToldAndNothingIsSent) {
  StartWith("hardware=0x3F");
  Press({});
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      The machine has no optical board switch.      ",
                                      kOkCritical, "Calibrate Board Switch"}));
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(CalibrationCommandDesk, BeforeTheMachineIsKnownItDoesNothing) {
  Open();
  Press({kOk});
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(CalibrationCommandDesk, ALinkLostAtAnyExchangeEndsItBehindOneBox) {
  StartWith();
  Press({kOk, kYes, kOk});
  const std::vector<Bytes> frames = bridge.Sent;
  ASSERT_THAT(frames, SizeIs(6 + 378 + 6 + 6));
  for (const std::size_t lost : {0U, 5U, 7U, 200U, 383U, 390U, 395U}) {
    SCOPED_TRACE(lost);
    board = {};
    StartWith();
    desk.Ui.Boxes.clear();
    const auto scripted = Damage;
    Damage = [&, scripted](const Bytes& plain, const Bytes& wire) {
      return bridge.Sent.size() > lost ? Bytes{} : scripted(plain, wire);
    };
    Press({kOk, kYes, kOk});
    EXPECT_TRUE(console->Closed());
    EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg055);
    EXPECT_THAT(Texts(), Not(Contains(desk.Prog.Texts.Msg056)));
    EXPECT_FALSE(machine.PollLock);
  }
}

}  // namespace
}  // namespace morvane::maintenance
