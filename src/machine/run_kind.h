#pragma once

#include <cstdint>
#include <string_view>

namespace morvane::machine {

enum class RunKind : std::uint8_t { kDeal, kRead, kSort, kPoker };

/// What the kinds of run are called.
struct RunWords {
  std::string_view Title;   ///< of the window
  std::string_view Status;  ///< what the window is there for
  std::string_view Log;     ///< the line at its opening, before the time
  std::string_view Error;   ///< the title of a refusal
  std::string_view Deal;    ///< "deal", "dealt" ... in a sentence
  std::string_view Dealing;
  std::string_view Dealt;
  std::string_view Unit;  ///< what is dealt at a time
};
[[nodiscard]] const RunWords& WordsOf(RunKind kind);

}  // namespace morvane::machine
