#include "cli/maintain_watch_command.h"

#include <array>
#include <memory>

#include "cli/console_service.h"
#include "cli/service_lines.h"

namespace morvane::cli {
namespace {

/// The sensors, poll after poll.
class WatchService final : public ConsoleService {
 public:
  WatchService(maintenance::Maintenance& console, Terminal& terminal,
               const MaintainWatchOptions& options, bool& good)
      : ConsoleService(console), terminal_(terminal), options_(options), good_(good) {
    good_ = true;
  }
  void Close() override {
    if (console_.LinkFailed()) good_ = false;
  }

 private:
  void Known() override {
    if (HasFirmware()) return;
    SayNoFirmware(terminal_);
    good_ = false;
    console_.Exit();
  }
  void Polled() override {
    const ServiceLines now = SensorLines(console_.Console().Now());
    terminal_.Out(terminal_.ShowsProgress() ? Repainted(now) : Changed(now));
    shown_ = now;
    if (++polls_ == options_.Polls) console_.Exit();
  }
  /// In the place of what is shown.
  [[nodiscard]] std::string Repainted(const ServiceLines& now) const {
    std::string text = shown_.empty() ? "" : "\x1b[" + std::to_string(shown_.size()) + "A";
    for (const ServiceLine& line : now) text += TextOf(line) + "\x1b[K\n";
    return text;
  }
  [[nodiscard]] std::string Changed(const ServiceLines& now) const {
    if (shown_.empty()) return TextOf(now);
    std::string text;
    for (std::size_t i = 0; i < now.size(); ++i) {
      if (now[i] != shown_[i]) text += TextOf(now[i]) + "\n";
    }
    return text;
  }

  Terminal& terminal_;
  const MaintainWatchOptions& options_;
  bool& good_;
  ServiceLines shown_;
  int polls_ = 0;
};

constexpr std::array kOptions{
    Option{"polls", "N", "end after so many polls; otherwise Ctrl-C ends it"},
};

}  // namespace

MaintainWatchOptions ReadMaintainWatchOptions(OptionReader& given) {
  return {.Polls = given.Number("polls")};
}

ExitStatus MaintainWatch(Job& job, const MaintainWatchOptions& options) {
  bool good = false;
  Serve(job, std::nullopt, [&](maintenance::Maintenance& console) {
    return std::make_unique<WatchService>(console, job.Place.Screen, options, good);
  });
  return good ? kDone : kFailed;
}

constinit const Command kMaintainWatchCommand{
    .Name = "maintain watch",
    .Options = kOptions,
    .Summary =
        "Shows what the machine's sensors say: on a terminal each poll in the place of the "
        "last, elsewhere all of them once and then those that have changed.",
    .Prepare = TaskOf<ReadMaintainWatchOptions, MaintainWatch>};

}  // namespace morvane::cli
