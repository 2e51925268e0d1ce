// Import takes any bytes. What it takes must be a set that the program can save as PBN and load
// again by the strict reader, and its report must account for every game.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "board_files.h"
#include "files/capability_checks.h"
#include "files/import_event_text.h"
#include "files/pbn_import.h"
#include "files/pbn_reader.h"
#include "files/pbn_writer.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace {

using namespace morvane;
using namespace morvane::files;

void RequireWholeRemarks(const Remarks& remarks) {
  Require(static_cast<int>(remarks.First.size()) ==
          std::min(remarks.Count, static_cast<int>(Remarks::kKept)));
}

void RequireTrueReport(const ImportReport& report, const BoardSet& set) {
  const auto taken = std::count_if(set.Boards.begin(), set.Boards.end(),
                                   [](const Board& board) { return board.Number != 0; });
  Require(report.Taken == taken && (taken > 0) == set.Exists());
  Require(report.Games == report.Taken + report.Repeated + report.PassedOver.Count);
  RequireWholeRemarks(report.PassedOver);
  RequireWholeRemarks(report.Notes);
  Require(!ReportText(report).empty());
}

void RequireRightSet(const BoardSet& set) {
  Require(!HasPbnForbiddenChars(set));
  for (const std::string& text : {set.EventName, set.EventSite, set.EventDate}) {
    Require(CharacterCount(text) <= kLongestEventText);
  }
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    Board derived = set.At(n);
    AnalyzeBoard(derived);
    Require(derived == set.At(n) && (derived.Number == n || derived == Board{}));
  }
}

void RequireSameAfterRoundTrips(const BoardSet& set, const Messages& texts) {
  const std::string text = DecodeText(EncodeText(PbnText(set, "1.0", true)));
  const auto loaded = ClearSet();
  Require(!ParsePbn(text, *loaded, texts));
  RequireSameBoards(set, *loaded);
  Require(loaded->EventName == set.EventName && loaded->EventSite == set.EventSite &&
          loaded->EventDate == set.EventDate);

  const auto imported = ClearSet();
  const ImportReport report = ImportPbn(text, *imported);
  Require(report.Taken == set.Count() && report.Repeated == 0 && report.PassedOver.Count == 0);
  RequireSameBoards(set, *imported);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Messages texts = InitMessages();
  const auto set = ClearSet();
  const ImportReport report = ImportPbn(DecodeAnyText(std::string(data, data + size)), *set);
  RequireTrueReport(report, *set);
  RequireRightSet(*set);
  if (set->Exists()) RequireSameAfterRoundTrips(*set, texts);
  return 0;
}
