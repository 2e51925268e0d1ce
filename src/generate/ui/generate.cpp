#include "generate/ui/generate.h"

#include <QCloseEvent>
#include <QCursor>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "generate/generate_report.h"
#include "generate/ui/generate_parts.h"
#include "generate/ui/run_result.h"
#include "generate/ui/test_frames.h"
#include "platform/qt/filtered_edit.h"
#include "platform/qt/held_enter.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::generate {
namespace {

constexpr int kMargin = 12;
constexpr int kComfortableCharacters = 128;  // its width
constexpr const char* kShufflingCaption = "&Generate Boards using Morvane generator";

}  // namespace

GenerateWindow::GenerateWindow(GenerateForm& form, QWidget* parent) : QDialog(parent), form_(form) {
  setObjectName("Generate");
  setWindowTitle("Generate New Boards Set");
  QWidget* body = MakeBody();
  QWidget* buttons = MakeButtons();
  Fill(*this, body, buttons);
  Show();
  const int width = kComfortableCharacters * fontMetrics().averageCharWidth();
  resize(width, body->heightForWidth(width) + buttons->heightForWidth(width));
  FitToScreen(*this);
}

QWidget* GenerateWindow::MakeBody() {
  auto* body = new QWidget(this);
  inputs_ = new QWidget(body);
  auto* choice = MakeChoice();
  tests_ = new TestFrames(form_, inputs_);
  auto* inputs = new QVBoxLayout(inputs_);
  inputs->setContentsMargins(0, 0, 0, 0);
  inputs->addLayout(choice);
  inputs->addWidget(tests_);
  result_ = new RunResult(form_, body);

  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(kMargin, kMargin, kMargin, 0);
  all->addWidget(inputs_);
  all->addWidget(result_);
  all->addStretch(1);
  return body;
}

QLayout* GenerateWindow::MakeChoice() {
  generate_yes_ = AddOption("generate_yes", "Generate Random Boards");
  generate_no_ = AddOption("generate_no", "Leave Boards Empty");
  connect(generate_yes_, &QRadioButton::toggled, this, [this](bool on) { form_.ChooseRandom(on); });
  txtFirstBoard_ = AddNumber("txtFirstBoard", &GenerateForm::ChangeFirstBoard);
  txtLastBoard_ = AddNumber("txtLastBoard", &GenerateForm::ChangeLastBoard);
  auto* options = new QVBoxLayout;
  options->setSpacing(kGap);
  options->addWidget(generate_yes_);
  options->addWidget(generate_no_);
  auto* range = new QFormLayout;
  range->setVerticalSpacing(kGap);
  range->addRow("First Board in Set:", txtFirstBoard_);
  range->addRow("Last Board in Set:", txtLastBoard_);
  auto* row = new QHBoxLayout;
  row->setSpacing(4 * kGap);
  row->addLayout(options);
  row->addLayout(range);
  lblReplaces_ = AddWords("lblReplaces", "What becomes of the current Board Set");
  row->addWidget(lblReplaces_, 1);
  return row;
}

QRadioButton* GenerateWindow::AddOption(const char* name, const char* caption) {
  auto* option = new QRadioButton(caption, inputs_);
  option->setObjectName(name);
  return option;
}

QLineEdit* GenerateWindow::AddNumber(const char* name,
                                     FilteredBox (GenerateForm::*change)(FilteredBox)) {
  auto* box = new FilteredEdit(
      [this, change](FilteredBox typed) { return (form_.*change)(std::move(typed)); }, inputs_);
  box->setObjectName(name);
  box->setFixedWidth(NumberWidth(*box));
  box->setAlignment(Qt::AlignRight);
  box->SelectWholeOnFocus();
  const GenerateFormState& now = form_.State();
  box->ShowText(txtFirstBoard_ == nullptr ? now.txtFirstBoard : now.txtLastBoard);
  return box;
}

