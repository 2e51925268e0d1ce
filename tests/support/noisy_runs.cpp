#include "support/noisy_runs.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <utility>
#include <vector>

#include "generate/number_dealer.h"
#include "machine/dealing_run.h"
#include "machine/open_link.h"
#include "machine/reading_run.h"
#include "simulator/simulated_machine.h"
#include "support/bridge_tap.h"
#include "support/fakes.h"
#include "text/text.h"

namespace morvane::test {
namespace {

using machine::BoardRun;
using machine::DealingRun;
using machine::ErrorDialog;
using machine::MachineRun;
using machine::ReadingRun;
using machine::RunKind;

constexpr std::int16_t kTimeoutMs = 200;
constexpr int kThinkingMs = 250;  ///< until a dialog is answered; it polls meanwhile
constexpr int kBetweenMs = 250;   ///< from board to board
constexpr int kAttemptsABoard = 20;

/// The lines that a log has got since the last look.
class LogTail {
 public:
  explicit LogTail(std::string path) : path_(std::move(path)) {}
  std::vector<std::string> NewLines() {
    std::vector<std::string> lines;
    std::ifstream file(path_, std::ios::binary);  // comes with its first line
    file.seekg(at_);
    for (std::string line; std::getline(file, line);) {
      at_ += static_cast<std::streamoff>(line.size()) + 1;
      if (line.ends_with('\r')) line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

 private:
  std::string path_;
  std::streamoff at_ = 0;
};

/// "  007 : ..." is the line of a board that came through or not.
bool IsRunLine(std::string_view line) {
  return line.size() > 8 && line.starts_with("  ") && line.substr(5, 3) == " : ";
}

simulator::Options MachineOptions(double noise, std::uint64_t seed) {
  simulator::Options options;
  options.Speed = 0;
  options.Noise = noise;
  options.Seed = seed;
  return options;
}

}  // namespace

class NoisyRuns::Desk final : public machine::RunView {
 public:
  Desk(NoisyRuns& owner, RunKind kind, double noise, std::uint64_t seed)
      : owner_(owner), kind_(kind), simulated_(MachineOptions(noise, seed), desk_.Clock) {
    bridge_.OnFrame = [this] {
      ++tally_.Frames;
      if (machine_.Link.CommErrorCount != 0) ++tally_.Repeats;  // a second try
    };
    desk_.Ui.Default = kNo;
    desk_.Random.Seed(seed);
    dealer_.Seedo = {static_cast<std::uint32_t>(seed), static_cast<std::uint32_t>(seed >> 32U)};
  }

  bool Run(int boards) {
    int attempts = 0;
    while (tally_.Ok < boards) {
      MakeSet(std::min(boards - tally_.Ok, kMaxBoards));
      while (!AllDone()) {
        if (attempts > kAttemptsABoard * boards) return false;
        attempts += RunOnce();
      }
    }
    return true;
  }

  [[nodiscard]] const RunTally& Tally() const { return tally_; }

  void ShowState() override { TakeLog(); }
  void ShowBoard() override {}
  void ShowControls() override {}
  void FocusNext() override {}
  void Close() override {}
  void ShowError(ErrorDialog& dialog) override {
    faultShown_ = true;
    const bool goOn = dialog.Continue_button.Visible;
    ++tally_.Shown[dialog.Error_label + ", " + dialog.Error_code + ": " +
                   (goOn ? "Continue" : "Cancel")];
    dialog.Open([] {});
    const auto answer = desk_.Loop.StartTimer(
        kThinkingMs, [&dialog, goOn] { goOn ? dialog.PressContinue() : dialog.PressCancel(); });
    desk_.Loop.RunUntil([&] { return dialog.Closed(); });
  }

 private:
  void MakeSet(int boards) {
    BoardSet& set = desk_.Prog.Set;
    set.Clear();
    set.FirstBoard = 1;
    set.LastBoard = static_cast<std::int16_t>(boards);
    for (int n = 1; n <= boards; ++n) MakeBoard(n);
    firstUndone_ = 1;
  }
  void MakeBoard(int n) {
    Board& board = desk_.Prog.Set.At(n);
    board = NumberedBoard(n);  // empty, to be read
    if (kind_ == RunKind::kDeal) dealer_.NextNumberDeal(board);
    AnalyzeBoard(board);
  }
  [[nodiscard]] bool AllDone() const { return firstUndone_ > desk_.Prog.Set.LastBoard; }

  std::unique_ptr<BoardRun> MakeRun(machine::RunMemory& memory) {
    if (kind_ == RunKind::kDeal) {
      return std::make_unique<DealingRun>(desk_.Prog, machine_, memory);
    }
    return std::make_unique<ReadingRun>(desk_.Prog, machine_, memory, [] {});
  }

