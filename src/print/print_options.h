#pragma once

#include <cstdint>
#include <string>

#include "platform/settings.h"

namespace morvane::print {

enum class PrintMode : std::uint8_t { kHandRecords = 0, kScoreCards = 1, kText = 2 };

/// What is printed and how. The settings store keeps all but the lower half.
struct PrintOptions {
  PrintMode Mode = PrintMode::kHandRecords;
  int PerPage = 0;  ///< index of a `Layout`, 1..4; 0: none chosen
  bool Colour = true;
  bool Analysis = true;
  bool Hcp = true;
  int Statistics = 1;  ///< 1 none, 2 before the first board, 3 after the last
  bool TenAsNumber = false;
  int National = 0;         ///< 0..6, of `NationalLetters`
  bool PrintBoards = true;  ///< the diagrams on score cards
  bool PrintNS = false;     ///< the pair numbers on score cards
  int NsOffset = 1;         ///< the pair on the first row
  std::string Header;
  int From = 1;
  int To = 1;
  int Copies = 1;

  static constexpr int kNoStatistics = 1;
  static constexpr int kStatisticsFirst = 2;
  static constexpr int kStatisticsLast = 3;
};

/// What the settings store says; a value that it cannot have yields the default.
[[nodiscard]] PrintOptions LoadPrintOptions(const Settings& store);

/// The value of "PrintScoreCardMode".
[[nodiscard]] int ScoreCardMode(const PrintOptions& options);

/// The options as digits for the log: ten, statistics, colour, analysis and HCP, the layout "  0"
/// to "  3", the score card mode, the national index, from, to and copies.
[[nodiscard]] std::string PrintParameters(const PrintOptions& options);

}  // namespace morvane::print
