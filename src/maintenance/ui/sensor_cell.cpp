#include "maintenance/ui/sensor_cell.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "maintenance/ui/indicator.h"
#include "maintenance/ui/service_widgets.h"

namespace morvane::maintenance {

SensorCell::SensorCell(const Kind& kind, QWidget* parent)
    : QWidget(parent),
      value_(new Indicator(kind.Name, kind.SpokenName.isEmpty() ? kind.Caption : kind.SpokenName,
                           kind.Widest, this, kind.Plain)),
      word_(new QLabel(this)) {
  auto* caption = new QLabel(kind.Caption, this);
  caption->setAlignment(Qt::AlignCenter);
  word_->setObjectName(kind.Name + "_word");
  word_->setAlignment(Qt::AlignCenter);
  word_->setVisible(!kind.Words.isEmpty());
  KeepSizeFor(*word_, kind.Words);
  const int width = std::max({value_->width(), word_->maximumWidth(), caption->sizeHint().width()});
  value_->setFixedWidth(width);
  word_->setFixedWidth(width);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(1);
  column->addWidget(caption, 0, Qt::AlignHCenter);
  column->addWidget(value_, 0, Qt::AlignHCenter);
  column->addWidget(word_, 0, Qt::AlignHCenter);
  column->addStretch();
}

void SensorCell::AddTrace(const TraceScale& scale) {
  trace_ = new TraceLine(value_->objectName() + "_trace", value_->accessibleName(), scale, this);
  trace_->setFixedWidth(value_->maximumWidth());
  auto* column = static_cast<QVBoxLayout*>(layout());
  column->insertWidget(column->count() - 1, trace_, 0, Qt::AlignHCenter);
}

void SensorCell::Show(const Reading& reading, const QString& word) {
  value_->ShowReading(reading, word);
  if (word_->text() != word) word_->setText(word);
}

void SensorCell::Follow(Trace::Time now, const Reading& reading) {
  if (trace_ != nullptr) trace_->Add(now, reading);
}

}  // namespace morvane::maintenance
