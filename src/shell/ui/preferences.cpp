#include "shell/ui/preferences.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "platform/qt/filtered_edit.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/window_place.h"

namespace morvane::shell {
namespace {

constexpr int kMargin = 12;
constexpr int kColumnGap = 24;
constexpr int kRowGap = 4;  // otherwise the columns' gap counts for the rows within them too
constexpr int kNumberWidth = 60;

struct Option {
  const char* Name;
  const char* Caption;
};

/// Options one below the other, of which one is set; their numbers count from 0.
QLayout* MakeOptions(QButtonGroup& group, QWidget* parent, std::initializer_list<Option> options) {
  auto* column = new QVBoxLayout;
  column->setSpacing(kRowGap);
  for (const Option& option : options) {
    auto* button = new QRadioButton(option.Caption, parent);
    button->setObjectName(option.Name);
    group.addButton(button, static_cast<int>(group.buttons().size()));
    column->addWidget(button);
  }
  column->addStretch();
  return column;
}

/// The tab key comes to the one that is set.
void SetOption(const QButtonGroup& group, int which) {
  for (QAbstractButton* button : group.buttons()) {
    button->setChecked(group.id(button) == which);
    button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

/// Brings the operator back to a number, ready to be typed over.
void Correct(QLineEdit& box) {
  box.setFocus();
  box.selectAll();
}

/// The operator goes on to another control. To another window, to a box that came up, or where the
/// program puts the focus, is not leaving.
bool IsLeaving(const QEvent& event) {
  if (event.type() != QEvent::FocusOut) return false;
  const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
}

}  // namespace

PreferencesWindow::PreferencesWindow(Preferences& preferences, QWidget* parent)
    : QDialog(parent),
      preferences_(preferences),
      generators_(new QButtonGroup(this)),
      analyzers_(new QButtonGroup(this)) {
  setObjectName("Preferences");
  setWindowTitle("Preferences");
  Fill(*this, MakeFrames(), MakeButtons());
  connect(generators_, &QButtonGroup::idClicked, this,
          [this](int which) { preferences_.Generator = which; });
  connect(analyzers_, &QButtonGroup::idClicked, this,
          [this](int which) { preferences_.Analyzer = which; });
  Show();
  Setup_New_FirstBoard_->setFocus();
  FitToScreen(*this);
}

QWidget* PreferencesWindow::MakeFrames() {
  auto* body = new QWidget(this);
  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(kMargin, kMargin, kMargin, 0);
  const auto add = [body, all](const char* caption, std::initializer_list<QLayout*> parts) {
    auto* frame = new QGroupBox(caption, body);
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(kColumnGap);
    for (QLayout* part : parts) row->addLayout(part);
    row->addStretch();
    all->addWidget(frame);
  };
  using Frame = Preferences::Frame;
  add("Generate New BoardSet", {MakeRange(), MakeSwitches(Frame::kGenerate), MakeGenerators()});
  add("Load Boardset", {MakeSwitches(Frame::kLoad)});
  add("Save Boardset", {MakeSwitches(Frame::kSave)});
  add("Deal and Main Menu", {MakeSwitches(Frame::kDeal), MakeSwitches(Frame::kSound)});
  add("Analyze", {MakeAnalyzers()});
  all->addStretch();
  return body;
}

QLayout* PreferencesWindow::MakeRange() {
  Setup_New_FirstBoard_ = AddBoardBox("Setup_New_FirstBoard", true);
  Setup_New_LastBoard_ = AddBoardBox("Setup_New_LastBoard", false);
  auto* form = new QFormLayout;
  form->setVerticalSpacing(kRowGap);
  form->addRow("First Board in Set:", Setup_New_FirstBoard_);
  form->addRow("Last Board in Set:", Setup_New_LastBoard_);
  return form;
}

FilteredEdit* PreferencesWindow::AddBoardBox(const char* name, bool first) {
  auto* box = new FilteredEdit(
      [this, first](FilteredBox typed) {
        return first ? preferences_.ChangeFirstBoard(std::move(typed))
                     : preferences_.ChangeLastBoard(std::move(typed));
      },
      this);
  box->setObjectName(name);
  box->setFixedWidth(kNumberWidth);
  box->setAlignment(Qt::AlignRight);
  box->SelectWholeOnFocus();
  box->installEventFilter(this);
  return box;
}

QLayout* PreferencesWindow::MakeSwitches(Preferences::Frame frame) {
  auto* column = new QVBoxLayout;
  column->setSpacing(kRowGap);
  for (std::size_t i = 0; i < Preferences::kSwitches.size(); ++i) {
    const Preferences::Switch& each = Preferences::kSwitches[i];
    if (each.Where != frame) continue;
    switches_[i] = new QCheckBox(each.Caption, this);
    switches_[i]->setObjectName(each.Control);
    if (each.Key.Name == kDealShow.Name) {
      switches_[i]->setToolTip(
          "The statistics of the main window follow when Morvane starts again");
    }
    connect(switches_[i], &QCheckBox::clicked, this,
            [this, i](bool on) { preferences_.On[i] = on; });
    column->addWidget(switches_[i]);
  }
  if (frame == Preferences::Frame::kSound) column->addWidget(MakeHear(), 0, Qt::AlignLeft);
  column->addStretch();
  return column;
}

QPushButton* PreferencesWindow::MakeHear() {
  auto* hear = new QPushButton("Hear it", this);
  hear->setObjectName("Hear");
  hear->setAutoDefault(false);
  hear->setToolTip("Plays the sound of a fault now");
  connect(hear, &QPushButton::clicked, this, [this] { preferences_.Hear(); });
  return hear;
}

QLayout* PreferencesWindow::MakeGenerators() {
  return MakeOptions(*generators_, this,
                     {{"Gen0", "Use BigDeal only"},
                      {"Gen1", "Use Morvane generator only"},
                      {"Gen2", "Show both generators"}});
}

QLayout* PreferencesWindow::MakeAnalyzers() {
  return MakeOptions(*analyzers_, this,
                     {{"Analize1", "Use Bo Haglund DDS"}, {"Analize2", "Use Deep Finesse"}});
}

/// A click on a button leaves no box: `Exit` has both numbers checked, `Restore` replaces them.
QWidget* PreferencesWindow::MakeButtons() {
  auto* restore = new QPushButton("Restore Defaults", this);
  restore->setObjectName("Restore");
  restore->setAutoDefault(false);
  restore->setFocusPolicy(Qt::TabFocus);
  restore->setToolTip("Writes the defaults of all options but the dealing of subsets at once");
  connect(restore, &QPushButton::clicked, this, [this] {
    preferences_.Restore();
    Show();
  });
  auto* exit = new QPushButton("Exit", this);
  exit->setObjectName("Exit");
  exit->setDefault(true);
  exit->setFocusPolicy(Qt::TabFocus);
  exit->setToolTip("Keeps the options as they stand here");
  connect(exit, &QPushButton::clicked, this, [this] { Close(); });
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->addWidget(restore);
  row->addStretch();
  row->addWidget(exit);
  return buttons;
}

void PreferencesWindow::Show() {
  Setup_New_FirstBoard_->ShowText(preferences_.Setup_New_FirstBoard);
  Setup_New_LastBoard_->ShowText(preferences_.Setup_New_LastBoard);
  for (std::size_t i = 0; i < switches_.size(); ++i) switches_[i]->setChecked(preferences_.On[i]);
  SetOption(*generators_, preferences_.Generator);
  SetOption(*analyzers_, preferences_.Analyzer);
}

/// A number is looked at when its control has been left, not in the middle of that.
bool PreferencesWindow::eventFilter(QObject* watched, QEvent* event) {
  if (IsLeaving(*event)) {
    left_.push_back(static_cast<FilteredEdit*>(watched));
    QApplication::postEvent(this, new QEvent(QEvent::User));
  }
  return QDialog::eventFilter(watched, event);
}

void PreferencesWindow::customEvent(QEvent* /*event*/) {
  // Keys that come at once leave both boxes before this comes up.
  const auto left = std::exchange(left_, {});
  if (telling_ || preferences_.Closed()) return;
  telling_ = true;
  const auto wrong = std::find_if(left.begin(), left.end(), [this](const FilteredEdit* box) {
    return !(box == Setup_New_FirstBoard_ ? preferences_.LeaveFirstBoard()
                                          : preferences_.LeaveLastBoard());
  });
  telling_ = false;
  if (wrong != left.end()) Correct(**wrong);
}

void PreferencesWindow::Close() {
  if (telling_) return;
  telling_ = true;
  const Preferences::Wrong wrong = preferences_.Close();
  telling_ = false;
  if (wrong == Preferences::Wrong::kFirstBoard) Correct(*Setup_New_FirstBoard_);
  if (wrong == Preferences::Wrong::kLastBoard) Correct(*Setup_New_LastBoard_);
  if (preferences_.Closed()) hide();
}

}  // namespace morvane::shell
