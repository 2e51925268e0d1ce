#pragma once

#include <string>

#include "machine/machine_run.h"

namespace morvane::machine {

/// Sorts a pile of cards over the four pockets; the machine knows by what. No board takes part.
class SortingRun final : public MachineRun {
 public:
  SortingRun(Program& program, Machine& machine, RunMemory& memory)
      : MachineRun(program, machine, memory, RunKind::kSort, &kSortGate) {}

  void cmdSort();
  [[nodiscard]] std::string Name() const override {
    return "Sort " + std::to_string(History().Count() + 1);
  }

 private:
  void EnableAtContact() override { Controls().cmdSort = true; }
  void EnableAfterRun() override { Controls().cmdSort = true; }
  void StartFromMachine() override { cmdSort(); }
  RunEnd RunOnce() override;
  void Finish(RunEnd end) override;
  [[nodiscard]] std::string LogHead() const override { return "Sort: "; }
};

}  // namespace morvane::machine
