#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "files/bri_records.h"
#include "files/deal305_records.h"
#include "files/dge_records.h"
#include "files/dup_records.h"
#include "files/fixed_records.h"
#include "support.h"

namespace {

using namespace morvane;
using namespace morvane::files;

struct Codec {
  std::string_view Name;
  std::string (*Compose)(const BoardSet& set);
};
constexpr std::array<Codec, 4> kCodecs{
    {{"BRI", BriBytes}, {"DGE", DgeBytes}, {"DUP", DupBytes}, {"DEAL305", Deal305Bytes}}};

/// Boards 1 to the last one are numbered by their place, and all of their cards are held.
void RequireSound(const BoardSet& set) {
  Require(set.FirstBoard == 1 && set.LastBoard <= kMaxBoards);
  for (int n = 0; n <= kMaxBoards; ++n) {
    const Board& board = set.At(n);
    if (n == 0 || n > set.LastBoard) {
      Require(board == Board{});
      continue;
    }
    Board expected = NumberedBoard(n);
    expected.Cards = board.Cards;
    AnalyzeBoard(expected);
    Require(board == expected);
    Require(std::all_of(board.Cards.begin() + 1, board.Cards.end(),
                        [](std::uint8_t hand) { return hand >= kNorth && hand <= kWest; }));
  }
}

/// Only the holders of DEAL305 may be other than 13 cards for each hand.
bool IsComplete(const BoardSet& set) {
  const auto first = set.Boards.begin() + 1;
  return std::all_of(first, first + set.LastBoard,
                     [](const Board& board) { return board.Status == Board::kComplete; });
}

void RequireSameAfterRoundTrip(const Codec& codec, const BoardSet& set, const Messages& texts) {
  const auto again = ClearSet();
  FileNumbers numbers;
  const std::string bytes = codec.Compose(set);
  Require(!ParseFixedRecords(bytes, codec.Name, *again, numbers, texts));
  Require(again->LastBoard == set.LastBoard && again->Boards == set.Boards);
  Require(codec.Compose(*again) == bytes);
  if (codec.Name == "DUP") Require(numbers.First == 1 && numbers.Last == set.LastBoard);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Messages texts = InitMessages();
  if (size == 0) return 0;
  const Codec& codec = kCodecs[*data % kCodecs.size()];
  const std::string bytes(data + 1, data + size);
  const auto set = ClearSet();
  FileNumbers numbers;
  const auto fault = ParseFixedRecords(bytes, codec.Name, *set, numbers, texts);
  RequireSound(*set);
  if (fault) {
    const std::string told = FaultText(*fault);
    Require(told.starts_with("      File format error     \r\n"));
    Require(told.ends_with("\r\n\r\n      Load operation aborted!      "));
    Require(fault->At == (bytes.empty() ? 0 : set->LastBoard + 1));
    return 0;
  }
  Require(set->Exists());
  Require(codec.Name == "DEAL305" || IsComplete(*set));
  RequireSameAfterRoundTrip(codec, *set, texts);
  if (!IsComplete(*set)) return 0;
  for (const Codec& other : kCodecs) RequireSameAfterRoundTrip(other, *set, texts);
  return 0;
}
