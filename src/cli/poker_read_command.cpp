#include "cli/poker_read_command.h"

#include <array>

#include "cli/machine_side.h"
#include "cli/order_job.h"
#include "cli/paper_request.h"
#include "poker/random_deals.h"

namespace morvane::cli {
namespace {

/// What was read is kept, also when the run ended early.
ExitStatus EndOf(Job& job, const PokerReadOptions& options, int asked) {
  const RunReport& report = job.Windows.Report();
  if (report.DealsDone == 0) return kFailed;
  poker::PokerOrder order = report.Order;
  const bool saved = SaveOrder(job, options.Out, order);
  job.Place.Screen.Out(std::to_string(report.DealsDone) + " of " + std::to_string(asked) +
                       " deals read, " + (saved ? "saved in " + options.Out : "nothing saved") +
                       ".\n");
  return saved && report.DealsDone == asked ? kDone : kFailed;
}

constexpr std::array kOperands{Operand{"OUT.pkr", "the file to save the order in"}};
constexpr std::array kOptions{
    Option{"deals", "N", "how many packs, up to 100; otherwise 10"},
    Option{"auto", "",
           "read the simulated machine's packs at once; on another machine each pack "
           "waits for the pedal"},
};

}  // namespace

PokerReadOptions ReadPokerReadOptions(OptionReader& given) {
  PokerReadOptions options{.Out = given.Path(0),
                           .Deals = given.Number("deals"),
                           .Auto = given.Has("auto"),
                           .Yes = given.Has("yes")};
  RefuseSetName(given, options.Out);
  return options;
}

ExitStatus PokerRead(Job& job, const PokerReadOptions& options) {
  Workplace& place = job.Place;
  const int deals = options.Deals.value_or(kUsualDeals);
  RunRequest request;
  request.Auto = options.Auto;
  request.Yes = options.Yes;
  if (!TakesDeals(place, deals) || !CanBeStarted(place, request) ||
      !MaySaveOrder(job, options.Out)) {
    return kFailed;
  }
  request.Order = poker::EmptyOrder(deals);
  SayWhichMachine(place);
  job.Windows.RunBy(request, EyesOn(place.Simulated));
  job.Shell.MenuPoker();
  return EndOf(job, options, deals);
}

constinit const Command kPokerReadCommand{
    .Name = "poker read",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Reads stacked packs on the machine into a poker order and saves it.",
    .Note = "poker read saves what it has read also when it is stopped, or the link is lost.",
    .Prepare = TaskOf<ReadPokerReadOptions, PokerRead>};

}  // namespace morvane::cli
