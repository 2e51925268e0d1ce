#pragma once

namespace morvane::maintenance {

/// What a download needs of its window. Everything shown is read from `FirmwareDownload`; the call
/// only says that it changed. As it stands here it shows nothing.
class FirmwareView {
 public:
  virtual ~FirmwareView() = default;
  virtual void ShowDownload() {}
};

}  // namespace morvane::maintenance
