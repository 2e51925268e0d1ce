#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "board_files.h"
#include "files/bri_records.h"
#include "files/deal305_records.h"
#include "files/dge_records.h"
#include "files/dup_records.h"
#include "files/fixed_records.h"

namespace {

using namespace morvane;
using namespace morvane::files;

struct Codec {
  std::string_view Name;
  std::string (*Compose)(const BoardSet& set);
};
constexpr std::array<Codec, 4> kCodecs{
    {{"BRI", BriBytes}, {"DGE", DgeBytes}, {"DUP", DupBytes}, {"DEAL305", Deal305Bytes}}};

/// A board of these formats has no card left over.
void RequireSound(const BoardSet& set) {
  RequireNumberedByPlace(set);
  for (int n = 1; n <= set.LastBoard; ++n) {
    const auto& cards = set.At(n).Cards;
    Require(std::none_of(cards.begin() + 1, cards.end(), [](int hand) { return hand == 0; }));
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
    RequireFormatError(*fault);
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
