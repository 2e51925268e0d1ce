#include "maintenance/ui/option_group.h"

#include <QGridLayout>
#include <QRadioButton>
#include <utility>

#include "maintenance/ui/service_widgets.h"

namespace morvane::maintenance {

OptionGroup::OptionGroup(const char* caption, int columns, std::initializer_list<Option> options,
                         std::function<void(int)> chosen, QWidget* parent)
    : QGroupBox(caption, parent), chosen_(std::move(chosen)) {
  QGridLayout* const grid = NewGrid(this);
  int place = 0;
  for (const Option& option : options) {
    auto* button = new QRadioButton(option.Caption, this);
    button->setObjectName(option.Name);
    buttons_.addButton(button, place);
    grid->addWidget(button, place / columns, place % columns);
    ++place;
  }
  grid->setColumnStretch(columns, 1);
  connect(&buttons_, &QButtonGroup::idClicked, this, [this](int option) { Click(option); });
}

void OptionGroup::Show(int option) {
  option_ = option;
  const auto buttons = buttons_.buttons();
  buttons_.setExclusive(false);  // or one would stay chosen
  for (auto* button : buttons) button->setChecked(buttons_.id(button) == option);
  buttons_.setExclusive(true);
}

void OptionGroup::KeepReadOnly() {
  readOnly_ = true;
  const auto buttons = buttons_.buttons();
  for (auto* button : buttons) button->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void OptionGroup::Click(int option) {
  if (readOnly_) return Show(option_);
  if (std::exchange(option_, option) != option) chosen_(option);
}

}  // namespace morvane::maintenance
