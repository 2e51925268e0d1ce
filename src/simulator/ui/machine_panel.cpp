#include "simulator/ui/machine_panel.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <numeric>
#include <utility>

#include "platform/qt/number_edit.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_value.h"
#include "simulator/ui/feeder_box.h"
#include "simulator/ui/frame_box.h"
#include "simulator/ui/pile_text.h"
#include "simulator/ui/sensor_box.h"
#include "wire/machine_errors.h"

namespace morvane::simulator {
namespace {

constexpr int kRefreshMs = 100;
constexpr int kHighestCode = 240;
constexpr int kMargin = 10;
constexpr int kPedalHeight = 44;

}  // namespace

MachinePanel::MachinePanel(EventLoop& loop, SimulatedMachine& machine, PackSource& packs)
    : QWidget(nullptr, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      machine_(machine),
      packs_(packs) {
  setObjectName("MachinePanel");
  setWindowTitle("Morvane - Simulated Machine");
  auto* content = new QWidget(this);
  auto* all = new QVBoxLayout(content);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->addLayout(MakeState());
  all->addWidget(MakeTrouble());
  pedal_ = AddButton("cmdPedal", "Press the &pedal", [this] { machine_.PressPedal(); });
  pedal_->setMinimumHeight(kPedalHeight);
  all->addWidget(pedal_);
  all->addWidget(MakeSlot());
  all->addWidget(MakeFault());
  all->addWidget(MakeTabs(), 1);
  Fill(*this, content);
  ShowFault();
  ShowMachine();
  refresh_ = loop.StartTimer(kRefreshMs, [this] { ShowMachine(); });
}

MachinePanel::~MachinePanel() = default;

/// The desktop has gone from light to dark or back.
void MachinePanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) shown_ = ~std::uint64_t{0};
}

void MachinePanel::closeEvent(QCloseEvent* event) { event->ignore(); }

QPushButton* MachinePanel::AddButton(const char* name, const char* caption,
                                     std::function<void()> press) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  connect(button, &QPushButton::clicked, this, [this, press = std::move(press)] {
    press();
    ShowMachine();
  });
  return button;
}

NumberEdit* MachinePanel::AddNumberBox(const char* name, const char* spokenName, int limit) {
  auto* box = new NumberEdit(limit, this);
  box->setObjectName(name);
  box->setAccessibleName(spokenName);
  box->setFixedWidth(box->fontMetrics().horizontalAdvance("0000000"));
  return box;
}

QLayout* MachinePanel::MakeState() {
  state_ = new ShownValue("lblState", "State of the simulated machine", this);
  QFont font = state_->font();
  font.setBold(true);
  state_->setFont(font);
  // As wide as its longest text, so that the panel does not grow off the screen's edge.
  state_->setMinimumWidth(
      state_->fontMetrics().horizontalAdvance("stopped at card 52 of 52 with code 240"));
  power_ = AddButton("cmdPower", "Power o&ff", [this] { SwitchPower(); });
  auto* row = new QHBoxLayout;
  row->addWidget(new QLabel("State:", this));
  row->addWidget(state_, 1);
  row->addWidget(power_);
  return row;
}

QWidget* MachinePanel::MakeTrouble() {
  trouble_ = new ShownValue("lblTrouble", "What is wrong with its file", this);
  trouble_->setTextFormat(Qt::PlainText);
  trouble_->setWordWrap(true);
  // A path is one long word, and the panel must not grow with it.
  trouble_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
  return trouble_;
}

QWidget* MachinePanel::MakeSlot() {
  slot_ = new ShownValue("lblSlot", "Slot", this);
  board_ = AddNumberBox("txtBoard", "Board to insert", kMaxBoards);
  board_->ShowNumber(1);
  auto* insert = AddButton("cmdInsert", "&Insert", [this] { InsertBoard(board_->Number()); });
  auto* next =
      AddButton("cmdInsertNext", "Insert ne&xt", [this] { InsertBoard(lastInserted_ + 1); });
  remove_ = AddButton("cmdRemove", "&Remove", [this] { RemoveBoard(); });
  auto* group = new QGroupBox("Board", this);
  auto* grid = new QGridLayout(group);
  grid->addWidget(slot_, 0, 0, 1, 4);
  grid->addWidget(board_, 1, 0);
  grid->addWidget(insert, 1, 1);
  grid->addWidget(next, 1, 2);
  grid->addWidget(remove_, 1, 3);
  return group;
}

