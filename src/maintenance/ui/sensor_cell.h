#pragma once

#include <QStringList>
#include <QWidget>

#include "maintenance/readings.h"
#include "maintenance/ui/trace_line.h"

class QLabel;

namespace morvane::maintenance {

class Indicator;

/// One sensor: what it is called, its value, and its state in a word; of a measure also how it has
/// gone.
class SensorCell final : public QWidget {
 public:
  struct Kind {
    QString Name;        ///< of the indicator
    QString Caption;     ///< above it
    QString SpokenName;  ///< empty: the caption
    QString Widest;      ///< value
    QStringList Words;   ///< that may stand under it; none: nothing does
    QColor Plain;        ///< as of an `Indicator`
  };
  SensorCell(const Kind& kind, QWidget* parent);
  /// Puts the picture of the last half minute under it.
  void AddTrace(const TraceScale& scale);

  void Show(const Reading& reading, const QString& word = {});
  void ShowText(const std::string& text) { Show({text, Shade::kPlain}); }
  /// The trace goes on.
  void Follow(Trace::Time now, const Reading& reading);

 private:
  Indicator* value_;
  QLabel* word_;
  TraceLine* trace_ = nullptr;
};

}  // namespace morvane::maintenance
