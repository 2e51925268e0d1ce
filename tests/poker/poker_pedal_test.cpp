#include "poker/poker_desk.h"
#include "program/setting_keys.h"

namespace morvane::poker {
namespace {

using ::testing::IsEmpty;

using PokerPedal = PokerDesk;

TEST_F(PokerPedal, ThePedalAloneCarriesThreeDealsThroughTheirTwelveRuns) {
  ContactWithOrder(3);
  for (int press = 1; press <= 12; ++press) {
    sim.PressPedal();
    desk.Loop.WaitMs(300);
    EXPECT_EQ(SentOf(0x9F).size(), static_cast<std::size_t>(press));
    if (press % 4 == 0) {
      EXPECT_EQ(Stacked(), poker.Order().PokerDeals[static_cast<std::size_t>(press / 4)]);
    }
  }
  EXPECT_EQ(LastBox(), "   All Deals was successfully dealt    ");
  desk.Loop.WaitMs(1000);
  EXPECT_EQ(SentOf(0x9F).size(), 12U) << "one run a press";
}

TEST_F(PokerPedal, AnInsertedBoardStartsARunWhereThatIsTicked) {
  ContactWithOrder(1);
  desk.Loop.WaitMs(1500);
  sim.InsertBoard(1);
  desk.Loop.WaitMs(300);
  EXPECT_EQ(SentOf(0x9F).size(), 1U);
}

TEST_F(PokerPedal, AnInsertedBoardStartsNothingWhereThatIsNot) {
  desk.Store.Set(kInitStartFromBox, "0");
  ContactWithOrder(1);
  desk.Loop.WaitMs(1500);
  sim.InsertBoard(1);
  desk.Loop.WaitMs(300);
  EXPECT_THAT(SentOf(0x9F), IsEmpty());
}

TEST_F(PokerPedal, ThePedalDoesNotReadTheFirstPack) {
  Contact();
  poker.Empty_set = true;
  poker.Press(Button::Generate);
  sim.PressPedal();
  desk.Loop.WaitMs(500);
  EXPECT_THAT(SentOf(0x9F), IsEmpty());
}

TEST_F(PokerPedal, ThePedalBehindABoxStartsNothing) {
  ContactWithOrder(2);
  desk.Ui.OnBox = [this] {
    sim.PressPedal();
    desk.Loop.WaitMs(500);
  };
  desk.Ui.Answers = {kCancel};
  poker.Press(Button::Generate);
  desk.Ui.OnBox = nullptr;
  desk.Loop.WaitMs(500);
  EXPECT_THAT(SentOf(0x9F), IsEmpty());
}

}  // namespace
}  // namespace morvane::poker
