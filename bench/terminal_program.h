#pragma once

#include "bench/link_parts.h"
#include "cli/job.h"

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

}  // namespace morvane::bench
