#include <stdexcept>

#include "machine/dealing_run.h"
#include "machine/open_link.h"
#include "machine/reading_run.h"
#include "simulator/simulated_machine.h"
#include "support/bridge_tap.h"
#include "support/fakes.h"

namespace morvane::machine {
namespace {

using simulator::SimulatedMachine;

/// The simulated machine, one card a poll, with board 1 in its slot, and a run on it. Something
/// happens to the machine before one of the frames of the board goes out.
class Table final : public RunView {
 public:
  using Mishap = std::function<void(SimulatedMachine&)>;

  explicit Table(RunKind kind) : Kind(kind) {
    test::FillSet(Desk.Prog.Set, 1, 1);
    if (kind == RunKind::kRead) Desk.Prog.Set.At(1) = NumberedBoard(1);
    Desk.Ui.Default = kNo;
    Simulated.InsertBoard(1);
    Contact();
  }

  /// Deals or reads the board with `mishap` before frame `at`, counted from 1.
  void Play(int at, const Mishap& mishap) {
    Frames = 0;
    Tap.OnFrame = [=, this] {
      if (++Frames == at) mishap(Simulated);
    };
    Run->cmdDeal();
    Tap.OnFrame = nullptr;
  }
  /// Opens the run window, anew where it has gone.
  void Contact() {
    Run.reset();
    OpenLink(Desk.Prog, TheMachine.Link, 200);
    if (Kind == RunKind::kDeal) {
      Run = std::make_unique<DealingRun>(Desk.Prog, TheMachine, Memory);
    } else {
      Run = std::make_unique<ReadingRun>(Desk.Prog, TheMachine, Memory, [] {});
    }
    Run->Open(*this);
    Desk.Loop.WaitMs(MachineRun::kFirstContactMs);
  }
  /// What a stopped reading has left is cleared first.
  void PlayAgain() {
    Desk.Ui.Answers = {kYes};
    Run->cmdClear();
    Desk.Ui.Answers.clear();
    Play(0, nullptr);
  }
  /// Of the board's own line; a box may stand behind it.
  [[nodiscard]] bool IsLoggedOk() const {
    const auto lines = Desk.LogLines();
    const auto line = std::find_if(lines.rbegin(), lines.rend(), [](const std::string& text) {
      return text.starts_with("  001 : ");
    });
    return line != lines.rend() && line->find(" OK") != std::string::npos;
  }
  /// All cards, and as they are in the set.
  [[nodiscard]] bool LiesRight() const {
    return Simulated.DealtBoard().Cards == Desk.Prog.Set.At(1).Cards &&
           Desk.Prog.Set.At(1).Status == Board::kComplete;
  }

  void ShowState() override {
    if (OnState) OnState();
  }
  void ShowBoard() override {}
  void ShowControls() override {}
  void FocusNext() override {}
  void Close() override {}
  /// The operator puts the board back and goes on where he can.
  void ShowError(ErrorDialog& dialog) override {
    Errors.push_back(dialog.Error_code);
    dialog.Open([] {});
    const auto answer = Desk.Loop.StartTimer(250, [&] {
      Simulated.InsertBoard(1);
      dialog.Continue_button.Visible ? dialog.PressContinue() : dialog.PressCancel2();
    });
    Desk.Loop.RunUntil([&] { return dialog.Closed(); });
  }

