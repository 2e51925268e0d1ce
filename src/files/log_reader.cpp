#include "files/log_reader.h"

#include <algorithm>
#include <utility>

#include "files/format_frame.h"
#include "platform/files.h"
#include "program/log_record.h"
#include "program/program.h"
#include "text/text.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace morvane::files {
namespace {

using Result = LogReading::Result;

/// Where the reader stands: outside records, in those wanted, in those passed over.
enum class Mode { kBetween, kTaking, kSkipping };

bool IsRecord(std::string_view line) {
  if (line.size() != log_record::kShortSize && line.size() != log_record::kLongSize) return false;
  const std::string_view number = log_record::NumberIn(line);
  return line.starts_with("   ") && line[6] == ' ' && line[7] == ':' &&
         // The colon behind the "9" counts as a digit: required.
         std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= ':'; });
}

/// Gives the cards of a record to the hands. At most three dots in 16 characters and no card twice:
/// what passes is complete.
bool ParseHands(std::string_view line, Board& board) {
  for (int hand = kNorth; hand <= kWest; ++hand) {
    int suit = 1;
    for (const char c : log_record::HandIn(log_record::TextIn(line), hand)) {
      if (c == '.') {
        if (++suit > kSuits) return false;
        continue;
      }
      const int card = CardOf(suit, c);
      if (card == 0 || !GiveCard(board, card, hand)) return false;
    }
  }
  return true;
}

Result TakeRecord(BoardSet& set, std::string_view line) {
  const int n = Val(log_record::NumberIn(line));
  Board board;
  if (!ParseHands(line, board)) return Result::kSyntaxError;
  // Element 0 belongs to no set, so its number is no better than one above the last.
  if (n < 1 || n > kMaxBoards) return Result::kOutOfRange;
  set.At(n) = NumberedBoard(n, board);
  set.LastBoard = static_cast<std::int16_t>(n);
  return Result::kRead;
}

void ReportError(Program& program, const std::string& text) {
  program.ShowMessage(text, kOkCritical, "Load Log Error");
}

void ReportRuntimeError(Program& program, const RuntimeError& error, int line) {
  std::string text = Fill(program.Texts.Msg111, "***", std::to_string(error.Number));
  text = Fill(std::move(text), "^^^", std::to_string(line));
  ReportError(program, Fill(std::move(text), "###", error.Description));
}

}  // namespace

LogReading ParseLog(std::string_view text, BoardSet& set, const AskRecords& ask) {
  LogReading reading;
  Mode mode = Mode::kBetween;
  int number = 0;
  Lines lines(text);
  for (std::string_view line; lines.Next(line);) {
    ++number;
    if (!IsRecord(line)) {
      if (mode == Mode::kTaking) break;
      mode = Mode::kBetween;
      continue;
    }
    reading.Line = number;
    if (mode == Mode::kBetween) {
      const int answer = ask(number);
      if (answer != kYes && answer != kNo) return {Result::kCancelled, number};
      mode = answer == kYes ? Mode::kTaking : Mode::kSkipping;
      if (mode == Mode::kTaking)
        set.FirstBoard = static_cast<std::int16_t>(Val(log_record::NumberIn(line)));
    }
    if (mode == Mode::kSkipping) continue;
    reading.Ending = TakeRecord(set, line);
    if (reading.Ending != Result::kRead) return reading;
  }
  // The last record decides; a set that would end before it begins is none.
  if (set.Exists() && set.LastBoard < set.FirstBoard) reading.Ending = Result::kOutOfRange;
  return reading;
}

bool ReadLogFile(Program& program, const Format& /*format*/, const std::string& path,
                 FileNotes& /*notes*/) {
  if (path.empty()) return false;
  std::string text;
  const auto error = ReadUnderHourglass(program, path, [&text](std::string bytes) {
    // A byte for each character, whatever the bytes of the file: columns are counted in characters.
    text = AnsiBytes(DecodeText(std::move(bytes)));
  });
  if (error) {
    ReportRuntimeError(program, *error, 0);
    return false;
  }
  const LogReading reading = ParseLog(text, program.Set, [&](int line) {
    return program.Ask(Fill(program.Texts.Msg110, "***", std::to_string(line)),
                       kYesNoCancelInformation, "Read Log File");
  });
  if (reading.Ending == Result::kSyntaxError) {
    ReportError(program, Fill(program.Texts.Msg112, "***", std::to_string(reading.Line)));
  }
  if (reading.Ending == Result::kOutOfRange) {
    // The system's own error, like every other that the operator is shown with a number.
    ReportRuntimeError(program, RuntimeError::OfNumber(ERANGE), reading.Line);
  }
  return reading.Ending == Result::kRead;
}

}  // namespace morvane::files
