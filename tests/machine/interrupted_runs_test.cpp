#include "machine/dealing_run.h"
#include "machine/open_link.h"
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

  Table() {
    test::FillSet(Desk.Prog.Set, 1, 1);
    Desk.Ui.Default = kNo;
    Simulated.InsertBoard(1);
    Contact();
  }

  /// Deals the board with `mishap` before frame `at`, counted from 1.
  void Deal(int at, const Mishap& mishap) {
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
    Run = std::make_unique<DealingRun>(Desk.Prog, TheMachine, Memory);
    Run->Open(*this);
    Desk.Loop.WaitMs(DealingRun::kFirstContactMs);
  }
  [[nodiscard]] bool IsLoggedOk() const { return Desk.LogLines().back().ends_with(" OK"); }
  [[nodiscard]] bool LiesRight() const {
    return Simulated.DealtBoard().Cards == Desk.Prog.Set.At(1).Cards;
  }

  void ShowState() override {}
  void ShowBoard() override {}
  void ShowControls() override {}
  void FocusDealNext() override {}
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
  test::TestDesk Desk;
  SimulatedMachine Simulated{Fast(), Desk.Clock};
  test::BridgeTap Tap{Simulated};
  Machine TheMachine{Desk.Random, Tap};
  RunMemory Memory;
  std::unique_ptr<DealingRun> Run;
  std::vector<std::string> Errors;
  int Frames = 0;
};

void SwitchOff(SimulatedMachine& machine) { machine.PowerOff(); }
void Restart(SimulatedMachine& machine) {
  machine.PowerOff();
  machine.PowerOn();
}
void PullBoard(SimulatedMachine& machine) { machine.RemoveBoard(); }

/// The start, a poll for each card and one behind the last, the card log, the probe.
constexpr int kFrames = 55;
constexpr int kFirstCard = 2;
constexpr int kCardLog = 54;

TEST(InterruptedDeal, ABoardLeftAloneTakesSoManyFrames) {
  Table table;
  table.Deal(0, SwitchOff);
  EXPECT_EQ(table.Frames, kFrames);
  EXPECT_TRUE(table.IsLoggedOk() && table.LiesRight());
}

TEST(InterruptedDeal, PowerOffAtAnyFrameIsALostLinkAndNoOk) {
  for (int at = 1; at <= kFrames; ++at) {
    SCOPED_TRACE(at);
    Table table;
    table.Deal(at, SwitchOff);
    EXPECT_EQ(table.Frames, at + 1) << "one more try, and nothing behind it";
    EXPECT_FALSE(table.IsLoggedOk());
    EXPECT_EQ(table.Run->LastOutcome(), DealingRun::Outcome::kLinkLost);
    EXPECT_EQ(table.Desk.Ui.Boxes.back().Text, table.Desk.Prog.Texts.Msg048);
    EXPECT_TRUE(table.Run->Closed());
  }
}

TEST(InterruptedDeal, AfterPowerOffTheBoardIsDealtFromTheBeginning) {
  for (const int at : {1, kFirstCard, 30, kCardLog, kFrames}) {
    SCOPED_TRACE(at);
    Table table;
    table.Deal(at, SwitchOff);
    table.Simulated.PowerOn();
    table.Contact();
    table.Deal(0, SwitchOff);
    EXPECT_EQ(table.Frames, kFrames);
    EXPECT_TRUE(table.IsLoggedOk() && table.LiesRight());
  }
}

TEST(InterruptedDeal, ARestartAtAnyFrameIsOkOnlyWhereTheBoardLiesRight) {
  std::vector<int> ok;
  for (int at = 1; at <= kFrames; ++at) {
    SCOPED_TRACE(at);
    Table table;
    table.Deal(at, Restart);
    EXPECT_FALSE(table.Run->Closed()) << "it answers";
    EXPECT_TRUE(!table.IsLoggedOk() || table.LiesRight());
    if (table.IsLoggedOk()) ok.push_back(at);
    if (table.IsLoggedOk()) continue;
    EXPECT_EQ(table.Run->LastOutcome(), DealingRun::Outcome::kStopped);
    table.Deal(0, Restart);
    EXPECT_TRUE(table.IsLoggedOk() && table.LiesRight()) << "dealt again";
  }
  // Before the start it has nothing to forget, from the card log on every card has fallen.
  EXPECT_THAT(ok, ::testing::ElementsAre(1, kCardLog, kFrames));
}

TEST(InterruptedDeal, APulledBoardIs58AndGoesOnWhenItIsBack) {
  for (int at = 1; at <= kFrames; ++at) {
    SCOPED_TRACE(at);
    Table table;
    table.Deal(at, PullBoard);
    const bool inTheMiddle = at >= kFirstCard && at < kCardLog;
    EXPECT_EQ(table.Errors, inTheMiddle ? std::vector<std::string>{"Error Code: 58"}
                                        : std::vector<std::string>{});
    EXPECT_TRUE(table.IsLoggedOk() && table.LiesRight());
    EXPECT_EQ(table.Desk.LogLines().back().ends_with(" 58 OK"), inTheMiddle);
  }
}

}  // namespace
}  // namespace morvane::machine
