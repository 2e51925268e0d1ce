#include "maintenance/ui/indicator.h"

#include "maintenance/ui/service_widgets.h"
#include "platform/qt/qt_text.h"

namespace morvane::maintenance {
namespace {

constexpr qreal kEnlarged = 1.4;
constexpr int kAround = 2;  // pixels

QFont Large(QFont font) {
  font.setPointSizeF(font.pointSizeF() * kEnlarged);
  font.setBold(true);
  return font;
}

}  // namespace

Indicator::Indicator(const QString& name, const QString& spokenName, const QString& widest,
                     QWidget* parent, const QColor& plain)
    : ShownValue(name, spokenName, parent), plain_(plain) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignCenter);
  setFrameShape(QFrame::StyledPanel);
  setFont(Large(font()));
  setMargin(kAround);
  KeepSizeFor(*this, {widest});
}

void Indicator::ShowReading(const Reading& reading, const QString& word) {
  const bool known = !reading.Text.empty();
  ShowGround(reading.Look == Shade::kGood  ? kGoodGround
             : reading.Look == Shade::kBad ? kBadGround
             : known                       ? plain_
                                           : QColor());
  const QString text = ToQt(reading.Text);
  if (this->text() == text && word_ == word) return;
  word_ = word;
  Show(text);
}

QString Indicator::SpokenText() const { return word_.isEmpty() ? text() : text() + ", " + word_; }

/// Changing a palette is dear, and seldom.
void Indicator::ShowGround(const QColor& ground) {
  if (ground == ground_) return;
  ground_ = ground;
  setAutoFillBackground(ground.isValid());
  QPalette colours;
  if (ground.isValid()) {
    colours.setColor(QPalette::Window, ground);
    colours.setColor(QPalette::WindowText, Qt::black);
  }
  setPalette(colours);
}

}  // namespace morvane::maintenance
