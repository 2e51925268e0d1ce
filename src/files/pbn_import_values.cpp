#include "files/pbn_import_values.h"

#include <algorithm>

#include "files/pbn_values.h"
#include "text/text.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace morvane::files {
namespace {

constexpr int kMostTricks = 13;
/// No number, name or row of digits is longer. Longer ones are not looked at, since many short
/// games may repeat them.
constexpr std::size_t kLongestWord = 100;

/// The words of a text, one after the other.
class Words {
 public:
  explicit Words(std::string_view text) : rest_(text) {}
  bool Next(std::string_view& word) {
    const std::size_t start = rest_.find_first_not_of(' ');
    if (start == std::string_view::npos) return false;
    rest_.remove_prefix(start);
    word = rest_.substr(0, rest_.find(' '));
    rest_.remove_prefix(word.size());
    return true;
  }

 private:
  std::string_view rest_;
};

std::string CardName(int card) {
  constexpr std::array<std::string_view, 5> kSuitName{"", "Spades", "Hearts", "Diamonds", "Clubs"};
  const int suit = CardSuit(card);
  return std::string(1, CardLetter(card)) + " of " +
         std::string(kSuitName[static_cast<std::size_t>(suit)]);
}

/// Gives the cards of one hand, "AK10.-.QJ9.2" for example, to `hand`.
void ReadHand(std::string_view word, int hand, ImportedDeal& deal) {
  deal.Given[static_cast<std::size_t>(hand)] = true;
  int suit = 1;
  for (std::size_t at = 0; at < word.size(); ++at) {
    char c = UpperLetter(word[at]);
    if (c == '.' && ++suit > kSuits) {
      deal.Fault = "a hand has more than four suits";
      return;
    }
    if (c == '.' || c == '-') continue;  // a void may have its sign
    if (word.substr(at, 2) == "10") {
      c = 'T';
      ++at;
    }
    const int card = CardOf(suit, c);
    if (card == 0) {
      deal.Fault = "\"" + std::string(CharacterAt(word, at)) + "\" is no card";
      return;
    }
    std::uint8_t& holder = deal.Cards[static_cast<std::size_t>(card)];
    if (holder != 0) {
      deal.Fault = "the " + CardName(card) + " stands twice";
      return;
    }
    holder = static_cast<std::uint8_t>(hand);
  }
}

/// The tricks of all declarers as they come in.
class TricksTable {
 public:
  /// A result that nobody knows, or that contradicts an earlier one, spoils the table.
  void Put(int hand, std::size_t denomination, std::optional<int> tricks) {
    const std::size_t at = TricksIndex(hand, denomination);
    if (!tricks || *tricks > kMostTricks || (tricks_[at] >= 0 && tricks_[at] != *tricks)) {
      broken_ = true;
      return;
    }
    tricks_[at] = *tricks;
  }
  [[nodiscard]] std::optional<ImportedTricks> Levels() const {
    constexpr int kBook = 6;
    ImportedTricks levels{};
    for (std::size_t at = 0; at < tricks_.size(); ++at) {
      if (broken_ || tricks_[at] < 0) return std::nullopt;
      levels[at] = static_cast<std::uint8_t>(std::max(0, tricks_[at] - kBook));
    }
    return levels;
  }

 private:
  static constexpr std::array<int, kResults> AllUnknown() {
    std::array<int, kResults> tricks{};
    tricks.fill(-1);
    return tricks;
  }
  std::array<int, kResults> tricks_ = AllUnknown();
  bool broken_ = false;
};

std::optional<int> HexTricks(char c) {
  const std::size_t value = std::string_view("0123456789ABCD").find(UpperLetter(c));
  if (value == std::string_view::npos) return std::nullopt;
  return static_cast<int>(value);
}

std::optional<int> DecimalTricks(std::string_view word) {
  if (word.empty() || word.size() > 2) return std::nullopt;
  if (word.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  return Val(word);
}

/// Where a table has its columns.
struct Columns {
  std::optional<std::size_t> Declarer;
  std::optional<std::size_t> Denomination;
  std::optional<std::size_t> Result;
};

/// Reads "Declarer;Denomination\2R;Result\2R": a name may have the sign of its order in front, and
/// its width behind a backslash.
Columns ReadHeader(std::string_view header) {
  constexpr std::size_t kMostColumns = 20;
  Columns columns;
  for (std::size_t column = 0; column < kMostColumns && !header.empty(); ++column) {
    const std::size_t end = std::min(header.find(';'), header.size());
    std::string name = UpperCase(Trim(header.substr(0, std::min(header.find('\\'), end))));
    if (name.starts_with('+') || name.starts_with('-')) name.erase(0, 1);
    if (name == "DECLARER") columns.Declarer = column;
    if (name == "DENOMINATION") columns.Denomination = column;
    if (name == "RESULT") columns.Result = column;
    header.remove_prefix(std::min(end + 1, header.size()));
  }
  return columns;
}

std::optional<std::size_t> DenominationOf(std::string_view word) {
  const std::string name = UpperCase(word);
  if (name == "NT" || name == "N") return 0;
  const std::size_t suit = std::string_view("SHDC").find(name);
  if (name.size() != 1 || suit == std::string_view::npos) return std::nullopt;
  return suit + 1;
}

void PutRow(const Columns& columns, std::string_view line, TricksTable& table) {
  std::string_view declarer;
  std::string_view denomination;
  std::string_view result;
  Words words(line);
  std::string_view word;
  for (std::size_t column = 0; words.Next(word); ++column) {
    if (column == *columns.Declarer) declarer = word;
    if (column == *columns.Denomination) denomination = word;
    if (column == *columns.Result) result = word;
  }
  const int hand = declarer.size() == 1 ? HandOfLetter(declarer[0]) : 0;
  const auto in = DenominationOf(denomination);
  if (hand != 0 && in) table.Put(hand, *in, DecimalTricks(result));
}

}  // namespace

std::optional<int> ImportedNumber(std::string_view text) {
  if (text.empty() || text.size() > kLongestWord ||
      text.find_first_not_of("0123456789") != std::string_view::npos) {
    return std::nullopt;
  }
  const int number = Val(text);
  if (number < 1 || number > kMaxBoards) return std::nullopt;
  return number;
}

std::optional<std::uint8_t> ImportedDealer(std::string_view text) {
  if (text.size() > kLongestWord) return std::nullopt;
  const std::string word = UpperCase(text);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    const std::string name = UpperCase(HandName[static_cast<std::size_t>(hand)]);
    if (word == name || word == name.substr(0, 1)) return static_cast<std::uint8_t>(hand);
  }
  return std::nullopt;
}

