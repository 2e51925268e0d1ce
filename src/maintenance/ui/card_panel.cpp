#include "maintenance/ui/card_panel.h"

#include <QVBoxLayout>
#include <utility>

#include "maintenance/maintenance.h"
#include "maintenance/ui/option_group.h"
#include "maintenance/ui/service_widgets.h"

namespace morvane::maintenance {

OptionGroup* NewNationalGroup(std::function<void(int)> chosen, QWidget* parent) {
  return new OptionGroup("National Settings:", 2,
                         {{"National_1", "AKQJ"},
                          {"National_2", "ARDV"},
                          {"National_3", "1RDV"},
                          {"National_4", "AKDB"},
                          {"National_5", "AHVB"},
                          {"National_6", "EKDB"},
                          {"National_7", "EKDKn"}},
                         std::move(chosen), parent);
}

OptionGroup* NewCardTypeGroup(std::function<void(int)> chosen, QWidget* parent) {
  return new OptionGroup("Card Type:", 3, {{"CardType_1", "Standard"}, {"CardType_2", "Framed"}},
                         std::move(chosen), parent);
}

OptionGroup* NewFontGroup(std::function<void(int)> chosen, QWidget* parent) {
  return new OptionGroup(
      "Card Font:", 3,
      {{"Threshold_1", "Normal"}, {"Threshold_2", "Fine"}, {"Threshold_3", "Bold"}},
      std::move(chosen), parent);
}

CardPanel::CardPanel(Maintenance& maintenance, QWidget* parent)
    : QWidget(parent),
      maintenance_(maintenance),
      national_(NewNationalGroup(
          [&maintenance](int national) { maintenance.SelectNational(national); }, this)),
      cardType_(
          NewCardTypeGroup([&maintenance](int type) { maintenance.SelectCardType(type); }, this)),
      threshold_(
          NewFontGroup([&maintenance](int font) { maintenance.SelectThreshold(font); }, this)) {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kServiceSpacing);
  for (OptionGroup* group : {national_, cardType_, threshold_}) column->addWidget(group);
  column->addStretch();
}

void CardPanel::Show() {
  setEnabled(maintenance_.Controls().MachineKnown);
  const auto& cards = maintenance_.Parameters().CardSelection;
  national_->Show(cards.National);
  cardType_->Show(cards.CardType);
  threshold_->Show(cards.Threshold);
}

}  // namespace morvane::maintenance
