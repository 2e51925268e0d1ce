#include "maintenance/identity.h"

#include "text/text.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {
namespace {

/// "3.1.0.0": the 16-bit halves of both numbers.
std::string FourPart(std::uint32_t high, std::uint32_t low) {
  constexpr std::uint32_t kHalf = 65536;
  return std::to_string(high / kHalf) + "." + std::to_string(high % kHalf) + "." +
         std::to_string(low / kHalf) + "." + std::to_string(low % kHalf);
}

int BootSum(const wire::VersionReply& version) { return version.BootMajor + version.BootMinor; }

}  // namespace

void Identity::TakeVersion(const machine::Machine& machine) {
  Soft_ver = machine.FirmwareInHex();
  Down_ID = std::to_string(BootSum(machine.Version));
  Flash_ID_text = std::to_string(machine.Version.Flash);
  const machine::MachineLink& link = machine.Link;
  txtUSB_ID = link.UsbProductString;
  USB_driver = FourPart(link.UsbDriverVersionHigh, link.UsbDriverVersionLow);
  DLLver = FourPart(link.UsbDllVersionHigh, link.UsbDllVersionLow);
}

bool ReadIdentity(ServiceLink& link, Identity& identity) {
  if (const auto made = link.Ask(wire::ServiceIdentityCommand{1})) {
    identity.Serial_number = std::to_string(made->High);
    identity.Hardware_ID = std::to_string(made->Low);
  }
  if (const auto date = link.Ask(wire::ServiceIdentityCommand{2})) {
    identity.Manuf_date = std::to_string(date->High >> 8U) + "." +
                          std::to_string(date->High & 0xFFU) + "." + std::to_string(date->Low);
  }
  if (const auto counters = link.Ask(wire::CounterPageCommand{0})) {
    identity.Boards_dealed = std::to_string(counters->Counters[0]);
  }
  return !link.LinkFailed();
}

bool ReadInnerVersions(ServiceLink& link, Identity& identity) {
  if (const auto boot = link.Ask(wire::BootAreaCommand{}); boot && boot->Area == 0) {
    identity.Boot_ver = Hex2(boot->BootMajor) + "." + Hex2(boot->BootMinor);
  }
  if (const auto logic = link.Ask(wire::LogicVersionCommand{})) {
    identity.FPGA_ver =
        std::to_string(logic->Version / 10) + "." + std::to_string(logic->Version % 10);
  }
  return !link.LinkFailed();
}

bool HasFirmware(const machine::Machine& machine) { return BootSum(machine.Version) != 0; }

}  // namespace morvane::maintenance
