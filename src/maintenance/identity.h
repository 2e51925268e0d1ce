#pragma once

#include <array>
#include <string>
#include <string_view>

#include "maintenance/service_link.h"

namespace morvane::maintenance {

/// What the machine and its link say of themselves, as the console shows it; empty until it is
/// known.
struct Identity {
  std::string Serial_number;
  std::string Boards_dealed;
  std::string Manuf_date;
  std::string Hardware_ID;
  std::string Soft_ver;
  std::string Down_ID;
  std::string txtUSB_ID;
  std::string Flash_ID_text;
  std::string USB_driver;
  std::string DLLver;
  std::string Boot_ver;
  std::string FPGA_ver;

  /// What the version reply and the link say.
  void TakeVersion(const machine::Machine& machine);
};

/// A text of the identity, by the system's name for its box.
struct IdentityText {
  std::string_view Name;
  std::string Identity::*Text;
};
/// In the order in which they are told; the log has the first `kLoggedIdentity`.
inline constexpr std::array<IdentityText, 12> kIdentityTexts{{
    {"Serial_number", &Identity::Serial_number},
    {"Boards_dealed", &Identity::Boards_dealed},
    {"Manuf_date", &Identity::Manuf_date},
    {"Hardware_ID", &Identity::Hardware_ID},
    {"Soft_ver", &Identity::Soft_ver},
    {"Down_ID", &Identity::Down_ID},
    {"txtUSB_ID", &Identity::txtUSB_ID},
    {"Flash_ID_text", &Identity::Flash_ID_text},
    {"USB_driver", &Identity::USB_driver},
    {"DLLver", &Identity::DLLver},
    {"Boot_ver", &Identity::Boot_ver},
    {"FPGA_ver", &Identity::FPGA_ver},
}};
inline constexpr std::size_t kLoggedIdentity = 10;

// Each false: the link is lost, which the operator has been told.

/// Both halves of the manufacturing record, and the counter of dealt boards.
bool ReadIdentity(ServiceLink& link, Identity& identity);
/// The versions of the boot area and of the programmable logic.
bool ReadInnerVersions(ServiceLink& link, Identity& identity);

/// A machine that holds no firmware can only be loaded with one.
[[nodiscard]] bool HasFirmware(const machine::Machine& machine);

}  // namespace morvane::maintenance
