#include <QTimer>
#include <iostream>
#include <memory>
#include <optional>

#include "application_words.h"
#include "arguments.h"
#include "bridges/file_packs.h"
#include "bridges/machine_choice.h"
#include "bridges/trace/replay_bridge.h"
#include "bridges/trace/traced_bridge.h"
#include "bridges/ui/replay_panel.h"
#include "display_guard.h"
#include "end_hook.h"
#include "end_signals.h"
#include "given_words.h"
#include "guarded_application.h"
#include "library_versions.h"
#include "platform/qt/program_icon.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_instance.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_ui.h"
#include "platform/qt/window_place.h"
#include "platform/system_processes.h"
#include "platform/system_sound.h"
#include "seen_words.h"
#include "shell/shell.h"
#include "shell/ui/help_key.h"
#include "shell/ui/main_menu.h"
#include "shell/ui/qt_windows.h"
#include "simulator/ui/machine_panel.h"
#include "system_look.h"
#include "system_parts.h"
#include "written_out.h"

namespace {

constexpr int kAlreadyRunning = 1;
constexpr int kWrongUsage = 2;
constexpr int kNotWholly = 3;
constexpr int kFailed = 4;
constexpr int kTraceLookMs = 500;
constexpr int kPlacedMs = 300;  // the desktop has placed the main window by then

/// The window of a machine that is none, beside the main one; null for a real one.
std::unique_ptr<QWidget> MakePanel(morvane::EventLoop& loop,
                                   const morvane::bridges::MachineChoice& machine,
                                   morvane::simulator::PackSource& packs) {
  using morvane::bridges::ReplayPanel;
  using morvane::simulator::MachinePanel;
  if (machine.Replayed != nullptr)
    return std::make_unique<ReplayPanel>(loop, machine.Replayed->Play());
  if (machine.Simulated == nullptr) return nullptr;
  return std::make_unique<MachinePanel>(loop, *machine.Simulated, packs);
}

void ShowBeside(QWidget& panel, QWidget& mainMenu) {
  panel.setAttribute(Qt::WA_ShowWithoutActivating);  // the main window keeps the keyboard
  auto* placed = new QTimer(&panel);
  placed->setSingleShot(true);
  QObject::connect(placed, &QTimer::timeout, &panel, [&panel, &mainMenu] {
    morvane::Dock(panel, mainMenu);
    panel.show();
  });
  placed->start(kPlacedMs);
}

/// A trace that can't be written any more is told once, when nobody deals.
std::unique_ptr<morvane::Timer> WatchTrace(morvane::Program& program,
                                           const morvane::shell::Shell& shell,
                                           const morvane::bridges::TracedBridge* traced) {
  if (traced == nullptr) return nullptr;
  return program.Loop.StartTimer(kTraceLookMs, [&program, &shell, traced, told = false]() mutable {
    const std::string& trouble = traced->File().Trouble();
    if (told || trouble.empty() || shell.FlowActive() || program.Loop.Quitting()) return;
    told = true;
    program.ShowMessage(trouble, morvane::kOkExclamation, "Trace");
  });
}

/// What nobody may have read while windows were open. The exit status: a trace that was asked for
/// and is not whole, or that another run differs from, is no success.
int TellTrouble(morvane::bridges::MachineChoice& machine) {
  machine.End();
  if (const std::string trouble = machine.Trouble(); !trouble.empty()) {
    std::cerr << "morvane: " << trouble << "\n";
  }
  return machine.LinkTrouble().empty() ? 0 : kNotWholly;
}

using morvane::shell::UnsavedCopy;

/// What is told of the program's own fault when everything has ended.
struct Fault {
  std::string What;
  UnsavedCopy::State Kept = UnsavedCopy::State::kNone;
  bool Unsaved = false;

  void Tell() const {
    morvane::LastBox("      An error in the program has ended it.      \r\n      Error: " + What +
                         "      " + OfTheSet(),
                     morvane::kOkCritical, "Morvane");
  }

 private:
  [[nodiscard]] std::string OfTheSet() const {
    const auto line = [](const std::string& text) { return "\r\n\r\n      " + text + "      "; };
    switch (Kept) {
      case UnsavedCopy::State::kLast:
        return line("The next start offers the unsaved Board Set.");
      case UnsavedCopy::State::kOlder:
        return line("The next start offers an older copy of the unsaved Board Set.");
      default:
        return Unsaved ? line("The unsaved Board Set is lost.") : "";
    }
  }
};

/// Has a fault end the program, as long as there is a shell that it can end by.
class FaultWatch {
 public:
  FaultWatch(morvane::GuardedApplication& application, morvane::shell::Shell& shell,
             const morvane::BoardSet& set, std::optional<Fault>& fault)
      : application_(application) {
    application_.OnFault = [&](const std::string& what) {
      Fault& told = fault.emplace();
      told.Unsaved = !set.IsSaved();
      told.Kept = shell.Fail(what);
      told.What = what;
    };
  }
  ~FaultWatch() { application_.OnFault = nullptr; }
  FaultWatch(const FaultWatch&) = delete;
  FaultWatch& operator=(const FaultWatch&) = delete;

