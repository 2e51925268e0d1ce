#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/board.h"
#include "model/similarity.h"

namespace morvane::history {

// The history file is a ring of records of 16 bytes; byte 0 is the type:
//
//   type  bytes 1, 2                             bytes 3..15
//    254  boards of the set: n % 100, n / 100    characters 1..13 of the entry's name
//    253  characters 14, 15 ...                  ... to 28
//    252  characters 29, 30 ...                  ... to 43
//      0  board number: n % 100, n / 100         hands of cards 1..52, two bits each, 0 North .. 3
//                                                West, the first card of a byte in its top bits
//    255  "=" in bytes 1..15: the ring's end, where the next entry begins
//
// An entry is 254, 253, 252 and a record of type 0 for each complete board.

inline constexpr std::size_t kRecordBytes = 16;
inline constexpr int kRingSize = 20000;
inline constexpr std::size_t kNameCharacters = 43;

using HistoryRecord = std::array<std::uint8_t, kRecordBytes>;

inline constexpr std::uint8_t kBoardType = 0;
inline constexpr std::uint8_t kThirdNameType = 252;
inline constexpr std::uint8_t kSecondNameType = 253;
inline constexpr std::uint8_t kEntryType = 254;
inline constexpr std::uint8_t kEndType = 255;

/// `name` as an entry has it: without blanks around it, its first 43 characters, filled up with
/// blanks; one byte a character.
[[nodiscard]] std::string EntryName(std::string_view name);

/// The three records that begin the entry of a set of `boards` boards. `name` is an `EntryName`.
[[nodiscard]] std::array<HistoryRecord, 3> EntryRecords(int boards, std::string_view name);
[[nodiscard]] HistoryRecord BoardRecord(const Board& board);
[[nodiscard]] HistoryRecord EndRecord();

/// The characters of the name that a record of type 254, 253 or 252 holds.
[[nodiscard]] std::string_view NamePart(const HistoryRecord& record);

/// A board as it can be read from its record: whatever the bytes, each card is in a hand.
[[nodiscard]] int NumberOfRecord(const HistoryRecord& record);
[[nodiscard]] HandMasks HandsOfRecord(const HistoryRecord& record);

/// Record `position` (from 1) of a file of `bytes`, which has it whole.
[[nodiscard]] HistoryRecord RecordAt(std::string_view bytes, std::size_t position);
/// Puts `record` at `position`; what lies before it and beyond the end becomes zero.
void PutRecord(std::string& bytes, std::size_t position, const HistoryRecord& record);

}  // namespace morvane::history
