#include "poker/poker.h"

#include <algorithm>
#include <array>
#include <utility>

#include "poker/deal_checks.h"
#include "poker/order_files.h"
#include "poker/poker_print.h"
#include "poker/poker_run.h"
#include "poker/random_deals.h"
#include "text/text.h"

namespace morvane::poker {
namespace {

using machine::RunEnd;

constexpr const char* kTitle = "Poker Dealing";
constexpr const char* kReadyForRun = " Ready for first run";
constexpr const char* kReadyForRead = " Ready for read";

/// What the status lines say while run 1..4 is under way and when it is done; the words are
/// required.
struct RunTexts {
  const char* Running;
  const char* Done;
  const char* Next;
};
constexpr std::array<RunTexts, kRuns> kTexts{{
    {" First Run running...", " First Run done. Put cards from EWS back to the feeder.",
     " E on the top , S on the bottom.  Start second run"},
    {" Second Run running...", " Second run done. Put cards from EWS back to the feeder.",
     " E on the top , S on the bottom.  Start third run"},
    {" Third Run running...", " Run Deal done. Put cards from EWS back to the feeder.",
     " E on the top , S on the bottom.  Start fourth run"},
    {" Fourth run running...", " Done... Ready for next deal", ""},
}};
const RunTexts& TextsOf(int run) { return kTexts[static_cast<std::size_t>(run) - 1]; }

int Digit(PokerButton button, PokerButton first) {
  return static_cast<int>(button) - static_cast<int>(first);
}

}  // namespace

// What is on. It follows from where the operator stands, so nothing has to be switched.

bool Poker::IsOn(PokerButton button) const {
  if (Running() || Closed() || apart_) return false;
  const bool many = order_.PokerOrderExists && BetweenDeals();
  switch (button) {
    case PokerButton::Generate:
    case PokerButton::Poker_Load:
      return BetweenDeals();
    case PokerButton::Poker_Save:
    case PokerButton::Poker_Print:
      return printable_;
    case PokerButton::Poker_print_setup:
      return true;
    case PokerButton::First:
    case PokerButton::Prevoius:
      return many && order_.CurrentDeal > 1;
    case PokerButton::Nextd:
    case PokerButton::Last:
      return many && !AtLastDeal();
    default:
      return Options().MachineKnown && order_.PokerOrderExists && RunIsOn(button);
  }
}

bool Poker::RunIsOn(PokerButton button) const {
  switch (button) {
    case PokerButton::Read:
      return done_ == 0 && IsEmpty(order_.Current());
    case PokerButton::ReadNext:
      return readNext_;
    case PokerButton::FirstDeal:
      return done_ == 0 && !IsEmpty(order_.Current());
    case PokerButton::NextDeal:
      return done_ == kRuns && !AtLastDeal();
    case PokerButton::CancelDeal:
      return !BetweenDeals();
    default:  // the second run to the fourth
      return done_ == Digit(button, PokerButton::FirstDeal);
  }
}

PokerButton Poker::NextButton() const {
  for (const PokerButton button :
       {PokerButton::ReadNext, PokerButton::NextDeal, PokerButton::FirstDeal,
        PokerButton::SecondDeal, PokerButton::ThirdDeal, PokerButton::FourthDeal}) {
    if (IsOn(button)) return button;
  }
  return IsOn(PokerButton::Read) ? PokerButton::Read : PokerButton::Generate;
}

PokerStage Poker::Stage() const {
  PokerStage stage;
  stage.Running = Running() && LastOutcome() == Outcome::kNone;
  stage.Done = done_;
  if (order_.PokerOrderExists) {
    const bool read = stage.Running ? reading_ : readNext_ || IsEmpty(order_.Current());
    stage.What = read ? PokerStage::Task::kRead : PokerStage::Task::kDeal;
  }
  if (stage.Running) {
    const auto& counts = TheMachine().CardCount;
    for (const std::int16_t count : counts) stage.Fallen += count;
    stage.Count = CardsOfRun();
    stage.Seconds = Cards().Seconds();
  } else if (!BetweenDeals() && !Running()) {  // a run that winds up may still fail
    stage.Carried = plan_.Carried(done_);
    stage.Staying = kCards - stage.Carried[0] - stage.Carried[1] - stage.Carried[2];
  }
  return stage;
}

// Opening, and the buttons.

void Poker::StartFromMachine() {
  const PokerButton next = NextButton();
  if (next == PokerButton::Generate || (next == PokerButton::Read && !ReadByPedal)) return;
  Press(next);
}

void Poker::Press(PokerButton button) {
  if (!IsOn(button)) return;
  switch (button) {
    case PokerButton::Generate:
      return Generate();
    case PokerButton::Poker_Load:
      return Load();
    case PokerButton::Poker_Save:
      return Apart([this] { SavePokerOrder(parts_.Prog, order_); });
    case PokerButton::Poker_Print:
      return Apart([this] { PrintPokerOrder(parts_.Prog, order_, copies_); });
    case PokerButton::Poker_print_setup:
      return Apart([this] { copies_ = SetUpPrinter(parts_.Prog, copies_); });
    case PokerButton::First:
      return WalkTo(1);
    case PokerButton::Prevoius:
      return WalkTo(order_.CurrentDeal - 1);
    case PokerButton::Nextd:
      return WalkTo(order_.CurrentDeal + 1);
    case PokerButton::Last:
      return WalkTo(order_.PokerDealCount);
    case PokerButton::CancelDeal:
      return Cancel();
    case PokerButton::Read:
      return StartReading();
    case PokerButton::ReadNext:
      WalkTo(order_.CurrentDeal + 1);
      return StartReading();
    case PokerButton::NextDeal:
      WalkTo(order_.CurrentDeal + 1);
      return StartRun();
    default:
      return StartRun();
  }
}

void Poker::CloseBox() {
  if (apart_) return;
  if (!Running() || std::exchange(broken_, true)) {
    Exit();
    return;
  }
  parts_.Run.Break();
  parts_.View->ShowControls();
}

void Poker::Write(std::string PokerOrder::*text, std::string value) {
  order_.*text = std::move(value);
}

// The order.

void Poker::Apart(const std::function<void()>& work) {
  {
    const machine::LinkHold hold(parts_.TheMachine);
    apart_ = true;
    parts_.View->ShowControls();
    work();
    apart_ = false;
  }
  parts_.TheMachine.ForgetStarts();
  ShowAll();
}

void Poker::Generate() {
  Apart([this] {
    if (!MayDiscard("    Discard current order and generate new one?    ")) return;
    const int deals = Val(Number_deals);
    if (!IsDealCount(deals)) {
      Number_deals = "1";
      parts_.Prog.ShowMessage(kWrongDealCount, kOkExclamation, kTitle);
      return;
    }
    PokerOrder order = EmptyOrder(deals);
    if (!Empty_set) FillAtRandom(order, parts_.Prog.Random);
    Start(order, Empty_set ? kReadyForRead : kReadyForRun);
    printable_ = !Empty_set;
  });
  parts_.View->FocusNext();
}

void Poker::Load() {
  Apart([this] {
    if (!MayDiscard("    Discard current order and load new one?    ")) return;
    const auto before = order_.PokerDeals;
    if (LoadPokerOrder(parts_.Prog, order_)) {
      Take(PokerOrder(order_));
    } else if (order_.PokerOrderExists && order_.PokerDeals != before) {
      StandAfresh();  // before deals that a faulty file has put in place of others
      printable_ = true;
    }
  });
  parts_.View->FocusNext();
}

bool Poker::MayDiscard(const char* question) {
  return !order_.PokerOrderExists || parts_.Prog.Ask(question, kOkCancelExclamation, kTitle) == kOk;
}

void Poker::Take(const PokerOrder& order) {
  Start(order, kReadyForRun);
  printable_ = true;
}

void Poker::Start(const PokerOrder& order, const char* label) {
  order_ = order;
  order_.PokerOrderExists = true;
  plan_.Clear();
  Stand(0, label);
}

/// Behind run `done` of the current deal, with nothing under way.
void Poker::Stand(int done, const char* label) {
  done_ = done;
  readNext_ = false;
  label1_ = label;
  label3_.clear();
}

void Poker::WalkTo(int deal) {
  order_.CurrentDeal = static_cast<std::int16_t>(deal);
  StandAfresh();
  ShowAll();
}

void Poker::StandAfresh() { Stand(0, IsEmpty(order_.Current()) ? kReadyForRead : kReadyForRun); }

void Poker::Cancel() {
  Stand(0, kReadyForRun);
  ShowAll();
  parts_.View->FocusNext();
}

// A run of cards, from its button until the next may be pressed.

void Poker::StartRun() {
  const std::string fault = WhyNotStacked(order_.Current());
  if (!fault.empty()) {
    Refuse(fault);
    return;
  }
  reading_ = false;
  RunFromButton(TextsOf(done_ + 1).Running);
}

void Poker::StartReading() {
  if (!IsEmpty(order_.Current())) {
    Refuse("   Current deal is not empty. Cannot Read    ");
    return;
  }
  reading_ = true;
  RunFromButton(" Reading order...");
}

void Poker::Refuse(const std::string& text) {
  Apart([&] { parts_.Prog.ShowMessage(text, kOkExclamation, kTitle); });
  parts_.View->FocusNext();
}

void Poker::RunFromButton(const char* label) {
  readNext_ = false;
  broken_ = false;
  label1_ = label;
  label3_.clear();
  parts_.TheMachine.CardCount = {};  // the last run's are no part of this one
  RunCards();
  if (Closed()) return;
  ShowAll();
  parts_.View->FocusNext();
}

RunEnd Poker::RunOnce() {
  ShowAll();
  if (reading_) {
    plan_.BeginReading();
  } else {
    plan_.Begin(done_ + 1, order_.Current());
  }
  const RunEnd end = PokerRun(parts_, plan_, CardsOfRun(), [this] { return AnswerToFault(); });
  if (end != RunEnd::kDone) return end;
  // Later the machine knows which cards are to come.
  if (!reading_ && done_ == 0 && !CardsNotSeen().empty()) return RunEnd::kIncomplete;
  parts_.Run.RunLogLine += " OK";
  return end;
}

int Poker::CardsOfRun() const { return reading_ ? kCards : PilePlan::CardsOfRun(done_ + 1); }

std::string Poker::Name() const {
  const std::string deal = "Deal " + std::to_string(order_.CurrentDeal);
  return reading_ ? deal + ", read" : deal + ", run " + std::to_string(done_ + 1);
}

std::string Poker::CardsNotSeen() const {
  return poker::CardsNotSeen(order_.Current(), parts_.Run.CardLog);
}

/// A break that somebody asked for ends the run without another question.
machine::DialogAnswer Poker::AnswerToFault() {
  return broken_ ? machine::kStop : machine::AnswerFault(parts_, {});
}

void Poker::Finish(RunEnd end) {
  if (end != RunEnd::kDone) {
    Stand(0, kReadyForRun);
    if (end == RunEnd::kIncomplete && !broken_ && !parts_.Run.Leaving()) TellIncomplete();
  } else if (reading_) {
    FinishReading();
  } else {
    FinishRun();
  }
}

void Poker::FinishRun() {
  plan_.Rebuild(parts_.Run.CardLog, CardsOfRun());
  const int run = done_ + 1;
  if (run == kRuns && AtLastDeal()) {
    done_ = run;
    FinishOrder("   All Deals was successfully dealt    ");
    return;
  }
  if (run < kRuns) plan_.Gather(run);
  Stand(run, TextsOf(run).Done);
  label3_ = TextsOf(run).Next;
}

void Poker::FinishReading() {
  PokerDeal& deal = order_.Current();
  const auto& log = parts_.Run.CardLog.Bytes;
  for (std::size_t slot = 1; slot <= kSlots; ++slot) {
    // The pack goes through the machine from the bottom, so its top card comes last.
    const auto card = std::find(log.begin(), log.end(), kCards + 1 - slot);
    deal[slot] = static_cast<std::uint8_t>(card - log.begin() + 1);
  }
  printable_ = true;
  if (AtLastDeal()) {
    FinishOrder("   All Deals was successfully read    ");
    return;
  }
  Stand(0, " Ready for next read");
  readNext_ = true;
}

void Poker::FinishOrder(const char* text) {
  ShowAll();
  parts_.Prog.ShowMessage(text, kOkInformation, kTitle);
  parts_.TheMachine.ForgetStarts();
  order_.CurrentDeal = 1;
  Stand(0, "Ready for first run");
}

void Poker::TellIncomplete() {
  ShowAll();
  const std::string cards = reading_ ? "" : CardsNotSeen();
  const std::string what =
      cards.empty() ? "      The machine has not counted the cards of this run as it should.      "
                    : "      These cards of the deal have not come through: " + cards + "      ";
  machine::ShowRunError(parts_.Prog, parts_.TheMachine,
                        what + "\r\n\r\n      Please put the pack together and start again.      ",
                        kTitle);
}

}  // namespace morvane::poker
