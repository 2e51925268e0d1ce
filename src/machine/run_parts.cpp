#include "machine/run_parts.h"

namespace morvane::machine {

DialogAnswer AskAboutError(RunParts& run, DialogAnswer standing,
                           const std::optional<WrongBoard>& wrongBoard) {
  ErrorDialog dialog(run.Prog, run.TheMachine, standing, wrongBoard);
  run.View->ShowError(dialog);
  return dialog.DialogResult;
}

}  // namespace morvane::machine
