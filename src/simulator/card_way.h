#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "simulator/board_pile.h"
#include "simulator/carrier.h"
#include "simulator/deck.h"
#include "simulator/machine_memory.h"
#include "simulator/options.h"
#include "wire/replies.h"

namespace morvane::simulator {

enum class RunKind : std::uint8_t { None, Deal, Read, Sort, Stack, Test };

/// What a stacking run, or a test deal, is to expect.
struct Route {
  std::size_t Count = 0;  ///< cards of the run, 1..55
  /// The how-manieth of the run each card is to be, `kForeign` for one that is not to come at all;
  /// all 0 = nothing is known. Of a test deal, the machine cards as they are to come.
  wire::CardBytes Order;
  bool Test = false;

  static constexpr std::uint8_t kForeign = 127;
  [[nodiscard]] bool Known() const { return !(Order == wire::CardBytes{}); }
  bool operator==(const Route&) const = default;
};

/// What stopped a run: which error, and at which machine card, 0 where none came.
struct RunStop {
  std::uint8_t Code = 0;
  int Card = 0;
  int Times = 0;  ///< how many there were since the machine was made
};

/// The cards' way from the feeder into the pockets: one run at a time, card by card, until it is
/// done, broken or stopped by a fault. Nothing here allocates while cards fall.
class CardWay {
 public:
  using Time = std::chrono::microseconds;
  static constexpr Time kCardTime{280'000};  ///< at speed 1

  /// `options` and `counters` outlive it.
  CardWay(const Options& options, Counters& counters);

  /// Empties the pockets, loads the feeder and begins. The same order again while it is carried out
  /// is a repetition and changes nothing. `pockets` means nothing to a sort.
  void Begin(RunKind kind, const wire::CardBytes& pockets, Time now);
  /// Begins a run of `route.Count` cards. A test deal, or an order that is not known, finds a pack
  /// of its own, any other the piles of the last run; North keeps its pile then. Cards that
  /// somebody has laid into the feeder stay there. The same again is a repetition.
  void Follow(const Route& route, const wire::CardBytes& pockets, Time now);
  /// Whether that run is carried out.
  [[nodiscard]] bool Follows(const wire::CardBytes& pockets) const {
    return Busy() && HasRoute() && pockets == handList_;
  }
  /// Goes on where the run stopped, if its code allows it. A run in progress or done stays as it
  /// is; without a run there is nothing to go on with, and that is an error.
  void GoOn(Time now);
  void Break();
  /// Stops the run in progress with `code`.
  void Stop(std::uint8_t code);
  /// An error is over, and so is its run.
  void ClearError();
  /// The power has gone: the run is forgotten, the cards stay where they are.
  void Forget();

  /// Lets fall what falls until `now`; nothing at speed 0.
  void Advance(Time now);
  /// A status poll: at speed 0 the next card falls.
  void Polled();

  /// Feeds one card by itself into the pocket of North, its machine number; a feeder that is empty
  /// gets a pack. Nothing while there is a run.
  std::optional<int> FeedOne();
  /// What a card takes; 0 = a card a poll.
  [[nodiscard]] Time CardTime() const { return cardTime_; }

  /// The machine stops with `code` before the next card falls.
  void CauseFault(std::uint8_t code) { nextFault_ = code; }
  /// The boards that reading runs find. Without any they read a shuffled pack.
  [[nodiscard]] BoardPile& Boards() { return boards_; }
  [[nodiscard]] const BoardPile& Boards() const { return boards_; }
  [[nodiscard]] Carrier& PileCarrier() { return carrier_; }
  [[nodiscard]] const Carrier& PileCarrier() const { return carrier_; }
  /// Somebody puts the pile of North into the feeder. Not while cards fall, nor when there is none.
  bool PutBack();
  [[nodiscard]] bool CanPutBack() const {
    return !Busy() && pockets_[PocketOfHand[kNorth]].Count() > 0;
  }
  [[nodiscard]] Feeder& Cards() { return feeder_; }
  [[nodiscard]] const Feeder& Cards() const { return feeder_; }

  [[nodiscard]] RunKind Kind() const { return kind_; }
  /// As the status reply has it: 0 idle, 0xFF busy, otherwise the code of the error.
  [[nodiscard]] std::uint8_t State() const { return state_; }
  [[nodiscard]] bool Busy() const { return state_ == wire::StatusReply::kBusy; }
  /// The cards in pocket 1..4, lowest first.
  [[nodiscard]] const Pile& Pocket(std::size_t pocket) const { return pockets_[pocket]; }
  /// The how-manieth of the run each card was; 0 = not dealt.
  [[nodiscard]] const wire::CardBytes& CardLog() const { return cardLog_; }
  [[nodiscard]] std::size_t Fallen() const { return fallen_; }
  /// So many of them into pocket 1..4.
  [[nodiscard]] std::uint8_t FellInto(std::size_t pocket) const { return fellInto_[pocket]; }
  /// The cards that the run is to have.
  [[nodiscard]] std::size_t CardsOfRun() const {
    return kind_ == RunKind::Stack ? route_.Count : feeder_.Loaded();
  }
  /// The last run that did not come to its end.
  [[nodiscard]] const RunStop& LastStop() const { return lastStop_; }
  /// Goes up with every change of what can be seen.
  [[nodiscard]] std::uint64_t Changes() const { return changes_; }

 private:
  void Start(Time now);
  void Load();
  void LoadForReading();
  void LoadForRoute();
  void LeaveToNorth();
  void FallOne();
  void Finish();
  void SetState(std::uint8_t state);
  [[nodiscard]] std::uint8_t DueFault();
  [[nodiscard]] bool HasRoute() const { return kind_ == RunKind::Stack || kind_ == RunKind::Test; }
  [[nodiscard]] bool FrontIsExpected() const;
  [[nodiscard]] std::size_t PocketOfFront() const;
  [[nodiscard]] bool Done() const;

  const Options& options_;
  Counters& counters_;
  Time cardTime_;
  Feeder feeder_;
  std::vector<CardFault> faults_;
  RunKind kind_ = RunKind::None;
  wire::CardBytes handList_{};
  Route route_;
  Carrier::Pockets pockets_;
  std::array<std::uint8_t, kHands + 1> fellInto_{};
  std::size_t fallen_ = 0;
  wire::CardBytes cardLog_;
  BoardPile boards_;
  Carrier carrier_;
  std::uint8_t state_ = wire::StatusReply::kIdle;
  std::uint8_t nextFault_ = 0;
  Time nextCardAt_{0};
  RunStop lastStop_;
  int runsFinished_ = 0;  ///< dealt, read or sorted since the power came on first
  std::uint64_t changes_ = 0;
};

}  // namespace morvane::simulator
