#include "machine/ui/sort_prog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "machine/ui/history_box.h"
#include "machine/ui/options_panel.h"
#include "machine/ui/run_header.h"
#include "machine/ui/run_widgets.h"
#include "machine/ui/test_panel.h"
#include "platform/qt/scrolling_part.h"

namespace morvane::machine {
namespace {

constexpr QSize kComfortable{860, 560};

}  // namespace

SortProg::SortProg(Program& program, SortingRun& run, QWidget* parent)
    : RunDialog(program, run, parent),
      run_(run),
      header_(new RunHeader(run, this)),
      history_(new HistoryBox(run, this)),
      options_(new OptionsPanel(run, this)),
      test_(new TestPanel(run, this)) {
  MakeButtons();
  Fill(*this, PlaceBody(), PlaceCommands());
  Appear(kComfortable);
}

SortProg::~SortProg() { hide(); }

void SortProg::MakeButtons() {
  cmdSort_ = NewButton(
      "cmdSort", "Sort", [this] { run_.cmdSort(); }, this);
  cmdSort_->setShortcut(Qt::ALT | Qt::Key_S);  // the caption has no letter of its own
  cmdSort_->setFont(Enlarged(cmdSort_->font(), 1.1));
  cmdSort_->setMinimumWidth(4 * kBigButton);
  cmdSortBreak_ = NewBreakButton(
      "cmdSortBreak", [this] { run_.cmdBreak(); }, this);
  MakeExit();
}

QWidget* SortProg::PlaceBody() {
  auto* body = new QWidget(this);
  auto* settings = new QVBoxLayout;
  settings->addWidget(options_);
  settings->addWidget(test_, 1);
  settings->addStretch();
  auto* sides = new QHBoxLayout;
  sides->setSpacing(kRunSpacing);
  sides->addWidget(history_, 1);
  sides->addLayout(settings);
  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(kRunMargin, kRunMargin, kRunMargin, 0);
  all->setSpacing(kRunSpacing);
  all->addWidget(header_, 1);
  all->addLayout(sides, 2);
  return body;
}

QWidget* SortProg::PlaceCommands() {
  auto* commands = new QWidget(this);
  auto* row = new QHBoxLayout(commands);
  row->setContentsMargins(kRunMargin, kRunSpacing, kRunMargin, kRunMargin);
  row->setSpacing(kRunSpacing);
  row->addWidget(cmdSort_);
  row->addWidget(cmdSortBreak_);
  row->addStretch();
  row->addWidget(cmdExit_);
  return commands;
}

void SortProg::ShowState() { header_->ShowState(); }

void SortProg::ShowControls() {
  const RunControls& now = run_.Window().Controls;
  ShowFrame();
  cmdSort_->setEnabled(now.cmdSort);
  cmdSortBreak_->setEnabled(now.cmdBreak);
  options_->setVisible(run_.Window().SettingsShown);
  options_->Show();
  test_->Show();
  history_->Show();
  cmdSort_->setDefault(true);
  if (now.cmdSort && focusWidget() == nullptr) cmdSort_->setFocus();
  ShowState();
}

}  // namespace morvane::machine
