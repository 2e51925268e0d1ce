#pragma once

#include <QWidget>

namespace morvane::maintenance {

class Maintenance;
class OptionGroup;

/// The cards that the machine is set up for, but for the size of their index.
class CardPanel final : public QWidget {
 public:
  CardPanel(Maintenance& maintenance, QWidget* parent);
  void Show();

 private:
  Maintenance& maintenance_;
  OptionGroup* national_;
  OptionGroup* cardType_;
  OptionGroup* threshold_;
};

}  // namespace morvane::maintenance
