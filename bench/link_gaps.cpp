// Boards dealt over a pseudo-terminal at whose other end the simulated machine is another process,
// by the command line and by the desktop's run window: how long the wire stands idle between the
// end of a reply and the next send, beside the time from the run's first byte to its last.
//   --boards=N       32 unless told otherwise
//   --speed=X        how much faster than a real machine the cards fall; 4
//   --machine=FILE   the program that serves the machine; the one built beside this

#include "support/link_gaps.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <fstream>

#include "bench/dealt_set.h"
#include "bench/options.h"
#include "bridges/serial_bridge.h"
#include "cli/job.h"
#include "e2e/process.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/system_clock.h"
#include "platform/system_entropy.h"
#include "shell/ui/main_menu.h"
#include "shell/ui/qt_windows.h"
#include "support/fakes.h"
#include "support/qt_desk.h"

namespace morvane::bench {
namespace {

constexpr double kWantedPerCent = 1;
constexpr int kLookMs = 100;

/// What both programs have from the system, and the line to the machine.
struct Parts {
  explicit Parts(const std::string& path) : Serial(path) {}
  test::TempFolder Folder;
  SystemClock Time;
  SystemEntropy Random;
  QtEventLoop Loop;
  test::MemorySettings Store;
  test::FakeSound Silence;
  test::FakePrinter NoPaper;
  test::FakeProcesses NoPrograms;
  bridges::SerialBridge Serial;
  test::LinkGaps Gaps{Serial, Time};

  [[nodiscard]] morvane::Ports On(Ui& ui) {
    return {ui, Loop, Time, Store, Random, Silence, NoPaper};
  }
  [[nodiscard]] ProgramPaths Paths() const { return {Folder.Path(), Folder / "Morvane_Data"}; }
};

/// A terminal whose every line is really written, progress included, though nobody sees it.
class UnseenTerminal final : public Terminal {
 public:
  void Out(const std::string& text) override { file_ << text << std::flush; }
  void Error(const std::string& text) override { std::fputs(text.c_str(), stderr); }
  [[nodiscard]] bool CanAsk() const override { return false; }
  [[nodiscard]] bool ShowsProgress() const override { return true; }
  std::optional<std::string> ReadLine() override { return std::nullopt; }
  std::optional<std::string> ReadLineIfAny() override { return std::nullopt; }
  [[nodiscard]] bool InputEnded() const override { return true; }

 private:
  std::ofstream file_{"/dev/null"};
};

void DealAtTerminal(Parts& parts, const BoardSet& set) {
  UnseenTerminal terminal;
  ConsoleUi ui(terminal, parts.Random, /*yes=*/false);
  Program program(parts.On(ui), parts.Paths());
  cli::Workplace place{program, ui, terminal, parts.Gaps, parts.NoPrograms};
  cli::RunJob(place, "", [&](cli::Job& job) {
    program.Set = set;
    cli::RunRequest request;
    request.Auto = true;
    job.Windows.RunBy(request, {});
    job.Shell.MenuDeal();
    return cli::kDone;
  });
}

/// Presses what an operator would press, as soon as it can be pressed.
class QuickOperator {
 public:
  explicit QuickOperator(EventLoop& loop) : timer_(loop.StartTimer(kLookMs, [this] { Look(); })) {}

 private:
  void Look() {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      over_ = true;
      Press(box->button(QMessageBox::No) != nullptr ? box->button(QMessageBox::No)
                                                    : box->button(QMessageBox::Ok));
      return;
    }
    const QWidget* run = test::TopWindow("DealinProg");
    if (run == nullptr) return;
    for (const char* name : {over_ ? "cmdExit" : "Deal_next", over_ ? "cmdExit" : "cmdDeal"}) {
      if (Press(run->findChild<QAbstractButton*>(name))) return;
    }
  }

