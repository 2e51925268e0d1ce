#include "poker/ui/poker_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "machine/ui/run_widgets.h"
#include "machine/ui/test_panel.h"
#include "platform/qt/held_enter.h"
#include "platform/qt/scrolling_part.h"
#include "poker/ui/deal_side.h"
#include "poker/ui/head.h"
#include "poker/ui/order_box.h"

namespace morvane::poker {
namespace {

constexpr QSize kComfortable{1080, 760};

bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

PokerWindow::PokerWindow(Program& program, Poker& poker, QWidget* parent)
    : RunDialog(program, poker, parent), poker_(poker), buttons_(poker) {
  setObjectName("Poker");
  // In the order in which the tab key walks through them.
  QWidget* body = MakeBody();
  QWidget* commands = MakeCommands();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(new ScrollingPart(body, this), 1);
  row->addWidget(commands);
  for (auto* button : findChildren<QPushButton*>()) button->installEventFilter(this);
  Appear(kComfortable);
}

PokerWindow::~PokerWindow() { hide(); }

QWidget* PokerWindow::MakeBody() {
  auto* body = new QWidget(this);
  head_ = new Head(poker_, body);
  deal_ = new DealSide(poker_, buttons_, body);
  auto* settings = new QWidget(body);
  order_ = new OrderBox(poker_, buttons_, settings);
  test_ = new machine::TestPanel(poker_, settings, "Test");
  test_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);  // as wide as the order
  auto* column = new QVBoxLayout(settings);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(machine::kRunSpacing);
  column->addWidget(order_);
  column->addWidget(test_, 1);
  column->addStretch();
  auto* middle = new QHBoxLayout;
  middle->setSpacing(machine::kRunSpacing);
  middle->addWidget(deal_, 1);
  auto* scrolling = new ScrollingPart(settings, body);
  scrolling->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);  // not sideways
  middle->addWidget(scrolling);
  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(machine::kRunMargin, machine::kRunMargin, 0, machine::kRunMargin);
  all->setSpacing(machine::kRunSpacing);
  all->addWidget(head_, 4);
  all->addLayout(middle, 5);
  return body;
}

QWidget* PokerWindow::MakeCommands() {
  auto* commands = new QWidget(this);
  auto* column = new QVBoxLayout(commands);
  column->setContentsMargins(machine::kRunMargin, machine::kRunMargin, machine::kRunMargin,
                             machine::kRunMargin);
  column->setSpacing(machine::kRunSpacing / 2);
  const auto add = [&](std::initializer_list<PokerButton> group) {
    for (const PokerButton button : group) column->addWidget(buttons_.MakeHigh(button, commands));
    column->addSpacing(machine::kRunSpacing);
  };
  add({PokerButton::FirstDeal, PokerButton::SecondDeal, PokerButton::ThirdDeal,
       PokerButton::FourthDeal, PokerButton::NextDeal});
  add({PokerButton::CancelDeal});
  add({PokerButton::Read, PokerButton::ReadNext});
  column->addStretch();
  cmdExit_ = machine::NewButton(
      "cmdExit", "&Exit", [this] { poker_.CloseBox(); }, commands);
  column->addWidget(cmdExit_);
  return commands;
}

void PokerWindow::ShowState() { head_->Show(); }

void PokerWindow::ShowBoard() { deal_->Show(); }

void PokerWindow::ShowControls() {
  const bool free = IsFree();
  // Disabling what has the focus would hand it on to the next control, and what starts cards must
  // not break them.
  if (!free && focusWidget() != nullptr) focusWidget()->clearFocus();
  cmdExit_->setFocusPolicy(free ? Qt::StrongFocus : Qt::ClickFocus);
  cmdExit_->setAutoDefault(free);
  buttons_.Show();
  order_->Show(free);
  test_->Show();
  head_->Show();
  if (free && focusWidget() == nullptr) FocusNext();
}

void PokerWindow::FocusNext() { buttons_.FocusNext(); }

void PokerWindow::reject() { poker_.CloseBox(); }

void PokerWindow::closeEvent(QCloseEvent* event) {
  poker_.CloseBox();
  event->setAccepted(poker_.Closed());
}

/// One press of Enter starts one run, and none while a text is typed.
void PokerWindow::keyPressEvent(QKeyEvent* event) {
  if (IsHeldEnter(*event) || (IsEnter(*event) && order_->TakeEnter())) return;
  RunDialog::keyPressEvent(event);
}

bool PokerWindow::eventFilter(QObject* button, QEvent* event) {
  return IsHeldEnter(*event) || RunDialog::eventFilter(button, event);
}

}  // namespace morvane::poker
