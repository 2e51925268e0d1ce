#include "machine/first_contact.h"

#include <string>
#include <vector>

namespace morvane::machine {

Contact AskMachine(Machine& machine, Log& log) {
  if (!machine.Exchange(wire::VersionCommand{})) return Contact::kNoVersion;
  for (const std::uint8_t page : {std::uint8_t{1}, std::uint8_t{2}}) {
    if (!machine.Exchange(wire::IdentityCommand{page})) return Contact::kLinkLost;
  }
  const auto boardsDealt = machine.Exchange(wire::CounterCommand{});
  if (!boardsDealt) return Contact::kLinkLost;
  std::vector<std::string> lines{
      "  S/N:" + std::to_string(machine.SerialNumber) +
      " Dealt:" + std::to_string(boardsDealt->Counter == 0 ? boardsDealt->Value : 0) +
      " Firmware:" + machine.FirmwareVersion()};
  const std::string kind(WordOf(machine.Kind()));
  if (!kind.empty()) lines.push_back(" Machine: " + kind);
  log.Lines(lines);
  return Contact::kMade;
}

}  // namespace morvane::machine
