#pragma once

#include <QButtonGroup>
#include <QWidget>

namespace morvane::machine {

class MachineRun;

/// What the cards of a read run are: `read_mode1` and `read_mode2`. A click is kept at once.
class ReadModes final : public QWidget {
 public:
  ReadModes(MachineRun& run, QWidget* parent);
  void Show();

 private:
  MachineRun& run_;
  QButtonGroup modes_;  ///< the ids are the setting's values
};

}  // namespace morvane::machine
