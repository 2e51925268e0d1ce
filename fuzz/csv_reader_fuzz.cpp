#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "board_files.h"
#include "files/csv_file.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace {

using namespace morvane;
using namespace morvane::files;

/// The boards of the lines before a fault, or of all lines, stand at their numbers and end with the
/// last one.
void RequireSound(const BoardSet& set, int lines) {
  Require(set.FirstBoard == 1 && set.LastBoard >= 0 && set.LastBoard <= kMaxBoards);
  Require(set.At(0) == Board{} && (lines == 0) == (set.LastBoard == 0));
  int boards = 0;
  for (int n = 1; n <= kMaxBoards; ++n) {
    if (set.At(n) == Board{}) continue;
    Require(n <= set.LastBoard);
    RequireBoard(set, n);
    ++boards;
  }
  Require(boards == lines && (lines == 0 || set.At(set.LastBoard).Number == set.LastBoard));
  Require((set.EventName + set.EventSite + set.EventDate).empty());
}

int LinesOf(std::string_view text) {
  Lines lines(text);
  int count = 0;
  for (std::string_view line; lines.Next(line);) ++count;
  return count;
}

/// A set that was read is written and read again; the cards must be the same.
void RequireSameAfterRoundTrip(const BoardSet& set, const Messages& texts) {
  const auto again = ClearSet();
  Require(!ParseCsv(CsvText(set), *again, texts));
  Require(again->FirstBoard == set.FirstBoard && again->LastBoard == set.LastBoard);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    // An empty line between the boards is a board now.
    Require(again->At(n).Number == n);
    Require(set.At(n).Number == 0 ? again->At(n) == NumberedBoard(n) : again->At(n) == set.At(n));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Messages texts = InitMessages();
  const auto set = ClearSet();
  const std::string text = DecodeText(std::string(data, data + size));
  const auto fault = ParseCsv(text, *set, texts);
  if (fault) {
    RequireFormatError(*fault);
    RequireSound(*set, std::max(fault->At - 1, 0));
  } else {
    const int lines = LinesOf(text);
    Require(lines >= 2);
    RequireSound(*set, lines);
    RequireSameAfterRoundTrip(*set, texts);
  }
  return 0;
}
