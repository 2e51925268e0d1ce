#include "generate/generate_report.h"

#include "generate/fingerprint.h"

namespace morvane::generate {
namespace {

std::string BoardsLine(const BoardSet& set, const char* how) {
  return "Boards " + std::to_string(set.FirstBoard) + " to " + std::to_string(set.LastBoard) + " " +
         how + ": " + std::to_string(set.Count()) + "\n";
}

/// `name`, the count, and the most alike pair if there is one.
std::string TestLine(const char* name, const std::optional<RejectCounter>& counter,
                     const std::string& mostAlike) {
  if (!counter) return "";
  std::string line = std::string(name) + ": " + std::to_string(counter->Count);
  if (!mostAlike.empty()) line += ", most alike: " + mostAlike;
  return line + "\n";
}

std::string HistoricPair(const GenerateResult& result) {
  const std::string pair = result.OuSim.value_or("");
  return pair.empty() ? "" : pair + " of " + result.OuDeals.value_or("");
}

std::string HistoryLine(const GenerateResult& result, bool historyIsOn) {
  if (result.HisRejects && !historyIsOn)
    return "The history is off: nothing was compared with it.\n";
  return TestLine("History rejected", result.HisRejects, HistoricPair(result));
}

std::string DealtReport(const Program& program, const GenerateResult& result, bool historyIsOn) {
  return BoardsLine(program.Set, "generated") + TestLine("Shapes rejected", result.ShpRejects, "") +
         TestLine("Inner similarity rejected", result.InnRejects, result.InnSim.value_or("")) +
         HistoryLine(result, historyIsOn) + FingerprintLine(program) + "\n";
}

}  // namespace

std::string BigDealWords(const Program& program) {
  return std::string("Draws the number of a deal: every possible deal is equally likely. ") +
         (program.Log.On() ? "The log keeps what proves the set later."
                           : "The log is off: nothing will prove the set later.");
}

std::string ReplacesWords(const BoardSet& set) {
  const bool unsaved = set.Exists() && !set.IsSaved();
  // As long as each other, so that nothing in the window moves.
  return std::string("Generating replaces the ") + (unsaved ? "unsaved" : "current") +
         " Board Set and empties the event texts.";
}

std::string SignOf(const RejectCounter& counter) {
  return counter.Colour == CounterColour::kGreen ? "\u2713 good" : "\u25B2 too many";
}

std::string ReportOf(const Program& program, const GenerateRequest& request,
                     const GenerateResult& result, bool historyIsOn) {
  switch (result.End) {
    case GenerateEnd::kDone:
      return request.Random ? DealtReport(program, result, historyIsOn)
                            : BoardsLine(program.Set, "left empty");
    case GenerateEnd::kCannotGenerate:
      return "There is no Board Set: the attempts for one board ran out.\n";
    case GenerateEnd::kQuit:
      return "";
    default:
      return "Nothing was generated: the Board Set is as it was.\n";
  }
}

}  // namespace morvane::generate
