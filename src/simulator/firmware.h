#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "simulator/board_slot.h"
#include "simulator/card_run.h"
#include "simulator/options.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// The machine behind its wire: plain commands in, plain replies out. It never speaks first; what
/// happens meanwhile is told in the answer to the next status poll.
class Firmware {
 public:
  using Time = std::chrono::microseconds;

  explicit Firmware(const Options& options);

  /// Obeys the plain `command` at time `now`. The size of the plain `reply`, 0 when there is none:
  /// an unknown command is not answered.
  std::size_t Answer(const machine::Frame& command, Time now, machine::Frame& reply);

  void PressPedal();
  /// A raw label byte, whether it is one or not.
  void InsertBoard(std::uint8_t label);
  /// Out of a run in progress, this stops it.
  void RemoveBoard();
  /// What a power cycle leaves: boards, cards and counters stay, everything else is forgotten.
  void Restart();

  [[nodiscard]] CardRun& Run() { return run_; }
  [[nodiscard]] const CardRun& Run() const { return run_; }
  [[nodiscard]] const BoardSlot& Slot() const { return slot_; }
  /// "idle", "dealing card 12 of 52", "stopped at card 12 of 52 with code 57".
  [[nodiscard]] std::string StateText() const;
  [[nodiscard]] std::uint64_t Changes() const { return changes_ + run_.Changes(); }

 private:
  bool AnswerRun(const machine::Frame& command, Time now, machine::Frame& reply);
  bool AnswerQuestion(const machine::Frame& command, machine::Frame& reply);
  bool Start(const machine::Frame& command, Time now, machine::Frame& reply);
  bool StartSort(const machine::Frame& command, Time now, machine::Frame& reply);
  bool AnswerStatus(const machine::Frame& command, machine::Frame& reply);
  bool AnswerVersion(machine::Frame& reply);
  bool AnswerIdentity(const machine::Frame& command, machine::Frame& reply) const;
  bool AnswerCounter(const machine::Frame& command, machine::Frame& reply) const;
  bool AnswerSensor(const machine::Frame& command, machine::Frame& reply) const;
  bool AnswerBoard(machine::Frame& reply) const;
  bool AnswerTest(machine::Frame& reply) const;

  Options options_;
  CardRun run_;
  BoardSlot slot_;
  Report pedal_;
  std::uint64_t changes_ = 0;
};

}  // namespace morvane::simulator
