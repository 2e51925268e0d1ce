#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include "machine/ui/board_picture.h"
#include "machine/ui/card_options.h"
#include "machine/ui/dealin_prog.h"
#include "machine/ui/pocket_gauge.h"
#include "platform/qt/number_edit.h"
#include "platform/qt/qt_text.h"

// The controls of the run window, their captions and where they stand.

namespace morvane::machine {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 10;
constexpr int kBigButton = 40;
constexpr QSize kComfortable{960, 600};

/// Keeps its place while it is hidden, so that nothing jumps when the machine answers.
void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

QFont Enlarged(QFont font, qreal by) {
  font.setPointSizeF(font.pointSizeF() * by);
  font.setBold(true);
  return font;
}

}  // namespace

DealinProg::DealinProg(Program& program, DealingRun& run, QWidget* parent)
    : QDialog(parent), program_(program), run_(run) {
  setObjectName("DealinProg");
  setWindowTitle("Morvane - Dealing");
  setWindowModality(Qt::WindowModal);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  MakeControls();

  auto* middle = new QHBoxLayout;
  middle->setSpacing(kSpacing);
  middle->addLayout(MakeBoardSide(), 1);
  middle->addLayout(MakeSettingsSide());
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kSpacing);
  all->addLayout(MakeHeader());
  all->addLayout(middle, 1);
  all->addLayout(MakeCommands());
  ConnectNumberBoxes();
  resize(sizeHint().expandedTo(kComfortable));
  show();
}

void DealinProg::MakeControls() {
  // In the order in which the tab key walks through them.
  Picture1_ = new BoardPicture(this);
  Picture1_->setObjectName("Picture1");
  cmdDeal_ = AddButton("cmdDeal", "&Deal", [this] { run_.cmdDeal(); });
  Deal_next_ = AddButton("Deal_next", "Deal ne&xt", [this] { run_.Deal_next(); });
  cmdBreak_ = AddButton("cmdBreak", "&Break", [this] { run_.cmdBreak(); });
  // The only button left during a run: the focus must not fall onto it, or a second press of the
  // key that started the deal would break it.
  cmdBreak_->setFocusPolicy(Qt::ClickFocus);
  cmdBreak_->setAutoDefault(false);
  cmdFirst_ = AddWalkButton("cmdFirst", "&First", "First board of the run",
                            [this] { run_.Walk(BoardWalk::Step::kFirst); });
  cmdPrev_ = AddWalkButton("cmdPrev", "&Previous", "One board back",
                           [this] { run_.Walk(BoardWalk::Step::kPrev); });
  cmdNext_ = AddWalkButton("cmdNext", "&Next", "One board on",
                           [this] { run_.Walk(BoardWalk::Step::kNext); });
  cmdLast_ = AddWalkButton("cmdLast", "&Last", "Last board of the run",
                           [this] { run_.Walk(BoardWalk::Step::kLast); });
  NumberCopies_ =
      AddNumberBox("NumberCopies", "Copies to deal of each board", BoardWalk::kMostCopies);
  PrevCopy_ = AddWalkButton("PrevCopy", "<", "One copy back",
                            [this] { run_.Walk(BoardWalk::Step::kPrevCopy); });
  NextCopy_ = AddWalkButton("NextCopy", ">", "One copy on",
                            [this] { run_.Walk(BoardWalk::Step::kNextCopy); });
  Subfrom_ = AddNumberBox("Subfrom", "First board to deal", kMaxBoards);
  Subto_ = AddNumberBox("Subto", "Last board to deal", kMaxBoards);
  cards_ = new CardOptions(run_, this);
  Start_from_box_ = AddCheckBox("Start_from_box", "Start when a board is &inserted",
                                &RunOptions::SetStart_from_box);
  Check_board_ = AddCheckBox("Check_board", "Chec&k the board number", &RunOptions::SetCheck_board);
  Disp_boards_ = AddButton("Disp_boards", "&Hide boards", [this] { run_.Disp_boards(); });
  Command1_ = AddWalkButton("Command1", "Test", "Asks the machine for its diagnosis text",
                            [this] { run_.Command1(); });
  TestText_ = new QPlainTextEdit(this);
  TestText_->setObjectName("TestText");
  TestText_->setReadOnly(true);
  Command1_->hide();
  TestText_->hide();
  cmdExit_ = AddButton("cmdExit", "&Exit", [this] { run_.Exit(); });
  cards_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  for (QWidget* setting : {static_cast<QWidget*>(cards_), static_cast<QWidget*>(Start_from_box_),
                           static_cast<QWidget*>(Check_board_)}) {
    KeepPlace(*setting);
  }
}

