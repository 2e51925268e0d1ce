#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/messages.h"
#include "platform/settings.h"

namespace morvane::analysis {

enum class Solver : std::uint8_t { kDds, kDeepFinesse };

/// What differs between the solvers for whoever drives them.
struct SolverWords {
  std::string_view Title;
  std::string_view Error;    ///< the title of its errors
  std::string_view LogTag;   ///< in front of the range
  std::string_view Program;  ///< the name of its file, without an ending
};
[[nodiscard]] constexpr SolverWords WordsOf(Solver solver) {
  return solver == Solver::kDds
             ? SolverWords{"Bo Haglund DDS", "Bo Haglund DDS Error", "    DDS: ", "DDS_1"}
             : SolverWords{"Deep Finesse", "Deep Finesse Error", "    Deep_Finesse: ", "df1"};
}

/// The one that the settings name: "0" is DDS, anything else Deep Finesse.
[[nodiscard]] Solver ChosenSolver(const Settings& store);

/// Whether to start it.
[[nodiscard]] const std::string& QuestionOf(Solver solver, const Messages& texts);

}  // namespace morvane::analysis
