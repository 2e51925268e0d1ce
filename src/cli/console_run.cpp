#include "cli/console_run.h"

#include <algorithm>
#include <numeric>

#include "platform/console/console_ui.h"
#include "text/columns.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

constexpr int kTickMs = 10;
constexpr int kKeyboardMs = 50;

std::string BoardText(int number) { return "Board " + RightAligned(std::to_string(number), 3); }

}  // namespace

ConsoleRun::ConsoleRun(Program& program, Terminal& terminal, machine::BoardRun& run,
                       const DealOptions& request, MachineSide side, RunReport& report)
    : program_(program),
      terminal_(terminal),
      run_(run),
      request_(request),
      side_(std::move(side)),
      report_(report),
      starter_(program.Loop.StartTimer(kTickMs, [this] { Tick(); })) {}

void ConsoleRun::Close() { starter_.reset(); }

void ConsoleRun::Tick() {
  if (!run_.Options().MachineKnown || run_.Running()) return;
  if (!prepared_) Prepare();
  if (ran_) {
    EndBoard();
  } else {
    StartBoard();
  }
}

void ConsoleRun::Prepare() {
  prepared_ = true;
  if (request_.To) run_.LeaveSubto(std::to_string(*request_.To));
  if (request_.From) run_.LeaveSubfrom(std::to_string(*request_.From));
  if (request_.Copies) run_.SetNumberCopies(std::to_string(*request_.Copies));
}

void ConsoleRun::StartBoard() {
  if (!request_.Auto) {
    WaitForPedal();
    return;
  }
  if (run_.Window().Controls.Deal_next) {
    run_.Deal_next();
  } else {
    run_.cmdDeal();
  }
  if (!ran_) run_.Exit();  // refused, which has been told
}

void ConsoleRun::WaitForPedal() {
  if (!asked_) {
    const std::string board = std::to_string(ComingBoard());
    terminal_.Out(side_.PressPedal
                      ? "Press Enter to press the machine's pedal for board " + board + ".\n"
                      : "Insert board " + board + " or press the pedal.\n");
  }
  asked_ = true;
  if (!side_.PressPedal) return;
  if (terminal_.ReadLineIfAny()) side_.PressPedal();
  if (terminal_.InputEnded()) run_.Exit();
}

void ConsoleRun::EndBoard() {
  ran_ = false;
  asked_ = false;
  const DealtBoard board{program_.Set.CurrentBoard, run_.Place().CurrentCopy(),
                         run_.Cards().Seconds(),
                         run_.LastOutcome() == machine::BoardRun::Outcome::kDone,
                         side_.Judge ? side_.Judge(program_.Set.Current()) : Verdict{}};
  ShowProgress("");
  terminal_.Out(BoardText(board.Number) + "  " + FixedPoint(board.Seconds, 1) + " s  " +
                (board.Ok ? "OK" : "stopped") + "\n");
  report_.Boards.push_back(board);
  if (!board.Ok || !run_.Window().Controls.Deal_next) run_.Exit();
}

int ConsoleRun::ComingBoard() const {
  // The run moves on only when the next board is started.
  const bool movesOn = run_.Window().Controls.Deal_next && run_.Place().AtLastCopy();
  return program_.Set.CurrentBoard + (movesOn ? 1 : 0);
}

void ConsoleRun::ShowState() {
  if (!run_.Running()) return;
  ran_ = true;
  const auto& counts = run_.TheMachine().CardCount;
  const int cards = std::accumulate(counts.begin(), counts.end(), 0);
  ShowProgress(BoardText(program_.Set.CurrentBoard) + "  " + std::to_string(cards) +
               " of 52 cards  " + run_.Cards().txtDealTime + " s");
}

void ConsoleRun::ShowProgress(const std::string& text) {
  if (!terminal_.ShowsProgress() || text == progress_) return;
  const std::size_t rest = progress_.size() > text.size() ? progress_.size() - text.size() : 0;
  terminal_.Out("\r" + text + std::string(rest, ' ') + (text.empty() ? "\r" : ""));
  progress_ = text;
}

void ConsoleRun::ShowError(machine::ErrorDialog& dialog) {
  ShowProgress("");
  terminal_.Error(dialog.ErrorText() + "\n" + dialog.Error_code + "\n" + dialog.Error_board + "\n");
  dialog.Open([] {});
  const bool canAsk = !request_.Yes && terminal_.CanAsk();
  const bool board = dialog.ButtonMode == machine::ButtonMode::kBoardError;
  if (!canAsk) {
    const bool goOn = request_.Yes && dialog.Continue_button.Visible && !board;
    goOn ? dialog.PressContinue() : dialog.PressCancel();
    return;
  }
  Answer(dialog);
}

void ConsoleRun::Answer(machine::ErrorDialog& dialog) {
  std::string prompt;
  int number = 0;
  for (const auto* button : {&dialog.Continue_button, &dialog.Cancel_button, &dialog.Cancel2}) {
    ++number;
    if (button->Visible) prompt += std::to_string(number) + " " + button->Caption + "  ";
  }
  terminal_.Error(prompt + "? ");
  // The dialog goes on polling meanwhile, since the pedal may answer it.
  const auto keyboard = program_.Loop.StartTimer(kKeyboardMs, [&] {
    const auto line = terminal_.ReadLineIfAny();
    if (terminal_.InputEnded()) dialog.PressCancel();
    if (!line) return;
    const std::string answer = Trim(*line);
    if (answer == "1" && dialog.Continue_button.Visible) dialog.PressContinue();
    if (answer == "2" && dialog.Cancel_button.Visible) dialog.PressCancel();
    if (answer == "3" && dialog.Cancel2.Visible) dialog.PressCancel2();
    if (!dialog.Closed()) terminal_.Error(prompt + "? ");
  });
  program_.Loop.RunUntil([&] { return dialog.Closed() || run_.Cards().Leaving(); });
  if (!dialog.Closed()) dialog.PressCancel();
}

}  // namespace morvane::cli
