#include "simulator/carry.h"

namespace morvane::simulator {

const CarryWords& WordsOf(Carry way) { return kCarries[static_cast<std::size_t>(way)]; }

std::optional<Carry> CarryOf(std::string_view word) {
  for (const CarryWords& words : kCarries) {
    if (words.Word == word) return words.Way;
  }
  return std::nullopt;
}

}  // namespace morvane::simulator
