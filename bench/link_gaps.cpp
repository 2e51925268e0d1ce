// Boards dealt over a pseudo-terminal at whose other end the simulated machine is another process,
// by the command line and by the desktop's run window: how long the wire stands idle between the
// end of a reply and the next send, beside the time from the run's first byte to its last.
//   --boards=N       32 unless told otherwise
//   --speed=X        how much faster than a real machine the cards fall; 4
//   --machine=FILE   the program that serves the machine; the one built beside this

#include "support/link_gaps.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <cstdio>

#include "bench/dealt_set.h"
#include "bench/link_programs.h"
#include "bench/options.h"
#include "support/qt_desk.h"

namespace morvane::bench {
namespace {

constexpr double kWantedPerCent = 1;
constexpr int kLookMs = 100;

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

void DealAtDesktop(LinkParts& parts, const BoardSet& set) {
  AtDesktop(parts, "", [&](const Desktop& desktop) {
    desktop.Prog.Set = set;
    desktop.Menu.RefreshSet();
    const QuickOperator quick(parts.Loop);
    desktop.Shell.MenuDeal();
  });
}

/// Whether the gaps of all `boards` stayed under what is wanted.
bool Show(const char* what, const test::LinkGaps::Figures& noted, int boards) {
  const double ofTheRun = 100 * Seconds(noted.Gaps) / Seconds(noted.Taken);
  const bool good = noted.Runs == boards && ofTheRun < kWantedPerCent;
  std::printf("%s\n", what);
  std::printf("  %-44s %9d of %d\n", "boards", noted.Runs, boards);
  std::printf("  %-44s %9.2f s\n", "from their first byte to their last", Seconds(noted.Taken));
  ShowBytes(noted);
  std::printf("  %-44s %9s\n", "sends", Grouped(static_cast<std::int64_t>(noted.Sends)).c_str());
  std::printf("  %-44s %9.2f s\n", "inside the writes", Seconds(noted.Writes));
  ShowGaps(noted);
  std::printf("  %-44s %9.2f %%%s (wanted: under %.0f %%)\n", "  their sum beside the run's time",
              ofTheRun, Mark(good), kWantedPerCent);
  std::printf("  %-44s %9.2f %%\n", "  their sum beside the bytes' time", noted.PerCent());
  return good;
}

int Run(const Options& options) {
  const auto boards = static_cast<int>(options.Whole("boards").value_or(32));
  const std::string speed = options.Text("speed").value_or("4");
  const test::TempFolder folder;
  e2e::Process machine(
      {"--machine", "simulated,speed=" + speed, "--pace", "wire"},
      {.Folder = folder.Path(),
       .Program = options.Text("machine").value_or(e2e::ProgramNamed("morvane-machine"))});
  const std::string path = DeviceOf(machine);
  if (path.empty()) return 1;
  std::printf("%d boards, the cards falling %s times as fast as in a real machine\n", boards,
              speed.c_str());
  const BoardSet set = RandomBoards(boards);
  bool good = true;
  const auto deal = [&](const char* what, void (*run)(LinkParts&, const BoardSet&)) {
    LinkParts parts(path);
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
