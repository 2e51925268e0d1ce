#include <numeric>

#include "bridges/link_session.h"
#include "poker/poker.h"
#include "poker/random_deals.h"

namespace morvane::bridges {
namespace {

using poker::Poker;
using poker::PokerButton;
using ::testing::HasSubstr;

/// A poker deal is stacked in four runs, whose piles are carried back to the feeder.
class ReplayedPoker : public LinkSessions {
 protected:
  int pauseMs = 400;
  const Script stack = [this](LinkSession& at) {
    if (!at.Open()) return;
    machine::RunMemory memory;
    Poker run(at.Desk.Prog, at.TheMachine(), memory);
    run.Open(at);
    at.Desk.Loop.WaitMs(Poker::kFirstContactMs);
    run.Take(InOrder());
    for (const auto button : {PokerButton::FirstDeal, PokerButton::SecondDeal,
                              PokerButton::ThirdDeal, PokerButton::FourthDeal}) {
      at.Desk.Loop.WaitMs(pauseMs);
      run.Press(button);
    }
    run.CloseBox();
  };

 private:
  [[nodiscard]] static poker::PokerOrder InOrder() {
    poker::PokerOrder order = poker::EmptyOrder(1);
    std::iota(order.Current().begin(), order.Current().end(), std::uint8_t{0});
    return order;
  }
};

TEST_F(ReplayedPoker, ADealIsStackedAgain) {
  Trace(",speed=0,seed=5", stack);
  ASSERT_FALSE(first.Desk.Ui.Boxes.empty());
  EXPECT_THAT(first.Desk.Ui.Boxes[0].Text, HasSubstr("successfully dealt"));
  pauseMs = 1000;
  ASSERT_EQ(Replay(stack), "");
  ExpectTheSame();
}

}  // namespace
}  // namespace morvane::bridges
