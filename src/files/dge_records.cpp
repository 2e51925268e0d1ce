#include "files/dge_records.h"

#include <algorithm>

#include "text/box_text.h"

namespace morvane::files {
namespace {

static_assert(kDgeHands == kCards + kHands * kSuits);

char SuitMark(int suit) { return SuitGlyphsTerminal[static_cast<std::size_t>(suit) - 1]; }

/// How far the walk over a hands text has come.
struct Walk {
  Board& Dealt;
  const Messages& Texts;
  int Suit = 0;
  int Hand = 0;
};

/// Whether the mark of `suit` may stand here: the suits follow each other round and round.
bool TakeMark(Walk& walk, int suit) {
  if (suit != walk.Suit % kSuits + 1) return false;
  walk.Suit = suit;
  if (suit == 1) ++walk.Hand;
  return walk.Hand <= kHands;
}

/// What is wrong with the next byte; null when nothing is.
const std::string* TakeByte(Walk& walk, char byte) {
  const std::size_t mark = SuitGlyphsTerminal.find(byte);
  if (mark != std::string_view::npos) {
    return TakeMark(walk, static_cast<int>(mark) + 1) ? nullptr : &walk.Texts.Msg021;
  }
  const int card = CardOf(walk.Suit, byte);
  if (card == 0) return &walk.Texts.Msg018;
  return GiveCard(walk.Dealt, card, walk.Hand) ? nullptr : &walk.Texts.Msg019;
}

/// Walks from byte `from` up to byte `to` or to the first error, whose text is the result.
std::string WalkOver(Walk& walk, std::string_view text, std::size_t from, std::size_t to) {
  for (std::size_t at = from; at < std::min(to, text.size()); ++at) {
    if (const std::string* const error = TakeByte(walk, text[at])) {
      return Fill(*error, "***", std::to_string(at + 1));
    }
  }
  return {};
}

std::string CheckCounts(const Board& board, const Messages& texts) {
  std::string counts;
  bool right = true;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    const auto count = std::count(board.Cards.begin() + 1, board.Cards.end(), hand);
    right = right && count == kRanks;
    counts.append(counts.empty() ? "" : ", ").append(std::to_string(count));
  }
  return right ? std::string() : Fill(texts.Msg020, "***", counts);
}

}  // namespace

std::string ParseDgeRecord(std::string_view record, Board& board, DgeMode mode,
                           const Messages& texts) {
  board.Cards = {};
  if (mode == DgeMode::kWholeRecord) {
    if (record.size() != kDgeRecord) {
      return Fill(texts.Msg014, "***", std::to_string(record.size()));
    }
    record = record.substr(0, kDgeHands);
  }
  Walk walk{board, texts};
  std::string error = WalkOver(walk, record, 0, kDgeHands);
  // What a longer line has behind its hands is walked even after an error, and an error there is
  // the one told: required.
  if (auto later = WalkOver(walk, record, kDgeHands, record.size()); !later.empty()) return later;
  if (error.empty() && mode == DgeMode::kWholeRecord) return CheckCounts(board, texts);
  return error;
}

std::string FormatDgeHands(const Board& board) {
  std::string text;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    int suit = 1;
    text += SuitMark(suit);
    for (int card = 1; card <= kCards; ++card) {
      if (board.Cards[static_cast<std::size_t>(card)] != hand) continue;
      while (suit < CardSuit(card)) text += SuitMark(++suit);
      text += CardLetter(card);
    }
    while (suit < kSuits) text += SuitMark(++suit);
  }
  return text;
}

std::string DgeBytes(const BoardSet& set) {
  std::string bytes;
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    bytes.append(FormatDgeHands(set.At(n))).append(kDgeRecord - kDgeHands, '\0');
  }
  return bytes;
}

}  // namespace morvane::files
