#include "poker/poker_desk.h"

namespace morvane::poker {
namespace {

using machine::Cancel;

/// Route and start, a poll a card, card log and pockets, in each of the four runs.
constexpr int kFrames = 52 + 28 + 27 + 27 + 4 * 4;

/// Something happens to the machine before one of the frames of a deal.
class InterruptedStacking : public PokerDesk {
 protected:
  /// Stacks the deal as far as the buttons allow, with `mishap` before frame `at` from 0 on.
  void Stack(int at, const std::function<void()>& mishap) {
    int frames = 0;
    OnCommand = [=](const test::Bytes&) mutable {
      if (frames++ == at) mishap();
    };
    desk.Ui.Boxes.clear();
    for (int run = 1; run <= kRuns && poker.IsOn(ButtonOfRun(run)); ++run) {
      poker.Press(ButtonOfRun(run));
    }
    OnCommand = nullptr;
  }
  [[nodiscard]] bool SaysThatItIsDealt() const {
    return LastBox() == "   All Deals was successfully dealt    ";
  }
};

TEST_F(InterruptedStacking, ARestartAtAnyFrameIsNeverTakenForADealThatLiesRight) {
  ContactWithOrder(1);
  int stopped = 0;
  for (int at = 0; at < kFrames; ++at) {
    SCOPED_TRACE(at);
    view.Answers = {Cancel, Cancel};
    Stack(at, [this] {
      sim.PowerOff();
      sim.PowerOn();
    });
    ASSERT_FALSE(poker.Closed()) << "it answers";
    if (SaysThatItIsDealt()) {
      EXPECT_EQ(Stacked(), poker.Order().Current());
      continue;
    }
    ++stopped;
    EXPECT_TRUE(LastLine().find(" OK") == std::string::npos) << LastLine();
    Stack(-1, [] {});
    EXPECT_TRUE(SaysThatItIsDealt() && Stacked() == poker.Order().Current())
        << "from the beginning";
  }
  EXPECT_GE(stopped, 52 + 28 + 27 + 27 - 4) << "a poll behind which cards are still to fall";
}

}  // namespace
}  // namespace morvane::poker
