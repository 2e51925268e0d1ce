#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane::machine {

/// How a pocket stands, which its count alone does not tell: an early count is as red as one that
/// stays short.
enum class PocketState : std::uint8_t { kWaiting, kFilling, kFull, kStoppedShort, kTooMany };

/// `count`: nothing before the first report of a run; `target`: 13, or 52 in a sort; `falling`: the
/// machine still brings cards.
[[nodiscard]] PocketState PocketStateOf(std::optional<int> count, int target, bool falling);

/// In a word or two: "filling".
[[nodiscard]] std::string_view PocketWord(PocketState state);

}  // namespace morvane::machine
