#include "cli/sort_command.h"

#include <array>

#include "cli/machine_side.h"

namespace morvane::cli {
namespace {

constexpr std::array kOptions{
    Option{"auto", "", "start at once, without the pedal or the board slot"},
};

}  // namespace

SortOptions ReadSortOptions(OptionReader& given) {
  return {.Auto = given.Has("auto"), .Yes = given.Has("yes")};
}

ExitStatus Sort(Job& job, const SortOptions& options) {
  Workplace& place = job.Place;
  RunRequest request;
  request.Auto = options.Auto;
  request.Yes = options.Yes;
  if (!CanBeStarted(place, request)) return kFailed;
  SayWhichMachine(place);
  job.Windows.RunBy(request, {.Judge = {}, .PressPedal = EyesOn(place.Simulated).PressPedal});
  job.Shell.MenuSort();
  return job.Windows.Report().Sorted ? kDone : kFailed;
}

constinit const Command kSortCommand{
    .Name = "sort",
    .Options = kOptions,
    .Summary = "Sorts the cards in the feeder once and shows how many lie in each pocket.",
    .Prepare = TaskOf<ReadSortOptions, Sort>};

}  // namespace morvane::cli