std::optional<std::uint8_t> ImportedVul(std::string_view text) {
  if (text.size() > kLongestWord) return std::nullopt;
  if (text == "-") return std::uint8_t{1};
  std::string word;
  for (const char c : UpperCase(text)) {
    if (std::string_view(" -/").find(c) == std::string_view::npos) word += c;
  }
  if (word == "NONE" || word == "LOVE") return std::uint8_t{1};
  if (word == "NS") return std::uint8_t{2};
  if (word == "EW") return std::uint8_t{3};
  if (word == "ALL" || word == "BOTH") return std::uint8_t{4};
  return std::nullopt;
}

ImportedDeal ReadImportedDeal(std::string_view text) {
  ImportedDeal deal;
  int hand = text.empty() ? 0 : HandOfLetter(text[0]);
  const std::size_t colon = text.find_first_not_of(' ', 1);
  if (text.size() > kLongestValue) {
    deal.Fault = "the deal is too long";
  } else if (hand == 0) {
    deal.Fault = "the deal does not begin with N, E, S or W";
  } else if (colon == std::string_view::npos || text[colon] != ':') {
    deal.Fault = "no \":\" stands behind the first letter of the deal";
  }
  if (!deal.Fault.empty()) return deal;

  Words words(text.substr(colon + 1));
  std::string_view word;
  for (int hands = 0; deal.Fault.empty() && words.Next(word); hand = NextHand(hand)) {
    if (++hands > kHands) {
      deal.Fault = "the deal has more than four hands";
    } else if (word != "-") {
      ReadHand(word, hand, deal);
    }
  }
  return deal;
}

std::optional<ImportedTricks> TricksOfDigits(std::string_view text) {
  if (text.size() > kLongestWord) return std::nullopt;
  TricksTable table;
  std::size_t count = 0;
  for (const char c : text) {
    if (c == ' ') continue;
    if (count == kResults) return std::nullopt;
    table.Put(kTricksDeclarers[count / kDenominations], count % kDenominations, HexTricks(c));
    ++count;
  }
  return table.Levels();
}

std::optional<ImportedTricks> TricksOfTable(std::string_view header, std::string_view rows) {
  const Columns columns = ReadHeader(header);
  if (!columns.Declarer || !columns.Denomination || !columns.Result) return std::nullopt;
  TricksTable table;
  Lines lines(rows);
  for (std::string_view line; lines.Next(line);) PutRow(columns, line, table);
  return table.Levels();
}

std::optional<ImportedTricks> TricksOfAbility(std::string_view text) {
  if (text.size() > kLongestWord) return std::nullopt;
  TricksTable table;
  Words words(text);
  for (std::string_view word; words.Next(word);) {
    const std::size_t colon = word.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    std::string digits(word.substr(colon + 1));
    // A dash may part no-trump from the suits.
    if (digits.size() == kDenominations + 1 && digits[1] == '-') digits.erase(1, 1);
    if (digits.size() != kDenominations) return std::nullopt;
    for (const char declarer : word.substr(0, colon)) {
      const int hand = HandOfLetter(declarer);
      if (hand == 0) return std::nullopt;
      for (std::size_t at = 0; at < digits.size(); ++at) table.Put(hand, at, HexTricks(digits[at]));
    }
  }
  return table.Levels();
}

}  // namespace morvane::files
