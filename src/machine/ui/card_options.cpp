#include "machine/ui/card_options.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "machine/machine_run.h"

namespace morvane::machine {

CardOptions::CardOptions(MachineRun& run, QWidget* parent) : QWidget(parent) {
  auto* national =
      AddGroup("National Settings:",
               {{"National_1", "Standard (AKQJ)"},
                {"National_2", "French    (ARDV)"},
                {"National_3", "French    (1RDV)"},
                {"National_4", "German  (AKDB)"},
                {"National_5", "Dutch      (AHVB)"},
                {"National_6", "Danish    (EKDB)"},
                {"National_7", "Swedish (EKDKn)"}},
               national_, [&run](int value) { run.Change(&RunOptions::SetNational, value); });
  auto* cardType =
      AddGroup("Card Type:", {{"CardType_1", "Standard"}, {"CardType_2", "Framed"}}, cardType_,
               [&run](int value) { run.Change(&RunOptions::SetCardType, value); });
  auto* threshold = AddGroup(
      "Card Font:", {{"Threshold_1", "Normal"}, {"Threshold_2", "Fine"}, {"Threshold_3", "Bold"}},
      threshold_, [&run](int value) { run.Change(&RunOptions::SetThreshold, value); });
  auto* cardIndex = AddGroup(
      "Card Index:",
      {{"Card_Index_st", "Standard"}, {"Card_Index_j", "Jumbo"}, {"Card_Index_sm", "Small"}},
      cardIndex_, [&run](int value) { run.Change(&RunOptions::SetCardIndex, value); });

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(national, 0, 0, 2, 1);
  grid->addWidget(cardType, 0, 1);
  grid->addWidget(threshold, 0, 2);
  grid->addWidget(cardIndex, 1, 1, 1, 2);
  grid->setColumnStretch(0, 1);
}

QGroupBox* CardOptions::AddGroup(const char* caption, std::initializer_list<Option> options,
                                 QButtonGroup& buttons, std::function<void(int)> chosen) {
  auto* group = new QGroupBox(caption, this);
  auto* column = new QVBoxLayout(group);
  column->setSpacing(2);
  int id = 0;
  for (const Option& option : options) {
    auto* button = new QRadioButton(option.Caption, group);
    button->setObjectName(option.Name);
    buttons.addButton(button, id++);
    column->addWidget(button);
  }
  column->addStretch();
  connect(&buttons, &QButtonGroup::idClicked, this, std::move(chosen));
  return group;
}

void CardOptions::Show(const CardSettings& cards) {
  national_.button(cards.National)->setChecked(true);
  cardType_.button(cards.CardType)->setChecked(true);
  threshold_.button(cards.Threshold)->setChecked(true);
  cardIndex_.button(cards.CardIndex)->setChecked(true);
}

}  // namespace morvane::machine
