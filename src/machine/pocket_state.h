#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane::machine {

/// How a pocket stands, which its count alone does not tell: an early count is as red as one that
/// stays short.
enum class PocketState : std::uint8_t {
  kWaiting,
  kFilling,
  kFull,
  kStoppedShort,
  kNotFull,  ///< and need not be
  kTooMany,
};

/// Whether more cards come.
enum class CardFlow : std::uint8_t {
  kFalling,
  kStopped,  ///< a pocket that is not full is short of cards
  kOver,     ///< a sort has gone through its pile, however large that was
};

/// `count`: nothing before the first report of a run; `target`: 13, or 52 in a sort.
[[nodiscard]] PocketState PocketStateOf(std::optional<int> count, int target, CardFlow flow);

/// In a word or two: "filling".
[[nodiscard]] std::string_view PocketWord(PocketState state);

}  // namespace morvane::machine
