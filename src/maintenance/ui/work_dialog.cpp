#include "maintenance/ui/work_dialog.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

#include "maintenance/ui/service_widgets.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {

void WorkDialog::Place(QWidget* body, const char* cancel) {
  auto* buttons = new QWidget(this);
  cancel_ = NewServiceButton(
      cancel, "&Cancel", [this] { reject(); }, buttons);
  QSizePolicy keepsItsPlace = cancel_->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  cancel_->setSizePolicy(keepsItsPlace);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(kServiceMargin, 0, kServiceMargin, kServiceMargin);
  row->addStretch();
  row->addWidget(cancel_);
  Fill(*this, body, buttons);
  WatchButtons();
}

void WorkDialog::Open() {
  FitToScreen(*this);
  show();
}

QProgressBar* WorkDialog::NewBar(const char* name, QWidget* parent) {
  auto* bar = new QProgressBar(parent);
  bar->setObjectName(name);
  bar->setAccessibleName("Progress");
  bar->setRange(0, 100);
  bar->setValue(0);
  return bar;
}

void WorkDialog::closeEvent(QCloseEvent* event) {
  reject();
  event->ignore();
}

}  // namespace morvane::maintenance
