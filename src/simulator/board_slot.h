#pragma once

#include <cstdint>

namespace morvane::simulator {

/// Something that happens at the machine and is reported until the program acknowledges it. An
/// acknowledgement covers all that has happened, whether it was reported yet or not.
class Report {
 public:
  void Happen() { waiting_ = true; }
  void Acknowledge() { waiting_ = shown_ = false; }
  void Withdraw() { waiting_ = false; }
  [[nodiscard]] bool Waiting() const { return waiting_; }
  [[nodiscard]] bool Shown() const { return shown_; }
  /// The bit of the next reply.
  bool Show() {
    shown_ = shown_ || waiting_;
    waiting_ = false;
    return shown_;
  }

 private:
  bool waiting_ = false;
  bool shown_ = false;
};

/// The slot that the boards are pushed into, with its switch and its label reader. Each move of the
/// switch is reported in one status reply, and no two in the same: a board that is pulled and
/// pushed back at once shows first as pulled, so that the program sees how short the time was.
class BoardSlot {
 public:
  /// A board with this raw label; what was in the slot has been taken out long before.
  void Insert(std::uint8_t label);
  void Remove();
  void Acknowledge() { inserted_.Acknowledge(); }
  /// The power has come back: nothing is left to report.
  void Forget();

  struct Bits {
    bool Active = false;
    bool Inserted = false;
  };
  /// What the next status reply tells.
  Bits NextReport();

  [[nodiscard]] bool Occupied() const { return occupied_; }
  /// The raw label; 0 in an empty slot.
  [[nodiscard]] std::uint8_t Label() const { return occupied_ ? label_ : std::uint8_t{0}; }

 private:
  bool occupied_ = false;
  std::uint8_t label_ = 0;
  bool removalWaits_ = false;
  Report inserted_;
};

}  // namespace morvane::simulator
