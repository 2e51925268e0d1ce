#include "files/deal305_records.h"

#include "files/placed_boards.h"
#include "text/box_text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

constexpr std::string_view kHolders = "0123";
static_assert(kDeal305Record == kCards + kCrLf.size());

}  // namespace

std::string ParseDeal305Record(std::string_view record, Board& board, const Messages& texts) {
  board.Cards = {};
  if (record.size() != kDeal305Record) {
    return Fill(texts.Msg014, "***", std::to_string(record.size()));
  }
  for (std::size_t card = 1; card <= kCards; ++card) {
    const std::size_t holder = kHolders.find(record[card - 1]);
    if (holder == std::string_view::npos) {
      // The character behind it is shown too: required.
      return Fill(texts.Msg015, "***", TextOfAnsi(record.substr(card - 1, 2)));
    }
    board.Cards[card] = static_cast<std::uint8_t>(holder + 1);
  }
  return {};
}

std::string Deal305Bytes(const BoardSet& set) {
  std::string bytes = GapBefore(set, kDeal305Record);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    for (std::size_t card = 1; card <= kCards; ++card) {
      bytes += static_cast<char>('0' + set.At(n).Cards[card] - kNorth);
    }
    bytes.append(kCrLf);
  }
  return bytes;
}

}  // namespace morvane::files
