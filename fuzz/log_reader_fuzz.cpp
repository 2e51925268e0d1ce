// The first byte of an input says how the questions are answered, two bits each: 0 and 1 yes, 2 no,
// 3 cancel; the rest is the log.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "board_files.h"
#include "files/log_reader.h"
#include "program/log_record.h"
#include "text/box_text.h"
#include "text/text_encoding.h"

namespace {

using namespace morvane;
using namespace morvane::files;
using Result = LogReading::Result;

/// What was read is logged again, and each record read back alone.
void RequireSameAfterLogging(const Board& board) {
  for (const bool longForm : {false, true}) {
    const auto again = ClearSet();
    const LogReading reading =
        ParseLog(LogRecord(board.Number, board, longForm), *again, [](int) { return kYes; });
    Require(reading.Ending == Result::kRead && reading.Line == 1);
    Require(again->FirstBoard == board.Number && again->LastBoard == board.Number);
    Require(again->At(board.Number) == board);
  }
}

void RequireSound(const BoardSet& set, bool read) {
  if (read && set.Exists()) {
    Require(set.FirstBoard >= 1 && set.FirstBoard <= set.LastBoard);
    Require(set.LastBoard <= kMaxBoards && set.At(set.LastBoard).Number == set.LastBoard);
    Require(set.At(set.FirstBoard).Number == set.FirstBoard);
  }
  for (int n = 0; n <= kMaxBoards; ++n) {
    const Board& board = set.At(n);
    if (board == Board{}) continue;
    RequireBoard(set, n);
    Require(board.Status == Board::kComplete);
    RequireSameAfterLogging(board);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  unsigned answers = data[0];
  const std::string text = AnsiBytes(DecodeText(std::string(data + 1, data + size)));
  std::vector<int> asked;
  const auto set = ClearSet();
  int last = kYes;
  const LogReading reading = ParseLog(text, *set, [&](int line) {
    // Line by line, and not again once a run is taken or the reading given up.
    Require(line >= 1 && (asked.empty() || (line > asked.back() && last == kNo)));
    asked.push_back(line);
    const unsigned answer = answers & 3U;
    answers >>= 2U;
    last = answer == 3 ? kCancel : answer == 2 ? kNo : kYes;
    return last;
  });
  if (asked.empty()) Require(reading.Ending == Result::kRead && reading.Line == 0);
  Require((reading.Ending == Result::kCancelled) == (last == kCancel));
  if (last != kYes || asked.empty()) Require(!set->Exists());
  RequireSound(*set, reading.Ending == Result::kRead);
  return 0;
}
