#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "machine/card_settings.h"
#include "maintenance/service_link.h"
#include "maintenance/test_deal_view.h"
#include "wire/picture_replies.h"

namespace morvane::maintenance {

/// What a test has come to, over its deals.
struct TestDealTotals {
  int Finished = 0;  ///< deals without a difference
  int Cards = 0;     ///< that have passed the camera
  bool operator==(const TestDealTotals&) const = default;
};

/// "S2" of the machine's card 1, "CA" of its card 52.
[[nodiscard]] std::string TestCardName(int number);

/// The window `TestDealForm` without its looks: one deal of the deck whose order the machine
/// expects, up to its end or to the card at which the machine stopped. Whoever runs it has the
/// link.
class TestDeal {
 public:
  static constexpr int kTimer2tMs = 100;
  enum State : std::uint8_t { kFinished = 3, kRunning = 4, kError = 5 };
  enum class End : std::uint8_t {
    kNotYet,
    kRanOut,     ///< no difference in all its cards
    kCancelled,  ///< by the operator, or because somebody leaves
    kFailed,     ///< the machine stopped at a card
    kDeclined,   ///< a fault that the operator did not want to go on behind
    kLinkLost,   ///< which the operator has been told
  };

  /// `before` are the totals of the deals before; `leaving`: the service or the program is to end,
  /// which cancels.
  TestDeal(Program& program, ServiceLink& link, machine::Machine& machine,
           const machine::CardSettings& cards, const TestDealTotals& before,
           std::function<bool()> leaving)
      : program_(program),
        link_(link),
        machine_(machine),
        cards_(cards),
        before_(before),
        leaving_(std::move(leaving)) {}

  /// The whole deal.
  void Run(TestDealView& view);
  /// The button `TestDealCancel`: the break goes out in the place of the next poll.
  void TestDealCancel();
  /// Behind a failure: what the machine says of the card that it stopped at.
  void TakeVerdict(const wire::ErrorVerdictReply& reply);

  [[nodiscard]] End Result() const { return end_; }
  [[nodiscard]] bool TestDealFailed() const { return end_ == End::kFailed; }
  [[nodiscard]] bool TestDealCancelled() const { return cancelled_; }
  /// It goes on, and nobody has cancelled it yet.
  [[nodiscard]] bool MayCancel() const { return end_ == End::kNotYet && !cancelled_; }

  // What the window shows.
  [[nodiscard]] State TestState() const { return TestState_; }
  [[nodiscard]] std::uint8_t TestStatusByte() const { return TestStatusByte_; }
  [[nodiscard]] int CardsDealt() const { return CardsDealt_; }
  /// Per cent.
  [[nodiscard]] int TestDealProgress() const;
  /// The card at which the machine stopped; empty while it has not.
  [[nodiscard]] const std::string& ExpectedCard() const { return ExpectedCard_; }
  /// The machine's number of it, 1..52.
  [[nodiscard]] int ExpectedNumber() const;
  /// What the machine took that card for, as "10S", once it has been asked; empty where it says
  /// none.
  [[nodiscard]] std::string SeenCard() const;
  /// The machine's number of that card; 0 where it says none.
  [[nodiscard]] int SeenNumber() const;
  /// A wrong card, not a fault; once it has been asked.
  [[nodiscard]] bool IsWrongCard() const;
  /// What the operator is asked behind the verdict; empty before that.
  [[nodiscard]] std::string FailureText() const;
  /// With this deal.
  [[nodiscard]] TestDealTotals Totals() const;
  [[nodiscard]] int Number() const { return before_.Finished + 1; }
  [[nodiscard]] double Seconds() const { return seconds_; }

 private:
  bool Start(bool goOn);
  bool Follow();
  bool Poll();
  bool GivenUp();
  [[nodiscard]] bool NamesACard() const;
  bool GoesOn();
  bool GoesOnBehindFault();
  machine::DialogAnswer AnswerFault();
  void EndIdle(bool cancelled);
  void Fail();
  bool Finish(End end, const char* words);
  bool LoseLink();

  Program& program_;
  ServiceLink& link_;
  machine::Machine& machine_;
  machine::CardSettings cards_;
  TestDealTotals before_;
  std::function<bool()> leaving_;
  TestDealView* view_ = nullptr;
  std::string log_;
  State TestState_ = kRunning;
  End end_ = End::kNotYet;
  std::uint8_t TestStatusByte_ = 0;
  int CardsDealt_ = 0;
  std::string ExpectedCard_;
  std::optional<wire::ErrorVerdictReply> verdict_;
  bool cancelled_ = false;
  bool breakAsked_ = false;
  std::chrono::microseconds start_{0};
  double seconds_ = 0;
  std::optional<std::chrono::microseconds> leaveUntil_;  ///< nobody waits any longer
};

}  // namespace morvane::maintenance
