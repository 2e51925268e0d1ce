#pragma once

#include <QLabel>

#include "platform/qt/spoken.h"

namespace morvane {

/// A label whose text is a value that the program changes.
class ShownValue : public QLabel, public Spoken {
 public:
  /// `spokenName` says to assistive tools what it is the value of.
  ShownValue(const QString& name, const QString& spokenName, QWidget* parent);

  /// Shows and announces it. Painted with the next events, unless `repaint` is called.
  void Show(const QString& text);
  /// Without markup.
  [[nodiscard]] QString SpokenText() const override;
};

}  // namespace morvane
