#include "machine/ui/dealin_prog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "machine/display_hand.h"
#include "machine/ui/copies_box.h"
#include "machine/ui/deal_buttons.h"
#include "machine/ui/history_box.h"
#include "machine/ui/options_panel.h"
#include "machine/ui/read_modes.h"
#include "machine/ui/run_header.h"
#include "machine/ui/run_widgets.h"
#include "machine/ui/sub_range_box.h"
#include "machine/ui/test_panel.h"
#include "machine/ui/walk_buttons.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_text.h"

namespace morvane::machine {
namespace {

constexpr QSize kComfortable{960, 680};

/// Nothing moves when it comes up.
void KeepRoom(QWidget& part) {
  QSizePolicy policy = part.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  part.setSizePolicy(policy);
}

}  // namespace

DealinProg::DealinProg(Program& program, BoardRun& run, QWidget* parent)
    : RunDialog(program, run, parent), run_(run) {
  MakeParts();
  PlaceParts();
  Appear(kComfortable);
}

DealinProg::~DealinProg() { hide(); }

void DealinProg::MakeParts() {
  // In the order in which the tab key walks through them.
  Picture1_ = new BoardPicture(this);
  Picture1_->setObjectName("Picture1");
  if (run_.Kind() == RunKind::kRead) readModes_ = new ReadModes(run_, this);
  dealing_ = new DealButtons(run_, this);
  walk_ = new WalkButtons(run_, this);
  copies_ = new CopiesBox(run_, this);
  subRange_ = new SubRangeBox(run_, this);
  history_ = new HistoryBox(run_, this);
  options_ = new OptionsPanel(run_, this);
  Disp_boards_ = NewButton(
      "Disp_boards", "&Hide boards", [this] { run_.Disp_boards(); }, this);
  Disp_boards_->setMinimumWidth(kCommandWidth);
  test_ = new TestPanel(run_, this);
  MakeExit();
  header_ = new RunHeader(run_, this);
  txtFile_ = new ShownText("txtFile", "File name of the current Board Set", this);
  txtFile_->setFocusPolicy(Qt::ClickFocus);
}

/// Where the screen is small, the options scroll first; where that is not enough, everything above
/// the commands does.
void DealinProg::PlaceParts() {
  auto* body = new QWidget(this);
  auto* middle = new QHBoxLayout;
  middle->setSpacing(kRunSpacing);
  middle->addLayout(PlaceBoardSide(), 1);
  middle->addLayout(PlaceSettingsSide());
  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(kRunMargin, kRunMargin, kRunMargin, 0);
  all->setSpacing(kRunSpacing);
  all->addWidget(header_);
  if (readModes_ != nullptr) all->addWidget(readModes_);
  all->addLayout(middle, 1);
  Fill(*this, body, PlaceCommands());
}

QLayout* DealinProg::PlaceBoardSide() {
  auto* part = new QVBoxLayout;
  part->addWidget(copies_);
  part->addWidget(subRange_);
  auto* side = new QVBoxLayout;
  side->addWidget(Picture1_, 1);
  side->addWidget(walk_);
  side->addLayout(part);
  return side;
}

QLayout* DealinProg::PlaceSettingsSide() {
  auto* settings = new QWidget(this);
  auto* column = new QVBoxLayout(settings);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kRunSpacing);
  column->addWidget(options_);
  column->addWidget(test_, 1);
  column->addStretch();
  auto* side = new QVBoxLayout;
  side->setSpacing(kRunSpacing);
  side->addLayout(PlaceFile());
  side->addWidget(history_);
  settings_ = new ScrollingPart(settings, this);
  KeepRoom(*settings_);
  side->addWidget(settings_, 1);
  return side;
}

QLayout* DealinProg::PlaceFile() {
  auto* label = new QLabel("File Name:", this);
  label->setBuddy(txtFile_);
  auto* file = new QHBoxLayout;
  file->addWidget(label);
  file->addWidget(txtFile_, 1);
  return file;
}

QWidget* DealinProg::PlaceCommands() {
  auto* commands = new QWidget(this);
  auto* row = new QHBoxLayout(commands);
  row->setContentsMargins(kRunMargin, kRunSpacing, kRunMargin, kRunMargin);
  row->setSpacing(kRunSpacing);
  row->addWidget(dealing_);
  row->addStretch();
  row->addWidget(Disp_boards_);
  row->addWidget(cmdExit_);
  return commands;
}

void DealinProg::ShowState() {
  header_->ShowState();
  // What has fallen is all that is known of a board whose link was lost.
  if (run_.LastOutcome() != MachineRun::Outcome::kLinkLost) Picture1_->ShowFallen(Fallen());
}

/// The counts are all that the machine tells of a board while its cards fall.
BoardPicture::Fallen DealinProg::Fallen() const {
  if (run_.Flow() != CardFlow::kFalling) return std::nullopt;
  std::array<int, kHands + 1> counts{};
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    counts[hand] = run_.TheMachine().CardCount[PocketOfHand[hand]];
  }
  return counts;
}

void DealinProg::ShowBoard() {
  BoardDisplay display = DisplayHand(run_, program_.Set.CurrentBoard);
  header_->ShowBoard(program_.Set.CurrentBoard, display);
  Picture1_->Show(std::move(display));
}

void DealinProg::ShowControls() {
  const RunWindowState& window = run_.Window();
  const RunControls& now = window.Controls;
  ShowFrame();
  dealing_->Show(now);
  walk_->Show(now);
  copies_->Show();
  subRange_->Show(program_.Set);
  settings_->setVisible(window.SettingsShown);
  options_->Show();
  Disp_boards_->setEnabled(now.Options);
  Disp_boards_->setText(window.ShowBoards ? "&Hide boards" : "&Show boards");
  test_->Show();
  txtFile_->setText(ToQt(program_.Set.BoardSetFile));
  history_->Show();
  if (readModes_ != nullptr) readModes_->Show();
  dealing_->TakeDefault(now);
  ShowState();
}

void DealinProg::FocusNext() { dealing_->FocusNext(); }

std::optional<RangeTexts> DealinProg::Range() const { return subRange_->Texts(); }

}  // namespace morvane::machine
