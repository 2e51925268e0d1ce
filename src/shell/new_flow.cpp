#include "shell/new_flow.h"

#include "files/save_set.h"
#include "generate/seeds.h"

namespace morvane::shell {
namespace {

/// Whether the flow goes on. After Yes it does so even if the save was cancelled: required.
bool AskAboutUnsaved(Program& program, history::History& history) {
  if (!program.Set.Changed()) return true;
  const int answer =
      program.Ask(program.Texts.Msg062, kYesNoCancelExclamation, generate::kGenerateCaption);
  if (answer == kYes) files::SaveBoardSet(program, history);
  return answer != kCancel && !program.Loop.Quitting();
}

}  // namespace

void NewFlow(Program& program, generate::Generator& generator, history::History& history,
             FlowWindows& windows, const std::function<void()>& keep) {
  if (program.AnalysisRunning) {
    program.ShowMessage(program.Texts.Msg103, kOkCritical, "New Error");
    return;
  }
  program.Status("Generate");
  if (AskAboutUnsaved(program, history)) {
    generate::GenerateForm form(program, generator, history, [&] {
      keep();
      RefreshStatistics(program, windows);
    });
    windows.ShowGenerate(form);
    RefreshStatistics(program, windows);
  }
  program.Status("Ready");
}

}  // namespace morvane::shell
