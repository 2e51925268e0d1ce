#include "maintenance/test_deal_command.h"

#include <numeric>

#include "machine/gates.h"
#include "text/box_text.h"
#include "wire/picture_commands.h"

namespace morvane::maintenance {
namespace {

using wire::OutputsCommand;

// Another function's: required.
constexpr const char* kGateCaption = "Auto Setup";

/// What the machine drives itself while it deals.
constexpr std::uint8_t kDriven =
    OutputsCommand::kMotors | OutputsCommand::kCamLeds | OutputsCommand::kCamPower;

/// A test deal goes on; whatever ends it, nothing takes the next service file for one behind it.
class Testing {
 public:
  explicit Testing(ServiceFileRun& run) : run_(run) { run_.TestDealError = true; }
  ~Testing() { run_.TestDealError = false; }
  Testing(const Testing&) = delete;
  Testing& operator=(const Testing&) = delete;

 private:
  ServiceFileRun& run_;
};

}  // namespace

void TestDealCommand::Run() {
  if (!Passes(machine_, machine::kTestDealGate)) {
    program_.ShowMessage(Fill(program_.Texts.Msg044, "***", machine_.FirmwareInHex()), kOkCritical,
                         kGateCaption);
    return;
  }
  if (!Agrees(program_.Texts.Msg120)) return;
  totals_ = {};
  while (Round()) {
  }
}

/// Whether there is to be another one.
bool TestDealCommand::Round() {
  const Testing testing(run_);
  poll_.ForgetBoardNumber();
  if (host_.Leaving() || !SendExpectedDeck()) return false;
  poll_.Outputs &= static_cast<std::uint8_t>(~kDriven);
  host_.View().ShowAll();
  const Next next = Deal();
  if (next == Next::kServiceFile) createServiceFile_();
  return next == Next::kAgain;
}

/// Spades from the Two up to the Ace, then the other suits.
bool TestDealCommand::SendExpectedDeck() {
  wire::RouteCommand route{.Count = kCards, .TestDeal = true, .Order = {}};
  std::iota(route.Order.Bytes.begin(), route.Order.Bytes.begin() + kCards, std::uint8_t{1});
  return link_.Ask(route).has_value();
}

/// The window stays behind the question, so that what was seen can be read beside it.
TestDealCommand::Next TestDealCommand::Deal() {
  TestDeal deal(program_, link_, machine_, parameters_.CardSelection, totals_,
                [this] { return host_.Leaving(); });
  const auto window = host_.View().OpenTestDeal(deal);
  deal.Run(*window);
  totals_ = deal.Totals();
  return host_.Leaving() ? Next::kOver : AskAbout(deal);
}

TestDealCommand::Next TestDealCommand::AskAbout(TestDeal& deal) {
  switch (deal.Result()) {
    case TestDeal::End::kFailed:
      return AskAboutFailure(deal);
    case TestDeal::End::kRanOut:
      return Agrees(program_.Texts.Msg123) ? Next::kAgain : Next::kOver;
    default:
      return Next::kOver;
  }
}

TestDealCommand::Next TestDealCommand::AskAboutFailure(TestDeal& deal) {
  const auto verdict = link_.Ask(wire::TestVerdictCommand{});
  if (!verdict) return Next::kOver;
  bench_.TakeError(*verdict);
  deal.TakeVerdict(*verdict);
  return Agrees(deal.FailureText()) ? Next::kServiceFile : Next::kOver;
}

bool TestDealCommand::Agrees(const std::string& text) {
  return program_.Ask(text, kOkCancel, kTestDealCaption) == kOk;
}

}  // namespace morvane::maintenance
