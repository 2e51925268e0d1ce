#include "print/ui/hand_record.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/filtered_edit.h"
#include "platform/qt/held_enter.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"
#include "print/layout.h"
#include "print/ui/layout_picture.h"

namespace morvane::print {
namespace {

using Box = HandRecordBox;
using Option = HandRecordOption;

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kRowGap = 3;
constexpr int kNumberWidth = 56;

QVBoxLayout* NewColumn(QGroupBox& frame) {
  auto* column = new QVBoxLayout(&frame);
  column->setSpacing(kRowGap);
  return column;
}

}  // namespace

HandRecordWindow::HandRecordWindow(HandRecord& dialog, QWidget* parent)
    : QDialog(parent), dialog_(dialog), options_(dialog) {
  setObjectName("HandRecord");
  setWindowTitle("Print");
  QWidget* body = MakeBody();
  QWidget* buttons = MakeButtons();
  dialog.ShowOn(this);
  Show();  // first, for the room that the window asks for is that of what it shows
  ShowPictures();
  Fill(*this, body, buttons);
  Correct(Box::kFromBoard);
  FitToScreen(*this);
}

HandRecordWindow::~HandRecordWindow() {
  hide();
  dialog_.ShowOn(nullptr);
}

QWidget* HandRecordWindow::MakeBody() {
  auto* body = new QWidget(this);
  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(kMargin, kMargin, kMargin, 0);
  all->addWidget(MakeFrames());
  all->addWidget(MakeRun());
  return body;
}

/// In the order in which the tab key walks through them.
QWidget* HandRecordWindow::MakeFrames() {
  frames_ = new QWidget(this);
  auto* grid = new QGridLayout(frames_);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(kSpacing);
  auto* left = new QVBoxLayout;
  left->setSpacing(kSpacing);
  left->addWidget(MakeModes());
  left->addWidget(MakeBoards());
  left->addWidget(MakeScoreCards());
  left->addStretch();
  grid->addLayout(left, 0, 0, 2, 1);
  grid->addWidget(MakeLayouts(), 0, 1, 1, 2);
  auto* middle = new QVBoxLayout;
  middle->setSpacing(kSpacing);
  middle->addWidget(MakeLooks());
  middle->addWidget(MakeStatistics());
  middle->addStretch();
  grid->addLayout(middle, 1, 1);
  auto* right = new QVBoxLayout;
  right->setSpacing(kSpacing);
  right->addWidget(MakeNational());
  right->addWidget(MakeTen());
  right->addStretch();
  grid->addLayout(right, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setRowStretch(1, 1);
  return frames_;
}

QWidget* HandRecordWindow::MakeRun() {
  run_ = new QWidget(this);
  lblPrinting_ = new ShownValue("lblPrinting", "Printing", run_);
  Printing_progress_ = new QProgressBar(run_);
  Printing_progress_->setObjectName("Printing_progress");
  Printing_progress_->setAccessibleName("Boards printed");
  Printing_progress_->setFormat("%v of %m");
  Printing_progress_->setFocusPolicy(Qt::StrongFocus);  // there is nothing else to be on
  auto* column = new QVBoxLayout(run_);
  column->setContentsMargins(0, 0, 0, 0);
  column->addStretch();
  column->addWidget(lblPrinting_, 0, Qt::AlignHCenter);
  column->addWidget(Printing_progress_);
  column->addStretch();
  return run_;
}

QGroupBox* HandRecordWindow::AddFrame(const char* name, const char* caption) {
  auto* frame = new QGroupBox(caption, frames_);
  frame->setObjectName(name);
  return frame;
}

QGroupBox* HandRecordWindow::MakeModes() {
  QGroupBox* frame = AddFrame("PrintMode", "Print Mode:");
  options_.AddChoices(Option::kMode, *frame, *NewColumn(*frame),
                      {{"PrintMode1", "Print Hand Records to printer", 0},
                       {"PrintMode2", "Print Score Cards", 1},
                       {"PrintMode3", "Print Hand Records to the text file", 2}});
  return frame;
}

QGroupBox* HandRecordWindow::MakeBoards() {
  QGroupBox* frame = AddFrame("frameBoards", "Boards:");
  auto* file = new ShownText("txtFileName", "File name of the current Board Set", frame);
  file->setText(ToQt(dialog_.Set().BoardSetFile));
  const auto shown = [frame](const char* name, const char* tip, int number) {
    auto* box = new ShownText(name, tip, frame);
    box->setText(QString::number(number));
    box->setAlignment(Qt::AlignRight);
    return box;
  };
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(kRowGap);
  grid->setColumnStretch(4, 1);
  auto* fileLabel = new QLabel("File Name:", frame);
  fileLabel->setBuddy(file);
  grid->addWidget(fileLabel, 0, 0);
  grid->addWidget(file, 0, 1, 1, 4);
  const BoardSet& set = dialog_.Set();
  AddNumber(*grid, 1, 0, "First Board:",
            shown("txtFirstBoard", "First board of the current Board Set", set.FirstBoard));
  AddNumber(*grid, 1, 2, "Last Board:",
            shown("txtLastBoard", "Last board of the current Board Set", set.LastBoard));
  AddNumber(*grid, 2, 0, "&From Board:", AddBox(Box::kFromBoard, "txtFromBoard", frame));
  AddNumber(*grid, 2, 2, "&To Board:", AddBox(Box::kToBoard, "txtToBoard", frame));
  AddNumber(*grid, 3, 0, "C&opies:", AddBox(Box::kCopies, "txtCopies", frame));
  FilteredEdit* header = AddBox(Box::kHeader, "Header", frame);
  auto* label =
      new QLabel("&Event Name - will be printed on the top of the Hands Record pages", frame);
  label->setBuddy(header);
  label->setWordWrap(true);
  grid->addWidget(label, 4, 0, 1, 5);
  grid->addWidget(header, 5, 0, 1, 5);
  return frame;
}

FilteredEdit* HandRecordWindow::AddBox(Box which, const char* name, QWidget* parent) {
  auto* box = new FilteredEdit(
      [this, which](FilteredBox typed) { return dialog_.Change(which, std::move(typed)); }, parent);
  box->setObjectName(name);
  if (which != Box::kHeader) {
    box->setAlignment(Qt::AlignRight);
    box->SelectWholeOnFocus();
  }
  boxes_[static_cast<std::size_t>(which)] = box;
  return box;
}

void HandRecordWindow::AddNumber(QGridLayout& grid, int row, int column, const char* caption,
                                 QWidget* box) {
  auto* label = new QLabel(caption, box->parentWidget());
  label->setBuddy(box);
  box->setFixedWidth(kNumberWidth);
  grid.addWidget(label, row, column);
  grid.addWidget(box, row, column + 1);
}

QGroupBox* HandRecordWindow::MakeLayouts() {
  QGroupBox* frame = AddFrame("frameBoardsPerPage", "Boards per Page:");
  auto* column = NewColumn(*frame);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  options_.AddChoices(
      Option::kPerPage, *frame, *row,
      {{"Option2", "10", 1}, {"Option3", "12", 2}, {"Option4", "15", 3}, {"Option5", "18", 4}});
  for (int value = 1; value <= static_cast<int>(Layouts.size()); ++value) {
    QRadioButton& button = options_.Button(Option::kPerPage, value);
    button.setIconSize(LayoutPictureSize());
    button.setAccessibleName(button.text() + " boards per page");
  }
  lblChoose_ = new QLabel("Choose how many boards are to stand on a page", frame);
  lblChoose_->setObjectName("lblChoose");
  lblChoose_->setWordWrap(true);
  QSizePolicy keepsItsPlace = lblChoose_->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  lblChoose_->setSizePolicy(keepsItsPlace);
  column->addWidget(lblChoose_);
  return frame;
}

QGroupBox* HandRecordWindow::MakeLooks() {
  QGroupBox* frame = AddFrame("frameOptions", "Options:");
  auto* column = NewColumn(*frame);
  column->addWidget(options_.AddSwitch(Option::kColour, "ColorPrint", "Print in &Color", frame));
  column->addWidget(options_.AddSwitch(Option::kAnalysis, "DeepPrint", "Print &Analysis", frame));
  column->addWidget(options_.AddSwitch(Option::kHcp, "PrintHCP", "Print &HCP", frame));
  return frame;
}

QGroupBox* HandRecordWindow::MakeStatistics() {
  QGroupBox* frame = AddFrame("frameStatistics", "Statistics:");
  options_.AddChoices(Option::kStatistics, *frame, *NewColumn(*frame),
                      {{"Stat1", "Do not print Statistics", 1},
                       {"Stat2", "Print Statistics before first board", 2},
                       {"Stat3", "Print Statistics after last board", 3}});
  return frame;
}

QGroupBox* HandRecordWindow::MakeTen() {
  QGroupBox* frame = AddFrame("frameTen", "Ten:");
  auto* row = new QHBoxLayout(frame);
  options_.AddChoices(Option::kTen, *frame, *row,
                      {{"Ten1", "As a letter", 1}, {"Ten2", "As 10", 2}});
  row->addStretch();
  return frame;
}

QGroupBox* HandRecordWindow::MakeNational() {
  QGroupBox* frame = AddFrame("frameNational", "National Settings:");
  options_.AddChoices(Option::kNational, *frame, *NewColumn(*frame),
                      {{"National_1", "Standard (AKQJ)", 0},
                       {"National_2", "French    (ARDV)", 1},
                       {"National_3", "French    (1RDV)", 2},
                       {"National_4", "German  (AKDB)", 3},
                       {"National_5", "Dutch      (AHVB)", 4},
                       {"National_6", "Danish    (EKDB)", 5},
                       {"National_7", "Swedish (EKDKn)", 6}});
  return frame;
}

QGroupBox* HandRecordWindow::MakeScoreCards() {
  QGroupBox* frame = AddFrame("frameScoreCards", "Score Cards:");
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(kRowGap);
  grid->addWidget(
      options_.AddSwitch(Option::kPrintBoards, "chkPrintBoards", "Print &Boards", frame), 0, 0, 1,
      3);
  grid->addWidget(
      options_.AddSwitch(Option::kPrintNS, "chkPrintNS", "Print &NS Pair Number", frame), 1, 0, 1,
      3);
  FilteredEdit* offset = AddBox(Box::kNsOffset, "txtNSoffset", frame);
  offset->setToolTip("Number of NS pair to be printed onthe first row of the Score Card");
  AddNumber(*grid, 2, 0, "F&irst NS Pair:", offset);
  grid->setColumnStretch(2, 1);
  return frame;
}

QPushButton* HandRecordWindow::AddButton(const char* name, const char* caption, const char* tip,
                                         Command command) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->installEventFilter(this);
  connect(button, &QPushButton::clicked, this, [this, command] { (dialog_.*command)(); });
  return button;
}

QWidget* HandRecordWindow::MakeButtons() {
  cmdPrinterSetup_ = AddButton("cmdPrinterSetup", "Printer &Setup", "Printer, paper and copies",
                               &HandRecord::cmdPrinterSetup);
  cmdPreview_ = AddButton("cmdPreview", "Pre&view", "Shows the pages as they will be printed",
                          &HandRecord::cmdPreview);
  cmdPdf_ =
      AddButton("cmdPdf", "Save as P&DF...", "Writes the pages into a file", &HandRecord::cmdPdf);
  cmdPrint_ = AddButton("cmdPrint", "&Print", "Prints the boards (Return)", &HandRecord::cmdPrint);
  cmdPrint_->setDefault(true);
  cmdExit_ = new QPushButton("E&xit", this);
  cmdExit_->setObjectName("cmdExit");
  cmdExit_->setToolTip("Closes this window (Esc)");
  connect(cmdExit_, &QPushButton::clicked, this, &HandRecordWindow::reject);
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(kMargin, kSpacing, kMargin, kMargin);
  for (QWidget* button : {cmdPrinterSetup_, cmdPreview_, cmdPdf_}) row->addWidget(button);
  row->addStretch();
  row->addWidget(cmdPrint_);
  row->addWidget(cmdExit_);
  return buttons;
}

void HandRecordWindow::Show() {
  options_.Show();
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    boxes_[i]->ShowText(dialog_.Text(static_cast<Box>(i)));
    boxes_[i]->setEnabled(dialog_.Matters(static_cast<Box>(i)));
  }
  lblChoose_->setVisible(!dialog_.CanPrint());
  if (dialog_.Printing()) {
    HideFrames();
  } else {
    ShowFrames();
  }
}

