#include "maintenance/test_deck.h"

#include "maintenance/test_deal_desk.h"

namespace morvane::maintenance {
namespace {

using ::testing::ElementsAre;

class ADeck : public TestDealDesk {
 protected:
  /// A letter for each card: "-" ahead, "x" seen, "E" expected, "T" taken for.
  [[nodiscard]] std::string Marks() const {
    std::string marks;
    for (int number = 1; number <= 52; ++number) {
      marks += "-xET"[static_cast<std::size_t>(MarkOf(*deal, number))];
    }
    return marks;
  }
  void Say(std::uint8_t rank, std::uint8_t suit, std::uint8_t error) {
    wire::ErrorVerdictReply verdict;
    verdict.Rank = rank;
    verdict.Suit = suit;
    verdict.Error = error;
    deal->TakeVerdict(verdict);
  }
};

TEST_F(ADeck, FillsAsCardsPassTheCamera) {
  std::vector<std::string> shown;
  view.OnShow = [&] { shown.push_back(Marks()); };
  Run({{255, 0}, {255, 14}, {0, 52}});
  EXPECT_THAT(shown, ElementsAre(std::string(52, '-'), std::string(52, '-'),
                                 std::string(14, 'x') + std::string(38, '-'), std::string(52, 'x'),
                                 std::string(52, 'x')));
}

TEST_F(ADeck, MarksWhatWasExpectedAndWhatWasSeen) {
  Run({{62, 8}});
  EXPECT_EQ(Marks(), "xxxxxxxxE" + std::string(43, '-'));
  Say(11, 1, 62);
  EXPECT_EQ(Marks(), "xxxxxxxxET" + std::string(42, '-'));
  Say(2, 1, 54);
  EXPECT_EQ(Marks(), "TxxxxxxxE" + std::string(43, '-')) << "a card that was there already";
  Say(14, 4, 62);
  EXPECT_EQ(Marks().back(), 'T');
}

TEST_F(ADeck, ACardThatCouldNotBeReadWasNotSeen) {
  Run({{30, 8}});
  Say(11, 1, 30);
  EXPECT_EQ(Marks(), "xxxxxxxxE" + std::string(43, '-')) << "though the reply has one";
  EXPECT_EQ(StateText(*deal), "Stopped at card 9, error 30: expected ST");
}

TEST_F(ADeck, AVerdictWithoutACardMarksNone) {
  Run({{30, 8}});
  for (const auto& [rank, suit] : {std::pair<int, int>{61, 1}, {1, 1}, {15, 1}, {5, 0}, {5, 5}}) {
    Say(static_cast<std::uint8_t>(rank), static_cast<std::uint8_t>(suit), 30);
    EXPECT_EQ(Marks(), "xxxxxxxxE" + std::string(43, '-')) << rank << " " << suit;
  }
}

TEST_F(ADeck, TellsHowFarItIs) {
  std::vector<std::string> shown;
  view.OnShow = [&] {
    shown.push_back(StateText(*deal));
    if (deal->CardsDealt() == 17) deal->TestDealCancel();
  };
  Run({{255, 16}, {255, 17}, {255, 17}, {57, 17}});
  EXPECT_THAT(shown, ElementsAre("Card 1 of 52", "Card 17 of 52", "Card 18 of 52",
                                 "Stopping the machine ...", "Stopping the machine ...",
                                 "Cancelled after 17 cards"));
}

TEST_F(ADeck, TellsHowItEnded) {
  Run({{0, 52}});
  EXPECT_EQ(StateText(*deal), "OK, 52 cards");
  Run({{55, 16}});
  EXPECT_EQ(StateText(*deal), "Error 55 after 16 cards");
  Run({{62, 8}});
  EXPECT_EQ(StateText(*deal), "Stopped at card 9, error 62: expected ST");
  Say(10, 2, 62);
  EXPECT_EQ(StateText(*deal), "Stopped at card 9, error 62: expected ST, seen 10H");
  Silent = [](int code, int nth) { return code == 0x19 && nth > 1; };
  Run({{255, 3}});
  EXPECT_EQ(StateText(*deal), "The link was lost after 3 cards");
}

}  // namespace
}  // namespace morvane::maintenance
