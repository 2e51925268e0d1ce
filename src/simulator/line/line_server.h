#pragma once

#include <deque>
#include <iosfwd>
#include <string>
#include <vector>

#include "simulator/line/served_machine.h"

namespace morvane::simulator {

/// Files of the system to listen to, besides the lines.
struct Listening {
  int Words = -1;    ///< where the person at the machines types, a command a line
  int EndWish = -1;  ///< can be read from when the program is to end
};

/// Serves machines, one or several, until it is told to end: by the person, by the end wish. The
/// end of what is typed is no reason, for a program in the background has nobody who types.
class LineServer {
 public:
  /// `machines` stay as many. `troubles` hears what is wrong with the files of machines.
  LineServer(std::deque<ServedMachine>& machines, std::ostream& answers, std::ostream& troubles);

  void Run(Listening listening);

 private:
  void Wait(const Listening& listening);
  [[nodiscard]] bool MayRead(int words) const;
  [[nodiscard]] WiredMachine::Time Patience() const;
  void TakeWords(int words);
  void TellTroubles();

  std::deque<ServedMachine>& machines_;
  std::vector<WiredMachine*> byNumber_;  ///< as the person names them; the first one is 1
  std::ostream& answers_;
  std::ostream& troubles_;
  std::vector<pollfd> files_;  ///< those of the machines, in order, and the others behind them
  std::string typed_;          ///< of the line that has no end yet
  bool wordsOver_ = false;     ///< nothing more will be typed
  bool over_ = false;
};

}  // namespace morvane::simulator