void HandRecordWindow::ShowButtons() {
  const bool idle = !dialog_.Printing();
  cmdPrint_->setEnabled(idle && dialog_.CanPrint());
  cmdPreview_->setEnabled(cmdPrint_->isEnabled() && dialog_.HasPages());
  cmdPdf_->setEnabled(cmdPreview_->isEnabled());
  cmdPrinterSetup_->setEnabled(idle && dialog_.HasPages());
  cmdExit_->setEnabled(idle);
}

void HandRecordWindow::HideFrames() {
  focus_ = focusWidget();
  const int boards = dialog_.BoardsInAll();
  lblPrinting_->Show(QString(boards == 1 ? "Printing %1 board" : "Printing %1 boards").arg(boards));
  Printing_progress_->setRange(0, dialog_.BoardsInAll());
  ShowProgress();
  frames_->hide();
  run_->show();
  Printing_progress_->setFocus();
  ShowButtons();
}

void HandRecordWindow::ShowFrames() {
  run_->hide();
  frames_->show();
  ShowButtons();
  if (QWidget* focus = std::exchange(focus_, nullptr)) focus->setFocus();
}

void HandRecordWindow::ShowProgress() { Printing_progress_->setValue(dialog_.BoardsDone()); }

void HandRecordWindow::ShowPictures() {
  for (int value = 1; value <= static_cast<int>(Layouts.size()); ++value) {
    options_.Button(Option::kPerPage, value).setIcon(LayoutPicture(LayoutOf(value), *this));
  }
}

void HandRecordWindow::Correct(Box box) {
  FilteredEdit* edit = boxes_[static_cast<std::size_t>(box)];
  edit->setFocus();
  edit->selectAll();
}

void HandRecordWindow::reject() {
  dialog_.cmdExit();
  if (dialog_.Closed()) hide();
}

void HandRecordWindow::closeEvent(QCloseEvent* event) {
  reject();
  event->setAccepted(dialog_.Closed());
}

void HandRecordWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && cmdExit_ != nullptr) ShowPictures();
}

/// One press prints. A key that is held down must not print again when the run is over.
void HandRecordWindow::keyPressEvent(QKeyEvent* event) {
  if (!IsHeldEnter(*event)) QDialog::keyPressEvent(event);
}

bool HandRecordWindow::eventFilter(QObject* button, QEvent* event) {
  return IsHeldEnter(*event) || QDialog::eventFilter(button, event);
}

}  // namespace morvane::print
