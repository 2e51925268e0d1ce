#pragma once

#include <string>

#include "maintenance/console_host.h"
#include "maintenance/firmware_download.h"

namespace morvane::maintenance {

/// The button `Download`: the choice of a file and its transfer. Whoever runs it has the link, and
/// nothing else takes it meanwhile.
class DownloadCommand {
 public:
  /// Who wants it: the operator hears of a good end, a program that asks for it does not.
  enum class For : std::uint8_t { kOperator, kAnother };

  DownloadCommand(Program& program, ServiceLink& link, machine::Machine& machine, ConsoleHost& host)
      : program_(program), link_(link), machine_(machine), host_(host) {}

  /// `path` as in `ChooseFirmware`. True: the machine was sent something and the link holds, so
  /// that whatever is known of the machine is to be asked anew.
  bool Run(const std::string& path, For whom);

 private:
  bool Transfer(const FirmwareFile& firmware, For whom);
  void TellEnd(const FirmwareDownload& download, For whom);

  Program& program_;
  ServiceLink& link_;
  machine::Machine& machine_;
  ConsoleHost& host_;
};

}  // namespace morvane::maintenance
