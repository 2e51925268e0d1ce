#include <algorithm>
#include <map>

#include "platform/qt/pdf_pages.h"
#include "print/document.h"
#include "print/paper_set.h"
#include "support/fakes.h"
#include "support/pdf_reader.h"

namespace morvane::print {
namespace {

using Word = test::PdfReader::Word;
using ::testing::Combine;
using ::testing::Range;
using ::testing::Values;

constexpr int kBoards = 40;
const std::vector<std::string> kSigns{"♠", "♥", "♦", "♣"};
// Ace to ten of each country, as its players write them.
const std::vector<std::array<const char*, 5>> kHonours{
    {"A", "K", "Q", "J", "T"}, {"A", "R", "D", "V", "X"}, {"1", "R", "D", "V", "X"},
    {"A", "K", "D", "B", "Z"}, {"A", "H", "V", "B", "T"}, {"E", "K", "D", "B", "T"},
    {"E", "K", "D", "Kn", "T"}};
// From board 1 on, again and again.
const std::string kVuls[16]{"None", "N-S",  "E-W",  "Both", "N-S",  "E-W",  "Both", "None",
                            "E-W",  "Both", "None", "N-S",  "Both", "None", "N-S",  "E-W"};

constexpr double kSignWidth = 0.77;  // of the height that poppler tells

struct Columns {
  int Boards;
  int Columns;
};
constexpr std::array<Columns, 5> kLayouts{{{}, {10, 2}, {12, 2}, {15, 3}, {18, 3}}};

bool IsSign(const std::string& text) {
  return std::find(kSigns.begin(), kSigns.end(), text) != kSigns.end();
}

/// Cards as written in a deal, in the letters of a country.
std::string InCountry(std::string_view cards, int national, bool tenAsNumber) {
  const std::string honours = "AKQJT";
  std::string text;
  for (const char card : cards) {
    const auto which = honours.find(card);
    if (which == std::string::npos) {
      text += card;
    } else {
      text +=
          card == 'T' && tenAsNumber ? "10" : kHonours[static_cast<std::size_t>(national)][which];
    }
  }
  return text;
}

int PointsOf(std::string_view hand) {
  const std::string honours = "JQKA";
  int points = 0;
  for (const char card : hand) points += static_cast<int>(honours.find(card) + 1);
  return points;
}

/// "♠AKQ", "♥", ... of one hand.
std::vector<std::string> SuitsOf(std::string_view hand, int national, bool tenAsNumber) {
  std::vector<std::string> suits;
  for (std::size_t suit = 0; suit < kSigns.size(); ++suit) {
    const auto end = std::min(hand.find('.'), hand.size());
    suits.push_back(kSigns[suit] + InCountry(hand.substr(0, end), national, tenAsNumber));
    hand.remove_prefix(std::min(end + 1, hand.size()));
  }
  return suits;
}

/// Signs that stand close to something are one word with it; here they are words of their own.
std::vector<Word> SplitAtSigns(const std::vector<Word>& words) {
  constexpr std::size_t kSignBytes = 3;
  std::vector<Word> parts;
  for (Word rest : words) {
    while (rest.Text.size() > kSignBytes && IsSign(rest.Text.substr(0, kSignBytes))) {
      Word sign = rest;
      sign.Text.resize(kSignBytes);
      sign.Right = rest.Left + kSignWidth * (rest.Bottom - rest.Top);
      rest.Text.erase(0, kSignBytes);
      rest.Left = sign.Right;
      parts.push_back(sign);
    }
    parts.push_back(rest);
  }
  return parts;
}

/// Each sign with the ranks behind it, if there are any.
std::vector<Word> WithRanks(const std::vector<Word>& words) {
  constexpr double kClose = 9;
  std::vector<Word> suits;
  for (const Word& sign : words) {
    if (!IsSign(sign.Text)) continue;
    const auto ranks = std::find_if(words.begin(), words.end(), [&sign](const Word& other) {
      const double middle = (other.Top + other.Bottom) / 2;
      return !IsSign(other.Text) && other.Left > sign.Left && other.Left < sign.Right + kClose &&
             middle > sign.Top + 2 && middle < sign.Bottom - 2;
    });
    suits.push_back(sign);
    if (ranks != words.end()) suits.back().Text += ranks->Text;
  }
  return suits;
}

/// Takes the words of the analysis table out: its rows from the top, each as one text. Its signs
/// are smaller than those of the hands.
std::vector<std::string> TakeTable(std::vector<Word>& words) {
  constexpr double kSameLine = 4;
  const auto heightOf = [](const Word& word) { return word.Bottom - word.Top; };
  double highest = 0;
  for (const Word& word : words) {
    if (IsSign(word.Text)) highest = std::max(highest, heightOf(word));
  }
  std::vector<Word> signs;
  for (const Word& word : words) {
    if (IsSign(word.Text) && heightOf(word) < 0.9 * highest) signs.push_back(word);
  }
  if (signs.size() != kSigns.size()) return {};
  const double signWidth = kSignWidth * heightOf(signs.front());
  const double column = (signs.back().Right - signs.front().Left - signWidth) / 3;
  const double left = signs.front().Left - 2.6 * column;
  const double top = signs.front().Top - kSameLine;
  const auto isOut = [&](const Word& word) { return word.Left < left || word.Top < top; };
  const auto inTable = std::stable_partition(words.begin(), words.end(), isOut);
  std::vector<Word> table(inTable, words.end());
  words.erase(inTable, words.end());
  std::map<double, std::vector<Word>> rows;  // by their tops
  for (const Word& word : table) {
    const double place = (word.Top + word.Bottom) / 2;
    const auto row = std::find_if(rows.begin(), rows.end(), [place](const auto& other) {
      return std::abs(other.first - place) < kSameLine;
    });
    (row == rows.end() ? rows[place] : row->second).push_back(word);
  }
  std::vector<std::string> texts;
  for (auto& [place, row] : rows) {
    std::sort(row.begin(), row.end(), [](const Word& a, const Word& b) { return a.Left < b.Left; });
    texts.emplace_back();
    for (const Word& word : row) texts.back() += word.Text;
  }
  return texts;
}

/// The words of each board on a page, told apart by the places of "Board:".
std::map<int, std::vector<Word>> BoardsOn(const std::vector<Word>& words, int columns,
                                          double width) {
  std::vector<Word> heads;
  for (const Word& word : words) {
    if (word.Text == "Board:") heads.push_back(word);
  }
  const double across = (width - 10) / columns;
  std::map<int, std::vector<Word>> boards;
  for (const Word& head : heads) {
    double bottom = 1e9;
    for (const Word& other : heads) {
      if (other.Top > head.Top + 5) bottom = std::min(bottom, other.Top - 3);
    }
    std::vector<Word> own;
    for (const Word& word : words) {
      const bool inside = word.Left > head.Left - 2 && word.Left < head.Left + across - 2 &&
                          word.Top > head.Top - 6 && word.Top < bottom;
      if (inside) own.push_back(word);
    }
    const auto number = std::find_if(own.begin(), own.end(), [&head](const Word& word) {
      return word.Left > head.Right && word.Left < head.Right + 8 && word.Top < head.Top + 2;
    });
    if (number != own.end()) boards[std::stoi(number->Text)] = SplitAtSigns(own);
  }
  return boards;
}

std::vector<std::string> TextsOf(const std::vector<Word>& words) {
  std::vector<std::string> texts;
  for (const Word& word : words) texts.push_back(word.Text);
  std::sort(texts.begin(), texts.end());
  return texts;
}

class PaperText : public ::testing::Test {
 protected:
  PaperText() {
    options.Header = "Autumn Teams";
    options.To = kBoards;
  }
  test::PdfReader Pdf(QPageSize::PageSizeId paper = QPageSize::A4) {
    const Document document(set, options);
    pages = document.Pages();
    const auto draw = [&document](Canvas& canvas) {
      EXPECT_TRUE(document.Draw(canvas, [] { return true; }));
    };
    test::WriteContent(folder / "boards.pdf",
                       PdfPages({"Autumn Teams", 1}, draw, QPageSize(paper)));
    return test::PdfReader(folder / "boards.pdf");
  }
  /// Every word that the cell of board `n` has outside of its table, and no other.
  [[nodiscard]] std::vector<std::string> Expected(int n) const {
    const std::string dealer(1, "NESW"[(n - 1) % 4]);
    std::vector<std::string> words{
        "Board:", std::to_string(n), "Dealer:", dealer, kVuls[(n - 1) % 16], "Vul", "N", "E", "S",
        "W"};
    for (const std::string_view hand : test::PaperDealOf(n)) {
      for (auto& suit : SuitsOf(hand, options.National, options.TenAsNumber)) {
        words.push_back(suit.substr(0, 3));
        if (suit.size() > 3) words.push_back(suit.substr(3));
      }
      if (options.Hcp) words.push_back(std::to_string(PointsOf(hand)));
    }
    if (options.Hcp) words.emplace_back("HCP");
    std::sort(words.begin(), words.end());
    return words;
  }

