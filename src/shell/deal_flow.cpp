#include "shell/deal_flow.h"

#include "machine/dealing_run.h"
#include "machine/open_link.h"

namespace morvane::shell {
namespace {

constexpr std::int16_t kRunTimeoutMs = 200;

void Run(Program& program, machine::Machine& machine, machine::RunMemory& memory,
         machine::RunDialogs& dialogs) {
  machine::DealingRun run(program, machine, memory);
  const auto window = dialogs.OpenDealinProg(run);
  if (!window) {
    machine.Link.CloseLink();
    program.ShowMessage("      This program has no window for a run.      ", kOkCritical,
                        "Dealing Error");
    return;
  }
  run.Open(*window);
  program.Loop.RunUntil([&] { return run.Closed(); });
  if (!run.Closed()) run.Exit();
}

}  // namespace

void DealFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
              machine::RunDialogs& dialogs) {
  program.Status("Dealing");
  if (!program.Set.Exists()) {
    program.Status(program.Texts.Msg034);
    program.ShowMessage(program.Texts.Msg034, kOkCritical, "Dealing Error");
  } else if (machine::OpenLink(program, machine.Link, kRunTimeoutMs)) {
    Run(program, machine, memory, dialogs);
  }
  program.Status("Ready");
}

}  // namespace morvane::shell
