#include <gmock/gmock.h>

#include <algorithm>

#include "platform/qt/pdf_pages.h"
#include "poker/poker_list.h"
#include "poker/random_deals.h"
#include "support/fakes.h"
#include "support/pdf_reader.h"

namespace morvane::poker {
namespace {

using Word = test::PdfReader::Word;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Values;

const std::string kRanks = "23456789TJQKA";
const std::string kSigns[]{"\u2660", "\u2665", "\u2666", "\u2663"};

/// As a reader of the list would say it: 1 is the Two of Spades, 53 a joker.
std::string CardOf(int number) {
  if (number > 52) return "JK";
  const auto place = static_cast<std::size_t>(number) - 1;
  return kSigns[place / 13] + kRanks[place % 13];
}

double MiddleOf(const Word& word) { return (word.Top + word.Bottom) / 2; }

/// The words of a line, from the left, without blanks between them.
std::string Joined(std::vector<Word> words) {
  std::sort(words.begin(), words.end(),
            [](const Word& a, const Word& b) { return a.Left < b.Left; });
  std::string text;
  for (const Word& word : words) text += word.Text;
  return text;
}

class PokerPaper : public ::testing::TestWithParam<QPageSize::PageSizeId> {
 protected:
  PokerPaper() {
    test::FakeEntropy random;
    FillAtRandom(order, random);
    order.Poker_Event = "Friday Evening – Łódź";
    order.Poker_Site = "Club Room";
    order.Poker_Date = "1 May";
    order.PokerDeals[3].fill(0);
    order.PokerDeals[4][5] = 53;
    order.PokerDeals[4][16] = 54;
    order.PokerDeals[4][28] = 55;
    order.PokerDeals[40][1] = 0;
    order.PokerDeals[40][13] = 0;
    order.PokerDeals[40][22] = 0;
  }
  test::PdfReader Pdf() {
    const auto draw = [this](Canvas& canvas) {
      EXPECT_TRUE(DrawPokerList(canvas, order, [] { return true; }));
    };
    test::WriteContent(folder / "list.pdf", PdfPages({"List", 1}, draw, QPageSize(GetParam())));
    return test::PdfReader(folder / "list.pdf");
  }
  /// What the two lines of deal `n` say from the first player's card on.
  [[nodiscard]] std::array<std::string, 2> Wanted(int n) const {
    std::array<std::string, 2> lines;
    const PokerDeal& deal = order.PokerDeals[static_cast<std::size_t>(n)];
    const auto add = [&](std::size_t line, std::size_t first, std::size_t last) {
      for (std::size_t slot = first; slot <= last; ++slot) {
        if (deal[slot] != 0) lines[line] += CardOf(deal[slot]);
      }
    };
    add(0, 1, 6);
    add(0, 13, 20);
    add(1, 7, 12);
    add(1, 21, 28);
    return lines;
  }

  test::TempFolder folder;
  PokerOrder order = EmptyOrder(40);
};
INSTANTIATE_TEST_SUITE_P(Papers, PokerPaper,
                         Values(QPageSize::A4, QPageSize::Letter, QPageSize::A6));

TEST_P(PokerPaper, AllCardsOfEveryDealStandOnTheirLinesInOrder) {
  const auto pdf = Pdf();
  int number = 0;
  for (int page = 1; page <= pdf.Pages(); ++page) {
    std::vector<Word> words = pdf.Places(page);
    std::sort(words.begin(), words.end(),
              [](const Word& a, const Word& b) { return a.Top < b.Top; });
    for (const Word& label : words) {
      if (label.Text != "Deal") continue;
      ++number;
      std::vector<Word> head;
      std::array<std::vector<Word>, 2> lines;
      const double height = label.Bottom - label.Top;
      for (const Word& word : words) {
        const double below = MiddleOf(word) - MiddleOf(label);
        if (word.Left < label.Left + 5 * height) {
          if (std::abs(below) < 0.5 * height) head.push_back(word);
        } else if (below > -0.5 * height && below < 2 * height) {
          lines[below < 0.8 * height ? 0 : 1].push_back(word);
        }
      }
      EXPECT_EQ(Joined(head), "Deal:" + std::to_string(number));
      EXPECT_EQ(Joined(lines[0]), Wanted(number)[0]) << "deal " << number;
      EXPECT_EQ(Joined(lines[1]), Wanted(number)[1]) << "deal " << number;
    }
  }
  EXPECT_EQ(number, 40);
}

TEST_P(PokerPaper, EachPageHasItsHeaderItsHeadsAndItsNumber) {
  const auto pdf = Pdf();
  ASSERT_GT(pdf.Pages(), 1);
  for (int page = 1; page <= pdf.Pages(); ++page) {
    const std::string text = pdf.Text(page);
    for (const std::string& line :
         {order.Poker_Event, order.Poker_Site, order.Poker_Date, "Page: " + std::to_string(page)}) {
      EXPECT_THAT(text, HasSubstr(line));
    }
    const std::vector<std::string> words = pdf.Words(page);
    const auto heads = std::find(words.begin(), words.end(), "Player:");
    ASSERT_GT(words.end() - heads, 13);
    EXPECT_THAT(std::vector(heads + 1, heads + 13),
                ElementsAre("1", "2", "3", "4", "5", "6", "BC", "FLOP", "BC", "T", "BC", "R"));
  }
}

TEST_P(PokerPaper, HeartsAndDiamondsAreRed) {
  order = EmptyOrder(1);
  order.PokerDeals[1].fill(30);
  const QImage red = Pdf().Picture(1, 72);
  order.PokerDeals[1].fill(50);
  const QImage black = Pdf().Picture(1, 72);
  const auto redPoints = [](const QImage& page) {
    int points = 0;
    for (int y = 0; y < page.height(); ++y) {
      for (int x = 0; x < page.width(); ++x) {
        const QColor colour = page.pixelColor(x, y);
        if (colour.red() > 200 && colour.green() < 100) ++points;
      }
    }
    return points;
  };
  EXPECT_GT(redPoints(red), 100);
  EXPECT_EQ(redPoints(black), 0);
}

}  // namespace
}  // namespace morvane::poker
