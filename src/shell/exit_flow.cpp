#include "shell/exit_flow.h"

#include "files/save_set.h"

namespace morvane::shell {

bool ExitFlow(Program& program, generate::Generator& generator, history::History& history) {
  // Before any question, so that the pool is saved even if the exit is cancelled.
  generator.Pool.SavePool();
  if (program.AnalysisRunning) {
    program.ShowMessage(program.Texts.Msg105, kOkCritical, "Exit Error");
    return false;
  }
  if (!program.Set.Changed()) return true;
  const int answer = program.Ask(program.Texts.Msg062, kYesNoCancelExclamation, "Exit");
  if (answer == kYes) files::SaveBoardSet(program, history);
  return answer == kNo || !program.Set.Changed();
}

}  // namespace morvane::shell
