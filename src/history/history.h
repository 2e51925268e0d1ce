#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "history/history_ring.h"
#include "program/program.h"

namespace morvane::history {

/// The history of boards already played, kept in "history1.dat" of the data folder. The first
/// failure tells the operator and turns it off until the program ends: the ring is empty then, and
/// nothing is written.
class History {
 public:
  /// At start-up: enters the data folder, making it where it is missing, and reads the history; an
  /// older one beside the program is taken over once. Whether the history can be used.
  bool LoadHistory(Program& program);

  /// Adds the current set under `name`, behind what other programs have added meanwhile. Does
  /// nothing without a set, without a name, or when the history is off.
  void AddToHistory(Program& program, std::string_view name);

  /// The same, unless an entry of that name is known, here or by now to another program.
  void AddUnlessKnown(Program& program, std::string_view name);

  [[nodiscard]] bool HistoryEnabled() const { return enabled_; }
  [[nodiscard]] const HistoryRing& Ring() const { return ring_; }

 private:
  struct Failure {
    const std::string& Text;  ///< of the catalogue
    std::string Path;         ///< that it names
    RuntimeError Error;
  };
  static Failure Unreadable(const Program& program, RuntimeError error);
  static Failure Unwritable(const Program& program, RuntimeError error);
  std::optional<Failure> Read(Program& program);
  static std::optional<Failure> TakeOverOldFile(Program& program, std::string& bytes);
  enum class Known { kAgain, kOnce };
  void Add(Program& program, std::string_view name, Known known);
  std::optional<Failure> Append(Program& program, std::string_view name, Known known);
  void TurnOff(Program& program, const Failure& failure);

  HistoryRing ring_;
  bool enabled_ = false;
};

}  // namespace morvane::history
