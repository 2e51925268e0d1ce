#include "cli/maintain_auto_setup_command.h"

#include <array>
#include <memory>

#include "cli/console_auto_setup.h"
#include "cli/console_service.h"
#include "maintenance/auto_setup_command.h"
#include "text/box_text.h"

namespace morvane::cli {
namespace {

using maintenance::Maintenance;
using maintenance::ParameterBoxes;

class AutoSetupService final : public ConsoleService {
 public:
  AutoSetupService(Maintenance& console, Workplace& place, bool yes, bool& done)
      : ConsoleService(console), place_(place), yes_(yes), done_(done) {}

  std::unique_ptr<maintenance::AutoSetupView> OpenAutoSetup(
      maintenance::AutoSetup& setup) override {
    return std::make_unique<ConsoleAutoSetup>(place_.Screen, setup, outcome_);
  }

 private:
  void Known() override {
    if (HasFirmware()) {
      const ParameterBoxes before = console_.Boxes();
      if (yes_) AnswerPrompt();
      console_.AutoSetup_command();
      if (!console_.LinkFailed()) done_ = outcome_ ? IsKept(before) : SayNotBegun();
    } else {
      SayNoFirmware(place_.Screen);
    }
    console_.Exit();
  }
  /// Elsewhere Yes does not press OK.
  void AnswerPrompt() {
    const int index = console_.Parameters().CardSelection.CardIndex;
    const std::string& prompt = place_.Prog.Texts.Msg109;
    place_.Operator.AnswerAlways(Fill(prompt, "***", maintenance::CardIndexName(index)), kOk);
  }
  bool SayNotBegun() {
    place_.Screen.Error("Nothing is searched for.\n");
    return false;
  }
  /// What was written has been read back already; what was put back has not.
  bool IsKept(const ParameterBoxes& before) {
    if (outcome_->Found) return console_.Boxes().DiffersFrom(Wanted(before)).empty();
    console_.Get_param();
    if (console_.LinkFailed()) return false;
    const std::string left = console_.Boxes().DiffersFrom(before);
    place_.Screen.Error(left.empty() ? "The machine keeps its parameters.\n"
                                     : "The machine did not get these back: " + left + ".\n");
    return false;
  }
  [[nodiscard]] ParameterBoxes Wanted(const ParameterBoxes& before) const {
    ParameterBoxes wanted = before;
    wanted.ClampThresholds();  // as every write does
    maintenance::PutFound(*outcome_->Found, outcome_->Kept, wanted);
    return wanted;
  }

  Workplace& place_;
  const bool yes_;
  bool& done_;
  std::optional<SetupOutcome> outcome_;  ///< of a search that was begun
};

constexpr std::array kOptions{kIndexOption};

}  // namespace

MaintainAutoSetupOptions ReadMaintainAutoSetupOptions(OptionReader& given) {
  return {.Index = IndexIn(given), .Yes = given.Has("yes")};
}

ExitStatus MaintainAutoSetup(Job& job, const MaintainAutoSetupOptions& options) {
  const int before = job.Place.Operator.BoxesShown();
  bool done = false;
  Serve(job, options.Index, [&](Maintenance& console) {
    return std::make_unique<AutoSetupService>(console, job.Place, options.Yes, done);
  });
  if (!done) TellBreak(job, before);
  return done ? kDone : kFailed;
}

constinit const Command kMaintainAutoSetupCommand{
    .Name = "maintain auto-setup",
    .Options = kOptions,
    .Summary =
        "Finds where the camera has to look, with the 10 of Spades in the feeder, and has the "
        "machine keep it. The exit status is 0 only when the machine holds what was found; "
        "otherwise, and when it is interrupted, it keeps what it held before.",
    .Prepare = TaskOf<ReadMaintainAutoSetupOptions, MaintainAutoSetup>};

}  // namespace morvane::cli
