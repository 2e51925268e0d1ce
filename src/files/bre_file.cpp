#include "files/bre_file.h"

#include <utility>

#include "files/dge_records.h"
#include "files/placed_boards.h"
#include "text/box_text.h"
#include "text/number_filter.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace morvane::files {
namespace {

constexpr int kEventLines = 3;
constexpr std::size_t kDateLength = 40;  ///< in characters

/// Moves `lines` behind the event texts; false when no line follows them.
bool SkipEventTexts(Lines& lines) {
  std::string_view line;
  for (int i = 0; i < kEventLines; ++i) {
    if (!lines.Next(line)) return false;
  }
  return !lines.Rest().empty();
}

void TakeEventTexts(BoardSet& set, std::string_view bytes) {
  const std::string text = DecodeText(std::string(bytes));
  Lines lines(text);
  const auto next = [&](std::size_t length) {
    std::string_view line;
    lines.Next(line);
    return std::string(FirstCharacters(line, length));
  };
  set.EventName = next(kLongestEventText);
  set.EventSite = next(kLongestEventText);
  set.EventDate = next(kDateLength);
}

std::optional<FormatFault> TakeBoard(BoardSet& set, std::string_view line, int number,
                                     const Messages& texts) {
  line = line.substr(0, line.find_last_not_of(' ') + 1);
  Board board;
  if (auto error = ParseDgeRecord(line, board, DgeMode::kBreLine, texts); !error.empty()) {
    return FormatFault{std::move(error), number};
  }
  // These records stay records though they are lines.
  if (!AppendBoard(set, board)) {
    return FormatFault{texts.Msg012, number, FormatFault::Counting::kRecords};
  }
  return std::nullopt;
}

}  // namespace

std::optional<FormatFault> ParseBre(std::string_view bytes, BoardSet& set, const Messages& texts) {
  Lines lines(bytes);
  if (!SkipEventTexts(lines)) return FormatFault{texts.Msg013};
  TakeEventTexts(set, bytes.substr(0, bytes.size() - lines.Rest().size()));
  int number = kEventLines;
  for (std::string_view line; lines.Next(line);) {
    ++number;
    if (!line.empty()) {
      if (auto fault = TakeBoard(set, line, number, texts)) return fault;
    } else if (!set.Exists()) {
      return FormatFault{};  // an empty line before the first board fails without a word: required
    }
  }
  return std::nullopt;
}

std::string BreBytes(const BoardSet& set) {
  std::string events;
  for (const std::string& text : {set.EventName, set.EventSite, set.EventDate}) {
    events.append(text).append(kCrLf);
  }
  std::string bytes = EncodeText(events);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    bytes.append(FormatDgeHands(set.At(n))).append(kCrLf);
  }
  return bytes;
}

}  // namespace morvane::files