QWidget* MachinePanel::MakeFault() {
  code_ = AddNumberBox("txtCode", "Code of the fault", kHighestCode);
  code_->ShowNumber(25);
  code_->OnChange = [this](const std::string&) { ShowFault(); };
  fault_ = new ShownValue("lblFault", "Text of the fault", this);
  fault_->setWordWrap(true);
  causeFault_ =
      AddButton("cmdFault", "Cause f&ault", [this] { machine_.CauseFault(code_->Number()); });
  auto* group = new QGroupBox("Fault at the next card", this);
  auto* row = new QHBoxLayout(group);
  row->addWidget(code_);
  row->addWidget(fault_, 1);
  row->addWidget(causeFault_);
  return group;
}

QWidget* MachinePanel::MakeTabs() {
  feeder_ = new FeederBox(machine_, packs_, this);
  frames_ = new FrameBox(machine_.Frames(), this);
  sensors_ = new SensorBox(machine_, this);
  auto* tabs = new QTabWidget(this);
  tabs->setObjectName("tabs");
  tabs->addTab(MakePockets(), "Poc&kets");
  tabs->addTab(feeder_, "Fee&der");
  tabs->addTab(frames_, "Fra&mes");
  tabs->addTab(sensors_, "Open mac&hine");
  return tabs;
}

QWidget* MachinePanel::MakePockets() {
  auto* group = new QWidget(this);
  auto* grid = new QGridLayout(group);
  grid->setColumnStretch(1, 1);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    const auto at = static_cast<std::size_t>(hand);
    const QString name = ToQt(HandName[at]);
    pockets_[at] = new ShownValue("lblPocket_" + QString::number(hand), name + " pocket", this);
    grid->addWidget(new QLabel(name, group), hand, 0);
    grid->addWidget(pockets_[at], hand, 1);
  }
  grid->setRowStretch(kWest + 1, 1);
  std::vector<int> longest(kFullHand);
  std::iota(longest.begin(), longest.end(), 1);
  pockets_[kNorth]->Show(PileBySuits(longest, false, palette()));
  pockets_[kNorth]->setMinimumWidth(pockets_[kNorth]->sizeHint().width());
  return group;
}

void MachinePanel::InsertBoard(int number) {
  if (number < 1 || number > kMaxBoards) return;
  machine_.InsertBoard(number);
  inserted_ = lastInserted_ = number;
  board_->ShowNumber(number);
}

void MachinePanel::RemoveBoard() {
  machine_.RemoveBoard();
  inserted_ = 0;
}

void MachinePanel::SwitchPower() {
  if (machine_.PowerIsOn()) {
    machine_.PowerOff();
  } else {
    machine_.PowerOn();
  }
}

void MachinePanel::ShowFault() {
  const int code = code_->Number();
  causeFault_->setEnabled(code > 0);
  fault_->Show(code > 0 ? ToQt(wire::TextOfError(code).Text).trimmed() : QString());
}

void MachinePanel::ShowMachine() {
  const std::uint64_t changed = machine_.Changed() * 2 + (machine_.PowerIsOn() ? 1 : 0);
  state_->Show(ToQt(machine_.StateText()));
  ShowTrouble();
  power_->setText(machine_.PowerIsOn() ? "Power o&ff" : "Power o&n");
  slot_->Show(inserted_ == 0 ? QString("The slot is empty")
                             : QString("Board %1 is in the slot").arg(inserted_));
  remove_->setEnabled(inserted_ != 0);
  frames_->ShowFrames();
  if (changed == shown_) return;
  shown_ = changed;
  feeder_->ShowMachine();
  sensors_->ShowMachine();
  ShowPockets();
}

void MachinePanel::ShowTrouble() {
  const QString trouble = ToQt(machine_.Trouble());
  trouble_->Show(trouble);
  trouble_->setToolTip(trouble);
  trouble_->setVisible(!trouble.isEmpty());
}

void MachinePanel::ShowPockets() {
  const auto piles = machine_.CardsByHand();
  const bool inOrder = machine_.Run() == RunKind::Stack;
  const bool counted = machine_.Run() == RunKind::Sort;
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    pockets_[hand]->setToolTip(inOrder ? "The topmost card stands first" : "");
    pockets_[hand]->Show(inOrder ? PileFromTop(piles[hand], palette())
                                 : PileBySuits(piles[hand], counted, palette()));
  }
}

}  // namespace morvane::simulator
