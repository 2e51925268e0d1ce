// Any bytes as a history file: they load, can be compared with and added to, and what is then
// written loads again. The same bytes as an older file become a ring.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "history/history_ring.h"
#include "support.h"

namespace {

using namespace morvane;
using namespace morvane::history;

constexpr std::size_t kFileBytes = kRingSize * kRecordBytes;

Board RoundBoard(int number) {
  Board board = NumberedBoard(number);
  for (std::size_t card = 1; card <= kCards; ++card) {
    board.Cards[card] = static_cast<std::uint8_t>(card % kHands + 1);
  }
  AnalyzeBoard(board);
  return board;
}

void CheckRing(const HistoryRing& ring) {
  Require(ring.HistoryWritePos() >= 1 && ring.HistoryWritePos() <= kRingSize);
  Require(ring.HistoryUsed() >= 0 && ring.HistoryUsed() <= kRingSize);
  int boards = 0;
  for (const HistoryEntry& entry : ring.Entries()) {
    Require(entry.Position >= 1 && entry.Position <= kRingSize);
    boards += entry.Boards;
  }
  Require(boards <= ring.HistoryUsed());
  const HistoricSimilarity similarity = ring.HistorySimilarity(RoundBoard(1));
  Require(similarity.Cards >= 0 && similarity.Cards <= 13);
  Require(similarity.Cards == 0 || boards > 0);
}

void CheckAppending(HistoryRing& ring) {
  static const auto set = [] {
    auto made = std::make_unique<BoardSet>();
    made->FirstBoard = 1;
    made->LastBoard = 3;
    for (int n = 1; n <= 3; ++n) made->At(n) = RoundBoard(n);
    return made;
  }();
  const std::string before = ring.Bytes();
  const int position = ring.HistoryWritePos();
  ring.Append(*set, "Fuzz");
  CheckRing(ring);
  Require(ring.IsInHistory(" fuzz ") == ring.HistoryCount());
  Require(ring.HistorySimilarity(RoundBoard(1)).Cards == 13);
  // Six records and the end have been written, round the ring's end if need be.
  Require(ring.HistoryWritePos() == (position + 5) % kRingSize + 1);
  const std::string& after = ring.Bytes();
  Require(after.size() >= before.size());
  if (position + 6 > kRingSize) return;
  const std::size_t from = static_cast<std::size_t>(position - 1) * kRecordBytes;
  const std::size_t to = from + 7 * kRecordBytes;
  Require(after.compare(0, std::min(from, before.size()), before, 0, from) == 0);
  if (before.size() > to) Require(after.compare(to, std::string::npos, before, to) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  HistoryRing ring;
  ring.Load(bytes);
  Require(ring.Bytes() == bytes);
  CheckRing(ring);
  CheckAppending(ring);
  HistoryRing again;
  again.Load(ring.Bytes());
  CheckRing(again);

  const std::string converted = ConvertedHistory(bytes);
  Require(converted.size() % kRecordBytes == 0 && converted.size() <= kFileBytes);
  ring.Load(converted);
  CheckRing(ring);
  Require(RecordAt(converted, static_cast<std::size_t>(ring.HistoryWritePos())) == EndRecord());
  return 0;
}
