#pragma once

#include <memory>
#include <string>

#include "bridges/link_request.h"
#include "machine/machine.h"
#include "platform/clock.h"
#include "platform/usb_xpress.h"

namespace morvane::simulator {
class SimulatedMachine;
}

namespace morvane::bridges {

class ReplayBridge;
class TracedBridge;

/// The way to the machine that a command line names, or why there is none.
struct MachineChoice {
  std::unique_ptr<UsbXpress> Usb;
  machine::MachineKind Kind = machine::MachineKind::kReal;
  // What `Usb` is, or has inside, where it is that.
  simulator::SimulatedMachine* Simulated = nullptr;
  ReplayBridge* Replayed = nullptr;
  TracedBridge* Traced = nullptr;
  std::string Error;  ///< not empty: `Usb` is null

  /// Ends the trace that is written, when nothing is asked of the machine any more.
  void End();
  /// What is wrong with the files behind it by now, in lines for their owner: the trace that is
  /// played, the run that differs from it, or has not come to its end; the trace that is written;
  /// that of a simulated machine that is kept in one. Empty: nothing.
  [[nodiscard]] std::string Trouble() const;
  /// The same but for the simulated machine's.
  [[nodiscard]] std::string LinkTrouble() const;
};

/// Reads the file of the simulated machine's `pack=`, checks the trace that is to be played, and
/// begins the one that is to be written.
[[nodiscard]] MachineChoice ChooseMachine(const LinkRequest& request, Clock& clock);

}  // namespace morvane::bridges
