// The same boards dealt over every kind of link: what share of the run was spent in the link's own
// operations, beside what its bytes take on a wire at 115200 baud, and how much the processor had
// to do for it. A link that waits by asking again and again would show there.
//   --boards=N       4 unless told otherwise
//   --speed=X        how much faster than a real machine the cards fall; 4
//   --machine=FILE   the program that serves the machine; the one built beside this
// It is started over under umockdev, for the bridge chip.

#include <sys/resource.h>

#include <QCoreApplication>
#include <cstdio>

#include "bench/dealt_set.h"
#include "bench/options.h"
#include "bench/terminal_program.h"
#include "bridges/simulated_choice.h"
#include "bridges/trace/replay_bridge.h"
#include "bridges/trace/traced_bridge.h"
#include "bridges/usb/usb_direct.h"
#include "bridges/usb/usb_xpress_library.h"
#include "simulator/simulated_machine.h"
#include "support/emulated_bus.h"
#include "support/usb_library_double/loaded_double.h"
#include "support/usb_preload.h"

namespace morvane::bench {
namespace {

/// A link that waits without rest would have all of a core.
constexpr double kMostOfACore = 0.5;
/// What noting all that passes may cost beside what passes.
constexpr double kMostTracedPerCent = 2;

struct Shares {
  test::LinkGaps::Figures Noted;
  double Processor = 0;  ///< seconds

  [[nodiscard]] double Run() const { return Seconds(Noted.Taken); }
  [[nodiscard]] double InTheLink() const { return Seconds(Noted.Taken - Noted.Gaps); }
};

double ProcessorSeconds() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

/// Deals over one link after the other and shows what each took.
class Shown {
 public:
  Shown(BoardSet set, int boards) : set_(std::move(set)), boards_(boards) {
    std::printf("%-34s %9s %9s %9s %8s %10s\n", "", "run", "its bytes", "in the", "of the",
                "processor");
    std::printf("%-34s %9s %9s %9s %8s %10s\n", "", "s", "s", "link, s", "run, %", "of a core");
  }

  using Maker = std::function<std::unique_ptr<UsbXpress>(Clock& time)>;
  Shares Deal(const char* what, const Maker& make) {
    LinkParts parts(make);
    const double before = ProcessorSeconds();
    DealAtTerminal(parts, set_);
    const Shares shares{parts.Gaps.Noted(), ProcessorSeconds() - before};
    const double ofACore = shares.Processor / shares.Run();
    const bool good = shares.Noted.Runs == boards_ && ofACore < kMostOfACore;
    std::printf("%-34s %9.2f %9.2f %9.2f %8.2f %10.3f%s\n", what, shares.Run(),
                Seconds(shares.Noted.OnTheWire()), shares.InTheLink(),
                100 * shares.InTheLink() / shares.Run(), ofACore, Mark(good));
    if (!good) Fell = true;
    return shares;
  }

  bool Fell = false;

 private:
  BoardSet set_;
  int boards_;
};

/// The same machine each time.
simulator::Options Kind(const std::string& text) { return bridges::ChooseSimulated(text).Kind; }

std::unique_ptr<UsbXpress> Simulated(const std::string& text, Clock& time) {
  return std::make_unique<simulator::SimulatedMachine>(Kind(text), time);
}

std::unique_ptr<UsbXpress> Traced(std::unique_ptr<UsbXpress> link, const std::string& path,
                                  const Clock& time) {
  bridges::TraceOrder order;
  order.Path = path;
  order.Machine = "simulated";
  return std::make_unique<bridges::TracedBridge>(std::move(link), order, time);
}

std::unique_ptr<UsbXpress> Replayed(const std::string& path, Clock& time) {
  bridges::TraceReader trace;
  const auto error = trace.Open(path);
  if (error) std::printf("%s\n", error->c_str());
  return std::make_unique<bridges::ReplayBridge>(std::move(trace), time);
}

/// The chip at an emulated bus, with the machine behind it. The wire's time is slept there.
class EmulatedMachine {
 public:
  explicit EmulatedMachine(const std::string& text) : machine_(Kind(text)) {
    bus_.Attach().Answer([this](std::span<const std::uint8_t> bytes) { return Heard(bytes); });
  }

 private:
  test::Bytes Heard(std::span<const std::uint8_t> bytes) {
    using simulator::WiredMachine;
    test::Bytes said;
    auto wait = WiredMachine::WireTime(bytes.size());
    for (const std::uint8_t byte : bytes) {
      const auto saying = machine_.Hear(byte, time_.Elapsed());
      if (!saying) continue;
      said.insert(said.end(), saying->Wire.begin(), saying->Wire.end());
      wait += machine_.ThinkingTime() + WiredMachine::WireTime(saying->Wire.size());
    }
    time_.Spend(wait);
    return said;
  }

  SystemClock time_;
  simulator::WiredMachine machine_;
  test::EmulatedBus bus_;
};

void DealOverSerial(Shown& shown, const std::string& machine, const std::string& text) {
  const test::TempFolder folder;
  e2e::Process process({"--machine", text, "--pace", "wire"},
                       {.Folder = folder.Path(), .Program = machine});
  const std::string path = DeviceOf(process);
  shown.Deal("serial, a pseudo-terminal",
             [&](Clock&) { return std::make_unique<bridges::SerialBridge>(path); });
}

void DealOverLibrary(Shown& shown, const std::string& text) {
  SystemClock time;
  const auto behind = Simulated(text, time);
  test::UsbLibraryDesk desk{*behind};
  const test::LoadedDouble loaded(desk);
  shown.Deal("usb, the library (a double of it)", [](Clock&) {
    return std::make_unique<bridges::UsbXpressLibrary>(test::LoadedDouble::Path());
  });
}

void DealOverChip(Shown& shown, const std::string& text) {
  const EmulatedMachine machine(text);
  shown.Deal("usb, the chip (emulated)",
             [](Clock&) { return std::make_unique<bridges::UsbDirect>(bridges::UsbWhich{}); });
}

int Run(const Options& options) {
  const auto boards = static_cast<int>(options.Whole("boards").value_or(4));
  const std::string speed = options.Text("speed").value_or("4");
  const std::string text = "simulated,seed=1,speed=" + speed;
  const test::TempFolder folder;
  std::printf("%d boards, the cards falling %s times as fast as in a real machine\n\n", boards,
              speed.c_str());
  Shown shown(RandomBoards(boards), boards);
  const Shares plain = shown.Deal("simulated", [&](Clock& time) { return Simulated(text, time); });
  const Shares traced = shown.Deal("simulated, with a trace", [&](Clock& time) {
    return Traced(Simulated(text, time), folder / "trace", time);
  });
  shown.Deal("replay of that trace", [&](Clock& time) { return Replayed(folder / "trace", time); });
  DealOverSerial(shown, options.Text("machine").value_or(e2e::ProgramNamed("morvane-machine")),
                 text);
  DealOverLibrary(shown, text);
  DealOverChip(shown, text);
  const double more = 100 * (traced.Processor - plain.Processor) / plain.Run();
  const bool good = more < kMostTracedPerCent;
  std::printf("\nThe trace cost %.2f %% of the run's time%s (wanted: under %.0f %%)\n", more,
              Mark(good), kMostTracedPerCent);
  return good && !shown.Fell ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  if (!morvane::test::StartOverForEmulation()) return 1;
  const QCoreApplication application(argc, argv);
  return morvane::bench::Run(morvane::bench::Options(argc, argv, {"boards", "speed", "machine"}));
}
