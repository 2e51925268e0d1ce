#include "maintenance/test_deal.h"

#include "maintenance/test_deal_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using End = TestDeal::End;

const std::string kAllToNorth = "4444444444444 4444444444444 4444444444444 4444444444444 000";

class ADeal : public TestDealDesk {};

TEST(TestCards, AreNamedBySuitAndRank) {
  const std::vector<std::pair<int, std::string>> names{
      {1, "S2"},  {8, "S9"},  {9, "ST"},  {10, "SJ"}, {11, "SQ"}, {12, "SK"}, {13, "SA"},
      {14, "H2"}, {26, "HA"}, {27, "D2"}, {39, "DA"}, {40, "C2"}, {48, "CT"}, {52, "CA"}};
  for (const auto& [number, name] : names) EXPECT_EQ(TestCardName(number), name) << number;
}

TEST_F(ADeal, BeginsWithAllCardsToNorthAndIsPolledToItsEnd) {
  cards = {.National = 3, .CardType = 1, .Threshold = 1, .CardIndex = 0};
  EXPECT_EQ(Run({{255, 0}, {255, 30}, {0, 52}}), End::kRanOut);
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {"98 00 33 00 0B 24 00 | " + kAllToNorth, "19 .. .. .. .. .. .. x3"}));
  EXPECT_THAT(Breaks(), Each(0));
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  OK"));
  EXPECT_EQ(deal->TestState(), TestDeal::kFinished);
  EXPECT_EQ(deal->TestStatusByte(), 0);
  EXPECT_FALSE(deal->TestDealFailed());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(ADeal, TellsTheFontOfASmallIndexApart) {
  cards = {.National = 6, .CardType = 0, .Threshold = 2, .CardIndex = 2};
  Run({{0, 52}});
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {"98 00 66 00 0B 24 06 | " + kAllToNorth, "19 .. .. .. .. .. .."}));
}

TEST_F(ADeal, ThePollIsAllFillerButTheBreak) {
  Run({{255, 0}, {255, 0}, {255, 0}, {255, 0}, {255, 0}, {255, 0}, {255, 0}, {0, 52}});
  const std::vector<int> first = SubCodes(0x19);
  EXPECT_GT(std::set<int>(first.begin(), first.end()).size(), 3U);
}

TEST_F(ADeal, ShowsHowFarItHasCome) {
  std::vector<std::pair<int, int>> shown;
  std::vector<int> states;
  view.OnShow = [&] {
    shown.emplace_back(deal->CardsDealt(), deal->TestDealProgress());
    states.push_back(deal->TestState());
  };
  Run({{241, 1}, {255, 26}, {250, 51}, {0, 52}});
  EXPECT_THAT(shown, ElementsAre(std::pair(0, 0), std::pair(1, 1), std::pair(26, 50),
                                 std::pair(51, 98), std::pair(52, 100), std::pair(52, 100)));
  EXPECT_THAT(states, ElementsAre(4, 4, 4, 4, 3, 3));
  EXPECT_DOUBLE_EQ(deal->Seconds(), 0.4);
}

TEST_F(ADeal, CountsCardsInTheLowSixBits) {
  EXPECT_EQ(Run({{62, 0xC8}}), End::kFailed);
  EXPECT_EQ(deal->CardsDealt(), 8);
  EXPECT_EQ(deal->ExpectedCard(), "ST");
  Run({{0, 63}});
  EXPECT_EQ(deal->CardsDealt(), 63);
  EXPECT_EQ(deal->TestDealProgress(), 100);
}

TEST_F(ADeal, IsPolledTenTimesASecondWhileEventsPass) {
  std::vector<std::chrono::microseconds> polls;
  int ticks = 0;
  OnFrame = [&](const Bytes& plain) {
    if (plain[0] == 0x19) polls.push_back(desk.Clock.Elapsed());
  };
  const auto started = desk.Clock.Elapsed();
  const auto clicks = desk.Loop.StartTimer(40, [&] { ++ticks; });
  Run({{255, 0}, {255, 0}, {0, 52}});
  using namespace std::chrono_literals;
  EXPECT_THAT(polls, ElementsAre(started + 100ms, started + 200ms, started + 300ms));
  EXPECT_EQ(ticks, 7) << "of 300 ms";
}

TEST_F(ADeal, EndsAtTheCardThatWasNotExpected) {
  EXPECT_EQ(Run({{255, 4}, {62, 8}}), End::kFailed);
  EXPECT_TRUE(deal->TestDealFailed());
  EXPECT_EQ(deal->ExpectedCard(), "ST");
  EXPECT_EQ(deal->ExpectedNumber(), 9);
  EXPECT_EQ(deal->TestState(), TestDeal::kError);
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  62 expected: ST"));
  EXPECT_EQ(view.Errors, 0);
  EXPECT_EQ(Heard(0x1A), 0) << "the machine keeps what it stopped at";
}

TEST_F(ADeal, NamesTheCardBehindThoseThatHaveFallen) {
  const std::vector<std::pair<int, std::string>> names{{0, "S2"},  {12, "SA"}, {13, "H2"},
                                                       {51, "CA"}, {52, "CA"}, {63, "CA"}};
  for (const auto& [fallen, name] : names) {
    Run({{30, static_cast<std::uint8_t>(fallen)}});
    EXPECT_EQ(deal->ExpectedCard(), name) << fallen;
  }
}