/// Each generator's words stand beside its button.
QWidget* GenerateWindow::MakeButtons() {
  bigdeal_ = AddButton("bigdeal", "&Generate Boards using BigDeal", &GenerateForm::bigdeal);
  lblBigDeal_ = AddWords("lblBigDeal", "What BigDeal does");
  cmdDeal_ = AddButton("cmdDeal", kShufflingCaption, &GenerateForm::cmdDeal);
  cmdDeal_->setMinimumWidth(cmdDeal_->sizeHint().width());
  lblMorvane_ = AddWords("lblMorvane", "What the button makes");
  cmdExit_ = AddButton("cmdExit", "E&xit", &GenerateForm::cmdExit);
  auto* buttons = new QWidget(this);
  auto* grid = new QGridLayout(buttons);
  grid->setContentsMargins(kMargin, kGap, kMargin, kMargin);
  grid->setHorizontalSpacing(kMargin);
  grid->addWidget(bigdeal_, 0, 0);
  grid->addWidget(lblBigDeal_, 0, 1, Qt::AlignVCenter);
  grid->addWidget(cmdDeal_, 1, 0);
  grid->addWidget(lblMorvane_, 1, 1, Qt::AlignVCenter);
  grid->addWidget(cmdExit_, 1, 2);
  grid->setColumnStretch(1, 1);
  return buttons;
}

ShownValue* GenerateWindow::AddWords(const char* name, const char* spokenName) {
  auto* words = new ShownValue(name, spokenName, this);
  MakeWords(*words);
  return words;
}

QPushButton* GenerateWindow::AddButton(const char* name, const char* caption,
                                       void (GenerateForm::*press)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->installEventFilter(this);
  connect(button, &QPushButton::clicked, this, [this, press] { (form_.*press)(); });
  return button;
}

Point GenerateWindow::Mouse() const {
  const QPoint at = mapFromGlobal(QCursor::pos());
  return {at.x(), at.y()};
}

void GenerateWindow::Show() {
  const GenerateFormState& now = form_.State();
  // Disabling what has the focus would hand it on to the next control.
  if (now.Running && focusWidget() != nullptr) focusWidget()->clearFocus();
  inputs_->setEnabled(!now.Running);
  (now.generate_yes ? generate_yes_ : generate_no_)->setChecked(true);
  lblReplaces_->Show(ToQt(ReplacesWords(form_.Prog().Set)));
  tests_->Show();
  result_->Show();
  // On a small screen it is below what can be seen.
  if (now.Running) findChild<QScrollArea*>()->ensureWidgetVisible(result_);
  ShowButtons();
}

void GenerateWindow::ShowButtons() {
  const GenerateFormState& now = form_.State();
  bigdeal_->setVisible(now.bigdealVisible);
  lblBigDeal_->setVisible(now.bigdealVisible);
  lblBigDeal_->Show(ToQt(BigDealWords(form_.Prog())));
  bigdeal_->setAccessibleDescription(lblBigDeal_->text());
  cmdDeal_->setVisible(now.cmdDealVisible);
  lblMorvane_->setVisible(now.cmdDealVisible);
  lblMorvane_->Show(now.generate_yes ? kShufflingWords : kEmptyWords);
  cmdDeal_->setAccessibleDescription(lblMorvane_->text());
  cmdDeal_->setText(now.generate_yes ? kShufflingCaption : "&Generate Empty Board Set");
  for (QPushButton* button : {bigdeal_, cmdDeal_, cmdExit_}) button->setEnabled(!now.Running);
  static_cast<QPushButton*>(ControlOf(now.Default))->setDefault(true);
}

void GenerateWindow::ShowProgress() { result_->ShowProgress(); }

void GenerateWindow::ShowBits() { result_->ShowBits(); }

QWidget* GenerateWindow::ControlOf(FormControl control) const {
  switch (control) {
    case FormControl::kFirstBoard:
      return txtFirstBoard_;
    case FormControl::kLastBoard:
      return txtLastBoard_;
    case FormControl::kBigDeal:
      return bigdeal_;
    case FormControl::kCmdDeal:
      return cmdDeal_;
    default:
      return cmdExit_;
  }
}

void GenerateWindow::Focus(FormControl control) {
  QWidget* target = ControlOf(control);
  target->setFocus();
  // A box that closes just now still has the keyboard.
  if (auto* number = qobject_cast<QLineEdit*>(target)) number->selectAll();
}

void GenerateWindow::SelectNumbers() {
  txtLastBoard_->selectAll();
  txtFirstBoard_->selectAll();
}

/// One press generates. If the key is held down, it must not go on to what the run has made the
/// default: Exit, or the next set.
void GenerateWindow::keyPressEvent(QKeyEvent* event) {
  if (!IsHeldEnter(*event)) QDialog::keyPressEvent(event);
}

bool GenerateWindow::eventFilter(QObject* button, QEvent* event) {
  return IsHeldEnter(*event) || QDialog::eventFilter(button, event);
}

void GenerateWindow::closeEvent(QCloseEvent* event) {
  form_.cmdExit();
  event->setAccepted(form_.Closed());
}

}  // namespace morvane::generate
