#include <QApplication>
#include <QScreen>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/ini_settings.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_sound.h"
#include "platform/qt/qt_ui.h"
#include "platform/system_clock.h"
#include "platform/system_entropy.h"
#include "platform/user_folders.h"
#include "program/program.h"
#include "shell/shell.h"
#include "shell/ui/main_menu.h"
#include "shell/ui/qt_windows.h"
#include "simulator/simulated_machine.h"
#include "simulator/ui/machine_panel.h"

namespace {

using namespace morvane;

constexpr const char* kUsage =
    "usage: morvane [--machine M] [--data DIR] [--settings FILE] [PATH]\n"
    "  --machine M      simulated[,key=value...]\n"
    "  --data DIR       the folder of logs and history\n"
    "  --settings FILE  the settings store\n"
    "  PATH             the board file to load\n";

struct Arguments {
  std::string Machine = "simulated";
  std::string Data;
  std::string Settings;
  std::string Path;
  std::string CommandLine;  ///< as start-up parses it: PATH first, in double quotes
};

std::optional<Arguments> Parse(std::vector<std::string> words) {
  Arguments arguments;
  std::string options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    std::string* value = word == "--machine"    ? &arguments.Machine
                         : word == "--data"     ? &arguments.Data
                         : word == "--settings" ? &arguments.Settings
                                                : nullptr;
    if (value != nullptr) {
      if (++i == words.size()) return std::nullopt;
      *value = words[i];
      options += " " + word + " " + words[i];
    } else if (word.starts_with("--") || !arguments.Path.empty()) {
      return std::nullopt;
    } else {
      arguments.Path = AbsolutePath(word);
    }
  }
  if (!arguments.Path.empty()) arguments.CommandLine = "\"" + arguments.Path + "\"";
  arguments.CommandLine += options;
  return arguments;
}

ProgramPaths PathsOf(const Arguments& arguments, const char* argv0) {
  const std::string application = ApplicationFolder(argv0);
  return {application,
          arguments.Data.empty() ? DefaultDataFolder(application) : AbsolutePath(arguments.Data)};
}

int WrongUsage(std::string_view what) {
  std::cerr << what << kUsage;
  return 2;
}

/// The panel at the right edge of the screen, out of the way of the other windows.
void Show(QWidget& panel) {
  const QRect screen = panel.screen()->availableGeometry();
  panel.adjustSize();
  panel.move(screen.right() - panel.width(), screen.top());
  panel.show();
}

}  // namespace

int main(int argc, char** argv) {
  const auto arguments = Parse({argv + 1, argv + argc});
  if (!arguments) return WrongUsage("");
  simulator::Options options;
  if (const auto wrong = simulator::ParseOptions(arguments->Machine, options)) {
    return WrongUsage(*wrong + "\n");
  }

  QApplication application(argc, argv);
  QApplication::setApplicationName("Morvane");
  QApplication::setQuitOnLastWindowClosed(false);

  SystemClock clock;
  SystemEntropy entropy;
  QtEventLoop loop;
  QtSound sound;
  QtUi ui(loop);
  IniSettings settings(arguments->Settings.empty() ? DefaultSettingsFile()
                                                   : AbsolutePath(arguments->Settings));
  simulator::SimulatedMachine machine(options, clock);
  Program program({ui, loop, clock, settings, entropy, sound}, PathsOf(*arguments, argv[0]));

  shell::QtWindows windows(program);
  shell::Shell shell(program, machine, windows);
  shell::MainMenu menu(program, shell);
  windows.SetMainMenu(menu);
  ui.SetMainWindow(menu.ForUi());
  simulator::MachinePanel panel(loop, machine);

  Show(panel);
  shell.StartUp(arguments->CommandLine);
  loop.RunUntil([] { return false; });
  return 0;
}
