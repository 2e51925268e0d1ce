#pragma once

#include "bench/link_parts.h"
#include "cli/job.h"
#include "shell/ui/main_menu.h"
#include "shell/ui/qt_windows.h"
#include "support/qt_desk.h"

namespace morvane::bench {

/// What `command` does with the `cli::Job` of a command line at the line's machine.
template <typename Command>
void AtTerminal(LinkParts& parts, const Command& command) {
  UnseenTerminal terminal;
  ConsoleUi ui(terminal, parts.Random, /*yes=*/false);
  Program program(parts.On(ui), parts.Paths());
  cli::Workplace place{program, ui, terminal, parts.Gaps, parts.NoPrograms};
  cli::RunJob(place, "", command);
}

/// Each board is started at once.
inline void DealAtTerminal(LinkParts& parts, const BoardSet& set) {
  AtTerminal(parts, [&](cli::Job& job) {
    job.Place.Prog.Set = set;
    cli::RunRequest request;
    request.Auto = true;
    job.Windows.RunBy(request, {});
    job.Shell.MenuDeal();
    return cli::kDone;
  });
}

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
  shell::MainMenu menu(program, shell);
  windows.SetMainMenu(menu);
  ui.SetMainWindow(menu.ForUi());
  static_cast<void>(shell.StartUp(commandLine));
  work(Desktop{program, menu, shell});
}

}  // namespace morvane::bench
