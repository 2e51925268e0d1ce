#pragma once

#include <string>

#include "machine/board_run.h"

namespace morvane::machine {

/// Deals the boards of the set, each as often as copies are asked for.
class DealingRun final : public BoardRun {
 public:
  DealingRun(Program& program, Machine& machine, RunMemory& memory)
      : BoardRun(program, machine, memory, RunKind::kDeal, nullptr) {}

 private:
  RunEnd RunOnce() override;
  [[nodiscard]] std::string RefusalOfBoard() const override;
  void AskAtEnd() override;
  [[nodiscard]] std::string MissingCardsText() const override;
};

}  // namespace morvane::machine
