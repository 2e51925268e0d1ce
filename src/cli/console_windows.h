#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "cli/run_request.h"
#include "cli/workplace.h"
#include "shell/flow_windows.h"

namespace morvane::cli {

/// A command has no window to show and opens those of a run on the terminal.
class ConsoleWindows final : public shell::FlowWindows {
 public:
  explicit ConsoleWindows(Workplace& place) : place_(place) {}

  /// What the dialog of board numbers is answered with; without it, or with nothing, the numbers
  /// offered are taken.
  void AnswerFirstBoard(std::optional<std::string> first) {
    firstBoard_ = std::move(first);
    numbersAsked_ = false;
  }
  [[nodiscard]] bool NumbersAsked() const { return numbersAsked_; }

  /// How a run goes from now on, and what can be seen of its machine.
  void RunBy(const RunRequest& request, MachineSide side);
  [[nodiscard]] const RunReport& Report() const { return report_; }

  using Service =
      std::function<std::unique_ptr<maintenance::MaintenanceView>(maintenance::Maintenance&)>;
  /// What looks at the service console from now on.
  void ServeBy(Service service) { service_ = std::move(service); }

  void ShowMainMenu() override {}
  void BringToFront() override {}
  /// A number that is refused is not asked for again: the load ends there.
  void ShowLoadNumber(files::LoadNumber& dialog) override;
  std::unique_ptr<machine::RunView> OpenDealinProg(machine::BoardRun& run) override;
  std::unique_ptr<machine::RunView> OpenSortProg(machine::SortingRun& run) override;
  std::unique_ptr<machine::RunView> OpenPoker(poker::Poker& run) override;
  std::unique_ptr<analysis::DeepFView> OpenDeepF(analysis::DeepF& run) override;
  std::unique_ptr<maintenance::MaintenanceView> OpenMaintenance(
      maintenance::Maintenance& console) override {
    return service_ ? service_(console) : nullptr;
  }

 private:
  Workplace& place_;
  std::optional<std::string> firstBoard_;
  bool numbersAsked_ = false;
  RunRequest request_;
  MachineSide side_;
  RunReport report_;
  Service service_;
};

}  // namespace morvane::cli
