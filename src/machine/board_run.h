#pragma once

#include <string>

#include "machine/machine_run.h"

namespace morvane::machine {

/// A run over the boards of the set, one after the other: the window `DealinProg` without its
/// looks.
class BoardRun : public MachineRun {
 public:
  // The buttons.
  void cmdDeal();
  void Deal_next();
  void Walk(BoardWalk::Step step);
  void Disp_boards();
  virtual void cmdClear() {}  ///< only where boards are read

  // The number boxes, after their filter. The range is checked when the box is left, and before
  // what a key or the machine starts without leaving it.
  void SetNumberCopies(const std::string& text);
  void LeaveSubfrom(const std::string& text);
  void LeaveSubto(const std::string& text);

  // What the window shows.
  [[nodiscard]] const BoardWalk& Place() const { return parts_.Walk; }
  [[nodiscard]] const Board& CurrentBoard() const { return parts_.Prog.Set.Current(); }
  [[nodiscard]] int Left() const override;
  [[nodiscard]] std::string Name() const override;

 protected:
  using MachineRun::MachineRun;

  void OpenParts() override;
  void EnableAtContact() override;
  void EnableAfterRun() override;
  void StartFromMachine() override;
  [[nodiscard]] std::string LogHead() const override;
  void Finish(RunEnd end) override;

  /// Why the current board cannot be started; empty when it can.
  [[nodiscard]] virtual std::string RefusalOfBoard() const = 0;
  /// `Deal_next` is about to move on.
  virtual void BeforeNext() {}
  /// The controls that depend on where the walk stands.
  virtual void FollowPlace();
  /// The walk has gone to another board.
  virtual void AfterWalk(BoardWalk::Step /*step*/) {}
  /// The last board is done: asks what comes now.
  virtual void AskAtEnd() = 0;
  /// The machine has stopped without a fault, but not all cards came through.
  [[nodiscard]] virtual std::string MissingCardsText() const = 0;

  void ShowError(const std::string& text);
  /// What is being typed counts as if its box had been left.
  void TakeTyped();

 private:
  void FinishBoard();
  void TellOfMissingCards();
  void LeaveRangeBox(bool (BoardWalk::*set)(int), const std::string& text);
  [[nodiscard]] std::string RefusalOfTyped() const;
  [[nodiscard]] std::string RangeRefusal(const std::string& which, const std::string& text, int low,
                                         int high, int now) const;
  bool TypedIsTaken();
  void FollowEnd();
  void ForgetCards();
};

}  // namespace morvane::machine
