#pragma once

#include <optional>
#include <string>

#include "bridges/trace/trace_line.h"
#include "wire/frame.h"

namespace morvane::bridges {

// What a line of a trace asks of the bridge, whatever came of it.

/// The plain frame that a `kWrite` sends; nothing where its bytes are no whole frame.
[[nodiscard]] std::optional<wire::Frame> CommandIn(const TraceLine& line);

/// The same operation with the same arguments. Commands are the same when the machine hears the
/// same, whatever their filler.
[[nodiscard]] bool SameQuestion(const TraceLine& one, const TraceLine& other);

/// Takes the hands out of what a `kWrite` sends, as they are in a trace without them.
void LeaveOutHands(TraceLine& line);

/// "SetTimeouts", "CmdDeal begin".
[[nodiscard]] std::string QuestionName(const TraceLine& line);
/// "SetTimeouts 200 200", "CmdDeal begin: 98 00 ..." with the plain bytes of the frame.
[[nodiscard]] std::string QuestionText(const TraceLine& line);

/// Where the trace has `traced` and the program asks `asked`: a line of each, and where their
/// frames differ.
[[nodiscard]] std::string DifferenceText(const TraceLine& traced, const TraceLine& asked);

}  // namespace morvane::bridges
