#include "simulator/ui/feeder_box.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "simulator/ui/pile_text.h"

namespace morvane::simulator {
namespace {

constexpr std::size_t kCardsShown = 8;
constexpr int kCarryLetters = 12;

/// "40 cards to come: ♠A ♥7" with the signs of the suits in their colours on the ground of
/// `palette`.
QString CardsText(const WiredMachine& machine, const QPalette& palette) {
  const std::size_t left = machine.CardsInFeeder();
  if (left == 0) return "No card waits to be fed";
  QString text = left == 1 ? "1 card to come:" : QString("%1 cards to come:").arg(left);
  return text + " " + CardsInOrder(machine.NextCards(kCardsShown), palette);
}

QString BoardsText(const WiredMachine& machine) {
  if (machine.BoardsLaid() == 0) return "A read run finds a shuffled pack";
  return QString("%1 of %2 boards lie ready to be read")
      .arg(machine.BoardsToRead())
      .arg(machine.BoardsLaid());
}

QPushButton* Button(const char* name, const char* caption, const char* tip, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  return button;
}

}  // namespace

FeederBox::FeederBox(WiredMachine& machine, PackSource& packs, QWidget* parent)
    : QWidget(parent),
      machine_(machine),
      packs_(packs),
      cards_(new ShownValue("lblFeeder", "Cards in the feeder", this)),
      boards_(new ShownValue("lblBoardsToRead", "Boards to be read", this)) {
  auto* inOrder = Button(
      "cmdLoadPack", "Pack in &order",
      "The next board is dealt from this pack; the others lie as the machine was told", this);
  load_ = Button("cmdLoadBoards", "&Boards for reading ...",
                 "The read runs to come find the boards of a file, one after the other", this);
  connect(inOrder, &QPushButton::clicked, this, [this] { LoadInOrder(); });
  connect(load_, &QPushButton::clicked, this, [this] { LoadBoards(); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(inOrder);
  buttons->addWidget(load_);
  auto* column = new QVBoxLayout(this);
  column->addWidget(cards_);
  column->addWidget(boards_);
  column->addLayout(buttons);
  column->addLayout(MakeCarrier());
  column->addStretch();
  ShowMachine();
}

QLayout* FeederBox::MakeCarrier() {
  carry_ = new QComboBox(this);
  carry_->setObjectName("cboCarry");
  carry_->setToolTip(
      "How the piles come back before the next stacking run; after that it is right again");
  // The list may be wider than the panel.
  carry_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  carry_->setMinimumContentsLength(kCarryLetters);
  for (const CarryWords& words : kCarries) carry_->addItem(ToQt(words.Means));
  connect(carry_, &QComboBox::activated, this,
          [this](int way) { machine_.CarryNext(static_cast<Carry>(way)); });
  putBack_ = Button("cmdPutBack", "Put &the pack back",
                    "The pile of North goes into the feeder, to be read", this);
  connect(putBack_, &QPushButton::clicked, this, [this] {
    machine_.PutBackPack();
    ShowMachine();
  });
  auto* label = new QLabel("Next &carry", this);
  label->setBuddy(carry_);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(carry_, 1);
  row->addWidget(putBack_);
  return row;
}

void FeederBox::LoadInOrder() {
  std::array<int, kCards> pack{};
  std::iota(pack.begin(), pack.end(), 1);
  machine_.LoadPack(pack);
}

// The dialog blocks the main window only, so the button could be pressed once more.
void FeederBox::LoadBoards() {
  load_->setEnabled(false);
  if (auto boards = packs_.Ask()) machine_.LayBoards(std::move(*boards));
  load_->setEnabled(true);
  ShowMachine();
}

void FeederBox::ShowMachine() {
  cards_->Show(CardsText(machine_, palette()));
  boards_->Show(BoardsText(machine_));
  if (!carry_->view()->isVisible()) carry_->setCurrentIndex(static_cast<int>(machine_.NextCarry()));
  putBack_->setEnabled(machine_.PackCanBePutBack());
}

}  // namespace morvane::simulator
