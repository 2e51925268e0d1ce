#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/canvas.h"
#include "support/recording_canvas.h"

namespace morvane::test {

/// The room that the letters of a text take, no higher than they are: capitals, digits and suit
/// signs stand on the baseline, some letters reach below it. Without width for an empty text.
[[nodiscard]] Area InkOf(const DrawnText& drawn);

/// What is wrong with the look of a page, a line each: a text over another, a rule through a text,
/// anything outside of `within`. `ink` tells the room of a text.
[[nodiscard]] std::vector<std::string> PageFaults(
    const DrawnPage& page, const Area& within,
    const std::function<Area(const DrawnText&)>& ink = InkOf);
/// The same for a whole page of `canvas`.
[[nodiscard]] std::vector<std::string> PageFaults(const RecordingCanvas& canvas,
                                                  const DrawnPage& page);

}  // namespace morvane::test
