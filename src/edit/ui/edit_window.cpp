#include "edit/ui/edit_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "edit/board_text.h"
#include "edit/ui/command_buttons.h"
#include "edit/ui/edit_widgets.h"
#include "edit/ui/hand_box.h"
#include "edit/ui/rank_buttons.h"
#include "edit/ui/suit_box.h"
#include "edit/ui/swap_buttons.h"
#include "edit/ui/table_middle.h"
#include "edit/ui/tricks_table.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::edit {
namespace {

using Command = Editor::Command;

constexpr int kMargin = 10;
constexpr int kSpacing = 6;

}  // namespace

EditWindow::EditWindow(Editor& editor, QWidget* parent) : QDialog(parent), editor_(editor) {
  setObjectName("Edit");
  setWindowTitle("Edit Board");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  MakeParts();
  QWidget* body = PlaceBody();
  QWidget* commands = PlaceCommands();
  editor.ShowOn(this);
  Show();  // first, for the room that the window asks for is that of what it shows
  Fill(*this, body, commands);
  FocusSuitBox();
  FitToScreen(*this);
}

EditWindow::~EditWindow() {
  hide();
  editor_.ShowOn(nullptr);
}

/// In the order in which the tab key walks through them, round the table first.
void EditWindow::MakeParts() {
  for (int hand = kNorth; hand <= kWest; ++hand) {
    hands_[static_cast<std::size_t>(hand)] = new HandBox(editor_, hand, this);
  }
  middle_ = new TableMiddle(editor_, this);
  ranks_ = new RankButtons(
      editor_, [this] { FocusSuitBox(); }, this);
  commands_ = new CommandButtons(editor_, this);
  tricks_ = new TricksTable(editor_, this);
}

QWidget* EditWindow::PlaceBody() {
  auto* body = new QWidget(this);
  auto* table = new QVBoxLayout;
  table->addLayout(PlaceTable());
  table->addWidget(ranks_);
  table->addStretch();
  auto* halves = new QHBoxLayout(body);
  halves->setContentsMargins(kMargin, kMargin, kMargin, 0);
  halves->setSpacing(kSpacing);
  halves->addLayout(table, 1);
  halves->addLayout(PlaceSides());
  return body;
}

QLayout* EditWindow::PlaceTable() {
  auto* grid = new QGridLayout;
  grid->setSpacing(kSpacing);
  grid->addWidget(hands_[kNorth], 0, 1);
  grid->addWidget(hands_[kWest], 1, 0);
  grid->addWidget(middle_, 1, 1, Qt::AlignCenter);
  grid->addWidget(hands_[kEast], 1, 2);
  grid->addWidget(hands_[kSouth], 2, 1);
  auto* frames = new QHBoxLayout;
  lblDeal_ = AddFrame(*frames, "fraDealer", "Dealer:", "lblDeal");
  lblVul_ = AddFrame(*frames, "fraVuln", "Vulnerable:", "lblVul");
  grid->addLayout(frames, 0, 0, Qt::AlignTop);
  grid->addWidget(PlaceCurrentBoard(), 0, 2, Qt::AlignTop);
  grid->addWidget(tricks_, 2, 0, Qt::AlignCenter);
  auto* held = new QVBoxLayout;
  lblClip_ = AddFrame(*held, "fraClip", "Held board:", "lblClip");
  lblClip_->parentWidget()->setToolTip("The board that Paste inserts");
  grid->addLayout(held, 2, 2, Qt::AlignTop);
  return grid;
}

ShownValue* EditWindow::AddFrame(QBoxLayout& row, const char* frame, const char* caption,
                                 const char* value) {
  auto* group = new QGroupBox(caption, this);
  group->setObjectName(frame);
  auto* label = new ShownValue(value, caption, group);
  auto* inside = new QHBoxLayout(group);
  MakeTight(*inside);
  inside->addWidget(label);
  row.addWidget(group);
  return label;
}

QGroupBox* EditWindow::PlaceCurrentBoard() {
  auto* frame = new QGroupBox("Current Board", this);
  frame->setObjectName("fraEdit");
  lblBoard_ = new ShownValue("lblBoard", "Current Board", frame);
  QFont bold = lblBoard_->font();
  bold.setBold(true);
  lblBoard_->setFont(bold);
  auto* column = new QVBoxLayout(frame);
  MakeTight(*column);
  column->addWidget(lblBoard_);
  auto* walk = commands_->Place({Command::kPrev, Command::kNext, Command::kFirst, Command::kLast});
  walk->setContentsMargins(0, 0, 0, 0);
  column->addLayout(walk);
  return frame;
}

