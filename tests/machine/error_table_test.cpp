#include "machine/run_fixture.h"
#include "support/frame_list.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Press = void (*)(ErrorDialog&);

struct Row {
  int First;
  int Last;
  const char* Text;
  int Mode;
};

// The table of faults. Code 0 never opens a dialog; from 241 on the machine is busy.
const std::vector<Row> kTable{{1, 1, "Card did not go to South", 0},
                              {2, 2, "Card did not go to West", 0},
                              {3, 3, "Card did not go to East", 0},
                              {4, 4, "Card did not go to North", 0},
                              {5, 5, "Extra Card in South ", 0},
                              {6, 6, "Extra Card in West", 0},
                              {7, 7, "Extra Card in East", 0},
                              {8, 8, "Extra Card in North", 0},
                              {9, 16, "Card Jam Error", 0},
                              {17, 17, "Card did not go to South", 0},
                              {18, 18, "Card did not go to West", 0},
                              {19, 19, "Card did not go to East", 0},
                              {20, 20, "Card did not go to North", 0},
                              {21, 21, "Extra Card in South", 0},
                              {22, 22, "Extra Card in West", 0},
                              {23, 23, "Extra Card in East", 0},
                              {24, 24, "Extra Card in North", 0},
                              {25, 53, "Card Recognition Error", 1},
                              {54, 54, "Duplicate Card Error", 1},
                              {55, 56, "Card Feeding Error", 1},
                              {57, 57, "Break Dealing", 1},
                              {58, 58, "Board or Board Insert not fitted correctly", 1},
                              {59, 59, "No Top Cover", 1},
                              {60, 60, "Flip Plate open", 1},
                              {61, 61, "Card does not belong to selected National Settings", 0},
                              {62, 62, "Incorrect Card Order", 0},
                              {63, 240, "Undefine Error", 0}};

const Row& RowOf(int code) {
  return *std::find_if(kTable.begin(), kTable.end(),
                       [code](const Row& r) { return code >= r.First && code <= r.Last; });
}

std::string Buttons(const ErrorDialog& dialog) {
  std::string text;
  for (const auto* button : {&dialog.Continue_button, &dialog.Cancel_button, &dialog.Cancel2}) {
    text += (button->Visible ? button->Caption : "-") + "|";
  }
  return text;
}

/// Each test runs a board for every code the machine can stop with.
class ErrorTable : public RunFixture {
 protected:
  static constexpr int kLastError = 240;

  /// Deals the current board; the machine stops with `code` after three polls.
  void StopWith(int code, std::function<void(ErrorDialog&)> answer) {
    paper.Codes = {static_cast<std::uint8_t>(code)};
    view.Answers = {[this, answer](ErrorDialog& dialog) {
      buttons = Buttons(dialog);
      mode = static_cast<int>(dialog.ButtonMode);
      answer(dialog);
    }};
    view.Errors.clear();
    bridge.Sent.clear();
    run.cmdDeal();
  }
  /// The second start frame of the board, if there is one: the run has gone on.
  [[nodiscard]] bool WentOn() const {
    const auto starts = SentOf(0x98);
    return starts.size() == 2 && starts[1][1] == 1;
  }
  [[nodiscard]] std::string Line(const std::string& rest) const {
    return "  001 : 1,0 0,0,0,0 " + rest;
  }
  std::string buttons;
  int mode = -1;
};

TEST_F(ErrorTable, EveryCodeHasItsTextItsModeAndItsButtons) {
  Contact();
  for (int code = 1; code <= kLastError; ++code) {
    StopWith(code, RowOf(code).Mode == 1 ? Cancel : Third);
    const Row& row = RowOf(code);
    EXPECT_THAT(view.Errors,
                ElementsAre(row.Text + std::string("|Error Code: ") + std::to_string(code)));
    EXPECT_EQ(mode, row.Mode) << code;
    EXPECT_EQ(buttons, row.Mode == 1 ? "Continue|Cancel|-|" : "-|-|Cancel|") << code;
  }
}

TEST_F(ErrorTable, EveryCancelEndsTheBoardInTheLogWithItsCodeAndOffersItAgain) {
  Contact();
  for (int code = 1; code <= kLastError; ++code) {
    StopWith(code, RowOf(code).Mode == 1 ? Cancel : Third);
    EXPECT_EQ(LastLine(), Line(std::to_string(code)));
    EXPECT_FALSE(WentOn());
    EXPECT_EQ(SentCodes().back(), 0x1A) << "the probe: " << code;
    EXPECT_EQ(machine.MachineState, Machine::kIdle);
    EXPECT_TRUE(run.Window().Controls.cmdDeal && !run.Window().Controls.Deal_next) << code;
  }
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
}

TEST_F(ErrorTable, EveryContinueGoesOnWithTheBoard) {
  Contact();
  for (int code = 25; code <= 60; ++code) {
    StopWith(code, Continue);
    EXPECT_TRUE(WentOn()) << code;
    EXPECT_EQ(LastLine(), Line(std::to_string(code) + " OK"));
  }
}

TEST_F(ErrorTable, ThePedalContinuesWhereThatIsOfferedAndOtherwiseCancels) {
  Contact();
  for (int code = 1; code <= kLastError; ++code) {
    StopWith(code, [this](ErrorDialog&) { paper.Events = 8; });
    const bool goesOn = code >= 25 && code <= 60;
    EXPECT_EQ(WentOn(), goesOn) << code;
    EXPECT_EQ(LastLine(), Line(std::to_string(code) + (goesOn ? " OK" : "")));
    desk.Loop.WaitMs(200);  // the polls acknowledge the press
    EXPECT_THAT(SentOf(0x98), SizeIs(goesOn ? 2 : 1)) << "a press answers, it starts nothing";
  }
}

