#include "print/text_output.h"

#include <array>

#include "files/last_used.h"
#include "model/results.h"
#include "platform/files.h"
#include "print/print_failure.h"
#include "print/rank_letters.h"
#include "program/program.h"
#include "text/columns.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::print {
namespace {

// How many characters stand before what is told beside North's cards, and before East's: those
// before the cards count too.
constexpr std::size_t kBesideNorth = 32;
constexpr std::size_t kBeforeEast = 23;
constexpr std::size_t kHeader = 14;
constexpr std::size_t kDate = 11;
constexpr std::size_t kIndent = 14;  // of North's and South's suits
constexpr std::array<std::string_view, kSuits + 1> kSuitNames{"", "S-", "H-", "D-", "C-"};

void AddLine(std::string& text, std::string_view line) {
  text += line;
  text += kCrLf;
}

std::string SuitText(const Board& board, int hand, int suit, const PrintOptions& options) {
  return std::string(kSuitNames[static_cast<std::size_t>(suit)]) +
         SuitOnPaper(board, hand, suit, options);
}

void AddHeader(std::string& text, const std::string& header, const std::string& date) {
  AddLine(text, " ");
  AddLine(text, "Session: " + CutOrFilled(WithoutControls(header), kHeader) +
                    " Date: " + CutOrFilled(WithoutControls(date), kDate));
}

/// The diagram of board `n`; dealer and vulnerability are those of its number: required.
void AddHands(std::string& text, const Board& board, int n, const PrintOptions& options) {
  const std::string indent(kIndent, ' ');
  const auto suitOf = [&](int hand, int suit) { return SuitText(board, hand, suit, options); };
  AddLine(text, " ");
  const std::string number = LeftAligned("BD:" + RightAligned(std::to_string(n), 3), kIndent);
  AddLine(text, CutOrFilled(number + suitOf(kNorth, 1), kBesideNorth) +
                    "Dlr: " + HandLetter(DealerOfNumber(n)));
  const std::string_view vul = VulNameLong[static_cast<std::size_t>(VulOfNumber(n))];
  AddLine(text, CutOrFilled(indent + suitOf(kNorth, 2), kBesideNorth).append("Vul: ").append(vul));
  AddLine(text, indent + suitOf(kNorth, 3));
  AddLine(text, indent + suitOf(kNorth, 4));
  for (int suit = 1; suit <= kSuits; ++suit) {
    AddLine(text, CutOrFilled(suitOf(kWest, suit), kBeforeEast) + suitOf(kEast, suit));
  }
  for (int suit = 1; suit <= kSuits; ++suit) AddLine(text, indent + suitOf(kSouth, suit));
  AddLine(text, " ");
}

void AddContracts(std::string& text, const Board& board) {
  AddLine(text, "<-Makeable contracts->");
  AddLine(text, "     C   D   H   S  NT");
  AddLine(text, "     =   =   =   =  ==");
  for (const int hand : {kNorth, kSouth, kEast, kWest}) {
    std::string line = std::string(" ") + HandLetter(hand) + "   ";
    for (std::size_t denomination = kDenominations; denomination-- > 0;) {
      const int level = board.Tricks[TricksIndex(hand, denomination)];
      line += (level > 0 ? std::to_string(level) : "-") + "   ";
    }
    AddLine(text, line);
  }
}

}  // namespace

std::string CutOrFilled(std::string_view text, std::size_t count) {
  std::string fitted(FirstCharacters(text, count));
  return fitted.append(count - CharacterCount(fitted), ' ');
}

std::optional<std::string> HandsText(const BoardSet& set, const PrintOptions& options,
                                     const std::function<bool()>& boardDone) {
  std::string text;
  AddHeader(text, options.Header, set.EventDate);
  for (int n = options.From; n <= options.To; ++n) {
    const Board& board = set.At(n);
    AddHands(text, board, n, options);
    if (options.Analysis && HasResults(board)) AddContracts(text, board);
    AddLine(text, "=========================================");
    if (!boardDone()) return std::nullopt;
  }
  return EncodeText(text);
}

bool PrintToTextFile(Program& program, const PrintOptions& options,
                     const std::function<bool()>& boardDone) {
  const std::string header = "   Header: " + options.Header;
  program.Status(header);
  program.Log.WriteLine(header);
  FileRequest request;
  request.Title = "Print to the Text File";
  request.Filter = "txt (*.txt)|*.txt";
  request.Directory = files::InitialDirectory(program.Store);
  request.Saving = true;
  const auto path = program.Operator.AskFile(request);
  if (!path) return false;
  program.Log.WriteLine("   Print hands to: " + *path);
  const auto bytes = HandsText(program.Set, options, boardDone);
  if (!bytes) return false;
  if (const auto error = WriteFile(*path, *bytes)) {
    ReportPrintFailure(program, *error);
    return false;
  }
  return true;
}

}  // namespace morvane::print
