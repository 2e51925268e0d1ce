#pragma once

#include <QButtonGroup>
#include <initializer_list>
#include <vector>

#include "print/hand_record.h"

class QBoxLayout;
class QCheckBox;
class QGroupBox;
class QRadioButton;

namespace morvane::print {

/// The radio buttons and check boxes of the printing dialog; a click is a choice, and those that do
/// not matter cannot be used.
class OptionControls {
 public:
  explicit OptionControls(HandRecord& dialog) : dialog_(dialog) {}

  struct Choice {
    const char* Name;
    const char* Caption;
    int Value;
  };
  /// Puts a radio button a choice into `frame`.
  void AddChoices(HandRecordOption option, QGroupBox& frame, QBoxLayout& into,
                  std::initializer_list<Choice> choices);
  /// Of the choice with that value.
  [[nodiscard]] QRadioButton& Button(HandRecordOption option, int value) const;
  QCheckBox* AddSwitch(HandRecordOption option, const char* name, const char* caption,
                       QWidget* parent);
  /// Shows what is chosen and what matters.
  void Show();

 private:
  struct Group {
    HandRecordOption Option;
    QGroupBox* Frame;
    QButtonGroup* Buttons;
  };
  struct Switch {
    HandRecordOption Option;
    QCheckBox* Box;
  };
  HandRecord& dialog_;
  std::vector<Group> groups_;
  std::vector<Switch> switches_;
};

}  // namespace morvane::print
