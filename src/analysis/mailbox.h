#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "model/tables.h"
#include "platform/settings.h"

namespace morvane::analysis {

/// What stands in "Done".
enum class Answer : std::uint8_t {
  kAtWork,        ///< any other value: progress, or nothing
  kFinished,      ///< 99
  kStopped,       ///< 90
  kWrongBoard,    ///< 91
  kNoLibrary,     ///< 92
  kFunction,      ///< 93
  kFunctionPath,  ///< 94
  kAnalyzer,      ///< 95
  kAnalysis,      ///< 96
  kWrongTricks,   ///< 97
};
[[nodiscard]] Answer AnswerOf(std::string_view done);
/// The code of an answer; of `kAtWork` that of a start.
[[nodiscard]] std::string_view CodeOf(Answer answer);

inline constexpr std::string_view kGoOn = "00";   ///< in "Break"
inline constexpr std::string_view kBreak = "98";  ///< in "Break"

/// Percent of a board that a solver tells as its progress, 0..; nothing where it tells none.
[[nodiscard]] std::optional<int> ProgressOf(std::string_view done);

/// The levels of a "Result", in the order of `Board::Tricks`; nothing when it is not twenty digits
/// of 0 to 7.
using Levels = std::array<std::uint8_t, kResults>;
[[nodiscard]] std::optional<Levels> LevelsOf(std::string_view result);
[[nodiscard]] std::string ResultOf(const Levels& levels);

}  // namespace morvane::analysis
