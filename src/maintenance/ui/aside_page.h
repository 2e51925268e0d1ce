#pragma once

#include <QString>

class QHBoxLayout;
class QTabWidget;
class QWidget;

namespace morvane {
class ScrollingPart;
}

namespace morvane::maintenance {

/// A page of tabs that stands beside them, always in sight, where there is room for that.
class AsidePage {
 public:
  /// At first it is the page `place` of `tabs`, which stand in `row`; all of them outlive it.
  AsidePage(QWidget& content, int place, const char* caption, QTabWidget& tabs, QHBoxLayout& row);

  /// What has the focus in it keeps it.
  void Place(bool beside);
  /// What it needs beside the tabs.
  [[nodiscard]] int Width() const;

 private:
  QWidget& content_;
  const int place_;
  const QString caption_;
  QTabWidget& tabs_;
  QHBoxLayout& row_;
  ScrollingPart* part_;
  bool beside_ = false;
};

}  // namespace morvane::maintenance
