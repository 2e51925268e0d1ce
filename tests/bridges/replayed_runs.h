#pragma once

#include <utility>

#include "bridges/link_session.h"
#include "machine/dealing_run.h"
#include "machine/reading_run.h"
#include "machine/sorting_run.h"

namespace morvane::bridges {

/// What an operator begins a board with.
enum class Start { kButton, kPedal, kBoard };

/// Runs of cards that are played back.
class ReplayedRuns : public LinkSessions {
 protected:
  int boards = 2;
  int pauseMs = 430;  ///< from board to board
  int breakMs = 0;    ///< if not 0, the button is pressed so long behind the first contact
  int hand = kNorth;  ///< of the first card of board 1
  Start starts = Start::kButton;
  bool forgets = false;  ///< as behind a box: what began a run before is acknowledged at its next

  void Deal(LinkSession& at) {
    test::FillSet(at.Desk.Prog.Set, 1, boards);
    at.Desk.Prog.Set.At(1) = test::RoundBoard(1, hand);
    if (!at.Open()) return;
    machine::RunMemory memory;
    machine::DealingRun run(at.Desk.Prog, at.TheMachine(), memory);
    Do(at, run, [&](int board) { board == 1 ? run.cmdDeal() : run.Deal_next(); });
  }
  void Read(LinkSession& at) {
    for (int n = 1; n <= boards; ++n) at.Desk.Prog.Set.At(n) = NumberedBoard(n);
    at.Desk.Prog.Set.FirstBoard = 1;
    at.Desk.Prog.Set.LastBoard = static_cast<std::int16_t>(boards);
    if (!at.Open()) return;
    machine::RunMemory memory;
    machine::ReadingRun run(at.Desk.Prog, at.TheMachine(), memory, [] {});
    Do(at, run, [&](int board) { board == 1 ? run.cmdDeal() : run.Deal_next(); });
  }
  void Sort(LinkSession& at) {
    if (!at.Open()) return;
    machine::RunMemory memory;
    machine::SortingRun run(at.Desk.Prog, at.TheMachine(), memory);
    Do(at, run, [&](int) { run.cmdSort(); });
  }

  void ExpectALogOf(const std::string& words) {
    EXPECT_THAT(first.LogLines(), ::testing::Contains(::testing::HasSubstr(words)));
  }

 private:
  void Do(LinkSession& at, machine::MachineRun& run, const std::function<void(int)>& press) {
    run.Open(at);
    at.Desk.Loop.WaitMs(machine::MachineRun::kFirstContactMs);
    const auto breaks = at.Desk.Loop.StartTimer(breakMs, [&, once = breakMs > 0]() mutable {
      if (std::exchange(once, false)) run.cmdBreak();
    });
    for (int board = 1; board <= boards && !run.Closed(); ++board) {
      at.Desk.Loop.WaitMs(pauseMs);
      if (run.Closed()) return;
      if (starts == Start::kButton) {
        if (forgets) at.TheMachine().ForgetStarts();
        press(board);
      } else {
        StartAtTheMachine(board);
        at.Desk.Loop.WaitMs(2 * machine::MachineRun::kPollMs);
      }
    }
    if (!run.Closed()) run.Exit();
  }
  /// The trace has it.
  void StartAtTheMachine(int board) {
    if (simulated == nullptr) return;
    starts == Start::kPedal ? simulated->PressPedal() : simulated->InsertBoard(board);
  }
};

}  // namespace morvane::bridges
