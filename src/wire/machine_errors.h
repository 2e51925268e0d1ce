#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// What the machine can report: the error codes 1..240 of a status reply, and its event numbers.

namespace morvane::wire {

/// Codes with a meaning beyond their text.
enum MachineErrorCode : std::uint8_t {
  kDuplicateCard = 54,
  kCardFeeding = 55,
  kBreakDealing = 57,
  kBoardNotFitted = 58,
  kIncorrectCardOrder = 62,
};

struct MachineErrorText {
  std::string_view Text;
  bool CanGoOn = false;  ///< the run can go on where it stopped; otherwise it is begun anew
};
/// The text of a machine error code; an unknown code is "Undefine Error".
[[nodiscard]] MachineErrorText TextOfError(int code);

/// The machine's own event numbers, kept as a list; empty where it has none.
extern const std::array<std::string_view, 47> MachineMessageText;

}  // namespace morvane::wire
