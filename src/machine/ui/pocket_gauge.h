#pragma once

#include <QFrame>
#include <optional>
#include <string>

class QLabel;

namespace morvane {
class ShownValue;
}

namespace morvane::machine {

/// One pocket: whose it is, how many cards lie in it (`lblCnt_1` North to `lblCnt_4` West), how far
/// it is from full, and the hand's points (`lblHCP_1` to `lblHCP_4`).
class PocketGauge final : public QFrame {
 public:
  PocketGauge(int hand, QWidget* parent);

  enum class Mood { kWaiting, kDealing };  ///< before any count: blank, or blank and red
  /// 13 is green, any other count red. Repaints at once when something changed.
  void ShowCount(std::optional<int> count, Mood mood);
  void ShowHcp(const std::string& points);

 private:
  class Bar;
  ShownValue* lblCnt_;
  ShownValue* lblHCP_;
  QLabel* unit_;
  Bar* bar_;
  QString look_;
};

}  // namespace morvane::machine
