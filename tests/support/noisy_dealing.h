#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "model/board.h"

namespace morvane::test {

/// What became of boards dealt over a bad line.
struct DealingTally {
  // Boards that the log calls OK, by the worst that happened on the way.
  int Ok = 0;
  int AtOnce = 0;        ///< nothing
  int AfterRepeats = 0;  ///< frames went out a second time
  int AfterFaults = 0;   ///< a fault was shown and Continue pressed
  int Wrong = 0;         ///< of all: other cards lie in the pockets

  // Attempts that ended without OK; the board was dealt again.
  int Cancelled = 0;
  int LinkLost = 0;

  int LostBetween = 0;  ///< runs that ended between boards or at the first contact
  std::int64_t Frames = 0;
  std::int64_t Repeats = 0;  ///< of them, sent a second time
  /// Fault dialogs with their answer, and message boxes, each with how often it was shown.
  std::map<std::string, int> Shown;
};

/// The real dealing run on the simulated machine, on virtual time, over a line that changes bytes.
/// The operator presses Continue wherever it is offered, Cancel otherwise, and deals each board
/// until the log calls it OK; a link that was lost is opened anew.
class NoisyDealing {
 public:
  /// `noise` is the chance 0..1 of each byte to be changed. The same seed gives the same run.
  NoisyDealing(double noise, std::uint64_t seed);
  ~NoisyDealing();
  NoisyDealing(const NoisyDealing&) = delete;
  NoisyDealing& operator=(const NoisyDealing&) = delete;

  /// Deals random boards until `boards` of them are done. False when the line is too bad to come to
  /// an end: twenty attempts a board.
  bool Deal(int boards);
  [[nodiscard]] const DealingTally& Tally() const;

  /// Called with what lies in the pockets before it is judged.
  std::function<void(Board& pockets)> OnPockets;

 private:
  class Desk;
  std::unique_ptr<Desk> desk_;
};

}  // namespace morvane::test
