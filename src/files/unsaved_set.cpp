#include "files/unsaved_set.h"

#include <algorithm>
#include <charconv>
#include <span>

#include "text/text.h"

namespace morvane::files {
namespace {

constexpr std::string_view kHeading = "Morvane unsaved Board Set 1\n";
constexpr std::string_view kEnd = "End\n";
constexpr std::uint8_t kHighestTrick = 7;

std::string Line(std::string_view name, std::string_view value) {
  return std::string(name) + ": " + std::to_string(value.size()) + " " + std::string(value) + "\n";
}

std::string BoardLine(const Board& board) {
  return std::to_string(board.Number) + " " + std::to_string(board.Dealer) + " " +
         std::to_string(board.Vul) + " " + HexBytes(std::span(board.Cards).subspan(1)) + " " +
         HexBytes(board.Tricks) + " " + HexBytes(board.DealNumber) + " " +
         HexBytes(board.DealCounter) + "\n";
}

/// Takes a text apart from its start. After the first thing that is not there nothing is taken any
/// more.
class Cutter {
 public:
  explicit Cutter(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool Good() const { return good_; }
  [[nodiscard]] bool AtEnd() const { return good_ && rest_.empty(); }

  void Word(std::string_view word) {
    good_ = good_ && rest_.starts_with(word);
    if (good_) rest_.remove_prefix(word.size());
  }

  int Number(int least, int most) {
    int value = 0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    good_ = good_ && error == std::errc() && value >= least && value <= most;
    if (good_) rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return good_ ? value : 0;
  }

  std::string_view Bytes(std::size_t count) {
    good_ = good_ && rest_.size() >= count;
    if (!good_) return {};
    const std::string_view bytes = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return bytes;
  }

  /// Hexadecimal digits for all of `bytes`, none of them above `most`.
  void Hex(std::span<std::uint8_t> bytes, std::uint8_t most = 0xFF) {
    const auto read = BytesOfHex(Bytes(2 * bytes.size()));
    good_ = good_ && read && std::all_of(read->begin(), read->end(), [most](std::uint8_t byte) {
              return byte <= most;
            });
    if (good_) std::copy(read->begin(), read->end(), bytes.begin());
  }

 private:
  std::string_view rest_;
  bool good_ = true;
};

std::string TakeLine(Cutter& cutter, std::string_view name) {
  constexpr int kLongest = 1'000'000'000;
  cutter.Word(name);
  cutter.Word(": ");
  const int length = cutter.Number(0, kLongest);
  cutter.Word(" ");
  std::string value(cutter.Bytes(static_cast<std::size_t>(length)));
  cutter.Word("\n");
  return value;
}

Board TakeBoard(Cutter& cutter) {
  Board board;
  // A board that no file named has number 0.
  board.Number = static_cast<std::int16_t>(cutter.Number(0, kMaxBoards));
  cutter.Word(" ");
  board.Dealer = static_cast<std::uint8_t>(cutter.Number(0, kHands));
  cutter.Word(" ");
  board.Vul = static_cast<std::uint8_t>(cutter.Number(0, 4));
  cutter.Word(" ");
  cutter.Hex(std::span(board.Cards).subspan(1), kHands);
  cutter.Word(" ");
  cutter.Hex(board.Tricks, kHighestTrick);
  cutter.Word(" ");
  cutter.Hex(board.DealNumber);
  cutter.Word(" ");
  cutter.Hex(board.DealCounter);
  cutter.Word("\n");
  AnalyzeBoard(board);
  return board;
}

void TakeBoards(Cutter& cutter, BoardSet& set) {
  cutter.Word("Boards: ");
  set.FirstBoard = static_cast<std::int16_t>(cutter.Number(1, kMaxBoards));
  cutter.Word(" ");
  set.LastBoard = static_cast<std::int16_t>(cutter.Number(set.FirstBoard, kMaxBoards));
  cutter.Word(" ");
  set.CurrentBoard = static_cast<std::int16_t>(cutter.Number(1, kMaxBoards));
  cutter.Word("\n");
  for (int n = set.FirstBoard; cutter.Good() && n <= set.LastBoard; ++n) {
    set.At(n) = TakeBoard(cutter);
  }
}

}  // namespace

std::string UnsavedText(const BoardSet& set, std::string_view when) {
  std::string text(kHeading);
  text += Line("When", when) + Line("File", set.BoardSetFile) + Line("Name", set.EventName) +
          Line("Site", set.EventSite) + Line("Date", set.EventDate);
  text += "Boards: " + std::to_string(set.FirstBoard) + " " + std::to_string(set.LastBoard) + " " +
          std::to_string(set.CurrentBoard) + "\n";
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) text += BoardLine(set.At(n));
  return text.append(kEnd);
}

std::optional<UnsavedSet> ReadUnsavedText(std::string_view text) {
  Cutter cutter(text);
  UnsavedSet kept;
  cutter.Word(kHeading);
  kept.When = TakeLine(cutter, "When");
  kept.Set.BoardSetFile = TakeLine(cutter, "File");
  kept.Set.EventName = TakeLine(cutter, "Name");
  kept.Set.EventSite = TakeLine(cutter, "Site");
  kept.Set.EventDate = TakeLine(cutter, "Date");
  TakeBoards(cutter, kept.Set);
  kept.Set.BoardSetChanged = "1";
  cutter.Word(kEnd);
  if (!cutter.AtEnd()) return std::nullopt;
  return kept;
}

}  // namespace morvane::files
