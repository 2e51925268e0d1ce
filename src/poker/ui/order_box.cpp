#include "poker/ui/order_box.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "machine/ui/run_widgets.h"
#include "platform/qt/number_edit.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"
#include "poker/poker.h"
#include "poker/ui/poker_buttons.h"
#include "text/text.h"

namespace morvane::poker {
namespace {

constexpr int kLargestTyped = 999;  // what is beyond the order's limit is told when it is created
constexpr int kJumbo = 1;

/// The text that is being typed stays when it is that one already.
void ShowIn(FilteredEdit& box, const std::string& text) {
  if (FromQt(box.text()) != text) box.ShowText(text);
}

}  // namespace

OrderBox::OrderBox(Poker& poker, PokerButtons& buttons, QWidget* parent)
    : QWidget(parent), poker_(poker) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(MakeNew(buttons));
  column->addWidget(MakeOrder(buttons));
  column->addWidget(MakeCardIndex());
}

QGroupBox* OrderBox::MakeNew(PokerButtons& buttons) {
  auto* group = new QGroupBox("New order:", this);
  auto* label = new QLabel("Num&ber of deals:", group);
  Number_deals_ = machine::NewNumberBox("Number_deals", "1 to 100", kLargestTyped, group);
  Number_deals_->OnChange = [this](const std::string& typed) { poker_.Number_deals = typed; };
  label->setBuddy(Number_deals_);
  connect(Number_deals_, &QLineEdit::returnPressed, this,
          [this] { poker_.Press(PokerButton::Generate); });
  auto* grid = new QGridLayout(group);
  grid->addWidget(label, 0, 0);
  grid->addWidget(Number_deals_, 0, 1, Qt::AlignLeft);
  grid->addWidget(AddOption("Random", "Rando&m", kind_, 0), 1, 0);
  grid->addWidget(AddOption("Empty_set", "Empt&y set", kind_, 1), 1, 1);
  grid->addWidget(buttons.Make(PokerButton::Generate, group), 2, 0, 1, 2);
  connect(&kind_, &QButtonGroup::idClicked, this, [this](int id) { poker_.Empty_set = id == 1; });
  return group;
}

QGroupBox* OrderBox::MakeOrder(PokerButtons& buttons) {
  auto* group = new QGroupBox("Order:", this);
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  AddText(*form, "Poker_Event", "Event:", &PokerOrder::Poker_Event);
  AddText(*form, "Poker_Site", "Site:", &PokerOrder::Poker_Site);
  AddText(*form, "Poker_Date", "Date:", &PokerOrder::Poker_Date);
  Poker_File_ = new ShownText("Poker_File", "The file that holds the order", group);
  form->addRow("File:", Poker_File_);
  auto* grid = new QGridLayout;
  grid->addWidget(buttons.Make(PokerButton::Poker_Load, group), 0, 0);
  grid->addWidget(buttons.Make(PokerButton::Poker_Save, group), 0, 1);
  grid->addWidget(buttons.Make(PokerButton::Poker_Print, group), 1, 0);
  grid->addWidget(buttons.Make(PokerButton::Poker_print_setup, group), 1, 1);
  auto* column = new QVBoxLayout(group);
  column->addLayout(form);
  column->addLayout(grid);
  return group;
}

void OrderBox::AddText(QFormLayout& form, const char* name, const char* label,
                       std::string PokerOrder::*text) {
  auto* box = new FilteredEdit(
      [this, text](FilteredBox typed) {
        std::string before = poker_.Order().*text;
        FilterLength(typed, before);
        poker_.Write(text, typed.Text);
        return typed;
      },
      this);
  box->setObjectName(name);
  form.addRow(label, box);
  texts_[static_cast<std::size_t>(form.rowCount()) - 1] = {box, text};
}

QGroupBox* OrderBox::MakeCardIndex() {
  cardIndex_ = new QGroupBox("Card Index:", this);
  auto* row = new QHBoxLayout(cardIndex_);
  row->addWidget(AddOption("Card_Index_st", "Standard", index_, 0));
  row->addWidget(AddOption("Card_Index_j", "&Jumbo", index_, kJumbo));
  row->addStretch();
  connect(&index_, &QButtonGroup::idClicked, this,
          [this](int id) { poker_.Change(&machine::RunOptions::SetCardIndex, id); });
  // Nothing jumps when the machine answers.
  QSizePolicy policy = cardIndex_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  cardIndex_->setSizePolicy(policy);
  return cardIndex_;
}

QRadioButton* OrderBox::AddOption(const char* name, const char* caption, QButtonGroup& group,
                                  int id) {
  auto* option = new QRadioButton(caption, this);
  option->setObjectName(name);
  group.addButton(option, id);
  return option;
}

void OrderBox::Show(bool free) {
  Number_deals_->setEnabled(free);
  machine::ShowNumberIn(*Number_deals_, Val(poker_.Number_deals));
  for (QAbstractButton* option : kind_.buttons()) option->setEnabled(free);
  kind_.button(poker_.Empty_set ? 1 : 0)->setChecked(true);
  for (const Text& text : texts_) {
    text.Box->setEnabled(free);
    ShowIn(*text.Box, poker_.Order().*text.Of);
  }
  Poker_File_->setText(ToQt(poker_.Order().Poker_File));
  cardIndex_->setVisible(poker_.Window().SettingsShown);
  cardIndex_->setEnabled(free && poker_.Window().Controls.Options);
  index_.button(poker_.Options().Cards.CardIndex == kJumbo ? kJumbo : 0)->setChecked(true);
}

bool OrderBox::TakeEnter() {
  for (const Text& text : texts_) {
    if (!text.Box->hasFocus()) continue;
    focusNextChild();
    return true;
  }
  return false;
}

}  // namespace morvane::poker
