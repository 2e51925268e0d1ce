#pragma once

#include <optional>

#include "cli/service_lines.h"
#include "maintenance/auto_setup.h"
#include "platform/console/progress_line.h"

namespace morvane::cli {

/// What has come of a search.
struct SetupOutcome {
  std::optional<maintenance::SearchPosition> Found;  ///< and is to be kept
  maintenance::HeightLimits Kept;                    ///< as in `AutoSetup`
};

/// The window `AutoSetup` on the terminal: how far the search has come, and, before the question,
/// what it has found.
class ConsoleAutoSetup final : public maintenance::AutoSetupView {
 public:
  /// `outcome` is filled when the search is over.
  ConsoleAutoSetup(Terminal& terminal, const maintenance::AutoSetup& setup,
                   std::optional<SetupOutcome>& outcome)
      : terminal_(terminal), progress_(terminal), setup_(setup), outcome_(outcome) {}
  ~ConsoleAutoSetup() override;
  ConsoleAutoSetup(const ConsoleAutoSetup&) = delete;
  ConsoleAutoSetup& operator=(const ConsoleAutoSetup&) = delete;

  void ShowSearch() override;
  void ShowPicture() override;

 private:
  void PrintFound();

  Terminal& terminal_;
  ProgressLine progress_;
  const maintenance::AutoSetup& setup_;
  std::optional<SetupOutcome>& outcome_;
  int lines_ = 0;
};

}  // namespace morvane::cli
