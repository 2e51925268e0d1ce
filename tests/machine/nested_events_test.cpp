#include <memory>

#include "machine/dealing_run.h"
#include "support/fakes.h"
#include "support/paper_machine.h"

namespace morvane::machine {
namespace {

using test::Bytes;

/// A window whose operator thinks for a quarter of a second and then goes on where he can.
class PatientView final : public RunView {
 public:
  PatientView(test::TestDesk& desk, test::PaperMachine& paper) : desk_(desk), paper_(paper) {}
  void ShowState() override {}
  void ShowBoard() override {}
  void ShowControls() override {}
  void FocusDealNext() override {}
  void Close() override { ++Closings; }
  void ShowError(ErrorDialog& dialog) override {
    dialog.Open([] {});
    const auto answer = desk_.Loop.StartTimer(250, [&] {
      paper_.Label = 15;
      dialog.Continue_button.Visible ? dialog.PressContinue() : dialog.PressCancel2();
    });
    desk_.Loop.RunUntil([&] { return dialog.Closed(); });
  }
  int Closings = 0;

 private:
  test::TestDesk& desk_;
  test::PaperMachine& paper_;
};

/// An evening of one board: the first contact, polls, the pedal, a wrong label and a right one, a
/// fault that is continued, the question at the end of the set, and polls again. One event comes in
/// at a moment that is counted: each time the loop lets events through, and each box.
class Evening {
 public:
  using Event = std::function<void(Evening&)>;

  static constexpr int kNever = -1;

  explicit Evening(int moment, Event event) : moment_(moment), event_(std::move(event)) {
    test::FillSet(Desk.Prog.Set, 1, 1);
    Desk.Store.Set(kCheckBoard, "1");
    Desk.Prog.ServiceLevel = 2;
    Desk.Ui.Default = kNo;
    Paper.Label = 23;
    Paper.Codes = {30};
    TheMachine.Link.UsbHandle = 7;
    TheMachine.Link.SetLinkTimeouts(200);
    Desk.Loop.OnPump = [this] { Pass(); };
    Desk.Ui.OnBox = [this] {
      Pass();
      Desk.Loop.WaitMs(150);  // a box lets timers through
    };
  }

  void Play() {
    Run.Open(View);
    Desk.Loop.WaitMs(DealingRun::kFirstContactMs + 150);
    Paper.Events = 8;
    Desk.Loop.WaitMs(350);
    Desk.Loop.OnPump = nullptr;
    FramesPlayed = Bridge.Sent.size();
    Desk.Loop.WaitMs(3000);
  }

  /// The codes sent while the event could come, with or without the polls.
  [[nodiscard]] std::vector<int> Codes(bool polls) const {
    std::vector<int> codes;
    for (std::size_t i = 0; i < FramesPlayed; ++i) {
      const int code = Bridge.Sent[i][0];
      if (polls || code != 0x19) codes.push_back(code);
    }
    return codes;
  }
  [[nodiscard]] std::ptrdiff_t Breaks() const {
    return std::count_if(Bridge.Sent.begin(), Bridge.Sent.end(), [](const Bytes& frame) {
      return frame[0] == 0x19 && (frame[1] & 1) != 0;
    });
  }
  [[nodiscard]] std::size_t SentWithin(int ms) {
    const std::size_t before = Bridge.Sent.size();
    Desk.Loop.WaitMs(ms);
    return Bridge.Sent.size() - before;
  }

  test::TestDesk Desk;
  test::ScriptedBridge Bridge{Desk.Clock};
  test::PaperMachine Paper{Bridge};
  Machine TheMachine{Desk.Random, Bridge};
  RunMemory Memory;
  PatientView View{Desk, Paper};
  DealingRun Run{Desk.Prog, TheMachine, Memory};
  int Moments = 0;
  bool CameInARun = false;  ///< the event, while a board was under way
  std::size_t FramesPlayed = 0;

 private:
  void Pass() {
    if (Moments++ != moment_) return;
    CameInARun = Run.Running();
    event_(*this);
  }