  /// The rows of the table of board `n`; a level 0 is an empty place.
  [[nodiscard]] std::vector<std::string> ExpectedTable(int n) const {
    if (!options.Analysis || n % 2 == 0 || set.At(n).Status != Board::kComplete) return {};
    std::vector<std::string> rows{"N♠♥♦♣"};
    for (const char hand : {'N', 'S', 'E', 'W'}) {
      std::string row(1, hand);
      for (int denomination = 0; denomination < 5; ++denomination) {
        const int number = 1 + static_cast<int>(std::string("NESW").find(hand));
        const int level = (n + 3 * number + denomination) % 8;  // as the set was made
        if (level > 0) row += std::to_string(level);
      }
      rows.push_back(row);
    }
    return rows;
  }

  test::TempFolder folder;
  BoardSet set = test::PaperSet(kBoards);
  PrintOptions options;
  std::vector<Page> pages;
};

/// Layout, national letters and whether the ten is a number.
class PaperTextOf : public PaperText,
                    public ::testing::WithParamInterface<std::tuple<int, int, bool>> {
 protected:
  PaperTextOf() { std::tie(options.PerPage, options.National, options.TenAsNumber) = GetParam(); }
};
INSTANTIATE_TEST_SUITE_P(Layouts, PaperTextOf, Combine(Range(1, 5), Values(0), Values(false)));
INSTANTIATE_TEST_SUITE_P(Letters, PaperTextOf,
                         Combine(Values(2), Range(0, 7), Values(false, true)));

TEST_P(PaperTextOf, EveryBoardHasItsWordsOnItsPageAndNoOthers) {
  const auto pdf = Pdf();
  const Columns layout = kLayouts[static_cast<std::size_t>(options.PerPage)];
  ASSERT_EQ(pdf.Pages(), (kBoards + layout.Boards - 1) / layout.Boards);
  for (int n = 1, page = 1; n <= kBoards; ++page) {
    auto boards = BoardsOn(pdf.Places(page), layout.Columns, 571);
    for (int place = 0; place < layout.Boards && n <= kBoards; ++place, ++n) {
      ASSERT_EQ(boards.count(n), 1U) << "board " << n << " on page " << page;
      EXPECT_EQ(TakeTable(boards[n]), ExpectedTable(n)) << "board " << n;
      EXPECT_EQ(TextsOf(boards[n]), Expected(n)) << "board " << n;
      boards.erase(n);
    }
    EXPECT_TRUE(boards.empty()) << "page " << page;
  }
}

TEST_P(PaperTextOf, EveryHandHasItsCardsInItsPlace) {
  options.Analysis = false;
  const auto pdf = Pdf();
  const Columns layout = kLayouts[static_cast<std::size_t>(options.PerPage)];
  for (int page = 1; page <= pdf.Pages(); ++page) {
    for (auto& [n, words] : BoardsOn(pdf.Places(page), layout.Columns, 571)) {
      std::vector<Word> suits = WithRanks(words);
      ASSERT_EQ(suits.size(), 16U) << "board " << n;
      // North is on top and South below; West's signs stand left of both, and East's right.
      std::stable_sort(suits.begin(), suits.end(),
                       [](const Word& a, const Word& b) { return a.Top < b.Top - 1; });
      const double middle = suits.front().Left;
      std::array<std::vector<std::string>, 4> hands;
      for (const Word& suit : suits) {
        const bool isNorth = suit.Top < suits[3].Top + 1;
        const bool isMiddle = std::abs(suit.Left - middle) < 1;
        const std::size_t hand = isMiddle ? (isNorth ? 0 : 2) : suit.Left > middle ? 1 : 3;
        hands[hand].push_back(suit.Text);
      }
      for (std::size_t hand = 0; hand < 4; ++hand) {
        EXPECT_EQ(hands[hand],
                  SuitsOf(test::PaperDealOf(n)[hand], options.National, options.TenAsNumber))
            << "board " << n << ", hand " << hand;
      }
    }
  }
}

TEST_F(PaperText, WhatIsOffIsNotThere) {
  options.PerPage = 2;
  options.Hcp = false;
  options.Analysis = false;
  auto boards = BoardsOn(Pdf().Places(1), 2, 571);
  EXPECT_EQ(TakeTable(boards[5]), std::vector<std::string>());
  EXPECT_EQ(TextsOf(boards[5]), Expected(5));
}

TEST_F(PaperText, EveryPageHasItsHeaderAndItsNumber) {
  options.PerPage = 4;
  options.Statistics = PrintOptions::kStatisticsLast;
  const auto pdf = Pdf();
  ASSERT_EQ(pdf.Pages(), 4);
  for (int page = 1; page <= 4; ++page) {
    EXPECT_THAT(pdf.Text(page), ::testing::HasSubstr("Autumn Teams"));
    EXPECT_THAT(pdf.Text(page), ::testing::HasSubstr("Page " + std::to_string(page) + " of 4"));
  }
  EXPECT_THAT(pdf.Text(4), ::testing::HasSubstr("Hands Statistics:"));
}

TEST_F(PaperText, BothPapersAreAsLargeAsTheyAreCalled) {
  options.PerPage = 1;
  EXPECT_EQ(Pdf(QPageSize::A4).PageSize(), "595 x 842 pts (A4)");
  EXPECT_EQ(Pdf(QPageSize::Letter).PageSize(), "612 x 792 pts (letter)");
}

TEST_F(PaperText, AHeaderOfAnyLanguageComesOut) {
  options.PerPage = 1;
  options.Header = "Zürich – Łódź – Αθήνα – Москва";
  EXPECT_THAT(Pdf().Text(1), ::testing::HasSubstr(options.Header));
}

}  // namespace
}  // namespace morvane::print
