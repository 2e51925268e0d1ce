#include "poker/poker_list.h"

#include <gmock/gmock.h>

#include "poker/random_deals.h"
#include "print/page_checks.h"
#include "support/fakes.h"

namespace morvane::poker {
namespace {

using test::DrawnPage;
using test::DrawnText;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;
using ::testing::Values;

constexpr Colour kBlack{0, 0, 0};
constexpr Colour kRed{255, 0, 0};

class PokerList : public ::testing::Test {
 protected:
  /// An order of `deals` random deals with its texts.
  void Order(int deals) {
    order = EmptyOrder(deals);
    FillAtRandom(order, random);
    order.Poker_Event = "Friday Evening";
    order.Poker_Site = "Club Room";
    order.Poker_Date = "1 May";
  }
  const std::vector<DrawnPage>& Draw() {
    canvas.Begin();
    EXPECT_TRUE(DrawPokerList(canvas, order, [] { return true; }));
    return canvas.Pages;
  }
  static DrawnText Only(const DrawnPage& page, std::string_view text) {
    const auto found = page.Find(text);
    EXPECT_THAT(found, SizeIs(1)) << text;
    return found.empty() ? DrawnText{} : found.front();
  }
  static double Middle(const DrawnText& text) { return text.X + text.Width / 2; }
  /// How many deals stand on a page.
  static std::size_t Blocks(const DrawnPage& page) { return page.Find("      Deal  :").size(); }