QPushButton* DealinProg::AddButton(const char* name, const char* caption,
                                   std::function<void()> press) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setMinimumHeight(kBigButton);
  connect(button, &QPushButton::clicked, this, std::move(press));
  return button;
}

QPushButton* DealinProg::AddWalkButton(const char* name, const char* caption, const char* tip,
                                       std::function<void()> press) {
  auto* button = AddButton(name, caption, std::move(press));
  button->setMinimumHeight(0);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

QCheckBox* DealinProg::AddCheckBox(const char* name, const char* caption,
                                   void (RunOptions::*set)(bool)) {
  auto* box = new QCheckBox(caption, this);
  box->setObjectName(name);
  connect(box, &QCheckBox::clicked, this, [this, set](bool on) { run_.Change(set, on); });
  return box;
}

NumberEdit* DealinProg::AddNumberBox(const char* name, const char* tip, int limit) {
  auto* box = new NumberEdit(limit, this);
  box->setObjectName(name);
  box->setToolTip(tip);
  box->setFixedWidth(box->fontMetrics().horizontalAdvance("0000000"));
  return box;
}

QLayout* DealinProg::MakeHeader() {
  auto* lblRun = new QLabel(" Dealing Boards ", this);
  lblRun->setObjectName("lblRun");
  lblRun->setFont(Enlarged(lblRun->font(), 1.4));
  txtStatus_ = new QLabel(this);
  txtStatus_->setObjectName("txtStatus");
  txtStatus_->setAccessibleName("State of the machine");
  txtStatus_->setAlignment(Qt::AlignCenter);
  txtStatus_->setFont(Enlarged(txtStatus_->font(), 1.2));
  txtStatus_->setMinimumWidth(txtStatus_->fontMetrics().horizontalAdvance("Illegal (0)") + 24);
  lblProgress_ = new QLabel(this);
  lblProgress_->setObjectName("lblProgress");
  txtDealTime_ = new QLabel(this);
  txtDealTime_->setObjectName("txtDealTime");
  txtDealTime_->setAccessibleName("Deal time in seconds");
  txtDealTime_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  txtDealTime_->setFont(Enlarged(txtDealTime_->font(), 1.4));
  txtDealTime_->setMinimumWidth(txtDealTime_->fontMetrics().horizontalAdvance("0000.0"));
  txtFile_ = new QLineEdit(this);
  txtFile_->setObjectName("txtFile");
  txtFile_->setToolTip("File name of the current Board Set");
  txtFile_->setReadOnly(true);
  txtFile_->setFocusPolicy(Qt::ClickFocus);

  auto* state = new QHBoxLayout;
  state->setSpacing(kSpacing);
  state->addWidget(lblRun);
  state->addWidget(txtStatus_);
  state->addWidget(lblProgress_);
  state->addStretch();
  state->addWidget(new QLabel("Deal Time (s):", this));
  state->addWidget(txtDealTime_);
  auto* file = new QHBoxLayout;
  file->addWidget(new QLabel("File Name:", this));
  file->addWidget(txtFile_);
  auto* header = new QVBoxLayout;
  header->setSpacing(kSpacing / 2);
  header->addLayout(state);
  header->addLayout(file);
  return header;
}

QLayout* DealinProg::MakeBoardSide() {
  auto* walk = new QHBoxLayout;
  for (QPushButton* button : {cmdFirst_, cmdPrev_, cmdNext_, cmdLast_}) walk->addWidget(button);
  auto* part = new QHBoxLayout;
  part->setSpacing(kSpacing);
  part->addWidget(copies_ = MakeCopies());
  part->addWidget(subRange_ = MakeSubRange());
  part->addStretch();
  auto* side = new QVBoxLayout;
  side->addWidget(Picture1_, 1);
  side->addLayout(walk);
  side->addLayout(part);
  return side;
}

QWidget* DealinProg::MakeCopies() {
  auto* copies = new QWidget(this);
  copies->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(copies);
  row->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel("&Copies:", copies);
  label->setBuddy(NumberCopies_);
  for (QPushButton* button : {PrevCopy_, NextCopy_}) {
    button->setFixedWidth(2 * button->sizeHint().height());
  }
  row->addWidget(label);
  row->addWidget(NumberCopies_);
  row->addWidget(PrevCopy_);
  row->addWidget(NextCopy_);
  return copies;
}

QWidget* DealinProg::MakeSubRange() {
  auto* range = new QWidget(this);
  range->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(range);
  row->setContentsMargins(0, 0, 0, 0);
  const auto limit = [range](const char* name) {
    auto* label = new QLabel(range);
    label->setObjectName(name);
    return label;
  };
  auto* from = new QLabel("Fro&m:", range);
  from->setBuddy(Subfrom_);
  auto* to = new QLabel("&To:", range);
  to->setBuddy(Subto_);
  row->addWidget(from);
  row->addWidget(Subfrom_);
  row->addWidget(to);
  row->addWidget(Subto_);
  row->addWidget(new QLabel("Board Set:", range));
  row->addWidget(Subfirst_ = limit("Subfirst"));
  row->addWidget(new QLabel("-", range));
  row->addWidget(Sublast_ = limit("Sublast"));
  return range;
}

QLayout* DealinProg::MakeSettingsSide() {
  auto* pockets = new QHBoxLayout;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    auto*& pocket = pockets_[static_cast<std::size_t>(hand)];
    pockets->addWidget(pocket = new PocketGauge(hand, this));
  }
  auto* side = new QVBoxLayout;
  side->setSpacing(kSpacing);
  side->addLayout(pockets);
  side->addWidget(cards_);
  side->addWidget(Start_from_box_);
  side->addWidget(Check_board_);
  side->addWidget(Command1_, 0, Qt::AlignLeft);
  side->addWidget(TestText_, 1);
  side->addStretch();
  return side;
}

