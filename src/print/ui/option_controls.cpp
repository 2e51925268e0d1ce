#include "print/ui/option_controls.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <algorithm>

namespace morvane::print {
namespace {

/// The tab key comes to the one that is chosen, or to the first.
void SetChoice(const QButtonGroup& group, int value) {
  const QAbstractButton* chosen = group.button(value);
  if (chosen == nullptr) chosen = group.buttons().front();
  for (QAbstractButton* button : group.buttons()) {
    if (group.id(button) == value) button->setChecked(true);
    button->setFocusPolicy(button == chosen ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

}  // namespace

void OptionControls::AddChoices(HandRecordOption option, QGroupBox& frame, QBoxLayout& into,
                                std::initializer_list<Choice> choices) {
  auto* buttons = new QButtonGroup(&frame);
  for (const Choice& choice : choices) {
    auto* button = new QRadioButton(choice.Caption, &frame);
    button->setObjectName(choice.Name);
    buttons->addButton(button, choice.Value);
    into.addWidget(button);
  }
  QObject::connect(buttons, &QButtonGroup::idClicked, &frame,
                   [this, option](int value) { dialog_.Choose(option, value); });
  groups_.push_back({option, &frame, buttons});
}

QRadioButton& OptionControls::Button(HandRecordOption option, int value) const {
  const auto group = std::find_if(groups_.begin(), groups_.end(),
                                  [option](const Group& each) { return each.Option == option; });
  return static_cast<QRadioButton&>(*group->Buttons->button(value));
}

QCheckBox* OptionControls::AddSwitch(HandRecordOption option, const char* name, const char* caption,
                                     QWidget* parent) {
  auto* box = new QCheckBox(caption, parent);
  box->setObjectName(name);
  QObject::connect(box, &QCheckBox::clicked, parent,
                   [this, option](bool on) { dialog_.Choose(option, on ? 1 : 0); });
  switches_.push_back({option, box});
  return box;
}

void OptionControls::Show() {
  for (const Group& group : groups_) {
    SetChoice(*group.Buttons, dialog_.Chosen(group.Option));
    group.Frame->setEnabled(dialog_.Matters(group.Option));
  }
  for (const Switch& each : switches_) {
    each.Box->setChecked(dialog_.Chosen(each.Option) == 1);
    each.Box->setEnabled(dialog_.Matters(each.Option));
  }
}

}  // namespace morvane::print
