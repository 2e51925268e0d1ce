#include "machine/gates.h"

#include "machine/card_settings.h"
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

std::string WhyNotIndex(const Machine& machine, const Messages& texts, int cardIndex,
                        const std::string& version) {
  const bool large = cardIndex == CardSettings::kLargeIndex;
  if (large && !machine.HasHardware(wire::IdentityReply::kLargeIndexCards)) return texts.Msg045;
  if (!large && cardIndex != CardSettings::kSmallIndex) return "";
  const VersionGate& gate = large ? kLargeIndexClickGate : kSmallIndexClickGate;
  return Passes(machine, gate) ? "" : Fill(texts.*gate.Text, "***", version);
}

}  // namespace morvane::machine
