#include "files/csv_file.h"

#include <algorithm>
#include <array>
#include <utility>

#include "model/hand_text.h"
#include "text/box_text.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace morvane::files {
namespace {

constexpr std::string_view kBetweenFields = "\",\"";
constexpr std::array<std::string_view, 5> kDealer{"", "N/", "E/", "S/", "W/"};
/// A board without a vulnerability of its own leaves its line without the closing quote: required.
constexpr std::array<std::string_view, 5> kVul{"", "-\"", "NS\"", "EW\"", "All\""};

std::string InvalidCharacter(const Messages& texts, std::string_view line, std::size_t at) {
  return Fill(texts.Msg015, "***", CharacterAt(line, at));
}

/// Reads the 16 suit fields from `at` on, up to the number behind them.
std::string ParseCards(std::string_view line, std::size_t& at, Board& board,
                       const Messages& texts) {
  int suit = 1;
  int hand = kNorth;
  while (hand <= kWest) {
    if (line.substr(at).starts_with(kBetweenFields)) {
      at += kBetweenFields.size();
      if (++suit <= kSuits) continue;
      suit = 1;
      ++hand;
      continue;
    }
    if (at == line.size()) return texts.Msg032;
    const int card = CardOf(suit, line[at]);
    if (card == 0) return InvalidCharacter(texts, line, at);
    if (!GiveCard(board, card, hand)) return Fill(texts.Msg028, "***", line.substr(at, 1));
    ++at;
  }
  return {};
}

/// Reads the number from `at` on, up to the quote behind it.
std::string ParseNumber(std::string_view line, std::size_t at, Board& board,
                        const Messages& texts) {
  int number = 0;
  for (; at < line.size() && line[at] != '"'; ++at) {
    if (line[at] < '0' || line[at] > '9') return InvalidCharacter(texts, line, at);
    number = std::min(number * 10 + (line[at] - '0'), kMaxBoards + 1);
  }
  if (at == line.size()) return texts.Msg032;
  board.Number = static_cast<std::int16_t>(number);
  return {};
}

/// Puts the board of a line into the set. False: its number is none, or another board has it.
bool TakeBoard(BoardSet& set, const Board& board) {
  const int n = board.Number;
  if (n < 1 || n > kMaxBoards || set.At(n).Number != 0) return false;
  set.At(n) = NumberedBoard(n, board);
  set.LastBoard = std::max(set.LastBoard, board.Number);
  return true;
}

/// Whether the file ends with its first line, or before it.
bool CountsAsEmpty(std::string_view text) {
  Lines lines(text);
  std::string_view line;
  return !lines.Next(line) || !lines.Next(line);
}

void AppendLine(std::string& text, const Board& board, int n) {
  text += '"';
  for (int hand = kNorth; hand <= kWest; ++hand) {
    text.append(HandText(board, hand, kBetweenFields)).append(kBetweenFields);
  }
  text.append(std::to_string(n)).append(kBetweenFields);
  text.append(kDealer[board.Dealer]).append(kVul[board.Vul]).append(kCrLf);
}

}  // namespace

std::string ParseCsvLine(std::string_view line, Board& board, const Messages& texts) {
  board = Board{};
  if (!line.starts_with('"')) return InvalidCharacter(texts, line, 0);
  std::size_t at = 1;
  if (auto error = ParseCards(line, at, board, texts); !error.empty()) return error;
  return ParseNumber(line, at, board, texts);
}

std::optional<FormatFault> ParseCsv(std::string_view text, BoardSet& set, const Messages& texts) {
  // A file of a single board is not read: required.
  if (CountsAsEmpty(text)) return FormatFault{texts.Msg013};
  Lines lines(text);
  int number = 0;
  for (std::string_view line; lines.Next(line);) {
    ++number;
    Board board;
    if (auto error = ParseCsvLine(line, board, texts); !error.empty()) {
      return FormatFault{std::move(error), number};
    }
    if (!TakeBoard(set, board)) return FormatFault{texts.Msg009, number};
  }
  return std::nullopt;
}

std::string CsvText(const BoardSet& set) {
  std::string text;
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) AppendLine(text, set.At(n), n);
  return text;
}

}  // namespace morvane::files