QLayout* DealinProg::MakeCommands() {
  auto* row = new QHBoxLayout;
  row->setSpacing(kSpacing);
  for (QPushButton* button : {cmdDeal_, Deal_next_}) {
    button->setFont(Enlarged(button->font(), 1.1));
    button->setMinimumWidth(4 * kBigButton);
  }
  for (QPushButton* button : {cmdBreak_, Disp_boards_, cmdExit_}) {
    button->setMinimumWidth(5 * kBigButton / 2);
  }
  row->addWidget(cmdDeal_);
  row->addWidget(Deal_next_);
  row->addWidget(cmdBreak_);
  row->addStretch();
  row->addWidget(Disp_boards_);
  row->addWidget(cmdExit_);
  return row;
}

void DealinProg::ConnectNumberBoxes() {
  NumberCopies_->OnChange = [this](const std::string& text) { run_.SetNumberCopies(text); };
  NumberCopies_->OnLeave = [this](const std::string&) {
    NumberCopies_->ShowNumber(run_.Place().Range().NumberOfCopies);
  };
  Subfrom_->OnLeave = [this](const std::string& text) { run_.LeaveSubfrom(text); };
  Subto_->OnLeave = [this](const std::string& text) { run_.LeaveSubto(text); };
}

}  // namespace morvane::machine
