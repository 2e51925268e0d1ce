#pragma once

#include "bench/terminal_program.h"
#include "shell/ui/main_menu.h"
#include "shell/ui/qt_windows.h"
#include "support/fake_desktop.h"
#include "support/qt_desk.h"

namespace morvane::bench {

struct Desktop {
  Program& Prog;
  shell::MainMenu& Menu;
  shell::Shell& Shell;
};

/// What `work` does with a `Desktop` at the line's machine that was started with `commandLine`.
template <typename Work>
void AtDesktop(LinkParts& parts, const std::string& commandLine, const Work& work) {
  QtUi ui(parts.Loop);
  Program program(parts.On(ui), parts.Paths());
  shell::QtWindows windows(program);
  LoneInstance alone;
  shell::Shell shell(program, parts.Gaps, parts.NoPrograms, windows, alone);
  test::FakeDesktop noDesktop;
  shell::Help help(program, shell.TheMachine(), noDesktop, {});
  shell::MainMenu menu(program, shell, help);
  windows.SetMainMenu(menu);
  ui.SetMainWindow(menu.ForUi());
  static_cast<void>(shell.StartUp(commandLine));
  work(Desktop{program, menu, shell});
}

}  // namespace morvane::bench
