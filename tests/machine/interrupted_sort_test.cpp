#include "machine/open_link.h"
#include "machine/run_fixture.h"
#include "machine/sorting_run.h"
#include "simulator/simulated_machine.h"
#include "support/bridge_tap.h"

namespace morvane::machine {
namespace {

using simulator::SimulatedMachine;
using ::testing::ElementsAre;
using ::testing::EndsWith;

/// One pack on the simulated machine, one card a poll: the start, 52 polls, the card log, the
/// probe.
constexpr int kFrames = 55;
constexpr int kBehindTheLastPoll = 54;

/// Something happens to the machine before one of the frames of a sort goes out.
class SortTable {
 public:
  explicit SortTable(std::vector<simulator::CardFault> faults = {})
      : Simulated(OnePack(std::move(faults)), Desk.Clock) {
    OpenLink(Desk.Prog, TheMachine.Link, 200);
    Run.Open(View);
    Desk.Loop.WaitMs(MachineRun::kFirstContactMs);
  }

  void Restart() {
    Simulated.PowerOff();
    Simulated.PowerOn();
  }
  /// Sorts with `mishap` before frame `at`, counted from 1.
  void Sort(int at, const std::function<void()>& mishap) {
    Frames = 0;
    Tap.OnFrame = [=, this] {
      if (++Frames == at) mishap();
    };
    Run.cmdSort();
    Tap.OnFrame = nullptr;
  }
  /// The line of the last sort; a box may stand behind it.
  [[nodiscard]] std::string Line() const {
    const auto lines = Desk.LogLines();
    const auto line = std::find_if(lines.rbegin(), lines.rend(), [](const std::string& text) {
      return text.starts_with("  Sort: ");
    });
    return line == lines.rend() ? "" : *line;
  }
  [[nodiscard]] bool IsLoggedOk() const { return Line().ends_with(" OK"); }

  static simulator::Options OnePack(std::vector<simulator::CardFault> faults) {
    simulator::Options options;
    options.Speed = 0;
    options.Seed = 7;
    options.Packs = 1;
    options.Faults = std::move(faults);
    return options;
  }
  test::TestDesk Desk;
  SimulatedMachine Simulated;
  test::BridgeTap Tap{Simulated};
  Machine TheMachine{Desk.Random, Tap};
  RunMemory Memory;
  RecordingView View{Desk};
  SortingRun Run{Desk.Prog, TheMachine, Memory};
  int Frames = 0;
};

TEST(InterruptedSort, ASortLeftAloneTakesSoManyFrames) {
  SortTable table;
  table.Sort(0, [] {});
  EXPECT_EQ(table.Frames, kFrames);
  EXPECT_EQ(table.Line(), "  Sort: 0,0,0,0 OK");
}

TEST(InterruptedSort, PowerOffAtAnyFrameIsALostLinkAndNoOk) {
  for (int at = 1; at <= kFrames; ++at) {
    SCOPED_TRACE(at);
    SortTable table;
    table.Sort(at, [&] { table.Simulated.PowerOff(); });
    EXPECT_EQ(table.Frames, at + 1) << "one more try, and nothing behind it";
    EXPECT_FALSE(table.IsLoggedOk());
    EXPECT_EQ(table.Run.LastOutcome(), MachineRun::Outcome::kLinkLost);
    EXPECT_EQ(table.Desk.Ui.Boxes.back().Text, table.Desk.Prog.Texts.Msg048);
    EXPECT_TRUE(table.Run.Closed());
  }
}

/// Before the start there is nothing to forget, behind the last poll every card has fallen.
TEST(InterruptedSort, ARestartAtAnyFrameIsOkOnlyWhereAllCardsLie) {
  std::vector<int> ok;
  for (int at = 1; at <= kFrames; ++at) {
    SCOPED_TRACE(at);
    SortTable table;
    table.Sort(at, [&] { table.Restart(); });
    EXPECT_FALSE(table.Run.Closed()) << "it answers";
    if (table.IsLoggedOk()) {
      ok.push_back(at);
      continue;
    }
    EXPECT_EQ(table.Run.LastOutcome(), MachineRun::Outcome::kStopped);
    ASSERT_EQ(table.Desk.Ui.Boxes.size(), 1U);
    EXPECT_EQ(table.Desk.Ui.Boxes[0].Title, "Sort Error");
    table.Sort(0, [] {});
    EXPECT_TRUE(table.IsLoggedOk()) << "from the beginning";
  }
  EXPECT_THAT(ok, ElementsAre(1, kBehindTheLastPoll, kFrames));
}

TEST(InterruptedSort, AMachineThatRestartedBehindItsFaultDoesNotGoOn) {
  SortTable table({{.Board = 1, .Card = 20, .Code = 25}});
  table.View.Answers = {[&](ErrorDialog& dialog) {
                          table.Restart();
                          dialog.PressContinue();
                        },
                        Cancel};
  table.Sort(0, [] {});
  EXPECT_THAT(table.View.Errors,
              ElementsAre(EndsWith("|Error Code: 25"), EndsWith("|Error Code: 62")));
  EXPECT_THAT(table.Line(), EndsWith(" 25 62"));
  EXPECT_EQ(table.Run.LastOutcome(), MachineRun::Outcome::kStopped);
}

TEST(InterruptedSort, ABoardThatIsPulledMeanwhileIsNoPartOfIt) {
  for (const int at : {1, 2, 30, kBehindTheLastPoll}) {
    SCOPED_TRACE(at);
    SortTable table;
    table.Sort(at, [&] { table.Simulated.RemoveBoard(); });
    EXPECT_TRUE(table.IsLoggedOk());
    EXPECT_TRUE(table.View.Errors.empty());
  }
}

}  // namespace
}  // namespace morvane::machine
