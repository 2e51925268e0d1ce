#pragma once

#include <string>

#include "maintenance/paper_flash.h"
#include "shell/shell_desk.h"

namespace morvane::shell {

/// A desk whose machine on paper answers the service, too, and has a flash; with a file for it.
struct FirmwareDesk : ShellDesk {
  FirmwareDesk() {
    Paper.Damage = [this](int, const test::Bytes& plain, const test::Bytes& wire) {
      const test::Bytes reply = Flash.ReplyTo(plain);
      if (!reply.empty() || !wire.empty()) return reply.empty() ? wire : reply;
      return test::OnTheWire(
          plain[0] == 0x32 ? test::Long({0xB2}) : test::Short({plain[0], plain[1]}), 21);
    };
    test::WriteContent(Path, maintenance::FileOf(maintenance::CodeOf(2, 0x90), "abc"));
  }

  maintenance::PaperFlash Flash;
  std::string Path = Folder / "new.adc";

  /// The one download that was made: start, both headers.
  [[nodiscard]] bool Downloaded() const { return Flash.Heard == std::vector<int>{-1, 0x200, 0}; }
};

}  // namespace morvane::shell
