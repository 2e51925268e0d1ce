#include "poker/ui/fitted_line.h"

#include "machine/ui/run_widgets.h"

namespace morvane::poker {
namespace {

constexpr qreal kLeast = 0.8;  // of the usual letters
constexpr qreal kMost = 1.6;
constexpr int kAround = 2;  // in pixels

QFont Sized(QFont font, int pixels) {
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

FittedLine::FittedLine(const QString& name, const QString& spokenName, QWidget* parent)
    : ShownValue(name, spokenName, parent),
      least_(static_cast<int>(kLeast * fontInfo().pixelSize())),
      most_(static_cast<int>(kMost * fontInfo().pixelSize())) {
  setFont(Sized(machine::Enlarged(font(), 1), most_));
  setFixedHeight(fontMetrics().height() + kAround);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void FittedLine::ShowLine(const QString& line) {
  if (text() == line) return;
  Show(line);
  Fit();
  repaint();
}

void FittedLine::resizeEvent(QResizeEvent* event) {
  ShownValue::resizeEvent(event);
  Fit();
}

void FittedLine::Fit() {
  int pixels = most_;
  while (pixels > least_ &&
         QFontMetrics(Sized(font(), pixels)).horizontalAdvance(text()) > width() - 2 * kAround) {
    --pixels;
  }
  if (pixels != font().pixelSize()) setFont(Sized(font(), pixels));
}

}  // namespace morvane::poker
