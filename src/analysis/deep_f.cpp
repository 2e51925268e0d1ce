#include "analysis/deep_f.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

#include "analysis/deal_tokens.h"
#include "analysis/soft_progress.h"
#include "model/results.h"
#include "platform/files.h"
#include "text/text.h"

namespace morvane::analysis {
namespace {

constexpr int kTicksInSecond = 20;
constexpr std::chrono::milliseconds kMomentToEnd{1000};

}  // namespace

DeepF::DeepF(Program& program, SolverProcess& process, Solver solver, int targetBoard)
    : program_(program),
      process_(process),
      solver_(solver),
      target_(targetBoard),
      first_(targetBoard > 0 ? targetBoard : program.Set.FirstBoard),
      last_(targetBoard > 0 ? targetBoard : program.Set.LastBoard) {
  for (int n = first_; n <= last_; ++n) asked_ += HasResults(program_.Set.At(n)) ? 0 : 1;
}

DeepF::~DeepF() {
  if (view_ == nullptr || closed_) return;
  Write(kSolverBreak, kBreak);  // nobody waits for its answer any more
  program_.AnalysisRunning = false;
}

void DeepF::Open(DeepFView& view) {
  view_ = &view;
  program_.AnalysisRunning = true;
  Write(kSolverAppPath, program_.Paths.Application);
  Write(kSolverBreak, kGoOn);
  program_.Log.WriteTime(" Analyze: ");
  label_ = "Preparing for analize....";
  DF_Timer1_ = program_.Loop.StartTimer(kTimer1Ms, [this] { DF_Timer1Tick(); });
  view_->Show();
}

void DeepF::DF_Timer1Tick() {
  const auto once = std::move(DF_Timer1_);
  std::error_code failure;
  std::filesystem::current_path(PathOfUtf8(program_.Paths.Application), failure);
  if (failure) {
    // That title for both solvers: required.
    TellAs("Deep Finesse Error", "    Directory Error      ", kOkCritical);
  }
  board_ = NextBoard(first_);
  if (board_ == 0) {
    Tell(target_ > 0 ? program_.Texts.Msg102 : program_.Texts.Msg101, kOkInformation);
    status_ = Status::kAllFinished;
    Close();
    return;
  }
  LabelBoard();
  StartWhenFree();
  if (status_ != Status::kError) {
    StartTimer2();
    return;
  }
  program_.Log.WriteLine(std::string(WordsOf(solver_).LogTag) + RangeText() + " " + RunTime() +
                         " Error Board: " + std::to_string(board_));
  Close();
}

int DeepF::NextBoard(int from) const {
  for (int n = from; n <= last_; ++n) {
    if (!HasResults(program_.Set.At(n))) return n;
  }
  return 0;
}

std::string DeepF::RangeText() const {
  if (target_ > 0) return std::to_string(target_);
  return std::to_string(first_) + "," + std::to_string(last_);
}

void DeepF::LabelBoard() {
  label_ = "Analyzing board: " + std::to_string(board_);
  if (target_ == 0) {
    label_ += "  out from: " + std::to_string(first_) + " to: " + std::to_string(last_);
  }
  view_->Show();
}

void DeepF::StartTimer2() {
  DF_Timer2_ = program_.Loop.StartTimer(kTimer2Ms, [this] { DF_Timer2Tick(); });
}

// Starting the solver for a board.

void DeepF::StartWhenFree() {
  toStart_ = process_.Lives();
  if (!toStart_ && !StartSolver()) status_ = Status::kError;
}

bool DeepF::StartSolver() {
  if (!Write(kSolverDone, CodeOf(Answer::kAtWork))) {
    // What stands there yet would be taken for this board's.
    Tell("      Settings cannot be saved      \r\n      No solver can answer      ");
    return false;
  }
  std::vector<std::string> tokens = DealTokens(program_.Set.At(board_));
  if (tokens.empty()) {
    Tell(program_.Texts.Msg094);
    return false;
  }
  boardTicks_ = 0;
  wasGone_ = false;
  DF_Timer3_ = program_.Loop.StartTimer(kTimer3Ms, [this] {
    ++runTicks_;
    ++boardTicks_;
  });
  const auto error = process_.Start(solver_, std::move(tokens));
  if (!error) return true;
  Tell(Fill(Fill(Fill(program_.Texts.Msg090, "&&&", "Error"), "###", std::to_string(error->Number)),
            "***", error->Description));
  return false;
}

// Its answer.

void DeepF::DF_Timer2Tick() {
  const auto stopped = std::move(DF_Timer2_);
  if (toStart_ && cancelAsked_) {
    status_ = Status::kCancelled;
  } else if (toStart_) {
    StartWhenFree();
  } else {
    const std::string done = program_.Store.Get(kSolverDone);
    ShowProgress(done);
    TakeAnswer(AnswerOf(done));
  }
  if (status_ == Status::kBoardFinished) GoToNextBoard();
  if (status_ == Status::kWaiting) {
    StartTimer2();
    return;
  }
  WriteEnd();
  Close();
}

void DeepF::ShowProgress(std::string_view done) {
  if (solver_ == Solver::kDds) {
    progress_ = SoftProgress(boardTicks_, estimate_);
  } else if (const auto told = ProgressOf(done); told && *told < 100) {
    progress_ = *told;
  }
  view_->Show();
}

void DeepF::TakeAnswer(Answer answer) {
  switch (answer) {
    case Answer::kAtWork:
      LookForSolver();
      break;
    case Answer::kFinished:
      TakeResult();
      break;
    case Answer::kStopped:
      status_ = Status::kCancelled;
      break;
    default:
      TakeError(answer);
  }
}

/// A solver that has died says nothing more.
void DeepF::LookForSolver() {
  const bool wasGone = std::exchange(wasGone_, !process_.Lives());
  if (!wasGone) return;
  if (!gone_) {
    gone_ = true;
    label_ = "The solver has ended without an answer";
    view_->Show();
  }
  if (cancelAsked_) status_ = Status::kCancelled;
}

void DeepF::TakeResult() {
  const auto levels = LevelsOf(program_.Store.Get(kSolverResult));
  if (!levels) {
    TakeError(Answer::kWrongTricks);
    return;
  }
  std::copy(levels->begin(), levels->end(), program_.Set.At(board_).Tricks.begin());
  status_ = Status::kBoardFinished;
  ++done_;
}

void DeepF::TakeError(Answer answer) {
  const Messages& texts = program_.Texts;
  const std::string error = program_.Store.Get(kSolverError);
  status_ = Status::kError;
  switch (answer) {
    case Answer::kWrongBoard:
      return Tell(texts.Msg094);
    case Answer::kNoLibrary:
      return Tell(texts.Msg095);
    case Answer::kFunction:
      return Tell(texts.Msg096);
    case Answer::kFunctionPath:
      return Tell(Fill(texts.Msg097, "***",
                       error == "Language not found" ? program_.Store.Get(kSolverPath) : error));
    case Answer::kAnalyzer:
      return Tell(Fill(texts.Msg098, "***", error));
    case Answer::kAnalysis:
      return Tell(Fill(texts.Msg099, "***", error));
    default:
      return Tell(Fill(texts.Msg100, "***", error));
  }
}

void DeepF::GoToNextBoard() {
  const int next = NextBoard(board_ + 1);
  if (next > 0) board_ = next;
  if (cancelAsked_) {
    status_ = Status::kCancelled;
    return;
  }
  if (next == 0) {
    status_ = Status::kAllFinished;
    return;
  }
  status_ = Status::kWaiting;
  LabelBoard();
  estimate_ = boardTicks_;
  StartWhenFree();
}

// The end.

void DeepF::DF_Cancel() {
  if (closed_) return;
  Write(kSolverBreak, kBreak);
  label_ = "Canceling... Please wait";
  cancelAsked_ = true;
  view_->Show();
}

void DeepF::BreakOff() {
  if (closed_) return;
  DF_Cancel();
  DF_Timer1_.reset();
  const auto until = program_.Time.Elapsed() + kMomentToEnd;
  while (!closed_ && board_ > 0 && program_.Time.Elapsed() < until) {
    program_.Time.Spend(std::chrono::milliseconds(kTimer2Ms));
    program_.Loop.Pump();
    if (!closed_) DF_Timer2Tick();
  }
  if (closed_) return;
  if (board_ == 0) board_ = first_;  // nothing has been started yet
  status_ = Status::kCancelled;
  WriteEnd();
  Close();
}

/// In seconds; none in front of the point where there is no whole one: required.
std::string DeepF::RunTime() const {
  std::string seconds = FixedPoint(static_cast<double>(runTicks_) / kTicksInSecond, 1);
  if (seconds.starts_with("0.")) seconds.erase(0, 1);
  return seconds + "s";
}

void DeepF::WriteEnd() {
  std::string line = std::string(WordsOf(solver_).LogTag) + RangeText() +
                     " ver: " + program_.Store.Get(kSolverVersion) + "  " + RunTime();
  if (status_ != Status::kAllFinished) {
    line += status_ == Status::kCancelled ? " Cancel" : " Error";
    line += " Board: " + std::to_string(board_);
  }
  program_.Log.WriteLine(line);
}

void DeepF::Close() {
  closed_ = true;
  DF_Timer1_.reset();
  DF_Timer2_.reset();
  DF_Timer3_.reset();
  program_.AnalysisRunning = false;
  view_->Close();
}

bool DeepF::Write(const SettingKey& key, std::string_view value) {
  return IsModal() ? program_.StoreSetting(key, value) : program_.Store.Set(key, value);
}

void DeepF::Tell(const std::string& text, int flags) {
  TellAs(std::string(WordsOf(solver_).Error), text, flags);
}

void DeepF::TellAs(const std::string& title, const std::string& text, int flags) {
  IsModal() ? program_.ShowMessage(text, flags, title) : program_.ShowBeside(text, flags, title);
}

}  // namespace morvane::analysis