  /// As an event of its own: what it starts may last.
  static bool Press(QAbstractButton* button) {
    if (button == nullptr || !button->isEnabled()) return false;
    QMetaObject::invokeMethod(button, &QAbstractButton::click, Qt::QueuedConnection);
    return true;
  }

  bool over_ = false;
  std::unique_ptr<Timer> timer_;
};

void DealAtDesktop(Parts& parts, const BoardSet& set) {
  QtUi ui(parts.Loop);
  Program program(parts.On(ui), parts.Paths());
  shell::QtWindows windows(program);
  LoneInstance alone;
  shell::Shell shell(program, parts.Gaps, parts.NoPrograms, windows, alone);
  shell::MainMenu menu(program, shell);
  windows.SetMainMenu(menu);
  ui.SetMainWindow(menu.ForUi());
  static_cast<void>(shell.StartUp(""));
  program.Set = set;
  menu.RefreshSet();
  const QuickOperator quick(parts.Loop);
  shell.MenuDeal();
}

double Seconds(test::LinkGaps::Time time) { return static_cast<double>(time.count()) / 1e6; }

/// Whether the gaps of all `boards` stayed under what is wanted.
bool Show(const char* what, const test::LinkGaps::Figures& noted, int boards) {
  const double ofTheRun = 100 * Seconds(noted.Gaps) / Seconds(noted.Taken);
  const bool good = noted.Runs == boards && ofTheRun < kWantedPerCent;
  std::printf("%s\n", what);
  std::printf("  %-44s %9d of %d\n", "boards", noted.Runs, boards);
  std::printf("  %-44s %9.2f s\n", "from their first byte to their last", Seconds(noted.Taken));
  std::printf("  %-44s %9.2f s\n", "their bytes on the wire, 10 bits at 115200",
              Seconds(noted.OnTheWire()));
  std::printf("  %-44s %9s\n", "sends", Grouped(static_cast<std::int64_t>(noted.Sends)).c_str());
  std::printf("  %-44s %9.2f s\n", "inside the writes", Seconds(noted.Writes));
  std::printf("  %-44s %9.3f s\n", "gaps between reply and next send, sum", Seconds(noted.Gaps));
  std::printf("  %-44s %9.3f ms\n", "  the longest", Seconds(noted.Worst) * 1e3);
  std::printf("  %-44s %9.2f %%%s (wanted: under %.0f %%)\n", "  their sum beside the run's time",
              ofTheRun, good ? "" : "  FELL SHORT", kWantedPerCent);
  std::printf("  %-44s %9.2f %%\n", "  their sum beside the bytes' time", noted.PerCent());
  return good;
}

int Run(const Options& options) {
  const auto boards = static_cast<int>(options.Whole("boards").value_or(32));
  const std::string speed = options.Text("speed").value_or("4");
  const test::TempFolder folder;
  e2e::Process machine(
      {"--machine", "simulated,speed=" + speed, "--pace", "wire"},
      {.Folder = folder.Path(), .Program = options.Text("machine").value_or(MORVANE_MACHINE)});
  const std::string prefix = "serial:";
  if (!machine.Until([&] { return machine.Out().find('\n') != std::string::npos; })) return 1;
  const std::size_t at = machine.Out().find(prefix) + prefix.size();
  const std::string path = machine.Out().substr(at, machine.Out().find('\n', at) - at);
  std::printf("%d boards, the cards falling %s times as fast as in a real machine\n", boards,
              speed.c_str());
  const BoardSet set = RandomBoards(boards);
  bool good = true;
  const auto deal = [&](const char* what, void (*run)(Parts&, const BoardSet&)) {
    Parts parts(path);
    run(parts, set);
    good = Show(what, parts.Gaps.Noted(), boards) && good;
  };
  deal("By the command line:", DealAtTerminal);
  deal("By the desktop's run window:", DealAtDesktop);
  return good ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return morvane::bench::Run(morvane::bench::Options(argc, argv, {"boards", "speed", "machine"}));
}
