#include "cli/poker_new_command.h"

#include <array>

#include "cli/order_job.h"
#include "cli/paper_request.h"
#include "poker/random_deals.h"

namespace morvane::cli {
namespace {

constexpr std::array kOperands{Operand{"OUT.pkr", "the file to save the order in"}};
constexpr std::array kOptions{
    Option{"deals", "N", "how many deals, up to 100; otherwise 10"},
    Option{"empty", "", "leave the deals without cards, to be read from packs"},
    Option{"event", "TEXT", "what the list has as its event"},
    Option{"site", "TEXT", "and as its site"},
    Option{"date", "TEXT", "and as its date"},
};

}  // namespace

PokerNewOptions ReadPokerNewOptions(OptionReader& given) {
  PokerNewOptions options{.Out = given.Path(0),
                          .Deals = given.Number("deals"),
                          .Empty = given.Has("empty"),
                          .Event = given.Text("event").value_or(""),
                          .Site = given.Text("site").value_or(""),
                          .Date = given.Text("date").value_or("")};
  RefuseSetName(given, options.Out);
  return options;
}

ExitStatus PokerNew(Job& job, const PokerNewOptions& options) {
  Program& program = job.Place.Prog;
  const int deals = options.Deals.value_or(kUsualDeals);
  if (!TakesDeals(job.Place, deals)) return kFailed;
  poker::PokerOrder order = poker::EmptyOrder(deals);
  if (!options.Empty) poker::FillAtRandom(order, program.Random);
  order.Poker_Event = options.Event;
  order.Poker_Site = options.Site;
  order.Poker_Date = options.Date;
  if (!SaveOrder(job, options.Out, order)) return kFailed;
  job.Place.Screen.Out("Deals: " + std::to_string(deals) + "\n");
  return kDone;
}

constinit const Command kPokerNewCommand{
    .Name = "poker new",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Makes a poker order, deals whose first 28 cards lie prepared, and saves it.",
    .Prepare = TaskOf<ReadPokerNewOptions, PokerNew>};

}  // namespace morvane::cli
