#pragma once

#include <functional>
#include <string>

#include "machine/board_run.h"

namespace morvane::machine {

/// Reads packs into the empty boards of the set.
class ReadingRun final : public BoardRun {
 public:
  /// `save` is the Save command, offered behind the last board.
  ReadingRun(Program& program, Machine& machine, RunMemory& memory, std::function<void()> save)
      : BoardRun(program, machine, memory, RunKind::kRead, &kReadGate), save_(std::move(save)) {}

  void cmdClear() override;

 private:
  void OpenParts() override;
  void EnableAtContact() override;
  void FollowPlace() override;
  RunEnd RunOnce() override;
  void Finish(RunEnd end) override;
  [[nodiscard]] std::string RefusalOfBoard() const override;
  void BeforeNext() override;
  void AfterWalk(BoardWalk::Step step) override;
  void AskAtEnd() override;
  [[nodiscard]] std::string MissingCardsText() const override;
  void FollowStatus();
  void TellOfUnknownCards();

  std::function<void()> save_;
};

}  // namespace morvane::machine
