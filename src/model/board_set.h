#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/board.h"
#include "model/shapes.h"

namespace morvane {

/// The one set that the program works on. It exists when `LastBoard` is above 0.
struct BoardSet {
  std::array<Board, kMaxBoards + 1> Boards{};  ///< by board number; element 0 belongs to no set
  std::int16_t FirstBoard = 0;
  std::int16_t LastBoard = 0;
  std::int16_t CurrentBoard = 1;
  std::int16_t CompletedBoards = 0;   ///< as the statistics left it
  std::string BoardSetChanged = "0";  ///< "1" = changes that are not saved; held as text: required
  /// The editor has changed boards since the set was saved, which does not raise the question
  /// whether to save: required.
  bool Edited = false;
  std::string BoardSetFile;  ///< full path; empty for a new set
  std::string EventName;
  std::string EventSite;
  std::string EventDate;
  /// By shape index, one past the last table entry included; kept by statistics and generator.
  std::array<std::int16_t, ShapeTable::kCapacity + 1> ShapeCount{};

  [[nodiscard]] bool Exists() const { return LastBoard > 0; }
  [[nodiscard]] int Count() const { return Exists() ? LastBoard - FirstBoard + 1 : 0; }
  /// Whether `BoardSetChanged` has the numeric value 1.
  [[nodiscard]] bool Changed() const;
  /// Whether nothing would be lost with this set.
  [[nodiscard]] bool IsSaved() const { return !Changed() && !Edited; }
  void MarkSaved();
  [[nodiscard]] Board& At(int number) { return Boards[static_cast<std::size_t>(number)]; }
  [[nodiscard]] const Board& At(int number) const {
    return Boards[static_cast<std::size_t>(number)];
  }
  [[nodiscard]] Board& Current() { return At(CurrentBoard); }
  [[nodiscard]] const Board& Current() const { return At(CurrentBoard); }

  /// Empties boards and event texts: first board 1, last board 0, current board 1. The file name
  /// and `BoardSetChanged` are the caller's.
  void Clear();
};

}  // namespace morvane
