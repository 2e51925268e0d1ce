#include "files/pbn_import.h"

#include <algorithm>
#include <bitset>
#include <optional>

#include "files/import_event_text.h"
#include "files/pbn_import_games.h"
#include "files/pbn_import_values.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

using Numbers = std::bitset<kMaxBoards + 1>;

bool IsKnown(const GameValue& value) { return !value.Text().empty() && value.Text() != "-"; }

std::string AtLine(int line, const std::string& remark) {
  return "Line " + std::to_string(line) + ": " + remark;
}

std::string BoardName(int number) { return "board " + std::to_string(number); }

/// A value in quotes, not longer than fits on a line.
std::string Quoted(std::string_view value) {
  constexpr std::size_t kLongest = 20;
  std::string text;
  for (std::size_t count = 0; !value.empty(); ++count) {
    const std::string_view character = CharacterAt(value, 0);
    if (count == kLongest) return '"' + text + "...\"";
    text += character;
    value.remove_prefix(character.size());
  }
  return '"' + text + '"';
}

const char* WordsFor(PbnFlaw::Kind flaw) {
  switch (flaw) {
    case PbnFlaw::Kind::kNoQuote:
      return "a closing quote is missing";
    case PbnFlaw::Kind::kNoBracket:
      return "a closing bracket is missing";
    case PbnFlaw::Kind::kNoOpening:
      return "an opening bracket is missing; its tag was skipped";
    case PbnFlaw::Kind::kSurplus:
      return "text between a value and its closing bracket was skipped";
    case PbnFlaw::Kind::kBareValue:
      return "a value has no quotes";
    case PbnFlaw::Kind::kOpenComment:
      return "a comment does not end; only its line was skipped";
    case PbnFlaw::Kind::kTagsInComment:
      return "a comment holds tags, which were skipped";
  }
  return "";
}

/// The double-dummy results of a game: the first that are whole.
struct GameTricks {
  std::optional<ImportedTricks> Found;
  int FaultyLine = 0;  ///< of results that can't be used
};

GameTricks TricksOf(const PbnGame& game) {
  GameTricks tricks;
  const auto consider = [&](GameTag tag, const auto& read) {
    const GameValue& value = game.At(tag);
    if (tricks.Found || !IsKnown(value)) return;
    tricks.Found = read(value.Text());
    if (!tricks.Found && tricks.FaultyLine == 0) tricks.FaultyLine = value.Line;
  };
  consider(GameTag::kDoubleDummyTricks, TricksOfDigits);
  // The table of the game before, or an empty one, has no results that could be left out.
  if (game.TableRows.find_first_not_of(" \n") != std::string::npos) {
    consider(GameTag::kOptimumResultTable,
             [&](std::string_view header) { return TricksOfTable(header, game.TableRows); });
  }
  consider(GameTag::kAbility, TricksOfAbility);
  return tricks;
}

/// Whether every card that has a hand in `a` has the same in `b`.
bool IsPartOf(const Board& a, const Board& b) {
  for (std::size_t card = 1; card <= kCards; ++card) {
    if (a.Cards[card] != 0 && a.Cards[card] != b.Cards[card]) return false;
  }
  return true;
}

/// The numbers that the games of `text` have, so that no game without one takes them.
Numbers NamedNumbers(std::string_view text) {
  Numbers named;
  PbnGames games(text);
  while (const PbnGame* const game = games.Next()) {
    if (const auto number = ImportedNumber(game->At(GameTag::kBoard).Text())) {
      named.set(static_cast<std::size_t>(*number));
    }
  }
  return named;
}

/// Where a board of the set comes from, and which of its hands are told.
struct Origin {
  int Line = 0;
  std::array<bool, 5> Given{};
};

/// What keeps a board that is not complete from being so.
std::string WhatIsMissing(const Board& board, const Origin& origin) {
  if (std::find(origin.Given.begin(), origin.Given.end(), true) == origin.Given.end()) {
    return "no hand is given";
  }
  std::string text;
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    const int count = board.HandCount[hand];
    if (count == kRanks) continue;
    text.append(text.empty() ? "" : ", ").append(HandName[hand]);
    text += !origin.Given[hand]
                ? " is not given"
                : " has " + std::to_string(count) + (count == 1 ? " card" : " cards");
  }
  return text;
}

