#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "files/failure_reports.h"
#include "files/file_boxes.h"
#include "model/board_set.h"
#include "model/messages.h"

namespace morvane::files {

/// What a parser made of one text.
struct ParsedText {
  std::unique_ptr<BoardSet> Set = std::make_unique<BoardSet>();
  std::string Error;  ///< what the operator sees; empty for success

  /// The set of a text that must be sound.
  std::unique_ptr<BoardSet> Sound() {
    EXPECT_EQ(Error, "");
    return std::move(Set);
  }
};

using ParseText = std::optional<FormatFault>(std::string_view text, BoardSet& set,
                                             const Messages& texts);

inline ParsedText ParseWith(ParseText& parse, const std::string& text) {
  ParsedText parsed;
  parsed.Set->Clear();
  if (const auto fault = parse(text, *parsed.Set, InitMessages())) {
    EXPECT_NE(fault->Text, "") << text;
    parsed.Error = FaultText(*fault);
  }
  return parsed;
}

}  // namespace morvane::files
