#pragma once

#include <QWidget>

class QCheckBox;

namespace morvane::machine {

class CardOptions;
class MachineRun;
class RunOptions;

/// What the run is set to: the cards, `Start_from_box` and `Check_board`. It keeps its place while
/// it is hidden, so that nothing jumps when the machine answers.
class OptionsPanel final : public QWidget {
 public:
  OptionsPanel(MachineRun& run, QWidget* parent);
  void Show();

 private:
  QCheckBox* AddCheckBox(const char* name, const char* caption, void (RunOptions::*set)(bool));

  MachineRun& run_;
  CardOptions* cards_;
  QCheckBox* Start_from_box_;
  QCheckBox* Check_board_;
};

}  // namespace morvane::machine
