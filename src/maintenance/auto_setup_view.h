#pragma once

namespace morvane::maintenance {

/// What the search of Auto Setup needs of its window. Everything shown is read from `AutoSetup`;
/// the calls say that it changed. As it stands here it shows nothing.
class AutoSetupView {
 public:
  virtual ~AutoSetupView() = default;
  /// After each trial, and when the search is over.
  virtual void ShowSearch() {}
  /// A line of the final picture has been painted.
  virtual void ShowPicture() {}
};

}  // namespace morvane::maintenance