QLayout* EditWindow::PlaceSides() {
  const auto group = [this](const char* caption, std::initializer_list<Command> commands) {
    auto* frame = new QGroupBox(caption, this);
    frame->setLayout(commands_->Place(commands));
    return frame;
  };
  auto* side = new QVBoxLayout;
  side->setSpacing(kSpacing);
  side->addWidget(group("Changes", {Command::kAccept, Command::kRestore, Command::kUndo,
                                    Command::kRedo, Command::kRandom, Command::kClear}));
  side->addWidget(new SwapButtons(editor_, this));
  side->addWidget(group("Whole boards", {Command::kAdd, Command::kInsert, Command::kCut,
                                         Command::kCopy, Command::kPaste, Command::kDelete,
                                         Command::kShiftLeft, Command::kShiftRight}));
  side->addStretch();
  return side;
}

QWidget* EditWindow::PlaceCommands() {
  auto* commands = new QWidget(this);
  auto* row = new QHBoxLayout(commands);
  row->setContentsMargins(kMargin, kSpacing, kMargin, kMargin);
  auto* analyze = NewEditButton("Analyze", "Analy&ze",
                                "Have the makeable contracts of this board worked out", commands);
  connect(analyze, &QPushButton::clicked, this, [this] { editor_.Analyze(); });
  txtFileName_ = new ShownText("txtFileName", "File name of the current Board Set", commands);
  auto* label = new QLabel("File Name:", commands);
  label->setBuddy(txtFileName_);
  auto* exit = NewEditButton("cmdExit", "E&xit", "Close the editor (Esc)", commands);
  connect(exit, &QPushButton::clicked, this, &EditWindow::reject);
  row->addWidget(analyze);
  row->addWidget(label);
  row->addWidget(txtFileName_, 1);
  row->addWidget(exit);
  return commands;
}

/// What has the focus may have become unusable; the focus goes back to the cards then, and not to
/// what comes next.
void EditWindow::Show() {
  const QWidget* focus = focusWidget();
  for (int hand = kNorth; hand <= kWest; ++hand) hands_[static_cast<std::size_t>(hand)]->Show();
  middle_->Show();
  tricks_->Show();
  ShowBoard();
  ShowClip();
  commands_->Show();
  if (focus != nullptr && !focus->isEnabled()) FocusSuitBox();
}

void EditWindow::ShowBoard() {
  const BoardSet& set = editor_.Set();
  const Board& board = editor_.EditBoard();
  lblBoard_->Show(
      QString("%1 of %2 - %3").arg(set.CurrentBoard).arg(set.FirstBoard).arg(set.LastBoard));
  lblVul_->Show(ToQt(VulName[static_cast<std::size_t>(BoardVul(board, set.CurrentBoard))]));
  lblDeal_->Show(QString(QChar(HandLetter(BoardDealer(board, set.CurrentBoard)))));
  txtFileName_->setText(ToQt(set.BoardSetFile));
}

void EditWindow::ShowClip() {
  const ClipMemory& clip = editor_.Clip();
  QStringList lines;
  for (int hand = kNorth; hand <= kWest; ++hand) lines << ToQt(HandLine(clip.ClipBoard, hand));
  lblClip_->Show(clip.ClipFilled ? lines.join('\n') : QString());
  lblClip_->parentWidget()->setVisible(clip.ClipFilled);
}

void EditWindow::FocusSuitBox() {
  const int box = editor_.ActiveSuitBox();
  hands_[static_cast<std::size_t>(HandOfBox(box))]->BoxOf(SuitOfBox(box)).setFocus();
}

void EditWindow::reject() {
  editor_.cmdExit();
  if (editor_.Closed()) hide();
}

void EditWindow::closeEvent(QCloseEvent* event) {
  reject();
  event->setAccepted(editor_.Closed());
}

/// Enter presses the button that has the focus, and gives the focus back to the cards anyway.
void EditWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QDialog::keyPressEvent(event);
    return;
  }
  if (event->isAutoRepeat()) return;
  if (auto* button = qobject_cast<QPushButton*>(focusWidget())) button->click();
  editor_.EnterKey();
}

void EditWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && lblBoard_ != nullptr) Show();
}

}  // namespace morvane::edit
