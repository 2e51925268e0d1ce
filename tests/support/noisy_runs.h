#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "machine/run_kind.h"
#include "model/board.h"

namespace morvane::test {

/// What became of boards dealt or read over a bad line.
struct RunTally {
  // Boards that the log calls OK, by the worst that happened on the way.
  int Ok = 0;
  int AtOnce = 0;        ///< nothing
  int AfterRepeats = 0;  ///< frames went out a second time
  int AfterFaults = 0;   ///< a fault was shown and Continue pressed
  int Wrong = 0;         ///< of all: a card lies in another pocket
  int Unknown = 0;       ///< of all: read with cards that nobody holds; the operator was told

  // Attempts that ended without OK; the board was dealt or read again.
  int Stopped = 0;
  int LinkLost = 0;

  int LostBetween = 0;  ///< runs that ended between boards or at the first contact
  std::int64_t Frames = 0;
  std::int64_t Repeats = 0;  ///< of them, sent a second time
  /// Fault dialogs with their answer, and message boxes, each with how often it was shown.
  std::map<std::string, int> Shown;
};

/// The real dealing or reading run on the simulated machine, on virtual time, over a line that
/// changes bytes. The operator presses Continue wherever it is offered, Cancel otherwise, and runs
/// each board until the log calls it OK, clearing what half a reading has left; a link that was
/// lost is opened anew.
class NoisyRuns {
 public:
  /// `kind` is deal or read, `noise` the chance 0..1 of each byte to be changed. The same seed
  /// gives the same run.
  NoisyRuns(machine::RunKind kind, double noise, std::uint64_t seed);
  ~NoisyRuns();
  NoisyRuns(const NoisyRuns&) = delete;
  NoisyRuns& operator=(const NoisyRuns&) = delete;

  /// Random boards until `boards` of them are done. False when the line is too bad to come to an
  /// end: twenty attempts a board.
  bool Run(int boards);
  [[nodiscard]] const RunTally& Tally() const;

  /// Called with what lies in the pockets before it is judged.
  std::function<void(Board& pockets)> OnPockets;

 private:
  class Desk;
  std::unique_ptr<Desk> desk_;
};

}  // namespace morvane::test