 private:
  morvane::GuardedApplication& application_;
};

/// The program from its windows to its end; its exit status, where `fault` stays empty.
int Run(morvane::GuardedApplication& application, morvane::SystemParts& parts,
        morvane::bridges::MachineChoice& machine, const morvane::Arguments& arguments,
        std::optional<Fault>& fault) {
  morvane::QtUi ui(parts.Loop);
  const std::unique_ptr<morvane::Sound> sound = morvane::MakeSystemSound();
  morvane::QtPrinter printer(parts.Loop);
  morvane::Program program({ui, parts.Loop, parts.Time, parts.Store, parts.Random, *sound, printer},
                           parts.Paths);
  morvane::shell::QtWindows windows(program);
  morvane::QtInstance instance(parts.Loop, parts.SettingsFile);
  morvane::SystemProcesses processes;
  morvane::shell::Shell shell(program, *machine.Usb, processes, windows, instance, machine.Kind);
  morvane::QtDesktop desktop;
  morvane::shell::Help help(program, shell.TheMachine(), desktop,
                            {arguments.Machine, morvane::LibraryVersions()});
  const morvane::shell::HelpKey helpKey(help);
  morvane::shell::MainMenu mainMenu(program, shell, help);
  windows.SetMainMenu(mainMenu);
  ui.SetMainWindow(mainMenu.ForUi());

  morvane::QuitOnEndSignals(parts.Loop);
  // The session ends and asks nobody: what is unsaved is kept for the next start.
  QObject::connect(
      &application, &QGuiApplication::commitDataRequest, &application,
      [&shell](QSessionManager& /*session*/) { shell.EndOfSession(); }, Qt::DirectConnection);
  const morvane::EndHook hook([&] {
    parts.Loop.Quit();  // nothing is asked any more
    shell.End();
  });
  const FaultWatch faultWatch(application, shell, program.Set, fault);
  shell.KeepUnsavedSet();
  shell.KeepRecentFiles();
  using morvane::shell::StartOutcome;
  StartOutcome outcome = StartOutcome::kGoesOn;
  application.Guard([&] { outcome = shell.StartUp(arguments.CommandLine, arguments.Typed); });
  if (outcome != StartOutcome::kGoesOn) {
    return outcome == StartOutcome::kHandedOver ? 0 : kAlreadyRunning;
  }
  std::optional<morvane::bridges::FilePacks> packs;
  std::unique_ptr<QWidget> panel;
  std::unique_ptr<morvane::Timer> watch;
  application.Guard([&] {
    panel = MakePanel(parts.Loop, machine, packs.emplace(program));
    if (panel) ShowBeside(*panel, mainMenu);
    watch = WatchTrace(program, shell, machine.Traced);
    parts.Loop.RunUntil([] { return false; });
  });
  application.Guard([&] { shell.End(); });
  return TellTrouble(machine);
}

}  // namespace

int main(int argc, char** argv) {
  morvane::SeenWords seen;
  const morvane::GivenWords given = morvane::GivenWordsOf(argc, argv);
  if (!given.AreText) {
    std::cerr << "morvane: an argument is not UTF-8 text\n";
    return kWrongUsage;
  }
  morvane::Arguments arguments = morvane::ParseArguments(given.Words);
  arguments.Typed = given.Typed.value_or(arguments.CommandLine);
  if (!arguments.Help.empty()) {
    return morvane::WriteOut("morvane", arguments.Help) ? 0 : kFailed;
  }
  if (!arguments.Error.empty()) {
    std::cerr << "morvane: " << arguments.Error << "\nTry 'morvane --help'.\n";
    return kWrongUsage;
  }
  auto guard = std::make_optional<morvane::DisplayGuard>([&seen] { seen.Show(); });
  morvane::ApplicationWords forQt(argc, argv, morvane::SystemLook());
  morvane::GuardedApplication application(forQt.Count(), forQt.Words());
  guard.reset();
  QApplication::setApplicationName("Morvane");
  QApplication::setDesktopFileName("morvane");
  QApplication::setWindowIcon(morvane::ProgramIcon());
  QApplication::setQuitOnLastWindowClosed(false);  // the shell says when the program ends

  morvane::SystemParts parts(argv[0], arguments.Data, arguments.Settings);
  auto machine = morvane::bridges::ChooseMachine(arguments, parts.Time);
  if (!machine.Usb) {
    std::cerr << "morvane: " << machine.Error << "\n";
    return kWrongUsage;
  }
  std::optional<Fault> fault;
  const int status = Run(application, parts, machine, arguments, fault);
  if (!fault) return status;
  fault->Tell();  // nobody is kept from a next start meanwhile
  return kFailed;
}
