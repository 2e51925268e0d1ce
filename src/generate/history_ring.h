#pragma once

#include <cstdint>
#include <string_view>

#include "model/board.h"
#include "program/program.h"

namespace morvane::generate {

/// The stored board that a candidate resembles most. `File` is valid until the ring changes.
struct HistoricSimilarity {
  int Cards = 0;   ///< 0..13 cards in common
  int Number = 0;  ///< the stored board's number
  std::string_view File = "<none>";
  char HandC = ' ';  ///< letter of the candidate's hand
  char HandH = ' ';  ///< letter of the stored board's hand
};

/// The history of boards already played. Until boards are recorded it is empty, and nothing
/// resembles anything in it.
class HistoryRing {
 public:
  /// Enters the data folder, making it where it is missing; whether the history can be used. A
  /// failure has been shown.
  bool LoadHistory(Program& program);

  [[nodiscard]] HistoricSimilarity HistorySimilarity(const Board& candidate) const;

  bool HistoryEnabled = false;   ///< off after a failure: nothing is compared or written
  std::int16_t HistoryUsed = 0;  ///< highest position in use
};

}  // namespace morvane::generate
