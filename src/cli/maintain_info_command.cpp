#include "cli/maintain_info_command.h"

#include <memory>

#include "cli/console_service.h"
#include "cli/service_lines.h"

namespace morvane::cli {
namespace {

/// What the console shows, from its window start and some polls.
class InfoService final : public ConsoleService {
 public:
  InfoService(maintenance::Maintenance& console, Terminal& terminal, bool& done)
      : ConsoleService(console), terminal_(terminal), done_(done) {}

 private:
  static constexpr int kPolls = 10;

  void Known() override {
    if (HasFirmware()) return;
    SayNoFirmware(terminal_);
    Print();
  }
  void Polled() override {
    if (++polls_ == kPolls) Print();
  }
  void Print() {
    terminal_.Out(TextOf(IdentityLines(console_.TheIdentity())) +
                  TextOf(OutputLines(console_.Console().Outputs)) +
                  TextOf(SensorLines(console_.Console().Now())) +
                  TextOf(SelectionLines(console_.Parameters().CardSelection)) +
                  TextOf(ParametersAlone()));
    done_ = true;
    console_.Exit();
  }
  /// The index stands among the selection.
  [[nodiscard]] ServiceLines ParametersAlone() const {
    ServiceLines lines = ParameterLines(console_);
    if (!lines.empty()) lines.erase(lines.begin());
    return lines;
  }

  Terminal& terminal_;
  bool& done_;
  int polls_ = 0;
};

}  // namespace

MaintainInfoOptions ReadMaintainInfoOptions(OptionReader& /*given*/) { return {}; }

ExitStatus MaintainInfo(Job& job, const MaintainInfoOptions& /*options*/) {
  bool done = false;
  Serve(job, std::nullopt, [&](maintenance::Maintenance& console) {
    return std::make_unique<InfoService>(console, job.Place.Screen, done);
  });
  return done ? kDone : kFailed;
}

constinit const Command kMaintainInfoCommand{
    .Name = "maintain info",
    .Summary = "Shows what the machine is, what its sensors say and which parameters it holds.",
    .Prepare = TaskOf<ReadMaintainInfoOptions, MaintainInfo>};

}  // namespace morvane::cli
