#include "maintenance/ui/file_card_panel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include "maintenance/read_service.h"
#include "maintenance/ui/card_panel.h"
#include "maintenance/ui/option_group.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/shown_text.h"

namespace morvane::maintenance {
namespace {

/// Nothing can be chosen.
constexpr auto kNothing = [](int /*option*/) {};

}  // namespace

FileCardPanel::FileCardPanel(const ReadService& viewer, QWidget* parent)
    : QWidget(parent), viewer_(viewer) {
  QGridLayout* const grid = NewGrid(this);
  grid->setSpacing(kServiceSpacing);
  grid->addWidget(MakeVerdict(), 0, 0, 1, 2);
  grid->addWidget(MakeMeasures(), 1, 0, 1, 2);
  index_ = KeptReadOnly(new OptionGroup(
      "Card Index:", 3,
      {{"Card_Index_st", "Standard"}, {"Card_Index_j", "Jumbo"}, {"Card_Index_sm", "Small"}},
      kNothing, this));
  national_ = KeptReadOnly(NewNationalGroup(kNothing, this));
  cardType_ = KeptReadOnly(NewCardTypeGroup(kNothing, this));
  threshold_ = KeptReadOnly(NewFontGroup(kNothing, this));
  grid->addWidget(national_, 2, 0, 3, 1);
  grid->addWidget(index_, 2, 1);
  grid->addWidget(cardType_, 3, 1);
  grid->addWidget(threshold_, 4, 1);
  grid->setRowStretch(5, 1);
  grid->setColumnStretch(1, 1);
}

OptionGroup* FileCardPanel::KeptReadOnly(OptionGroup* group) const {
  group->KeepReadOnly();
  return group;
}

QWidget* FileCardPanel::MakeVerdict() {
  auto* group = new QGroupBox("Last card", this);
  QGridLayout* const grid = NewGrid(group);
  int column = 0;
  const auto add = [&](ServiceFieldName name, const char* caption, const char* widest) {
    auto* box = boxes_.Add(name, QString(caption) + " of the last card", widest, group);
    grid->addWidget(NewLabelOf(box, caption, group), 0, column);
    grid->addWidget(box, 1, column++);
  };
  add("Symbol", "Symbol", "888");
  add("Suit", "Suit", "888");
  add("Threshold", "Threshold", "255,255");
  add("Reco_time", "Time", "65535");
  add("Reco_error", "Error", "8888");
  add("Focus", "Focus", "8888");
  grid->setColumnStretch(column, 1);
  return group;
}

QWidget* FileCardPanel::MakeMeasures() {
  auto* group = new QGroupBox("Measured", this);
  QGridLayout* const grid = NewGrid(group);
  constexpr const char* kWidest = "88888";
  boxes_.AddRow(*grid, "Symbol size x, y",
                {{"Symbol_size_x", "Symbol size x"}, {"Symbol_size_y", "Symbol size y"}}, kWidest,
                group);
  boxes_.AddRow(*grid, "Suit size x, y",
                {{"Suit_size_x", "Suit size x"}, {"Suit_size_y", "Suit size y"}}, kWidest, group);
  boxes_.AddRow(*grid, "Parameters 1, 2",
                {{"Reco_param1", "Parameter 1"}, {"Reco_param2", "Parameter 2"}}, kWidest, group);
  boxes_.AddRow(*grid, "Expected card", {{"HoldS", "Expected rank"}, {"HoldC", "Expected suit"}},
                kWidest, group);
  boxes_.AddRow(*grid, "Capture time", {{"Cap_time", "Capture time"}}, kWidest, group);
  grid->setColumnStretch(3, 1);
  return group;
}

void FileCardPanel::Show() {
  const ServiceFile& file = viewer_.Read().File;
  boxes_.Show(file);
  constexpr int kNone = -1;
  national_->Show(NumberIn(file, "National digit").value_or(kNone));
  cardType_->Show(NumberIn(file, "CardType digit").value_or(kNone));
  threshold_->Show(NumberIn(file, "Threshold digit").value_or(kNone));
  index_->Show(NumberIn(file, "CardIndex digit").value_or(kNone));
}

}  // namespace morvane::maintenance
