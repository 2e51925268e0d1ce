#include "cli/poker_show_command.h"

#include <algorithm>
#include <array>

#include "cli/order_job.h"
#include "poker/card_text.h"
#include "poker/slot_names.h"
#include "text/columns.h"
#include "text/printable.h"

namespace morvane::cli {
namespace {

using poker::PokerDeal;

constexpr std::size_t kLabel = 17;   // columns of the screen
constexpr std::size_t kCard = 4;     // a card and the blanks behind it
constexpr std::size_t kBetween = 2;  // the players' cards and the shared ones

/// Ends a line without blanks.
std::string Ended(const std::string& line) {
  return line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
}

std::string Cards(const PokerDeal& deal, std::size_t first, std::size_t last) {
  std::string text;
  for (std::size_t slot = first; slot <= last; ++slot) {
    const poker::CardText card = poker::CardTextOf(deal[slot]);
    text += LeftAligned(std::string(card.Sign).append(card.Rank), kCard);
  }
  return text;
}

std::string Heads() {
  std::string line = LeftAligned("      Player: ", kLabel);
  for (int player = 1; player <= poker::kPlayers; ++player) {
    line += LeftAligned(std::to_string(player), kCard);
  }
  line.append(kBetween, ' ');
  for (const poker::SlotGroup& group : poker::SharedCards) {
    const int slots = group.Last - group.First + 1;
    line += LeftAligned(std::string(group.Name), static_cast<std::size_t>(slots) * kCard);
  }
  return Ended(line);
}

std::string DealLines(const PokerDeal& deal, int number) {
  const std::string label = "      Deal  :" + std::to_string(number);
  if (std::all_of(deal.begin(), deal.end(), [](auto card) { return card == 0; })) {
    return label + " (empty)\n";
  }
  return Ended(LeftAligned(label, kLabel) + Cards(deal, 1, 6) + std::string(kBetween, ' ') +
               Cards(deal, 13, 20)) +
         Ended(LeftAligned("", kLabel) + Cards(deal, 7, 12)) +
         Ended(LeftAligned("      21-28 :", kLabel) + Cards(deal, 21, 28));
}

std::string Texts(const poker::PokerOrder& order) {
  std::string lines;
  for (const std::string& text : {order.Poker_Event, order.Poker_Site, order.Poker_Date}) {
    if (!text.empty()) lines += Printable(text) + "\n";
  }
  return lines;
}

constexpr std::array kOperands{Operand{"IN.pkr", "the order to show"}};
constexpr std::array kOptions{Option{"deal", "N", "this deal only"}};

}  // namespace

PokerShowOptions ReadPokerShowOptions(OptionReader& given) {
  return {.In = given.Path(0), .Deal = given.Number("deal")};
}

ExitStatus PokerShow(Job& job, const PokerShowOptions& options) {
  poker::PokerOrder order;
  if (!LoadOrder(job, options.In, order)) return kFailed;
  if (options.Deal && !IsInOrder(job.Place, order, *options.Deal)) return kFailed;
  job.Place.Screen.Out(Texts(order) + Heads());
  const int last = options.Deal.value_or(order.PokerDealCount);
  for (int number = options.Deal.value_or(1); number <= last; ++number) {
    job.Place.Screen.Out(DealLines(order.PokerDeals[static_cast<std::size_t>(number)], number));
  }
  return kDone;
}

constinit const Command kPokerShowCommand{
    .Name = "poker show",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Shows the deals of a poker order as its printed list has them.",
    .Prepare = TaskOf<ReadPokerShowOptions, PokerShow>};

}  // namespace morvane::cli
