#include "maintenance/console_desk.h"
#include "maintenance/test_deal.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

/// A test deal at the simulated machine, which knows nothing of the console.
class SimulatedTestDeal : public ConsoleDesk {
 protected:
  void Deal(const std::string& options, std::deque<int> answers) {
    Start(options);
    Poll();
    desk.Ui.Default = kCancel;
    desk.Ui.Answers = std::move(answers);
    console->DealTest();
  }
  [[nodiscard]] std::vector<std::string> LogTexts() const { return LinesWith("   Test Deal"); }
};

TEST_F(SimulatedTestDeal, ACleanDeckLoops) {
  Deal("deck=flashed", {kOk, kOk, kOk, kCancel});
  EXPECT_THAT(LogTexts(), SizeIs(3));
  EXPECT_THAT(LogTexts(), Each("   Test Deal  OK"));
  EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg123);
}

TEST_F(SimulatedTestDeal, TwoCardsThatHaveChangedPlacesAreFound) {
  Deal("deck=flashed,swap=9:10", {kOk, kCancel});
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  62 expected: ST"));
  EXPECT_THAT(desk.Ui.Boxes.back().Text, HasSubstr("The JS was recognised but ST was expected."));
}

TEST_F(SimulatedTestDeal, TheLastCardsToo) {
  Deal("deck=flashed,swap=51:52", {kOk, kCancel});
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  62 expected: CK"));
  EXPECT_THAT(desk.Ui.Boxes.back().Text, HasSubstr("The AC was recognised but CK was expected."));
}

TEST_F(SimulatedTestDeal, ABreakCancels) {
  bool once = true;
  view.OnDeal = [&] {
    if (std::exchange(once, false)) view.Deal->TestDealCancel();
  };
  Deal("deck=flashed,speed=1", {kOk});
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  57 Cancel"));
  Poll();
  EXPECT_FALSE(console->Closed()) << "the machine answers as before";
}

}  // namespace
}  // namespace morvane::maintenance
