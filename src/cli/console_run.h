#pragma once

#include <memory>
#include <string>

#include "cli/fault_answers.h"
#include "cli/run_request.h"
#include "machine/machine_run.h"
#include "platform/console/progress_line.h"

namespace morvane::cli {

/// A run window of the command line: starts what is to be done, once the machine is known and each
/// time that it is idle, or waits for somebody to start it there; shows how far it is; has faults
/// answered on the terminal; and leaves behind the last.
class ConsoleRun : public machine::RunView {
 public:
  void ShowState() final;
  void ShowControls() override {}
  void ShowError(machine::ErrorDialog& dialog) final;
  void Close() final;

 protected:
  /// All of it outlives the run.
  ConsoleRun(EventLoop& loop, Terminal& terminal, machine::MachineRun& run,
             const RunRequest& request, const MachineSide& side);

  /// What the machine had to be known for.
  virtual void Prepare() {}
  virtual void Start() = 0;
  /// What somebody at the machine is to start, as "board 7".
  [[nodiscard]] virtual std::string Coming() const = 0;
  /// How far what is under way has come.
  [[nodiscard]] virtual std::string Progress() const = 0;
  /// Takes note of what has ended, `ok` or not.
  virtual void Note(bool ok) = 0;
  /// There is more to start.
  [[nodiscard]] virtual bool More() const = 0;

  // Where nobody has asked for `Auto`, or a person has to lay cards first.
  [[nodiscard]] virtual bool NeedsAPerson() const { return false; }
  /// What the operator is told to do so that what is coming starts.
  [[nodiscard]] virtual std::string Invitation() const;
  /// Enter starts it too, by `Enter`.
  [[nodiscard]] virtual bool TakesEnter() const { return static_cast<bool>(side_.PressPedal); }
  virtual void Enter() { side_.PressPedal(); }

  [[nodiscard]] int CardsFallen() const;
  Terminal& terminal_;
  const MachineSide& side_;

 private:
  void Tick();
  void StartOrWait();
  void WaitForPerson();
  void TakeNote();

  machine::MachineRun& run_;
  const RunRequest& request_;
  FaultAnswers faults_;
  std::unique_ptr<Timer> starter_;
  ProgressLine progress_;
  bool prepared_ = false;
  bool asked_ = false;  ///< for the board or the pedal
  bool ran_ = false;    ///< cards have run since the last note
};

}  // namespace morvane::cli
