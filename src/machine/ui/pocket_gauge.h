#pragma once

#include <QColor>
#include <QFrame>
#include <QString>
#include <optional>
#include <string>

#include "machine/pocket_state.h"

class QLabel;

namespace morvane {
class ShownValue;
}

namespace morvane::machine {

/// One pocket: whose it is, how many cards lie in it, a bar and a word for how far it is from full,
/// and the points of its hand, where a hand is dealt.
class PocketGauge final : public QFrame {
 public:
  /// What a pocket is to take, and what its controls are called.
  struct Kind {
    int Target = 0;
    QString Hand;
    QString Count;   ///< the object name of the count
    QString Title;   ///< of the hand
    QString Points;  ///< of the high-card points; empty: there are none
  };
  PocketGauge(const Kind& kind, QWidget* parent);

  /// On target the count is green, otherwise red: required. A count that is not there yet is blank,
  /// and red where `running`. Repaints at once what has changed.
  void ShowCount(std::optional<int> count, bool running, CardFlow flow);
  void ShowHcp(const std::string& points);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Bar;
  void MakePoints(const Kind& kind);
  void PlaceParts();
  [[nodiscard]] int DigitPixels() const;
  void ShowGround(const QColor& colour);

  const int target_;
  QLabel* title_;
  ShownValue* count_;
  ShownValue* points_ = nullptr;
  QLabel* unit_ = nullptr;
  Bar* bar_;
  QLabel* word_;
  QColor ground_;
  int digits_ = 0;
};

}  // namespace morvane::machine
