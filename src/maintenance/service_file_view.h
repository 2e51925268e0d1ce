#pragma once

namespace morvane::maintenance {

/// What the gathering of a service file needs of its window. Everything shown is read from
/// `ServiceGathering`; the call says that it changed. As it stands here it shows nothing.
class ServiceFileView {
 public:
  virtual ~ServiceFileView() = default;
  /// How far it has come, or a line of the picture.
  virtual void ShowGathering() {}
};

}  // namespace morvane::maintenance
