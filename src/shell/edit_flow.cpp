#include "shell/edit_flow.h"

#include <utility>

#include "shell/refresh_statistics.h"

namespace morvane::shell {

void EditFlow(Program& program, generate::Generator& generator, edit::ClipMemory& clip,
              FlowWindows& windows, edit::Editor::Services services) {
  program.Status("Edit Board");
  edit::Editor editor(program, clip,
                      {program.Random, generator.Pool.StartParamMouse,
                       generator.Pool.StartParamDays, generator.Shuffling.Deck},
                      std::move(services));
  editor.Open();
  if (!windows.ShowEdit(editor)) {
    program.ShowMessage("      This program has no window for the editor.      ", kOkCritical,
                        "Edit Error");
  }
  program.Operator.RefreshSet();
  RefreshStatistics(program, windows);
  program.Status("Ready");
}

}  // namespace morvane::shell
