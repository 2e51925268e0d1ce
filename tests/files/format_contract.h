#pragma once

#include <array>
#include <ostream>
#include <random>
#include <string>

#include "files/record_desk.h"

namespace morvane::files {

// What each format promises, told a second time and apart from the program's own table, and the set
// that comes back from a file by these promises.

struct FormatCase {
  enum class Numbers { kNone, kOfTheSet, kOfEachBoard };

  const char* Extension;
  const char* Name;
  bool Events;
  Numbers Kept;
  bool Incomplete;
  bool Analysis;
  bool PlaceIsNumber;  ///< records before the first board are zero bytes
};

inline constexpr std::array<FormatCase, 7> kFormatCases{{
    {"bri", "BRI", false, FormatCase::Numbers::kNone, false, false, true},
    {"dge", "DGE", false, FormatCase::Numbers::kNone, false, false, false},
    {"dup", "DUP", false, FormatCase::Numbers::kOfTheSet, false, false, false},
    {"all", "DEAL305", false, FormatCase::Numbers::kNone, false, false, true},
    {"bre", "BRE", true, FormatCase::Numbers::kNone, true, false, false},
    {"csv", "CSV", false, FormatCase::Numbers::kOfEachBoard, false, false, false},
    {"pbn", "PBN", true, FormatCase::Numbers::kOfEachBoard, true, true, false},
}};

inline void PrintTo(const FormatCase& format, std::ostream* out) { *out << format.Name; }

inline bool Is(const FormatCase& format, std::string_view name) { return format.Name == name; }

/// Whether the set's numbers come back; of a single board DUP leaves the number to be asked for.
inline bool KeepsNumbers(const FormatCase& format, const BoardSet& set) {
  if (format.Kept == FormatCase::Numbers::kOfTheSet) return set.Count() > 1;
  return format.Kept == FormatCase::Numbers::kOfEachBoard;
}

/// Whether a file with the set can be loaded. The zero bytes of a gap are no board, and a CSV file
/// of one line counts as empty.
inline bool ComesBack(const FormatCase& format, const BoardSet& set) {
  if (Is(format, "CSV")) return set.Count() > 1;
  return set.FirstBoard == 1 || !format.PlaceIsNumber;
}

/// PBN takes one or two repeat marks off the front of an event text.
inline std::string WithoutMarks(std::string text) {
  for (int i = 0; i < 2 && text.starts_with('#'); ++i) text.erase(0, 1);
  return text;
}

inline void TakeEvents(const FormatCase& format, const BoardSet& set, BoardSet& back) {
  if (Is(format, "BRE")) {
    // Characters are bytes here: no long text of the tests has others than ASCII.
    back.EventName = set.EventName.substr(0, 200);
    back.EventSite = set.EventSite.substr(0, 200);
    back.EventDate = set.EventDate.substr(0, 40);
  } else if (format.Events) {
    back.EventName = WithoutMarks(set.EventName);
    back.EventSite = WithoutMarks(set.EventSite);
    back.EventDate = WithoutMarks(set.EventDate);
  }
}

/// The set that a file of `set` gives, where it `ComesBack`.
inline BoardSet Back(const FormatCase& format, const BoardSet& set) {
  const int moved = KeepsNumbers(format, set) ? 0 : set.FirstBoard - 1;
  BoardSet back = EmptySet(Is(format, "CSV") ? 1 : set.FirstBoard - moved, set.LastBoard - moved);
  TakeEvents(format, set, back);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    Board& board = back.At(n - moved);
    board = NumberedBoard(n - moved);
    board.Cards = set.At(n).Cards;
    AnalyzeBoard(board);
    if (!Is(format, "PBN")) continue;
    board.Dealer = static_cast<std::uint8_t>(BoardDealer(set.At(n), n));
    board.Vul = static_cast<std::uint8_t>(BoardVul(set.At(n), n));
    board.Tricks = set.At(n).Tricks;
  }
  return back;
}

/// The boards in front of a set that was moved are left where they were read: nobody looks there.
inline void ExpectSameSet(const BoardSet& set, const BoardSet& expected) {
  ASSERT_EQ(set.FirstBoard, expected.FirstBoard);
  ASSERT_EQ(set.LastBoard, expected.LastBoard);
  for (int n = set.FirstBoard; n <= kMaxBoards; ++n) EXPECT_EQ(set.At(n), expected.At(n)) << n;
  EXPECT_EQ(set.EventName, expected.EventName);
  EXPECT_EQ(set.EventSite, expected.EventSite);
  EXPECT_EQ(set.EventDate, expected.EventDate);
}

/// Gives the board all that a set can hold besides its cards.
inline void Enrich(std::mt19937& random, Board& board) {
  board.Dealer = static_cast<std::uint8_t>(random() % 5);
  board.Vul = static_cast<std::uint8_t>(random() % 5);
  for (std::size_t i = 0; i < 20; ++i) board.Tricks[i] = static_cast<std::uint8_t>(random() % 8);
  board.DealNumber.fill(static_cast<std::uint8_t>(random()));
  board.DealCounter.fill(static_cast<std::uint8_t>(random()));
}

}  // namespace morvane::files
