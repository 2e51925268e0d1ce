#include "machine/gates.h"

namespace morvane::machine {

bool Passes(const Machine& machine, const VersionGate& gate) {
  if (machine.FirmwareMajor == 2) return machine.FirmwareMinor >= gate.Minor;
  return machine.FirmwareMajor > 2 || gate.MajorTwoOnly;
}

std::string GateText(const Machine& machine, const Messages& texts, const VersionGate& gate) {
  return Fill(texts.*gate.Text, "***", machine.FirmwareVersion());
}

}  // namespace morvane::machine
