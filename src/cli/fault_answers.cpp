#include "cli/fault_answers.h"

#include "text/text.h"

namespace morvane::cli {
namespace {

constexpr int kKeyboardMs = 50;

/// "1 Continue  2 Cancel  ? "
std::string PromptOf(const machine::ErrorDialog& dialog) {
  std::string prompt;
  int number = 0;
  for (const auto* button : {&dialog.Continue_button, &dialog.Cancel_button, &dialog.Cancel2}) {
    ++number;
    if (button->Visible) prompt += std::to_string(number) + " " + button->Caption + "  ";
  }
  return prompt + "? ";
}

}  // namespace

void FaultAnswers::Take(machine::ErrorDialog& dialog) {
  terminal_.Error(dialog.ErrorText() + "\n" + dialog.Error_code + "\n" + dialog.Error_board + "\n");
  dialog.Open([] {});
  if (who_ == By::kOperator && terminal_.CanAsk()) {
    Ask(dialog);
    return;
  }
  const bool board = dialog.ButtonMode == machine::ButtonMode::kBoardError;
  const bool goOn = who_ == By::kYes && dialog.Continue_button.Visible && !board;
  goOn ? dialog.PressContinue() : dialog.PressCancel();
}

void FaultAnswers::Ask(machine::ErrorDialog& dialog) {
  const std::string prompt = PromptOf(dialog);
  terminal_.Error(prompt);
  // The dialog goes on polling meanwhile, since the pedal may answer it.
  const auto keyboard = loop_.StartTimer(kKeyboardMs, [&] { TakeLine(dialog, prompt); });
  loop_.RunUntil([&] { return dialog.Closed() || leaving_(); });
  if (!dialog.Closed()) dialog.PressCancel();
}

void FaultAnswers::TakeLine(machine::ErrorDialog& dialog, const std::string& prompt) {
  const auto line = terminal_.ReadLineIfAny();
  if (terminal_.InputEnded()) dialog.PressCancel();
  if (!line) return;
  const std::string answer = Trim(*line);
  if (answer == "1" && dialog.Continue_button.Visible) dialog.PressContinue();
  if (answer == "2" && dialog.Cancel_button.Visible) dialog.PressCancel();
  if (answer == "3" && dialog.Cancel2.Visible) dialog.PressCancel2();
  if (!dialog.Closed()) terminal_.Error(prompt);
}

}  // namespace morvane::cli