  /// Opens the run window and runs boards until all is done or the link is lost. How many attempts.
  int RunOnce() {
    machine::OpenLink(desk_.Prog, machine_.Link, kTimeoutMs);
    machine::RunMemory memory;
    const std::unique_ptr<BoardRun> made = MakeRun(memory);
    BoardRun& run = *made;
    run.Open(*this);
    desk_.Loop.WaitMs(MachineRun::kFirstContactMs + kBetweenMs);
    Judge(run);
    if (!run.Closed()) run.LeaveSubfrom(std::to_string(firstUndone_));
    int attempts = 1;
    for (; !run.Closed() && !AllDone(); ++attempts) {
      Attempt(run);
      if (!run.Closed()) desk_.Loop.WaitMs(kBetweenMs);
      Judge(run);
    }
    if (!run.Closed()) run.Exit();
    NoteBoxes();
    return attempts;
  }

  void Attempt(BoardRun& run) {
    if (kind_ == RunKind::kRead && !run.Window().Controls.Deal_next) Clear(run);
    faultShown_ = false;
    repeatsBefore_ = tally_.Repeats;
    run.Window().Controls.Deal_next ? run.Deal_next() : run.cmdDeal();
  }

  /// What half a reading has left of the board.
  void Clear(BoardRun& run) {
    desk_.Ui.Answers = {kYes};
    run.cmdClear();
    desk_.Ui.Answers.clear();
  }

  /// At once when the line is written, while the cards still lie where the run has put them.
  void TakeLog() {
    for (const std::string& line : log_.NewLines()) {
      if (!IsRunLine(line)) continue;
      if (line.find(" OK") != std::string::npos) {
        TakeDone(Val(std::string_view(line).substr(2, 3)));
      } else {
        stopped_ = true;
      }
    }
  }

  void TakeDone(int number) {
    ++tally_.Ok;
    ++(faultShown_                        ? tally_.AfterFaults
       : tally_.Repeats != repeatsBefore_ ? tally_.AfterRepeats
                                          : tally_.AtOnce);
    Board pockets = simulated_.DealtBoard();
    if (owner_.OnPockets) owner_.OnPockets(pockets);
    Compare(desk_.Prog.Set.At(number), pockets);
    firstUndone_ = std::max(firstUndone_, number + 1);
  }

  void Compare(const Board& board, const Board& pockets) {
    bool wrong = false;
    bool unknown = false;
    for (std::size_t card = 1; card <= kCards; ++card) {
      const bool nobodys = kind_ == RunKind::kRead && board.Cards[card] == 0;
      unknown |= nobodys;
      wrong |= !nobodys && board.Cards[card] != pockets.Cards[card];
    }
    tally_.Wrong += wrong ? 1 : 0;
    tally_.Unknown += unknown ? 1 : 0;
  }

  void Judge(const BoardRun& run) {
    TakeLog();
    const bool lost = run.LastOutcome() == MachineRun::Outcome::kLinkLost;
    if (stopped_) {
      ++(lost ? tally_.LinkLost : tally_.Stopped);
    } else if (run.Closed()) {
      ++tally_.LostBetween;
    }
    stopped_ = false;
  }

  void NoteBoxes() {
    for (const auto& box : desk_.Ui.Boxes) {
      // The questions behind the last board and before clearing are none of the line's.
      if ((box.Flags & kYesNoQuestion) == kYesNoQuestion) continue;
      ++tally_.Shown[Trim(OneLine(box.Text))];
    }
    desk_.Ui.Boxes.clear();
  }

  NoisyRuns& owner_;
  RunKind kind_;
  TestDesk desk_;
  simulator::SimulatedMachine simulated_;
  BridgeTap bridge_{simulated_};
  machine::Machine machine_{desk_.Random, bridge_};
  LogTail log_{desk_.Prog.Log.Path()};
  generate::NumberDealer dealer_;
  RunTally tally_;
  int firstUndone_ = 1;
  bool faultShown_ = false;
  bool stopped_ = false;  ///< a board has ended without OK since the last look
  std::int64_t repeatsBefore_ = 0;
};

NoisyRuns::NoisyRuns(RunKind kind, double noise, std::uint64_t seed)
    : desk_(std::make_unique<Desk>(*this, kind, noise, seed)) {}
NoisyRuns::~NoisyRuns() = default;
bool NoisyRuns::Run(int boards) { return desk_->Run(boards); }
const RunTally& NoisyRuns::Tally() const { return desk_->Tally(); }

}  // namespace morvane::test
