#pragma once

#include "platform/qt/shown_value.h"

namespace morvane::poker {

/// A line to be read from afar: as large as its place allows, and never cut off where that is
/// narrow.
class FittedLine final : public ShownValue {
 public:
  FittedLine(const QString& name, const QString& spokenName, QWidget* parent);

  /// Painted at once, when it has changed: events wait while the machine is asked.
  void ShowLine(const QString& line);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();

  int least_;  ///< the height of its letters, in pixels
  int most_;
};

}  // namespace morvane::poker
