#pragma once

#include "maintenance/readings.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {

/// The value of a sensor, to be read at a glance: large, on a ground in the colour of its state.
class Indicator final : public ShownValue {
 public:
  /// `widest` is the text that it has to have room for. `plain`: the ground of a value of which
  /// nothing is said; invalid for the window's own.
  Indicator(const QString& name, const QString& spokenName, const QString& widest, QWidget* parent,
            const QColor& plain = {});

  /// `word` is said behind the value.
  void ShowReading(const Reading& reading, const QString& word);
  [[nodiscard]] QString SpokenText() const override;

 private:
  void ShowGround(const QColor& ground);

  const QColor plain_;
  QColor ground_;
  QString word_;
};

}  // namespace morvane::maintenance
