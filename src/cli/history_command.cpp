#include "cli/history_command.h"

#include <array>
#include <numeric>

#include "text/columns.h"
#include "text/printable.h"

namespace morvane::cli {
namespace {

using history::HistoryEntry;

std::string EntryLine(const HistoryEntry& entry) {
  return RightAligned(std::to_string(entry.Position), 6) + "  " +
         LeftAligned(PrintableLine(entry.Name), history::kNameCharacters) +
         RightAligned(std::to_string(entry.Boards), 6) + "\n";
}

constexpr std::array kOptions{
    Option{"list", "", "list the entries too, from the oldest to the newest"},
};

}  // namespace

HistoryOptions ReadHistoryOptions(OptionReader& given) { return {.List = given.Has("list")}; }

ExitStatus ShowHistory(Job& job, const HistoryOptions& options) {
  if (!job.Shell.History().HistoryEnabled()) return kFailed;  // why has been told
  const history::HistoryRing& ring = job.Shell.History().Ring();
  const auto entries = ring.Entries();
  const int boards =
      std::accumulate(entries.begin(), entries.end(), 0,
                      [](int sum, const HistoryEntry& entry) { return sum + entry.Boards; });
  if (options.List) {
    job.Place.Screen.Out("Record  Name" + std::string(history::kNameCharacters - 4, ' ') +
                         "Boards\n");
    for (const HistoryEntry& entry : entries) job.Place.Screen.Out(EntryLine(entry));
  }
  job.Place.Screen.Out("History: " + std::to_string(entries.size()) + " entries, " +
                       std::to_string(boards) + " boards, " + std::to_string(ring.HistoryUsed()) +
                       " of " + std::to_string(history::kRingSize) + " records in use\n");
  return kDone;
}

constinit const Command kHistoryCommand{
    .Name = "history",
    .Options = kOptions,
    .Summary = "Shows how full the history of the boards played is.",
    .Prepare = TaskOf<ReadHistoryOptions, ShowHistory>};

}  // namespace morvane::cli
