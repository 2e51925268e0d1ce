#pragma once

#include <iosfwd>
#include <string>

#include "platform/clock.h"
#include "simulator/line/paced_line.h"
#include "simulator/line/pseudo_terminal.h"

namespace morvane::simulator {

/// Files of the system to listen to, besides the line.
struct Listening {
  int Words = -1;    ///< where the person at the machine types, a command a line
  int EndWish = -1;  ///< can be read from when the program is to end
};

/// Serves a machine on a pseudo-terminal until it is told to end: by the person, by the end wish.
/// The end of what is typed is no reason, for a program in the background has nobody who types.
class LineServer {
 public:
  /// `troubles` hears what is wrong with the machine's file.
  LineServer(WiredMachine& machine, const PseudoTerminal& terminal, Clock& clock, Pace pace,
             std::ostream& answers, std::ostream& troubles)
      : machine_(machine),
        terminal_(terminal),
        clock_(clock),
        answers_(answers),
        troubles_(troubles),
        line_(machine, pace) {}

  void Run(Listening listening);

 private:
  void Wait(const Listening& listening);
  [[nodiscard]] bool MayRead(int words) const;
  void SetLatch(bool on);
  void Carry();
  void TakeWords(int words);
  void TellTrouble();

  WiredMachine& machine_;
  const PseudoTerminal& terminal_;
  Clock& clock_;
  std::ostream& answers_;
  std::ostream& troubles_;
  PacedLine line_;
  std::string told_;        ///< of troubles, the last
  std::string typed_;       ///< of the line that has no end yet
  bool wordsOver_ = false;  ///< nothing more will be typed
  bool over_ = false;
};

}  // namespace morvane::simulator
