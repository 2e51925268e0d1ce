#pragma once

#include <QWidget>

class QListWidget;

namespace morvane {
class ShownValue;
}

namespace morvane::machine {

class MachineRun;

/// What the run has done so far, the last board first, and how much is left.
class HistoryBox final : public QWidget {
 public:
  HistoryBox(const MachineRun& run, QWidget* parent);
  void Show();

 private:
  const MachineRun& run_;
  ShownValue* lblLeft_;
  QListWidget* lstHistory_;
  std::size_t shown_ = 0;  ///< how many entries there have been so far
};

}  // namespace morvane::machine
