#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "machine/dialog_answer.h"
#include "machine/machine.h"
#include "platform/clock.h"
#include "platform/event_loop.h"

namespace morvane::machine {

/// One run of cards through the machine: the start frame, polls while it is busy, the break, what
/// is fetched when it has stopped, a fault and its answer, going on, and the probe that ends it.
/// What deals, reads, sorts or stacks is a plan on it.
class CardRun {
 public:
  /// `changed` is called whenever there is something new to show.
  CardRun(EventLoop& loop, const Clock& time, Machine& machine, std::function<void()> changed);

  /// What makes a run the run it is. `Start` and `Fetch` end with `Step` after each exchange and
  /// return what it says.
  struct Plan {
    std::function<bool(bool goOn)> Start;  ///< `goOn`: after a fault, from where it stopped
    /// After every stretch, before its fault is answered; empty: nothing is fetched.
    std::function<bool()> Fetch;
    std::function<DialogAnswer()> AnswerFault;  ///< the operator's answer to `MachineError`
  };
  enum class End {
    kStopped,   ///< the machine is no longer busy; `MachineError` says whether that went well
    kGivenUp,   ///< nobody waits for the machine any more
    kLinkLost,  ///< nobody has been told yet
  };

  /// Forgets the run before, and that somebody wanted to leave it. To be called first.
  void Prepare();
  /// Runs `plan` to its end; events pass after every reply.
  End Run(const Plan& plan);
  /// Brings the machine back to idle after a run; false when the link was lost.
  bool Probe();

  /// After an exchange of the run: shows what it has changed and lets events pass. False when the
  /// link was lost.
  bool Step();
  /// Fills `CardLog` from the machine; as `Step`.
  bool FetchCardLog();
  /// Before each board every card counts as dealt, so that the whole board shows in full colour.
  void ClearCardLog();
  /// Lets events pass. When the program quits, the machine is asked to break and has a moment to
  /// stop; then the run is left.
  void Pump();

  /// The break goes out in the place of the next poll: there is never more than one frame
  /// outstanding.
  void Break() { breakAsked_ = true; }
  /// Breaks, and the run's window goes when the machine has stopped; asked again, it does not wait
  /// for that.
  void Leave();
  [[nodiscard]] bool Leaving() const { return departure_ != Departure::kNo; }

  std::string RunLogLine;   ///< what the log is to hold of this run
  wire::CardBytes CardLog;  ///< the how-manieth each card was; 0 = not dealt
  std::string txtDealTime;
  bool CountsShown = false;  ///< pocket counts stand empty until the machine has reported some
  /// How long the run took, or has taken so far.
  [[nodiscard]] double Seconds() const { return seconds_; }

 private:
  enum class Departure { kNo, kAfterBreak, kAtOnce };
  static constexpr std::uint8_t kFreshCard = 0x63;
  /// A program that is told to end has two seconds for all that it leaves behind.
  static constexpr std::chrono::milliseconds kMomentToBreak{1000};

  /// What a poll may change of all that is shown.
  struct Seen {
    std::int32_t MachineState = 0;
    bool CountsShown = false;
    std::array<std::int16_t, 5> CardCount{};
    std::string txtDealTime;
    bool operator==(const Seen&) const = default;
  };
  [[nodiscard]] Seen SeenNow() const;
  void Show();
  /// The same where the last poll told anything new; most tell nothing.
  void ShowNews();

  void Begin();
  bool GoOn(const Plan& plan);
  End Follow();
  void Poll();
  bool GoesOnAfterFault(const Plan& plan);

  EventLoop& loop_;
  const Clock& time_;
  Machine& machine_;
  std::function<void()> changed_;
  std::chrono::microseconds start_{0};
  double seconds_ = 0;
  Seen shown_;
  bool breakAsked_ = false;
  Departure departure_ = Departure::kNo;
  std::optional<std::chrono::microseconds> quitUntil_;  ///< the program quits, and waits no longer
};

}  // namespace morvane::machine
