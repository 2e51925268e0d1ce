#include "cli/poker_deal_command.h"

#include <array>

#include "cli/machine_side.h"
#include "cli/order_job.h"
#include "poker/deal_checks.h"

namespace morvane::cli {
namespace {

/// Whether the deals asked for are there; the operator has been told if not.
bool AreInOrder(Workplace& place, const poker::PokerOrder& order, int from, int to) {
  if (!IsInOrder(place, order, from) || !IsInOrder(place, order, to)) return false;
  if (from <= to) return true;
  place.Screen.Error("--to must not be below --from.\n");
  return false;
}

bool CanBeStacked(Workplace& place, const poker::PokerOrder& order, int number) {
  const poker::PokerDeal& deal = order.PokerDeals[static_cast<std::size_t>(number)];
  const std::string fault = poker::WhyNotStacked(deal);
  if (fault.empty()) return true;
  const std::string name = "Deal " + std::to_string(number) + " of " + order.Poker_File;
  const bool empty = poker::IsEmpty(deal);  // reading it is the command beside this one
  place.Screen.Error(name + (empty ? " is empty.\n" : " cannot be stacked.\n"));
  if (!empty) place.Prog.ShowMessage(fault, kOkExclamation, "Poker Dealing");
  return false;
}

/// Before the first is begun; the operator has been told if not.
bool CanAllBeStacked(Workplace& place, const poker::PokerOrder& order, int from, int to) {
  for (int deal = from; deal <= to; ++deal) {
    if (!CanBeStacked(place, order, deal)) return false;
  }
  return true;
}

ExitStatus EndOf(Workplace& place, const RunReport& report, int asked) {
  const int right = report.DealsDone - report.DealsWrong;
  place.Screen.Out(std::to_string(right) + " of " + std::to_string(asked) + " deals stacked.\n");
  return right == asked ? kDone : kFailed;
}

constexpr std::array kOperands{Operand{"IN.pkr", "the order to stack"}};
constexpr std::array kOptions{
    Option{"from", "N", "the first deal"},
    Option{"to", "N", "the last deal"},
    Option{"auto", "",
           "the simulated machine's operator carries the piles; on another machine "
           "each run waits for the pedal"},
};

}  // namespace

PokerDealOptions ReadPokerDealOptions(OptionReader& given) {
  return {.In = given.Path(0),
          .From = given.Number("from"),
          .To = given.Number("to"),
          .Auto = given.Has("auto"),
          .Yes = given.Has("yes")};
}

ExitStatus PokerDeal(Job& job, const PokerDealOptions& options) {
  Workplace& place = job.Place;
  RunRequest request;
  request.Auto = options.Auto;
  request.Yes = options.Yes;
  if (!LoadOrder(job, options.In, request.Order)) return kFailed;
  const int from = options.From.value_or(1);
  const int to = options.To.value_or(request.Order.PokerDealCount);
  if (!AreInOrder(place, request.Order, from, to) ||
      !CanAllBeStacked(place, request.Order, from, to) || !CanBeStarted(place, request)) {
    return kFailed;
  }
  request.Order.CurrentDeal = static_cast<std::int16_t>(from);
  request.Order.PokerDealCount = static_cast<std::int16_t>(to);
  SayWhichMachine(place);
  job.Windows.RunBy(request, EyesOn(place.Simulated));
  job.Shell.MenuPoker();
  return EndOf(place, job.Windows.Report(), to - from + 1);
}

constinit const Command kPokerDealCommand{
    .Name = "poker deal",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Stacks the deals of a poker order on the machine, each in four runs.",
    .Prepare = TaskOf<ReadPokerDealOptions, PokerDeal>};

}  // namespace morvane::cli
