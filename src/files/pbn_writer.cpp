#include "files/pbn_writer.h"

#include <array>

#include "files/format_frame.h"
#include "files/pbn_values.h"
#include "model/results.h"
#include "program/program.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

struct Denomination {
  std::string_view Name;
  std::size_t Number;
};
/// In the order of the rows that each declarer has.
constexpr std::array<Denomination, kDenominations> kRows{
    {{" S", 1}, {" H", 2}, {" D", 3}, {" C", 4}, {"NT", 0}}};
constexpr std::array<std::string_view, 8> kResultOfLevel{" 1", " 7", " 8", " 9",
                                                         "10", "11", "12", "13"};

void AppendLine(std::string& text, std::string_view line) { text.append(line).append(kCrLf); }

void AppendTag(std::string& text, std::string_view name, std::string_view value) {
  text.append("[").append(name).append(" \"").append(value).append("\"]").append(kCrLf);
}

/// `first` has the event texts in full, every later board a repeat mark.
void AppendEvent(std::string& text, const BoardSet& set, bool first) {
  AppendTag(text, "Event", first ? set.EventName : "#");
  AppendTag(text, "Site", first ? set.EventSite : "#");
  AppendTag(text, "Date", first ? set.EventDate : "#");
}

void AppendAnalysis(std::string& text, const Board& board) {
  AppendTag(text, "DoubleDummyTricks", FormatPbnTricks(board));
  AppendTag(text, "OptimumResultTable", R"(Declarer;Denomination\2R;Result\2R)");
  for (int hand = kNorth; hand <= kWest; ++hand) {
    for (const auto& [name, denomination] : kRows) {
      const std::uint8_t level = board.Tricks[TricksIndex(hand, denomination)];
      AppendLine(text, std::string(1, HandLetter(hand)) + " " + std::string(name) + " " +
                           std::string(kResultOfLevel[level]));
    }
  }
}

void AppendBoard(std::string& text, const Board& board, int n, bool withAnalysis) {
  const int dealer = BoardDealer(board, n);
  AppendTag(text, "Board", std::to_string(n));
  AppendTag(text, "Dealer", std::string(1, HandLetter(dealer)));
  AppendTag(text, "Vulnerable", VulName[static_cast<std::size_t>(BoardVul(board, n))]);
  AppendTag(text, "Deal", FormatPbnDeal(board, dealer));
  if (withAnalysis && HasResults(board)) AppendAnalysis(text, board);
  AppendLine(text, "");
}

}  // namespace

std::string PbnText(const BoardSet& set, std::string_view versionText, bool withAnalysis) {
  std::string text;
  AppendLine(text, "% Morvane ver " + std::string(versionText));
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    AppendEvent(text, set, n == set.FirstBoard);
    AppendBoard(text, set.At(n), n, withAnalysis);
  }
  return text;
}

bool WritePbnFile(Program& program, const Format& format, const std::string& path,
                  const std::string& incompleteBoards) {
  return WriteThrough(program, format, path, incompleteBoards, [&] {
    return EncodeText(PbnText(program.Set, program.VersionText, program.Store.IsOn(kSaveAnalyze)));
  });
}

}  // namespace morvane::files
