#include "machine/gates.h"

#include "text/box_text.h"

namespace morvane::machine {

bool Passes(const Machine& machine, const VersionGate& gate) {
  const wire::VersionReply& version = machine.Version;
  if (version.FirmwareMajor == 2) return version.FirmwareMinor >= gate.Minor;
  return version.FirmwareMajor > 2 || gate.MajorTwoOnly;
}

std::string GateText(const Machine& machine, const Messages& texts, const VersionGate& gate) {
  return Fill(texts.*gate.Text, "***", machine.FirmwareVersion());
}

}  // namespace morvane::machine
