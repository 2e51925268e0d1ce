#pragma once

#include <QButtonGroup>
#include <QWidget>
#include <functional>

#include "machine/card_settings.h"

class QGroupBox;

namespace morvane::machine {

class MachineRun;

/// The cards that the machine is set up for: `National_1` to `National_7`, `CardType_1`,
/// `CardType_2`, `Threshold_1` to `Threshold_3`, `Card_Index_st`, `Card_Index_j`, `Card_Index_sm`.
class CardOptions final : public QWidget {
 public:
  CardOptions(MachineRun& run, QWidget* parent);
  void Show(const CardSettings& cards);

 private:
  struct Option {
    const char* Name;
    const char* Caption;
  };
  QGroupBox* AddGroup(const char* caption, std::initializer_list<Option> options,
                      QButtonGroup& buttons, std::function<void(int)> chosen);

  // The button ids are the settings' values.
  QButtonGroup national_;
  QButtonGroup cardType_;
  QButtonGroup threshold_;
  QButtonGroup cardIndex_;
};

}  // namespace morvane::machine