TEST_F(ErrorTable, NoDialogForIdleAndForBusy) {
  Contact();
  for (const int code : {0, 241, 242, 254, 255}) {
    view.Answers.clear();
    view.Errors.clear();
    paper.BusyPolls = 4;
    bridge.Sent.clear();
    paper.Damage = [&](int, const Bytes& plain, const Bytes& wire) {
      if (plain[0] != 0x19 || SentOf(0x19).size() != 1) return wire;
      return test::OnTheWire(test::Short({0x19, static_cast<std::uint8_t>(code)}), 21);
    };
    run.cmdDeal();
    EXPECT_THAT(view.Errors, IsEmpty()) << code;
    // 0 is the end of the board; a busy machine is asked until it is idle.
    EXPECT_THAT(SentOf(0x19), SizeIs(code == 0 ? 1 : 4)) << code;
    EXPECT_EQ(LastLine(), Line("OK"));
  }
}

TEST_F(ErrorTable, EachFaultIsHeardOnce) {
  Contact();
  desk.Speaker.Played.clear();
  StopWith(54, Cancel);
  EXPECT_THAT(desk.Speaker.Played, ElementsAre(::testing::EndsWith("/Dealing_Error.wav")));
}

// The answers.

struct Answer {
  const char* Name;
  int Code;  ///< of the machine; 0 = a wrong board
  Press Pressed;
  DialogAnswer Result;
  const char* LogEnd;  ///< behind the settings
};

void Pedal(ErrorDialog& /*dialog*/) {}  // the machine reports it

const std::vector<Answer> kAnswers{
    {"Continue", 57, Continue, kGoOn, "0,0,0,0 57 OK"},
    {"Cancel", 57, Cancel, kStop, "0,0,0,0 57"},
    {"the pedal", 57, Pedal, kGoOn, "0,0,0,0 57 OK"},
    {"the only button", 1, Third, kStop, "0,0,0,0 1"},
    {"the pedal beside the only button", 1, Pedal, kStop, "0,0,0,0 1"},
    {"Try again", 0, Continue, kGoOn, "64,2,1 0,0,0,0 OK"},
    {"Cancel of a wrong board", 0, Cancel, kStop, "64,2,0 "},
    {"Deal to the current board", 0, Third, kDealAnyway, "64,2,2 0,0,0,0 OK"},
    {"the pedal at a wrong board", 0, Pedal, kDealAnyway, "64,2,2 0,0,0,0 OK"}};

TEST_F(ErrorTable, EachAnswerHasItsResultAndWhatFollows) {
  Contact();
  for (const Answer& answer : kAnswers) {
    SCOPED_TRACE(answer.Name);
    DialogAnswer result{};
    run.Change(&RunOptions::SetCheck_board, answer.Code == 0);
    paper.Label = 23;  // of board 2
    paper.Codes.clear();
    if (answer.Code != 0) paper.Codes = {static_cast<std::uint8_t>(answer.Code)};
    view.Answers = {[&](ErrorDialog& dialog) {
      paper.Label = 15;  // the right one for who tries again
      if (answer.Pressed == Pedal) paper.Events = 8;
      answer.Pressed(dialog);
      desk.Loop.RunUntil([&] { return dialog.Closed(); });
      result = dialog.DialogResult;
    }};
    run.cmdDeal();
    EXPECT_EQ(result, answer.Result);
    EXPECT_EQ(LastLine(),
              std::string("  001 : 1,") + (answer.Code == 0 ? "1 " : "0 ") + answer.LogEnd);
    desk.Loop.WaitMs(200);
  }
}

// A link lost while it asks.

constexpr const char* kDialogWords =
    "            Lost Communication with Dealer  -  Dealing Aborted             ";
constexpr const char* kRunWords =
    "      Lost Communication with Morvane  -  Dealing Aborted!      ";

TEST_F(ErrorTable, ALinkLostMeanwhileIsToldByTheDialogAndThenByTheRunInEveryMode) {
  for (const int code : {57, 1, 0}) {  // go on or stop, single, wrong board
    SCOPED_TRACE(code);
    RunMemory freshMemory;
    RecordingView freshView(desk);
    desk.Store.Set(kCheckBoard, code == 0 ? "1" : "0");
    DealingRun fresh(desk.Prog, machine, freshMemory);
    machine.Link.UsbHandle = 7;
    paper.Powered = true;
    paper.Label = 23;
    paper.Codes = {static_cast<std::uint8_t>(code)};
    DialogAnswer result{kGoOn};
    freshView.Answers = {[&](ErrorDialog& dialog) {
      paper.Powered = false;
      desk.Loop.RunUntil([&] { return dialog.Closed(); });
      result = dialog.DialogResult;
    }};
    desk.Ui.Boxes.clear();
    fresh.Open(freshView);
    desk.Loop.WaitMs(DealingRun::kFirstContactMs);
    fresh.cmdDeal();
    desk.Loop.WaitMs(200);  // behind a wrong board it is the next poll that tells
    ASSERT_THAT(desk.Ui.Boxes, SizeIs(2));
    EXPECT_EQ(desk.Ui.Boxes[0].Text, kDialogWords);
    EXPECT_EQ(desk.Ui.Boxes[0].Flags, 0) << "a plain box";
    EXPECT_EQ(desk.Ui.Boxes[1].Text, kRunWords);
    EXPECT_EQ(desk.Ui.Boxes[1].Title, "Dealing Error");
    EXPECT_EQ(result, kStop);
    EXPECT_TRUE(fresh.Closed());
    EXPECT_THAT(bridge.Calls, ::testing::Not(::testing::Contains("WriteLatch 1 0")))
        << "the machine does not answer";
  }
}

}  // namespace
}  // namespace morvane::machine