  static simulator::Options Fast() {
    simulator::Options options;
    options.Speed = 0;
    options.Seed = 7;
    return options;
  }
  RunKind Kind;
  test::TestDesk Desk;
  SimulatedMachine Simulated{Fast(), Desk.Clock};
  test::BridgeTap Tap{Simulated};
  Machine TheMachine{Desk.Random, Tap};
  RunMemory Memory;
  std::unique_ptr<BoardRun> Run;
  std::function<void()> OnState;
  std::vector<std::string> Errors;
  int Frames = 0;
};

void SwitchOff(SimulatedMachine& machine) { machine.PowerOff(); }
void Restart(SimulatedMachine& machine) {
  machine.PowerOff();
  machine.PowerOn();
}
void PullBoard(SimulatedMachine& machine) { machine.RemoveBoard(); }

/// What a board takes: the start, a poll for each card and one behind the last, the board where it
/// is read, the card log, the probe.
struct Interrupted {
  RunKind Kind;
  const char* Name;
  int Frames;
  /// Restarts before these leave a board that is OK: before the start there is nothing to forget,
  /// behind the last poll every card has fallen.
  std::vector<int> RestartsThatDoNoHarm;
};
constexpr int kFirstCard = 2;
constexpr int kBehindTheLastPoll = 54;

class InterruptedRun : public ::testing::TestWithParam<Interrupted> {
 protected:
  [[nodiscard]] static int Frames() { return GetParam().Frames; }
};

TEST_P(InterruptedRun, ABoardLeftAloneTakesSoManyFrames) {
  Table table(GetParam().Kind);
  table.Play(0, nullptr);
  EXPECT_EQ(table.Frames, Frames());
  EXPECT_TRUE(table.IsLoggedOk() && table.LiesRight());
}

TEST_P(InterruptedRun, PowerOffAtAnyFrameIsALostLinkAndNoOk) {
  for (int at = 1; at <= Frames(); ++at) {
    SCOPED_TRACE(at);
    Table table(GetParam().Kind);
    table.Play(at, SwitchOff);
    EXPECT_EQ(table.Frames, at + 1) << "one more try, and nothing behind it";
    EXPECT_FALSE(table.IsLoggedOk());
    EXPECT_EQ(table.Run->LastOutcome(), MachineRun::Outcome::kLinkLost);
    EXPECT_EQ(table.Desk.Ui.Boxes.back().Text, table.Desk.Prog.Texts.Msg048);
    EXPECT_TRUE(table.Run->Closed());
  }
}

TEST_P(InterruptedRun, AfterPowerOffTheBoardBeginsAgain) {
  for (const int at : {1, kFirstCard, 30, kBehindTheLastPoll, Frames()}) {
    SCOPED_TRACE(at);
    Table table(GetParam().Kind);
    table.Play(at, SwitchOff);
    table.Simulated.PowerOn();
    table.Contact();
    table.PlayAgain();
    EXPECT_EQ(table.Frames, Frames());
    EXPECT_TRUE(table.IsLoggedOk() && table.LiesRight());
  }
}

TEST_P(InterruptedRun, ARestartAtAnyFrameIsOkOnlyWhereTheBoardLiesRight) {
  std::vector<int> ok;
  for (int at = 1; at <= Frames(); ++at) {
    SCOPED_TRACE(at);
    Table table(GetParam().Kind);
    table.Play(at, Restart);
    EXPECT_FALSE(table.Run->Closed()) << "it answers";
    EXPECT_TRUE(!table.IsLoggedOk() || table.LiesRight());
    if (table.IsLoggedOk()) ok.push_back(at);
    if (table.IsLoggedOk()) continue;
    EXPECT_EQ(table.Run->LastOutcome(), MachineRun::Outcome::kStopped);
    table.PlayAgain();
    EXPECT_TRUE(table.IsLoggedOk() && table.LiesRight()) << "from the beginning";
  }
  EXPECT_EQ(ok, GetParam().RestartsThatDoNoHarm);
}

TEST_P(InterruptedRun, APulledBoardIs58AndGoesOnWhenItIsBack) {
  for (int at = 1; at <= Frames(); ++at) {
    SCOPED_TRACE(at);
    Table table(GetParam().Kind);
    table.Play(at, PullBoard);
    const bool inTheMiddle = at >= kFirstCard && at < kBehindTheLastPoll;
    EXPECT_EQ(table.Errors, inTheMiddle ? std::vector<std::string>{"Error Code: 58"}
                                        : std::vector<std::string>{});
    EXPECT_TRUE(table.IsLoggedOk() && table.LiesRight());
    EXPECT_EQ(table.Desk.LogLines().back().find(" 58 OK") != std::string::npos, inTheMiddle);
  }
}

TEST_P(InterruptedRun, AFaultOfItsWindowBreaksTheMachineAndTheWindowCanGo) {
  for (const int at : {kFirstCard, 30, kBehindTheLastPoll - 2}) {
    SCOPED_TRACE(at);
    Table table(GetParam().Kind);
    EXPECT_THROW(table.Play(at,
                            [&](SimulatedMachine&) {
                              table.OnState = [] { throw std::runtime_error("no font"); };
                            }),
                 std::runtime_error);
    EXPECT_NE(table.TheMachine.MachineState, Machine::kBusy) << "it has answered the break";
    EXPECT_FALSE(table.Run->Running());
    EXPECT_FALSE(table.TheMachine.PollLock);
    table.Run->Exit();
    EXPECT_TRUE(table.Run->Closed());
    EXPECT_FALSE(table.TheMachine.Link.IsOpen());
  }
}

INSTANTIATE_TEST_SUITE_P(Every, InterruptedRun,
                         ::testing::Values(Interrupted{RunKind::kDeal, "deal", 55, {1, 54, 55}},
                                           Interrupted{
                                               RunKind::kRead, "read", 56, {1, 54, 55, 56}}),
                         [](const auto& run) { return std::string(run.param.Name); });

}  // namespace
}  // namespace morvane::machine