class Import {
 public:
  Import(std::string_view text, BoardSet& set) : text_(text), set_(set) {}
  ImportReport Run();

 private:
  void TakeGame(const PbnGame& game);
  void TakeEventTexts(const PbnGame& game);
  void TakeEventText(std::string& text, const GameValue& value, const std::string& name);
  int NumberOf(const PbnGame& game);
  int NextNumber(const PbnGame& game);
  std::uint8_t DealerOf(const GameValue& value);
  std::uint8_t VulOf(const GameValue& value);
  void Place(const Board& board, const Origin& origin);
  void NoteOtherTerms(const Board& board, const Origin& origin, const Board& other,
                      const Origin& otherOrigin);
  void FillUp(Board& board, Origin& origin, const Board& other, const Origin& otherOrigin) const;
  void Finish();
  void PassOver(int line, const std::string& reason) {
    report_.PassedOver.Add(AtLine(line, reason));
  }
  void Note(int line, const std::string& remark) { report_.Notes.Add(AtLine(line, remark)); }

  std::string_view text_;
  BoardSet& set_;
  ImportReport report_;
  std::optional<Numbers> used_;  ///< begun for the first game without one
  int lastNumber_ = 0;           ///< of the game before
  ImportedDeal deal_;            ///< of the game; one that is repeated is not read again
  std::array<Origin, kMaxBoards + 1> origins_{};
};

ImportReport Import::Run() {
  report_.IsPbn = text_.starts_with("% PBN");
  PbnGames games(text_);
  while (const PbnGame* const game = games.Next()) {
    report_.IsPbn = true;
    TakeGame(*game);
  }
  Finish();
  return std::move(report_);
}

void Import::TakeGame(const PbnGame& game) {
  for (const PbnFlaw& flaw : game.Flaws) Note(flaw.Line, WordsFor(flaw.What));
  TakeEventTexts(game);
  const GameValue& dealValue = game.At(GameTag::kDeal);
  if (dealValue.Changed) {
    deal_ = IsKnown(dealValue) ? ReadImportedDeal(dealValue.Text()) : ImportedDeal{};
  }
  if (game.At(GameTag::kBoard).Line == 0 && dealValue.Line == 0) return;

  ++report_.Games;
  const int number = NumberOf(game);
  if (number == 0) return;
  if (!deal_.Fault.empty()) return PassOver(dealValue.Line, BoardName(number) + ": " + deal_.Fault);

  Board board;
  board.Number = static_cast<std::int16_t>(number);
  board.Cards = deal_.Cards;
  board.Dealer = DealerOf(game.At(GameTag::kDealer));
  board.Vul = VulOf(game.At(GameTag::kVulnerable));
  const GameTricks tricks = TricksOf(game);
  if (tricks.Found) {
    board.Tricks = *tricks.Found;
  } else if (tricks.FaultyLine > 0) {
    Note(tricks.FaultyLine, "double-dummy results that are not whole were left out");
  }
  Place(board, {game.Line, deal_.Given});
}

void Import::TakeEventTexts(const PbnGame& game) {
  TakeEventText(set_.EventName, game.At(GameTag::kEvent), "name");
  TakeEventText(set_.EventSite, game.At(GameTag::kSite), "site");
  TakeEventText(set_.EventDate, game.At(GameTag::kDate), "date");
  TakeEventText(set_.EventDate, game.At(GameTag::kEventDate), "date");
}

/// The first known value in the file counts.
void Import::TakeEventText(std::string& text, const GameValue& value, const std::string& name) {
  if (!text.empty() || !value.Changed || !IsKnown(value)) return;
  EventText made = MakeEventText(value.Text());
  text = std::move(made.Text);
  if (made.Replaced) {
    Note(value.Line, "characters of the event " + name + " that cannot be saved were replaced");
  }
  if (made.Cut) {
    Note(value.Line,
         "the event " + name + " was cut to " + std::to_string(kLongestEventText) + " characters");
  }
}

/// The board number of the game; 0 after it was passed over.
int Import::NumberOf(const PbnGame& game) {
  const GameValue& value = game.At(GameTag::kBoard);
  if (!IsKnown(value)) return NextNumber(game);
  const auto number = ImportedNumber(value.Text());
  if (number) return lastNumber_ = *number;
  PassOver(value.Line, "board number " + Quoted(value.Text()) + " is not a number from 1 to " +
                           std::to_string(kMaxBoards));
  return 0;
}

