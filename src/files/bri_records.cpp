#include "files/bri_records.h"

#include <algorithm>

#include "files/placed_boards.h"
#include "text/box_text.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

constexpr std::size_t kSpaces = 32;  // behind the hands

constexpr std::size_t kPair = 2;
constexpr std::size_t kHand = kRanks * kPair;
constexpr int kHandsNamed = 3;
static_assert(kHandsNamed * kHand == kBriHands);

std::string ParseHands(std::string_view hands, Board& board, const Messages& texts) {
  for (std::size_t at = 0; at < hands.size(); at += kPair) {
    const std::string_view pair = hands.substr(at, kPair);
    if (pair.find_first_not_of("0123456789") != std::string_view::npos) {
      return Fill(texts.Msg015, "***", TextOfAnsi(pair));
    }
    const int card = Val(pair);
    if (card < 1 || card > kCards) return Fill(texts.Msg016, "***", pair);
    const int hand = kNorth + static_cast<int>(at / kHand);
    if (!GiveCard(board, card, hand)) return Fill(texts.Msg017, "***", pair);
  }
  return {};
}

}  // namespace

std::string ParseBriRecord(std::string_view record, Board& board, BriMode mode,
                           const Messages& texts) {
  const std::size_t length = mode == BriMode::kWholeRecord ? kBriRecord : kBriHands;
  board.Cards = {};
  std::string error = record.size() == length
                          ? ParseHands(record.substr(0, kBriHands), board, texts)
                          : Fill(texts.Msg014, "***", std::to_string(record.size()));
  std::replace(board.Cards.begin() + 1, board.Cards.end(), std::uint8_t{0},
               static_cast<std::uint8_t>(kWest));
  return error;
}

std::string FormatBriHands(const Board& board) {
  std::string text;
  for (int hand = kNorth; hand <= kHandsNamed; ++hand) {
    for (int card = 1; card <= kCards; ++card) {
      if (board.Cards[static_cast<std::size_t>(card)] != hand) continue;
      text.append(card < 10 ? "0" : "").append(std::to_string(card));
    }
  }
  return text;
}

std::string BriBytes(const BoardSet& set) {
  std::string bytes = GapBefore(set, kBriRecord);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    bytes.append(FormatBriHands(set.At(n))).append(kSpaces, ' ');
    bytes.append(kBriRecord - kBriHands - kSpaces, '\0');
  }
  return bytes;
}

}  // namespace morvane::files
