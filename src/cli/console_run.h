#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cli/deal_options.h"
#include "machine/board_run.h"
#include "platform/console/terminal.h"
#include "program/program.h"

namespace morvane::cli {

/// What lies in the four pockets, held against the board.
struct Verdict {
  std::string Text;  ///< empty where nobody can look
  bool Right = true;
};

/// What can be seen and done at the machine itself; each may be empty.
struct MachineSide {
  std::function<Verdict(const Board& board)> Judge;
  std::function<void()> PressPedal;
};

/// How one board of a run ended.
struct DealtBoard {
  int Number = 0;
  int Copy = 1;
  double Seconds = 0;
  bool Ok = false;
  Verdict Pockets;
};

/// What a run leaves behind; its window is gone by then.
struct RunReport {
  std::vector<DealtBoard> Boards;
};

/// The run window of the command line: starts the boards one after the other, shows a line a board,
/// has faults answered on the terminal, and leaves after the last board.
class ConsoleRun final : public machine::RunView {
 public:
  ConsoleRun(Program& program, Terminal& terminal, machine::BoardRun& run,
             const DealOptions& request, MachineSide side, RunReport& report);

  void ShowState() override;
  void ShowBoard() override {}
  void ShowControls() override {}
  void FocusDealNext() override {}
  void ShowError(machine::ErrorDialog& dialog) override;
  void Close() override;

 private:
  void Tick();
  void Prepare();
  void StartBoard();
  void WaitForPedal();
  void EndBoard();
  void Answer(machine::ErrorDialog& dialog);
  [[nodiscard]] int ComingBoard() const;
  void ShowProgress(const std::string& text);

  Program& program_;
  Terminal& terminal_;
  machine::BoardRun& run_;
  const DealOptions& request_;
  MachineSide side_;
  RunReport& report_;
  std::unique_ptr<Timer> starter_;
  std::string progress_;
  bool prepared_ = false;
  bool asked_ = false;  ///< for the board or the pedal
  bool ran_ = false;    ///< a board has been under way since the last one was taken note of
};

}  // namespace morvane::cli