TEST_F(ADeal, EachOfTheRecognisersCodesIsAFailure) {
  for (int code = 25; code <= 54; ++code) {
    EXPECT_EQ(Run({{static_cast<std::uint8_t>(code), 0}}), End::kFailed) << code;
    EXPECT_EQ(LogTexts().back(), "   Test Deal  " + std::to_string(code) + " expected: S2");
  }
  EXPECT_EQ(view.Errors, 0);
}

TEST_F(ADeal, AnyOtherCodeIsAskedAbout) {
  for (const int code : {1, 24, 55, 57, 61, 63, 240}) {
    view.Errors = 0;
    EXPECT_EQ(Run({{static_cast<std::uint8_t>(code), 0}}), End::kDeclined) << code;
    EXPECT_EQ(view.Errors, 1) << code;
  }
}

TEST_F(ADeal, CodesAboveTheErrorsAreBusy) {
  EXPECT_EQ(Run({{241, 0}, {242, 0}, {254, 0}, {255, 0}, {0, 52}}), End::kRanOut);
  EXPECT_EQ(Heard(0x19), 5);
}

TEST_F(ADeal, GoesOnBehindAFault) {
  view.OnError = [](machine::ErrorDialog& dialog) { dialog.PressContinue(); };
  EXPECT_EQ(Run({{255, 3}, {55, 16}, {58, 16}, {0, 52}}), End::kRanOut);
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {"98 00 00 00 0B 24 00 | " + kAllToNorth, "19 .. .. .. .. .. .. x2",
                              "98 01 00 00 0B 24 00 | " + kAllToNorth, "19 .. .. .. .. .. ..",
                              "98 01 00 00 0B 24 00 | " + kAllToNorth, "19 .. .. .. .. .. .."}));
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  55 58 OK"));
}

TEST_F(ADeal, GoesOnAWhileBehindTheFault) {
  std::vector<std::chrono::microseconds> starts;
  OnFrame = [&](const Bytes& plain) {
    if (plain[0] == 0x98) starts.push_back(desk.Clock.Elapsed());
  };
  view.OnError = [](machine::ErrorDialog& dialog) { dialog.PressContinue(); };
  Run({{55, 16}, {0, 52}});
  using namespace std::chrono_literals;
  ASSERT_THAT(starts, SizeIs(2));
  EXPECT_EQ(starts[1] - starts[0], 400ms) << "the poll's 100, and 300 behind the dialog";
}

TEST_F(ADeal, TheFaultNamesTheCard) {
  std::vector<std::string> places;
  view.OnError = [&](machine::ErrorDialog& dialog) {
    EXPECT_EQ(dialog.Error_label, "Card Feeding Error");
    places.push_back(dialog.Error_board);
    dialog.PressContinue();
  };
  Run({{55, 16}, {55, 51}, {55, 52}, {0, 52}});
  EXPECT_THAT(places, ElementsAre("Card 17 of 52", "Card 52 of 52", ""));
}

TEST_F(ADeal, AFaultThatIsDeclinedEndsIt) {
  view.OnError = [](machine::ErrorDialog& dialog) { dialog.PressCancel(); };
  EXPECT_EQ(Run({{55, 16}}), End::kDeclined);
  EXPECT_TRUE(FramesAre(bridge.Sent, {"98 00 00 00 0B 24 00 | " + kAllToNorth,
                                      "19 .. .. .. .. .. ..", "1A 00 .. .. .. .. .."}));
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  55"));
  EXPECT_FALSE(deal->TestDealFailed());
}

TEST_F(ADeal, ThePedalGoesOnAndTheLinkStaysTaken) {
  view.OnError = [this](machine::ErrorDialog& dialog) {
    desk.Loop.RunUntil([&] { return dialog.Closed(); });
    EXPECT_EQ(dialog.DialogResult, machine::kGoOn);
    EXPECT_TRUE(machine.PollLock);
  };
  std::vector<bool> taken;
  OnFrame = [&](const Bytes& plain) {
    if (plain[0] == 0x98) taken.push_back(machine.PollLock);
  };
  EXPECT_EQ(Run({{57, 16}, {57, 16}, {57, 16, true}, {0, 52}}), End::kRanOut);
  EXPECT_THAT(taken, ElementsAre(true, true));
}

TEST_F(ADeal, TotalsGrowWithIt) {
  before = {.Finished = 3, .Cards = 156};
  std::vector<int> counted;
  view.OnShow = [&] { counted.push_back(deal->Totals().Cards); };
  Run({{255, 20}, {0, 52}});
  EXPECT_THAT(counted, ElementsAre(156, 176, 208, 208));
  EXPECT_EQ(deal->Number(), 4);
  EXPECT_EQ(deal->Totals(), (TestDealTotals{4, 208}));
  Run({{30, 5}});
  EXPECT_EQ(deal->Totals(), (TestDealTotals{3, 161}));
}

TEST_F(ADeal, ThatFailedKnowsWhatWasSeen) {
  Run({{62, 8}});
  EXPECT_EQ(deal->SeenCard(), "");
  EXPECT_FALSE(deal->IsWrongCard());
  wire::ErrorVerdictReply verdict;
  verdict.Rank = 11;
  verdict.Suit = 1;
  verdict.Error = 62;
  deal->TakeVerdict(verdict);
  EXPECT_EQ(deal->SeenCard(), "JS");
  EXPECT_TRUE(deal->IsWrongCard());
  verdict.Error = 30;
  deal->TakeVerdict(verdict);
  EXPECT_FALSE(deal->IsWrongCard());
}

}  // namespace
}  // namespace morvane::maintenance
