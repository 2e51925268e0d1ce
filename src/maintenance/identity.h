#pragma once

#include <string>

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

// Each false: the link is lost, which the operator has been told.

/// Both halves of the manufacturing record, and the counter of dealt boards.
bool ReadIdentity(ServiceLink& link, Identity& identity);
/// The versions of the boot area and of the programmable logic.
bool ReadInnerVersions(ServiceLink& link, Identity& identity);

/// A machine that holds no firmware can only be loaded with one.
[[nodiscard]] bool HasFirmware(const machine::Machine& machine);

}  // namespace morvane::maintenance
