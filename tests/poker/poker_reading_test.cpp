#include "poker/poker_desk.h"

namespace morvane::poker {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using PokerReading = PokerDesk;

TEST_F(PokerReading, ReadingGoesFromPackToPack) {
  Contact();
  poker.Empty_set = true;
  poker.Number_deals = "2";
  poker.Press(Button::Generate);
  std::vector<int> pack(52);
  std::iota(pack.rbegin(), pack.rend(), 1);  // the Ace of Clubs is fed first, card 1 lies on top
  ASSERT_TRUE(sim.LayInFeeder(pack));
  Press(Button::Read);
  EXPECT_EQ(SentOf(0x9F)[0][1], 52);
  const test::Bytes start = SentOf(0x98)[0];
  EXPECT_THAT((std::vector<int>(start.begin() + 8, start.begin() + 60)), Each(4));
  EXPECT_EQ(poker.Order().PokerDeals[1], DealInOrder());
  EXPECT_EQ(poker.Label1(), " Ready for next read");
  EXPECT_TRUE(poker.IsOn(Button::ReadNext));
  EXPECT_TRUE(poker.IsOn(Button::Poker_Save));
  EXPECT_TRUE(poker.IsOn(Button::Poker_Print));
  EXPECT_FALSE(poker.IsOn(Button::Read));
  EXPECT_EQ(poker.NextButton(), Button::ReadNext);
  Press(Button::ReadNext);
  EXPECT_EQ(LastBox(), "   All Deals was successfully read    ");
  EXPECT_EQ(poker.Order().CurrentDeal, 1);
  EXPECT_EQ(poker.Label1(), "Ready for first run");
  EXPECT_NE(poker.Order().PokerDeals[2][28], 0);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
}

TEST_F(PokerReading, ADealThatIsNotEmptyIsNotReadOver) {
  Contact();
  PokerOrder order = EmptyOrder(2);
  order.PokerDeals[2] = DealInOrder();
  poker.Take(order);
  Press(Button::Read);
  bridge.Sent.clear();
  Press(Button::ReadNext);
  EXPECT_EQ(LastBox(), "   Current deal is not empty. Cannot Read    ");
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Poker Dealing");
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_EQ(poker.Order().PokerDeals[2], DealInOrder());
}

TEST_F(PokerReading, AReadingThatWasCancelledKeepsNothing) {
  Contact();
  poker.Empty_set = true;
  poker.Press(Button::Generate);
  int polls = 0;
  OnCommand = [&](const test::Bytes& plain) {
    if (plain[0] == 0x19 && ++polls == 30) poker.CloseBox();
  };
  Press(Button::Read);
  EXPECT_THAT(poker.Order().Current(), Each(0));
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::Read));
  EXPECT_EQ(poker.Label1(), " Ready for first run");
  EXPECT_FALSE(poker.IsOn(Button::Poker_Save));
}

}  // namespace
}  // namespace morvane::poker