  PokerOrder order;
  test::FakeEntropy random;
  test::RecordingCanvas canvas;
};

TEST_F(PokerList, EachPageHasTheTextsOfTheOrderAndItsNumber) {
  Order(40);
  const auto& pages = Draw();
  ASSERT_THAT(pages, SizeIs(3));
  int number = 0;
  for (const DrawnPage& page : pages) {
    double y = -1;
    for (const char* text : {"Friday Evening", "Club Room", "1 May"}) {
      const DrawnText line = Only(page, text);
      EXPECT_EQ(line.Font.Face, Typeface::kTimes);
      EXPECT_GT(line.Y, y) << "each on a line";
      y = line.Y;
    }
    const DrawnText foot = Only(page, "Page: " + std::to_string(++number));
    EXPECT_EQ(foot.Font.Face, Typeface::kTimes);
    EXPECT_GT(foot.Y, canvas.PageHeight - 30);
  }
}

TEST_F(PokerList, TheHeadsAreThePlayersAndTheSharedCardsInOrder) {
  Order(1);
  const DrawnPage& page = Draw().front();
  const DrawnText label = Only(page, "      Player: ");
  std::vector<std::string> heads;
  double x = label.X;
  for (const DrawnText& text : page.Texts) {
    if (text.Y != label.Y || text.Text == label.Text) continue;
    EXPECT_GT(text.X, x);
    x = text.X;
    EXPECT_EQ(text.Font.Face, Typeface::kTimes);
    heads.push_back(text.Text);
  }
  EXPECT_THAT(heads, ElementsAre("1", "2", "3", "4", "5", "6", "BC", "FLOP", "BC", "T", "BC", "R"));
}

/// A deal whose every second card is a joker would repeat them, so each card is told by its slot:
/// the ranks of slot 1 to 13 are those of one suit.
TEST_F(PokerList, TheCardsStandUnderTheirHeads) {
  order = EmptyOrder(1);
  for (std::size_t slot = 1; slot <= 12; ++slot) {
    order.PokerDeals[1][slot] = static_cast<std::uint8_t>(slot);  // spades 2 to K
  }
  order.PokerDeals[1][14] = 53;
  const DrawnPage& page = Draw().front();
  const auto rank = [&](const char* letter) {
    for (const DrawnText& text : page.Find(letter)) {
      if (text.Font.Size > 14 && text.X > 96) return text;
    }
    return DrawnText{};
  };
  const char* const first[]{"2", "3", "4", "5", "6", "7"};
  const char* const second[]{"8", "9", "T", "J", "Q", "K"};
  for (int player = 0; player < 6; ++player) {
    const DrawnText above = rank(first[player]);
    const DrawnText below = rank(second[player]);
    const DrawnText head = page.Find(std::to_string(player + 1)).front();
    EXPECT_EQ(above.X, below.X);
    EXPECT_LT(above.Y, below.Y);
    EXPECT_NEAR(Middle(above), Middle(head), 10) << "the sign stands to its left";
    EXPECT_EQ(above.Y, rank("2").Y);
    EXPECT_EQ(below.Y, rank("8").Y);
  }
  const DrawnText joker = Only(page, "JK");
  EXPECT_EQ(joker.Y, rank("2").Y);
  const DrawnText flop = Only(page, "FLOP");
  EXPECT_LT(Middle(joker), flop.X) << "the first of three under FLOP";
  EXPECT_GT(Middle(joker), Middle(page.Find("BC").front()) + 20);
}

TEST_F(PokerList, TheSharedCardsStandOnTheFirstLineAndTheRestWithoutHeadsOnTheSecond) {
  order = EmptyOrder(1);
  for (std::size_t slot = 13; slot <= 25; ++slot) {
    order.PokerDeals[1][slot] = static_cast<std::uint8_t>(slot - 12);  // spades 2 to A
  }
  order.PokerDeals[1][26] = 53;
  order.PokerDeals[1][27] = 14;
  order.PokerDeals[1][28] = 27;
  const DrawnPage& page = Draw().front();
  const double heads = Only(page, "      Player: ").Y;
  std::string first;
  std::string second;
  double firstY = 0;
  for (const DrawnText& text : page.Texts) {
    const bool isCard = text.Y > heads && text.Y < canvas.PageHeight - 30 && text.X > 250;
    if (!isCard || text.Font.Face != Typeface::kTimes) continue;
    if (firstY == 0) firstY = text.Y;
    (text.Y == firstY ? first : second) += text.Text + " ";
  }
  EXPECT_EQ(first, "2 3 4 5 6 7 8 9 ");
  EXPECT_EQ(second, "T J Q K A JK 2 2 ");
}

TEST_F(PokerList, ACardIsASignInSymbolAndARankInTimes) {
  order = EmptyOrder(1);
  order.PokerDeals[1][1] = 13;
  order.PokerDeals[1][2] = 26;
  order.PokerDeals[1][3] = 39;
  order.PokerDeals[1][4] = 52;
  const DrawnPage& page = Draw().front();
  const std::pair<const char*, Colour> wanted[]{
      {"\u2660", kBlack}, {"\u2665", kRed}, {"\u2666", kRed}, {"\u2663", kBlack}};
  const auto ranks = page.Find("A");
  ASSERT_THAT(ranks, SizeIs(4));
  for (std::size_t suit = 0; suit < 4; ++suit) {
    const DrawnText sign = Only(page, wanted[suit].first);
    EXPECT_EQ(sign.Font.Face, Typeface::kSymbol);
    EXPECT_EQ(sign.Colour, wanted[suit].second);
    EXPECT_EQ(ranks[suit].Font.Face, Typeface::kTimes);
    EXPECT_EQ(ranks[suit].Colour, wanted[suit].second);
    EXPECT_EQ(ranks[suit].Y, sign.Y);
  }
}

TEST_F(PokerList, AnEmptySlotPrintsNothing) {
  order = EmptyOrder(1);
  const DrawnPage& page = Draw().front();
  std::vector<std::string> texts;
  for (const DrawnText& text : page.Texts) texts.push_back(text.Text);
  EXPECT_THAT(texts,
              UnorderedElementsAre("      Player: ", "1", "2", "3", "4", "5", "6", "BC", "FLOP",
                                   "BC", "T", "BC", "R", "Page: 1", "      Deal  :", "1"));
}

TEST_F(PokerList, APageBreakComesWhenTheNextBlockDoesNotFit) {
  Order(100);
  const auto& pages = Draw();
  std::size_t deals = 0;
  for (const DrawnPage& page : pages) {
    EXPECT_EQ(Blocks(page), &page == &pages.back() ? 100 - deals : Blocks(pages.front()));
    deals += Blocks(page);
    if (&page == &pages.back()) break;
    // The last block ends above the foot, by less than another one takes.
    const double last = page.Find("      Deal  :").back().Y;
    const double pitch = last - page.Find("      Deal  :")[Blocks(page) - 2].Y;
    const double foot = page.Find("Page: 1").empty() ? 0 : page.Find("Page: 1").front().Y;
    if (foot > 0) {
      EXPECT_LT(last + pitch - 5, foot);
      EXPECT_GT(last + 2 * pitch - 5, foot);
    }
  }
  EXPECT_EQ(deals, 100U);
  EXPECT_GT(Blocks(pages.front()), 10U);
}

TEST_F(PokerList, NoEmptyPageFollowsAFullOne) {
  Order(100);
  const auto full = static_cast<int>(Blocks(Draw().front()));
  Order(full);
  EXPECT_THAT(Draw(), SizeIs(1));
  Order(full + 1);
  EXPECT_THAT(Draw(), SizeIs(2));
}

TEST_F(PokerList, EachDealIsToldOnceItIsDrawnAndWhoeverIsToldCanEndIt) {
  Order(5);
  std::vector<std::size_t> blocks;
  EXPECT_FALSE(DrawPokerList(canvas, order, [&] {
    blocks.push_back(Blocks(canvas.Pages.back()));
    return blocks.size() < 3;
  }));
  EXPECT_THAT(blocks, ElementsAre(1U, 2U, 3U));
}

TEST_F(PokerList, APrinterThatTakesNoMoreEndsIt) {
  Order(100);
  canvas.MostPages = 2;
  EXPECT_FALSE(DrawPokerList(canvas, order, [] { return true; }));
}

TEST_F(PokerList, ATextThatIsTooLongIsSetSmaller) {
  Order(1);
  order.Poker_Event = std::string(200, 'M') + "\n";
  const DrawnPage& page = Draw().front();
  EXPECT_THAT(test::PageFaults(canvas, page), IsEmpty());
  Only(page, std::string(200, 'M') + " ");
}

/// The sizes of a page.
class PokerListOn : public PokerList,
                    public ::testing::WithParamInterface<std::pair<double, double>> {};
INSTANTIATE_TEST_SUITE_P(Papers, PokerListOn,
                         Values(std::pair{571, 818}, std::pair{588, 768}, std::pair{555, 768},
                                std::pair{396, 571}, std::pair{186, 273}, std::pair{571, 200}));

TEST_P(PokerListOn, AllIsThereAndNothingOverlaps) {
  std::tie(canvas.PageWidth, canvas.PageHeight) = GetParam();
  Order(100);
  order.PokerDeals[1].fill(55);
  order.PokerDeals[100].fill(48);
  std::size_t deals = 0;
  for (const DrawnPage& page : Draw()) {
    EXPECT_THAT(test::PageFaults(canvas, page), IsEmpty());
    deals += Blocks(page);
  }
  EXPECT_EQ(deals, 100U);
}

}  // namespace
}  // namespace morvane::poker
