#include "cli/console_test_deal.h"

#include <utility>

#include "maintenance/test_deck.h"
#include "text/columns.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using maintenance::TestDeal;

std::string DealText(int number) { return "Deal " + RightAligned(std::to_string(number), 3); }

}  // namespace

ConsoleTestDeal::ConsoleTestDeal(Workplace& place, const TestDeal& deal, bool yes,
                                 std::optional<TestDeal::End>& end)
    : place_(place),
      deal_(deal),
      end_(end),
      // A program that quits ends the question too.
      faults_(
          place.Prog.Loop, place.Screen, [] { return false; },
          yes ? FaultAnswers::By::kNo : FaultAnswers::By::kOperator),
      progress_(place.Screen) {}

ConsoleTestDeal::~ConsoleTestDeal() {
  PrintEnd();
  end_ = deal_.Result();
}

void ConsoleTestDeal::ShowState() {
  if (deal_.Result() == TestDeal::End::kNotYet) {
    progress_.Show(Progress());
    return;
  }
  const bool unasked = deal_.TestDealFailed() && deal_.FailureText().empty();
  if (!unasked) PrintEnd();  // otherwise what was seen comes next
}

std::string ConsoleTestDeal::Progress() const {
  return DealText(deal_.Number()) + "  " + std::to_string(deal_.CardsDealt()) + " of 52 cards  " +
         FixedPoint(deal_.Seconds(), 1) + " s";
}

void ConsoleTestDeal::PrintEnd() {
  progress_.Show("");
  if (std::exchange(printed_, true)) return;
  place_.Screen.Out(DealText(deal_.Number()) + "  " + FixedPoint(deal_.Seconds(), 1) + " s  " +
                    StateText(deal_) + "\n");
}

void ConsoleTestDeal::ShowError(machine::ErrorDialog& dialog) {
  progress_.Show("");
  faults_.Take(dialog);
}

}  // namespace morvane::cli
