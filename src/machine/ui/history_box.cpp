#include "machine/ui/history_box.h"

#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "machine/machine_run.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::machine {
namespace {

constexpr int kLeastLines = 3;
constexpr int kComfortableLines = 4;

/// A list as high as these lines at most, which gives way where the window is low.
class Lines final : public QListWidget {
 public:
  using QListWidget::QListWidget;
  [[nodiscard]] QSize sizeHint() const override { return HighAs(kComfortableLines); }
  [[nodiscard]] QSize minimumSizeHint() const override { return HighAs(kLeastLines); }

 private:
  [[nodiscard]] QSize HighAs(int lines) const {
    return {20 * fontMetrics().averageCharWidth(),
            lines * (fontMetrics().height() + 2) + 2 * frameWidth()};
  }
};

}  // namespace

HistoryBox::HistoryBox(const MachineRun& run, QWidget* parent)
    : QWidget(parent),
      run_(run),
      lblLeft_(new ShownValue("lblLeft", "Left to do", this)),
      lstHistory_(new Lines(this)) {
  lstHistory_->setObjectName("lstHistory");
  lstHistory_->setAccessibleName("The last boards of the run");
  lstHistory_->setSelectionMode(QAbstractItemView::NoSelection);
  lstHistory_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  // A bar along the bottom would cover a line of the few.
  lstHistory_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lstHistory_->setWordWrap(true);
  lstHistory_->setResizeMode(QListView::Adjust);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(lblLeft_);
  column->addWidget(lstHistory_, 1);
}

void HistoryBox::Show() {
  const RunHistory& history = run_.History();
  lblLeft_->setVisible(run_.Kind() != RunKind::kSort);
  lblLeft_->Show(ToQt(LeftLine(run_.Left(), history.SecondsEach())));
  const std::size_t fresh = history.Count() - shown_;
  for (std::size_t i = std::min(fresh, history.Entries().size()); i > 0; --i) {
    lstHistory_->insertItem(0, ToQt(HistoryLine(history.Entries()[i - 1])));
  }
  shown_ = history.Count();
  while (lstHistory_->count() > static_cast<int>(RunHistory::kMost)) {
    delete lstHistory_->takeItem(lstHistory_->count() - 1);
  }
  if (fresh > 0) lstHistory_->scrollToTop();
  // It must not hold the focus when the button that starts the next board comes on.
  const bool read = lstHistory_->count() > 0 && run_.Window().Controls.Options;
  lstHistory_->setFocusPolicy(read ? Qt::StrongFocus : Qt::NoFocus);
}

}  // namespace morvane::machine
