#include "shell/ui/set_numbers.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <utility>

#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"

namespace morvane::shell {
namespace {

constexpr int kColumnGap = 24;
constexpr int kNumberWidth = 60;

}  // namespace

SetNumbers::SetNumbers(std::function<void()> toggleStatistics, QWidget* parent) : QWidget(parent) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  txtFirstBoard_ =
      AddNumber(*grid, 0, 0, "First Board:", "txtFirstBoard", "First Board Number of the set");
  txtLastBoard_ =
      AddNumber(*grid, 1, 0, "Last Board:", "txtLastBoard", "Last Board Number of the set");
  txtCount_ = AddNumber(*grid, 0, 3, "Boards in Set:", "txtCount", "Number of boards in a set.");
  txtCompleted_ = AddNumber(*grid, 1, 3, "Completed Boards:", "txtCompleted",
                            "Number of completed boards in a set.");
  grid->setColumnMinimumWidth(2, kColumnGap);
  grid->setColumnStretch(5, 1);
  ShowStat_ = new QPushButton(this);
  ShowStat_->setObjectName("ShowStat");
  ShowStat_->setAutoDefault(true);  // outside a dialog Enter presses no button else
  connect(ShowStat_, &QPushButton::clicked, this, std::move(toggleStatistics));
  grid->addWidget(ShowStat_, 1, 6);
}

ShownText* SetNumbers::AddNumber(QGridLayout& grid, int row, int column, const char* caption,
                                 const char* name, const char* tip) {
  auto* box = new ShownText(name, tip, this);
  box->setFixedWidth(kNumberWidth);
  box->setAlignment(Qt::AlignRight);
  auto* label = new QLabel(caption, this);
  label->setBuddy(box);
  grid.addWidget(label, row, column);
  grid.addWidget(box, row, column + 1);
  return box;
}

void SetNumbers::Show(const StatisticsPage& page) {
  txtFirstBoard_->setText(ToQt(page.FirstBoard));
  txtLastBoard_->setText(ToQt(page.LastBoard));
  txtCount_->setText(ToQt(page.Count));
  txtCompleted_->setText(ToQt(page.Completed));
}

void SetNumbers::ShowCaption(bool statisticsShown) {
  ShowStat_->setText(statisticsShown ? "&Hide Statistics" : "&Show Statistics");
}

void SetNumbers::FocusButton() { ShowStat_->setFocus(); }

}  // namespace morvane::shell
