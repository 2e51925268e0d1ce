#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/wired_machine.h"

namespace morvane::simulator {

/// What a person types does at the machine what hands would do: "pedal", "board 5", "fault 54".
/// With several machines the number of one stands in front, "2 pedal"; the first one is 1. The
/// answer, whole lines; `quit` is set when it is to end.
[[nodiscard]] std::string Obey(std::span<WiredMachine* const> machines, std::string_view line,
                               bool& quit);

/// One of them: the word, what stands for what is typed behind it (or empty), what it does, in
/// lines as `OperatorCommandsHelp` has them.
struct OperatorWords {
  std::string_view Word;
  std::string_view Behind;
  std::string_view Means;
};
[[nodiscard]] std::vector<OperatorWords> OperatorCommands();

/// A line for each command, behind two blanks.
[[nodiscard]] std::string OperatorCommandsHelp();

}  // namespace morvane::simulator
