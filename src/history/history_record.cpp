#include "history/history_record.h"

#include <algorithm>

#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::history {
namespace {

constexpr std::size_t kNumber = 1;      // bytes 1, 2 of types 0 and 254
constexpr std::size_t kContent = 3;     // bytes 3..15 of types 0 and 254
constexpr std::size_t kNamePart = 1;    // bytes 1..15 of types 253 and 252
constexpr std::size_t kFirstPart = 13;  // characters
constexpr std::size_t kOtherPart = 15;
constexpr unsigned kCardsOfByte = 4;

HistoryRecord NumberedRecord(std::uint8_t type, int number) {
  HistoryRecord record{type};
  record[kNumber] = static_cast<std::uint8_t>(number % 100);
  record[kNumber + 1] = static_cast<std::uint8_t>(number / 100);
  return record;
}

/// How far left the two bits of a card stand in their byte; `card` is counted from 0.
unsigned ShiftOf(std::size_t card) { return 6 - 2 * (card % kCardsOfByte); }

}  // namespace

std::string EntryName(std::string_view name) {
  std::string characters = AnsiBytes(Trim(name));
  characters.resize(kNameCharacters, ' ');
  return characters;
}

std::array<HistoryRecord, 3> EntryRecords(int boards, std::string_view name) {
  std::array<HistoryRecord, 3> records{NumberedRecord(kEntryType, boards),
                                       HistoryRecord{kSecondNameType},
                                       HistoryRecord{kThirdNameType}};
  std::copy_n(name.begin(), kFirstPart, records[0].begin() + kContent);
  std::copy_n(name.begin() + kFirstPart, kOtherPart, records[1].begin() + kNamePart);
  std::copy_n(name.begin() + kFirstPart + kOtherPart, kOtherPart, records[2].begin() + kNamePart);
  return records;
}

HistoryRecord BoardRecord(const Board& board) {
  HistoryRecord record = NumberedRecord(kBoardType, board.Number);
  for (std::size_t card = 0; card < kCards; ++card) {
    const auto hand = static_cast<unsigned>(board.Cards[card + 1] - 1);
    record[kContent + card / kCardsOfByte] |= static_cast<std::uint8_t>(hand << ShiftOf(card));
  }
  return record;
}

HistoryRecord EndRecord() {
  HistoryRecord record;
  record.fill('=');
  record[0] = kEndType;
  return record;
}

std::string_view NamePart(const HistoryRecord& record) {
  const std::size_t start = record[0] == kEntryType ? kContent : kNamePart;
  return {reinterpret_cast<const char*>(record.data()) + start, kRecordBytes - start};
}

int NumberOfRecord(const HistoryRecord& record) {
  return record[kNumber + 1] * 100 + record[kNumber];
}

HandMasks HandsOfRecord(const HistoryRecord& record) {
  HandMasks hands;
  for (std::size_t card = 0; card < kCards; ++card) {
    const unsigned bits = record[kContent + card / kCardsOfByte];
    hands.Add(static_cast<int>(bits >> ShiftOf(card) & 3U) + 1, static_cast<int>(card) + 1);
  }
  return hands;
}

HistoryRecord RecordAt(std::string_view bytes, std::size_t position) {
  HistoryRecord record;
  std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>((position - 1) * kRecordBytes),
              kRecordBytes, record.begin());
  return record;
}

void PutRecord(std::string& bytes, std::size_t position, const HistoryRecord& record) {
  if (bytes.size() < position * kRecordBytes) bytes.resize(position * kRecordBytes, '\0');
  std::copy(record.begin(), record.end(),
            bytes.begin() + static_cast<std::ptrdiff_t>((position - 1) * kRecordBytes));
}

}  // namespace morvane::history
