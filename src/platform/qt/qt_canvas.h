#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <map>
#include <tuple>

#include "platform/canvas.h"

namespace morvane {

/// Draws on a printer, a PDF or a picture of either. The device outlives it and is free again when
/// it goes.
class QtCanvas final : public Canvas {
 public:
  explicit QtCanvas(QPagedPaintDevice& device);

  /// Whether the device has taken everything so far.
  [[nodiscard]] bool IsGood() const { return good_; }
  /// Hands the last page over; false when the device does not take it.
  [[nodiscard]] bool End() { return painter_.end(); }

  [[nodiscard]] double Width() const override;
  [[nodiscard]] double Height() const override;
  [[nodiscard]] double WidthOf(std::string_view text, const Font& font) const override;
  void Text(double x, double y, std::string_view text, const Font& font, Colour colour) override;
  void Rule(double fromX, double fromY, double toX, double toY, Colour colour) override;
  void Fill(const Area& area, Colour colour) override;
  [[nodiscard]] bool NewPage() override;

 private:
  struct Letters {
    QFont Face;
    QFontMetricsF Metrics;
  };
  [[nodiscard]] const Letters& LettersOf(const Font& font) const;

  QPagedPaintDevice& device_;
  QPainter painter_;
  double scale_ = 1;  ///< dots of the device in a point
  mutable std::map<std::tuple<Typeface, double, bool>, Letters> letters_;
  bool good_ = true;
};

}  // namespace morvane
