#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "machine/dealing_run.h"
#include "machine/reading_run.h"
#include "machine/sorting_run.h"
#include "support/fakes.h"
#include "support/paper_machine.h"

namespace morvane::machine {

/// A window whose operator thinks for a quarter of a second and then goes on where he can.
class PatientView final : public RunView {
 public:
  PatientView(test::TestDesk& desk, test::PaperMachine& paper) : desk_(desk), paper_(paper) {}
  void ShowState() override {}
  void ShowBoard() override {}
  void ShowControls() override {}
  void FocusNext() override {}
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

/// An evening of one run of cards: the first contact, polls, the pedal, a wrong label and a right
/// one where boards have labels, a fault that is continued, the question at the end of the set
/// where there is one, and polls again. One event comes in at a moment that is counted: each time
/// the loop lets events through, and each box.
class Evening {
 public:
  using Event = std::function<void(Evening&)>;

  static constexpr int kNever = -1;

  Evening(RunKind kind, int moment, Event event) : moment_(moment), event_(std::move(event)) {
    test::FillSet(Desk.Prog.Set, 1, 1);
    if (kind == RunKind::kRead) Desk.Prog.Set.At(1) = NumberedBoard(1);
    for (std::size_t place = 0; place < 52; ++place) {
      Paper.Read[place] = static_cast<std::uint8_t>(place / 13 + 1);
    }
    Make(kind);
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
    Run->Open(View);
    Desk.Loop.WaitMs(MachineRun::kFirstContactMs + 150);
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
    return std::count_if(Bridge.Sent.begin(), Bridge.Sent.end(), [](const test::Bytes& frame) {
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
  std::unique_ptr<MachineRun> Run;
  BoardRun* Boards = nullptr;   ///< the same, where it runs boards
  SortingRun* Sorts = nullptr;  ///< or where it sorts
  int Moments = 0;
  bool CameInARun = false;  ///< the event, while cards ran
  std::size_t FramesPlayed = 0;

 private:
  void Make(RunKind kind) {
    if (kind == RunKind::kSort) {
      Run = std::make_unique<SortingRun>(Desk.Prog, TheMachine, Memory);
      Sorts = static_cast<SortingRun*>(Run.get());
      return;
    }
    if (kind == RunKind::kDeal) {
      Run = std::make_unique<DealingRun>(Desk.Prog, TheMachine, Memory);
    } else {
      Run = std::make_unique<ReadingRun>(Desk.Prog, TheMachine, Memory, [] {});
    }
    Boards = static_cast<BoardRun*>(Run.get());
  }

  void Pass() {
    if (Moments++ != moment_) return;
    CameInARun = Run->Running();
    event_(*this);
  }

  int moment_;
  Event event_;
};

}  // namespace morvane::machine
