#pragma once

#include <QWidget>
#include <functional>

#include "shell/refresh_statistics.h"

class QGridLayout;
class QPushButton;

namespace morvane {
class ShownText;
}

namespace morvane::shell {

/// The numbers of the set: `txtFirstBoard`, `txtLastBoard`, `txtCount`, `txtCompleted`; and
/// `ShowStat`, which shows or hides the statistics below them.
class SetNumbers final : public QWidget {
 public:
  SetNumbers(std::function<void()> toggleStatistics, QWidget* parent);

  void Show(const StatisticsPage& page);
  void ShowCaption(bool statisticsShown);
  void FocusButton();

 private:
  ShownText* AddNumber(QGridLayout& grid, int row, int column, const char* caption,
                       const char* name, const char* tip);

  ShownText* txtFirstBoard_ = nullptr;
  ShownText* txtLastBoard_ = nullptr;
  ShownText* txtCount_ = nullptr;
  ShownText* txtCompleted_ = nullptr;
  QPushButton* ShowStat_ = nullptr;
};

}  // namespace morvane::shell
