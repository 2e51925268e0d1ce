#pragma once

#include <functional>
#include <string>

#include "machine/board_run.h"

namespace morvane::machine {

/// Reads packs into the empty boards of the set.
class ReadingRun final : public BoardRun {
 public:
  /// `save` is the Save command, offered behind the last board. `keep` is told of each board that
  /// has run, and returns whether it has shown a box.
  ReadingRun(Program& program, Machine& machine, RunMemory& memory, std::function<void()> save,
             std::function<bool()> keep = {})
      : BoardRun(program, machine, memory, RunKind::kRead, &kReadGate),
        save_(std::move(save)),
        keep_(std::move(keep)) {}

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
  std::function<bool()> keep_;
};

}  // namespace morvane::machine
