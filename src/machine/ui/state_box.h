#pragma once

#include <QColor>

#include "platform/qt/shown_value.h"

namespace morvane::machine {

/// `txtStatus`: the state of the machine in colour and word, to be read across the room: as large
/// as its place allows.
class StateBox final : public ShownValue {
 public:
  explicit StateBox(QWidget* parent);

  /// Painted at once, when it has changed: events wait while the machine is asked.
  void ShowState(int state);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] int LetterPixels() const;
  void ShowGround();

  QColor ground_;
  int leastLetters_ = 0;  ///< in pixels
  int letters_ = 0;
};

}  // namespace morvane::machine