/// The number that follows the game before's, and that no other game has.
int Import::NextNumber(const PbnGame& game) {
  if (!IsKnown(game.At(GameTag::kDeal))) {
    PassOver(game.Line, "a game has neither a board number nor a deal");
    return 0;
  }
  if (!used_) used_ = NamedNumbers(text_);
  int next = lastNumber_ + 1;
  while (next <= kMaxBoards && used_->test(static_cast<std::size_t>(next))) ++next;
  if (next > kMaxBoards) {
    PassOver(game.Line, "no board number is left for a deal without one");
    return 0;
  }
  used_->set(static_cast<std::size_t>(next));
  return lastNumber_ = next;
}

std::uint8_t Import::DealerOf(const GameValue& value) {
  if (!IsKnown(value)) return 0;
  const auto dealer = ImportedDealer(value.Text());
  if (!dealer) Note(value.Line, "dealer " + Quoted(value.Text()) + " is none; the number decides");
  return dealer.value_or(0);
}

std::uint8_t Import::VulOf(const GameValue& value) {
  if (value.Text().empty()) return 0;
  const auto vul = ImportedVul(value.Text());
  if (!vul)
    Note(value.Line, "vulnerability " + Quoted(value.Text()) + " is none; the number decides");
  return vul.value_or(0);
}

/// Puts the board into the set, or holds it against the one that stands there.
void Import::Place(const Board& board, const Origin& origin) {
  Board& placed = set_.At(board.Number);
  Origin& first = origins_[static_cast<std::size_t>(board.Number)];
  if (placed.Number == 0) {
    ++report_.Taken;
    placed = board;
    first = origin;
  } else if (IsPartOf(board, placed) || IsPartOf(placed, board)) {
    ++report_.Repeated;
    NoteOtherTerms(placed, first, board, origin);
    FillUp(placed, first, board, origin);
  } else {
    PassOver(origin.Line, BoardName(board.Number) + " has another deal than in line " +
                              std::to_string(first.Line));
  }
}

/// Tells what a game of a board says otherwise than the first, which counts.
void Import::NoteOtherTerms(const Board& board, const Origin& origin, const Board& other,
                            const Origin& otherOrigin) {
  const auto note = [&](std::uint8_t told, std::uint8_t otherwise, const char* name) {
    if (told == 0 || otherwise == 0 || told == otherwise) return;
    Note(otherOrigin.Line, BoardName(board.Number) + " has another " + name + " than in line " +
                               std::to_string(origin.Line) + ", which counts");
  };
  note(board.Dealer, other.Dealer, "dealer");
  note(board.Vul, other.Vul, "vulnerability");
}

/// Takes from another game of the same board what the first did not tell.
void Import::FillUp(Board& board, Origin& origin, const Board& other,
                    const Origin& otherOrigin) const {
  if (IsPartOf(board, other)) board.Cards = other.Cards;
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    origin.Given[hand] = origin.Given[hand] || otherOrigin.Given[hand];
  }
  if (board.Dealer == 0) board.Dealer = other.Dealer;
  if (board.Vul == 0) board.Vul = other.Vul;
  if (board.Tricks == ImportedTricks{}) board.Tricks = other.Tricks;
}

/// Derives what follows from the cards, and first and last board from the numbers taken.
void Import::Finish() {
  for (int n = 1; n <= kMaxBoards; ++n) {
    Board& board = set_.At(n);
    if (board.Number == 0) continue;
    AnalyzeBoard(board);
    if (!set_.Exists()) set_.FirstBoard = static_cast<std::int16_t>(n);
    set_.LastBoard = static_cast<std::int16_t>(n);
    if (board.Status == Board::kComplete) continue;
    const Origin& origin = origins_[static_cast<std::size_t>(n)];
    Note(origin.Line, BoardName(n) + " is incomplete: " + WhatIsMissing(board, origin));
  }
}

}  // namespace

ImportReport ImportPbn(std::string text, BoardSet& set) {
  const std::string plain = PlainText(std::move(text));
  return Import(plain, set).Run();
}

}  // namespace morvane::files
