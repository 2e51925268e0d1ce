#include "cli/console_poker.h"

#include "text/text.h"

namespace morvane::cli {

void ConsolePoker::Prepare() {
  run_.ReadByPedal = true;
  run_.Take(request_.Order);
}

std::string ConsolePoker::Coming() const {
  const int deal = run_.Order().CurrentDeal;
  switch (run_.NextButton()) {
    case poker::PokerButton::Read:
      return "the pack of deal " + std::to_string(deal);
    case poker::PokerButton::ReadNext:
      return "the pack of deal " + std::to_string(deal + 1);
    case poker::PokerButton::NextDeal:
      return "run 1 of deal " + std::to_string(deal + 1);
    default:
      return "run " + std::to_string(run_.Stage().Done + 1) + " of deal " + std::to_string(deal);
  }
}

std::string ConsolePoker::Invitation() const {
  const std::string how = request_.Auto ? "Press the pedal" : "Press Enter or the pedal";
  return how + " for " + Coming() + ".\n";
}

std::string ConsolePoker::Progress() const {
  const poker::PokerStage stage = run_.Stage();
  return run_.Name() + "  " + std::to_string(stage.Fallen) + " of " + std::to_string(stage.Count) +
         " cards  " + run_.Cards().txtDealTime + " s";
}

void ConsolePoker::Note(bool ok) {
  const auto& entry = run_.History().Entries().front();
  std::string line = entry.What + "  " + FixedPoint(run_.Cards().Seconds(), 1) + " s  ";
  line += ok ? "OK" : "stopped";
  report_.Order = run_.Order();
  const bool dealEnds = ok && run_.Stage().Done % poker::kRuns == 0;
  if (dealEnds) line += Verdict();
  if (dealEnds) ++report_.DealsDone;
  terminal_.Out(line + "\n");
  if (ok && !dealEnds && NeedsAPerson()) {
    terminal_.Out(Trim(run_.Label1()) + "\n" + Trim(run_.Label3()) + "\n");
  }
}

std::string ConsolePoker::Verdict() const {
  const int number = request_.Order.CurrentDeal + report_.DealsDone;
  const poker::PokerDeal& deal = request_.Order.PokerDeals[static_cast<std::size_t>(number)];
  const bool dealt = deal[1] != 0;
  if (!dealt || !side_.Stacked) return "";
  const bool right = side_.Stacked() == deal;
  if (!right) ++report_.DealsWrong;
  return right ? "   stacked right" : "   stacked WRONG";
}

bool ConsolePoker::More() const {
  return request_.Order.CurrentDeal + report_.DealsDone <= request_.Order.PokerDealCount;
}

}  // namespace morvane::cli
