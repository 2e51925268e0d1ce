#pragma once

#include <string>

#include "history/history_ring.h"
#include "support/fakes.h"

// The records of a history file, byte by byte, and rings made of them.

namespace morvane::history {

/// A record by its type and, from byte 1 on, its bytes; blanks behind them.
inline std::string Record(int type, const std::string& content) {
  std::string record(1, static_cast<char>(type));
  record += content;
  record.resize(16, ' ');
  return record;
}

inline const std::string kEnd = Record(255, "===============");

inline std::string Header(const std::string& name, int boards = 1) {
  return Record(254, std::string{static_cast<char>(boards), '\0'} + name);
}

/// The three records of a name of up to 13 characters.
inline std::string ShortName(const std::string& name, int boards = 1) {
  return Header(name, boards) + Record(253, "") + Record(252, "");
}

/// Board `number` in which the cards go round from North: cards 1, 2, 3, 4 to N, E, S, W, ...
inline std::string RoundRecord(int number) {
  return Record(0, std::string{static_cast<char>(number), '\0'} + std::string(13, '\x1B'));
}

/// Board `number` with all cards in North's hand.
inline std::string AllNorthRecord(int number) {
  return Record(0, std::string{static_cast<char>(number), '\0'} + std::string(13, '\0'));
}

inline HistoryRing Loaded(const std::string& bytes) {
  HistoryRing ring;
  ring.Load(bytes);
  return ring;
}

inline BoardSet SetOf(int first, int last) {
  BoardSet set;
  test::FillSet(set, first, last);
  return set;
}

/// A ring into which entries "E1", "E2" ... of `boards` boards were appended, `entries` of them.
inline HistoryRing Filled(int entries, int boards) {
  HistoryRing ring;
  const BoardSet set = SetOf(1, boards);
  for (int n = 1; n <= entries; ++n) ring.Append(set, "E" + std::to_string(n));
  return ring;
}

inline std::string Slice(const HistoryRing& ring, std::size_t position, std::size_t records) {
  return ring.Bytes().substr((position - 1) * 16, records * 16);
}

}  // namespace morvane::history
