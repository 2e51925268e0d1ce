#pragma once

#include <memory>
#include <string>

#include "analysis/mailbox.h"
#include "analysis/solver.h"
#include "analysis/solver_process.h"
#include "program/program.h"

namespace morvane::analysis {

/// What `DeepF` needs of its window. What is shown is read from `DeepF`.
class DeepFView {
 public:
  virtual ~DeepFView() = default;
  /// Label, bar or button have changed.
  virtual void Show() = 0;
  virtual void Close() = 0;
};

/// `DeepF` without its looks: has a solver analyse the boards of the set that have no results yet,
/// one after the other, forward only, or one target board. The settings store is the mailbox.
class DeepF {
 public:
  static constexpr int kTimer1Ms = 107;
  static constexpr int kTimer2Ms = 93;
  static constexpr int kTimer3Ms = 50;

  /// How a run has ended.
  enum class Status : std::uint8_t {
    kWaiting = 0,
    kBoardFinished = 1,
    kCancelled = 2,
    kError = 3,
    kAllFinished = 4,
  };

  /// `targetBoard` 0: all boards of the set.
  DeepF(Program& program, SolverProcess& process, Solver solver, int targetBoard);
  DeepF(const DeepF&) = delete;
  DeepF& operator=(const DeepF&) = delete;
  ~DeepF();

  void Open(DeepFView& view);
  /// The button, and the close box.
  void DF_Cancel();

  /// The program ends: the solver is told to break, and has a moment to answer.
  void BreakOff();

  /// A window that the operator waits for. Deep Finesse takes minutes a board: a set goes on beside
  /// other work.
  [[nodiscard]] bool IsModal() const { return solver_ == Solver::kDds || target_ > 0; }
  [[nodiscard]] std::string_view Title() const { return WordsOf(solver_).Title; }
  [[nodiscard]] const std::string& Label() const { return label_; }
  [[nodiscard]] double Progress() const { return progress_; }  ///< of the board, in percent
  /// Boards of this run that have their results, and all that it began with.
  [[nodiscard]] int BoardsDone() const { return done_; }
  [[nodiscard]] int BoardsAsked() const { return asked_; }
  [[nodiscard]] bool Closed() const { return closed_; }
  [[nodiscard]] morvane::analysis::DeepF::Status Outcome() const { return status_; }
  [[nodiscard]] int CurrentBoard() const { return board_; }
  /// The solver has ended without an answer: nothing but a cancel ends the run.
  [[nodiscard]] bool IsSolverGone() const { return gone_; }

 private:
  void DF_Timer1Tick();
  void DF_Timer2Tick();
  /// The next board from `from` on without results, 0 when there is none.
  [[nodiscard]] int NextBoard(int from) const;
  [[nodiscard]] std::string RangeText() const;
  void LabelBoard();
  /// Starts the solver as soon as an earlier one has gone.
  void StartWhenFree();
  [[nodiscard]] bool StartSolver();
  void ShowProgress(std::string_view done);
  void TakeAnswer(Answer answer);
  void TakeResult();
  void TakeError(Answer answer);
  void LookForSolver();
  void GoToNextBoard();
  [[nodiscard]] std::string RunTime() const;
  void WriteEnd();
  void Close();
  /// Whether it is written; beside the flows no box of its own may tell that it is not.
  bool Write(const SettingKey& key, std::string_view value);
  void Tell(const std::string& text, int flags = kOkCritical);
  void TellAs(const std::string& title, const std::string& text, int flags);
  void StartTimer2();

  Program& program_;
  SolverProcess& process_;
  Solver solver_;
  int target_;
  int first_;
  int last_;
  int board_ = 0;
  DeepFView* view_ = nullptr;
  std::string label_;
  double progress_ = 0;
  Status status_ = Status::kWaiting;
  int done_ = 0;
  int asked_ = 0;
  int runTicks_ = 0;
  int boardTicks_ = 0;
  int estimate_ = 100;
  bool cancelAsked_ = false;
  bool toStart_ = false;  ///< the board waits for an earlier solver to go
  bool gone_ = false;
  bool wasGone_ = false;  ///< at the last look: its answer may have come in between
  bool closed_ = false;
  std::unique_ptr<Timer> DF_Timer1_;
  std::unique_ptr<Timer> DF_Timer2_;
  std::unique_ptr<Timer> DF_Timer3_;
};

/// Brings up the window of an analysis.
class DeepFDialog {
 public:
  virtual ~DeepFDialog() = default;
  /// Shows it and gives it away; it goes when it is destroyed. Nothing: this program has no such
  /// window.
  [[nodiscard]] virtual std::unique_ptr<DeepFView> OpenDeepF(DeepF& /*run*/) { return nullptr; }
};

}  // namespace morvane::analysis
