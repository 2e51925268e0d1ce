#include "maintenance/ui/aside_page.h"

#include <QHBoxLayout>
#include <QTabWidget>
#include <utility>

#include "platform/qt/scrolling_part.h"

namespace morvane::maintenance {

AsidePage::AsidePage(QWidget& content, int place, const char* caption, QTabWidget& tabs,
                     QHBoxLayout& row)
    : content_(content),
      place_(place),
      caption_(caption),
      tabs_(tabs),
      row_(row),
      part_(new ScrollingPart(&content, &tabs)) {
  tabs_.insertTab(place_, part_, caption_);
}

int AsidePage::Width() const { return part_->sizeHint().width(); }

void AsidePage::Place(bool beside) {
  if (std::exchange(beside_, beside) == beside) return;
  QWidget* focus = tabs_.window()->focusWidget();
  const bool isIn = focus != nullptr && content_.isAncestorOf(focus);
  if (beside) {
    tabs_.removeTab(tabs_.indexOf(part_));
    row_.addWidget(part_, 1);
    part_->show();
  } else {
    row_.removeWidget(part_);
    tabs_.insertTab(place_, part_, caption_);
    if (isIn) tabs_.setCurrentIndex(place_);
  }
  if (isIn) focus->setFocus();
}

}  // namespace morvane::maintenance
