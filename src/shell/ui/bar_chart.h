#pragma once

#include <QWidget>
#include <vector>

#include "model/statistics_bars.h"
#include "platform/qt/spoken.h"

namespace morvane::shell {

/// Counts as bars, each beside what is expected of it: the one filled, the other an outline. The
/// tool tip of a pair has its numbers.
class BarChart final : public QWidget, public Spoken {
 public:
  enum class Legend { kShown, kNone };
  BarChart(const char* name, const char* title, const char* spokenName, Legend legend,
           QWidget* parent);

  /// `spoken` is what assistive tools read in place of the picture.
  void Show(std::vector<CountBar> bars, const QString& spoken);
  [[nodiscard]] QString SpokenText() const override { return spoken_; }
  /// The numbers of the pair there; empty where none stands.
  [[nodiscard]] QString TextAt(const QPoint& place) const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Frame;
  [[nodiscard]] Frame FrameNow() const;
  void PaintHead(QPainter& painter) const;
  void PaintLegend(QPainter& painter) const;
  void PaintScale(QPainter& painter, const Frame& frame) const;
  void PaintBars(QPainter& painter, const Frame& frame) const;
  void PaintBar(QPainter& painter, const QRectF& bar, bool actual) const;
  void PaintNames(QPainter& painter, const Frame& frame) const;
  void PaintName(QPainter& painter, const Frame& frame, std::size_t bar) const;

  QString title_;
  Legend legend_;
  QString spoken_;
  std::vector<CountBar> bars_;
};

}  // namespace morvane::shell
