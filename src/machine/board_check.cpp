#include "machine/board_check.h"

#include "wire/board_labels.h"

namespace morvane::machine {
namespace {

constexpr int kLabelReadings = 6;
constexpr int kLabelWaitMs = 100;

/// Up to six readings, until one is the current board's.
class LabelReader {
 public:
  explicit LabelReader(RunParts& run) : run_(run) {}

  /// False when the run has to stop.
  bool Read() {
    for (int reading = 0; reading < kLabelReadings; ++reading) {
      if (!ReadOnce()) return false;
      if (IsRight()) break;
      run_.Prog.Loop.WaitMs(kLabelWaitMs);
      if (run_.Run.Leaving()) break;
    }
    return !run_.Run.Leaving();
  }
  [[nodiscard]] bool IsRight() const { return number_ == run_.Prog.Set.CurrentBoard; }
  [[nodiscard]] int BoardNumberRead() const { return number_; }

 private:
  bool ReadOnce() {
    const auto reply = run_.TheMachine.Exchange(wire::SensorCommand{});
    if (reply && reply->Selector == wire::SensorCommand::kBoardLabel) {
      number_ = wire::BoardLabelTable[reply->Value];
    }
    return run_.Run.Step();
  }

  RunParts& run_;
  int number_ = 0;  ///< 0 = the label is not valid
};

}  // namespace

BoardCheck VerifyInsertedBoard(RunParts& run) {
  while (true) {
    LabelReader label(run);
    if (!label.Read()) return run.TheMachine.Lost() ? BoardCheck::kLinkLost : BoardCheck::kStop;
    if (label.IsRight()) return BoardCheck::kDeal;
    const int read = label.BoardNumberRead();
    DialogAnswer answer = AskAboutError(run.Prog, run.TheMachine, *run.View, kDealAnyway,
                                        Fault{.Board = run.Prog.Set.CurrentBoard, .Label = read});
    if (run.Prog.Loop.Quitting()) answer = kStop;
    run.Run.RunLogLine += "64," + std::to_string(read) + "," + std::to_string(int{answer}) + " ";
    run.Run.Pump();
    if (answer == kStop || run.Run.Leaving()) return BoardCheck::kStop;
    if (answer == kDealAnyway) return BoardCheck::kDeal;
  }
}

}  // namespace morvane::machine