  int moment_;
  Event event_;
};

enum class Effect {
  kNone,   ///< none at all while a board is under way
  kPolls,  ///< only as many more polls as there is time for
  kEnds,   ///< the window goes
  kSome,   ///< as it may be
};

struct NestedEvent {
  const char* Name;
  Effect What;
  Evening::Event Do;
  int MostBreaks = 1;
};

template <typename Value>
Evening::Event Changes(void (RunOptions::*set)(Value), Value value) {
  return [=](Evening& e) { e.Run.Change(set, value); };
}

Evening::Event Walks(BoardWalk::Step step) {
  return [=](Evening& e) { e.Run.Walk(step); };
}

const std::vector<NestedEvent> kEvents{
    {"cmdDeal", Effect::kNone, [](Evening& e) { e.Run.cmdDeal(); }},
    {"Deal_next", Effect::kNone, [](Evening& e) { e.Run.Deal_next(); }},
    {"cmdFirst", Effect::kNone, Walks(BoardWalk::Step::kFirst)},
    {"cmdPrev", Effect::kNone, Walks(BoardWalk::Step::kPrev)},
    {"cmdNext", Effect::kNone, Walks(BoardWalk::Step::kNext)},
    {"cmdLast", Effect::kNone, Walks(BoardWalk::Step::kLast)},
    {"PrevCopy", Effect::kNone, Walks(BoardWalk::Step::kPrevCopy)},
    {"NextCopy", Effect::kNone, Walks(BoardWalk::Step::kNextCopy)},
    {"Disp_boards", Effect::kNone, [](Evening& e) { e.Run.Disp_boards(); }},
    {"Command1", Effect::kNone, [](Evening& e) { e.Run.Command1(); }},
    {"NumberCopies", Effect::kNone, [](Evening& e) { e.Run.SetNumberCopies("2"); }},
    {"Subfrom", Effect::kNone, [](Evening& e) { e.Run.LeaveSubfrom("1"); }},
    {"Subto", Effect::kNone, [](Evening& e) { e.Run.LeaveSubto("1"); }},
    {"National", Effect::kNone, Changes(&RunOptions::SetNational, 5)},
    {"CardType", Effect::kNone, Changes(&RunOptions::SetCardType, 1)},
    {"Threshold", Effect::kNone, Changes(&RunOptions::SetThreshold, 2)},
    {"CardIndex", Effect::kNone, Changes(&RunOptions::SetCardIndex, 2)},
    {"Check_board", Effect::kNone, Changes(&RunOptions::SetCheck_board, false)},
    {"Start_from_box", Effect::kNone, Changes(&RunOptions::SetStart_from_box, false)},
    {"load_request", Effect::kNone,
     [](Evening& e) {
       e.Desk.Prog.Link = {LinkRequest::kLoad, "set.bri"};
     }},
    {"download_request", Effect::kNone,
     [](Evening& e) {
       e.Desk.Prog.Link = {LinkRequest::kDownload, "new.adc"};
     }},
    {"time_in_a_loop_of_its_own", Effect::kPolls, [](Evening& e) { e.Desk.Loop.WaitMs(230); }},
    {"box_reported", Effect::kNone, [](Evening& e) { e.Paper.Events |= 16; }},
    {"slot_active", Effect::kNone, [](Evening& e) { e.Paper.Events |= 4; }},
    {"pedal", Effect::kSome, [](Evening& e) { e.Paper.Events |= 8; }},
    {"cmdBreak", Effect::kSome, [](Evening& e) { e.Run.cmdBreak(); }},
    {"cmdBreak_twice", Effect::kSome,
     [](Evening& e) {
       e.Run.cmdBreak();
       e.Run.cmdBreak();
     }},
    {"restart", Effect::kSome, [](Evening& e) { e.Paper.Restart(); }},
    {"power_off", Effect::kEnds, [](Evening& e) { e.Paper.Powered = false; }},
    {"cmdExit", Effect::kEnds, [](Evening& e) { e.Run.Exit(); }},
    {"cmdExit_twice", Effect::kEnds,
     [](Evening& e) {
       e.Run.Exit();
       e.Run.Exit();
     },
     2},  // who does not wait for the machine leaves it with another one
    {"exit_behind_a_break", Effect::kEnds,
     [](Evening& e) {
       e.Run.cmdBreak();
       e.Run.Exit();
     }},
    {"exit_and_quit", Effect::kEnds,
     [](Evening& e) {
       e.Run.Exit();
       e.Desk.Loop.Quit();
     }},
};

class NestedEvents : public ::testing::TestWithParam<NestedEvent> {
 protected:
  Evening quiet{Evening::kNever, nullptr};
  void SetUp() override {
    quiet.Play();
    ASSERT_EQ(quiet.Desk.LogLines().back(), "  001 : 1,1 64,2,1 0,0,0,0 30 OK");
    ASSERT_GT(quiet.Moments, 40);
  }

