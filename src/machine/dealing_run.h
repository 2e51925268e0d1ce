#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "machine/run_parts.h"

namespace morvane::machine {

/// A dealing run: the window `DealinProg` without its looks. Opened once; the link must be open.
/// Each public procedure is a control's event. `DealHand` is one long procedure that lets events
/// through after every reply, so any of them may come in the middle of it.
class DealingRun {
 public:
  static constexpr int kFirstContactMs = 2000;
  static constexpr int kPollMs = 100;

  DealingRun(Program& program, Machine& machine, RunMemory& memory);

  void Open(RunView& view);
  /// The close box or `cmdExit`. In the middle of a board it asks the machine to break, and the
  /// window goes when the run has returned.
  void Exit();
  [[nodiscard]] bool Closed() const { return closed_; }

  // The buttons.
  void cmdDeal();
  void Deal_next();
  void cmdBreak();
  void Command1();  ///< asks for the test text, at the highest service level only
  void Walk(BoardWalk::Step step);
  void Disp_boards();

  // The number boxes, after their filter. The range is checked when the box is left, and before
  // what a key or the machine starts without leaving it.
  void SetNumberCopies(const std::string& text);
  void LeaveSubfrom(const std::string& text);
  void LeaveSubto(const std::string& text);

  /// One of the options, by its setter; not while a board is under way.
  template <typename Value>
  void Change(void (RunOptions::*set)(Value), Value value) {
    if (Busy()) return;
    (parts_.Options.*set)(value);
    ShowAll();
  }

  // What the window shows.
  [[nodiscard]] const RunWindowState& Window() const { return parts_.Window; }
  [[nodiscard]] const RunOptions& Options() const { return parts_.Options; }
  [[nodiscard]] const BoardWalk& Place() const { return parts_.Walk; }
  [[nodiscard]] const std::string& TestText() const { return memory_.TestText; }
  [[nodiscard]] const CardRun& Cards() const { return parts_.Run; }
  [[nodiscard]] const Machine& TheMachine() const { return parts_.TheMachine; }
  [[nodiscard]] const Board& CurrentBoard() const { return parts_.Prog.Set.Current(); }
  [[nodiscard]] bool Running() const { return running_; }
  /// How the last board ended; `kNone` before the first and while one is under way.
  enum class Outcome { kNone, kDealt, kStopped, kLinkLost };
  [[nodiscard]] Outcome LastOutcome() const { return outcome_; }

 private:
  void FirstContact();
  void ShowContact();
  void StartPolling();
  void Timer1Tick();
  void StartFromMachine();
  void DealHand();
  void WriteRunLine();
  void FinishBoard();
  void OfferToStartAgain();
  void TellOfMissingCards();
  void ForgetStarts();
  void WindUp();
  void EndRun();
  bool CheckCommLost();
  void LoseLink();
  void RequestBreak();
  void Unload();
  bool Busy();
  void LeaveRangeBox(bool (BoardWalk::*set)(int), const std::string& text);
  void TakeTyped();
  [[nodiscard]] std::string RefusalOfTyped() const;
  bool TypedIsTaken();
  void FollowEnd();
  void ForgetCards();
  void ShowAll();
  [[nodiscard]] RunControls& Controls() { return parts_.Window.Controls; }

  RunParts parts_;
  RunMemory& memory_;
  std::unique_ptr<Timer> Timer1_;
  std::unique_ptr<Timer> Timer3d_;
  std::uint8_t DealRotation_ = 0;
  Outcome outcome_ = Outcome::kNone;
  bool CommLost_ = false;
  bool running_ = false;
  bool closed_ = false;
};

}  // namespace morvane::machine
