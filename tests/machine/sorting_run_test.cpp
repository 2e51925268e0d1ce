#include "machine/sorting_run.h"

#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using ::testing::ElementsAre;

class Sorting : public RunFixture {
 protected:
  SortingRun sorting{desk.Prog, machine, memory};
  void Contact() {
    sorting.Open(view);
    desk.Loop.WaitMs(MachineRun::kFirstContactMs);
    bridge.Sent.clear();
  }
};

TEST_F(Sorting, IsStartedWatchedAndLogged) {
  Contact();
  EXPECT_TRUE(sorting.Window().Controls.cmdSort);
  sorting.cmdSort();
  EXPECT_THAT(SentCodes(), ElementsAre(0x35, 0x19, 0x19, 0x19, 0x20, 0x1A));
  const test::Bytes& start = bridge.Sent.front();
  EXPECT_EQ(test::Bytes(start.begin(), start.begin() + 7), (test::Bytes{0x35, 0, 0, 0, 11, 36, 0}));
  EXPECT_EQ(LastLine(), "  Sort: 0,0,0,0 OK");
  EXPECT_TRUE(sorting.Window().Controls.cmdSort);
  EXPECT_TRUE(sorting.Window().Controls.cmdExit);
}

TEST_F(Sorting, ThePedalSorts) {
  Contact();
  paper.Events = 8;
  desk.Loop.WaitMs(MachineRun::kPollMs);
  EXPECT_EQ(SentOf(0x35).size(), 1U);
}

TEST_F(Sorting, AnOldFirmwareCannotSortAndTheWindowGoes) {
  paper.Minor = 0x68;
  Contact();
  EXPECT_TRUE(sorting.Closed());
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Sort Error");
}

}  // namespace
}  // namespace morvane::machine
