#pragma once

#include <poll.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/runtime_error.h"
#include "simulator/line/line_listener.h"
#include "simulator/line/paced_line.h"
#include "simulator/line/pseudo_terminal.h"

namespace morvane::simulator {

/// A machine with a pseudo-terminal of its own, and what carries the bytes between the two.
class ServedMachine {
 public:
  using Time = WiredMachine::Time;
  using Awaited = std::array<pollfd, 2>;

  ServedMachine(const Options& options, Pace pace, const Clock& clock)
      : machine_(options), line_(machine_, pace), clock_(clock) {}

  [[nodiscard]] WiredMachine& Machine() { return machine_; }
  [[nodiscard]] PseudoTerminal& Terminal() { return terminal_; }
  /// Hears all that passes from now on; it outlives this object.
  void TellTo(LineListener& listener) { listener_ = &listener; }

  /// What is to be waited for: its bytes, and that a program has closed it.
  [[nodiscard]] Awaited Files() const {
    return {{{terminal_.Bytes(), POLLIN, 0}, {terminal_.Closings(), POLLIN, 0}}};
  }
  /// How long from now until it has something to do by itself.
  [[nodiscard]] Time Patience() const;
  /// Carries what has come either way. `ready` are its files behind the waiting.
  void Carry(const Awaited& ready);
  /// What is wrong with the machine's file, or the listener's, once each time that it changes;
  /// empty otherwise.
  [[nodiscard]] std::string NewTrouble();

 private:
  void SetLatch(bool on);
  void Hear();
  void Say();

  WiredMachine machine_;
  PseudoTerminal terminal_;
  PacedLine line_;
  const Clock& clock_;
  LineListener* listener_ = nullptr;
  std::string told_;  ///< of the machine's troubles, the last
  std::string listenersTold_;
};

}  // namespace morvane::simulator