  void ExpectInOrder(Evening& evening) {
    EXPECT_EQ(evening.Bridge.Overlaps, 0);
    EXPECT_EQ(evening.Bridge.Malformed, 0);
    EXPECT_LE(evening.Breaks(), GetParam().MostBreaks);
    EXPECT_FALSE(evening.Run.Running());
    EXPECT_EQ(evening.View.Closings, evening.Run.Closed() ? 1 : 0);
    const auto& calls = evening.Bridge.Calls;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Close"), evening.Run.Closed() ? 1 : 0);
    // Alive, or at rest for good.
    EXPECT_EQ(evening.SentWithin(300), evening.Run.Closed() ? 0U : 3U);
  }

  void ExpectEffect(Evening& evening) {
    const Effect what = GetParam().What;
    if (what == Effect::kEnds) {
      EXPECT_TRUE(evening.Run.Closed());
    } else if (what != Effect::kSome && evening.CameInARun) {
      const bool polls = what == Effect::kNone;
      EXPECT_EQ(evening.Codes(polls), quiet.Codes(polls));
      EXPECT_EQ(evening.Desk.LogLines(), LinesWithBoxes(evening));
    }
  }

  /// Those of the quiet evening; the box of a download request, which waits for the polls behind
  /// the board, adds its own.
  [[nodiscard]] std::vector<std::string> LinesWithBoxes(const Evening& evening) const {
    std::vector<std::string> lines = quiet.Desk.LogLines();
    const auto all = evening.Desk.LogLines();
    if (all.size() == lines.size() + 1 && all.back().find("Download New Firmware") < 6) {
      lines.push_back(all.back());
    }
    return lines;
  }
};

TEST_P(NestedEvents, AtEveryMomentLeaveOneExchangeOnTheWire) {
  int inARun = 0;
  for (int moment = 0; moment < quiet.Moments; ++moment) {
    SCOPED_TRACE("moment " + std::to_string(moment) + " of " + std::to_string(quiet.Moments));
    Evening evening(moment, GetParam().Do);
    evening.Play();
    inARun += evening.CameInARun ? 1 : 0;
    ExpectInOrder(evening);
    ExpectEffect(evening);
    if (HasFailure()) break;
  }
  EXPECT_GT(inARun, 30);
}

INSTANTIATE_TEST_SUITE_P(Every, NestedEvents, ::testing::ValuesIn(kEvents),
                         [](const auto& event) { return std::string(event.param.Name); });

/// The program quits: whoever waits returns, and nobody sends any more.
TEST(NestedQuit, AtEveryMomentEndsTheRunWithAtMostOneBreak) {
  Evening quiet(Evening::kNever, nullptr);
  quiet.Play();
  for (int moment = 0; moment < quiet.Moments; ++moment) {
    SCOPED_TRACE(moment);
    Evening evening(moment, [](Evening& e) { e.Desk.Loop.Quit(); });
    evening.Play();
    EXPECT_EQ(evening.Bridge.Overlaps, 0);
    EXPECT_LE(evening.Breaks(), 1);
    EXPECT_FALSE(evening.Run.Running());
    evening.Run.Exit();  // what its flow does behind the loop
    EXPECT_TRUE(evening.Run.Closed());
    EXPECT_EQ(evening.SentWithin(300), 0U);
  }
}

}  // namespace
}  // namespace morvane::machine
