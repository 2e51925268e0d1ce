#include "cli/maintain_test_deal_command.h"

#include <array>
#include <memory>

#include "cli/console_service.h"
#include "cli/console_test_deal.h"
#include "maintenance/test_deal_command.h"

namespace morvane::cli {
namespace {

using maintenance::Maintenance;
using maintenance::TestDeal;

class TestDealService final : public ConsoleService {
 public:
  TestDealService(Maintenance& console, Workplace& place, bool yes, bool& done)
      : ConsoleService(console), place_(place), yes_(yes), done_(done) {}

  std::unique_ptr<maintenance::TestDealView> OpenTestDeal(TestDeal& deal) override {
    return std::make_unique<ConsoleTestDeal>(place_, deal, yes_, end_);
  }

 private:
  void Known() override {
    if (HasFirmware()) {
      console_.DealTest();
      TellEnd();
    } else {
      SayNoFirmware(place_.Screen);
    }
    console_.Exit();
  }
  void TellEnd() {
    const bool broken = console_.LinkFailed() || place_.Prog.Loop.Quitting();
    done_ = end_ == TestDeal::End::kRanOut && !broken;
    if (!end_ && !broken) place_.Screen.Error("Nothing is dealt.\n");
    SayWritten(place_.Screen, console_.ServiceFiles());
  }

  Workplace& place_;
  const bool yes_;
  bool& done_;
  std::optional<TestDeal::End> end_;  ///< of the last deal
};

constexpr std::array kOptions{kIndexOption};

}  // namespace

MaintainTestDealOptions ReadMaintainTestDealOptions(OptionReader& given) {
  return {.Index = IndexIn(given), .Yes = given.Has("yes")};
}

ExitStatus MaintainTestDeal(Job& job, const MaintainTestDealOptions& options) {
  if (options.Yes) job.Place.Operator.PressOk(maintenance::kTestDealCaption);
  bool done = false;
  Serve(job, options.Index, [&](Maintenance& console) {
    return std::make_unique<TestDealService>(console, job.Place, options.Yes, done);
  });
  // What the boxes before it have said is not the end of it.
  if (!done) TellBreak(job, job.Place.Operator.BoxesShown());
  return done ? kDone : kFailed;
}

constinit const Command kMaintainTestDealCommand{
    .Name = "maintain test-deal",
    .Options = kOptions,
    .Summary =
        "Deals a deck that lies in a known order, to find out which card is taken for another. "
        "With --yes it deals again and again until there is a difference, which makes a service "
        "file, or a fault, which is not gone on behind, or until it is interrupted. The exit "
        "status is 0 only when nobody wanted another deal behind one without a difference.",
    .Prepare = TaskOf<ReadMaintainTestDealOptions, MaintainTestDeal>};

}  // namespace morvane::cli
