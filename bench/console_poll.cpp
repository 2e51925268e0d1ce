// The service console polling over a pseudo-terminal at whose other end the simulated machine is
// another process, by the command line and by the desktop's window: the processor's time and the
// memory that this takes, and how long the wire stands idle inside the polls between the end of a
// reply and the next send.
//   --seconds=N      of polling, each; 60 unless told otherwise
//   --machine=FILE   the program that serves the machine; the one built beside this

#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <cstdio>
#include <fstream>

#include "bench/link_programs.h"
#include "bench/options.h"
#include "cli/maintain_watch_command.h"

namespace morvane::bench {
namespace {

constexpr double kWantedCorePerCent = 3;
constexpr double kWantedGapsPerCent = 1;
/// What one page more or less of an allocator's is called.
constexpr std::int64_t kWantedGrowthKb = 256;
/// Until the first poll: the window start, and what is done once.
constexpr int kSettleSeconds = 4;
constexpr int kWarmSeconds = 10;

/// Of this process, both user's and system's.
double ProcessorSeconds() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

std::int64_t ResidentKb() {
  std::ifstream statm("/proc/self/statm");
  std::int64_t all = 0;
  std::int64_t resident = 0;
  statm >> all >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

/// What the console takes while it polls; it is left when the time is over.
class Meter {
 public:
  Meter(EventLoop& loop, const Clock& time, int seconds)
      : loop_(loop), time_(time), seconds_(seconds) {
    timer_ = loop.StartTimer(kSecondMs, [this] { Tick(); });
  }
  [[nodiscard]] double CorePerCent() const { return 100 * processor_ / Seconds(taken_); }
  [[nodiscard]] std::int64_t WarmKb() const { return warmKb_; }
  [[nodiscard]] std::int64_t GrownKb() const { return endKb_ - warmKb_; }
  [[nodiscard]] double Taken() const { return Seconds(taken_); }

 private:
  static constexpr int kSecondMs = 1000;

  void Tick() {
    ++ticks_;
    if (ticks_ == kSettleSeconds) {
      processor_ = -ProcessorSeconds();
      taken_ = -time_.Elapsed();
    }
    if (ticks_ == kSettleSeconds + kWarmSeconds) warmKb_ = ResidentKb();
    if (ticks_ != kSettleSeconds + seconds_) return;
    processor_ += ProcessorSeconds();
    taken_ += time_.Elapsed();
    endKb_ = ResidentKb();
    loop_.Quit();
  }

  EventLoop& loop_;
  const Clock& time_;
  const int seconds_;
  std::unique_ptr<Timer> timer_;
  int ticks_ = 0;
  double processor_ = 0;
  test::LinkGaps::Time taken_{0};
  std::int64_t warmKb_ = 0;
  std::int64_t endKb_ = 0;
};

void WatchAtTerminal(LinkParts& parts) {
  AtTerminal(parts, [](cli::Job& job) { return cli::MaintainWatch(job, {}); });
}

void WatchAtDesktop(LinkParts& parts) {
  AtDesktop(parts, "", [](const Desktop& desktop) { desktop.Shell.MenuMaintenance(); });
}

/// Whether all stayed under what is wanted.
bool Show(const char* what, const Meter& meter, const test::LinkGaps::Figures& noted) {
  const double gaps = 100 * Seconds(noted.Gaps) / Seconds(noted.Taken);
  const bool polled = noted.Runs > meter.Taken();
  const bool idle = meter.CorePerCent() < kWantedCorePerCent;
  const bool steady = meter.GrownKb() < kWantedGrowthKb;
  const bool quick = gaps < kWantedGapsPerCent;
  std::printf("%s\n", what);
  std::printf("  %-44s %9d%s\n", "polls", noted.Runs, Mark(polled));
  std::printf("  %-44s %9.2f s\n", "the time looked at", meter.Taken());
  std::printf("  %-44s %9.2f %%%s (wanted: under %.0f %%)\n", "of a core", meter.CorePerCent(),
              Mark(idle), kWantedCorePerCent);
  std::printf("  %-44s %9s KB\n", "memory after ten seconds", Grouped(meter.WarmKb()).c_str());
  std::printf("  %-44s %9lld KB%s (wanted: under %lld KB)\n", "  more at the end",
              static_cast<long long>(meter.GrownKb()), Mark(steady),
              static_cast<long long>(kWantedGrowthKb));
  std::printf("  %-44s %9.2f s\n", "inside the polls", Seconds(noted.Taken));
  ShowBytes(noted);
  ShowGaps(noted);
  std::printf("  %-44s %9.2f %%%s (wanted: under %.0f %%)\n", "  their sum beside the polls' time",
              gaps, Mark(quick), kWantedGapsPerCent);
  return polled && idle && steady && quick;
}

int Run(const Options& options) {
  const auto seconds = static_cast<int>(options.Whole("seconds").value_or(60));
  const test::TempFolder folder;
  e2e::Process machine(
      {"--machine", "simulated", "--pace", "wire"},
      {.Folder = folder.Path(),
       .Program = options.Text("machine").value_or(e2e::ProgramNamed("morvane-machine"))});
  const std::string path = DeviceOf(machine);
  if (path.empty()) return 1;
  bool good = true;
  const auto watch = [&](const char* what, void (*run)(LinkParts&)) {
    LinkParts parts(path, test::LinkGaps::Of::kPolls);
    const Meter meter(parts.Loop, parts.Time, seconds);
    run(parts);
    good = Show(what, meter, parts.Gaps.Noted()) && good;
  };
  watch("By the command line:", WatchAtTerminal);
  watch("By the desktop's window:", WatchAtDesktop);
  return good ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return morvane::bench::Run(morvane::bench::Options(argc, argv, {"seconds", "machine"}));
}
