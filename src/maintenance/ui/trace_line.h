#pragma once

#include <QWidget>
#include <optional>

#include "maintenance/readings.h"
#include "maintenance/trace.h"
#include "platform/qt/spoken.h"

namespace morvane::maintenance {

/// What stands to scale in the picture of a measure.
struct TraceScale {
  double LeastSpan = 1;  ///< smaller changes are not blown up
  /// Where the value is right: a band behind the line, always in sight.
  std::optional<Trace::Span> Right = {};
};

/// The last half minute of a measure, as a small picture.
class TraceLine final : public QWidget, public Spoken {
 public:
  TraceLine(const QString& name, const QString& spokenName, const TraceScale& scale,
            QWidget* parent);

  /// Painted once a step of the trace, however often it is told.
  void Add(Trace::Time now, const Reading& reading);
  [[nodiscard]] QString SpokenText() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] Trace::Span Range() const;
  [[nodiscard]] double HeightOf(double value, const Trace::Span& range) const;

  const TraceScale scale_;
  Trace trace_;
};

}  // namespace morvane::maintenance
