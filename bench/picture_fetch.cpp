// A picture of the camera fetched over a pseudo-terminal at whose other end the simulated machine
// is another process, by the command line and by the desktop's window: the time from the first line
// asked for to the end of the reply with the last, beside what its bytes take on the wire.
//   --machine=FILE   the program that serves the machine; the one built beside this

#include <QAbstractButton>
#include <QApplication>
#include <cstdio>

#include "bench/link_programs.h"
#include "bench/options.h"
#include "cli/maintain_picture_command.h"

namespace morvane::bench {
namespace {

constexpr double kWantedRatio = 1.05;
/// 192 lines, each asked for with 8 bytes and answered with 136, of ten bits at 115200 baud.
constexpr double kOnTheWire = 192 * (8 + 136) * 10 / 115200.0;

void FetchAtTerminal(LinkParts& parts) {
  AtTerminal(parts, [&](cli::Job& job) {
    return cli::MaintainPicture(job, {.Out = parts.Folder / "card.png"});
  });
}

/// Presses `Showb` once it can be pressed, and leaves behind the picture.
class Presser {
 public:
  explicit Presser(LinkParts& parts)
      : parts_(parts), timer_(parts.Loop.StartTimer(kLookMs, [this] { Look(); })) {}

 private:
  static constexpr int kLookMs = 100;

  void Look() {
    if (parts_.Gaps.Noted().Taken.count() > 0) {
      parts_.Loop.Quit();
      return;
    }
    const QWidget* console = test::TopWindow("Maintenance");
    auto* button = console == nullptr ? nullptr : console->findChild<QAbstractButton*>("Showb");
    if (button == nullptr || !button->isEnabled()) return;
    // As an event of its own: what it starts lasts.
    QMetaObject::invokeMethod(button, &QAbstractButton::click, Qt::QueuedConnection);
  }

  LinkParts& parts_;
  std::unique_ptr<Timer> timer_;
};

void FetchAtDesktop(LinkParts& parts) {
  AtDesktop(parts, "", [&](const Desktop& desktop) {
    const Presser presser(parts);
    desktop.Shell.MenuMaintenance();
  });
}

/// Whether the picture came whole and in time.
bool Show(const char* what, const test::LinkGaps::Figures& noted) {
  const double ratio = Seconds(noted.Taken) / kOnTheWire;
  const bool whole = noted.Runs == 1 && noted.Sends == 192;
  const bool quick = whole && ratio <= kWantedRatio;
  std::printf("%s\n", what);
  std::printf("  %-44s %9d%s\n", "lines", static_cast<int>(noted.Sends), Mark(whole));
  std::printf("  %-44s %9.3f s\n", "from the first byte to the last", Seconds(noted.Taken));
  ShowBytes(noted);
  ShowGaps(noted);
  std::printf("  %-44s %9.3f%s (wanted: at most %.2f)\n", "  the time beside the wire's 2.4 s",
              ratio, Mark(quick), kWantedRatio);
  return quick;
}

int Run(const Options& options) {
  const test::TempFolder folder;
  e2e::Process machine(
      {"--machine", "simulated,speed=0", "--pace", "wire"},
      {.Folder = folder.Path(),
       .Program = options.Text("machine").value_or(e2e::ProgramNamed("morvane-machine"))});
  const std::string path = DeviceOf(machine);
  if (path.empty()) return 1;
  bool good = true;
  const auto fetch = [&](const char* what, void (*run)(LinkParts&)) {
    LinkParts parts(path, test::LinkGaps::Of::kPictures);
    run(parts);
    good = Show(what, parts.Gaps.Noted()) && good;
  };
  fetch("By the command line:", FetchAtTerminal);
  fetch("By the desktop's window:", FetchAtDesktop);
  return good ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return morvane::bench::Run(morvane::bench::Options(argc, argv, {"machine"}));
}
