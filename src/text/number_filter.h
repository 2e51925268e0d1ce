#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace morvane {

/// What an event box holds, in characters.
inline constexpr std::size_t kLongestEventText = 200;

/// What a filtered box shows: its text and its caret, counted in characters from 0.
struct FilteredBox {
  std::string Text;
  int Caret = 0;
};

/// Digits-only filter of number boxes, run after every change. A character outside 0..9, a "0" in
/// the first place or a value above `limit` makes the text invalid; an empty text is accepted. An
/// invalid text gives way to `previous` and the caret moves one to the left unless it stood at the
/// start; a valid text becomes the new `previous`. Whether the text was valid.
bool FilterNumber(FilteredBox& box, std::string& previous, std::int64_t limit);

/// The same, but a lone "0" is accepted.
bool FilterNumberZero(FilteredBox& box, std::string& previous, std::int64_t limit);

/// The event boxes' rule: a text longer than `kLongestEventText` gives way to `previous` in the
/// same manner. Whether the text was short enough.
bool FilterLength(FilteredBox& box, std::string& previous);

}  // namespace morvane
