#pragma once

#include <optional>
#include <string>

#include "cli/fault_answers.h"
#include "cli/workplace.h"
#include "maintenance/test_deal.h"
#include "platform/console/progress_line.h"

namespace morvane::cli {

/// The window `TestDealForm` on the terminal: how far the deal has come, and a line for what has
/// come of it. With `yes` a fault ends it.
class ConsoleTestDeal final : public maintenance::TestDealView {
 public:
  /// `end` is filled when the window goes.
  ConsoleTestDeal(Workplace& place, const maintenance::TestDeal& deal, bool yes,
                  std::optional<maintenance::TestDeal::End>& end);
  ~ConsoleTestDeal() override;
  ConsoleTestDeal(const ConsoleTestDeal&) = delete;
  ConsoleTestDeal& operator=(const ConsoleTestDeal&) = delete;

  void ShowState() override;
  void ShowError(machine::ErrorDialog& dialog) override;

 private:
  [[nodiscard]] std::string Progress() const;
  void PrintEnd();

  Workplace& place_;
  const maintenance::TestDeal& deal_;
  std::optional<maintenance::TestDeal::End>& end_;
  FaultAnswers faults_;
  ProgressLine progress_;
  bool printed_ = false;
};

}  // namespace morvane::cli
