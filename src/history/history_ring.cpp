#include "history/history_ring.h"

#include <algorithm>
#include <span>
#include <utility>

#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::history {
namespace {

/// What stands at a position of the mirror that no record has been taken into.
constexpr std::uint8_t kNoRecord = 1;

constexpr auto kPositions = static_cast<std::size_t>(kRingSize);

std::size_t Behind(std::size_t position) { return position == kPositions ? 1 : position + 1; }

/// A name as names are compared. It went through the file's character set, as the stored ones did.
std::string Folded(std::string_view name) { return UpperCaseAnsi(AnsiBytes(Trim(name))); }

}  // namespace

/// The mirror is as long as the ring has been written.
void HistoryRing::MakeRoom(std::size_t position) {
  if (position < types_.size()) return;
  types_.resize(position + 1, kNoRecord);
  boards_.resize(position + 1);
  numbers_.resize(position + 1);
  nameAt_.resize(position + 1);
}

void HistoryRing::Load(std::string bytes) {
  *this = HistoryRing();
  bytes_ = std::move(bytes);
  for (std::size_t record = 1; record <= bytes_.size() / kRecordBytes; ++record) {
    TakeRecord(RecordAt(bytes_, record));
  }
  MakeRoom(writePos_);
  types_[writePos_] = kEndType;
}

void HistoryRing::TakeRecord(const HistoryRecord& record) {
  used_ = Behind(used_);
  MakeRoom(used_);
  types_[used_] = record[0];
  switch (record[0]) {
    case kEndType:
      writePos_ = used_;
      break;
    case kEntryType:
      AddName(std::string(NamePart(record)), used_);
      break;
    case kSecondNameType:
    case kThirdNameType:
      if (!names_.empty()) names_.back().append(NamePart(record));
      break;
    default:
      boards_[used_] = HandsOfRecord(record);
      numbers_[used_] = static_cast<std::int16_t>(NumberOfRecord(record));
  }
}

void HistoryRing::AddName(std::string characters, std::size_t position) {
  names_.push_back(std::move(characters));
  nameAt_[position] = names_.size();
}

void HistoryRing::Append(const BoardSet& set, std::string_view name) {
  const std::string characters = EntryName(name);
  MakeRoom(writePos_);
  AddName(characters, writePos_);
  types_[writePos_] = kEntryType;
  used_ = std::max(used_, writePos_);
  // The types of the two positions behind stay what they were, and a board that stood there is
  // still compared until the next start: required.
  for (const HistoryRecord& record : EntryRecords(set.Count(), characters)) Write(record);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    const Board& board = set.At(n);
    if (board.Status != Board::kComplete) continue;
    boards_[writePos_] = MasksOf(board);
    numbers_[writePos_] = board.Number;
    types_[writePos_] = kBoardType;
    used_ = std::max(used_, writePos_);
    Write(BoardRecord(board));
  }
  PutRecord(bytes_, writePos_, EndRecord());
  types_[writePos_] = kEndType;
}

void HistoryRing::Write(const HistoryRecord& record) {
  PutRecord(bytes_, writePos_, record);
  writePos_ = Behind(writePos_);
  MakeRoom(writePos_);
}

int HistoryRing::IsInHistory(std::string_view name) const {
  const std::string wanted = Folded(name);
  for (int index = HistoryCount(); index > 0; --index) {
    if (Folded(HistoryName(index)) == wanted) return index;
  }
  return 0;
}

std::string HistoryRing::HistoryName(int index) const {
  return TextOfAnsi(Trim(names_[static_cast<std::size_t>(index - 1)]));
}

int HistoryRing::NameAtPosition(int position) const {
  const auto at = static_cast<std::size_t>(position);
  return at < nameAt_.size() ? static_cast<int>(nameAt_[at]) : 0;
}

/// Calls `onEntry` with the position of each header and `onBoards` with the position and the length
/// of each row of boards, in the order of the ring.
template <typename OnEntry, typename OnBoards>
void HistoryRing::Walk(OnEntry onEntry, OnBoards onBoards) const {
  std::size_t at = writePos_;
  for (std::size_t left = used_; left > 0;) {
    if (at > used_) at = 1;
    std::size_t boards = 0;
    while (boards < left && at + boards <= used_ && types_[at + boards] == kBoardType) ++boards;
    if (boards > 0) onBoards(at, boards);
    if (types_[at] == kEntryType) onEntry(at);
    const std::size_t steps = std::max<std::size_t>(boards, 1);
    at += steps;
    left -= steps;
  }
}

HistoricSimilarity HistoryRing::HistorySimilarity(const Board& candidate) const {
  const HandMasks hands = MasksOf(candidate);
  HistoricSimilarity best;
  std::size_t name = 0;  // the entry that begins the ring may have lost its own
  const auto onEntry = [&](std::size_t at) { name = nameAt_[at]; };
  const auto onBoards = [&](std::size_t at, std::size_t count) {
    if (name == 0) return;
    auto rest = std::span(boards_).subspan(at, count);
    while (true) {
      rest = rest.subspan(FirstMoreAlike(hands, rest, best.Cards));
      if (rest.empty()) return;
      const Similarity similarity = CompareHands(hands, rest.front());
      const auto position = static_cast<std::size_t>(&rest.front() - boards_.data());
      best = {similarity.Cards, numbers_[position], HistoryName(static_cast<int>(name)),
              similarity.HandA, similarity.HandB};
    }
  };
  Walk(onEntry, onBoards);
  return best;
}

std::vector<HistoryEntry> HistoryRing::Entries() const {
  std::vector<HistoryEntry> entries;
  Walk(
      [&](std::size_t at) {
        const int position = static_cast<int>(at);
        entries.push_back({HistoryName(NameAtPosition(position)), position, 0});
      },
      [&](std::size_t /*at*/, std::size_t count) {
        if (!entries.empty()) entries.back().Boards += static_cast<int>(count);
      });
  return entries;
}

std::string ConvertedHistory(std::string_view oldBytes) {
  const std::size_t records = oldBytes.size() / kRecordBytes;
  const auto typeAt = [&](std::size_t record) {
    return static_cast<std::uint8_t>(oldBytes[(record - 1) * kRecordBytes]);
  };
  std::size_t end = 1;  // its oldest record stands behind it, round the ring's end if need be
  while (end < records && typeAt(end) != kEndType) ++end;

  std::string bytes;
  std::size_t position = 1;
  const auto write = [&](const HistoryRecord& record) {
    PutRecord(bytes, position, record);
    position = Behind(position);
  };
  const auto nameRecord = [](std::uint8_t type) {
    HistoryRecord record;
    record.fill(' ');
    record[0] = type;
    return record;
  };
  bool inEntry = false;
  for (std::size_t step = 0; step < records; ++step) {
    const HistoryRecord record = RecordAt(oldBytes, (end + step) % records + 1);
    inEntry = inEntry || record[0] == kEntryType;
    if (!inEntry) continue;
    if (record[0] == kEndType) break;
    write(record);
    if (record[0] != kEntryType) continue;
    write(nameRecord(kSecondNameType));
    write(nameRecord(kThirdNameType));
  }
  write(EndRecord());
  return bytes;
}

}  // namespace morvane::history
