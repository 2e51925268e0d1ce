#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane::simulator {

/// How the piles of a stacking run are carried back to the feeder: rightly, or with a mistake that
/// people make.
enum class Carry : std::uint8_t {
  kRight,           ///< East on top, West, South at the bottom
  kPilesSwapped,    ///< West on top, East, South at the bottom
  kCardDropped,     ///< one card is lost, not the one that is fed last
  kCardsExchanged,  ///< two neighbours have changed places
  kPileTurned,      ///< the pile of East lies upside down
  kNorthToo,        ///< the pile of North as well, at the bottom
  kNothing,         ///< no pile at all, the feeder stays empty
};

struct CarryWords {
  Carry Way;
  std::string_view Word;   ///< as it is typed
  std::string_view Means;  ///< behind "The next carry:"
};
constexpr std::array<CarryWords, 7> kCarries{{
    {Carry::kRight, "right", "right"},
    {Carry::kPilesSwapped, "swapped", "East and West swapped"},
    {Carry::kCardDropped, "dropped", "a card dropped"},
    {Carry::kCardsExchanged, "exchanged", "two cards exchanged"},
    {Carry::kPileTurned, "turned", "East upside down"},
    {Carry::kNorthToo, "north", "North as well"},
    {Carry::kNothing, "nothing", "nothing"},
}};
/// What may be typed.
constexpr std::string_view kCarryList =
    "right, swapped, dropped, exchanged, turned, north or nothing";

[[nodiscard]] const CarryWords& WordsOf(Carry way);
/// Nothing for a word that is none of them.
[[nodiscard]] std::optional<Carry> CarryOf(std::string_view word);

}  // namespace morvane::simulator
