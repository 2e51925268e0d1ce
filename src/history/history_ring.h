#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "history/history_record.h"
#include "model/board_set.h"

namespace morvane::history {

/// The stored board that a candidate resembles most.
struct HistoricSimilarity {
  int Cards = 0;   ///< 0..13 cards in common
  int Number = 0;  ///< the stored board's number
  std::string File = "<none>";
  char HandC = ' ';  ///< letter of the candidate's hand
  char HandH = ' ';  ///< letter of the stored board's hand
};

/// One file entry of the ring, for people to read.
struct HistoryEntry {
  std::string Name;
  int Position = 0;  ///< of its type 254 record
  int Boards = 0;    ///< that are compared with new deals
};

/// The history of boards already played: the bytes of its file, and a mirror of them in memory that
/// a candidate can be held against quickly. Positions are 1..20000.
class HistoryRing {
 public:
  /// Takes in the bytes of a history file. None is refused; a record cut short at the end is none.
  void Load(std::string bytes);

  /// Adds an entry of `set`, which exists, under `name`, which is not blank: the records that a
  /// file gets, one after the other, each at the write position.
  void Append(const BoardSet& set, std::string_view name);

  /// The index (from 1) of the last entry called `name`, blanks around it and case apart; 0 when
  /// there is none.
  [[nodiscard]] int IsInHistory(std::string_view name) const;

  /// Walks the ring from its oldest record to the newest. Of equally alike boards the first counts.
  [[nodiscard]] HistoricSimilarity HistorySimilarity(const Board& candidate) const;

  /// The index of the last name whose type 254 record stood at `position`; 0 when there is none.
  [[nodiscard]] int NameAtPosition(int position) const;

  /// The entries from the oldest to the newest, as `HistorySimilarity` meets them.
  [[nodiscard]] std::vector<HistoryEntry> Entries() const;

  /// The bytes of the ring's file.
  [[nodiscard]] const std::string& Bytes() const { return bytes_; }
  [[nodiscard]] int HistoryWritePos() const { return static_cast<int>(writePos_); }
  /// The highest position in use, 0 when empty.
  [[nodiscard]] int HistoryUsed() const { return static_cast<int>(used_); }
  [[nodiscard]] int HistoryCount() const { return static_cast<int>(names_.size()); }
  /// The name with index 1..`HistoryCount`, in UTF-8, without the blanks around it.
  [[nodiscard]] std::string HistoryName(int index) const;

 private:
  template <typename OnEntry, typename OnBoards>
  void Walk(OnEntry onEntry, OnBoards onBoards) const;
  void MakeRoom(std::size_t position);
  void TakeRecord(const HistoryRecord& record);
  void AddName(std::string characters, std::size_t position);
  void Write(const HistoryRecord& record);

  std::string bytes_;
  std::size_t writePos_ = 1;
  std::size_t used_ = 0;
  std::vector<std::uint8_t> types_;    ///< `HistoryType` [position]
  std::vector<HandMasks> boards_;      ///< `HistoryBoards` [position]: the hands of a board ...
  std::vector<std::int16_t> numbers_;  ///< ... and its number
  std::vector<std::string> names_;     ///< `HistoryNames` [index - 1], one byte a character
  std::vector<std::size_t> nameAt_;    ///< [position]: the index of the last name there, 0 none
};

/// Today's ring of the bytes of an older file, in which an entry had one record for its name.
[[nodiscard]] std::string ConvertedHistory(std::string_view oldBytes);

}  // namespace morvane::history
