#include "generate/ui/reject_count.h"

#include <QEvent>
#include <QHBoxLayout>

#include "generate/generate_report.h"
#include "generate/ui/generate_parts.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/readable_colour.h"
#include "platform/qt/shown_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::generate {
RejectCount::RejectCount(const char* name, const char* tip, QWidget* parent)
    : QWidget(parent),
      box_(new ShownText(name, tip, this)),
      sign_(new ShownValue(QString(name) + "_sign", tip, this)) {
  box_->setFixedWidth(NumberWidth(*box_));
  box_->setAlignment(Qt::AlignRight);
  box_->setFocusPolicy(Qt::ClickFocus);
  sign_->setTextFormat(Qt::PlainText);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(box_);
  row->addWidget(sign_, 1);
}

void RejectCount::Show(const std::optional<RejectCounter>& counter, bool isOff) {
  shown_ = counter;
  box_->setText(counter ? QString::number(counter->Count) : QString());
  sign_->Show(counter ? ToQt(isOff ? kOffSign : SignOf(*counter)) : QString());
  Colour();
}

void RejectCount::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Colour();
}

void RejectCount::Colour() {
  QPalette own;
  if (shown_) {
    const QColor colour = shown_->Colour == CounterColour::kRed ? Qt::red : Qt::green;
    own.setColor(QPalette::Text, ReadableOn(palette().color(QPalette::Base), colour));
  }
  box_->setPalette(own);
}

}  // namespace morvane::generate
