#include "shell/ui/statistics_panel.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>

#include "platform/qt/shown_text.h"

namespace morvane::shell {
namespace {

constexpr int kSpacing = 8;
constexpr int kTextMargins = 14;  // of a caption in a list header

struct Column {
  const char* Caption;
  int Width;
};

/// A width in which the caption would be cut grows with the font.
void AddColumns(QTreeWidget& view, std::initializer_list<Column> columns) {
  QStringList captions;
  for (const Column& column : columns) captions << column.Caption;
  view.setHeaderLabels(captions);
  int at = 0;
  for (const Column& column : columns) {
    const int text = view.header()->fontMetrics().horizontalAdvance(column.Caption) + kTextMargins;
    view.setColumnWidth(at++, std::max(column.Width, text));
  }
}

/// Wide enough for all its columns.
QTreeWidget* NewListView(const char* name, const char* tip, std::initializer_list<Column> columns,
                         QWidget* parent) {
  auto* view = new QTreeWidget(parent);
  view->setObjectName(name);
  view->setToolTip(tip);
  view->setRootIsDecorated(false);
  view->header()->setStretchLastSection(false);
  AddColumns(*view, columns);
  view->setMinimumWidth(view->header()->length() + 2 * view->frameWidth() + kTextMargins);
  return view;
}

}  // namespace

StatisticsPanel::StatisticsPanel(QWidget* parent)
    : QWidget(parent),
      HandStat_(NewListView("HandStat", "Hands statistic",
                            {{"Hand:", 100},
                             {"   N   ", 30},
                             {"   S   ", 30},
                             {"   E   ", 30},
                             {"   W   ", 30},
                             {"  NS  ", 30},
                             {"  EW  ", 30}},
                            this)),
      lbxShapes_(NewListView("lbxShapes", "Actual and expected Hand shapes",
                             {{"Shape", 34}, {"Actual", 34}, {"Expected", 52}, {"Diffrence", 52}},
                             this)) {
  HandStat_->setAccessibleName("Hand Statistics");
  lbxShapes_->setAccessibleName("Hand Shapes");
  auto* hands = new QVBoxLayout;
  hands->addWidget(new QLabel("Hand Statistics:", this));
  hands->addWidget(HandStat_, 1);
  hands->addWidget(MakeExtremes());
  auto* shapes = new QVBoxLayout;
  shapes->addWidget(new QLabel("Hand Shapes:", this));
  shapes->addWidget(lbxShapes_, 1);
  auto* both = new QHBoxLayout(this);
  both->setContentsMargins(0, 0, 0, 0);
  both->setSpacing(kSpacing);
  both->addLayout(hands, 1);
  both->addLayout(shapes);
}

QWidget* StatisticsPanel::MakeExtremes() {
  auto* extremes = new QWidget(this);
  const auto box = [extremes](const char* name, const char* tip) {
    return new ShownText(name, tip, extremes);
  };
  auto* form = new QFormLayout(extremes);
  form->setContentsMargins(0, 0, 0, 0);
  form->addRow("Max frequency:",
               box("txtMaxFreq", "Maximum card frequency for any Hand (ave 25%)"));
  form->addRow("Min frequency:",
               box("txtMinFreq", "Minimum card frequency for any Hand (ave 25%)"));
  form->addRow("Inner Similarity:",
               box("txtInDeals", "Board numbers for similar hands within the current set"));
  return extremes;
}

}  // namespace morvane::shell
