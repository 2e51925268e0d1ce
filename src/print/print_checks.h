#pragma once

#include <cstdint>
#include <string>

#include "model/board_set.h"
#include "model/messages.h"
#include "print/print_options.h"

namespace morvane::print {

/// The first thing that is wrong with the boards asked for.
enum class RangeFault : std::uint8_t {
  kNone,
  kFrom,   ///< the first is not in the set
  kTo,     ///< the last is not in the set
  kOrder,  ///< the last is below the first
};
[[nodiscard]] RangeFault CheckRange(const BoardSet& set, const PrintOptions& options);
/// What the operator is told of it; empty for `kNone`.
[[nodiscard]] std::string TextOf(RangeFault fault, const Messages& texts);
inline constexpr const char* kParameterError = "Printing Parameter Error";

/// Whether tables are to be printed and a board of the range has none.
[[nodiscard]] bool LacksAnalysis(const BoardSet& set, const PrintOptions& options);

}  // namespace morvane::print
