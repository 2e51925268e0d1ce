#include "maintenance/test_deal.h"

#include <algorithm>

#include "maintenance/verdict.h"
#include "text/box_text.h"
#include "wire/machine_errors.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {
namespace {

using wire::StatusReply;

// The machine stops at a card with these, and when it is not the one that was expected.
constexpr std::uint8_t kFirstCardError = 25;
constexpr std::uint8_t kLastCardError = 54;
constexpr int kAfterErrorMs = 300;
constexpr int kFirstRank = 2;
/// A program that is told to end has two seconds for all that it leaves behind.
constexpr std::chrono::milliseconds kMomentToBreak{1000};

bool IsAtCard(std::uint8_t status) {
  return status == wire::kIncorrectCardOrder ||
         (status >= kFirstCardError && status <= kLastCardError);
}

TestDeal::State StateOf(std::uint8_t status) {
  if (status > StatusReply::kLastError) return TestDeal::kRunning;
  return status == StatusReply::kIdle ? TestDeal::kFinished : TestDeal::kError;
}

/// Into one pocket, whose count is then that of all cards.
wire::CardBytes AllToNorth() {
  wire::CardBytes pockets;
  std::fill_n(pockets.Bytes.begin(), kCards, PocketOfHand[kNorth]);
  return pockets;
}

}  // namespace

std::string TestCardName(int number) {
  const int card = wire::MachineCard(number).Card();
  constexpr std::string_view kSuitLetters = "SHDC";
  return {kSuitLetters[static_cast<std::size_t>(CardSuit(card) - 1)], CardLetter(card)};
}

void TestDeal::Run(TestDealView& view) {
  view_ = &view;
  log_ = "   Test Deal ";
  start_ = program_.Time.Elapsed();
  view_->ShowState();
  if (Start(false)) {
    while (Follow()) {
    }
  }
  view_->ShowState();
}

bool TestDeal::Start(bool goOn) {
  TestState_ = kRunning;
  const auto accepted =
      link_.Ask(wire::StartCommand{.Continue = goOn,
                                   .Settings = {cards_.CardConfig(), 0, cards_.CardConfigExtra()},
                                   .Pockets = AllToNorth()});
  return accepted || LoseLink();
}

/// False: it is over.
bool TestDeal::Follow() {
  program_.Loop.WaitMs(kTimer2tMs);
  if (GivenUp()) return Finish(End::kCancelled, " Cancel");
  if (!Poll()) return LoseLink();
  view_->ShowState();
  return TestState_ == kRunning || GoesOn();
}

bool TestDeal::Poll() {
  const bool breakNow = std::exchange(breakAsked_, false);
  const auto reply = link_.Ask(wire::TestPollCommand{breakNow});
  if (!reply) return false;
  TestStatusByte_ = reply->State;
  TestState_ = StateOf(TestStatusByte_);
  CardsDealt_ = reply->Pocket[PocketOfHand[kNorth]];
  seconds_ = std::chrono::duration<double>(program_.Time.Elapsed() - start_).count();
  return true;
}

/// Whoever leaves breaks the deal, and gives the machine a moment to stop.
bool TestDeal::GivenUp() {
  if (!leaving_()) return false;
  const auto now = program_.Time.Elapsed();
  if (!leaveUntil_) {
    leaveUntil_ = now + kMomentToBreak;
    TestDealCancel();
  }
  return now >= *leaveUntil_;
}

bool TestDeal::GoesOn() {
  if (TestStatusByte_ == StatusReply::kIdle) {
    return cancelled_ ? Finish(End::kCancelled, " Cancel") : Finish(End::kRanOut, " OK");
  }
  log_ += " " + std::to_string(TestStatusByte_);
  if (IsAtCard(TestStatusByte_)) {
    Fail();
    return false;
  }
  return GoesOnBehindFault();
}

void TestDeal::Fail() {
  ExpectedCard_ = TestCardName(ExpectedNumber());
  log_ += " expected: " + ExpectedCard_;
  Finish(End::kFailed, "");
}

bool TestDeal::GoesOnBehindFault() {
  const bool broken = cancelled_ && TestStatusByte_ == wire::kBreakDealing;
  const bool goOn = !broken && !leaving_() && AnswerFault() == machine::kGoOn;
  if (!goOn || leaving_()) {
    EndIdle(broken || leaving_());
    return false;
  }
  // A break that came too late: whoever goes on wants the rest.
  cancelled_ = breakAsked_ = false;
  return Start(true);
}

machine::DialogAnswer TestDeal::AnswerFault() {
  const int card = CardsDealt_ < kCards ? CardsDealt_ + 1 : 0;
  const machine::DialogAnswer answer =
      machine::AskAboutError(program_, machine_, *view_, machine::kStop, {.Card = card}, false);
  program_.Loop.WaitMs(kAfterErrorMs);
  return answer;
}

/// The machine, whatever it was at, is idle when it has told its version.
void TestDeal::EndIdle(bool cancelled) {
  Finish(cancelled ? End::kCancelled : End::kDeclined, cancelled ? " Cancel" : "");
  if (!link_.Ask(wire::VersionCommand{})) LoseLink();
}

/// False, for who ends with it.
bool TestDeal::Finish(End end, const char* words) {
  end_ = end;
  program_.Log.WriteLine(log_ + words);
  return false;
}

bool TestDeal::LoseLink() {
  end_ = End::kLinkLost;
  return false;
}

void TestDeal::TestDealCancel() {
  if (!MayCancel()) return;
  cancelled_ = breakAsked_ = true;
}

void TestDeal::TakeVerdict(const wire::ErrorVerdictReply& reply) {
  verdict_ = reply;
  view_->ShowState();
}

/// It was recognised; behind another fault the reply may name one all the same.
bool TestDeal::NamesACard() const {
  return IsWrongCard() || (verdict_ && verdict_->Error == wire::kDuplicateCard);
}

std::string TestDeal::SeenCard() const {
  if (!NamesACard()) return "";
  Verdict seen;
  seen.TakeError(*verdict_);
  return seen.Symbol + seen.Suit;
}

/// The verdict's ranks count from 2 on, with 14 for the ace.
int TestDeal::SeenNumber() const {
  if (!NamesACard()) return 0;
  const int rank = verdict_->Rank - kFirstRank;
  const int suit = verdict_->Suit - 1;
  const bool card = rank >= 0 && rank < kRanks && suit >= 0 && suit < kSuits;
  return card ? suit * kRanks + rank + 1 : 0;
}

bool TestDeal::IsWrongCard() const {
  return verdict_ && verdict_->Error == wire::kIncorrectCardOrder;
}

std::string TestDeal::FailureText() const {
  if (!verdict_) return "";
  const Messages& texts = program_.Texts;
  if (IsWrongCard()) return Fill(Fill(texts.Msg122, "***", SeenCard()), "###", ExpectedCard_);
  return Fill(texts.Msg121, "***", std::to_string(verdict_->Error));
}

int TestDeal::TestDealProgress() const { return std::min(100, CardsDealt_ * 100 / kCards); }

int TestDeal::ExpectedNumber() const { return std::min(CardsDealt_ + 1, kCards); }

TestDealTotals TestDeal::Totals() const {
  const bool finished = end_ == End::kRanOut;
  return {before_.Finished + (finished ? 1 : 0), before_.Cards + CardsDealt_};
}

}  // namespace morvane::maintenance
