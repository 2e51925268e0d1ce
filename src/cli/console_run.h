#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cli/request.h"
#include "machine/dealing_run.h"
#include "platform/console/terminal.h"
#include "program/program.h"

namespace morvane::cli {

/// How one board of a run ended.
struct DealtBoard {
  int Number = 0;
  int Copy = 1;
  double Seconds = 0;
  bool Ok = false;
  std::string Verdict;  ///< of the four pockets against the board; empty where nobody can look
};

/// What a run leaves behind; its window is gone by then.
struct RunReport {
  std::vector<DealtBoard> Boards;
  bool Finished = false;  ///< every board that was asked for has been dealt
};

/// Says what lies in the four pockets, held against `board`.
using PocketJudge = std::function<std::string(const Board& board)>;

/// The run window of the command line: starts the boards one after the other, shows a line a board,
/// has faults answered on the terminal, and leaves after the last board.
class ConsoleRun final : public machine::RunView {
 public:
  ConsoleRun(Program& program, Terminal& terminal, machine::DealingRun& run, const Request& request,
             PocketJudge judge, std::function<bool()> interrupted, RunReport& report);

  void ShowState() override;
  void ShowBoard() override {}
  void ShowControls() override {}
  void FocusDealNext() override {}
  void ShowError(machine::ErrorDialog& dialog) override;
  void Close() override;

 private:
  void Watch();
  void Tick();
  void Prepare();
  void StartBoard();
  void EndBoard();
  void Answer(machine::ErrorDialog& dialog);
  [[nodiscard]] int ComingBoard() const;
  [[nodiscard]] bool LastOne() const;
  void ShowProgress(const std::string& text);

  Program& program_;
  Terminal& terminal_;
  machine::DealingRun& run_;
  const Request& request_;
  PocketJudge judge_;
  std::function<bool()> interrupted_;
  RunReport& report_;
  std::unique_ptr<Timer> starter_;
  std::unique_ptr<Timer> watch_;  ///< apart from `starter_`, whose tick lasts as long as its board
  std::string progress_;
  bool prepared_ = false;
  bool asked_ = false;  ///< for the board or the pedal
  bool ran_ = false;    ///< a board has been under way since the last one was taken note of
};

}  // namespace morvane::cli
